/// @file
/// The base of everything that a grid can show.
#pragma once

#include <atomic>
#include <cstdint>
#include <set>
#include <string>
#include <utility>

#include <ostrel/common/value/Type.h>
#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/String.h>
#include <ostrel/platform/base/Types.h>

namespace Ostrel::Common
{

class CField;
class CFieldMap;
class CFormat;
class CSerializer;
class CValue;

/// The base of everything that a grid can show. An application class derives from it, describes its data as fields of a
/// field map, and calls NotifyUpdate when a value changes. Everybody else reads and writes the data by field number and
/// subscribes to changes.
///
/// The object holds no values of its own, only its subscribers: two words, until a second one subscribes. Reading a
/// field never locks and never allocates. The values themselves are not locked; that is the application's business.
class OSTREL_COMMON_API CDataObject
{
public:
    static constexpr long kAllFields = -1; ///< in notifications: every field may have changed
    static constexpr long kNoField = -2;   ///< the number of no field

    /// A subscriber. It is called on the thread that notifies, with no lock of the object held: it may add and remove
    /// subscribers, notify again and read the object. It is not owned, and unsubscribes before it dies.
    class OSTREL_COMMON_API ISink
    {
    public:
        /// Several fields changed. The base calls the other OnUpdate for each of them in ascending order.
        virtual void OnUpdate(std::set<long> const& fids, CDataObject const* object);
        /// One field changed; -1 means that any may have changed.
        virtual void OnUpdate(long fid, CDataObject const* object) = 0;
        /// The object goes away and has dropped the subscription. Must not throw when the object's destructor calls.
        virtual void OnDelete(CDataObject const* object);

    protected:
        virtual ~ISink() = default;
    };

    CDataObject(CDataObject const&) = delete;
    CDataObject& operator=(CDataObject const&) = delete;
    /// Tells the subscribers that are still there by OnDelete.
    virtual ~CDataObject();

    /// The field with a number and the object whose accessors serve it; a null member means that there is no such
    /// field. All access below goes through this.
    [[nodiscard]] virtual std::pair<CField*, CDataObject*> GetField(long fid) const;
    ///@{
    /// Inserts the fields, or their numbers, of the class and its parents. The set is not cleared.
    virtual void GetAllFields(std::set<std::pair<CField*, CDataObject*>>& fields) const;
    virtual void GetAllFids(std::set<long>& fids) const;
    ///@}
    /// The class's field map, shared by all its objects. May be null.
    [[nodiscard]] virtual CFieldMap const* GetFieldMap() const = 0;

    ///@{
    /// Whether the field can be read, and written. False for an unknown field.
    [[nodiscard]] virtual bool HasGetMethod(long fid) const;
    [[nodiscard]] virtual bool HasSetMethod(long fid) const;
    ///@}
    /// The type of the field's values; TypeEmpty for an unknown field.
    [[nodiscard]] virtual EnType GetFieldType(long fid);
    /// The field's display name; empty for an unknown field.
    [[nodiscard]] virtual std::string GetFieldName(long fid);
    /// The field's own format, which the field owns; null when it has none.
    [[nodiscard]] virtual CFormat const* GetFormat(long fid) const;

    ///@{
    /// Typed reads: what the getter returns if the field has exactly that type and a getter, else zero, false, null or
    /// an empty text. Nothing is converted.
    [[nodiscard]] virtual CString GetMfcString(long fid);
    [[nodiscard]] virtual std::string GetStlString(long fid);
    [[nodiscard]] virtual char GetChar(long fid) const;
    [[nodiscard]] virtual unsigned char GetUChar(long fid) const;
    [[nodiscard]] virtual short GetShort(long fid) const;
    [[nodiscard]] virtual unsigned short GetUShort(long fid) const;
    [[nodiscard]] virtual long GetLong(long fid) const;
    [[nodiscard]] virtual unsigned long GetULong(long fid) const;
    [[nodiscard]] virtual __int64 GetInt64(long fid) const;
    [[nodiscard]] virtual bool GetBool(long fid) const;
    [[nodiscard]] virtual float GetFloat(long fid) const;
    [[nodiscard]] virtual double GetDouble(long fid) const;
    [[nodiscard]] virtual CDataObject* GetObjectPtr(long fid) const;
    ///@}
    /// The field's value with its type; zero or empty without a getter; an empty value for an unknown field.
    [[nodiscard]] virtual CValue GetValue(long fid);

    ///@{
    /// Typed writes: call the setter and return true if the field has exactly that type and a setter, else return
    /// false. The setter itself notifies if it wants to.
    virtual bool SetMfcString(long fid, CString const& value);
    virtual bool SetStlString(long fid, std::string const& value);
    virtual bool SetChar(long fid, char value);
    virtual bool SetUChar(long fid, unsigned char value);
    virtual bool SetShort(long fid, short value);
    virtual bool SetUShort(long fid, unsigned short value);
    virtual bool SetLong(long fid, long value);
    virtual bool SetULong(long fid, unsigned long value);
    virtual bool SetInt64(long fid, __int64 value);
    virtual bool SetBool(long fid, bool value);
    virtual bool SetFloat(long fid, float value);
    virtual bool SetDouble(long fid, double value);
    virtual bool SetObjectPtr(long fid, CDataObject* value);
    ///@}
    /// Calls the setter of a field of any type; returns false without one. A value of another type than the field's
    /// arrives as zero or as an empty text.
    virtual bool SetValue(long fid, CValue const& value);

    /// The field's text through the given format, or else the field's own, or else the type's default. Empty without a
    /// getter.
    [[nodiscard]] virtual CString GetFormattedMfcString(long fid, CFormat const* format);
    /// Parses the text through a format chosen the same way and sets the field. Returns false if the text cannot be
    /// read or the field has no setter. A text field takes a text that its format rejects as it is.
    virtual bool SetFormattedMfcString(long fid, CString const& text, CFormat const* format);
    /// GetFormattedMfcString on std::string.
    [[nodiscard]] virtual std::string GetFormattedStlString(long fid, CFormat const* format);
    /// SetFormattedMfcString on std::string.
    virtual bool SetFormattedStlString(long fid, std::string const& text, CFormat const* format);

    /// The name under which the class is registered for restoring objects from a stream; empty when it is not.
    [[nodiscard]] virtual std::string const& GetSerializationName() const;
    /// True when objects of the class may be stored and made again by name.
    [[nodiscard]] virtual bool IsSerializableType() const;
    /// Stores all field values, or restores them by SetValue; unknown fields are skipped. If the stream ends too early,
    /// CSerializer::SerializationException is thrown and the fields restored so far keep their new values.
    virtual void Serialize(CSerializer& serializer);
    /// The version of the stored record. Later versions are read as this one.
    [[nodiscard]] static int GetSerializeVertion() noexcept { return 1; }

    /// Subscribes. Does nothing if the sink is null or subscribed already. Does not take ownership. Any thread.
    void AddSink(ISink* sink);
    /// Unsubscribes. A notification that is under way may still reach the sink. Any thread.
    void RemoveSink(ISink* sink);
    ///@{
    /// Tells all subscribers that a field or several changed (-1: all may have), in the order of subscription, on the
    /// caller's thread. The list is copied first: a sink
    /// added during the call is not called by it, and a sink removed during it still is. What a sink throws reaches
    /// the caller, and the sinks after it are not called. Any thread.
    void NotifyUpdate(long fid);
    void NotifyUpdate(std::set<long> const& fids);
    ///@}

protected:
    CDataObject() noexcept = default;

    /// Unsubscribes everybody and tells them by OnDelete. A derived class whose data must still be readable then calls
    /// it first in its own destructor.
    void NotifyDelete();

private:
    class SinkList;

    template <class T>
    [[nodiscard]] T Get(long fid) const;
    template <class T>
    bool Set(long fid, T const& value);
    template <class Text>
    [[nodiscard]] Text GetFormatted(long fid, CFormat const* format) const;
    template <class Text>
    bool SetFormatted(long fid, Text const& text, CFormat const* format);
    template <class Call>
    void ForEachSink(Call const& call) const;
    void Store(CSerializer& serializer);
    void Restore(CSerializer& serializer);
    bool ReplaceSinks(std::uintptr_t before, std::uintptr_t now) noexcept;
    /// For a word that holds a single sink: a list of it and another takes its place. False if the word has changed.
    bool AddSecondSink(std::uintptr_t word, ISink* second);

    /// 0; or the only sink, with bit 0 set; or the list of the sinks, which is made by the second subscription and then
    /// kept. Nearly every object has one sink or none, and there are many objects: those need no list and no lock.
    std::atomic<std::uintptr_t> m_sinks{0};
};

} // namespace Ostrel::Common

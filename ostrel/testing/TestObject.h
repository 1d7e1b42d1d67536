/// @file
/// A small data object for tests: one field of each common type, and setters that notify.
#pragma once

#include <string>

#include <ostrel/common/dataobject/DataObject.h>
#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/ThreadAnnotations.h>

namespace Ostrel::Testing
{

/// What a TestObject holds, for `TestRow{.name = "red", .price = 3.5}`.
struct TestRow
{
    std::string name{};  ///< what a GridDriver calls the row by
    double price = 0;    ///< a number with decimals
    long quantity = 0;   ///< a whole number
    bool active = false; ///< "true" or "false"
    __int64 volume = 0;  ///< a large whole number
    CString note{};      ///< any text
};

/// Any thread may read and write it.
class OSTREL_TESTING_API TestObject : public Common::CDataObject
{
public:
    /// The fields; their names are the enumerators'.
    enum Fid : long
    {
        Name = 1,     ///< std::string
        Price = 2,    ///< double
        Quantity = 3, ///< long
        Active = 4,   ///< bool
        Volume = 5,   ///< __int64
        Note = 6      ///< CString
    };

    /// An object with these values.
    explicit TestObject(TestRow row = {}) : m_row(std::move(row)) {}
    TestObject(TestObject const&) = delete;
    TestObject& operator=(TestObject const&) = delete;
    ~TestObject() override;

    [[nodiscard]] Common::CFieldMap const* GetFieldMap() const override;

    ///@{
    /// A value; setting notifies the subscribers.
    [[nodiscard]] std::string GetName() const { return Read(&TestRow::name); }
    void SetName(std::string const& name) { Write(&TestRow::name, name, Name); }
    [[nodiscard]] double GetPrice() const { return Read(&TestRow::price); }
    void SetPrice(double price) { Write(&TestRow::price, price, Price); }
    [[nodiscard]] long GetQuantity() const { return Read(&TestRow::quantity); }
    void SetQuantity(long quantity) { Write(&TestRow::quantity, quantity, Quantity); }
    [[nodiscard]] bool IsActive() const { return Read(&TestRow::active); }
    void SetActive(bool active) { Write(&TestRow::active, active, Active); }
    [[nodiscard]] __int64 GetVolume() const { return Read(&TestRow::volume); }
    void SetVolume(__int64 volume) { Write(&TestRow::volume, volume, Volume); }
    [[nodiscard]] CString GetNote() const { return Read(&TestRow::note); }
    void SetNote(CString const& note) { Write(&TestRow::note, note, Note); }
    ///@}

private:
    template <class T>
    T Read(T TestRow::*member) const
    {
        Platform::MutexLock const lock(m_lock);
        return m_row.*member;
    }
    template <class T>
    void Write(T TestRow::*member, T const& value, long fid)
    {
        {
            Platform::MutexLock const lock(m_lock);
            m_row.*member = value;
        }
        NotifyUpdate(fid);
    }

    mutable Platform::Mutex m_lock;
    TestRow m_row OSTREL_GUARDED_BY(m_lock);
};

} // namespace Ostrel::Testing

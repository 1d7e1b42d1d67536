/// @file
/// The fields of one class, found by number.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <set>

#include <ostrel/common/dataobject/Field.h>
#include <ostrel/common/dataobject/detail/FieldIndex.h>
#include <ostrel/platform/base/Export.h>

namespace Ostrel::Common
{

/// The fields of one class, found by number. A map points to the map of the parent class; what it does not find itself,
/// the parent is asked for.
///
/// A map is filled once, indexed once and then only read: one static object per class, any thread may read it. Nothing
/// is locked.
class OSTREL_COMMON_API CFieldMap
{
public:
    CFieldMap() noexcept;
    /// With the map of the parent class, which is not owned and must outlive this one. Null means none.
    explicit CFieldMap(CFieldMap* parent) noexcept;
    CFieldMap(CFieldMap const&) = delete;
    CFieldMap& operator=(CFieldMap const&) = delete;
    virtual ~CFieldMap();

    /// Adds a field under a number and takes ownership. Returns false, and the caller keeps the field, if the field is
    /// null or the number is taken in this map. A number of the parent's may be used again and hides the parent's.
    bool AddField(long fid, CField* field);
    /// The field of this map or else of the nearest parent that has one; null if none has. A field that was added after
    /// InitHash is not found.
    [[nodiscard]] CField* GetField(long fid) const noexcept;
    /// Inserts the fields of this map, not of its parents. The set is not cleared.
    void GetAllFields(std::set<CField*>& fields) const;
    ///@{
    /// The map of the parent class; null without one.
    [[nodiscard]] CFieldMap const* GetParentMap() const noexcept { return m_parent; }
    [[nodiscard]] CFieldMap* GetParentMap() noexcept { return m_parent; }
    ///@}
    /// Builds the index for quick look-ups, once, after the last field. Does nothing while there is no field.
    void InitHash();

private:
    [[nodiscard]] CField* FindOwnField(long fid) const noexcept;

    std::map<long, std::unique_ptr<CField>> m_fields;
    CFieldMap* m_parent = nullptr;
    std::optional<detail::FieldIndex> m_index;
};

} // namespace Ostrel::Common

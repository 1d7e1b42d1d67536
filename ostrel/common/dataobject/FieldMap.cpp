#include <vector>

#include <ostrel/common/dataobject/FieldMap.h>
#include <ostrel/common/format/Format.h>
#include <ostrel/platform/base/Narrow.h>

namespace Ostrel::Common
{

CFieldMap::CFieldMap() noexcept = default;

CFieldMap::CFieldMap(CFieldMap* parent) noexcept : m_parent(parent) {}

CFieldMap::~CFieldMap() = default;

bool CFieldMap::AddField(long fid, CField* field)
{
    long const key = Platform::NarrowLong(fid);
    if (field == nullptr || m_fields.contains(key))
    {
        return false;
    }
    m_fields[key].reset(field);
    return true;
}

CField* CFieldMap::FindOwnField(long fid) const noexcept
{
    if (m_index)
    {
        return m_index->Find(Platform::NarrowToInt32(fid));
    }
    auto const found = m_fields.find(Platform::NarrowLong(fid));
    return found != m_fields.end() ? found->second.get() : nullptr;
}

CField* CFieldMap::GetField(long fid) const noexcept
{
    for (CFieldMap const* map = this; map != nullptr; map = map->m_parent)
    {
        if (CField* const field = map->FindOwnField(fid))
        {
            return field;
        }
    }
    return nullptr;
}

void CFieldMap::GetAllFields(std::set<CField*>& fields) const
{
    for (auto const& [fid, field] : m_fields)
    {
        fields.insert(field.get());
    }
}

void CFieldMap::InitHash()
{
    if (m_index || m_fields.empty())
    {
        return;
    }
    std::vector<detail::FieldIndex::Entry> entries;
    entries.reserve(m_fields.size());
    for (auto const& [fid, field] : m_fields)
    {
        entries.emplace_back(Platform::NarrowToInt32(fid), field.get());
    }
    m_index.emplace(entries);
}

} // namespace Ostrel::Common

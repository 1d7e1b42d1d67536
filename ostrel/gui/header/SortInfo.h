/// @file
/// One level of a sort order: which field is compared, and in which direction. A plain value.
#pragma once

#include <cstdint>

#include <ostrel/platform/base/Export.h>

class CArchive;

namespace Ostrel::GUI
{

/// A field and a direction.
class OSTREL_GUI_API CSortInfo
{
public:
    /// Ascending (smaller values first) unless reverse.
    CSortInfo(long fid, bool reverse) noexcept;
    ///@{
    /// Copies both.
    CSortInfo(CSortInfo const&) noexcept = default;
    CSortInfo& operator=(CSortInfo const&) noexcept = default;
    ///@}
    virtual ~CSortInfo() = default;

    ///@{
    /// The field that is compared; -2 for none.
    [[nodiscard]] long GetFid() const noexcept { return m_fid; }
    void SetFid(long fid) noexcept;
    ///@}

    ///@{
    /// True for descending order, larger values first.
    [[nodiscard]] bool GetReverseSort() const noexcept { return m_reverse; }
    void SetReverseSort(bool reverse) noexcept { m_reverse = reverse; }
    ///@}

    /// Equality of field and direction.
    friend bool operator==(CSortInfo const& a, CSortInfo const& b) noexcept
    {
        return a.m_fid == b.m_fid && a.m_reverse == b.m_reverse;
    }

    /// Stores or loads 9 bytes: 32-bit version, 32-bit fid, one byte. Loading throws CArchiveException (badSchema) for
    /// a newer version and changes nothing then, nor for a version below 1 or an archive that ends too early.
    virtual void Serialize(CArchive& archive);
    /// The version that is written.
    [[nodiscard]] static int GetSerializeVersion() noexcept { return 1; }
    /// The same, in the spelling that the other classes have.
    [[nodiscard]] static int GetSerializeVertion() noexcept { return GetSerializeVersion(); }

private:
    std::int32_t m_fid;
    bool m_reverse;
};

} // namespace Ostrel::GUI

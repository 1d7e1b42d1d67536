#include <ostrel/common/format/EmptyFormat.h>

namespace Ostrel::Common
{

CString CEmptyFormat::FormatMfc(CValue const& /*value*/, CDataObject const* /*object*/) const
{
    return {};
}

bool CEmptyFormat::ParseMfc(CString const& /*text*/, CValue& /*value*/, CDataObject const* /*object*/) const
{
    return false;
}

std::string CEmptyFormat::FormatStl(CValue const& /*value*/, CDataObject const* /*object*/) const
{
    return {};
}

bool CEmptyFormat::ParseStl(std::string const& /*text*/, CValue& /*value*/, CDataObject const* /*object*/) const
{
    return false;
}

} // namespace Ostrel::Common

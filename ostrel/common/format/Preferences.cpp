#include <ostrel/common/format/Preferences.h>
#include <ostrel/common/format/detail/PreferencesRecord.h>

namespace Ostrel::Common
{

detail::PreferencesRecord& detail::ThePreferences()
{
    // Never destroyed, as static objects of applications may format dates to the very end.
    static PreferencesRecord& record = *new PreferencesRecord;
    return record;
}

CPreferences::DateType CPreferences::GetDateType()
{
    return detail::ThePreferences().dateType;
}

void CPreferences::SetDateType(DateType type)
{
    detail::ThePreferences().dateType = type;
}

std::string CPreferences::GetDateSeparator()
{
    return detail::ThePreferences().dateSeparator;
}

void CPreferences::SetDateSeparator(std::string const& separator)
{
    detail::ThePreferences().dateSeparator = separator;
}

std::string CPreferences::GetTimeSeparator()
{
    return detail::ThePreferences().timeSeparator;
}

void CPreferences::SetTimeSeparator(std::string const& separator)
{
    detail::ThePreferences().timeSeparator = separator;
}

std::string CPreferences::GetMillisecondSeparator()
{
    return detail::ThePreferences().millisecondSeparator;
}

void CPreferences::SetMillisecondSeparator(std::string const& separator)
{
    detail::ThePreferences().millisecondSeparator = separator;
}

} // namespace Ostrel::Common

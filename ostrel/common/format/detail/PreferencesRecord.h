// The settings of CPreferences, for the formats that read them without copying.
#pragma once

#include <string>

#include <ostrel/common/format/Preferences.h>

namespace Ostrel::Common::detail
{

struct PreferencesRecord
{
    CPreferences::DateType dateType = CPreferences::DayMonthYear;
    std::string dateSeparator = "/";
    std::string timeSeparator = ":";
    std::string millisecondSeparator = ".";
};

/// The one record of the process.
[[nodiscard]] PreferencesRecord& ThePreferences();

} // namespace Ostrel::Common::detail

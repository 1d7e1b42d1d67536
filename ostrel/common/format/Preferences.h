// How the process writes dates: the order of day, month and year, and the separators.
#pragma once

#include <string>

#include <ostrel/platform/base/Export.h>

namespace Ostrel::Common
{

/// Read by every date format at every conversion, on any thread, and not locked: whoever changes a setting sees to it
/// that no other thread formats a date meanwhile. Cells already shown follow at their next repaint.
class OSTREL_COMMON_API CPreferences
{
public:
    enum DateType : int
    {
        DayMonthYear = 0,
        MonthDayYear = 1,
        YearMonthDay = 2
    };

    CPreferences() = delete;

    [[nodiscard]] static DateType GetDateType();
    static void SetDateType(DateType type);
    /// "/" unless set.
    [[nodiscard]] static std::string GetDateSeparator();
    static void SetDateSeparator(std::string const& separator);
    /// ":" unless set.
    [[nodiscard]] static std::string GetTimeSeparator();
    static void SetTimeSeparator(std::string const& separator);
    /// "." unless set.
    [[nodiscard]] static std::string GetMillisecondSeparator();
    static void SetMillisecondSeparator(std::string const& separator);
};

} // namespace Ostrel::Common

/// @file
/// How the process writes dates: the order of day, month and year, and the separators.
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
    /// The order in which a date is written and read.
    enum DateType : int
    {
        DayMonthYear = 0, ///< 31/12/2008
        MonthDayYear = 1, ///< 12/31/2008
        YearMonthDay = 2  ///< 2008/12/31
    };

    CPreferences() = delete;

    ///@{
    /// The order of day, month and year; DayMonthYear unless set.
    [[nodiscard]] static DateType GetDateType();
    static void SetDateType(DateType type);
    ///@}

    ///@{
    /// What stands between day, month and year; "/" unless set.
    [[nodiscard]] static std::string GetDateSeparator();
    static void SetDateSeparator(std::string const& separator);
    ///@}

    ///@{
    /// What stands between hours, minutes and seconds; ":" unless set.
    [[nodiscard]] static std::string GetTimeSeparator();
    static void SetTimeSeparator(std::string const& separator);
    ///@}

    ///@{
    /// What stands before milliseconds where a date is read; "." unless set.
    [[nodiscard]] static std::string GetMillisecondSeparator();
    static void SetMillisecondSeparator(std::string const& separator);
    ///@}
};

} // namespace Ostrel::Common

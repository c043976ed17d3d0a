#pragma once
// The display formats of the system's formatting language ("mm/dd/yyyy hh:mm ampm", "dddd mmm dd, yyyy",
// "HH:MM AM/PM", "H:MMam/pm", "0.00", "$0.00", "####0.00", "currency", "short date", ...), given their
// meaning here. Named formats that depend on the user's locale take it from FormatLocale, which the app
// fills from QLocale and tests leave at its United States defaults.

#include "common/date_time.h"

#include <string>
#include <string_view>

namespace tallymere::common {

struct FormatLocale {
    std::string decimalSeparator = ".";
    std::string thousandsSeparator = ",";
    std::string currencySymbol = "$";
    bool currencySymbolFirst = true;     // "$1.00" rather than "1.00 $"
    bool negativeCurrencyInParentheses = true;  // "($1.00)" rather than "-$1.00"
    int currencyDecimals = 2;
    // Patterns in the formatting language itself.
    std::string shortDatePattern = "m/d/yyyy";
    std::string longDatePattern = "dddd, mmmm d, yyyy";
    std::string longTimePattern = "h:nn:ss ampm";
    std::string amDesignator = "AM";
    std::string pmDesignator = "PM";
};

// A date-time in a format of the formatting language; named formats ("short date", "medium date",
// "long date", "short time", "medium time", "long time", "general date") are understood too, without
// regard to case. An empty format is "general date".
std::string formatDateTime(DateTime value, std::string_view format, const FormatLocale& locale = {});
inline std::string formatDate(Date value, std::string_view format, const FormatLocale& locale = {}) {
    return formatDateTime(DateTime::at(value), format, locale);
}

// A number in a numeric format ("0.00", "00.00", "$0.00", "####0.00", "#,##0.00", "0%", "currency",
// "fixed", "standard", "percent", "general number"); digits round half away from zero, as the system's
// formats do. A pattern may have up to three sections, "positive;negative;zero". In a pattern "." and
// "," stand for the locale's decimal and thousands separators; "$" and other characters print as they are.
// An empty format is "general number".
std::string formatNumber(double value, std::string_view format, const FormatLocale& locale = {});

}  // namespace tallymere::common

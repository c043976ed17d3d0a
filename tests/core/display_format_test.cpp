#include "common/display_format.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

// The case tables are laid out by hand, several cases to a line.
// clang-format off
namespace tallymere::common {
namespace {

struct DateCase {
    const char* format;
    const char* expected;
};

// Monday 2026-11-23, 22:05:09.
const DateTime kEvening = DateTime::fromParts(2026, 11, 23, 22, 5, 9);

void expectDates(const std::vector<DateCase>& cases, const FormatLocale& locale = {}, DateTime t = kEvening) {
    for (const auto& c : cases) EXPECT_EQ(formatDateTime(t, c.format, locale), c.expected) << c.format;
}

TEST(FormatDateTime, FormatsTheProgramUses) {
    expectDates({
        {"mm/dd/yyyy hh:mm ampm", "11/23/2026 10:05 PM"}, {"MM/dd/yyyy", "11/23/2026"},
        {"DDDD mmm dd, yyyy", "Monday Nov 23, 2026"},     {"ddd mmm, dd", "Mon Nov, 23"},
        {"mmm d", "Nov 23"},                              {"MMMM, YYYY", "November, 2026"},
        {"dd/mm/yy", "23/11/26"},                         {"dd-mmm-yyyy", "23-Nov-2026"},
        {"H:MM", "22:05"},                                {"HH:mm ampm", "10:05 PM"},
        {"H:MMam/pm", "10:05pm"},                         {"H:MMA/P", "10:05P"},
        {"h:nn:ss", "22:05:09"},                          {"mm:ss", "05:09"},
    });
}

TEST(FormatDateTime, TwelveHourClockAroundMidnightAndNoon) {
    struct Case {
        int hour, minute;
        const char* format;
        const char* expected;
    };
    const std::vector<Case> cases{
        {0, 5, "hh:mm AM/PM", "12:05 AM"},   {0, 0, "HH:MM AM/PM", "12:00 AM"},
        {12, 0, "hh:mm AM/PM", "12:00 PM"},  {11, 59, "hh:mm AM/PM", "11:59 AM"},
        {12, 30, "H:MMa/p", "12:30p"},       {9, 5, "HH:MM AMPM", "09:05 AM"},
        {9, 5, "H:MMam/pm", "9:05am"},       {17, 30, "HH:MMA/P", "05:30P"},
        {17, 30, "H:MM", "17:30"},           {0, 5, "HH:MM", "00:05"},
        {0, 5, "H:MM", "0:05"},              {17, 30, "HH:MMAM/PM", "05:30PM"},
        // A marker written in mixed case prints each half as it is written.
        {9, 0, "h AM/pm", "9 AM"},           {21, 0, "h AM/pm", "9 pm"},
    };
    for (const auto& c : cases) {
        const DateTime t = DateTime::fromParts(2006, 1, 1, c.hour, c.minute);
        EXPECT_EQ(formatDateTime(t, c.format), c.expected) << c.format << " at " << c.hour << ":" << c.minute;
    }
}

TEST(FormatDateTime, MinutesOrMonthsByTheirNeighbours) {
    // "hh:nn mm": a month after minutes stays a month.
    expectDates({{"m/d/yyyy h:m", "3/4/2026 7:45"}, {"mm", "03"}, {"hh mm", "07 45"}, {"mm:ss", "45:30"},
                 {"hh:nn mm", "07:45 03"}, {"mmm hh:mm", "Mar 07:45"}},
                {}, DateTime::fromParts(2026, 3, 4, 7, 45, 30));
}

TEST(FormatDateTime, NamedFormatsFollowTheLocale) {
    expectDates({
        {"short date", "11/23/2026"},   {"Short Date", "11/23/2026"},  {"long date", "Monday, November 23, 2026"},
        {"medium date", "23-Nov-26"},   {"long time", "10:05:09 PM"}, {"medium time", "10:05 PM"},
        {"short time", "22:05"},        {"general date", "11/23/2026 10:05:09 PM"},
        {"", "11/23/2026 10:05:09 PM"},
    });
    expectDates({{"General Date", "11/23/2026"}}, {}, DateTime::fromParts(2026, 11, 23));
    expectDates({{"general date", "8:00:00 AM"}}, {}, DateTime::fromParts(1899, 12, 30, 8, 0));

    FormatLocale uk;
    uk.shortDatePattern = "dd/mm/yyyy";
    uk.longDatePattern = "d mmmm yyyy";
    uk.longTimePattern = "hh:nn:ss";
    uk.amDesignator = "am";
    uk.pmDesignator = "pm";
    expectDates({{"short date", "23/11/2026"}, {"long date", "23 November 2026"},
                 {"general date", "23/11/2026 22:05:09"}, {"hh:nn ampm", "10:05 pm"}, {"ddddd", "23/11/2026"},
                 {"c", "23/11/2026 22:05:09"}},
                uk);
}

TEST(FormatDateTime, LiteralsEscapesAndOtherTokens) {
    expectDates({{"\"Week of\" mmm d", "Week of Nov 23"}, {"\\d\\a\\y d", "day 23"}, {"yyyy-mm-dd", "2026-11-23"},
                 {"q", "4"}, {"y", "327"}, {"w", "2"}});
    expectDates({{"ww", "1"}}, {}, DateTime::fromParts(2026, 1, 3));  // Saturday of week 1
    expectDates({{"ww", "2"}}, {}, DateTime::fromParts(2026, 1, 4));  // the next Sunday
    EXPECT_EQ(formatDate(Date::fromYmd(2024, 2, 29), "dddd d mmmm yyyy"), "Thursday 29 February 2024");
    // A locale pattern that names itself must not loop.
    FormatLocale odd;
    odd.shortDatePattern = "ddddd";
    EXPECT_NO_THROW(formatDateTime(kEvening, "short date", odd));
}

struct NumberCase {
    double value;
    const char* format;
    const char* expected;
};

void expectAll(const std::vector<NumberCase>& cases, const FormatLocale& locale = {}) {
    for (const auto& c : cases) EXPECT_EQ(formatNumber(c.value, c.format, locale), c.expected) << c.value << " in " << c.format;
}

TEST(FormatNumber, PatternsTheProgramUses) {
    expectAll({
        {7.5, "0.00", "7.50"},           {0, "0.00", "0.00"},             {1234.5, "0.00", "1234.50"},
        {5.5, "00.00", "05.50"},         {40, "00.00", "40.00"},          {123.456, "00.00", "123.46"},
        {8.5, "$0.00", "$8.50"},         {8.5, "$00.00", "$08.50"},       {1234.567, "$00.00", "$1234.57"},
        {7.5, "####0.00", "7.50"},       {0.25, "####0.00", "0.25"},      {123456.789, "####0.00", "123456.79"},
        {1234567.891, "#,##0.00", "1,234,567.89"}, {999.999, "#,##0.00", "1,000.00"}, {0, "#,##0.00", "0.00"},
        {12.5, "0", "13"},               {11.5, "0", "12"},               {0.4, "0", "0"},
        {0.256, "0%", "26%"},            {5, "00", "05"},                 {45, "00", "45"},
        {0.5, "#.00", ".50"},            {1.5, "0.0#", "1.5"},            {1.255, "0.0#", "1.26"},
    });
}

TEST(FormatNumber, RoundsHalfAwayFromZeroOnTheShownDecimals) {
    expectAll({
        {2.345, "0.00", "2.35"},   {0.125, "0.00", "0.13"},   {1.005, "0.00", "1.01"},
        {2.675, "0.00", "2.68"},   {1.115, "0.00", "1.12"},   {-2.345, "0.00", "-2.35"},
        {-0.125, "0.00", "-0.13"}, {0.5, "0", "1"},           {1.5, "0", "2"},
        {2.5, "0", "3"},           {-2.5, "0", "-3"},         {9.995, "0.00", "10.00"},
        {99.5, "00", "100"},       {0.1 + 0.2, "0.00", "0.30"}, {1e-20, "0.00", "0.00"},
        {1e20, "0", "100000000000000000000"},
        // A negative that rounds to nothing shows as zero.
        {-0.001, "0.00", "0.00"},
    });
}

TEST(FormatNumber, NamedFormatsAndNegativeCurrency) {
    expectAll({
        {1234.5, "currency", "$1,234.50"},    {-1234.5, "currency", "($1,234.50)"},
        {0, "Currency", "$0.00"},             {0.005, "currency", "$0.01"},
        {-5, "$0.00", "-$5.00"},              {1234.5, "fixed", "1234.50"},
        {-1234.5, "fixed", "-1234.50"},       {1234.5, "standard", "1,234.50"},
        {0.1234, "percent", "12.34%"},        {1234.5, "general number", "1234.5"},
        {-0.25, "General Number", "-0.25"},   {1e20, "general number", "1E+20"},
        {0.00001, "general number", "1E-05"}, {2.0 / 3, "general number", "0.666666666666667"},
        {42, "", "42"},
    });
    FormatLocale minusFirst;
    minusFirst.negativeCurrencyInParentheses = false;
    EXPECT_EQ(formatNumber(-3.5, "currency", minusFirst), "-$3.50");
}

TEST(FormatNumber, CommaDecimalLocale) {
    FormatLocale de;
    de.decimalSeparator = ",";
    de.thousandsSeparator = ".";
    de.currencySymbol = "€";
    de.currencySymbolFirst = false;
    de.negativeCurrencyInParentheses = false;
    expectAll(
        {
            {2.345, "0.00", "2,35"},             {1234567.5, "#,##0.00", "1.234.567,50"},
            {1234.5, "currency", "1.234,50 €"},  {-1234.5, "currency", "-1.234,50 €"},
            {8.5, "$0.00", "$8,50"},             {0.5, "general number", "0,5"},
            {1234.5, "standard", "1.234,50"},
        },
        de);
}

TEST(FormatNumber, SectionsLiteralsAndScaling) {
    expectAll({
        {5, "0.00;(0.00);\"none\"", "5.00"},
        {-5, "0.00;(0.00);\"none\"", "(5.00)"},
        {0, "0.00;(0.00);\"none\"", "none"},
        {-5, "0.00;;\"none\"", "-5.00"},  // an empty section falls back to the first
        {7.25, "0.00\" hrs\"", "7.25 hrs"},
        {7.25, "0.00 \\h", "7.25 h"},
        {1234567, "#,##0,", "1,235"},
        {12.5, "0.0%", "1250.0%"},
    });
}

}  // namespace
}  // namespace tallymere::common
// clang-format on

#include "common/date_time.h"

#include <gtest/gtest.h>

#include <vector>

namespace tallymere::common {
namespace {

Date ymd(int y, int m, int d) { return Date::fromYmd(y, m, d); }
DateTime at(int y, int mo, int d, int h = 0, int mi = 0, int s = 0) { return DateTime::fromParts(y, mo, d, h, mi, s); }

TEST(DateArithmetic, MonthsClampToTheEndOfTheTargetMonth) {
    struct Case {
        Date from;
        int months;
        Date expected;
    };
    const std::vector<Case> cases{
        {ymd(2024, 1, 31), 1, ymd(2024, 2, 29)},   {ymd(2025, 1, 31), 1, ymd(2025, 2, 28)},
        {ymd(2024, 3, 31), -1, ymd(2024, 2, 29)},  {ymd(2024, 2, 29), 12, ymd(2025, 2, 28)},
        {ymd(2000, 2, 29), 12 * 100, ymd(2100, 2, 28)}, {ymd(2026, 12, 15), 1, ymd(2027, 1, 15)},
        {ymd(2026, 1, 15), -1, ymd(2025, 12, 15)}, {ymd(2026, 1, 31), -13, ymd(2024, 12, 31)},
        {ymd(2026, 5, 31), 0, ymd(2026, 5, 31)},
    };
    for (const auto& c : cases) EXPECT_EQ(c.from.addMonths(c.months), c.expected) << c.from.toIso() << " + " << c.months;
    EXPECT_EQ(ymd(2024, 2, 29).addYears(1), ymd(2025, 2, 28));
    EXPECT_EQ(at(2024, 1, 31, 22, 30).addMonths(1), at(2024, 2, 29, 22, 30));
}

TEST(DateArithmetic, WeekdaysAndDaysBeforeTheEpoch) {
    EXPECT_EQ(ymd(1970, 1, 1).weekday(), Weekday::Thursday);
    EXPECT_EQ(ymd(1969, 12, 31).weekday(), Weekday::Wednesday);
    EXPECT_EQ(ymd(1899, 12, 30).weekday(), Weekday::Saturday);
    EXPECT_EQ(ymd(2000, 2, 29).weekday(), Weekday::Tuesday);
    EXPECT_EQ(ymd(2026, 11, 23).weekday(), Weekday::Monday);
    EXPECT_EQ(GetDayName(ymd(2026, 11, 29)), "Sunday");

    const DateTime before = at(1969, 12, 31, 23, 59, 30);
    EXPECT_EQ(before.date(), ymd(1969, 12, 31));
    EXPECT_EQ(before.hour(), 23);
    EXPECT_EQ(before.minute(), 59);
    EXPECT_EQ(before.second(), 30);
    EXPECT_EQ(ymd(1899, 12, 30).year(), 1899);
    EXPECT_EQ(ymd(1899, 12, 30).addDays(2), ymd(1900, 1, 1));
}

TEST(WeekStart, StepsBackToTheNamedDay) {
    // 2026-11-23 is a Monday.
    EXPECT_EQ(weekStart(ymd(2026, 11, 23), "Monday"), ymd(2026, 11, 23));
    EXPECT_EQ(weekStart(ymd(2026, 11, 29), "monday"), ymd(2026, 11, 23));
    EXPECT_EQ(weekStart(ymd(2026, 11, 29), "MONDAY "), ymd(2026, 11, 23));
    EXPECT_EQ(weekStart(ymd(2026, 11, 28), "Sunday"), ymd(2026, 11, 22));
    EXPECT_EQ(weekStart(ymd(2026, 11, 22), "Sunday"), ymd(2026, 11, 22));
    EXPECT_EQ(weekStart(ymd(2026, 3, 2), "Tuesday"), ymd(2026, 2, 24));  // across a month end
    EXPECT_EQ(weekEnd(ymd(2026, 11, 25), "Monday"), ymd(2026, 11, 29));
    EXPECT_EQ(weekStart(ymd(2026, 11, 25), "Funday"), ymd(2026, 11, 25));
}

TEST(DateDiff, CountsBoundariesCrossed) {
    struct Case {
        const char* interval;
        DateTime a, b;
        long long expected;
    };
    const std::vector<Case> cases{
        {"n", at(2026, 11, 23, 23, 50), at(2026, 11, 24, 0, 10), 20},
        {"n", at(2026, 11, 24, 0, 10), at(2026, 11, 23, 23, 50), -20},
        {"n", at(2026, 11, 23, 22, 0), at(2026, 11, 24, 6, 0), 480},
        {"n", at(2026, 1, 1, 10, 0, 59), at(2026, 1, 1, 10, 1, 0), 1},
        {"N", at(2026, 1, 1, 10, 0, 0), at(2026, 1, 1, 10, 0, 59), 0},
        {"n", at(1969, 12, 31, 23, 59, 30), at(1970, 1, 1, 0, 0, 30), 1},
        {"h", at(2026, 1, 1, 10, 59), at(2026, 1, 1, 11, 0), 1},
        {"s", at(2026, 1, 1, 10, 0), at(2026, 1, 1, 10, 1, 5), 65},
        {"d", at(2026, 11, 23, 23, 59), at(2026, 11, 24, 0, 1), 1},
        {"d", at(1969, 12, 31, 23, 59), at(1970, 1, 1, 0, 1), 1},
        {"y", at(2026, 1, 1), at(2026, 3, 1), 59},
        {"m", at(2026, 1, 31), at(2026, 2, 1), 1},
        {"m", at(2026, 3, 1), at(2025, 12, 31), -3},
        {"q", at(2026, 3, 31), at(2026, 4, 1), 1},
        {"yyyy", at(2026, 12, 31, 23, 59), at(2027, 1, 1), 1},
        // "w": whole weeks, toward zero; "ww": Sundays crossed, the first day not counted.
        {"w", at(2026, 11, 23), at(2026, 12, 6), 1},
        {"w", at(2026, 12, 6), at(2026, 11, 23), -1},
        {"ww", at(2026, 11, 28), at(2026, 11, 29), 1},
        {"ww", at(2026, 11, 22), at(2026, 11, 28), 0},
        {"ww", at(2026, 11, 22), at(2026, 11, 29), 1},
        {"ww", at(2026, 11, 29), at(2026, 11, 22), -1},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(dateDiff(c.interval, c.a, c.b), c.expected) << c.interval << " " << c.a.toIso() << " -> " << c.b.toIso();
    }
    EXPECT_FALSE(dateDiff("x", at(2026, 1, 1), at(2026, 1, 2)).has_value());
    EXPECT_EQ(minutesBetween(at(2026, 11, 23, 22, 0), at(2026, 11, 24, 2, 30)), 270);
}

TEST(DateAdd, IntervalsAndMonthEnds) {
    const DateTime t = at(2024, 1, 31, 22, 30);
    EXPECT_EQ(dateAdd("m", 1, t), at(2024, 2, 29, 22, 30));
    EXPECT_EQ(dateAdd("q", 1, t), at(2024, 4, 30, 22, 30));
    EXPECT_EQ(dateAdd("yyyy", 1, at(2024, 2, 29)), at(2025, 2, 28));
    EXPECT_EQ(dateAdd("d", -1, at(2024, 3, 1)), at(2024, 2, 29));
    EXPECT_EQ(dateAdd("w", 3, t), at(2024, 2, 3, 22, 30));  // "w" adds days, as "d" does
    EXPECT_EQ(dateAdd("ww", 1, t), at(2024, 2, 7, 22, 30));
    EXPECT_EQ(dateAdd("n", 120, t), at(2024, 2, 1, 0, 30));
    EXPECT_EQ(dateAdd("H", -23, t), at(2024, 1, 30, 23, 30));
    EXPECT_FALSE(dateAdd("x", 1, t).has_value());
}

}  // namespace
}  // namespace tallymere::common

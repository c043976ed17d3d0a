#pragma once
// Calendar dates and wall-clock date-times without time zones: a schedule entry at 10 PM stays at
// 10 PM whatever the machine's zone, as the business means it.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tallymere::common {

// Weekday numbers as the business and the stored rows use them: 1 = Sunday ... 7 = Saturday.
enum class Weekday : int { Sunday = 1, Monday, Tuesday, Wednesday, Thursday, Friday, Saturday };

class Date {
public:
    constexpr Date() = default;
    static Date fromYmd(int year, int month, int day);
    static constexpr Date fromDays(std::int32_t daysSinceEpoch) { return Date(daysSinceEpoch); }
    // "YYYY-MM-DD", or the date part of "YYYY-MM-DD HH:MM[:SS]".
    static std::optional<Date> parseIso(std::string_view text);
    static bool isValidYmd(int year, int month, int day);

    int year() const;
    int month() const;
    int day() const;
    Weekday weekday() const;
    int weekdayNumber() const { return static_cast<int>(weekday()); }
    std::int32_t daysSinceEpoch() const { return days_; }

    Date addDays(int n) const { return Date(days_ + n); }
    // Calendar month arithmetic: the day is clamped to the end of the target month (Jan 31 + 1 = Feb 28/29).
    Date addMonths(int n) const;
    Date addYears(int n) const { return addMonths(12 * n); }
    std::string toIso() const;

    friend constexpr auto operator<=>(Date, Date) = default;
    friend constexpr bool operator==(Date, Date) = default;

private:
    constexpr explicit Date(std::int32_t d) : days_(d) {}
    std::int32_t days_ = 0;  // days since 1970-01-01
};

class DateTime {
public:
    constexpr DateTime() = default;
    static DateTime fromParts(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);
    static DateTime at(Date d, int hour = 0, int minute = 0, int second = 0);
    static constexpr DateTime fromSeconds(std::int64_t s) { return DateTime(s); }
    // "YYYY-MM-DD", "YYYY-MM-DD HH:MM", "YYYY-MM-DD HH:MM:SS" (a 'T' may stand for the blank).
    static std::optional<DateTime> parseIso(std::string_view text);

    Date date() const;
    int year() const { return date().year(); }
    int month() const { return date().month(); }
    int day() const { return date().day(); }
    int hour() const;
    int minute() const;
    int second() const;
    int secondsOfDay() const;
    Weekday weekday() const { return date().weekday(); }
    std::int64_t secondsSinceEpoch() const { return secs_; }

    DateTime addSeconds(std::int64_t n) const { return DateTime(secs_ + n); }
    DateTime addMinutes(std::int64_t n) const { return DateTime(secs_ + 60 * n); }
    DateTime addHours(std::int64_t n) const { return DateTime(secs_ + 3600 * n); }
    DateTime addDays(int n) const { return DateTime(secs_ + 86400LL * n); }
    DateTime addMonths(int n) const;
    // The same time of day on another date.
    DateTime withDate(Date d) const;
    std::string toIso() const;  // "YYYY-MM-DD HH:MM:SS"

    friend constexpr auto operator<=>(DateTime, DateTime) = default;
    friend constexpr bool operator==(DateTime, DateTime) = default;

private:
    constexpr explicit DateTime(std::int64_t s) : secs_(s) {}
    std::int64_t secs_ = 0;  // seconds since 1970-01-01 00:00:00, wall clock
};

// English names, whatever the user's locale: stored values and statements compare them.
std::string weekdayName(int weekdayNumber, bool abbreviate = false);  // 1 = "Sunday"; "" when out of range
std::string monthName(int month, bool abbreviate = false);            // 1 = "January"; "" when out of range
// 1..7 for an English weekday name (full or three-letter, any case), 0 for anything else.
int weekdayFromName(std::string_view name);

// The day's English name, as the schedule rules compare it with availability rows.
std::string GetDayName(Date d);

// First day of the week containing `d`: step back one day at a time until the weekday's name equals
// `firstDayOfWeek` without regard to case. A name that is no weekday makes `d` itself the first day,
// rather than searching for ever.
Date weekStart(Date d, std::string_view firstDayOfWeek);
inline Date weekEnd(Date d, std::string_view firstDayOfWeek) { return weekStart(d, firstDayOfWeek).addDays(6); }

// DateDiff and DateAdd with the system's interval codes: "yyyy" years, "q" quarters, "m" months,
// "y"/"d" days, "w" whole weeks, "ww" calendar weeks (Sundays crossed), "h" hours, "n" minutes,
// "s" seconds. Like the system's own, a difference counts the boundaries crossed, not elapsed spans:
// DateDiff("d", 23:59, 00:01 next day) is 1. nullopt for an unknown interval.
std::optional<std::int64_t> dateDiff(std::string_view interval, DateTime a, DateTime b);
std::optional<DateTime> dateAdd(std::string_view interval, std::int64_t n, DateTime t);

inline std::int64_t daysBetween(Date a, Date b) { return b.daysSinceEpoch() - a.daysSinceEpoch(); }
inline std::int64_t minutesBetween(DateTime a, DateTime b) { return *dateDiff("n", a, b); }

}  // namespace tallymere::common

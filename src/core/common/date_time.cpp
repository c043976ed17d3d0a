#include "common/date_time.h"

#include "common/text.h"

#include <array>
#include <cstdio>

namespace tallymere::common {
namespace {

// Howard Hinnant's civil-calendar conversions (proleptic Gregorian).
std::int32_t daysFromCivil(int y, unsigned m, unsigned d) {
    y -= m <= 2;
    const int era = (y >= 0 ? y : y - 399) / 400;
    const unsigned yoe = static_cast<unsigned>(y - era * 400);
    const unsigned doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
    const unsigned doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + static_cast<int>(doe) - 719468;
}

struct Ymd {
    int y;
    unsigned m;
    unsigned d;
};

Ymd civilFromDays(std::int32_t z) {
    z += 719468;
    const int era = (z >= 0 ? z : z - 146096) / 146097;
    const unsigned doe = static_cast<unsigned>(z - era * 146097);
    const unsigned yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const int y = static_cast<int>(yoe) + era * 400;
    const unsigned doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const unsigned mp = (5 * doy + 2) / 153;
    const unsigned d = doy - (153 * mp + 2) / 5 + 1;
    const unsigned m = mp + (mp < 10 ? 3 : -9);
    return {y + (m <= 2), m, d};
}

bool isLeap(int y) { return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0; }

int daysInMonth(int y, int m) {
    static constexpr std::array<int, 12> days{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return m == 2 && isLeap(y) ? 29 : days[static_cast<std::size_t>(m - 1)];
}

std::int64_t floorDiv(std::int64_t a, std::int64_t b) {
    std::int64_t q = a / b;
    if ((a % b != 0) && ((a < 0) != (b < 0))) --q;
    return q;
}

// Reads exactly `n` digits at `pos`; -1 when they are not there.
int digits(std::string_view s, std::size_t pos, std::size_t n) {
    if (pos + n > s.size()) return -1;
    int v = 0;
    for (std::size_t i = pos; i < pos + n; ++i) {
        if (s[i] < '0' || s[i] > '9') return -1;
        v = v * 10 + (s[i] - '0');
    }
    return v;
}

constexpr std::array<const char*, 7> kDayNames{"Sunday", "Monday", "Tuesday", "Wednesday",
                                               "Thursday", "Friday", "Saturday"};
constexpr std::array<const char*, 12> kMonthNames{"January", "February", "March",     "April",
                                                  "May",     "June",     "July",      "August",
                                                  "September", "October", "November", "December"};

}  // namespace

bool Date::isValidYmd(int year, int month, int day) {
    return year >= 1 && year <= 9999 && month >= 1 && month <= 12 && day >= 1 && day <= daysInMonth(year, month);
}

Date Date::fromYmd(int year, int month, int day) {
    return Date(daysFromCivil(year, static_cast<unsigned>(month), static_cast<unsigned>(day)));
}

std::optional<Date> Date::parseIso(std::string_view text) {
    text = trimView(text);
    if (text.size() < 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
    const int y = digits(text, 0, 4), m = digits(text, 5, 2), d = digits(text, 8, 2);
    if (y < 0 || m < 0 || d < 0 || !isValidYmd(y, m, d)) return std::nullopt;
    if (text.size() > 10 && text[10] != ' ' && text[10] != 'T') return std::nullopt;
    return fromYmd(y, m, d);
}

int Date::year() const { return civilFromDays(days_).y; }
int Date::month() const { return static_cast<int>(civilFromDays(days_).m); }
int Date::day() const { return static_cast<int>(civilFromDays(days_).d); }

Weekday Date::weekday() const {
    // 1970-01-01 was a Thursday (5).
    const std::int64_t w = floorDiv(static_cast<std::int64_t>(days_) + 4, 7);
    const int idx = static_cast<int>(days_ + 4 - w * 7);  // 0 = Sunday
    return static_cast<Weekday>(idx + 1);
}

Date Date::addMonths(int n) const {
    const Ymd c = civilFromDays(days_);
    const int total = c.y * 12 + static_cast<int>(c.m) - 1 + n;
    const int y = static_cast<int>(floorDiv(total, 12));
    const int m = total - y * 12 + 1;
    const int d = std::min(static_cast<int>(c.d), daysInMonth(y, m));
    return fromYmd(y, m, d);
}

std::string Date::toIso() const {
    const Ymd c = civilFromDays(days_);
    char buf[16];
    std::snprintf(buf, sizeof buf, "%04d-%02u-%02u", c.y, c.m, c.d);
    return buf;
}

DateTime DateTime::fromParts(int year, int month, int day, int hour, int minute, int second) {
    return at(Date::fromYmd(year, month, day), hour, minute, second);
}

DateTime DateTime::at(Date d, int hour, int minute, int second) {
    return DateTime(static_cast<std::int64_t>(d.daysSinceEpoch()) * 86400 + hour * 3600 + minute * 60 + second);
}

std::optional<DateTime> DateTime::parseIso(std::string_view text) {
    text = trimView(text);
    const auto d = Date::parseIso(text);
    if (!d) return std::nullopt;
    if (text.size() == 10) return at(*d);
    const std::string_view t = text.substr(11);
    const int h = digits(t, 0, 2), mi = digits(t, 3, 2);
    if (h < 0 || mi < 0 || t[2] != ':' || h > 23 || mi > 59) return std::nullopt;
    int s = 0;
    if (t.size() == 5) {
    } else if (t.size() >= 8 && t[5] == ':' && (s = digits(t, 6, 2)) >= 0 && s <= 59) {
        // Fractions of a second are not kept.
        if (t.size() > 8 && t[8] != '.') return std::nullopt;
    } else {
        return std::nullopt;
    }
    return at(*d, h, mi, s);
}

Date DateTime::date() const { return Date::fromDays(static_cast<std::int32_t>(floorDiv(secs_, 86400))); }
int DateTime::secondsOfDay() const { return static_cast<int>(secs_ - floorDiv(secs_, 86400) * 86400); }
int DateTime::hour() const { return secondsOfDay() / 3600; }
int DateTime::minute() const { return secondsOfDay() / 60 % 60; }
int DateTime::second() const { return secondsOfDay() % 60; }

DateTime DateTime::addMonths(int n) const { return at(date().addMonths(n)).addSeconds(secondsOfDay()); }
DateTime DateTime::withDate(Date d) const { return at(d).addSeconds(secondsOfDay()); }

std::string DateTime::toIso() const {
    char buf[24];
    const int s = secondsOfDay();
    std::snprintf(buf, sizeof buf, "%s %02d:%02d:%02d", date().toIso().c_str(), s / 3600, s / 60 % 60, s % 60);
    return buf;
}

std::string weekdayName(int n, bool abbreviate) {
    if (n < 1 || n > 7) return {};
    std::string name = kDayNames[static_cast<std::size_t>(n - 1)];
    return abbreviate ? name.substr(0, 3) : name;
}

std::string monthName(int m, bool abbreviate) {
    if (m < 1 || m > 12) return {};
    std::string name = kMonthNames[static_cast<std::size_t>(m - 1)];
    return abbreviate ? name.substr(0, 3) : name;
}

int weekdayFromName(std::string_view name) {
    const std::string upper = toUpper(trimView(name));
    for (int i = 1; i <= 7; ++i) {
        if (upper == toUpper(weekdayName(i)) || upper == toUpper(weekdayName(i, true))) return i;
    }
    return 0;
}

std::string GetDayName(Date d) { return weekdayName(d.weekdayNumber()); }

Date weekStart(Date d, std::string_view firstDayOfWeek) {
    const std::string wanted = toUpper(trimView(firstDayOfWeek));
    for (int back = 0; back < 7; ++back) {
        const Date candidate = d.addDays(-back);
        if (toUpper(GetDayName(candidate)) == wanted) return candidate;
    }
    return d;
}

std::optional<std::int64_t> dateDiff(std::string_view interval, DateTime a, DateTime b) {
    const std::string iv = toLower(trimView(interval));
    const Date da = a.date(), db = b.date();
    if (iv == "s") return b.secondsSinceEpoch() - a.secondsSinceEpoch();
    if (iv == "n") return floorDiv(b.secondsSinceEpoch(), 60) - floorDiv(a.secondsSinceEpoch(), 60);
    if (iv == "h") return floorDiv(b.secondsSinceEpoch(), 3600) - floorDiv(a.secondsSinceEpoch(), 3600);
    if (iv == "d" || iv == "y") return daysBetween(da, db);
    if (iv == "w") {
        const std::int64_t days = daysBetween(da, db);
        return days / 7;  // whole weeks, truncated toward zero
    }
    if (iv == "ww") {
        // Sundays crossed: count week starts between the two dates.
        const auto sundayIndex = [](Date d) { return floorDiv(d.daysSinceEpoch() + 4, 7); };
        return sundayIndex(db) - sundayIndex(da);
    }
    if (iv == "m") return (db.year() - da.year()) * 12LL + db.month() - da.month();
    if (iv == "q") return (db.year() - da.year()) * 4LL + (db.month() - 1) / 3 - (da.month() - 1) / 3;
    if (iv == "yyyy") return static_cast<std::int64_t>(db.year() - da.year());
    return std::nullopt;
}

std::optional<DateTime> dateAdd(std::string_view interval, std::int64_t n, DateTime t) {
    const std::string iv = toLower(trimView(interval));
    if (iv == "s") return t.addSeconds(n);
    if (iv == "n") return t.addMinutes(n);
    if (iv == "h") return t.addHours(n);
    if (iv == "d" || iv == "y" || iv == "w") return t.addDays(static_cast<int>(n));
    if (iv == "ww") return t.addDays(static_cast<int>(7 * n));
    if (iv == "m") return t.addMonths(static_cast<int>(n));
    if (iv == "q") return t.addMonths(static_cast<int>(3 * n));
    if (iv == "yyyy") return t.addMonths(static_cast<int>(12 * n));
    return std::nullopt;
}

}  // namespace tallymere::common

#include "reference/time_entry.h"

#include "common/numbers.h"
#include "common/text.h"

#include <cmath>

namespace tallymere::reference {

using common::Date;
using common::DateTime;

namespace {

// The whole number a field holds, if it holds one.
std::optional<int> wholeNumber(const std::string& text) {
    const auto n = common::parseNumberStrict(text);
    if (!n || *n != std::floor(*n) || std::fabs(*n) > 1e6) return std::nullopt;
    return static_cast<int>(*n);
}

std::string twoDigits(int n) { return (n < 10 ? "0" : "") + std::to_string(n); }

}  // namespace

TimeEntry TimeEntry::of(DateTime t) {
    const int h = t.hour() % 12;
    return TimeEntry(std::to_string(h == 0 ? 12 : h), twoDigits(t.minute()), t.hour() < 12 ? "AM" : "PM");
}

bool TimeEntry::TEAmPm_KeyPress(char32_t key) {
    if (key == U'a' || key == U'A') {
        TEAmPm = "AM";
        return true;
    }
    if (key == U'p' || key == U'P') {
        TEAmPm = "PM";
        return true;
    }
    return false;
}

void TimeEntry::TEAmPm_DblClick() { TEAmPm = isPm() ? "AM" : "PM"; }

bool TimeEntry::isPm() const { return common::startsWithNoCase(common::trimView(TEAmPm), "P"); }

void TimeEntry::spin(TimeField field, int direction) {
    const int step = direction < 0 ? -1 : 1;
    switch (field) {
    case TimeField::Hour: {
        const int h = wholeNumber(TETxtHr).value_or(12);
        int next = (h < 1 || h > 12 ? 12 : h) + step;
        if (next > 12) next = 1;
        if (next < 1) next = 12;
        TETxtHr = std::to_string(next);
        break;
    }
    case TimeField::Minutes: {
        const int m = wholeNumber(TeTxtMin).value_or(0);
        TeTxtMin = twoDigits((((m < 0 || m > 59 ? 0 : m) + step) % 60 + 60) % 60);
        break;
    }
    case TimeField::AmPm: TEAmPm_DblClick(); break;
    }
}

void TimeEntry::leave(TimeField field) {
    if (field == TimeField::AmPm) return;
    std::string& text = field == TimeField::Hour ? TETxtHr : TeTxtMin;
    if (const auto n = wholeNumber(text); n && *n >= 0) text = twoDigits(*n);
}

bool TimeEntry::hasHour() const { return !common::trimView(TETxtHr).empty(); }

std::optional<std::string> TimeEntry::check(TimeEnd which, int lowestHour) const {
    const bool start = which == TimeEnd::Start;
    const std::string range = "between " + std::to_string(lowestHour) + " and 12.";
    if (!common::trimView(TETxtHr).empty()) {
        if (!common::parseNumberStrict(TETxtHr))
            return start ? "Hour value for Start Time is not valid." : "Hour value for End Time is not valid.";
        const auto h = wholeNumber(TETxtHr);
        if (!h || *h < lowestHour || *h > 12)
            return start ? "Hour value must be " + range : "Hour value for End Time must be " + range;
    }
    if (!common::trimView(TeTxtMin).empty()) {
        if (!common::parseNumberStrict(TeTxtMin))
            return start ? "Minute value for Start Time is not valid." : "Minute value for End Time is not valid.";
        const auto m = wholeNumber(TeTxtMin);
        if (!m || *m < 0 || *m > 59)
            return start ? "Minute value must be between 0 and 59."
                         : "The End Time minute value must be between 0 and 59.";
    }
    return std::nullopt;
}

void TimeEntry::padMinute() {
    TeTxtMin = common::trim(TeTxtMin);
    if (TeTxtMin.empty())
        TeTxtMin = "00";
    else if (TeTxtMin.size() == 1)
        TeTxtMin = "0" + TeTxtMin;
}

void TimeEntry::padMinuteTens() {
    const std::string m = common::trim(TeTxtMin);
    if (m.size() == 1) TeTxtMin = m + "0";
}

std::optional<DateTime> TimeEntry::on(Date day) const {
    const auto h = wholeNumber(TETxtHr);
    const auto m = common::trimView(TeTxtMin).empty() ? std::optional<int>(0) : wholeNumber(TeTxtMin);
    if (!h || !m || *h < 0 || *h > 12 || *m < 0 || *m > 59) return std::nullopt;
    return DateTime::at(day, *h % 12 + (isPm() ? 12 : 0), *m);
}

}  // namespace tallymere::reference

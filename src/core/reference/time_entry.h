#pragma once
// The three-field time entry (hour, minutes, AM/PM) with its spin button. The shift windows use it
// now; the quick bar and the daily entry editor reuse the same fields and editing rules, and only
// differ in the lowest hour they allow.

#include "common/date_time.h"

#include <optional>
#include <string>

namespace tallymere::reference {

// Which of the two times a field pair holds; the validation messages name it.
enum class TimeEnd { Start, End };
// The field that has the focus when the spin button is pressed.
enum class TimeField { Hour, Minutes, AmPm };

class TimeEntry {
public:
    TimeEntry() = default;
    TimeEntry(std::string hour, std::string minutes, std::string amPm)
        : TETxtHr(std::move(hour)), TeTxtMin(std::move(minutes)), TEAmPm(std::move(amPm)) {}
    // The fields showing a time of day: the hour without a leading zero, two-digit minutes.
    static TimeEntry of(common::DateTime t);

    std::string TETxtHr;
    std::string TeTxtMin;
    std::string TEAmPm = "AM";

    // Hour and minute fields take digits only; the view lets editing keys (backspace) through itself.
    static bool acceptsDigitKey(char32_t key) { return key >= U'0' && key <= U'9'; }
    // "a"/"A" sets AM, "p"/"P" sets PM; any other key is refused (false).
    bool TEAmPm_KeyPress(char32_t key);
    void TEAmPm_DblClick();

    // The spin button steps the field that has the focus by one: the hour wraps 12 -> 1 and 1 -> 12,
    // the minutes wrap 59 -> 00 and 00 -> 59, AM/PM flips. Single steps, so that the one rule serves
    // every window with these fields; an empty or unreadable field starts from 12 or 00.
    void spin(TimeField field, int direction);
    void SpinButton1_SpinUp(TimeField focus) { spin(focus, +1); }
    void SpinButton1_SpinDown(TimeField focus) { spin(focus, -1); }

    // Leaving the hour or minute field formats a number with two digits; empty or unreadable text stays.
    void leave(TimeField field);

    bool hasHour() const;
    // The first fault of this time, examining only the fields that are filled: hour, then minutes.
    // Numeric means the field reads as a number; a fraction is out of range. `lowestHour` is 1 for
    // shifts and 0 where a window allows "0:30".
    std::optional<std::string> check(TimeEnd which, int lowestHour = 1) const;
    // An empty minute becomes "00", a single digit gets a leading "0".
    void padMinute();
    // The daily schedule's reading of one typed minute digit: it stands for tens, so "5" is 50 minutes,
    // not 05. Other texts are left as they are.
    void padMinuteTens();

    // The time on `day`, from checked fields (12 AM is midnight, 0 counts as 12); nullopt when the
    // fields do not make a time.
    std::optional<common::DateTime> on(common::Date day) const;
    bool isPm() const;
};

}  // namespace tallymere::reference

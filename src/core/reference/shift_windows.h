#pragma once
// The windows that add and edit a shift. A shift keeps only times of day, on the base day 1/1/2006;
// its end falls on 1/2/2006 when the shift runs past midnight.

#include "common/session.h"
#include "reference/time_entry.h"

#include <optional>
#include <string>

namespace tallymere::reference {

// The day every shift's times stand on.
common::Date shiftBaseDay();

struct ShiftTimes {
    common::DateTime start;
    common::DateTime end;
};

// The time checks both shift windows share, in order: the fields of each time, both times present,
// then the questions for an end before the start (next day?), a 0-hour shift and a long shift that
// starts or ends at 12:00 AM. Says what is wrong or asks; nullopt when the user must go on editing.
// Pads the minute fields as a side effect.
std::optional<ShiftTimes> checkShiftTimes(common::Session& s, TimeEntry& start, TimeEntry& end);

class shiftadd {
public:
    explicit shiftadd(common::Session& s) : s_(s) {}

    std::string name;
    std::string description;
    TimeEntry startTime;
    TimeEntry endTime;

    // True when the shift was added and the window closes.
    bool ok();
    bool cancel() { return true; }

private:
    common::Session& s_;
};

class EditShift {
public:
    // Opens on the shift of that name, as selected in the settings grid.
    EditShift(common::Session& s, std::string shiftName);

    std::string name;
    std::string description;
    TimeEntry startTime;
    TimeEntry endTime;

    // True when the shift was saved and the window closes.
    bool ok();
    bool cancel() { return true; }

    const std::string& oldName() const { return oldName_; }

private:
    bool save();

    common::Session& s_;
    std::string oldName_;
};

}  // namespace tallymere::reference

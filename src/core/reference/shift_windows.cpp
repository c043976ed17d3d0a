#include "reference/shift_windows.h"

#include "common/display_format.h"
#include "common/text.h"
#include "reference/window_support.h"
#include "store/access.h"

namespace tallymere::reference {

using common::DateTime;
using common::MsgButtons;
using common::MsgIcon;
using common::Session;
using detail::say;

namespace {

bool exists(Session& s, const std::string& name) {
    return !store::GetRecs(s, "select * from shift where name=?", {name}).empty();
}

bool atMidnight(DateTime t) { return t.secondsOfDay() == 0; }

}  // namespace

common::Date shiftBaseDay() { return common::Date::fromYmd(2006, 1, 1); }

std::optional<ShiftTimes> checkShiftTimes(Session& s, TimeEntry& start, TimeEntry& end) {
    for (const auto& [entry, which] : {std::pair{&start, TimeEnd::Start}, std::pair{&end, TimeEnd::End}}) {
        if (const auto fault = entry->check(which)) {
            say(s, *fault);
            return std::nullopt;
        }
    }
    start.padMinute();
    end.padMinute();
    if (!start.hasHour() || !end.hasHour()) {
        say(s, "Please enter the start and end times.");
        return std::nullopt;
    }
    const auto from = start.on(shiftBaseDay());
    auto to = end.on(shiftBaseDay());
    if (!from || !to) {
        say(s, "Please enter the start and end times.");
        return std::nullopt;
    }
    if (common::minutesBetween(*from, *to) < 0) {
        if (!s.ui().askYesNo("The start time is greater than the endtime. Is the end time the next day?",
                             MsgIcon::Question))
            return std::nullopt;
        to = to->addDays(1);
    }
    if (*from == *to && !s.ui().askYesNo("The start time is equal to the end time, this shift is 0 hours long, is "
                                         "this correct?",
                                         MsgIcon::Exclamation, "Edit Schedule Entry"))
        return std::nullopt;
    const double hours = static_cast<double>(common::minutesBetween(*from, *to)) / 60.0;
    if ((atMidnight(*from) || atMidnight(*to)) && hours > 12 &&
        !s.ui().askYesNo("12:00 AM is 12 midnight not 12 noon. This shift is " +
                             common::formatNumber(hours, "general number", s.locale) + " hours long, is this correct?",
                         MsgIcon::Exclamation, "Add New Shift"))
        return std::nullopt;
    return ShiftTimes{*from, *to};
}

bool shiftadd::ok() {
    return detail::trapped(s_, "Error occurred adding new shift.", [&] {
        const std::string shiftName = common::trim(name);
        if (shiftName.empty()) {
            say(s_, "No shift name was entered");
            return false;
        }
        if (exists(s_, shiftName)) {
            say(s_, "Shift name '" + shiftName + "' already exists.");
            return false;
        }
        const auto times = checkShiftTimes(s_, startTime, endTime);
        if (!times) return false;
        return store::InsertRecs(s_, "insert into shift (name,strttime,endtime,description) values(?,?,?,?)",
                                 {shiftName, times->start, times->end, description});
    });
}

EditShift::EditShift(Session& s, std::string shiftName) : s_(s), oldName_(std::move(shiftName)) {
    const auto rs = store::GetRecs(s_, "select * from shift where name=?", {oldName_});
    if (rs.empty()) return;
    name = rs["name"].text();
    description = rs["description"].text();
    if (const auto t = rs["strttime"].toDateTime()) startTime = TimeEntry::of(*t);
    if (const auto t = rs["endtime"].toDateTime()) endTime = TimeEntry::of(*t);
}

bool EditShift::ok() {
    return detail::trapped(s_, "There is a problem with the time entry. [Edit Shit]", [&] { return save(); });
}

bool EditShift::save() {
    const std::string newName = common::trim(name);
    if (newName.empty()) {
        say(s_, "You need to enter a shift name.");
        return false;
    }
    // Names compare as the database compares them, without regard to case: a change of case alone
    // finds the shift itself and is refused like any other taken name.
    if (newName != oldName_ && exists(s_, newName)) {
        say(s_, "Shift " + newName + " already exists.");
        return false;
    }
    const auto times = checkShiftTimes(s_, startTime, endTime);
    if (!times) return false;
    // The shift and the rows that name it change together or not at all.
    store::Transaction tx(s_);
    if (store::UdateRecs(s_, "update shift set name=?,description=?,strttime=?,endtime=? where name = ?",
                         {newName, description, times->start, times->end, oldName_}) &&
        newName != oldName_) {
        // Staffing levels keep the old name on purpose; the staffing window clears them later.
        // Entries keep their own times whatever the shift's times become.
        for (const char* sql :
             {"update desiredshift set shift=? where shift = ?", "update sched set shift=? where shift = ?",
              "update scheddefault set shift=? where shift = ?"})
            if (!store::UdateRecs(s_, sql, {newName, oldName_})) break;
    }
    if (!tx.commit()) return false;
    if (newName != oldName_) s_.refreshWanted = true;
    return true;
}

}  // namespace tallymere::reference

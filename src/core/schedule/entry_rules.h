#pragma once
// The rules every way of putting an employee on the schedule shares: when two entries collide, how
// an entry is tested against the employee's availability and leave, how hours are summed for the
// alerts, and what **Unassigned** entries are exempt from. Free functions over the database; each
// editor has its own order of calls. None of them reports a database failure: a failing step is
// skipped and the function goes on with what it has.

#include "common/session.h"

#include <optional>
#include <string>

namespace tallymere::schedule {

using common::Date;
using common::DateTime;
using common::Session;

// The `personid` of an **Unassigned** entry, and the transient one of an entry that becomes one.
inline constexpr long kUnassignedId = -1;
inline constexpr long kTransientUnassignedId = -2;

// The check for a new entry of an employee on `day` (same day, yesterday's overnight entries,
// tomorrow's early ones). Tells the user what it finds; true when the entry must not be made.
// `start` and `end` are working values that may be narrowed: callers must not use them after true.
bool CheckEntryConflict(Session& s, long personid, Date day, DateTime& start, DateTime& end,
                        const std::string& lname, const std::string& fname);
// The same tests, silently.
bool HasConflict(Session& s, long personid, Date day, DateTime& start, DateTime& end);
// As HasConflict, over the open schedule file only and leaving out the entry `schedid`.
bool HasConflictExcept(Session& s, long schedid, long personid, Date day, DateTime start, DateTime end);
// True when the times, moved onto `day` keeping their length, overlap an entry of that day.
bool OverlapsOnDay(Session& s, long personid, Date day, std::optional<DateTime> start, std::optional<DateTime> end);
// True when the times overlap another entry of the employee on `day`; rows after the edited entry
// are never compared.
bool OverlapsOtherEntry(Session& s, long schedid, long personid, Date day, std::optional<DateTime> start,
                        std::optional<DateTime> end);
// True when the employee's availability string allows the hours of start..end (only their clock
// times count).
bool CheckAvailability(Session& s, long personid, Date day, DateTime start, DateTime end);
// The kind of leave the employee has on `day`, or empty.
std::string GetLeaveType(Session& s, long personid, Date day);
// No conflict, available and not on leave.
bool IsEmployeeFree(Session& s, long personid, Date day, DateTime start, DateTime end);
// The hours of the employee's entries from `from` to `to` in `scheduleName` (or every file when
// conflicts are checked across all schedules); 0 when there are none or the read fails.
double GetHoursInRange(Session& s, long personid, Date from, Date to, const std::string& scheduleName);
// The hours of the week (by `firstdayofweek`) that holds `day`, in the open schedule file.
double GetWeekHours(Session& s, long personid, Date day);

// Start and end of an entry on `day` from clock times; an end before the start falls on the next day.
struct EntryTimes {
    DateTime start;
    DateTime end;
};
EntryTimes buildEntryTimes(Date day, int startHour24, int startMinute, int endHour24, int endMinute);

// The whole hours an alert compares: minutes / 60 rounded half to even.
long alertHours(double hours);

// The three alerts, asked in the caller's order. Each returns false when the user answered No.
// `title` empty means the application title.
bool AlertShiftOver12Hours(Session& s, DateTime start, DateTime end, long& hoursOut);
bool AlertDoubleShift(Session& s, long personid, Date day, const std::string& title, long& hoursOut);
bool AlertOvertime(Session& s, long personid, Date day, const std::string& title, long& weekHoursOut);

// The 12:00 AM warnings of the entry editor: the 0-hour question when start = end, otherwise the
// midnight note for an entry over 12 hours that starts or ends at 12:00 AM. False when answered No.
bool ConfirmMidnightAndZeroLength(Session& s, DateTime start, DateTime end);

// Plays a sound file of the program's folder without waiting; failures are ignored.
void PlayAppSound(Session& s, const std::string& fileName);

}  // namespace tallymere::schedule

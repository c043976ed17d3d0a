#pragma once
// The rules every way of putting an employee on the schedule shares: when two entries collide, how
// an entry is tested against the employee's availability and leave, how hours are summed for the
// alerts, and what **Unassigned** entries are exempt from. Free functions over the database; each
// editor has its own order of calls. None of them reports a database failure: a failing step is
// skipped and the function goes on with what it has.

#include "common/session.h"

#include <functional>
#include <optional>
#include <string>

namespace tallymere::schedule {

using common::Date;
using common::DateTime;
using common::Session;

// The `personid` of an **Unassigned** entry, and the transient one of an entry that becomes one.
inline constexpr long kUnassignedId = -1;
inline constexpr long kTransientUnassignedId = -2;

// Whether row r (r.s..r.e) collides with S..E on the same day: equal times, S..E around the row,
// S inside it, or E inside it. Rows that only touch do not collide; a zero-length row collides
// only through equality or containment.
bool SameDayTest(DateTime rowStart, DateTime rowEnd, DateTime start, DateTime end);
// Whether row r overlaps S..E (the paste and edit test); a row with a missing time never does.
bool OverlapTest(std::optional<DateTime> rowStart, std::optional<DateTime> rowEnd, DateTime start, DateTime end);

// The check for a new entry of an employee on `day` (same day, yesterday's overnight entries,
// tomorrow's early ones). Tells the user what it finds; true when the entry must not be made.
// `start` and `end` are working values that may be narrowed: callers must not use them after true.
bool CheckEntryConflict(Session& s, long personid, Date day, DateTime& start, DateTime& end, const std::string& lname,
                        const std::string& fname);
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
// The same test over the availability strings themselves: `dayHours(0)` gives the trimmed `houravail`
// of the entry's day (nullopt when there is no row), `dayHours(1)` the next day's, asked only when the
// first says nothing about an overnight entry.
bool AvailabilityAllows(DateTime start, DateTime end, const std::function<std::optional<std::string>(int)>& dayHours);
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

// The three alerts, asked in the caller's order. Each asks only when its setting is on, and returns
// false when the user answered No. The figure it worked out goes to `...Out` (0 when the setting is
// off), so that a caller can carry it on. Every figure is the rounded whole number the alert
// compares, printed "00.00" ("13.00 hrs long", "08.00 hours today", "41.00 hours this week").
// `title` empty means the application title; the 12-hour alert always has it, with an information
// icon. The icons default to the quick add's: a question for the double shift, an exclamation for
// overtime.
bool AlertShiftOver12Hours(Session& s, DateTime start, DateTime end, long& hoursOut);
bool AlertDoubleShift(Session& s, long personid, Date day, const std::string& title, long& hoursOut,
                      common::MsgIcon icon = common::MsgIcon::Question);
bool AlertOvertime(Session& s, long personid, Date day, const std::string& title, long& weekHoursOut,
                   common::MsgIcon icon = common::MsgIcon::Exclamation);
// The quick add's overtime alert: as AlertOvertime when the week's hours w are already over the
// threshold; otherwise it also asks "Employee already scheduled for <w> hours this week. Continue?"
// when w + `entryHours` (the new entry's rounded length) + `workingFigure` (the figure the earlier
// alerts left: the double shift's d if that alert is on, else the 12-hour alert's h if that one is
// on, else 0) is over it. The figure printed is still w.
bool AlertOvertimeWithSum(Session& s, long personid, Date day, const std::string& title, long entryHours,
                          long workingFigure, long& weekHoursOut, common::MsgIcon icon = common::MsgIcon::Exclamation);

// The 12:00 AM warnings of the entry editor: the 0-hour question when start = end, otherwise the
// midnight note for an entry over 12 hours that starts or ends at 12:00 AM. False when answered No.
bool ConfirmMidnightAndZeroLength(Session& s, DateTime start, DateTime end);

// Plays a sound file of the program's folder without waiting; failures are ignored.
void PlayAppSound(Session& s, const std::string& fileName);

}  // namespace tallymere::schedule

#include "schedule/entry_rules.h"

#include "common/display_format.h"
#include "common/numbers.h"
#include "common/report_name.h"
#include "store/access.h"

#include <string>
#include <string_view>

namespace tallymere::schedule {

using common::MsgAnswer;
using common::MsgButtons;
using common::MsgIcon;
using store::GetRecs;

namespace {

// Partial overlaps could be narrowed and the user asked to go on with the shorter entry. Kept off:
// partial overlaps are refused like full ones.
constexpr bool kAdjustOverlappingTimes = false;

constexpr const char* kAddEntryTitle = "Add schedule entry";
constexpr const char* kDailyTitle = "Daily Schedule";
constexpr const char* kEditEntryTitle = "Edit Schedule Entry";
constexpr std::string_view kAllAvailable = "YYYYYYYYYYYYYYYYYYYYYYYY";

std::string alertFigure(Session& s, long hours) {
    return common::formatNumber(static_cast<double>(hours), "00.00", s.locale);
}

// Whom the conflict scan speaks about; null when it is to stay silent.
struct Speaker {
    Session& s;
    std::string name;

    void refuse(const std::string& text, const char* title) const {
        s.ui().message(text, MsgButtons::Ok, MsgIcon::Exclamation, title);
    }
    bool askAdjust(const std::string& text) const {
        return s.ui().message(text, MsgButtons::YesNo, MsgIcon::Exclamation, kAddEntryTitle) == MsgAnswer::Yes;
    }
};

store::Recordset entriesOfDay(Session& s, long personid, Date day) {
    return GetRecs(s, "select * from sched where personid = ? and sday = ? and sname=?",
                   {personid, day, s.currentSchedule});
}

// Steps shared by the three conflict checks: the same day (its scope set by the caller), yesterday's
// entries running past midnight, tomorrow's early ones. `except` leaves one entry out of the same day.
bool scanConflicts(Session& s, long personid, Date day, DateTime& start, DateTime& end, const Speaker* speaker,
                   std::optional<long> except) {
    store::Recordset same;
    if (except) {
        same = GetRecs(s, "select * from sched where personid = ? and sday = ? and sname=? and schedid <> ?",
                       {personid, day, s.currentSchedule, *except});
    } else if (s.settings.gb_CheckConflictAllSchedules) {
        same = GetRecs(s, "select * from sched where personid = ? and sday = ?", {personid, day});
    } else {
        same = entriesOfDay(s, personid, day);
    }
    for (; !same.eof(); same.MoveNext()) {
        const auto rs = same["strttime"].toDateTime();
        const auto re = same["endtime"].toDateTime();
        if (!rs || !re || !SameDayTest(*rs, *re, start, end)) continue;
        if (!speaker) return true;
        if (kAdjustOverlappingTimes) {
            const bool startInside = *rs <= start && start < *re && end > *re;
            const bool endInside = *rs < end && end <= *re && start < *rs;
            if (startInside || endInside) {
                if (startInside)
                    start = *re;
                else
                    end = *rs;
                if (!speaker->askAdjust(speaker->name +
                                        " is scheduled for an overlaping time, adjust times and continue?"))
                    return true;
                continue;
            }
        }
        speaker->refuse(speaker->name + " is aleady scheduled for that time.", kAddEntryTitle);
        return true;
    }

    // The neighbouring days look at the open file only, on purpose, whatever the all-schedules setting says.
    const Date yesterday = day.addDays(-1);
    for (auto prev = entriesOfDay(s, personid, yesterday); !prev.eof(); prev.MoveNext()) {
        const auto re = prev["endtime"].toDateTime();
        if (!re || !(start < *re)) continue;
        if (!speaker) return true;
        if (kAdjustOverlappingTimes && end > *re) {
            start = *re;
            if (!speaker->askAdjust(speaker->name + " is scheduled for a conflicting time on " +
                                    s.messageDate(yesterday) + ". Adjust time and continue?"))
                return true;
            continue;
        }
        speaker->refuse(speaker->name + " is scheduled for a conflicting time on " + s.messageDate(yesterday) + ".",
                        kDailyTitle);
        return true;
    }

    // Narrower than the same-day test on purpose: an end exactly at a row's start passes, and one exactly
    // at its end is caught only when the entry also starts before it.
    const Date tomorrow = day.addDays(1);
    for (auto next = entriesOfDay(s, personid, tomorrow); !next.eof(); next.MoveNext()) {
        const auto rs = next["strttime"].toDateTime();
        const auto re = next["endtime"].toDateTime();
        if (!rs || !re) continue;
        if (start < *rs && end >= *re) {
            if (speaker)
                speaker->refuse(
                    speaker->name + " is scheduled for a conflicting time on " + s.messageDate(tomorrow) + ".",
                    kDailyTitle);
            return true;
        }
        if (end > *rs && end < *re) {
            if (!speaker) return true;
            if (kAdjustOverlappingTimes) {
                end = *rs;
                if (!speaker->askAdjust(speaker->name + " is scheduled for a conflicting time on " +
                                        s.messageDate(tomorrow) + ". Adjust time and continue?"))
                    return true;
                continue;
            }
            speaker->refuse(
                speaker->name + " is aleady scheduled for a conflicting time on " + s.messageDate(tomorrow) + ".",
                kAddEntryTitle);
            return true;
        }
    }
    return false;
}

// The row of the employee's availability for the weekday of `day`, trimmed; nullopt when there is none.
std::optional<std::string> availabilityOf(Session& s, long personid, Date day) {
    const auto rs =
        GetRecs(s, "select * from availability where personid = ? and sday = ?", {personid, common::GetDayName(day)});
    if (rs.empty()) return std::nullopt;
    return rs["houravail"].text();
}

// The first position (from 1) at or after `from` that holds "N", or 0.
std::size_t firstUnavailable(const std::string& hours, std::size_t from) {
    if (from < 1 || from > hours.size()) return 0;
    const auto p = hours.find('N', from - 1);
    return p == std::string::npos ? 0 : p + 1;
}

DateTime timeOfDay(DateTime t) { return DateTime::at(Date::fromYmd(1899, 12, 30), t.hour(), t.minute(), t.second()); }

}  // namespace

bool SameDayTest(DateTime rowStart, DateTime rowEnd, DateTime start, DateTime end) {
    return (rowStart == start && rowEnd == end) || (start < rowStart && end > rowEnd) ||
           (rowStart <= start && start < rowEnd) || (rowStart < end && end <= rowEnd);
}

bool OverlapTest(std::optional<DateTime> rowStart, std::optional<DateTime> rowEnd, DateTime start, DateTime end) {
    if (!rowStart || !rowEnd) return false;
    return (*rowStart <= start && start < *rowEnd) || (*rowStart < end && end <= *rowEnd) ||
           (start <= *rowStart && *rowEnd <= end);
}

bool CheckEntryConflict(Session& s, long personid, Date day, DateTime& start, DateTime& end, const std::string& lname,
                        const std::string& fname) {
    const Speaker speaker{s, common::FormatReportName(fname, lname, s.settings.gs_ReportNameFormat)};
    return scanConflicts(s, personid, day, start, end, &speaker, std::nullopt);
}

bool HasConflict(Session& s, long personid, Date day, DateTime& start, DateTime& end) {
    return scanConflicts(s, personid, day, start, end, nullptr, std::nullopt);
}

bool HasConflictExcept(Session& s, long schedid, long personid, Date day, DateTime start, DateTime end) {
    return scanConflicts(s, personid, day, start, end, nullptr, schedid);
}

bool OverlapsOnDay(Session& s, long personid, Date day, std::optional<DateTime> start, std::optional<DateTime> end) {
    if (!start || !end) return false;
    // Moved by whole days, so the entry keeps its length and its crossing of midnight.
    const auto shift = static_cast<int>(common::daysBetween(start->date(), day));
    const DateTime movedStart = start->addDays(shift);
    const DateTime movedEnd = end->addDays(shift);
    for (auto rs = entriesOfDay(s, personid, day); !rs.eof(); rs.MoveNext()) {
        if (OverlapTest(rs["strttime"].toDateTime(), rs["endtime"].toDateTime(), movedStart, movedEnd)) return true;
    }
    return false;
}

bool OverlapsOtherEntry(Session& s, long schedid, long personid, Date day, std::optional<DateTime> start,
                        std::optional<DateTime> end) {
    if (!start || !end) return false;
    auto rs = entriesOfDay(s, personid, day);
    // Once the walk reaches the edited entry it stays there for the remaining steps, so entries that
    // come after it are never compared and do not block the edit. Kept so on purpose.
    bool hit = false;
    for (std::size_t step = 0; step < rs.RecordCount(); ++step) {
        if (rs["schedid"].toLong() == schedid) continue;
        hit = hit || OverlapTest(rs["strttime"].toDateTime(), rs["endtime"].toDateTime(), *start, *end);
        rs.MoveNext();
    }
    return hit;
}

bool AvailabilityAllows(DateTime start, DateTime end, const std::function<std::optional<std::string>(int)>& dayHours) {
    if (start == end) return true;
    // The bounds below are kept exactly as they are: the end's own hour counts only when the entry runs
    // into it, and on the second day of an overnight entry the first hour and the end's minutes never do.
    const std::size_t a = static_cast<std::size_t>(start.hour()) + 1;
    std::size_t b = static_cast<std::size_t>(end.hour()) + 1;
    const int m = end.minute();
    bool overnight = false;
    std::size_t h = 0;
    if (b < a) {
        b = 24;
        h = static_cast<std::size_t>(end.hour());
        overnight = true;
    }

    const auto first = dayHours(0);
    if (first && *first != kAllAvailable) {
        // A restricted first day decides alone; the next day is not looked at, even overnight.
        for (std::size_t i = a; i <= b; ++i) {
            const std::size_t p = firstUnavailable(*first, i);
            if (p != 0 && p >= a && (m == 0 ? p < b : p <= b)) return false;
        }
        return true;
    }
    if (!overnight) return true;

    const auto second = dayHours(1);
    if (!second || *second == kAllAvailable) return true;
    for (std::size_t i = 1; i <= h; ++i) {
        const std::size_t p = firstUnavailable(*second, i);
        if (p != 0 && p - 1 >= 1 && p <= h) return false;
    }
    return true;
}

bool CheckAvailability(Session& s, long personid, Date day, DateTime start, DateTime end) {
    return AvailabilityAllows(start, end, [&](int offset) { return availabilityOf(s, personid, day.addDays(offset)); });
}

std::string GetLeaveType(Session& s, long personid, Date day) {
    const auto rs = GetRecs(s, "select * from employeeleave where personid = ? and sday = ?", {personid, day});
    if (rs.empty()) return {};
    return rs["typeofleave"].text();
}

bool IsEmployeeFree(Session& s, long personid, Date day, DateTime start, DateTime end) {
    if (HasConflict(s, personid, day, start, end)) return false;
    if (!CheckAvailability(s, personid, day, timeOfDay(start), timeOfDay(end))) return false;
    return GetLeaveType(s, personid, day).empty();
}

double GetHoursInRange(Session& s, long personid, Date from, Date to, const std::string& scheduleName) {
    const auto rs =
        s.settings.gb_CheckConflictAllSchedules
            ? GetRecs(s,
                      "SELECT Sum(DateDiff(\"n\",[strttime],[endtime])/60) AS Expr2 From sched Where sched.sday >= ? "
                      "and sday <=? GROUP BY sched.PersonID Having sched.personid =?",
                      {from, to, personid})
            : GetRecs(s,
                      "SELECT Sum(DateDiff(\"n\",[strttime],[endtime])/60) AS Expr2 From sched Where sched.sday >= ? "
                      "and sday <=? and sname=? GROUP BY sched.PersonID Having sched.personid =?",
                      {from, to, scheduleName, personid});
    if (rs.empty() || rs["expr2"].isNull()) return 0;
    return rs["expr2"].toDouble();
}

double GetWeekHours(Session& s, long personid, Date day) {
    const Date first = common::weekStart(day, s.settings.firstdayofweek);
    return GetHoursInRange(s, personid, first, first.addDays(6), s.currentSchedule);
}

EntryTimes buildEntryTimes(Date day, int startHour24, int startMinute, int endHour24, int endMinute) {
    const DateTime start = DateTime::at(day, startHour24, startMinute);
    DateTime end = DateTime::at(day, endHour24, endMinute);
    if (common::minutesBetween(start, end) < 0) end = DateTime::at(day.addDays(1), endHour24, endMinute);
    return {start, end};
}

long alertHours(double hours) { return static_cast<long>(common::roundHalfEven(hours)); }

bool AlertShiftOver12Hours(Session& s, DateTime start, DateTime end, long& hoursOut) {
    hoursOut = 0;
    if (!s.settings.gb_AlertShiftOver12Hours) return true;
    hoursOut = alertHours(static_cast<double>(common::minutesBetween(start, end)) / 60.0);
    if (hoursOut <= 12) return true;
    return s.ui().message("This schedule entry is " + alertFigure(s, hoursOut) + " hrs long, starting " +
                              common::formatDateTime(start, "general date", s.locale) + " and ending " +
                              common::formatDateTime(end, "general date", s.locale) + ". Is this correct?",
                          MsgButtons::YesNo, MsgIcon::Information, {}) == MsgAnswer::Yes;
}

bool AlertDoubleShift(Session& s, long personid, Date day, const std::string& title, long& hoursOut, MsgIcon icon) {
    hoursOut = 0;
    if (!s.settings.gb_AlertDoubleShifts) return true;
    hoursOut = alertHours(GetHoursInRange(s, personid, day, day, s.currentSchedule));
    if (hoursOut <= 0) return true;
    return s.ui().message("Employee is already scheduled for " + alertFigure(s, hoursOut) + " hours today. Continue?",
                          MsgButtons::YesNo, icon, title) == MsgAnswer::Yes;
}

namespace {

bool askOvertime(Session& s, const std::string& lead, long weekHours, const std::string& title, MsgIcon icon) {
    return s.ui().message(lead + alertFigure(s, weekHours) + " hours this week. Continue?", MsgButtons::YesNo, icon,
                          title) == MsgAnswer::Yes;
}

}  // namespace

bool AlertOvertime(Session& s, long personid, Date day, const std::string& title, long& weekHoursOut, MsgIcon icon) {
    weekHoursOut = 0;
    if (!s.settings.gb_AlertForOvertime) return true;
    weekHoursOut = alertHours(GetWeekHours(s, personid, day));
    if (weekHoursOut <= s.settings.gi_OvertimeThreshold) return true;
    return askOvertime(s, "Employee is already scheduled for ", weekHoursOut, title, icon);
}

bool AlertOvertimeWithSum(Session& s, long personid, Date day, const std::string& title, long entryHours,
                          long workingFigure, long& weekHoursOut, MsgIcon icon) {
    weekHoursOut = 0;
    if (!s.settings.gb_AlertForOvertime) return true;
    const long w = alertHours(GetWeekHours(s, personid, day));
    weekHoursOut = w;
    if (w > s.settings.gi_OvertimeThreshold)
        return askOvertime(s, "Employee is already scheduled for ", w, title, icon);
    // The sum adds the earlier alert's figure as well as the entry's length; the words differ from the
    // plain alert and the figure shown is still the week's alone.
    if (w + entryHours + workingFigure > s.settings.gi_OvertimeThreshold)
        return askOvertime(s, "Employee already scheduled for ", w, title, icon);
    return true;
}

bool ConfirmMidnightAndZeroLength(Session& s, DateTime start, DateTime end) {
    if (start == end) {
        return s.ui().message("The start time is equal to the end time, this shift is 0 hours long, is this correct?",
                              MsgButtons::YesNo, MsgIcon::Exclamation, kEditEntryTitle) == MsgAnswer::Yes;
    }
    const bool atMidnight = common::formatDateTime(start, "HH:MM AM/PM", s.locale) == "12:00 AM" ||
                            common::formatDateTime(end, "HH:MM AM/PM", s.locale) == "12:00 AM";
    if (!atMidnight || static_cast<double>(common::minutesBetween(start, end)) / 60.0 <= 12) return true;
    return s.ui().message(
               "Note: 12:00 AM is 12 midnight not 12 noon. You've just entered a shift longer than 12 hours, is this "
               "correct?",
               MsgButtons::YesNo, MsgIcon::Exclamation, kEditEntryTitle) == MsgAnswer::Yes;
}

void PlayAppSound(Session& s, const std::string& fileName) { s.ui().playSound(s.programFolder + "/" + fileName); }

}  // namespace tallymere::schedule

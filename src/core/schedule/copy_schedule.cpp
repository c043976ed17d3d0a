#include "schedule/copy_schedule.h"

#include "common/display_format.h"
#include "common/text.h"
#include "maintenance/access_control.h"
#include "schedule/bulk_change.h"
#include "schedule/entry_rules.h"
#include "schedule/undo.h"
#include "store/access.h"

#include <algorithm>
#include <vector>

namespace tallymere::schedule {

using common::MsgAnswer;
using common::MsgButtons;
using common::MsgIcon;
using store::GetRecs;
using store::Recordset;

namespace {

constexpr const char* kUndoCaption = "Undo Copy Schedule";
constexpr const char* kRecordsTitle = "Copy Schedule Records";
constexpr const char* kCopyCompleted = "Copy completed";

void say(Session& s, const std::string& text) { s.ui().inform(text); }

// One target day as the copy will leave it: emptied, then these rows.
struct PlannedDay {
    Date target;
    std::vector<EntryRow> rows;
};

enum class Decision { Copy, Skip, Cancel };

Decision answerOf(MsgAnswer a) {
    return a == MsgAnswer::Yes ? Decision::Copy : a == MsgAnswer::No ? Decision::Skip : Decision::Cancel;
}

// The availability and leave questions for a real employee's entry on `target`.
Decision conflictQuestions(Session& s, const EntryRow& row, Date target) {
    const long personid = static_cast<long>(row.personid.toLong());
    const std::string name = row.fname + " " + row.lname;
    if (row.start && row.end && !CheckAvailability(s, personid, target, *row.start, *row.end)) {
        const auto time = [&](DateTime t) { return common::formatDateTime(t, "HH:mm ampm", s.locale); };
        const Decision d =
            answerOf(s.ui().message(name + " is not available from " + time(*row.start) + " to " + time(*row.end) +
                                        " on " + s.messageDate(target) + ", Override?",
                                    MsgButtons::YesNoCancel, MsgIcon::Question, "Availability Conflict"));
        if (d != Decision::Copy) return d;
    }
    if (!GetLeaveType(s, personid, target).empty())
        return answerOf(s.ui().message(name + " is scheduled for leave on " + s.messageDate(target) + ", Override?",
                                       MsgButtons::YesNoCancel, MsgIcon::Question, "Leave Conflict"));
    return Decision::Copy;
}

// The rows of a source day put on the target day, keeping their clock times and their crossing of
// midnight.
EntryRow movedTo(EntryRow row, Date target) {
    const bool overnight = row.start && row.end && row.end->date() > row.start->date();
    row.start = clockTimeOn(target, row.start);
    row.end = clockTimeOn(overnight ? target.addDays(1) : target, row.end);
    return row;
}

bool sameFile(const std::string& a, const std::string& b) { return common::equalsNoCase(a, b); }

}  // namespace

int DaySelection::count() const { return valid() ? static_cast<int>(common::daysBetween(*first, *last)) + 1 : 0; }

CopyOutcome CopyDays(Session& s, const std::string& fromSchedule, Date fromFirst, const std::string& toSchedule,
                     Date toFirst, int days, bool checkConflicts, bool refuseEmptyDay) {
    if (days < 1) return CopyOutcome::NothingToCopy;
    // Every question is asked before anything is written, so that no other machine waits on the
    // file while a question is open; the writing is then one short transaction.
    std::vector<PlannedDay> plan;
    bool cancelled = false;
    for (int i = 0; i < days && !cancelled; ++i) {
        const Date source = fromFirst.addDays(i);
        PlannedDay day{toFirst.addDays(i), {}};
        Recordset rs = GetRecs(s, "select * from sched where sday=? and sname=?", {source, fromSchedule});
        if (!rs.isOpen()) return CopyOutcome::Failed;
        if (refuseEmptyDay && days == 1 && rs.empty()) {
            s.ui().inform("There are no records to copy.", MsgIcon::None, kRecordsTitle);
            return CopyOutcome::NothingToCopy;
        }
        for (; !rs.eof(); rs.MoveNext()) {
            s.ui().processEvents();
            const EntryRow row = movedTo(entryRow(rs), day.target);
            Decision d = Decision::Copy;
            if (checkConflicts && row.personid.toLong() != kUnassignedId) d = conflictQuestions(s, row, day.target);
            if (d == Decision::Cancel) {
                // What was reached stays copied, the day of the Cancel emptied up to that entry.
                cancelled = true;
                break;
            }
            if (d == Decision::Copy) day.rows.push_back(row);
        }
        plan.push_back(std::move(day));
    }

    s.ui().setBusy(true);
    // The snapshot covers the days the copy reached, so undo gives them back; days after a Cancel
    // are not touched at all.
    const Date lastReached = plan.back().target;
    const bool written = runAsOneChange(s, [&] {
        SaveUndoSnapshot(s, toFirst, lastReached, kUndoCaption, false, toSchedule);
        for (const PlannedDay& day : plan) {
            if (!store::DeleteRecs(s, "delete from sched where sday=? and sname=?", {day.target, toSchedule}))
                return false;
            for (const EntryRow& row : day.rows)
                if (!insertEntry(s, row, day.target, toSchedule)) return false;
        }
        return true;
    });
    s.ui().setBusy(false);
    if (!written) return CopyOutcome::Failed;
    s.refreshWanted = true;
    return cancelled ? CopyOutcome::Cancelled : CopyOutcome::Copied;
}

// ---------------------------------------------------------------- CopyNew

CopyNew::CopyNew(Session& s) : s_(s) {
    for (Recordset rs = GetRecs(s_, "select * from schedname order by schedname"); !rs.eof(); rs.MoveNext()) {
        const std::string name = rs["schedname"].text();
        if (name.empty()) continue;
        fromschedulecombo.add(name);
        toschedulecombo.add(name);
    }
    fromschedulecombo.select(s_.currentSchedule);
    toschedulecombo.select(s_.currentSchedule);
    CheckforConflicts = s_.settings.gb_CheckConflictsDuringCopy;
    select(FromDate, s_.activeDate, s_.activeDate);
    select(ToDate, s_.activeDate, s_.activeDate);
}

void CopyNew::setMode(CopyMode m) {
    mode = m;
    // The selections follow the new mode from their first day.
    if (FromDate.valid()) select(FromDate, *FromDate.first, *FromDate.last);
    if (ToDate.valid()) select(ToDate, *ToDate.first, *ToDate.last);
    updateLabels();
}

void CopyNew::select(DaySelection& side, Date first, Date last) {
    if (last < first) std::swap(first, last);
    switch (mode) {
    case CopyMode::Day: last = first; break;
    case CopyMode::Week:
        first = common::weekStart(first, s_.settings.firstdayofweek);
        last = first.addDays(6);
        break;
    case CopyMode::Range:
        if (common::daysBetween(first, last) >= kMaxRangeDays) last = first.addDays(kMaxRangeDays - 1);
        break;
    }
    side.first = first;
    side.last = last;
    updateLabels();
}

void CopyNew::updateLabels() {
    const auto label = [this](const DaySelection& side) -> std::string {
        if (mode == CopyMode::Week) return "7 days selected";
        const int n = side.count();
        return n == 1 ? "1 day selected." : std::to_string(n) + " days selected.";
    };
    FromSelectLabel = label(FromDate);
    ToSelectLabel = label(ToDate);
}

void CopyNew::CheckforConflicts_Click(bool checked) {
    CheckforConflicts = checked;
    s_.settings.gb_CheckConflictsDuringCopy = checked;
}

bool CopyNew::run(const std::string& from, Date fromFirst, const std::string& to, Date toFirst, int days) {
    lastOutcome = CopyDays(s_, from, fromFirst, to, toFirst, days, s_.settings.gb_CheckConflictsDuringCopy,
                           mode == CopyMode::Day);
    if (*lastOutcome == CopyOutcome::Copied) say(s_, kCopyCompleted);
    return *lastOutcome == CopyOutcome::Copied || *lastOutcome == CopyOutcome::Cancelled;
}

bool CopyNew::Command1_Click() {
    lastOutcome.reset();
    const std::string from = fromschedulecombo.text();
    const std::string to = toschedulecombo.text();
    if (from.empty()) {
        say(s_, "Please select a schedule name to Copy from.");
        return false;
    }
    if (to.empty()) {
        say(s_, "Copy to schedule cannot be blank.");
        return false;
    }
    if (maintenance::NoSchedulePermission(s_)) return false;
    const bool oneFile = sameFile(from, to);

    if (mode == CopyMode::Day) {
        if (!FromDate.valid()) {
            say(s_, "The source date is not valid.");
            return false;
        }
        if (!ToDate.valid()) {
            say(s_, "The destination date is not valid.");
            return false;
        }
        const Date source = *FromDate.first, target = *ToDate.first;
        if (oneFile && source == target) {
            say(s_, "The source date cannot equal the destination date.");
            return false;
        }
        if (!s_.ui().askYesNo("Copy schedule from " + s_.messageDate(source) + " to " + s_.messageDate(target),
                              MsgIcon::Question, kCaption))
            return false;
        return run(from, source, to, target, 1);
    }

    if (mode == CopyMode::Week) {
        if (!FromDate.valid()) {
            say(s_, "The source date is not valid.");
            return false;
        }
        if (!ToDate.valid()) {
            say(s_, "The destinationweek is not valid.");
            return false;
        }
        const Date source = common::weekStart(*FromDate.first, s_.settings.firstdayofweek);
        const Date target = common::weekStart(*ToDate.first, s_.settings.firstdayofweek);
        if (oneFile && source == target) {
            say(s_, "The week selected on the left must be different than the week selected on the right.");
            return false;
        }
        if (!s_.ui().askYesNo("Copy schedule from the week of " + s_.messageDate(source) + " to the week of " +
                                  s_.messageDate(target),
                              MsgIcon::Question, kCaption))
            return false;
        return run(from, source, to, target, 7);
    }

    if (!FromDate.valid()) {
        say(s_, "The source date is not valid.");
        return false;
    }
    if (!ToDate.valid()) {
        say(s_, "The destination date is not valid.");
        return false;
    }
    const int fromCount = FromDate.count(), toCount = ToDate.count();
    if (oneFile && *FromDate.first == *ToDate.first && *FromDate.last == *ToDate.last) {
        say(s_, "The date range selected on the left must be different than the date range selected on the right.");
        return false;
    }
    if (oneFile && *FromDate.first <= *ToDate.last && *ToDate.first <= *FromDate.last) {
        say(s_, "The dates selected on the left cannot overlap the dates selected on the right.");
        return false;
    }
    if (fromCount != toCount) {
        say(s_, "The number of days selected on the left must be equal to the number selected on the right.");
        return false;
    }
    // The month views allow no more; a run without them is held to the same.
    if (fromCount > kMaxRangeDays) {
        say(s_, "No more than " + std::to_string(kMaxRangeDays) + " days can be copied at once.");
        return false;
    }
    const std::string question =
        fromCount == 1 ? "Copy 1 day of the schedule from " + s_.messageDate(*FromDate.first) + " to " +
                             s_.messageDate(*ToDate.first)
                       : "Copy " + std::to_string(fromCount) + " days starting at " + s_.messageDate(*FromDate.first) +
                             " through " + s_.messageDate(*FromDate.last) + " to " + s_.messageDate(*ToDate.first);
    if (!s_.ui().askYesNo(question, MsgIcon::Question, kRecordsTitle)) return false;
    return run(from, *FromDate.first, to, *ToDate.first, fromCount);
}

bool CopySchedule(Session& s, const CopyChoices& choices) {
    if (!requireScheduleFile(s, choices.fromSchedule) || !requireScheduleFile(s, choices.toSchedule)) return false;
    CopyNew window(s);
    window.fromschedulecombo.select(choices.fromSchedule);
    window.toschedulecombo.select(choices.toSchedule);
    if (choices.checkConflicts) window.CheckforConflicts_Click(*choices.checkConflicts);
    switch (choices.mode) {
    case CopyMode::Day: window.dayoption_Click(); break;
    case CopyMode::Week: window.weekoption_Click(); break;
    case CopyMode::Range: window.RangeOption_Click(); break;
    }
    if (choices.mode == CopyMode::Range) {
        // Taken as given: a range longer than the month views allow is refused, not cut.
        const Date fromLast = choices.fromLast.value_or(choices.fromFirst);
        window.FromDate = {std::min(choices.fromFirst, fromLast), std::max(choices.fromFirst, fromLast)};
        const Date toLast = choices.toLast.value_or(choices.toFirst.addDays(window.FromDate.count() - 1));
        window.ToDate = {std::min(choices.toFirst, toLast), std::max(choices.toFirst, toLast)};
    } else {
        // One day, or widened to its week, as a click in the month views does.
        window.FromDate_SelChange(choices.fromFirst, choices.fromFirst);
        window.ToDate_SelChange(choices.toFirst, choices.toFirst);
    }
    return window.Command1_Click();
}

// ---------------------------------------------------------------- copytodifferent

copytodifferent::copytodifferent(Session& s) : s_(s) {}

void copytodifferent::UpdateWeekLabels() {
    const auto week = [this](const std::string& typed, std::string& start, std::string& end) {
        const auto d = reference::parseTypedDate(common::trim(typed));
        if (!d) {
            start.clear();
            end.clear();
            return;
        }
        const Date first = common::weekStart(*d, s_.settings.firstdayofweek);
        start = s_.messageDate(first);
        end = s_.messageDate(first.addDays(6));
    };
    week(sourceweek, wsourcestart, wsourceend);
    week(destinationweek, wdestinationstart, wdestinationend);
}

bool copytodifferent::OKButton_Click() {
    if (!requireScheduleFile(s_, s_.currentSchedule)) return false;
    if (maintenance::NoSchedulePermission(s_)) return false;
    Date source, target;
    int days = 1;
    if (dayoption) {
        if (common::trim(sourcestart).empty() || common::trim(destinationstart).empty()) {
            say(s_, "You need to enter a source date and a destination date.");
            return false;
        }
        const auto from = reference::parseTypedDate(common::trim(sourcestart));
        if (!from) {
            say(s_, "The source date is not valid.");
            return false;
        }
        const auto to = reference::parseTypedDate(common::trim(destinationstart));
        if (!to) {
            say(s_, "The destination date is not valid.");
            return false;
        }
        if (*from == *to) {
            say(s_, "The source date cannot equal the destination date.");
            return false;
        }
        source = *from;
        target = *to;
    } else {
        if (common::trim(sourceweek).empty()) {
            say(s_, "Please enter a date for the source.");
            return false;
        }
        if (common::trim(destinationweek).empty()) {
            say(s_, "Please enter a destination date.");
            return false;
        }
        const auto from = reference::parseTypedDate(common::trim(sourceweek));
        if (!from) {
            say(s_, "The source date is not valid.");
            return false;
        }
        const auto to = reference::parseTypedDate(common::trim(destinationweek));
        if (!to) {
            say(s_, "The destinationweek is not valid.");
            return false;
        }
        if (*from == *to) {
            say(s_, "The source date cannot be equal to the destination week.");
            return false;
        }
        source = common::weekStart(*from, s_.settings.firstdayofweek);
        target = common::weekStart(*to, s_.settings.firstdayofweek);
        if (source == target) {
            say(s_, "The source week cannot be equal to the destination week.");
            return false;
        }
        days = 7;
    }

    // This window copies without testing the entries, and a day without entries just empties its target.
    if (CopyDays(s_, s_.currentSchedule, source, s_.currentSchedule, target, days, false, false) == CopyOutcome::Failed)
        return false;
    say(s_, kCopyCompleted);
    return true;
}

}  // namespace tallymere::schedule

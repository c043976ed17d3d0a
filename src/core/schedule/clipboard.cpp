#include "schedule/clipboard.h"

#include "common/display_format.h"
#include "maintenance/access_control.h"
#include "schedule/bulk_change.h"
#include "schedule/entry_rules.h"
#include "schedule/undo.h"
#include "store/access.h"

#include <exception>
#include <string>
#include <vector>

namespace tallymere::schedule {

using common::Date;
using common::DateTime;
using common::MsgIcon;
using common::Session;
using maintenance::NoSchedulePermission;
using store::Value;

namespace {

constexpr const char* kNoItemsToDelete = "There are no schedule items to delete.";

// Runs `op`; a failure the access layer did not already report is told in `failure` (with the
// error's words when `withDescription`), the pointer comes back, and `fallback` is the result. The
// end of the program passes through.
template <class Op>
bool trapped(Session& s, const std::string& failure, bool withDescription, bool fallback, Op&& op) {
    try {
        return op();
    } catch (const common::ProgramEnd&) {
        throw;
    } catch (const std::exception& e) {
        s.ui().setBusy(false);
        s.ui().inform(withDescription ? failure + e.what() : failure, MsgIcon::Critical);
        return fallback;
    }
}

Value optionalTime(const std::optional<DateTime>& t) { return t ? Value(*t) : Value(); }

// The clock time of `t` on `day`, to the minute: the buffer keeps the source day in its dates.
std::optional<DateTime> onDay(Date day, const std::optional<DateTime>& t) {
    if (!t) return std::nullopt;
    return DateTime::at(day, t->hour(), t->minute());
}

bool fillPasteBuffer(Session& s, long currentRowValue, const Selection& selection, bool cut) {
    if (currentRowValue == 0) return false;
    if (NoSchedulePermission(s)) return false;

    s.ui().setBusy(true);
    // The buffer is replaced whole, and a cut takes out every entry it buffered, or nothing changes.
    store::Transaction transaction(s);
    bool complete = store::DeleteRecs(s, "delete from schedpaste");
    for (const long schedid : selection) {
        bool added = false;
        AddToPasteBuffer(s, schedid, added);
        complete = added && (!cut || store::DeleteRecs(s, "delete from sched where schedid=?", {schedid}));
        if (!complete) break;
    }
    // A failed statement makes the commit say that nothing was saved; a failure already told by
    // AddToPasteBuffer just rolls back.
    const bool kept = (complete || transaction.failed()) && transaction.commit() && complete;
    s.ui().setBusy(false);
    if (kept && cut && !selection.empty()) s.refreshWanted = true;
    return kept;
}

enum class Answer { Paste, Skip, Stop };

// The overlap, availability and leave tests of one buffer row for a real employee.
Answer pasteTests(Session& s, long personid, const std::string& name, std::size_t bufferRows,
                  std::optional<DateTime> bufferStart, std::optional<DateTime> bufferEnd,
                  std::optional<DateTime> newStart, std::optional<DateTime> newEnd) {
    const Date day = s.activeDate;
    if (OverlapsOnDay(s, personid, day, bufferStart, bufferEnd)) {
        if (bufferRows == 1) {
            s.ui().inform(name + " is already scheduled for that time.", MsgIcon::Exclamation);
            return Answer::Stop;
        }
        return s.ui().askYesNo(name + " is already scheduled for that time. Continue?") ? Answer::Skip : Answer::Stop;
    }

    // An employee deleted since the copy has no availability or leave to test.
    const bool exists = !store::GetRecs(s, "select * from person where personid = ?", {personid}).empty();
    if (!exists) return Answer::Paste;

    // Yes to "Override?" skips the row instead of pasting it. That is how the paste has always
    // behaved and it stays so: only No differs, by stopping the whole paste.
    if (newStart && newEnd && !CheckAvailability(s, personid, day, *newStart, *newEnd))
        return s.ui().askYesNo(name + " is not available for that time. Override?") ? Answer::Skip : Answer::Stop;
    if (!GetLeaveType(s, personid, day).empty())
        return s.ui().askYesNo(name + " is scheduled for leave that day. Override?") ? Answer::Skip : Answer::Stop;
    return Answer::Paste;
}

}  // namespace

void AddToPasteBuffer(Session& s, long schedid, bool& success) {
    success = trapped(s, "Error occurred adding to paste buffer. ", true, false, [&] {
        auto rs = store::GetRecs(s, "select * from sched where schedid=?", {schedid});
        if (!rs.isOpen()) return false;
        if (rs.empty()) return true;
        return store::InsertRecs(
            s,
            "insert into schedpaste (lname,fname,personid,strttime,endtime,position,shift,"
            "section,comment) values(?,?,?,?,?,?,?,?,?)",
            {rs["LName"].text(), rs["fname"].text(), rs["personid"].toLong(), optionalTime(rs["strttime"].toDateTime()),
             optionalTime(rs["endtime"].toDateTime()), rs["position"].text(), rs["Shift"].text(), rs["Section"].text(),
             rs["comment"].text()});
    });
}

bool CopyEntries(Session& s, long currentRowValue, const Selection& selection) {
    return fillPasteBuffer(s, currentRowValue, selection, false);
}

bool CutEntries(Session& s, long currentRowValue, const Selection& selection) {
    return trapped(s, "Error occurred cutting schedule entries. ", true, false,
                   [&] { return fillPasteBuffer(s, currentRowValue, selection, true); });
}

bool PasteEntries(Session& s) {
    if (s.currentSchedule.empty()) {
        s.ui().inform("No schedule file is open. Please open a schedule file or create a new one.",
                      MsgIcon::Information);
        return false;
    }
    if (NoSchedulePermission(s)) return false;

    // One transaction for the whole paste. A No to a question keeps the rows that went in before it,
    // as the paste always has; a failure takes every one of them back.
    enum class End { Ran, Stopped, Failed, Threw };
    End end = End::Threw;  // left so only when the work below throws
    bool pasted = false;
    store::Transaction transaction(s);
    trapped(s, "Error occurred pasting schedule entries. ", true, false, [&] {
        auto rs = store::GetRecs(s, "select * from schedpaste");
        if (!rs.isOpen()) {
            end = End::Stopped;
            return false;
        }
        const Date day = s.activeDate;
        for (; !rs.eof(); rs.MoveNext()) {
            const long personid = static_cast<long>(rs["personid"].toLong());
            std::string lname = rs["lname"].text();
            std::string fname = rs["fname"].text();
            const std::string name = fname.empty() ? lname : lname + ", " + fname;

            const auto bufferStart = rs["strttime"].toDateTime();
            const auto bufferEnd = rs["endtime"].toDateTime();
            // An entry that ran over midnight on its own day does so on the target day too.
            const bool overnight = bufferStart && bufferEnd && bufferStart->date() != bufferEnd->date();
            const auto newStart = onDay(day, bufferStart);
            const auto newEnd = onDay(overnight ? day.addDays(1) : day, bufferEnd);

            if (personid != kUnassignedId) {
                const Answer a =
                    pasteTests(s, personid, name, rs.RecordCount(), bufferStart, bufferEnd, newStart, newEnd);
                if (a == Answer::Stop) {
                    end = End::Stopped;
                    return false;
                }
                if (a == Answer::Skip) continue;
            } else {
                lname = Session::kUnassignedName;
                fname.clear();
            }

            if (!store::InsertRecs(
                    s,
                    "insert into sched (lname,fname,personid,sday,strttime,endtime,position,shift,"
                    "section,comment,sname) values(?,?,?,?,?,?,?,?,?,?,?)",
                    {lname, fname, personid, day, optionalTime(newStart), optionalTime(newEnd), rs["position"].text(),
                     rs["Shift"].text(), rs["Section"].text(), rs["comment"].text(), s.currentSchedule})) {
                end = End::Failed;
                return false;
            }
            pasted = true;
        }
        end = End::Ran;
        return true;
    });

    if (end == End::Threw) return false;  // told already; leaving the scope takes the rows back
    // After a failed statement the commit rolls back and says that nothing was saved.
    if (!transaction.commit() || end == End::Failed) return false;
    if (pasted) s.refreshWanted = true;
    return end == End::Ran || pasted;
}

bool DeleteSelectedEntries(Session& s, long currentRowValue, const Selection& selection, DeleteListener& listener) {
    if (NoSchedulePermission(s)) return false;
    if (currentRowValue == 0) {
        s.ui().inform(kNoItemsToDelete);
        return false;
    }
    if (!s.ui().askYesNo("Are you sure you want to delete the selected schedule entries?")) {
        s.ui().setBusy(false);
        return false;
    }

    // The window hears of the deletions once they are committed, in the order they were made, so that
    // a change that is rolled back leaves the grid as it was.
    struct Step {
        long schedid;
        std::optional<long> unscheduled;  // the employee who has no entry left that day
        Date day;
        std::optional<DateTime> start, end;
    };
    std::vector<Step> steps;
    const bool committed = runAsOneChange(s, [&] {
        SaveUndoSnapshot(s, s.activeDate, s.activeDate, "Undo Delete Schedule", true, s.currentSchedule);
        return trapped(s, "Error occurred removing schedule item.", false, false, [&] {
            s.ui().setBusy(true);
            for (const long schedid : selection) {
                auto entry =
                    store::GetRecs(s, "select personid,sday,strttime,endtime from sched where schedid=? and sname=?",
                                   {schedid, s.currentSchedule});
                if (!store::DeleteRecs(s, "delete from sched where schedid = ? and sname=?",
                                       {schedid, s.currentSchedule}))
                    break;
                Step& step = steps.emplace_back(Step{schedid, std::nullopt, s.activeDate, {}, {}});

                if (entry.empty()) continue;
                const long personid = static_cast<long>(entry["personid"].toLong());
                step.day = entry["sday"].toDate().value_or(s.activeDate);
                if (personid == kUnassignedId) continue;
                const bool stillScheduled =
                    !store::GetRecs(s, "select * from sched where personid=? and sday=? and sname=?",
                                    {personid, step.day, s.currentSchedule})
                         .empty();
                if (!stillScheduled) {
                    step.unscheduled = personid;
                    step.start = entry["strttime"].toDateTime();
                    step.end = entry["endtime"].toDateTime();
                }
            }
            s.ui().setBusy(false);
            return true;
        });
    });
    if (!committed) return false;

    if (!steps.empty()) s.refreshWanted = true;
    for (const Step& step : steps) {
        listener.rowDeleted(step.schedid);
        if (step.unscheduled) listener.employeeUnscheduled(*step.unscheduled, step.day, step.start, step.end);
    }
    return true;
}

bool mnudeleteday(Session& s) {
    if (s.currentSchedule.empty()) {
        s.ui().inform("No schedule file is open.");
        return false;
    }
    if (NoSchedulePermission(s)) return false;
    const Date day = s.activeDate;
    if (!s.ui().askYesNo("Remove all schedule records for " + s.messageDate(day) + "?")) return false;

    // The rows move into the snapshot, so undo gives back the same entries, schedids and all.
    const bool committed = runAsOneChange(s, [&] {
        SaveUndoSnapshot(s, day, day, "Undo Delete Day", false, s.currentSchedule);
        return store::DeleteRecs(s, "delete from sched where sday =? and sname = ?", {day, s.currentSchedule});
    });
    if (committed) s.refreshWanted = true;
    return committed;
}

// The snapshot and the change it guards are one transaction: should the change fail, neither stays,
// nor an undo command that would act on them.
bool PasteWithUndo(Session& s) {
    bool refresh = false;
    const bool committed = runAsOneChange(s, [&] {
        SaveUndoSnapshot(s, s.activeDate, s.activeDate, "Undo Paste", true, s.currentSchedule);
        refresh = PasteEntries(s);
        return true;  // a paste that did nothing still leaves its snapshot, as it always has
    });
    return committed && refresh;
}

bool CutWithUndo(Session& s, long currentRowValue, const Selection& selection) {
    bool refresh = false;
    const bool committed = runAsOneChange(s, [&] {
        SaveUndoSnapshot(s, s.activeDate, s.activeDate, "Undo Cut", true, s.currentSchedule);
        refresh = CutEntries(s, currentRowValue, selection);
        return true;
    });
    return committed && refresh;
}

bool CutFromMenu(Session& s, long currentRowValue, const Selection& selection) {
    // Unlike Ctrl+X, the menu's cut takes no snapshot: it can never be undone.
    store::Transaction transaction(s);
    ClearUndo(s);
    const bool cut = CutEntries(s, currentRowValue, selection);
    return transaction.commit() && cut;
}

bool CopyClearingUndo(Session& s, long currentRowValue, const Selection& selection) {
    store::Transaction transaction(s);
    ClearUndo(s);
    const bool copied = CopyEntries(s, currentRowValue, selection);
    return transaction.commit() && copied;
}

}  // namespace tallymere::schedule

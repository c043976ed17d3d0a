#include "schedule/clipboard.h"

#include "common/display_format.h"
#include "maintenance/access_control.h"
#include "schedule/entry_rules.h"
#include "schedule/undo.h"
#include "store/access.h"

#include <exception>
#include <string>

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
    store::DeleteRecs(s, "delete from schedpaste");
    for (const long schedid : selection) {
        bool added = false;
        AddToPasteBuffer(s, schedid, added);
        if (!added) break;
        if (cut) {
            if (!store::DeleteRecs(s, "delete from sched where schedid=?", {schedid})) break;
            s.refreshWanted = true;
        }
    }
    s.ui().setBusy(false);
    return true;
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

    bool pasted = false;
    const bool ranToEnd = trapped(s, "Error occurred pasting schedule entries. ", true, false, [&] {
        auto rs = store::GetRecs(s, "select * from schedpaste");
        if (!rs.isOpen()) return false;
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
                if (a == Answer::Stop) return false;
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
                     rs["Shift"].text(), rs["Section"].text(), rs["comment"].text(), s.currentSchedule}))
                return false;
            s.refreshWanted = true;
            pasted = true;
        }
        return true;
    });
    return ranToEnd || pasted;
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

    SaveUndoSnapshot(s, s.activeDate, s.activeDate, "Undo Delete Schedule", true, s.currentSchedule);

    return trapped(s, "Error occurred removing schedule item.", false, false, [&] {
        s.ui().setBusy(true);
        for (const long schedid : selection) {
            auto entry =
                store::GetRecs(s, "select personid,sday,strttime,endtime from sched where schedid=? and sname=?",
                               {schedid, s.currentSchedule});
            if (!store::DeleteRecs(s, "delete from sched where schedid = ? and sname=?", {schedid, s.currentSchedule}))
                break;
            s.refreshWanted = true;
            listener.rowDeleted(schedid);

            if (entry.empty()) continue;
            const long personid = static_cast<long>(entry["personid"].toLong());
            const Date day = entry["sday"].toDate().value_or(s.activeDate);
            if (personid == kUnassignedId) continue;
            const bool stillScheduled =
                !store::GetRecs(s, "select * from sched where personid=? and sday=? and sname=?",
                                {personid, day, s.currentSchedule})
                     .empty();
            if (!stillScheduled)
                listener.employeeUnscheduled(personid, day, entry["strttime"].toDateTime(),
                                             entry["endtime"].toDateTime());
        }
        s.ui().setBusy(false);
        return true;
    });
}

bool mnudeleteday(Session& s) {
    if (s.currentSchedule.empty()) {
        s.ui().inform("No schedule file is open.");
        return false;
    }
    if (NoSchedulePermission(s)) return false;
    const Date day = s.activeDate;
    if (!s.ui().askYesNo("Remove all schedule records for " + common::formatDate(day, "short date", s.locale) + "?"))
        return false;

    // The rows move into the snapshot, so undo gives back the same entries, schedids and all.
    SaveUndoSnapshot(s, day, day, "Undo Delete Day", false, s.currentSchedule);
    store::DeleteRecs(s, "delete from sched where sday =? and sname = ?", {day, s.currentSchedule});
    s.refreshWanted = true;
    return true;
}

bool PasteWithUndo(Session& s) {
    SaveUndoSnapshot(s, s.activeDate, s.activeDate, "Undo Paste", true, s.currentSchedule);
    return PasteEntries(s);
}

bool CutWithUndo(Session& s, long currentRowValue, const Selection& selection) {
    SaveUndoSnapshot(s, s.activeDate, s.activeDate, "Undo Cut", true, s.currentSchedule);
    return CutEntries(s, currentRowValue, selection);
}

bool CutFromMenu(Session& s, long currentRowValue, const Selection& selection) {
    // Unlike Ctrl+X, the menu's cut takes no snapshot: it can never be undone.
    ClearUndo(s);
    return CutEntries(s, currentRowValue, selection);
}

bool CopyClearingUndo(Session& s, long currentRowValue, const Selection& selection) {
    ClearUndo(s);
    return CopyEntries(s, currentRowValue, selection);
}

}  // namespace tallymere::schedule

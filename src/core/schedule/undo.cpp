#include "schedule/undo.h"

#include "store/access.h"

namespace tallymere::schedule {

using common::Date;
using common::Session;
using store::Params;
using store::Value;

namespace {

constexpr const char* kUndo = Session::kUndoScheduleName;

Value dateValue(const store::Field& f) {
    const auto d = f.toDate();
    return d ? Value(*d) : Value();
}

Value dateTimeValue(const store::Field& f) {
    const auto t = f.toDateTime();
    return t ? Value(*t) : Value();
}

// Copies the rows of one day into the snapshot. The copies are new rows: an undo that puts them back
// gives the day new schedids.
bool copyDayToSnapshot(Session& s, Date day, const std::string& scheduleName) {
    for (auto rs = store::GetRecs(s, "select * from sched where sday = ? and sname =?", {day, scheduleName}); !rs.eof();
         rs.MoveNext()) {
        const Params row{rs["lname"].text(),
                         rs["fname"].text(),
                         rs["personid"].value(),
                         dateValue(rs["sday"]),
                         dateTimeValue(rs["strttime"]),
                         dateTimeValue(rs["endtime"]),
                         rs["position"].text(),
                         rs["shift"].text(),
                         rs["section"].text(),
                         rs["comment"].text(),
                         kUndo};
        if (!store::InsertRecs(s,
                               "insert into sched (lname,fname,personid,sday,strttime,endtime,position,shift,section,"
                               "comment,sname) values(?,?,?,?,?,?,?,?,?,?,?)",
                               row))
            return false;
    }
    return true;
}

}  // namespace

void SaveUndoSnapshot(Session& s, std::optional<Date> from, std::optional<Date> to, const std::string& caption,
                      bool keepRows, const std::string& scheduleName) {
    // The snapshot is taken whole or not at all; inside a larger change it joins that change's
    // transaction.
    store::Transaction transaction(s);
    // Only one snapshot exists: the previous one goes even when no new one is taken.
    bool written = store::DeleteRecs(s, "delete from sched where sname = ?", {kUndo});
    if (!from || !to) {
        transaction.commit();
        return;
    }

    if (!keepRows) {
        // The rows themselves move aside and keep their schedids, so an undo brings back the very
        // same entries.
        if (written) {
            written = *from != *to
                          ? store::UdateRecs(s, "update sched set sname = ? where sday >=? and sday <=? and sname = ?",
                                             {kUndo, *from, *to, scheduleName})
                          : store::UdateRecs(s, "update sched set sname = ? where sday = ? and sname = ?",
                                             {kUndo, *from, scheduleName});
        }
    } else {
        for (Date day = *from; written && day <= *to; day = day.addDays(1))
            written = copyDayToSnapshot(s, day, scheduleName);
    }
    if (!transaction.commit() || !written) return;

    // What the snapshot covers is noted only once it is there: an undo command must not put an old
    // snapshot back over a new range.
    s.undoFrom = *from;
    s.undoTo = *to;
    s.undoScheduleName = scheduleName;
    // Shown even when the range held no rows: the undo then just empties the range.
    if (s.undoMenu) s.undoMenu->showUndo(caption);
}

void UndoLastChange(Session& s) {
    if (s.undoMenu) s.undoMenu->hideUndo();
    // Emptying the range and putting the snapshot back happen together, or the range stays as it is.
    store::Transaction transaction(s);
    store::DeleteRecs(s, "delete from sched where sday >= ? and sday <= ? and sname = ?",
                      {s.undoFrom, s.undoTo, s.undoScheduleName});
    store::UdateRecs(s, "update sched set sname = ? where sname = ?", {s.undoScheduleName, kUndo});
    transaction.commit();
    s.refreshWanted = true;
}

}  // namespace tallymere::schedule

#include "schedule/bulk_change.h"

#include "schedule/undo.h"
#include "store/access.h"

namespace tallymere::schedule {

using store::Value;

bool requireScheduleFile(Session& s, const std::string& scheduleName) {
    if (scheduleName.empty()) {
        s.ui().inform("No schedule file is open.");
        return false;
    }
    const auto rs = store::GetRecs(s, "select id from schedname where schedname=?", {scheduleName});
    if (!rs.isOpen()) return false;  // the access layer has said why
    if (rs.empty()) {
        s.ui().inform("There is no schedule file named '" + scheduleName + "'.", common::MsgIcon::Exclamation);
        return false;
    }
    return true;
}

EntryRow entryRow(const store::Recordset& rs) {
    return {rs["personid"].value(),      rs["lname"].text(),         rs["fname"].text(),
            rs["strttime"].toDateTime(), rs["endtime"].toDateTime(), rs["position"].text(),
            rs["shift"].text(),          rs["section"].text(),       rs["comment"].text()};
}

bool insertEntry(Session& s, const EntryRow& row, Date day, const std::string& scheduleName) {
    const auto time = [](const std::optional<DateTime>& t) { return t ? Value(*t) : Value(); };
    return store::InsertRecs(s,
                             "insert into sched (lname,fname,personid,sday,strttime,endtime,position,shift,section,"
                             "comment,sname) values(?,?,?,?,?,?,?,?,?,?,?)",
                             {row.lname, row.fname, row.personid, day, time(row.start), time(row.end), row.position,
                              row.shift, row.section, row.comment, scheduleName});
}

DateTime clockTimeOn(Date day, DateTime t) { return DateTime::at(day, t.hour(), t.minute()); }

bool runAsOneChange(Session& s, const std::function<bool()>& change) {
    ClearUndo(s);
    bool committed = false;
    try {
        store::Transaction transaction(s);
        const bool completed = !transaction.failed() && change();
        // After a failed statement the commit rolls back and tells the user that nothing was saved.
        if (completed || transaction.failed()) committed = transaction.commit() && completed;
    } catch (const common::ProgramEnd&) {
        throw;
    } catch (...) {
        ClearUndo(s);  // the transaction has rolled back by now
        throw;
    }
    // The snapshot went with the rest; an undo command left showing would act on nothing of it.
    if (!committed) ClearUndo(s);
    return committed;
}

}  // namespace tallymere::schedule

#pragma once
// What the operations that rewrite whole days share (the default schedule, the copies): the test of
// the schedule file they write to, one entry row carried from a read to an insert, clock times put
// on another day, and the running of a change as one transaction with its undo snapshot.

#include "common/session.h"
#include "store/recordset.h"
#include "store/value.h"

#include <functional>
#include <optional>
#include <string>

namespace tallymere::schedule {

using common::Date;
using common::DateTime;
using common::Session;

// The day a time of day alone falls on, as the engine keeps a bare time ("#10:00 PM#").
inline const Date kTimeBaseDay = Date::fromYmd(1899, 12, 30);

// False after saying why when `scheduleName` names no schedule file: "No schedule file is open." for
// an empty name, otherwise that there is no file of that name. Names compare without regard to case.
bool requireScheduleFile(Session& s, const std::string& scheduleName);

// The fields of a `sched` row that an insert writes, besides `sname`. Texts are NULL-safe reads.
struct EntryRow {
    store::Value personid;
    std::string lname;
    std::string fname;
    std::optional<DateTime> start;
    std::optional<DateTime> end;
    std::string position;
    std::string shift;
    std::string section;
    std::string comment;
};

// The current row of a recordset over `sched` or `scheddefault`.
EntryRow entryRow(const store::Recordset& rs);

// "insert into sched (lname,fname,personid,sday,strttime,endtime,position,shift,section,comment,sname)"
bool insertEntry(Session& s, const EntryRow& row, Date day, const std::string& scheduleName);

// The clock time of `t` to the minute on `day`, as "<day> " & Format(t, "HH:MM AMPM") builds it.
DateTime clockTimeOn(Date day, DateTime t);
inline std::optional<DateTime> clockTimeOn(Date day, const std::optional<DateTime>& t) {
    return t ? std::optional<DateTime>(clockTimeOn(day, *t)) : std::nullopt;
}

// Runs `change` (which takes its own undo snapshot and writes) as one transaction: all of it is kept
// or none of it. The previous undo snapshot is forgotten first, so that a change that does not commit
// leaves neither its rows nor an undo command that would act on them. `change` returns false to
// abandon the whole change. True when it was committed.
bool runAsOneChange(Session& s, const std::function<bool()>& change);

}  // namespace tallymere::schedule

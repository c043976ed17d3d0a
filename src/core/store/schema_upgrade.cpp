#include "store/schema_upgrade.h"

#include "common/date_time.h"
#include "common/text.h"
#include "store/access.h"
#include "store/connection.h"
#include "store/options.h"

namespace tallymere::store {

namespace {

// As in the template; a file that has them already keeps its own.
constexpr const char* kIndexes[] = {
    "CREATE INDEX IF NOT EXISTS sched_day ON sched (sname, sday)",
    "CREATE INDEX IF NOT EXISTS sched_person ON sched (personid, sday)",
    "CREATE INDEX IF NOT EXISTS sched_date ON sched (sday)",
    "CREATE INDEX IF NOT EXISTS availability_person_day ON availability (personid, sday)",
    "CREATE INDEX IF NOT EXISTS employeeleave_person ON employeeleave (personid, sday)",
    "CREATE INDEX IF NOT EXISTS employeeleave_day ON employeeleave (sday)",
};

bool hasColumn(Connection& c, const char* table, std::string_view column) {
    Recordset rs;
    if (c.query(std::string("PRAGMA table_info(") + table + ")", {}, rs)) return false;
    for (std::size_t row = 0; row < rs.RecordCount(); ++row) {
        if (common::equalsNoCase(rs.field(row, "name").text(), column)) return true;
    }
    return false;
}

}  // namespace

void UpgradeSchema(common::Session& s) {
    DbError error;
    const auto c = Connection::open(s.DatabasePath(), error);
    if (!c) return;

    // Up to here a failing step is ignored and the next one runs.
    if (!hasColumn(*c, "daynote", "sname"))
        (void)c->execute("ALTER TABLE daynote ADD COLUMN sname TEXT(255) COLLATE NOCASE", {});
    if (!hasColumn(*c, "daynote", "dailysales")) (void)c->execute("ALTER TABLE daynote ADD COLUMN dailysales REAL", {});
    (void)c->execute("ALTER TABLE desiredshift ADD COLUMN Position TEXT(50) COLLATE NOCASE", {});
    (void)c->execute("ALTER TABLE desiredshifttemp ADD COLUMN Position TEXT(50) COLLATE NOCASE", {});
    // The indexes the daily reads rest on, for files made before the template had them.
    for (const char* index : kIndexes) (void)c->execute(index, {});

    // From here the first error ends the routine. Adding `daynum` fails once it exists, which is what
    // makes the numbering below run once in the life of a database.
    if (c->execute("ALTER TABLE scheddefault ADD COLUMN daynum INTEGER", {})) return;
    s.settings.gi_defaultschedlength = 7;

    Recordset rs;
    if (c->query("select * from scheddefault", {}, rs) || rs.empty()) return;

    // The default schedule's days are numbered from the first day of the week.
    int weekday = common::weekdayFromName(s.settings.firstdayofweek);
    if (weekday == 0) weekday = 1;
    for (int daynum = 1; daynum <= 7; ++daynum) {
        if (c->execute("update scheddefault set daynum =? where sdayname = ?", {daynum, common::weekdayName(weekday)}))
            return;
        weekday = weekday == 7 ? 1 : weekday + 1;
    }
}

void RepairOvernightEntries(common::Session& s) {
    const std::string version = GetOption(s, "gs_versionnumber");
    if (!version.empty() && version[0] != '1') return;

    Recordset rs = GetRecs(s, "select * from sched where endtime < strttime order by sday");
    for (; !rs.eof(); rs.MoveNext()) {
        const auto start = rs["strttime"].toDateTime();
        const auto end = rs["endtime"].toDateTime();
        if (!start || !end) continue;
        UdateRecs(s, "update sched set strttime=?,endtime=? where schedid=?",
                  {*start, end->addDays(1), rs["schedid"].toLong()});
    }
}

}  // namespace tallymere::store

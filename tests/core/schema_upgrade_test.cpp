// Upgrading databases of older releases, and the repair of their overnight entries.

#include "store/options.h"
#include "store/schema_upgrade.h"
#include "support/test_database.h"

namespace tallymere::testing {
namespace {

using common::DateTime;
using store::GetRecs;
using store::InsertRecs;
using store::Recordset;

class UpgradeTest : public DatabaseTest {
protected:
    bool hasColumn(const std::string& table, const std::string& column) {
        Recordset rs = GetRecs(s(), "select * from " + table + " limit 0");
        return rs.columnIndex(column) >= 0;
    }
    // Turns the fresh database into one of an older release by dropping a column.
    void drop(const std::string& table, const std::string& column) {
        ASSERT_TRUE(store::UdateRecs(s(), "alter table " + table + " drop column " + column));
    }
    void addDefaultRow(const std::string& day) {
        InsertRecs(s(), "insert into scheddefault (personid, lname, sdayname) values (?, ?, ?)", {-1, "**Unassigned**", day});
    }
};

TEST_F(UpgradeTest, OnlyMissingDaynoteColumnsAreAdded) {
    drop("daynote", "dailysales");
    InsertRecs(s(), "insert into daynote (sday, sname) values (?, ?)", {common::Date::fromYmd(2026, 1, 5), "Main"});
    store::UpgradeSchema(s());
    EXPECT_TRUE(hasColumn("daynote", "dailysales"));
    EXPECT_EQ(GetRecs(s(), "select sname from daynote")["sname"].text(), "Main");
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(UpgradeTest, DesiredShiftPositionIsAddedWhereMissingAndSilentWhereNot) {
    drop("desiredshift", "position");
    store::UpgradeSchema(s());
    EXPECT_TRUE(hasColumn("desiredshift", "position"));
    EXPECT_TRUE(hasColumn("desiredshifttemp", "position"));
    store::UpgradeSchema(s());
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(UpgradeTest, DayNumbersCountFromTheFirstDayOfTheWeekOnce) {
    drop("scheddefault", "daynum");
    for (const char* day : {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Monday"})
        addDefaultRow(day);
    s().settings.firstdayofweek = "Monday";
    s().settings.gi_defaultschedlength = 14;
    store::UpgradeSchema(s());
    EXPECT_EQ(s().settings.gi_defaultschedlength, 7);
    Recordset rs = GetRecs(s(), "select sdayname, daynum from scheddefault");
    for (; !rs.eof(); rs.MoveNext()) {
        const std::string day = rs["sdayname"].text();
        const int expected = day == "Sunday" ? 7 : common::weekdayFromName(day) - 1;
        EXPECT_EQ(rs["daynum"].toInt(), expected) << day;
    }

    // Once the column exists the stored numbers stay, whatever the first day is now.
    s().settings.firstdayofweek = "Sunday";
    s().settings.gi_defaultschedlength = 14;
    store::UpgradeSchema(s());
    EXPECT_EQ(s().settings.gi_defaultschedlength, 14);
    EXPECT_EQ(GetRecs(s(), "select daynum from scheddefault where sdayname = ?", {"Sunday"})["daynum"].toInt(), 7);
}

TEST_F(UpgradeTest, AnEmptyDefaultScheduleOnlyGainsTheColumn) {
    drop("scheddefault", "daynum");
    store::UpgradeSchema(s());
    EXPECT_TRUE(hasColumn("scheddefault", "daynum"));
    EXPECT_EQ(GetRecs(s(), "select * from scheddefault").RecordCount(), 0u);
}

class OvernightRepairTest : public DatabaseTest {
protected:
    void addInvertedEntry() {
        InsertRecs(s(), "insert into sched (personid, lname, sday, strttime, endtime, sname) values (?,?,?,?,?,?)",
                   {-1, "**Unassigned**", common::Date::fromYmd(2006, 3, 1), DateTime::fromParts(2006, 3, 1, 22, 0),
                    DateTime::fromParts(2006, 3, 1, 6, 0), "Main"});
    }
    DateTime storedEnd() { return *GetRecs(s(), "select endtime from sched")["endtime"].toDateTime(); }
};

TEST_F(OvernightRepairTest, EntriesOfFirstReleasesMoveTheirEndToTheNextDay) {
    for (const char* version : {"", "1.4.2"}) {
        store::DeleteRecs(s(), "delete from sched");
        store::DeleteRecs(s(), "delete from options where optionname = ?", {"gs_versionnumber"});
        if (*version) store::SaveOption(s(), "gs_versionnumber", version);
        addInvertedEntry();
        store::RepairOvernightEntries(s());
        EXPECT_EQ(storedEnd(), DateTime::fromParts(2006, 3, 2, 6, 0)) << "version '" << version << "'";
    }
}

TEST_F(OvernightRepairTest, LaterReleasesLeaveEntriesAlone) {
    store::SaveOption(s(), "gs_versionnumber", "2.0.1");
    addInvertedEntry();
    store::RepairOvernightEntries(s());
    EXPECT_EQ(storedEnd(), DateTime::fromParts(2006, 3, 1, 6, 0));
}

}  // namespace
}  // namespace tallymere::testing

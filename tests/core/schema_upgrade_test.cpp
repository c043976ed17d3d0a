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

TEST_F(UpgradeTest, MissingColumnsAreAddedKeepingTheRowsAndASecondRunIsSilent) {
    drop("daynote", "dailysales");
    drop("desiredshift", "position");
    drop("scheddefault", "daynum");
    InsertRecs(s(), "insert into daynote (sday, sname) values (?, ?)", {common::Date::fromYmd(2026, 1, 5), "Main"});
    store::UpgradeSchema(s());
    for (const auto& [table, column] : {std::pair{"daynote", "dailysales"}, std::pair{"desiredshift", "position"},
                                        std::pair{"desiredshifttemp", "position"}, std::pair{"scheddefault", "daynum"}})
        EXPECT_TRUE(hasColumn(table, column)) << table;
    EXPECT_EQ(GetRecs(s(), "select sname from daynote")["sname"].text(), "Main");
    EXPECT_EQ(GetRecs(s(), "select * from scheddefault").RecordCount(), 0u);  // an empty default schedule
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

class OvernightRepairTest : public DatabaseTest {
protected:
    void addInvertedEntry() {
        InsertRecs(s(), "insert into sched (personid, lname, sday, strttime, endtime, sname) values (?,?,?,?,?,?)",
                   {-1, "**Unassigned**", common::Date::fromYmd(2006, 3, 1), DateTime::fromParts(2006, 3, 1, 22, 0),
                    DateTime::fromParts(2006, 3, 1, 6, 0), "Main"});
    }
    DateTime storedEnd() { return *GetRecs(s(), "select endtime from sched")["endtime"].toDateTime(); }
};

TEST_F(OvernightRepairTest, OnlyEntriesOfFirstReleasesMoveTheirEndToTheNextDay) {
    const std::pair<const char*, int> cases[] = {{"", 2}, {"1.4.2", 2}, {"2.0.1", 1}};  // version, day of the end
    for (const auto& [version, endDay] : cases) {
        store::DeleteRecs(s(), "delete from sched");
        store::DeleteRecs(s(), "delete from options where optionname = ?", {"gs_versionnumber"});
        if (*version) store::SaveOption(s(), "gs_versionnumber", version);
        addInvertedEntry();
        store::RepairOvernightEntries(s());
        EXPECT_EQ(storedEnd(), DateTime::fromParts(2006, 3, endDay, 6, 0)) << "version '" << version << "'";
    }
}

}  // namespace
}  // namespace tallymere::testing

#include "schedule/weekly_schedule.h"

#include "bulk_schedule_fixture.h"

namespace tallymere::testing {
namespace {

using common::Date;
using schedule::week;
using schedule::WeeklyGrid;

const Date kMon = Date::fromYmd(2026, 11, 23);

class WeeklyScheduleTest : public BulkScheduleTest {
protected:
    void SetUp() override {
        BulkScheduleTest::SetUp();
        ann = addPerson("Able", "Ann");
        zed = addPerson("Zed", "");
    }
    static Texts cells(const WeeklyGrid::Row& row) {
        Texts out{row.name, row.hours};
        out.insert(out.end(), row.days.begin(), row.days.end());
        return out;
    }
    long ann = 0;
    long zed = 0;
};

TEST_F(WeeklyScheduleTest, EmployeesDownDaysAcrossEntriesInTimeOrderAndTheWeeksHours) {
    s().settings.firstdayofweek = "Monday";
    s().activeDate = kMon.addDays(3);
    entry(kSam, kMon.addDays(1), 17, 240, "Week 1", "Late");
    entry(kSam, kMon.addDays(1), 8, 240, "Week 1", "Early");
    entry(kSam, kMon.addDays(6), 22, 270, "Week 1", "Night");  // Sunday into Monday
    entry(kSam, kMon.addDays(7), 9, 60);                       // the next week
    entry(kSam, kMon, 9, 60, "Week 2");
    entry(-1, kMon, 9, 480);
    const long gone = addPerson("Gone", "Gil");
    entry(gone, kMon, 9, 60);
    ASSERT_TRUE(store::UdateRecs(s(), "update person set active=0 where personid=?", {gone}));

    week w(s());
    EXPECT_EQ(w.Grid1.captions,
              (std::array<std::string, 9>{"Name", "Hrs", "Mon Nov, 23", "Tue Nov, 24", "Wed Nov, 25", "Thu Nov, 26",
                                          "Fri Nov, 27", "Sat Nov, 28", "Sun Nov, 29"}));
    ASSERT_EQ(w.Grid1.rows.size(), 3u);  // active people only, by last name
    EXPECT_EQ(cells(w.Grid1.rows[0]), (Texts{"Able, Ann", "", "", "", "", "", "", "", ""}));
    EXPECT_EQ(cells(w.Grid1.rows[1]),
              (Texts{"Sample, Sam", "12.50", "", "08:00 AM-12:00 PM\nEarly\n05:00 PM-09:00 PM\nLate", "", "", "", "",
                     "10:00 PM-02:30 AM\nNight"}));
    EXPECT_EQ(w.Grid1.rows[1].lines, 4);
    EXPECT_EQ(w.Grid1.rows[2].name, "Zed");
    EXPECT_EQ(w.Grid1.Rows(), 4);
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(WeeklyScheduleTest, FiltersNarrowTheEntriesButAShiftFilterKeepsEveryoneListed) {
    entry(kSam, kMon, 9, 480, "Week 1", "Day");
    entry(kSam, kMon.addDays(1), 17, 240, "Week 1", "Late");
    entry(ann, kMon, 17, 240, "Week 1", "Late");
    ASSERT_TRUE(store::InsertRecs(s(), "insert into shift (name) values('Late')"));
    ASSERT_TRUE(store::InsertRecs(s(), "insert into shift (name) values('Day')"));

    week w(s());
    EXPECT_EQ(w.shiftCombo.items, (Texts{"All", "Day", "Late"}));
    EXPECT_EQ(w.employeeCombo.items, (Texts{"All", "Able, Ann", "Sample, Sam", "Zed"}));

    w.shiftCombo_Click(1);  // Day
    ASSERT_EQ(w.Grid1.rows.size(), 3u);
    EXPECT_EQ(cells(w.Grid1.rows[0])[1], "");  // Ann: no Day entry, so no hours
    EXPECT_EQ(w.Grid1.rows[0].days[1], "");
    // Sam's hours are those of his whole week, the Late entry too.
    EXPECT_EQ(w.Grid1.rows[1].hours, "12.00");
    EXPECT_EQ(w.Grid1.rows[1].days[1], "09:00 AM-05:00 PM\nDay");
    EXPECT_EQ(w.Grid1.rows[1].days[2], "");

    w.shiftCombo_Click(0);
    w.employeeCombo_Click(1);
    ASSERT_EQ(w.Grid1.rows.size(), 1u);
    EXPECT_EQ(w.Grid1.rows[0].days[1], "05:00 PM-09:00 PM\nLate");

    // A change elsewhere shows when the window comes to the front again.
    entry(ann, kMon.addDays(2), 6, 60);
    w.Form_Activate();
    EXPECT_EQ(w.Grid1.rows[0].days[3], "");
    s().refreshWanted = true;
    w.Form_Activate();
    EXPECT_EQ(w.Grid1.rows[0].days[3], "06:00 AM-07:00 AM\nDay");
}

}  // namespace
}  // namespace tallymere::testing

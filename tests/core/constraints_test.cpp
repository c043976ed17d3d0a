#include "reference/availability.h"
#include "reference/desired_shifts.h"
#include "reference/leave.h"
#include "reference/leave_calendar.h"
#include "reference/qualifications.h"

#include "support/table_rows.h"
#include "support/test_database.h"

#include <string>
#include <vector>

namespace tallymere::testing {
namespace {

using common::Date;
using common::DateTime;
using reference::EmployeeRef;
using Rows = std::vector<std::string>;

constexpr long kSam = 1;

class ConstraintsTest : public DatabaseTest {
protected:
    void SetUp() override {
        DatabaseTest::SetUp();
        store::UdateRecs(s(), "update person set primpos='Cook' where personid=1");
        for (const char* title : {"Cook", "Server"})
            store::InsertRecs(s(), "insert into position (title) values(?)", {title});
        store::InsertRecs(s(), "insert into shift (name,strttime,endtime) values('Morning',?,?)",
                          {DateTime::fromParts(2006, 1, 1, 6), DateTime::fromParts(2006, 1, 1, 14)});
    }
    EmployeeRef sam() const { return {kSam, "Sample", "Sam", "Cook"}; }
    void addLeave(Date day, const std::string& type, long id = kSam, const std::string& fullname = "Sample, Sam") {
        ASSERT_TRUE(store::InsertRecs(s(),
                                      "insert into employeeleave (personid,fullname,typeofleave,sday) values(?,?,?,?)",
                                      {id, fullname, type, day}));
    }
    Rows leaveDays(long id = kSam) {
        return column(s(), "select sday || ' ' || typeofleave from employeeleave where personid=? order by sday", {id});
    }
    Rows houravail() { return column(s(), "select sday || ' ' || houravail from availability where personid=1"); }
};

TEST_F(ConstraintsTest, AvailabilityIsSavedAsStringsAndReadBack) {
    reference::AvailabilityTab tab(s());
    ASSERT_TRUE(tab.Load(kSam));
    ASSERT_TRUE(tab.Save(kSam, "Sample", "Sam"));
    const std::string allDay(24, 'Y');
    EXPECT_EQ(houravail(), (Rows{"Sunday " + allDay, "Monday " + allDay, "Tuesday " + allDay, "Wednesday " + allDay,
                                 "Thursday " + allDay, "Friday " + allDay, "Saturday " + allDay}));

    tab.paint(1, 17, 9);  // a drag from 5 PM back to 9 AM on Monday
    tab.daybutton(6);
    tab.availableoptionClick();
    tab.paint(1, 12, 12);  // lunch stays available
    EXPECT_TRUE(tab.changed());
    ASSERT_TRUE(tab.Save(kSam, "Sample", "Sam"));
    const Rows saved = houravail();
    ASSERT_EQ(saved.size(), 7u);  // updated in place, not added again
    EXPECT_EQ(saved[1], "Monday YYYYYYYYYNNNYNNNNNYYYYYY");
    EXPECT_EQ(saved[6], "Saturday " + std::string(24, 'N'));

    store::UdateRecs(s(), "update availability set houravail='NYYYYYYYYYYYYYYYYYYYYYYN' where sday='Wednesday'");
    reference::AvailabilityTab again(s());
    ASSERT_TRUE(again.Load(kSam));
    EXPECT_TRUE(again.availGrid1[3][0]);
    EXPECT_FALSE(again.availGrid1[3][1]);
    EXPECT_TRUE(again.availGrid1[3][23]);
    EXPECT_TRUE(again.availGrid1[1][9]);
    EXPECT_FALSE(again.availGrid1[1][12]);
    EXPECT_EQ(again.houravail(6), std::string(24, 'N'));
    EXPECT_FALSE(again.changed());
}

TEST_F(ConstraintsTest, LeaveRangeKeepsTheKindOfDaysAlreadyOnLeave) {
    addLeave(Date::fromYmd(2026, 11, 25), "Sick");
    reference::employeeleaveedit w(s(), sam());
    ASSERT_TRUE(w.Load());
    EXPECT_EQ(w.leavecombo.text(), "Vacation");
    EXPECT_EQ(w.startdate, Date::fromYmd(2026, 11, 23));
    w.enddate = Date::fromYmd(2026, 11, 27);
    w.enddateChange();
    w.leavecombo.select("Personal");
    ASSERT_TRUE(w.Command1());
    EXPECT_EQ(leaveDays(), (Rows{"2026-11-23 Personal", "2026-11-24 Personal", "2026-11-25 Sick", "2026-11-26 Personal",
                                 "2026-11-27 Personal"}));

    w.leavecombo.ListIndex = -1;
    EXPECT_FALSE(w.Command1());
    EXPECT_TRUE(ui.shown("Please select the type of leave."));

    reference::employeeleaveedit gone(s(), {99, "", "", ""});
    ASSERT_TRUE(gone.Load());
    EXPECT_FALSE(gone.Command1());
    EXPECT_EQ(ui.messages.back().text, "Employee not found; [Add Employee Leave].");
    EXPECT_EQ(ui.messages.back().icon, MsgIcon::Exclamation);
}

TEST_F(ConstraintsTest, LeaveRangeIsLimitedAndFollowsTheMonthView) {
    reference::employeeleaveedit w(s(), sam());
    ASSERT_TRUE(w.Load());
    w.enddate = Date::fromYmd(2027, 1, 31);
    w.enddateChange();
    EXPECT_EQ(w.startdate, Date::fromYmd(2027, 1, 1));
    w.startdate = Date::fromYmd(2027, 2, 5);
    w.startdateChange();
    EXPECT_EQ(w.enddate, Date::fromYmd(2027, 2, 5));
    w.MonthView1SelChange(Date::fromYmd(2027, 3, 20), Date::fromYmd(2027, 3, 1));
    EXPECT_EQ(w.startdate, Date::fromYmd(2027, 3, 1));
    EXPECT_EQ(w.enddate, Date::fromYmd(2027, 3, 20));
    EXPECT_EQ(w.MonthView1.last, w.enddate);

    reference::employeeleaveedittemp staged(s(), sam());
    ASSERT_TRUE(staged.Load());
    staged.MonthView1SelChange(Date::fromYmd(2027, 3, 1), Date::fromYmd(2027, 3, 31));
    EXPECT_EQ(staged.enddate, Date::fromYmd(2027, 3, 14));
    EXPECT_STREQ(staged.note(), "(Note: Only 14 days can be set at one time).");
}

TEST_F(ConstraintsTest, LeaveGridFoldsRangesAndDeletesThemDayByDay) {
    for (int d = 23; d <= 25; ++d) addLeave(Date::fromYmd(2026, 11, d), "Vacation");
    addLeave(Date::fromYmd(2026, 11, 26), "Sick");
    addLeave(Date::fromYmd(2026, 11, 28), "Vacation");
    addLeave(Date::fromYmd(2024, 11, 1), "Vacation");  // more than a year ago
    addLeave(Date::fromYmd(2026, 11, 24), "Vacation", 2, "Other, Person");

    reference::LeaveTab tab(s(), false);
    ASSERT_TRUE(tab.Refresh(kSam));
    ASSERT_EQ(tab.leavegrid.size(), 3u);
    EXPECT_EQ(tab.leavegrid[0].Date, "Nov 23, 2026 - Nov 25, 2026");
    EXPECT_EQ(tab.leavegrid[0].TypeOfLeave, "Vacation");
    EXPECT_EQ(tab.leavegrid[1].Date, "Nov 26, 2026");
    EXPECT_EQ(tab.leavegrid[1].TypeOfLeave, "Sick");
    EXPECT_EQ(tab.leavegrid[2].Date, "Nov 28, 2026");

    // A day of the range removed meanwhile is no error.
    store::DeleteRecs(s(), "delete from employeeleave where personid=1 and sday=?", {Date::fromYmd(2026, 11, 24)});
    tab.row = 0;
    ASSERT_TRUE(tab.deleteleavebutton(kSam));
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(leaveDays(), (Rows{"2024-11-01 Vacation", "2026-11-26 Sick", "2026-11-28 Vacation"}));
    EXPECT_EQ(leaveDays(2).size(), 1u);

    tab.editleavebutton();
    EXPECT_TRUE(ui.shown("Edit employee leave is not available."));
    ASSERT_TRUE(tab.deleteallbutton(kSam));
    EXPECT_TRUE(leaveDays().empty());
    EXPECT_EQ(leaveDays(2).size(), 1u);
}

TEST_F(ConstraintsTest, LeaveCalendarLaysOutTheMonthInWeeks) {
    addLeave(Date::fromYmd(2028, 2, 29), "Vacation");
    addLeave(Date::fromYmd(2028, 2, 29), "Sick", 2, "Lee, Ann");
    store::InsertRecs(s(), "insert into person (personid,lname,fname,active) values(2,'Lee','Ann',1)");

    reference::leavecal cal(s());
    ASSERT_TRUE(cal.Load());
    EXPECT_EQ(cal.personcombo.items, (Rows{"All", "Lee, Ann", "Sample, Sam"}));
    EXPECT_EQ(cal.heading, "Scheduled Leave for November, 2026");
    EXPECT_FALSE(cal.canPrintWithSchedule());
    EXPECT_TRUE(ui.shown("Please select an employee."));

    cal.leavecaldate = Date::fromYmd(2028, 2, 10);
    ASSERT_TRUE(cal.Command1());
    EXPECT_EQ(cal.heading, "Scheduled Leave for February, 2028");
    ASSERT_EQ(cal.Text1.size(), 5u);
    EXPECT_EQ(cal.Text1[0][1].day, 0);  // Feb 1, 2028 is a Tuesday
    EXPECT_EQ(cal.Text1[0][2].day, 1);
    EXPECT_EQ(cal.Text1[4][2].day, 29);
    EXPECT_EQ(cal.Text1[4][2].lines, (Rows{"Sample, Sam - Vacation", "Lee, Ann - Sick"}));
    EXPECT_EQ(cal.Text1[4][3].day, 0);

    cal.personcombo.select("Lee, Ann");
    cal.personcomboClick();
    EXPECT_EQ(cal.Text1[4][2].lines, Rows{"Lee, Ann - Sick"});

    cal.leavecaldate = Date::fromYmd(2027, 2, 1);
    cal.leavecaldateChange();
    EXPECT_EQ(cal.Text1.back()[0].day, 28);  // Feb 2027 starts on a Monday and ends on a Sunday
    EXPECT_EQ(reference::daysInMonth(1900, 2), 28);
    EXPECT_EQ(reference::daysInMonth(2000, 2), 29);
}

TEST_F(ConstraintsTest, QualificationForThePrimaryPositionIsRefused) {
    reference::addqualifications w(s(), sam());
    ASSERT_TRUE(w.Load());
    EXPECT_EQ(w.positioncombo.items, (Rows{"Cook", "Server"}));
    EXPECT_FALSE(w.OKbutton());
    EXPECT_EQ(ui.messages.back().text, "Please select a position.");
    w.positioncombo.select("cook");
    EXPECT_FALSE(w.OKbutton());
    EXPECT_EQ(ui.messages.back().text, "Primary position is already set to this position.");
    EXPECT_EQ(ui.messages.back().title, "Edit Employee");

    w.positioncombo.select("Server");
    w.hourlyrate = "1,009.5";
    w.skill = "7";
    ASSERT_TRUE(w.OKbutton());
    w.skillslider = 3;
    w.skillsliderChange();
    EXPECT_EQ(w.skill, "3");
    ui.answer(MsgAnswer::No);
    EXPECT_FALSE(w.OKbutton());
    EXPECT_EQ(ui.messages.back().text,
              "A qualification entry already exists for this employee and position. Would you like to update it?");
    ASSERT_TRUE(w.OKbutton());

    reference::QualificationTab tab(s(), false);
    ASSERT_TRUE(tab.Refresh(kSam));
    ASSERT_EQ(tab.qualificationsGrid.size(), 1u);
    EXPECT_EQ(tab.qualificationsGrid[0].Position, "Server");
    EXPECT_EQ(tab.qualificationsGrid[0].HourlyRate, "1009.5");
    EXPECT_EQ(tab.qualificationsGrid[0].SkillLevel, "3");
    ASSERT_TRUE(tab.deletequalificationbutton());
    ASSERT_TRUE(tab.Refresh(kSam));
    EXPECT_TRUE(tab.qualificationsGrid.empty());
}

TEST_F(ConstraintsTest, DesiredShiftForAnExistingDayAndShiftOnlyChangesItsPosition) {
    store::InsertRecs(
        s(), "insert into desiredshift (personid,sday,shift,position,preference) values(1,2,'Morning','Cook',3)");
    store::InsertRecs(s(), "insert into qualifications (personid,position) values(1,'Server')");
    reference::adddesiredshift w(s(), sam());
    ASSERT_TRUE(w.Load());
    EXPECT_EQ(w.PositionCombo.items, (Rows{"Cook", "Server"}));
    EXPECT_EQ(w.PositionCombo.text(), "Cook");
    EXPECT_FALSE(w.OKbutton());
    w.daycombo.select("Monday");
    EXPECT_FALSE(w.OKbutton());
    w.shiftCombo.select("Morning");
    w.PositionCombo.select("Server");
    w.preference = "9";
    ASSERT_TRUE(w.OKbutton());
    EXPECT_EQ(ui.texts(), (Rows{"Please select a day.", "Please select a shift.",
                                "The desired shift for Monday Morning already exists. Would you like to update it?"}));
    auto rs = store::GetRecs(s(), "select * from desiredshift where personid=1");
    ASSERT_EQ(rs.RecordCount(), 1u);
    EXPECT_EQ(rs["position"].text(), "Server");
    EXPECT_EQ(rs["preference"].text(), "3");

    // A new one for an existing employee is stored without a preference.
    w.daycombo.select("Friday");
    ASSERT_TRUE(w.OKbutton());
    rs = store::GetRecs(s(), "select * from desiredshift where personid=1 and sday=6");
    ASSERT_EQ(rs.RecordCount(), 1u);
    EXPECT_TRUE(rs["preference"].isNull());

    reference::DesiredShiftTab tab(s(), false);
    ASSERT_TRUE(tab.Refresh(kSam));
    ASSERT_EQ(tab.desiredshiftgrid.size(), 2u);
    EXPECT_EQ(tab.desiredshiftgrid[0].Day, "Monday");
    EXPECT_EQ(tab.desiredshiftgrid[1].Day, "Friday");
    tab.row = 1;
    ASSERT_TRUE(tab.deletedesiredshiftbutton());
    ASSERT_TRUE(tab.Refresh(kSam));
    EXPECT_EQ(tab.desiredshiftgrid.size(), 1u);
}

TEST_F(ConstraintsTest, TabsNeedAPrimaryPosition) {
    reference::QualificationTab quals(s(), false);
    EXPECT_FALSE(quals.addqualificationbutton(" "));
    EXPECT_EQ(ui.messages.back().text,
              "You must select a primary position for an employee before you can add additional qualifications.");
    EXPECT_EQ(ui.messages.back().title, "Add New Employee");
    EXPECT_TRUE(quals.addqualificationbutton("Cook"));
}

}  // namespace
}  // namespace tallymere::testing

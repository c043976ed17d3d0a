#include "schedule/daily_schedule.h"

#include "reference/position_windows.h"
#include "support/schedule_test.h"

#include <string>
#include <vector>

namespace tallymere::testing {
namespace {

using common::Date;
using common::DateTime;
using schedule::dailyflexgrid;
using schedule::DailyGrid;
using schedule::GridKey;
using schedule::KeyModifiers;
using schedule::MouseButton;
using Rows = std::vector<std::string>;

class DailyScheduleTest : public DailyWindowTest {
protected:
    void SetUp() override {
        DailyWindowTest::SetUp();
        s().settings.dailyschedsort = "employee";
    }
    // An entry of `minutes` from start on `day`, as every editor stores it.
    long addEntry(long personid, int hour, int minute, int minutes, const store::Value& position = "Cook",
                  Date day = kDay, const std::string& sname = "Week 1") {
        const DateTime start = DateTime::at(day, hour, minute);
        return ScheduleTest::addEntry(personid, start, start.addMinutes(minutes), sname, position, "Day", "Front");
    }
    Rows names() const {
        Rows out;
        for (const auto& row : window->grid1.rows) out.push_back(row.cells[DailyGrid::NameCol].text);
        return out;
    }
    int picture(long personid) const {
        return window->lstlist.rows[static_cast<std::size_t>(listRow(personid))].picture;
    }
    std::size_t undoRows() { return store::GetRecs(s(), "select * from sched where sname='*undo*'").RecordCount(); }
};

TEST_F(DailyScheduleTest, TheGridShowsTheDayOfTheOpenFileWithItsCellsAndColours) {
    ASSERT_TRUE(store::InsertRecs(s(), "insert into position (title,color) values('Cook',?)",
                                  {reference::rgbColor(255, 0, 0)}));
    const long zed = addPerson("Zed", "Zoe");
    const long samId = addEntry(kSam, 22, 0, 8 * 60);  // runs into tomorrow
    addEntry(zed, 9, 0, 60, nullptr);
    addEntry(-1, 9, 0, 60, "Nowhere");
    addEntry(kSam, 9, 0, 60, "Cook", kDay.addDays(1));
    addEntry(kSam, 9, 0, 60, "Cook", kDay, "Week 2");
    ASSERT_TRUE(store::UdateRecs(s(), "update sched set comment='bring keys' where schedid=?", {samId}));

    dailyflexgrid& w = open();
    EXPECT_EQ(names(), (Rows{"**Unassigned**", "Sample, Sam", "Zed, Zoe"}));
    w.grid1_Resize(12000);
    EXPECT_EQ(w.grid1.ColWidth, (std::array<int, 7>{1700, 1400, 1400, 1400, 1400, 1400, 3300}));
    w.grid1_Resize(9000);  // the note never gets less than the others
    EXPECT_EQ(w.grid1.ColWidth[6], 1400);

    const auto& sam = w.grid1.rows[1];
    EXPECT_EQ(sam.schedid, samId);
    EXPECT_EQ(sam.cells[DailyGrid::NameCol].background, 0xFFFFC0u);  // stored 0xC0FFFF: blue C0, green and red FF
    EXPECT_EQ(sam.cells[DailyGrid::PositionCol].background, 0xFF0000u);
    Rows texts;
    for (const auto& cell : sam.cells) texts.push_back(cell.text);
    EXPECT_EQ(texts, (Rows{"Sample, Sam", "Cook", "10:00pm", "6:00am", "Day", "Front", "bring keys"}));

    // No position: an empty cell with no colour. A position without a row has no colour either.
    EXPECT_EQ(w.grid1.rows[2].cells[DailyGrid::PositionCol].text, "");
    EXPECT_FALSE(w.grid1.rows[2].cells[DailyGrid::PositionCol].background);
    EXPECT_EQ(w.grid1.rows[0].cells[DailyGrid::PositionCol].text, "Nowhere");
    EXPECT_FALSE(w.grid1.rows[0].cells[DailyGrid::PositionCol].background);

    // The first row is current, and the entry commands are on.
    EXPECT_EQ(w.grid1.Row, 1);
    EXPECT_TRUE(w.grid1.HighLight);
    EXPECT_TRUE(form.menuEnabled("mnuScheduleEdit"));
    EXPECT_TRUE(form.menuEnabled("mnudailygridrightclickcopy"));
}

TEST_F(DailyScheduleTest, SortOrdersFollowTheSetting) {
    const long ann = addPerson("Able", "Ann", "Waiter");
    const long bob = addPerson("Baker", "Bob", "Barista");
    addEntry(kSam, 6, 0, 60);
    addEntry(ann, 0, 30, 60, "Waiter");  // 12:30 AM
    addEntry(bob, 13, 0, 60, "Barista");
    ASSERT_TRUE(store::UdateRecs(s(), "update sched set shift='Night' where personid=?", {ann}));

    s().settings.dailyschedsort = "starttime";
    dailyflexgrid& w = open();
    EXPECT_EQ(names(), (Rows{"Able, Ann", "Sample, Sam", "Baker, Bob"}));
    s().settings.dailyschedsort = "position";
    w.RefreshDailyGrid();
    EXPECT_EQ(names(), (Rows{"Baker, Bob", "Sample, Sam", "Able, Ann"}));
    s().settings.dailyschedsort = "shift";
    w.RefreshDailyGrid();
    EXPECT_EQ(names(), (Rows{"Sample, Sam", "Baker, Bob", "Able, Ann"}));
}

TEST_F(DailyScheduleTest, AnEmptyDayShowsTheHeaderOnlyAndNothingToEditOrDelete) {
    dailyflexgrid& w = open();
    EXPECT_EQ(w.grid1.Rows(), 1);
    EXPECT_EQ(w.grid1.Row, 0);
    EXPECT_FALSE(w.grid1.HighLight);
    EXPECT_EQ(w.grid1.TextMatrix(0, 2), "Start Time");
    EXPECT_FALSE(form.menuEnabled("mnuScheduleEdit"));
    EXPECT_FALSE(form.menuEnabled("mnudelete"));

    EXPECT_FALSE(w.Command2_Click());
    w.Command3_Click();
    EXPECT_EQ(ui.texts(), (Rows{"There are no schedule items to edit.", "There are no schedule items to delete."}));
}

TEST_F(DailyScheduleTest, DeletingOneEntryAsksKeepsASnapshotAndTheLastLeavesTheHeader) {
    const long first = addEntry(kSam, 9, 0, 60);
    const long second = addEntry(kSam, 13, 0, 60);
    dailyflexgrid& w = open();

    ui.answer(common::MsgAnswer::No);
    w.Command3_Click();
    EXPECT_EQ(ui.texts(), (Rows{"Delete schedule entry for Sample, Sam. Start Time - 9:00am ?"}));
    EXPECT_EQ(w.grid1.Rows(), 3);

    w.Command3_Click();
    EXPECT_TRUE(store::GetRecs(s(), "select * from sched where schedid=?", {first}).empty());
    EXPECT_EQ(w.grid1.Rows(), 2);
    EXPECT_EQ(w.grid1.RowData(1), second);
    EXPECT_EQ(undoRows(), 2u);  // the day as it was, rows kept
    EXPECT_EQ(form.menu("mnuEditUndo").caption, "Undo Delete Schedule");
    EXPECT_EQ(picture(kSam), schedule::kPictureScheduled);  // still has an entry today

    w.Command3_Click();
    EXPECT_EQ(w.grid1.Rows(), 1);
    EXPECT_EQ(w.grid1.Row, 0);
    EXPECT_FALSE(form.menuEnabled("mnudailygridrightclickcut"));
    EXPECT_EQ(picture(kSam), schedule::kPictureNone);
    EXPECT_EQ(w.TotalHours, "Total Hours: 0.00");
    EXPECT_TRUE(s().refreshWanted);
}

TEST_F(DailyScheduleTest, SeveralSelectedRowsAreDeletedTogetherButNotEdited) {
    addEntry(kSam, 9, 0, 60);
    addEntry(kSam, 11, 0, 60);
    const long third = addEntry(kSam, 13, 0, 60);
    dailyflexgrid& w = open();
    w.grid1_MouseDown(1, MouseButton::Left);
    w.grid1_MouseDown(2, MouseButton::Left, true);
    EXPECT_FALSE(form.menuEnabled("mnuScheduleEdit"));
    EXPECT_TRUE(form.menuEnabled("mnudelete"));
    // A right click inside the selection keeps it.
    w.grid1_MouseDown(1, MouseButton::Right);
    EXPECT_TRUE(w.grid1.severalSelected());
    EXPECT_TRUE(w.grid1_MouseUp(MouseButton::Right));

    EXPECT_FALSE(w.Command2_Click());
    EXPECT_EQ(ui.texts(), (Rows{"Please select a single shedule entry to edit."}));

    w.Command3_Click();
    EXPECT_EQ(w.grid1.Rows(), 2);
    EXPECT_EQ(w.grid1.RowData(1), third);
    EXPECT_EQ(store::GetRecs(s(), "select * from sched where sname='Week 1'").RecordCount(), 1u);

    // A click below the rows switches the entry commands off.
    w.grid1_MouseDown(-1, MouseButton::Left);
    EXPECT_FALSE(form.menuEnabled("mnudelete"));
}

TEST_F(DailyScheduleTest, EditHandsTheEntryToTheEditorAndRefreshesItsRowAfterwards) {
    const long id = addEntry(kSam, 9, 0, 60);
    dailyflexgrid& w = open();
    EXPECT_EQ(w.grid1_DblClick(), id);
    ASSERT_TRUE(store::UdateRecs(s(), "update sched set comment='late' where schedid=?", {id}));
    w.editorClosed(id);
    EXPECT_EQ(w.grid1.TextMatrix(1, DailyGrid::NoteCol), "late");

    s().IsUserMode = true;
    s().rights.noSchedule = true;
    EXPECT_FALSE(w.Command2_Click());
    EXPECT_TRUE(ui.shown(
        "You do not have permissions to change the schedule. To change the schedule, restart Tallymere and enter the "
        "owner password."));
}

TEST_F(DailyScheduleTest, LeaveOutranksScheduledInTheListButNotAfterOneEntryChanged) {
    const long zed = addPerson("Zed", "Zoe");
    addEntry(kSam, 9, 0, 60);
    addLeave(kSam);
    // Zoe may not work in the morning: the quick bar's 9 to 5 finds her unavailable.
    setAvailability(zed, kDay, std::string(12, 'N') + std::string(12, 'Y'));
    form.TETxtHr = {"5", "9"};
    form.TeTxtMin = {"00", "00"};
    form.TEAmPm = {"PM", "AM"};

    dailyflexgrid& w = open();
    EXPECT_EQ(w.lstlist.rows[0].personid, -1);
    EXPECT_EQ(w.lstlist.rows[0].picture, schedule::kPictureNone);
    EXPECT_EQ(picture(kSam), schedule::kPictureOnLeave);
    EXPECT_EQ(picture(zed), schedule::kPictureNotAvailable);

    w.MarkEmployee(kSam, kDay, DateTime::at(kDay, 9), DateTime::at(kDay, 10), "add");
    EXPECT_EQ(picture(kSam), schedule::kPictureScheduled);
    EXPECT_FALSE(s().refreshWanted);
}

TEST_F(DailyScheduleTest, TheEmployeeListHasTwoOrdersWithUnassignedFirst) {
    addPerson("Able", "Ann", "Waiter");
    addPerson("Zed", "Zoe", "Barista");
    dailyflexgrid& w = open();
    const auto listed = [&] {
        Rows out;
        for (const auto& r : w.lstlist.rows) out.push_back(r.name + "/" + r.position);
        return out;
    };
    EXPECT_EQ(listed(), (Rows{"**Unassigned**/", "Able, Ann/Waiter", "Sample, Sam/Cook", "Zed, Zoe/Barista"}));
    w.lstlist_Click(2);
    w.lstlist_ColumnClick(2);
    EXPECT_TRUE(w.lstlist.positionFirst());
    EXPECT_EQ(listed(), (Rows{"**Unassigned**/", "Zed, Zoe/Barista", "Sample, Sam/Cook", "Able, Ann/Waiter"}));
    EXPECT_EQ(w.lstlist.selected, 0);
    w.lstlist_ColumnClick(1);
    EXPECT_EQ(listed()[1], "Able, Ann/Waiter");
}

TEST_F(DailyScheduleTest, ThePanelDescribesThePickedEmployee) {
    addEntry(kSam, 9, 0, 8 * 60);
    addEntry(kSam, 9, 0, 4 * 60 + 30, "Cook", kDay.addDays(-1));  // Sunday, the week's first day
    addEntry(kSam, 9, 0, 60, "Cook", kDay.addDays(-2));           // Saturday, last week
    addLeave(kSam);
    dailyflexgrid& w = open();
    w.lstlist_Click(listRow(kSam));
    EXPECT_EQ(s().currentEmployee, kSam);
    EXPECT_EQ(w.employeeframe, "Sample, Sam");
    EXPECT_EQ(w.TodayLabel, "Mon Nov 23");
    EXPECT_EQ(w.WeekofLabel, "Wk of Sun Nov 22 - Sat Nov 28");
    EXPECT_EQ(w.TotalHoursLabel, "Total hours this week: 12.50");
    EXPECT_EQ(w.HoursRequestedLabel, "Hours requested: 40");
    EXPECT_EQ(w.NumHoursTodayLabel, "Hours scheduled: 8.00");
    EXPECT_EQ(w.LeaveLabel, "Leave: Sample, Sam Out, Vacation");
    EXPECT_EQ(w.NumShiftsLabel, "Number of shifts: 1");
    EXPECT_TRUE(form.menuEnabled("mnudailygridlistviewedit"));

    w.lstlist_Click(0);
    EXPECT_EQ(w.HoursRequestedLabel, "Hours requested: N/A");
    EXPECT_EQ(w.LeaveLabel, "Leave: N/A");
    EXPECT_EQ(w.NumHoursTodayLabel, "Hours scheduled: 0");
    EXPECT_EQ(w.NumShiftsLabel, "Number of shifts: 0");
    EXPECT_FALSE(form.menuEnabled("mnudailygridlistviewdeleteemployee"));
    EXPECT_FALSE(w.lstlist_DblClick());  // nobody to edit
}

TEST_F(DailyScheduleTest, DayFiguresFollowTheirSettingsAndThePayrollRight) {
    addEntry(kSam, 9, 0, 30);  // half an hour at 12.50
    dailyflexgrid& w = open();
    EXPECT_EQ(w.LaborEstimate, "Labor Cost: $06.25");
    EXPECT_EQ(w.TotalHours, "Total Hours: 0.50");
    EXPECT_TRUE(w.LaborEstimateVisible);

    s().settings.gb_ShowLaborCostsOnDailyForm = false;
    s().settings.gb_ShowTotalHoursOnDailyForm = false;
    w.ShowDayFigures();
    EXPECT_EQ(w.LaborEstimate, "");
    EXPECT_EQ(w.TotalHours, "");

    s().IsUserMode = true;
    s().rights.noPayroll = true;
    EXPECT_FALSE(dailyflexgrid(s(), form).LaborEstimateVisible);
}

TEST_F(DailyScheduleTest, TheWeekGridListsEachDaysEntriesAndFollowsTheFilter) {
    ASSERT_TRUE(store::InsertRecs(s(), "insert into position (title) values('Cook')"));
    const long zed = addPerson("Zed", "");
    addEntry(kSam, 9, 0, 8 * 60);
    addEntry(kSam, 18, 0, 60);
    addEntry(zed, 7, 30, 60, "Cook", kDay.addDays(5));
    dailyflexgrid& w = open();
    w.setWeekView(true);
    EXPECT_EQ(w.grid2.captions[2], "Sun Nov, 22");
    ASSERT_EQ(w.grid2.rows.size(), 2u);
    EXPECT_EQ(w.grid2.rows[0].name, "Sample, Sam");
    EXPECT_EQ(w.grid2.rows[0].hours, "9.00");
    EXPECT_EQ(w.grid2.rows[0].days[1], "09:00 AM-05:00 PM\nDay\n06:00 PM-07:00 PM\nDay");
    EXPECT_EQ(w.grid2.rows[1].name, "Zed");
    EXPECT_EQ(w.grid2.rows[1].days[6], "07:30 AM-08:30 AM\nDay");

    w.lstlist_Click(listRow(zed));
    ASSERT_TRUE(w.filtercombo.select("Cook"));
    w.filtercombo_Click();
    ASSERT_EQ(w.grid2.rows.size(), 1u);
    EXPECT_EQ(w.grid2.rows[0].personid, zed);
}

TEST_F(DailyScheduleTest, KeysMoveTheRowTheDayAndTheClipboard) {
    addEntry(-1, 9, 0, 60);
    addEntry(-1, 13, 0, 60);
    dailyflexgrid& w = open();
    EXPECT_TRUE(w.grid1_KeyDown(GridKey::Down, {}).scrollToRow);
    w.grid1_KeyDown(GridKey::Down, {});
    EXPECT_EQ(w.grid1.Row, 2);
    w.grid1_KeyDown(GridKey::Up, {});
    EXPECT_EQ(w.grid1.Row, 1);

    // Ctrl+C and Ctrl+V: the entry lands again on the day, and the paste can be undone.
    w.grid1_KeyDown(GridKey::C, KeyModifiers{true});
    w.grid1_KeyDown(GridKey::V, KeyModifiers{true});
    EXPECT_EQ(w.grid1.Rows(), 4);
    EXPECT_EQ(form.menu("mnuEditUndo").caption, "Undo Paste");

    w.SelectAllRows();
    EXPECT_EQ(w.grid1.selectedSchedids().size(), 3u);

    w.grid1_KeyDown(GridKey::Right, KeyModifiers{false, true});
    EXPECT_EQ(s().activeDate, kDay.addDays(1));
    EXPECT_TRUE(host.called("updailyflexform"));

    ui.onModal("SetDataLocation", [this] { s().ExitNow = true; });
    EXPECT_THROW(w.grid1_KeyDown(GridKey::Six, KeyModifiers{true}), common::ProgramEnd);
}

TEST_F(DailyScheduleTest, ActivationRefreshesOnlyWhenAChangeIsPending) {
    dailyflexgrid& w = open();
    addEntry(kSam, 9, 0, 60);
    w.Form_Activate();
    EXPECT_EQ(w.grid1.Rows(), 1);
    s().refreshWanted = true;
    w.Form_Activate();
    EXPECT_EQ(w.grid1.Rows(), 2);
    EXPECT_EQ(picture(kSam), schedule::kPictureScheduled);
    EXPECT_FALSE(s().refreshWanted);

    addPerson("New", "Nell");
    w.employeeListStale = true;
    w.Form_Activate();
    EXPECT_EQ(w.lstlist.rows.size(), 3u);
}

TEST_F(DailyScheduleTest, PositionColoursAreReadAgainOnEveryRefresh) {
    ASSERT_TRUE(store::InsertRecs(s(), "insert into position (title,color) values('Cook',?)",
                                  {reference::rgbColor(0, 0, 255)}));
    addEntry(kSam, 9, 0, 60);
    addEntry(kSam, 13, 0, 60, "cook");
    dailyflexgrid& w = open();
    EXPECT_EQ(w.grid1.rows[1].cells[DailyGrid::PositionCol].background, 0x0000FFu);
    ASSERT_TRUE(
        store::UdateRecs(s(), "update position set color=? where title='Cook'", {reference::rgbColor(0, 255, 0)}));
    w.RefreshDailyGrid();
    EXPECT_EQ(w.grid1.rows[0].cells[DailyGrid::PositionCol].background, 0x00FF00u);
    EXPECT_EQ(w.grid1.rows[1].cells[DailyGrid::PositionCol].background, 0x00FF00u);
}

}  // namespace
}  // namespace tallymere::testing

#include "schedule/daily_entry.h"
#include "schedule/daily_schedule.h"
#include "schedule/undo.h"

#include "support/schedule_test.h"

#include <string>
#include <vector>

namespace tallymere::testing {
namespace {

using common::Date;
using common::DateTime;
using common::MsgAnswer;
using common::MsgIcon;
using schedule::dailyadd;
using schedule::DailyGrid;
using Rows = std::vector<std::string>;

class EntryTest : public DailyWindowTest {
protected:
    void SetUp() override {
        DailyWindowTest::SetUp();
        open();
    }

    long addPerson(const std::string& lname, const std::string& fname) {
        const long id = ScheduleTest::addPerson(lname, fname);
        window->FillEmployeeList();
        return id;
    }
    long addEntry(long personid, int hour, int minutes, Date day = kDay) {
        const DateTime start = DateTime::at(day, hour);
        return ScheduleTest::addEntry(personid, start, start.addMinutes(minutes));
    }
    void unavailableAllDay(long personid) { setAvailability(personid, kDay, std::string(24, 'N')); }
    // The quick bar's two times, start first.
    void times(const std::string& sh, const std::string& sm, const std::string& sap, const std::string& eh,
               const std::string& em, const std::string& eap) {
        form.TETxtHr = {eh, sh};
        form.TeTxtMin = {em, sm};
        form.TEAmPm = {eap, sap};
    }
    void pick(long personid) { window->lstlist_Click(listRow(personid)); }
    store::Recordset entries() {
        return store::GetRecs(s(), "select * from sched where sname='Week 1' order by schedid");
    }
    store::Recordset last() {
        auto rs = entries();
        rs.MoveLast();
        return rs;
    }
    int selectEmployee(dailyadd& editor, long personid) {
        for (std::size_t i = 0; i < editor.EmplBBlist.size(); ++i)
            if (editor.EmplBBlist[i].personid == personid) editor.EmplBBlistIndex = static_cast<int>(i);
        return editor.EmplBBlistIndex;
    }
};

// --- Quick add

TEST_F(EntryTest, QuickAddReadsOneMinuteDigitAsTensAndCrossesMidnight) {
    pick(kSam);
    times("9", "5", "AM", "10", "", "PM");
    ASSERT_TRUE(window->addfromlv_Click());
    EXPECT_EQ(form.TeTxtMin[0], "00");  // the empty field was filled in
    EXPECT_EQ(last()["strttime"].text(), "2026-11-23 09:50:00");
    EXPECT_EQ(last()["endtime"].text(), "2026-11-23 22:00:00");

    times("10", "00", "PM", "2", "0", "AM");
    s().settings.gb_AlertDoubleShifts = false;
    ASSERT_TRUE(window->addfromlv_Click());
    EXPECT_EQ(last()["sday"].text(), "2026-11-23");
    EXPECT_EQ(last()["endtime"].text(), "2026-11-24 02:00:00");
}

TEST_F(EntryTest, QuickAddRefusesBadTimesInItsOrder) {
    pick(-1);
    const auto refused = [&](const std::string& sh, const std::string& sm, const std::string& eh,
                             const std::string& em) {
        ui.clear();
        times(sh, sm, "AM", eh, em, "PM");
        EXPECT_FALSE(window->addfromlv_Click());
        return ui.messages.empty() ? std::string() : ui.messages.front().text;
    };
    EXPECT_EQ(refused("", "00", "5", "00"), "Please enter a valid start time.");
    EXPECT_EQ(refused("9", "00", "", "00"), "Please enter a valid end time.");
    EXPECT_EQ(refused("x", "00", "5", "00"), "Hour value for Start Time is not valid.");
    EXPECT_EQ(refused("13", "00", "5", "00"), "Hour value must be between 0 and 12.");
    EXPECT_EQ(refused("9", "60", "5", "00"), "Minute value must be between 0 and 59.");
    EXPECT_EQ(refused("9", "7", "5", "00"), "Minute value must be between 0 and 59.");  // 70 minutes
    EXPECT_EQ(refused("9", "00", "13", "00"), "Hour value for End Time must be between 0 and 12.");
    EXPECT_EQ(refused("9", "00", "5", "x"), "Minute value for End Time is not valid.");
    EXPECT_EQ(refused("9", "00", "5", "99"), "The End Time minute value must be between 0 and 59.");
    EXPECT_EQ(ui.messages.front().icon, MsgIcon::Exclamation);
    EXPECT_TRUE(entries().empty());

    // Hour 0 and hour 12 are both midnight in the morning.
    times("0", "30", "AM", "12", "00", "PM");
    ASSERT_TRUE(window->addfromlv_Click());
    EXPECT_EQ(last()["strttime"].text(), "2026-11-23 00:30:00");
    EXPECT_EQ(last()["endtime"].text(), "2026-11-23 12:00:00");
}

TEST_F(EntryTest, QuickAddForUnassignedSkipsEveryTestAndEndsAsUnassigned) {
    // Unassigned entries may share their times.
    addEntry(-1, 9, 8 * 60);
    form.positioncombo.text = "  Host ";
    s().settings.dailyflexgridshowposition = false;
    window->RefreshDailyGrid();
    pick(-1);
    times("9", "00", "AM", "5", "00", "PM");
    ASSERT_TRUE(window->addfromlv_Click());
    EXPECT_TRUE(ui.messages.empty());
    ASSERT_EQ(ui.sounds.size(), 1u);
    EXPECT_EQ(ui.sounds[0], s().programFolder + "/tm_shck.wav");

    const auto rs = last();
    EXPECT_EQ(rs["personid"].toLong(), -1);
    EXPECT_EQ(rs["lname"].text(), "**Unassigned**");
    EXPECT_EQ(rs["position"].text(), "");
    EXPECT_TRUE(store::GetRecs(s(), "select * from sched where personid=-2").empty());

    // Appended without a rebuild, and the figures follow.
    ASSERT_EQ(window->grid1.Rows(), 3);
    EXPECT_EQ(window->grid1.RowData(2), rs["schedid"].toLong());
    EXPECT_EQ(window->grid1.TextMatrix(2, DailyGrid::NameCol), "**Unassigned**");
    EXPECT_TRUE(form.menuEnabled("mnudelete"));
    EXPECT_TRUE(s().refreshWanted);

    // With the position setting on, the quick bar's position is taken, trimmed.
    s().settings.dailyflexgridshowposition = true;
    ASSERT_TRUE(window->addfromlv_Click());
    EXPECT_EQ(last()["position"].text(), "Host");
}

TEST_F(EntryTest, QuickAddOfAnEmployeeAsksAndMarksThem) {
    addLeave(kSam);
    unavailableAllDay(kSam);
    window->MarkEmployeeList();
    pick(kSam);
    times("9", "00", "AM", "5", "00", "PM");

    ui.answer(MsgAnswer::Yes);  // not available: override
    ui.answer(MsgAnswer::No);   // on leave: stop
    EXPECT_FALSE(window->addfromlv_Click());
    EXPECT_EQ(ui.texts(), (Rows{"Sam Sample is not available for that time. Override?",
                                "Sam Sample is scheduled for leave that day. Override?"}));
    EXPECT_TRUE(entries().empty());

    ui.clear();
    ASSERT_TRUE(window->addfromlv_Click());
    const auto rs = last();
    EXPECT_EQ(rs["lname"].text(), "Sample");
    EXPECT_EQ(rs["position"].text(), "Cook");  // the employee's own position
    EXPECT_EQ(window->lstlist.rows[1].picture, schedule::kPictureScheduled);
    EXPECT_EQ(window->TotalHours, "Total Hours: 8.00");
    EXPECT_EQ(window->NumShiftsLabel, "Number of shifts: 1");

    // The same again collides with what was just added.
    ui.clear();
    EXPECT_FALSE(window->addfromlv_Click());
    EXPECT_EQ(ui.texts(), (Rows{"Sample, Sam is aleady scheduled for that time."}));
    EXPECT_EQ(entries().RecordCount(), 1u);
}

TEST_F(EntryTest, QuickAddOvertimeAlertSumsTheWeekTheEntryAndTheEarlierFigure) {
    for (int d = 1; d <= 4; ++d) addEntry(kSam, 8, 9 * 60, kDay.addDays(d));  // 36 hours
    pick(kSam);
    times("9", "00", "AM", "1", "00", "PM");  // 4 hours: 36 + 4 is not over 40
    s().settings.gb_AlertDoubleShifts = false;
    s().settings.gb_AlertShiftOver12Hours = true;  // leaves its h = 4, so 36 + 4 + 4 is

    ui.answer(MsgAnswer::No);
    EXPECT_FALSE(window->addfromlv_Click());
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].text, "Employee already scheduled for 36.00 hours this week. Continue?");
    EXPECT_EQ(ui.messages[0].title, "Overtime Alert");

    ui.clear();
    s().settings.gb_AlertShiftOver12Hours = false;
    ASSERT_TRUE(window->addfromlv_Click());
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(EntryTest, QuickAddsLeaveNothingToUndo) {
    addEntry(-1, 9, 60);
    schedule::SaveUndoSnapshot(s(), kDay, kDay, "Undo Paste", true, "Week 1");
    ASSERT_TRUE(form.menuVisible("mnuEditUndo"));
    pick(-1);
    times("9", "00", "AM", "5", "00", "PM");
    ASSERT_TRUE(window->addfromlv_Click());
    ASSERT_TRUE(window->grid1_DragDrop());
    EXPECT_FALSE(form.menuVisible("mnuEditUndo"));
    EXPECT_TRUE(store::GetRecs(s(), "select * from sched where sname='*undo*'").empty());
    EXPECT_EQ(entries().RecordCount(), 3u);
}

TEST_F(EntryTest, QuickAddNeedsAnOpenFileAndTheRight) {
    s().currentSchedule = " ";
    EXPECT_FALSE(window->addfromlv_Click());
    s().currentSchedule = "Week 1";
    s().IsUserMode = true;
    s().rights.noSchedule = true;
    EXPECT_FALSE(window->addfromlv_Click());
    ASSERT_EQ(ui.messages.size(), 2u);
    EXPECT_EQ(ui.messages[0].text, "No schedule file is open.");
    EXPECT_TRUE(entries().empty());
}

// --- The entry editor

TEST_F(EntryTest, TheEditorOpensOnTheEntry) {
    const long zed = addPerson("Zed", "Zoe");
    addLeave(zed);
    ASSERT_TRUE(store::InsertRecs(s(), "insert into shift (name,strttime,endtime) values('Late',?,?)",
                                  {DateTime::fromParts(2006, 1, 1, 14, 30), DateTime::fromParts(2006, 1, 1, 23)}));
    const long id = addEntry(kSam, 22, 8 * 60);
    ASSERT_TRUE(store::UdateRecs(s(), "update sched set comment='keys', section='Bar' where schedid=?", {id}));

    dailyadd editor(s(), id);
    ASSERT_TRUE(editor.Form_Load());
    EXPECT_EQ(editor.times[1].TETxtHr, "10");
    EXPECT_EQ(editor.times[1].TEAmPm, "PM");
    EXPECT_EQ(editor.times[0].TETxtHr, "6");
    EXPECT_EQ(editor.times[0].TeTxtMin, "00");
    EXPECT_EQ(editor.note, "keys");
    EXPECT_EQ(editor.sectioncombo.text, "Bar");  // kept though no such section is listed
    EXPECT_EQ(editor.shiftcombo.items, (Rows{"Late"}));
    ASSERT_EQ(editor.EmplBBlist.size(), 3u);
    EXPECT_EQ(editor.EmplBBlist[0].name, "**Unassigned**");
    EXPECT_EQ(editor.EmplBBlist[static_cast<std::size_t>(editor.EmplBBlistIndex)].personid, kSam);
    EXPECT_EQ(editor.EmplBBlist[1].picture, schedule::kPictureScheduled);
    EXPECT_EQ(editor.EmplBBlist[2].picture, schedule::kPictureOnLeave);

    editor.shiftcombo.text = "Late";
    editor.shiftcombo_Click();
    EXPECT_EQ(editor.times[1].TETxtHr, "2");
    EXPECT_EQ(editor.times[1].TeTxtMin, "30");
    EXPECT_EQ(editor.times[0].TETxtHr, "11");

    EXPECT_THROW(dailyadd(s(), 999).Form_Load(), common::ProgramEnd);
    EXPECT_TRUE(ui.shown("There was an error loading the Daily Edit form. Tallymere will terminate."));
}

TEST_F(EntryTest, AnEditOfTheNoteAloneSkipsEveryTestAndCanBeUndone) {
    addEntry(kSam, 9, 8 * 60);
    const long id = addEntry(kSam, 10, 60);  // sits inside the first
    addLeave(kSam);
    unavailableAllDay(kSam);

    dailyadd editor(s(), id);
    ASSERT_TRUE(editor.Form_Load());
    editor.note = "  swapped ";
    ASSERT_TRUE(editor.Command1_Click());
    EXPECT_TRUE(ui.messages.empty());
    const auto rs = store::GetRecs(s(), "select * from sched where schedid=?", {id});
    EXPECT_EQ(rs["comment"].text(), "swapped");
    EXPECT_EQ(rs["strttime"].text(), "2026-11-23 10:00:00");
    EXPECT_EQ(form.menu("mnuEditUndo").caption, "Undo Edit Schedule");
    EXPECT_TRUE(s().refreshWanted);
}

TEST_F(EntryTest, ChangedTimesOfTheSameEmployeeAreCheckedOnlyAgainstTheirOtherEntries) {
    addEntry(kSam, 13, 4 * 60);
    const long id = addEntry(kSam, 8, 60);
    addLeave(kSam);  // leave is not asked when the employee stays

    dailyadd editor(s(), id);
    ASSERT_TRUE(editor.Form_Load());
    editor.times[0] = editor.times[1];  // no length: asked, and No keeps the editor open
    ui.answer(MsgAnswer::No);
    EXPECT_FALSE(editor.Command1_Click());
    editor.times[0] = {"2", "", "PM"};  // 8:00 AM to 2:00 PM runs into the afternoon entry
    EXPECT_FALSE(editor.Command1_Click());
    EXPECT_EQ(ui.texts(), (Rows{"The start time is equal to the end time, this shift is 0 hours long, is this correct?",
                                "Sam Sample is already scheduled for that time."}));
    EXPECT_EQ(ui.messages[0].title, "Edit Schedule Entry");

    ui.clear();
    editor.times[0] = {"1", "", "PM"};
    ASSERT_TRUE(editor.Command1_Click());
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(store::GetRecs(s(), "select * from sched where schedid=?", {id})["endtime"].text(),
              "2026-11-23 13:00:00");
}

TEST_F(EntryTest, AChangedEmployeeIsTestedInTheEditorsOrderAndWords) {
    const long zed = addPerson("Zed", "Zoe");
    addEntry(zed, 18, 4 * 60);  // already 4 hours today
    addLeave(zed);
    unavailableAllDay(zed);
    const long id = addEntry(kSam, 9, 60);

    dailyadd editor(s(), id);
    ASSERT_TRUE(editor.Form_Load());
    selectEmployee(editor, zed);
    ASSERT_TRUE(editor.Command1_Click());
    ASSERT_EQ(ui.messages.size(), 3u);
    EXPECT_EQ(ui.messages[0].text, "Zoe Zed is not available for that time. Override?");
    EXPECT_EQ(ui.messages[0].icon, MsgIcon::None);
    EXPECT_EQ(ui.messages[1].text, "Zoe Zed is scheduled for leave that day. Override?");
    EXPECT_EQ(ui.messages[2].text, "Employee is already scheduled for 04.00 hours today. Continue?");
    EXPECT_EQ(ui.messages[2].title, "Daily Schedule");
    const auto rs = store::GetRecs(s(), "select * from sched where schedid=?", {id});
    EXPECT_EQ(rs["personid"].toLong(), zed);
    EXPECT_EQ(rs["lname"].text(), "Zed");

    // The quick add asks the same things the other way round.
    ui.clear();
    pick(zed);
    times("6", "00", "AM", "7", "00", "AM");
    ASSERT_TRUE(window->addfromlv_Click());
    EXPECT_EQ(ui.texts(), (Rows{"Employee is already scheduled for 05.00 hours today. Continue?",
                                "Zoe Zed is not available for that time. Override?",
                                "Zoe Zed is scheduled for leave that day. Override?"}));
    EXPECT_EQ(ui.messages[0].title, "Double Shift Alert");
}

TEST_F(EntryTest, AnEditToUnassignedSkipsEveryTest) {
    addEntry(-1, 9, 60);  // the same time, twice unassigned is fine
    const long id = addEntry(kSam, 9, 60);
    dailyadd editor(s(), id);
    ASSERT_TRUE(editor.Form_Load());
    selectEmployee(editor, -1);
    editor.times[1] = {"8", "", "AM"};
    ASSERT_TRUE(editor.Command1_Click());
    EXPECT_TRUE(ui.messages.empty());
    const auto rs = store::GetRecs(s(), "select * from sched where schedid=?", {id});
    EXPECT_EQ(rs["personid"].toLong(), -1);
    EXPECT_EQ(rs["lname"].text(), "**Unassigned**");
    EXPECT_EQ(rs["fname"].text(), "");
    EXPECT_EQ(rs["strttime"].text(), "2026-11-23 08:00:00");
}

}  // namespace
}  // namespace tallymere::testing

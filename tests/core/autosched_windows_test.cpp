// The windows of the automatic scheduler: Day or Week, the messages a run ends with, undo, the
// rebuild and its question, a run as one transaction, the options, the first-use messages, and what
// the command line gets (the headless runs and the explanation as CSV).

#include "autosched/auto_sched_options.h"
#include "autosched/headless.h"
#include "autosched_fixture.h"
#include "schedule/undo.h"
#include "store/database.h"

#include <sstream>

namespace tallymere::testing {
namespace {

using autosched::AutoRebuildSched;
using autosched::AutoSched;
using autosched::FillMode;
using common::MsgButtons;
using common::MsgIcon;

const char* const kFinished = "Automatic Scheduler Finished";

class AutoSchedWindowTest : public AutoschedTest {
protected:
    long assignedIn(const std::string& sname = "Week 1") {
        return static_cast<long>(
            store::GetRecs(s(), "select count(*) as n from sched where sname=? and personid<>-1", {sname})["n"]
                .toLong());
    }
    long rowsOf(const std::string& sname) {
        return static_cast<long>(
            store::GetRecs(s(), "select count(*) as n from sched where sname=?", {sname})["n"].toLong());
    }
};

TEST_F(AutoSchedWindowTest, TheWindowOpensOnTheWeekOfTheActiveDateWithTheRememberedChoice) {
    AutoSched day(s());
    EXPECT_TRUE(day.DayOption);
    EXPECT_TRUE(day.DayOptionLabelEnabled);
    EXPECT_FALSE(day.WeekOptionLabelEnabled);
    EXPECT_EQ(day.DayOptionLabel, "Mon Nov 23, 2026");
    EXPECT_EQ(day.WeekOptionLabel, "Sun Nov 22, 2026 - Sat Nov 28, 2026");
    EXPECT_EQ(day.fillstart, kDay);
    EXPECT_EQ(day.fillend, kDay);

    day.WeekOption_Click();
    EXPECT_EQ(s().settings.gs_AutoFillDayWeek, "Week");
    EXPECT_EQ(day.fillstart, kSun);
    EXPECT_EQ(day.fillend, kSat);
    AutoSched again(s());
    EXPECT_TRUE(again.WeekOption);
    EXPECT_FALSE(again.DayOptionLabelEnabled);

    // The rebuild remembers its own choice; the week follows `firstdayofweek`.
    s().settings.firstdayofweek = "Monday";
    AutoRebuildSched rebuild(s());
    EXPECT_TRUE(rebuild.DayOption);
    EXPECT_EQ(rebuild.WeekOptionLabel, "Mon Nov 23, 2026 - Sun Nov 29, 2026");
}

TEST_F(AutoSchedWindowTest, NothingToFillSaysSoForTheDayOrTheWeekAndKeepsTheSnapshot) {
    open(kTue, 9, 480);  // in the week, not on the day
    fill();
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0], (ShownMessage{"There are no **Unassigned** schedule entries for Mon Nov 23, 2026",
                                            MsgButtons::Ok, MsgIcon::Information, "Automatic Schedule Builder"}));
    EXPECT_TRUE(menu.visible);
    EXPECT_EQ(menu.caption, "Undo Automatic Schedule");

    ui.clear();
    store::UdateRecs(s(), "delete from sched");
    fill(true);
    EXPECT_EQ(ui.texts(), (std::vector<std::string>{"There are no **Unassigned** schedule entries from Sun Nov 22, "
                                                    "2026 through Sat Nov 28, 2026"}));
}

TEST_F(AutoSchedWindowTest, TheFinishedMessageCountsWhatWasFilledAndWhatRemains) {
    employee("Adams");
    open(kDay, 9, 480);
    fill();
    EXPECT_EQ(ui.messages.back(),
              (ShownMessage{"For Mon Nov 23, 2026\r\n\r\nAll **Unassigned** schedule entries were filled.",
                            MsgButtons::Ok, MsgIcon::Information, kFinished}));

    ui.clear();
    open(kTue, 9, 480);
    open(kTue, 9, 480, "Host");
    open(kWed, 9, 480, "Host");
    fill(true);
    // Two blanks before "schedule"; "remain" also for one.
    EXPECT_EQ(ui.texts().back(),
              "For the week of Sun Nov 22, 2026 - Sat Nov 28, 2026\r\n\r\n1  schedule entry was filled.\r\n2 remain "
              "**Unassigned**.");
    EXPECT_EQ(window->lastMessage(), ui.texts().back());
    EXPECT_EQ(window->AutoPBar.Value, window->AutoPBar.Min);

    ui.clear();
    open(kWed, 9, 480, "Host");
    employee("Baker");
    open(kThu, 9, 480);
    open(kFri, 9, 480);
    fill(true);
    EXPECT_EQ(ui.texts().back(),
              "For the week of Sun Nov 22, 2026 - Sat Nov 28, 2026\r\n\r\n2  schedule entries were filled.\r\n3 remain "
              "**Unassigned**.");
}

TEST_F(AutoSchedWindowTest, UndoBringsTheFilledRangeBackAndAFillOfNothingLeavesNoUndo) {
    const long adams = employee("Adams");
    const long mon = open(kDay, 9, 480);
    const long hosts = open(kDay, 9, 480, "Host");
    fill();
    EXPECT_EQ(owner(mon), adams);
    ASSERT_TRUE(menu.visible);
    schedule::UndoLastChange(s());
    EXPECT_EQ(column(s(), "select personid from sched where sday=? and sname='Week 1' order by position", {kDay}),
              (std::vector<std::string>{"-1", "-1"}));
    EXPECT_TRUE(column(s(), "select schedid from sched where sname='*undo*'").empty());

    // Nobody is a Host: nothing was filled, so there is nothing to undo.
    ASSERT_TRUE(store::UdateRecs(s(), "delete from sched where position='Cook'"));
    fill();
    EXPECT_FALSE(menu.visible);
    EXPECT_TRUE(column(s(), "select schedid from sched where sname='*undo*'").empty());
    (void)hosts;
}

TEST_F(AutoSchedWindowTest, TheExplanationKeepsEveryEntryAndPrintsAsCsv) {
    employee("O'Brien", "Cook", "40", true, "Dan");
    const long baker = employee("Baker");
    entry(baker, kWed, 8, 120);
    open(kDay, 22, 240, "Cook", "Night, late");
    open(kDay, 9, 480, "Host");
    fill();
    std::ostringstream csv;
    autosched::writeExplanationCsv(csv, window->explanation());
    EXPECT_EQ(csv.str(),
              "date,start,end,shift,position,assigned,phase,candidate,reason\r\n"
              "2026-11-23,22:00,02:00,\"Night, late\",Cook,\"O'Brien, Dan\",1,\"O'Brien, Dan\",assigned\r\n"
              "2026-11-23,22:00,02:00,\"Night, late\",Cook,\"O'Brien, Dan\",1,Baker,lost the balance tie\r\n"
              "2026-11-23,09:00,17:00,Day,Host,,3,,not qualified\r\n");
}

TEST_F(AutoSchedWindowTest, RebuildEmptiesTheRangeFillsItAgainAndUndoGivesTheEmptiedRange) {
    const long adams = employee("Adams");
    const long baker = employee("Baker");
    // Adams held Monday; the rebuild owes him nothing.
    const long mon = entry(adams, kDay, 9, 480);
    entry(adams, kWed, 9, 480);
    const long tue = entry(baker, kTue, 9, 240);
    const long otherFile = entry(baker, kDay, 9, 480, "Cook", "Day", "Week 2");
    AutoRebuildSched rebuild(s());
    rebuild.AutoRedoButton_Click();
    ASSERT_GE(ui.messages.size(), 2u);
    EXPECT_EQ(ui.messages[0], (ShownMessage{"The live schedule for Mon Nov 23, 2026 will be rebuilt. Continue?",
                                            MsgButtons::YesNo, MsgIcon::Information, "Auto Schedule Builder"}));
    // Balanced against the rest of the week, which stays: Adams has 8 hours on Wednesday, Baker 4.
    EXPECT_EQ(owner(mon), baker);
    EXPECT_EQ(owner(tue), baker);
    EXPECT_EQ(owner(otherFile), baker);
    EXPECT_EQ(ui.texts().back(), "For Mon Nov 23, 2026\r\n\r\nAll **Unassigned** schedule entries were filled.");

    schedule::UndoLastChange(s());
    EXPECT_EQ(column(s(), "select lname from sched where sday=? and sname='Week 1'", {kDay}),
              (std::vector<std::string>{"**Unassigned**"}));
    EXPECT_EQ(owner(tue), baker);
}

TEST_F(AutoSchedWindowTest, RebuildAnsweredNoChangesNothingAndKeepsTheUndo) {
    const long adams = employee("Adams");
    const long mon = entry(adams, kDay, 9, 480);
    s().undoFrom = kDay;
    menu.visible = true;
    ui.answer(MsgAnswer::No);
    AutoRebuildSched rebuild(s());
    rebuild.WeekOption_Click();
    EXPECT_FALSE(rebuild.AutoRedoButton_Click());
    EXPECT_EQ(ui.texts(), (std::vector<std::string>{"The live schedule for Sun Nov 22, 2026 through Sat Nov 28, 2026 "
                                                    "will be rebuilt. Continue?"}));
    EXPECT_EQ(owner(mon), adams);
    EXPECT_TRUE(menu.visible);
}

TEST_F(AutoSchedWindowTest, RebuildSaysRemainsForOneAndKeepsItsSnapshotWhenNothingWasFilled) {
    employee("Adams");
    open(kDay, 9, 480);
    open(kDay, 9, 480, "Host");
    AutoRebuildSched rebuild(s());
    rebuild.AutoRedoButton_Click();
    EXPECT_EQ(ui.texts().back(),
              "For Mon Nov 23, 2026\r\n\r\n1  schedule entry was filled.\r\n1 remains **Unassigned**.");

    ASSERT_TRUE(store::UdateRecs(s(), "delete from sched where position='Cook'"));
    rebuild.AutoRedoButton_Click();
    EXPECT_EQ(ui.texts().back(),
              "For Mon Nov 23, 2026\r\n\r\n0  schedule entries were filled.\r\n1 remains **Unassigned**.");
    EXPECT_TRUE(menu.visible);

    // A range with no entries at all has nothing to rebuild.
    ASSERT_TRUE(store::UdateRecs(s(), "delete from sched"));
    rebuild.AutoRedoButton_Click();
    EXPECT_EQ(ui.texts().back(), "There are no **Unassigned** schedule entries for Mon Nov 23, 2026");
}

TEST_F(AutoSchedWindowTest, AFailureInTheMiddleOfARunLeavesTheFileAsItWas) {
    const long adams = employee("Adams");
    employee("Baker");
    const long held = entry(adams, kWed, 9, 480);
    for (int i = 0; i < 3; ++i) open(kDay.addDays(i), 9, 480);
    int assignments = 0;
    store::db(s()).setFaultInjector([&](std::string_view, std::string_view sql) -> std::optional<store::DbError> {
        if (sql.starts_with("update sched set personid = ?") && ++assignments == 2)
            return store::DbError{store::DbErrorKind::Other, 13, "disk full"};
        return std::nullopt;
    });
    AutoRebuildSched rebuild(s());
    rebuild.WeekOption_Click();
    rebuild.AutoRedoButton_Click();
    store::db(s()).setFaultInjector({});

    // The emptying, the snapshot and the first assignment went with the rest.
    EXPECT_EQ(owner(held), adams);
    EXPECT_EQ(column(s(), "select personid from sched where sname='Week 1' and personid=-1").size(), 3u);
    EXPECT_TRUE(column(s(), "select schedid from sched where sname='*undo*'").empty());
    EXPECT_FALSE(menu.visible);
    EXPECT_TRUE(ui.shown("None of this change was saved: the data is as it was before."));
    EXPECT_TRUE(rebuild.lastMessage().empty());
}

TEST_F(AutoSchedWindowTest, ALongRunGivesTheInterfaceATurnForEveryEntryAndMovesTheBar) {
    employee("Adams");
    for (int i = 0; i < 5; ++i) open(kDay, 9 + i, 60);
    AutoSched w(s());
    std::vector<int> seen;
    w.onProgress = [&] { seen.push_back(w.AutoPBar.Value); };
    w.OKButton_Click();
    EXPECT_GE(ui.turns, 5);
    // Each pass counts its entries from 0; the end parks the bar at its maximum, then at 0.
    ASSERT_GE(seen.size(), 7u);
    EXPECT_EQ(std::vector<int>(seen.begin(), seen.begin() + 5), (std::vector<int>{0, 1, 2, 3, 4}));
    EXPECT_EQ(seen[seen.size() - 2], 4);  // the last pass had four entries
    EXPECT_EQ(seen.back(), 0);
}

TEST_F(AutoSchedWindowTest, TheOptionsWindowShowsAndSetsTheFiveSettings) {
    s().settings.gb_NoOvertime = true;
    s().settings.gb_AutoAllowDblShifts = false;
    autosched::AutoSchedOptions options(s());
    EXPECT_TRUE(options.NoOvertime);
    EXPECT_FALSE(options.RestrictOvertime);
    EXPECT_TRUE(options.AutoEnforceWeeklyHrs);
    EXPECT_TRUE(options.AutoDesiredShiftsFirst);
    EXPECT_FALSE(options.AutoAllowDblShifts);

    options.RestrictOvertime = true;  // both overtime boxes may be on
    options.AutoDesiredShiftsFirst = false;
    EXPECT_TRUE(options.CancelButton_Click());
    EXPECT_FALSE(s().settings.gb_RestrictOvertime);
    EXPECT_TRUE(options.OKButton_Click());
    EXPECT_TRUE(s().settings.gb_NoOvertime);
    EXPECT_TRUE(s().settings.gb_RestrictOvertime);
    EXPECT_FALSE(s().settings.gb_AutoDesiredShiftsFirst);
    EXPECT_FALSE(s().settings.gb_AutoAllowDblShifts);
}

TEST_F(AutoSchedWindowTest, TheFirstUseMessageShowsUntilItIsToldNotTo) {
    autosched::mnuAutoSched_Click(s());
    EXPECT_EQ(ui.modals, (std::vector<std::string>{"FirstAutoAddMsg", "AutoSched"}));
    EXPECT_EQ(userSettings.get("ShowAutoAddMsg"), "Yes");

    ui.onModal("FirstAutoRebuildMsg", [this] {
        autosched::FirstAutoRebuildMsg message(s());
        message.DoNotShowAgain = true;
        message.OKButton_Click();
    });
    autosched::mnuAutoRebuildSchedule_Click(s());
    autosched::mnuAutoRebuildSchedule_Click(s());
    EXPECT_EQ(userSettings.get("ShowAutoRebuildMsg"), "No");
    EXPECT_EQ(ui.modals, (std::vector<std::string>{"FirstAutoAddMsg", "AutoSched", "FirstAutoRebuildMsg",
                                                   "AutoRebuildSched", "AutoRebuildSched"}));
    // An unchecked box changes nothing.
    autosched::FirstAutoAddMsg add(s());
    add.OKButton_Click();
    EXPECT_EQ(userSettings.get("ShowAutoAddMsg"), "Yes");
}

TEST_F(AutoSchedWindowTest, AHeadlessRunTakesItsSettingsForTheRunAndLeavesTheSessionAsItWas) {
    ASSERT_TRUE(store::InsertRecs(s(), "insert into schedname (schedname) values('Week 2')"));
    const long adams = employee("Adams");
    entry(adams, kTue, 8, 480);
    const long wed = entry(-1, kWed, 9, 480, "Cook", "Day", "Week 2");
    s().activeDate = kFri.addDays(10);
    autosched::SchedulerSettings settings;
    ASSERT_TRUE(settings.set("GB_NOOVERTIME", "True"));
    ASSERT_TRUE(settings.set("gi_OvertimeThreshold", "15"));
    EXPECT_FALSE(settings.set("gi_OvertimeThreshold", "fifteen"));
    EXPECT_FALSE(settings.set("gs_AutoFillDayWeek", "Week"));

    auto result = autosched::runAutoFill(s(), kWed, "Week 2", FillMode::Week, settings);
    // Adams's 8 hours of Week 1 do not count in Week 2: 0 + 8 is within 15.
    EXPECT_EQ(owner(wed), adams);
    EXPECT_EQ(result.message,
              "For the week of Sun Nov 22, 2026 - Sat Nov 28, 2026\r\n\r\nAll **Unassigned** "
              "schedule entries were filled.");
    ASSERT_EQ(result.explanation.size(), 1u);
    EXPECT_EQ(s().activeDate, kFri.addDays(10));
    EXPECT_EQ(s().currentSchedule, "Week 1");
    EXPECT_FALSE(s().settings.gb_NoOvertime);
    EXPECT_EQ(s().settings.gs_AutoFillDayWeek, "Day");

    ui.answer(MsgAnswer::No);
    result = autosched::runRebuild(s(), kWed, "Week 2", FillMode::Day);
    EXPECT_FALSE(result.ran);
    EXPECT_EQ(owner(wed), adams);

    ui.clear();
    result = autosched::runAutoFill(s(), kWed, "Week 3", FillMode::Day);
    EXPECT_FALSE(result.ran);
    EXPECT_EQ(ui.texts(), (std::vector<std::string>{"There is no schedule file named 'Week 3'."}));
}

}  // namespace
}  // namespace tallymere::testing

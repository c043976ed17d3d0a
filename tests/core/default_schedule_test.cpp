#include "schedule/default_schedule.h"

#include "bulk_schedule_fixture.h"
#include "schedule/undo.h"
#include "store/options.h"

namespace tallymere::testing {
namespace {

using common::Date;
using common::DateTime;

const Date kMon = Date::fromYmd(2026, 11, 23);       // day 1 of the saved pattern
const Date kNextCycle = Date::fromYmd(2026, 12, 7);  // a Monday two weeks on

class DefaultScheduleTest : public BulkScheduleTest {
protected:
    void SetUp() override {
        BulkScheduleTest::SetUp();
        s().settings.firstdayofweek = "Monday";
        s().settings.gi_defaultschedlength = 14;
        obrien = addPerson("O'Brien", "Olive");
    }

    // Two weeks of pattern from Monday, November 23, with entries just outside them and in the
    // other file that must not be taken.
    void fillTwoWeeks() {
        entry(kSam, kMon, 9, 480);                                // day 1
        entry(kSam, kMon.addDays(1), 22, 240, "Week 1", "Late");  // day 2, over midnight
        entry(-1, kMon.addDays(7), 8, 240, "Week 1", "Open");     // day 8
        entry(obrien, kMon.addDays(13), 10, 240);                 // day 14
        entry(kSam, kMon.addDays(-1), 7, 60);                     // the Sunday before
        entry(kSam, kMon.addDays(14), 7, 60);                     // day 15
        entry(kSam, kMon, 6, 60, "Week 2");
    }

    Texts pattern() {
        Texts out;
        for (auto rs = store::GetRecs(s(), "select * from scheddefault order by daynum,strttime"); !rs.eof();
             rs.MoveNext())
            out.push_back(std::to_string(rs["daynum"].toInt()) + " " + rs["sdayname"].text() + " " +
                          rs["lname"].text() + " " + rs["strttime"].text() + " " + rs["endtime"].text() + " " +
                          rs["shift"].text());
        return out;
    }

    bool save(Date activeDate) {
        s().activeDate = activeDate;
        return schedule::SaveDefaultSchedule(s(), activeDate, "Week 1");
    }

    long obrien = 0;
};

TEST_F(DefaultScheduleTest, SavingKeepsTheClockTimesOfEachDayOfTheCycleByItsNumber) {
    fillTwoWeeks();
    ASSERT_TRUE(save(kMon.addDays(2)));  // any day of the first week

    EXPECT_EQ(ui.messages, (Messages{{"Monday is designated as the first day of the workweek and the default schedule "
                                      "is 14 days long. The default schedule will use the data from Monday Nov 23, "
                                      "2026 to Sunday Dec 06, 2026. Continue?",
                                      MsgButtons::YesNo, MsgIcon::Question, "Save as default schedule"}}));
    EXPECT_EQ(pattern(), (Texts{"1 Monday Sample 1899-12-30 09:00:00 1899-12-30 17:00:00 Day",
                                "2 Tuesday Sample 1899-12-30 22:00:00 1899-12-30 02:00:00 Late",
                                "8 Monday **Unassigned** 1899-12-30 08:00:00 1899-12-30 12:00:00 Open",
                                "14 Sunday O'Brien 1899-12-30 10:00:00 1899-12-30 14:00:00 Day"}));

    // Saving again replaces the whole pattern; No keeps it.
    const Date emptyWeeks = kMon.addDays(28);
    ui.answer(MsgAnswer::No);
    EXPECT_FALSE(save(emptyWeeks));
    EXPECT_EQ(pattern().size(), 4u);
    ASSERT_TRUE(save(emptyWeeks));
    EXPECT_TRUE(pattern().empty());
    ui.clear();
    EXPECT_FALSE(schedule::GetDefaultSchedule(s(), kMon, "Week 1"));
    EXPECT_EQ(ui.texts(), Texts{"The current default weekly schedule is blank."});
}

TEST_F(DefaultScheduleTest, LayingTheCycleReplacesItsDaysKeepsOvernightEntriesAndCanBeUndone) {
    fillTwoWeeks();
    ASSERT_TRUE(save(kMon));
    const long replaced = entry(kSam, kNextCycle.addDays(2), 12, 60);
    entry(kSam, kNextCycle.addDays(14), 12, 60);  // the day after the cycle
    entry(kSam, kNextCycle, 6, 60, "Week 2");
    ui.clear();

    // A Thursday: the cycle starts on the Monday of its week.
    s().activeDate = kNextCycle.addDays(3);
    ASSERT_TRUE(schedule::mnugetdefaultsched(s()));
    EXPECT_EQ(ui.messages, (Messages{{"The current default schedule is 14 days long. Any existing schedule entries "
                                      "from Monday Dec 07, 2026 to Sunday Dec 20, 2026 will be replaced. Continue?",
                                      MsgButtons::YesNo, MsgIcon::Question, "Get default schedule"}}));
    EXPECT_EQ(day(kNextCycle), Texts{"Sample 09:00-17:00 Day"});
    EXPECT_EQ(day(kNextCycle.addDays(1)), Texts{"Sample 22:00-02:00+1 Late"});
    EXPECT_TRUE(day(kNextCycle.addDays(2)).empty());
    EXPECT_EQ(day(kNextCycle.addDays(7)), Texts{"**Unassigned** 08:00-12:00 Open"});
    EXPECT_EQ(day(kNextCycle.addDays(13)), Texts{"O'Brien 10:00-14:00 Day"});
    EXPECT_EQ(day(kNextCycle.addDays(14)), Texts{"Sample 12:00-13:00 Day"});
    EXPECT_EQ(day(kNextCycle, "Week 2"), Texts{"Sample 06:00-07:00 Day"});
    EXPECT_TRUE(menu.visible);
    EXPECT_EQ(menu.caption, "Undo Get Default Schedule");
    EXPECT_TRUE(s().refreshWanted);

    schedule::UndoLastChange(s());
    EXPECT_EQ(day(kNextCycle), Texts{"Sample 07:00-08:00 Day"});  // the pattern's day 15, replaced before
    EXPECT_TRUE(day(kNextCycle.addDays(13)).empty());
    EXPECT_EQ(day(kNextCycle.addDays(2)), Texts{"Sample 12:00-13:00 Day"});
    // Moved aside and back: the very same entry.
    EXPECT_EQ(
        store::GetRecs(s(), "select schedid from sched where sday=?", {kNextCycle.addDays(2)})["schedid"].toLong(),
        replaced);
}

TEST_F(DefaultScheduleTest, AWeekStartingMidCycleTakesDayOneOnItsOwnFirstDay) {
    fillTwoWeeks();
    ASSERT_TRUE(save(kMon));
    // The week now starts on Wednesday and the cycle is one week long: Monday's pattern lands on
    // Wednesday, and nothing of the second week is laid.
    s().settings.firstdayofweek = "Wednesday";
    s().settings.gi_defaultschedlength = 7;
    const Date wed = Date::fromYmd(2026, 12, 9);
    ui.clear();
    ASSERT_TRUE(schedule::GetDefaultSchedule(s(), wed.addDays(5), "Week 1"));
    EXPECT_EQ(ui.texts(), Texts{"The current default schedule is 7 days long. Any existing schedule entries from "
                                "Wednesday Dec 09, 2026 to Tuesday Dec 15, 2026 will be replaced. Continue?"});
    EXPECT_EQ(day(wed), Texts{"Sample 09:00-17:00 Day"});
    EXPECT_EQ(day(wed.addDays(1)), Texts{"Sample 22:00-02:00+1 Late"});
    EXPECT_EQ(everything().size(), 7u + 2u);  // the rows saved from plus the two laid
}

TEST_F(DefaultScheduleTest, RefusalsChangeNothing) {
    fillTwoWeeks();
    ASSERT_TRUE(save(kMon));
    const Texts before = everything();
    ui.clear();

    ui.answer(MsgAnswer::No);
    EXPECT_FALSE(schedule::GetDefaultSchedule(s(), kNextCycle, "Week 1"));
    EXPECT_FALSE(schedule::GetDefaultSchedule(s(), kNextCycle, "Week 9"));
    EXPECT_FALSE(schedule::SaveDefaultSchedule(s(), kNextCycle, "Week 9"));
    EXPECT_FALSE(schedule::GetDefaultSchedule(s(), kNextCycle, ""));
    s().settings.gi_defaultschedlength = 0;
    EXPECT_FALSE(schedule::GetDefaultSchedule(s(), kNextCycle, "Week 1"));
    EXPECT_EQ(ui.texts(),
              (Texts{"The current default schedule is 14 days long. Any existing schedule entries from "
                     "Monday Dec 07, 2026 to Sunday Dec 20, 2026 will be replaced. Continue?",
                     "There is no schedule file named 'Week 9'.", "There is no schedule file named 'Week 9'.",
                     "No schedule file is open.",
                     "The default schedule must be at least one day long. Set its length in Preferences."}));
    EXPECT_EQ(everything(), before);
    EXPECT_EQ(pattern().size(), 4u);
    EXPECT_FALSE(menu.visible);
}

TEST_F(DefaultScheduleTest, AFailureHalfwayLeavesTheScheduleAsItWasAndNothingToUndo) {
    fillTwoWeeks();
    ASSERT_TRUE(save(kMon));
    entry(kSam, kNextCycle.addDays(3), 12, 60);
    const Texts before = everything();
    // Day 14 is the last laid: everything before it has been written when the engine refuses.
    refuseInsertsOf("O''Brien");
    ui.clear();

    EXPECT_FALSE(schedule::GetDefaultSchedule(s(), kNextCycle, "Week 1"));
    EXPECT_EQ(everything(), before);
    EXPECT_EQ(snapshotRows(), 0u);
    EXPECT_FALSE(menu.visible);
    ASSERT_EQ(ui.messages.size(), 3u);
    EXPECT_EQ(ui.messages[1].text.rfind("Unable to update database [InsertRecs].", 0), 0u) << ui.messages[1].text;
    EXPECT_EQ(ui.messages[2].text, "None of this change was saved: the data is as it was before.");

    // The pattern survives a save that fails the same way.
    ASSERT_TRUE(store::InsertRecs(s(), "drop trigger refuse_1"));
    ASSERT_TRUE(store::InsertRecs(
        s(),
        "create trigger refuse_default before insert on scheddefault when new.daynum = 8 begin select "
        "raise(abort, 'disk full'); end"));
    EXPECT_FALSE(save(kNextCycle.addDays(-14)));
    EXPECT_EQ(pattern().size(), 4u);
}

TEST_F(DefaultScheduleTest, TheLengthWindowTakesDaysOrWeeksAndKeepsTheLengthOnceSaved) {
    fillTwoWeeks();
    s().activeDate = kMon.addDays(4);
    s().settings.gi_defaultschedlength = 0;
    ui.onModal("DefaultSave", [this] {
        schedule::DefaultSave window(s());
        EXPECT_TRUE(window.dayoption);
        EXPECT_EQ(window.Startdaylabel, "The default schedule will be saved starting on Monday Nov 23, 2026");
        EXPECT_EQ(window.Endlabel, "");
        window.weekoption_Click();
        window.TxtWeeks = "two";
        window.UpdateLabels();
        EXPECT_FALSE(window.Save_Click());
        window.TxtWeeks = "2";
        window.UpdateLabels();
        EXPECT_EQ(window.Endlabel, "The default schedule will be saved ending on Sunday Dec 06, 2026");
        ui.answer(MsgAnswer::No);
        EXPECT_FALSE(window.Save_Click());
        EXPECT_EQ(s().settings.gi_defaultschedlength, 0);
        EXPECT_TRUE(window.Save_Click());
    });
    schedule::mnusaveasdefault(s());

    EXPECT_EQ(ui.modals, Texts{"DefaultSave"});
    EXPECT_EQ(ui.texts()[0], "Please enter the number of weeks as a whole number of at least 1.");
    EXPECT_EQ(s().settings.gi_defaultschedlength, 14);
    EXPECT_EQ(store::GetOption(s(), "gi_defaultschedlength"), "14");
    EXPECT_EQ(pattern().size(), 4u);

    // With a usable length the menu saves at once.
    ui.clear();
    schedule::mnusaveasdefault(s());
    EXPECT_EQ(ui.modals.size(), 1u);
    EXPECT_EQ(ui.texts().size(), 1u);
}

}  // namespace
}  // namespace tallymere::testing

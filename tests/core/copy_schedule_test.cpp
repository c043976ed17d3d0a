#include "schedule/copy_schedule.h"

#include "bulk_schedule_fixture.h"
#include "schedule/undo.h"

namespace tallymere::testing {
namespace {

using common::Date;
using schedule::CopyChoices;
using schedule::CopyMode;
using schedule::CopyNew;
using schedule::CopyOutcome;

const Date kMon = Date::fromYmd(2026, 11, 23);
const Date kThu = kMon.addDays(3);
const Date kSat = kMon.addDays(5);

class CopyScheduleTest : public BulkScheduleTest {
protected:
    void SetUp() override {
        BulkScheduleTest::SetUp();
        obrien = addPerson("O'Brien", "Olive");
        ann = addPerson("Able", "Ann");
    }

    // The copy window with both sides chosen.
    std::unique_ptr<CopyNew> window(const std::string& from, Date fromFirst, Date fromLast, const std::string& to,
                                    Date toFirst, Date toLast, CopyMode mode = CopyMode::Range) {
        auto w = std::make_unique<CopyNew>(s());
        w->fromschedulecombo.select(from);
        w->toschedulecombo.select(to);
        if (mode == CopyMode::Range) w->RangeOption_Click();
        if (mode == CopyMode::Week) w->weekoption_Click();
        w->FromDate_SelChange(fromFirst, fromLast);
        w->ToDate_SelChange(toFirst, toLast);
        return w;
    }

    long obrien = 0;
    long ann = 0;
};

TEST_F(CopyScheduleTest, ADayGoesToAnotherFileReplacingTheTargetDayAndKeepingMidnightCrossings) {
    entry(kSam, kMon, 22, 240, "Week 1", "Late");
    entry(obrien, kMon, 9, 480);
    entry(-1, kMon, 8, 240, "Week 1", "Open");
    entry(kSam, kThu, 12, 60, "Week 2");

    auto w = window("Week 1", kMon, kMon, "Week 2", kThu, kThu, CopyMode::Day);
    EXPECT_EQ(w->FromSelectLabel, "1 day selected.");
    ASSERT_TRUE(w->Command1_Click());

    EXPECT_EQ(ui.messages, (Messages{{"Copy schedule from 11/23/2026 to 11/26/2026", MsgButtons::YesNo,
                                      MsgIcon::Question, "Copy Schedule"},
                                     {"Copy completed", MsgButtons::Ok, MsgIcon::None, ""}}));
    EXPECT_EQ(day(kThu, "Week 2"),
              (Texts{"**Unassigned** 08:00-12:00 Open", "O'Brien 09:00-17:00 Day", "Sample 22:00-02:00+1 Late"}));
    EXPECT_EQ(day(kMon).size(), 3u);
    EXPECT_TRUE(day(kThu).empty());
    EXPECT_EQ(menu.caption, "Undo Copy Schedule");
    EXPECT_TRUE(s().refreshWanted);

    schedule::UndoLastChange(s());
    EXPECT_EQ(day(kThu, "Week 2"), Texts{"Sample 12:00-13:00 Day"});
    EXPECT_EQ(day(kMon).size(), 3u);
}

TEST_F(CopyScheduleTest, ARangeGoesAcrossFilesAndAnEmptySourceDayEmptiesItsTarget) {
    entry(kSam, kMon, 9, 480);
    entry(obrien, kMon.addDays(2), 23, 180, "Week 1", "Late");  // Wednesday 23:00 to Thursday 02:00
    addLeave(obrien, kSat.addDays(2));
    for (int d = 0; d < 4; ++d) entry(ann, kSat.addDays(d), 6, 60, "Week 2");

    s().settings.gb_CheckConflictsDuringCopy = false;
    auto w = window("Week 1", kMon, kMon.addDays(2), "Week 2", kSat, kSat.addDays(2));
    EXPECT_EQ(w->FromSelectLabel, "3 days selected.");
    ASSERT_TRUE(w->Command1_Click());

    // With the check off, the employee on leave is copied without a word.
    EXPECT_EQ(ui.messages, (Messages{{"Copy 3 days starting at 11/23/2026 through 11/25/2026 to 11/28/2026",
                                      MsgButtons::YesNo, MsgIcon::Question, "Copy Schedule Records"},
                                     {"Copy completed", MsgButtons::Ok, MsgIcon::None, ""}}));
    EXPECT_EQ(day(kSat, "Week 2"), Texts{"Sample 09:00-17:00 Day"});
    EXPECT_TRUE(day(kSat.addDays(1), "Week 2").empty());
    EXPECT_EQ(day(kSat.addDays(2), "Week 2"), Texts{"O'Brien 23:00-02:00+1 Late"});
    EXPECT_EQ(day(kSat.addDays(3), "Week 2"), Texts{"Able 06:00-07:00 Day"});

    schedule::UndoLastChange(s());
    for (int d = 0; d < 4; ++d) EXPECT_EQ(day(kSat.addDays(d), "Week 2"), Texts{"Able 06:00-07:00 Day"}) << d;
}

TEST_F(CopyScheduleTest, NoSkipsAConflictingEntryAndYesCopiesIt) {
    entry(kSam, kMon, 9, 480);
    entry(obrien, kMon, 13, 120);
    entry(-1, kMon, 8, 240);
    addLeave(kSam, kThu);
    setAvailability(obrien, kThu, std::string(24, 'N'));

    ui.answer(MsgAnswer::Yes);  // the copy
    ui.answer(MsgAnswer::No);   // Sam's leave
    ui.answer(MsgAnswer::Yes);  // O'Brien's availability
    auto w = window("Week 1", kMon, kMon, "Week 1", kThu, kThu, CopyMode::Day);
    ASSERT_TRUE(w->Command1_Click());

    EXPECT_EQ(ui.messages,
              (Messages{{"Copy schedule from 11/23/2026 to 11/26/2026", MsgButtons::YesNo, MsgIcon::Question,
                         "Copy Schedule"},
                        {"Sam Sample is scheduled for leave on 11/26/2026, Override?", MsgButtons::YesNoCancel,
                         MsgIcon::Question, "Leave Conflict"},
                        {"Olive O'Brien is not available from 01:00 PM to 03:00 PM on 11/26/2026, Override?",
                         MsgButtons::YesNoCancel, MsgIcon::Question, "Availability Conflict"},
                        {"Copy completed", MsgButtons::Ok, MsgIcon::None, ""}}));
    EXPECT_EQ(day(kThu), (Texts{"**Unassigned** 08:00-12:00 Day", "O'Brien 13:00-15:00 Day"}));
}

TEST_F(CopyScheduleTest, CancelAtAQuestionKeepsTheDaysReachedLeavesTheRestAndUndoRestoresThem) {
    entry(kSam, kMon, 9, 480);
    entry(-1, kMon.addDays(1), 8, 240);
    entry(kSam, kMon.addDays(1), 13, 120);
    entry(obrien, kMon.addDays(2), 9, 180);
    setAvailability(kSam, kSat.addDays(1), std::string(24, 'N'));
    for (int d = 0; d < 3; ++d) entry(ann, kSat.addDays(d), 6, 60, "Week 2");

    ui.answer(MsgAnswer::Yes);
    ui.answer(MsgAnswer::Cancel);
    auto w = window("Week 1", kMon, kMon.addDays(2), "Week 2", kSat, kSat.addDays(2));
    EXPECT_TRUE(w->Command1_Click());
    EXPECT_EQ(w->lastOutcome, CopyOutcome::Cancelled);

    EXPECT_EQ(ui.texts(), (Texts{"Copy 3 days starting at 11/23/2026 through 11/25/2026 to 11/28/2026",
                                 "Sam Sample is not available from 01:00 PM to 03:00 PM on 11/29/2026, Override?"}));
    EXPECT_EQ(day(kSat, "Week 2"), Texts{"Sample 09:00-17:00 Day"});
    EXPECT_EQ(day(kSat.addDays(1), "Week 2"), Texts{"**Unassigned** 08:00-12:00 Day"});
    EXPECT_EQ(day(kSat.addDays(2), "Week 2"), Texts{"Able 06:00-07:00 Day"});

    schedule::UndoLastChange(s());
    for (int d = 0; d < 3; ++d) EXPECT_EQ(day(kSat.addDays(d), "Week 2"), Texts{"Able 06:00-07:00 Day"}) << d;
    EXPECT_EQ(snapshotRows(), 0u);
}

TEST_F(CopyScheduleTest, TheWindowRefusesWhatCannotBeCopiedAndChangesNothing) {
    entry(kSam, kMon, 9, 480);
    entry(kSam, kThu, 9, 60);
    const Texts before = everything();

    auto w = window("Week 1", kMon, kMon, "Week 1", kMon, kMon, CopyMode::Day);
    EXPECT_FALSE(w->Command1_Click());  // same day, same file
    w->ToDate_SelChange(kMon.addDays(1), kMon.addDays(1));
    w->FromDate_SelChange(kMon.addDays(2), kMon.addDays(2));  // a day without entries
    EXPECT_FALSE(w->Command1_Click());
    EXPECT_EQ(w->lastOutcome, CopyOutcome::NothingToCopy);

    w->weekoption_Click();
    EXPECT_EQ(w->FromDate.first, Date::fromYmd(2026, 11, 22));  // widened to the Sunday's week
    EXPECT_EQ(w->ToDate.last, Date::fromYmd(2026, 11, 28));
    EXPECT_EQ(w->FromSelectLabel, "7 days selected");
    EXPECT_FALSE(w->Command1_Click());

    w->RangeOption_Click();
    w->FromDate_SelChange(kMon, kThu);
    w->ToDate_SelChange(kMon, kThu);
    EXPECT_FALSE(w->Command1_Click());
    w->ToDate_SelChange(kThu, kThu.addDays(3));
    EXPECT_FALSE(w->Command1_Click());
    w->ToDate_SelChange(kSat, kSat.addDays(2));
    EXPECT_FALSE(w->Command1_Click());
    // The month views let no more than 28 days be chosen.
    w->FromDate_SelChange(kMon.addDays(40), kMon);
    EXPECT_EQ(w->FromDate.count(), 28);
    EXPECT_EQ(w->FromSelectLabel, "28 days selected.");

    w->toschedulecombo.ListIndex = -1;
    EXPECT_FALSE(w->Command1_Click());
    w->fromschedulecombo.ListIndex = -1;
    EXPECT_FALSE(w->Command1_Click());

    EXPECT_EQ(ui.texts(), (Texts{"The source date cannot equal the destination date.",
                                 "Copy schedule from 11/25/2026 to 11/24/2026", "There are no records to copy.",
                                 "The week selected on the left must be different than the week selected on the right.",
                                 "The date range selected on the left must be different than the date range selected "
                                 "on the right.",
                                 "The dates selected on the left cannot overlap the dates selected on the right.",
                                 "The number of days selected on the left must be equal to the number selected on the "
                                 "right.",
                                 "Copy to schedule cannot be blank.", "Please select a schedule name to Copy from."}));
    EXPECT_EQ(ui.messages[2].title, "Copy Schedule Records");
    EXPECT_EQ(everything(), before);
    EXPECT_FALSE(menu.visible);
}

TEST_F(CopyScheduleTest, ARunWithoutTheWindowChecksItsChoicesFirst) {
    entry(kSam, kMon, 9, 480);
    const Texts before = everything();

    CopyChoices bad{"Week 1", "Week 9", CopyMode::Day, kMon, {}, kThu, {}, {}};
    EXPECT_FALSE(schedule::CopySchedule(s(), bad));
    CopyChoices tooLong{"Week 1", "Week 2", CopyMode::Range, kMon, kMon.addDays(29), kMon, {}, {}};
    EXPECT_FALSE(schedule::CopySchedule(s(), tooLong));
    EXPECT_EQ(ui.texts(),
              (Texts{"There is no schedule file named 'Week 9'.", "No more than 28 days can be copied at once."}));
    EXPECT_EQ(everything(), before);

    // A week given by any of its days; the same dates in another file are allowed.
    ui.clear();
    CopyChoices week{"Week 1", "week 2", CopyMode::Week, kThu, {}, kThu, {}, false};
    ASSERT_TRUE(schedule::CopySchedule(s(), week));
    EXPECT_EQ(ui.texts(),
              (Texts{"Copy schedule from the week of 11/22/2026 to the week of 11/22/2026", "Copy completed"}));
    EXPECT_EQ(day(kMon, "Week 2"), Texts{"Sample 09:00-17:00 Day"});
    EXPECT_FALSE(s().settings.gb_CheckConflictsDuringCopy);
}

TEST_F(CopyScheduleTest, AFailureHalfwayLeavesBothFilesAsTheyWere) {
    entry(kSam, kMon, 9, 480);
    entry(obrien, kMon.addDays(1), 9, 480);
    entry(ann, kSat.addDays(1), 6, 60, "Week 2");
    const Texts before = everything();
    refuseInsertsOf("O''Brien");

    auto w = window("Week 1", kMon, kMon.addDays(1), "Week 2", kSat, kSat.addDays(1));
    EXPECT_FALSE(w->Command1_Click());
    EXPECT_EQ(w->lastOutcome, CopyOutcome::Failed);
    EXPECT_EQ(everything(), before);
    EXPECT_EQ(snapshotRows(), 0u);
    EXPECT_FALSE(menu.visible);
    EXPECT_FALSE(ui.shown("Copy completed"));
    EXPECT_TRUE(ui.shown("None of this change was saved: the data is as it was before."));
}

TEST_F(CopyScheduleTest, TheOlderWindowChecksInItsOrderAndCopiesAWeekWithoutTests) {
    entry(kSam, kMon, 22, 240);
    addLeave(kSam, kMon.addDays(7));
    entry(ann, kMon.addDays(9), 6, 60);
    schedule::copytodifferent w(s());

    const auto ok = [&] { return w.OKButton_Click(); };
    w.sourcestart = "11/23/2026";
    EXPECT_FALSE(ok());
    w.destinationstart = "13/40/2026";
    EXPECT_FALSE(ok());
    w.destinationstart = "11/23/2026";
    EXPECT_FALSE(ok());
    w.weekoption_Click();
    EXPECT_FALSE(ok());
    w.sourceweek = "11/25/2026";
    EXPECT_FALSE(ok());
    w.destinationweek = "x";
    EXPECT_FALSE(ok());
    w.destinationweek = "11/25/2026";
    EXPECT_FALSE(ok());
    w.destinationweek = "11/26/2026";
    EXPECT_FALSE(ok());
    EXPECT_EQ(ui.texts(),
              (Texts{"You need to enter a source date and a destination date.", "The destination date is not valid.",
                     "The source date cannot equal the destination date.", "Please enter a date for the source.",
                     "Please enter a destination date.", "The destinationweek is not valid.",
                     "The source date cannot be equal to the destination week.",
                     "The source week cannot be equal to the destination week."}));

    ui.clear();
    w.destinationweek = "12/3/2026";
    w.UpdateWeekLabels();
    EXPECT_EQ(w.wdestinationstart + " - " + w.wdestinationend, "11/29/2026 - 12/5/2026");
    ASSERT_TRUE(ok());
    EXPECT_EQ(ui.texts(), Texts{"Copy completed"});
    EXPECT_EQ(day(kMon.addDays(7)), Texts{"Sample 22:00-02:00+1 Day"});  // on leave, copied all the same
    EXPECT_TRUE(day(kMon.addDays(9)).empty());
    EXPECT_EQ(menu.caption, "Undo Copy Schedule");
}

}  // namespace
}  // namespace tallymere::testing

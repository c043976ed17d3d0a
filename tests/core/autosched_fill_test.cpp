// How the automatic scheduler chooses: balance and its tie-breaks, the repeated passes, second entries
// on a day, the desired shifts, the overtime and weekly hours options, conflicts across midnight,
// leave and availability. Every case runs by both paths, the shipped one and the literal one.

#include "autosched_fixture.h"

namespace tallymere::testing {
namespace {

using autosched::FactsKind;
using autosched::Phase;
using Verdicts = std::vector<std::string>;

class AutoFillTest : public AutoschedTest, public ::testing::WithParamInterface<FactsKind> {
protected:
    void SetUp() override {
        AutoschedTest::SetUp();
        facts = GetParam();
    }
};

TEST_P(AutoFillTest, TwoWithoutHoursTakeOneEntryEachInRowOrder) {
    const long adams = employee("Adams");
    const long baker = employee("Baker");
    const long mon = open(kDay, 9, 480);
    const long tue = open(kTue, 9, 480);
    fill(true);
    EXPECT_EQ(owner(mon), adams);
    // Adams has hours now; Baker has none and wins outright.
    EXPECT_EQ(owner(tue), baker);
    EXPECT_EQ(verdicts(mon), (Verdicts{"Adams:assigned", "Baker:lost the balance tie"}));
}

TEST_P(AutoFillTest, FewestHoursWinStrictlyAndTheEarlierStaysOnEqualHours) {
    const long sixteen = employee("Sixteen");
    const long eightA = employee("EightA");
    const long eightB = employee("EightB");
    entry(sixteen, kWed, 8, 480);
    entry(sixteen, kThu, 8, 480);
    entry(eightA, kWed, 8, 480);
    entry(eightB, kThu, 8, 480);
    const long mon = open(kDay, 9, 480);
    fill();
    EXPECT_EQ(owner(mon), eightA);
    EXPECT_EQ(verdicts(mon),
              (Verdicts{"Sixteen:lost the balance tie", "EightA:assigned", "EightB:lost the balance tie"}));
}

TEST_P(AutoFillTest, TheBestWhoWorksThatDayWaitsForPhaseTwoAndNoSecondBestIsTried) {
    const long early = employee("Early");
    const long other = employee("Other");
    entry(early, kDay, 6, 120);  // 2 hours on the day
    entry(other, kTue, 8, 480);
    entry(other, kWed, 8, 120);  // 10 hours in the week, not on the day
    const long mon = open(kDay, 9, 480);
    fill();
    EXPECT_EQ(owner(mon), early);
    EXPECT_EQ(phaseOf(mon), Phase::DoubleShifts);
    EXPECT_EQ(verdicts(mon), (Verdicts{"Early:assigned", "Other:lost the balance tie"}));
}

TEST_P(AutoFillTest, WithoutDoubleShiftsTheFirstFitStillRefusesOneWhoWorksThatDay) {
    s().settings.gb_AutoAllowDblShifts = false;
    const long early = employee("Early");
    const long other = employee("Other");
    entry(early, kDay, 6, 120);
    entry(other, kTue, 8, 600);
    const long mon = open(kDay, 9, 480);
    fill();
    EXPECT_EQ(owner(mon), -1);
    EXPECT_EQ(phaseOf(mon), Phase::FirstFit);
    EXPECT_EQ(verdicts(mon), (Verdicts{"Early:double shift", "Other:lost the balance tie"}));
}

TEST_P(AutoFillTest, WithoutDoubleShiftsTheFirstFitTakesTheFirstInRowOrderWhoIsFreeThatDay) {
    s().settings.gb_AutoAllowDblShifts = false;
    const long other = employee("Other");  // earlier in row order, more hours
    const long early = employee("Early");
    entry(early, kDay, 6, 120);
    entry(other, kTue, 8, 600);
    const long mon = open(kDay, 9, 480);
    fill();
    EXPECT_EQ(owner(mon), other);
    EXPECT_EQ(phaseOf(mon), Phase::FirstFit);
}

TEST_P(AutoFillTest, AnAssignmentLaterInAPassEarnsAnotherBalancedPass) {
    const long early = employee("Early");
    const long other = employee("Other");
    entry(early, kDay, 6, 120);  // Early works Monday, 2 hours
    entry(other, kWed, 8, 600);  // Other 10 hours, not on Monday
    const long mon = open(kDay, 9, 240);
    const long tue = open(kTue, 9, 540);
    fill(true);
    // First pass: Monday's best is Early, who works that day; Tuesday goes to Early (now 11 hours). The
    // recount shows progress, so a second pass gives Monday to Other, who has fewer hours by then.
    EXPECT_EQ(owner(tue), early);
    EXPECT_EQ(owner(mon), other);
    EXPECT_EQ(phaseOf(mon), Phase::Balanced);
}

TEST_P(AutoFillTest, AnEntryOfHalfAnHourDoesNotCountAsWorkingThatDayButAnHourAndAHalfDoes) {
    const long brief = employee("Brief");
    const long other = employee("Other");
    entry(brief, kDay, 6, 30);  // 0.5 rounds to 0
    entry(other, kWed, 8, 600);
    const long mon = open(kDay, 9, 480);
    const long tue = open(kTue, 9, 480);
    entry(brief, kTue, 6, 90);  // 1.5 rounds to 2
    fill(true);
    EXPECT_EQ(owner(mon), brief);
    EXPECT_EQ(phaseOf(mon), Phase::Balanced);
    // Brief has 10 hours by Tuesday's turn, as many as Other, and stays first: but works Tuesday.
    EXPECT_EQ(owner(tue), brief);
    EXPECT_EQ(phaseOf(tue), Phase::DoubleShifts);
}

TEST_P(AutoFillTest, ADesiredShiftComesFirstOnceThroughThePrimaryPositionAlsoForAnInactiveEmployee) {
    const long idle = employee("Idle");
    const long keen = employee("Keen", "Cook", "40", false);
    entry(keen, kWed, 8, 480);
    entry(keen, kThu, 8, 480);
    wish(keen, 2, "Day");  // Mondays, no position: the primary one
    const long first = open(kDay, 9, 480);
    const long second = open(kDay, 17, 240);
    fill();
    EXPECT_EQ(owner(first), keen);
    EXPECT_EQ(phaseOf(first), Phase::DesiredShifts);
    // One entry per wish; an inactive employee is no candidate of the balanced passes.
    EXPECT_EQ(owner(second), idle);
    EXPECT_EQ(verdicts(second), (Verdicts{"Idle:assigned"}));
}

TEST_P(AutoFillTest, AWishNeedsTheSameShiftPositionAndWeekdayAndRoomInTheWeeklyHours) {
    const long idle = employee("Idle");
    const long full = employee("Full", "Cook", "8");
    const long other = employee("Other");
    entry(full, kWed, 8, 480);  // at the 8 hours Full asks for
    entry(other, kWed, 8, 480);
    wish(full, 2, "Day", "Cook");
    wish(other, 2, "Night");        // another shift
    wish(other, 3, "Day");          // another weekday
    wish(other, 2, "Day", "Host");  // another position
    const long mon = open(kDay, 9, 480);
    fill();
    EXPECT_EQ(owner(mon), idle);
    EXPECT_EQ(phaseOf(mon), Phase::Balanced);
}

TEST_P(AutoFillTest, NoOvertimeAllowsLandingOnTheThresholdAndNotPassingIt) {
    s().settings.gb_NoOvertime = true;
    s().settings.gi_OvertimeThreshold = 10;
    const long cook = employee("Cook2", "Cook");
    const long host = employee("Host3", "Host");
    entry(cook, kWed, 8, 120);  // 2 + 8 = 10
    entry(host, kWed, 8, 180);  // 3 + 8 = 11
    const long cooks = open(kDay, 9, 480, "Cook");
    const long hosts = open(kDay, 9, 480, "Host");
    fill();
    EXPECT_EQ(owner(cooks), cook);
    EXPECT_EQ(owner(hosts), -1);
    EXPECT_EQ(verdicts(hosts), (Verdicts{"Host3:overtime"}));
}

TEST_P(AutoFillTest, RestrictedOvertimeLetsOneEntryCarryAnEmployeeOverTheThreshold) {
    s().settings.gb_RestrictOvertime = true;
    s().settings.gb_AutoEnforceWeeklyHrs = false;
    const long below = employee("Below", "Cook");
    const long at = employee("At", "Host");
    for (const auto day : {kTue, kWed, kThu}) {
        entry(below, day, 6, 600);
        entry(at, day, 6, 600);
    }
    entry(below, kFri, 6, 570);  // 39.5 hours
    entry(at, kFri, 6, 600);     // 40 hours
    const long cooks = open(kDay, 9, 480, "Cook");
    const long hosts = open(kDay, 9, 480, "Host");
    fill();
    EXPECT_EQ(owner(cooks), below);
    EXPECT_EQ(owner(hosts), -1);
    EXPECT_EQ(verdicts(hosts), (Verdicts{"At:overtime"}));
}

TEST_P(AutoFillTest, WeeklyHoursLookOnlyAtTheHoursBeforeTheEntryAndATargetOfNoneIsNeverMet) {
    const long none = employee("None", "Cook", "0");
    const long almost = employee("Almost", "Host", "8");
    const long full = employee("Full", "Server", "8");
    entry(almost, kWed, 8, 450);  // 7.5 hours
    entry(full, kWed, 8, 480);
    const long cooks = open(kDay, 9, 480, "Cook");
    const long hosts = open(kDay, 9, 480, "Host");
    const long servers = open(kDay, 9, 480, "Server");
    fill();
    EXPECT_EQ(owner(cooks), -1);
    EXPECT_EQ(owner(hosts), almost);
    EXPECT_EQ(owner(servers), -1);
    EXPECT_EQ(verdicts(servers), (Verdicts{"Full:weekly hours"}));
    (void)none;

    // Off, the targets play no part.
    s().settings.gb_AutoEnforceWeeklyHrs = false;
    fill();
    EXPECT_EQ(owner(cooks), none);
    EXPECT_EQ(owner(servers), full);
}

TEST_P(AutoFillTest, YesterdaysEntryIntoTheNightBlocksTheEarlyHoursOnly) {
    const long night = employee("Night");
    const long other = employee("Other");
    entry(night, kDay, 22, 480);  // Monday 22:00 to Tuesday 06:00
    entry(other, kWed, 8, 600);
    const long early = open(kTue, 5, 240);  // 05:00 to 09:00
    const long later = open(kTue, 6, 240);  // 06:00 to 10:00: only touches
    fill(true);
    EXPECT_EQ(owner(early), other);
    EXPECT_EQ(verdicts(early), (Verdicts{"Night:conflict", "Other:assigned"}));
    EXPECT_EQ(owner(later), night);
}

TEST_P(AutoFillTest, AnOpenEntryAcrossMidnightCountsItsWholeLengthOnItsDay) {
    s().settings.gb_NoOvertime = true;
    s().settings.gi_OvertimeThreshold = 12;
    const long cook = employee("Cook2");
    entry(cook, kWed, 8, 480);
    const long overnight = open(kThu, 22, 300);  // 5 hours to Friday 03:00: 8 + 5 > 12
    const long shorter = open(kFri, 22, 240);    // 4 hours: 8 + 4 = 12
    fill(true);
    EXPECT_EQ(owner(overnight), -1);
    EXPECT_EQ(verdicts(overnight), (Verdicts{"Cook2:overtime"}));
    EXPECT_EQ(owner(shorter), cook);
}

TEST_P(AutoFillTest, LeaveAndAvailabilityKeepAnEmployeeOff) {
    const long away = employee("Away");
    const long busy = employee("Busy");
    const long free = employee("Free");
    addLeave(away, kDay);
    setAvailability(busy, kDay, "YYYYYYYYYNNNNNNNNYYYYYYY");  // not from 9 to 17
    const long mon = open(kDay, 9, 480);
    fill();
    EXPECT_EQ(owner(mon), free);
    EXPECT_EQ(verdicts(mon), (Verdicts{"Away:on leave", "Busy:not available", "Free:assigned"}));
}

TEST_P(AutoFillTest, ADayRunWeighsTheWholeWeekOfTheActiveDate) {
    const long later = employee("Later");
    const long earlier = employee("Earlier");
    entry(later, kSat, 8, 480);  // after the active date, in its week
    entry(earlier, kSun, 8, 240);
    entry(earlier, kSun.addDays(-1), 8, 600);  // the week before does not count
    const long mon = open(kDay, 9, 480);
    fill();
    EXPECT_EQ(owner(mon), earlier);
}

TEST_P(AutoFillTest, AWeekRunFillsTheWeekOfTheActiveDateOnly) {
    employee("Adams");
    const long before = open(kSun.addDays(-1), 9, 240);
    const long sunday = open(kSun, 9, 240);
    const long saturday = open(kSat, 9, 240);
    const long after = open(kSat.addDays(1), 9, 240);
    const long otherFile = entry(-1, kDay, 9, 240, "Cook", "Day", "Week 2");
    fill(true);
    EXPECT_EQ(owner(before), -1);
    EXPECT_NE(owner(sunday), -1);
    EXPECT_NE(owner(saturday), -1);
    EXPECT_EQ(owner(after), -1);
    EXPECT_EQ(owner(otherFile), -1);
}

TEST_P(AutoFillTest, AnInactiveEmployeeQualifiedForThePositionIsACandidateButNotOneWhoseItIsThePrimary) {
    const long retired = employee("Retired", "Host", "40", false);
    const long helper = employee("Helper", "Cook", "40", false);
    qualify(helper, "Host");
    const long hosts = open(kDay, 9, 480, "Host");
    fill();
    EXPECT_EQ(owner(hosts), helper);
    EXPECT_EQ(verdicts(hosts), (Verdicts{"Helper:assigned"}));
    (void)retired;
}

TEST_P(AutoFillTest, NamesAndFilesWithApostrophesAreBoundLikeAnyValue) {
    const long obrien = employee("O'Brien", "Cook", "40", true, "D'Arcy");
    s().currentSchedule = "Bob's Week";
    const long mon = entry(-1, kDay, 9, 480, "Cook's Mate", "Day", "Bob's Week");
    qualify(obrien, "Cook's Mate");
    fill();
    const auto row = store::GetRecs(s(), "select * from sched where schedid=?", {mon});
    EXPECT_EQ(row["personid"].toLong(), obrien);
    EXPECT_EQ(row["lname"].text(), "O'Brien");
    EXPECT_EQ(row["fname"].text(), "D'Arcy");
}

TEST_P(AutoFillTest, AcrossAllSchedulesAnotherFilesEntryOnTheDayIsAConflict) {
    const long elsewhere = employee("Elsewhere");
    const long other = employee("Other");
    entry(elsewhere, kDay, 8, 240, "Cook", "Day", "Week 2");
    entry(other, kWed, 8, 120);
    const long mon = open(kDay, 9, 240);
    s().settings.gb_CheckConflictAllSchedules = true;
    fill();
    EXPECT_EQ(owner(mon), other);
    EXPECT_EQ(verdicts(mon), (Verdicts{"Elsewhere:conflict", "Other:assigned"}));

    ASSERT_TRUE(store::UdateRecs(s(), "update sched set personid=-1 where schedid=?", {mon}));
    s().settings.gb_CheckConflictAllSchedules = false;
    fill();
    EXPECT_EQ(owner(mon), elsewhere);
}

TEST_P(AutoFillTest, AcrossAllSchedulesTheBalanceCountsTheOtherFilesHours) {
    const long elsewhere = employee("Elsewhere");
    const long other = employee("Other");
    entry(elsewhere, kTue, 8, 240, "Cook", "Day", "Week 2");
    entry(other, kWed, 8, 120);
    const long mon = open(kDay, 9, 240);
    s().settings.gb_CheckConflictAllSchedules = true;
    fill();
    EXPECT_EQ(owner(mon), other);

    ASSERT_TRUE(store::UdateRecs(s(), "update sched set personid=-1 where schedid=?", {mon}));
    s().settings.gb_CheckConflictAllSchedules = false;
    fill();
    EXPECT_EQ(owner(mon), elsewhere);
}

INSTANTIATE_TEST_SUITE_P(BothPaths, AutoFillTest, ::testing::Values(FactsKind::InMemory, FactsKind::PerQuestion),
                         [](const ::testing::TestParamInfo<FactsKind>& info) {
                             return info.param == FactsKind::InMemory ? std::string("InMemory")
                                                                      : std::string("PerQuestion");
                         });

}  // namespace
}  // namespace tallymere::testing

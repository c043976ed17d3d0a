#include "schedule/entry_rules.h"

#include "support/schedule_test.h"

#include <optional>
#include <string>
#include <vector>

namespace tallymere::testing {
namespace {

using common::Date;
using common::DateTime;
using namespace tallymere::schedule;

const Date kDay = Date::fromYmd(2026, 11, 23);  // a Monday
constexpr long kAnn = 7;
const std::string kAllY(24, 'Y');

// A time on kDay + `dayOffset`.
DateTime at(int dayOffset, int hour, int minute = 0) { return DateTime::at(kDay.addDays(dayOffset), hour, minute); }

// An availability string of "Y" with "N" at the given positions (from 1).
std::string withN(std::initializer_list<int> positions) {
    std::string hours = kAllY;
    for (int p : positions) hours[static_cast<std::size_t>(p - 1)] = 'N';
    return hours;
}

class EntryRulesTest : public ScheduleTest {
protected:
    // The entry belongs to the day of its start.
    long addEntry(DateTime start, DateTime end, const std::string& sname = "Week 1", long personid = kAnn) {
        EXPECT_TRUE(store::InsertRecs(
            s(), "insert into sched (personid,lname,fname,sday,strttime,endtime,sname) values(?,'Lee','Ann',?,?,?,?)",
            {personid, start.date(), start, end, sname}));
        return lastId(s(), "sched", "schedid");
    }
    void setAvailability(Date day, const std::string& hours) { ScheduleTest::setAvailability(kAnn, day, hours); }
    void addLeave(Date day, const store::Value& type) { ScheduleTest::addLeave(kAnn, day, type); }
    bool check(DateTime start, DateTime end) { return CheckEntryConflict(s(), kAnn, kDay, start, end, "Lee", "Ann"); }
};

// ---------------------------------------------------------------------------------------------
// The two row tests.

TEST(EntryRowTests, TouchingEntriesPassAndZeroLengthRowsCollideOnlyThroughEqualityOrContainment) {
    struct Case {
        const char* what;
        DateTime rowStart, rowEnd, start, end;
        bool sameDay, overlap;
    };
    const Case cases[] = {
        {"starts where the row ends", at(0, 9), at(0, 17), at(0, 17), at(0, 22), false, false},
        {"starts a minute early", at(0, 9), at(0, 17), at(0, 16, 59), at(0, 22), true, true},
        {"ends where the row starts", at(0, 9), at(0, 17), at(0, 6), at(0, 9), false, false},
        {"equal times", at(0, 9), at(0, 17), at(0, 9), at(0, 17), true, true},
        {"around the row", at(0, 9), at(0, 17), at(0, 8), at(0, 18), true, true},
        {"inside the row", at(0, 9), at(0, 17), at(0, 10), at(0, 11), true, true},
        {"zero-length row inside", at(0, 12), at(0, 12), at(0, 9), at(0, 17), true, true},
        {"zero-length row, equal", at(0, 12), at(0, 12), at(0, 12), at(0, 12), true, true},
        // Only the inclusive containment of the overlap test catches a zero-length row at an edge.
        {"zero-length row at the start", at(0, 9), at(0, 9), at(0, 9), at(0, 17), false, true},
        {"zero-length row at the end", at(0, 17), at(0, 17), at(0, 9), at(0, 17), false, true},
        {"zero-length entry inside a row", at(0, 9), at(0, 17), at(0, 12), at(0, 12), true, true},
        {"zero-length entry at a row's end", at(0, 9), at(0, 17), at(0, 17), at(0, 17), true, true},
        {"across midnight", at(-1, 22), at(0, 6), at(0, 5), at(0, 9), true, true},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(SameDayTest(c.rowStart, c.rowEnd, c.start, c.end), c.sameDay) << c.what;
        EXPECT_EQ(OverlapTest(c.rowStart, c.rowEnd, c.start, c.end), c.overlap) << c.what;
    }
    EXPECT_FALSE(OverlapTest(std::nullopt, at(0, 17), at(0, 9), at(0, 17)));
    EXPECT_FALSE(OverlapTest(at(0, 9), std::nullopt, at(0, 9), at(0, 17)));
}

// ---------------------------------------------------------------------------------------------
// CheckEntryConflict and HasConflict: the same day, yesterday, tomorrow.

TEST_F(EntryRulesTest, ConflictsOnTheDayAndItsNeighboursAreTheSameSpokenOrSilent) {
    struct Entry {
        DateTime start, end;
    };
    struct Case {
        const char* what;
        std::vector<Entry> existing;
        DateTime start, end;
        std::string text;  // empty: allowed
        std::string title;
    };
    const std::string same = "Lee, Ann is aleady scheduled for that time.";
    const std::string yesterday = "Lee, Ann is scheduled for a conflicting time on 11/22/2026.";
    const std::string tomorrow = "Lee, Ann is scheduled for a conflicting time on 11/24/2026.";
    const std::string intoTomorrow = "Lee, Ann is aleady scheduled for a conflicting time on 11/24/2026.";
    const std::string add = "Add schedule entry", daily = "Daily Schedule";
    const Case cases[] = {
        {"after a day shift", {{at(0, 9), at(0, 17)}}, at(0, 17), at(0, 22), "", ""},
        {"a minute into a day shift", {{at(0, 9), at(0, 17)}}, at(0, 16, 59), at(0, 22), same, add},
        {"zero-length row at the start", {{at(0, 9), at(0, 9)}}, at(0, 9), at(0, 17), "", ""},
        {"yesterday's night shift", {{at(-1, 22), at(0, 6)}}, at(0, 5), at(0, 9), yesterday, daily},
        {"after yesterday's night shift", {{at(-1, 22), at(0, 6)}}, at(0, 6), at(0, 9), "", ""},
        {"into tomorrow's early shift", {{at(1, 1), at(1, 5)}}, at(0, 22), at(1, 2), intoTomorrow, add},
        {"up to tomorrow's early shift", {{at(1, 2), at(1, 5)}}, at(0, 22), at(1, 2), "", ""},
        {"over tomorrow's early shift", {{at(1, 1), at(1, 5)}}, at(0, 22), at(1, 6), tomorrow, daily},
        {"ending with tomorrow's early shift", {{at(1, 1), at(1, 5)}}, at(0, 22), at(1, 5), tomorrow, daily},
        {"the same day first", {{at(-1, 22), at(0, 6)}, {at(0, 8), at(0, 12)}}, at(0, 5), at(0, 9), same, add},
    };
    for (const Case& c : cases) {
        ASSERT_TRUE(store::DeleteRecs(s(), "delete from sched"));
        ui.clear();
        for (const Entry& e : c.existing) addEntry(e.start, e.end);
        DateTime start = c.start, end = c.end;
        EXPECT_EQ(HasConflict(s(), kAnn, kDay, start, end), !c.text.empty()) << c.what;
        EXPECT_TRUE(ui.messages.empty()) << c.what;
        EXPECT_EQ(check(c.start, c.end), !c.text.empty()) << c.what;
        const Messages said{{c.text, MsgButtons::Ok, MsgIcon::Exclamation, c.title}};
        EXPECT_EQ(ui.messages, c.text.empty() ? Messages{} : said) << c.what;
    }
}

TEST_F(EntryRulesTest, MessagesUseTheReportNameAndTheDisplayDateFormat) {
    addEntry(at(-1, 22), at(0, 6));
    s().settings.gs_ReportNameFormat = "J. Smith";
    s().settings.reportdateformat = "dd-mmm-yyyy";  // reports only
    s().displayDateFormat = "yyyy-mm-dd";
    EXPECT_TRUE(check(at(0, 5), at(0, 9)));
    EXPECT_TRUE(ui.shown("A. Lee is scheduled for a conflicting time on 2026-11-22."));
    ui.clear();
    DateTime start = at(0, 5), end = at(0, 9);
    EXPECT_TRUE(CheckEntryConflict(s(), kAnn, kDay, start, end, "Lee", ""));
    EXPECT_TRUE(ui.shown("Lee is scheduled for a conflicting time on 2026-11-22."));
}

TEST_F(EntryRulesTest, OnlyTheSameDayLooksAcrossScheduleFiles) {
    addEntry(at(0, 9), at(0, 17), "Week 2");
    addEntry(at(-1, 22), at(0, 6), "Week 2");
    addEntry(at(1, 1), at(1, 5), "Week 2");
    EXPECT_FALSE(check(at(0, 10), at(0, 12)));

    s().settings.gb_CheckConflictAllSchedules = true;
    EXPECT_TRUE(check(at(0, 10), at(0, 12)));
    EXPECT_TRUE(ui.shown("Lee, Ann is aleady scheduled for that time."));
    // Yesterday's and tomorrow's entries in the other file do not count.
    EXPECT_FALSE(check(at(0, 5), at(0, 6)));
    EXPECT_FALSE(check(at(0, 22), at(1, 2)));
    // The exception test stays in the open file whatever the setting.
    EXPECT_FALSE(HasConflictExcept(s(), 0, kAnn, kDay, at(0, 10), at(0, 12)));
}

TEST_F(EntryRulesTest, HasConflictExceptLeavesOutOnlyTheGivenEntry) {
    const long own = addEntry(at(0, 9), at(0, 17));
    EXPECT_FALSE(HasConflictExcept(s(), own, kAnn, kDay, at(0, 9), at(0, 17)));
    EXPECT_TRUE(HasConflictExcept(s(), own + 100, kAnn, kDay, at(0, 9), at(0, 17)));
    addEntry(at(-1, 22), at(0, 10));
    EXPECT_TRUE(HasConflictExcept(s(), own, kAnn, kDay, at(0, 9), at(0, 17)));
    EXPECT_FALSE(HasConflictExcept(s(), own, kAnn + 1, kDay, at(0, 9), at(0, 17)));
    EXPECT_TRUE(ui.messages.empty());
}

// ---------------------------------------------------------------------------------------------
// Overlaps for paste and for the editor.

TEST_F(EntryRulesTest, OverlapsOnDayMovesTheTimesKeepingTheirCrossingOfMidnight) {
    addEntry(at(0, 23), at(0, 23, 30));
    const DateTime elsewhereStart = DateTime::fromParts(2026, 11, 1, 22, 0);
    const DateTime elsewhereEnd = DateTime::fromParts(2026, 11, 2, 2, 0);
    EXPECT_TRUE(OverlapsOnDay(s(), kAnn, kDay, elsewhereStart, elsewhereEnd));
    EXPECT_FALSE(OverlapsOnDay(s(), kAnn, kDay, elsewhereStart.addHours(-12), elsewhereEnd.addHours(-20)));
    EXPECT_FALSE(OverlapsOnDay(s(), kAnn, kDay, std::nullopt, elsewhereEnd));
    // The neighbouring days are not looked at.
    ASSERT_TRUE(store::DeleteRecs(s(), "delete from sched"));
    addEntry(at(1, 0, 30), at(1, 1, 30));
    EXPECT_FALSE(OverlapsOnDay(s(), kAnn, kDay, elsewhereStart, elsewhereEnd));
}

TEST_F(EntryRulesTest, OverlapsOtherEntryNeverComparesRowsAfterTheEditedOne) {
    const long before = addEntry(at(0, 6), at(0, 8));
    const long edited = addEntry(at(0, 9), at(0, 12));
    const long last = addEntry(at(0, 14), at(0, 16));
    // The row after the edited one does not block, even when the new times cover it.
    EXPECT_FALSE(OverlapsOtherEntry(s(), edited, kAnn, kDay, at(0, 9), at(0, 15)));
    EXPECT_TRUE(OverlapsOtherEntry(s(), edited, kAnn, kDay, at(0, 7), at(0, 12)));
    // Editing the first row compares nothing; editing the last compares every other row.
    EXPECT_FALSE(OverlapsOtherEntry(s(), before, kAnn, kDay, at(0, 6), at(0, 17)));
    EXPECT_TRUE(OverlapsOtherEntry(s(), last, kAnn, kDay, at(0, 11), at(0, 13)));
    EXPECT_FALSE(OverlapsOtherEntry(s(), last, kAnn, kDay, at(0, 12), at(0, 14)));
    EXPECT_FALSE(OverlapsOtherEntry(s(), edited, kAnn, kDay, std::nullopt, at(0, 12)));
    // Neither another file nor another day counts.
    addEntry(at(0, 6), at(0, 8), "Week 2");
    const long lone = addEntry(at(1, 6), at(1, 8));
    EXPECT_FALSE(OverlapsOtherEntry(s(), lone, kAnn, kDay.addDays(1), at(1, 5), at(1, 9)));
}

// ---------------------------------------------------------------------------------------------
// Availability.

TEST_F(EntryRulesTest, AvailabilityKeepsItsBoundsAsTheyStand) {
    struct Case {
        const char* what;
        std::optional<std::string> day, nextDay;
        DateTime start, end;
        bool available;
    };
    const std::string allN(24, 'N');
    const Case cases[] = {
        {"start = end, all N", allN, allN, at(0, 9), at(0, 9), true},
        {"no rows", std::nullopt, std::nullopt, at(0, 9), at(0, 17), true},
        {"9-17 with hour 17 off", withN({18}), std::nullopt, at(0, 9), at(0, 17), true},
        {"9-17 with hour 16 off", withN({17}), std::nullopt, at(0, 9), at(0, 17), false},
        {"9-17:30 with hour 17 off", withN({18}), std::nullopt, at(0, 9), at(0, 17, 30), false},
        {"9-17 with hour 8 off", withN({9}), std::nullopt, at(0, 9), at(0, 17), true},
        {"8:30-17 with hour 8 off", withN({9}), std::nullopt, at(0, 8, 30), at(0, 17), false},
        {"next day off at position 1 only", std::nullopt, withN({1}), at(0, 22), at(1, 2), true},
        {"next day off at position 2", std::nullopt, withN({2}), at(0, 22), at(1, 2), false},
        {"next day given as an all-Y day", kAllY, withN({2}), at(0, 22), at(1, 2), false},
        {"hour 23 off, end on the hour", withN({24}), std::nullopt, at(0, 22), at(1, 2), true},
        {"hour 23 off, end at half past", withN({24}), std::nullopt, at(0, 22), at(1, 2, 30), false},
        {"a restricted day hides the next", withN({1}), allN, at(0, 22), at(1, 2), true},
        {"03:30 end, position 4 off", std::nullopt, withN({4}), at(0, 22), at(1, 3, 30), true},
        {"03:30 end, position 3 off", std::nullopt, withN({3}), at(0, 22), at(1, 3, 30), false},
        {"clock times alone on one date", std::nullopt, withN({2}), at(0, 22), at(0, 2), false},
        {"23 hours ending in a later hour is no overnight", std::nullopt, allN, at(0, 9), at(1, 10), true},
        {"a short row is read as far as it goes", std::string("YYYYYYYYYN"), std::nullopt, at(0, 9), at(0, 17), false},
    };
    for (const Case& c : cases) {
        ASSERT_TRUE(store::DeleteRecs(s(), "delete from availability"));
        if (c.day) setAvailability(kDay, *c.day);
        if (c.nextDay) setAvailability(kDay.addDays(1), *c.nextDay);
        EXPECT_EQ(CheckAvailability(s(), kAnn, kDay, c.start, c.end), c.available) << c.what;
    }
}

TEST_F(EntryRulesTest, LeaveWithoutATypeIsNoLeave) {
    EXPECT_EQ(GetLeaveType(s(), kAnn, kDay), "");
    addLeave(kDay, " Vacation ");
    addLeave(kDay.addDays(1), "");
    addLeave(kDay.addDays(2), nullptr);
    EXPECT_EQ(GetLeaveType(s(), kAnn, kDay), "Vacation");
    EXPECT_EQ(GetLeaveType(s(), kAnn, kDay.addDays(1)), "");
    EXPECT_EQ(GetLeaveType(s(), kAnn, kDay.addDays(2)), "");
    EXPECT_EQ(GetLeaveType(s(), kAnn + 1, kDay), "");
}

TEST_F(EntryRulesTest, AnEmployeeIsFreeWithoutConflictUnavailabilityOrLeave) {
    const Date tue = kDay.addDays(1), wed = kDay.addDays(2), thu = kDay.addDays(3);
    addEntry(DateTime::at(tue, 9), DateTime::at(tue, 17));
    setAvailability(wed, withN({10}));
    addLeave(thu, "Sick");
    addLeave(kDay, "");
    EXPECT_TRUE(IsEmployeeFree(s(), kAnn, kDay, at(0, 9), at(0, 17)));
    EXPECT_FALSE(IsEmployeeFree(s(), kAnn, tue, DateTime::at(tue, 12), DateTime::at(tue, 13)));
    EXPECT_FALSE(IsEmployeeFree(s(), kAnn, wed, DateTime::at(wed, 9), DateTime::at(wed, 17)));
    EXPECT_FALSE(IsEmployeeFree(s(), kAnn, thu, DateTime::at(thu, 9), DateTime::at(thu, 17)));
    EXPECT_TRUE(ui.messages.empty());
}

// ---------------------------------------------------------------------------------------------
// Hours.

TEST_F(EntryRulesTest, HoursInRangeKeepFractionsAndCountOvernightEntriesOnTheirDay) {
    EXPECT_EQ(GetHoursInRange(s(), kAnn, kDay, kDay, "Week 1"), 0.0);
    addEntry(at(0, 22), at(1, 6));
    addEntry(at(0, 9), at(0, 9, 20));
    addEntry(at(1, 9), at(1, 10));
    addEntry(at(0, 12), at(0, 16), "Week 2");
    addEntry(at(0, 12), at(0, 13), "Week 1", kAnn + 1);
    EXPECT_DOUBLE_EQ(GetHoursInRange(s(), kAnn, kDay, kDay, "Week 1"), 8 + 20.0 / 60);
    EXPECT_DOUBLE_EQ(GetHoursInRange(s(), kAnn, kDay, kDay.addDays(1), "week 1"), 9 + 20.0 / 60);
    EXPECT_DOUBLE_EQ(GetHoursInRange(s(), kAnn, kDay.addDays(1), kDay.addDays(1), "Week 1"), 1.0);
    EXPECT_DOUBLE_EQ(GetHoursInRange(s(), kAnn, kDay, kDay, "Week 2"), 4.0);
    s().settings.gb_CheckConflictAllSchedules = true;
    EXPECT_DOUBLE_EQ(GetHoursInRange(s(), kAnn, kDay, kDay, "Week 1"), 12 + 20.0 / 60);
}

TEST_F(EntryRulesTest, WeekHoursFollowTheFirstDayOfTheWeek) {
    addEntry(DateTime::fromParts(2026, 11, 21, 9), DateTime::fromParts(2026, 11, 21, 10));  // Saturday
    addEntry(DateTime::fromParts(2026, 11, 22, 9), DateTime::fromParts(2026, 11, 22, 11));  // Sunday
    addEntry(DateTime::fromParts(2026, 11, 28, 9), DateTime::fromParts(2026, 11, 28, 13));  // Saturday
    addEntry(DateTime::fromParts(2026, 11, 29, 9), DateTime::fromParts(2026, 11, 29, 17));  // Sunday
    EXPECT_DOUBLE_EQ(GetWeekHours(s(), kAnn, kDay), 6.0);
    s().settings.firstdayofweek = "monday";
    EXPECT_DOUBLE_EQ(GetWeekHours(s(), kAnn, kDay), 12.0);
    s().currentSchedule = "Week 2";
    EXPECT_DOUBLE_EQ(GetWeekHours(s(), kAnn, kDay), 0.0);
}

TEST(EntryTimesTest, AnEndBeforeTheStartFallsOnTheNextDay) {
    struct Case {
        int sh, sm, eh, em;
        DateTime start, end;
    };
    const Case cases[] = {
        {22, 0, 2, 0, at(0, 22), at(1, 2)},    {9, 0, 17, 0, at(0, 9), at(0, 17)},
        {9, 0, 9, 0, at(0, 9), at(0, 9)},      {0, 0, 0, 0, at(0, 0), at(0, 0)},
        {9, 0, 8, 59, at(0, 9), at(1, 8, 59)}, {23, 30, 0, 0, at(0, 23, 30), at(1, 0)},
    };
    for (const Case& c : cases) {
        const EntryTimes t = buildEntryTimes(kDay, c.sh, c.sm, c.eh, c.em);
        EXPECT_EQ(t.start, c.start) << c.sh << ":" << c.sm;
        EXPECT_EQ(t.end, c.end) << c.eh << ":" << c.em;
    }
}

// ---------------------------------------------------------------------------------------------
// Alerts and the editor's warnings.

TEST_F(EntryRulesTest, TheTwelveHourAlertComparesTheRoundedLength) {
    long h = -1;
    EXPECT_TRUE(AlertShiftOver12Hours(s(), at(0, 8), at(0, 20, 30), h));
    EXPECT_EQ(h, 12);
    EXPECT_TRUE(ui.messages.empty());

    ui.answer(MsgAnswer::No);
    EXPECT_FALSE(AlertShiftOver12Hours(s(), at(0, 8), at(0, 21, 30), h));
    EXPECT_EQ(h, 14);
    EXPECT_EQ(ui.messages, (Messages{{"This schedule entry is 14.00 hrs long, starting 11/23/2026 8:00:00 AM and "
                                      "ending 11/23/2026 9:30:00 PM. Is this correct?",
                                      MsgButtons::YesNo, MsgIcon::Information, ""}}));

    s().settings.gb_AlertShiftOver12Hours = false;
    EXPECT_TRUE(AlertShiftOver12Hours(s(), at(0, 8), at(1, 8), h));
    EXPECT_EQ(h, 0);
    EXPECT_EQ(ui.messages.size(), 1u);
}

TEST_F(EntryRulesTest, TheDoubleShiftAlertAsksAboutTheDaysRoundedHours) {
    long d = -1;
    addEntry(at(-1, 22), at(0, 8));  // yesterday's: not today's hours
    addEntry(at(0, 6), at(0, 6, 30));
    EXPECT_TRUE(AlertDoubleShift(s(), kAnn, kDay, "Double Shift Alert", d));
    EXPECT_EQ(d, 0);
    EXPECT_TRUE(ui.messages.empty());

    addEntry(at(0, 7), at(0, 11));
    ui.answer(MsgAnswer::No);
    EXPECT_FALSE(AlertDoubleShift(s(), kAnn, kDay, "Double Shift Alert", d));
    EXPECT_EQ(d, 4);
    EXPECT_EQ(ui.messages, (Messages{{"Employee is already scheduled for 04.00 hours today. Continue?",
                                      MsgButtons::YesNo, MsgIcon::Question, "Double Shift Alert"}}));

    s().settings.gb_AlertDoubleShifts = false;
    EXPECT_TRUE(AlertDoubleShift(s(), kAnn, kDay, "Daily Schedule", d));
    EXPECT_EQ(d, 0);
    EXPECT_EQ(ui.messages.size(), 1u);
}

TEST_F(EntryRulesTest, TheOvertimeAlertsCompareTheWeekAndTheQuickAddsSum) {
    // 40.5 hours in the week: rounded to 40, not over the threshold.
    for (int day = 0; day < 5; ++day) addEntry(at(day - 1, 8), at(day - 1, 16));
    addEntry(at(4, 8), at(4, 8, 30));
    long w = -1;
    EXPECT_TRUE(AlertOvertime(s(), kAnn, kDay, "Overtime Alert", w));
    EXPECT_EQ(w, 40);
    EXPECT_TRUE(ui.messages.empty());

    // The quick add adds the entry and the earlier alert's figure; the figure shown is still the week's.
    EXPECT_TRUE(AlertOvertimeWithSum(s(), kAnn, kDay, "Overtime Alert", 0, 0, w));
    EXPECT_TRUE(ui.messages.empty());
    ui.answer(MsgAnswer::No);
    EXPECT_FALSE(AlertOvertimeWithSum(s(), kAnn, kDay, "Overtime Alert", 0, 1, w));
    EXPECT_EQ(ui.messages, (Messages{{"Employee already scheduled for 40.00 hours this week. Continue?",
                                      MsgButtons::YesNo, MsgIcon::Exclamation, "Overtime Alert"}}));

    addEntry(at(4, 9), at(4, 10));  // 41.5 -> 42
    ui.clear();
    EXPECT_TRUE(AlertOvertime(s(), kAnn, kDay, "Daily Schedule", w, MsgIcon::None));
    EXPECT_TRUE(AlertOvertimeWithSum(s(), kAnn, kDay, "Overtime Alert", 8, 8, w));
    EXPECT_EQ(w, 42);
    ASSERT_EQ(ui.messages.size(), 2u);
    for (const auto& m : ui.messages)
        EXPECT_EQ(m.text, "Employee is already scheduled for 42.00 hours this week. Continue?");
    EXPECT_EQ(ui.messages[0].icon, MsgIcon::None);

    s().settings.gi_OvertimeThreshold = 60;
    ui.clear();
    EXPECT_TRUE(AlertOvertimeWithSum(s(), kAnn, kDay, "Overtime Alert", 10, 8, w));
    EXPECT_TRUE(ui.messages.empty());
    s().settings.gi_OvertimeThreshold = 0;
    s().settings.gb_AlertForOvertime = false;
    EXPECT_TRUE(AlertOvertime(s(), kAnn, kDay, "Overtime Alert", w));
    EXPECT_TRUE(AlertOvertimeWithSum(s(), kAnn, kDay, "Overtime Alert", 8, 8, w));
    EXPECT_EQ(w, 0);
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(EntryRulesTest, TheEditorWarnsAboutZeroLengthAndLongEntriesAtMidnight) {
    const std::string zero = "The start time is equal to the end time, this shift is 0 hours long, is this correct?";
    const std::string midnight =
        "Note: 12:00 AM is 12 midnight not 12 noon. You've just entered a shift longer than 12 hours, is this "
        "correct?";
    struct Case {
        DateTime start, end;
        std::string text;
    };
    const Case cases[] = {
        {at(0, 9), at(0, 9), zero}, {at(0, 0), at(0, 0), zero},         {at(0, 0), at(0, 13), midnight},
        {at(0, 0), at(0, 12), ""},  {at(0, 0), at(0, 12, 1), midnight}, {at(0, 11), at(1, 0), midnight},
        {at(0, 9), at(0, 22), ""},  {at(0, 0, 30), at(0, 14), ""},
    };
    for (const Case& c : cases) {
        ui.clear();
        if (!c.text.empty()) ui.answer(MsgAnswer::No);
        EXPECT_EQ(ConfirmMidnightAndZeroLength(s(), c.start, c.end), c.text.empty()) << c.start.toIso();
        if (c.text.empty()) {
            EXPECT_TRUE(ui.messages.empty()) << c.start.toIso();
            continue;
        }
        ASSERT_EQ(ui.messages.size(), 1u);
        EXPECT_EQ(ui.messages[0].text, c.text);
        EXPECT_EQ(ui.messages[0].title, "Edit Schedule Entry");
        EXPECT_EQ(ui.messages[0].buttons, MsgButtons::YesNo);
    }
}

}  // namespace
}  // namespace tallymere::testing

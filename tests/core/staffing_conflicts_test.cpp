#include "staffing/check_conflicts.h"
#include "staffing_fixture.h"

#include <algorithm>
#include <random>

namespace tallymere::testing {
namespace {

using common::Date;
using common::DateTime;
using staffing::CheckConflicts;
using staffing::RepairEndtimes;

class ConflictFinder : public StaffingTest {
protected:
    static std::vector<std::string> rows(const CheckConflicts& w) {
        std::vector<std::string> out;
        for (const auto& r : w.ConflictGrid) out.push_back(std::to_string(r.schedid) + " " + r.conflict);
        return out;
    }
};

TEST_F(ConflictFinder, OneEntryCanBreakAllThreeRulesAndAnOverlapListsBothEntries) {
    const long a = addEntry(kSam, at(23, 9), at(23, 17));
    const long b = addEntry(kSam, at(23, 16), at(23, 20));
    addLeave(kSam);
    setAvailability(kSam, kDay, std::string(24, 'N'));
    addEntry(-1, at(23, 9), at(23, 17));  // never looked at

    CheckConflicts w(s());
    // Entries of one day come in no set order; each keeps its three rows together.
    auto got = rows(w);
    if (!got.empty() && got.front().rfind(std::to_string(b) + " ", 0) == 0)
        std::rotate(got.begin(), got.begin() + 3, got.end());
    EXPECT_EQ(got,
              (std::vector<std::string>{std::to_string(a) + " Leave", std::to_string(a) + " Availability",
                                        std::to_string(a) + " Overlaped time", std::to_string(b) + " Leave",
                                        std::to_string(b) + " Availability", std::to_string(b) + " Overlaped time"}));
    EXPECT_EQ(w.Label2, "6 schedule conflicts found");
    EXPECT_EQ(w.Label1, "Schedule Conflicts for Monday, November 23, 2026");
    EXPECT_EQ(w.ConflictGrid[0].name, "Sample, Sam");
    EXPECT_EQ(w.ConflictGrid[0].day, "11/23/2026");
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(ConflictFinder, AnOvernightEntryClashesWithTheNextDaysEarlyEntry) {
    const long night = addEntry(kSam, at(23, 22), at(24, 6), "Week 1", "Cook", "Night");
    const long early = addEntry(kSam, at(24, 5), at(24, 9));
    addEntry(kSam, at(25, 6), at(25, 9));  // touches nothing
    CheckConflicts w(s());
    // The day alone: the overnight entry already runs into the next day's.
    EXPECT_EQ(rows(w), std::vector<std::string>{std::to_string(night) + " Overlaped time"});
    w.weekoption_Click();
    EXPECT_EQ(w.startdate, common::Date::fromYmd(2026, 11, 22));
    EXPECT_EQ(w.enddate, common::Date::fromYmd(2026, 11, 28));
    // Latest day first.
    EXPECT_EQ(rows(w), (std::vector<std::string>{std::to_string(early) + " Overlaped time",
                                                 std::to_string(night) + " Overlaped time"}));
    EXPECT_EQ(w.Label1, "Schedule Conflicts from Sunday, November 22, 2026 to Saturday, November 28, 2026");
}

TEST_F(ConflictFinder, AllSchedulesListsOtherFilesAndTheirClashesWithTheOpenOne) {
    addEntry(kSam, at(23, 9), at(23, 17));
    const long other = addEntry(kSam, at(23, 12), at(23, 20), "Week 2");
    CheckConflicts w(s());
    EXPECT_EQ(w.Label2, "No schedule conflicts found");
    s().settings.gb_CheckConflictAllSchedules = true;
    w.RefreshButton_Click();
    // The overlap is looked for in the open file, so the other file's entry is the one listed.
    EXPECT_EQ(rows(w), std::vector<std::string>{std::to_string(other) + " Overlaped time"});
    EXPECT_EQ(w.Label2, "1 schedule conflict found");
}

TEST_F(ConflictFinder, RangeDatesAreCheckedFirst) {
    addEntry(kSam, at(23, 9), at(23, 17));
    addEntry(kSam, at(23, 10), at(23, 11));
    CheckConflicts w(s());
    const auto before = w.ConflictGrid.size();
    w.startdate = kDay.addDays(1);
    w.enddate = kDay;
    w.rangeoption_Click();
    EXPECT_EQ(ui.messages.back().text, "The Start Date must be less than the End Date.");
    EXPECT_EQ(ui.messages.back().title, "Check Conflicts");
    EXPECT_EQ(w.ConflictGrid.size(), before);

    w.startdate = common::Date::fromYmd(2025, 11, 23);  // exactly a year
    w.enddate = kDay;
    EXPECT_TRUE(w.RefreshButton_Click());
    w.startdate = common::Date::fromYmd(2025, 11, 22);
    EXPECT_FALSE(w.RefreshButton_Click());
    EXPECT_EQ(ui.messages.back().text, "The date range can not be longer than one year.");

    w.startdate = w.enddate = kDay;  // equal dates are a range
    EXPECT_TRUE(w.RefreshButton_Click());
    EXPECT_EQ(w.ConflictGrid.size(), 2u);
    EXPECT_EQ(w.Label1, "Schedule Conflicts from Monday, November 23, 2026 to Monday, November 23, 2026");
}

// The window answers from the range read once; the entry rules asked one by one must agree on
// every row, whatever the data holds.
TEST_F(ConflictFinder, AnswersFromMemoryEqualTheEntryRulesAskedOneByOne) {
    std::mt19937 rng(7);
    store::Transaction tx(s());  // one commit for the whole set-up
    std::vector<long> people{kSam};
    for (int i = 0; i < 5; ++i) people.push_back(addPerson("P" + std::to_string(i), "F"));
    const char* files[] = {"Week 1", "Week 1", "Week 2"};
    for (int i = 0; i < 160; ++i) {
        const long p = people[rng() % people.size()];
        const int day = 20 + static_cast<int>(rng() % 12);
        // Even hours near midnight, so that entries often touch exactly at the day's edge.
        static const int kFrom[] = {0, 2, 4, 6, 14, 16, 18, 20, 22};
        const int from = kFrom[rng() % 9];
        const int length = 2 * static_cast<int>(rng() % 6);  // 0 to 10 hours
        const DateTime start = DateTime::fromParts(2026, 11, day, from, rng() % 5 == 0 ? 30 : 0);
        addEntry(p, start, start.addHours(length), files[rng() % 3]);
    }
    ASSERT_TRUE(store::UdateRecs(s(), "update sched set endtime=null where schedid in (3,9)"));
    for (long p : people) {
        if (rng() % 3 == 0) continue;
        for (int d = 0; d < 7; ++d) {
            std::string hours(24, 'Y');
            for (auto& h : hours)
                if (rng() % 4 == 0) h = 'N';
            if (rng() % 4 == 0) hours = std::string(24, 'Y');
            setAvailability(p, kDay.addDays(d), hours);
        }
        addLeave(p, kDay.addDays(static_cast<int>(rng() % 12) - 3), rng() % 2 ? "Sick" : "Vacation");
    }
    ASSERT_TRUE(store::UdateRecs(s(), "update availability set sday=lower(sday) where personid=?", {people[1]}));
    ASSERT_TRUE(tx.commit());

    for (bool all : {false, true}) {
        s().settings.gb_CheckConflictAllSchedules = all;
        CheckConflicts fast(s()), literal(s());
        literal.literal = true;
        for (CheckConflicts* w : {&fast, &literal}) {
            w->startdate = Date::fromYmd(2026, 11, 19);
            w->enddate = Date::fromYmd(2026, 12, 2);
            w->rangeoption_Click();
        }
        EXPECT_GT(literal.ConflictGrid.size(), 20u);
        EXPECT_EQ(rows(fast), rows(literal)) << "all schedules " << all;
    }
}

class EntryRepair : public StaffingTest {};

TEST_F(EntryRepair, MovesEndsBeforeTheirStartToTheNextDayOnce) {
    const long broken = addEntry(kSam, at(23, 22), at(23, 6), "Week 1", "Cook", "Night");
    addEntry(kSam, at(24, 22), at(25, 6), "Week 1", "Cook", "Night");  // already right
    RepairEndtimes w(s());
    ASSERT_EQ(w.Grid1.size(), 1u);
    EXPECT_EQ(w.Grid1[0].schedid, broken);
    EXPECT_EQ(w.Grid1[0].sname, "Week 1");

    EXPECT_TRUE(w.Repair_Click());
    EXPECT_TRUE(w.Grid1.empty());
    EXPECT_EQ(column(s(), "select strttime||' '||endtime from sched order by schedid"),
              (std::vector<std::string>{"2026-11-23 22:00:00 2026-11-24 06:00:00",
                                        "2026-11-24 22:00:00 2026-11-25 06:00:00"}));
    EXPECT_FALSE(w.Repair_Click());
    EXPECT_EQ(ui.messages.back().text, "No problems found.");
    EXPECT_EQ(ui.messages.back().title, "Repair Schedule (EndDates)");
}

}  // namespace
}  // namespace tallymere::testing

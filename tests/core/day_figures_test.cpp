#include "payroll/day_figures.h"

#include "store/database.h"
#include "support/schedule_test.h"

#include <string>

namespace tallymere::testing {
namespace {

using common::Date;
using common::DateTime;
using payroll::DayReads;

class DayFiguresTest : public ScheduleTest {
protected:
    // Each figure by both ways of reading, which must agree.
    double GetDailyLaborCost(common::Session& s, Date day) {
        const double batched = payroll::GetDailyLaborCost(s, day, DayReads::Batched);
        EXPECT_DOUBLE_EQ(batched, payroll::GetDailyLaborCost(s, day, DayReads::PerRow));
        return batched;
    }
    double GetDailyHours(common::Session& s, Date day) {
        const double batched = payroll::GetDailyHours(s, day, DayReads::Batched);
        EXPECT_DOUBLE_EQ(batched, payroll::GetDailyHours(s, day, DayReads::PerRow));
        return batched;
    }
    long addPerson(const std::string& lname, const store::Value& rate, bool active = true) {
        EXPECT_TRUE(store::InsertRecs(s(), "insert into person (lname,active,hourlyrate) values(?,?,?)",
                                      {lname, active, rate}));
        return lastId(s(), "person", "personid");
    }
    // `minutes` from `hour`; negative minutes end before the start.
    void addEntry(long personid, int hour, int minutes, Date day = kDay, const std::string& sname = "Week 1") {
        const DateTime start = DateTime::at(day, hour);
        ScheduleTest::addEntry(personid, start, start.addMinutes(minutes), sname, "Waiter");
    }
};

TEST_F(DayFiguresTest, UnassignedAndInactiveCostNothingButInactiveCountInHours) {
    addEntry(-1, 9, 8 * 60);
    EXPECT_EQ(GetDailyLaborCost(s(), kDay), 0.0);
    EXPECT_EQ(GetDailyHours(s(), kDay), 0.0);

    addEntry(addPerson("Gone", "20", false), 9, 8 * 60);
    addEntry(addPerson("Here", "10"), 9, 4 * 60);
    EXPECT_DOUBLE_EQ(GetDailyLaborCost(s(), kDay), 40.0);
    EXPECT_DOUBLE_EQ(GetDailyHours(s(), kDay), 12.0);
}

TEST_F(DayFiguresTest, HoursKeepTheirFractionCrossMidnightAndNegativeEntriesCostNothing) {
    const long cook = addPerson("Cook", "$12.00");
    addEntry(cook, 9, 7 * 60 + 30);
    addEntry(cook, 22, 8 * 60);  // ends at 06:00 the next day
    addEntry(cook, 17, 20);
    EXPECT_DOUBLE_EQ(GetDailyHours(s(), kDay), 7.5 + 8 + 20.0 / 60);
    addEntry(cook, 18, -3 * 60);
    EXPECT_DOUBLE_EQ(GetDailyLaborCost(s(), kDay), 12.0 * (7.5 + 8 + 20.0 / 60));
}

TEST_F(DayFiguresTest, OnlyTheEmployeesOwnRateAndOnlyTheDayOfTheCurrentFileCount) {
    const long paid = addPerson("Paid", "10");
    // Neither a qualification rate nor the position's base rate is consulted.
    ASSERT_TRUE(store::InsertRecs(
        s(), "insert into qualifications (personid,position,hourlyrate) values(?,'Waiter','99')", {paid}));
    ASSERT_TRUE(store::InsertRecs(s(), "insert into position (title,baserate) values('Waiter','50')"));
    for (long id : {paid, addPerson("Blank", ""), addPerson("None", nullptr)}) addEntry(id, 9, 60);
    addEntry(paid, 9, 120, kDay.addDays(1));
    addEntry(paid, 9, 240, kDay, "Week 2");
    addEntry(paid, 9, 480, kDay, "*undo*");
    EXPECT_DOUBLE_EQ(GetDailyLaborCost(s(), kDay), 10.0);
    EXPECT_DOUBLE_EQ(GetDailyHours(s(), kDay), 3.0);
    s().currentSchedule = "week 2";
    EXPECT_DOUBLE_EQ(GetDailyHours(s(), kDay), 4.0);
}

TEST_F(DayFiguresTest, TheStatementsAreEachPreparedOnce) {
    const long cook = addPerson("Cook", "10");
    for (int i = 0; i < 20; ++i) addEntry(cook, i % 12, 30);
    GetDailyHours(s(), kDay);
    GetDailyLaborCost(s(), kDay);
    const auto prepared = store::db(s()).preparedCount();
    EXPECT_DOUBLE_EQ(GetDailyHours(s(), kDay), 10.0);
    EXPECT_DOUBLE_EQ(GetDailyLaborCost(s(), kDay), 100.0);
    EXPECT_EQ(store::db(s()).preparedCount(), prepared);
}

}  // namespace
}  // namespace tallymere::testing

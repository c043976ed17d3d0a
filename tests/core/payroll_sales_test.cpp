#include "payroll/payroll_sales.h"
#include "payroll/hours_shifts.h"

#include "payroll_fixture.h"

namespace tallymere::testing {
namespace {

using common::Date;
using common::MsgAnswer;
using payroll::AddSalesForm;
using payroll::hoursshifts;
using payroll::PayrollwithSales;
using Rows = std::vector<std::vector<std::string>>;

class SalesTest : public PayrollTest {
protected:
    void SetUp() override {
        PayrollTest::SetUp();
        business();
        ASSERT_TRUE(
            store::InsertRecs(s(), "insert into daynote (sday,dailysales,sname) values(?,?,'Week 1')", {kDay, 400.0}));
    }
    Rows build(int rates, int days = 2) {
        window = std::make_unique<PayrollwithSales>(s(), flags);
        window->daterangeoption_Click();
        window->enddate = kDay.addDays(days - 1);
        if (rates == 1) window->overrideoption = true, window->primaryonlyoption = false;
        if (rates == 2) window->baseoption = true, window->primaryonlyoption = false;
        EXPECT_TRUE(window->refreshbutton_Click());
        return texts(window->paylistview);
    }
    payroll::PayrollFlags flags;
    std::unique_ptr<PayrollwithSales> window;
};

TEST_F(SalesTest, EachRatePolicyAgainstTheDaysSales) {
    EXPECT_EQ(build(0), (Rows{{"11/23/2026", "19.00", "$200.00", "$400.00", "50%"},
                              {"11/24/2026", "00.00", "$0.00", "", "0%"},
                              {"Total", "19.00", "$200.00", "$400.00", "50%"}}));
    EXPECT_EQ(window->heading, "Payroll Estimate with Sales (Employee rates)");
    EXPECT_EQ(build(1)[0], (std::vector<std::string>{"11/23/2026", "19.00", "$225.00", "$400.00", "56%"}));
    EXPECT_EQ(build(2)[0], (std::vector<std::string>{"11/23/2026", "19.00", "$177.00", "$400.00", "44%"}));
    EXPECT_EQ(window->heading, "Payroll Estimate with Sales (base rates)");

    // Labor above sales shows as it is; sales of 0 give 0%.
    ASSERT_TRUE(store::UdateRecs(s(), "update daynote set dailysales=100"));
    EXPECT_EQ(build(0)[0][4], "200%");
    ASSERT_TRUE(store::UdateRecs(s(), "update daynote set dailysales=0"));
    EXPECT_EQ(build(0)[0][4], "0%");
    ASSERT_TRUE(store::UdateRecs(s(), "update daynote set dailysales='n/a'"));
    EXPECT_EQ(build(0)[0][3], "");
}

TEST_F(SalesTest, AnEmployeeDeletedSinceCostsNothingAndSaysNothing) {
    ASSERT_TRUE(store::DeleteRecs(s(), "delete from person where personid=?", {ann}));
    EXPECT_EQ(build(0, 1)[0], (std::vector<std::string>{"11/23/2026", "13.00", "$100.00", "$400.00", "25%"}));
    // By all rates the entries stay: her Server hours at the base rate, her Cook hours at the
    // qualification rate left behind.
    EXPECT_EQ(build(1, 1)[0], (std::vector<std::string>{"11/23/2026", "19.00", "$197.00", "$400.00", "49%"}));
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(SalesTest, AYearAndADayAsksAndCancelLeavesTheListAsItWas) {
    build(0);
    ui.answer(MsgAnswer::Cancel);
    window->enddate = kDay.addDays(365);
    EXPECT_FALSE(window->refreshbutton_Click());
    EXPECT_EQ(ui.messages.back().text, "There is a 365 day limit.");
    EXPECT_EQ(window->paylistview.rows.size(), 3u);
    EXPECT_TRUE(window->refreshbutton_Click());  // OK goes on with the whole range
    EXPECT_EQ(window->paylistview.rows.size(), 367u);

    window->enddate = kDay.addDays(-1);
    EXPECT_FALSE(window->refreshbutton_Click());
    EXPECT_TRUE(ui.shown("The start date cannot be greater than the end date."));
}

TEST_F(SalesTest, SalesOfAWeekAreKeptInDayNotes) {
    AddSalesForm f(s());
    EXPECT_EQ(f.WeekofDate, Date::fromYmd(2026, 11, 22));
    EXPECT_EQ(f.day[1], "Mon Nov 23, 2026");
    EXPECT_EQ(f.Sales[1], "$400.00");
    EXPECT_EQ(f.Sales[0], "");

    // Keys: one decimal point, two digits behind it.
    f.Sales[2] = "12.3";
    EXPECT_TRUE(f.Sales_KeyPress(2, '4'));
    f.Sales[2] = "12.34";
    EXPECT_FALSE(f.Sales_KeyPress(2, '5'));
    EXPECT_FALSE(f.Sales_KeyPress(2, '.'));
    EXPECT_FALSE(f.Sales_KeyPress(2, 'a'));
    EXPECT_TRUE(f.Sales_KeyPress(2, '\b'));
    EXPECT_EQ(ui.beeps, 3);

    // Letters that got in anyway: the message, and nothing written.
    f.Sales_Change(2, "12a");
    EXPECT_FALSE(f.OKButton_Click());
    EXPECT_EQ(ui.messages.back().text, "The sales of Tue Nov 24, 2026 are not a number.");
    EXPECT_EQ(column(s(), "select count(*) from daynote"), (std::vector<std::string>{"1"}));

    f.Sales_Change(2, "1250.5");
    f.Sales_LostFocus(2);
    EXPECT_EQ(f.Sales[2], "$1,250.50");
    f.Sales_Change(1, "");
    EXPECT_TRUE(f.OKButton_Click());
    EXPECT_EQ(column(s(), "select dailysales from daynote where sday=?", {kDay.addDays(1)}),
              (std::vector<std::string>{"1250.5"}));
    EXPECT_EQ(column(s(), "select dailysales from daynote where sday=?", {kDay}), (std::vector<std::string>{"<null>"}));

    // Another week with a pending change asks first; No drops it.
    f.Sales_Change(3, "5");
    ui.answer(MsgAnswer::No);
    EXPECT_TRUE(f.WeekofDate_Change(kDay.addDays(7)));
    EXPECT_EQ(ui.messages.back().text, "Save sales data?");
    EXPECT_EQ(f.WeekofDate, Date::fromYmd(2026, 11, 29));
    EXPECT_EQ(column(s(), "select count(*) from daynote where dailysales=5"), (std::vector<std::string>{"0"}));
}

TEST_F(SalesTest, HoursAndShiftsPerEmployee) {
    hoursshifts w(s());
    ASSERT_TRUE(w.RefreshButton_Click());
    EXPECT_EQ(texts(w.leavelistview),
              (Rows{{"Able, Ann", "6.00", "2"}, {"Baker, Bob", "5.00", "2"}, {"Sample, Sam", "8.00", "1"}}));
    EXPECT_EQ(w.heading, "Employee hours and shift totals 11/23/2026");

    // A leap February ends on the 29th; nobody works then, and everybody stays listed.
    w.period = hoursshifts::Period::Month;
    w.startdate = Date::fromYmd(2028, 2, 10);
    ASSERT_TRUE(w.RefreshButton_Click());
    EXPECT_EQ(w.enddate, Date::fromYmd(2028, 2, 29));
    EXPECT_EQ(texts(w.leavelistview)[0], (std::vector<std::string>{"Able, Ann", "0.00", "0"}));
    EXPECT_EQ(w.heading, "Employee hours and shift totals 2/1/2028  to  2/29/2028");

    w.period = hoursshifts::Period::Year;
    w.startdate = kDay;
    w.personcomboIndex = 2;  // Baker, Bob
    ASSERT_TRUE(w.RefreshButton_Click());
    EXPECT_EQ(w.startdate, Date::fromYmd(2026, 1, 1));
    EXPECT_EQ(w.enddate, Date::fromYmd(2026, 12, 31));
    EXPECT_EQ(texts(w.leavelistview), (Rows{{"Baker, Bob", "5.00", "2"}}));

    w.period = hoursshifts::Period::Range;
    w.enddate = w.startdate.addDays(-1);
    EXPECT_FALSE(w.RefreshButton_Click());
    EXPECT_TRUE(ui.shown("The start date cannot be greater than the end date."));
}

}  // namespace
}  // namespace tallymere::testing

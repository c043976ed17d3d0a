#include "payroll/payroll_overtime.h"

#include "payroll_fixture.h"
#include "reports/font_metrics.h"

namespace tallymere::testing {
namespace {

using common::Date;
using payroll::PayrollwithOvertime;
using payroll::ReportWeeklyPayroll;
using Rows = std::vector<std::vector<std::string>>;

class WeeklyPayrollTest : public PayrollTest {
protected:
    // Cy works 10 hours a day, Monday to Friday of the first week (50) and Monday to Wednesday of the
    // next (30), at 10; Di has no rate and one 8-hour night from the first week's Saturday into Sunday.
    void SetUp() override {
        PayrollTest::SetUp();
        cy = person("Cole", "Cy", "Cook", "10");
        di = person("Dunn", "Di", "Cook", nullptr);
        ASSERT_TRUE(store::UdateRecs(s(), "update person set active=0 where personid=1"));
        for (int d = 0; d < 5; ++d) work(cy, "Cook", 8, 0, 600, kDay.addDays(d));
        for (int d = 7; d < 10; ++d) work(cy, "Cook", 8, 0, 600, kDay.addDays(d));
        work(di, "Cook", 22, 0, 480, Date::fromYmd(2026, 11, 28));
    }
    long cy = 0, di = 0;
};

TEST_F(WeeklyPayrollTest, OvertimeListSplitsByTheCalendarWeek) {
    PayrollwithOvertime w(s());
    EXPECT_EQ(w.WeekLabel, "Sun Nov 22, 2026 - Sat Nov 28, 2026");
    ASSERT_TRUE(w.refreshbutton_Click());
    EXPECT_EQ(texts(w.paylistview), (Rows{{"Cole, Cy", "50.00", "5", "$550.00"},
                                          {"Dunn, Di", "8.00", "1", "$0.00"},
                                          {"Total", "58.00", "6", "$550.00"}}));
    EXPECT_EQ(w.heading, "Payroll with Overtime Sun Nov 22, 2026 - Sat Nov 28, 2026");

    // The label follows the date at once, the list only at refresh.
    w.startdate_Change(kDay.addDays(7));
    EXPECT_EQ(w.WeekLabel, "Sun Nov 29, 2026 - Sat Dec 05, 2026");
    EXPECT_EQ(w.total, "$550.00");
    w.refreshbutton_Click();
    EXPECT_EQ(w.total, "$300.00");

    // A negative entry is ignored here.
    work(cy, "Cook", 20, 0, -120, kDay.addDays(7));
    w.refreshbutton_Click();
    EXPECT_EQ(texts(w.paylistview)[0], (std::vector<std::string>{"Cole, Cy", "30.00", "4", "$300.00"}));
}

TEST_F(WeeklyPayrollTest, WeeklyReportHasATableAWeekAndTotals) {
    ReportWeeklyPayroll r(s());
    EXPECT_EQ(r.StartDate, Date::fromYmd(2026, 11, 22));
    r.NWeeks = "2";
    ASSERT_TRUE(r.refreshbutton_Click());
    ASSERT_EQ(r.tables.size(), 3u);
    EXPECT_EQ(r.tables[0].title, "Weekly Payroll Report - Sun Nov 22, 2026 to Sat Nov 28, 2026");
    // The whole overtime hours at the factor, the night counted on its Saturday, no rate gives $0.00.
    EXPECT_EQ(texts(r.tables[0].rows), (Rows{{"Cole, Cy", "50.00", "5", "$10.00", "$400.00", "$150.00", "$550.00"},
                                             {"Dunn, Di", "8.00", "1", "$0.00", "$0.00", "$0.00", "$0.00"},
                                             {"Total", "58.00", "6", "", "$400.00", "$150.00", "$550.00"}}));
    EXPECT_EQ(texts(r.tables[1].rows)[0],
              (std::vector<std::string>{"Cole, Cy", "30.00", "3", "$10.00", "$300.00", "$0.00", "$300.00"}));
    EXPECT_EQ(r.tables[2].title, "Payroll Totals from - Sun Nov 22, 2026 to Sat Dec 05, 2026");
    // 40 plus 30 regular hours: nothing carries over between weeks.
    EXPECT_EQ(texts(r.tables[2].rows)[0],
              (std::vector<std::string>{"Cole, Cy", "80.00", "8", "$10.00", "$700.00", "$150.00", "$850.00"}));

    // A negative entry lowers the hours here.
    work(cy, "Cook", 20, 0, -120, kDay.addDays(7));
    r.refreshbutton_Click();
    EXPECT_EQ(texts(r.tables[1].rows)[0][1], "28.00");

    r.NWeeks = "1";
    r.refreshbutton_Click();
    EXPECT_EQ(r.tables.size(), 1u);
}

TEST_F(WeeklyPayrollTest, WeeksAreLimitedAndTheDocumentIsComposed) {
    ReportWeeklyPayroll r(s());
    r.NWeeks = "53";
    EXPECT_FALSE(r.refreshbutton_Click());
    EXPECT_TRUE(ui.shown("Number of weeks must be less than 53"));
    r.NWeeks = "0";
    EXPECT_FALSE(r.refreshbutton_Click());
    EXPECT_TRUE(ui.shown("Startdate must be before enddate"));
    EXPECT_FALSE(r.NWeeks_KeyPress('.'));

    r.NWeeks = "52";
    reports::FixedPitchMetrics metrics;
    reports::Surface vp(metrics);
    ASSERT_TRUE(r.refreshbutton_Click(&vp));
    EXPECT_EQ(r.tables.size(), 53u);
    ASSERT_NE(vp.document(), nullptr);
    EXPECT_GE(vp.PageCount(), 53);
    EXPECT_EQ(ui.messages.size(), 2u);  // the two refusals; the key only beeped
    EXPECT_EQ(ui.beeps, 1);
}

}  // namespace
}  // namespace tallymere::testing

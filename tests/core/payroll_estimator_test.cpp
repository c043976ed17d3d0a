#include "payroll/payroll_estimator.h"

#include "payroll_fixture.h"

#include <sstream>

namespace tallymere::testing {
namespace {

using payroll::payrollestimator;
using Rows = std::vector<std::vector<std::string>>;

class EstimatorTest : public PayrollTest {
protected:
    payrollestimator& open() {
        window = std::make_unique<payrollestimator>(s(), flags);
        return *window;
    }
    Rows build(bool byPosition, int rates) {
        auto& w = open();
        if (byPosition) w.positionOption_Click();
        if (rates == 0) w.primaryonlyoption_Click();
        if (rates == 1) w.overrideoption_Click();
        if (rates == 2) w.baseoption_Click();
        EXPECT_TRUE(w.refreshbutton_Click());
        return texts(w.paylistview);
    }
    payroll::PayrollFlags flags;
    std::unique_ptr<payrollestimator> window;
};

TEST_F(EstimatorTest, EachBuilderGivesItsOwnTableOfTheSameDay) {
    business();
    EXPECT_EQ(build(false, 0), (Rows{{"Able, Ann", "6.00", "2", "$100.00"},
                                     {"Baker, Bob", "5.00", "2", "$0.00"},
                                     {"Sample, Sam", "8.00", "1", "$100.00"},
                                     {"Total", "19.00", "5", "$200.00"}}));
    // Bob's own rate is empty: the base rate of his primary position; his 0 qualification stands.
    EXPECT_EQ(build(false, 1), (Rows{{"Able, Ann", "6.00", "2", "$100.00"},
                                     {"Baker, Bob", "5.00", "2", "$25.00"},
                                     {"Sample, Sam", "8.00", "1", "$100.00"},
                                     {"Total", "19.00", "5", "$225.00"}}));
    EXPECT_EQ(build(false, 2), (Rows{{"Able, Ann", "6.00", "2", "$52.00"},
                                     {"Baker, Bob", "5.00", "2", "$45.00"},
                                     {"Sample, Sam", "8.00", "1", "$80.00"},
                                     {"Total", "19.00", "5", "$177.00"}}));
    // Rows keep whole hours rounded at each entry (12.5 -> 12, 6.5 -> 6); the total the true 19. Bob's
    // 0 qualification falls back to the Server base here.
    EXPECT_EQ(build(true, 1), (Rows{{"Cook", "12.00", "3", "$165.00"},
                                    {"Server", "6.00", "2", "$80.00"},
                                    {"Total", "19.00", "5", "$245.00"}}));
    EXPECT_EQ(build(true, 0), (Rows{{"Cook", "12.00", "3", "$140.00"},
                                    {"Server", "6.00", "2", "$60.00"},
                                    {"Total", "19.00", "5", "$200.00"}}));
    // Shifts here count the unassigned entry too.
    EXPECT_EQ(build(true, 2), (Rows{{"Cook", "12.50", "4", "$125.00"},
                                    {"Server", "6.50", "2", "$52.00"},
                                    {"Total", "19.00", "6", "$177.00"}}));
    EXPECT_EQ(window->heading, "Payroll estimate listed by position for 11/23/2026");
    EXPECT_EQ(window->printHeading(), "Payroll estimate listed by position for 11/23/2026 (base rates only)");
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(EstimatorTest, AQualificationRateRunsOnToTheEmployeesLaterEntries) {
    position("Cook", "10");
    const long ann = person("Able", "Ann", "Server", "15");
    qualification(ann, "Cook", "20");
    work(ann, "Cook", 8, 0, 120);
    work(ann, "Server", 11, 0, 240);  // paid at the Cook rate still
    EXPECT_EQ(build(false, 0)[0], (std::vector<std::string>{"Able, Ann", "6.00", "2", "$120.00"}));
    window->QualRateCheck = false;
    window->refreshbutton_Click();
    EXPECT_EQ(window->paylistview.texts(0)[3], "$90.00");
}

TEST_F(EstimatorTest, OvertimeOnlyInTheOwnRateBuilderAndOverTheWholeRange) {
    position("Cook", "10");
    const long cook = person("Cole", "Cy", "Cook", "10");
    for (int d = 0; d < 5; ++d) work(cook, "Cook", 8, 0, 10 * 60, kDay.addDays(d));  // 50 hours
    auto& w = open();
    w.OvertimeCalcCheck_Click(true);
    EXPECT_TRUE(flags.CalcOvertimeFlag);
    w.weekoption_Click();
    EXPECT_EQ(w.startdate, common::Date::fromYmd(2026, 11, 22));
    w.refreshbutton_Click();
    EXPECT_EQ(w.total, "$550.00");
    EXPECT_EQ(w.heading, "Payroll estimate listed by employee from 11/22/2026  to  11/28/2026");
    w.overrideoption_Click();
    w.refreshbutton_Click();
    EXPECT_EQ(w.total, "$500.00");

    // Two weeks of 30 hours: 60 against the same 40.
    const long other = person("Dunn", "Di", "Cook", "10");
    for (int d = 0; d < 6; ++d) work(other, "Cook", 8, 0, 10 * 60, kDay.addDays(d < 3 ? d : d + 4));
    auto& again = open();  // the check box's state is shared by the windows
    EXPECT_TRUE(again.OvertimeCalcCheck);
    again.personcomboIndex = 2;  // Dunn, Di
    again.daterangeoption_Click();
    again.startdate = common::Date::fromYmd(2026, 11, 22);
    again.enddate = again.startdate.addDays(13);
    again.refreshbutton_Click();
    EXPECT_EQ(again.total, "$700.00");

    // At the threshold exactly, nothing extra.
    s().settings.gi_OvertimeThreshold = 60;
    again.refreshbutton_Click();
    EXPECT_EQ(again.total, "$600.00");
}

TEST_F(EstimatorTest, TwoShortEntriesRoundInTheRowButNotInTheTotal) {
    position("Host", nullptr);
    const long h = person("Hale", "Hy", "Host", "10");
    work(h, "Host", 8, 0, 150);
    work(h, "Host", 12, 0, 150);
    EXPECT_EQ(build(true, 1), (Rows{{"Host", "4.00", "2", "$50.00"}, {"Total", "5.00", "2", "$50.00"}}));
    // No base rate: hours shown, nothing added to the totals.
    EXPECT_EQ(build(true, 2), (Rows{{"Host", "5.00", "2", "$0.00"}, {"Total", "0.00", "2", "$0.00"}}));
}

TEST_F(EstimatorTest, NegativeEntriesAreIgnoredOnlyByTheOwnRateEmployeeBuilder) {
    position("Cook", "10");
    const long c = person("Cole", "Cy", "Cook", "10");
    work(c, "Cook", 8, 0, 240);
    work(c, "Cook", 18, 0, -60);
    EXPECT_EQ(build(false, 0)[0], (std::vector<std::string>{"Cole, Cy", "4.00", "2", "$40.00"}));
    EXPECT_EQ(build(false, 1)[0], (std::vector<std::string>{"Cole, Cy", "3.00", "2", "$30.00"}));
    EXPECT_EQ(build(true, 1)[0], (std::vector<std::string>{"Cook", "3.00", "2", "$30.00"}));
}

TEST_F(EstimatorTest, RefusalsAndMessages) {
    auto& w = open();
    w.overrideoption_Click();
    EXPECT_FALSE(w.refreshbutton_Click());
    EXPECT_TRUE(ui.shown("You must enter and assign positions in order to use this feature."));
    w.positionOption_Click();
    EXPECT_FALSE(w.refreshbutton_Click());
    EXPECT_TRUE(ui.shown("There are no positions entered. The payrole cannot be estimated by position."));
    w.baseoption_Click();
    EXPECT_FALSE(w.QualRateCheck);
    EXPECT_FALSE(w.refreshbutton_Click());
    EXPECT_EQ(ui.messages.back().title, "Payroll Estimator");

    ui.clear();
    w.daterangeoption_Click();
    w.enddate = w.startdate.addDays(-1);
    EXPECT_FALSE(w.refreshbutton_Click());
    EXPECT_TRUE(ui.shown("The start date cannot be greater than the end date."));
    EXPECT_FALSE(ui.busy());

    // A refused 0 is still what the program goes on with; letters never get in.
    EXPECT_FALSE(w.OverTimeFactor_KeyPress('x'));
    EXPECT_EQ(ui.beeps, 1);
    w.OverTimeFactor = "0";
    w.OverTimeFactor_LostFocus();
    EXPECT_TRUE(ui.shown("Overtime factor must be greater than 0"));
    EXPECT_EQ(w.OverTimeFactor, "0.00");
    EXPECT_EQ(s().settings.gd_OvertimeFactor, 0.0);
    EXPECT_EQ(open().OverTimeFactor, "1.00");  // reopened: 0 becomes 1
}

TEST_F(EstimatorTest, ChoicesAreRememberedAndTheRightIsTested) {
    s().settings.gs_PayrollEstRates = "Base";
    auto& w = open();
    EXPECT_TRUE(w.baseoption);
    EXPECT_FALSE(w.QualRateCheck);
    w.primaryonlyoption_Click();
    w.QualRateCheck = false;
    w.Form_Unload();
    EXPECT_EQ(s().settings.gs_PayrollEstRates, "Employee");
    EXPECT_FALSE(s().settings.gb_PayrollEstQuals);

    s().IsUserMode = true;
    s().rights.noPayroll = true;
    EXPECT_EQ(payrollestimator::open(s(), flags), nullptr);
    EXPECT_EQ(ui.messages.size(), 1u);
}

TEST_F(EstimatorTest, SortingKeepsTheTotalLastAndCsvHasPlainNumbers) {
    business();
    auto& w = open();
    w.overrideoption_Click();
    w.refreshbutton_Click();
    w.paylistview.ColumnClick(4);
    EXPECT_EQ(w.paylistview.texts(0)[0], "Baker, Bob");
    w.paylistview.ColumnClick(4);  // again: descending; Ann and Sam keep their order
    EXPECT_EQ(w.paylistview.texts(0)[0], "Able, Ann");
    EXPECT_EQ(w.paylistview.texts(2)[0], "Baker, Bob");
    EXPECT_EQ(w.paylistview.texts(3)[0], "Total");
    EXPECT_EQ(w.paylistview.selectedRow, 3);
    w.paylistview.ColumnClick(9);
    EXPECT_EQ(w.paylistview.sortColumn, 4);

    s().locale.decimalSeparator = ",";
    s().locale.thousandsSeparator = ".";
    s().locale.currencySymbol = "€";
    s().locale.currencySymbolFirst = false;
    w.refreshbutton_Click();
    EXPECT_EQ(w.paylistview.texts(3)[1], "19,00");
    std::ostringstream csv;
    w.paylistview.writeDelimited(csv);
    EXPECT_EQ(csv.str(),
              "Name,Hours,Shifts,Wages\r\n\"Able, Ann\",6.00,2,100.00\r\n\"Baker, Bob\",5.00,2,25.00\r\n"
              "\"Sample, Sam\",8.00,1,100.00\r\nTotal,19.00,5,225.00\r\n");
}

}  // namespace
}  // namespace tallymere::testing

#include "app/payroll/payroll_windows.h"
#include "app/render/preview_widget.h"

#include "reference_fake_context.h"
#include "store/access.h"
#include "support/table_rows.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>
#include <fstream>
#include <sstream>

namespace tallymere::testing {
namespace {

using common::Date;
using common::DateTime;

const Date kMon = Date::fromYmd(2026, 11, 23);

// Sam Sample (12.50 an hour) works 8 hours on Monday and 10 on Tuesday of "Week 1".
class PayrollWindowsTest : public AppDatabaseTest {
protected:
    void SetUp() override {
        AppDatabaseTest::SetUp();
        s().currentSchedule = "Week 1";
        s().activeDate = kMon;
        for (auto [day, hours] : {std::pair{0, 8}, std::pair{1, 10}}) {
            const auto start = DateTime::at(kMon.addDays(day), 8);
            ASSERT_TRUE(
                store::InsertRecs(s(),
                                  "insert into sched (personid,lname,fname,sday,strttime,endtime,position,shift,"
                                  "sname) values(1,'Sample','Sam',?,?,?,'Cook','Day','Week 1')",
                                  {start.date(), start, start.addHours(hours)}));
        }
        context = std::make_unique<FakeContext>(s());
        app::registerPayrollWindows(*context);
    }
    QWidget* open(const char* menu, const char* window) {
        EXPECT_TRUE(context->run(menu));
        QWidget* w = context->findChild(QString::fromLatin1(window));
        EXPECT_NE(w, nullptr) << window;
        return w;
    }
    static std::vector<std::string> row(QTableWidget* grid, int r) {
        std::vector<std::string> out;
        for (int c = 0; c < grid->columnCount(); ++c)
            out.push_back(grid->item(r, c) ? grid->item(r, c)->text().toStdString() : "");
        return out;
    }
    std::unique_ptr<FakeContext> context;
};

TEST_F(PayrollWindowsTest, EstimatorShowsSortsAndSavesItsList) {
    QWidget* w = open("mnupayrollestimator", "payrollestimator");
    ASSERT_NE(w, nullptr);
    EXPECT_EQ(w->windowTitle(), "Payroll Estimator");
    auto* list = named<QTableWidget>(w, "paylistview");
    ASSERT_EQ(list->rowCount(), 2);
    EXPECT_EQ(row(list, 0), (std::vector<std::string>{"Sample, Sam", "8.00", "1", "$100.00"}));
    EXPECT_FALSE(named<QWidget>(w, "enddate")->isEnabled());
    EXPECT_FALSE(named<QWidget>(w, "OverTimeFactor")->isEnabled());

    QTest::mouseClick(named<QRadioButton>(w, "weekoption"), Qt::LeftButton);
    EXPECT_TRUE(named<QWidget>(w, "enddate")->isEnabled());
    QTest::mouseClick(named<QPushButton>(w, "refreshbutton"), Qt::LeftButton);
    EXPECT_EQ(row(list, 1), (std::vector<std::string>{"Total", "18.00", "2", "$225.00"}));
    EXPECT_EQ(named<QLabel>(w, "total")->text(), "$225.00");
    EXPECT_EQ(named<QLabel>(w, "heading")->text(),
              "Payroll estimate listed by employee from 11/22/2026  to  11/28/2026");

    list->horizontalHeader()->sectionClicked(3);
    list->horizontalHeader()->sectionClicked(3);
    EXPECT_EQ(row(list, 1)[0], "Total");

    const std::string file = folder.str() + "/estimate.csv";
    ui.nextFile(file);
    QTest::mouseClick(named<QPushButton>(w, "SaveCsvButton"), Qt::LeftButton);
    std::ifstream in(file, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    EXPECT_EQ(text.str(), "Name,Hours,Shifts,Wages\r\n\"Sample, Sam\",18.00,2,225.00\r\nTotal,18.00,2,225.00\r\n");

    // Without the payroll right the window does not open.
    context->mdi()->closeAllSubWindows();
    QApplication::processEvents();
    s().IsUserMode = true;
    s().rights.noPayroll = true;
    ui.clear();
    EXPECT_TRUE(context->run("mnuPayrollwithOvertime"));
    EXPECT_EQ(context->findChild(QStringLiteral("PayrollwithOvertime")), nullptr);
    EXPECT_EQ(ui.messages.size(), 1u);
}

TEST_F(PayrollWindowsTest, OvertimeSalesAndHoursWindowsShowTheirLists) {
    QWidget* overtime = open("mnuPayrollwithOvertime", "PayrollwithOvertime");
    EXPECT_EQ(named<QLabel>(overtime, "WeekLabel")->text(), "Sun Nov 22, 2026 - Sat Nov 28, 2026");
    EXPECT_EQ(row(named<QTableWidget>(overtime, "paylistview"), 0),
              (std::vector<std::string>{"Sample, Sam", "18.00", "2", "$225.00"}));

    QWidget* sales = open("MnuPayrollwithSales", "PayrollwithSales");
    EXPECT_EQ(row(named<QTableWidget>(sales, "paylistview"), 0),
              (std::vector<std::string>{"11/23/2026", "08.00", "$100.00", "", "0%"}));
    EXPECT_FALSE(named<QWidget>(sales, "baseoption")->isEnabled());  // no positions

    QWidget* hours = open("mnuemployeehoursshifts", "hoursshifts");
    named<QRadioButton>(hours, "monthoption")->click();
    QTest::mouseClick(named<QPushButton>(hours, "RefreshButton"), Qt::LeftButton);
    EXPECT_EQ(row(named<QTableWidget>(hours, "leavelistview"), 0),
              (std::vector<std::string>{"Sample, Sam", "18.00", "2"}));
}

TEST_F(PayrollWindowsTest, WeeklyPayrollComposesItsDocument) {
    QWidget* w = open("mnuweeklypayroll", "ReportWeeklyPayroll");
    auto* vp = named<app::render::PreviewWidget>(w, "vp");
    ASSERT_NE(vp->document(), nullptr);
    auto* weeks = named<QLineEdit>(w, "NWeeks");
    weeks->setText("53");
    QTest::mouseClick(named<QPushButton>(w, "refreshbutton"), Qt::LeftButton);
    EXPECT_TRUE(ui.shown("Number of weeks must be less than 53"));
}

TEST_F(PayrollWindowsTest, SalesAreTypedAndSaved) {
    app::AddSalesDialog dialog(s());
    auto* monday = named<QLineEdit>(&dialog, "Sales1");
    EXPECT_EQ(named<QLabel>(&dialog, "day2")->text(), "Mon Nov 23, 2026");
    QTest::keyClicks(monday, "25x0.505");
    EXPECT_EQ(monday->text(), "250.50");
    QTest::mouseClick(named<QPushButton>(&dialog, "OKButton"), Qt::LeftButton);
    EXPECT_TRUE(ui.shown("Save sales data?"));
    EXPECT_EQ(column(s(), "select dailysales from daynote where sday=?", {kMon}), (std::vector<std::string>{"250.5"}));
}

}  // namespace
}  // namespace tallymere::testing

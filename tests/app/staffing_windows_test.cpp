#include "app/staffing/staffing_windows.h"

#include "app/render/preview_widget.h"

#include "reference_fake_context.h"
#include "store/access.h"
#include "support/table_rows.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>
#include <fstream>
#include <sstream>

namespace tallymere::testing {
namespace {

using common::Date;
using common::DateTime;

const Date kMon = Date::fromYmd(2026, 11, 23);

class StaffingWindowsTest : public AppDatabaseTest {
protected:
    void SetUp() override {
        AppDatabaseTest::SetUp();
        s().currentSchedule = "Week 1";
        s().activeDate = kMon;
        const Date base = Date::fromYmd(1899, 12, 30);
        ASSERT_TRUE(store::InsertRecs(s(), "insert into shift (name,strttime,endtime) values('Day',?,?)",
                                      {DateTime::at(base, 9), DateTime::at(base, 17)}));
        ASSERT_TRUE(store::InsertRecs(s(), "insert into position (title) values('Cook')"));
        context = std::make_unique<FakeContext>(s());
        app::registerStaffingWindows(*context);
    }
    long entry(DateTime start, DateTime end) {
        EXPECT_TRUE(store::InsertRecs(s(),
                                      "insert into sched (personid,lname,fname,sday,strttime,endtime,position,shift,"
                                      "sname) values(1,'Sample','Sam',?,?,?,'Cook','Day','Week 1')",
                                      {start.date(), start, end}));
        return lastId(s(), "sched", "schedid");
    }
    QWidget* open(const char* menu, const char* window) {
        EXPECT_TRUE(context->run(menu));
        QWidget* w = context->findChild(QString::fromLatin1(window));
        EXPECT_NE(w, nullptr) << window;
        return w;
    }
    static std::vector<std::string> gridRow(QTableWidget* grid, int row) {
        std::vector<std::string> out;
        for (int c = 0; c < grid->columnCount(); ++c)
            out.push_back(grid->item(row, c) ? grid->item(row, c)->text().toStdString() : "");
        return out;
    }

    std::unique_ptr<FakeContext> context;
};

TEST_F(StaffingWindowsTest, LevelsAreTypedInTheCellAndWrittenOnLeavingIt) {
    QWidget* w = open("mnusetstaffinglevels", "staffing");
    EXPECT_EQ(w->windowTitle(), "Staffing Levels - Week 1");
    auto* tabs = named<QTabWidget>(w, "SSTab1");
    tabs->setCurrentIndex(1);  // Monday
    auto* numreq = named<QLineEdit>(w, "numreq");
    ASSERT_TRUE(numreq->isVisible());
    QTest::keyClicks(numreq, "3x-");
    EXPECT_EQ(numreq->text(), "3");
    EXPECT_EQ(ui.beeps, 2);
    QTest::keyClick(numreq, Qt::Key_Return);
    EXPECT_EQ(column(s(), "select numreq from staffing where sday=2"), std::vector<std::string>{"3"});
    EXPECT_EQ(column(s(), "select numreq from staffing where sday=3"), std::vector<std::string>{"<null>"});
}

TEST_F(StaffingWindowsTest, AnalysisShowsTheMarksAndSavesTheListAsCsv) {
    ASSERT_TRUE(store::InsertRecs(
        s(), "insert into staffing (sday,shift,position,sname,numreq) values(2,'Day','Cook','Week 1',2)"));
    entry(DateTime::at(kMon, 9), DateTime::at(kMon, 17));
    QWidget* w = open("mnucheckstaffinglevels", "analyzelevels");
    QTest::mouseClick(named<QPushButton>(w, "analyzebutton"), Qt::LeftButton);
    auto* list = named<QTableWidget>(w, "Bblistview1");
    ASSERT_EQ(list->rowCount(), 1);
    EXPECT_EQ(gridRow(list, 0), (std::vector<std::string>{"Day", "Cook", "2", "1"}));
    EXPECT_EQ(list->item(0, 0)->toolTip(), "Under staffed");
    EXPECT_EQ(named<QLabel>(w, "Label4")->text(), "Schedule analysis for Monday Nov 23, 2026");

    QTest::mouseClick(named<QPushButton>(w, "PreviewButton"), Qt::LeftButton);
    auto* previewDialog = named<QDialog>(w, "printpreview");
    ASSERT_NE(previewDialog, nullptr);
    EXPECT_EQ(previewDialog->windowTitle(), "Schedule analysis for Monday Nov 23, 2026");
    EXPECT_EQ(named<app::render::PreviewWidget>(previewDialog, "vp")->pageCount(), 1);
    previewDialog->close();

    const std::string file = folder.str() + "/analysis.csv";
    ui.nextFile(file);
    QTest::mouseClick(named<QPushButton>(w, "SaveCsvButton"), Qt::LeftButton);
    std::ifstream in(file, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    EXPECT_EQ(text.str(), "Shift,Position,Needed,Scheduled,Status\r\nDay,Cook,2,1,Under staffed\r\n");
}

TEST_F(StaffingWindowsTest, ConflictFinderFollowsItsOptions) {
    entry(DateTime::at(kMon, 9), DateTime::at(kMon, 17));
    entry(DateTime::at(kMon.addDays(1), 9), DateTime::at(kMon.addDays(1), 17));
    entry(DateTime::at(kMon.addDays(1), 10), DateTime::at(kMon.addDays(1), 12));
    QWidget* w = open("mnuChkSchedConflict", "CheckConflicts");
    auto* grid = named<QTableWidget>(w, "ConflictGrid");
    EXPECT_EQ(grid->rowCount(), 0);
    EXPECT_EQ(named<QLabel>(w, "Label2")->text(), "No schedule conflicts found");
    EXPECT_FALSE(named<QWidget>(w, "startdate")->isEnabled());
    QTest::mouseClick(named<QRadioButton>(w, "weekoption"), Qt::LeftButton);
    EXPECT_EQ(grid->rowCount(), 2);
    EXPECT_EQ(gridRow(grid, 0).back(), "Overlaped time");
    EXPECT_EQ(named<QLabel>(w, "Label2")->text(), "2 schedule conflicts found");
}

TEST_F(StaffingWindowsTest, RepairMovesTheEndAndEmptiesTheList) {
    entry(DateTime::at(kMon, 22), DateTime::at(kMon, 6));
    QWidget* w = open("mnuRepairScheduleEntries", "RepairEndtimes");
    auto* grid = named<QTableWidget>(w, "Grid1");
    EXPECT_EQ(grid->rowCount(), 1);
    QTest::mouseClick(named<QPushButton>(w, "Repair"), Qt::LeftButton);
    EXPECT_EQ(grid->rowCount(), 0);
    EXPECT_EQ(column(s(), "select endtime from sched"), std::vector<std::string>{"2026-11-24 06:00:00"});
}

TEST_F(StaffingWindowsTest, AvailableEmployeesForTheShiftChosen) {
    entry(DateTime::at(kMon, 13), DateTime::at(kMon, 15));
    QWidget* w = open("mnuFindAvailableEmployees", "ReportAvailable");
    auto* shift = named<QComboBox>(w, "shiftCombo");
    shift->setCurrentIndex(0);
    emit shift->activated(0);
    QTest::mouseClick(named<QPushButton>(w, "refreshbutton"), Qt::LeftButton);
    auto* list = named<QTableWidget>(w, "bblistview1");
    ASSERT_EQ(list->rowCount(), 1);
    EXPECT_EQ(gridRow(list, 0),
              (std::vector<std::string>{"Sample, Sam", "", "Unavailable", "555-0100", "Yes", "2.00 hrs", "", ""}));
    EXPECT_TRUE(ui.messages.empty());
}

}  // namespace
}  // namespace tallymere::testing

#include "app/schedule/weekly_schedule_window.h"

#include "reference_fake_context.h"
#include "store/access.h"
#include "store/options.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace tallymere::testing {
namespace {

using common::Date;
using common::DateTime;

using Texts = std::vector<std::string>;

const Date kMon = Date::fromYmd(2026, 11, 23);

class ScheduleBulkWindowsTest : public AppDatabaseTest {
protected:
    void SetUp() override {
        AppDatabaseTest::SetUp();
        for (const char* name : {"Week 1", "Week 2"})
            ASSERT_TRUE(store::InsertRecs(s(), "insert into schedname (schedname,comment) values(?,'')", {name}));
        s().currentSchedule = "Week 1";
        s().activeDate = kMon;
        context = std::make_unique<FakeContext>(s());
        app::registerScheduleWindows(*context);
        app::registerMaintenanceWindows(*context);
        // The windows the logic opens by name are the application's.
        for (const char* name : {"CopyNew", "DefaultSave", "ExportData"})
            ui.onModal(name, [this, name] { context->ui().showModal(name); });
    }

    void entry(Date day, int hour, int minutes, const std::string& sname = "Week 1") {
        const DateTime start = DateTime::at(day, hour);
        ASSERT_TRUE(store::InsertRecs(s(),
                                      "insert into sched (personid,lname,fname,sday,strttime,endtime,position,shift,"
                                      "section,sname) values(1,'Sample','Sam',?,?,?,'Cook','Day','Grill',?)",
                                      {day, start, start.addMinutes(minutes), sname}));
    }
    std::size_t count(const std::string& sname, Date day) {
        return store::GetRecs(s(), "select * from sched where sname=? and sday=?", {sname, day}).RecordCount();
    }
    app::WeeklyScheduleWindow* openWeekly() {
        EXPECT_TRUE(context->run("mnuweekly"));
        return dynamic_cast<app::WeeklyScheduleWindow*>(context->findChild(QStringLiteral("week")));
    }

    std::unique_ptr<FakeContext> context;
};

TEST_F(ScheduleBulkWindowsTest, TheWeeklyWindowShowsTheWeekFiltersItAndKeepsItsPlace) {
    entry(kMon, 9, 480);
    entry(kMon, 18, 240);
    ASSERT_TRUE(store::InsertRecs(s(), "insert into person (lname,fname,active) values('Able','Ann',1)"));
    auto* window = openWeekly();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Weekly Schedule"));

    auto* grid = named<QTableWidget>(window, "Grid1");
    ASSERT_EQ(grid->rowCount(), 2);
    EXPECT_EQ(grid->horizontalHeaderItem(3)->text(), QStringLiteral("Mon Nov, 23"));
    EXPECT_EQ(grid->item(1, 0)->text(), QStringLiteral("Sample, Sam"));
    EXPECT_EQ(grid->item(1, 0)->background().color(), QColor(0xFF, 0xFF, 0xC0));
    EXPECT_EQ(grid->item(1, 1)->text(), QStringLiteral("12.00"));
    EXPECT_EQ(grid->item(1, 3)->text(), QStringLiteral("09:00 AM-05:00 PM\nDay\n06:00 PM-10:00 PM\nDay"));
    // Two entries of two lines each: the row grows past its first height.
    EXPECT_GT(grid->rowHeight(1), grid->rowHeight(0));
    EXPECT_FALSE(named<QPushButton>(window, "printbutton")->isEnabled());

    auto* employees = named<QComboBox>(window, "employeeCombo");
    ASSERT_EQ(employees->count(), 3);
    employees->setCurrentIndex(1);
    emit employees->activated(1);  // Ann
    ASSERT_EQ(grid->rowCount(), 1);
    EXPECT_EQ(grid->item(0, 0)->text(), QStringLiteral("Able, Ann"));

    // Refresh reads the schedule again.
    entry(kMon.addDays(1), 7, 60);
    employees->setCurrentIndex(0);
    emit employees->activated(0);
    named<QPushButton>(window, "refreshbutton")->click();
    EXPECT_EQ(grid->item(1, 4)->text(), QStringLiteral("07:00 AM-08:00 AM\nDay"));

    named<QPushButton>(window, "closebutton")->click();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(context->findChild(QStringLiteral("week")), nullptr);
    EXPECT_FALSE(store::GetOption(s(), "weekwidth").empty());
}

TEST_F(ScheduleBulkWindowsTest, TheCopyWindowCopiesADayToAnotherFileAndTheOpenWeekFollows) {
    entry(kMon, 22, 240);
    entry(kMon.addDays(3), 6, 60, "Week 2");
    s().currentSchedule = "Week 2";
    auto* weekly = openWeekly();
    ASSERT_NE(weekly, nullptr);
    auto* weekGrid = named<QTableWidget>(weekly, "Grid1");
    EXPECT_EQ(weekGrid->item(0, 6)->text(), QStringLiteral("06:00 AM-07:00 AM\nDay"));

    auto ran = whenModal("CopyNew", [&](QDialog* copy) {
        EXPECT_EQ(copy->windowTitle(), QStringLiteral("Copy Schedule"));
        auto* from = named<QComboBox>(copy, "fromschedulecombo");
        EXPECT_EQ(from->currentText(), QStringLiteral("Week 2"));
        from->setCurrentIndex(0);
        emit from->activated(0);  // Week 1
        emit named<QCalendarWidget>(copy, "FromDate")->clicked(QDate(2026, 11, 23));
        emit named<QCalendarWidget>(copy, "ToDate")->clicked(QDate(2026, 11, 26));
        EXPECT_EQ(named<QLabel>(copy, "ToSelectLabel")->text(), QStringLiteral("1 day selected."));

        named<QRadioButton>(copy, "weekoption")->click();
        EXPECT_EQ(named<QLabel>(copy, "FromSelectLabel")->text(), QStringLiteral("7 days selected"));
        named<QRadioButton>(copy, "dayoption")->click();
        emit named<QCalendarWidget>(copy, "FromDate")->clicked(QDate(2026, 11, 23));
        emit named<QCalendarWidget>(copy, "ToDate")->clicked(QDate(2026, 11, 26));

        named<QCheckBox>(copy, "CheckforConflicts")->click();
        named<QPushButton>(copy, "Command1")->click();
        EXPECT_TRUE(copy->isVisible());
    });
    ASSERT_TRUE(context->run("mnucopyschedule1"));
    ASSERT_TRUE(ran->ran);

    EXPECT_EQ(ui.texts(), (Texts{"Copy schedule from 11/23/2026 to 11/26/2026", "Copy completed"}));
    EXPECT_FALSE(s().settings.gb_CheckConflictsDuringCopy);
    auto copied = store::GetRecs(s(), "select * from sched where sname='Week 2' and sday=?", {kMon.addDays(3)});
    ASSERT_EQ(copied.RecordCount(), 1u);
    EXPECT_EQ(copied["endtime"].toDateTime(), DateTime::at(kMon.addDays(4), 2));
    EXPECT_EQ(weekGrid->item(0, 6)->text(), QStringLiteral("10:00 PM-02:00 AM\nDay"));
}

TEST_F(ScheduleBulkWindowsTest, TheDefaultScheduleIsSavedThroughTheLengthWindowAndLaidFromTheMenu) {
    entry(kMon, 9, 480);
    s().settings.firstdayofweek = "Monday";
    s().settings.gi_defaultschedlength = 0;
    auto ran = whenModal("DefaultSave", [&](QDialog* save) {
        named<QRadioButton>(save, "weekoption")->click();
        auto* weeks = named<QLineEdit>(save, "TxtWeeks");
        weeks->clear();
        QTest::keyClicks(weeks, "2");
        EXPECT_EQ(named<QLabel>(save, "Endlabel")->text(),
                  QStringLiteral("The default schedule will be saved ending on Sunday Dec 06, 2026"));
        named<QPushButton>(save, "Save")->click();
        EXPECT_FALSE(save->isVisible());
    });
    ASSERT_TRUE(context->run("mnusaveasdefault"));
    ASSERT_TRUE(ran->ran);
    EXPECT_EQ(s().settings.gi_defaultschedlength, 14);
    EXPECT_EQ(store::GetRecs(s(), "select * from scheddefault").RecordCount(), 1u);

    s().activeDate = kMon.addDays(14);
    ASSERT_TRUE(context->run("mnugetdefaultsched"));
    EXPECT_EQ(count("Week 1", kMon.addDays(14)), 1u);
}

TEST_F(ScheduleBulkWindowsTest, TheExportWindowWritesTheFileChosen) {
    entry(kMon, 9, 480);
    entry(kMon.addDays(1), 9, 480);
    const std::string path = (folder.path() / "out.txt").string();
    ui.nextFile(path);
    auto ran = whenModal("ExportData", [&](QDialog* exporting) {
        named<QDateEdit>(exporting, "enddate")->setDate(QDate(2026, 11, 24));
        EXPECT_EQ(named<QComboBox>(exporting, "SortCombo")->currentText(), QStringLiteral("start time"));
        named<QPushButton>(exporting, "SaveButton")->click();
        EXPECT_FALSE(exporting->isVisible());
    });
    ASSERT_TRUE(context->run("mnuExportScheduleData"));
    ASSERT_TRUE(ran->ran);
    std::ifstream in(path, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    EXPECT_EQ(text.str(),
              "EmpID, Last Name, First Name, Position, Day, StartTime, EndTime, Section\r\n"
              "1001,Sample,Sam,Cook,11/23/2026,9:00am,5:00pm,Grill\r\n"
              "1001,Sample,Sam,Cook,11/24/2026,9:00am,5:00pm,Grill\r\n");
}

}  // namespace
}  // namespace tallymere::testing

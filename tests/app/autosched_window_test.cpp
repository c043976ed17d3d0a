#include "app/autosched/autosched_dialogs.h"

#include "reference_fake_context.h"
#include "store/access.h"

#include <QCheckBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>

namespace tallymere::testing {
namespace {

using common::Date;
using common::DateTime;

const Date kDay = Date::fromYmd(2026, 11, 23);  // a Monday

class AutoschedWindowTest : public AppDatabaseTest {
protected:
    void SetUp() override {
        AppDatabaseTest::SetUp();
        s().currentSchedule = "Week 1";
        s().activeDate = kDay;
        ASSERT_TRUE(store::UdateRecs(s(), "update person set primpos='Owner' where personid=1"));
        context = std::make_unique<FakeContext>(s());
        app::registerAutoschedWindows(*context);
        // The logic opens windows through the session's Ui; here they are the real dialogs.
        for (const char* name :
             {"FirstAutoAddMsg", "AutoSched", "FirstAutoRebuildMsg", "AutoRebuildSched", "AutoSchedOptions"})
            ui.onModal(name, [this, name] { context->ui().showModal(name); });
    }

    long cook(const std::string& lname) {
        EXPECT_TRUE(store::InsertRecs(s(),
                                      "insert into person (lname,fname,primpos,active,hoursperweek) "
                                      "values(?,'',?,1,'40')",
                                      {lname, "Cook"}));
        return static_cast<long>(store::GetRecs(s(), "select max(personid) as id from person")["id"].toLong());
    }
    void open(Date day, int hour) {
        const DateTime start = DateTime::at(day, hour);
        ASSERT_TRUE(store::InsertRecs(s(),
                                      "insert into sched (personid,lname,fname,sday,strttime,endtime,position,shift,"
                                      "sname) values(-1,'**Unassigned**','',?,?,?,'Cook','Day','Week 1')",
                                      {day, start, start.addHours(4)}));
    }
    long unassigned() {
        return static_cast<long>(
            store::GetRecs(s(), "select count(*) as n from sched where personid=-1 and sname='Week 1'")["n"].toLong());
    }

    std::unique_ptr<FakeContext> context;
};

TEST_F(AutoschedWindowTest, ARunThroughTheWindowMovesTheBarFillsTheWeekAndCanBeExplained) {
    cook("Adams");
    cook("Baker");
    for (int d = 0; d < 5; ++d) {
        open(kDay.addDays(d), 9);
        open(kDay.addDays(d), 14);
    }

    auto first = whenModal("FirstAutoAddMsg", [](QDialog* message) {
        EXPECT_EQ(message->windowTitle(), "Automatic Scheduler");
        EXPECT_EQ(named<QLabel>(message, "Label4")->text(),
                  "Employees are checked for conflicts before being placed on the schedule for a particular position.");
        named<QCheckBox>(message, "DoNotShowAgain")->setChecked(true);
        named<QPushButton>(message, "OKButton")->click();
    });
    std::vector<int> values;
    int maximum = 0;
    auto run = whenModal("AutoSched", [&](QDialog* window) {
        EXPECT_EQ(window->windowTitle(), "Automatic Scheduler");
        EXPECT_EQ(named<QLabel>(window, "DayOptionLabel")->text(), "Mon Nov 23, 2026");
        EXPECT_FALSE(named<QPushButton>(window, "ExplainButton")->isEnabled());
        auto* bar = named<QProgressBar>(window, "AutoPBar");
        QObject::connect(bar, &QProgressBar::valueChanged, [&](int v) {
            values.push_back(v);
            maximum = std::max(maximum, bar->maximum());
        });
        named<QRadioButton>(window, "WeekOption")->click();
        EXPECT_FALSE(named<QLabel>(window, "DayOptionLabel")->isEnabled());
        named<QPushButton>(window, "OKButton")->click();
        // The window closes after its run.
        EXPECT_FALSE(window->isVisible());
    });
    ASSERT_TRUE(context->run("mnuAutoSched"));
    ASSERT_TRUE(first->ran);
    ASSERT_TRUE(run->ran);

    EXPECT_EQ(unassigned(), 0) << ::testing::PrintToString(ui.texts());
    EXPECT_EQ(userSettings.get("ShowAutoAddMsg"), "No");
    EXPECT_EQ(s().settings.gs_AutoFillDayWeek, "Week");
    // The bar counted the entries of a pass while the interface had its turns, then went back to 0.
    EXPECT_EQ(maximum, 10);
    EXPECT_GE(values.size(), 5u);
    EXPECT_EQ(values.back(), 0);
    EXPECT_GE(ui.turns, 10);
    EXPECT_EQ(ui.messages.back().title, "Automatic Scheduler Finished");

    // Next time it opens straight away and offers the last run's explanation.
    auto explained = whenModal("AutoSched", [&](QDialog* window) {
        auto* explain = named<QPushButton>(window, "ExplainButton");
        ASSERT_TRUE(explain->isEnabled());
        auto list = whenModal("AutoSchedExplanation", [](QDialog* dialog) {
            auto* grid = named<QTableWidget>(dialog, "explaingrid");
            EXPECT_EQ(grid->rowCount(), 20);  // ten entries, two candidates each
            EXPECT_EQ(grid->item(0, 8)->text(), "assigned");
        });
        explain->click();
        EXPECT_TRUE(list->ran);
        named<QPushButton>(window, "CloseButton")->click();
    });
    ASSERT_TRUE(context->run("mnuAutoSched"));
    EXPECT_TRUE(explained->ran);
    EXPECT_EQ(ui.modals.back(), "AutoSched");
}

TEST_F(AutoschedWindowTest, TheRebuildWindowStaysOpenAfterItsRun) {
    const long adams = cook("Adams");
    open(kDay, 9);
    ASSERT_TRUE(store::UdateRecs(s(), "update sched set personid=?, lname='Adams'", {adams}));
    userSettings.set("ShowAutoRebuildMsg", "No");
    auto run = whenModal("AutoRebuildSched", [&](QDialog* window) {
        EXPECT_EQ(named<QPushButton>(window, "AutoRedoButton")->text(), "Rebuild Schedule");
        named<QPushButton>(window, "AutoRedoButton")->click();
        EXPECT_TRUE(window->isVisible());
        EXPECT_TRUE(named<QPushButton>(window, "ExplainButton")->isEnabled());
    });
    ASSERT_TRUE(context->run("mnuAutoRebuildSchedule"));
    ASSERT_TRUE(run->ran);
    EXPECT_EQ(ui.messages.front().text, "The live schedule for Mon Nov 23, 2026 will be rebuilt. Continue?");
    EXPECT_EQ(unassigned(), 0);
}

TEST_F(AutoschedWindowTest, TheOptionsWindowSetsTheSettingsOnOkOnly) {
    auto cancelled = whenModal("AutoSchedOptions", [](QDialog* options) {
        EXPECT_EQ(named<QCheckBox>(options, "AutoAllowDblShifts")->text(), "Allow Double Shifts");
        named<QCheckBox>(options, "NoOvertime")->setChecked(true);
        named<QPushButton>(options, "CancelButton")->click();
    });
    ASSERT_TRUE(context->run("mnuAutoSchedOptions"));
    ASSERT_TRUE(cancelled->ran);
    EXPECT_FALSE(s().settings.gb_NoOvertime);

    auto ok = whenModal("AutoSchedOptions", [](QDialog* options) {
        EXPECT_TRUE(named<QCheckBox>(options, "AutoEnforceWeeklyHrs")->isChecked());
        named<QCheckBox>(options, "NoOvertime")->setChecked(true);
        named<QCheckBox>(options, "AutoEnforceWeeklyHrs")->setChecked(false);
        named<QPushButton>(options, "OKButton")->click();
    });
    ASSERT_TRUE(context->run("mnuAutoSchedOptions"));
    ASSERT_TRUE(ok->ran);
    EXPECT_TRUE(s().settings.gb_NoOvertime);
    EXPECT_FALSE(s().settings.gb_AutoEnforceWeeklyHrs);
}

}  // namespace
}  // namespace tallymere::testing

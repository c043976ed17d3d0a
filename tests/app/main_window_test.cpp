#include "app/shell/main_window.h"
#include "app/common/qt_ui.h"
#include "app/common/time_entry_widget.h"
#include "app_test.h"
#include "shell/menus.h"
#include "store/access.h"
#include "store/options.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

namespace tallymere::testing {
namespace {

using common::Date;

// A child window that counts what the main window asks of it.
class DummyChild : public QWidget, public app::ChildWindow {
public:
    explicit DummyChild(const QString& name) { setObjectName(name); }
    void refreshWindow() override { ++refreshes; }
    void UpDailyGridUpEmpl() override { ++gridRefreshes; }
    int refreshes = 0;
    int gridRefreshes = 0;
};

class MainWindowTest : public AppDatabaseTest {
protected:
    void SetUp() override {
        AppDatabaseTest::SetUp();
        window = std::make_unique<app::MainWindow>(s(), qtUi);
        window->show();
    }

    QAction* action(const char* name) const { return window->findChild<QAction*>(QString::fromLatin1(name)); }
    template <class T>
    T* widget(const char* name) const {
        return window->findChild<T*>(QString::fromLatin1(name));
    }
    DummyChild* open(const char* name) {
        return static_cast<DummyChild*>(
            window->openChild(QString::fromLatin1(name), [name] { return new DummyChild(QString::fromLatin1(name)); }));
    }

    app::QtUi qtUi;
    std::unique_ptr<app::MainWindow> window;
};

TEST_F(MainWindowTest, EveryMenuEntryOfTheTableIsThereByNameWithItsCaption) {
    EXPECT_EQ(window->objectName(), QStringLiteral("frmMain"));
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Quillbrook Tallymere - "));
    ASSERT_NE(widget<QMdiArea>("mdiArea"), nullptr);

    int entries = 0;
    for (const shell::MenuEntry& e : shell::menuTable()) {
        const QString name = QString::fromUtf8(e.name.data(), static_cast<qsizetype>(e.name.size()));
        if (e.popup) {
            EXPECT_NE(window->findChild<QMenu*>(name), nullptr) << e.name;
            continue;
        }
        QAction* a = window->findChild<QAction*>(name);
        ASSERT_NE(a, nullptr) << e.name;
        ++entries;
        if (e.isSeparator())
            EXPECT_TRUE(a->isSeparator()) << e.name;
        else
            EXPECT_EQ(a->text().toStdString(), e.caption) << e.name;
    }
    EXPECT_GT(entries, 100);

    // The bar holds the eight menus in their order, and nothing of the pop-ups.
    QStringList bar;
    for (QAction* a : window->menuBar()->actions()) bar << a->objectName();
    EXPECT_EQ(bar, QStringList({"mnuFile", "mnuEdit", "mnuview", "mnuSched", "mnutools", "mnureports", "mnuWindow",
                                "mnuHelp"}));
    // Submenus hang where the table puts them.
    EXPECT_TRUE(widget<QMenu>("mnuschedulefilter")->actions().contains(action("mnusortdailystarttime")));
    EXPECT_TRUE(widget<QMenu>("mnudaterightclick")->actions().contains(action("mnuddmmyyyy")));
}

TEST_F(MainWindowTest, AnEntryWithoutAHandlerStaysOffUntilOneIsRegistered) {
    QAction* weekly = action("mnuweeklybyemployee");
    EXPECT_FALSE(weekly->isEnabled());
    weekly->trigger();  // nothing to run, and nothing breaks

    int runs = 0;
    window->registerCommand("mnuweeklybyemployee", [&] { ++runs; });
    EXPECT_TRUE(weekly->isEnabled());
    weekly->trigger();
    EXPECT_EQ(runs, 1);

    // The shell's own commands are on from the start; a submenu is not a command.
    for (const char* own : {"mnuFExit", "mnuTile", "mnuCascade", "mnurefresh", "mnuQuickBar", "mnutoolbar",
                            "mnuResetForm", "mnutallymerehelp", "mnuabout", "mnusortdailyshift", "mnummddyyyy"})
        EXPECT_TRUE(action(own)->isEnabled()) << own;
    EXPECT_TRUE(action("mnureportweekly")->isEnabled());
    // A command handled but taken away by the model stays off: it needs an open schedule file.
    window->registerCommand("mnusaveas", [] {});
    EXPECT_FALSE(action("mnusaveas")->isEnabled());
    s().currentSchedule = "Summer";
    window->scheduleChanged();
    EXPECT_TRUE(action("mnusaveas")->isEnabled());
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Quillbrook Tallymere - Summer"));
}

TEST_F(MainWindowTest, OutputCommandsFollowTheActiveChildWindow) {
    const std::vector<const char*> output = {"mnuprintreport", "MnuSelectReportFont", "mnuExportReportRtf",
                                             "mnuSaveToPDF", "mnuPrintPreview"};
    for (const char* name : output) window->registerCommand(name, [] {});
    for (const char* name : output) EXPECT_FALSE(action(name)->isEnabled()) << name;

    open("dailyflexgrid");
    EXPECT_EQ(window->activeChildName(), QStringLiteral("dailyflexgrid"));
    EXPECT_TRUE(action("mnuprintreport")->isEnabled());
    EXPECT_TRUE(action("mnuPrintPreview")->isEnabled());
    EXPECT_FALSE(action("MnuSelectReportFont")->isEnabled());

    open("staffing");
    EXPECT_EQ(window->activeChildName(), QStringLiteral("staffing"));
    for (const char* name : output) EXPECT_FALSE(action(name)->isEnabled()) << name;

    // Opening a window that is open brings it forward instead of making a second one.
    open("dailyflexgrid");
    EXPECT_EQ(window->mdiArea()->subWindowList().size(), 2);
    EXPECT_TRUE(action("mnuprintreport")->isEnabled());

    for (QMdiSubWindow* sub : window->mdiArea()->subWindowList()) delete sub;
    EXPECT_TRUE(window->mdiArea()->subWindowList().isEmpty());
    for (const char* name : output) EXPECT_FALSE(action(name)->isEnabled()) << name;
}

TEST_F(MainWindowTest, ChildWindowsGoWhileTheMainFormTheyHoldStillStands) {
    // The schedule windows keep the main form as their host and touch it as they go.
    struct Holder : DummyChild {
        Holder(schedule::ScheduleHost& host, std::string& seen) : DummyChild("dailyflexgrid"), host(host), seen(seen) {}
        ~Holder() override { seen = host.quickBar().shiftcombo.text; }
        schedule::ScheduleHost& host;
        std::string& seen;
    };
    std::string seen = "not gone";
    window->mainForm().shiftcombo.text = "Morning";
    window->openChild(QStringLiteral("dailyflexgrid"), [&] { return new Holder(window->mainForm(), seen); });
    window.reset();
    EXPECT_EQ(seen, "Morning");
}

TEST_F(MainWindowTest, RefreshGoesToTheActiveChildAndTheAddButtonWaitsForTheDailySchedule) {
    auto* addButton = widget<QPushButton>("addfromlv");
    ASSERT_NE(addButton, nullptr);
    int adds = 0;
    window->registerCommand("addfromlv", [&] { ++adds; });
    EXPECT_FALSE(addButton->isEnabled());

    DummyChild* daily = open("dailyflexgrid");
    EXPECT_TRUE(addButton->isEnabled());
    addButton->click();
    EXPECT_EQ(adds, 1);

    action("mnurefresh")->trigger();
    EXPECT_EQ(daily->refreshes, 1);
    widget<QToolButton>("refresh")->click();
    EXPECT_EQ(daily->refreshes, 2);

    // A sort entry refreshes the daily grid and the tick shows in the other menu too.
    action("mnusortdailyposition")->trigger();
    EXPECT_EQ(daily->gridRefreshes, 1);
    EXPECT_EQ(s().settings.dailyschedsort, "position");
    EXPECT_TRUE(action("mnudailyflexsortposition")->isChecked());
    EXPECT_FALSE(action("mnusortdailyshift")->isChecked());
}

TEST_F(MainWindowTest, NavigatorButtonsMoveTheActiveDateAndTheDateControl) {
    s().activeDate = Date::fromYmd(2026, 11, 23);
    window->activeDateChanged();
    auto* tooldate = widget<QDateEdit>("tooldate");
    ASSERT_NE(tooldate, nullptr);
    EXPECT_EQ(tooldate->date(), QDate(2026, 11, 23));

    widget<QToolButton>("yearplus")->click();
    EXPECT_EQ(s().activeDate, Date::fromYmd(2026, 11, 23).addDays(364));
    EXPECT_EQ(tooldate->date(), QDate(2027, 11, 22));
    widget<QToolButton>("SSCommand4")->click();
    widget<QToolButton>("monthplus")->click();
    widget<QToolButton>("SSCommand1")->click();
    EXPECT_EQ(tooldate->date(), QDate(2026, 12, 22));

    // A date picked in the control becomes the active date.
    tooldate->setDate(QDate(2027, 1, 5));
    EXPECT_EQ(s().activeDate, Date::fromYmd(2027, 1, 5));

    // A format entry of the date's pop-up menu: "mm" is the month in the control.
    action("mnuddmmyyyy")->trigger();
    EXPECT_EQ(tooldate->displayFormat(), QStringLiteral("dd/MM/yyyy"));
    EXPECT_EQ(tooldate->text(), QStringLiteral("05/01/2027"));
}

TEST_F(MainWindowTest, ToolbarButtonsRunTheirEntriesAndBarsFollowTheViewMenu) {
    auto* toolbar = widget<QToolBar>("Toolbar1");
    ASSERT_NE(toolbar, nullptr);
    for (const shell::ToolbarButton& b : shell::toolbarTable()) {
        if (b.isSeparator()) continue;
        auto* button = window->findChild<QToolButton*>(QString::fromUtf8(b.key.data(), b.key.size()));
        ASSERT_NE(button, nullptr) << b.key;
        EXPECT_EQ(button->toolTip().toStdString(), b.tip) << b.key;
        EXPECT_FALSE(button->icon().isNull()) << b.key;
    }
    EXPECT_EQ(widget<QToolButton>("report")->menu(), widget<QMenu>("mnureports"));

    auto* open = widget<QToolButton>("open");
    EXPECT_FALSE(open->isEnabled());
    int opens = 0;
    window->registerCommand("mnuOpen", [&] { ++opens; });
    EXPECT_TRUE(open->isEnabled());
    open->click();
    EXPECT_EQ(opens, 1);

    // A failing command is told with the button's key.
    window->registerCommand("mnuAutoSched", [] { throw std::runtime_error("no shifts"); });
    s().currentSchedule = "Summer";
    window->scheduleChanged();
    widget<QToolButton>("auto")->click();
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].text, "Error occurred loading 'auto' from toolbar. Error: no shifts");
    EXPECT_EQ(ui.messages[0].title, "Tallymere System Error");

    EXPECT_TRUE(toolbar->isVisible());
    EXPECT_TRUE(action("mnutoolbar")->isChecked());
    action("mnutoolbar")->trigger();
    EXPECT_FALSE(toolbar->isVisible());
    EXPECT_FALSE(action("mnutoolbar")->isChecked());

    auto* quickBar = widget<QToolBar>("QuickBar");
    EXPECT_FALSE(quickBar->isVisible());
    action("mnuQuickBar")->trigger();
    EXPECT_TRUE(quickBar->isVisible());
    EXPECT_TRUE(action("mnuQuickBar")->isChecked());
    EXPECT_TRUE(s().settings.gb_ShowQuickBar);
}

TEST_F(MainWindowTest, QuickBarShowsTheModelsListsAndTimesAndWritesBackEdits) {
    store::InsertRecs(
        s(), "insert into shift (name, strttime, endtime) values (?,?,?)",
        {"Lunch", common::DateTime::fromParts(1899, 12, 30, 11, 30), common::DateTime::fromParts(1899, 12, 30, 14, 0)});
    window->mainForm().SetupQuickBar();

    auto* shiftcombo = widget<QComboBox>("shiftcombo");
    ASSERT_NE(shiftcombo, nullptr);
    EXPECT_EQ(shiftcombo->findText(QStringLiteral("Lunch")), shiftcombo->count() - 1);
    auto* start = widget<app::TimeEntryWidget>("StartTime");
    auto* end = widget<app::TimeEntryWidget>("EndTime");
    ASSERT_TRUE(start && end);
    EXPECT_EQ(start->findChild<QLineEdit*>("TETxtHr")->text(), QStringLiteral("09"));
    EXPECT_EQ(end->findChild<QLineEdit*>("TEAmPm")->text(), QStringLiteral("PM"));
    EXPECT_NE(start->findChild<QWidget*>("SpinButton1"), nullptr);

    // Choosing the shift fills both times, and tells the daily schedule.
    shiftcombo->setCurrentIndex(shiftcombo->findText(QStringLiteral("Lunch")));
    emit shiftcombo->activated(shiftcombo->currentIndex());
    EXPECT_EQ(window->mainForm().shiftcombo.text, "Lunch");
    EXPECT_EQ(start->findChild<QLineEdit*>("TETxtHr")->text(), QStringLiteral("11"));
    EXPECT_EQ(start->findChild<QLineEdit*>("TeTxtMin")->text(), QStringLiteral("30"));
    EXPECT_EQ(end->findChild<QLineEdit*>("TETxtHr")->text(), QStringLiteral("2"));

    // Typing goes to the model's control arrays: 1 the start, 0 the end; letters are refused.
    QLineEdit* endMinutes = end->findChild<QLineEdit*>("TeTxtMin");
    endMinutes->selectAll();
    QTest::keyClicks(endMinutes, "4x5");
    EXPECT_EQ(endMinutes->text(), QStringLiteral("45"));
    EXPECT_EQ(window->mainForm().TeTxtMin[0], "45");
    QTest::keyClick(start->findChild<QLineEdit*>("TEAmPm"), Qt::Key_P);
    EXPECT_EQ(window->mainForm().TEAmPm[1], "PM");
}

TEST_F(MainWindowTest, ClosingTheWindowIsTheWayOutAndSavesTheRun) {
    s().currentSchedule = "Summer";
    window->scheduleChanged();
    EXPECT_TRUE(window->close());
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(store::GetOption(s(), "currentschedule"), "Summer");
    EXPECT_FALSE(store::GetOption(s(), "mainwidth").empty());
}

TEST_F(MainWindowTest, CancelAtTheNameQuestionKeepsTheWindowOpen) {
    store::InsertRecs(
        s(), "insert into sched (personid, lname, sday, strttime, endtime, sname) values (?,?,?,?,?,?)",
        {-1, "**Unassigned**", Date::fromYmd(2026, 11, 23), common::DateTime::fromParts(2026, 11, 23, 9, 0),
         common::DateTime::fromParts(2026, 11, 23, 17, 0), ""});
    ui.answer(MsgAnswer::Cancel);
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(ui.shown("You need to give the schedule a name in order to save it. Save schedule?"));
}

TEST_F(MainWindowTest, ThePlaceOfTheLastRunComesBackInsideTheScreen) {
    window->hide();
    const QRect screen = window->screen()->availableGeometry();
    const QSize size = QSize(screen.width() - 40, screen.height() - 40).expandedTo(window->minimumSizeHint());
    const QPoint at = screen.topLeft() + QPoint(20, 10);
    s().settings.mainx = at.x() * 15;
    s().settings.mainy = at.y() * 15;
    s().settings.mainwidth = size.width() * 15;
    s().settings.mainheight = size.height() * 15;
    window->restorePlace();
    EXPECT_EQ(window->size(), size);
    EXPECT_EQ(window->pos(), at);
    const shell::WindowPlace place = window->mainPlace();
    EXPECT_EQ(place.width, size.width() * 15);
    EXPECT_EQ(place.top, at.y() * 15);
    EXPECT_EQ(place.state, 0);

    // Saved on a larger screen: pulled back into this one, and no larger than it.
    s().settings.mainx = (screen.right() + 2000) * 15;
    s().settings.mainy = -300 * 15;
    s().settings.mainwidth = screen.width() * 2 * 15;
    window->restorePlace();
    EXPECT_LE(window->width(), screen.width());
    EXPECT_TRUE(screen.contains(window->pos())) << window->x() << "," << window->y();
    EXPECT_LE(window->x() + window->width(), screen.right() + 1);
}

// The date formats' pop-up menu carries today's date in each format.
TEST_F(MainWindowTest, DateFormatMenuShowsToday) {
    s().activeDate = clock.today();
    window->mainForm().FillDateFormatMenu();
    EXPECT_EQ(action("mnuddmmmyyyydash")->text(), QStringLiteral("23-Nov-2026"));
    EXPECT_FALSE(action("mnuselectdateformat")->isEnabled());
}

}  // namespace
}  // namespace tallymere::testing

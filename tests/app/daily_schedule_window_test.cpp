#include "app/schedule/daily_schedule_window.h"

#include "app/schedule/daily_entry_dialog.h"
#include "app/schedule/employee_pictures.h"
#include "reference_fake_context.h"
#include "store/access.h"

#include <QComboBox>
#include <QDropEvent>
#include <QHeaderView>
#include <QMimeData>
#include <QTableWidget>
#include <QTest>
#include <QTreeWidget>

namespace tallymere::testing {
namespace {

using app::DailyScheduleWindow;
using common::Date;
using common::DateTime;

const Date kDay = Date::fromYmd(2026, 11, 23);
constexpr long kSam = 1;  // the template's sample employee
// Cook's colour as the positions table keeps it: red in the low byte.
constexpr long kCookStored = 0x4080FF;  // red FF, green 80, blue 40

class DailyScheduleWindowTest : public AppDatabaseTest {
protected:
    void SetUp() override {
        AppDatabaseTest::SetUp();
        s().currentSchedule = "Week 1";
        s().activeDate = kDay;
        s().settings.dailyschedsort = "employee";
        ASSERT_TRUE(store::UdateRecs(s(), "update person set primpos='Cook' where personid=1"));
        ASSERT_TRUE(store::InsertRecs(s(), "insert into position (title,color) values('Cook',?)", {kCookStored}));
        context = std::make_unique<FakeContext>(s());
        // The quick bar: 9 AM to 5 PM.
        shell::MainForm& form = context->mainForm();
        form.TETxtHr = {"5", "9"};
        form.TeTxtMin = {"00", ""};
        form.TEAmPm = {"PM", "AM"};
        window = new DailyScheduleWindow(*context);
        context->openChild(QStringLiteral("dailyflexgrid"), [this] { return window; });
        window->updailyflexform();
        grid = named<QTableWidget>(window, "grid1");
        list = named<QTreeWidget>(window, "lstlist");
    }

    long addEntry(int hour, int minutes) {
        const DateTime start = DateTime::at(kDay, hour, 0);
        EXPECT_TRUE(store::InsertRecs(s(),
                                      "insert into sched (personid,lname,fname,sday,strttime,endtime,position,sname) "
                                      "select personid,lname,fname,?,?,?,'Cook','Week 1' from person where personid=1",
                                      {kDay, start, start.addMinutes(minutes)}));
        return static_cast<long>(store::GetRecs(s(), "select max(schedid) as id from sched")["id"].toLong());
    }

    int listRow(long personid) const {
        for (int i = 0; i < list->topLevelItemCount(); ++i)
            if (list->topLevelItem(i)->data(0, Qt::UserRole).toLongLong() == personid) return i;
        return -1;
    }

    // What a drag from lstlist carries, dropped where the drag ends.
    void dropOnGrid(int listRowIndex) {
        QMimeData data;
        data.setData(QString::fromLatin1(DailyScheduleWindow::kEmployeeMimeType), QByteArray::number(listRowIndex));
        const QPoint at = grid->viewport()->rect().center();
        QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(grid->viewport(), &enter);
        ASSERT_TRUE(enter.isAccepted());
        QDropEvent drop(QPointF(at), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(grid->viewport(), &drop);
        ASSERT_TRUE(drop.isAccepted());
        // The add runs once the drag's loop has returned.
        QApplication::processEvents();
    }

    void clickRow(int gridRow, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        const QRect cell = grid->visualRect(grid->model()->index(gridRow, 1));
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, modifiers, cell.center());
    }

    std::unique_ptr<FakeContext> context;
    DailyScheduleWindow* window = nullptr;
    QTableWidget* grid = nullptr;
    QTreeWidget* list = nullptr;
};

TEST_F(DailyScheduleWindowTest, TheEmployeeIsPickedBySelectionNotByTheKeyboardsCurrentRow) {
    const int sam = listRow(kSam);
    ASSERT_GT(sam, 0);
    const long before = s().currentEmployee;
    const int pickedBefore = window->model().lstlist.selected;
    ASSERT_NE(pickedBefore, sam);
    // What tabbing into the list does: a current row, nothing selected.
    list->selectionModel()->setCurrentIndex(list->model()->index(sam, 0), QItemSelectionModel::NoUpdate);
    EXPECT_EQ(window->model().lstlist.selected, pickedBefore);
    EXPECT_EQ(s().currentEmployee, before);
    list->setCurrentItem(list->topLevelItem(sam));
    EXPECT_EQ(window->model().lstlist.selected, sam);
}

TEST_F(DailyScheduleWindowTest, DroppingAnEmployeeAddsTheRowWithItsColoursAndMarksTheEmployee) {
    ASSERT_EQ(grid->rowCount(), 0);
    const int sam = listRow(kSam);
    ASSERT_GT(sam, 0);
    EXPECT_EQ(list->topLevelItem(sam)->icon(0).cacheKey(), app::employeePicture(schedule::kPictureNone).cacheKey());

    dropOnGrid(sam);

    ASSERT_EQ(grid->rowCount(), 1) << ::testing::PrintToString(ui.texts());
    const auto sched = store::GetRecs(s(), "select * from sched where sname='Week 1'");
    ASSERT_EQ(sched.RecordCount(), 1u);
    EXPECT_EQ(sched["personid"].toLong(), kSam);
    // The quick bar's times; the empty minutes were read as whole hours and written back.
    EXPECT_EQ(context->mainForm().TeTxtMin[1], "00");
    EXPECT_EQ(sched["strttime"].toDateTime(), DateTime::at(kDay, 9, 0));
    EXPECT_EQ(sched["endtime"].toDateTime(), DateTime::at(kDay, 17, 0));

    EXPECT_EQ(grid->item(0, 0)->background().color(), QColor(0xFF, 0xFF, 0xC0));
    EXPECT_EQ(grid->item(0, 1)->text(), QStringLiteral("Cook"));
    EXPECT_EQ(grid->item(0, 1)->background().color(), QColor(0xFF, 0x80, 0x40));
    EXPECT_FALSE(grid->item(0, 4)->data(Qt::BackgroundRole).isValid());
    EXPECT_EQ(grid->item(0, 0)->data(Qt::UserRole).toLongLong(), sched["schedid"].toLong());

    EXPECT_EQ(list->topLevelItem(sam)->icon(0).cacheKey(),
              app::employeePicture(schedule::kPictureScheduled).cacheKey());
    ASSERT_EQ(ui.sounds.size(), 1u);
    EXPECT_TRUE(ui.sounds[0].ends_with("tm_shck.wav"));
    EXPECT_EQ(named<QLabel>(window, "NumShiftsLabel")->text(), QStringLiteral("Number of shifts: 1"));
    EXPECT_TRUE(grid->hasFocus() || !window->isActiveWindow());
}

TEST_F(DailyScheduleWindowTest, ADropFromElsewhereIsRefused) {
    QMimeData text;
    text.setText(QStringLiteral("Sam"));
    QDragEnterEvent enter(grid->viewport()->rect().center(), Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    enter.setAccepted(false);
    QApplication::sendEvent(grid->viewport(), &enter);
    EXPECT_FALSE(enter.isAccepted());
    EXPECT_FALSE(window->dropEmployee(&text));
    EXPECT_EQ(store::GetRecs(s(), "select * from sched").RecordCount(), 0u);
}

TEST_F(DailyScheduleWindowTest, ClicksSelectRowsAndTheDeleteKeyRemovesTheSelection) {
    addEntry(6, 120);
    addEntry(9, 120);
    addEntry(13, 120);
    window->updailyflexform();
    ASSERT_EQ(grid->rowCount(), 3);

    clickRow(0);
    clickRow(1, Qt::ShiftModifier);
    EXPECT_EQ(window->model().grid1.selectedSchedids().size(), 2u);
    EXPECT_EQ(grid->selectionModel()->selectedRows().size(), 2);

    // Several rows: deleted after the one question of the multiple delete.
    QTest::keyClick(grid, Qt::Key_Delete);
    EXPECT_EQ(store::GetRecs(s(), "select * from sched where sname='Week 1'").RecordCount(), 1u)
        << ::testing::PrintToString(ui.texts());
    EXPECT_EQ(grid->rowCount(), 1);

    // The last one: its own question, and the grid keeps no row.
    clickRow(0);
    const std::string question = "Delete schedule entry for " + grid->item(0, 0)->text().toStdString() +
                                 ". Start Time - " + grid->item(0, 2)->text().toStdString() + " ?";
    QTest::keyClick(grid, Qt::Key_Delete);
    EXPECT_TRUE(ui.shown(question)) << ::testing::PrintToString(ui.texts());
    EXPECT_EQ(grid->rowCount(), 0);
}

TEST_F(DailyScheduleWindowTest, EnterOpensTheEditorOnTheCurrentEntry) {
    const long schedid = addEntry(9, 60);
    window->updailyflexform();
    clickRow(0);
    long edited = 0;
    const auto watch = whenModal(QStringLiteral("dailyadd"), [&edited](QDialog* dialog) {
        edited = static_cast<app::DailyAddDialog*>(dialog)->model().schedid();
    });
    QTest::keyClick(grid, Qt::Key_Return);
    EXPECT_TRUE(watch->ran);
    EXPECT_EQ(edited, schedid);
}

TEST_F(DailyScheduleWindowTest, CopyAndPasteByKeysCarryAnOvernightEntryToAnotherDayAndOfferUndo) {
    addEntry(22, 240);  // 10 PM to 2 AM
    window->updailyflexform();
    clickRow(0);
    QTest::keyClick(grid, Qt::Key_C, Qt::ControlModifier);
    s().activeDate = kDay.addDays(1);
    window->updailyflexform();
    ASSERT_EQ(grid->rowCount(), 0);
    QTest::keyClick(grid, Qt::Key_V, Qt::ControlModifier);
    ASSERT_EQ(grid->rowCount(), 1) << ::testing::PrintToString(ui.texts());
    const auto pasted = store::GetRecs(s(), "select * from sched where sday=?", {kDay.addDays(1)});
    EXPECT_EQ(pasted["endtime"].toDateTime(), DateTime::at(kDay.addDays(2), 2, 0));
    EXPECT_TRUE(context->mainForm().menu("mnuEditUndo").visible);
    EXPECT_EQ(context->mainForm().menu("mnuEditUndo").caption, "Undo Paste");
}

TEST_F(DailyScheduleWindowTest, AHeaderClickOrTheListsPopUpChangesTheEmployeeOrder) {
    for (const char* name : {"Adams", "Zed"})
        ASSERT_TRUE(store::InsertRecs(s(), "insert into person (lname,fname,primpos,active) values(?,'A',?,1)",
                                      {name, std::string(name) == "Adams" ? "Waiter" : "Baker"}));
    window->UpDailyGridUpEmpl();
    const auto firstName = [this] { return list->topLevelItem(1)->text(0); };
    EXPECT_EQ(firstName(), QStringLiteral("Adams, A"));

    // The position header: positions first and sorted, **Unassigned** still on top.
    list->header()->sectionClicked(1);
    EXPECT_EQ(list->headerItem()->text(0), QStringLiteral("Position"));
    EXPECT_EQ(list->topLevelItem(0)->text(1), QStringLiteral("**Unassigned**"));
    EXPECT_EQ(list->topLevelItem(1)->text(0), QStringLiteral("Baker"));

    window->switchEmployeeOrder();
    EXPECT_EQ(list->headerItem()->text(0), QStringLiteral("Name"));
    EXPECT_EQ(firstName(), QStringLiteral("Adams, A"));
}

TEST_F(DailyScheduleWindowTest, TheWeekViewShowsTheWeekGridWithItsFilter) {
    addEntry(9, 480);
    window->setWeekView(true);
    auto* week = named<QTableWidget>(window, "grid2");
    ASSERT_TRUE(week->isVisibleTo(window));
    EXPECT_FALSE(grid->isVisibleTo(window));
    ASSERT_GE(week->rowCount(), 1);
    EXPECT_EQ(week->horizontalHeaderItem(1)->text(), QStringLiteral("Hrs"));
    EXPECT_GT(named<QComboBox>(window, "filtercombo")->count(), 1);
    window->setWeekView(false);
    EXPECT_TRUE(grid->isVisibleTo(window));
}

}  // namespace
}  // namespace tallymere::testing

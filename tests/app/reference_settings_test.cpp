#include "app/reference/settings_window.h"
#include "reference/position_windows.h"
#include "reference_fake_context.h"
#include "store/access.h"

#include <QColorDialog>
#include <QFocusEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>

namespace tallymere::testing {
namespace {

class ReferenceSettingsTest : public AppDatabaseTest {
protected:
    void SetUp() override {
        AppDatabaseTest::SetUp();
        context = std::make_unique<FakeContext>(s());
        app::registerReferenceWindows(*context);
    }

    app::SettingsWindow* settings() { return dynamic_cast<app::SettingsWindow*>(context->findChild("settings")); }

    std::unique_ptr<FakeContext> context;
};

QString cell(QTableWidget* grid, int row, int column) {
    const QTableWidgetItem* item = grid->item(row, column);
    return item ? item->text() : QStringLiteral("<none>");
}

void typeTime(QWidget* time, const char* hour, const char* minutes, char amPm) {
    QTest::keyClicks(named<QLineEdit>(time, "TETxtHr"), QString::fromLatin1(hour));
    QTest::keyClicks(named<QLineEdit>(time, "TeTxtMin"), QString::fromLatin1(minutes));
    QTest::keyClick(named<QLineEdit>(time, "TEAmPm"), amPm);
}

TEST_F(ReferenceSettingsTest, MenuEntriesOpenOneWindowOnTheirTab) {
    ASSERT_TRUE(context->run("mnupositions"));
    ASSERT_NE(settings(), nullptr);
    auto* tabs = named<QTabWidget>(settings(), "SSTab1");
    EXPECT_EQ(tabs->currentIndex(), reference::settings::PositionsTab);
    ASSERT_TRUE(context->run("mnusections"));
    ASSERT_TRUE(context->run("mnushifts"));
    EXPECT_EQ(context->childrenMade["settings"], 1);
    EXPECT_EQ(tabs->currentIndex(), reference::settings::ShiftsTab);
    EXPECT_EQ(settings()->model().SSTab1, reference::settings::ShiftsTab);

    // The report engine is not there yet: the buttons say so instead of doing nothing.
    auto* preview = named<QPushButton>(settings(), "previewShiftButton");
    EXPECT_FALSE(preview->isEnabled());
    EXPECT_FALSE(preview->toolTip().isEmpty());
}

TEST_F(ReferenceSettingsTest, ShiftTypedIntoShiftaddShowsInTheGridWithItsLength) {
    context->run("mnushifts");
    auto* grid = named<QTableWidget>(settings(), "shiftgrid");
    EXPECT_EQ(grid->rowCount(), 0);

    auto ran = whenModal("shiftadd", [&](QDialog* add) {
        auto* ok = named<QPushButton>(add, "OKButton");
        // Refused: the window stays with what was typed.
        ok->click();
        EXPECT_TRUE(ui.shown("No shift name was entered"));
        EXPECT_TRUE(add->isVisible());

        QTest::keyClicks(named<QLineEdit>(add, "name"), "Night");
        QWidget* start = indexed(add, "startTime", 1);
        QWidget* end = indexed(add, "endTime", 0);
        // Letters never reach the hour.
        QTest::keyClicks(named<QLineEdit>(start, "TETxtHr"), "1x0");
        EXPECT_EQ(named<QLineEdit>(start, "TETxtHr")->text(), "10");
        QTest::keyClicks(named<QLineEdit>(start, "TeTxtMin"), "0");
        QTest::keyClick(named<QLineEdit>(start, "TEAmPm"), 'p');
        typeTime(end, "6", "", 'a');
        ui.answer(MsgAnswer::Yes);  // the end is on the next day
        ok->click();
        EXPECT_TRUE(ui.shown("The start time is greater than the endtime. Is the end time the next day?"));
    });
    named<QPushButton>(settings(), "addShiftButton")->click();
    ASSERT_TRUE(ran->ran);

    ASSERT_EQ(grid->rowCount(), 1);
    EXPECT_EQ(cell(grid, 0, 0), "Night");
    EXPECT_EQ(cell(grid, 0, 1), "10:00 PM");
    EXPECT_EQ(cell(grid, 0, 2), "6:00 AM");
    EXPECT_EQ(cell(grid, 0, 3), "8h 00");
    EXPECT_EQ(context->listChanges, 1);
}

TEST_F(ReferenceSettingsTest, DoubleClickEditsTheRowAndTheGridFollowsTheRename) {
    store::InsertRecs(
        s(), "insert into shift (name,strttime,endtime,description) values(?,?,?,?)",
        {"Early", common::DateTime::fromParts(2006, 1, 1, 6), common::DateTime::fromParts(2006, 1, 1, 14), "opening"});
    store::InsertRecs(
        s(), "insert into shift (name,strttime,endtime,description) values(?,?,?,?)",
        {"Late", common::DateTime::fromParts(2006, 1, 1, 14), common::DateTime::fromParts(2006, 1, 1, 22), ""});
    context->run("mnushifts");
    auto* grid = named<QTableWidget>(settings(), "shiftgrid");
    ASSERT_EQ(grid->rowCount(), 2);

    auto ran = whenModal("EditShift", [&](QDialog* edit) {
        auto* name = named<QLineEdit>(edit, "name");
        EXPECT_EQ(name->text(), "Late");
        EXPECT_EQ(named<QLineEdit>(indexed(edit, "endTime", 0), "TETxtHr")->text(), "10");
        name->selectAll();
        QTest::keyClicks(name, "Closing");
        named<QPushButton>(edit, "OKButton")->click();
    });
    const QRect row = grid->visualItemRect(grid->item(1, 0));
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, row.center());
    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, row.center());
    ASSERT_TRUE(ran->ran);

    EXPECT_EQ(cell(grid, 1, 0), "Closing");
    EXPECT_EQ(grid->currentRow(), 1);
    EXPECT_EQ(store::GetRecs(s(), "select * from shift where name=?", {"Late"}).RecordCount(), 0u);
}

TEST_F(ReferenceSettingsTest, PositionTakesItsRateAsTypedAndItsColourFromTheDialog) {
    context->run("mnupositions");
    auto ran = whenModal("positionadd", [&](QDialog* add) {
        QTest::keyClicks(named<QLineEdit>(add, "title"), "Cook");
        auto* rate = named<QLineEdit>(add, "baserate");
        // Only digits and one decimal point; the rest beeps.
        QTest::keyClicks(rate, "12a.5.0");
        EXPECT_EQ(rate->text(), "12.50");
        EXPECT_EQ(ui.beeps, 2);
        QFocusEvent out(QEvent::FocusOut);
        QApplication::sendEvent(rate, &out);
        EXPECT_EQ(rate->text(), "$12.50");

        whenModal("QColorDialog", [](QDialog* colors) {
            auto* dialog = qobject_cast<QColorDialog*>(colors);
            ASSERT_NE(dialog, nullptr);
            dialog->setCurrentColor(QColor(10, 120, 200));
            dialog->accept();
        });
        named<QPushButton>(add, "Command3")->click();
        named<QPushButton>(add, "OKButton")->click();
    });
    named<QPushButton>(settings(), "addPositionButton")->click();
    ASSERT_TRUE(ran->ran);

    auto rs = store::GetRecs(s(), "select * from position where title=?", {"Cook"});
    ASSERT_FALSE(rs.empty());
    EXPECT_EQ(rs["baserate"].text(), "$12.50");
    EXPECT_EQ(rs["color"].toLong(), reference::rgbColor(10, 120, 200));
    auto* grid = named<QTableWidget>(settings(), "positiongrid");
    ASSERT_EQ(grid->rowCount(), 1);
    EXPECT_EQ(grid->item(0, 0)->background().color(), QColor(10, 120, 200));
}

}  // namespace
}  // namespace tallymere::testing

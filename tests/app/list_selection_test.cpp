// Lists and grids act on the row the user selected, never on the row that merely has the keyboard
// focus: a Tab into a list makes its first row current without selecting it, and Ctrl+click takes
// the selection away but leaves the row current.

#include "reference_fake_context.h"
#include "store/access.h"

#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

namespace tallymere::testing {
namespace {

using Texts = std::vector<std::string>;

void tabInto(QAbstractItemView* view) {
    view->setFocus(Qt::TabFocusReason);
    QApplication::processEvents();
}

void ctrlClick(QAbstractItemView* view, int row) {
    const QRect cell = view->visualRect(view->model()->index(row, 0));
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::ControlModifier, cell.center());
}

class ListSelectionTest : public AppDatabaseTest {
protected:
    void SetUp() override {
        AppDatabaseTest::SetUp();
        context = std::make_unique<FakeContext>(s());
        app::registerReferenceWindows(*context);
    }
    std::size_t count(const char* table) {
        return store::GetRecs(s(), std::string("select * from ") + table).RecordCount();
    }

    std::unique_ptr<FakeContext> context;
};

TEST_F(ListSelectionTest, ScheduleFileWindowsWantARowSelectedNotJustFocused) {
    for (const char* name : {"Spring", "Summer"})
        store::InsertRecs(s(), "insert into schedname (schedname,comment) values(?,'')", {name});

    auto opened = whenModal("Openfrm", [&](QDialog* open) {
        auto* list = named<QListWidget>(open, "List1");
        tabInto(list);
        ASSERT_EQ(list->currentRow(), 0);
        ASSERT_TRUE(list->selectedItems().isEmpty());
        for (const char* button : {"okbutton", "Command1", "deletebutton"}) named<QPushButton>(open, button)->click();
        EXPECT_TRUE(open->isVisible());
    });
    context->run("mnuOpen");
    ASSERT_TRUE(opened->ran);
    EXPECT_EQ(ui.texts(), (Texts{"No Schedule was selected to be opened.", "No Schedule was selected.",
                                 "There is no Schedule selected."}));
    EXPECT_EQ(s().currentSchedule, "");

    ui.clear();
    auto deleting = whenModal("deletesched", [&](QDialog* remove) {
        auto* list = named<QListWidget>(remove, "List1");
        list->setCurrentRow(0);
        ctrlClick(list, 0);
        ASSERT_TRUE(list->selectedItems().isEmpty());
        named<QPushButton>(remove, "deletebutton")->click();
    });
    context->run("mnudeleteschedule");
    ASSERT_TRUE(deleting->ran);
    EXPECT_EQ(ui.texts(), Texts{"There is no Schedule selected."});
    EXPECT_EQ(count("schedname"), 2u);
}

TEST_F(ListSelectionTest, GridsActOnTheSelectedRowOnly) {
    for (const char* name : {"Day", "Night"})
        store::InsertRecs(
            s(), "insert into shift (name,strttime,endtime,description) values(?,?,?,'')",
            {name, common::DateTime::fromParts(2006, 1, 1, 9), common::DateTime::fromParts(2006, 1, 1, 17)});
    context->run("mnushifts");
    QWidget* settings = context->findChild("settings");
    ASSERT_NE(settings, nullptr);
    auto* shifts = named<QTableWidget>(settings, "shiftgrid");
    ctrlClick(shifts, 0);
    ASSERT_TRUE(shifts->selectedItems().isEmpty());
    named<QPushButton>(settings, "deleteShiftButton")->click();
    ui.answer(MsgAnswer::No);
    QTest::mouseClick(shifts->viewport(), Qt::LeftButton, {},
                      shifts->visualRect(shifts->model()->index(1, 0)).center());
    named<QPushButton>(settings, "deleteShiftButton")->click();

    context->run("mnuEmployeeS");
    QWidget* people = context->findChild("PersonListFrm");
    ASSERT_NE(people, nullptr);
    auto* grid = named<QTableWidget>(people, "grid1");
    tabInto(grid);
    ctrlClick(grid, 0);
    ASSERT_TRUE(grid->selectedItems().isEmpty());
    named<QPushButton>(people, "deletebutton")->click();

    EXPECT_EQ(ui.texts(), (Texts{"There are no shifts to be deleted.",
                                 "Are you sure you want to delete the shift Night ?", "There are no employees."}));
    EXPECT_EQ(count("shift"), 2u);
    EXPECT_EQ(count("person"), 1u);
}

}  // namespace
}  // namespace tallymere::testing

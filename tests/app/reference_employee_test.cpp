#include "app/reference/availability_grid.h"
#include "app/reference/edit_staff_window.h"
#include "app/reference/person_list_window.h"
#include "app/reference/qualification_window.h"
#include "reference_fake_context.h"
#include "store/access.h"
#include "support/table_rows.h"

#include <QCalendarWidget>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>

namespace tallymere::testing {
namespace {

using reference::EmployeeForm;

class ReferenceEmployeeTest : public AppDatabaseTest {
protected:
    void SetUp() override {
        AppDatabaseTest::SetUp();
        context = std::make_unique<FakeContext>(s());
        app::registerReferenceWindows(*context);
        john = addPerson("Smith", "John");
    }

    long addPerson(const std::string& last, const std::string& first) {
        store::InsertRecs(s(), "insert into person (lname,fname,primpos,active) values(?,?,?,?)",
                          {last, first, "Cook", true});
        return lastId(s(), "person", "personid");
    }

    std::string houravail(long id, const char* day) {
        return store::GetRecs(s(), "select * from availability where personid=? and sday=?", {id, day})["houravail"]
            .text();
    }

    std::unique_ptr<FakeContext> context;
    long john = 0;
};

// Drags across a day's cells from one hour to another.
void drag(app::AvailabilityDayGrid* day, int from, int to) {
    QTest::mousePress(day, Qt::LeftButton, {}, day->cellRect(from).center());
    QTest::mouseMove(day, day->cellRect((from + to) / 2).center());
    QTest::mouseRelease(day, Qt::LeftButton, {}, day->cellRect(to).center());
}

QColor shownColor(app::AvailabilityDayGrid* day, int hour) {
    return QColor(day->grab().toImage().pixel(day->cellRect(hour).center()));
}

TEST_F(ReferenceEmployeeTest, NewLastNameIsSavedAfterTheQuestion) {
    s().currentEmployee = john;
    app::EditStaffWindow window(*context, nullptr);
    ASSERT_TRUE(window.loaded());
    window.show();
    EXPECT_EQ(window.windowTitle(), "Edit Employee - John Smith");

    auto* lname = named<QLineEdit>(&window, "LName");
    EXPECT_EQ(lname->text(), "Smith");
    lname->selectAll();
    QTest::keyClicks(lname, "Jones");
    ui.answer(MsgAnswer::Yes);
    named<QPushButton>(&window, "savebutton")->click();

    EXPECT_TRUE(ui.shown("You have changed the name from John Smith to John Jones is this what you want to do?"));
    EXPECT_EQ(store::GetRecs(s(), "select * from person where personid=?", {john})["lname"].text(), "Jones");
    EXPECT_EQ(window.windowTitle(), "Edit Employee - John Jones");
    auto* list = named<QListWidget>(&window, "List1");
    ASSERT_NE(list->currentItem(), nullptr);
    EXPECT_EQ(list->currentItem()->text(), "Jones, John");
    EXPECT_EQ(context->employeeChanges, 1);
}

TEST_F(ReferenceEmployeeTest, ClosingWithUnsavedChangesAsksAndNoLeavesTheRecord) {
    s().currentEmployee = john;
    app::EditStaffWindow window(*context, nullptr);
    window.show();
    QTest::keyClicks(named<QLineEdit>(&window, "city"), "Springfield");
    ui.answer(MsgAnswer::No);
    named<QPushButton>(&window, "closebutton")->click();

    EXPECT_TRUE(ui.shown("Would you like to save the changes for John Smith?"));
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(store::GetRecs(s(), "select * from person where personid=?", {john})["city"].text(), "");
}

TEST_F(ReferenceEmployeeTest, PaintedAvailabilityIsSavedAndShownAgain) {
    s().currentEmployee = john;
    {
        app::EditStaffWindow window(*context, nullptr);
        window.show();
        named<QTabWidget>(&window, "SSTab1")->setCurrentIndex(EmployeeForm::kAvailabilityTab);
        EXPECT_TRUE(named<QRadioButton>(&window, "unavailableoption")->isChecked());
        auto* monday = indexed<app::AvailabilityDayGrid>(&window, "availGrid1", 1);
        drag(monday, 12, 9);  // a drag to the left paints the same hours
        // Saturday off, then its morning back with the other brush.
        indexed<QPushButton>(&window, "daybutton", 6)->click();
        named<QRadioButton>(&window, "availableoption")->click();
        drag(indexed<app::AvailabilityDayGrid>(&window, "availGrid1", 6), 0, 11);
        named<QPushButton>(&window, "savebutton")->click();
    }
    EXPECT_EQ(houravail(john, "Monday"), "YYYYYYYYYNNNNYYYYYYYYYYY");
    EXPECT_EQ(houravail(john, "Saturday"), "YYYYYYYYYYYYNNNNNNNNNNNN");
    EXPECT_EQ(houravail(john, "Sunday"), std::string(24, 'Y'));

    app::EditStaffWindow again(*context, nullptr);
    again.show();
    named<QTabWidget>(&again, "SSTab1")->setCurrentIndex(EmployeeForm::kAvailabilityTab);
    QApplication::processEvents();
    auto* monday = indexed<app::AvailabilityDayGrid>(&again, "availGrid1", 1);
    EXPECT_EQ(shownColor(monday, 8), app::availableColor());
    for (int h = 9; h <= 12; ++h) EXPECT_EQ(shownColor(monday, h), app::unavailableColor()) << h;
    EXPECT_EQ(shownColor(monday, 13), app::availableColor());
}

TEST_F(ReferenceEmployeeTest, LeaveAddedThroughItsWindowShowsAsOneRange) {
    s().currentEmployee = john;
    app::EditStaffWindow window(*context, nullptr);
    window.show();
    auto ran = whenModal("employeeleaveedit", [&](QDialog* leave) {
        auto* start = named<QDateEdit>(leave, "startdate");
        auto* end = named<QDateEdit>(leave, "enddate");
        EXPECT_EQ(start->date(), QDate(2026, 11, 23));
        end->setDate(QDate(2026, 11, 25));
        // An end before the start takes the start with it.
        end->setDate(QDate(2026, 11, 20));
        EXPECT_EQ(start->date(), QDate(2026, 11, 20));
        start->setDate(QDate(2026, 12, 1));
        EXPECT_EQ(end->date(), QDate(2026, 12, 1));
        end->setDate(QDate(2026, 12, 3));
        EXPECT_EQ(named<QCalendarWidget>(leave, "MonthView1")->selectedDate(), QDate(2026, 12, 3));
        named<QPushButton>(leave, "Command1")->click();
    });
    named<QPushButton>(&window, "addleavebutton")->click();
    ASSERT_TRUE(ran->ran);

    auto* grid = named<QTableWidget>(&window, "leavegrid");
    ASSERT_EQ(grid->rowCount(), 1);
    EXPECT_EQ(grid->item(0, 0)->text(), "Dec 01, 2026 - Dec 03, 2026");
    EXPECT_EQ(grid->item(0, 1)->text(), "Vacation");
    EXPECT_EQ(store::GetRecs(s(), "select * from employeeleave where personid=?", {john}).RecordCount(), 3u);
}

TEST_F(ReferenceEmployeeTest, NewEmployeeKeepsStagedLeaveUntilSavedFromTheMenu) {
    auto ran = whenModal("EditStaffnew", [&](QDialog* add) {
        EXPECT_EQ(add->windowTitle(), "Add New Employee");
        QTest::keyClicks(named<QLineEdit>(add, "fname"), "Ann");
        QTest::keyClicks(named<QLineEdit>(add, "LName"), "Adams");
        auto staged = whenModal("employeeleaveedittemp", [&](QDialog* leave) {
            EXPECT_EQ(named<QLabel>(leave, "note")->text(), "(Note: Only 14 days can be set at one time).");
            named<QDateEdit>(leave, "enddate")->setDate(QDate(2026, 11, 24));
            named<QPushButton>(leave, "Command1")->click();
        });
        named<QPushButton>(add, "addleavebutton")->click();
        EXPECT_TRUE(staged->ran);
        EXPECT_EQ(named<QTableWidget>(add, "leavegrid")->rowCount(), 1);
        EXPECT_TRUE(store::GetRecs(s(), "select * from employeeleave").empty());
        named<QPushButton>(add, "savebutton")->click();
        EXPECT_FALSE(add->isVisible());
    });
    ASSERT_TRUE(context->run("mnuAddEmployee"));
    ASSERT_TRUE(ran->ran);

    const auto person = store::GetRecs(s(), "select * from person where lname=? and fname=?", {"Adams", "Ann"});
    ASSERT_FALSE(person.empty());
    EXPECT_EQ(store::GetRecs(s(), "select * from employeeleave where personid=?", {person["personid"].toLong()})
                  .RecordCount(),
              2u);
    EXPECT_EQ(context->employeeChanges, 1);
}

TEST_F(ReferenceEmployeeTest, ListOpensTheEmployeeOfTheRowDoubleClicked) {
    const long ann = addPerson("Adams", "Ann");
    context->run("mnuEmployeeS");
    auto* list = dynamic_cast<app::PersonListWindow*>(context->findChild("PersonListFrm"));
    ASSERT_NE(list, nullptr);
    auto* grid = named<QTableWidget>(list, "grid1");
    ASSERT_EQ(grid->rowCount(), 3);  // with the template's sample employee
    EXPECT_EQ(grid->item(0, 0)->text(), "Adams");

    QString caption;
    auto ran = whenModal("EditStaff", [&](QDialog* edit) { caption = edit->windowTitle(); });
    const QPoint row = grid->visualItemRect(grid->item(0, 1)).center();
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, row);
    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, row);
    ASSERT_TRUE(ran->ran);
    EXPECT_EQ(caption, "Edit Employee - Ann Adams");
    EXPECT_EQ(s().currentEmployee, ann);
}

TEST_F(ReferenceEmployeeTest, MenuDeleteAsksForTheCurrentEmployeeAndTheListFollows) {
    context->run("mnuEmployeeS");
    auto* grid = named<QTableWidget>(context->findChild("PersonListFrm"), "grid1");
    ASSERT_EQ(grid->rowCount(), 2);

    s().currentEmployee = john;
    ui.answer(MsgAnswer::Yes);
    ASSERT_TRUE(context->run("mnuEmployeeDelete"));
    EXPECT_TRUE(ui.shown("Are you sure you want to delete John Smith ?"));
    EXPECT_TRUE(store::GetRecs(s(), "select * from person where personid=?", {john}).empty());
    EXPECT_EQ(grid->rowCount(), 1);
    EXPECT_EQ(context->employeeChanges, 1);
}

TEST_F(ReferenceEmployeeTest, QualificationSkillFieldAndSliderFollowEachOtherAndOkSavesTheLevel) {
    store::InsertRecs(s(), "insert into position (title) values('Server')");
    auto model =
        std::make_unique<reference::addqualifications>(s(), reference::EmployeeRef{john, "Smith", "John", "Cook"});
    ASSERT_TRUE(model->Load());
    app::QualificationWindow window(std::move(model), nullptr);
    auto* slider = named<QSlider>(&window, "skillslider");
    auto* skill = named<QLineEdit>(&window, "skill");
    auto* position = named<QComboBox>(&window, "positioncombo");
    ASSERT_TRUE(slider && skill && position);

    slider->setValue(8);
    EXPECT_EQ(skill->text(), QStringLiteral("8"));
    skill->selectAll();
    QTest::keyClicks(skill, QStringLiteral("3"));
    EXPECT_EQ(slider->value(), 3);

    const int server = position->findText(QStringLiteral("Server"));
    position->setCurrentIndex(server);
    emit position->activated(server);  // as a choice with the mouse ends
    named<QPushButton>(&window, "OKbutton")->click();
    const auto saved = store::GetRecs(s(), "select * from qualifications where personid=?", {john});
    ASSERT_FALSE(saved.empty()) << ::testing::PrintToString(ui.texts());
    EXPECT_EQ(saved["position"].text(), "Server");
    EXPECT_EQ(saved["slevel"].toLong(), 3);
}

}  // namespace
}  // namespace tallymere::testing

#include "app/schedule/daily_entry_dialog.h"
#include "app/common/time_entry_widget.h"
#include "app/schedule/comment_dialog.h"
#include "app/schedule/employee_pictures.h"
#include "reference_fake_context.h"
#include "schedule/daily_schedule.h"
#include "store/access.h"
#include "support/schedule_test.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

namespace tallymere::testing {
namespace {

using common::DateTime;

class DailyAddDialogTest : public ScheduleTest {
protected:
    long addEntry(long personid, int hour, int minute, int lengthMinutes) {
        const DateTime start = DateTime::at(kDay, hour, minute);
        return ScheduleTest::addEntry(personid, start, start.addMinutes(lengthMinutes));
    }
    store::Recordset entry(long schedid) {
        return store::GetRecs(s(), "select * from sched where schedid=?", {schedid});
    }

    // Shown and active, so that focus moves as it would under a user's hands.
    static void open(QDialog& dialog) {
        dialog.show();
        dialog.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    }
    static QString time(QDialog& dialog, const char* name) {
        const auto* t = named<app::TimeEntryWidget>(&dialog, name);
        return t->hourField()->text() + ':' + t->minuteField()->text() + ' ' + t->amPmField()->text();
    }
    static void pickEmployee(QDialog& dialog, const QString& name) {
        auto* list = named<QListWidget>(&dialog, "EmplBBlist");
        const auto found = list->findItems(name, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1) << name.toStdString();
        list->scrollToItem(found.front());
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(found.front()).center());
    }

    ApplicationScope scope;
};

TEST_F(DailyAddDialogTest, OpensOnTheEntryAndFollowsAChosenShift) {
    const long zed = addPerson("Zed", "Zoe");
    ASSERT_TRUE(store::InsertRecs(
        s(), "insert into employeeleave (personid,fullname,typeofleave,sday) values(?,'x','Sick',?)", {zed, kDay}));
    ASSERT_TRUE(store::InsertRecs(s(), "insert into shift (name,strttime,endtime) values('Late',?,?)",
                                  {DateTime::fromParts(2006, 1, 1, 14, 30), DateTime::fromParts(2006, 1, 1, 23)}));
    const long id = addEntry(kSam, 9, 30, 450);
    ASSERT_TRUE(store::UdateRecs(s(), "update sched set comment='keys', section='Bar' where schedid=?", {id}));

    app::DailyAddDialog dialog(s(), id, nullptr);
    ASSERT_TRUE(dialog.loaded());
    open(dialog);
    EXPECT_EQ(dialog.objectName(), "dailyadd");
    EXPECT_EQ(dialog.windowTitle(), "Edit Schedule");
    EXPECT_EQ(time(dialog, "times1"), "9:30 AM");
    EXPECT_EQ(time(dialog, "times0"), "5:00 PM");
    EXPECT_EQ(named<QLineEdit>(&dialog, "note")->text(), "keys");
    // Kept though no section of that name is listed.
    EXPECT_EQ(named<QComboBox>(&dialog, "sectioncombo")->currentText(), "Bar");
    EXPECT_EQ(named<QComboBox>(&dialog, "positioncombo")->currentText(), "Cook");

    auto* list = named<QListWidget>(&dialog, "EmplBBlist");
    ASSERT_EQ(list->count(), 3);
    EXPECT_EQ(list->item(0)->text(), "**Unassigned**");
    ASSERT_EQ(list->selectedItems().size(), 1);
    EXPECT_EQ(list->selectedItems().front()->text(), "Sample, Sam");
    EXPECT_EQ(list->item(1)->icon().cacheKey(), app::employeePicture(schedule::kPictureScheduled).cacheKey());
    EXPECT_EQ(list->item(2)->icon().cacheKey(), app::employeePicture(schedule::kPictureOnLeave).cacheKey());

    auto* shift = named<QComboBox>(&dialog, "shiftcombo");
    const int late = shift->findText("Late");
    ASSERT_GE(late, 0);
    shift->setCurrentIndex(late);
    emit shift->activated(late);
    EXPECT_EQ(time(dialog, "times1"), "2:30 PM");
    EXPECT_EQ(time(dialog, "times0"), "11:00 PM");
    EXPECT_EQ(list->selectedItems().front()->text(), "Sample, Sam");
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(DailyAddDialogTest, ANoteTypedAfterPassingThroughTheTimesIsSavedWithEnter) {
    // The entry sits inside another of the same employee: only an edit of its times would be refused.
    addEntry(kSam, 8, 0, 8 * 60);
    const long id = addEntry(kSam, 9, 0, 60);

    app::DailyAddDialog dialog(s(), id, nullptr);
    ASSERT_TRUE(dialog.loaded());
    open(dialog);
    auto* start = named<app::TimeEntryWidget>(&dialog, "times1");
    ASSERT_TRUE(start->hourField()->hasFocus());
    auto* note = named<QLineEdit>(&dialog, "note");
    QTest::mouseClick(note, Qt::LeftButton);
    ASSERT_TRUE(note->hasFocus());
    EXPECT_EQ(start->hourField()->text(), "09");  // leaving the field wrote it out
    QTest::keyClicks(note, "  bring keys ");
    QTest::keyClick(note, Qt::Key_Return);

    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_TRUE(ui.messages.empty());
    const auto rs = entry(id);
    EXPECT_EQ(rs["comment"].text(), "bring keys");
    EXPECT_EQ(rs["strttime"].text(), "2026-11-23 09:00:00");
    EXPECT_EQ(rs["personid"].toLong(), kSam);
}

TEST_F(DailyAddDialogTest, AnEmployeeAlreadyScheduledThenIsRefusedAndTheEntryStays) {
    const long zed = addPerson("Zed", "Zoe");
    addEntry(zed, 9, 0, 120);
    const long id = addEntry(kSam, 10, 0, 120);

    app::DailyAddDialog dialog(s(), id, nullptr);
    ASSERT_TRUE(dialog.loaded());
    open(dialog);
    pickEmployee(dialog, "Zed, Zoe");
    named<QLineEdit>(&dialog, "note")->setText("lost");
    named<QPushButton>(&dialog, "Command1")->click();

    EXPECT_EQ(ui.texts(), (std::vector<std::string>{"Zed, Zoe is aleady scheduled for that time."}));
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(entry(id)["personid"].toLong(), kSam);

    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
    EXPECT_FALSE(dialog.isVisible());
    const auto rs = entry(id);
    EXPECT_EQ(rs["personid"].toLong(), kSam);
    EXPECT_EQ(rs["lname"].text(), "Sample");
    EXPECT_EQ(rs["comment"].text(), "");
}

TEST_F(DailyAddDialogTest, TheNoteButtonEditsTheNoteInTheCommentWindow) {
    const long id = addEntry(kSam, 9, 0, 60);
    app::DailyAddDialog dialog(s(), id, nullptr);
    ASSERT_TRUE(dialog.loaded());
    open(dialog);
    named<QLineEdit>(&dialog, "note")->setText("draft");
    QTest::keyClicks(named<QLineEdit>(&dialog, "note"), " one");

    const auto watch = whenModal("commentfrm", [](QDialog* comment) {
        auto* text = named<QPlainTextEdit>(comment, "Text1");
        EXPECT_EQ(text->toPlainText(), "draft one");
        QTest::keyClicks(text, "  ");
        named<QPushButton>(comment, "Command1")->click();
    });
    named<QPushButton>(&dialog, "commentbutton")->click();
    EXPECT_TRUE(watch->ran);
    EXPECT_EQ(named<QLineEdit>(&dialog, "note")->text(), "draft one");

    named<QPushButton>(&dialog, "Command1")->click();
    EXPECT_EQ(entry(id)["comment"].text(), "draft one");
}

TEST(CommentDialogTest, OkStoresTheTrimmedTextAndCancelKeepsTheNote) {
    ApplicationScope scope;
    std::string note = "old";
    {
        app::CommentDialog dialog(note, nullptr);
        EXPECT_EQ(dialog.objectName(), "commentfrm");
        EXPECT_EQ(dialog.windowTitle(), "Employee Comment");
        auto* text = named<QPlainTextEdit>(&dialog, "Text1");
        EXPECT_EQ(text->toPlainText(), "old");
        text->selectAll();
        QTest::keyClicks(text, "  late bus");
        QTest::keyClick(text, Qt::Key_Return);
        QTest::keyClicks(text, "again  ");
        named<QPushButton>(&dialog, "Command1")->click();
        EXPECT_EQ(dialog.result(), QDialog::Accepted);
    }
    EXPECT_EQ(note, "late bus\nagain");

    app::CommentDialog dialog(note, nullptr);
    QTest::keyClicks(named<QPlainTextEdit>(&dialog, "Text1"), " more");
    named<QPushButton>(&dialog, "Command2")->click();
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
    EXPECT_EQ(note, "late bus\nagain");
}

}  // namespace
}  // namespace tallymere::testing

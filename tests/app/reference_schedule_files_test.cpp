#include "reference_fake_context.h"
#include "store/access.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

namespace tallymere::testing {
namespace {

class ReferenceScheduleFilesTest : public AppDatabaseTest {
protected:
    void SetUp() override {
        AppDatabaseTest::SetUp();
        context = std::make_unique<FakeContext>(s());
        app::registerReferenceWindows(*context);
        for (const char* name : {"Spring", "Summer"})
            store::InsertRecs(s(), "insert into schedname (schedname,comment) values(?,?)", {name, "weekdays"});
        for (int day : {3, 9})
            store::InsertRecs(s(), "insert into sched (personid,lname,fname,sday,sname) values(?,?,?,?,?)",
                              {1, "Sample", "Sam", common::Date::fromYmd(2026, 11, day), "Summer"});
    }

    std::unique_ptr<FakeContext> context;
};

TEST_F(ReferenceScheduleFilesTest, OpenfrmShowsTheFiguresAndOpensTheFileChosen) {
    auto ran = whenModal("Openfrm", [&](QDialog* open) {
        EXPECT_EQ(open->windowTitle(), "Open Schedule File");
        auto* list = named<QListWidget>(open, "List1");
        ASSERT_EQ(list->count(), 2);
        list->setCurrentRow(1);
        EXPECT_EQ(named<QLineEdit>(open, "firstdate")->text(), "Nov 03, 2026");
        EXPECT_EQ(named<QLineEdit>(open, "lastdate")->text(), "Nov 09, 2026");
        EXPECT_EQ(named<QLabel>(open, "Label4")->text(), "'Summer' has 2 entries.");
        EXPECT_EQ(context->scheduleChanges, 0);
        named<QPushButton>(open, "okbutton")->click();
        EXPECT_FALSE(open->isVisible());
    });
    // The start opens it by its name when no schedule file is open.
    context->ui().showModal("Openfrm");
    ASSERT_TRUE(ran->ran);
    EXPECT_EQ(s().currentSchedule, "Summer");
    EXPECT_EQ(context->scheduleChanges, 1);
}

TEST_F(ReferenceScheduleFilesTest, DoubleClickOpensAndOpenWithoutChoiceSaysSo) {
    auto ran = whenModal("Openfrm", [&](QDialog* open) {
        named<QPushButton>(open, "okbutton")->click();
        EXPECT_TRUE(ui.shown("No Schedule was selected to be opened."));
        EXPECT_TRUE(open->isVisible());
        auto* list = named<QListWidget>(open, "List1");
        const QRect first = list->visualItemRect(list->item(0));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, first.center());
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, first.center());
    });
    ASSERT_TRUE(context->run("mnuOpen"));
    ASSERT_TRUE(ran->ran);
    EXPECT_EQ(s().currentSchedule, "Spring");
    EXPECT_EQ(context->scheduleChanges, 1);
}

TEST_F(ReferenceScheduleFilesTest, DeletingTheOpenFileInOpenfrmClosesItAtOnce) {
    s().currentSchedule = "Summer";
    auto ran = whenModal("Openfrm", [&](QDialog* open) {
        named<QListWidget>(open, "List1")->setCurrentRow(1);
        ui.answer(MsgAnswer::Yes);
        named<QPushButton>(open, "deletebutton")->click();
        EXPECT_TRUE(ui.shown("Delete the Schedule Summer containing 2 schedule entries?"));
        EXPECT_EQ(context->scheduleChanges, 1);
        EXPECT_EQ(named<QListWidget>(open, "List1")->count(), 1);
        named<QPushButton>(open, "cancelbutton")->click();
    });
    context->run("mnuOpen");
    ASSERT_TRUE(ran->ran);
    EXPECT_EQ(s().currentSchedule, "");
}

TEST_F(ReferenceScheduleFilesTest, SaveAsNeedsAnOpenFileAndCopiesIt) {
    auto refused = whenModal("SaveAs", [](QDialog*) {});
    context->run("mnusaveas");
    refused->cancelled = true;
    EXPECT_TRUE(ui.shown("No schedule file is open. Please open a schedule file or create a new one."));
    EXPECT_FALSE(refused->ran);

    s().currentSchedule = "Summer";
    auto ran = whenModal("SaveAs", [&](QDialog* save) {
        QTest::keyClicks(named<QLineEdit>(save, "schedname"), "Autumn");
        named<QPushButton>(save, "OKButton")->click();
    });
    context->run("mnusaveas");
    ASSERT_TRUE(ran->ran);
    EXPECT_EQ(s().currentSchedule, "Autumn");
    EXPECT_EQ(store::GetRecs(s(), "select * from sched where sname=?", {"Autumn"}).RecordCount(), 2u);
    EXPECT_EQ(context->scheduleChanges, 1);
}

}  // namespace
}  // namespace tallymere::testing

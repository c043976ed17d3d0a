#include "app/common/qt_ui.h"
#include "app_test.h"

#include <QApplication>
#include <QCursor>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>

namespace tallymere::testing {
namespace {

using common::MsgAnswer;
using common::MsgButtons;
using common::MsgIcon;

struct SeenBox {
    QString title;
    QString text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QStringList buttons;
    QString defaultButton;
    bool busyCursor = false;
};

class QtUiTest : public AppTest {
protected:
    // Asks a message and, once the box is up, notes what it shows and lets `respond` close it.
    MsgAnswer ask(std::string_view text, MsgButtons buttons, MsgIcon icon, std::string_view title,
                  std::function<void(QMessageBox&)> respond) {
        seen = {};
        QTimer::singleShot(0, [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box) {
                ADD_FAILURE() << "no message box is up";
                return;
            }
            seen.title = box->windowTitle();
            seen.text = box->text();
            seen.icon = box->icon();
            for (QAbstractButton* b : box->buttons()) seen.buttons << b->text().remove(QLatin1Char('&'));
            if (box->defaultButton()) seen.defaultButton = box->defaultButton()->text().remove(QLatin1Char('&'));
            seen.busyCursor = QApplication::overrideCursor() != nullptr;
            respond(*box);
        });
        return ui.message(text, buttons, icon, title);
    }

    static std::function<void(QMessageBox&)> click(QMessageBox::StandardButton b) {
        return [b](QMessageBox& box) { box.button(b)->click(); };
    }

    app::QtUi ui;
    SeenBox seen;
};

TEST_F(QtUiTest, MessageShowsItsTextPlainWithTheApplicationTitleWhenNoneIsGiven) {
    const auto answer = ask("The path <b>/srv/data</b> was not found.", MsgButtons::YesNo, MsgIcon::Exclamation, "",
                            click(QMessageBox::No));
    EXPECT_EQ(answer, MsgAnswer::No);
    EXPECT_EQ(seen.title, QStringLiteral("Tallymere"));
    EXPECT_EQ(seen.text, QStringLiteral("The path <b>/srv/data</b> was not found."));
    EXPECT_EQ(seen.icon, QMessageBox::Warning);
    EXPECT_EQ(seen.defaultButton, QStringLiteral("Yes"));
}

TEST_F(QtUiTest, EachButtonSetAnswersWithTheButtonPressed) {
    EXPECT_EQ(ask("t", MsgButtons::YesNoCancel, MsgIcon::Question, "Save", click(QMessageBox::Cancel)),
              MsgAnswer::Cancel);
    EXPECT_EQ(seen.title, QStringLiteral("Save"));
    EXPECT_EQ(seen.buttons.size(), 3);
    EXPECT_EQ(ask("t", MsgButtons::YesNoCancel, MsgIcon::Question, "", click(QMessageBox::Yes)), MsgAnswer::Yes);
    EXPECT_EQ(ask("t", MsgButtons::OkCancel, MsgIcon::None, "", click(QMessageBox::Ok)), MsgAnswer::Ok);
    EXPECT_EQ(ask("t", MsgButtons::RetryCancel, MsgIcon::Critical, "", click(QMessageBox::Retry)), MsgAnswer::Retry);
    EXPECT_EQ(seen.icon, QMessageBox::Critical);
    EXPECT_EQ(ask("t", MsgButtons::AbortRetryIgnore, MsgIcon::Critical, "", click(QMessageBox::Ignore)),
              MsgAnswer::Ignore);
    EXPECT_EQ(seen.buttons.size(), 3);
}

TEST_F(QtUiTest, EscapeBacksOutOfAQuestion) {
    const auto escape = [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); };
    EXPECT_EQ(ask("Delete?", MsgButtons::YesNo, MsgIcon::Question, "", escape), MsgAnswer::No);
    EXPECT_EQ(ask("Save?", MsgButtons::YesNoCancel, MsgIcon::Question, "", escape), MsgAnswer::Cancel);
    EXPECT_EQ(ask("Done.", MsgButtons::Ok, MsgIcon::Information, "", escape), MsgAnswer::Ok);
}

TEST_F(QtUiTest, BusyCursorIsAStateNotACountAndGivesWayToAMessage) {
    ui.setBusy(true);
    ui.setBusy(true);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);

    ask("Working", MsgButtons::Ok, MsgIcon::None, "", click(QMessageBox::Ok));
    EXPECT_FALSE(seen.busyCursor);
    EXPECT_NE(QApplication::overrideCursor(), nullptr);

    ui.setBusy(false);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(QtUiTest, ShowModalOpensTheRegisteredWindowOnly) {
    QStringList opened;
    ui.registerModal("enterpassword", [&] { opened << QStringLiteral("enterpassword"); });
    ui.showModal("backup");
    ui.showModal("enterpassword");
    EXPECT_EQ(opened, QStringList{QStringLiteral("enterpassword")});
}

}  // namespace
}  // namespace tallymere::testing

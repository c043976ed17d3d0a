// The main window for everyone: toolbar buttons a screen reader can name, the date format the user
// picks reaching the messages, the password settings kept for the owner in user mode, and a data
// location window that says truly whose the default folder is.

#include "app/common/qt_ui.h"
#include "app/maintenance/data_location_dialog.h"
#include "app/maintenance/enterpassword_dialog.h"
#include "app/shell/main_window.h"
#include "app_test.h"
#include "maintenance/enterpassword.h"
#include "shell/menus.h"
#include "store/access.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <map>

namespace tallymere::testing {
namespace {

class MainWindowAccessTest : public AppDatabaseTest {
protected:
    void SetUp() override {
        AppDatabaseTest::SetUp();
        window = std::make_unique<app::MainWindow>(s(), qtUi);
        app::registerMaintenanceWindows(*window);
        window->show();
    }

    app::QtUi qtUi;
    std::unique_ptr<app::MainWindow> window;
};

TEST_F(MainWindowAccessTest, EveryToolbarButtonHasANameToBeSpoken) {
    std::map<QString, QString> spoken;
    for (const shell::ToolbarButton& b : shell::toolbarTable()) {
        if (b.isSeparator()) continue;
        const QString key = QString::fromUtf8(b.key.data(), static_cast<qsizetype>(b.key.size()));
        auto* button = window->findChild<QToolButton*>(key);
        ASSERT_NE(button, nullptr) << key.toStdString();
        EXPECT_FALSE(button->accessibleName().isEmpty()) << key.toStdString();
        spoken[key] = button->accessibleName();
    }
    EXPECT_EQ(spoken[QStringLiteral("new")], QStringLiteral("New Schedule"));
    EXPECT_EQ(spoken[QStringLiteral("report")], QStringLiteral("Reports"));
    EXPECT_EQ(spoken[QStringLiteral("key")], QStringLiteral("Set Password"));
}

TEST_F(MainWindowAccessTest, TheDateFormatPickedFromTheMenuIsTheOneMessagesUse) {
    EXPECT_EQ(s().displayDateFormat, "short date");
    window->runCommand("mnuddmmmyyyydash");
    EXPECT_EQ(s().displayDateFormat, "dd-mmm-yyyy");
    window->runCommand("mnushortdate");
    EXPECT_EQ(s().displayDateFormat, "short date");
}

TEST_F(MainWindowAccessTest, SetPasswordInUserModeTakesOnlyTheOwnerPassword) {
    for (const auto& [key, value] : {std::pair{"passwordowner", "Boss"}, std::pair{"passworduser", "Clerk"}})
        ASSERT_TRUE(store::InsertRecs(s(), "insert into options (optionname,optionvalue) values(?,?)", {key, value}));
    s().IsUserMode = true;
    ASSERT_TRUE(qtUi.hasModal(maintenance::kOwnerPasswordPrompt));
    bool stayedOpenForTheUser = false;
    ui.onModal(maintenance::kOwnerPasswordPrompt, [&] {
        app::EnterPasswordDialog prompt(s(), window.get(), app::EnterPasswordDialog::Prompt::OwnerOnly);
        prompt.show();
        auto* field = prompt.findChild<QLineEdit*>(QStringLiteral("password"));
        auto* ok = prompt.findChild<QPushButton*>(QStringLiteral("OKButton"));
        QTest::keyClicks(field, QStringLiteral("clerk"));
        ok->click();
        stayedOpenForTheUser = prompt.isVisible();
        field->clear();
        QTest::keyClicks(field, QStringLiteral("boss"));
        ok->click();
    });
    window->runCommand("mnusetpassword");
    EXPECT_TRUE(stayedOpenForTheUser);
    EXPECT_EQ(ui.texts(), std::vector<std::string>{"Please enter a valid password."});
    EXPECT_EQ(ui.modals, (std::vector<std::string>{maintenance::kOwnerPasswordPrompt, "setpassword"}));
    EXPECT_TRUE(s().IsUserMode);
}

TEST_F(MainWindowAccessTest, DataLocationSaysTheDefaultFolderIsTheUsersOwn) {
    app::DataLocationDialog dialog(app::DataLocationDialog::Kind::Running, s(), folder.str());
    QString text;
    for (const QLabel* label : dialog.findChildren<QLabel*>()) text += label->text() + QLatin1Char(' ');
    EXPECT_TRUE(text.contains(QStringLiteral("belongs to your user account"))) << text.toStdString();
    EXPECT_FALSE(text.contains(QStringLiteral("no need to change"))) << text.toStdString();
}

}  // namespace
}  // namespace tallymere::testing

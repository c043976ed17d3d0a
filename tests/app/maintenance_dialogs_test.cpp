#include "app/common/qt_ui.h"
#include "app/maintenance/backup_dialog.h"
#include "app/maintenance/data_location_dialog.h"
#include "app/maintenance/enterpassword_dialog.h"
#include "app/maintenance/restore_sched_data_dialog.h"
#include "app/maintenance/setpassword_dialog.h"
#include "app/shell/firstrun_dialog.h"
#include "app/shell/main_window.h"
#include "app_test.h"
#include "maintenance/setpassword.h"
#include "reference_fake_context.h"
#include "store/options.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <filesystem>

namespace tallymere::testing {
namespace {

namespace fs = std::filesystem;

class MaintenanceDialogsTest : public AppDatabaseTest {
protected:
    static void type(QWidget* dialog, const char* field, const QString& text) {
        auto* edit = named<QLineEdit>(dialog, field);
        ASSERT_NE(edit, nullptr) << field;
        edit->clear();
        QTest::keyClicks(edit, text);
    }
    static void click(QWidget* dialog, const char* button) {
        auto* b = named<QPushButton>(dialog, button);
        ASSERT_NE(b, nullptr) << button;
        b->click();
    }

    void setOwnerPassword(const std::string& password) {
        maintenance::setpassword m(s());
        m.chooseRequirePassword();
        m.passwordowner = password;
        ASSERT_TRUE(m.OK());
    }
};

TEST_F(MaintenanceDialogsTest, PasswordPromptStaysOpenOnAWrongPasswordAndClosesOnTheOwners) {
    setOwnerPassword("Abc");
    s().PasswordPassed = false;
    app::EnterPasswordDialog dialog(s());
    dialog.show();
    EXPECT_EQ(dialog.objectName(), QStringLiteral("enterpassword"));
    EXPECT_EQ(named<QLineEdit>(&dialog, "password")->echoMode(), QLineEdit::Password);

    type(&dialog, "password", QStringLiteral("abd"));
    click(&dialog, "OKButton");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(ui.shown("Please enter a valid password."));
    EXPECT_FALSE(s().PasswordPassed);

    // Passwords do not tell case, and blanks around them do not count.
    type(&dialog, "password", QStringLiteral("ABC "));
    click(&dialog, "OKButton");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_TRUE(s().PasswordPassed);
    EXPECT_FALSE(s().IsUserMode);
}

TEST_F(MaintenanceDialogsTest, PasswordPromptCancelLeavesThePasswordNotGiven) {
    setOwnerPassword("Abc");
    s().PasswordPassed = true;
    app::EnterPasswordDialog dialog(s());
    dialog.show();
    type(&dialog, "password", QStringLiteral("abc"));
    click(&dialog, "CancelButton");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_FALSE(s().PasswordPassed);
}

TEST_F(MaintenanceDialogsTest, SetPasswordFollowsItsOptionsAndStoresWhatIsTyped) {
    app::SetPasswordDialog dialog(s());
    dialog.show();
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Set Password"));
    auto* none = named<QRadioButton>(&dialog, "nopasswordoption");
    auto* require = named<QRadioButton>(&dialog, "requirepasswordoption");
    EXPECT_EQ(none->text(), QStringLiteral("Do not require use of a password at start."));
    EXPECT_EQ(require->text(), QStringLiteral("A password must be entered at start."));
    EXPECT_TRUE(none->isChecked());
    EXPECT_FALSE(named(&dialog, "passwordowner")->isEnabled());
    EXPECT_TRUE(named(&dialog, "UnlockImage")->isVisible());
    EXPECT_FALSE(named(&dialog, "LockedImage")->isVisible());
    EXPECT_EQ(named<QLabel>(&dialog, "ownerPasswordState")->text(), QStringLiteral("No owner password is set."));

    require->click();
    EXPECT_TRUE(named(&dialog, "passwordowner")->isEnabled());
    EXPECT_TRUE(named(&dialog, "LockedImage")->isVisible());

    // Changing employees needs the right to see them.
    auto* view = named<QCheckBox>(&dialog, "employeeviewcheck");
    auto* change = named<QCheckBox>(&dialog, "employeecheck");
    view->setChecked(true);
    change->setChecked(true);
    view->setChecked(false);
    EXPECT_FALSE(change->isChecked());
    EXPECT_FALSE(change->isEnabled());
    named<QCheckBox>(&dialog, "payrollcheck")->setChecked(true);

    // No owner password: refused, the window stays.
    click(&dialog, "OKButton");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(
        ui.shown("If you want to specify a password, you must set the owner password. The user password is optional."));

    type(&dialog, "passwordowner", QStringLiteral("Owner1"));
    type(&dialog, "passworduser", QStringLiteral("Clerk"));
    click(&dialog, "OKButton");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(store::GetOption(s(), "passworduserpayroll"), "Yes");
    EXPECT_EQ(store::GetOption(s(), "passworduseremployee"), "No");
    EXPECT_FALSE(store::GetOption(s(), "passwordowner").empty());
    EXPECT_NE(store::GetOption(s(), "passwordowner"), "Owner1");  // never in clear text

    // Opened again, it says what is set without showing it, and offers to clear the user password.
    app::SetPasswordDialog again(s());
    EXPECT_TRUE(named<QRadioButton>(&again, "requirepasswordoption")->isChecked());
    EXPECT_TRUE(named<QLineEdit>(&again, "passwordowner")->text().isEmpty());
    EXPECT_NE(named<QLabel>(&again, "userPasswordState")->text(),
              QStringLiteral("No user password is set, so there is no user mode."));
    EXPECT_TRUE(named(&again, "ClearUserPasswordButton")->isEnabled());
    EXPECT_TRUE(named<QCheckBox>(&again, "payrollcheck")->isChecked());
}

TEST_F(MaintenanceDialogsTest, BackupRefusesTheDataFolderAndCopiesIntoAnother) {
    app::BackupDialog dialog(s());
    dialog.show();
    type(&dialog, "txtPath", QString::fromStdString(folder.str()) + QStringLiteral("/"));
    click(&dialog, "backupbutton");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(ui.shown(
        "You cannot backup to the folder containing the live Tallymere data, please select a different folder."));

    TempFolder target;
    ui.nextFolder(target.str());
    click(&dialog, "BrowseButton");
    EXPECT_EQ(named<QLineEdit>(&dialog, "txtPath")->text().toStdString(), target.str());
    click(&dialog, "backupbutton");
    EXPECT_TRUE(ui.shown("Tallymere data was backed up successfully"));
    EXPECT_TRUE(fs::exists(target.path() / "Tallymere.db"));
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(store::GetRegSetting(s(), "backuplocation"), target.str());
}

TEST_F(MaintenanceDialogsTest, RestoreRefusesAFolderWithoutADatabase) {
    app::RestoreSchedDataDialog dialog(s());
    dialog.show();
    EXPECT_NE(named<QLineEdit>(&dialog, "txtPath"), nullptr);
    TempFolder empty;
    type(&dialog, "txtPath", QString::fromStdString(empty.str()));
    click(&dialog, "RestoreButton");
    EXPECT_TRUE(ui.shown("A Tallymere database file (Tallymere.db) was not found in the folder you selected."));
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_FALSE(fs::exists(folder.path() / "Tallymere.tmp"));
}

TEST_F(MaintenanceDialogsTest, DataLocationAtStartTakesTheDefaultOrEndsTheStartOnCancel) {
    TempFolder defaultFolder;
    {
        app::DataLocationDialog dialog(app::DataLocationDialog::Kind::Start, s(), defaultFolder.str());
        dialog.show();
        EXPECT_EQ(dialog.objectName(), QStringLiteral("SetDataLocationStart"));
        EXPECT_EQ(named<QLineEdit>(&dialog, "TxtPath")->text().toStdString(), s().DataFolder());
        EXPECT_EQ(named<QPushButton>(&dialog, "DefaultButton")->text(), QStringLiteral("Set to Default"));
        click(&dialog, "DefaultButton");
        EXPECT_EQ(named<QLineEdit>(&dialog, "TxtPath")->text().toStdString(), defaultFolder.str());
        click(&dialog, "SetLocationButton");
        EXPECT_FALSE(dialog.isVisible());
        EXPECT_EQ(s().DataFolder(), defaultFolder.str());
        EXPECT_TRUE(ui.shown("The data folder location has been set to " + defaultFolder.str()));
    }
    {
        app::DataLocationDialog dialog(app::DataLocationDialog::Kind::Start, s(), defaultFolder.str());
        dialog.show();
        click(&dialog, "CancelButton");
        EXPECT_TRUE(s().DataFolder().empty());
    }
}

TEST_F(MaintenanceDialogsTest, SetDataLocationAsksThenEndsTheRun) {
    TempFolder other;
    app::DataLocationDialog dialog(app::DataLocationDialog::Kind::Running, s(), other.str());
    dialog.show();
    EXPECT_EQ(dialog.objectName(), QStringLiteral("SetDataLocation"));
    type(&dialog, "TxtPath", QString());
    click(&dialog, "SetLocationButton");
    EXPECT_TRUE(ui.shown("Use browse to search for a folder to be used to set the new data location."));
    EXPECT_TRUE(dialog.isVisible());

    type(&dialog, "TxtPath", QString::fromStdString(other.str()));
    ui.answer(MsgAnswer::No);
    click(&dialog, "SetLocationButton");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_FALSE(s().ExitNow);
    click(&dialog, "SetLocationButton");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_TRUE(s().ExitNow);
    EXPECT_EQ(store::GetRegSetting(s(), "datalocation"), other.str());
}

TEST_F(MaintenanceDialogsTest, WindowsAndCommandsAreRegisteredWithTheMainWindow) {
    app::QtUi qtUi;
    app::MainWindow window(s(), qtUi);
    app::registerMaintenanceWindows(window);
    for (const char* modal : {"enterpassword", "setpassword", "backup", "RestoreSchedData", "SetDataLocation",
                              "SetDataLocationStart", "firstrun"})
        EXPECT_TRUE(qtUi.hasModal(modal)) << modal;
    for (const char* command : {"mnusetpassword", "mnubackup", "mnuRestore"})
        EXPECT_TRUE(window.isHandled(command)) << command;

    // The backup command closes the shared connection around the window.
    window.runCommand("mnubackup");
    ASSERT_EQ(ui.modals, std::vector<std::string>{"backup"});
    EXPECT_TRUE(store::GetRecs(s(), "select * from options").isOpen());
}

// Every dialog builds with its texts in full: every label gets at least the height its wrapped text
// needs. Pictures of them come from tallymere_screenshots.
TEST_F(MaintenanceDialogsTest, DialogsBuildWithTheirTextsInFull) {
    setOwnerPassword("Abc");
    store::SaveRegSetting(s(), "backuplocation", "/media/usb/Tallymere backups");
    std::vector<std::unique_ptr<QWidget>> dialogs;
    dialogs.push_back(std::make_unique<app::EnterPasswordDialog>(s()));
    dialogs.push_back(
        std::make_unique<app::EnterPasswordDialog>(s(), nullptr, app::EnterPasswordDialog::Prompt::OwnerOnly));
    dialogs.push_back(std::make_unique<app::SetPasswordDialog>(s()));
    dialogs.push_back(std::make_unique<app::BackupDialog>(s()));
    dialogs.push_back(std::make_unique<app::RestoreSchedDataDialog>(s()));
    dialogs.push_back(std::make_unique<app::DataLocationDialog>(app::DataLocationDialog::Kind::Running, s(),
                                                                "/home/owner/.local/share/Quillbrook/Tallymere"));
    dialogs.push_back(std::make_unique<app::DataLocationDialog>(app::DataLocationDialog::Kind::Start, s(),
                                                                "/home/owner/.local/share/Quillbrook/Tallymere"));
    dialogs.push_back(std::make_unique<app::FirstRunDialog>());
    for (const auto& dialog : dialogs) {
        dialog->show();
        for (const QLabel* label : dialog->findChildren<QLabel*>()) {
            if (!label->isVisible() || label->text().isEmpty() || !label->wordWrap()) continue;
            EXPECT_GE(label->height(), label->heightForWidth(label->width()))
                << dialog->objectName().toStdString() << ": " << label->text().toStdString();
        }
    }
}

}  // namespace
}  // namespace tallymere::testing

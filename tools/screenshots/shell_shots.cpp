#include "app/maintenance/backup_dialog.h"
#include "app/maintenance/data_location_dialog.h"
#include "app/maintenance/enterpassword_dialog.h"
#include "app/maintenance/restore_sched_data_dialog.h"
#include "app/maintenance/setpassword_dialog.h"
#include "app/shell/firstrun_dialog.h"
#include "app/shell/shell_icons.h"
#include "maintenance/setpassword.h"
#include "scene.h"
#include "store/options.h"

#include <QMenu>
#include <memory>
#include <vector>

namespace tallymere::shots {

void shellShots(Scene& scene) {
    common::Session& s = scene.s();
    maintenance::setpassword password(s);
    password.chooseRequirePassword();
    password.passwordowner = "Abc";
    password.OK();
    store::SaveRegSetting(s, "backuplocation", "/media/usb/Tallymere backups");

    app::MainWindow& window = scene.window();
    s.activeDate = s.clock().today();
    window.mainForm().FillDateFormatMenu();
    window.mainForm().SetupQuickBar();
    window.mainForm().mnuQuickBar_Click();
    window.activeDateChanged();
    window.resize(1180, 560);
    window.show();
    scene.save(&window, QStringLiteral("frmMain"));
    for (const char* name : {"mnuFile", "mnuview", "mnutools", "mnureports", "mnudaterightclick"}) {
        auto* menu = window.QObject::findChild<QMenu*>(QString::fromLatin1(name));
        if (!menu) continue;
        menu->adjustSize();
        scene.save(menu, QString::fromLatin1(name));
    }
    scene.saveImage(app::splashPixmap(QStringLiteral("0.1.0")).toImage(), QStringLiteral("frmSplash"));

    const std::string folder = "/home/owner/.local/share/Quillbrook/Tallymere";
    std::vector<std::unique_ptr<QWidget>> dialogs;
    dialogs.push_back(std::make_unique<app::EnterPasswordDialog>(s));
    dialogs.push_back(
        std::make_unique<app::EnterPasswordDialog>(s, nullptr, app::EnterPasswordDialog::Prompt::OwnerOnly));
    dialogs.push_back(std::make_unique<app::SetPasswordDialog>(s));
    dialogs.push_back(std::make_unique<app::BackupDialog>(s));
    dialogs.push_back(std::make_unique<app::RestoreSchedDataDialog>(s));
    dialogs.push_back(std::make_unique<app::DataLocationDialog>(app::DataLocationDialog::Kind::Running, s, folder));
    dialogs.push_back(std::make_unique<app::DataLocationDialog>(app::DataLocationDialog::Kind::Start, s, folder));
    dialogs.push_back(std::make_unique<app::FirstRunDialog>());
    int prompts = 0;
    for (const auto& dialog : dialogs) {
        QString name = dialog->objectName();
        // The two password prompts are one window.
        if (name == QLatin1String("enterpassword") && prompts++ > 0) name += QStringLiteral("-owner");
        dialog->show();
        scene.save(dialog.get(), name);
    }
}

}  // namespace tallymere::shots

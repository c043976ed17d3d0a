// The maintenance windows and their commands: the password prompt and the password settings, backup
// and restore, and the data location windows.

#include "app/common/qt_ui.h"
#include "app/maintenance/backup_dialog.h"
#include "app/maintenance/data_location_dialog.h"
#include "app/maintenance/enterpassword_dialog.h"
#include "app/maintenance/export_data_dialog.h"
#include "app/maintenance/restore_sched_data_dialog.h"
#include "app/maintenance/setpassword_dialog.h"
#include "app/shell/app_context.h"
#include "maintenance/backup.h"
#include "maintenance/enterpassword.h"
#include "maintenance/setpassword.h"
#include "shell/main_form.h"

namespace tallymere::app {

namespace {

template <typename Dialog, typename... Args>
void runDialog(Args&&... args) {
    Dialog dialog(std::forward<Args>(args)...);
    dialog.exec();
}

}  // namespace

void registerMaintenanceWindows(AppContext& context) {
    AppContext* c = &context;
    QtUi& ui = context.ui();
    ui.registerModal("enterpassword", [c] { runDialog<EnterPasswordDialog>(c->session(), c->mainWindow()); });
    ui.registerModal(maintenance::kOwnerPasswordPrompt, [c] {
        runDialog<EnterPasswordDialog>(c->session(), c->mainWindow(), EnterPasswordDialog::Prompt::OwnerOnly);
    });
    ui.registerModal("setpassword", [c] { runDialog<SetPasswordDialog>(c->session(), c->mainWindow()); });
    ui.registerModal("backup", [c] { runDialog<BackupDialog>(c->session(), c->mainWindow()); });
    ui.registerModal("RestoreSchedData", [c] { runDialog<RestoreSchedDataDialog>(c->session(), c->mainWindow()); });
    ui.registerModal("SetDataLocation", [c] {
        runDialog<DataLocationDialog>(DataLocationDialog::Kind::Running, c->session(),
                                      c->mainForm().defaultDataFolder(), c->mainWindow());
    });
    ui.registerModal("SetDataLocationStart", [c] {
        runDialog<DataLocationDialog>(DataLocationDialog::Kind::Start, c->session(), c->mainForm().defaultDataFolder(),
                                      c->mainWindow());
    });

    ui.registerModal(maintenance::ExportData::kWindowName,
                     [c] { runDialog<ExportDataDialog>(c->session(), c->mainWindow()); });
    context.registerCommand("mnuExportScheduleData",
                            [c] { c->session().ui().showModal(maintenance::ExportData::kWindowName); });

    context.registerCommand("mnusetpassword", [c] { maintenance::OpenSetPassword(c->session()); });
    context.registerCommand("mnubackup", [c] { maintenance::RunBackup(c->session()); });
    context.registerCommand("mnuRestore", [c] { maintenance::RunRestore(c->session()); });
}

}  // namespace tallymere::app

#include "maintenance/restore_sched_data.h"

#include "maintenance/file_copy.h"
#include "store/database.h"
#include "store/online_backup.h"
#include "store/options.h"

#include <filesystem>

namespace tallymere::maintenance {

namespace fs = std::filesystem;
using common::MsgButtons;
using common::MsgIcon;

RestoreSchedData::RestoreSchedData(common::Session& s) : s_(s) { txtPath = store::GetRegSetting(s_, "Backuplocation"); }

void RestoreSchedData::BrowseButton() {
    if (auto folder = s_.ui().chooseFolder("Select the folder that holds the Tallymere backup", txtPath))
        txtPath = *folder;
}

void RestoreSchedData::RestoreButton() {
    auto& ui = s_.ui();
    if (ui.message("Are you sure you want to overwrite your current Tallymere data?", MsgButtons::YesNo, MsgIcon::None,
                   "Confirm Request to Restore") != common::MsgAnswer::Yes)
        return;
    const std::string folder = folderText(txtPath);
    if (folder.empty()) {
        ui.message("Use browse to search for a folder to be used for the restore", MsgButtons::Ok, MsgIcon::None,
                   "Tallymere backup");
        return;
    }
    if (sameFolder(folder, s_.DataFolder())) {
        ui.message(
            "You cannot restore from the folder containing the live Tallymere data, please select a different "
            "folder.",
            MsgButtons::Ok, MsgIcon::None, "Wrong Folder");
        return;
    }
    const std::string chosen = inFolder(folder, common::Session::kDatabaseFileName);
    std::error_code ec;
    if (!fs::is_regular_file(chosen, ec)) {
        ui.message("A Tallymere database file (Tallymere.db) was not found in the folder you selected.", MsgButtons::Ok,
                   MsgIcon::None, "No Tallymere Database found");
        return;
    }
    // Checked before anything is copied: the live data is never replaced by a file that is not ours.
    if (!store::isTallymereDatabaseFile(chosen)) {
        ui.message("The file " + chosen + " is not a valid Tallymere file. Your current data has not been changed.",
                   MsgButtons::Ok, MsgIcon::Exclamation, "No Tallymere Database found");
        return;
    }

    const auto failed = [&ui] {
        ui.message("Unable to restore data. Make sure no other users are connected to the Tallymere database.",
                   MsgButtons::Ok, MsgIcon::None, "Error on Restore");
    };
    const std::string live = s_.DatabasePath();
    const int wait = store::db(s_).busyTimeout();
    if (fs::exists(live, ec)) {
        const std::string keep = inFolder(s_.DataFolder(), kRestoreKeepName);
        // Written in place under the file's exclusive lock: refused while another copy is in it.
        store::CopySide side = store::CopySide::Source;
        const auto e = store::restoreDatabaseFile(chosen, live, keep, &side, wait);
        // A live file too damaged to be read as a database is kept byte for byte, it may still be
        // all the user has, and replaced as a file.
        const bool unreadable = side == store::CopySide::Target &&
                                (e.kind == store::DbErrorKind::Damaged || e.kind == store::DbErrorKind::NotADatabase);
        if (e && !unreadable) return failed();
        if (unreadable && (copyFileReplacing(live, keep) || store::backupDatabaseFile(chosen, live, nullptr, wait)))
            return failed();
    } else if (store::backupDatabaseFile(chosen, live, nullptr, wait)) {
        return failed();
    }

    ui.message(
        "Your data was successfully restored. Tallymere must now shut down to finish the restore process. When "
        "you restart you will be using the restored data.",
        MsgButtons::Ok, MsgIcon::None, "Restore Complete");
    store::SaveRegSetting(s_, "Backuplocation", folder);
    s_.endProgram();
}

}  // namespace tallymere::maintenance

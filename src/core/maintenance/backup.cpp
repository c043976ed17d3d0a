#include "maintenance/backup.h"

#include "maintenance/file_copy.h"
#include "store/access.h"
#include "store/database.h"
#include "store/online_backup.h"
#include "store/options.h"

#include <filesystem>
#include <system_error>

namespace tallymere::maintenance {

namespace fs = std::filesystem;
using common::MsgButtons;
using common::MsgIcon;

namespace {

// What went wrong with a copy, in the terms the user is told.
enum class Failure { InUse, Interrupted, Refused, Other };

Failure failureOf(const store::DbError& e, store::CopySide side) {
    if (e.kind == store::DbErrorKind::LostConnection) return Failure::Interrupted;
    if (e.kind == store::DbErrorKind::NotWritable)
        return side == store::CopySide::Source ? Failure::InUse : Failure::Refused;
    return Failure::Other;
}

Failure failureOf(const std::error_code& ec) {
    if (ec == std::errc::permission_denied || ec == std::errc::operation_not_permitted ||
        ec == std::errc::read_only_file_system)
        return Failure::Refused;
    if (ec == std::errc::device_or_resource_busy || ec == std::errc::text_file_busy) return Failure::InUse;
    if (ec == std::errc::io_error) return Failure::Interrupted;
    return Failure::Other;
}

void tellFailure(common::Session& s, Failure f, int number, const std::string& description) {
    std::string text;
    switch (f) {
    case Failure::InUse:
        text =
            "Tallymere was unable to perform the backup. Please exit any other programs that may be using the "
            "database.";
        break;
    case Failure::Interrupted:
        text =
            "Error: Backup operation did not complete. Make sure no other users are connected to the Tallymere "
            "database.";
        break;
    case Failure::Refused:
        text =
            "Backup operation did not complete. Make sure no other users are connected to the Tallymere database. "
            "You may not have permissions to overwrite existing files especially if the existing files were "
            "created under an Admin account and you are currently running using a limited account.";
        break;
    case Failure::Other:
        text = "Tallymere is unable to complete the backup. Error:" + std::to_string(number) + ", " + description +
               ".  Make sure the location you are writing to is available and that you have write permissions.";
        break;
    }
    s.ui().message(text, MsgButtons::Ok, MsgIcon::None, "Backup Failed");
}

}  // namespace

backup::backup(common::Session& s) : s_(s) { txtPath = store::GetRegSetting(s_, "Backuplocation"); }

void backup::BrowseButton() {
    if (auto folder = s_.ui().chooseFolder("Select the folder for the Tallymere backup", txtPath)) txtPath = *folder;
}

bool backup::backupbutton() {
    if (s_.ui().message("If you have Tallymere data at your backup location, it will be overwritten. Are you sure you "
                        "want to continue?",
                        MsgButtons::YesNo, MsgIcon::None, "Confirm Tallymere backup") != common::MsgAnswer::Yes)
        return false;
    const std::string folder = folderText(txtPath);
    if (folder.empty()) {
        s_.ui().message("Use browse to search for a folder to be used for the backup", MsgButtons::Ok, MsgIcon::None,
                        "Tallymere backup");
        return false;
    }
    if (sameFolder(folder, s_.DataFolder())) {
        s_.ui().message(
            "You cannot backup to the folder containing the live Tallymere data, please select a different "
            "folder.",
            MsgButtons::Ok, MsgIcon::None, "Tallymere Backup");
        return false;
    }

    std::error_code ec;
    const std::string database = s_.DatabasePath();
    if (fs::exists(database, ec)) {
        store::CopySide side = store::CopySide::Source;
        if (const auto e = store::backupDatabaseFile(database, inFolder(folder, common::Session::kDatabaseFileName),
                                                     &side, store::db(s_).busyTimeout())) {
            tellFailure(s_, failureOf(e, side), e.number, e.description);
            return false;
        }
    }
    // The start's copy is named after the database as it was found ("tallymere.db" gives
    // "tallymere.bak"); in the backup folder it takes the usual name.
    const std::string startCopy = fs::path(database).replace_extension(".bak").string();
    if (fs::exists(startCopy, ec)) {
        if (const auto copyError = copyFileReplacing(startCopy, inFolder(folder, kBackupCopyName))) {
            tellFailure(s_, failureOf(copyError), copyError.value(), copyError.message());
            return false;
        }
    }

    s_.ui().message("Tallymere data was backed up successfully", MsgButtons::Ok, MsgIcon::None, "Backup Tallymere");
    store::SaveRegSetting(s_, "Backuplocation", folder);
    return true;
}

void RunBackup(common::Session& s) {
    store::CloseDB(s);
    s.ui().showModal("backup");
    store::ConnectDB(s);
}

void RunRestore(common::Session& s) {
    store::CloseDB(s);
    const auto refuse = [&s](int number, const std::string& description) {
        s.ui().message("Before you can restore the database you must be the only user connected. Error: " +
                           std::to_string(number) + " " + description,
                       MsgButtons::Ok, MsgIcon::None, "Unable to restore Tallymere Data");
    };
    try {
        s.ui().showModal("RestoreSchedData");
    } catch (const common::ProgramEnd&) {
        throw;
    } catch (const std::system_error& e) {
        // The next read reconnects by itself.
        refuse(e.code().value(), e.what());
        return;
    } catch (const std::exception& e) {
        refuse(0, e.what());
        return;
    }
    store::ConnectDB(s);
}

}  // namespace tallymere::maintenance

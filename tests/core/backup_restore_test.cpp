// Backup and restore of the data folder: the refusals, what is copied where, and that a failed copy
// never leaves a torn or foreign file in place of good data.

#include "maintenance/backup.h"
#include "maintenance/restore_sched_data.h"
#include "store/connection.h"
#include "store/online_backup.h"
#include "store/options.h"
#include "support/other_connection.h"
#include "support/test_database.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <sstream>
#include <system_error>
#include <thread>

namespace tallymere::testing {
namespace {

namespace fs = std::filesystem;
using Rows = std::vector<std::string>;

void writeFile(const fs::path& p, const std::string& bytes) { std::ofstream(p, std::ios::binary) << bytes; }
std::string readFile(const fs::path& p) {
    std::ostringstream out;
    out << std::ifstream(p, std::ios::binary).rdbuf();
    return out.str();
}

class BackupRestoreTest : public DatabaseTest {
protected:
    // The `marker` option of the database in another folder, read through a session of its own;
    // with `value`, that folder first gets a database holding it.
    std::string marker(const fs::path& dataFolder, const char* value = nullptr) {
        FakeUi otherUi;
        common::MemoryUserSettings otherSettings;
        common::Session other(otherUi, otherSettings, clock);
        other.setDataFolder(dataFolder.string());
        if (value) fs::copy_file(templatePath(), other.DatabasePath(), fs::copy_options::overwrite_existing);
        if (!store::ConnectDB(other)) return "<no database>";
        if (value) store::SaveOption(other, "marker", value);
        const std::string v = store::GetOption(other, "marker");
        store::CloseDB(other);
        return v;
    }
    bool pressBackup(const std::string& path) {
        maintenance::backup w(s());
        w.txtPath = path;
        return w.backupbutton();
    }
    void pressRestore(const std::string& path) {
        maintenance::RestoreSchedData w(s());
        w.txtPath = path;
        w.RestoreButton();
    }
    const ShownMessage& last() const { return ui.messages.back(); }
    fs::path inData(const char* name) const { return folder.path() / name; }

    TempFolder elsewhere;
};

TEST_F(BackupRestoreTest, TheDataFolderIsRefusedHoweverItIsSpelled) {
    for (const std::string& spelling : {folder.str(), " " + folder.str() + "/./ "}) {
        EXPECT_FALSE(pressBackup(spelling));
        EXPECT_EQ(last().text,
                  "You cannot backup to the folder containing the live Tallymere data, please select a "
                  "different folder.");
        pressRestore(spelling);
        EXPECT_EQ(last().text,
                  "You cannot restore from the folder containing the live Tallymere data, please select "
                  "a different folder.");
        EXPECT_EQ(last().title, "Wrong Folder");
    }
    EXPECT_FALSE(fs::exists(inData("Tallymere.tmp")));
    EXPECT_EQ(userSettings.get("Backuplocation"), "");
}

TEST_F(BackupRestoreTest, BackupCopiesTheDatabaseAndTheStartCopyAndRemembersTheFolder) {
    store::SaveOption(s(), "marker", "today's data");
    writeFile(inData("Tallymere.bak"), "copy of the start");
    writeFile(elsewhere.path() / "Tallymere.db", "an older backup");
    writeFile(elsewhere.path() / "Tallymere.db-journal", "journal of the older backup");

    ASSERT_TRUE(pressBackup(elsewhere.str() + "/"));
    EXPECT_EQ(last().text, "Tallymere data was backed up successfully");
    // Just the two files: no temporary copy left, and the old file's journal went with it (looked
    // at before anything opens the copy).
    Rows names;
    for (const auto& e : fs::directory_iterator(elsewhere.path())) names.push_back(e.path().filename().string());
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (Rows{"Tallymere.bak", "Tallymere.db"}));
    EXPECT_EQ(marker(elsewhere.path()), "today's data");
    EXPECT_EQ(readFile(elsewhere.path() / "Tallymere.bak"), "copy of the start");
    EXPECT_EQ(maintenance::backup(s()).txtPath, elsewhere.str());  // the next backup starts there
}

TEST_F(BackupRestoreTest, FailedBackupsSayWhyAndLeaveTheOldBackupWhole) {
    writeFile(elsewhere.path() / "Tallymere.db", "an older backup");
    fs::permissions(elsewhere.path() / "Tallymere.db", fs::perms::all, fs::perm_options::remove);
    fs::permissions(elsewhere.path() / "Tallymere.db", fs::perms::owner_read, fs::perm_options::add);
    EXPECT_FALSE(pressBackup(elsewhere.str()));
    EXPECT_EQ(last().title, "Backup Failed");
    EXPECT_TRUE(
        last().text.starts_with("Backup operation did not complete. Make sure no other users are connected "
                                "to the Tallymere database. You may not have permissions to overwrite"));
    EXPECT_EQ(readFile(elsewhere.path() / "Tallymere.db"), "an older backup");

    EXPECT_FALSE(pressBackup((elsewhere.path() / "gone").string()));
    EXPECT_TRUE(last().text.starts_with("Tallymere is unable to complete the backup. Error:"));
    EXPECT_TRUE(last().text.ends_with(
        ".  Make sure the location you are writing to is available and that you have write permissions."));
    EXPECT_EQ(userSettings.get("Backuplocation"), "");
}

TEST(OnlineBackup, AFailedCopyLeavesTheTargetAndOnlyOurIdMarksADatabase) {
    TempFolder dir;
    const auto junk = dir.path() / "junk.db";
    const auto target = dir.path() / "target.db";
    writeFile(junk, std::string(4096, 'x'));
    writeFile(target, "kept");
    store::CopySide side = store::CopySide::Target;
    EXPECT_TRUE(store::backupDatabaseFile(junk.string(), target.string(), &side));
    EXPECT_EQ(side, store::CopySide::Source);
    EXPECT_EQ(readFile(target), "kept");
    EXPECT_FALSE(fs::exists(dir.path() / "target.db.partial"));

    EXPECT_TRUE(store::isTallymereDatabaseFile(templatePath().string()));
    EXPECT_FALSE(store::isTallymereDatabaseFile(junk.string()));
    // Another program's SQLite file: sound, but not ours.
    fs::copy_file(templatePath(), target, fs::copy_options::overwrite_existing);
    store::DbError e;
    ASSERT_FALSE(store::Connection::open(target.string(), e, false)->executeScript("PRAGMA application_id=7;"));
    EXPECT_FALSE(store::isTallymereDatabaseFile(target.string()));
}

TEST(OnlineBackup, ACopyTakenDuringAnotherProgramsWriteHoldsOnlyWhatWasCommitted) {
    TempFolder dir;
    const fs::path live = dir.path() / "Tallymere.db";
    fs::copy_file(templatePath(), live);
    OtherConnection writer(live.string());
    writer.exec("PRAGMA cache_size=10");
    ASSERT_EQ(writer.exec("BEGIN"), SQLITE_OK);
    ASSERT_EQ(writer.exec("with recursive n(i) as (select 1 union all select i + 1 from n where i < 400) "
                          "insert into section (name, description) select 'unsaved', hex(randomblob(200)) from n"),
              SQLITE_OK);
    // The write is big enough to be in the file already, its journal beside it: a plain copy of the
    // file now holds pages that were never committed.
    const std::string plain = readFile(live);
    std::thread rollBack([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        writer.exec("ROLLBACK");
    });
    const store::DbError e = store::backupDatabaseFile(live.string(), (dir.path() / "Tallymere.bak").string());
    rollBack.join();
    EXPECT_FALSE(e) << e.description;
    EXPECT_FALSE(plain == readFile(live));
    OtherConnection bak((dir.path() / "Tallymere.bak").string());
    EXPECT_EQ(bak.value("pragma quick_check"), "ok");
    EXPECT_EQ(bak.value("select count(*) from section where name = 'unsaved'"), "0");
}

TEST_F(BackupRestoreTest, RestoreRefusesAMissingOrForeignDatabaseBeforeCopyingAnything) {
    const std::string before = readFile(s().DatabasePath());
    pressRestore(elsewhere.str());
    EXPECT_EQ(last().text, "A Tallymere database file (Tallymere.db) was not found in the folder you selected.");
    EXPECT_EQ(last().title, "No Tallymere Database found");

    writeFile(elsewhere.path() / "Tallymere.db", std::string(8192, '\0'));
    pressRestore(elsewhere.str());
    EXPECT_EQ(last().text, "The file " + (elsewhere.path() / "Tallymere.db").string() +
                               " is not a valid Tallymere file. Your current data has not been changed.");
    EXPECT_FALSE(fs::exists(inData("Tallymere.tmp")));
    EXPECT_EQ(readFile(s().DatabasePath()), before);
    EXPECT_FALSE(s().endRequested());
}

TEST_F(BackupRestoreTest, RestoreKeepsTheOldDataAsTmpAndEndsTheProgram) {
    store::SaveOption(s(), "marker", "live");
    marker(elsewhere.path(), "backed up");
    store::CloseDB(s());
    EXPECT_THROW(pressRestore(elsewhere.str()), common::ProgramEnd);
    EXPECT_TRUE(s().ExitNow);
    EXPECT_EQ(last().title, "Restore Complete");
    EXPECT_EQ(userSettings.get("Backuplocation"), elsewhere.str());
    EXPECT_EQ(marker(folder.path()), "backed up");
    fs::rename(inData("Tallymere.tmp"), elsewhere.path() / "Tallymere.db");
    EXPECT_EQ(marker(elsewhere.path()), "live");
}

TEST_F(BackupRestoreTest, RestoreRefusesWhileAnotherCopyIsInTheFileAndChangesNothing) {
    store::SaveOption(s(), "marker", "live");
    marker(elsewhere.path(), "backed up");
    store::CloseDB(s());
    store::db(s()).setBusyTimeout(100);
    const std::string before = readFile(s().DatabasePath());
    for (bool writing : {false, true}) {
        OtherConnection other(s().DatabasePath());
        if (writing)
            other.lockForWriting();
        else
            other.holdForReading();
        EXPECT_NO_THROW(pressRestore(elsewhere.str()));
        EXPECT_EQ(last().text,
                  "Unable to restore data. Make sure no other users are connected to the Tallymere database.");
        EXPECT_EQ(last().title, "Error on Restore");
        EXPECT_FALSE(s().endRequested());
        EXPECT_TRUE(readFile(s().DatabasePath()) == before);
        EXPECT_FALSE(fs::exists(inData("Tallymere.tmp")));
    }
    EXPECT_EQ(marker(folder.path()), "live");
    EXPECT_EQ(userSettings.get("Backuplocation"), "");
}

TEST_F(BackupRestoreTest, ACopyStillConnectedAfterARestoreWritesIntoTheRestoredData) {
    store::SaveOption(s(), "marker", "live");
    marker(elsewhere.path(), "backed up");
    store::CloseDB(s());
    OtherConnection other(s().DatabasePath());
    EXPECT_EQ(other.value("select optionvalue from options where optionname = 'marker'"), "live");
    EXPECT_THROW(pressRestore(elsewhere.str()), common::ProgramEnd);
    // It sees the restored data, and what it writes next is not lost with the old file.
    EXPECT_EQ(other.value("select optionvalue from options where optionname = 'marker'"), "backed up");
    EXPECT_EQ(other.exec("update options set optionvalue = 'after' where optionname = 'marker'"), SQLITE_OK);
    EXPECT_EQ(marker(folder.path()), "after");
    fs::rename(inData("Tallymere.tmp"), elsewhere.path() / "Tallymere.db");
    EXPECT_EQ(marker(elsewhere.path()), "live");
}

TEST_F(BackupRestoreTest, RestoreKeepsADamagedLiveFileByteForByte) {
    marker(elsewhere.path(), "backed up");
    store::CloseDB(s());
    std::string damaged = readFile(s().DatabasePath());
    std::fill(damaged.begin() + 16, damaged.end(), '\xA5');
    writeFile(s().DatabasePath(), damaged);
    EXPECT_THROW(pressRestore(elsewhere.str()), common::ProgramEnd);
    EXPECT_EQ(readFile(inData("Tallymere.tmp")), damaged);
    EXPECT_EQ(marker(folder.path()), "backed up");
}

TEST_F(BackupRestoreTest, MenuCommandsCloseTheConnectionAroundTheirWindows) {
    bool openDuringWindow = true;
    ui.onModal("backup", [&] { openDuringWindow = store::db(s()).isOpen(); });
    maintenance::RunBackup(s());
    EXPECT_FALSE(openDuringWindow);
    EXPECT_TRUE(store::db(s()).isOpen());

    ui.onModal("RestoreSchedData", [] { throw std::system_error(EBUSY, std::generic_category(), "Tallymere.db"); });
    EXPECT_NO_THROW(maintenance::RunRestore(s()));
    EXPECT_EQ(last().title, "Unable to restore Tallymere Data");
    EXPECT_TRUE(
        last().text.starts_with("Before you can restore the database you must be the only user connected. "
                                "Error: " +
                                std::to_string(EBUSY) + " "));

    marker(elsewhere.path(), "backed up");
    ui.onModal("RestoreSchedData", [&] { pressRestore(elsewhere.str()); });
    EXPECT_THROW(maintenance::RunRestore(s()), common::ProgramEnd);
    EXPECT_FALSE(store::db(s()).isOpen());
}

}  // namespace
}  // namespace tallymere::testing

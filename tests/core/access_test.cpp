// The access layer: quoting, bound values, the snapshot recordset, and what each kind of engine
// failure does to the user and to the run.

#include "store/access.h"
#include "store/database.h"
#include "store/template_builder.h"
#include "support/other_connection.h"
#include "support/test_database.h"

#include <sqlite3.h>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

namespace tallymere::testing {
namespace {

using store::DbError;
using store::DbErrorKind;
using store::GetRecs;
using store::InsertRecs;
using store::Recordset;
namespace fs = std::filesystem;

TEST(Chkfld, QuotesAreDoubledAfterTheCut) {
    EXPECT_EQ(store::chkfld("O'Brien'''"), "O''Brien''''''");
    EXPECT_EQ(store::chkfld("'a'b'"), "''a''b''");
    EXPECT_EQ(store::chkfld(std::string(300, 'x')), std::string(255, 'x'));
    EXPECT_EQ(store::chkfld(std::string(255, '\'')), std::string(510, '\''));
    EXPECT_EQ(store::chkfld("   padded  "), "padded");
    EXPECT_EQ(store::chkfld(store::Value()), "");
    // A multi-byte character is never cut in half.
    const std::string e = "\xC3\xA9";  // é
    std::string longName;
    for (int i = 0; i < 300; ++i) longName += e;
    EXPECT_EQ(store::chkfld(longName).size(), 255 * e.size());
}

TEST(Chknull, NullIsEmptyAndTextIsTrimmed) {
    EXPECT_EQ(store::chknull(store::Value()), "");
    EXPECT_EQ(store::chknull(" Smith "), "Smith");
    EXPECT_EQ(store::chknull(42), "42");
}

using AccessTest = DatabaseTest;

TEST_F(AccessTest, NamesWithQuotesAndSqlAreStoredAndFoundAgain) {
    for (const std::string name : {"O'Brien", "x'); drop table person; --", "\"Quoted\" Name", "  Trimmed  "}) {
        ASSERT_TRUE(InsertRecs(s(), "insert into person (lname, fname, active) values (?, ?, true)", {name, "Pat"}));
        Recordset rs = GetRecs(s(), "select * from person where lname = ?", {name});
        ASSERT_EQ(rs.RecordCount(), 1u) << name;
        EXPECT_EQ(rs["lname"].text(), store::chknull(name));
    }
    EXPECT_EQ(GetRecs(s(), "select * from person").RecordCount(), 5u);  // the sample employee and four
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(AccessTest, TextIsCutTo255AndComparedWithoutCase) {
    InsertRecs(s(), "insert into section (name, description) values (?, ?)", {"Kitchen", std::string(300, 'd')});
    Recordset rs = GetRecs(s(), "select * from section where name = ?", {"KITCHEN"});
    ASSERT_EQ(rs.RecordCount(), 1u);
    EXPECT_EQ(rs["DESCRIPTION"].text().size(), 255u);
}

TEST_F(AccessTest, RecordsetIsASnapshotWithNullsToldApart) {
    InsertRecs(s(), "insert into section (name) values (?)", {"Bar"});
    Recordset rs = GetRecs(s(), "select name, description from section");
    ASSERT_EQ(rs.RecordCount(), 1u);
    EXPECT_TRUE(rs["description"].isNull());
    EXPECT_EQ(rs["description"].text(), "");
    EXPECT_TRUE(rs["no such column"].isNull());
    InsertRecs(s(), "insert into section (name) values (?)", {"Floor"});
    EXPECT_EQ(rs.RecordCount(), 1u);
    rs.MoveNext();
    EXPECT_TRUE(rs.eof());
}

TEST_F(AccessTest, DatesAreBoundAsValuesNotDisplayText) {
    const auto start = common::DateTime::fromParts(2026, 11, 23, 22, 0);
    InsertRecs(s(), "insert into sched (personid, lname, sday, strttime, endtime, sname) values (?,?,?,?,?,?)",
               {-1, "**Unassigned**", start.date(), start, start.addHours(8), "Main"});
    Recordset rs = GetRecs(s(), "select * from sched where sday = ? and strttime >= ?",
                           {common::Date::fromYmd(2026, 11, 23), common::DateTime::fromParts(2026, 11, 23)});
    ASSERT_EQ(rs.RecordCount(), 1u);
    EXPECT_EQ(rs["sday"].text(), "2026-11-23");
    EXPECT_EQ(rs["endtime"].toDateTime(), common::DateTime::fromParts(2026, 11, 24, 6, 0));
}

TEST_F(AccessTest, StatementsAreReusedNotPreparedAgain) {
    const std::size_t before = store::db(s()).preparedCount();
    for (int i = 0; i < 20; ++i) GetRecs(s(), "select * from person where personid = ?", {i});
    EXPECT_EQ(store::db(s()).preparedCount() - before, 1u);
}

TEST_F(AccessTest, AnUpdateWorksWhileTheSharedConnectionIsClosedAndAReadReconnectsWithoutAWord) {
    store::CloseDB(s());
    EXPECT_TRUE(store::UdateRecs(s(), "update person set city = ? where lname = ?", {"Dayton", "Sample"}));
    EXPECT_FALSE(store::db(s()).isOpen());
    EXPECT_EQ(GetRecs(s(), "select city from person")["city"].text(), "Dayton");
    EXPECT_TRUE(store::db(s()).isOpen());
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_FALSE(s().ExitNow);
}

TEST_F(AccessTest, FailedActionsSayWhichOperationAndKeepGoing) {
    EXPECT_FALSE(InsertRecs(s(), "insert into nosuchtable (x) values (?)", {1}));
    EXPECT_FALSE(store::DeleteRecs(s(), "delete from nosuchtable"));
    EXPECT_FALSE(store::UdateRecs(s(), "update nosuchtable set x = 1"));
    ASSERT_EQ(ui.messages.size(), 3u);
    EXPECT_EQ(ui.messages[0].text.rfind("Unable to update database [InsertRecs].no such table", 0), 0u);
    EXPECT_EQ(ui.messages[1].text.rfind("Unable to update database [DeleteRecs].", 0), 0u);
    EXPECT_EQ(ui.messages[2].text.rfind("Unable to update database [UdateRecs].", 0), 0u);
    EXPECT_EQ(ui.messages[0].icon, MsgIcon::Critical);
    EXPECT_EQ(ui.messages[0].title, "Tallymere");
    EXPECT_FALSE(s().ExitNow);
    // An update that matches nothing is no error.
    EXPECT_TRUE(store::UdateRecs(s(), "update person set city = 'x' where personid = ?", {999}));
}

TEST_F(AccessTest, ABadSelectSetsExitNowAndGivesAnEmptyResult) {
    Recordset rs = GetRecs(s(), "select * from nosuchtable");
    EXPECT_FALSE(rs.isOpen());
    EXPECT_EQ(rs.RecordCount(), 0u);
    EXPECT_TRUE(s().ExitNow);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].text.rfind("Error occurred reading the Tallymere database " + s().DatabasePath() +
                                            ". (Error number1) no such table",
                                        0),
              0u);
}

TEST_F(AccessTest, ThreeLostConnectionsEndInErrorReadingData) {
    int selects = 0;
    store::db(s()).setFaultInjector([&](std::string_view op, std::string_view) -> std::optional<DbError> {
        if (op != "select") return std::nullopt;
        ++selects;
        return DbError{DbErrorKind::LostConnection, 10, "disk I/O error"};
    });
    Recordset rs = GetRecs(s(), "select * from person");
    EXPECT_EQ(selects, 3);
    EXPECT_FALSE(rs.isOpen());
    EXPECT_TRUE(s().ExitNow);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].text, "Unable to read data from the Tallymere database. Error number 10, disk I/O error");
    EXPECT_EQ(ui.messages[0].title, "Error reading data");
}

TEST_F(AccessTest, ALostConnectionThatComesBackIsRetriedSilently) {
    int selects = 0;
    store::db(s()).setFaultInjector([&](std::string_view op, std::string_view) -> std::optional<DbError> {
        if (op == "select" && ++selects == 1) return DbError{DbErrorKind::LostConnection, 10, "disk I/O error"};
        return std::nullopt;
    });
    EXPECT_EQ(GetRecs(s(), "select * from person").RecordCount(), 1u);
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(AccessTest, AMissingFileWhileReadingEndsTheProgram) {
    store::CloseDB(s());
    fs::remove(s().DatabasePath());
    EXPECT_THROW(GetRecs(s(), "select * from person"), common::ProgramEnd);
    EXPECT_TRUE(s().ExitNow);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].icon, MsgIcon::Critical);
    EXPECT_NE(ui.messages[0].text.find("proper direcotry"), std::string::npos);
}

TEST_F(AccessTest, AReadOnlyFileCannotBeOpened) {
    store::CloseDB(s());
    fs::permissions(s().DatabasePath(), fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                    fs::perm_options::remove);
    EXPECT_FALSE(store::ConnectDB(s()));
    EXPECT_TRUE(s().ExitNow);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].title, "Open Connection Error");
    EXPECT_EQ(ui.messages[0].icon, MsgIcon::Exclamation);
}

TEST_F(AccessTest, AFileThatIsNoDatabaseIsToldAtStart) {
    store::CloseDB(s());
    {
        std::ofstream out(s().DatabasePath(), std::ios::binary | std::ios::trunc);
        out << std::string(4096, 'x');
    }
    Recordset rs;
    EXPECT_THROW(store::ConnectDB(s()), common::ProgramEnd);  // cannot be repaired
    EXPECT_TRUE(ui.shown("Unable to repair database. Tallymere will exit."));
    // The user's file is left as it was.
    EXPECT_EQ(fs::file_size(s().DatabasePath()), 4096u);

    ui.clear();
    s().ExitNow = false;
    EXPECT_FALSE(store::TryGetRecs(s(), "select optionvalue from options where optionname=?", rs, {"passwordowner"}));
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].text, "The file " + s().DatabasePath() + " is not a valid Tallymere file.");
}

TEST_F(AccessTest, AnotherProgramsDatabaseIsNotTakenForOurs) {
    store::CloseDB(s());
    fs::remove(s().DatabasePath());
    ASSERT_EQ(
        store::buildTemplate(s().DatabasePath(), "create table options (optionname text, optionvalue text);", "", 0),
        "");
    Recordset rs;
    EXPECT_FALSE(store::TryGetRecs(s(), "select * from options", rs));
    EXPECT_TRUE(ui.shown("The file " + s().DatabasePath() + " is not a valid Tallymere file."));
}

TEST_F(AccessTest, TheCheckTakesAFileInUseForInUseNotForDamage) {
    store::CloseDB(s());
    store::db(s()).setBusyTimeout(100);
    const fs::path damaged = folder.path() / "Tallymere.damaged.db";
    {
        OtherConnection other(s().DatabasePath());
        other.lockForWriting();
        const DbError e = store::db(s()).repair();
        EXPECT_EQ(e.kind, DbErrorKind::NotWritable) << e.description;
        EXPECT_FALSE(fs::exists(damaged));
        EXPECT_EQ(other.release(), SQLITE_OK);
    }
    // The other copy's write went into the live file, which the check left where it was.
    EXPECT_TRUE(store::RepairDB(s()));
    EXPECT_EQ(GetRecs(s(), "select optionvalue from options where optionname = ?", {"othercopy"})["optionvalue"].text(),
              "other copy");
    EXPECT_FALSE(fs::exists(damaged));
}

TEST_F(AccessTest, ChecksWhileAnotherCopyKeepsWritingLoseNothing) {
    store::CloseDB(s());
    store::db(s()).setBusyTimeout(1000);
    std::atomic<bool> stop{false};
    int written = 0;
    // Short write transactions with short pauses, as another machine saving entries one by one.
    std::thread writer([&] {
        OtherConnection other(s().DatabasePath());
        while (!stop) {
            other.exec("BEGIN EXCLUSIVE");
            other.exec("insert into section (name) values ('w" + std::to_string(written) + "')");
            std::this_thread::sleep_for(std::chrono::microseconds(300));
            if (other.release() == SQLITE_OK) ++written;
            std::this_thread::sleep_for(std::chrono::microseconds(1500));
        }
    });
    // Each check finds the file sound, or at worst in use; never damaged.
    std::vector<DbErrorKind> damaged;
    for (int i = 0; i < 20; ++i)
        if (const DbError e = store::db(s()).repair(); e && e.kind != DbErrorKind::NotWritable)
            damaged.push_back(e.kind);
    stop = true;
    writer.join();
    EXPECT_TRUE(damaged.empty());
    EXPECT_FALSE(fs::exists(folder.path() / "Tallymere.damaged.db"));
    EXPECT_EQ(GetRecs(s(), "select * from section where name like 'w*'").RecordCount(),
              static_cast<std::size_t>(written));
}

class DamagedDatabaseTest : public DatabaseTest {
protected:
    void SetUp() override {
        DatabaseTest::SetUp();
        InsertRecs(s(), "begin");
        for (int i = 0; i < 3000; ++i)
            InsertRecs(s(), "insert into person (lname, fname, lnote) values (?, ?, ?)",
                       {"Name" + std::to_string(i), "F", std::string(100, 'n')});
        InsertRecs(s(), "commit");
        store::CloseDB(s());
        size = fs::file_size(s().DatabasePath());
    }
    fs::path kept() const { return fs::path(s().DataFolder()) / "Tallymere.damaged.db"; }
    common::Session& s() const { return *session; }
    std::uintmax_t size = 0;
};

TEST_F(DamagedDatabaseTest, ATruncatedFileIsRepairedWhileOpeningWithoutAWarning) {
    fs::resize_file(s().DatabasePath(), size * 6 / 10);
    ASSERT_TRUE(store::ConnectDB(s()));
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].title, "Database has been repaired");
    const auto rows = GetRecs(s(), "select * from person").RecordCount();
    EXPECT_GT(rows, 100u);  // what could be read is back
    EXPECT_LT(rows, 3001u);
    // The damaged original is kept as it was.
    ASSERT_TRUE(fs::exists(kept()));
    EXPECT_EQ(fs::file_size(kept()), size * 6 / 10);
    // The rebuilt file is sound: a second check leaves it alone.
    EXPECT_TRUE(store::RepairDB(s()));
    EXPECT_FALSE(fs::exists(fs::path(s().DataFolder()) / "Tallymere.damaged-2.db"));
}

TEST_F(DamagedDatabaseTest, DamageFoundWhileReadingIsRepairedAfterAWarning) {
    {
        // Scribble over pages in the middle of the employee table.
        std::fstream f(s().DatabasePath(), std::ios::in | std::ios::out | std::ios::binary);
        f.seekp(static_cast<std::streamoff>(size / 2));
        const std::string junk(3 * 4096, '\xA5');
        f.write(junk.data(), static_cast<std::streamsize>(junk.size()));
    }
    ASSERT_TRUE(store::ConnectDB(s()));
    Recordset rs = GetRecs(s(), "select * from person");
    EXPECT_TRUE(
        ui.shown("The Tallymere database has become corrupt. This can sometimes happen if your machine "
                 "crashes while running Tallymere. Tallymere will attempt to repair your database."));
    EXPECT_TRUE(ui.shown("Database repaired successfully."));
    EXPECT_FALSE(s().ExitNow);
    EXPECT_GT(rs.RecordCount(), 1000u);
    EXPECT_TRUE(fs::exists(kept()));
}

// One user action is one transaction: the shared path and the update path write through it, and a
// failure anywhere leaves the file as it was.
class TransactionTest : public DatabaseTest {
protected:
    std::size_t sections() { return GetRecs(s(), "select * from section").RecordCount(); }
    bool addSection(const std::string& name) {
        return InsertRecs(s(), "insert into section (name, description) values (?, ?)", {name, ""});
    }
};

TEST_F(TransactionTest, BothPathsWriteThroughItAndCommitKeepsEverything) {
    const auto before = sections();
    {
        store::Transaction tx(s());
        ASSERT_TRUE(addSection("Bar"));
        // The update path has a connection of its own; inside a transaction it must not wait on the
        // shared connection's lock, and must see the row just written.
        ASSERT_TRUE(store::UdateRecs(s(), "update section set description = ? where name = ?", {"drinks", "Bar"}));
        EXPECT_EQ(GetRecs(s(), "select * from section where description = ?", {"drinks"}).RecordCount(), 1u);
        EXPECT_TRUE(tx.commit());
    }
    EXPECT_EQ(sections(), before + 1);
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(TransactionTest, LeavingWithoutCommitOrAFailedStatementKeepsNothing) {
    const auto before = sections();
    {
        store::Transaction tx(s());
        addSection("Bar");
        store::UdateRecs(s(), "update section set description = ? where name = ?", {"drinks", "Bar"});
    }  // Cancel: rolled back without a word
    EXPECT_EQ(sections(), before);
    EXPECT_TRUE(ui.messages.empty());

    int executes = 0;
    store::db(s()).setFaultInjector([&](std::string_view op, std::string_view) -> std::optional<DbError> {
        if (op == "execute" && ++executes == 2) return DbError{DbErrorKind::Other, 19, "constraint failed"};
        return std::nullopt;
    });
    store::Transaction tx(s());
    EXPECT_TRUE(addSection("Bar"));
    EXPECT_FALSE(addSection("Patio"));
    EXPECT_TRUE(tx.failed());
    // Nothing more is written once the action has failed.
    EXPECT_FALSE(addSection("Garden"));
    EXPECT_FALSE(tx.commit());
    EXPECT_EQ(sections(), before);
    EXPECT_EQ(ui.texts(), (std::vector<std::string>{"Unable to update database [InsertRecs].constraint failed",
                                                    "None of this change was saved: the data is as it was before."}));
}

TEST_F(TransactionTest, ANestedOneJoinsTheOuterAndItsAbandonSpoilsTheWhole) {
    const auto before = sections();
    {
        store::Transaction outer(s());
        addSection("Bar");
        {
            store::Transaction inner(s());
            addSection("Patio");
            EXPECT_TRUE(inner.commit());
        }
        EXPECT_EQ(sections(), before + 2);  // not yet written for good, but visible to the action
        {
            store::Transaction inner(s());
            addSection("Garden");
        }  // left without commit
        EXPECT_FALSE(outer.commit());
    }
    EXPECT_EQ(sections(), before);
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(TransactionTest, AnotherCopySeesNothingUntilTheCommit) {
    store::Transaction tx(s());
    addSection("Bar");
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(s().DatabasePath().c_str(), &other), SQLITE_OK);
    sqlite3_busy_timeout(other, 50);
    // The write lock is taken when the action starts, so another writer waits instead of
    // interleaving its rows with ours.
    EXPECT_NE(sqlite3_exec(other, "insert into section (name) values ('Other')", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_TRUE(tx.commit());
    EXPECT_EQ(sqlite3_exec(other, "insert into section (name) values ('Other')", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(other);
}

}  // namespace
}  // namespace tallymere::testing

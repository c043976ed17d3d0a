#pragma once
// Another program's connection to a database file, as a copy of Tallymere on another machine holds
// it: plain SQLite, so a test can hold the file's locks while the code under test runs.

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <string>

namespace tallymere::testing {

class OtherConnection {
public:
    explicit OtherConnection(const std::string& path) {
        EXPECT_EQ(sqlite3_open_v2(path.c_str(), &db_, SQLITE_OPEN_READWRITE, nullptr), SQLITE_OK) << path;
        sqlite3_busy_timeout(db_, 5000);
    }
    ~OtherConnection() {
        sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
        sqlite3_close_v2(db_);
    }
    OtherConnection(const OtherConnection&) = delete;
    OtherConnection& operator=(const OtherConnection&) = delete;

    // The engine's result code of the statements.
    int exec(const std::string& sql) { return sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr); }
    // A write in progress: nobody else can read or write the file until release().
    void lockForWriting(const std::string& marker = "other copy") {
        ASSERT_EQ(exec("BEGIN EXCLUSIVE"), SQLITE_OK);
        ASSERT_EQ(exec("insert into options (optionname, optionvalue) values ('othercopy', '" + marker + "')"),
                  SQLITE_OK);
    }
    // A read in progress: others can read, nobody can write until release().
    void holdForReading() {
        ASSERT_EQ(exec("BEGIN"), SQLITE_OK);
        ASSERT_EQ(exec("select count(*) from options"), SQLITE_OK);
    }
    int release() { return exec("COMMIT"); }
    // The first column of the first row, as text; empty when there is none.
    std::string value(const std::string& sql) {
        sqlite3_stmt* stmt = nullptr;
        std::string out;
        if (sqlite3_prepare_v2(db_, sql.c_str(), -1, &stmt, nullptr) == SQLITE_OK && sqlite3_step(stmt) == SQLITE_ROW)
            if (const auto* text = sqlite3_column_text(stmt, 0)) out = reinterpret_cast<const char*>(text);
        sqlite3_finalize(stmt);
        return out;
    }

private:
    sqlite3* db_ = nullptr;
};

}  // namespace tallymere::testing

#include "store/database.h"

#include "common/session.h"
#include "store/connection.h"

#include <sqlite3.h>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>

namespace tallymere::store {

namespace fs = std::filesystem;

Database::Database(common::Session& session) : session_(session), busyTimeoutMs_(kBusyTimeoutMs) {}

Database& db(common::Session& s) {
    if (!s.storePart()) s.setStorePart(std::make_unique<Database>(s));
    return static_cast<Database&>(*s.storePart());
}
Database::~Database() = default;

bool Database::isOpen() const { return shared_ != nullptr; }

std::optional<DbError> Database::injected(std::string_view operation, std::string_view sql) {
    if (!faults_) return std::nullopt;
    return faults_(operation, sql);
}

DbError Database::open() {
    if (auto e = injected("open", {})) return *e;
    close();
    DbError error;
    shared_ = Connection::open(session_.DatabasePath(), error, true, busyTimeoutMs_);
    if (shared_) shared_->setCaching(caching_);
    return error;
}

void Database::close() {
    rollback();
    if (shared_) preparedClosed_ += shared_->preparedCount();
    if (own_) preparedClosed_ += own_->preparedCount();
    shared_.reset();
    own_.reset();
}

DbError Database::select(std::string_view sql, const Params& params, Recordset& out) {
    out = Recordset();
    if (auto e = injected("select", sql)) return *e;
    if (!shared_) return {DbErrorKind::NoConnection, 0, "No connection to the database is open."};
    return shared_->query(sql, params, out);
}

DbError Database::execute(std::string_view sql, const Params& params) {
    if (auto e = injected("execute", sql)) return *e;
    if (!shared_) return {DbErrorKind::NoConnection, 0, "No connection to the database is open."};
    return shared_->execute(sql, params);
}

DbError Database::executeOwn(std::string_view sql, const Params& params) {
    if (auto e = injected("executeOwn", sql)) return *e;
    if (depth_ > 0 && shared_) return shared_->execute(sql, params);
    if (!own_) {
        DbError error;
        own_ = Connection::open(session_.DatabasePath(), error, true, busyTimeoutMs_);
        if (!own_) return error;
        own_->setCaching(caching_);
    }
    return own_->execute(sql, params);
}

DbError Database::begin() {
    if (depth_ > 0) {
        ++depth_;
        return {};
    }
    if (auto e = injected("begin", {})) return *e;
    if (!shared_) return {DbErrorKind::NoConnection, 0, "No connection to the database is open."};
    // IMMEDIATE takes the write lock now, so that a copy on another machine writing at the same time
    // makes this one wait (busy timeout) instead of failing half way through the action.
    if (DbError e = shared_->executeScript("BEGIN IMMEDIATE")) return e;
    depth_ = 1;
    failed_ = abandoned_ = false;
    return {};
}

DbError Database::commit() {
    if (depth_ == 0) return {};
    if (--depth_ > 0) return {};
    failed_ = abandoned_ = false;
    if (auto e = injected("commit", {})) {
        shared_->executeScript("ROLLBACK");
        return *e;
    }
    if (DbError e = shared_->executeScript("COMMIT")) {
        shared_->executeScript("ROLLBACK");
        return e;
    }
    return {};
}

void Database::rollback() {
    if (depth_ == 0) return;
    depth_ = 0;
    failed_ = abandoned_ = false;
    if (shared_) shared_->executeScript("ROLLBACK");
}

std::size_t Database::preparedCount() const {
    return preparedClosed_ + (shared_ ? shared_->preparedCount() : 0) + (own_ ? own_->preparedCount() : 0);
}

void Database::setStatementCaching(bool on) {
    caching_ = on;
    if (shared_) shared_->setCaching(on);
    if (own_) own_->setCaching(on);
}

std::string Database::damagedCopyPath(const std::string& databasePath) {
    // Tallymere.db -> Tallymere.damaged.db, then Tallymere.damaged-2.db, ... : never overwrite an
    // earlier damaged copy, which may hold rows the later one lost.
    const fs::path p(databasePath);
    const fs::path stem = p.parent_path() / p.stem();
    fs::path candidate = stem.string() + ".damaged" + p.extension().string();
    for (int n = 2; fs::exists(candidate); ++n)
        candidate = stem.string() + ".damaged-" + std::to_string(n) + p.extension().string();
    return candidate.string();
}

namespace {

// Another connection holds the file: not damage, and no reason to touch it.
bool inUse(int rc) { return (rc & 0xff) == SQLITE_BUSY || (rc & 0xff) == SQLITE_LOCKED; }

DbError inUseError(const std::string& path) {
    return {DbErrorKind::NotWritable, SQLITE_BUSY, "The file " + path + " is in use by another program."};
}

// Reads one table of a damaged file row by row, skipping past pages that cannot be read, and writes
// what it gets into the same table of the rebuilt file. False when the file turned out to be in use:
// rows skipped then would be rows lost, not damaged.
bool salvageTable(sqlite3* from, sqlite3* to, const std::string& table) {
    const std::string quoted = "\"" + table + "\"";
    sqlite3_stmt* insert = nullptr;
    sqlite3_stmt* read = nullptr;
    const std::string readSql = "SELECT rowid, * FROM " + quoted + " WHERE rowid > ? ORDER BY rowid";
    if (const int rc = sqlite3_prepare_v2(from, readSql.c_str(), -1, &read, nullptr); rc != SQLITE_OK) {
        sqlite3_finalize(read);
        return !inUse(rc);
    }
    const int columns = sqlite3_column_count(read) - 1;
    std::string insertSql = "INSERT OR IGNORE INTO " + quoted + " (rowid";
    for (int i = 1; i <= columns; ++i) insertSql += std::string(", \"") + sqlite3_column_name(read, i) + "\"";
    insertSql += ") VALUES (?";
    for (int i = 1; i <= columns; ++i) insertSql += ", ?";
    insertSql += ")";
    if (sqlite3_prepare_v2(to, insertSql.c_str(), -1, &insert, nullptr) != SQLITE_OK) {
        sqlite3_finalize(read);
        sqlite3_finalize(insert);
        return true;
    }
    sqlite3_int64 after = -1;
    sqlite3_int64 skip = 1;
    for (int restarts = 0; restarts < 64; ++restarts) {
        sqlite3_reset(read);
        sqlite3_bind_int64(read, 1, after);
        int rc;
        while ((rc = sqlite3_step(read)) == SQLITE_ROW) {
            for (int i = 0; i <= columns; ++i) sqlite3_bind_value(insert, i + 1, sqlite3_column_value(read, i));
            sqlite3_step(insert);
            sqlite3_reset(insert);
            after = sqlite3_column_int64(read, 0);
            skip = 1;
        }
        if (rc == SQLITE_DONE) break;
        if (inUse(rc)) {
            sqlite3_finalize(read);
            sqlite3_finalize(insert);
            return false;
        }
        // A damaged page: jump over it, further each time it stops us again, up to the largest key.
        constexpr sqlite3_int64 kLargest = std::numeric_limits<sqlite3_int64>::max();
        if (after > kLargest - skip) break;
        after += skip;
        skip = skip > kLargest / 4 ? kLargest : skip * 4;
    }
    sqlite3_finalize(read);
    sqlite3_finalize(insert);
    return true;
}

// The engine's verdict on the file: "ok", its first complaint, or "unreadable"; `rc` is the engine's
// result, SQLITE_BUSY or SQLITE_LOCKED when another connection held the file past the busy timeout.
std::string integrity(sqlite3* db, int& rc) {
    sqlite3_stmt* stmt = nullptr;
    std::string result = "unreadable";
    rc = sqlite3_prepare_v2(db, "PRAGMA quick_check", -1, &stmt, nullptr);
    if (rc == SQLITE_OK && (rc = sqlite3_step(stmt)) == SQLITE_ROW) {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(stmt, 0));
        result = text ? text : "";
    }
    sqlite3_finalize(stmt);
    return result;
}

// The application id straight from the file's header, which stays readable when the pages behind it
// are not; -1 when the file is no SQLite database at all.
int applicationId(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    unsigned char header[100] = {};
    if (!in.read(reinterpret_cast<char*>(header), sizeof header)) return -1;
    if (std::memcmp(header, "SQLite format 3", 16) != 0) return -1;
    return static_cast<int>((std::uint32_t{header[68]} << 24) | (std::uint32_t{header[69]} << 16) |
                            (std::uint32_t{header[70]} << 8) | header[71]);
}

}  // namespace

DbError Database::repair() {
    if (auto e = injected("repair", {})) return *e;
    close();
    const std::string path = session_.DatabasePath();
    std::error_code ec;
    if (!fs::is_regular_file(path, ec))
        return {DbErrorKind::MissingFile, SQLITE_CANTOPEN, "The file " + path + " does not exist."};

    // Read before the engine opens the file: closing another handle on it later would drop the
    // engine's locks on it.
    const int id = applicationId(path);
    sqlite3* damaged = nullptr;
    if (sqlite3_open_v2(path.c_str(), &damaged, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) {
        DbError e = Connection::errorFrom(sqlite3_errcode(damaged), damaged);
        sqlite3_close(damaged);
        return e;
    }
    // Another copy writing on a share holds its lock for a moment: wait for it as a statement would.
    sqlite3_busy_timeout(damaged, busyTimeoutMs_);
    // Opened for writing so that a journal left by a crash is rolled back by this first read. The
    // read lock is kept to the end, so no other copy writes while the file is checked and salvaged.
    sqlite3_exec(damaged, "BEGIN", nullptr, nullptr, nullptr);
    int rc = SQLITE_OK;
    const std::string check = integrity(damaged, rc);
    if (inUse(rc)) {
        sqlite3_close(damaged);
        return inUseError(path);
    }
    if (id == kApplicationId && check == "ok") {
        sqlite3_close(damaged);
        return {};
    }
    if (id != kApplicationId) {
        sqlite3_close(damaged);
        return {DbErrorKind::NotADatabase, SQLITE_NOTADB, "The file " + path + " is not a Tallymere database."};
    }

    // Rebuild into a new file beside the damaged one, from the schema the damaged one declares.
    const std::string rebuilt = path + ".rebuild";
    fs::remove(rebuilt, ec);
    sqlite3* fresh = nullptr;
    if (sqlite3_open_v2(rebuilt.c_str(), &fresh, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr) != SQLITE_OK) {
        DbError e = Connection::errorFrom(sqlite3_errcode(fresh), fresh, "rebuilding the database");
        sqlite3_close(fresh);
        sqlite3_close(damaged);
        return e;
    }
    // Let the schema be read even where it points at pages the damage took away.
    sqlite3_exec(damaged, "PRAGMA writable_schema=ON", nullptr, nullptr, nullptr);
    std::vector<std::pair<std::string, std::string>> tables;  // name, CREATE statement
    std::vector<std::string> indexes;
    sqlite3_stmt* schema = nullptr;
    rc = sqlite3_prepare_v2(damaged, "SELECT type, name, sql FROM sqlite_master WHERE sql IS NOT NULL", -1, &schema,
                            nullptr);
    if (rc == SQLITE_OK) {
        while ((rc = sqlite3_step(schema)) == SQLITE_ROW) {
            const std::string type = reinterpret_cast<const char*>(sqlite3_column_text(schema, 0));
            const std::string name = reinterpret_cast<const char*>(sqlite3_column_text(schema, 1));
            const std::string sql = reinterpret_cast<const char*>(sqlite3_column_text(schema, 2));
            if (type == "table" && name.rfind("sqlite_", 0) != 0) tables.emplace_back(name, sql);
            if (type == "index") indexes.push_back(sql);
        }
    }
    sqlite3_finalize(schema);
    if (inUse(rc)) {
        sqlite3_close(fresh);
        sqlite3_close(damaged);
        fs::remove(rebuilt, ec);
        return inUseError(path);
    }
    if (tables.empty()) {
        sqlite3_close(fresh);
        sqlite3_close(damaged);
        fs::remove(rebuilt, ec);
        return {DbErrorKind::Damaged, SQLITE_CORRUPT, "Nothing could be read from " + path + "."};
    }
    sqlite3_exec(
        fresh,
        ("PRAGMA journal_mode=DELETE; PRAGMA application_id=" + std::to_string(kApplicationId) + "; BEGIN;").c_str(),
        nullptr, nullptr, nullptr);
    bool salvaged = true;
    for (const auto& [name, sql] : tables) {
        sqlite3_exec(fresh, sql.c_str(), nullptr, nullptr, nullptr);
        if (!(salvaged = salvageTable(damaged, fresh, name))) break;
    }
    for (const auto& sql : indexes) sqlite3_exec(fresh, sql.c_str(), nullptr, nullptr, nullptr);
    const bool committed = salvaged && sqlite3_exec(fresh, "COMMIT;", nullptr, nullptr, nullptr) == SQLITE_OK;
    sqlite3_close(fresh);
    sqlite3_close(damaged);
    if (!salvaged) {
        fs::remove(rebuilt, ec);
        return inUseError(path);
    }
    if (!committed) {
        fs::remove(rebuilt, ec);
        return {DbErrorKind::Damaged, SQLITE_CORRUPT, "The rebuilt database could not be written."};
    }

    // Keep the damaged original, then put the rebuilt file in its place.
    const std::string keep = damagedCopyPath(path);
    fs::rename(path, keep, ec);
    if (!ec) fs::remove(path + "-journal", ec);
    if (ec) {
        fs::remove(rebuilt, ec);
        return {DbErrorKind::NotWritable, SQLITE_CANTOPEN, "The damaged file could not be set aside: " + ec.message()};
    }
    fs::rename(rebuilt, path, ec);
    if (ec) {
        fs::rename(keep, path, ec);
        return {DbErrorKind::NotWritable, SQLITE_CANTOPEN, "The rebuilt database could not be put in place."};
    }
    return {};
}

}  // namespace tallymere::store

#include "store/connection.h"

#include "store/access.h"
#include "store/database.h"
#include "store/sql_dialect.h"

#include <filesystem>
#include <sqlite3.h>

namespace tallymere::store {

namespace fs = std::filesystem;

namespace {

bool fileIsReadOnly(const std::string& path) {
    std::error_code ec;
    const auto perms = fs::status(path, ec).permissions();
    if (ec) return false;
    // The owner's write bit is what "Read Only" means in the file's properties; root would be let
    // through by the system, so look at the bit itself.
    return (perms & fs::perms::owner_write) == fs::perms::none;
}

Value columnValue(sqlite3_stmt* stmt, int i) {
    switch (sqlite3_column_type(stmt, i)) {
    case SQLITE_INTEGER: return Value(static_cast<long long>(sqlite3_column_int64(stmt, i)));
    case SQLITE_FLOAT: return Value(sqlite3_column_double(stmt, i));
    case SQLITE_NULL: return Value();
    default: {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(stmt, i));
        return Value(std::string(text ? text : "", static_cast<std::size_t>(sqlite3_column_bytes(stmt, i))));
    }
    }
}

}  // namespace

DbError Connection::errorFrom(int code, sqlite3* db, std::string_view what) {
    DbError e;
    e.number = code;
    e.description = db ? sqlite3_errmsg(db) : sqlite3_errstr(code);
    if (!what.empty()) e.description = std::string(what) + ": " + e.description;
    switch (code & 0xff) {
    case SQLITE_OK:
    case SQLITE_ROW:
    case SQLITE_DONE: e.kind = DbErrorKind::None; break;
    case SQLITE_CANTOPEN: e.kind = DbErrorKind::MissingFile; break;
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_BUSY:
    case SQLITE_LOCKED: e.kind = DbErrorKind::NotWritable; break;
    case SQLITE_NOTADB: e.kind = DbErrorKind::NotADatabase; break;
    case SQLITE_CORRUPT: e.kind = DbErrorKind::Damaged; break;
    case SQLITE_IOERR:
    case SQLITE_PROTOCOL: e.kind = DbErrorKind::LostConnection; break;
    default: e.kind = DbErrorKind::Other; break;
    }
    return e;
}

std::unique_ptr<Connection> Connection::open(const std::string& path, DbError& error, bool checkApplication,
                                             int busyTimeoutMs) {
    error = {};
    std::error_code ec;
    if (!fs::is_regular_file(path, ec)) {
        error = {DbErrorKind::MissingFile, SQLITE_CANTOPEN, "The file " + path + " does not exist."};
        return nullptr;
    }
    if (fileIsReadOnly(path)) {
        error = {DbErrorKind::NotWritable, SQLITE_READONLY, "The file " + path + " is read-only."};
        return nullptr;
    }
    sqlite3* db = nullptr;
    const int rc = sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    if (rc != SQLITE_OK) {
        error = errorFrom(rc, db);
        sqlite3_close(db);
        return nullptr;
    }
    std::unique_ptr<Connection> c(new Connection(db));
    sqlite3_extended_result_codes(db, 1);
    sqlite3_busy_timeout(db, busyTimeoutMs);
    if (!registerSqlFunctions(db)) {
        error = {DbErrorKind::Other, SQLITE_ERROR, "The program's SQL functions could not be registered."};
        return nullptr;
    }
    // The first read of the header tells a damaged or foreign file; the rollback journal suits a file
    // on a network share used by several machines.
    Recordset rs;
    error = c->query("PRAGMA application_id", {}, rs);
    if (!error) error = c->executeScript("PRAGMA journal_mode=DELETE; PRAGMA foreign_keys=OFF;");
    if (error) return nullptr;
    if (checkApplication && rs.field(0, std::size_t{0}).toLong() != kApplicationId) {
        error = {DbErrorKind::NotADatabase, SQLITE_NOTADB, "The file " + path + " is not a Tallymere database."};
        return nullptr;
    }
    if (sqlite3_db_readonly(db, "main") == 1) {
        error = {DbErrorKind::NotWritable, SQLITE_READONLY, "The file " + path + " cannot be written."};
        return nullptr;
    }
    return c;
}

Connection::~Connection() {
    for (auto& [sql, stmt] : cache_) sqlite3_finalize(stmt);
    sqlite3_close_v2(db_);
}

void Connection::setCaching(bool on) {
    caching_ = on;
    if (!on) {
        for (auto& [sql, stmt] : cache_) sqlite3_finalize(stmt);
        cache_.clear();
    }
}

sqlite3_stmt* Connection::prepare(std::string_view sql, DbError& error) {
    std::string key(sql);
    if (caching_) {
        const auto it = cache_.find(key);
        if (it != cache_.end()) return it->second;
    }
    const std::string translated = translateSql(sql);
    sqlite3_stmt* stmt = nullptr;
    const int rc = sqlite3_prepare_v3(db_, translated.c_str(), static_cast<int>(translated.size()),
                                      caching_ ? SQLITE_PREPARE_PERSISTENT : 0, &stmt, nullptr);
    ++prepared_;
    if (rc != SQLITE_OK) {
        error = errorFrom(rc, db_);
        sqlite3_finalize(stmt);
        return nullptr;
    }
    if (!stmt) {  // only blanks or a comment
        error = {DbErrorKind::Other, SQLITE_MISUSE, "The statement is empty."};
        return nullptr;
    }
    if (caching_) cache_.emplace(std::move(key), stmt);
    return stmt;
}

void Connection::release(sqlite3_stmt* stmt) {
    if (caching_) {
        sqlite3_reset(stmt);
        sqlite3_clear_bindings(stmt);
    } else {
        sqlite3_finalize(stmt);
    }
}

DbError Connection::bind(sqlite3_stmt* stmt, const Params& params) {
    const int expected = sqlite3_bind_parameter_count(stmt);
    if (expected != static_cast<int>(params.size())) {
        return {DbErrorKind::Other, SQLITE_RANGE,
                "The statement takes " + std::to_string(expected) + " values but was given " +
                    std::to_string(params.size()) + "."};
    }
    for (int i = 0; i < expected; ++i) {
        const auto& v = params[static_cast<std::size_t>(i)].storage();
        int rc = SQLITE_OK;
        if (std::holds_alternative<std::monostate>(v)) {
            rc = sqlite3_bind_null(stmt, i + 1);
        } else if (const auto* n = std::get_if<std::int64_t>(&v)) {
            rc = sqlite3_bind_int64(stmt, i + 1, *n);
        } else if (const auto* d = std::get_if<double>(&v)) {
            rc = sqlite3_bind_double(stmt, i + 1, *d);
        } else {
            // Text gets what quoting it once guaranteed: trimmed and cut to 255 characters.
            const std::string text = std::holds_alternative<std::string>(v)
                                         ? boundText(std::get<std::string>(v))
                                         : params[static_cast<std::size_t>(i)].toText();
            rc = sqlite3_bind_text(stmt, i + 1, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
        }
        if (rc != SQLITE_OK) return errorFrom(rc, db_);
    }
    return {};
}

DbError Connection::query(std::string_view sql, const Params& params, Recordset& out) {
    DbError error;
    sqlite3_stmt* stmt = prepare(sql, error);
    if (!stmt) return error;
    if ((error = bind(stmt, params))) {
        release(stmt);
        return error;
    }
    // The first step re-prepares a statement whose tables another connection has altered, so the
    // columns are read after it.
    int rc = sqlite3_step(stmt);
    const int n = sqlite3_column_count(stmt);
    std::vector<std::string> columns;
    columns.reserve(static_cast<std::size_t>(n));
    for (int i = 0; i < n; ++i) columns.emplace_back(sqlite3_column_name(stmt, i));
    std::vector<std::vector<Value>> rows;
    for (; rc == SQLITE_ROW; rc = sqlite3_step(stmt)) {
        std::vector<Value> row;
        row.reserve(static_cast<std::size_t>(n));
        for (int i = 0; i < n; ++i) row.push_back(columnValue(stmt, i));
        rows.push_back(std::move(row));
    }
    if (rc != SQLITE_DONE) error = errorFrom(rc, db_);
    release(stmt);
    if (!error) out = Recordset(std::move(columns), std::move(rows));
    return error;
}

DbError Connection::execute(std::string_view sql, const Params& params) {
    DbError error;
    sqlite3_stmt* stmt = prepare(sql, error);
    if (!stmt) return error;
    if ((error = bind(stmt, params))) {
        release(stmt);
        return error;
    }
    int rc;
    while ((rc = sqlite3_step(stmt)) == SQLITE_ROW) {
    }
    if (rc != SQLITE_DONE) error = errorFrom(rc, db_);
    release(stmt);
    return error;
}

DbError Connection::executeScript(const std::string& sql) {
    char* message = nullptr;
    const int rc = sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, &message);
    DbError error;
    if (rc != SQLITE_OK) {
        error = errorFrom(rc, db_);
        if (message) error.description = message;
    }
    sqlite3_free(message);
    return error;
}

}  // namespace tallymere::store

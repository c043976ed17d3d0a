#pragma once
// One SQLite connection with its cache of prepared statements. Internal to the store: nothing
// outside it sees a sqlite3 handle.

#include "store/db_error.h"
#include "store/recordset.h"
#include "store/value.h"

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

struct sqlite3;
struct sqlite3_stmt;

namespace tallymere::store {

class Connection {
public:
    // Opens an existing database file for reading and writing. With `checkApplication` the file must
    // carry the Tallymere application id.
    static std::unique_ptr<Connection> open(const std::string& path, DbError& error, bool checkApplication = true,
                                            int busyTimeoutMs = kBusyTimeoutMs);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    DbError query(std::string_view sql, const Params& params, Recordset& out);
    DbError execute(std::string_view sql, const Params& params);
    // Runs a script of statements with nothing bound (schema, pragmas); the dialect is not applied.
    DbError executeScript(const std::string& sql);

    sqlite3* handle() const { return db_; }
    std::size_t preparedCount() const { return prepared_; }
    void setCaching(bool on);

    // The failure kind of an engine result code, with the engine's description.
    static DbError errorFrom(int code, sqlite3* db, std::string_view what = {});

private:
    explicit Connection(sqlite3* db) : db_(db) {}
    // A ready-to-bind statement for `sql`, from the cache when it was prepared before.
    sqlite3_stmt* prepare(std::string_view sql, DbError& error);
    void release(sqlite3_stmt* stmt);
    DbError bind(sqlite3_stmt* stmt, const Params& params);

    sqlite3* db_;
    std::unordered_map<std::string, sqlite3_stmt*> cache_;
    bool caching_ = true;
    std::size_t prepared_ = 0;
};

}  // namespace tallymere::store

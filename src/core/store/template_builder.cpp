#include "store/template_builder.h"

#include "store/connection.h"
#include "store/database.h"

#include <filesystem>
#include <sqlite3.h>

namespace tallymere::store {

std::string buildTemplate(const std::string& path, const std::string& schemaSql, const std::string& seedSql,
                          int applicationId) {
    std::error_code ec;
    std::filesystem::remove(path, ec);
    sqlite3* db = nullptr;
    if (sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr) != SQLITE_OK) {
        std::string error = db ? sqlite3_errmsg(db) : "cannot create the file";
        sqlite3_close(db);
        return error;
    }
    const std::string script = "PRAGMA journal_mode=DELETE; PRAGMA application_id=" + std::to_string(applicationId) +
                               "; BEGIN; " + schemaSql + "\n; " + seedSql + "\n; COMMIT; VACUUM;";
    char* message = nullptr;
    std::string error;
    if (sqlite3_exec(db, script.c_str(), nullptr, nullptr, &message) != SQLITE_OK) {
        error = message ? message : "the schema could not be applied";
    }
    sqlite3_free(message);
    sqlite3_close(db);
    if (!error.empty()) std::filesystem::remove(path, ec);
    return error;
}

}  // namespace tallymere::store

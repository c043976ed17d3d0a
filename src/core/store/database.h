#pragma once
// The database behind a session: the shared connection, the connection of the update path, and the
// engine operations on the file (open, repair, close). It reports failures as DbError kinds and never
// talks to the user; the access layer (access.h) decides what a failure means.

#include "store/db_error.h"
#include "store/recordset.h"
#include "store/value.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tallymere::common {
class Session;
}

namespace tallymere::store {

class Connection;

// The one application id every Tallymere database carries, so that another program's SQLite file is
// told apart from ours.
inline constexpr int kApplicationId = 0x544C4D52;  // "TLMR"

class Database {
public:
    explicit Database(common::Session& session);
    ~Database();

    bool isOpen() const;
    // Opens the session's DatabasePath as the shared connection.
    DbError open();
    // Closes the shared connection and the one of the update path.
    void close();

    DbError select(std::string_view sql, const Params& params, Recordset& out);
    DbError execute(std::string_view sql, const Params& params);
    // Runs one statement on the update path's own connection, opened when needed, so that it works
    // while the shared connection is closed.
    DbError executeOwn(std::string_view sql, const Params& params);

    // Verifies the file and, when it is damaged, rebuilds it from what can be read. The damaged
    // original is kept beside it under the name returned by damagedCopyPath(). Closes both
    // connections first.
    DbError repair();
    static std::string damagedCopyPath(const std::string& databasePath);

    // How often a statement text was prepared, on all connections (statements are cached by text).
    std::size_t preparedCount() const;
    void setStatementCaching(bool on);

    // Test seam: called before every operation with its name ("open", "select", "execute",
    // "executeOwn", "repair") and the statement; a returned error is reported as the engine's.
    using FaultInjector = std::function<std::optional<DbError>(std::string_view operation, std::string_view sql)>;
    void setFaultInjector(FaultInjector f) { faults_ = std::move(f); }

private:
    std::optional<DbError> injected(std::string_view operation, std::string_view sql);

    common::Session& session_;
    std::unique_ptr<Connection> shared_;
    std::unique_ptr<Connection> own_;
    FaultInjector faults_;
    bool caching_ = true;
    std::size_t preparedClosed_ = 0;  // prepares counted on connections since closed
};

}  // namespace tallymere::store

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

#include "common/session.h"

namespace tallymere::store {

class Connection;

// The one application id every Tallymere database carries, so that another program's SQLite file is
// told apart from ours.
inline constexpr int kApplicationId = 0x544C4D52;  // "TLMR"

class Database : public common::SessionPart {
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

    // One transaction on the shared connection. While it is open the update path writes through it
    // too: a second connection would wait on the first one's lock until its timeout. Nested begins
    // are counted; only the outermost one commits or rolls back.
    DbError begin();
    DbError commit();
    void rollback();
    bool inTransaction() const { return depth_ > 0; }
    int transactionDepth() const { return depth_; }
    // Set by the access layer when a statement inside the open transaction failed, or a nested one
    // was left without its commit; cleared when the outermost one ends.
    void markTransactionFailed() {
        if (depth_ > 0) failed_ = true;
    }
    bool transactionFailed() const { return failed_; }
    void markTransactionAbandoned() { abandoned_ = true; }
    bool transactionAbandoned() const { return abandoned_; }

    // Verifies the file and, when it is damaged, rebuilds it from what can be read. The damaged
    // original is kept beside it under the name returned by damagedCopyPath(). Closes both
    // connections first.
    DbError repair();
    static std::string damagedCopyPath(const std::string& databasePath);

    // How long the connections and the repair wait for another connection's lock (kBusyTimeoutMs
    // unless set); applies to connections opened after the change.
    void setBusyTimeout(int ms) { busyTimeoutMs_ = ms; }
    int busyTimeout() const { return busyTimeoutMs_; }

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
    int busyTimeoutMs_;
    int depth_ = 0;
    bool failed_ = false;
    bool abandoned_ = false;
    std::size_t preparedClosed_ = 0;  // prepares counted on connections since closed
};

// The session's database, made on first use.
Database& db(common::Session& s);

}  // namespace tallymere::store

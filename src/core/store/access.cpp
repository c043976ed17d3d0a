#include "store/access.h"

#include "common/session.h"
#include "common/text.h"
#include "store/database.h"

namespace tallymere::store {

using common::MsgButtons;
using common::MsgIcon;

namespace {

constexpr const char* kMissingFileConnect =
    "The file Tallymere.db was not found. This file contains all of the schedule information. Please locate your "
    "Tallymere.db data file and place it in the proper direcotry. Tallymere will now exit.";
constexpr const char* kNotWritableConnect =
    "Tallymere is unable to write to the database. Make sure the properties on the database file (or folder where "
    "the database file is kept) are not set to Read Only. Tallymere cannot be run from an unwritable media such as "
    "a CD-ROM.";
constexpr const char* kUnableToRepair = "Unable to repair database. Tallymere will exit.";
constexpr const char* kNothingSaved = "None of this change was saved: the data is as it was before.";
// A read is tried this often before a lost connection is given up.
constexpr int kReadAttempts = 3;

void say(Session& s, const std::string& text, MsgIcon icon, std::string_view title = Session::kAppTitle) {
    s.ui().message(text, MsgButtons::Ok, icon, title);
}

// The end of a read that cannot go on: the caller continues with an empty result and the shutdown
// path saves nothing.
Recordset giveUp(Session& s) {
    s.ExitNow = true;
    s.ui().setBusy(false);
    return {};
}

bool actionFailed(Session& s, const char* operation, const DbError& e) {
    db(s).markTransactionFailed();
    say(s, std::string("Unable to update database [") + operation + "]." + e.description, MsgIcon::Critical);
    return false;
}

// UTF-8 aware cut, so a name is never cut inside a character.
std::string cutTo255(std::string_view s) {
    std::size_t chars = 0, i = 0;
    while (i < s.size()) {
        if (chars == 255) return std::string(s.substr(0, i));
        const auto c = static_cast<unsigned char>(s[i]);
        i += c < 0x80 ? 1 : c >= 0xF0 ? 4 : c >= 0xE0 ? 3 : c >= 0xC0 ? 2 : 1;
        ++chars;
    }
    return std::string(s);
}

}  // namespace

bool ConnectDB(Session& s) {
    for (;;) {
        const DbError e = db(s).open();
        switch (e.kind) {
        case DbErrorKind::None: return true;
        case DbErrorKind::MissingFile: say(s, kMissingFileConnect, MsgIcon::Critical); s.endProgram();
        case DbErrorKind::NotWritable:
            say(s, kNotWritableConnect, MsgIcon::Exclamation, "Open Connection Error");
            s.ui().setBusy(false);
            s.ExitNow = true;
            return false;
        case DbErrorKind::Damaged:
        case DbErrorKind::NotADatabase: {
            // Found while opening: repaired without a warning first.
            if (!db(s).repair() && !db(s).open()) {
                say(s,
                    "The Tallymere.db file has been successfully repaired. The database file may have been closed "
                    "improperly due to a system crash. Don't forget to make frequent backups of your data.",
                    MsgIcon::Exclamation, "Database has been repaired");
                return true;
            }
            say(s, kUnableToRepair, MsgIcon::Critical);
            s.endProgram();
        }
        default:
            s.ui().message("Unable to open database \n\nError: " + std::to_string(e.number) + " " + e.description,
                           MsgButtons::Ok, MsgIcon::Critical, "Error opening database");
            s.endProgram();
        }
    }
}

void CloseDB(Session& s) { db(s).close(); }

bool RepairDB(Session& s) { return !db(s).repair(); }

Recordset GetRecs(Session& s, std::string_view sql, const Params& params) {
    bool repaired = false;
    for (int attempts = 1;; ++attempts) {
        Recordset rs;
        const DbError e = db(s).select(sql, params, rs);
        switch (e.kind) {
        case DbErrorKind::None: return rs;
        case DbErrorKind::MissingFile: say(s, kMissingFileConnect, MsgIcon::Critical); s.endProgram();
        case DbErrorKind::NotWritable:
            say(s, kNotWritableConnect, MsgIcon::Exclamation, "Open Connection Error");
            return giveUp(s);
        case DbErrorKind::Damaged:
        case DbErrorKind::NotADatabase:
            // Found while reading: the user is warned before the repair. A file that reads as damaged
            // again after a repair is not repaired in a loop.
            say(s,
                "The Tallymere database has become corrupt. This can sometimes happen if your machine crashes while "
                "running Tallymere. Tallymere will attempt to repair your database.",
                MsgIcon::Critical);
            if (repaired || !RepairDB(s)) {
                say(s, kUnableToRepair, MsgIcon::Critical);
                s.endProgram();
            }
            repaired = true;
            say(s, "Database repaired successfully.", MsgIcon::Exclamation);
            if (!ConnectDB(s)) return giveUp(s);
            continue;
        case DbErrorKind::NoConnection:
            // A closed shared connection is harmless: the read reopens it without a word.
            if (attempts < kReadAttempts && ConnectDB(s)) continue;
            if (attempts >= kReadAttempts) break;
            say(s, "Unable to establish connection to database.", MsgIcon::Exclamation, "Unable to read database");
            return giveUp(s);
        case DbErrorKind::LostConnection:
            if (!ConnectDB(s)) {
                say(s, "Unable to establish connection to database. Error: " + std::to_string(e.number),
                    MsgIcon::Exclamation, "Unable to read database");
                return giveUp(s);
            }
            if (attempts < kReadAttempts) continue;
            break;
        default:
            say(s,
                "Error occurred reading the Tallymere database " + s.DatabasePath() + ". (Error number" +
                    std::to_string(e.number) + ") " + e.description,
                MsgIcon::Critical);
            return giveUp(s);
        }
        // Reached only when the attempts are spent on a lost connection.
        say(s,
            "Unable to read data from the Tallymere database. Error number " + std::to_string(e.number) + ", " +
                e.description,
            MsgIcon::Exclamation, "Error reading data");
        return giveUp(s);
    }
}

bool TryGetRecs(Session& s, std::string_view sql, Recordset& out, const Params& params) {
    out = Recordset();
    DbError e = db(s).select(sql, params, out);
    if (e.kind == DbErrorKind::NoConnection && !(e = db(s).open())) e = db(s).select(sql, params, out);
    const std::string path = s.DatabasePath();
    switch (e.kind) {
    case DbErrorKind::None: return !s.ExitNow;
    case DbErrorKind::MissingFile:
        say(s,
            "The file Tallymere.db was not found. This file contains all of the schedule information. Either locate "
            "the file and place it in the same directory with Tallymere.exe or reinstall Tallymere.",
            MsgIcon::Critical);
        break;
    case DbErrorKind::NotWritable:
        say(s,
            "Tallymere is unable to write to the database. It is either locked in exclusive mode by another "
            "application, or it is on an unwriteable media such as CD-ROM.",
            MsgIcon::Exclamation);
        break;
    case DbErrorKind::NotADatabase:
        say(s, "The file " + path + " is not a valid Tallymere file.", MsgIcon::Critical);
        break;
    case DbErrorKind::Damaged:
        say(s,
            "The Tallymere database has become corrupt. This can happen if your machine crashes while running "
            "Tallymere. Tallymere will attempt to repair your database.",
            MsgIcon::Critical);
        if (!RepairDB(s)) {
            say(s, kUnableToRepair, MsgIcon::Critical);
            s.endProgram();
        }
        say(s, "Database repaired successfully", MsgIcon::Exclamation);
        out = GetRecs(s, sql, params);
        return out.isOpen() && !s.ExitNow;
    default:
        say(s,
            "Error occurred opening the Tallymere database " + path + ". (Error number" + std::to_string(e.number) +
                ") " + e.description,
            MsgIcon::Critical);
        break;
    }
    s.ui().setBusy(false);
    return false;
}

namespace {
// After a failed statement the engine may have ended the transaction on its own; the rest of the
// action must not go on writing outside it.
bool abandonedTransaction(Session& s) { return db(s).inTransaction() && db(s).transactionFailed(); }

bool runOnShared(Session& s, const char* operation, std::string_view sql, const Params& params) {
    if (abandonedTransaction(s)) return false;
    DbError e = db(s).execute(sql, params);
    // Writing after the connection was closed around a copy reopens it, as a read does, rather than
    // losing the change.
    if (e.kind == DbErrorKind::NoConnection && !(e = db(s).open())) e = db(s).execute(sql, params);
    return e ? actionFailed(s, operation, e) : true;
}
}  // namespace

bool InsertRecs(Session& s, std::string_view sql, const Params& params) {
    return runOnShared(s, "InsertRecs", sql, params);
}

bool DeleteRecs(Session& s, std::string_view sql, const Params& params) {
    return runOnShared(s, "DeleteRecs", sql, params);
}

bool UdateRecs(Session& s, std::string_view sql, const Params& params) {
    if (abandonedTransaction(s)) return false;
    const DbError e = db(s).executeOwn(sql, params);
    return e ? actionFailed(s, "UdateRecs", e) : true;
}

Transaction::Transaction(Session& s) : s_(s) {
    DbError e = db(s).begin();
    if (e.kind == DbErrorKind::NoConnection && !(e = db(s).open())) e = db(s).begin();
    if (e) {
        // Nothing can be written safely; the statements of the action will fail on their own and
        // commit() reports it.
        actionFailed(s, "BeginTrans", e);
        return;
    }
    open_ = true;
    outermost_ = db(s).transactionDepth() == 1;
}

Transaction::~Transaction() {
    if (!open_) return;
    if (outermost_) {
        db(s_).rollback();
    } else {
        db(s_).markTransactionAbandoned();
        db(s_).commit();  // only counts the nesting down; the outer one rolls back
    }
}

bool Transaction::failed() const { return !open_ || db(s_).transactionFailed(); }

bool Transaction::commit() {
    if (!open_) return false;
    open_ = false;
    if (!outermost_) {
        const bool ok = !db(s_).transactionFailed();
        db(s_).commit();
        return ok;
    }
    const bool statementFailed = db(s_).transactionFailed();
    if (statementFailed || db(s_).transactionAbandoned()) {
        db(s_).rollback();
        if (statementFailed) say(s_, kNothingSaved, MsgIcon::Exclamation);
        return false;
    }
    if (const DbError e = db(s_).commit()) {
        actionFailed(s_, "CommitTrans", e);
        say(s_, kNothingSaved, MsgIcon::Exclamation);
        return false;
    }
    return true;
}

std::string boundText(std::string_view text) { return cutTo255(common::trimView(text)); }

std::string chkfld(const Value& v) {
    if (v.isNull()) return {};
    // The cut comes before the doubling, so the result may be longer than 255 characters.
    return common::replaceAll(boundText(v.toText()), "'", "''");
}

std::string chknull(const Value& v) { return v.isNull() ? std::string() : common::trim(v.toText()); }

}  // namespace tallymere::store

#pragma once
// The only ways to the database: every window and routine reads through GetRecs and writes through
// InsertRecs, DeleteRecs or UdateRecs. This layer alone decides what an engine failure means: it
// tells the user in fixed words, repairs a damaged file, reconnects a lost connection, or ends the
// program (Session::endProgram). Values are bound to `?` placeholders, never pasted into the text.

#include "store/recordset.h"
#include "store/value.h"

#include <string>
#include <string_view>

namespace tallymere::common {
class Session;
}

namespace tallymere::store {

using common::Session;

// Opens the shared connection. False when it could not be opened (ExitNow may then be set); some
// failures end the program.
bool ConnectDB(Session& s);
void CloseDB(Session& s);
// Asks the engine to verify and, where needed, repair the database file. True when it is sound.
bool RepairDB(Session& s);

// A read-only snapshot of a SELECT on the shared connection. A closed connection is reopened without
// a word. On failure the user is told and the result is an empty, closed recordset.
Recordset GetRecs(Session& s, std::string_view sql, const Params& params = {});
// GetRecs for the first reads of a run, with the start's own messages. True when the recordset was
// opened and ExitNow is not set.
bool TryGetRecs(Session& s, std::string_view sql, Recordset& out, const Params& params = {});

// Action statements. On failure: "Unable to update database [<name>]." with the engine's words,
// and false. The statement has then had no effect.
bool InsertRecs(Session& s, std::string_view sql, const Params& params = {});
bool DeleteRecs(Session& s, std::string_view sql, const Params& params = {});
// Runs on a connection of its own, so it works while the shared connection is closed. The name is
// spelled so, in the message too.
bool UdateRecs(Session& s, std::string_view sql, const Params& params = {});

// One user action that writes several statements: all of it happens or none of it. While it is open,
// InsertRecs, DeleteRecs and UdateRecs (which otherwise has a connection of its own) all write through
// the one transaction, and reads see its writes. A nested Transaction joins the outer one.
// A statement that fails inside marks it failed; commit() then rolls everything back, tells the user
// once that nothing was saved, and returns false. Leaving the scope without commit() rolls back
// silently (Cancel, an early return, an exception); inside an outer one it makes the outer fail too.
class Transaction {
public:
    explicit Transaction(Session& s);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    // True when everything was written.
    bool commit();
    // A statement inside has failed already: the action may as well stop.
    bool failed() const;

private:
    Session& s_;
    bool open_ = false;
    bool outermost_ = false;
};

// Makes a value fit for a quoted SQL text literal: NULL gives empty text, otherwise trimmed, cut to
// 255 characters, then every single quote doubled (so the result can be longer than 255).
std::string chkfld(const Value& v);
// What a bound text value becomes on the way in: chkfld without the doubling of quotes.
std::string boundText(std::string_view s);
// The null-safe read: NULL gives empty text, anything else is trimmed.
std::string chknull(const Value& v);

}  // namespace tallymere::store

#pragma once
// The kinds of engine failure the access layer tells apart. Each maps the engine's own codes
// (SQLITE_CANTOPEN, SQLITE_READONLY, SQLITE_CORRUPT, ...) onto what the user is told.

#include <string>

namespace tallymere::store {

enum class DbErrorKind {
    None,
    MissingFile,     // the database file is not there
    NotWritable,     // read-only file or folder, or locked by another program
    NotADatabase,    // not a Tallymere database at all
    Damaged,         // a Tallymere database whose pages cannot be read
    NoConnection,    // no connection is open
    LostConnection,  // the connection broke while in use (a network share gone away)
    Other,
};

// How long a statement waits for another connection's lock before it fails with NotWritable: long
// enough for the short writes of other copies on a share, short enough that a file held for good is
// reported.
inline constexpr int kBusyTimeoutMs = 5000;

struct DbError {
    DbErrorKind kind = DbErrorKind::None;
    int number = 0;           // the engine's extended result code, shown to the user
    std::string description;  // the engine's own words

    explicit operator bool() const { return kind != DbErrorKind::None; }
};

}  // namespace tallymere::store

#pragma once
// Copies of the database file that are safe while other machines use it, and the test that tells a
// Tallymere database from any other file before it is allowed to replace the live one.

#include "store/db_error.h"

#include <string>

namespace tallymere::store {

// Which end of a copy failed: the file read from, or the file (or folder) written to.
enum class CopySide { Source, Target };

// Copies the database `from` to `to` page by page inside one read transaction, so the copy is
// consistent even while another connection writes. The pages go to a temporary file beside `to`
// that is renamed over it only once complete: a failed copy leaves `to` as it was.
//
// Failures, with `failedSide` (when given) telling which end:
//   NotWritable    source: locked by another program for longer than the busy timeout;
//                  target: the file is read-only, or the folder refuses the new file
//   LostConnection an I/O error broke the copy off
//   MissingFile    the source, or the target's folder, does not exist
//   NotADatabase, Damaged, Other  as the engine reports them
// `busyTimeoutMs`: how long the source's lock held by another writer is waited for.
DbError backupDatabaseFile(const std::string& from, const std::string& to, CopySide* failedSide = nullptr,
                           int busyTimeoutMs = kBusyTimeoutMs);

// Puts the database `from` in place of the live database `live`, keeping what `live` held as `keep`
// (byte for byte). The live file is written in place through the engine, never renamed over, so a
// copy of the program on another machine that still has it open reads the restored data and writes
// into it, instead of into a file that is no longer there.
//
// It first takes the exclusive lock of `live`, waiting up to `busyTimeoutMs`: while another
// connection reads or writes it, the result is NotWritable (Target) and nothing is touched. Then the
// copy `keep` is made under that lock, and the pages of `from` are written into `live` in one
// transaction: a failure leaves `live` as it was.
//
// A live file the engine cannot take for a database at all (NotADatabase, Damaged; Target) is left
// untouched too: nobody can be using it, and the caller may replace it as a plain file.
DbError restoreDatabaseFile(const std::string& from, const std::string& live, const std::string& keep,
                            CopySide* failedSide = nullptr, int busyTimeoutMs = kBusyTimeoutMs);

// True when the file begins with an SQLite header that carries the Tallymere application id. Reads
// the header only; the file is not opened as a database, so nothing in it or beside it is touched.
bool isTallymereDatabaseFile(const std::string& path);

}  // namespace tallymere::store

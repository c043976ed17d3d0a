#include "store/online_backup.h"

#include "store/connection.h"
#include "store/database.h"

#include <sqlite3.h>
#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <vector>

namespace tallymere::store {

namespace fs = std::filesystem;

namespace {

void removeQuietly(const std::string& path) {
    std::error_code ec;
    fs::remove(path, ec);
}

bool readOnlyFile(const fs::path& path) {
    std::error_code ec;
    const auto perms = fs::status(path, ec).permissions();
    return !ec && (perms & fs::perms::owner_write) == fs::perms::none;
}

// A failure of the engine during the copy, told by the end it belongs to. The new file is private
// to this copy, so a lock or a corrupt page can only be the source's.
CopySide sideOf(int code) {
    switch (code & 0xff) {
    case SQLITE_READONLY:
    case SQLITE_FULL:
    case SQLITE_CANTOPEN:
    case SQLITE_PERM: return CopySide::Target;
    default: return CopySide::Source;
    }
}

}  // namespace

DbError backupDatabaseFile(const std::string& from, const std::string& to, CopySide* failedSide, int busyTimeoutMs) {
    CopySide unused = CopySide::Source;
    CopySide& side = failedSide ? *failedSide : unused;
    const auto fail = [&side](CopySide where, DbError e) {
        side = where;
        return e;
    };

    std::error_code ec;
    if (!fs::is_regular_file(from, ec))
        return fail(CopySide::Source,
                    {DbErrorKind::MissingFile, SQLITE_CANTOPEN, "The file " + from + " does not exist."});
    const fs::path target(to);
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    if (!fs::is_directory(folder, ec))
        return fail(CopySide::Target,
                    {DbErrorKind::MissingFile, SQLITE_CANTOPEN, "The folder " + folder.string() + " does not exist."});
    if (fs::exists(target, ec)) {
        if (fs::equivalent(from, target, ec))
            return fail(CopySide::Target, {DbErrorKind::Other, SQLITE_MISUSE, "A file cannot be copied onto itself."});
        // A protected file is not overwritten behind its owner's back, even where the folder would
        // let a rename replace it.
        if (readOnlyFile(target))
            return fail(CopySide::Target,
                        {DbErrorKind::NotWritable, SQLITE_READONLY, "The file " + to + " is read-only."});
    }

    const std::string partial = to + ".partial";
    removeQuietly(partial);
    removeQuietly(partial + "-journal");

    // Read-write without create: a hot journal left by a crashed writer is rolled back before the
    // pages are read. A write-protected file falls back to read-only by itself.
    sqlite3* src = nullptr;
    int rc = sqlite3_open_v2(from.c_str(), &src, SQLITE_OPEN_READWRITE, nullptr);
    if (rc != SQLITE_OK) {
        DbError e = Connection::errorFrom(rc, src);
        sqlite3_close(src);
        return fail(CopySide::Source, e);
    }
    sqlite3_extended_result_codes(src, 1);
    sqlite3_busy_timeout(src, busyTimeoutMs);

    sqlite3* dst = nullptr;
    rc = sqlite3_open_v2(partial.c_str(), &dst, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    if (rc != SQLITE_OK) {
        // The folder exists, so a file that cannot be made there is a refusal.
        DbError e = Connection::errorFrom(rc, dst);
        if ((rc & 0xff) == SQLITE_CANTOPEN) e.kind = DbErrorKind::NotWritable;
        sqlite3_close(dst);
        sqlite3_close(src);
        removeQuietly(partial);
        return fail(CopySide::Target, e);
    }
    sqlite3_extended_result_codes(dst, 1);
    sqlite3_busy_timeout(dst, busyTimeoutMs);

    DbError error;
    CopySide where = CopySide::Source;
    if (sqlite3_backup* b = sqlite3_backup_init(dst, "main", src, "main")) {
        // All pages in one step: one read transaction on the source, so no write of another
        // machine can slip in between two pages.
        do rc = sqlite3_backup_step(b, -1);
        while (rc == SQLITE_OK);
        sqlite3_backup_finish(b);
        if (rc != SQLITE_DONE) {
            error = Connection::errorFrom(rc, dst);
            where = sideOf(rc);
        }
    } else {
        rc = sqlite3_extended_errcode(dst);
        error = Connection::errorFrom(rc, dst);
        where = sideOf(rc);
    }
    sqlite3_close(src);
    if (const int closed = sqlite3_close(dst); !error && closed != SQLITE_OK) {
        error = Connection::errorFrom(closed, nullptr);
        where = CopySide::Target;
    }
    if (error) {
        removeQuietly(partial);
        removeQuietly(partial + "-journal");
        return fail(where, error);
    }

    // A journal beside the old file belongs to it; played into the new one it would tear it.
    removeQuietly(to + "-journal");
    fs::rename(partial, target, ec);
    if (ec) {
        removeQuietly(partial);
        const bool refused = ec == std::errc::permission_denied || ec == std::errc::operation_not_permitted ||
                             ec == std::errc::read_only_file_system;
        return fail(CopySide::Target, {refused ? DbErrorKind::NotWritable : DbErrorKind::Other, ec.value(),
                                       "The copy could not replace " + to + ": " + ec.message()});
    }
    return {};
}

namespace {

bool lockRefused(int rc) { return (rc & 0xff) == SQLITE_BUSY || (rc & 0xff) == SQLITE_LOCKED; }

// Copies the bytes of the file behind `db`'s main database through the engine's own handle. Reading
// it through a handle of our own would be no good: closing that would drop the engine's locks.
std::error_code copyThroughHandle(sqlite3* db, const std::string& to) {
    sqlite3_file* file = nullptr;
    if (sqlite3_file_control(db, "main", SQLITE_FCNTL_FILE_POINTER, &file) != SQLITE_OK || !file || !file->pMethods)
        return std::make_error_code(std::errc::io_error);
    sqlite3_int64 size = 0;
    if (file->pMethods->xFileSize(file, &size) != SQLITE_OK) return std::make_error_code(std::errc::io_error);
    const std::string partial = to + ".partial";
    std::error_code ec;
    {
        std::ofstream out(partial, std::ios::binary | std::ios::trunc);
        if (!out) return std::make_error_code(std::errc::permission_denied);
        std::vector<char> buffer(64 * 1024);
        for (sqlite3_int64 offset = 0; offset < size;) {
            const int n = static_cast<int>(std::min<sqlite3_int64>(size - offset, buffer.size()));
            if (file->pMethods->xRead(file, buffer.data(), n, offset) != SQLITE_OK) {
                ec = std::make_error_code(std::errc::io_error);
                break;
            }
            out.write(buffer.data(), n);
            offset += n;
        }
        out.close();
        if (!ec && !out) ec = std::make_error_code(std::errc::io_error);
    }
    if (!ec) fs::rename(partial, to, ec);
    if (ec) removeQuietly(partial);
    return ec;
}

}  // namespace

DbError restoreDatabaseFile(const std::string& from, const std::string& live, const std::string& keep,
                            CopySide* failedSide, int busyTimeoutMs) {
    CopySide unused = CopySide::Source;
    CopySide& side = failedSide ? *failedSide : unused;
    const auto fail = [&side](CopySide where, DbError e) {
        side = where;
        return e;
    };
    std::error_code ec;
    if (!fs::is_regular_file(from, ec))
        return fail(CopySide::Source,
                    {DbErrorKind::MissingFile, SQLITE_CANTOPEN, "The file " + from + " does not exist."});
    if (!fs::is_regular_file(live, ec))
        return fail(CopySide::Target,
                    {DbErrorKind::MissingFile, SQLITE_CANTOPEN, "The file " + live + " does not exist."});
    if (fs::exists(keep, ec) && readOnlyFile(keep))
        return fail(CopySide::Target,
                    {DbErrorKind::NotWritable, SQLITE_READONLY, "The file " + keep + " is read-only."});
    if (readOnlyFile(live))
        return fail(CopySide::Target,
                    {DbErrorKind::NotWritable, SQLITE_READONLY, "The file " + live + " is read-only."});

    sqlite3* dst = nullptr;
    int rc = sqlite3_open_v2(live.c_str(), &dst, SQLITE_OPEN_READWRITE, nullptr);
    const auto closeLive = [&dst] { sqlite3_close(dst); };
    if (rc != SQLITE_OK) {
        DbError e = Connection::errorFrom(rc, dst);
        closeLive();
        return fail(CopySide::Target, e);
    }
    sqlite3_extended_result_codes(dst, 1);
    sqlite3_busy_timeout(dst, busyTimeoutMs);

    // The lock first: a copy that has the file in a transaction refuses the restore before anything
    // is written. A journal left by a crash is rolled back on the way.
    rc = sqlite3_exec(dst, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr);
    if (rc != SQLITE_OK) {
        DbError e = Connection::errorFrom(rc, dst);
        if (lockRefused(rc)) e.description = "The file " + live + " is in use by another program.";
        closeLive();
        return fail(CopySide::Target, e);
    }
    // The old data as it stands under the lock.
    if (const std::error_code copyError = copyThroughHandle(dst, keep)) {
        sqlite3_exec(dst, "ROLLBACK", nullptr, nullptr, nullptr);
        closeLive();
        const bool refused = copyError == std::errc::permission_denied ||
                             copyError == std::errc::operation_not_permitted ||
                             copyError == std::errc::read_only_file_system;
        return fail(CopySide::Target,
                    {refused ? DbErrorKind::NotWritable : DbErrorKind::LostConnection, copyError.value(),
                     "The copy " + keep + " could not be made: " + copyError.message()});
    }
    // The engine's copy takes the exclusive lock again for itself: another copy that comes in between
    // only makes it wait, or fail with the live file still as it was.
    sqlite3_exec(dst, "COMMIT", nullptr, nullptr, nullptr);

    sqlite3* src = nullptr;
    rc = sqlite3_open_v2(from.c_str(), &src, SQLITE_OPEN_READONLY, nullptr);
    if (rc != SQLITE_OK) {
        DbError e = Connection::errorFrom(rc, src);
        sqlite3_close(src);
        closeLive();
        return fail(CopySide::Source, e);
    }
    sqlite3_busy_timeout(src, busyTimeoutMs);
    DbError error;
    CopySide where = CopySide::Source;
    if (sqlite3_backup* b = sqlite3_backup_init(dst, "main", src, "main")) {
        // All pages in one step: one transaction on the live file, so it is restored whole or not at all.
        do rc = sqlite3_backup_step(b, -1);
        while (rc == SQLITE_OK);
        sqlite3_backup_finish(b);
        if (rc != SQLITE_DONE) {
            error = Connection::errorFrom(rc, dst);
            // Here the live file is the one another connection can hold.
            where = lockRefused(rc) ? CopySide::Target : sideOf(rc);
        }
    } else {
        rc = sqlite3_extended_errcode(dst);
        error = Connection::errorFrom(rc, dst);
        where = CopySide::Target;
    }
    sqlite3_close(src);
    closeLive();
    if (error) return fail(where, error);
    return {};
}

bool isTallymereDatabaseFile(const std::string& path) {
    static constexpr char kMagic[] = "SQLite format 3";  // 16 bytes with its terminating zero
    std::array<unsigned char, 100> header{};
    std::ifstream in(path, std::ios::binary);
    if (!in.read(reinterpret_cast<char*>(header.data()), header.size())) return false;
    for (std::size_t i = 0; i < sizeof kMagic; ++i)
        if (header[i] != static_cast<unsigned char>(kMagic[i])) return false;
    // The application id: four bytes, big-endian, at offset 68 of the header.
    const std::uint32_t id = (std::uint32_t{header[68]} << 24) | (std::uint32_t{header[69]} << 16) |
                             (std::uint32_t{header[70]} << 8) | std::uint32_t{header[71]};
    return id == static_cast<std::uint32_t>(kApplicationId);
}

}  // namespace tallymere::store

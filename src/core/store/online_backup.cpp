#include "store/online_backup.h"

#include "store/connection.h"
#include "store/database.h"

#include <sqlite3.h>
#include <array>
#include <filesystem>
#include <fstream>

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

DbError backupDatabaseFile(const std::string& from, const std::string& to, CopySide* failedSide) {
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
    sqlite3_busy_timeout(src, kBusyTimeoutMs);

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
    sqlite3_busy_timeout(dst, kBusyTimeoutMs);

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

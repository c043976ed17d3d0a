#include "maintenance/file_copy.h"

#include "common/text.h"

#include <filesystem>

namespace tallymere::maintenance {

namespace fs = std::filesystem;

std::string folderText(std::string_view typed) {
    std::string folder = common::trim(typed);
    while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
    return folder;
}

std::string inFolder(const std::string& folder, const std::string& name) { return (fs::path(folder) / name).string(); }

bool sameFolder(const std::string& a, const std::string& b) {
    const std::string fa = folderText(a);
    const std::string fb = folderText(b);
    if (fa.empty() || fb.empty()) return false;
    std::error_code ec;
    if (fs::equivalent(fa, fb, ec)) return true;
    const auto normal = [](const std::string& f) {
        std::error_code e;
        fs::path p = fs::weakly_canonical(fs::absolute(f, e), e);
        std::string text = p.lexically_normal().string();
        while (text.size() > 1 && text.back() == '/') text.pop_back();
        return text;
    };
    return normal(fa) == normal(fb);
}

std::error_code copyFileReplacing(const std::string& from, const std::string& to) {
    std::error_code ec;
    if (fs::exists(to, ec) && (fs::status(to, ec).permissions() & fs::perms::owner_write) == fs::perms::none)
        return std::make_error_code(std::errc::permission_denied);
    const std::string partial = to + ".partial";
    ec.clear();
    fs::copy_file(from, partial, fs::copy_options::overwrite_existing, ec);
    // The copy takes the source's rights; a read-only original must not make a read-only copy.
    if (!ec) fs::permissions(partial, fs::perms::owner_write, fs::perm_options::add, ec);
    if (!ec) fs::rename(partial, to, ec);
    if (ec) {
        std::error_code ignored;
        fs::remove(partial, ignored);
    }
    return ec;
}

}  // namespace tallymere::maintenance

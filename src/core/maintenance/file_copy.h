#pragma once
// Folder and file helpers of the backup, restore and data location windows.

#include <string>
#include <string_view>
#include <system_error>

namespace tallymere::maintenance {

inline constexpr const char* kBackupCopyName = "Tallymere.bak";
inline constexpr const char* kRestoreKeepName = "Tallymere.tmp";

// A folder as the user typed or chose it: trimmed, without a trailing separator.
std::string folderText(std::string_view typed);
// `name` inside `folder`.
std::string inFolder(const std::string& folder, const std::string& name);
// True when both name the same folder, whatever the spelling (links, "..", a trailing separator).
bool sameFolder(const std::string& a, const std::string& b);

// Copies a plain file through a temporary file beside the target, renamed over it when complete, so
// a failure never leaves half a file. A read-only target is refused (permission_denied).
std::error_code copyFileReplacing(const std::string& from, const std::string& to);

}  // namespace tallymere::maintenance

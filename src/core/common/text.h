#pragma once
// Small text helpers shared by every layer. Case folding is ASCII: names and keys of the system are
// compared the way its database compares them.

#include <string>
#include <string_view>
#include <vector>

namespace tallymere::common {

std::string_view trimView(std::string_view s);
std::string trim(std::string_view s);
std::string toUpper(std::string_view s);
std::string toLower(std::string_view s);
bool equalsNoCase(std::string_view a, std::string_view b);
bool startsWithNoCase(std::string_view s, std::string_view prefix);
// Every occurrence of `from` replaced by `to`, scanning left to right past each replacement.
std::string replaceAll(std::string_view s, std::string_view from, std::string_view to);
std::vector<std::string> split(std::string_view s, char sep);

}  // namespace tallymere::common

#include "common/text.h"

#include <algorithm>

namespace tallymere::common {

std::string_view trimView(std::string_view s) {
    // The system trims blanks only; tabs and line ends inside a typed note are kept.
    const auto first = s.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    const auto last = s.find_last_not_of(' ');
    return s.substr(first, last - first + 1);
}

std::string trim(std::string_view s) { return std::string(trimView(s)); }

std::string toUpper(std::string_view s) {
    std::string r(s);
    std::transform(r.begin(), r.end(), r.begin(), [](unsigned char c) { return c >= 'a' && c <= 'z' ? c - 32 : c; });
    return r;
}

std::string toLower(std::string_view s) {
    std::string r(s);
    std::transform(r.begin(), r.end(), r.begin(), [](unsigned char c) { return c >= 'A' && c <= 'Z' ? c + 32 : c; });
    return r;
}

bool equalsNoCase(std::string_view a, std::string_view b) { return a.size() == b.size() && toUpper(a) == toUpper(b); }

bool startsWithNoCase(std::string_view s, std::string_view prefix) {
    return s.size() >= prefix.size() && equalsNoCase(s.substr(0, prefix.size()), prefix);
}

std::string replaceAll(std::string_view s, std::string_view from, std::string_view to) {
    if (from.empty()) return std::string(s);
    std::string r;
    std::size_t pos = 0;
    while (true) {
        const auto hit = s.find(from, pos);
        if (hit == std::string_view::npos) break;
        r.append(s.substr(pos, hit - pos));
        r.append(to);
        pos = hit + from.size();
    }
    r.append(s.substr(pos));
    return r;
}

std::vector<std::string> split(std::string_view s, char sep) {
    std::vector<std::string> parts;
    std::size_t pos = 0;
    while (true) {
        const auto hit = s.find(sep, pos);
        parts.emplace_back(s.substr(pos, hit == std::string_view::npos ? std::string_view::npos : hit - pos));
        if (hit == std::string_view::npos) break;
        pos = hit + 1;
    }
    return parts;
}

}  // namespace tallymere::common

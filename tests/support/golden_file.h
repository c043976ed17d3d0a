#pragma once
// Reference files for outputs that are easier to read whole than to assert piece by piece (RTF).
// A missing or changed reference fails the test with a line diff; TALLYMERE_UPDATE_GOLDEN=1 in the
// environment writes the references anew instead, to be reviewed in the diff of the change.

#include <gtest/gtest.h>
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace tallymere::testing {

inline std::vector<std::string> goldenLines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

// The lines that differ, "-" from the reference and "+" from the output, with two lines of context.
inline std::string goldenDiff(const std::string& expected, const std::string& actual) {
    const auto a = goldenLines(expected), b = goldenLines(actual);
    const std::size_t n = a.size(), m = b.size();
    std::ostringstream out;
    if (n * m > 4'000'000) {
        std::size_t i = 0;
        while (i < n && i < m && a[i] == b[i]) ++i;
        out << "first difference at line " << i + 1 << ":\n- " << (i < n ? a[i] : "<end>") << "\n+ "
            << (i < m ? b[i] : "<end>") << "\n";
        return out.str();
    }
    // Longest common subsequence of lines, walked from the front.
    std::vector<std::vector<std::uint32_t>> lcs(n + 1, std::vector<std::uint32_t>(m + 1, 0));
    for (std::size_t i = n; i-- > 0;)
        for (std::size_t j = m; j-- > 0;)
            lcs[i][j] = a[i] == b[j] ? lcs[i + 1][j + 1] + 1 : std::max(lcs[i + 1][j], lcs[i][j + 1]);
    struct Op {
        char kind;
        std::size_t line;
        std::string text;
    };
    std::vector<Op> ops;
    std::size_t i = 0, j = 0;
    while (i < n || j < m) {
        if (i < n && j < m && a[i] == b[j]) {
            ops.push_back({' ', i + 1, a[i]}), ++i, ++j;
        } else if (j < m && (i == n || lcs[i][j + 1] >= lcs[i + 1][j])) {
            ops.push_back({'+', j + 1, b[j]}), ++j;
        } else {
            ops.push_back({'-', i + 1, a[i]}), ++i;
        }
    }
    std::size_t lastShown = 0;
    bool any = false;
    for (std::size_t k = 0; k < ops.size(); ++k) {
        bool near = false;
        for (std::size_t d = (k >= 2 ? k - 2 : 0); d < std::min(ops.size(), k + 3); ++d)
            near = near || ops[d].kind != ' ';
        if (!near) continue;
        if (any && k > lastShown + 1) out << "...\n";
        out << ops[k].kind << ' ' << ops[k].line << ": " << ops[k].text << "\n";
        lastShown = k;
        any = true;
    }
    return out.str();
}

inline ::testing::AssertionResult matchesGolden(const std::string& actual, const std::filesystem::path& reference) {
    const char* update = std::getenv("TALLYMERE_UPDATE_GOLDEN");
    if (update && std::string(update) == "1") {
        std::filesystem::create_directories(reference.parent_path());
        std::ofstream(reference, std::ios::binary) << actual;
        return ::testing::AssertionSuccess() << "rewrote " << reference;
    }
    std::ifstream in(reference, std::ios::binary);
    if (!in)
        return ::testing::AssertionFailure()
               << "the reference " << reference << " is missing; run with TALLYMERE_UPDATE_GOLDEN=1 to write it";
    const std::string expected((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    if (expected == actual) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "the output differs from " << reference
                                         << " (TALLYMERE_UPDATE_GOLDEN=1 rewrites it):\n"
                                         << goldenDiff(expected, actual);
}

}  // namespace tallymere::testing

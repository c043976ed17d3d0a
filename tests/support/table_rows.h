#pragma once
// Reading back what a test stored, without a loop in every test file.

#include "common/session.h"
#include "store/access.h"

#include <string>
#include <string_view>
#include <vector>

namespace tallymere::testing {

// The key of the row added last.
inline long lastId(common::Session& s, const std::string& table, const std::string& key) {
    return static_cast<long>(store::GetRecs(s, "select max(" + key + ") as id from " + table)["id"].toLong());
}

// The first column of every row, NULL as "<null>".
inline std::vector<std::string> column(common::Session& s, std::string_view sql, const store::Params& params = {}) {
    std::vector<std::string> out;
    for (auto rs = store::GetRecs(s, sql, params); !rs.eof(); rs.MoveNext()) {
        const auto& v = rs.field(rs.position(), std::size_t{0});
        out.push_back(v.isNull() ? "<null>" : v.text());
    }
    return out;
}

}  // namespace tallymere::testing

#pragma once

#include "store/database.h"

#include <string>

namespace tallymere::store {

// Makes an empty Tallymere database at `path` from the schema and seed statements, marked with the
// application id (another id makes a file that is not taken for ours). Returns an error text, empty on
// success.
std::string buildTemplate(const std::string& path, const std::string& schemaSql, const std::string& seedSql,
                          int applicationId = kApplicationId);

}  // namespace tallymere::store

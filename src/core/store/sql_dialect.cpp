#include "store/sql_dialect.h"

namespace tallymere::store {

// Placeholder until the dialect lands.
std::string translateSql(std::string_view sql) { return std::string(sql); }

}  // namespace tallymere::store

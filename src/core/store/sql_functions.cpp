#include "store/sql_dialect.h"

namespace tallymere::store {

// Placeholder until the functions land.
bool registerSqlFunctions(sqlite3*) { return true; }

}  // namespace tallymere::store

#pragma once
// Bringing a database made by an older release up to the current schema, and the repair of overnight
// entries that the first releases stored with their end on the start's day. Both run once at start.

#include "common/session.h"

namespace tallymere::store {

// Adds the columns older databases lack. Steps whose column exists have no effect and no message; the
// day numbers of the default schedule are worked out only on the run that adds `daynum`.
void UpgradeSchema(common::Session& s);

// Moves the end of every entry that ends before it starts one day on, unless the previous run was of
// a release after the first major version.
void RepairOvernightEntries(common::Session& s);

}  // namespace tallymere::store

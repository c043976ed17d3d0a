#pragma once
// Owner and user mode: which rights user mode lacks, which menu entries that takes away, and the
// refusal of a schedule change.

#include "common/session.h"

#include <string>
#include <vector>

namespace tallymere::maintenance {

// The options keys of the user's rights, in the order they are read at login.
extern const char* const kRightKeys[8];

// Reads the user's rights from the options table into the session, inserting 'No' for a missing key.
void ReadUserRights(common::Session& s);

// The menu entries switched off in user mode for the rights the session lacks.
std::vector<std::string> MenusDisabledByRights(const common::UserRights& rights);

// True when a schedule change must stop: user mode without the right to change the schedule. Says
// so to the user first.
bool ShowNoPermission(common::Session& s);
// The test every change to the schedule begins with; shows the refusal itself.
inline bool NoSchedulePermission(common::Session& s) { return s.IsUserMode && s.rights.noSchedule && ShowNoPermission(s); }

}  // namespace tallymere::maintenance

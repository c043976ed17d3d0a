#pragma once
// What the staffing windows share: the two filter lists, the grid-as-shown in print form, and the
// delimited text a list is saved as.

#include "common/csv.h"
#include "common/session.h"
#include "reference/employee_records.h"
#include "reports/list_print.h"

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace tallymere::staffing {

using common::Date;
using common::DateTime;
using common::Session;
using reference::ChoiceList;

inline constexpr const char* kAll = "All";

// The shift filter ("All" first when asked) from the shifts in time order.
void fillShiftList(Session& s, ChoiceList& list, bool withAll);
// The position filter ("All" first when asked) from the positions as stored.
void fillPositionList(Session& s, ChoiceList& list, bool withAll);

// The shifts and positions that pass a filter, in the windows' order: shift names by start, end and
// name; position titles by title.
std::vector<std::string> shiftsPassing(Session& s, const ChoiceList& filter);
std::vector<std::string> positionsPassing(Session& s, const ChoiceList& filter);

// A list as delimited text: the captions, then the rows as shown.
void writeList(std::ostream& out, const reports::ListGrid& grid, common::Delimited style = common::Delimited::Csv);

// A head count as typed: digits only. nullopt for letters, signs or a number too large to be meant.
std::optional<long> parseHeadCount(std::string_view text);
inline constexpr const char* kBadHeadCount = "The number needed must be a whole number of 0 or more.";

}  // namespace tallymere::staffing

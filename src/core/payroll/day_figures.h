#pragma once
// The two sums the daily schedule shows for a day of the current schedule file. Hours of an entry are
// always its whole minutes divided by 60, never rounded for pay.

#include "common/session.h"

namespace tallymere::payroll {

// Each active employee's entries at the employee's own hourly rate, whatever the entry's position;
// unassigned entries and inactive employees cost nothing, entries that end before they start are
// skipped. No overtime.
double GetDailyLaborCost(common::Session& s, common::Date day);

// Hours of every assigned entry, inactive employees included.
double GetDailyHours(common::Session& s, common::Date day);

}  // namespace tallymere::payroll

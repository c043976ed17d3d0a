#pragma once
// The two sums the daily schedule shows for a day of the current schedule file. Hours of an entry are
// always its whole minutes divided by 60, never rounded for pay.

#include "common/session.h"

namespace tallymere::payroll {

// How a day's figures (and the daily window's marks) are fetched. The program reads each with one
// statement over the day; the older way, a statement per entry or per employee, is kept reachable
// so that the two can be compared and measured. Both give the same results.
enum class DayReads { Batched, PerRow };

// Each active employee's entries at the employee's own hourly rate, whatever the entry's position;
// unassigned entries and inactive employees cost nothing, entries that end before they start are
// skipped. No overtime.
double GetDailyLaborCost(common::Session& s, common::Date day, DayReads reads = DayReads::Batched);

// Hours of every assigned entry, inactive employees included.
double GetDailyHours(common::Session& s, common::Date day, DayReads reads = DayReads::Batched);

}  // namespace tallymere::payroll

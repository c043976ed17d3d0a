#include "payroll/day_figures.h"

#include "common/numbers.h"
#include "store/access.h"

#include <exception>
#include <string>

namespace tallymere::payroll {

using common::Session;

namespace {

// The cost of one entry: the employee's own rate (0 when empty or unreadable) times the entry's
// hours. An entry without both times, or one that ends before it starts, costs nothing.
double entryCost(const store::Field& rate, const store::Field& strttime, const store::Field& endtime) {
    const auto start = strttime.toDateTime();
    const auto end = endtime.toDateTime();
    if (!start || !end) return 0;
    const double hours = static_cast<double>(common::minutesBetween(*start, *end)) / 60.0;
    if (hours < 0) return 0;
    return common::toNumber(rate.text()) * hours;
}

double laborCostPerEntry(Session& s, common::Date day) {
    double total = 0;
    for (auto entry = store::GetRecs(s,
                                     "select * from sched where sday = ? and sname=? and personid in (select "
                                     "personid from person where active=true)",
                                     {day, s.currentSchedule});
         !entry.eof(); entry.MoveNext()) {
        const auto person = store::GetRecs(s, "select * from person where personid = ?", {entry["personid"].toLong()});
        if (person.empty()) return total;
        total += entryCost(person["hourlyrate"], entry["strttime"], entry["endtime"]);
    }
    return total;
}

// The same entries with their employee's rate in one read. The join finds exactly the active
// employees the sub-select names, so no entry lacks its person; the order is the key order the
// per-entry read walks, so the sum adds up the same way.
double laborCostOfDay(Session& s, common::Date day) {
    double total = 0;
    for (auto entry = store::GetRecs(s,
                                     "select sched.strttime, sched.endtime, person.hourlyrate from sched inner join "
                                     "person on person.personid = sched.personid where sched.sday = ? and "
                                     "sched.sname=? and person.active=true order by sched.schedid",
                                     {day, s.currentSchedule});
         !entry.eof(); entry.MoveNext())
        total += entryCost(entry["hourlyrate"], entry["strttime"], entry["endtime"]);
    return total;
}

}  // namespace

double GetDailyLaborCost(Session& s, common::Date day, DayReads reads) {
    try {
        return reads == DayReads::Batched ? laborCostOfDay(s, day) : laborCostPerEntry(s, day);
    } catch (const common::ProgramEnd&) {
        throw;
    } catch (const std::exception& e) {
        s.ui().inform(
            std::string("An error occurred while getting daily labor costs [LaborCostDay], error: ") + e.what(),
            common::MsgIcon::Critical);
        return 0;
    }
}

double GetDailyHours(Session& s, common::Date day, DayReads reads) {
    constexpr const char* kHoursOf = "SELECT Sum(DateDiff(\"n\",[strttime],[endtime])/60) AS Expr2 from sched ";
    if (reads == DayReads::Batched) {
        // The entries' hours are divided one by one and summed by the engine: the same points of
        // rounding as adding the entries' sums up here.
        const auto sum = store::GetRecs(s, std::string(kHoursOf) + "where sday=? and sname=? and personid <> -1",
                                        {day, s.currentSchedule});
        return sum.empty() || sum["Expr2"].isNull() ? 0 : sum["Expr2"].toDouble();
    }
    double total = 0;
    for (auto entry = store::GetRecs(s, "select * from sched where sday=? and sname=? and personid <> -1",
                                     {day, s.currentSchedule});
         !entry.eof(); entry.MoveNext()) {
        const auto sum =
            store::GetRecs(s, std::string(kHoursOf) + "where sched!schedid = ?", {entry["schedid"].toLong()});
        if (!sum.empty() && !sum["Expr2"].isNull()) total += sum["Expr2"].toDouble();
    }
    return total;
}

}  // namespace tallymere::payroll

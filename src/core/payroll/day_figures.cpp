#include "payroll/day_figures.h"

#include "common/numbers.h"
#include "store/access.h"

#include <exception>
#include <string>

namespace tallymere::payroll {

using common::Session;

double GetDailyLaborCost(Session& s, common::Date day) {
    try {
        double total = 0;
        for (auto entry = store::GetRecs(s,
                                         "select * from sched where sday = ? and sname=? and personid in (select "
                                         "personid from person where active=true)",
                                         {day, s.currentSchedule});
             !entry.eof(); entry.MoveNext()) {
            // One lookup per entry; the statement is prepared once.
            const auto person =
                store::GetRecs(s, "select * from person where personid = ?", {entry["personid"].toLong()});
            if (person.empty()) return total;
            const auto start = entry["strttime"].toDateTime();
            const auto end = entry["endtime"].toDateTime();
            if (!start || !end) continue;
            const double hours = static_cast<double>(common::minutesBetween(*start, *end)) / 60.0;
            if (hours < 0) continue;
            total += common::toNumber(person["hourlyrate"].text()) * hours;
        }
        return total;
    } catch (const common::ProgramEnd&) {
        throw;
    } catch (const std::exception& e) {
        s.ui().inform(
            std::string("An error occurred while getting daily labor costs [LaborCostDay], error: ") + e.what(),
            common::MsgIcon::Critical);
        return 0;
    }
}

double GetDailyHours(Session& s, common::Date day) {
    double total = 0;
    for (auto entry = store::GetRecs(s, "select * from sched where sday=? and sname=? and personid <> -1",
                                     {day, s.currentSchedule});
         !entry.eof(); entry.MoveNext()) {
        const auto sum = store::GetRecs(
            s, "SELECT Sum(DateDiff(\"n\",[strttime],[endtime])/60) AS Expr2 from sched where sched!schedid = ?",
            {entry["schedid"].toLong()});
        if (!sum.empty() && !sum["Expr2"].isNull()) total += sum["Expr2"].toDouble();
    }
    return total;
}

}  // namespace tallymere::payroll

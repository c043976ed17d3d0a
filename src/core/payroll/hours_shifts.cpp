#include "payroll/hours_shifts.h"

#include "common/date_time.h"
#include "store/access.h"

#include <exception>

namespace tallymere::payroll {

using common::Date;
using common::Session;

std::unique_ptr<hoursshifts> hoursshifts::open(Session& s) {
    auto w = std::make_unique<hoursshifts>(s);
    w->RefreshButton_Click();
    return w;
}

hoursshifts::hoursshifts(Session& s) : s_(s) {
    startdate = enddate = s.activeDate;
    leavelistview.columns = {"Name", "Hours", "Shifts"};
    auto people = store::GetRecs(s, "SELECT * FROM person where active = true order by lname");
    if (people.empty()) s.ui().inform("There are no personnel.");
    for (; !people.eof(); people.MoveNext())
        personcombo.push_back({listName(people), static_cast<long>(people["personid"].toLong())});
}

bool hoursshifts::RefreshButton_Click() {
    if (period == Period::Range && startdate > enddate) {
        s_.ui().inform("The start date cannot be greater than the end date.");
        return false;
    }
    switch (period) {
    case Period::Week:
        startdate = common::weekStart(startdate, s_.settings.firstdayofweek);
        enddate = startdate.addDays(6);
        break;
    case Period::Month:
        startdate = Date::fromYmd(startdate.year(), startdate.month(), 1);
        enddate = startdate.addMonths(1).addDays(-1);
        break;
    case Period::Year:
        startdate = Date::fromYmd(startdate.year(), 1, 1);
        enddate = startdate.addYears(1).addDays(-1);
        break;
    case Period::Day:
    case Period::Range: break;
    }
    try {
        const DateFilter f = period == Period::Day ? dayFilter(s_, startdate) : rangeFilter(s_, startdate, enddate);
        const long chosen = personcomboIndex > 0 && personcomboIndex < static_cast<int>(personcombo.size())
                                ? personcombo[static_cast<std::size_t>(personcomboIndex)].personid
                                : 0;
        auto people = chosen == 0
                          ? store::GetRecs(s_, "select * from person where active = true order by lname")
                          : store::GetRecs(s_, "select * from person where personid = ? order by lname", {chosen});
        const std::string sumSql = "SELECT Sum(DateDiff(\"n\",[strttime],[endtime])/60) AS Expr2 from sched " +
                                   f.where + " GROUP BY sched.PersonID Having sched.personid =?";
        const std::string shiftsSql = "select * from sched " + f.where + " and personid=?";
        leavelistview.clear();
        for (; !people.eof(); people.MoveNext()) {
            const long id = static_cast<long>(people["personid"].toLong());
            const store::Params params = period == Period::Day
                                             ? store::Params{startdate, s_.currentSchedule, id}
                                             : store::Params{startdate, enddate, s_.currentSchedule, id};
            const auto sum = store::GetRecs(s_, sumSql, params);
            const double hours = sum.empty() || sum["expr2"].isNull() ? 0 : sum["expr2"].toDouble();
            const long shifts = static_cast<long>(store::GetRecs(s_, shiftsSql, params).RecordCount());
            leavelistview.rows.push_back({textCell(listName(people)), hoursCell(s_, hours), countCell(shifts)});
        }
        heading = "Employee hours and shift totals " +
                  (period == Period::Day ? reportDate(s_, startdate)
                                         : reportDate(s_, startdate) + "  to  " + reportDate(s_, enddate));
        return true;
    } catch (const common::ProgramEnd&) {
        throw;
    } catch (const std::exception& e) {
        s_.ui().inform(std::string("Unable to create the Hours/Shifts report.") + " " + e.what());
        return false;
    }
}

}  // namespace tallymere::payroll

#include "payroll/payroll_overtime.h"

#include "common/date_time.h"
#include "common/display_format.h"
#include "common/numbers.h"
#include "common/report_name.h"
#include "reports/report_frame.h"
#include "reports/table.h"
#include "store/access.h"

#include <exception>
#include <map>

namespace tallymere::payroll {

using common::Date;
using common::MsgIcon;
using common::Session;

namespace {

constexpr const char* kWeekFormat = "ddd mmm dd, YYYY";

std::vector<ComboItem> activePeople(Session& s) {
    std::vector<ComboItem> items{{"All", 0}};
    auto people = store::GetRecs(s, "SELECT * FROM person where active = true order by lname,fname");
    if (people.empty()) s.ui().inform("There are no personnel.");
    for (; !people.eof(); people.MoveNext())
        items.push_back({listName(people), static_cast<long>(people["personid"].toLong())});
    return items;
}

long chosenId(const std::vector<ComboItem>& items, int index) {
    return index > 0 && index < static_cast<int>(items.size()) ? items[static_cast<std::size_t>(index)].personid : 0;
}

}  // namespace

double GetHoursInRange(Session& s, long personid, Date from, Date to, const std::string& scheduleName) {
    const auto rs =
        s.settings.gb_CheckConflictAllSchedules
            ? store::GetRecs(s,
                             "SELECT Sum(DateDiff(\"n\",[strttime],[endtime])/60) AS Expr2 From sched Where sched.sday "
                             ">= ? and sday <=? GROUP BY sched.PersonID Having sched.personid =?",
                             {from, to, personid})
            : store::GetRecs(s,
                             "SELECT Sum(DateDiff(\"n\",[strttime],[endtime])/60) AS Expr2 From sched Where sched.sday "
                             ">= ? and sday <=? and sname=? GROUP BY sched.PersonID Having sched.personid =?",
                             {from, to, scheduleName, personid});
    if (rs.empty() || rs["expr2"].isNull()) return 0;
    return rs["expr2"].toDouble();
}

std::unique_ptr<PayrollwithOvertime> PayrollwithOvertime::open(Session& s) {
    if (NoPayrollPermission(s)) return nullptr;
    auto w = std::make_unique<PayrollwithOvertime>(s);
    w->refreshbutton_Click();
    return w;
}

PayrollwithOvertime::PayrollwithOvertime(Session& s) : s_(s) {
    if (s.settings.gd_OvertimeFactor == 0) s.settings.gd_OvertimeFactor = 1.0;
    OverTimeFactor = common::formatNumber(s.settings.gd_OvertimeFactor, "0.00");
    personcombo = activePeople(s);
    paylistview.columns = {"Name", "Hours", "Shifts", "Wages"};
    startdate_Change(s.activeDate);
}

bool PayrollwithOvertime::OverTimeFactor_KeyPress(char key) {
    if (overtimeFactorKeyAllowed(key)) return true;
    s_.ui().beep();
    return false;
}

void PayrollwithOvertime::OverTimeFactor_LostFocus() {
    // An empty field counts as 0; a refused 0 is still kept, as in the estimator.
    const double factor = common::toNumber(OverTimeFactor);
    if (factor == 0) s_.ui().inform("Overtime factor must be greater than 0");
    OverTimeFactor = common::formatNumber(factor, "0.00");
    s_.settings.gd_OvertimeFactor = factor;
}

void PayrollwithOvertime::startdate_Change(Date d) {
    startdate = d;
    const Date first = common::weekStart(d, s_.settings.firstdayofweek);
    WeekLabel = common::formatDate(first, kWeekFormat, s_.locale) + " - " +
                common::formatDate(first.addDays(6), kWeekFormat, s_.locale);
}

bool PayrollwithOvertime::refreshbutton_Click() {
    try {
        startdate_Change(startdate);
        heading = std::string(kCaption) + " " + WeekLabel;
        const Date first = common::weekStart(startdate, s_.settings.firstdayofweek);
        const Date last = first.addDays(6);
        const long chosen = chosenId(personcombo, personcomboIndex);
        auto people =
            chosen == 0 ? store::GetRecs(s_, "select * from person where active = true order by lname")
                        : store::GetRecs(s_, "select * from person where active = true and personid = ? order by lname",
                                         {chosen});
        const int threshold = s_.settings.gi_OvertimeThreshold;
        const double factor = s_.settings.gd_OvertimeFactor;
        paylistview.clear();
        double grandHours = 0, grandWages = 0;
        long grandShifts = 0;
        for (; !people.eof(); people.MoveNext()) {
            const long id = static_cast<long>(people["personid"].toLong());
            const double rate = ownRate(people["hourlyrate"]);
            auto entry = store::GetRecs(
                s_, "select * from sched  where sched.sday >=? and sched.sday <=? and sname=? and personid = ?",
                {first, last, s_.currentSchedule, id});
            const long shifts = static_cast<long>(entry.RecordCount());
            double hours = 0, wages = 0;
            for (; !entry.eof(); entry.MoveNext()) {
                const double h = entryHours(entry["strttime"], entry["endtime"]);
                if (h > 0) {
                    hours += h;
                    wages += h * rate;
                }
            }
            // Only the premium part on top of the straight pay.
            if (hours > threshold) wages += (hours - threshold) * rate * (factor - 1);
            paylistview.rows.push_back(
                {textCell(listName(people)), hoursCell(s_, hours), countCell(shifts), moneyCell(s_, wages)});
            grandHours += hours;
            grandShifts += shifts;
            grandWages += wages;
        }
        paylistview.rows.push_back(
            {textCell("Total"), hoursCell(s_, grandHours), countCell(grandShifts), moneyCell(s_, grandWages)});
        total = currency(s_, grandWages);
        return true;
    } catch (const common::ProgramEnd&) {
        throw;
    } catch (const std::exception& e) {
        s_.ui().inform(std::string("Unable to create the Payroll report. [Payroll with overtime] error: ") + e.what());
        return false;
    }
}

ReportWeeklyPayroll::ReportWeeklyPayroll(Session& s) : s_(s) {
    StartDate = common::weekStart(s.activeDate, s.settings.firstdayofweek);
    employeecombo = activePeople(s);
}

bool ReportWeeklyPayroll::NWeeks_KeyPress(char key) {
    if ((key >= '0' && key <= '9') || key == '\b') return true;
    s_.ui().beep();
    return false;
}

bool ReportWeeklyPayroll::refreshbutton_Click(reports::Surface* vp) {
    constexpr const char* kTitle = "Weekly Payroll Report";
    StartDate = common::weekStart(StartDate, s_.settings.firstdayofweek);
    const long weeks = static_cast<long>(common::toNumber(NWeeks));
    if (weeks > 52) {
        s_.ui().inform("Number of weeks must be less than 53", MsgIcon::Information, kTitle);
        return false;
    }
    const Date lastWeek = StartDate.addDays(static_cast<int>(7 * (weeks - 1)));
    if (StartDate > lastWeek) {
        s_.ui().inform("Startdate must be before enddate", MsgIcon::Information, kTitle);
        return false;
    }
    const long chosen = chosenId(employeecombo, employeecomboIndex);
    auto people = chosen == 0 ? store::GetRecs(s_, "select * from person where active = true order by lname,fname")
                              : store::GetRecs(s_, "select * from person where personid =?", {chosen});
    if (people.empty()) {
        s_.ui().inform("There are no employees.");
        return false;
    }
    const int threshold = s_.settings.gi_OvertimeThreshold;
    const double factor = s_.settings.gd_OvertimeFactor;
    const std::size_t n = people.RecordCount();
    struct Totals {
        double hours = 0, regular = 0, overtime = 0, total = 0;
        long shifts = 0;
    };
    std::vector<Totals> employee(n);
    auto row = [&](std::string name, double hours, long shifts, double rate, double regular, double overtime,
                   double sum) {
        return std::vector<PayCell>{textCell(std::move(name)),
                                    hoursCell(s_, hours),
                                    countCell(shifts),
                                    moneyCell(s_, rate, "$0.00"),
                                    moneyCell(s_, regular, "$0.00"),
                                    moneyCell(s_, overtime, "$0.00"),
                                    moneyCell(s_, sum, "$0.00")};
    };
    auto table = [](std::string title) {
        WeeklyPayTable t{std::move(title), {}};
        t.rows.columns = {"Employee", "Hours", "Shifts", "Rate", "Regular", "Overtime", "Total"};
        return t;
    };
    auto nameOf = [&](std::size_t i) {
        return common::FormatReportName(people.field(i, "fname").text(), people.field(i, "lname").text(),
                                        s_.settings.gs_ReportNameFormat);
    };

    tables.clear();
    for (Date start = StartDate; start <= lastWeek; start = start.addDays(7)) {
        const Date end = start.addDays(6);
        WeeklyPayTable t =
            table(std::string(kTitle) + " - " + common::formatDate(start, "ddd mmm dd, YYYY", s_.locale) + " to " +
                  common::formatDate(end, "ddd mmm dd, YYYY", s_.locale));
        Totals week;
        // The week's entries and hours of every employee in one read each: the counts and the sums
        // that the statement per employee (and GetHoursInRange) give.
        std::map<long, long> counts;
        for (auto c =
                 store::GetRecs(s_,
                                "select personid, count(*) as n from sched where sched.sday >=? and sched.sday <=? "
                                "and sname=? group by personid",
                                {start, end, s_.currentSchedule});
             !c.eof(); c.MoveNext())
            counts[static_cast<long>(c["personid"].toLong())] = static_cast<long>(c["n"].toLong());
        std::map<long, double> sums;
        const bool allFiles = s_.settings.gb_CheckConflictAllSchedules;
        for (auto h = store::GetRecs(
                 s_,
                 allFiles ? "SELECT sched.personid, Sum(DateDiff(\"n\",[strttime],[endtime])/60) AS Expr2 "
                            "From sched Where sched.sday >= ? and sday <=? GROUP BY sched.PersonID"
                          : "SELECT sched.personid, Sum(DateDiff(\"n\",[strttime],[endtime])/60) AS Expr2 "
                            "From sched Where sched.sday >= ? and sday <=? and sname=? GROUP BY "
                            "sched.PersonID",
                 allFiles ? store::Params{start, end} : store::Params{start, end, s_.currentSchedule});
             !h.eof(); h.MoveNext())
            if (!h["Expr2"].isNull()) sums[static_cast<long>(h["personid"].toLong())] = h["Expr2"].toDouble();
        for (std::size_t i = 0; i < n; ++i) {
            const long id = static_cast<long>(people.field(i, "personid").toLong());
            const long shifts = counts.count(id) ? counts[id] : 0;
            const double hours = sums.count(id) ? sums[id] : 0;
            const double rate = rateValue(people.field(i, "hourlyrate"));
            double regular = 0, overtime = 0;
            if (hours != 0) {
                // Each week on its own: nothing carries over. The whole overtime hours at the factor.
                if (hours > threshold) {
                    regular = threshold * rate;
                    overtime = (hours - threshold) * rate * factor;
                } else {
                    regular = hours * rate;
                }
            }
            const double sum = regular + overtime;
            t.rows.rows.push_back(row(nameOf(i), hours, shifts, rate, regular, overtime, sum));
            for (Totals* tot : {&week, &employee[i]}) {
                tot->hours += hours;
                tot->shifts += shifts;
                tot->regular += regular;
                tot->overtime += overtime;
                tot->total += sum;
            }
        }
        t.rows.rows.push_back(row("Total", week.hours, week.shifts, 0, week.regular, week.overtime, week.total));
        t.rows.rows.back()[3] = textCell("");
        tables.push_back(std::move(t));
    }
    if (weeks > 1) {
        WeeklyPayTable t =
            table("Payroll Totals from - " + common::formatDate(StartDate, "ddd mmm dd, YYYY", s_.locale) + " to " +
                  common::formatDate(lastWeek.addDays(6), "ddd mmm dd, YYYY", s_.locale));
        Totals all;
        for (std::size_t i = 0; i < n; ++i) {
            // The rate is read again from the employee's row.
            const auto p = store::GetRecs(s_, "select hourlyrate from person where personid=?",
                                          {people.field(i, "personid").toLong()});
            const double rate = p.empty() ? 0 : rateValue(p["hourlyrate"]);
            const Totals& e = employee[i];
            t.rows.rows.push_back(row(nameOf(i), e.hours, e.shifts, rate, e.regular, e.overtime, e.total));
            all.hours += e.hours;
            all.shifts += e.shifts;
            all.regular += e.regular;
            all.overtime += e.overtime;
            all.total += e.total;
        }
        t.rows.rows.push_back(row("Total", all.hours, all.shifts, 0, all.regular, all.overtime, all.total));
        t.rows.rows.back()[3] = textCell("");
        tables.push_back(std::move(t));
    }
    if (vp) compose(*vp);
    return true;
}

void ReportWeeklyPayroll::compose(reports::Surface& vp) {
    try {
        const auto fonts = reports::loadReportFont(s_.settings, reports::ReportFamily::PrintGrid);
        reports::PrepareDocument(s_, vp, fonts, kCaption, {});
        vp.setFooter(reports::reportFooter(s_));
        bool first = true;
        for (const auto& t : tables) {
            if (!first) vp.NewPage();
            first = false;
            vp.Paragraph(t.title);
            vp.StartTable();
            auto& table = vp.AddTable(kWidths, kHeader);
            for (std::size_t r = 0; r < t.rows.rows.size(); ++r) {
                const int row = table.addRow();
                const auto texts = t.rows.texts(r);
                for (std::size_t c = 0; c < texts.size(); ++c) table.setText(row, static_cast<int>(c) + 1, texts[c]);
            }
            reports::ApplyReportTableStyle(table, fonts, 60);
            vp.EndTable();
        }
        vp.EndDoc();
    } catch (const common::ProgramEnd&) {
        throw;
    } catch (const std::exception& e) {
        s_.ui().inform(std::string("Error printing Weekly Payroll Report.") + " " + e.what());
    }
}

}  // namespace tallymere::payroll

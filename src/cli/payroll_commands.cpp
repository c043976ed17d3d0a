// payroll estimator|overtime|weekly|sales|hours: the payroll windows' lists as CSV, with the windows'
// choices as options and their defaults. Amounts are plain numbers with a dot, whatever the locale,
// so that a payroll provider's import and a spreadsheet take them as they are.

#include "cli/commands.h"
#include "cli/stop.h"
#include "common/numbers.h"
#include "payroll/hours_shifts.h"
#include "payroll/payroll_estimator.h"
#include "payroll/payroll_overtime.h"
#include "payroll/payroll_sales.h"

#include <functional>
#include <sstream>

namespace tallymere::cli {

namespace {

using common::Date;

OptionSpec choice(std::string name, std::string help, std::vector<std::string> choices) {
    OptionSpec o(std::move(name), ValueKind::Choice, std::move(help));
    o.choices = std::move(choices);
    return o;
}

OptionSpec periodOption(std::vector<std::string> choices) {
    return choice("--period", "the period: one day (--from), the week of --from, or --from to --to",
                  std::move(choices));
}

OptionSpec employeeOption() {
    return {"--employee", ValueKind::WholeNumber, "one employee by personid; without it, all"};
}

OptionSpec factorOption() {
    OptionSpec o("--factor", ValueKind::Text, "the overtime factor for this run (gd_OvertimeFactor), above 0");
    o.placeholder = "F";
    return o;
}

// The open file the lists read, as the windows read the program's open schedule.
void useSchedule(Run& r) { r.s.currentSchedule = scheduleOr(r); }

// The combo's index of --employee; a personid the list does not hold is bad usage.
int employeeIndex(Run& r, const std::vector<payroll::ComboItem>& items) {
    const auto id = r.options.number("--employee");
    if (!id) return 0;
    for (std::size_t i = 1; i < items.size(); ++i)
        if (items[i].personid == *id) return static_cast<int>(i);
    throw usage("--employee " + std::to_string(*id) + " is no employee the list offers.");
}

// --threshold and --factor change the settings of this run only.
bool applyOvertime(Run& r, std::string& factorField, const std::function<void()>& lostFocus) {
    if (const auto t = r.options.number("--threshold")) r.s.settings.gi_OvertimeThreshold = static_cast<int>(*t);
    if (!r.options.has("--factor")) return true;
    const auto f = common::parseNumberStrict(r.options.text("--factor"));
    if (!f || *f <= 0) {
        r.ui.inform("Overtime factor must be greater than 0");
        return false;
    }
    factorField = r.options.text("--factor");
    lostFocus();
    return true;
}

void setDates(Run& r, Date& start, Date& end) {
    start = dateOr(r, "--from");
    end = r.options.has("--to") ? *r.options.date("--to") : start;
}

int estimator(Run& r) {
    useSchedule(r);
    payroll::PayrollFlags flags;
    flags.CalcOvertimeFlag = r.options.has("--overtime");
    payroll::payrollestimator w(r.s, flags);
    if (!applyOvertime(r, w.OverTimeFactor, [&] { w.OverTimeFactor_LostFocus(); })) return kRefused;
    setDates(r, w.startdate, w.enddate);
    const std::string period = r.options.has("--period") ? r.options.text("--period") : "day";
    if (period == "week")
        w.weekoption_Click();
    else if (period == "range")
        w.daterangeoption_Click();
    if (r.options.text("--group") == "position") w.positionOption_Click();
    const std::string rates = r.options.text("--rates");
    if (rates == "all")
        w.overrideoption_Click();
    else if (rates == "base")
        w.baseoption_Click();
    else if (rates == "employee")
        w.primaryonlyoption_Click();
    if (r.options.has("--shift")) w.shiftComboText = r.options.text("--shift");
    w.personcomboIndex = employeeIndex(r, w.personcombo);
    if (!w.refreshbutton_Click()) return kRefused;
    w.paylistview.writeDelimited(r.out, r.format);
    return kDone;
}

int overtime(Run& r) {
    useSchedule(r);
    payroll::PayrollwithOvertime w(r.s);
    if (!applyOvertime(r, w.OverTimeFactor, [&] { w.OverTimeFactor_LostFocus(); })) return kRefused;
    w.startdate_Change(dateOr(r, "--from"));
    w.personcomboIndex = employeeIndex(r, w.personcombo);
    if (!w.refreshbutton_Click()) return kRefused;
    w.paylistview.writeDelimited(r.out, r.format);
    return kDone;
}

int weekly(Run& r) {
    useSchedule(r);
    payroll::ReportWeeklyPayroll w(r.s);
    std::string factor;
    if (!applyOvertime(r, factor, [&] { r.s.settings.gd_OvertimeFactor = common::toNumber(factor); })) return kRefused;
    if (r.options.has("--from")) w.StartDate = *r.options.date("--from");
    if (const auto n = r.options.number("--weeks")) w.NWeeks = std::to_string(*n);
    w.employeecomboIndex = employeeIndex(r, w.employeecombo);
    if (!w.refreshbutton_Click()) return kRefused;
    // One list: each week's rows under the date it starts, the totals of the range under "Total".
    common::CsvWriter csv = r.list();
    std::vector<std::string> header{"Week"};
    const auto& columns = w.tables.front().rows.columns;
    header.insert(header.end(), columns.begin(), columns.end());
    csv.row(header);
    for (std::size_t i = 0; i < w.tables.size(); ++i) {
        const bool totals = i == w.tables.size() - 1 && w.tables.size() > 1;
        const std::string week = totals ? "Total" : w.StartDate.addDays(static_cast<int>(7 * i)).toIso();
        std::ostringstream one;
        w.tables[i].rows.writeDelimited(one, r.format);
        std::string text = one.str();
        // Each table's own header line gives way to the one above; every line takes the week first.
        std::size_t pos = text.find('\n') + 1;
        while (pos < text.size()) {
            const std::size_t next = text.find('\n', pos);
            r.out << common::CsvWriter::field(week, r.format) << (r.format == common::Delimited::Csv ? "," : "\t")
                  << text.substr(pos, next - pos + 1);
            pos = next + 1;
        }
    }
    return kDone;
}

int sales(Run& r) {
    useSchedule(r);
    payroll::PayrollFlags flags;
    payroll::PayrollwithSales w(r.s, flags);
    setDates(r, w.startdate, w.enddate);
    const std::string period = r.options.has("--period") ? r.options.text("--period") : "day";
    if (period == "week")
        w.weekoption_Click();
    else if (period == "range")
        w.daterangeoption_Click();
    const std::string rates = r.options.text("--rates");
    if (rates == "all" && w.overrideoptionEnabled) w.overrideoption = true, w.primaryonlyoption = w.baseoption = false;
    if (rates == "base" && w.baseoptionEnabled) w.baseoption = true, w.primaryonlyoption = w.overrideoption = false;
    if (rates == "employee") w.primaryonlyoption = true, w.baseoption = w.overrideoption = false;
    if (!w.refreshbutton_Click()) return kRefused;
    w.paylistview.writeDelimited(r.out, r.format);
    return kDone;
}

int hours(Run& r) {
    useSchedule(r);
    payroll::hoursshifts w(r.s);
    setDates(r, w.startdate, w.enddate);
    const std::string period = r.options.has("--period") ? r.options.text("--period") : "day";
    using P = payroll::hoursshifts::Period;
    w.period = period == "week"    ? P::Week
               : period == "month" ? P::Month
               : period == "year"  ? P::Year
               : period == "range" ? P::Range
                                   : P::Day;
    w.personcomboIndex = employeeIndex(r, w.personcombo);
    if (!w.RefreshButton_Click()) return kRefused;
    w.leavelistview.writeDelimited(r.out, r.format);
    return kDone;
}

}  // namespace

void addPayrollCommands(std::vector<Command>& commands) {
    const OptionSpec from = dateOption("--from", "the day, or the first day of the range; without it, today");
    const OptionSpec to = dateOption("--to", "the last day of a range (--period range)");
    const OptionSpec threshold{"--threshold", ValueKind::WholeNumber,
                               "hours above which overtime starts, for this run (gi_OvertimeThreshold)"};
    commands.push_back({"payroll estimator",
                        "wages, hours and shifts by employee or by position (Payroll Estimator)",
                        {from,
                         to,
                         periodOption({"day", "week", "range"}),
                         scheduleOption(),
                         choice("--group", "list by employee or by position", {"employee", "position"}),
                         choice("--rates",
                                "employee rates; employee, qualification and base rates; or base rates; without it, as "
                                "gs_PayrollEstRates says",
                                {"employee", "all", "base"}),
                         {"--overtime", ValueKind::None, "add overtime (employee rates by employee only)"},
                         threshold,
                         factorOption(),
                         {"--shift", ValueKind::Text, "one shift by name; without it, all"},
                         employeeOption()},
                        "Prints the list with its Total row. Qualification rates follow gb_PayrollEstQuals (--set).",
                        estimator});
    commands.push_back({"payroll overtime",
                        "regular and overtime pay of the week of --from (Payroll with Overtime)",
                        {from, scheduleOption(), threshold, factorOption(), employeeOption()},
                        "",
                        overtime});
    commands.push_back({"payroll weekly",
                        "pay of up to 52 weeks from the week of --from (Weekly Payroll)",
                        {from,
                         scheduleOption(),
                         {"--weeks", ValueKind::WholeNumber, "number of weeks, 1 to 52"},
                         threshold,
                         factorOption(),
                         employeeOption()},
                        "Each row starts with the first day of its week; the totals of the range read \"Total\".",
                        weekly});
    commands.push_back({"payroll sales",
                        "labor cost against daily sales (Payroll with Sales)",
                        {from, to, periodOption({"day", "week", "range"}), scheduleOption(),
                         choice("--rates", "employee rates; employee, qualification and base rates; or base rates only",
                                {"employee", "all", "base"})},
                        "A range of more than 365 days asks first: answer with --yes.",
                        sales});
    commands.push_back(
        {"payroll hours",
         "hours and shifts per employee (Employee Hours and Shifts)",
         {from, to, periodOption({"day", "week", "month", "year", "range"}), scheduleOption(), employeeOption()},
         "",
         hours});
}

}  // namespace tallymere::cli

#include "payroll/payroll_estimator.h"

#include "common/date_time.h"
#include "common/display_format.h"
#include "common/numbers.h"
#include "common/text.h"
#include "store/access.h"

#include <exception>
#include <map>
#include <utility>

namespace tallymere::payroll {

using common::Date;
using common::MsgIcon;
using common::Session;

namespace {

constexpr const char* kNoPositions = "You must enter and assign positions in order to use this feature.";
constexpr const char* kNoBaseRates = "You must have positions and baserates entered to use this feature.";

struct PositionRate {
    std::string title;
    double base = 0;
    bool baseNull = true;
};

std::vector<PositionRate> readPositions(Session& s, const char* sql) {
    std::vector<PositionRate> out;
    for (auto p = store::GetRecs(s, sql); !p.eof(); p.MoveNext())
        out.push_back({p["title"].text(), rateValue(p["baserate"]), p["baserate"].isNull()});
    return out;
}

store::Params joined(store::Params a, const store::Params& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

// A rate field that "reads as non-empty text": its number, or nothing.
std::optional<double> textRate(const store::Field& f) {
    if (f.isNull() || common::trim(f.text()).empty()) return std::nullopt;
    return common::toNumber(f.text());
}

}  // namespace

std::unique_ptr<payrollestimator> payrollestimator::open(Session& s, PayrollFlags& flags) {
    if (NoPayrollPermission(s)) return nullptr;
    try {
        auto w = std::make_unique<payrollestimator>(s, flags);
        w->refreshbutton_Click();
        return w;
    } catch (const common::ProgramEnd&) {
        throw;
    } catch (const std::exception& e) {
        s.ui().inform(std::string("Error loading Payroll Estimator Report. Error: ") + e.what());
        return nullptr;
    }
}

payrollestimator::payrollestimator(Session& s, PayrollFlags& flags) : s_(s), flags_(flags) {
    if (s.settings.gd_OvertimeFactor == 0) s.settings.gd_OvertimeFactor = 1.0;
    OverTimeFactor = common::formatNumber(s.settings.gd_OvertimeFactor, "0.00");
    OvertimeCalcCheck = flags.CalcOvertimeFlag;
    OverTimeFactorEnabled = OvertimeCalcCheck;
    if (s.settings.gs_PayrollEstRates == "Base")
        baseoption_Click();
    else
        primaryonlyoption_Click();
    QualRateCheck = s.settings.gb_PayrollEstQuals;
    if (baseoption) QualRateCheck = false;

    for (auto r = store::GetRecs(s, "select name from shift order by strttime,endtime,name"); !r.eof(); r.MoveNext())
        shiftCombo.push_back(r["name"].text());
    startdate = enddate = s.activeDate;
    dayoption_Click();

    auto people = store::GetRecs(s, "SELECT * FROM person order by lname,fname");
    if (people.empty()) s.ui().inform("There are no personnel.");
    for (; !people.eof(); people.MoveNext())
        personcombo.push_back({listName(people), static_cast<long>(people["personid"].toLong())});
    paylistview.columns = {"Name", "Hours", "Shifts", "Wages"};
}

void payrollestimator::employeeOption_Click() {
    employeeOption = personcomboEnabled = true;
    positionOption = false;
}

void payrollestimator::positionOption_Click() {
    positionOption = true;
    employeeOption = personcomboEnabled = false;
}

void payrollestimator::primaryonlyoption_Click() {
    primaryonlyoption = QualRateCheckEnabled = true;
    overrideoption = baseoption = false;
}

void payrollestimator::overrideoption_Click() {
    overrideoption = true;
    primaryonlyoption = baseoption = false;
}

void payrollestimator::baseoption_Click() {
    baseoption = true;
    primaryonlyoption = overrideoption = false;
    QualRateCheckEnabled = QualRateCheck = false;
}

void payrollestimator::OvertimeCalcCheck_Click(bool checked) {
    OvertimeCalcCheck = flags_.CalcOvertimeFlag = checked;
    OverTimeFactorEnabled = checked;
}

bool payrollestimator::OverTimeFactor_KeyPress(char key) {
    if (overtimeFactorKeyAllowed(key)) return true;
    s_.ui().beep();
    return false;
}

void payrollestimator::OverTimeFactor_LostFocus() {
    const double factor = common::toNumber(OverTimeFactor);
    if (factor == 0) s_.ui().inform("Overtime factor must be greater than 0");
    // Even a refused 0 is kept: the program goes on with it until the window next opens.
    OverTimeFactor = common::formatNumber(factor, "0.00");
    s_.settings.gd_OvertimeFactor = factor;
}

DateFilter payrollestimator::filter() const {
    const DateFilter f = dayoption ? dayFilter(s_, startdate) : rangeFilter(s_, startdate, enddate);
    if (shiftComboText == "All") return f;
    return {f.where + " and shift=?", joined(f.params, {store::Value(shiftComboText)})};
}

store::Recordset payrollestimator::employees() {
    const long chosen = personcomboIndex > 0 && personcomboIndex < static_cast<int>(personcombo.size())
                            ? personcombo[static_cast<std::size_t>(personcomboIndex)].personid
                            : 0;
    if (chosen == 0) return store::GetRecs(s_, "select * from person where active = true order by lname");
    return store::GetRecs(s_, "select * from person where active = true and personid = ? order by lname", {chosen});
}

void payrollestimator::addTotal(double hours, long shifts, double wages) {
    paylistview.rows.push_back({textCell("Total"), hoursCell(s_, hours), countCell(shifts), moneyCell(s_, wages)});
    total = currency(s_, wages);
}

bool payrollestimator::refreshbutton_Click() {
    if (!dayoption && startdate > enddate) {
        s_.ui().inform("The start date cannot be greater than the end date.", MsgIcon::Information, Session::kAppTitle);
        return false;
    }
    s_.ui().setBusy(true);
    bool built;
    if (employeeOption)
        built = primaryonlyoption ? EstimateByEmployeeOwnRates()
                : overrideoption  ? EstimateByEmployeeAllRates()
                                  : EstimateByEmployeeBaseRates();
    else
        built = primaryonlyoption ? EstimateByPositionOwnRates()
                : overrideoption  ? EstimateByPositionAllRates()
                                  : EstimateByPositionBaseRates();
    s_.ui().setBusy(false);
    if (built) SetPayHeading();
    return built;
}

void payrollestimator::SetPayHeading() {
    const std::string by = positionOption ? "position" : "employee";
    if (dayoption || startdate == enddate)
        heading = "Payroll estimate listed by " + by + " for " + reportDate(s_, startdate);
    else
        heading = "Payroll estimate listed by " + by + " from " + reportDate(s_, startdate) + "  to  " +
                  reportDate(s_, enddate);
}

std::string payrollestimator::printHeading() const { return baseoption ? heading + " (base rates only)" : heading; }

void payrollestimator::Form_Unload() {
    s_.settings.gs_PayrollEstRates = baseoption ? "Base" : "Employee";
    s_.settings.gb_PayrollEstQuals = QualRateCheck;
}

// The only builder with overtime. The running rate is not put back between entries: a qualification
// rate once met stays for the employee's later entries, primary position included, until another
// replaces it. That order dependence is kept as it is.
bool payrollestimator::EstimateByEmployeeOwnRates() {
    const DateFilter f = filter();
    const std::string entriesSql = "select * from sched " + f.where + " and personid = ?";
    // A qualification row does not change while the list is built: each is read once.
    std::map<std::pair<long, std::string>, std::optional<double>> quals;
    paylistview.clear();
    double grandHours = 0, grandWages = 0;
    long grandShifts = 0;
    for (auto person = employees(); !person.eof(); person.MoveNext()) {
        const long id = static_cast<long>(person["personid"].toLong());
        const std::string primpos = person["primpos"].text();
        double rate = ownRate(person["hourlyrate"]);
        double hours = 0, wages = 0;
        auto entry = store::GetRecs(s_, entriesSql, joined(f.params, {id}));
        const long shifts = static_cast<long>(entry.RecordCount());
        for (; !entry.eof(); entry.MoveNext()) {
            const std::string position = entry["position"].text();
            if (QualRateCheck && position != primpos) {
                const auto key = std::make_pair(id, common::toUpper(position));
                auto it = quals.find(key);
                if (it == quals.end()) {
                    const auto q = store::GetRecs(s_, "select * from qualifications where personid=? and position = ?",
                                                  {id, position});
                    it = quals
                             .emplace(key, !q.empty() && !q["hourlyrate"].isNull()
                                               ? std::optional<double>(rateValue(q["hourlyrate"]))
                                               : std::nullopt)
                             .first;
                }
                if (it->second) rate = *it->second;
            }
            const double h = entryHours(entry["strttime"], entry["endtime"]);
            if (h > 0) {
                hours += h;
                wages += h * rate;
            }
        }
        // The threshold is the same number whatever the length of the range.
        const int threshold = s_.settings.gi_OvertimeThreshold;
        if (flags_.CalcOvertimeFlag && hours > threshold)
            wages += (hours - threshold) * rate * (s_.settings.gd_OvertimeFactor - 1);
        paylistview.rows.push_back(
            {textCell(listName(person)), hoursCell(s_, hours), countCell(shifts), moneyCell(s_, wages)});
        grandHours += hours;
        grandShifts += shifts;
        grandWages += wages;
    }
    addTotal(grandHours, grandShifts, grandWages);
    return true;
}

bool payrollestimator::EstimateByEmployeeAllRates() { return estimateByEmployeeAtPositionRates(false); }
bool payrollestimator::EstimateByEmployeeBaseRates() { return estimateByEmployeeAtPositionRates(true); }

// Hours are summed per position by the engine; entries in a position not in the table count as
// shifts only.
bool payrollestimator::estimateByEmployeeAtPositionRates(bool base) {
    const auto positions = readPositions(s_, "select title,baserate from position");
    if (positions.empty()) {
        if (base)
            s_.ui().inform(kNoBaseRates, MsgIcon::Exclamation, kCaption);
        else
            s_.ui().inform(kNoPositions, MsgIcon::Information);
        return false;
    }
    const DateFilter f = filter();
    // Each employee's hours in each position, and each employee's entries, in one read each: the same
    // sums the statement per employee and position gives ("... and position = ? GROUP BY
    // sched.PersonID Having sched.personid = ?"), without reading the range once per pair.
    std::map<std::pair<long, std::string>, double> sums;
    for (auto r = store::GetRecs(s_,
                                 std::string("SELECT sched.personid, sched.position, ") +
                                     "Sum(DateDiff(\"n\",[strttime],[endtime])/60) AS Expr2 from sched " + f.where +
                                     " GROUP BY sched.personid, sched.position",
                                 f.params);
         !r.eof(); r.MoveNext())
        if (!r["Expr2"].isNull())
            sums[{static_cast<long>(r["personid"].toLong()), common::toUpper(r["position"].text())}] =
                r["Expr2"].toDouble();
    std::map<long, long> counts;
    for (auto r = store::GetRecs(
             s_, "select sched.personid, count(*) as n from sched " + f.where + " GROUP BY sched.personid", f.params);
         !r.eof(); r.MoveNext())
        counts[static_cast<long>(r["personid"].toLong())] = static_cast<long>(r["n"].toLong());

    paylistview.clear();
    double grandHours = 0, grandWages = 0;
    long grandShifts = 0;
    for (auto person = employees(); !person.eof(); person.MoveNext()) {
        const long id = static_cast<long>(person["personid"].toLong());
        const std::string primpos = common::trim(person["primpos"].text());
        double hours = 0, wages = 0;
        for (const auto& p : positions) {
            const auto sum = sums.find({id, common::toUpper(p.title)});
            if (sum == sums.end()) continue;  // no hours: the rate does not matter
            double rate = p.base;
            if (!base) {
                if (primpos == p.title) {
                    if (const double own = ownRate(person["hourlyrate"]); own != 0) rate = own;
                } else {
                    // A qualification rate of 0 is taken as it stands: no fall back to the base rate.
                    const auto q = store::GetRecs(s_, "select * from qualifications where personid=? and position = ?",
                                                  {id, p.title});
                    if (!q.empty() && !q["hourlyrate"].isNull()) rate = rateValue(q["hourlyrate"]);
                }
            }
            hours += sum->second;
            wages += sum->second * rate;
        }
        const auto count = counts.find(id);
        const long shifts = count == counts.end() ? 0 : count->second;
        paylistview.rows.push_back(
            {textCell(listName(person)), hoursCell(s_, hours), countCell(shifts), moneyCell(s_, wages)});
        grandHours += hours;
        grandShifts += shifts;
        grandWages += wages;
    }
    addTotal(grandHours, grandShifts, grandWages);
    return true;
}

bool payrollestimator::EstimateByPositionAllRates() { return estimateByPositionDayByDay(false); }
bool payrollestimator::EstimateByPositionOwnRates() { return estimateByPositionDayByDay(true); }

// Day by day, entry by entry. Each position's hours are kept as a whole number, rounded (half to
// even) at every entry, so rows can disagree with the Total row, which adds the unrounded hours.
// That rounding is kept on purpose.
bool payrollestimator::estimateByPositionDayByDay(bool ownRates) {
    struct Acc {
        PositionRate pos;
        double wages = 0;
        long long hours = 0;
        long shifts = 0;
    };
    std::vector<Acc> acc;
    for (auto& p : readPositions(s_, "select title,baserate from position order by title")) acc.push_back({p});
    if (acc.empty()) {
        s_.ui().inform("There are no positions entered. The payrole cannot be estimated by position.");
        return false;
    }
    const std::vector<std::vector<PayCell>> before = paylistview.rows;
    try {
        const int days = dayoption ? 1 : static_cast<int>(common::daysBetween(startdate, enddate)) + 1;
        std::string entriesSql = ownRates ? "select * from sched where sched.sday = ? and sname=? and personid in "
                                            "(select personid from person where active = true) "
                                          : "select * from sched where sched.sday = ? and sname=? and personid <> -1";
        const bool oneShift = shiftComboText != "All";
        if (oneShift) entriesSql += " and shift=?";

        // The person and qualification rows do not change while the list is built: each is read once.
        std::map<std::pair<long, std::string>, std::pair<bool, std::optional<double>>> personRates;
        std::map<std::pair<long, std::string>, std::optional<double>> qualRates;
        std::map<long, std::pair<std::string, std::optional<double>>> ownRows;
        auto qualRate = [&](long id, const std::string& position) {
            const auto key = std::make_pair(id, common::toUpper(position));
            auto it = qualRates.find(key);
            if (it == qualRates.end()) {
                const auto q = store::GetRecs(
                    s_, "select hourlyrate from qualifications where personid=? and position=? ", {id, position});
                it = qualRates.emplace(key, q.empty() ? std::nullopt : textRate(q["hourlyrate"])).first;
            }
            return it->second;
        };

        double grandHours = 0, grandWages = 0;
        long grandShifts = 0;
        for (int d = 0; d < days; ++d) {
            const Date day = startdate.addDays(d);
            const store::Params params = oneShift ? store::Params{day, s_.currentSchedule, shiftComboText}
                                                  : store::Params{day, s_.currentSchedule};
            const auto entries = store::GetRecs(s_, entriesSql, params);
            for (auto& a : acc) {
                for (std::size_t e = 0; e < entries.RecordCount(); ++e) {
                    const std::string position = entries.field(e, "position").text();
                    if (!common::equalsNoCase(position, a.pos.title)) continue;
                    const long id = static_cast<long>(entries.field(e, "personid").toLong());
                    double rate = 0;
                    if (ownRates) {
                        // No base rate, and nothing runs on to the next entry.
                        auto it = ownRows.find(id);
                        if (it == ownRows.end()) {
                            const auto p =
                                store::GetRecs(s_, "select primpos,hourlyrate from person where personid = ?", {id});
                            it = ownRows
                                     .emplace(id, p.empty()
                                                      ? std::make_pair(std::string(), std::optional<double>())
                                                      : std::make_pair(p["primpos"].text(), textRate(p["hourlyrate"])))
                                     .first;
                        }
                        if (it->second.second) rate = *it->second.second;
                        if (QualRateCheck && it->second.first != position)
                            if (const auto q = qualRate(id, position)) rate = *q;
                    } else {
                        rate = a.pos.base;
                        const auto key = std::make_pair(id, common::toUpper(position));
                        auto it = personRates.find(key);
                        if (it == personRates.end()) {
                            const auto p = store::GetRecs(
                                s_, "select primpos,hourlyrate from person where personid = ? and primpos=?",
                                {id, position});
                            it = personRates
                                     .emplace(key, std::make_pair(!p.empty(),
                                                                  p.empty() ? std::nullopt : textRate(p["hourlyrate"])))
                                     .first;
                        }
                        if (it->second.first) {
                            if (it->second.second) rate = *it->second.second;
                        } else if (const auto q = qualRate(id, position)) {
                            rate = *q;
                        }
                        // Here a zero rate of any origin falls back to the base rate.
                        if (!a.pos.baseNull && rate == 0) rate = a.pos.base;
                    }
                    // Negative hours are not filtered out here.
                    const double h = entryHours(entries.field(e, "strttime"), entries.field(e, "endtime"));
                    a.hours = common::roundHalfEven(static_cast<double>(a.hours) + h);
                    a.wages += h * rate;
                    a.shifts += 1;
                    grandHours += h;
                    grandWages += h * rate;
                    grandShifts += 1;
                }
            }
        }
        paylistview.clear();
        for (const auto& a : acc)
            paylistview.rows.push_back({textCell(a.pos.title), hoursCell(s_, static_cast<double>(a.hours)),
                                        countCell(a.shifts), moneyCell(s_, a.wages)});
        addTotal(grandHours, grandShifts, grandWages);
        return true;
    } catch (const common::ProgramEnd&) {
        throw;
    } catch (const std::exception& e) {
        paylistview.rows = before;
        s_.ui().inform(std::string("Unable to create the Payroll report.") + " " + e.what());
        return false;
    }
}

// Base rates summed by the engine per position. A position with hours but no base rate shows its
// hours and adds nothing to either grand total.
bool payrollestimator::EstimateByPositionBaseRates() {
    const auto positions = store::GetRecs(s_, "select * from position order by title");
    if (positions.empty()) {
        s_.ui().inform(kNoBaseRates, MsgIcon::Exclamation, kCaption);
        return false;
    }
    const DateFilter f = filter();
    // The sums and counts of all positions in one read each, as the statement per position gives them.
    std::map<std::string, double> sums;
    for (auto r =
             store::GetRecs(s_,
                            std::string("SELECT sched.position, Sum(DateDiff(\"n\",[strttime],[endtime])/60) AS Expr2 "
                                        "from sched ") +
                                f.where +
                                " and personid in (select personid from person where active = true) "
                                " GROUP BY sched.position",
                            f.params);
         !r.eof(); r.MoveNext())
        if (!r["Expr2"].isNull()) sums[common::toUpper(r["position"].text())] = r["Expr2"].toDouble();
    std::map<std::string, long> counts;
    for (auto r = store::GetRecs(
             s_, "select sched.position, count(*) as n from sched " + f.where + " GROUP BY sched.position", f.params);
         !r.eof(); r.MoveNext())
        counts[common::toUpper(r["position"].text())] = static_cast<long>(r["n"].toLong());
    paylistview.clear();
    double grandHours = 0, grandWages = 0;
    long grandShifts = 0;
    for (auto p = positions; !p.eof(); p.MoveNext()) {
        const std::string title = p["title"].text();
        const std::string key = common::toUpper(title);
        const auto count = counts.find(key);
        const long shifts = count == counts.end() ? 0 : count->second;
        PayCell hoursShown = textCell("");
        double wages = 0;
        if (const auto sum = sums.find(key); sum != sums.end()) {
            const double h = sum->second;
            hoursShown = hoursCell(s_, h);
            if (!p["baserate"].isNull()) {
                wages = h * rateValue(p["baserate"]);
                grandHours += h;
                grandWages += wages;
            }
        }
        grandShifts += shifts;
        paylistview.rows.push_back({textCell(title), hoursShown, countCell(shifts), moneyCell(s_, wages)});
    }
    addTotal(grandHours, grandShifts, grandWages);
    return true;
}

}  // namespace tallymere::payroll

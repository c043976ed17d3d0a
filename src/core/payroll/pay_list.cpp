#include "payroll/pay_list.h"

#include "common/display_format.h"
#include "common/numbers.h"
#include "common/text.h"
#include "maintenance/access_control.h"

#include <algorithm>

namespace tallymere::payroll {

void PeriodChoice::dayoption_Click() {
    dayoption = true;
    weekoption = daterangeoption = false;
    enddateEnabled = false;
}

void PeriodChoice::chooseWeek(std::string_view firstDayOfWeek) {
    dayoption = daterangeoption = false;
    weekoption = enddateEnabled = true;
    startdate = common::weekStart(startdate, firstDayOfWeek);
    enddate = startdate.addDays(6);
}

void PeriodChoice::daterangeoption_Click() {
    dayoption = weekoption = false;
    daterangeoption = enddateEnabled = true;
}

using common::Session;

void PayList::ColumnClick(int column) {
    if (column < 1 || column > static_cast<int>(columns.size())) return;
    descending = column == sortColumn ? !descending : false;
    sortColumn = column;

    std::optional<std::vector<PayCell>> totalRow;
    if (!rows.empty() && !rows.back().empty() && rows.back().front().text == "Total") {
        totalRow = std::move(rows.back());
        rows.pop_back();
    }
    const auto col = static_cast<std::size_t>(column - 1);
    const bool numeric = column > 1;
    auto cellOf = [col](const std::vector<PayCell>& r) -> const PayCell* { return col < r.size() ? &r[col] : nullptr; };
    std::stable_sort(rows.begin(), rows.end(), [&](const auto& a, const auto& b) {
        const PayCell* ca = cellOf(a);
        const PayCell* cb = cellOf(b);
        bool less;
        if (numeric) {
            // A blank figure sorts as 0, as the list's own numeric compare reads it.
            const double na = ca && ca->number ? *ca->number : 0;
            const double nb = cb && cb->number ? *cb->number : 0;
            less = descending ? nb < na : na < nb;
        } else {
            const std::string ta = ca ? common::toUpper(ca->text) : std::string();
            const std::string tb = cb ? common::toUpper(cb->text) : std::string();
            less = descending ? tb < ta : ta < tb;
        }
        return less;
    });
    if (totalRow) {
        rows.push_back(std::move(*totalRow));
        selectedRow = static_cast<int>(rows.size()) - 1;
    }
}

std::vector<std::string> PayList::texts(std::size_t row) const {
    std::vector<std::string> out;
    for (const auto& c : rows.at(row)) out.push_back(c.text);
    return out;
}

reports::ListGrid PayList::grid() const {
    reports::ListGrid g;
    for (std::size_t i = 0; i < columns.size(); ++i)
        g.columns.push_back({columns[i], 0, i == 0 ? reports::Align::Left : reports::Align::Right});
    for (std::size_t r = 0; r < rows.size(); ++r) g.rows.push_back(texts(r));
    return g;
}

void PayList::writeDelimited(std::ostream& out, common::Delimited style) const {
    common::CsvWriter w(out, style);
    w.row(columns);
    for (const auto& r : rows) {
        std::vector<std::string> fields;
        for (const auto& c : r) {
            if (!c.number) {
                fields.push_back(c.text);
                continue;
            }
            // The default locale: a dot, no grouping, no currency sign, whatever the user's locale.
            const std::string pattern =
                c.decimals > 0 ? "0." + std::string(static_cast<std::size_t>(c.decimals), '0') : "0";
            fields.push_back(common::formatNumber(*c.number, pattern));
        }
        w.row(fields);
    }
}

double rateValue(const store::Field& field) {
    if (field.isNull()) return 0;
    return common::toNumber(field.text());
}

double ownRate(const store::Field& hourlyrate) { return rateValue(hourlyrate); }

double entryHours(const store::Field& strttime, const store::Field& endtime) {
    const auto start = strttime.toDateTime();
    const auto end = endtime.toDateTime();
    if (!start || !end) return 0;
    return static_cast<double>(common::minutesBetween(*start, *end)) / 60.0;
}

std::string currency(Session& s, double amount) { return common::formatNumber(amount, "currency", s.locale); }

PayCell moneyCell(Session& s, double amount, std::string_view format) {
    return PayCell{common::formatNumber(amount, format, s.locale), amount, 2};
}

PayCell hoursCell(Session& s, double hours, std::string_view format) {
    return PayCell{common::formatNumber(hours, format, s.locale), hours, 2};
}

PayCell countCell(long count) { return PayCell{std::to_string(count), static_cast<double>(count), 0}; }

std::string listName(const store::Recordset& person) { return person["LName"].text() + ", " + person["fname"].text(); }

bool NoPayrollPermission(Session& s) { return s.IsUserMode && s.rights.noPayroll && maintenance::ShowNoPermission(s); }

DateFilter dayFilter(Session& s, common::Date day) {
    return {" where sched.sday = ? and sname=?", {day, s.currentSchedule}};
}

DateFilter rangeFilter(Session& s, common::Date start, common::Date end) {
    return {" where sched.sday >=? and sched.sday <=? and sname=?", {start, end, s.currentSchedule}};
}

std::string reportDate(Session& s, common::Date d) {
    return common::formatDate(d, s.settings.reportdateformat, s.locale);
}

bool overtimeFactorKeyAllowed(char key) { return (key >= '0' && key <= '9') || key == '\b' || key == '.'; }

}  // namespace tallymere::payroll

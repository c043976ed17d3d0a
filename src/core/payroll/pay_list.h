#pragma once
// What the payroll windows share: the list they fill (shown texts beside the plain numbers behind
// them, sorted by column with the Total row held out), the rate and hours rules, the periods of the
// date options, and the list as the printer and the accountant's CSV take it.

#include "common/csv.h"
#include "common/session.h"
#include "reports/list_print.h"
#include "store/recordset.h"
#include "store/value.h"

#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace tallymere::payroll {

// The state of the "Calc. Overtime" check box shared by every payroll window of one run; never
// stored. The app keeps one for the run, the command line one per command.
struct PayrollFlags {
    bool CalcOvertimeFlag = false;
};

// The Day / Week / Date Range choice of the payroll windows with its two date pickers; Week moves the
// pickers to the whole week of the start. The window passes the business's first day of the week.
struct PeriodChoice {
    bool dayoption = true;
    bool weekoption = false;
    bool daterangeoption = false;
    common::Date startdate;
    common::Date enddate;
    bool enddateEnabled = false;
    void dayoption_Click();
    void chooseWeek(std::string_view firstDayOfWeek);
    void daterangeoption_Click();
};

// One cell: the text the list shows and, for a figure, the number it stands for, which sorting
// compares and CSV writes.
struct PayCell {
    std::string text;
    std::optional<double> number;
    int decimals = 2;  // of the plain number in CSV
};

class PayList {
public:
    std::vector<std::string> columns;
    std::vector<std::vector<PayCell>> rows;
    int sortColumn = 0;  // 1-based; 0 while unsorted
    bool descending = false;
    int selectedRow = -1;

    void clear() {
        rows.clear();
        selectedRow = -1;
    }
    // A click on a column header (1-based). Other numbers are ignored. The same column again turns
    // the direction; columns after the first compare as numbers. A last row reading "Total" stays last
    // and is selected.
    void ColumnClick(int column);

    std::vector<std::string> texts(std::size_t row) const;
    // The shown texts, for printing.
    reports::ListGrid grid() const;
    // The captions, then each row as shown but with figures as plain numbers with a dot.
    void writeDelimited(std::ostream& out, common::Delimited style = common::Delimited::Csv) const;
};

// The rate of an employee's own `hourlyrate`: 0 when null, empty or unreadable.
double ownRate(const store::Field& hourlyrate);
// A rate field read as its number, 0 when null or empty.
double rateValue(const store::Field& field);
// Whole minutes between start and end over 60; 0 when a time is missing.
double entryHours(const store::Field& strttime, const store::Field& endtime);

// Cells of the usual kinds: money in the user's currency, hours with "0.00", a count.
PayCell moneyCell(common::Session& s, double amount, std::string_view format = "currency");
PayCell hoursCell(common::Session& s, double hours, std::string_view format = "0.00");
PayCell countCell(long count);
inline PayCell textCell(std::string text) { return PayCell{std::move(text), std::nullopt, 0}; }
std::string currency(common::Session& s, double amount);

// `LName`, ", ", `fname`.
std::string listName(const store::Recordset& person);

// The payroll right: in user mode without it the permission message is shown and true returned.
bool NoPayrollPermission(common::Session& s);

// The date where clause of the estimates: one day, or both ends inclusive, in the open file.
struct DateFilter {
    std::string where;
    store::Params params;
};
DateFilter dayFilter(common::Session& s, common::Date day);
DateFilter rangeFilter(common::Session& s, common::Date start, common::Date end);

// The report date format of the headings.
std::string reportDate(common::Session& s, common::Date d);

// The overtime factor field: digits, backspace and the point pass. True when the key is taken.
bool overtimeFactorKeyAllowed(char key);

}  // namespace tallymere::payroll

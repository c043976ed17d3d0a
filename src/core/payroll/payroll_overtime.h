#pragma once
// Regular and overtime hours by the calendar week, at the employee's own rate only: the list window
// `PayrollwithOvertime` (one week) and the document report `ReportWeeklyPayroll` (up to 52 weeks, a
// table a week and a closing table of totals).

#include "common/session.h"
#include "payroll/pay_list.h"
#include "payroll/payroll_estimator.h"
#include "reports/surface.h"

#include <memory>
#include <string>
#include <vector>

namespace tallymere::payroll {

// The employee's hours in the days from..to of a schedule file, summed by the engine; an overnight
// entry counts whole on its day. With gb_CheckConflictAllSchedules every file counts.
double GetHoursInRange(common::Session& s, long personid, common::Date from, common::Date to,
                       const std::string& scheduleName);

class PayrollwithOvertime {
public:
    static constexpr const char* kWindowName = "PayrollwithOvertime";
    static constexpr const char* kCaption = "Payroll with Overtime";

    static std::unique_ptr<PayrollwithOvertime> open(common::Session& s);
    explicit PayrollwithOvertime(common::Session& s);

    common::Date startdate;  // any day of the week
    std::vector<ComboItem> personcombo{{"All", 0}};
    int personcomboIndex = 0;
    std::string OverTimeFactor;
    bool OverTimeFactor_KeyPress(char key);
    void OverTimeFactor_LostFocus();
    std::string WeekLabel;
    std::string heading;
    PayList paylistview;
    std::string total;

    // The label follows the date at once; the list waits for refreshbutton.
    void startdate_Change(common::Date d);
    bool refreshbutton_Click();

private:
    common::Session& s_;
};

// One table of the weekly report: its title line and its rows, the last one "Total".
struct WeeklyPayTable {
    std::string title;
    PayList rows;
};

class ReportWeeklyPayroll {
public:
    static constexpr const char* kWindowName = "ReportWeeklyPayroll";
    static constexpr const char* kCaption = "Weekly Payroll";
    static constexpr const char* kHeader = "Employee|Hours|Shifts|Rate|Regular|Overtime|Total";
    static constexpr const char* kWidths = "2300|1100|1100|1200|1700|1700|1700";

    explicit ReportWeeklyPayroll(common::Session& s);

    common::Date StartDate;
    std::string NWeeks = "1";
    bool NWeeks_KeyPress(char key);  // digits and backspace only
    std::vector<ComboItem> employeecombo{{"All", 0}};
    int employeecomboIndex = 0;

    // The tables of the last build: one a week, then the totals when there is more than one week.
    std::vector<WeeklyPayTable> tables;

    // Computes the tables and, when a surface is given, composes them on it. False when refused.
    bool refreshbutton_Click(reports::Surface* vp = nullptr);

private:
    void compose(reports::Surface& vp);
    common::Session& s_;
};

}  // namespace tallymere::payroll

#pragma once
// The month calendar of scheduled leave, for everyone or one employee.

#include "common/date_time.h"
#include "common/session.h"
#include "reference/employee_records.h"

#include <array>
#include <string>
#include <vector>

namespace tallymere::reference {

// Days of a month; February has 29 in a leap year.
int daysInMonth(int year, int month);

struct LeaveCalendarCell {
    int day = 0;                     // 0 for a cell outside the month
    std::vector<std::string> lines;  // "fullname - typeofleave", one per leave row
};

class leavecal {
public:
    explicit leavecal(common::Session& s);

    static constexpr const char* kCaption = "Scheduled Leave";

    ChoiceList personcombo;     // "All", then "Last, First" with the personid
    common::Date leavecaldate;  // any day of the month shown

    std::string heading;  // "Scheduled Leave for " and the month as "MMMM, YYYY"
    // Text1: the month in weeks, Sunday first; the first week starts at the weekday of the 1st.
    std::vector<std::array<LeaveCalendarCell, 7>> Text1;

    // Fills personcombo ("All" selected) and draws the month of today.
    bool Load();
    // Redraws; changing the month or the employee does the same.
    bool Command1();
    void personcomboClick() { Command1(); }
    void leavecaldateChange() { Command1(); }
    // Printing with an employee's schedule needs one employee; false after saying so.
    bool canPrintWithSchedule();

private:
    common::Session& s_;
};

}  // namespace tallymere::reference

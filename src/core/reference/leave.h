#pragma once
// The leave tab of the employee windows and the window that adds a range of leave days. Leave is
// one row per day; the tab folds consecutive days of one kind into a range. The staging forms work
// on employeeleavetemp while a new employee is being added.

#include "common/date_time.h"
#include "common/session.h"
#include "reference/employee_records.h"

#include <string>
#include <vector>

namespace tallymere::reference {

struct LeaveRow {
    std::string Date;  // "MMM dd, yyyy", or two of them joined by " - "
    std::string TypeOfLeave;
    common::Date first;
    common::Date last;
};

// Consecutive days of the same kind folded into ranges; `days` in ascending order of day.
std::vector<LeaveRow> foldLeaveDays(const std::vector<std::pair<common::Date, std::string>>& days);

class LeaveTab {
public:
    LeaveTab(common::Session& s, bool staging) : s_(s), staging_(staging) {}

    static constexpr const char* kColumns[2] = {"Date", "Type of Leave"};
    static constexpr const char* kNote =
        "Note: Leave is shown here for 1 year prior to and 1 year after the current date. Use the Report Leave List "
        "to view all leave.";

    std::vector<LeaveRow> leavegrid;
    int row = -1;

    // The leave from a year before today to a year after.
    bool Refresh(long personid);
    // True when employeeleaveedit (employeeleaveedittemp when staging) is to be opened.
    bool addleavebutton() { return true; }
    // Removes the selected range day by day; a day already gone is no error. The caller refreshes.
    bool deleteleavebutton(long personid);
    bool deleteallbutton(long personid);
    // Leave is changed by deleting it and adding it anew.
    void editleavebutton();

private:
    common::Session& s_;
    bool staging_;
};

class employeeleaveedit {
public:
    employeeleaveedit(common::Session& s, EmployeeRef employee) : employeeleaveedit(s, std::move(employee), false) {}
    virtual ~employeeleaveedit() = default;

    static constexpr const char* kCaption = "Add Employee Leave";

    common::Date startdate;
    common::Date enddate;
    // The selection of the month view; it and the two pickers follow one another.
    struct Range {
        common::Date first;
        common::Date last;
    } MonthView1;
    ChoiceList leavecombo;  // the kinds of leave, "Vacation" preselected

    int maxDays() const { return staging_ ? 14 : 31; }
    const char* note() const;

    // Fills leavecombo and sets both dates to today.
    bool Load();
    // After the view set startdate or enddate: the other date follows so that the range stays in
    // order and within maxDays(), and the month view shows it.
    void startdateChange();
    void enddateChange();
    void MonthView1SelChange(common::Date first, common::Date last);
    // Adds the range; days that already have leave keep their kind. True when the window closes.
    bool Command1();

protected:
    employeeleaveedit(common::Session& s, EmployeeRef employee, bool staging);

private:
    void showRange();

    common::Session& s_;
    EmployeeRef employee_;
    bool staging_;
};

class employeeleaveedittemp : public employeeleaveedit {
public:
    employeeleaveedittemp(common::Session& s, EmployeeRef employee) : employeeleaveedit(s, std::move(employee), true) {}
};

}  // namespace tallymere::reference

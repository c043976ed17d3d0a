#pragma once
// The desired-shift tab of the employee windows and the window that adds a desired shift. The
// staging forms (adding a new employee, who has no personid yet) work on desiredshifttemp.

#include "common/session.h"
#include "reference/employee_records.h"

#include <string>
#include <vector>

namespace tallymere::reference {

struct DesiredShiftRow {
    std::string Day;  // the weekday's name
    std::string Shift;
    std::string Position;
    long id = 0;
};

class DesiredShiftTab {
public:
    DesiredShiftTab(common::Session& s, bool staging) : s_(s), staging_(staging) {}

    static constexpr const char* kColumns[3] = {"Day", "Shift", "Position"};

    std::vector<DesiredShiftRow> desiredshiftgrid;
    int row = -1;

    bool Refresh(long personid);
    // True when adddesiredshift (adddesiredshifttemp when staging) may open: the employee needs a
    // primary position first.
    bool adddesiredshiftbutton(const std::string& primpos);
    // Deletes the selected row; the caller refreshes.
    bool deletedesiredshiftbutton();

private:
    common::Session& s_;
    bool staging_;
};

class adddesiredshift {
public:
    adddesiredshift(common::Session& s, EmployeeRef employee) : adddesiredshift(s, std::move(employee), false) {}
    virtual ~adddesiredshift() = default;

    static constexpr const char* kCaption = "Add Desired Employee Shift";
    static constexpr int kPreferenceMin = 1;
    static constexpr int kPreferenceMax = 10;

    ChoiceList daycombo;       // Sunday .. Saturday
    ChoiceList shiftCombo;     // the shifts in their listing order
    ChoiceList PositionCombo;  // the primary position first (preselected), then the qualifications
    std::string preference = "5";
    int preferenceslider = 5;

    // Fills the lists. False when they could not be read.
    bool Load();
    // The text box and the slider follow each other.
    void preferenceChange();
    void preferencesliderChange();
    // True when the window closes.
    bool OKbutton();

protected:
    adddesiredshift(common::Session& s, EmployeeRef employee, bool staging)
        : s_(s), employee_(std::move(employee)), staging_(staging) {}

private:
    common::Session& s_;
    EmployeeRef employee_;
    bool staging_;
};

// The same window while adding a new employee: rows go to desiredshifttemp and keep the preference,
// which is what the new employee's save copies over.
class adddesiredshifttemp : public adddesiredshift {
public:
    adddesiredshifttemp(common::Session& s, EmployeeRef employee) : adddesiredshift(s, std::move(employee), true) {}
};

}  // namespace tallymere::reference

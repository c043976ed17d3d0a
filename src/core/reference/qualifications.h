#pragma once
// The qualification tab of the employee windows (positions besides the primary one, each with its
// own rate and skill level) and the window that adds one. The staging forms work on
// qualificationstemp while a new employee is being added.

#include "common/session.h"
#include "reference/employee_records.h"

#include <string>
#include <vector>

namespace tallymere::reference {

struct QualificationRow {
    std::string Position;
    std::string HourlyRate;
    std::string SkillLevel;
    long qualid = 0;
};

class QualificationTab {
public:
    QualificationTab(common::Session& s, bool staging) : s_(s), staging_(staging) {}

    static constexpr const char* kColumns[3] = {"Position", "Hourly Rate", "Skill Level"};

    std::vector<QualificationRow> qualificationsGrid;
    int row = -1;

    bool Refresh(long personid);
    // True when addqualifications (addqualificationstemp when staging) may open: the employee needs
    // a primary position first.
    bool addqualificationbutton(const std::string& primpos);
    // Deletes the selected row; the caller refreshes.
    bool deletequalificationbutton();

private:
    common::Session& s_;
    bool staging_;
};

class addqualifications {
public:
    addqualifications(common::Session& s, EmployeeRef employee) : addqualifications(s, std::move(employee), false) {}
    virtual ~addqualifications() = default;

    static constexpr const char* kCaption = "Add Qualifications";
    static constexpr int kSkillMin = 1;
    static constexpr int kSkillMax = 10;

    ChoiceList positioncombo;  // "select title from position order by title"
    std::string hourlyrate;
    std::string skill = "5";
    int skillslider = 5;

    bool Load();
    // Only digits and the decimal point can be typed into hourlyrate.
    static bool hourlyrateAccepts(char c) { return (c >= '0' && c <= '9') || c == '.'; }
    // On leaving the field the rate is shown as currency.
    void hourlyrateLostFocus();
    // The text box and the slider follow each other.
    void skillChange();
    void skillsliderChange();
    // True when the window closes.
    bool OKbutton();

protected:
    addqualifications(common::Session& s, EmployeeRef employee, bool staging)
        : s_(s), employee_(std::move(employee)), staging_(staging) {}

private:
    common::Session& s_;
    EmployeeRef employee_;
    bool staging_;
};

class addqualificationstemp : public addqualifications {
public:
    addqualificationstemp(common::Session& s, EmployeeRef employee) : addqualifications(s, std::move(employee), true) {}
};

}  // namespace tallymere::reference

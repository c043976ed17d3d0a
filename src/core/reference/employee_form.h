#pragma once
// What the two full employee windows (EditStaff for an existing employee, EditStaffnew for a new
// one) have in common: the fields of the person row on SSTab1, their dirty groups, the tabs of
// availability, desired shifts, qualifications and leave, and the picture.

#include "common/session.h"
#include "reference/availability.h"
#include "reference/desired_shifts.h"
#include "reference/employee_records.h"
#include "reference/leave.h"
#include "reference/qualifications.h"

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tallymere::reference {

// The caption of the picture viewer: the file, or a word that it could not be shown.
std::string picturewindowCaption(const std::string& file, bool shown);

class EmployeeForm {
public:
    virtual ~EmployeeForm() = default;
    EmployeeForm(const EmployeeForm&) = delete;
    EmployeeForm& operator=(const EmployeeForm&) = delete;

    std::string Caption;

    // The fields of the person row.
    std::string fname;
    std::string LName;
    std::string address;
    std::string Addr2;
    std::string city;
    std::string state;
    std::string zip;
    ChoiceList PositionCombo;  // the primary position: "select title from position order by title"
    std::string phone;
    std::string pager;
    std::string cellphone;
    std::string note;
    std::string email;
    std::string doh;  // typed dates; stored as "mm/dd/yyyy"
    std::string dob;
    std::string empenddate;
    std::string hourlyrate;
    std::string hoursperweek;
    std::string shiftsperweek;
    std::string primaryskill;
    bool inactivecheck = false;
    std::string empid;
    std::string ssn;
    std::string license;
    std::string picfile;  // path of the picture, "" for none

    // The tabs of SSTab1, in this order; SSTab1 is the one in front.
    enum Tab {
        kGeneralTab,
        kEmploymentTab,
        kPayTab,
        kAvailabilityTab,
        kDesiredShiftsTab,
        kQualificationsTab,
        kLeaveTab,
        kPictureTab
    };
    int SSTab1 = kGeneralTab;

    // Without the payroll right the pay fields are hidden and kNoPayrollRight shows in their place.
    static constexpr const char* kNoPayrollRight =
        "You do not have permissions to view employee payroll information. To view payroll info, restart Tallymere "
        "and enter the owner password.";
    bool payFieldsVisible = true;

    // Dirty flags, one per group of fields, set by fieldChanged.
    bool namesDirty = false;    // fname, LName
    bool datesDirty = false;    // doh, dob, empenddate
    bool addressDirty = false;  // address and contact fields, PositionCombo, note, email
    bool payDirty = false;      // hourlyrate, hoursperweek, shiftsperweek, primaryskill
    bool idsDirty = false;      // empid, ssn, license, inactivecheck
    // The change event of a field, by its control name. False for a name that is no field.
    bool fieldChanged(std::string_view control);
    bool anyFieldDirty() const { return namesDirty || datesDirty || addressDirty || payDirty || idsDirty; }

    AvailabilityTab availabilityTab;
    DesiredShiftTab desiredShiftTab;
    QualificationTab qualificationTab;
    LeaveTab leaveTab;

    // The employee the tabs and their small windows work for.
    virtual EmployeeRef employee() const;

    // The tab buttons. An add button gives the small window to show, loaded, or nothing when it may
    // not open; after it closed with true, RefreshTabs shows the change.
    std::unique_ptr<adddesiredshift> adddesiredshiftbutton();
    bool deletedesiredshiftbutton();
    std::unique_ptr<addqualifications> addqualificationbutton();
    bool deletequalificationbutton();
    std::unique_ptr<employeeleaveedit> addleavebutton();
    bool deleteleavebutton();
    bool deleteallbutton();
    void editleavebutton() { leaveTab.editleavebutton(); }
    bool RefreshTabs();

    // The picture shown: the employee's file, or the blank picture from the program's folder.
    std::string picturePath() const;
    std::string blankPicturePath() const;
    static const std::vector<common::FileFilter>& pictureFilter();
    // Chooses a picture file; clearbutton takes it away.
    bool picturebutton();
    bool clearbutton();

protected:
    EmployeeForm(common::Session& s, bool staging);

    virtual long tabPersonid() const = 0;
    // Stores the picture path; the new-employee window keeps it until the employee exists.
    virtual bool storePicture(const std::string& path) = 0;

    void fillPositions();
    void applyPayrollRight();
    // Checks the three typed dates, telling the user of the first that is no date.
    bool datesValid();
    // The typed dates in their stored form (dob, doh, enddate), "" where empty.
    std::array<std::string, 3> storedDates() const;
    void clearDirty();
    // "First Last" as the messages show a name.
    static std::string displayName(std::string_view first, std::string_view last);

    common::Session& s_;
    const bool staging_;
};

}  // namespace tallymere::reference

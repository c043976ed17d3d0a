#pragma once
// The full window of an existing employee: the person row on SSTab1, the tabs of availability,
// desired shifts, qualifications and leave, the picture, and List1 of all employees, selecting in
// which moves the window to another employee.

#include "common/session.h"
#include "reference/employee_form.h"

#include <string>

namespace tallymere::reference {

class EditStaff : public EmployeeForm {
public:
    explicit EditStaff(common::Session& s) : EmployeeForm(s, false) {}

    ChoiceList List1;  // every employee as "Last, First", with the personid

    // Shows the session's current employee. False (after a message) when the window cannot show it
    // and closes.
    bool Load();
    // Writes the dirty groups in order, then the availability. True when everything was written;
    // false when a check or a question stopped it (the window stays with what was typed).
    bool Save();
    // The view has moved List1.ListIndex: the chosen employee becomes the current one and is shown,
    // after the question about unsaved changes. False when the window stayed on its employee.
    bool List1Click();
    // Leaving the window. True when it may close.
    bool QueryUnload();

    long personid() const { return personid_; }
    bool dirty() const { return anyFieldDirty() || availabilityTab.changed(); }
    EmployeeRef employee() const override;

protected:
    long tabPersonid() const override { return personid_; }
    bool storePicture(const std::string& path) override;

private:
    void fillList();
    // The checks and the question of a change of name; `renamed` when the names are to be written.
    bool checkNames(bool& renamed);
    bool saveSteps();

    long personid_ = 0;
    std::string loadedFname_;
    std::string loadedLname_;
    std::string loadedPrimpos_;
};

}  // namespace tallymere::reference

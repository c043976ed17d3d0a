#pragma once
// The full window of a new employee. Until the employee is saved there is no personid, so the tabs
// keep their rows in the work tables (emptied when the window opens) and the save copies them over.
// The availability grid is kept in the window itself and written for the new employee on save.

#include "common/session.h"
#include "reference/employee_form.h"

namespace tallymere::reference {

class EditStaffnew : public EmployeeForm {
public:
    explicit EditStaffnew(common::Session& s) : EmployeeForm(s, true) {}

    // Empties the work tables and fills the lists.
    bool Load();
    // Creates the employee. True when it was created and the window closes.
    bool Save();
    // Leaving the window. True when it may close.
    bool QueryUnload();

    // The personid of the employee once created, 0 before.
    long newPersonid() const { return newPersonid_; }
    // Anything typed, painted or staged that a close would lose.
    bool dirty() const;

protected:
    // The work tables are not keyed by employee; the current value is passed along and ignored.
    long tabPersonid() const override { return s_.currentEmployee; }
    bool storePicture(const std::string&) override { return true; }

private:
    bool saveSteps();
    bool copyWorkTables(long id, const std::string& last, const std::string& first);
    // Every write of the new employee; its personid, or 0 when one failed.
    long writeEmployee(const std::string& first, const std::string& last, const std::string& position);

    long newPersonid_ = 0;
    bool saved_ = false;
};

}  // namespace tallymere::reference

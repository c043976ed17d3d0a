#pragma once
// The list of all employees, and the delete of an employee that the list shares with the main
// menu and the daily schedule's employee list.

#include "common/session.h"

#include <string>
#include <vector>

namespace tallymere::reference {

// Asks "Are you sure you want to delete <fname> <lname> ?" and deletes. The person row goes by
// `selectedId`, the dependent rows by the session's current employee (the one last opened for
// editing): the two are kept apart on purpose, as the program has always done. Schedule entries
// keep their name and personid. Refuses in user mode without the right to change employees.
// True when the employee was deleted.
bool DeleteEmployee(common::Session& s, long selectedId, const std::string& fname, const std::string& lname);

struct PersonRow {
    std::string LastName;
    std::string FirstName;
    std::string Position;  // the primary position, or "None Assigned"
    std::string Status;    // "Active" or "Inactive"
    long personid = 0;
};

class PersonListFrm {
public:
    explicit PersonListFrm(common::Session& s) : s_(s) {}

    static constexpr const char* kColumns[4] = {"Last Name", "First Name", "Position", "Status"};

    std::vector<PersonRow> grid1;
    int row = -1;  // the selected row of grid1

    // Reads the list again; keeps the selection on the same person where it is still listed.
    void Refresh();

    // True when EditStaffnew is to be opened.
    bool addbutton();
    // True when EditStaff is to be opened; the selected employee becomes the current employee.
    // A double click in the grid does the same.
    bool editbutton();
    // Deletes the selected employee (see DeleteEmployee) and reads the list again.
    bool deletebutton();

private:
    const PersonRow* selected() const;

    common::Session& s_;
};

}  // namespace tallymere::reference

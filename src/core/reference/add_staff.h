#pragma once
// The short window for adding an employee: a name and a position.

#include "common/session.h"
#include "reference/employee_records.h"

#include <string>

namespace tallymere::reference {

class AddStaff {
public:
    explicit AddStaff(common::Session& s) : s_(s) {}

    std::string fname;
    std::string LName;
    ChoiceList PositionCombo;  // "select title from position order by title"

    // Fills PositionCombo.
    void Load();
    // Creates the employee and makes it the current employee. True when the window closes.
    bool OKButton();

private:
    common::Session& s_;
};

}  // namespace tallymere::reference

#pragma once
// `EditStaff`: the full window of an existing employee, with `List1` of all employees beside the tabs;
// choosing another name there moves the window to that employee.

#include "app/reference/employee_window.h"
#include "reference/edit_staff.h"

class QListWidget;

namespace tallymere::app {

class EditStaffWindow : public EmployeeWindow {
public:
    // Shows the session's current employee; see loaded().
    EditStaffWindow(AppContext& context, QWidget* parent);

    reference::EditStaff& model() { return model_; }

protected:
    void display() override;
    bool queryUnload() override { return model_.QueryUnload(); }

private:
    void save();

    reference::EditStaff model_;
    QListWidget* list1_;
    ViewGuard guard_{this};
};

}  // namespace tallymere::app

#pragma once
// `EditStaffnew`: the full window of a new employee. Its tabs keep their rows in the work tables
// until the employee is saved.

#include "app/reference/employee_window.h"
#include "reference/edit_staff_new.h"

namespace tallymere::app {

class EditStaffNewWindow : public EmployeeWindow {
public:
    EditStaffNewWindow(AppContext& context, QWidget* parent);

    reference::EditStaffnew& model() { return model_; }

protected:
    bool queryUnload() override { return model_.QueryUnload(); }

private:
    reference::EditStaffnew model_;
    ViewGuard guard_{this};
};

}  // namespace tallymere::app

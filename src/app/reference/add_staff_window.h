#pragma once
// `AddStaff`: the short window that adds an employee with a name and a position.

#include "app/common/widget_support.h"
#include "reference/add_staff.h"

#include <QDialog>

namespace tallymere::app {

class AddStaffWindow : public QDialog {
public:
    AddStaffWindow(common::Session& s, QWidget* parent);

    reference::AddStaff& model() { return model_; }

private:
    reference::AddStaff model_;
    Binder binder_;
    ViewGuard guard_{this};
};

}  // namespace tallymere::app

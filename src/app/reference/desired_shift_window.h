#pragma once
// The window that adds a desired shift to an employee (`adddesiredshift`, or `adddesiredshifttemp`
// while a new employee is being added).

#include "app/common/widget_support.h"
#include "reference/desired_shifts.h"

#include <QDialog>
#include <memory>

namespace tallymere::app {

class DesiredShiftWindow : public QDialog {
public:
    // `model` is loaded, as the employee window's add button gives it.
    DesiredShiftWindow(std::unique_ptr<reference::adddesiredshift> model, QWidget* parent);

    reference::adddesiredshift& model() { return *model_; }

private:
    std::unique_ptr<reference::adddesiredshift> model_;
    Binder binder_;
    ViewGuard guard_{this};
};

}  // namespace tallymere::app

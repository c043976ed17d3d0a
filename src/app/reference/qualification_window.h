#pragma once
// The window that adds a qualification to an employee (`addqualifications`, or
// `addqualificationstemp` while a new employee is being added).

#include "app/common/widget_support.h"
#include "reference/qualifications.h"

#include <QDialog>
#include <memory>

namespace tallymere::app {

class QualificationWindow : public QDialog {
public:
    // `model` is loaded, as the employee window's add button gives it.
    QualificationWindow(std::unique_ptr<reference::addqualifications> model, QWidget* parent);

    reference::addqualifications& model() { return *model_; }

private:
    std::unique_ptr<reference::addqualifications> model_;
    Binder binder_;
    ViewGuard guard_{this};
};

}  // namespace tallymere::app

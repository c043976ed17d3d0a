#pragma once
// The windows that add a shift (`shiftadd`) and edit one (`EditShift`): name, description and the two
// three-field times.

#include "app/reference/view_support.h"
#include "reference/shift_windows.h"

#include <QDialog>

namespace tallymere::app {

class TimeEntryWidget;

template <class Model>
class ShiftWindow : public QDialog {
public:
    Model& model() { return model_; }

protected:
    template <class... Args>
    ShiftWindow(QWidget* parent, const char* windowName, const QString& caption, Args&&... modelArgs);

private:
    void ok();
    void display();

    Model model_;
    Binder binder_;
    TimeEntryWidget* start_;
    TimeEntryWidget* end_;
    ViewGuard guard_{this};
};

class ShiftAddWindow : public ShiftWindow<reference::shiftadd> {
public:
    ShiftAddWindow(common::Session& s, QWidget* parent);
};

class EditShiftWindow : public ShiftWindow<reference::EditShift> {
public:
    EditShiftWindow(common::Session& s, const std::string& shiftName, QWidget* parent);
};

}  // namespace tallymere::app

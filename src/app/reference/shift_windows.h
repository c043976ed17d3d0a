#pragma once
// The windows that add a shift (`shiftadd`) and edit one (`EditShift`): name, description and the two
// three-field times.

#include "app/reference/model_dialog.h"
#include "reference/shift_windows.h"

namespace tallymere::app {

class ShiftAddWindow : public ModelDialog<reference::shiftadd> {
public:
    ShiftAddWindow(common::Session& s, QWidget* parent);
};

class EditShiftWindow : public ModelDialog<reference::EditShift> {
public:
    EditShiftWindow(common::Session& s, const std::string& shiftName, QWidget* parent);
};

}  // namespace tallymere::app

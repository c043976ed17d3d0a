#pragma once
// The windows that add a position (`positionadd`) and edit one (`positionedit`): title, description,
// base rate and the colour the schedule views paint its entries with.

#include "app/reference/model_dialog.h"
#include "reference/position_windows.h"

namespace tallymere::app {

class PositionAddWindow : public ModelDialog<reference::positionadd> {
public:
    PositionAddWindow(common::Session& s, QWidget* parent);
};

class PositionEditWindow : public ModelDialog<reference::positionedit> {
public:
    PositionEditWindow(common::Session& s, const std::string& title, QWidget* parent);
};

}  // namespace tallymere::app

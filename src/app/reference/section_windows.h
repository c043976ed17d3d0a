#pragma once
// The windows that add a section (`GroupAdd`) and edit one (`groupedit`).

#include "app/reference/model_dialog.h"
#include "reference/section_windows.h"

namespace tallymere::app {

class GroupAddWindow : public ModelDialog<reference::GroupAdd> {
public:
    GroupAddWindow(common::Session& s, QWidget* parent);
};

class GroupEditWindow : public ModelDialog<reference::groupedit> {
public:
    GroupEditWindow(common::Session& s, const std::string& name, QWidget* parent);
};

}  // namespace tallymere::app

#pragma once
// The windows that add a section (`GroupAdd`) and edit one (`groupedit`).

#include "app/reference/view_support.h"
#include "reference/section_windows.h"

#include <QDialog>

namespace tallymere::app {

template <class Model>
class SectionWindow : public QDialog {
public:
    Model& model() { return model_; }

protected:
    template <class... Args>
    SectionWindow(QWidget* parent, const char* windowName, const QString& caption, Args&&... modelArgs);

private:
    Model model_;
    Binder binder_;
    ViewGuard guard_{this};
};

class GroupAddWindow : public SectionWindow<reference::GroupAdd> {
public:
    GroupAddWindow(common::Session& s, QWidget* parent);
};

class GroupEditWindow : public SectionWindow<reference::groupedit> {
public:
    GroupEditWindow(common::Session& s, const std::string& name, QWidget* parent);
};

}  // namespace tallymere::app

#include "app/reference/section_windows.h"

#include <QFormLayout>
#include <QLineEdit>

namespace tallymere::app {

namespace {

template <class Model>
QFormLayout* sectionForm(QDialog* dialog, Binder& binder, Model& model) {
    auto* name = new QLineEdit(dialog);
    name->setObjectName(QStringLiteral("name"));
    auto* description = new QLineEdit(dialog);
    description->setObjectName(QStringLiteral("description"));
    description->setMinimumWidth(260);

    auto* form = new QFormLayout;
    form->addRow(makeLabel(dialog, QDialog::tr("&Name:"), name), name);
    form->addRow(makeLabel(dialog, QDialog::tr("&Description:"), description), description);
    binder.line(name, model.name);
    binder.line(description, model.description);
    return form;
}

}  // namespace

GroupAddWindow::GroupAddWindow(common::Session& s, QWidget* parent)
    : ModelDialog(parent, "GroupAdd", tr("Add New Section"), s) {
    finish(sectionForm(this, binder_, model_));
}

GroupEditWindow::GroupEditWindow(common::Session& s, const std::string& name, QWidget* parent)
    : ModelDialog(parent, "groupedit", tr("Edit Section"), s, name) {
    finish(sectionForm(this, binder_, model_));
}

}  // namespace tallymere::app

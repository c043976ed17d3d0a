#include "app/reference/add_staff_window.h"

#include "app/reference/model_dialog.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>

namespace tallymere::app {

AddStaffWindow::AddStaffWindow(common::Session& s, QWidget* parent) : QDialog(parent), model_(s) {
    setObjectName(QStringLiteral("AddStaff"));
    setWindowTitle(tr("Add Employee"));

    auto* fname = new QLineEdit(this);
    fname->setObjectName(QStringLiteral("fname"));
    fname->setMinimumWidth(220);
    auto* lname = new QLineEdit(this);
    lname->setObjectName(QStringLiteral("LName"));
    auto* position = new QComboBox(this);
    position->setObjectName(QStringLiteral("PositionCombo"));

    auto* form = new QFormLayout;
    form->addRow(makeLabel(this, tr("&First Name:"), fname), fname);
    form->addRow(makeLabel(this, tr("&Last Name:"), lname), lname);
    form->addRow(makeLabel(this, tr("&Position:"), position), position);

    formOverOkCancel(this, form, "OKButton", "CancelButton", [this] { return model_.OKButton(); });

    binder_.line(fname, model_.fname);
    binder_.line(lname, model_.LName);
    binder_.combo(position, model_.PositionCombo);
    model_.Load();
    binder_.show();
}

}  // namespace tallymere::app

#include "app/reference/add_staff_window.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

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

    auto* buttons = new QDialogButtonBox(this);
    auto* ok = buttons->addButton(tr("OK"), QDialogButtonBox::AcceptRole);
    ok->setObjectName(QStringLiteral("OKButton"));
    ok->setDefault(true);
    auto* cancel = buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    cancel->setObjectName(QStringLiteral("CancelButton"));
    connect(ok, &QPushButton::clicked, this, [this] {
        if (model_.OKButton()) accept();
    });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);

    binder_.line(fname, model_.fname);
    binder_.line(lname, model_.LName);
    binder_.combo(position, model_.PositionCombo);
    model_.Load();
    binder_.show();
}

}  // namespace tallymere::app

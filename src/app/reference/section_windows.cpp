#include "app/reference/section_windows.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tallymere::app {

template <class Model>
template <class... Args>
SectionWindow<Model>::SectionWindow(QWidget* parent, const char* windowName, const QString& caption,
                                    Args&&... modelArgs)
    : QDialog(parent), model_(std::forward<Args>(modelArgs)...) {
    setObjectName(QString::fromUtf8(windowName));
    setWindowTitle(caption);

    auto* name = new QLineEdit(this);
    name->setObjectName(QStringLiteral("name"));
    auto* description = new QLineEdit(this);
    description->setObjectName(QStringLiteral("description"));
    description->setMinimumWidth(260);

    auto* form = new QFormLayout;
    form->addRow(makeLabel(this, tr("&Name:"), name), name);
    form->addRow(makeLabel(this, tr("&Description:"), description), description);

    auto* buttons = new QDialogButtonBox(this);
    auto* okButton = buttons->addButton(tr("OK"), QDialogButtonBox::AcceptRole);
    okButton->setObjectName(QStringLiteral("OKButton"));
    okButton->setDefault(true);
    auto* cancelButton = buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    cancelButton->setObjectName(QStringLiteral("CancelButton"));

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);

    binder_.line(name, model_.name);
    binder_.line(description, model_.description);
    connect(okButton, &QPushButton::clicked, this, [this] {
        const bool closes = model_.ok();
        binder_.show();
        if (closes) accept();
    });
    connect(cancelButton, &QPushButton::clicked, this, [this] {
        if (model_.cancel()) reject();
    });
    binder_.show();
}

GroupAddWindow::GroupAddWindow(common::Session& s, QWidget* parent)
    : SectionWindow(parent, "GroupAdd", tr("Add New Section"), s) {}

GroupEditWindow::GroupEditWindow(common::Session& s, const std::string& name, QWidget* parent)
    : SectionWindow(parent, "groupedit", tr("Edit Section"), s, name) {}

template class SectionWindow<reference::GroupAdd>;
template class SectionWindow<reference::groupedit>;

}  // namespace tallymere::app

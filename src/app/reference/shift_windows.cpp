#include "app/reference/shift_windows.h"

#include "app/common/time_entry_widget.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tallymere::app {

template <class Model>
template <class... Args>
ShiftWindow<Model>::ShiftWindow(QWidget* parent, const char* windowName, const QString& caption, Args&&... modelArgs)
    : QDialog(parent),
      model_(std::forward<Args>(modelArgs)...),
      start_(new TimeEntryWidget(this)),
      end_(new TimeEntryWidget(this)) {
    setObjectName(QString::fromUtf8(windowName));
    setWindowTitle(caption);

    auto* name = new QLineEdit(this);
    name->setObjectName(QStringLiteral("name"));
    name->setMaxLength(255);
    auto* description = new QLineEdit(this);
    description->setObjectName(QStringLiteral("description"));
    description->setMinimumWidth(260);
    // The two times repeat the control names of the time fields; `index` tells them apart as the
    // quick bar's do: 1 the start, 0 the end.
    start_->setObjectName(QStringLiteral("startTime"));
    start_->setProperty("index", 1);
    end_->setObjectName(QStringLiteral("endTime"));
    end_->setProperty("index", 0);

    auto* form = new QFormLayout;
    form->addRow(makeLabel(this, tr("&Name:"), name), name);
    form->addRow(makeLabel(this, tr("&Description:"), description), description);
    form->addRow(makeLabel(this, tr("&Start Time:"), start_->hourField()), start_);
    form->addRow(makeLabel(this, tr("&End Time:"), end_->hourField()), end_);

    auto* buttons = new QDialogButtonBox(this);
    auto* okButton = buttons->addButton(tr("OK"), QDialogButtonBox::AcceptRole);
    okButton->setObjectName(QStringLiteral("OKButton"));
    okButton->setDefault(true);
    auto* cancelButton = buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    cancelButton->setObjectName(QStringLiteral("CancelButton"));
    connect(okButton, &QPushButton::clicked, this, [this] { ok(); });
    connect(cancelButton, &QPushButton::clicked, this, [this] {
        if (model_.cancel()) reject();
    });

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);

    binder_.line(name, model_.name);
    binder_.line(description, model_.description);
    connect(start_, &TimeEntryWidget::edited, this, [this] { model_.startTime = start_->entry(); });
    connect(end_, &TimeEntryWidget::edited, this, [this] { model_.endTime = end_->entry(); });
    display();
}

template <class Model>
void ShiftWindow<Model>::display() {
    binder_.show();
    start_->setEntry(model_.startTime);
    end_->setEntry(model_.endTime);
}

template <class Model>
void ShiftWindow<Model>::ok() {
    const bool closes = model_.ok();
    // The checks pad the minutes; a refused entry stays as the model left it.
    display();
    if (closes) accept();
}

ShiftAddWindow::ShiftAddWindow(common::Session& s, QWidget* parent)
    : ShiftWindow(parent, "shiftadd", tr("Add New Shift"), s) {}

EditShiftWindow::EditShiftWindow(common::Session& s, const std::string& shiftName, QWidget* parent)
    : ShiftWindow(parent, "EditShift", tr("Edit Shift"), s, shiftName) {}

template class ShiftWindow<reference::shiftadd>;
template class ShiftWindow<reference::EditShift>;

}  // namespace tallymere::app

#include "app/reference/shift_windows.h"

#include "app/common/time_entry_widget.h"

#include <QFormLayout>
#include <QLineEdit>

namespace tallymere::app {

namespace {

template <class Model>
QFormLayout* shiftForm(QDialog* dialog, Binder& binder, Model& model) {
    auto* name = new QLineEdit(dialog);
    name->setObjectName(QStringLiteral("name"));
    name->setMaxLength(255);
    auto* description = new QLineEdit(dialog);
    description->setObjectName(QStringLiteral("description"));
    description->setMinimumWidth(260);

    // Made after the name, so that Tab follows the form from the top.
    // The two times repeat the control names of the time fields; `index` tells them apart as the
    // quick bar's do: 1 the start, 0 the end.
    auto* start = new TimeEntryWidget(dialog);
    start->setObjectName(QStringLiteral("startTime"));
    start->setProperty("index", 1);
    auto* end = new TimeEntryWidget(dialog);
    end->setObjectName(QStringLiteral("endTime"));
    end->setProperty("index", 0);

    auto* form = new QFormLayout;
    form->addRow(makeLabel(dialog, QDialog::tr("&Name:"), name), name);
    form->addRow(makeLabel(dialog, QDialog::tr("&Description:"), description), description);
    form->addRow(makeLabel(dialog, QDialog::tr("&Start Time:"), start->hourField()), start);
    form->addRow(makeLabel(dialog, QDialog::tr("&End Time:"), end->hourField()), end);

    binder.line(name, model.name);
    binder.line(description, model.description);
    QObject::connect(start, &TimeEntryWidget::edited, dialog, [start, &model] { model.startTime = start->entry(); });
    QObject::connect(end, &TimeEntryWidget::edited, dialog, [end, &model] { model.endTime = end->entry(); });
    binder.custom([start, end, &model] {
        start->setEntry(model.startTime);
        end->setEntry(model.endTime);
    });
    return form;
}

}  // namespace

ShiftAddWindow::ShiftAddWindow(common::Session& s, QWidget* parent)
    : ModelDialog(parent, "shiftadd", tr("Add New Shift"), s) {
    finish(shiftForm(this, binder_, model_));
}

EditShiftWindow::EditShiftWindow(common::Session& s, const std::string& shiftName, QWidget* parent)
    : ModelDialog(parent, "EditShift", tr("Edit Shift"), s, shiftName) {
    finish(shiftForm(this, binder_, model_));
}

}  // namespace tallymere::app

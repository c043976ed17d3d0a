#include "app/reference/desired_shift_window.h"

#include "app/reference/model_dialog.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QLineEdit>
#include <QSlider>

namespace tallymere::app {

DesiredShiftWindow::DesiredShiftWindow(std::unique_ptr<reference::adddesiredshift> model, QWidget* parent)
    : QDialog(parent), model_(std::move(model)) {
    const bool staging = dynamic_cast<reference::adddesiredshifttemp*>(model_.get()) != nullptr;
    setObjectName(staging ? QStringLiteral("adddesiredshifttemp") : QStringLiteral("adddesiredshift"));
    setWindowTitle(qs(reference::adddesiredshift::kCaption));

    auto* slider = new QSlider(Qt::Horizontal, this);
    slider->setObjectName(QStringLiteral("preferenceslider"));
    auto* daycombo = new QComboBox(this);
    daycombo->setObjectName(QStringLiteral("daycombo"));
    auto* shiftCombo = new QComboBox(this);
    shiftCombo->setObjectName(QStringLiteral("shiftCombo"));
    auto* positionCombo = new QComboBox(this);
    positionCombo->setObjectName(QStringLiteral("PositionCombo"));
    for (QComboBox* c : {daycombo, shiftCombo, positionCombo}) c->setMinimumWidth(200);
    auto* preference = new QLineEdit(this);
    preference->setObjectName(QStringLiteral("preference"));

    auto* form = new QFormLayout;
    form->addRow(makeLabel(this, tr("&Day:"), daycombo), daycombo);
    form->addRow(makeLabel(this, tr("&Shift:"), shiftCombo), shiftCombo);
    form->addRow(makeLabel(this, tr("&Position:"), positionCombo), positionCombo);
    form->addRow(makeLabel(this, tr("Desirability"), preference),
                 levelRow(preference, slider, reference::adddesiredshift::kPreferenceMin,
                          reference::adddesiredshift::kPreferenceMax, "preferencescale"));
    formOverOkCancel(this, form, "OKbutton", "cancelbutton", [this] { return model_->OKbutton(); });

    binder_.combo(daycombo, model_->daycombo);
    binder_.combo(shiftCombo, model_->shiftCombo);
    binder_.combo(positionCombo, model_->PositionCombo);
    binder_.line(preference, model_->preference, [this] {
        model_->preferenceChange();
        binder_.show();
    });
    binder_.slider(slider, model_->preferenceslider, [this] {
        model_->preferencesliderChange();
        binder_.show();
    });
    binder_.show();
}

}  // namespace tallymere::app

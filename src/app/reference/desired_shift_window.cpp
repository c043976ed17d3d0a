#include "app/reference/desired_shift_window.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QVBoxLayout>

namespace tallymere::app {

namespace {
constexpr const char* kScale = "Least                       Most";
}

DesiredShiftWindow::DesiredShiftWindow(std::unique_ptr<reference::adddesiredshift> model, QWidget* parent)
    : QDialog(parent), model_(std::move(model)), slider_(new QSlider(Qt::Horizontal, this)) {
    const bool staging = dynamic_cast<reference::adddesiredshifttemp*>(model_.get()) != nullptr;
    setObjectName(staging ? QStringLiteral("adddesiredshifttemp") : QStringLiteral("adddesiredshift"));
    setWindowTitle(qs(reference::adddesiredshift::kCaption));

    auto* daycombo = new QComboBox(this);
    daycombo->setObjectName(QStringLiteral("daycombo"));
    auto* shiftCombo = new QComboBox(this);
    shiftCombo->setObjectName(QStringLiteral("shiftCombo"));
    auto* positionCombo = new QComboBox(this);
    positionCombo->setObjectName(QStringLiteral("PositionCombo"));
    for (QComboBox* c : {daycombo, shiftCombo, positionCombo}) c->setMinimumWidth(200);

    auto* preference = new QLineEdit(this);
    preference->setObjectName(QStringLiteral("preference"));
    preference->setMaxLength(2);
    preference->setFixedWidth(preference->fontMetrics().horizontalAdvance(QStringLiteral("000")) + 12);
    slider_->setObjectName(QStringLiteral("preferenceslider"));
    slider_->setRange(reference::adddesiredshift::kPreferenceMin, reference::adddesiredshift::kPreferenceMax);
    slider_->setTickPosition(QSlider::TicksBelow);
    slider_->setPageStep(1);
    auto* scale = new QLabel(QString::fromUtf8(kScale), this);
    scale->setObjectName(QStringLiteral("preferencescale"));
    slider_->setMinimumWidth(scale->sizeHint().width());
    auto* desirability = new QGridLayout;
    desirability->addWidget(preference, 0, 0);
    desirability->addWidget(slider_, 0, 1);
    desirability->addWidget(scale, 1, 1);

    auto* form = new QFormLayout;
    form->addRow(makeLabel(this, tr("&Day:"), daycombo), daycombo);
    form->addRow(makeLabel(this, tr("&Shift:"), shiftCombo), shiftCombo);
    form->addRow(makeLabel(this, tr("&Position:"), positionCombo), positionCombo);
    form->addRow(makeLabel(this, tr("Desirability"), preference), desirability);

    auto* buttons = new QDialogButtonBox(this);
    auto* ok = buttons->addButton(tr("OK"), QDialogButtonBox::AcceptRole);
    ok->setObjectName(QStringLiteral("OKbutton"));
    ok->setDefault(true);
    auto* cancel = buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    cancel->setObjectName(QStringLiteral("cancelbutton"));

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);

    binder_.combo(daycombo, model_->daycombo);
    binder_.combo(shiftCombo, model_->shiftCombo);
    binder_.combo(positionCombo, model_->PositionCombo);
    binder_.line(preference, model_->preference, [this] {
        model_->preferenceChange();
        display();
    });
    binder_.custom([this] {
        const QSignalBlocker quiet(slider_);
        slider_->setValue(model_->preferenceslider);
    });
    connect(slider_, &QSlider::valueChanged, this, [this](int v) {
        model_->preferenceslider = v;
        model_->preferencesliderChange();
        display();
    });
    connect(ok, &QPushButton::clicked, this, [this] {
        if (model_->OKbutton()) accept();
    });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    display();
}

void DesiredShiftWindow::display() { binder_.show(); }

}  // namespace tallymere::app

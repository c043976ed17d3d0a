#include "app/reference/qualification_window.h"

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

QualificationWindow::QualificationWindow(std::unique_ptr<reference::addqualifications> model, QWidget* parent)
    : QDialog(parent), model_(std::move(model)), slider_(new QSlider(Qt::Horizontal, this)) {
    const bool staging = dynamic_cast<reference::addqualificationstemp*>(model_.get()) != nullptr;
    setObjectName(staging ? QStringLiteral("addqualificationstemp") : QStringLiteral("addqualifications"));
    setWindowTitle(qs(reference::addqualifications::kCaption));

    auto* positioncombo = new QComboBox(this);
    positioncombo->setObjectName(QStringLiteral("positioncombo"));
    positioncombo->setMinimumWidth(200);
    auto* hourlyrate = new QLineEdit(this);
    hourlyrate->setObjectName(QStringLiteral("hourlyrate"));
    hourlyrate->setMaximumWidth(120);

    auto* skill = new QLineEdit(this);
    skill->setObjectName(QStringLiteral("skill"));
    skill->setMaxLength(2);
    skill->setFixedWidth(skill->fontMetrics().horizontalAdvance(QStringLiteral("000")) + 12);
    slider_->setObjectName(QStringLiteral("skillslider"));
    slider_->setRange(reference::addqualifications::kSkillMin, reference::addqualifications::kSkillMax);
    slider_->setTickPosition(QSlider::TicksBelow);
    slider_->setPageStep(1);
    auto* scale = new QLabel(QString::fromUtf8(kScale), this);
    scale->setObjectName(QStringLiteral("skillscale"));
    slider_->setMinimumWidth(scale->sizeHint().width());
    auto* level = new QGridLayout;
    level->addWidget(skill, 0, 0);
    level->addWidget(slider_, 0, 1);
    level->addWidget(scale, 1, 1);

    auto* form = new QFormLayout;
    form->addRow(makeLabel(this, tr("&Position:"), positioncombo), positioncombo);
    form->addRow(makeLabel(this, tr("&Hourly Rate:"), hourlyrate), hourlyrate);
    form->addRow(makeLabel(this, tr("Skill Level"), skill), level);

    auto* buttons = new QDialogButtonBox(this);
    auto* ok = buttons->addButton(tr("OK"), QDialogButtonBox::AcceptRole);
    ok->setObjectName(QStringLiteral("OKbutton"));
    ok->setDefault(true);
    auto* cancel = buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    cancel->setObjectName(QStringLiteral("cancelbutton"));

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);

    binder_.combo(positioncombo, model_->positioncombo);
    binder_.line(hourlyrate, model_->hourlyrate);
    filterTypedKeys(hourlyrate, [](const QString& typed) {
        return typed.size() == 1 && reference::addqualifications::hourlyrateAccepts(typed.at(0).toLatin1());
    });
    onFocusOut(hourlyrate, [this] {
        model_->hourlyrateLostFocus();
        display();
    });
    binder_.line(skill, model_->skill, [this] {
        model_->skillChange();
        display();
    });
    binder_.custom([this] {
        const QSignalBlocker quiet(slider_);
        slider_->setValue(model_->skillslider);
    });
    connect(slider_, &QSlider::valueChanged, this, [this](int v) {
        model_->skillslider = v;
        model_->skillsliderChange();
        display();
    });
    connect(ok, &QPushButton::clicked, this, [this] {
        if (model_->OKbutton()) accept();
    });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    display();
}

void QualificationWindow::display() { binder_.show(); }

}  // namespace tallymere::app

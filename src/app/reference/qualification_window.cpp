#include "app/reference/qualification_window.h"

#include "app/reference/model_dialog.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QLineEdit>
#include <QSlider>

namespace tallymere::app {

QualificationWindow::QualificationWindow(std::unique_ptr<reference::addqualifications> model, QWidget* parent)
    : QDialog(parent), model_(std::move(model)) {
    const bool staging = dynamic_cast<reference::addqualificationstemp*>(model_.get()) != nullptr;
    setObjectName(staging ? QStringLiteral("addqualificationstemp") : QStringLiteral("addqualifications"));
    setWindowTitle(qs(reference::addqualifications::kCaption));

    auto* slider = new QSlider(Qt::Horizontal, this);
    slider->setObjectName(QStringLiteral("skillslider"));
    auto* positioncombo = new QComboBox(this);
    positioncombo->setObjectName(QStringLiteral("positioncombo"));
    positioncombo->setMinimumWidth(200);
    auto* hourlyrate = new QLineEdit(this);
    hourlyrate->setObjectName(QStringLiteral("hourlyrate"));
    hourlyrate->setMaximumWidth(120);
    auto* skill = new QLineEdit(this);
    skill->setObjectName(QStringLiteral("skill"));

    auto* form = new QFormLayout;
    form->addRow(makeLabel(this, tr("&Position:"), positioncombo), positioncombo);
    form->addRow(makeLabel(this, tr("&Hourly Rate:"), hourlyrate), hourlyrate);
    form->addRow(makeLabel(this, tr("Skill Level"), skill),
                 levelRow(skill, slider, reference::addqualifications::kSkillMin,
                          reference::addqualifications::kSkillMax, "skillscale"));
    formOverOkCancel(this, form, "OKbutton", "cancelbutton", [this] { return model_->OKbutton(); });

    binder_.combo(positioncombo, model_->positioncombo);
    binder_.line(hourlyrate, model_->hourlyrate);
    filterTypedKeys(hourlyrate, [](const QString& typed) {
        return typed.size() == 1 && reference::addqualifications::hourlyrateAccepts(typed.at(0).toLatin1());
    });
    onFocusOut(hourlyrate, [this] {
        model_->hourlyrateLostFocus();
        binder_.show();
    });
    binder_.line(skill, model_->skill, [this] {
        model_->skillChange();
        binder_.show();
    });
    binder_.slider(slider, model_->skillslider, [this] {
        model_->skillsliderChange();
        binder_.show();
    });
    binder_.show();
}

}  // namespace tallymere::app

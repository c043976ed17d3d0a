#include "app/schedule/default_save_dialog.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace tallymere::app {

DefaultSaveDialog::DefaultSaveDialog(common::Session& session, QWidget* parent) : QDialog(parent), model_(session) {
    setObjectName(QString::fromLatin1(schedule::DefaultSave::kWindowName));
    setWindowTitle(QString::fromLatin1(schedule::DefaultSave::kCaption));

    auto* frame = new QGroupBox(tr("Specify Length of Default Schedule"), this);
    frame->setObjectName(QStringLiteral("Frame1"));
    auto* dayoption = new QRadioButton(tr("Days"), frame);
    dayoption->setObjectName(QStringLiteral("dayoption"));
    auto* weekoption = new QRadioButton(tr("Weeks"), frame);
    weekoption->setObjectName(QStringLiteral("weekoption"));
    auto* TxtDays = new QLineEdit(frame);
    TxtDays->setObjectName(QStringLiteral("TxtDays"));
    auto* TxtWeeks = new QLineEdit(frame);
    TxtWeeks->setObjectName(QStringLiteral("TxtWeeks"));
    for (QLineEdit* field : {TxtDays, TxtWeeks}) field->setMaxLength(4);
    auto* Startdaylabel = new QLabel(this);
    Startdaylabel->setObjectName(QStringLiteral("Startdaylabel"));
    auto* Endlabel = new QLabel(this);
    Endlabel->setObjectName(QStringLiteral("Endlabel"));

    auto* lengths = new QGridLayout(frame);
    lengths->addWidget(dayoption, 0, 0);
    lengths->addWidget(TxtDays, 0, 1);
    lengths->addWidget(weekoption, 1, 0);
    lengths->addWidget(TxtWeeks, 1, 1);

    const auto labelsFollow = [this] {
        model_.UpdateLabels();
        binder_.show();
    };
    binder_.line(TxtDays, model_.TxtDays, labelsFollow);
    binder_.line(TxtWeeks, model_.TxtWeeks, labelsFollow);
    binder_.custom([this, Startdaylabel, Endlabel, dayoption, weekoption, TxtDays, TxtWeeks] {
        Startdaylabel->setText(qs(model_.Startdaylabel));
        Endlabel->setText(qs(model_.Endlabel));
        const QSignalBlocker quietDays(dayoption), quietWeeks(weekoption);
        dayoption->setChecked(model_.dayoption);
        weekoption->setChecked(!model_.dayoption);
        TxtDays->setEnabled(model_.dayoption);
        TxtWeeks->setEnabled(!model_.dayoption);
    });
    connect(dayoption, &QRadioButton::toggled, this, [this](bool on) {
        if (!on) return;
        model_.dayoption_Click();
        binder_.show();
    });
    connect(weekoption, &QRadioButton::toggled, this, [this](bool on) {
        if (!on) return;
        model_.weekoption_Click();
        binder_.show();
    });

    auto* save = makeButton(this, "Save", tr("&Save"));
    auto* cancel = makeButton(this, "Cancel", tr("Cancel"));
    save->setDefault(true);
    connect(save, &QPushButton::clicked, this, [this] {
        if (model_.Save_Click()) accept();
    });
    connect(cancel, &QPushButton::clicked, this, [this] {
        if (model_.Cancel_Click()) reject();
    });

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(save);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(frame);
    layout->addWidget(Startdaylabel);
    layout->addWidget(Endlabel);
    layout->addLayout(buttons);
    binder_.show();
}

}  // namespace tallymere::app

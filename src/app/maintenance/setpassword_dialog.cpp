#include "app/maintenance/setpassword_dialog.h"

#include "app/common/widget_support.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace tallymere::app {

namespace {

// A padlock, shut or open.
QPixmap padlock(bool locked) {
    constexpr int size = 32;
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    const QColor body = locked ? QColor(0xb0, 0x3a, 0x2e) : QColor(0x2e, 0x7d, 0x32);
    p.setPen(QPen(QColor(0x55, 0x55, 0x55), 3, Qt::SolidLine, Qt::RoundCap));
    QPainterPath shackle;
    const qreal left = 9, right = 23, top = 4, bottom = 15;
    shackle.moveTo(left, bottom);
    shackle.lineTo(left, top + 7);
    shackle.arcTo(QRectF(left, top, right - left, 14), 180, -180);
    shackle.lineTo(right, locked ? bottom : top + 9);
    if (!locked) shackle.translate(0, -3);
    p.drawPath(shackle);
    p.setPen(Qt::NoPen);
    p.setBrush(body);
    p.drawRoundedRect(QRectF(5, 14, 22, 16), 3, 3);
    p.setBrush(Qt::white);
    p.drawEllipse(QPointF(16, 21), 2.5, 2.5);
    p.drawRect(QRectF(15, 22, 2, 5));
    return pixmap;
}

QLabel* image(QWidget* parent, const char* name, bool locked, const QString& tip) {
    auto* label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setPixmap(padlock(locked));
    label->setFixedSize(32, 32);
    label->setToolTip(tip);
    return label;
}

QLineEdit* passwordField(QWidget* parent, const char* name) {
    auto* field = new QLineEdit(parent);
    field->setObjectName(QString::fromLatin1(name));
    field->setEchoMode(QLineEdit::Password);
    field->setMinimumWidth(200);
    return field;
}

QLabel* stateLine(QWidget* parent, const char* name) {
    QLabel* label = plainText(parent, {});
    label->setObjectName(QString::fromLatin1(name));
    QPalette pal = label->palette();
    pal.setColor(QPalette::WindowText, pal.color(QPalette::Disabled, QPalette::WindowText));
    label->setPalette(pal);
    return label;
}

}  // namespace

SetPasswordDialog::SetPasswordDialog(common::Session& session, QWidget* parent)
    : QDialog(parent),
      model_(session),
      nopasswordoption_(new QRadioButton(QString::fromUtf8(maintenance::setpassword::kNoPasswordText), this)),
      requirepasswordoption_(new QRadioButton(QString::fromUtf8(maintenance::setpassword::kRequirePasswordText), this)),
      unlockImage_(image(this, "UnlockImage", false, QStringLiteral("No password is asked at start"))),
      lockedImage_(image(this, "LockedImage", true, QStringLiteral("A password is asked at start"))),
      passwordowner_(passwordField(this, "passwordowner")),
      passworduser_(passwordField(this, "passworduser")),
      ownerState_(stateLine(this, "ownerPasswordState")),
      userState_(stateLine(this, "userPasswordState")),
      clearUser_(makeButton(this, "ClearUserPasswordButton", QStringLiteral("C&lear"))) {
    setObjectName(QStringLiteral("setpassword"));
    setWindowTitle(QString::fromUtf8(maintenance::setpassword::kCaption));
    nopasswordoption_->setObjectName(QStringLiteral("nopasswordoption"));
    requirepasswordoption_->setObjectName(QStringLiteral("requirepasswordoption"));
    clearUser_->setToolTip(QStringLiteral("Remove the user password, so that there is no user mode"));

    // The two options beside the padlock that shows the choice.
    auto* images = new QGridLayout;
    images->addWidget(unlockImage_, 0, 0);
    images->addWidget(lockedImage_, 0, 0);
    auto* optionTexts = new QVBoxLayout;
    optionTexts->addWidget(nopasswordoption_);
    optionTexts->addWidget(requirepasswordoption_);
    auto* options = new QHBoxLayout;
    options->addLayout(images);
    options->addSpacing(8);
    options->addLayout(optionTexts, 1);

    auto* fields = new QGridLayout;
    fields->setColumnStretch(1, 1);
    auto* ownerCaption = new QLabel(QStringLiteral("&Owner password:"), this);
    ownerCaption->setBuddy(passwordowner_);
    auto* userCaption = new QLabel(QStringLiteral("&User password:"), this);
    userCaption->setBuddy(passworduser_);
    fields->addWidget(ownerCaption, 0, 0);
    fields->addWidget(passwordowner_, 0, 1);
    fields->addWidget(ownerState_, 1, 1, 1, 2);
    fields->addWidget(userCaption, 2, 0);
    fields->addWidget(passworduser_, 2, 1);
    fields->addWidget(clearUser_, 2, 2);
    fields->addWidget(userState_, 3, 1, 1, 2);
    fields->setVerticalSpacing(4);
    fields->setRowMinimumHeight(1, 18);

    auto* rights = new QGroupBox(QStringLiteral("What the user password allows"), this);
    auto* boxes = new QGridLayout(rights);
    for (std::size_t i = 0; i < boxes_.size(); ++i) {
        const auto& def = maintenance::setpassword::kBoxes[i];
        auto* box = new QCheckBox(QString::fromUtf8(def.caption), rights);
        box->setObjectName(QString::fromLatin1(def.control));
        boxes_[i] = box;
        boxes->addWidget(box, static_cast<int>(i % 4), static_cast<int>(i / 4));
        connect(box, &QCheckBox::toggled, this, [this, i](bool ticked) {
            const auto& d = maintenance::setpassword::kBoxes[i];
            if (std::string_view(d.control) == "employeeviewcheck")
                model_.setEmployeeView(ticked);
            else
                model_.*d.ticked = ticked;
            refresh();
        });
    }

    QPushButton* okButton = makeButton(this, "OKButton", QStringLiteral("OK"));
    QPushButton* cancelButton = makeButton(this, "CancelButton", QStringLiteral("Cancel"));
    okButton->setDefault(true);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 12);
    layout->addLayout(options);
    layout->addSpacing(8);
    layout->addLayout(fields);
    layout->addSpacing(6);
    layout->addWidget(rights);
    layout->addWidget(plainText(this, QStringLiteral("Changes take effect the next time Tallymere starts.")));
    layout->addSpacing(4);
    layout->addLayout(buttonRow({okButton, cancelButton}));
    setMinimumWidth(500);

    connect(nopasswordoption_, &QRadioButton::toggled, this, [this](bool on) {
        if (!on) return;
        model_.chooseNoPassword();
        refresh();
    });
    connect(requirepasswordoption_, &QRadioButton::toggled, this, [this](bool on) {
        if (!on) return;
        model_.chooseRequirePassword();
        refresh();
    });
    connect(passwordowner_, &QLineEdit::textEdited, this,
            [this](const QString& t) { model_.passwordowner = t.toStdString(); });
    connect(passworduser_, &QLineEdit::textEdited, this,
            [this](const QString& t) { model_.passworduser = t.toStdString(); });
    connect(clearUser_, &QPushButton::clicked, this, [this] {
        model_.ClearUserPasswordButton();
        refresh();
    });
    connect(okButton, &QPushButton::clicked, this, [this] {
        if (model_.OK()) accept();
    });
    connect(cancelButton, &QPushButton::clicked, this, &QDialog::reject);
    refresh();
}

void SetPasswordDialog::refresh() {
    {
        const QSignalBlocker a(nopasswordoption_), b(requirepasswordoption_);
        nopasswordoption_->setChecked(model_.nopasswordoption);
        requirepasswordoption_->setChecked(model_.requirepasswordoption);
    }
    unlockImage_->setVisible(model_.UnlockImageVisible);
    lockedImage_->setVisible(model_.LockedImageVisible);

    const auto showText = [](QLineEdit* field, const std::string& text, bool enabled) {
        if (field->text().toStdString() != text) field->setText(QString::fromStdString(text));
        field->setEnabled(enabled);
    };
    showText(passwordowner_, model_.passwordowner, model_.passwordownerEnabled);
    showText(passworduser_, model_.passworduser, model_.passworduserEnabled);
    ownerState_->setText(model_.ownerPasswordSet
                             ? QStringLiteral("An owner password is set. Leave the field empty to keep it.")
                             : QStringLiteral("No owner password is set."));
    userState_->setText(model_.userPasswordSet
                            ? QStringLiteral("A user password is set. Leave the field empty to keep it.")
                            : QStringLiteral("No user password is set, so there is no user mode."));
    clearUser_->setEnabled(model_.userPasswordSet && model_.passworduserEnabled);

    for (std::size_t i = 0; i < boxes_.size(); ++i) {
        const auto& def = maintenance::setpassword::kBoxes[i];
        const QSignalBlocker block(boxes_[i]);
        boxes_[i]->setChecked(model_.*def.ticked);
        if (std::string_view(def.control) == "employeecheck") boxes_[i]->setEnabled(model_.employeecheckEnabled);
    }
}

}  // namespace tallymere::app

#include "app/maintenance/enterpassword_dialog.h"

#include "app/common/widget_support.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tallymere::app {

EnterPasswordDialog::EnterPasswordDialog(common::Session& session, QWidget* parent, Prompt prompt)
    : QDialog(parent), model_(session, prompt == Prompt::OwnerOnly), password_(new QLineEdit(this)) {
    setObjectName(QStringLiteral("enterpassword"));
    setWindowTitle(QStringLiteral("Enter Password"));

    password_->setObjectName(QStringLiteral("password"));
    password_->setEchoMode(QLineEdit::Password);
    password_->setMinimumWidth(260);
    auto* caption = new QLabel(QStringLiteral("&Password:"), this);
    caption->setBuddy(password_);

    QPushButton* okButton = makeButton(this, "OKButton", QStringLiteral("OK"));
    QPushButton* cancelButton = makeButton(this, "CancelButton", QStringLiteral("Cancel"));
    okButton->setDefault(true);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 12);
    layout->addWidget(plainText(
        this, model_.ownerOnly()
                  ? QStringLiteral("Only the owner can change the passwords and rights. Enter the owner password.")
                  : QStringLiteral("Tallymere is protected by a password. Enter the owner or the user password "
                                   "to continue.")));
    layout->addSpacing(6);
    layout->addWidget(caption);
    layout->addWidget(password_);
    layout->addSpacing(8);
    layout->addLayout(buttonRow({okButton, cancelButton}));
    setMinimumWidth(360);

    connect(password_, &QLineEdit::textChanged, this, [this](const QString& t) { model_.password = t.toStdString(); });
    connect(okButton, &QPushButton::clicked, this, &EnterPasswordDialog::ok);
    connect(cancelButton, &QPushButton::clicked, this, &EnterPasswordDialog::reject);
}

void EnterPasswordDialog::ok() {
    if (model_.OK()) {
        accept();
        return;
    }
    // Another try, with no limit.
    password_->selectAll();
    password_->setFocus();
}

void EnterPasswordDialog::reject() {
    model_.Cancel();
    QDialog::reject();
}

}  // namespace tallymere::app

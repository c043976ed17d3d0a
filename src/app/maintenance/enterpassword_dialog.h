#pragma once
// The password prompt `enterpassword`: OK keeps the window open until the model accepts the
// password; cancel (or closing the window) leaves PasswordPassed false. As Prompt::OwnerOnly it is
// the check before the password settings in user mode, which only the owner password passes.

#include "maintenance/enterpassword.h"

#include <QDialog>

class QLineEdit;

namespace tallymere::app {

class EnterPasswordDialog : public QDialog {
    Q_OBJECT

public:
    enum class Prompt { Start, OwnerOnly };

    EnterPasswordDialog(common::Session& session, QWidget* parent = nullptr, Prompt prompt = Prompt::Start);

    void reject() override;

private:
    void ok();

    maintenance::enterpassword model_;
    QLineEdit* password_;
};

}  // namespace tallymere::app

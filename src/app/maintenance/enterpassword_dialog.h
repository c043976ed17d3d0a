#pragma once
// The password prompt `enterpassword`: OK keeps the window open until the model accepts the
// password; cancel (or closing the window) leaves PasswordPassed false.

#include "maintenance/enterpassword.h"

#include <QDialog>

class QLineEdit;

namespace tallymere::app {

class EnterPasswordDialog : public QDialog {
    Q_OBJECT

public:
    EnterPasswordDialog(common::Session& session, QWidget* parent = nullptr);

    void reject() override;

private:
    void ok();

    maintenance::enterpassword model_;
    QLineEdit* password_;
};

}  // namespace tallymere::app

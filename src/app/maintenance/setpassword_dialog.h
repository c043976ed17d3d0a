#pragma once
// The window `setpassword` ("Set Password"): whether a password is asked at start, the owner and user
// passwords and the rights of user mode. Stored passwords cannot be shown, so each field has a line
// saying whether one is set.

#include "maintenance/setpassword.h"

#include <QDialog>
#include <array>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace tallymere::app {

class SetPasswordDialog : public QDialog {
    Q_OBJECT

public:
    SetPasswordDialog(common::Session& session, QWidget* parent = nullptr);

private:
    // Shows the model's state.
    void refresh();

    maintenance::setpassword model_;
    QRadioButton* nopasswordoption_;
    QRadioButton* requirepasswordoption_;
    QLabel* unlockImage_;
    QLabel* lockedImage_;
    QLineEdit* passwordowner_;
    QLineEdit* passworduser_;
    QLabel* ownerState_;
    QLabel* userState_;
    QPushButton* clearUser_;
    std::array<QCheckBox*, 8> boxes_{};
};

}  // namespace tallymere::app

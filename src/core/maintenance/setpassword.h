#pragma once
// The "Set Password" window: whether a password is asked at start, the owner and user passwords,
// and the rights of user mode. Changes take effect at the next start.
//
// Stored passwords are hashes and cannot be shown, so both fields start empty and the flags
// ownerPasswordSet / userPasswordSet tell the view to say that a password is set. An empty field on
// OK keeps what is stored:
//   - owner: with requirepasswordoption and a stored owner password, the stored one stays; with none
//     stored, an empty field is refused (the owner password is what turns the prompt on);
//   - user: a stored user password stays unless ClearUserPasswordButton was pressed; with none
//     stored (or after that button), an empty field removes the row, so there is no user mode.
// Typed text replaces the stored password. A kept value still in clear text (an older database) is
// replaced by its hash on OK, so nothing leaves this window in clear text.

#include "common/session.h"

#include <string>

namespace tallymere::maintenance {

class setpassword {
public:
    // Fills the window from the options table.
    explicit setpassword(common::Session& s);

    static constexpr const char* kCaption = "Set Password";
    static constexpr const char* kNoPasswordText = "Do not require use of a password at start.";
    static constexpr const char* kRequirePasswordText = "A password must be entered at start.";

    // One right's check box: its control, caption and options key. kBoxes holds the eight in the
    // order OK stores them.
    struct RightBox {
        const char* control;
        const char* caption;
        const char* key;
        bool setpassword::*ticked;
    };
    static const RightBox kBoxes[8];

    bool nopasswordoption = true;
    bool requirepasswordoption = false;
    std::string passwordowner;  // a new owner password; empty keeps the stored one
    std::string passworduser;   // a new user password; empty keeps or removes, see above
    bool ownerPasswordSet = false;
    bool userPasswordSet = false;

    bool passwordownerEnabled = false;
    bool passworduserEnabled = false;
    bool UnlockImageVisible = true;
    bool LockedImageVisible = false;

    bool schedulecheck = false;
    bool employeeviewcheck = false;
    bool employeecheck = false;
    bool positioncheck = false;
    bool shiftcheck = false;
    bool sectioncheck = false;
    bool payrollcheck = false;
    bool stafflevelscheck = false;
    bool employeecheckEnabled = true;

    // The option buttons.
    void chooseNoPassword();
    void chooseRequirePassword();
    // The "View Employee Info" box: the right to change employees includes the right to view them,
    // so without the view the change box is unticked and disabled.
    void setEmployeeView(bool ticked);
    // Forgets the stored user password: OK then removes it unless a new one is typed.
    void ClearUserPasswordButton();

    // True when the window closes.
    bool OK();

private:
    bool storePasswords();

    common::Session& s_;
    std::string storedOwner_;
    std::string storedUser_;
};

// `mnusetpassword`: shows the window. In user mode the menu entry is not taken away, but the
// password settings are the owner's: the owner password is asked for first, and without it the
// window does not open. True when it was shown.
bool OpenSetPassword(common::Session& s);

}  // namespace tallymere::maintenance

#include "maintenance/setpassword.h"

#include "common/text.h"
#include "maintenance/enterpassword.h"
#include "maintenance/password.h"
#include "store/access.h"
#include "store/options.h"

#include <stdexcept>

namespace tallymere::maintenance {

using common::MsgButtons;
using common::MsgIcon;

const setpassword::RightBox setpassword::kBoxes[8] = {
    {"stafflevelscheck", "Change Staffing Levels", "passworduserstafflevels", &setpassword::stafflevelscheck},
    {"payrollcheck", "View Payroll Info", "passworduserpayroll", &setpassword::payrollcheck},
    {"employeeviewcheck", "View Employee Info", "passworduseremployeeview", &setpassword::employeeviewcheck},
    {"sectioncheck", "Change Sections", "passwordusersection", &setpassword::sectioncheck},
    {"schedulecheck", "Change Schedule", "passworduserschedule", &setpassword::schedulecheck},
    {"positioncheck", "Change Positions", "passworduserposition", &setpassword::positioncheck},
    {"shiftcheck", "Change Shifts", "passwordusershift", &setpassword::shiftcheck},
    {"employeecheck", "Change Employee Info", "passworduseremployee", &setpassword::employeecheck},
};

namespace {

constexpr const char* kErrorTitle = "Error setting password";

// Writes a key, inserting the row when there is none. False when a statement failed (the access
// layer has told the user).
bool storeOption(common::Session& s, const char* key, const std::string& value) {
    const auto rs = store::GetRecs(s, "select * from options where optionname = ?", {key});
    if (!rs.isOpen()) return false;
    if (rs.eof()) return store::InsertRecs(s, "insert into options (optionname,optionvalue) values(?,?)", {key, value});
    return store::UdateRecs(s, "update options set options.optionvalue=? where optionname=?", {value, key});
}

}  // namespace

setpassword::setpassword(common::Session& s) : s_(s) {
    storedOwner_ = store::GetOption(s_, "passwordowner");
    storedUser_ = store::GetOption(s_, "passworduser");
    ownerPasswordSet = !storedOwner_.empty();
    userPasswordSet = !storedUser_.empty();
    if (ownerPasswordSet)
        chooseRequirePassword();
    else
        chooseNoPassword();
    for (const auto& box : kBoxes) this->*box.ticked = common::equalsNoCase(store::GetOption(s_, box.key), "Yes");
    setEmployeeView(employeeviewcheck);
}

void setpassword::chooseNoPassword() {
    nopasswordoption = true;
    requirepasswordoption = false;
    passwordownerEnabled = passworduserEnabled = false;
    UnlockImageVisible = true;
    LockedImageVisible = false;
}

void setpassword::chooseRequirePassword() {
    nopasswordoption = false;
    requirepasswordoption = true;
    passwordownerEnabled = passworduserEnabled = true;
    UnlockImageVisible = false;
    LockedImageVisible = true;
}

void setpassword::setEmployeeView(bool ticked) {
    employeeviewcheck = ticked;
    employeecheckEnabled = ticked;
    if (!ticked) employeecheck = false;
}

void setpassword::ClearUserPasswordButton() {
    userPasswordSet = false;
    passworduser.clear();
}

bool setpassword::OK() {
    if (requirepasswordoption && common::trim(passwordowner).empty() && !ownerPasswordSet) {
        s_.ui().message(
            "If you want to specify a password, you must set the owner password. The user password is optional.",
            MsgButtons::Ok, MsgIcon::None, common::Session::kAppTitle);
        return false;
    }
    try {
        if (!storePasswords()) {
            s_.ui().message("Error in Set Password.", MsgButtons::Ok, MsgIcon::None, kErrorTitle);
            return false;
        }
    } catch (const std::runtime_error& e) {
        s_.ui().message(std::string("An error occurred while setting the password. ") + e.what(), MsgButtons::Ok,
                        MsgIcon::None, kErrorTitle);
        return false;
    }
    return true;
}

bool setpassword::storePasswords() {
    // Every hash is made before the first write, so a failure to hash leaves the rows untouched.
    const std::string owner = requirepasswordoption ? common::trim(passwordowner) : std::string();
    const std::string user = requirepasswordoption ? common::trim(passworduser) : std::string();
    std::string ownerValue;
    if (!owner.empty())
        ownerValue = hashPassword(owner);
    else if (requirepasswordoption && passwordNeedsRehash(storedOwner_))
        ownerValue = hashPassword(storedOwner_);
    std::string userValue;
    if (!user.empty())
        userValue = hashPassword(user);
    else if (userPasswordSet && passwordNeedsRehash(storedUser_))
        userValue = hashPassword(storedUser_);

    if (nopasswordoption) {
        // The user password and the rights stay for the day a password is required again; only a
        // user password still in clear text is rewritten, as its hash.
        return store::UdateRecs(s_, "update options set options.optionvalue=? where optionname='passwordowner'",
                                {""}) &&
               (userValue.empty() || storeOption(s_, "passworduser", userValue));
    }
    if (!ownerValue.empty() && !storeOption(s_, "passwordowner", ownerValue)) return false;
    if (!userValue.empty()) {
        if (!storeOption(s_, "passworduser", userValue)) return false;
    } else if (!userPasswordSet) {
        if (!store::DeleteRecs(s_, "delete from options where optionname='passworduser'")) return false;
    }
    for (const auto& box : kBoxes)
        if (!storeOption(s_, box.key, this->*box.ticked ? "Yes" : "No")) return false;
    return true;
}

bool OpenSetPassword(common::Session& s) {
    if (s.IsUserMode && !AskOwnerPassword(s)) return false;
    s.ui().showModal("setpassword");
    return true;
}

}  // namespace tallymere::maintenance

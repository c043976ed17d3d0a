#include "maintenance/enterpassword.h"

#include "maintenance/access_control.h"
#include "maintenance/password.h"
#include "store/access.h"

#include <optional>
#include <stdexcept>

namespace tallymere::maintenance {

namespace {

// The stored value of a password key; nullopt when there is no row.
std::optional<std::string> storedPassword(common::Session& s, const char* selectSql) {
    const auto rs = store::GetRecs(s, selectSql);
    if (!rs.isOpen() || rs.eof()) return std::nullopt;
    return rs["optionvalue"].text();
}

// A password still kept in clear text by an older database is replaced by its hash once it has
// been typed correctly.
void upgradeStored(common::Session& s, const std::string& stored, const char* updateSql) {
    if (!passwordNeedsRehash(stored)) return;
    try {
        store::UdateRecs(s, updateSql, {hashPassword(stored)});
    } catch (const std::runtime_error&) {
        // Not worth refusing a correct password for; the next login tries again.
    }
}

}  // namespace

bool enterpassword::OK() {
    s_.PasswordPassed = false;

    const auto owner = storedPassword(s_, "select optionvalue from options where optionname='passwordowner'");
    if (owner && passwordMatches(*owner, password)) {
        upgradeStored(s_, *owner, "update options set options.optionvalue=? where optionname='passwordowner'");
        s_.PasswordPassed = true;
        if (ownerOnly_) return true;
        s_.IsUserMode = false;
        s_.rights = {};
        return true;
    }

    // An empty user value is no user password: it must not let an empty entry into user mode.
    const auto user = ownerOnly_
                          ? std::optional<std::string>()
                          : storedPassword(s_, "select optionvalue from options where optionname='passworduser'");
    if (user && !user->empty() && passwordMatches(*user, password)) {
        upgradeStored(s_, *user, "update options set options.optionvalue=? where optionname='passworduser'");
        s_.PasswordPassed = true;
        s_.IsUserMode = true;
        // No right until its row says so.
        s_.rights = {true, true, true, true, true, true, true, true};
        ReadUserRights(s_);
        return true;
    }

    s_.ui().message("Please enter a valid password.", common::MsgButtons::Ok, common::MsgIcon::None,
                    common::Session::kAppTitle);
    return false;
}

bool AskOwnerPassword(common::Session& s) {
    // The prompt reports through PasswordPassed, which the run itself has already passed.
    const bool passedAtStart = s.PasswordPassed;
    s.PasswordPassed = false;
    s.ui().showModal(kOwnerPasswordPrompt);
    const bool owner = s.PasswordPassed;
    s.PasswordPassed = passedAtStart;
    return owner;
}

}  // namespace tallymere::maintenance

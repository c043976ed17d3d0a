#pragma once
// The password prompt of the start. The owner password opens owner mode; the user password opens
// user mode with the rights the owner has ticked. Wrong entries keep the window open, with no limit
// on attempts; cancel leaves PasswordPassed false, and the start then ends.

#include "common/session.h"

#include <string>

namespace tallymere::maintenance {

// The modal name of the same prompt when it only checks for the owner: in user mode, before the
// password settings open. Only the owner password passes there, and the run keeps its mode.
inline constexpr const char* kOwnerPasswordPrompt = "enterpassword.owner";

class enterpassword {
public:
    explicit enterpassword(common::Session& s, bool ownerOnly = false) : s_(s), ownerOnly_(ownerOnly) {}

    std::string password;  // the field's text

    // True when the window closes: the password was the owner's or the user's.
    bool OK();
    void Cancel() { s_.PasswordPassed = false; }

    bool ownerOnly() const { return ownerOnly_; }

private:
    common::Session& s_;
    bool ownerOnly_;
};

// Shows the owner-only prompt; true when the owner password was given. Nothing else of the session
// changes.
bool AskOwnerPassword(common::Session& s);

}  // namespace tallymere::maintenance

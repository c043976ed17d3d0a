#pragma once
// The password prompt of the start. The owner password opens owner mode; the user password opens
// user mode with the rights the owner has ticked. Wrong entries keep the window open, with no limit
// on attempts; cancel leaves PasswordPassed false, and the start then ends.

#include "common/session.h"

#include <string>

namespace tallymere::maintenance {

class enterpassword {
public:
    explicit enterpassword(common::Session& s) : s_(s) {}

    std::string password;  // the field's text

    // True when the window closes: the password was the owner's or the user's.
    bool OK();
    void Cancel() { s_.PasswordPassed = false; }

private:
    common::Session& s_;
};

}  // namespace tallymere::maintenance

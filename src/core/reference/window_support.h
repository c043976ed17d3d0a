#pragma once
// What the reference windows share: their plain messages and the trap that turns an unexpected
// failure into the window's own words.

#include "common/session.h"

#include <exception>
#include <string_view>

namespace tallymere::reference::detail {

inline void say(common::Session& s, std::string_view text, common::MsgIcon icon = common::MsgIcon::Exclamation) {
    s.ui().inform(text, icon);
}

// Runs `op` (which returns whether the window closes). A failure the access layer did not already
// report is told in `failure` and leaves the window open; the end of the program passes through.
template <class Op>
bool trapped(common::Session& s, std::string_view failure, Op&& op) {
    try {
        return op();
    } catch (const common::ProgramEnd&) {
        throw;
    } catch (const std::exception&) {
        say(s, failure, common::MsgIcon::Critical);
        return false;
    }
}

}  // namespace tallymere::reference::detail

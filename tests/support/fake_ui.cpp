#include "support/fake_ui.h"

#include <algorithm>

namespace tallymere::testing {

MsgAnswer FakeUi::message(std::string_view text, MsgButtons buttons, MsgIcon icon, std::string_view title) {
    messages.push_back({std::string(text), buttons, icon, std::string(title)});
    if (!answers_.empty()) {
        const MsgAnswer a = answers_.front();
        answers_.pop_front();
        return a;
    }
    switch (buttons) {
    case MsgButtons::YesNo:
    case MsgButtons::YesNoCancel: return MsgAnswer::Yes;
    case MsgButtons::RetryCancel: return MsgAnswer::Retry;
    case MsgButtons::AbortRetryIgnore: return MsgAnswer::Ignore;
    default: return MsgAnswer::Ok;
    }
}

void FakeUi::showModal(std::string_view windowName) {
    modals.emplace_back(windowName);
    const auto it = modalActions_.find(std::string(windowName));
    if (it != modalActions_.end()) it->second();
}

std::optional<std::string> FakeUi::chooseFolder(std::string_view, std::string_view) {
    if (folders_.empty()) return std::nullopt;
    auto f = folders_.front();
    folders_.pop_front();
    return f;
}

std::optional<std::string> FakeUi::chooseOpenFile(std::string_view, std::string_view,
                                                  const std::vector<common::FileFilter>&) {
    if (files_.empty()) return std::nullopt;
    auto f = files_.front();
    files_.pop_front();
    return f;
}

std::optional<std::string> FakeUi::chooseSaveFile(std::string_view t, std::string_view s,
                                                  const std::vector<common::FileFilter>& f, bool confirmOverwrite) {
    lastSaveConfirmsOverwrite = confirmOverwrite;
    return chooseOpenFile(t, s, f);
}

std::vector<std::string> FakeUi::texts() const {
    std::vector<std::string> r;
    for (const auto& m : messages) r.push_back(m.text);
    return r;
}

bool FakeUi::shown(const std::string& text) const {
    return std::any_of(messages.begin(), messages.end(), [&](const ShownMessage& m) { return m.text == text; });
}

}  // namespace tallymere::testing

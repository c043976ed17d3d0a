#pragma once
// A Ui that records every message and answers from a script, so a test can say: expect this text,
// answer No.

#include "common/ui.h"

#include <deque>
#include <functional>
#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace tallymere::testing {

using common::MsgAnswer;
using common::MsgButtons;
using common::MsgIcon;

struct ShownMessage {
    std::string text;
    MsgButtons buttons;
    MsgIcon icon;
    std::string title;

    bool operator==(const ShownMessage&) const = default;
    friend void PrintTo(const ShownMessage& m, std::ostream* os) {
        *os << "{\"" << m.text << "\", buttons " << static_cast<int>(m.buttons) << ", icon " << static_cast<int>(m.icon)
            << ", \"" << m.title << "\"}";
    }
};
using Messages = std::vector<ShownMessage>;

class FakeUi : public common::Ui {
public:
    common::MsgAnswer message(std::string_view text, MsgButtons buttons, MsgIcon icon, std::string_view title) override;
    void showModal(std::string_view windowName) override;
    std::optional<std::string> chooseFolder(std::string_view, std::string_view) override;
    std::optional<std::string> chooseOpenFile(std::string_view, std::string_view,
                                              const std::vector<common::FileFilter>&) override;
    std::optional<std::string> chooseSaveFile(std::string_view, std::string_view,
                                              const std::vector<common::FileFilter>&, bool confirmOverwrite) override;
    // What the last save chooser was told about asking before overwriting.
    bool lastSaveConfirmsOverwrite = true;
    void setBusy(bool busy) override { busy_ = busy; }
    void processEvents() override { ++turns; }
    void beep() override { ++beeps; }
    void playSound(std::string_view path) override { sounds.emplace_back(path); }

    // Answers given to the next messages, in order; when the script runs out, Ok/Yes is answered.
    void answer(MsgAnswer a) { answers_.push_back(a); }
    // What a modal window does when it is shown (it may change the session).
    void onModal(const std::string& windowName, std::function<void()> action) {
        modalActions_[windowName] = std::move(action);
    }
    void nextFolder(std::optional<std::string> f) { folders_.push_back(std::move(f)); }
    void nextFile(std::optional<std::string> f) { files_.push_back(std::move(f)); }

    bool busy() const { return busy_; }
    // The texts of all messages so far.
    std::vector<std::string> texts() const;
    // True when a message with exactly this text was shown.
    bool shown(const std::string& text) const;
    void clear() { messages.clear(); }

    std::vector<ShownMessage> messages;
    std::vector<std::string> modals;
    std::vector<std::string> sounds;
    int beeps = 0;
    int turns = 0;

private:
    std::deque<MsgAnswer> answers_;
    std::map<std::string, std::function<void()>> modalActions_;
    std::deque<std::optional<std::string>> folders_;
    std::deque<std::optional<std::string>> files_;
    bool busy_ = false;
};

}  // namespace tallymere::testing

#pragma once
// What the logic needs from the user interface. The app implements it with Qt; tests use a scripted
// fake that records every message and answers from a script.

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tallymere::common {

enum class MsgIcon { None, Critical, Question, Exclamation, Information };
enum class MsgButtons { Ok, OkCancel, YesNo, YesNoCancel, RetryCancel, AbortRetryIgnore };
enum class MsgAnswer { Ok, Cancel, Yes, No, Retry, Abort, Ignore };

struct FileFilter {
    std::string description;  // "Tallymere database"
    std::string pattern;      // "*.db"
};

class Ui {
public:
    virtual ~Ui() = default;

    // A message box. `title` empty means the application title.
    virtual MsgAnswer message(std::string_view text, MsgButtons buttons, MsgIcon icon, std::string_view title) = 0;

    // Opens a modal window by its window name ("enterpassword", "SetDataLocationStart", "backup", ...)
    // and returns when it is closed.
    virtual void showModal(std::string_view windowName) = 0;

    virtual std::optional<std::string> chooseFolder(std::string_view title, std::string_view startFolder) = 0;
    virtual std::optional<std::string> chooseOpenFile(std::string_view title, std::string_view startFolder,
                                                      const std::vector<FileFilter>& filters) = 0;
    // `confirmOverwrite` false: the caller asks about an existing file itself, so the chooser must not.
    virtual std::optional<std::string> chooseSaveFile(std::string_view title, std::string_view suggestedPath,
                                                      const std::vector<FileFilter>& filters,
                                                      bool confirmOverwrite = true) = 0;

    // The hourglass on (true) and the mouse pointer back to default (false).
    virtual void setBusy(bool busy) = 0;
    // Gives the user interface a turn inside a long loop.
    virtual void processEvents() = 0;
    virtual void beep() = 0;
    virtual void playSound(std::string_view path) = 0;

    // Shorthands for the common forms.
    void inform(std::string_view text, MsgIcon icon = MsgIcon::None, std::string_view title = {}) {
        message(text, MsgButtons::Ok, icon, title);
    }
    bool askYesNo(std::string_view text, MsgIcon icon = MsgIcon::Question, std::string_view title = {}) {
        return message(text, MsgButtons::YesNo, icon, title) == MsgAnswer::Yes;
    }
};

}  // namespace tallymere::common

#pragma once
// The logic's user interface on a terminal: every message goes to the error stream, one line per
// line of its text; a question takes the answer the command line gave (--yes or --no) and without
// one ends the run with status 2. There are no windows: a modal window, or a file chooser that has
// no file ready, ends the run with status 2 too.

#include "common/ui.h"

#include <optional>
#include <ostream>
#include <string>

namespace tallymere::cli {

enum class Answer { None, Yes, No };

class ConsoleUi final : public common::Ui {
public:
    ConsoleUi(std::ostream& err, Answer answer) : err_(err), answer_(answer) {}

    common::MsgAnswer message(std::string_view text, common::MsgButtons buttons, common::MsgIcon icon,
                              std::string_view title) override;
    void showModal(std::string_view windowName) override;
    std::optional<std::string> chooseFolder(std::string_view title, std::string_view startFolder) override;
    std::optional<std::string> chooseOpenFile(std::string_view title, std::string_view startFolder,
                                              const std::vector<common::FileFilter>& filters) override;
    std::optional<std::string> chooseSaveFile(std::string_view title, std::string_view suggestedPath,
                                              const std::vector<common::FileFilter>& filters,
                                              bool confirmOverwrite) override;
    void setBusy(bool) override {}
    void processEvents() override {}
    void beep() override {}
    void playSound(std::string_view) override {}

    // The file a chooser hands back, given on the command line (--out); `option` names it in the
    // message when a chooser asks without one.
    void setChosenFile(std::optional<std::string> path, std::string option);

    // Messages printed so far, questions included.
    int messagesShown() const { return shown_; }

private:
    void print(std::string_view text);
    std::optional<std::string> chosen(std::string_view title);

    std::ostream& err_;
    Answer answer_;
    std::optional<std::string> chosenFile_;
    std::string fileOption_;
    int shown_ = 0;
};

}  // namespace tallymere::cli

#include "cli/console_ui.h"

#include "cli/stop.h"

namespace tallymere::cli {

using common::MsgAnswer;
using common::MsgButtons;

namespace {

// The answer that --yes or --no stands for among the buttons a question offers.
MsgAnswer answerFor(MsgButtons buttons, bool yes) {
    switch (buttons) {
    case MsgButtons::OkCancel: return yes ? MsgAnswer::Ok : MsgAnswer::Cancel;
    case MsgButtons::RetryCancel: return yes ? MsgAnswer::Retry : MsgAnswer::Cancel;
    case MsgButtons::AbortRetryIgnore: return yes ? MsgAnswer::Ignore : MsgAnswer::Abort;
    case MsgButtons::YesNo:
    case MsgButtons::YesNoCancel:
    case MsgButtons::Ok: break;
    }
    return yes ? MsgAnswer::Yes : MsgAnswer::No;
}

const char* nameOf(MsgAnswer a) {
    switch (a) {
    case MsgAnswer::Ok: return "OK";
    case MsgAnswer::Cancel: return "Cancel";
    case MsgAnswer::Yes: return "Yes";
    case MsgAnswer::No: return "No";
    case MsgAnswer::Retry: return "Retry";
    case MsgAnswer::Abort: return "Abort";
    case MsgAnswer::Ignore: return "Ignore";
    }
    return "";
}

}  // namespace

void ConsoleUi::print(std::string_view text) {
    ++shown_;
    // CR LF, a lone CR and a lone LF each end a line; the blank lines a message holds are kept.
    std::size_t start = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\r' && text[i] != '\n') continue;
        err_ << text.substr(start, i - start) << '\n';
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
        start = i + 1;
    }
    if (start < text.size() || text.empty()) err_ << text.substr(start) << '\n';
    err_.flush();
}

MsgAnswer ConsoleUi::message(std::string_view text, MsgButtons buttons, common::MsgIcon, std::string_view) {
    print(text);
    if (buttons == MsgButtons::Ok) return MsgAnswer::Ok;
    if (answer_ == Answer::None) {
        err_ << "(This question needs an answer: run the command again with --yes or --no.)\n";
        err_.flush();
        throw Stop(kBadUsage, "");
    }
    const MsgAnswer a = answerFor(buttons, answer_ == Answer::Yes);
    err_ << "> " << nameOf(a) << '\n';
    err_.flush();
    return a;
}

void ConsoleUi::showModal(std::string_view windowName) {
    throw usage("This needs the window " + std::string(windowName) + ", which the command line cannot show.");
}

std::optional<std::string> ConsoleUi::chosen(std::string_view title) {
    if (chosenFile_) return chosenFile_;
    const std::string what = title.empty() ? std::string("a file") : "a file (" + std::string(title) + ")";
    throw usage("This asks for " + what + ": give it with " + (fileOption_.empty() ? "an option" : fileOption_) + ".");
}

std::optional<std::string> ConsoleUi::chooseFolder(std::string_view title, std::string_view) { return chosen(title); }

std::optional<std::string> ConsoleUi::chooseOpenFile(std::string_view title, std::string_view,
                                                     const std::vector<common::FileFilter>&) {
    return chosen(title);
}

std::optional<std::string> ConsoleUi::chooseSaveFile(std::string_view title, std::string_view,
                                                     const std::vector<common::FileFilter>&, bool) {
    return chosen(title);
}

void ConsoleUi::setChosenFile(std::optional<std::string> path, std::string option) {
    chosenFile_ = std::move(path);
    fileOption_ = std::move(option);
}

}  // namespace tallymere::cli

#pragma once
// How a run of the command line ends before its command is done: the exit status and what to say.

#include <string>

namespace tallymere::cli {

// Exit statuses, the same for every command.
enum Status : int {
    kDone = 0,
    kRefused = 1,     // the operation refused or failed; its message has been printed
    kBadUsage = 2,    // bad usage, or a question nobody answered
    kCannotOpen = 3,  // the database could not be opened
};

// Not a std::exception on purpose: the logic catches those to tell the user of a fault and go on,
// while a stop (a question nobody may answer, a window that cannot be shown) must end the run.
class Stop {
public:
    // `message` empty: everything has been said already.
    Stop(int status, std::string message) : status_(status), message_(std::move(message)) {}
    int status() const { return status_; }
    const std::string& message() const { return message_; }

private:
    int status_;
    std::string message_;
};

// Bad usage: the message says what to write instead.
inline Stop usage(const std::string& message) { return Stop(kBadUsage, message); }

}  // namespace tallymere::cli

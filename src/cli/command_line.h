#pragma once
// The words of a command line: the options every command takes, the command, and its own options,
// each checked for its form before anything is opened, so that bad usage changes nothing.

#include "cli/console_ui.h"
#include "cli/setting_overrides.h"
#include "common/csv.h"
#include "common/date_time.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tallymere::cli {

class Run;

// What an option's value must look like. A choice is matched without regard to case and kept in the
// spelling of the list.
enum class ValueKind { None, Text, Date, WholeNumber, Choice };

struct OptionSpec {
    OptionSpec(std::string name, ValueKind kind, std::string help, bool required = false)
        : name(std::move(name)), kind(kind), help(std::move(help)), required(required) {}

    std::string name;  // "--date"
    ValueKind kind = ValueKind::None;
    std::string help;
    bool required = false;
    std::vector<std::string> choices;  // for a Choice; the first is the default shown in help
    std::string placeholder;           // as help shows the value; worked out from the kind when empty

    std::string valueName() const;
};

struct Command {
    std::string name;     // "autofill", or two words for a command with a subcommand: "default save"
    std::string summary;  // one line for `help`
    std::vector<OptionSpec> options;
    std::string details;  // more lines for `help <command>`; may be empty
    // The command on an open database: a Status.
    std::function<int(Run&)> run;
};

// A command's options as given, each already in its kind's form.
class Options {
public:
    bool has(std::string_view name) const { return values_.count(std::string(name)) > 0; }
    // The text given; empty when the option was not given.
    std::string text(std::string_view name) const;
    std::optional<common::Date> date(std::string_view name) const;
    std::optional<long> number(std::string_view name) const;

    void set(const std::string& name, std::string value) { values_[name] = std::move(value); }

private:
    std::map<std::string, std::string> values_;
};

struct GlobalOptions {
    std::optional<std::string> db;
    Answer answer = Answer::None;
    common::Delimited format = common::Delimited::Csv;
    std::vector<SettingOverride> settings;
    std::optional<std::string> password;
};

struct CommandLine {
    GlobalOptions global;
    const Command* command = nullptr;  // null when help was asked for
    std::string helpTopic;             // `help <topic>`; empty for the list of commands
    Options options;
};

// Throws a usage Stop with a message that says what is wrong and what to write.
CommandLine parseCommandLine(const std::vector<std::string>& args, const std::vector<Command>& commands);

// A date as the command line takes it: YYYY-MM-DD, a real day.
std::optional<common::Date> parseDateArgument(std::string_view text);

// `help` and `help <command>`; throws a usage Stop for a topic that is no command.
std::string helpText(const std::vector<Command>& commands, std::string_view topic);

}  // namespace tallymere::cli

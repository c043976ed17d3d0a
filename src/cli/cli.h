#pragma once
// tallymere-cli: one command of the program on a schedule database, driven through the same window
// models as the app, with a console in place of the windows. Parsing, opening the file, the password
// and the settings happen here; each command lives with the subsystem it drives.

#include "cli/command_line.h"
#include "cli/console_ui.h"
#include "common/clock.h"
#include "common/csv.h"
#include "common/platform.h"
#include "common/session.h"
#include "common/user_settings.h"

#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace tallymere::cli {

// What the machine gives a run: main builds it from Qt and the system, tests from fakes.
struct Environment {
    common::UserSettings& userSettings;
    common::Platform& platform;
    const common::Clock& clock;
    common::FormatLocale locale;
    std::string programFolder;
    std::optional<std::string> password;  // TALLYMERE_PASSWORD
};

// A command at work: the open session, its console, its options and where lists go.
class Run {
public:
    Run(common::Session& s, ConsoleUi& ui, std::ostream& out, common::Delimited format, const Options& options)
        : s(s), ui(ui), out(out), format(format), options(options) {}

    common::Session& s;
    ConsoleUi& ui;
    std::ostream& out;
    common::Delimited format;
    const Options& options;

    common::CsvWriter list() { return common::CsvWriter(out, format); }
    // The date of a required date option (checked when the line was read).
    common::Date date(std::string_view option) const { return *options.date(option); }
};

// Every command this build has, in the order `help` lists them.
std::vector<Command> allCommands();

// The whole run; the exit status.
int run(const std::vector<std::string>& args, std::ostream& out, std::ostream& err, Environment& env);
int run(const std::vector<std::string>& args, std::ostream& out, std::ostream& err, Environment& env,
        const std::vector<Command>& commands);

}  // namespace tallymere::cli

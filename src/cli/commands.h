#pragma once
// The commands, one group per subsystem, and what they share: the date and schedule file a command
// works on when the line names none, as the program's windows would have them.

#include "cli/cli.h"
#include "cli/command_line.h"

#include <string>
#include <vector>

namespace tallymere::cli {

void addAutoschedCommands(std::vector<Command>& commands);
void addScheduleCommands(std::vector<Command>& commands);
void addExportCommands(std::vector<Command>& commands);
void addStaffingCommands(std::vector<Command>& commands);
void addPayrollCommands(std::vector<Command>& commands);

// Options most commands take.
OptionSpec dateOption(std::string name, std::string help, bool required = false);
OptionSpec scheduleOption(std::string name = "--schedule", std::string what = "the schedule file");

// The date of `option`, or today as the program starts with it.
common::Date dateOr(Run& r, std::string_view option);
// The schedule file of `option`, or the one the program last had open.
std::string scheduleOr(Run& r, std::string_view option = "--schedule");

inline int statusOf(bool done) { return done ? 0 : 1; }

}  // namespace tallymere::cli

#include "cli/commands.h"

#include "store/options.h"

namespace tallymere::cli {

std::vector<Command> allCommands() {
    std::vector<Command> commands;
    addAutoschedCommands(commands);
    addScheduleCommands(commands);
    addExportCommands(commands);
    addStaffingCommands(commands);
    addPayrollCommands(commands);
    return commands;
}

OptionSpec dateOption(std::string name, std::string help, bool required) {
    return OptionSpec(std::move(name), ValueKind::Date, std::move(help), required);
}

OptionSpec scheduleOption(std::string name, std::string what) {
    OptionSpec o(std::move(name), ValueKind::Text, what + "; without it, the one Tallymere had open last");
    o.placeholder = "NAME";
    return o;
}

common::Date dateOr(Run& r, std::string_view option) {
    if (const auto d = r.options.date(option)) return *d;
    return r.s.clock().today();
}

std::string scheduleOr(Run& r, std::string_view option) {
    if (r.options.has(option)) return r.options.text(option);
    return store::GetOption(r.s, "currentschedule");
}

}  // namespace tallymere::cli

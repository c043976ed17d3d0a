// export: the `ExportData` window's text file of schedule entries for other programs.

#include "cli/commands.h"
#include "maintenance/data_export.h"

namespace tallymere::cli {

void addExportCommands(std::vector<Command>& commands) {
    OptionSpec sort{"--sort", ValueKind::Choice, "the order of the lines; without it, start time"};
    sort.choices.assign(maintenance::kExportSorts.begin(), maintenance::kExportSorts.end());
    OptionSpec employee{"--employee", ValueKind::WholeNumber, "only this employee's entries (personid)"};
    employee.placeholder = "ID";
    OptionSpec out{"--out", ValueKind::Text, "the file to write; an existing one is replaced", true};
    out.placeholder = "FILE";
    commands.push_back({"export",
                        "write the entries of a date range to a comma-separated text file (Export Data)",
                        {dateOption("--from", "the first day; without it, today"),
                         dateOption("--to", "the last day; without it, today"), scheduleOption(), employee, sort, out},
                        std::string("The file has the line \"") + maintenance::kExportHeader +
                            "\" and then one line per entry of an employee; **Unassigned** entries are left out.",
                        [](Run& r) {
                            const auto personid = r.options.number("--employee");
                            return statusOf(maintenance::ExportScheduleData(
                                r.s, dateOr(r, "--from"), dateOr(r, "--to"), scheduleOr(r), personid,
                                r.options.text("--sort").empty() ? "start time" : r.options.text("--sort"),
                                r.options.text("--out")));
                        }});
}

}  // namespace tallymere::cli

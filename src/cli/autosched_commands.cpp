// autofill and rebuild: the automatic scheduler's two windows, on a date, a schedule file and Day or
// Week, with the file's scheduler settings (each may be changed for the run with --set).

#include "autosched/headless.h"
#include "cli/commands.h"
#include "common/text.h"
#include "schedule/bulk_change.h"

#include <cstdio>

namespace tallymere::cli {

namespace {

using autosched::FillMode;

constexpr const char* kSettingsHelp =
    "The scheduler's settings come from the file; each may be changed for this run with --set: "
    "gb_AutoDesiredShiftsFirst, gb_AutoEnforceWeeklyHrs, gb_AutoAllowDblShifts, gb_RestrictOvertime, gb_NoOvertime, "
    "gb_CheckConflictAllSchedules (Yes or No) and gi_OvertimeThreshold (hours).";

std::vector<OptionSpec> fillOptions(const char* modeSetting) {
    OptionSpec mode{"--mode", ValueKind::Choice,
                    std::string("fill the day of --date, or its whole week; without it, as ") + modeSetting + " says"};
    mode.choices = {"Day", "Week"};
    return {dateOption("--date", "the day, or a day of the week, to fill; without it, today"),
            scheduleOption(),
            mode,
            {"--explain", ValueKind::None,
             "list, for each entry, who got it in which phase and the first rule that stopped each other candidate"}};
}

// The mode given, or the window's own default: "Day" selects the day, anything else the week.
FillMode modeOf(Run& r, const std::string& setting) {
    const std::string mode = r.options.has("--mode") ? r.options.text("--mode") : setting;
    return mode == "Day" ? FillMode::Day : FillMode::Week;
}

std::string clockText(const std::optional<common::DateTime>& t) {
    if (!t) return {};
    char buf[8];
    std::snprintf(buf, sizeof buf, "%02d:%02d", t->hour(), t->minute());
    return buf;
}

void writeExplanation(Run& r, const std::vector<autosched::ExplainRow>& rows) {
    common::CsvWriter csv = r.list();
    csv.row({"entry", "date", "start", "end", "shift", "position", "assigned", "phase", "candidate", "reason"});
    for (const autosched::ExplainRow& row : rows)
        csv.row({std::to_string(row.schedid), row.day ? row.day->toIso() : std::string(), clockText(row.start),
                 clockText(row.end), row.shift, row.position, row.assigned,
                 std::string(autosched::phaseText(row.phase)), row.candidate,
                 row.candidateId == 0 ? "no candidate" : std::string(autosched::reasonText(row.reason))});
}

int fill(Run& r, bool rebuild) {
    const std::string schedule = scheduleOr(r);
    if (!schedule::requireScheduleFile(r.s, schedule)) return 1;
    const common::Date day = dateOr(r, "--date");
    const autosched::HeadlessResult result =
        rebuild ? autosched::runRebuild(r.s, day, schedule, modeOf(r, r.s.settings.gs_AutoRebuildDayWeek))
                : autosched::runAutoFill(r.s, day, schedule, modeOf(r, r.s.settings.gs_AutoFillDayWeek));
    if (r.options.has("--explain")) writeExplanation(r, result.explanation);
    // No run (the question was answered No), or a run that ended in a failure it has told of.
    return statusOf(result.ran && !result.message.empty());
}

}  // namespace

void addAutoschedCommands(std::vector<Command>& commands) {
    commands.push_back(
        {"autofill", "fill the **Unassigned** entries of a day or a week with employees (Automatic Scheduler)",
         fillOptions("gs_AutoFillDayWeek"),
         std::string("Prints the scheduler's finishing message. The run is undoable in Tallymere.\n") + kSettingsHelp,
         [](Run& r) { return fill(r, false); }});
    commands.push_back(
        {"rebuild", "empty every entry of a day or a week and fill them all again (Rebuild Schedule)",
         fillOptions("gs_AutoRebuildDayWeek"),
         std::string("Asks first whether to go on: answer with --yes. The employees the entries held are gone once "
                     "it runs.\n") +
             kSettingsHelp,
         [](Run& r) { return fill(r, true); }});
}

}  // namespace tallymere::cli

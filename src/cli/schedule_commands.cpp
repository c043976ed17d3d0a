// default save, default apply and copy: the default schedule's two menu commands with its
// `DefaultSave` window, and the `CopyNew` window.

#include "cli/commands.h"
#include "cli/stop.h"
#include "schedule/copy_schedule.h"
#include "schedule/default_schedule.h"

namespace tallymere::cli {

namespace {

int defaultSave(Run& r) {
    r.s.activeDate = dateOr(r, "--date");
    r.s.currentSchedule = scheduleOr(r);
    const bool days = r.options.has("--days"), weeks = r.options.has("--weeks");
    if (days && weeks) throw usage("default save takes --days or --weeks, not both.");
    if (!days && !weeks) {
        // The menu command asks for the length in its window when the file has none.
        if (r.s.settings.gi_defaultschedlength < 1)
            throw usage("The default schedule's length is not set in this file: give it with --days N or --weeks N.");
        return statusOf(schedule::SaveDefaultSchedule(r.s, r.s.activeDate, r.s.currentSchedule));
    }
    // The window that asks for the length; it keeps the length in the file once it has saved.
    schedule::DefaultSave window(r.s);
    if (days) {
        window.dayoption_Click();
        window.TxtDays = r.options.text("--days");
    } else {
        window.weekoption_Click();
        window.TxtWeeks = r.options.text("--weeks");
    }
    window.UpdateLabels();
    return statusOf(window.Save_Click());
}

int defaultApply(Run& r) { return statusOf(schedule::GetDefaultSchedule(r.s, dateOr(r, "--date"), scheduleOr(r))); }

int copy(Run& r) {
    schedule::CopyChoices c;
    c.fromSchedule = scheduleOr(r, "--from-schedule");
    c.toSchedule = scheduleOr(r, "--to-schedule");
    const std::string mode = r.options.has("--mode") ? r.options.text("--mode") : "Day";
    c.mode = mode == "Week"    ? schedule::CopyMode::Week
             : mode == "Range" ? schedule::CopyMode::Range
                               : schedule::CopyMode::Day;
    if (c.mode != schedule::CopyMode::Range && (r.options.has("--from-last") || r.options.has("--to-last")))
        throw usage("--from-last and --to-last go with --mode Range.");
    c.fromFirst = dateOr(r, "--from");
    c.fromLast = r.options.date("--from-last");
    c.toFirst = r.date("--to");
    c.toLast = r.options.date("--to-last");
    if (r.options.has("--check-conflicts")) c.checkConflicts = r.options.text("--check-conflicts") == "Yes";
    return statusOf(schedule::CopySchedule(r.s, c));
}

}  // namespace

void addScheduleCommands(std::vector<Command>& commands) {
    OptionSpec daysOption{"--days", ValueKind::WholeNumber,
                          "the default schedule's length in days; kept in the file as gi_defaultschedlength"};
    OptionSpec weeksOption{"--weeks", ValueKind::WholeNumber, "the length in weeks, instead of --days"};
    commands.push_back(
        {"default save",
         "save the days from the first day of the week of --date as the default schedule",
         {dateOption("--date", "a day of the week to save from; without it, today"), scheduleOption(), daysOption,
          weeksOption},
         "Without --days or --weeks the length is the file's gi_defaultschedlength. Asks first whether to go on: "
         "answer with --yes.",
         defaultSave});
    commands.push_back({"default apply",
                        "lay the default schedule over the week of --date, replacing its entries",
                        {dateOption("--date", "a day of the week to lay it on; without it, today"), scheduleOption()},
                        "Asks first whether to go on: answer with --yes. Undoable in Tallymere.",
                        defaultApply});

    OptionSpec mode{"--mode", ValueKind::Choice,
                    "copy one day, a week (from firstdayofweek) or a range of up to 28 days"};
    mode.choices = {"Day", "Week", "Range"};
    OptionSpec conflicts{"--check-conflicts", ValueKind::Choice,
                         "ask about employees who are not available or on leave; without it, as "
                         "gb_CheckConflictsDuringCopy says"};
    conflicts.choices = {"Yes", "No"};
    commands.push_back(
        {"copy",
         "copy the entries of a day, a week or a range onto other days, in the same or another schedule file",
         {scheduleOption("--from-schedule", "the schedule file to copy from"),
          scheduleOption("--to-schedule", "the schedule file to copy onto"), mode,
          dateOption("--from", "the (first) day to copy; without it, today"),
          dateOption("--from-last", "with --mode Range: the last day to copy; without it, --from"),
          dateOption("--to", "the (first) day to copy onto", true),
          dateOption("--to-last", "with --mode Range: the last day to copy onto; without it, as many days as copied")},
         "The target days are emptied first. Asks first whether to go on, and about each conflict when conflicts "
         "are checked: --yes answers Yes to all, --no No (which skips that entry). Undoable in Tallymere.",
         copy});
    commands.back().options.push_back(conflicts);
}

}  // namespace tallymere::cli

// conflicts, repair, available and staffing analyze: the conflict finder, the repair of end times,
// the search for available employees and the staffing analysis, their lists written as CSV.

#include "cli/commands.h"
#include "cli/stop.h"
#include "staffing/analyze_levels.h"
#include "staffing/check_conflicts.h"
#include "staffing/report_available.h"

namespace tallymere::cli {

namespace {

void writeGrid(Run& r, const reports::ListGrid& grid) { staffing::writeList(r.out, grid, r.format); }

// HH:MM on the 24-hour clock, in the window's three fields.
reference::TimeEntry timeFields(const std::string& option, const std::string& text) {
    const auto colon = text.find(':');
    auto digits = [](const std::string& t) {
        return !t.empty() && t.size() <= 2 && t.find_first_not_of("0123456789") == std::string::npos;
    };
    const std::string h = colon == std::string::npos ? text : text.substr(0, colon);
    const std::string m = colon == std::string::npos ? "" : text.substr(colon + 1);
    if (!digits(h) || !digits(m) || std::stoi(h) > 23 || std::stoi(m) > 59)
        throw usage(option + " " + text + ": give a time as HH:MM, hours 0 to 23 and minutes 0 to 59.");
    const int hour = std::stoi(h);
    const int hour12 = hour % 12 == 0 ? 12 : hour % 12;
    return reference::TimeEntry(std::to_string(hour12), m, hour < 12 ? "AM" : "PM");
}

std::pair<common::Date, common::Date> range(Run& r) {
    const common::Date from = r.date("--from"), to = r.date("--to");
    if (from > to) throw usage("--from must not be later than --to.");
    return {from, to};
}

int conflicts(Run& r) {
    r.s.currentSchedule = scheduleOr(r);
    if (r.options.has("--all-schedules")) r.s.settings.gb_CheckConflictAllSchedules = true;
    const auto [from, to] = range(r);
    r.s.activeDate = from;
    staffing::CheckConflicts w(r.s);  // its load looks at the day of --from, as the window does
    if (from != to) {
        w.startdate = from;
        w.enddate = to;
        w.rangeoption = true;
        w.dayoption = w.weekoption = false;
        if (!w.RefreshButton_Click()) return kRefused;
    }
    writeGrid(r, w.listGrid());
    return kDone;
}

int repair(Run& r) {
    const auto [from, to] = range(r);
    staffing::RepairEndtimes w(r.s);
    w.fromDay = from;
    w.toDay = to;
    w.load();
    if (!w.Grid1.empty() &&
        !r.s.ui().askYesNo(std::to_string(w.Grid1.size()) + " schedule entries end before they start. Move their "
                                                            "ends to the next day?"))
        return kRefused;
    const std::size_t n = w.Grid1.size();
    if (!w.Repair_Click()) return n == 0 ? kDone : kRefused;
    r.s.ui().inform(std::to_string(n) + " schedule entries repaired.");
    return kDone;
}

int available(Run& r) {
    r.s.currentSchedule = scheduleOr(r);
    const common::Date day = dateOr(r, "--date");
    r.s.activeDate = day;
    staffing::ReportAvailable w(r.s);
    w.startTime = timeFields("--from", r.options.text("--from"));
    w.endTime = timeFields("--to", r.options.text("--to"));
    if (!w.refreshbutton_Click()) return kRefused;
    writeGrid(r, w.listGrid());
    return kDone;
}

int analyze(Run& r) {
    r.s.currentSchedule = scheduleOr(r);
    const auto [from, to] = range(r);
    if (to > from.addYears(1)) throw usage("staffing analyze covers a year at most: narrow --from and --to.");
    r.s.activeDate = from;
    staffing::analyzelevels w(r.s);
    if (r.options.has("--shift") && !w.shiftcombo.select(r.options.text("--shift")))
        throw usage("--shift " + r.options.text("--shift") + ": no such shift.");
    if (r.options.has("--position") && !w.positioncombo.select(r.options.text("--position")))
        throw usage("--position " + r.options.text("--position") + ": no such position.");
    common::CsvWriter csv = r.list();
    bool header = false;
    for (common::Date d = from; d <= to; d = d.addDays(1)) {
        w.analyzeday = d;
        if (!w.analyzebutton_Click()) return kRefused;
        const reports::ListGrid grid = w.listGrid();
        if (!header) {
            std::vector<std::string> captions{"Day"};
            for (const auto& c : grid.columns) captions.push_back(c.caption);
            csv.row(captions);
            header = true;
        }
        for (auto row : grid.rows) {
            row.insert(row.begin(), d.toIso());
            csv.row(row);
        }
    }
    return kDone;
}

}  // namespace

void addStaffingCommands(std::vector<Command>& commands) {
    auto fromTo = [] {
        return std::vector<OptionSpec>{dateOption("--from", "the first day", true),
                                       dateOption("--to", "the last day", true)};
    };
    auto conflictOptions = fromTo();
    conflictOptions.push_back(scheduleOption());
    conflictOptions.push_back({"--all-schedules", ValueKind::None,
                               "look at the entries of every schedule file (gb_CheckConflictAllSchedules)"});
    commands.push_back({"conflicts",
                        "list the entries that break leave, availability or overlap (Find Schedule Conflicts)",
                        conflictOptions, "A range longer than a year is refused.", conflicts});
    commands.push_back({"repair",
                        "move the end of entries that end before they start to the next day (Repair Schedule Entries)",
                        fromTo(), "Asks first whether to go on: answer with --yes.", repair});

    OptionSpec start{"--from", ValueKind::Text, "the start time, HH:MM on the 24-hour clock", true};
    start.placeholder = "HH:MM";
    OptionSpec end{"--to", ValueKind::Text, "the end time; before the start it falls on the next day", true};
    end.placeholder = "HH:MM";
    commands.push_back({"available",
                        "list every active employee as available or not for a time on a day (Find Available Employees)",
                        {dateOption("--date", "the day; without it, today"), start, end, scheduleOption()},
                        "Availability and leave are those of --date, which the window takes as its active date.",
                        available});

    auto analyzeOptions = fromTo();
    analyzeOptions.push_back(scheduleOption());
    OptionSpec shift{"--shift", ValueKind::Text, "one shift only; without it, all"};
    shift.placeholder = "NAME";
    OptionSpec position{"--position", ValueKind::Text, "one position only; without it, all"};
    position.placeholder = "TITLE";
    analyzeOptions.push_back(shift);
    analyzeOptions.push_back(position);
    commands.push_back(
        {"staffing analyze",
         "compare the head count scheduled with the staffing levels, day by day (Analyze Staffing Levels)",
         analyzeOptions, "One row per day, shift and position; a year at most.", analyze});
}

}  // namespace tallymere::cli

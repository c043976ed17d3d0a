#include "autosched/fill_window.h"

#include "autosched/memory_facts.h"
#include "autosched/sql_facts.h"
#include "common/display_format.h"

#include <memory>

namespace tallymere::autosched {

using common::MsgButtons;
using common::MsgIcon;

namespace {
constexpr const char* kDateFormat = "ddd mmm dd, YYYY";
}

AutoFillWindow::AutoFillWindow(common::Session& s, std::string common::GlobalSettings::*modeSetting)
    : s_(s), mode_(modeSetting) {
    AutoPBar.Value = 0;
    weekstart = common::weekStart(s_.activeDate, s_.settings.firstdayofweek);
    weekend = weekstart.addDays(6);
    DayOptionLabel = dateText(s_.activeDate);
    WeekOptionLabel = dateText(weekstart) + " - " + dateText(weekend);
    if (s_.settings.*mode_ == "Day")
        DayOption_Click();
    else
        WeekOption_Click();
}

std::string AutoFillWindow::dateText(Date d) const { return common::formatDate(d, kDateFormat, s_.locale); }

void AutoFillWindow::DayOption_Click() {
    DayOption = true;
    WeekOption = false;
    s_.settings.*mode_ = "Day";
    fillstart = fillend = s_.activeDate;
    DayOptionLabelEnabled = true;
    WeekOptionLabelEnabled = false;
}

void AutoFillWindow::WeekOption_Click() {
    DayOption = false;
    WeekOption = true;
    s_.settings.*mode_ = "Week";
    fillstart = weekstart;
    fillend = weekend;
    DayOptionLabelEnabled = false;
    WeekOptionLabelEnabled = true;
}

RunCounts AutoFillWindow::runPhases(RunKind kind, bool& stopped) {
    explanation_ = Explanation(s_.settings.gs_ReportNameFormat);
    const RunRange range{weekstart, weekend, fillstart, fillend};
    // Made after the snapshot, so that the answers see the file as the run begins.
    std::unique_ptr<SchedulerFacts> facts;
    if (factsKind == FactsKind::InMemory)
        facts = std::make_unique<MemoryFacts>(s_, range);
    else
        facts = std::make_unique<SqlFacts>(s_, range);
    RunHooks hooks;
    hooks.progressChanged = [this] { showProgress(); };
    hooks.entryFilled = onEntryFilled;
    FillRun run(s_, *facts, kind, range, AutoPBar, hooks, explanation_);
    const RunCounts counts = facts->broken() ? RunCounts{} : run.run();
    stopped = run.stopped();
    return counts;
}

void AutoFillWindow::say(const std::string& text, const char* title) {
    lastMessage_ = text;
    s_.ui().message(text, MsgButtons::Ok, MsgIcon::Information, title);
}

void AutoFillWindow::sayNothingToDo() {
    if (DayOption)
        say("There are no **Unassigned** schedule entries for " + dateText(fillstart), "Automatic Schedule Builder");
    else
        say("There are no **Unassigned** schedule entries from " + dateText(fillstart) + " through " +
                dateText(fillend),
            "Automatic Schedule Builder");
}

void AutoFillWindow::finishRun(bool kept, const RunCounts& counts, bool singularRemaining) {
    if (kept && counts.total == 0) {
        sayNothingToDo();
        return;
    }
    if (kept) {
        sayFinished(counts, singularRemaining);
        AutoPBar.Value = AutoPBar.Min;
        showProgress();
    }
    reload();
}

void AutoFillWindow::sayFinished(const RunCounts& counts, bool singularRemaining) {
    std::string text = DayOption ? "For " + DayOptionLabel : "For the week of " + WeekOptionLabel;
    text += "\r\n\r\n";
    const long filled = counts.filled();
    if (counts.remaining == 0) {
        text += "All **Unassigned** schedule entries were filled.";
    } else {
        // Two blanks before "schedule", on purpose.
        text += filled == 1 ? std::string("1  schedule entry was filled.")
                            : std::to_string(filled) + "  schedule entries were filled.";
        text += "\r\n";
        // Only the rebuild says "remains" for one; the scheduler's own message stays plural.
        text += singularRemaining && counts.remaining == 1
                    ? std::string("1 remains **Unassigned**.")
                    : std::to_string(counts.remaining) + " remain **Unassigned**.";
    }
    AutoPBar.Value = AutoPBar.Max;
    showProgress();
    say(text, "Automatic Scheduler Finished");
}

}  // namespace tallymere::autosched

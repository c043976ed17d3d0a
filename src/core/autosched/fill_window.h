#pragma once
// What the two windows of the automatic scheduler share, `AutoSched` and `AutoRebuildSched`: the
// choice of Day or Week with its labels, the week of the active date and the range to fill, the
// progress bar, the phases of a run, the messages and the explanation of the last run.

#include "autosched/explanation.h"
#include "autosched/fill_run.h"
#include "common/session.h"

#include <functional>
#include <string>
#include <vector>

namespace tallymere::autosched {

// How a run asks its questions: the shipped way reads once and keeps the answers in memory; the
// other asks the database every question, statement by statement, and is kept as the reference.
enum class FactsKind { InMemory, PerQuestion };

class AutoFillWindow {
public:
    virtual ~AutoFillWindow() = default;
    AutoFillWindow(const AutoFillWindow&) = delete;
    AutoFillWindow& operator=(const AutoFillWindow&) = delete;

    // --- Controls
    bool DayOption = false;
    bool WeekOption = false;
    std::string DayOptionLabel;   // the active date, "ddd mmm dd, YYYY"
    std::string WeekOptionLabel;  // weekstart " - " weekend
    bool DayOptionLabelEnabled = false;
    bool WeekOptionLabelEnabled = false;
    ProgressBar AutoPBar;

    // --- Window state: the week of the active date, and the range to fill inside it.
    Date weekstart;
    Date weekend;
    Date fillstart;
    Date fillend;

    // Day: the active date alone. Week: its whole week. Either way the hours that balance the fill are
    // those of the whole week.
    void DayOption_Click();
    void WeekOption_Click();

    // --- What the view (or a caller without one) sets
    // AutoPBar changed: show it. The interface gets its turn right after.
    std::function<void()> onProgress;
    // Set while the daily schedule is loaded: reload its day.
    std::function<void()> reloadDay;
    // An entry was just filled (the run is not committed yet).
    std::function<void(long schedid)> onEntryFilled;
    FactsKind factsKind = FactsKind::InMemory;

    // --- After a run
    // Who got each entry of the last run and why the others did not; empty before a run.
    std::vector<ExplainRow> explanation() const { return explanation_.rows(); }
    // The last message a run ended with (nothing to do, or finished); empty when it ended otherwise.
    const std::string& lastMessage() const { return lastMessage_; }

protected:
    // Form_Load: the week by `firstdayofweek`, the option by the setting, the labels.
    AutoFillWindow(common::Session& s, std::string common::GlobalSettings::*modeSetting);

    // The phases over the window's range, after the snapshot. `stopped` is set when the run could not
    // go on and must not be kept.
    RunCounts runPhases(RunKind kind, bool& stopped);
    // The messages of the end of a run.
    void sayNothingToDo();
    void sayFinished(const RunCounts& counts, bool singularRemaining);
    // After the run's transaction: its message once the file is free again (none when it was not kept),
    // the bar back at its start and the window read again.
    void finishRun(bool kept, const RunCounts& counts, bool singularRemaining);
    void showProgress() {
        if (onProgress) onProgress();
    }
    void reload() {
        if (reloadDay) reloadDay();
    }

    common::Session& s_;
    std::string lastMessage_;

private:
    std::string dateText(Date d) const;
    void say(const std::string& text, const char* title);

    std::string common::GlobalSettings::*mode_;
    Explanation explanation_;
};

}  // namespace tallymere::autosched

#pragma once
// The automatic scheduler and the rebuild without a window, for the command line: the same window
// models, driven as a user would drive them, on a date, a schedule file and Day or Week, with the
// scheduler's settings overridden for the one run. Messages and the rebuild's question go through the
// session's Ui as usual.

#include "autosched/explanation.h"
#include "autosched/fill_window.h"
#include "common/session.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tallymere::autosched {

enum class FillMode { Day, Week };

// The settings that steer a run (the Day or Week choice aside). Unset ones keep the session's value.
struct SchedulerSettings {
    std::optional<bool> gb_AutoDesiredShiftsFirst;
    std::optional<bool> gb_AutoEnforceWeeklyHrs;
    std::optional<bool> gb_AutoAllowDblShifts;
    std::optional<bool> gb_RestrictOvertime;
    std::optional<bool> gb_NoOvertime;
    std::optional<int> gi_OvertimeThreshold;
    std::optional<bool> gb_CheckConflictAllSchedules;

    // Takes "gb_NoOvertime" = "True" and the like (key without regard to case; yes/no as "True",
    // "False", "Yes", "No", "1", "0"). False for a key that is not one of the seven or a value that does
    // not read, and nothing is set.
    bool set(std::string_view key, std::string_view value);
};

struct HeadlessResult {
    // False when nothing ran: the schedule file does not exist (which was said), or the rebuild's
    // question was answered No.
    bool ran = false;
    // The message the run ended with; empty when it ended otherwise (a failure, with its own message).
    std::string message;
    std::vector<ExplainRow> explanation;
};

// Fills the **Unassigned** entries of `scheduleName` on `day` (Day) or in its week (Week). The session's
// active date, open schedule file and settings are as they were afterwards.
HeadlessResult runAutoFill(common::Session& s, common::Date day, const std::string& scheduleName, FillMode mode,
                           const SchedulerSettings& settings = {}, FactsKind facts = FactsKind::InMemory);
// Empties and fills again; the question "The live schedule for ... will be rebuilt. Continue?" is asked.
HeadlessResult runRebuild(common::Session& s, common::Date day, const std::string& scheduleName, FillMode mode,
                          const SchedulerSettings& settings = {}, FactsKind facts = FactsKind::InMemory);

}  // namespace tallymere::autosched

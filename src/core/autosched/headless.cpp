#include "autosched/headless.h"

#include "autosched/auto_rebuild_sched.h"
#include "autosched/auto_sched.h"
#include "common/numbers.h"
#include "common/text.h"
#include "schedule/bulk_change.h"

namespace tallymere::autosched {

using common::GlobalSettings;

namespace {

std::optional<bool> readYesNo(std::string_view value) {
    const std::string v = common::toUpper(common::trim(value));
    if (v == "TRUE" || v == "YES" || v == "1" || v == "-1") return true;
    if (v == "FALSE" || v == "NO" || v == "0") return false;
    return std::nullopt;
}

// Puts the session back as it was when the run is over, however it ended.
class SessionRestore {
public:
    explicit SessionRestore(common::Session& s)
        : s_(s), activeDate_(s.activeDate), schedule_(s.currentSchedule), settings_(s.settings) {}
    ~SessionRestore() {
        s_.activeDate = activeDate_;
        s_.currentSchedule = schedule_;
        s_.settings = settings_;
    }
    SessionRestore(const SessionRestore&) = delete;
    SessionRestore& operator=(const SessionRestore&) = delete;

private:
    common::Session& s_;
    common::Date activeDate_;
    std::string schedule_;
    GlobalSettings settings_;
};

void apply(GlobalSettings& g, const SchedulerSettings& o) {
    if (o.gb_AutoDesiredShiftsFirst) g.gb_AutoDesiredShiftsFirst = *o.gb_AutoDesiredShiftsFirst;
    if (o.gb_AutoEnforceWeeklyHrs) g.gb_AutoEnforceWeeklyHrs = *o.gb_AutoEnforceWeeklyHrs;
    if (o.gb_AutoAllowDblShifts) g.gb_AutoAllowDblShifts = *o.gb_AutoAllowDblShifts;
    if (o.gb_RestrictOvertime) g.gb_RestrictOvertime = *o.gb_RestrictOvertime;
    if (o.gb_NoOvertime) g.gb_NoOvertime = *o.gb_NoOvertime;
    if (o.gi_OvertimeThreshold) g.gi_OvertimeThreshold = *o.gi_OvertimeThreshold;
    if (o.gb_CheckConflictAllSchedules) g.gb_CheckConflictAllSchedules = *o.gb_CheckConflictAllSchedules;
}

template <class Window, class Run>
HeadlessResult drive(common::Session& s, common::Date day, const std::string& scheduleName, FillMode mode,
                     const SchedulerSettings& settings, FactsKind facts, Run run) {
    // A name that is no schedule file would only find nothing to fill; say what is wrong instead.
    if (!schedule::requireScheduleFile(s, scheduleName)) return {};
    SessionRestore restore(s);
    s.activeDate = day;
    s.currentSchedule = scheduleName;
    apply(s.settings, settings);
    Window window(s);
    window.factsKind = facts;
    if (mode == FillMode::Day)
        window.DayOption_Click();
    else
        window.WeekOption_Click();
    HeadlessResult result;
    result.ran = run(window);
    result.message = window.lastMessage();
    result.explanation = window.explanation();
    return result;
}

}  // namespace

bool SchedulerSettings::set(std::string_view key, std::string_view value) {
    const std::string k = common::toLower(common::trim(key));
    if (k == "gi_overtimethreshold") {
        const auto n = common::parseNumberStrict(value);
        if (!n || *n != static_cast<double>(static_cast<int>(*n)) || *n < -32768 || *n > 32767) return false;
        gi_OvertimeThreshold = static_cast<int>(*n);
        return true;
    }
    const std::pair<const char*, std::optional<bool> SchedulerSettings::*> flags[] = {
        {"gb_autodesiredshiftsfirst", &SchedulerSettings::gb_AutoDesiredShiftsFirst},
        {"gb_autoenforceweeklyhrs", &SchedulerSettings::gb_AutoEnforceWeeklyHrs},
        {"gb_autoallowdblshifts", &SchedulerSettings::gb_AutoAllowDblShifts},
        {"gb_restrictovertime", &SchedulerSettings::gb_RestrictOvertime},
        {"gb_noovertime", &SchedulerSettings::gb_NoOvertime},
        {"gb_checkconflictallschedules", &SchedulerSettings::gb_CheckConflictAllSchedules},
    };
    for (const auto& [name, member] : flags) {
        if (k != name) continue;
        const auto flag = readYesNo(value);
        if (!flag) return false;
        this->*member = *flag;
        return true;
    }
    return false;
}

HeadlessResult runAutoFill(common::Session& s, common::Date day, const std::string& scheduleName, FillMode mode,
                           const SchedulerSettings& settings, FactsKind facts) {
    return drive<AutoSched>(s, day, scheduleName, mode, settings, facts,
                            [](AutoSched& w) { return w.OKButton_Click(); });
}

HeadlessResult runRebuild(common::Session& s, common::Date day, const std::string& scheduleName, FillMode mode,
                          const SchedulerSettings& settings, FactsKind facts) {
    return drive<AutoRebuildSched>(s, day, scheduleName, mode, settings, facts,
                                   [](AutoRebuildSched& w) { return w.AutoRedoButton_Click(); });
}

}  // namespace tallymere::autosched

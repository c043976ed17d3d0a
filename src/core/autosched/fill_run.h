#pragma once
// One run of the automatic scheduler over a range of the open schedule file: the desired-shift phase,
// then the balanced passes without and with second entries on a day, then the first-fit passes, each
// repeated while it makes progress. It only writes `personid`, `lname` and `fname` of **Unassigned**
// entries. Rebuild runs the same phases, with the week hours of its balanced passes always taken in the
// open schedule file. The run asks the data through SchedulerFacts, so the same steps run whether the
// answers come from a statement per question or from memory.

#include "autosched/explanation.h"
#include "autosched/scheduler_facts.h"
#include "common/session.h"

#include <functional>

namespace tallymere::autosched {

enum class RunKind { AutoFill, Rebuild };

// `AutoPBar`.
struct ProgressBar {
    int Min = 0;
    int Max = 100;
    int Value = 0;
};

// What the window around a run wants to hear of it.
struct RunHooks {
    // AutoPBar changed; called just before the interface gets its turn, so the view can show it.
    std::function<void()> progressChanged;
    // An entry was assigned: the daily schedule may show it at once.
    std::function<void(long schedid)> entryFilled;
};

struct RunCounts {
    long total = 0;      // **Unassigned** entries before the run
    long remaining = 0;  // after it
    long filled() const { return total - remaining; }
};

// The two overtime options, on the hours before the entry: restricted overtime refuses an employee
// already at the threshold (so one entry may carry them over it); no overtime refuses one whom the
// entry would carry past it (landing on it is allowed).
bool OvertimeAllows(const common::Session& s, double hours, double entryhours);
// The weekly hours option: yes while the hours before the entry are below the employee's target, so
// the last entry may carry them past it; a target of 0 is never met.
bool WeeklyHoursAllows(const common::Session& s, double target, double hours);

class FillRun {
public:
    FillRun(common::Session& s, SchedulerFacts& facts, RunKind kind, const RunRange& range, ProgressBar& bar,
            const RunHooks& hooks, Explanation& explanation);

    // RunAutoFill / RunRebuild up to the counts: total 0 means there was nothing to fill and no phase
    // ran. The finished message and what follows it belong to the window.
    RunCounts run();
    // A statement failed or the program is ending: the run stopped where it was, and its work must not
    // be kept.
    bool stopped() const { return facts_.broken(); }

    void FillDesiredShifts();
    void FillBalanced(bool allowdouble, Date start, Date end);
    void FillFirstFit(bool allowdouble, Date start, Date end);

private:
    enum class Pass { Balanced, FirstFit };
    long recount();
    long repeatWhileProgress(Pass pass, Phase phase, bool allowdouble, long last);
    void fillPass(Pass pass, Phase phase, bool allowdouble, Date start, Date end);
    // IsEmployeeFree, OvertimeAllows and WeeklyHoursAllows in that order; Assigned when all say yes.
    Reason threeTests(const OpenEntry& e, const Person& p, double hours, double thisshift);
    // The same-day test of a choice while second entries are not allowed.
    bool worksThatDay(const Person& p, Date day);
    bool assign(const OpenEntry& e, const Person& p);
    void turn();

    common::Session& s_;
    SchedulerFacts& facts_;
    RunKind kind_;
    RunRange range_;
    ProgressBar& bar_;
    const RunHooks& hooks_;
    Explanation& explanation_;
};

}  // namespace tallymere::autosched

#include "autosched/auto_sched.h"

#include "schedule/bulk_change.h"
#include "schedule/undo.h"

namespace tallymere::autosched {

AutoSched::AutoSched(common::Session& s) : AutoFillWindow(s, &common::GlobalSettings::gs_AutoFillDayWeek) {}

bool AutoSched::OKButton_Click() {
    lastMessage_.clear();
    RunCounts counts;
    const bool kept = schedule::runAsOneChange(s_, [&] {
        schedule::SaveUndoSnapshot(s_, fillstart, fillend, "Undo Automatic Schedule", true, s_.currentSchedule);
        bool stopped = false;
        counts = runPhases(RunKind::AutoFill, stopped);
        if (stopped) return false;
        // Filling nothing changed nothing, so there is nothing to undo; with nothing to fill at all the
        // snapshot stays.
        if (counts.remaining > 0 && counts.filled() == 0) schedule::ClearUndo(s_);
        return true;
    });
    finishRun(kept, counts, false);
    return true;
}

}  // namespace tallymere::autosched

#include "autosched/auto_rebuild_sched.h"

#include "common/display_format.h"
#include "schedule/bulk_change.h"
#include "schedule/undo.h"
#include "store/access.h"

namespace tallymere::autosched {

using common::MsgIcon;

AutoRebuildSched::AutoRebuildSched(common::Session& s)
    : AutoFillWindow(s, &common::GlobalSettings::gs_AutoRebuildDayWeek) {}

bool AutoRebuildSched::AutoRedoButton_Click() {
    lastMessage_.clear();
    AutoPBar.Value = 0;
    showProgress();
    const auto date = [this](Date d) { return common::formatDate(d, "ddd mmm dd, YYYY", s_.locale); };
    const std::string question = DayOption ? "The live schedule for " + date(fillstart) + " will be rebuilt. Continue?"
                                           : "The live schedule for " + date(fillstart) + " through " + date(fillend) +
                                                 " will be rebuilt. Continue?";
    if (!s_.ui().askYesNo(question, MsgIcon::Information, "Auto Schedule Builder")) return false;

    RunCounts counts;
    // The undo snapshot is forgotten first, the emptying and the fill are one transaction.
    const bool kept = schedule::runAsOneChange(s_, [&] {
        if (!store::UdateRecs(s_,
                              "update sched set personid = -1, lname = ?, fname = ? where sday>=? and sday <=? and "
                              "sname=?",
                              {common::Session::kUnassignedName, "", fillstart, fillend, s_.currentSchedule}))
            return false;
        reload();
        // Taken after the emptying, not before: undo returns the emptied range, not the employees it
        // held. Meant so.
        schedule::SaveUndoSnapshot(s_, fillstart, fillend, "Undo Automatic Schedule", true, s_.currentSchedule);
        bool stopped = false;
        counts = runPhases(RunKind::Rebuild, stopped);
        return !stopped;
    });
    // The snapshot stays whatever the outcome.
    finishRun(kept, counts, true);
    return true;
}

}  // namespace tallymere::autosched

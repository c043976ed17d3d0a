#pragma once
// The one-step undo of schedule changes. The snapshot is the set of `sched` rows whose `sname` is
// "*undo*": no schedule file, seen by no view.

#include "common/session.h"
#include "store/undo_snapshot.h"

#include <optional>
#include <string>

namespace tallymere::schedule {

using store::ClearUndo;

// Takes the snapshot of `from`..`to` of `scheduleName` before a bulk change: moved out of the way
// (keepRows false, the range is left empty, the rows keep their schedids) or copied (keepRows true,
// the copies are new rows). The old snapshot is dropped first; without both dates nothing else
// happens. Shows the undo command with `caption`, also when the range held no rows.
void SaveUndoSnapshot(common::Session& s, std::optional<common::Date> from, std::optional<common::Date> to,
                      const std::string& caption, bool keepRows, const std::string& scheduleName);
// Puts the snapshot back over its range: what the range holds now is deleted first. Raises the
// refresh-wanted flag; the caller refreshes the active window.
void UndoLastChange(common::Session& s);

}  // namespace tallymere::schedule

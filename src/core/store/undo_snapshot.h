#pragma once
// The undo snapshot is the set of `sched` rows whose `sname` is "*undo*": no schedule file, seen by no
// view. Forgetting it is needed well below the schedule views (opening or renaming a schedule file,
// the start), so it lives with the data rather than with the undo command.

#include "common/session.h"

namespace tallymere::store {

// Forgets the snapshot and hides the undo command: after this nothing can be undone.
void ClearUndo(common::Session& s);

}  // namespace tallymere::store

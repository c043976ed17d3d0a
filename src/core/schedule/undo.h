#pragma once
// The one-step undo of schedule changes. The snapshot is the set of `sched` rows whose `sname` is
// "*undo*": no schedule file, seen by no view.

#include "common/session.h"

namespace tallymere::schedule {

// Forgets the snapshot: after this nothing can be undone.
void ClearUndo(common::Session& s);

}  // namespace tallymere::schedule

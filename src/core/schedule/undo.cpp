#include "schedule/undo.h"

#include "store/access.h"

namespace tallymere::schedule {

void ClearUndo(common::Session& s) {
    if (s.undoMenu) s.undoMenu->hideUndo();
    store::DeleteRecs(s, "delete from sched where sname = ?", {common::Session::kUndoScheduleName});
}

}  // namespace tallymere::schedule

#include "store/undo_snapshot.h"

#include "store/access.h"

namespace tallymere::store {

void ClearUndo(common::Session& s) {
    if (s.undoMenu) s.undoMenu->hideUndo();
    DeleteRecs(s, "delete from sched where sname = ?", {common::Session::kUndoScheduleName});
}

}  // namespace tallymere::store

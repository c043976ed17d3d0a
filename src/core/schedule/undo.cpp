#include "schedule/undo.h"

#include "store/access.h"

namespace tallymere::schedule {

void ClearUndo(common::Session& s) {
    store::DeleteRecs(s, "delete from sched where sname = ?", {common::Session::kUndoScheduleName});
}

}  // namespace tallymere::schedule

#pragma once
// Cut, copy, paste and delete of the daily grid's entries. The paste buffer is the table `schedpaste`,
// not the system clipboard, so it outlasts the program: it keeps its rows until the next cut or copy,
// and one copy can be pasted on as many days as the user likes.
//
// A selection is given as the selected grid rows' schedids, from the lower row to the higher, and the
// current row's value (its schedid, 0 for the grid's empty row). The daily window keeps the grid; these
// functions tell it what to do through their results and DeleteListener.

#include "common/session.h"

#include <optional>
#include <vector>

namespace tallymere::schedule {

using Selection = std::vector<long>;

// Adds the entry `schedid` to the paste buffer with its times as they are, so the source day stays in
// their dates. `success` is false when the entry could not be added; an entry that no longer exists
// adds nothing and counts as success.
void AddToPasteBuffer(common::Session& s, long schedid, bool& success);

// Replaces the paste buffer with the selected entries. False when it did nothing (current row empty,
// or no permission); true when the buffer was refilled and the paste commands should be enabled.
bool CopyEntries(common::Session& s, long currentRowValue, const Selection& selection);
// As CopyEntries, and each entry that went into the buffer is deleted from the schedule. True when
// the window should refresh (and enable paste).
bool CutEntries(common::Session& s, long currentRowValue, const Selection& selection);
// Puts the buffer's entries on the active date of the open schedule, keeping their clock times and
// their crossing of midnight, after the overlap, availability and leave questions. The buffer stays.
// True when the window should refresh: the paste ran to its end, or stopped after pasting some rows.
bool PasteEntries(common::Session& s);

// What the daily window does while DeleteSelectedEntries works down the selection.
class DeleteListener {
public:
    virtual ~DeleteListener() = default;
    // The entry is gone: take its row out of the grid (down to one empty row when it was the last).
    virtual void rowDeleted(long schedid) = 0;
    // The employee has no entry left on `day` in the open schedule: MarkEmployee with reason "remove",
    // with the deleted entry's times. Not called for **Unassigned** entries, which have no mark.
    virtual void employeeUnscheduled(long personid, common::Date day, std::optional<common::DateTime> start,
                                     std::optional<common::DateTime> end) = 0;
};

// Delete with several rows selected: asks, takes the "Undo Delete Schedule" snapshot of the active
// date, and deletes the entries one by one, telling `listener` of each. True when it deleted.
bool DeleteSelectedEntries(common::Session& s, long currentRowValue, const Selection& selection,
                           DeleteListener& listener);

// The Delete Day command: moves the active date's entries of the open schedule into the undo snapshot
// ("Undo Delete Day") after asking. True when the daily window should refresh.
bool mnudeleteday(common::Session& s);

// The keyboard and menu forms, each with its own handling of the undo snapshot.
// Ctrl+V and the pop-up menu's paste: snapshot "Undo Paste" of the active date, then paste.
bool PasteWithUndo(common::Session& s);
// Ctrl+X: snapshot "Undo Cut" of the active date, then cut.
bool CutWithUndo(common::Session& s, long currentRowValue, const Selection& selection);
// The pop-up menu's cut: ClearUndo, then cut. It takes no snapshot, so this cut cannot be undone.
bool CutFromMenu(common::Session& s, long currentRowValue, const Selection& selection);
// Ctrl+C and the pop-up menu's copy: ClearUndo, then copy.
bool CopyClearingUndo(common::Session& s, long currentRowValue, const Selection& selection);

}  // namespace tallymere::schedule

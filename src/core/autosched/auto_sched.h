#pragma once
// The window `AutoSched`, "Automatic Scheduler": fills the **Unassigned** entries of the open schedule
// file for the active date or its week, then closes. The whole run (the undo snapshot, every
// assignment) is one transaction: it is kept whole or not at all.

#include "autosched/fill_window.h"

namespace tallymere::autosched {

class AutoSched : public AutoFillWindow {
public:
    static constexpr const char* kWindowName = "AutoSched";
    static constexpr const char* kCaption = "Automatic Scheduler";
    static constexpr const char* kFrame2 = "Fill entries for Day or Week";
    static constexpr const char* kOKButton = "Auto Add";
    static constexpr const char* kCloseButton = "Close";

    explicit AutoSched(common::Session& s);

    // The undo snapshot of the range, the run, its message. True: the window closes (always, as it
    // does after a run).
    bool OKButton_Click();
    bool CloseButton_Click() { return true; }
};

}  // namespace tallymere::autosched

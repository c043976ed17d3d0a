#pragma once
// The window `AutoRebuildSched`, "Auto Rebuild Schedule": empties every entry of the active date or its
// week in the open schedule file and fills the range again, as the automatic scheduler does. The
// employees the range held are gone once the user says yes; undo returns the emptied range. The
// window stays open after a rebuild. The whole rebuild is one transaction.

#include "autosched/fill_window.h"

namespace tallymere::autosched {

class AutoRebuildSched : public AutoFillWindow {
public:
    static constexpr const char* kWindowName = "AutoRebuildSched";
    static constexpr const char* kCaption = "Auto Rebuild Schedule";
    static constexpr const char* kFrame2 = "Rebuild Schedule for day or week";
    static constexpr const char* kAutoRedoButton = "Rebuild Schedule";
    static constexpr const char* kCloseButton = "Close";

    explicit AutoRebuildSched(common::Session& s);

    // The question, then the emptying, the undo snapshot of the emptied range and the run. False when
    // the user said no.
    bool AutoRedoButton_Click();
    bool CloseButton_Click() { return true; }
};

}  // namespace tallymere::autosched

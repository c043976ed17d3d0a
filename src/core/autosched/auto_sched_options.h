#pragma once
// The rules of the automatic scheduler, window `AutoSchedOptions`, and the first-use messages that
// explain the scheduler and the rebuild before their windows open. The options change the global
// settings in memory; the normal shutdown writes them to the options table.

#include "common/session.h"

#include <array>
#include <string_view>

namespace tallymere::autosched {

class AutoSchedOptions {
public:
    static constexpr const char* kWindowName = "AutoSchedOptions";
    static constexpr const char* kCaption = "Automatic Scheduler Options";
    static constexpr const char* kFrame1 = "Auto Options";

    // One check box with its caption, the text that stands beside it and the setting it edits.
    struct Box {
        const char* name;
        const char* caption;
        const char* explanation;
        bool AutoSchedOptions::*control;
        bool common::GlobalSettings::*setting;
    };
    static const std::array<Box, 5>& boxes();

    // Each box cleared, then checked when its setting is on.
    explicit AutoSchedOptions(common::Session& s);

    bool NoOvertime = false;
    bool RestrictOvertime = false;
    bool AutoEnforceWeeklyHrs = false;
    bool AutoDesiredShiftsFirst = false;
    bool AutoAllowDblShifts = false;

    // Every setting takes its box. The two overtime boxes do not exclude each other. True: closes.
    bool OKButton_Click();
    bool CancelButton_Click() { return true; }

private:
    common::Session& s_;
};

// A first-use message window: its texts, "Do not show this message again" and OK.
class FirstUseMessage {
public:
    static constexpr const char* kDoNotShowAgain = "Do not show this message again";

    bool DoNotShowAgain = false;
    // A checked box keeps the message from showing again. The window then closes.
    void OKButton_Click();

protected:
    FirstUseMessage(common::Session& s, const char* setting) : s_(s), setting_(setting) {}

private:
    common::Session& s_;
    const char* setting_;
};

class FirstAutoAddMsg : public FirstUseMessage {
public:
    static constexpr const char* kWindowName = "FirstAutoAddMsg";
    static constexpr const char* kCaption = "Automatic Scheduler";
    static constexpr const char* kSetting = "ShowAutoAddMsg";
    static const std::array<const char*, 4>& labels();
    explicit FirstAutoAddMsg(common::Session& s) : FirstUseMessage(s, kSetting) {}
};

class FirstAutoRebuildMsg : public FirstUseMessage {
public:
    static constexpr const char* kWindowName = "FirstAutoRebuildMsg";
    static constexpr const char* kCaption = "Auto Rebuild Schedule";
    static constexpr const char* kSetting = "ShowAutoRebuildMsg";
    static const std::array<const char*, 3>& labels();
    explicit FirstAutoRebuildMsg(common::Session& s) : FirstUseMessage(s, kSetting) {}
};

// The commands: `mnuAutoSched` and `mnuAutoRebuildSchedule` show their first-use message while its
// setting says "Yes" (it is set to "Yes" the first time), then their window; `mnuAutoSchedOptions`
// shows the options. All modally, through the Ui port.
void mnuAutoSched_Click(common::Session& s);
void mnuAutoRebuildSchedule_Click(common::Session& s);
void mnuAutoSchedOptions_Click(common::Session& s);

}  // namespace tallymere::autosched

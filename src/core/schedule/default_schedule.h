#pragma once
// The default schedule: one pattern of entries by day number (`scheddefault.daynum`, 1 for the first
// day of the week), saved from a stretch of a schedule file and laid over any other stretch. The
// pattern lasts `gi_defaultschedlength` days.
//
// SaveDefaultSchedule and GetDefaultSchedule run without a window, for any day and schedule file;
// the menu commands give them the active date and the open file.

#include "common/session.h"

#include <string>

namespace tallymere::schedule {

using common::Date;
using common::Session;

// The first day of the pattern that holds `day` (by `firstdayofweek`), and its last day by `length`.
struct DefaultRange {
    Date first;
    Date last;
};
DefaultRange defaultRange(Session& s, Date day, int length);

// Saves the `gi_defaultschedlength` days from the first day of the week of `day` in `scheduleName`
// as the default schedule, after asking. True when it was saved (all of it, or nothing).
bool SaveDefaultSchedule(Session& s, Date day, const std::string& scheduleName);
// Lays the default schedule over the `gi_defaultschedlength` days from the first day of the week of
// `day` in `scheduleName`, replacing their entries, after asking; undoable. No entry is tested: a
// pattern is trusted. True when it was laid (all of it, or nothing).
bool GetDefaultSchedule(Session& s, Date day, const std::string& scheduleName);

// `mnusaveasdefault`: the week of the active date in the open file. A length that is no use (below
// one day) is asked for in `DefaultSave`, which then saves.
void mnusaveasdefault(Session& s);
// `mnugetdefaultsched`: onto the week of the active date in the open file. True when the daily
// schedule should refresh.
bool mnugetdefaultsched(Session& s);

// `DefaultSave`, "Save As Default Schedule": the length asked in days or in weeks, and the range it
// gives shown before saving.
class DefaultSave {
public:
    static constexpr const char* kWindowName = "DefaultSave";
    static constexpr const char* kCaption = "Save As Default Schedule";

    explicit DefaultSave(Session& s);

    // --- Controls
    bool dayoption = true;  // "Days"; false: "Weeks"
    std::string TxtDays;
    std::string TxtWeeks;
    std::string Startdaylabel;
    std::string Endlabel;

    // The length the fields give, 0 when they give none.
    int length() const;
    // A field or the option changed: the labels follow.
    void UpdateLabels();
    void dayoption_Click();
    void weekoption_Click();
    // Saves with the length typed, which becomes `gi_defaultschedlength` once saved. True when it was
    // saved and the window closes; a length that is no whole number of at least one stays to be mended.
    bool Save_Click();
    bool Cancel_Click() { return true; }

    // True once Save_Click saved.
    bool saved() const { return saved_; }

private:
    Session& s_;
    bool saved_ = false;
};

}  // namespace tallymere::schedule

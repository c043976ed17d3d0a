#include "autosched/auto_sched_options.h"

#include "autosched/auto_rebuild_sched.h"
#include "autosched/auto_sched.h"
#include "store/options.h"

namespace tallymere::autosched {

using common::GlobalSettings;

const std::array<AutoSchedOptions::Box, 5>& AutoSchedOptions::boxes() {
    static const std::array<Box, 5> table{{
        {"NoOvertime", "No Overtime", "No overtime will be scheduled at all", &AutoSchedOptions::NoOvertime,
         &GlobalSettings::gb_NoOvertime},
        {"RestrictOvertime", "Restrict Overtime",
         "Auto Schedule always attempts to minimize overtime by spreading out the load as evenly as possible "
         "amongst all employees. Restrict Overtime will limit the amount of overtime to no more than one shift.",
         &AutoSchedOptions::RestrictOvertime, &GlobalSettings::gb_RestrictOvertime},
        {"AutoEnforceWeeklyHrs", "Enforce Employee Weekly Hours",
         "Auto Sched will balance the schedule using the value of the employees Hours per Week. To use this option "
         "you must enter a value for Hours per Week for each employee.",
         &AutoSchedOptions::AutoEnforceWeeklyHrs, &GlobalSettings::gb_AutoEnforceWeeklyHrs},
        {"AutoDesiredShiftsFirst", "Fill Desired Shifts First",
         "Priority will be given to employees requesting particular shifts", &AutoSchedOptions::AutoDesiredShiftsFirst,
         &GlobalSettings::gb_AutoDesiredShiftsFirst},
        {"AutoAllowDblShifts", "Allow Double Shifts", "Leave unchecked to eliminate double shifting.",
         &AutoSchedOptions::AutoAllowDblShifts, &GlobalSettings::gb_AutoAllowDblShifts},
    }};
    return table;
}

AutoSchedOptions::AutoSchedOptions(common::Session& s) : s_(s) {
    for (const Box& b : boxes()) this->*b.control = s_.settings.*b.setting;
}

bool AutoSchedOptions::OKButton_Click() {
    for (const Box& b : boxes()) s_.settings.*b.setting = this->*b.control;
    return true;
}

void FirstUseMessage::OKButton_Click() {
    if (DoNotShowAgain) store::SaveRegSetting(s_, setting_, "No");
}

const std::array<const char*, 4>& FirstAutoAddMsg::labels() {
    static const std::array<const char*, 4> texts{
        "Automatic Scheduler works by finding a suitable employee for a schedule entry that is unfilled. ",
        "To create an unfilled schedule entry, drag and drop the **Unassigned** employee onto the schedule. The "
        "position must be filled in for each **Unassigned** schedule entry.",
        "Automatic Scheduler places employees on the schedule according to your selected criteria. Select Automatic "
        "Options from the Schedule Menu to set up the Automatic Scheduling rules.",
        "Employees are checked for conflicts before being placed on the schedule for a particular position.",
    };
    return texts;
}

const std::array<const char*, 3>& FirstAutoRebuildMsg::labels() {
    static const std::array<const char*, 3> texts{
        " Auto Rebuild works the same as Automatic Scheduler with one important exception. Auto Rebuild first "
        "removes employees from the schedule setting the Schedule Entries, for the selected day or week, to "
        "**Unassigned** . It then examines each schedule entry and fills in available employees balancing work loads "
        "and minimizing overtime. ",
        "You can select Auto Rebuild to operate in the current day or week. The position must be filled in for each "
        "schedule entry.",
        "Auto Rebuild reassigns employees to the scheduled entries based on position, employee availability and the "
        "Automatic Scheduling Options you have selected.",
    };
    return texts;
}

namespace {

void openAfterFirstUse(common::Session& s, const char* setting, const char* messageWindow, const char* window) {
    if (store::GetRegSetting(s, setting).empty()) store::SaveRegSetting(s, setting, "Yes");
    if (store::GetRegSetting(s, setting) == "Yes") s.ui().showModal(messageWindow);
    s.ui().showModal(window);
}

}  // namespace

void mnuAutoSched_Click(common::Session& s) {
    openAfterFirstUse(s, FirstAutoAddMsg::kSetting, FirstAutoAddMsg::kWindowName, AutoSched::kWindowName);
}

void mnuAutoRebuildSchedule_Click(common::Session& s) {
    openAfterFirstUse(s, FirstAutoRebuildMsg::kSetting, FirstAutoRebuildMsg::kWindowName,
                      AutoRebuildSched::kWindowName);
}

void mnuAutoSchedOptions_Click(common::Session& s) { s.ui().showModal(AutoSchedOptions::kWindowName); }

}  // namespace tallymere::autosched

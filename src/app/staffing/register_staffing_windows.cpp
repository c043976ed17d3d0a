// The staffing commands: staffing levels, their analysis, the conflict finder, the repair of end
// times and the search for available employees.

#include "app/staffing/staffing_windows.h"

namespace tallymere::app {

namespace {

template <class Window>
void childCommand(AppContext& context, const std::string& menuName, const char* windowName) {
    AppContext* c = &context;
    const QString name = QString::fromLatin1(windowName);
    c->registerChildWindow(name, [c] { return new Window(*c); });
    c->registerCommand(menuName, [c, name] { c->openChild(name, [c] { return new Window(*c); }); });
}

}  // namespace

void registerStaffingWindows(AppContext& context) {
    childCommand<StaffingWindow>(context, "mnusetstaffinglevels", staffing::staffing::kWindowName);
    childCommand<AnalyzeLevelsWindow>(context, "mnucheckstaffinglevels", staffing::analyzelevels::kWindowName);
    childCommand<CheckConflictsWindow>(context, "mnuChkSchedConflict", staffing::CheckConflicts::kWindowName);
    childCommand<RepairEndtimesWindow>(context, "mnuRepairScheduleEntries", staffing::RepairEndtimes::kWindowName);
    childCommand<ReportAvailableWindow>(context, "mnuFindAvailableEmployees", staffing::ReportAvailable::kWindowName);
}

}  // namespace tallymere::app

// The schedule-editing commands: the daily schedule window, its menus and pop-ups, undo.

#include "app/reference/reference_windows.h"
#include "app/schedule/daily_schedule_window.h"
#include "common/session.h"
#include "schedule/clipboard.h"
#include "schedule/undo.h"
#include "shell/main_form.h"

namespace tallymere::app {

namespace {

const QString kDailyWindow = QString::fromLatin1(schedule::dailyflexgrid::kWindowName);

DailyScheduleWindow* dailyWindow(AppContext& context) {
    return dynamic_cast<DailyScheduleWindow*>(context.findChild(kDailyWindow));
}

// The daily schedule, opened when it is not (it normally always is).
DailyScheduleWindow* openDailyWindow(AppContext& context) {
    return dynamic_cast<DailyScheduleWindow*>(
        context.openChild(kDailyWindow, [&context] { return new DailyScheduleWindow(context); }));
}

// A command of the daily schedule's: runs on the window, opened first if need be.
void onDaily(AppContext& context, const std::string& menuName, void (DailyScheduleWindow::*command)()) {
    context.registerCommand(menuName, [&context, command] {
        if (DailyScheduleWindow* daily = openDailyWindow(context)) (daily->*command)();
    });
}

}  // namespace

void registerScheduleWindows(AppContext& context) {
    AppContext* c = &context;
    c->registerChildWindow(kDailyWindow, [c] { return new DailyScheduleWindow(*c); });

    for (const char* name : {"addfromlv", "mnuaddtoschedulelistview"})
        onDaily(context, name, &DailyScheduleWindow::addFromQuickBar);
    for (const char* name : {"mnuScheduleEdit", "mnudailygridrightclickedit"})
        c->registerCommand(name, [c] {
            if (DailyScheduleWindow* daily = openDailyWindow(*c)) daily->editEntry(true);
        });
    for (const char* name : {"mnudelete", "mnudailygridrightclickremove"})
        onDaily(context, name, &DailyScheduleWindow::deleteEntries);
    onDaily(context, "mnudeleteday", &DailyScheduleWindow::deleteDay);
    onDaily(context, "mnudailygridrightclickcut", &DailyScheduleWindow::cut);
    onDaily(context, "mnudailygridrightclickcopy", &DailyScheduleWindow::copy);
    onDaily(context, "mnudailygridrightclickpaste", &DailyScheduleWindow::paste);
    onDaily(context, "mnudailygridrightclickselectall", &DailyScheduleWindow::selectAll);
    onDaily(context, "mnudailygridrightclickrefresh", &DailyScheduleWindow::refreshWindow);
    c->registerCommand("mnudailyschedule", [c] {
        if (DailyScheduleWindow* daily = openDailyWindow(*c)) daily->setWeekView(false);
    });
    c->registerCommand("mnuweekly", [c] {
        if (DailyScheduleWindow* daily = openDailyWindow(*c)) daily->setWeekView(true);
    });

    c->registerCommand("mnuEditUndo", [c] {
        schedule::UndoLastChange(c->session());
        if (DailyScheduleWindow* daily = dailyWindow(*c)) daily->updailyflexform();
    });

    // The employee list's pop-up: the employee picked in the list is the session's current one.
    onDaily(context, "mnuemployeeposition", &DailyScheduleWindow::switchEmployeeOrder);
    c->registerCommand("mnudailygridlistviewaddnewemployee", [c] { openEditStaffNew(*c); });
    c->registerCommand("mnudailygridlistviewedit", [c] { openEditStaff(*c); });
    c->registerCommand("mnudailygridlistviewdeleteemployee", [c] { deleteCurrentEmployee(*c); });
}

}  // namespace tallymere::app

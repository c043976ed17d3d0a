// The schedule-editing commands: the daily and weekly schedule windows, their menus and pop-ups,
// undo, the default schedule and the copy windows.

#include "app/common/qt_ui.h"
#include "app/reference/reference_windows.h"
#include "app/schedule/copy_schedule_dialogs.h"
#include "app/schedule/daily_schedule_window.h"
#include "app/schedule/default_save_dialog.h"
#include "app/schedule/weekly_schedule_window.h"
#include "common/session.h"
#include "schedule/clipboard.h"
#include "schedule/default_schedule.h"
#include "schedule/undo.h"
#include "shell/main_form.h"

namespace tallymere::app {

namespace {

const QString kDailyWindow = QString::fromLatin1(schedule::dailyflexgrid::kWindowName);
const QString kWeeklyWindow = QString::fromLatin1(schedule::week::kWindowName);

// The daily schedule, opened when it is not (it normally always is).
DailyScheduleWindow* openDailyWindow(AppContext& context) {
    return dynamic_cast<DailyScheduleWindow*>(
        context.openChild(kDailyWindow, [&context] { return new DailyScheduleWindow(context); }));
}

// After a change of many entries at once: the open windows that show entries read them again.
void showChangedSchedule(AppContext& context) {
    if (auto* daily = dynamic_cast<ChildWindow*>(context.findChild(kDailyWindow))) daily->updailyflexform();
    if (auto* weekly = dynamic_cast<ChildWindow*>(context.findChild(kWeeklyWindow))) weekly->refreshWindow();
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
    c->registerChildWindow(kWeeklyWindow, [c] { return new WeeklyScheduleWindow(*c); });
    c->registerCommand("mnuweekly", [c] { c->openChild(kWeeklyWindow, [c] { return new WeeklyScheduleWindow(*c); }); });

    QtUi& ui = context.ui();
    ui.registerModal(schedule::DefaultSave::kWindowName, [c] {
        DefaultSaveDialog dialog(c->session(), c->mainWindow());
        dialog.exec();
    });
    ui.registerModal(schedule::CopyNew::kWindowName, [c] {
        CopyScheduleDialog dialog(
            c->session(), [c] { showChangedSchedule(*c); }, c->mainWindow());
        dialog.exec();
    });
    ui.registerModal(schedule::copytodifferent::kWindowName, [c] {
        CopyToDifferentDialog dialog(
            c->session(), [c] { showChangedSchedule(*c); }, c->mainWindow());
        dialog.exec();
    });
    c->registerCommand("mnusaveasdefault", [c] { schedule::mnusaveasdefault(c->session()); });
    c->registerCommand("mnugetdefaultsched", [c] {
        if (schedule::mnugetdefaultsched(c->session())) showChangedSchedule(*c);
    });
    c->registerCommand("mnucopyschedule1", [c] { c->session().ui().showModal(schedule::CopyNew::kWindowName); });

    c->registerCommand("mnuEditUndo", [c] {
        schedule::UndoLastChange(c->session());
        showChangedSchedule(*c);
    });

    // The employee list's pop-up: the employee picked in the list is the session's current one.
    onDaily(context, "mnuemployeeposition", &DailyScheduleWindow::switchEmployeeOrder);
    c->registerCommand("mnudailygridlistviewaddnewemployee", [c] { openEditStaffNew(*c); });
    c->registerCommand("mnudailygridlistviewedit", [c] { openEditStaff(*c); });
    c->registerCommand("mnudailygridlistviewdeleteemployee", [c] { deleteCurrentEmployee(*c); });
}

}  // namespace tallymere::app

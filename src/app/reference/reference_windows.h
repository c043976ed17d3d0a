#pragma once
// How the reference windows are opened: by the menu commands registered in
// register_reference_windows.cpp, by each other, and by the windows of other subsystems (the daily
// schedule's employee list opens the employee windows).

#include "app/shell/app_context.h"

class QWidget;

namespace tallymere::app {

// The child windows: opened, or brought forward when open.
QWidget* openSettings(AppContext& context, int tab);
QWidget* openPersonList(AppContext& context);
QWidget* openLeaveCalendar(AppContext& context);
QWidget* openQueryEmployee(AppContext& context);

// The modal windows; each returns when closed. `parent` null means the main window.
// EditStaff shows the session's current employee.
void openEditStaff(AppContext& context, QWidget* parent = nullptr);
void openEditStaffNew(AppContext& context, QWidget* parent = nullptr);
void openAddStaff(AppContext& context, QWidget* parent = nullptr);
void openScheduleFile(AppContext& context, QWidget* parent = nullptr);
void newScheduleFile(AppContext& context, QWidget* parent = nullptr);
void saveScheduleFileAs(AppContext& context, QWidget* parent = nullptr);
void deleteScheduleFile(AppContext& context, QWidget* parent = nullptr);

// The menu's delete works on the current employee; without one there is nothing to ask about, and
// the list, where one can be chosen, opens instead.
void deleteCurrentEmployee(AppContext& context);

// After employees changed: the open employee list and leave calendar read again, and the
// application is told.
void employeesChanged(AppContext& context);

}  // namespace tallymere::app

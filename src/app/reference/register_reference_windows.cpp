#include "app/common/qt_ui.h"
#include "app/reference/add_staff_window.h"
#include "app/reference/edit_staff_new_window.h"
#include "app/reference/edit_staff_window.h"
#include "app/reference/leave_calendar_window.h"
#include "app/reference/person_list_window.h"
#include "app/reference/queryemployee_window.h"
#include "app/reference/reference_windows.h"
#include "app/reference/schedule_file_windows.h"
#include "app/reference/settings_window.h"
#include "common/session.h"
#include "reference/person_list.h"
#include "shell/main_form.h"

namespace tallymere::app {

namespace {

QWidget* parentOr(AppContext& context, QWidget* parent) { return parent ? parent : context.mainWindow(); }

}  // namespace

QWidget* openSettings(AppContext& context, int tab) {
    QWidget* w = context.openChild(QStringLiteral("settings"), [&] { return new SettingsWindow(context, tab); });
    if (auto* settings = dynamic_cast<SettingsWindow*>(w)) settings->showTab(tab);
    return w;
}

QWidget* openPersonList(AppContext& context) {
    return context.openChild(QStringLiteral("PersonListFrm"), [&] { return new PersonListWindow(context); });
}

QWidget* openLeaveCalendar(AppContext& context) {
    return context.openChild(QStringLiteral("leavecal"), [&] { return new LeaveCalendarWindow(context); });
}

QWidget* openQueryEmployee(AppContext& context) {
    return context.openChild(QStringLiteral("queryemployee"), [&] { return new QueryEmployeeWindow(context); });
}

void employeesChanged(AppContext& context) {
    for (const char* name : {"PersonListFrm", "leavecal"})
        if (auto* child = dynamic_cast<ChildWindow*>(context.findChild(QString::fromLatin1(name))))
            child->refreshWindow();
    context.employeesChanged();
}

void openEditStaff(AppContext& context, QWidget* parent) {
    {
        EditStaffWindow window(context, parentOr(context, parent));
        if (!window.loaded()) return;
        window.exec();
    }
    employeesChanged(context);
}

void openEditStaffNew(AppContext& context, QWidget* parent) {
    bool created = false;
    {
        EditStaffNewWindow window(context, parentOr(context, parent));
        if (!window.loaded()) return;
        window.exec();
        // Also when the employee was created by the question on leaving.
        created = window.model().newPersonid() != 0;
    }
    if (created) employeesChanged(context);
}

void openAddStaff(AppContext& context, QWidget* parent) {
    AddStaffWindow window(context.session(), parentOr(context, parent));
    if (window.exec() == QDialog::Accepted) employeesChanged(context);
}

void openScheduleFile(AppContext& context, QWidget* parent) {
    OpenScheduleWindow window(context, parentOr(context, parent));
    window.exec();
}

void newScheduleFile(AppContext& context, QWidget* parent) {
    ScheduleNameWindow window(context, std::nullopt, parentOr(context, parent));
    window.exec();
}

void saveScheduleFileAs(AppContext& context, QWidget* parent) {
    SaveAsWindow window(context, parentOr(context, parent));
    window.exec();
}

void deleteScheduleFile(AppContext& context, QWidget* parent) {
    DeleteScheduleWindow window(context, parentOr(context, parent));
    window.exec();
}

void deleteCurrentEmployee(AppContext& context) {
    common::Session& s = context.session();
    reference::PersonListFrm list(s);
    list.Refresh();
    for (const auto& p : list.grid1) {
        if (p.personid != s.currentEmployee) continue;
        if (reference::DeleteEmployee(s, p.personid, p.FirstName, p.LastName)) employeesChanged(context);
        return;
    }
    openPersonList(context);
}

void registerReferenceWindows(AppContext& context) {
    AppContext* c = &context;
    using reference::settings;

    c->registerCommand("mnuEmployeeS", [c] { openPersonList(*c); });
    c->registerCommand("mnushifts", [c] { openSettings(*c, settings::ShiftsTab); });
    c->registerCommand("mnupositions", [c] { openSettings(*c, settings::PositionsTab); });
    c->registerCommand("mnusections", [c] { openSettings(*c, settings::SectionsTab); });
    c->registerCommand("mnuAddEmployee", [c] { openEditStaffNew(*c); });
    c->registerCommand("mnuEmployeeEdit", [c] {
        if (c->session().currentEmployee != 0)
            openEditStaff(*c);
        else
            openPersonList(*c);
    });
    c->registerCommand("mnuEmployeeDelete", [c] { deleteCurrentEmployee(*c); });
    c->registerCommand("mnuSrchPerson", [c] { openQueryEmployee(*c); });
    c->registerCommand("mnuemployeeleavemonth", [c] { openLeaveCalendar(*c); });

    c->registerCommand("mnuOpen", [c] { openScheduleFile(*c); });
    c->registerCommand("mnunew", [c] { newScheduleFile(*c); });
    c->registerCommand("mnusaveas", [c] {
        if (!c->mainForm().requireOpenSchedule()) saveScheduleFileAs(*c);
    });
    c->registerCommand("mnudeleteschedule", [c] { deleteScheduleFile(*c); });

    // Opened by name: at the start when no schedule file is open, at the exit, and by the daily
    // schedule's employee list.
    QtUi& ui = context.ui();
    ui.registerModal("Openfrm", [c] { openScheduleFile(*c); });
    ui.registerModal("SaveAs", [c] { saveScheduleFileAs(*c); });
    ui.registerModal("opennew", [c] { newScheduleFile(*c); });
    ui.registerModal("deletesched", [c] { deleteScheduleFile(*c); });
    ui.registerModal("AddStaff", [c] { openAddStaff(*c); });
    ui.registerModal("EditStaff", [c] { openEditStaff(*c); });
    ui.registerModal("EditStaffnew", [c] { openEditStaffNew(*c); });

    c->registerChildWindow(QStringLiteral("settings"), [c] { return new SettingsWindow(*c, settings::ShiftsTab); });
    c->registerChildWindow(QStringLiteral("PersonListFrm"), [c] { return new PersonListWindow(*c); });
    c->registerChildWindow(QStringLiteral("leavecal"), [c] { return new LeaveCalendarWindow(*c); });
    c->registerChildWindow(QStringLiteral("queryemployee"), [c] { return new QueryEmployeeWindow(*c); });
}

}  // namespace tallymere::app

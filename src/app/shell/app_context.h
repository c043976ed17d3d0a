#pragma once
// What a view needs from the application around it: the session, the Qt ports, the main window's
// model and MDI area, and the routing of menu commands. The main window implements it; each
// subsystem's views register their commands and modal windows through it at start.

#include <QSize>
#include <QString>
#include <functional>
#include <string>

class QMenu;
class QWidget;

namespace tallymere::common {
class Session;
}
namespace tallymere::shell {
class MainForm;
}

namespace tallymere::app {

class QtUi;

class AppContext {
public:
    virtual ~AppContext() = default;

    virtual common::Session& session() = 0;
    virtual QtUi& ui() = 0;
    virtual shell::MainForm& mainForm() = 0;
    // The main window, as parent of modal dialogs.
    virtual QWidget* mainWindow() = 0;

    // Shows `windowName` as a child window of the MDI area: brings an open one (found by its
    // objectName) forward, or makes it with `create` (which must set the objectName). Returns it.
    virtual QWidget* openChild(const QString& windowName, const std::function<QWidget*()>& create) = 0;
    // The open child window of that name, or null.
    virtual QWidget* findChild(const QString& windowName) = 0;

    // Routes the menu entry (by its name) to a handler. An entry with no handler stays disabled,
    // so no command silently does nothing. The toolbar's buttons run their menu entry's handler.
    // The quick bar's Add button is routed the same way, as the command "addfromlv".
    virtual void registerCommand(const std::string& menuName, std::function<void()> handler) = 0;

    // How to make a child window that the main window's model opens by name (the daily schedule at
    // start). A name nobody registered is not opened.
    virtual void registerChildWindow(const QString& windowName, std::function<QWidget*()> create) = 0;

    // A pop-up menu by its name (`mnudailgridrightclick`, `mnudailygridlistviewrightclick`,
    // `mnudaterightclick`), for the window that shows it. Its entries run the registered commands and
    // follow the model's states like every other entry; null for another name.
    virtual QMenu* popupMenu(const std::string& menuName) = 0;

    // The current schedule file changed (opened, created, renamed, saved as or deleted): the
    // caption, the daily schedule and the staffing windows follow.
    virtual void scheduleChanged() = 0;

    // An employee was added, changed or deleted: the daily schedule's employee list follows.
    virtual void employeesChanged() {}
    // Shifts, positions or sections changed: the quick bar's lists follow.
    virtual void referenceListsChanged() {}
    // The main window's model changed the quick bar's fields (a quick add fills empty minutes).
    virtual void quickBarChanged() {}
};

// What the main window asks of a child window of the MDI area. A child that implements it (beside
// QWidget) gets these calls; the defaults do nothing.
class ChildWindow {
public:
    virtual ~ChildWindow() = default;
    // `mnurefresh` and the toolbar's Refresh, on the active child.
    virtual void refreshWindow() {}
    // The size `mnuResetForm` gives the window; an empty size means its size hint.
    virtual QSize defaultSize() const { return {}; }
    // The daily schedule's refreshes, asked for by the main window's model.
    virtual void updailyflexform() {}
    virtual void UpDailyGridUpEmpl() {}
    // The quick bar's times changed with its shift list: the daily schedule marks its employees again.
    virtual void quickBarTimesChanged() {}
    // The window became the active child, or another one did.
    virtual void activated() {}
    virtual void deactivated() {}
};

// Each subsystem's views register their commands, child windows and modal windows here.
void registerMaintenanceWindows(AppContext& context);
void registerReferenceWindows(AppContext& context);
void registerScheduleWindows(AppContext& context);
void registerAutoschedWindows(AppContext& context);
void registerStaffingWindows(AppContext& context);
void registerPayrollWindows(AppContext& context);
// Every subsystem's windows and commands, as the program runs with them.
void registerAllWindows(AppContext& context);

}  // namespace tallymere::app

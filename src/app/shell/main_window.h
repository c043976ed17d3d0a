#pragma once
// The main window `frmMain`: the frame of every child window. It shows the shell's model
// (shell::MainForm): the menus and pop-up menus built from the command tables, the toolbar
// `Toolbar1`, the quick bar, the date navigator and the caption; it routes every command by its menu
// name to the handler registered for it, and tells the model which child window is active.

#include "app/shell/app_context.h"
#include "reports/output.h"
#include "shell/main_form.h"

#include <QMainWindow>
#include <QPointer>
#include <functional>
#include <map>
#include <memory>
#include <string>

class QAction;
class QMdiArea;
class QMdiSubWindow;
class QMenu;
class QSplashScreen;
class QToolBar;
class QToolButton;

namespace tallymere::common {
class Session;
}

namespace tallymere::app {

class DateNavigator;
class OutputWindow;
class QtUi;
class QuickBar;

class MainWindow : public QMainWindow, public shell::MainFormHost, public AppContext {
    Q_OBJECT

public:
    // `ui` is the application's Ui port, where the windows register their modal dialogs; the session
    // may talk to the user through another (tests).
    MainWindow(common::Session& session, QtUi& ui, QWidget* parent = nullptr);
    ~MainWindow() override;

    QMdiArea* mdiArea() const { return mdiArea_; }
    // The menu entry's action (also a submenu's), or null.
    QAction* action(std::string_view menuName) const;
    // Whether a handler is registered for the command.
    bool isHandled(std::string_view menuName) const;
    // Runs a command as its menu entry would; false when nothing handles it.
    bool runCommand(std::string_view menuName);

    // Puts the window where the last run left it (options mainx, mainy, mainwidth, mainheight,
    // mainstate, in twips), kept on the screen; call after the start has read the options.
    void restorePlace();
    // The window name of the active child, empty when none.
    QString activeChildName() const;
    // What the output commands print on: the system's printers, or the given one (tests); not owned.
    void setPrinter(reports::Printer* printer) { printer_ = printer; }

    // --- AppContext
    common::Session& session() override { return session_; }
    QtUi& ui() override { return ui_; }
    shell::MainForm& mainForm() override { return *form_; }
    QWidget* mainWindow() override { return this; }
    QWidget* openChild(const QString& windowName, const std::function<QWidget*()>& create) override;
    QWidget* findChild(const QString& windowName) override;
    // QObject's lookups by type stay reachable beside the lookup of child windows.
    using QMainWindow::findChild;
    void registerCommand(const std::string& menuName, std::function<void()> handler) override;
    void registerChildWindow(const QString& windowName, std::function<QWidget*()> create) override;
    QMenu* popupMenu(const std::string& menuName) override;
    void scheduleChanged() override;
    void employeesChanged() override;
    void referenceListsChanged() override;
    void quickBarChanged() override;

    // --- MainFormHost
    void showSplash(bool shown) override;
    void menusChanged() override;
    void captionChanged() override;
    void barsChanged() override;
    void activeDateChanged() override;
    void showChild(std::string_view windowName) override;
    bool isChildLoaded(std::string_view windowName) override;
    shell::WindowPlace childPlace(std::string_view windowName) override;
    shell::WindowPlace mainPlace() override;
    void refreshActiveChild() override;
    void updailyflexform() override;
    void UpDailyGridUpEmpl() override;

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    // The toolbars are shown and hidden by the View menu only.
    QMenu* createPopupMenu() override { return nullptr; }

private:
    void buildMenus();
    void addMenuEntries(QMenu* menu, std::string_view parent);
    void buildToolbar();
    void runToolbarButton(const std::string& key, const std::string& command);
    void registerShellCommands();
    void registerOutputCommands();
    // The active child when the output commands reach it, else null.
    OutputWindow* outputWindow() const;
    void outputCommand(const std::string& menuName);
    void withPrinter(const std::function<void(reports::Printer&)>& use);
    void fillWindowMenu();
    void childActivated(QMdiSubWindow* window);
    void resetForm();
    QSize defaultSize() const;
    void openHelp();
    void showAbout();
    QMdiSubWindow* subWindowNamed(const QString& windowName) const;
    ChildWindow* childWindow(const QString& windowName) const;

    common::Session& session_;
    QtUi& ui_;
    std::unique_ptr<shell::MainForm> form_;
    QMdiArea* mdiArea_;
    QToolBar* toolbar_ = nullptr;
    QToolBar* navigatorBar_ = nullptr;
    QuickBar* quickBar_ = nullptr;
    DateNavigator* navigator_ = nullptr;
    QSplashScreen* splash_ = nullptr;

    std::map<std::string, QAction*, std::less<>> actions_;
    std::map<std::string, QMenu*, std::less<>> menus_;
    std::map<std::string, std::function<void()>, std::less<>> commands_;
    std::map<QString, std::function<QWidget*()>> childFactories_;
    // Toolbar buttons with the command each runs.
    std::vector<std::pair<QToolButton*, std::string>> toolButtons_;
    // The entries of the Window menu's list of open windows, rebuilt as it opens.
    std::vector<QAction*> windowListActions_;
    QPointer<QMdiSubWindow> activeChild_;
    reports::Printer* printer_ = nullptr;
};

}  // namespace tallymere::app

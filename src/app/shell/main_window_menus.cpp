// The main window's commands: the menus and the toolbar built from the shell's tables, the state of
// every entry as the model gives it, and the routing of each entry to its handler.

#include "app/shell/main_window.h"

#include "app/common/qt_ui.h"
#include "app/shell/quick_bar.h"
#include "app/shell/shell_icons.h"
#include "common/session.h"
#include "shell/menus.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QToolBar>
#include <QToolButton>
#include <QUrl>

namespace tallymere::app {

using shell::MenuEntry;

namespace {

QString toQt(std::string_view s) { return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size())); }

}  // namespace

void MainWindow::buildMenus() {
    for (const MenuEntry* top : shell::menuChildren("")) {
        QMenu* menu = menuBar()->addMenu(toQt(top->caption));
        menu->setObjectName(toQt(top->name));
        menu->menuAction()->setObjectName(toQt(top->name));
        menus_[std::string(top->name)] = menu;
        actions_[std::string(top->name)] = menu->menuAction();
        addMenuEntries(menu, top->name);
    }
    for (const MenuEntry* root : shell::popupMenus()) {
        auto* menu = new QMenu(this);
        menu->setObjectName(toQt(root->name));
        menus_[std::string(root->name)] = menu;
        addMenuEntries(menu, root->name);
    }
    connect(menus_.at("mnuWindow"), &QMenu::aboutToShow, this, &MainWindow::fillWindowMenu);
}

void MainWindow::addMenuEntries(QMenu* menu, std::string_view parent) {
    for (const MenuEntry* e : shell::menuChildren(parent)) {
        if (e->separatorBefore) menu->addSeparator();
        QAction* action = nullptr;
        if (e->isSeparator()) {
            action = menu->addSeparator();
        } else if (!shell::menuChildren(e->name).empty()) {
            QMenu* sub = menu->addMenu(toQt(e->caption));
            sub->setObjectName(toQt(e->name));
            menus_[std::string(e->name)] = sub;
            action = sub->menuAction();
            addMenuEntries(sub, e->name);
        } else {
            action = menu->addAction(toQt(e->caption));
            connect(action, &QAction::triggered, this, [this, name = std::string(e->name)] { runCommand(name); });
        }
        action->setObjectName(toQt(e->name));
        actions_[std::string(e->name)] = action;
    }
}

void MainWindow::buildToolbar() {
    toolbar_ = new QToolBar(QStringLiteral("Main Toolbar"), this);
    toolbar_->setObjectName(QStringLiteral("Toolbar1"));
    toolbar_->setMovable(false);
    toolbar_->setIconSize(QSize(22, 22));
    addToolBar(Qt::TopToolBarArea, toolbar_);
    for (const shell::ToolbarButton& b : shell::toolbarTable()) {
        if (b.isSeparator()) {
            toolbar_->addSeparator();
            continue;
        }
        const std::string key(b.key);
        auto* button = new QToolButton(toolbar_);
        button->setObjectName(QString::fromStdString(key));
        button->setIcon(toolbarIcon(b.key));
        button->setIconSize(toolbar_->iconSize());
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::NoFocus);
        if (!b.tip.empty()) button->setToolTip(toQt(b.tip));
        // What a screen reader says: the tip, or for the two buttons without one ("report", "key")
        // the caption of their menu entry, without its "&" and "...".
        QString spoken = toQt(b.tip);
        if (const auto entry = actions_.find(std::string(b.action)); spoken.isEmpty() && entry != actions_.end())
            spoken = entry->second->iconText();
        button->setAccessibleName(spoken);
        if (const auto menu = menus_.find(b.action); menu != menus_.end()) {
            // A button for a whole menu ("report") drops it down.
            button->setMenu(menu->second);
            button->setPopupMode(QToolButton::InstantPopup);
        } else {
            connect(button, &QToolButton::clicked, this,
                    [this, key, command = std::string(b.action)] { runToolbarButton(key, command); });
        }
        toolbar_->addWidget(button);
        toolButtons_.emplace_back(button, std::string(b.action));
    }
}

void MainWindow::runToolbarButton(const std::string& key, const std::string& command) {
    try {
        runCommand(command);
    } catch (const common::ProgramEnd&) {
        throw;
    } catch (const std::exception& e) {
        session_.ui().message("Error occurred loading '" + key + "' from toolbar. Error: " + e.what(),
                              common::MsgButtons::Ok, common::MsgIcon::Critical, "Tallymere System Error");
    }
}

void MainWindow::registerShellCommands() {
    for (const shell::SortEntry& e : shell::sortTable())
        for (std::string_view name : {e.viewMenu, e.popupMenu})
            registerCommand(std::string(name), [this, name] { form_->sortMenu_Click(name); });
    for (const shell::DateFormatEntry& e : shell::dateFormatTable())
        registerCommand(std::string(e.name), [this, name = e.name] { form_->dateFormatMenu_Click(name); });
    registerCommand("mnuQuickBar", [this] { form_->mnuQuickBar_Click(); });
    registerCommand("mnutoolbar", [this] { form_->mnutoolbar_Click(); });
    registerCommand("mnurefresh", [this] { form_->mnurefresh_Click(); });
    registerCommand("mnuTile", [this] { mdiArea_->tileSubWindows(); });
    registerCommand("mnuCascade", [this] { mdiArea_->cascadeSubWindows(); });
    registerCommand("mnuResetForm", [this] { resetForm(); });
    registerCommand("mnuFExit", [this] { close(); });
    registerCommand("mnutallymerehelp", [this] { openHelp(); });
    registerCommand("mnuabout", [this] { showAbout(); });
}

void MainWindow::registerCommand(const std::string& menuName, std::function<void()> handler) {
    commands_[menuName] = std::move(handler);
    menusChanged();
}

bool MainWindow::isHandled(std::string_view menuName) const { return commands_.find(menuName) != commands_.end(); }

bool MainWindow::runCommand(std::string_view menuName) {
    const auto it = commands_.find(menuName);
    if (it == commands_.end()) return false;
    // Copied: the handler may register commands while it runs.
    const std::function<void()> handler = it->second;
    handler();
    // A checkable entry toggles itself when triggered; the model says what it really is.
    menusChanged();
    return true;
}

QAction* MainWindow::action(std::string_view menuName) const {
    const auto it = actions_.find(menuName);
    return it == actions_.end() ? nullptr : it->second;
}

QMenu* MainWindow::popupMenu(const std::string& menuName) {
    const MenuEntry* e = shell::findMenu(menuName);
    if (!e || !e->popup) return nullptr;
    return menus_.at(menuName);
}

void MainWindow::menusChanged() {
    if (actions_.empty()) return;
    for (const MenuEntry& e : shell::menuTable()) {
        if (e.popup) continue;
        QAction* a = action(e.name);
        if (!a) continue;
        const shell::MenuState st = form_->menu(e.name);
        const bool isCommand = !e.isSeparator() && menus_.find(e.name) == menus_.end();
        a->setVisible(st.visible);
        a->setEnabled(st.enabled && (!isCommand || isHandled(e.name)));
        if (e.isSeparator()) continue;
        if (!st.caption.empty() && a->text() != QString::fromStdString(st.caption))
            a->setText(QString::fromStdString(st.caption));
        if (st.checked) a->setCheckable(true);
        if (a->isCheckable()) a->setChecked(st.checked);
    }
    for (const auto& [button, command] : toolButtons_) {
        const QAction* a = action(command);
        button->setEnabled(a && a->isEnabled());
    }
    if (quickBar_) quickBar_->setAddEnabled(isHandled("addfromlv") && isChildLoaded("dailyflexgrid"));
}

void MainWindow::fillWindowMenu() {
    QMenu* menu = menus_.at("mnuWindow");
    for (QAction* a : windowListActions_) {
        menu->removeAction(a);
        delete a;
    }
    windowListActions_.clear();
    const QList<QMdiSubWindow*> windows = mdiArea_->subWindowList();
    if (windows.isEmpty()) return;
    windowListActions_.push_back(menu->addSeparator());
    int n = 0;
    for (QMdiSubWindow* sub : windows) {
        const QString title = sub->windowTitle().isEmpty() ? sub->widget()->objectName() : sub->windowTitle();
        QAction* a = menu->addAction(n < 9 ? QStringLiteral("&%1 %2").arg(n + 1).arg(title) : title);
        ++n;
        a->setCheckable(true);
        a->setChecked(sub == mdiArea_->currentSubWindow());
        connect(a, &QAction::triggered, this, [this, sub = QPointer<QMdiSubWindow>(sub)] {
            if (!sub) return;
            if (sub->isMinimized()) sub->showNormal();
            mdiArea_->setActiveSubWindow(sub);
        });
        windowListActions_.push_back(a);
    }
}

void MainWindow::openHelp() {
    const QString page =
        QDir(QString::fromStdString(session_.programFolder)).filePath(QStringLiteral("help/index.html"));
    if (!QFileInfo::exists(page) || !QDesktopServices::openUrl(QUrl::fromLocalFile(page)))
        session_.ui().message("The help pages could not be opened. They belong in " + page.toStdString() + ".",
                              common::MsgButtons::Ok, common::MsgIcon::Information, common::Session::kAppTitle);
}

void MainWindow::showAbout() {
    QMessageBox box(this);
    box.setObjectName(QStringLiteral("frmAbout"));
    box.setWindowTitle(QStringLiteral("About Tallymere"));
    box.setIconPixmap(programIcon().pixmap(64, 64));
    box.setTextFormat(Qt::PlainText);
    box.setText(QStringLiteral("Tallymere\nVersion %1").arg(toQt(session_.platform().programVersion())));
    box.setInformativeText(
        QStringLiteral("Builds, checks, prints and costs the work schedule of a small business's employees."));
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
}

}  // namespace tallymere::app

#include "app/shell/main_window.h"

#include "app/common/qt_ui.h"
#include "app/common/widget_support.h"
#include "app/common/window_place.h"
#include "app/shell/date_navigator.h"
#include "app/shell/firstrun_dialog.h"
#include "app/shell/quick_bar.h"
#include "app/shell/shell_icons.h"
#include "common/session.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QLocale>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QSplashScreen>
#include <QToolBar>
#include <algorithm>
#include <tuple>

namespace tallymere::app {

namespace {}  // namespace

MainWindow::MainWindow(common::Session& session, QtUi& ui, QWidget* parent)
    : QMainWindow(parent),
      session_(session),
      ui_(ui),
      form_(std::make_unique<shell::MainForm>(session, *this)),
      mdiArea_(new QMdiArea(this)) {
    setObjectName(QStringLiteral("frmMain"));
    setWindowIcon(programIcon());
    mdiArea_->setObjectName(QStringLiteral("mdiArea"));
    mdiArea_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    mdiArea_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setCentralWidget(mdiArea_);

    buildMenus();
    buildToolbar();

    navigator_ = new DateNavigator(this);
    navigator_->setContextMenu(popupMenu("mnudaterightclick"));
    navigatorBar_ = new QToolBar(QStringLiteral("Date"), this);
    navigatorBar_->setObjectName(QStringLiteral("DateBar"));
    navigatorBar_->setMovable(false);
    navigatorBar_->addWidget(navigator_);
    addToolBar(Qt::TopToolBarArea, navigatorBar_);

    addToolBarBreak(Qt::TopToolBarArea);
    quickBar_ = new QuickBar(*form_, this);
    addToolBar(Qt::TopToolBarArea, quickBar_);

    connect(navigator_, &DateNavigator::stepClicked, this, [this](const QString& button) {
        using Step = void (shell::MainForm::*)();
        static const std::map<QString, Step> steps = {
            {QStringLiteral("dayPlus"), &shell::MainForm::dayPlus_Click},
            {QStringLiteral("SSCommand1"), &shell::MainForm::SSCommand1_Click},
            {QStringLiteral("weekplus"), &shell::MainForm::weekplus_Click},
            {QStringLiteral("SSCommand3"), &shell::MainForm::SSCommand3_Click},
            {QStringLiteral("monthplus"), &shell::MainForm::monthplus_Click},
            {QStringLiteral("SSCommand2"), &shell::MainForm::SSCommand2_Click},
            {QStringLiteral("yearplus"), &shell::MainForm::yearplus_Click},
            {QStringLiteral("SSCommand4"), &shell::MainForm::SSCommand4_Click},
        };
        if (const auto it = steps.find(button); it != steps.end()) (form_.get()->*(it->second))();
    });
    connect(navigator_, &DateNavigator::dateEdited, this,
            [this](const QDate& d) { form_->tooldate_Change(common::Date::fromYmd(d.year(), d.month(), d.day())); });
    connect(quickBar_, &QuickBar::shiftTimesChanged, this, [this] {
        if (ChildWindow* daily = childWindow(QStringLiteral("dailyflexgrid"))) daily->quickBarTimesChanged();
    });
    connect(quickBar_, &QuickBar::addClicked, this, [this] { runCommand("addfromlv"); });
    connect(mdiArea_, &QMdiArea::subWindowActivated, this, &MainWindow::childActivated);

    registerShellCommands();
    registerOutputCommands();
    ui_.registerModal("firstrun", [this] {
        FirstRunDialog dialog(this);
        dialog.exec();
    });

    resize(defaultSize());
    captionChanged();
    barsChanged();
    activeDateChanged();
    menusChanged();
}

MainWindow::~MainWindow() {
    // The child windows hold references to this window's own parts (the main form, the quick bar):
    // they go first, while those still stand, and without reporting back to this window.
    disconnect(mdiArea_, nullptr, this, nullptr);
    for (QMdiSubWindow* sub : mdiArea_->subWindowList()) disconnect(sub, nullptr, this, nullptr);
    qDeleteAll(mdiArea_->subWindowList());
    delete splash_;
}

// ---------------------------------------------------------------------------------------------
// Child windows

QMdiSubWindow* MainWindow::subWindowNamed(const QString& windowName) const {
    for (QMdiSubWindow* sub : mdiArea_->subWindowList())
        if (sub->widget() && sub->widget()->objectName() == windowName) return sub;
    return nullptr;
}

ChildWindow* MainWindow::childWindow(const QString& windowName) const {
    const QMdiSubWindow* sub = subWindowNamed(windowName);
    return sub ? dynamic_cast<ChildWindow*>(sub->widget()) : nullptr;
}

QWidget* MainWindow::findChild(const QString& windowName) {
    const QMdiSubWindow* sub = subWindowNamed(windowName);
    return sub ? sub->widget() : nullptr;
}

QWidget* MainWindow::openChild(const QString& windowName, const std::function<QWidget*()>& create) {
    if (QMdiSubWindow* sub = subWindowNamed(windowName)) {
        if (sub->isMinimized()) sub->showNormal();
        mdiArea_->setActiveSubWindow(sub);
        return sub->widget();
    }
    QWidget* widget = create ? create() : nullptr;
    if (!widget) return nullptr;
    if (widget->objectName().isEmpty()) widget->setObjectName(windowName);
    QMdiSubWindow* sub = mdiArea_->addSubWindow(widget);
    sub->setAttribute(Qt::WA_DeleteOnClose);
    // The last child closing switches the output commands off.
    connect(sub, &QObject::destroyed, this, [this] {
        if (mdiArea_->subWindowList().isEmpty()) childActivated(nullptr);
        menusChanged();
    });
    sub->show();
    mdiArea_->setActiveSubWindow(sub);
    menusChanged();
    return widget;
}

void MainWindow::registerChildWindow(const QString& windowName, std::function<QWidget*()> create) {
    childFactories_[windowName] = std::move(create);
}

void MainWindow::showChild(std::string_view windowName) {
    const QString name = qs(windowName);
    const auto it = childFactories_.find(name);
    if (subWindowNamed(name) || it != childFactories_.end())
        openChild(name, it != childFactories_.end() ? it->second : std::function<QWidget*()>());
}

bool MainWindow::isChildLoaded(std::string_view windowName) { return subWindowNamed(qs(windowName)) != nullptr; }

shell::WindowPlace MainWindow::childPlace(std::string_view windowName) {
    const QMdiSubWindow* sub = subWindowNamed(qs(windowName));
    if (!sub) return {};
    const QRect r = sub->geometry();
    const int state = sub->isMinimized() ? 1 : sub->isMaximized() ? 2 : 0;
    return {r.x() * kTwipsPerPixel, r.y() * kTwipsPerPixel, r.width() * kTwipsPerPixel, r.height() * kTwipsPerPixel,
            state};
}

QString MainWindow::activeChildName() const {
    return activeChild_ && activeChild_->widget() ? activeChild_->widget()->objectName() : QString();
}

void MainWindow::childActivated(QMdiSubWindow* window) {
    // Null also comes when a window outside the area (a dialog) takes the focus: the last active
    // child then still counts, as the area's current window says.
    QMdiSubWindow* current = window ? window : mdiArea_->currentSubWindow();
    if (current && !current->widget()) current = nullptr;
    if (current && current == activeChild_) return;
    if (activeChild_)
        if (auto* before = dynamic_cast<ChildWindow*>(activeChild_->widget())) before->deactivated();
    activeChild_ = current;
    if (current)
        form_->MenuSetupFormActivation(current->widget()->objectName().toStdString());
    else
        form_->MenuSetupFormDeactivation();
    if (current)
        if (auto* now = dynamic_cast<ChildWindow*>(current->widget())) now->activated();
}

void MainWindow::refreshActiveChild() {
    if (QMdiSubWindow* sub = mdiArea_->currentSubWindow())
        if (auto* child = dynamic_cast<ChildWindow*>(sub->widget())) child->refreshWindow();
}

void MainWindow::updailyflexform() {
    if (ChildWindow* daily = childWindow(QStringLiteral("dailyflexgrid"))) daily->updailyflexform();
}

void MainWindow::UpDailyGridUpEmpl() {
    if (ChildWindow* daily = childWindow(QStringLiteral("dailyflexgrid"))) daily->UpDailyGridUpEmpl();
}

void MainWindow::scheduleChanged() {
    form_->scheduleChanged();
    updailyflexform();
    for (const QString& name : {QStringLiteral("staffing"), QStringLiteral("analyzelevels")})
        if (ChildWindow* child = childWindow(name)) child->refreshWindow();
}

void MainWindow::employeesChanged() { UpDailyGridUpEmpl(); }

void MainWindow::quickBarChanged() { quickBar_->refresh(); }

void MainWindow::referenceListsChanged() {
    // The lists are read again; what the user has chosen and typed in the bar stays while it can.
    shell::MainForm& f = *form_;
    const auto kept =
        std::make_tuple(f.shiftcombo.text, f.positioncombo.text, f.sectioncombo.text, f.TETxtHr, f.TeTxtMin, f.TEAmPm);
    f.SetupQuickBar();
    const auto keep = [](schedule::QuickBar::Combo& c, const std::string& text) {
        if (std::find(c.items.begin(), c.items.end(), text) != c.items.end()) c.text = text;
    };
    keep(f.shiftcombo, std::get<0>(kept));
    keep(f.positioncombo, std::get<1>(kept));
    keep(f.sectioncombo, std::get<2>(kept));
    std::tie(std::ignore, std::ignore, std::ignore, f.TETxtHr, f.TeTxtMin, f.TEAmPm) = kept;
    barsChanged();
}

// Wide enough for the toolbar and the date navigator on one row, where the screen allows.
QSize MainWindow::defaultSize() const {
    const QScreen* screen = this->screen() ? this->screen() : QGuiApplication::primaryScreen();
    const QSize wanted(1180, 760);
    return screen ? wanted.boundedTo(screen->availableSize()) : wanted;
}

void MainWindow::resetForm() {
    if (QMdiSubWindow* sub = mdiArea_->currentSubWindow()) {
        const auto* child = dynamic_cast<const ChildWindow*>(sub->widget());
        QSize size = child ? child->defaultSize() : QSize();
        if (size.isEmpty()) size = sub->widget()->sizeHint().expandedTo(QSize(480, 320));
        sub->showNormal();
        sub->move(0, 0);
        // The frame around the child's own size.
        sub->resize(size + (sub->size() - sub->widget()->size()));
        return;
    }
    showNormal();
    resize(defaultSize());
    if (const QScreen* screen = this->screen()) move(screen->availableGeometry().center() - rect().center());
}

// ---------------------------------------------------------------------------------------------
// The model's notifications

void MainWindow::showSplash(bool shown) {
    if (shown) {
        if (!splash_) splash_ = new QSplashScreen(splashPixmap(qs(session_.platform().programVersion())));
        splash_->setObjectName(QStringLiteral("frmSplash"));
        splash_->show();
        splash_->repaint();
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        // A question of the start must not open behind the splash.
        qApp->installEventFilter(this);
    } else if (splash_) {
        qApp->removeEventFilter(this);
        splash_->close();
        delete splash_;
        splash_ = nullptr;
    }
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (splash_ && event->type() == QEvent::Show && watched != splash_ && watched->isWidgetType() &&
        static_cast<QWidget*>(watched)->isWindow())
        splash_->hide();
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::captionChanged() { setWindowTitle(QString::fromStdString(form_->caption())); }

void MainWindow::barsChanged() {
    toolbar_->setVisible(form_->toolbarVisible());
    quickBar_->setVisible(form_->quickBarVisible());
    quickBar_->refresh();
}

void MainWindow::activeDateChanged() {
    QString format;
    switch (form_->toolDateFormat()) {
    case shell::ToolDateFormat::Short: format = QLocale().dateFormat(QLocale::ShortFormat); break;
    case shell::ToolDateFormat::Long: format = QLocale().dateFormat(QLocale::LongFormat); break;
    case shell::ToolDateFormat::Custom:
        format = QString::fromStdString(shell::dateControlFormat(form_->toolDateCustomFormat()));
        break;
    }
    navigator_->display(toQDate(session_.activeDate), format);
}

shell::WindowPlace MainWindow::mainPlace() {
    const int state = isMinimized() ? 1 : isMaximized() ? 2 : 0;
    return {x() * kTwipsPerPixel, y() * kTwipsPerPixel, width() * kTwipsPerPixel, height() * kTwipsPerPixel, state};
}

void MainWindow::restorePlace() {
    const common::GlobalSettings& g = session_.settings;
    const QScreen* screen = this->screen() ? this->screen() : QGuiApplication::primaryScreen();
    const QRect available = screen ? screen->availableGeometry() : QRect(0, 0, 1024, 768);
    if (g.mainwidth && g.mainheight && *g.mainwidth > 0 && *g.mainheight > 0)
        resize(QSize(*g.mainwidth / kTwipsPerPixel, *g.mainheight / kTwipsPerPixel)
                   .boundedTo(available.size())
                   .expandedTo(minimumSizeHint()));
    if (g.mainx && g.mainy) {
        // Kept on the screen: a place saved on a larger or a second monitor would be out of reach.
        QPoint p(*g.mainx / kTwipsPerPixel, *g.mainy / kTwipsPerPixel);
        p.setX(std::clamp(p.x(), available.left(), std::max(available.left(), available.right() - width() + 1)));
        p.setY(std::clamp(p.y(), available.top(), std::max(available.top(), available.bottom() - height() + 1)));
        move(p);
    }
    if (g.mainstate && *g.mainstate == 2) setWindowState(windowState() | Qt::WindowMaximized);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (!form_->mnuFExit_Click()) {
        event->ignore();
        return;
    }
    event->accept();
    QCoreApplication::quit();
}

}  // namespace tallymere::app

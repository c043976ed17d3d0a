#pragma once
// What the reference views' tests stand them in: a main window with an MDI area, the commands in a
// map, and a count of what the views told the application. Modal windows are driven by actions
// that run once the window is up.

#include "app/common/qt_ui.h"
#include "app/shell/app_context.h"
#include "app_test.h"
#include "shell/main_form.h"
#include "support/fake_main_form_host.h"

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTimer>
#include <functional>
#include <map>

namespace tallymere::testing {

class FakeContext : public app::AppContext {
public:
    explicit FakeContext(common::Session& s) : session_(s), form_(s, host_) {
        mdi_ = new QMdiArea(&window_);
        window_.setCentralWidget(mdi_);
        window_.resize(1200, 800);
        window_.show();
    }

    common::Session& session() override { return session_; }
    app::QtUi& ui() override { return qtUi_; }
    shell::MainForm& mainForm() override { return form_; }
    QWidget* mainWindow() override { return &window_; }

    QWidget* openChild(const QString& name, const std::function<QWidget*()>& create) override {
        if (QWidget* open = findChild(name)) {
            mdi_->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(open->parentWidget()));
            return open;
        }
        QWidget* w = create();
        QMdiSubWindow* sub = mdi_->addSubWindow(w);
        sub->setAttribute(Qt::WA_DeleteOnClose);
        ++childrenMade[name];
        w->show();
        // Laid out, as the event loop would have done before the user could click.
        QApplication::processEvents();
        return w;
    }
    QWidget* findChild(const QString& name) override {
        for (QMdiSubWindow* sub : mdi_->subWindowList())
            if (sub->widget() && sub->widget()->objectName() == name) return sub->widget();
        return nullptr;
    }
    void registerCommand(const std::string& name, std::function<void()> handler) override {
        commands[name] = std::move(handler);
    }
    void registerChildWindow(const QString& name, std::function<QWidget*()> create) override {
        childWindows[name] = std::move(create);
    }
    QMenu* popupMenu(const std::string&) override { return nullptr; }
    void scheduleChanged() override { ++scheduleChanges; }
    void employeesChanged() override { ++employeeChanges; }
    void referenceListsChanged() override { ++listChanges; }

    // Runs a command as its menu entry would; false when none is registered.
    bool run(const std::string& name) {
        const auto it = commands.find(name);
        if (it == commands.end()) return false;
        it->second();
        return true;
    }

    QMdiArea* mdi() { return mdi_; }

    std::map<std::string, std::function<void()>> commands;
    std::map<QString, std::function<QWidget*()>> childWindows;
    std::map<QString, int> childrenMade;
    int scheduleChanges = 0;
    int employeeChanges = 0;
    int listChanges = 0;

private:
    common::Session& session_;
    FakeMainFormHost host_;
    shell::MainForm form_;
    app::QtUi qtUi_;
    QMainWindow window_;
    QMdiArea* mdi_;
};

// Runs `act` on the modal window named `name` (or of that class) as soon as it is up (within two seconds). The window
// is closed afterwards if the action left it open, so a failing test cannot hang in its exec().
// `ran` is set once the action ran; setting `cancelled` stops the watch.
struct ModalWatch {
    bool ran = false;
    bool cancelled = false;
};

inline std::shared_ptr<ModalWatch> whenModal(const QString& name, std::function<void(QDialog*)> act) {
    auto watch = std::make_shared<ModalWatch>();
    auto timer = std::make_shared<QElapsedTimer>();
    timer->start();
    auto poll = std::make_shared<std::function<void()>>();
    *poll = [=] {
        if (watch->cancelled) return;
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || (dialog->objectName() != name && QLatin1String(dialog->metaObject()->className()) != name)) {
            if (timer->elapsed() < 2000) QTimer::singleShot(10, *poll);
            return;
        }
        watch->ran = true;
        act(dialog);
        if (dialog->isVisible() && QApplication::activeModalWidget() == dialog) dialog->done(QDialog::Rejected);
    };
    QTimer::singleShot(0, *poll);
    return watch;
}

template <class T = QWidget>
T* named(QObject* parent, const char* name) {
    T* w = parent->findChild<T*>(QString::fromUtf8(name));
    EXPECT_NE(w, nullptr) << name;
    return w;
}

// The one of several widgets of that name whose property "index" is `index`.
template <class T = QWidget>
T* indexed(QObject* parent, const char* name, int index) {
    for (T* w : parent->findChildren<T*>(QString::fromUtf8(name)))
        if (w->property("index").toInt() == index) return w;
    ADD_FAILURE() << name << " " << index;
    return nullptr;
}

}  // namespace tallymere::testing

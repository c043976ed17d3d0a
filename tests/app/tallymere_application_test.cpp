#include "app/common/qt_ui.h"
#include "app_test.h"
#include "common/session.h"

#include <QEvent>
#include <QEventLoop>
#include <QTimer>
#include <functional>
#include <stdexcept>

namespace tallymere::testing {
namespace {

// Runs an action when it receives a posted event, the way a handler of a click would.
class Handler : public QObject {
public:
    explicit Handler(std::function<void()> action) : action_(std::move(action)) {}
    void post() { QCoreApplication::postEvent(this, new QEvent(QEvent::User)); }

protected:
    bool event(QEvent* e) override {
        if (e->type() != QEvent::User) return QObject::event(e);
        action_();
        return true;
    }

private:
    std::function<void()> action_;
};

class TallymereApplicationTest : public AppTest {
protected:
    // Runs the event loop with a guard against a test that would otherwise never return.
    int exec() {
        QTimer::singleShot(5000, &app(), [] { QCoreApplication::exit(99); });
        return QCoreApplication::exec();
    }
};

TEST_F(TallymereApplicationTest, ProgramEndInsideAModalWindowLeavesEveryLoopAndStopsItsCaller) {
    app::QtUi ui;
    Handler ender([] { throw common::ProgramEnd(); });
    ui.registerModal("enterpassword", [&] {
        QEventLoop modalLoop;
        ender.post();
        modalLoop.exec();
    });

    bool callerStopped = false;
    bool callerWentOn = false;
    Handler opener([&] {
        try {
            ui.showModal("enterpassword");
            callerWentOn = true;
        } catch (const common::ProgramEnd&) {
            callerStopped = true;
            throw;
        }
    });
    opener.post();

    EXPECT_EQ(exec(), 0);
    EXPECT_TRUE(app().ending());
    EXPECT_TRUE(callerStopped);
    EXPECT_FALSE(callerWentOn);
}

TEST_F(TallymereApplicationTest, UnexpectedErrorIsToldAndTheProgramGoesOn) {
    QStringList told;
    app().setErrorReporter([&](const QString& what) { told << what; });
    Handler faulty([] { throw std::runtime_error("index out of range"); });
    Handler quitter([] { QCoreApplication::exit(7); });
    faulty.post();
    quitter.post();

    EXPECT_EQ(exec(), 7);
    EXPECT_FALSE(app().ending());
    ASSERT_EQ(told.size(), 1);
    EXPECT_TRUE(told.front().contains(QStringLiteral("index out of range")));
}

}  // namespace
}  // namespace tallymere::testing

#include "app/tallymere_application.h"

#include "common/session.h"

#include <QMessageBox>
#include <exception>

namespace tallymere::app {

TallymereApplication::TallymereApplication(int& argc, char** argv) : QApplication(argc, argv) {
    setOrganizationName(QStringLiteral("Quillbrook"));
    setApplicationName(QString::fromUtf8(common::Session::kAppTitle));
    report_ = [](const QString& what) {
        QMessageBox::critical(QApplication::activeWindow(), QString::fromUtf8(common::Session::kAppTitle), what);
    };
}

bool TallymereApplication::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const common::ProgramEnd&) {
        // The logic has set ExitNow and told the user what it had to; leave every event loop, nested
        // modal ones included, and run nothing more of this event.
        ending_ = true;
        QCoreApplication::exit(0);
    } catch (const std::exception& e) {
        // A fault of the program, not of the user's data: say so and keep the work open.
        report_(QStringLiteral("An unexpected error occurred: %1").arg(QString::fromUtf8(e.what())));
    }
    return true;
}

}  // namespace tallymere::app

// Starts Tallymere: the ports on Qt, one session, the database in the user's data folder, the main window.

#include "app/common/qsettings_user_settings.h"
#include "app/common/qt_ui.h"
#include "app/shell/main_window.h"
#include "app/tallymere_application.h"
#include "common/clock.h"
#include "common/session.h"
#include "store/access.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

using namespace tallymere;

int main(int argc, char** argv) {
    app::TallymereApplication application(argc, argv);

    common::SystemClock clock;
    app::QSettingsUserSettings userSettings;
    app::QtUi ui;
    common::Session session(ui, userSettings, clock);
    session.programFolder = QCoreApplication::applicationDirPath().toStdString();

    const QString dataFolder =
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/Quillbrook/Tallymere");
    QDir().mkpath(dataFolder);
    session.setDataFolder(dataFolder.toStdString());

    // A first start: the database is a copy of the template that ships beside the program.
    const QString database = QString::fromStdString(session.DatabasePath());
    if (!QFile::exists(database)) {
        const QString templateFile = QDir(QCoreApplication::applicationDirPath())
                                         .filePath(QString::fromUtf8(common::Session::kTemplateFileName));
        if (QFile::copy(templateFile, database))
            QFile::setPermissions(database, QFile::permissions(database) | QFile::WriteOwner);
    }

    try {
        if (!store::ConnectDB(session)) return 1;
    } catch (const common::ProgramEnd&) {
        return 0;
    }

    app::MainWindow window(session);
    window.show();
    return application.exec();
}

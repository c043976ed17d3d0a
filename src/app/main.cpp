// Starts Tallymere: the ports on Qt, one session, the main window with every subsystem's windows,
// then the start itself, which finds the data folder, opens the database and asks the password.

#include "app/common/qsettings_user_settings.h"
#include "app/common/qt_locale.h"
#include "app/common/qt_platform.h"
#include "app/common/qt_ui.h"
#include "app/shell/main_window.h"
#include "app/tallymere_application.h"
#include "common/clock.h"
#include "common/session.h"

#include <QIcon>
#include <QLocale>

using namespace tallymere;

int main(int argc, char** argv) {
    app::TallymereApplication application(argc, argv);
    // Outside a desktop that names an icon theme, a common one gives the toolbar better pictures
    // than the style's; where it is missing too, the style's are used.
    if (QIcon::themeName().isEmpty() || QIcon::themeName() == QLatin1String("hicolor"))
        QIcon::setThemeName(QStringLiteral("Adwaita"));

    common::SystemClock clock;
    app::QSettingsUserSettings userSettings;
    app::QtUi ui;
    app::QtPlatform platform;
    common::Session session(ui, userSettings, clock);
    session.setPlatform(platform);
    session.programFolder = QCoreApplication::applicationDirPath().toStdString();
    session.locale = app::formatLocaleFrom(QLocale());

    app::MainWindow window(session, ui);
    application.setWindowIcon(window.windowIcon());
    app::registerAllWindows(window);

    try {
        if (!window.mainForm().Load()) return 0;
    } catch (const common::ProgramEnd&) {
        return 0;
    }
    window.restorePlace();
    window.show();
    return application.exec();
}

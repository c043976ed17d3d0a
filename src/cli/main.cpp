// tallymere-cli: the ports on the machine (the user's settings and data folder as the program finds
// them, the system's locale), then one run of the command line.

#include "app/common/qsettings_user_settings.h"
#include "app/common/qt_locale.h"
#include "app/common/qt_platform.h"
#include "cli/cli.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStandardPaths>
#include <cstdlib>
#include <iostream>

int main(int argc, char** argv) {
    using namespace tallymere;
    QCoreApplication application(argc, argv);

    std::vector<std::string> args;
    for (int i = 1; i < argc; ++i) args.emplace_back(argv[i]);

    common::SystemClock clock;
    app::QSettingsUserSettings userSettings;
    // The command line never takes the lock that keeps a second copy of the program out: it may run
    // beside the program, as another machine on a shared file may.
    app::QtPlatform platform(QStandardPaths::writableLocation(QStandardPaths::TempLocation));
    cli::Environment env{userSettings,
                         platform,
                         clock,
                         app::formatLocaleFrom(QLocale()),
                         QCoreApplication::applicationDirPath().toStdString(),
                         std::nullopt};
    if (const char* password = std::getenv("TALLYMERE_PASSWORD")) env.password = password;

    return cli::run(args, std::cout, std::cerr, env);
}

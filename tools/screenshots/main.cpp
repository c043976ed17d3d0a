// tallymere_screenshots FOLDER: writes pictures of the windows, on sample data, into FOLDER as PNG
// files. Without a display it draws offscreen.

#include "app/tallymere_application.h"
#include "scene.h"

#include <QCoreApplication>
#include <QDir>
#include <cstdio>

using namespace tallymere;

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    app::TallymereApplication application(argc, argv);
    const QStringList args = QCoreApplication::arguments();
    if (args.size() != 2 || args[1].startsWith(QLatin1Char('-'))) {
        std::fprintf(stderr, "usage: tallymere_screenshots FOLDER\nWrites pictures of the windows into FOLDER.\n");
        return 2;
    }
    const QString out = args[1];
    if (!QDir().mkpath(out)) {
        std::fprintf(stderr, "Cannot make the folder %s\n", qPrintable(out));
        return 1;
    }
    const QString templatePath = QCoreApplication::applicationDirPath() + QStringLiteral("/TMDataStructure.tmx");
    int failures = 0;
    for (void (*shots)(shots::Scene&) : {&shots::shellShots, &shots::referenceShots, &shots::scheduleShots}) {
        shots::Scene scene(out, templatePath);
        if (!scene.ready()) return 1;
        shots(scene);
        failures += scene.failures();
    }
    return failures == 0 ? 0 : 1;
}

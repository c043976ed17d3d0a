#include "app/common/qsettings_user_settings.h"
#include "app_test.h"

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

namespace tallymere::testing {
namespace {

class QSettingsUserSettingsTest : public AppTest {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir.isValid());
        // The user's store is looked for here instead of the real config folder.
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, dir.path());
    }

    QTemporaryDir dir;
};

TEST_F(QSettingsUserSettingsTest, NamesDoNotTellCase) {
    {
        app::QSettingsUserSettings settings;
        EXPECT_EQ(settings.get("datalocation"), "");
        settings.set("DataLocation", "/srv/shared/Tallymere");
        EXPECT_EQ(settings.get("datalocation"), "/srv/shared/Tallymere");
        settings.set("DATALOCATION", "/home/owner/Tallymere");
        EXPECT_EQ(settings.get("DataLocation"), "/home/owner/Tallymere");
    }
    // A later run reads the same value, from one key only.
    app::QSettingsUserSettings again;
    EXPECT_EQ(again.get("dataLocation"), "/home/owner/Tallymere");

    const QString file = dir.filePath(QStringLiteral("Quillbrook/Tallymere.ini"));
    ASSERT_EQ(again.fileName(), file);
    QSettings raw(file, QSettings::IniFormat);
    raw.beginGroup(QStringLiteral("settings"));
    EXPECT_EQ(raw.childKeys(), QStringList{QStringLiteral("datalocation")});
}

TEST_F(QSettingsUserSettingsTest, KeepsTextAsWritten) {
    app::QSettingsUserSettings settings(dir.filePath(QStringLiteral("own.ini")));
    settings.set("NumRun", "15");
    settings.set("SBShift", "Morning, early; \"Café\" = 1");
    app::QSettingsUserSettings again(dir.filePath(QStringLiteral("own.ini")));
    EXPECT_EQ(again.get("numrun"), "15");
    EXPECT_EQ(again.get("sbshift"), "Morning, early; \"Café\" = 1");
}

}  // namespace
}  // namespace tallymere::testing

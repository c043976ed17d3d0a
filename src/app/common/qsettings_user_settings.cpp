#include "app/common/qsettings_user_settings.h"

namespace tallymere::app {

QSettingsUserSettings::QSettingsUserSettings()
    : settings_(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Quillbrook"), QStringLiteral("Tallymere")) {
}

QSettingsUserSettings::QSettingsUserSettings(const QString& iniFile) : settings_(iniFile, QSettings::IniFormat) {}

QString QSettingsUserSettings::key(std::string_view name) {
    return QStringLiteral("settings/") + QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())).toLower();
}

std::string QSettingsUserSettings::get(std::string_view name) const {
    return settings_.value(key(name)).toString().toStdString();
}

void QSettingsUserSettings::set(std::string_view name, std::string_view value) {
    settings_.setValue(key(name), QString::fromUtf8(value.data(), static_cast<qsizetype>(value.size())));
    // Written at once, as the system's store is: a crash later must not lose NumRun or DataLocation.
    settings_.sync();
}

}  // namespace tallymere::app

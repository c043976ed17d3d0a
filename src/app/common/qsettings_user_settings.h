#pragma once
// The per-user settings store on QSettings: an INI file in the user's config folder
// (Quillbrook/Tallymere.ini), group "settings". Names are folded to lower case, since the logic
// writes "DataLocation" and reads "datalocation".

#include "common/user_settings.h"

#include <QSettings>
#include <QString>

namespace tallymere::app {

class QSettingsUserSettings final : public common::UserSettings {
public:
    // The user's own store.
    QSettingsUserSettings();
    // A store in the given INI file.
    explicit QSettingsUserSettings(const QString& iniFile);

    std::string get(std::string_view name) const override;
    void set(std::string_view name, std::string_view value) override;

    QString fileName() const { return settings_.fileName(); }

private:
    static QString key(std::string_view name);

    mutable QSettings settings_;
};

}  // namespace tallymere::app

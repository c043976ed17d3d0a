#pragma once
// Pictures of the windows on the sample data of a small restaurant, for a person to look at. Each
// set of pictures gets a scene: a fresh database from the template in a folder of its own, a session
// on it with a fixed day, and the main window.

#include "app/common/qt_ui.h"
#include "app/shell/main_window.h"
#include "common/clock.h"
#include "common/session.h"
#include "common/user_settings.h"

#include <QString>
#include <QTemporaryDir>
#include <memory>

class QImage;
class QWidget;

namespace tallymere::shots {

// Messages go to stderr and get their first answer, so a question cannot stop the pictures.
class QuietUi final : public common::Ui {
public:
    common::MsgAnswer message(std::string_view text, common::MsgButtons buttons, common::MsgIcon icon,
                              std::string_view title) override;
    void showModal(std::string_view) override {}
    std::optional<std::string> chooseFolder(std::string_view, std::string_view) override { return std::nullopt; }
    std::optional<std::string> chooseOpenFile(std::string_view, std::string_view,
                                              const std::vector<common::FileFilter>&) override {
        return std::nullopt;
    }
    std::optional<std::string> chooseSaveFile(std::string_view, std::string_view,
                                              const std::vector<common::FileFilter>&, bool) override {
        return std::nullopt;
    }
    void setBusy(bool) override {}
    void processEvents() override {}
    void beep() override {}
    void playSound(std::string_view) override {}
};

class Scene {
public:
    // `outFolder` receives the pictures; `templatePath` is the template database.
    Scene(const QString& outFolder, const QString& templatePath);
    ~Scene();

    bool ready() const { return ready_; }
    common::Session& s() { return *session_; }
    // The main window with every subsystem's windows, made on first use (after the data is in).
    app::MainWindow& window();
    QString dataFolder() const { return data_.path(); }
    QString outFolder() const { return out_; }

    // Saves the widget, as shown now, as <name>.png.
    void save(QWidget* w, const QString& name);
    void saveImage(const QImage& image, const QString& name);
    // An MDI child with its frame and caption, at the size the window asks for.
    void saveChild(QWidget* child, const QString& name);
    // A dialog shown at its own size, then hidden again.
    void saveDialog(QWidget* dialog, const QString& name);
    int failures() const { return failures_; }

private:
    QString out_;
    QTemporaryDir data_;
    QuietUi ui_;
    common::MemoryUserSettings userSettings_;
    common::FixedClock clock_;
    app::QtUi qtUi_;
    std::unique_ptr<common::Session> session_;
    std::unique_ptr<app::MainWindow> window_;
    bool ready_ = false;
    int failures_ = 0;
};

// The reference windows: settings, employees and their tabs, leave, the schedule file windows.
void referenceShots(Scene& scene);
// The daily schedule on a busy day, its week view and the entry editor.
void scheduleShots(Scene& scene);
// The main window with its menus, the splash, and the maintenance dialogs.
void shellShots(Scene& scene);

}  // namespace tallymere::shots

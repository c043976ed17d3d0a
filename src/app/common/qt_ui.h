#pragma once
// The user interface port on Qt Widgets: message boxes, file choosers, the busy cursor, sound, and the
// modal windows that the logic opens by name.

#include "common/ui.h"

#include <QString>
#include <functional>
#include <map>
#include <memory>
#include <string>

class QSoundEffect;
class QWidget;

namespace tallymere::app {

class QtUi final : public common::Ui {
public:
    QtUi();
    ~QtUi() override;

    common::MsgAnswer message(std::string_view text, common::MsgButtons buttons, common::MsgIcon icon,
                              std::string_view title) override;
    // Opens the window registered under this name; a name nobody registered shows nothing.
    void showModal(std::string_view windowName) override;

    std::optional<std::string> chooseFolder(std::string_view title, std::string_view startFolder) override;
    std::optional<std::string> chooseOpenFile(std::string_view title, std::string_view startFolder,
                                              const std::vector<common::FileFilter>& filters) override;
    std::optional<std::string> chooseSaveFile(std::string_view title, std::string_view suggestedPath,
                                              const std::vector<common::FileFilter>& filters,
                                              bool confirmOverwrite) override;

    void setBusy(bool busy) override;
    void processEvents() override;
    void beep() override;
    void playSound(std::string_view path) override;

    // A modal window opens itself, runs its exec() and returns when closed.
    using ModalFactory = std::function<void()>;
    void registerModal(const std::string& windowName, ModalFactory open);
    bool hasModal(const std::string& windowName) const { return modals_.count(windowName) != 0; }

    // The Qt form of a file filter list: "Tallymere database (*.db);;All files (*)".
    static QString filterString(const std::vector<common::FileFilter>& filters);

private:
    static QWidget* parentWindow();

    std::map<std::string, ModalFactory> modals_;
    std::unique_ptr<QSoundEffect> sound_;
    bool busy_ = false;
};

}  // namespace tallymere::app

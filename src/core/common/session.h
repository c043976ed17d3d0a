#pragma once
// Everything the system treats as global state for one run, on one database: the data folder, the
// active date, the open schedule, the access flags, the global settings, the open connection and the
// ports to the world. One object, passed by reference; a test may open as many as it likes.

#include "common/clock.h"
#include "common/date_time.h"
#include "common/display_format.h"
#include "common/global_settings.h"
#include "common/platform.h"
#include "common/ui.h"
#include "common/user_settings.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tallymere::common {

// Thrown where the system "ends at once": nothing after that point may run. The app catches it at
// the top of every event and closes without the saves of a normal exit (ExitNow is set).
class ProgramEnd : public std::runtime_error {
public:
    ProgramEnd() : std::runtime_error("Tallymere is ending") {}
};

// The undo command's menu entry: shown while an undo snapshot exists, its caption naming what will
// be undone. The main window registers itself with the session.
class UndoMenu {
public:
    virtual ~UndoMenu() = default;
    virtual void showUndo(std::string_view caption) = 0;
    virtual void hideUndo() = 0;
};

struct UserRights {
    // True where user mode lacks the right; all false in owner mode.
    bool noSchedule = false;
    bool noEmployeeView = false;
    bool noEmployee = false;
    bool noPosition = false;
    bool noShift = false;
    bool noSection = false;
    bool noPayroll = false;
    bool noStaffLevels = false;
};

// What a lower layer keeps for the session and the session owns: the store's open database. The
// session never looks inside, so that common stays below store.
class SessionPart {
public:
    virtual ~SessionPart() = default;
};

class Session {
public:
    Session(Ui& ui, UserSettings& userSettings, const Clock& clock);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    Ui& ui() { return ui_; }
    UserSettings& userSettings() { return userSettings_; }
    const Clock& clock() const { return clock_; }
    // The store's part of the session (its Database), made by the store on first use.
    SessionPart* storePart() { return storePart_.get(); }
    void setStorePart(std::unique_ptr<SessionPart> part) { storePart_ = std::move(part); }
    // The machine; a plain one until the app or a test sets its own (kept by reference).
    Platform& platform() { return platform_ ? *platform_ : plainPlatform_; }
    void setPlatform(Platform& p) { platform_ = &p; }

    static constexpr const char* kAppTitle = "Tallymere";
    static constexpr const char* kDatabaseFileName = "Tallymere.db";
    static constexpr const char* kTemplateFileName = "TMDataStructure.tmx";
    static constexpr const char* kUnassignedName = "**Unassigned**";
    static constexpr const char* kUndoScheduleName = "*undo*";

    // Sets the data folder and the database path beside it.
    void setDataFolder(const std::string& folder);
    // The database file as found in the data folder, where its name differs from Tallymere.db in
    // case only; setDataFolder puts the usual name back.
    void setDatabaseFileName(const std::string& name) {
        if (!dataFolder_.empty()) databasePath_ = dataFolder_ + "/" + name;
    }
    const std::string& DataFolder() const { return dataFolder_; }
    const std::string& DatabasePath() const { return databasePath_; }

    // The folder of the program: template, shipped database, sound and help live there.
    std::string programFolder;

    // Ends the program at once: sets ExitNow and throws ProgramEnd.
    [[noreturn]] void endProgram();
    // True once the end has been asked for; the app leaves its event loop when it sees it.
    bool endRequested() const { return endRequested_; }

    bool ExitNow = false;
    bool PasswordPassed = true;
    bool IsUserMode = false;
    UserRights rights;

    Date activeDate;
    std::string currentSchedule;  // `sname` of the open schedule file; empty when none is open
    long currentEmployee = 0;     // `personid` of the employee picked in the daily list
    bool refreshWanted = false;   // raised by every change to `sched`; windows refresh on activation

    // What the undo snapshot covers: first and last day and the schedule file.
    Date undoFrom;
    Date undoTo;
    std::string undoScheduleName;
    // The undo command's menu entry; null when no main window shows one.
    UndoMenu* undoMenu = nullptr;

    GlobalSettings settings;
    FormatLocale locale;
    // How dates show in messages: "short date" until the user picks another format from the main
    // window's date menu.
    std::string displayDateFormat = "short date";
    // A date as messages show it: in the user's display format.
    std::string messageDate(Date d) const { return formatDate(d, displayDateFormat, locale); }

    // The heading of the daily schedule; the report date format is settings.reportdateformat.
    std::string dailyHeadingFormat = "dddd mmm dd, yyyy";

private:
    Ui& ui_;
    UserSettings& userSettings_;
    const Clock& clock_;
    std::unique_ptr<SessionPart> storePart_;
    Platform* platform_ = nullptr;
    PlainPlatform plainPlatform_;
    std::string dataFolder_;
    std::string databasePath_;
    bool endRequested_ = false;
};

}  // namespace tallymere::common

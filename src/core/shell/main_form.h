#pragma once
// The main window's model: the start of the program through to the first daily view, the way out,
// the state of every menu entry, the caption, the active date and its navigator, the toolbar and the
// quick bar. The Qt main window owns one, implements MainFormHost for it, and routes its events here.

#include "common/session.h"
#include "schedule/schedule_host.h"
#include "store/options.h"

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tallymere::shell {

using common::Date;
using common::Session;
using store::WindowPlace;

// What the model asks of the window that shows it. Everything else the view reads from the model
// after a notification.
class MainFormHost {
public:
    virtual ~MainFormHost() = default;

    // The splash window: shown at the first step of Load, hidden when Load returns.
    virtual void showSplash(bool shown) = 0;
    // Menu states changed (enabled, checked, visible, caption): read them again with MainForm::menu.
    virtual void menusChanged() = 0;
    // MainForm::caption changed.
    virtual void captionChanged() = 0;
    // The toolbar's or the quick bar's visibility, or the quick bar's lists and time fields, changed.
    virtual void barsChanged() = 0;
    // The active date or the navigator's format changed: put them into `tooldate`. The view must not
    // call back into the navigator's change handler while MainForm::loading() is true.
    virtual void activeDateChanged() = 0;

    // Loads a child window by its window name ("dailyflexgrid"), or brings it forward when loaded.
    virtual void showChild(std::string_view windowName) = 0;
    virtual bool isChildLoaded(std::string_view windowName) = 0;
    // The place of a loaded child window, in twips, for SaveFormPosition.
    virtual WindowPlace childPlace(std::string_view windowName) = 0;
    // The main window's own place in twips; `state` 0 normal, 1 minimized, 2 maximized.
    virtual WindowPlace mainPlace() = 0;

    // Refreshes the active child window (`mnurefresh`).
    virtual void refreshActiveChild() = 0;
    // Refreshes the whole daily schedule for the active date, when it is loaded.
    virtual void updailyflexform() = 0;
    // Refreshes the grid and the employee list of the daily schedule, when it is loaded.
    virtual void UpDailyGridUpEmpl() = 0;
};

// One menu entry's state. The view shows `enabled` as MainForm::menu gives it, which also weighs the
// user's rights and whether a schedule file is open.
struct MenuState {
    bool enabled = true;
    bool checked = false;
    bool visible = true;
    std::string caption;
};

// How the date navigator shows the date: the control's long or short date, or a custom format.
enum class ToolDateFormat { Long, Short, Custom };

// The default data folder: the common documents folder + "Quillbrook/Tallymere" when the system knows
// one, else the application data folder + "Quillbrook/Tallymere", made where missing; empty when
// neither is known.
std::string DefaultDataFolder(common::Platform& platform);

// A date-only pattern in the form the date control reads: month letters upper case ("dd/mm/yy"
// becomes "dd/MM/yy", since in the control "mm" would be minutes), day and year letters lower case.
std::string dateControlFormat(std::string_view pattern);

class MainForm : public common::UndoMenu, public schedule::ScheduleHost, public schedule::QuickBar {
public:
    static constexpr const char* kCaptionPrefix = "Quillbrook Tallymere - ";
    static constexpr const char* kNoScheduleOpen =
        "No schedule file is open. Please open a schedule file or create a new one.";

    MainForm(Session& s, MainFormHost& host);
    ~MainForm() override;
    MainForm(const MainForm&) = delete;
    MainForm& operator=(const MainForm&) = delete;

    // The start, from the splash to the first daily view. False when the program must end: after the
    // refusal of a second copy, or when the start left (ExitNow is then set). Ends of the access layer
    // (common::ProgramEnd) pass through.
    bool Load();
    // True while Load runs: handlers of controls must not act on the values the start puts into them.
    bool loading() const { return loading_; }
    // The default data folder as the start worked it out, for the data location windows.
    const std::string& defaultDataFolder() const { return defaultFolder_; }

    // The way out, from the exit command or any closing of the main window. True when the program
    // ends; false when the user chose to stay (Cancel at the name question, or Save As cancelled).
    // May be entered again after it returned true: it then does nothing.
    bool mnuFExit_Click();

    // --- Menus
    // The entry's state as shown: `enabled` is false also where the user's rights take the entry away
    // or where it needs an open schedule file and none is open.
    MenuState menu(std::string_view name) const;
    bool menuEnabled(std::string_view name) const { return menu(name).enabled; }
    bool menuChecked(std::string_view name) const { return menu(name).checked; }
    bool menuVisible(std::string_view name) const { return menu(name).visible; }
    // Setters for the windows that steer entries (the daily schedule's entry commands, the undo); an
    // unknown name throws std::invalid_argument.
    // `enabled` set here is the entry's own state, still weighed as above.
    void setMenuEnabled(std::string_view name, bool enabled) override;
    void setMenuChecked(std::string_view name, bool checked);
    void setMenuVisible(std::string_view name, bool visible);
    void setMenuCaption(std::string_view name, std::string_view caption);

    // Undo: `mnuEditUndo` and its separator shown with the caption of what can be undone, or hidden.
    void showUndo(std::string_view caption) override;
    void hideUndo() override;
    // Hides the undo entries and deletes the snapshot.
    void ClearUndo();

    // Output commands for the active child window, by its window name; off when none is active.
    void MenuSetupFormActivation(std::string_view windowName);
    void MenuSetupFormDeactivation();
    // Whether PDF output is set up, which `mnuSaveToPDF` needs. It needs no printer, so it is.
    bool pdfOutputReady() const { return pdfOutputReady_; }
    void setPdfOutputReady(bool ready) { pdfOutputReady_ = ready; }

    // Takes the user's rights away from the menus in user mode (after the password prompt).
    void applyRights();
    // The open schedule file changed (opened, created, renamed, closed): caption and the menus that
    // need one. The view calls this after Openfrm, opennew, SaveAs and deletesched return.
    void scheduleChanged();
    // True when the command must stop because no schedule file is open, after saying `message`.
    bool requireOpenSchedule(std::string_view message = kNoScheduleOpen);

    // "Quillbrook Tallymere - " and the open schedule file's name.
    std::string caption() const;

    // --- Daily schedule sort: the five entries of the View menu and of the grid's pop-up menu.
    // Sets the sort column, ticks the two entries of that sort, unticks the others, refreshes the grid.
    void sortDaily(std::string_view column);
    // The click of any of the ten sort entries; false for another entry.
    bool sortMenu_Click(std::string_view menuName);

    // --- Bars
    bool toolbarVisible() const { return toolbarVisible_; }
    bool quickBarVisible() const { return quickBarVisible_; }
    void mnuQuickBar_Click();
    void mnutoolbar_Click();

    // --- Active date and navigator
    // Makes `d` the active date, sets the navigator, lets pending events run and refreshes the day.
    void datechange(Date d);
    // The user changed `tooldate`; ignored while loading.
    void tooldate_Change(Date d);
    void dayPlus_Click() override;     // one day on
    void SSCommand1_Click() override;  // one day back
    void weekplus_Click();             // 7 days on
    void SSCommand3_Click();           // 7 days back
    void monthplus_Click();            // one calendar month on
    void SSCommand2_Click();           // one calendar month back
    void yearplus_Click();             // 52 weeks on
    void SSCommand4_Click();           // 52 weeks back

    ToolDateFormat toolDateFormat() const;
    // The custom format as the control keeps it ("MM/dd/yyyy"); meaningful when the format is Custom.
    const std::string& toolDateCustomFormat() const;
    // The navigator's format in the formatting language ("long date", "short date" or the custom one)
    // and the active date in it.
    std::string toolDatePattern() const;
    std::string toolDateText() const;

    // Writes today's date into the captions of the date format entries.
    void FillDateFormatMenu();
    // The click of a date format entry; false for another entry.
    bool dateFormatMenu_Click(std::string_view menuName);

    // Refreshes the active child window.
    void mnurefresh_Click();

    // --- Quick bar (the fields are the QuickBar base).
    schedule::QuickBar& quickBar() override { return *this; }

    // Fills the quick bar's lists and restores its last selections and times.
    void SetupQuickBar();
    // The shift list's choice changed: the time fields take the shift's times. True when they did, so
    // that the daily schedule marks its employee list again.
    bool shiftCombo_click();

private:
    // Why the start failed, as its handler tells the cases apart.
    enum class LoadFailure { NetworkFolder, MissingPath, Other };

    bool leave();
    bool openDatabase(bool firstStart, const std::string& defaultFolder);
    bool finishStart();
    // The report settings' defaults that come from the page: the width of a day column.
    void reportDefaults();
    bool handleLoadFailure(LoadFailure kind, int number, const std::string& description);
    void openLastSchedule();
    void tickSortEntries(std::string_view column);
    void setQuickBarDefaults();
    void saveAtExit();
    MenuState& state(std::string_view name);
    void changed() { host_.menusChanged(); }

    Session& s_;
    MainFormHost& host_;
    std::map<std::string, MenuState, std::less<>> menus_;
    std::vector<std::string> rightsDisabled_;
    std::string defaultFolder_;
    bool loading_ = false;
    bool anotherCopy_ = false;
    bool ended_ = false;
    bool pdfOutputReady_ = true;
    bool toolbarVisible_ = true;
    bool quickBarVisible_ = false;
};

}  // namespace tallymere::shell

#include "shell/main_form.h"

#include "common/display_format.h"
#include "common/numbers.h"
#include "common/text.h"
#include "maintenance/access_control.h"
#include "reports/page_setup.h"
#include "shell/menus.h"
#include "shell/output_routing.h"
#include "store/access.h"
#include "store/database.h"
#include "store/online_backup.h"
#include "store/schema_upgrade.h"
#include "store/undo_snapshot.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <system_error>

namespace tallymere::shell {

namespace fs = std::filesystem;

using common::MsgAnswer;
using common::MsgButtons;
using common::MsgIcon;
using store::GetRecs;
using store::Recordset;

namespace {

constexpr const char* kSelectOption = "select optionvalue from options where optionname=?";
constexpr const char* kCannotContinue = "Without a schedule data file Tallymere cannot continue.";
constexpr const char* kNotFoundTitle = "Tallymere database could not be found";
constexpr const char* kDailyWindow = "dailyflexgrid";
// The default width of a day column is the one that fits this many days on the page.
constexpr int kDefaultReportDays = 7;

bool isFolder(const std::string& path) {
    std::error_code ec;
    return !path.empty() && fs::is_directory(path, ec);
}

bool isFile(const std::string& path) {
    std::error_code ec;
    return fs::is_regular_file(path, ec);
}

// The name of the database in the folder, compared without regard to case, as it is on the systems
// where the data folder may have been filled; the exact name when there are several. Empty when
// there is none. A folder that cannot be listed throws.
std::string databaseInFolder(const std::string& folder) {
    std::string found;
    for (const fs::directory_entry& e : fs::directory_iterator(folder)) {
        const std::string name = e.path().filename().string();
        if (name == Session::kDatabaseFileName) return name;
        if (found.empty() && common::equalsNoCase(name, Session::kDatabaseFileName)) found = name;
    }
    return found;
}

int readCount(const std::string& text) {
    const auto n = common::parseNumberStrict(text);
    return n && *n > 0 && *n < 1e9 ? static_cast<int>(common::roundHalfEven(*n)) : 0;
}

bool allDigits(const std::string& s) {
    return !s.empty() && std::all_of(s.begin(), s.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

std::string DefaultDataFolder(common::Platform& platform) {
    const auto below = [](std::string base) {
        while (base.size() > 1 && base.back() == '/') base.pop_back();
        return base + "/Quillbrook";
    };
    if (const std::string docs = platform.commonDocumentsFolder(); !docs.empty()) return below(docs) + "/Tallymere";
    const std::string data = platform.applicationDataFolder();
    if (data.empty()) return {};
    const std::string company = below(data);
    const std::string folder = company + "/Tallymere";
    std::error_code ec;
    fs::create_directory(company, ec);
    fs::create_directory(folder, ec);
    return folder;
}

std::string dateControlFormat(std::string_view pattern) {
    std::string out(pattern);
    for (char& c : out) {
        if (c == 'm')
            c = 'M';
        else if (c == 'D')
            c = 'd';
        else if (c == 'Y')
            c = 'y';
    }
    return out;
}

// ---------------------------------------------------------------------------------------------
// Menu state

MainForm::MainForm(Session& s, MainFormHost& host) : s_(s), host_(host) {
    s_.undoMenu = this;
    for (const MenuEntry& e : menuTable())
        menus_[std::string(e.name)] = MenuState{true, false, true, std::string(e.caption)};
    for (const char* undo : {"mnuEditUndo", "mnuEditUndoSep"}) {
        menus_.find(undo)->second.visible = false;
        menus_.find(undo)->second.enabled = false;
    }
    // A heading of the date format menu, not a command.
    menus_.find("mnuselectdateformat")->second.enabled = false;
    for (std::string_view name : outputCommands()) state(name).enabled = false;
    state("mnutoolbar").checked = toolbarVisible_;
    state("mnuQuickBar").checked = quickBarVisible_;
}

MenuState& MainForm::state(std::string_view name) {
    const auto it = menus_.find(name);
    if (it == menus_.end()) throw std::invalid_argument("no menu entry " + std::string(name));
    return it->second;
}

MenuState MainForm::menu(std::string_view name) const {
    const auto it = menus_.find(name);
    if (it == menus_.end()) return MenuState{false, false, false, {}};
    MenuState m = it->second;
    if (m.enabled && needsOpenSchedule(name) && common::trim(s_.currentSchedule).empty()) m.enabled = false;
    if (m.enabled && std::find(rightsDisabled_.begin(), rightsDisabled_.end(), name) != rightsDisabled_.end())
        m.enabled = false;
    return m;
}

void MainForm::setMenuEnabled(std::string_view name, bool enabled) {
    state(name).enabled = enabled;
    changed();
}

void MainForm::setMenuChecked(std::string_view name, bool checked) {
    state(name).checked = checked;
    changed();
}

void MainForm::setMenuVisible(std::string_view name, bool visible) {
    state(name).visible = visible;
    changed();
}

void MainForm::setMenuCaption(std::string_view name, std::string_view caption) {
    state(name).caption = caption;
    changed();
}

MainForm::~MainForm() {
    if (s_.undoMenu == this) s_.undoMenu = nullptr;
}

void MainForm::showUndo(std::string_view caption) {
    MenuState& undo = state("mnuEditUndo");
    undo.caption = caption;
    undo.visible = undo.enabled = true;
    state("mnuEditUndoSep").visible = true;
    changed();
}

void MainForm::hideUndo() {
    MenuState& undo = state("mnuEditUndo");
    undo.visible = undo.enabled = false;
    state("mnuEditUndoSep").visible = false;
    changed();
}

void MainForm::ClearUndo() { store::ClearUndo(s_); }

void MainForm::MenuSetupFormDeactivation() {
    for (std::string_view name : outputCommands()) state(name).enabled = false;
    changed();
}

void MainForm::MenuSetupFormActivation(std::string_view windowName) {
    // What the window before left switched on goes off first, so the result never depends on the
    // order in which the view reports activations.
    for (std::string_view name : outputCommands()) state(name).enabled = false;
    if (const OutputCommandRule* rule = findOutputRule(windowName)) {
        for (std::string_view name : rule->off) state(name).enabled = false;
        for (std::string_view name : rule->on)
            if (name != "mnuSaveToPDF" || pdfOutputReady_) state(name).enabled = true;
    }
    state("mnuSaveAsCsv").enabled = savesListCsv(windowName);
    changed();
}

void MainForm::applyRights() {
    rightsDisabled_.clear();
    if (s_.IsUserMode) rightsDisabled_ = maintenance::MenusDisabledByRights(s_.rights);
    changed();
}

void MainForm::scheduleChanged() {
    host_.captionChanged();
    changed();
}

bool MainForm::requireOpenSchedule(std::string_view message) {
    if (!common::trim(s_.currentSchedule).empty()) return false;
    s_.ui().message(message, MsgButtons::Ok, MsgIcon::Information, Session::kAppTitle);
    return true;
}

std::string MainForm::caption() const { return kCaptionPrefix + s_.currentSchedule; }

void MainForm::tickSortEntries(std::string_view column) {
    for (const SortEntry& e : sortTable()) {
        state(e.viewMenu).checked = e.column == column;
        state(e.popupMenu).checked = e.column == column;
    }
}

void MainForm::sortDaily(std::string_view column) {
    s_.settings.dailyschedsort = column;
    tickSortEntries(column);
    changed();
    host_.UpDailyGridUpEmpl();
}

bool MainForm::sortMenu_Click(std::string_view menuName) {
    const SortEntry* e = findSortEntry(menuName);
    if (!e) return false;
    sortDaily(e->column);
    return true;
}

void MainForm::mnuQuickBar_Click() {
    quickBarVisible_ = !quickBarVisible_;
    s_.settings.gb_ShowQuickBar = quickBarVisible_;
    state("mnuQuickBar").checked = quickBarVisible_;
    host_.barsChanged();
    changed();
}

void MainForm::mnutoolbar_Click() {
    toolbarVisible_ = !toolbarVisible_;
    state("mnutoolbar").checked = toolbarVisible_;
    host_.barsChanged();
    changed();
}

void MainForm::mnurefresh_Click() { host_.refreshActiveChild(); }

// ---------------------------------------------------------------------------------------------
// Active date and navigator

void MainForm::datechange(Date d) {
    s_.activeDate = d;
    host_.activeDateChanged();
    s_.ui().processEvents();
    host_.updailyflexform();
}

void MainForm::tooldate_Change(Date d) {
    if (loading_) return;
    datechange(d);
}

void MainForm::dayPlus_Click() { datechange(s_.activeDate.addDays(1)); }
void MainForm::SSCommand1_Click() { datechange(s_.activeDate.addDays(-1)); }
void MainForm::weekplus_Click() { datechange(s_.activeDate.addDays(7)); }
void MainForm::SSCommand3_Click() { datechange(s_.activeDate.addDays(-7)); }
void MainForm::monthplus_Click() { datechange(s_.activeDate.addMonths(1)); }
void MainForm::SSCommand2_Click() { datechange(s_.activeDate.addMonths(-1)); }
// 52 weeks, so the day of the week stays.
void MainForm::yearplus_Click() { datechange(s_.activeDate.addDays(364)); }
void MainForm::SSCommand4_Click() { datechange(s_.activeDate.addDays(-364)); }

ToolDateFormat MainForm::toolDateFormat() const {
    const std::string f = common::toLower(common::trim(s_.settings.tooldateformat));
    if (f == "dtpshortdate" || f == "1") return ToolDateFormat::Short;
    if (f == "dtpcustom" || f == "3") return ToolDateFormat::Custom;
    return ToolDateFormat::Long;
}

const std::string& MainForm::toolDateCustomFormat() const { return s_.settings.tooldatecustomformat; }

std::string MainForm::toolDatePattern() const {
    switch (toolDateFormat()) {
    case ToolDateFormat::Short: return "short date";
    case ToolDateFormat::Custom: return s_.settings.tooldatecustomformat;
    default: return "long date";
    }
}

std::string MainForm::toolDateText() const { return common::formatDate(s_.activeDate, toolDatePattern(), s_.locale); }

void MainForm::FillDateFormatMenu() {
    const Date today = s_.clock().today();
    for (const DateFormatEntry& e : dateFormatTable()) {
        std::string caption;
        switch (e.kind) {
        case DateFormatKind::Short:
            caption = common::formatDate(today, "short date", s_.locale) + "  <Short Date>";
            break;
        case DateFormatKind::Long: caption = common::formatDate(today, "long date", s_.locale) + "  <Long Date>"; break;
        case DateFormatKind::Custom: caption = common::formatDate(today, e.format, s_.locale); break;
        }
        state(e.name).caption = caption;
    }
    changed();
}

bool MainForm::dateFormatMenu_Click(std::string_view menuName) {
    const DateFormatEntry* e = findDateFormat(menuName);
    if (!e) return false;
    switch (e->kind) {
    case DateFormatKind::Short: s_.settings.tooldateformat = "dtpshortdate"; break;
    case DateFormatKind::Long: s_.settings.tooldateformat = "dtplongdate"; break;
    case DateFormatKind::Custom:
        // The date control's number for its custom format.
        s_.settings.tooldateformat = "3";
        s_.settings.tooldatecustomformat = e->format;
        break;
    }
    // From here on, dates in messages follow the format the user picked too.
    s_.displayDateFormat = toolDatePattern();
    host_.activeDateChanged();
    return true;
}

// ---------------------------------------------------------------------------------------------
// Quick bar

void MainForm::setQuickBarDefaults() {
    TETxtHr = {"05", "09"};
    TeTxtMin = {"00", "00"};
    TEAmPm = {"PM", "AM"};
}

void MainForm::SetupQuickBar() {
    const auto fill = [this](Combo& c, const char* sql, const char* column) {
        c.items.clear();
        c.text.clear();
        for (Recordset rs = GetRecs(s_, sql); !rs.eof(); rs.MoveNext())
            if (std::string v = rs[column].text(); !v.empty()) c.items.push_back(std::move(v));
    };
    // A saved choice comes back only while it is still in the list.
    const auto restore = [this](Combo& c, const char* setting) {
        const std::string saved = common::trim(store::GetRegSetting(s_, setting));
        for (const std::string& item : c.items)
            if (!saved.empty() && common::equalsNoCase(item, saved)) c.text = item;
    };
    // "09:00 AM": each part that does not read keeps its default.
    const auto restoreTime = [this](const char* setting, std::size_t i) {
        const std::string t = common::trim(store::GetRegSetting(s_, setting));
        const auto colon = t.find(':');
        const auto blank = t.find(' ', colon == std::string::npos ? 0 : colon);
        if (colon == std::string::npos || blank == std::string::npos) return;
        const std::string hour = t.substr(0, colon);
        const std::string minute = t.substr(colon + 1, blank - colon - 1);
        const std::string ampm = common::toUpper(common::trim(t.substr(blank + 1)));
        if (allDigits(hour) && hour.size() <= 2) TETxtHr[i] = hour;
        if (allDigits(minute) && minute.size() <= 2) TeTxtMin[i] = minute;
        if (ampm == "AM" || ampm == "PM") TEAmPm[i] = ampm;
    };

    fill(shiftcombo, "select name from shift order by strttime,endtime,name", "name");
    fill(positioncombo, "select title from position order by title", "title");
    fill(sectioncombo, "select name from section order by name", "name");
    restore(positioncombo, "SBPosition");
    restore(sectioncombo, "SBSection");
    setQuickBarDefaults();
    if (!shiftcombo.items.empty()) {
        restore(shiftcombo, "SBShift");
        restoreTime("SBStrtTime", 1);
        restoreTime("SBEndTime", 0);
    }
    host_.barsChanged();
}

bool MainForm::shiftCombo_click() {
    const std::string name = common::trim(shiftcombo.text);
    if (name.empty()) return false;
    Recordset rs = GetRecs(s_, "select * from shift where name=?", {name});
    if (rs.eof()) return false;
    // "HH:MM AM/PM": the hour without its leading zero, then minutes and AM or PM.
    const auto put = [&](const char* column, std::size_t i) {
        const auto t = rs[column].toDateTime();
        if (!t) return;
        const std::string text = common::formatDateTime(*t, "HH:MM AM/PM", s_.locale);
        TETxtHr[i] = std::to_string(std::stoi(text.substr(0, 2)));
        TeTxtMin[i] = text.substr(3, 2);
        TEAmPm[i] = text.substr(text.size() - 2);
    };
    put("strttime", 1);
    put("endtime", 0);
    host_.barsChanged();
    return true;
}

// ---------------------------------------------------------------------------------------------
// The start

bool MainForm::leave() {
    s_.ExitNow = true;
    return false;
}

bool MainForm::Load() {
    loading_ = true;
    struct Finally {
        MainForm& f;
        ~Finally() {
            f.loading_ = false;
            f.host_.showSplash(false);
        }
    } finally{*this};
    common::Ui& ui = s_.ui();

    // 1. Count the start at once, so a start that fails is counted too.
    host_.showSplash(true);
    const int numRun = readCount(store::GetRegSetting(s_, "NumRun")) + 1;
    store::SaveRegSetting(s_, "NumRun", std::to_string(numRun));
    const bool firstStart = numRun == 1;

    // 2. One copy per machine; the running one must not be disturbed.
    if (s_.platform().anotherCopyRunning()) {
        anotherCopy_ = true;
        ui.message("Tallymere is already running.", MsgButtons::Ok, MsgIcon::Information, Session::kAppTitle);
        return false;
    }

    try {
        // 3. No schedule file is open yet, so the menus that need one are off.
        s_.PasswordPassed = true;
        s_.ExitNow = false;
        s_.settings.dailyschedsort = "lname";
        s_.currentSchedule.clear();
        scheduleChanged();

        // 4.
        defaultFolder_ = DefaultDataFolder(s_.platform());
        s_.setDataFolder("");

        if (!openDatabase(firstStart, defaultFolder_)) return false;
        return finishStart();
    } catch (const common::ProgramEnd&) {
        throw;
    } catch (const fs::filesystem_error& e) {
        const bool missing = e.code() == std::errc::no_such_file_or_directory || e.code() == std::errc::not_a_directory;
        const LoadFailure kind = s_.platform().isNetworkFolder(s_.DataFolder()) ? LoadFailure::NetworkFolder
                                 : missing                                      ? LoadFailure::MissingPath
                                                                                : LoadFailure::Other;
        return handleLoadFailure(kind, e.code().value(), e.code().message());
    } catch (const std::system_error& e) {
        return handleLoadFailure(LoadFailure::Other, e.code().value(), e.code().message());
    } catch (const std::exception& e) {
        return handleLoadFailure(LoadFailure::Other, 0, e.what());
    }
}

bool MainForm::handleLoadFailure(LoadFailure kind, int number, const std::string& description) {
    common::Ui& ui = s_.ui();
    const std::string folder = s_.DataFolder();
    const auto terminate = [&] {
        ui.message("Tallymere will now terminate.", MsgButtons::Ok, MsgIcon::None, "Unable to connect to database");
        return leave();
    };
    switch (kind) {
    case LoadFailure::NetworkFolder:
        if (ui.message("Unable to connect to the network location " + folder +
                           ". Possible causes include the network location being unavailable or the Tallymere.db file "
                           "missing from this location.\n\nWould you like to select another folder?",
                       MsgButtons::YesNo, MsgIcon::Question, "Unable to Connect to Database.") == MsgAnswer::Yes)
            ui.showModal("SetDataLocation");
        return terminate();
    case LoadFailure::MissingPath:
        ui.message("The Tallymere.db file was not found in the folder " + folder +
                       " The folder and/or the Tallymere.db file may be missing. This file should be in the folder " +
                       defaultFolder_ + ".",
                   MsgButtons::Ok, MsgIcon::None, "Error: Missing Folder or Database");
        return terminate();
    case LoadFailure::Other: break;
    }
    ui.message("Error: " + std::to_string(number) + "  " +
                   "Unable to read, write or copy Tallymere database. [Tallymere Load]" + "  " + description +
                   "  Program will terminate.",
               MsgButtons::Ok, MsgIcon::Critical, "Error: Tallymere Database");
    return leave();
}

// Steps 5 to 15: a data folder, a database in it, repaired, copied and opened, and the password.
bool MainForm::openDatabase(bool firstStart, const std::string& defaultFolder) {
    common::Ui& ui = s_.ui();

    // 5. and 6.
    if (firstStart) {
        if (isFolder(defaultFolder)) s_.setDataFolder(defaultFolder);
    } else {
        const std::string stored = store::GetRegSetting(s_, "datalocation");
        s_.setDataFolder(stored);
        if (!isFolder(stored)) {
            if (ui.message("The path " + stored + " was not found. \n\n" +
                               "Would you like to set the data location to the default path " + defaultFolder + " ?",
                           MsgButtons::YesNo, MsgIcon::Exclamation, kNotFoundTitle) != MsgAnswer::Yes) {
                ui.message(kCannotContinue, MsgButtons::Ok, MsgIcon::Information, Session::kAppTitle);
                return leave();
            }
            s_.setDataFolder(defaultFolder);
        }
    }

    // 7.
    if (!isFolder(s_.DataFolder())) s_.setDataFolder("");
    if (s_.DataFolder().empty()) {
        ui.showModal("SetDataLocationStart");
        if (s_.DataFolder().empty()) {
            ui.message("No data folder was selected. Tallymere will exit.", MsgButtons::Ok, MsgIcon::Exclamation,
                       "Set Data Folder Location");
            return leave();
        }
    }

    // 8.
    const std::string templatePath = s_.programFolder + "/" + Session::kTemplateFileName;
    const std::string shippedPath = s_.programFolder + "/" + Session::kDatabaseFileName;

    // 9. A first start makes the database without a word; a later one asks. A file found under
    // another case is the one opened, not a new one made beside it.
    if (const std::string found = databaseInFolder(s_.DataFolder()); !found.empty()) {
        s_.setDatabaseFileName(found);
    } else {
        if (firstStart) {
            fs::copy_file(isFile(shippedPath) ? shippedPath : templatePath, s_.DatabasePath(),
                          fs::copy_options::overwrite_existing);
        } else {
            if (ui.message("The Tallymere database " + s_.DatabasePath() + " was not found. \n\n" +
                               "This special file contains all of the schedule information. " +
                               "Would you like to create a new schedule database?",
                           MsgButtons::YesNo, MsgIcon::Exclamation, kNotFoundTitle) != MsgAnswer::Yes) {
                ui.message(kCannotContinue, MsgButtons::Ok, MsgIcon::Information, Session::kAppTitle);
                return leave();
            }
            if (!isFile(templatePath)) {
                ui.message("Tallymere was unable to create a new schedule database. The program will exit.",
                           MsgButtons::Ok, MsgIcon::Exclamation, Session::kAppTitle);
                return leave();
            }
            fs::copy_file(templatePath, s_.DatabasePath(), fs::copy_options::overwrite_existing);
            ui.message("A new Tallymere.db database was created and placed in the " + s_.DataFolder() + " directory.",
                       MsgButtons::Ok, MsgIcon::Information, "New schedule database created");
        }
    }

    // 10. A file on a share may be open on other machines: it is neither repaired nor copied here.
    const bool shared = s_.platform().isNetworkFolder(s_.DataFolder());
    if (!shared) store::RepairDB(s_);

    // 11.
    if (!store::ConnectDB(s_)) {
        ui.message("Unable to open the Tallymere.db file located at " + s_.DataFolder() + " Tallymere will now exit.",
                   MsgButtons::Ok, MsgIcon::None, "Unable to Connect to Database");
        return leave();
    }

    // 12. A first read proves the file; the next read reconnects by itself.
    {
        Recordset rs;
        if (!store::TryGetRecs(s_, kSelectOption, rs, {"passwordowner"})) return leave();
    }
    store::CloseDB(s_);

    // 13. The copy of the file as the previous run left it, through the engine: another program
    // writing to the file at this moment is waited for, never copied half way.
    if (!shared) {
        fs::path bak(s_.DatabasePath());
        bak.replace_extension(".bak");
        if (const store::DbError e =
                store::backupDatabaseFile(s_.DatabasePath(), bak.string(), nullptr, store::db(s_).busyTimeout()))
            return handleLoadFailure(
                e.kind == store::DbErrorKind::MissingFile ? LoadFailure::MissingPath : LoadFailure::Other, e.number,
                e.description);
    }

    // 14.
    store::SaveRegSetting(s_, "DataLocation", s_.DataFolder());

    // 15. A first start asks no password, whatever the file holds.
    if (!firstStart) {
        Recordset rs = GetRecs(s_, kSelectOption, {"passwordowner"});
        if (rs.isOpen() && !rs.eof() && !rs["optionvalue"].text().empty()) {
            s_.PasswordPassed = false;
            ui.showModal("enterpassword");
            if (!s_.PasswordPassed) return leave();
            applyRights();
        }
    }
    return true;
}

// Steps 16 to 28: settings, repairs and the first daily view.
bool MainForm::finishStart() {
    // 16. The toolbar is built by the view from the toolbar table.
    SetupQuickBar();

    // 17.
    s_.activeDate = s_.clock().today();
    host_.activeDateChanged();

    // 18. Only the report options' result counts; they report their own failure.
    store::getoptions(s_);
    tickSortEntries(s_.settings.dailyschedsort);
    changed();
    reportDefaults();
    if (!store::getreportoptions(s_)) return leave();

    // 19. Before the version is written: the repair looks at the previous run's version.
    store::RepairOvernightEntries(s_);

    // 20.
    s_.settings.gs_versionnumber = s_.platform().programVersion();
    store::SaveOption(s_, "gs_versionnumber", s_.settings.gs_versionnumber);

    // 21.
    s_.settings.DateofLastRun = common::formatDate(s_.clock().today(), "short date", s_.locale);
    store::SaveOption(s_, "DateofLastRun", s_.settings.DateofLastRun);

    // 22. The app fills the symbols from the system's locale before the start.
    if (s_.locale.decimalSeparator.empty()) s_.locale.decimalSeparator = ".";
    if (s_.locale.currencySymbol.empty()) s_.locale.currencySymbol = "$";
    FillDateFormatMenu();

    // 23.
    store::UpgradeSchema(s_);
    ClearUndo();

    // 24. PDF output is written by the report renderer and needs no printer driver.
    pdfOutputReady_ = true;

    // 25.
    if (s_.settings.gb_ShowQuickBar) {
        quickBarVisible_ = true;
        state("mnuQuickBar").checked = true;
        host_.barsChanged();
        changed();
    }

    // 26.
    host_.showChild(kDailyWindow);

    // 27.
    openLastSchedule();

    // 28.
    if (s_.settings.nrun == 1) s_.ui().showModal("firstrun");
    return true;
}

void MainForm::reportDefaults() {
    // The page as the page settings describe it. The paper is kept in the options but not loaded at
    // start; without one (or with one the surface does not know) it is Letter.
    common::GlobalSettings page = s_.settings;
    page.gs_PaperSize = store::GetOption(s_, "gs_PaperSize");
    const reports::PageSettings p = reports::pageSettingsFrom(page);
    s_.settings.gi_ReportColumnWidth =
        reports::fitColumnWidthInches(p.pageWidth(), p.marginLeft, p.marginRight, kDefaultReportDays);
}

void MainForm::openLastSchedule() {
    Recordset rs = GetRecs(s_, kSelectOption, {"currentschedule"});
    if (rs.eof()) {
        s_.currentSchedule.clear();
        scheduleChanged();
        s_.ui().message("There is no schedule open.", MsgButtons::Ok, MsgIcon::Information, Session::kAppTitle);
        s_.ui().showModal("Openfrm");
    } else if (std::string name = rs["optionvalue"].text(); !name.empty()) {
        s_.currentSchedule = std::move(name);
        scheduleChanged();
        host_.activeDateChanged();
        host_.updailyflexform();
    } else {
        s_.currentSchedule.clear();
        scheduleChanged();
        datechange(s_.activeDate);
        host_.updailyflexform();
        s_.ui().showModal("Openfrm");
    }
    // The open window may have opened one.
    scheduleChanged();
}

// ---------------------------------------------------------------------------------------------
// The way out

bool MainForm::mnuFExit_Click() {
    if (ended_) return true;
    common::Ui& ui = s_.ui();
    const auto end = [&] {
        ended_ = true;
        ui.setBusy(false);
        return true;
    };

    // 1. and 2.
    ui.setBusy(true);
    if (anotherCopy_ || s_.ExitNow) return end();
    // 3. Without the password nothing may be written.
    if (!s_.PasswordPassed) return end();
    // 4. Such a user cannot have changed anything.
    if (s_.IsUserMode && s_.rights.noSchedule && s_.rights.noEmployee) {
        s_.ExitNow = true;
        return end();
    }

    // 5. Entries made before any schedule file was named.
    if (common::trim(s_.currentSchedule).empty()) {
        const Recordset rs = GetRecs(s_, "select schedid from sched where sname = ?", {""});
        if (!rs.empty()) {
            const MsgAnswer a = ui.message("You need to give the schedule a name in order to save it. Save schedule?",
                                           MsgButtons::YesNoCancel, MsgIcon::Exclamation, Session::kAppTitle);
            if (a == MsgAnswer::Yes) {
                ui.showModal("SaveAs");
                if (common::trim(s_.currentSchedule).empty()) {
                    ui.setBusy(false);
                    return false;
                }
                scheduleChanged();
            } else if (a == MsgAnswer::No) {
                store::DeleteRecs(s_, "delete from sched where sname = ?", {""});
            } else {
                ui.setBusy(false);
                return false;
            }
        }
    }

    saveAtExit();

    // 8. The reminder, and the count starts again whatever the answer.
    if (s_.settings.nrunsincebackup >= 15) {
        if (ui.message("Quillbrook highly recommends backing up your data to avoid any accidental data loss. Would you "
                       "like to backup now?",
                       MsgButtons::YesNo, MsgIcon::Question, Session::kAppTitle) == MsgAnswer::Yes) {
            store::CloseDB(s_);
            ui.showModal("backup");
            store::ConnectDB(s_);
        }
        store::UdateRecs(s_, "update options set options.optionvalue=? where optionname=?", {"0", "nrunsincebackup"});
        s_.settings.nrunsincebackup = 0;
    }

    // 9.
    store::saveoptions(s_);
    return end();
}

// Steps 6 and 7: what this run's windows hold.
void MainForm::saveAtExit() {
    if (host_.isChildLoaded(kDailyWindow))
        store::SaveFormPosition(s_, kDailyWindow, host_.childPlace(kDailyWindow), true);

    store::SaveRegSetting(s_, "SBStrtTime", TETxtHr[1] + ":" + TeTxtMin[1] + " " + TEAmPm[1]);
    store::SaveRegSetting(s_, "SBEndTime", TETxtHr[0] + ":" + TeTxtMin[0] + " " + TEAmPm[0]);
    store::SaveRegSetting(s_, "SBShift", shiftcombo.text);
    store::SaveRegSetting(s_, "SBPosition", positioncombo.text);
    store::SaveRegSetting(s_, "SBSection", sectioncombo.text);

    store::SaveOption(s_, "dailyschedsort", s_.settings.dailyschedsort);
    store::SaveRegSetting(s_, "dailyschedsort", s_.settings.dailyschedsort);
    store::SaveOption(s_, "currentschedule", s_.currentSchedule);
    store::SaveOption(s_, "tooldateformat", s_.settings.tooldateformat);
    store::SaveOption(s_, "tooldatecustomformat", s_.settings.tooldatecustomformat);

    // A minimized or maximized window's place is not the one to come back to.
    const WindowPlace main = host_.mainPlace();
    if (main.state == 0) {
        store::SaveOption(s_, "mainx", std::to_string(main.left));
        store::SaveOption(s_, "mainy", std::to_string(main.top));
        store::SaveOption(s_, "mainheight", std::to_string(main.height));
        store::SaveOption(s_, "mainwidth", std::to_string(main.width));
    }
    if (main.state != 1) store::SaveOption(s_, "mainstate", std::to_string(main.state));
}

}  // namespace tallymere::shell

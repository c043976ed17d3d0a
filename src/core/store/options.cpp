#include "store/options.h"

#include "common/numbers.h"
#include "common/text.h"
#include "store/access.h"

#include <climits>
#include <cmath>
#include <iterator>
#include <optional>
#include <utility>

namespace tallymere::store {

using common::GlobalSettings;
using common::MsgButtons;
using common::MsgIcon;

namespace {

constexpr const char* kSelectOptionRows = "select * from options where optionname = ?";
constexpr const char* kSelectOptionValue = "select optionvalue from options where optionname=?";
constexpr const char* kInsertOption = "insert into options (optionvalue,optionname) values(?,?)";
constexpr const char* kUpdateOption = "update options set optionvalue = ? where optionname = ?";

// A stored value that the key's type cannot hold: stops the loading of the remaining keys.
struct BadOptionValue {};

// What one read of a key found: whether there is a row, and its trimmed text (NULL reads as empty).
struct StoredOption {
    bool exists = false;
    std::string text;
};

StoredOption readOption(Session& s, std::string_view key) {
    StoredOption o;
    Recordset rs = GetRecs(s, kSelectOptionValue, {Value(key)});
    if (!rs.isOpen() || rs.eof()) return o;
    o.exists = true;
    o.text = rs["optionvalue"].text();
    return o;
}

void insertOption(Session& s, std::string_view key, std::string_view value) {
    InsertRecs(s, kInsertOption, {Value(value), Value(key)});
}

void updateOption(Session& s, std::string_view key, std::string_view value) {
    UdateRecs(s, kUpdateOption, {Value(value), Value(key)});
}

std::string boolText(bool b) { return b ? "True" : "False"; }

std::string numberText(double d) { return Value(d).toText(); }

// Yes/no values are stored as "True"/"False", but a number (non-zero is yes) and "Yes"/"No" are
// read as well; anything else is an error.
bool parseBool(const std::string& text) {
    const std::string u = common::toUpper(text);
    if (u == "TRUE" || u == "YES") return true;
    if (u == "FALSE" || u == "NO") return false;
    if (const auto n = common::parseNumberStrict(text)) return *n != 0.0;
    throw BadOptionValue{};
}

// A whole number, rounded half to even as the system's conversions do; nullopt when unreadable.
std::optional<int> readInt(const std::string& text) {
    const auto n = common::parseNumberStrict(text);
    if (!n || !std::isfinite(*n) || *n > INT_MAX || *n < INT_MIN) return std::nullopt;
    return static_cast<int>(common::roundHalfEven(*n));
}

int parseInt(const std::string& text) {
    if (const auto n = readInt(text)) return *n;
    throw BadOptionValue{};
}

double parseDouble(const std::string& text) {
    const auto n = common::parseNumberStrict(text);
    if (!n || !std::isfinite(*n)) throw BadOptionValue{};
    return *n;
}

// The loading idiom: the global takes the default first, and only a non-empty stored value replaces
// it, so an empty row or a failed read leaves the default in force.
void load(Session& s, std::string_view key, std::string& global, const std::string& def) {
    global = def;
    if (std::string v = GetOption(s, key); !v.empty()) global = std::move(v);
}

void load(Session& s, std::string_view key, bool& global, bool def) {
    global = def;
    if (const std::string v = GetOption(s, key); !v.empty()) global = parseBool(v);
}

void load(Session& s, std::string_view key, int& global, int def) {
    global = def;
    if (const std::string v = GetOption(s, key); !v.empty()) global = parseInt(v);
}

void load(Session& s, std::string_view key, double& global, double def) {
    global = def;
    if (const std::string v = GetOption(s, key); !v.empty()) global = parseDouble(v);
}

// The width of a day column: a stored value that is no positive number (the 0 once written at every
// exit, or text) gives way to the default, the width worked out from the page at start.
void loadColumnWidth(Session& s, std::string_view key, double& global, double def) {
    global = def;
    const auto n = common::parseNumberStrict(GetOption(s, key));
    if (n && std::isfinite(*n) && *n > 0) global = *n;
}

void save(Session& s, std::string_view key, const std::string& v) { SaveOption(s, key, v); }
void save(Session& s, std::string_view key, bool v) { SaveOption(s, key, boolText(v)); }
void save(Session& s, std::string_view key, int v) { SaveOption(s, key, std::to_string(v)); }
void save(Session& s, std::string_view key, double v) { SaveOption(s, key, numberText(v)); }

// The key of every global is its member's name; this keeps the two from drifting apart.
#define TM_LOAD(name) load(s, #name, g.name, d.name);
#define TM_SAVE(name) save(s, #name, g.name);
#define TM_LOAD_WIDTH(name) loadColumnWidth(s, #name, g.name, d.name);

// Daily form, copy and payroll choices, in the order they are loaded.
#define TM_DAILY_OPTIONS(X) \
    X(gb_CheckConflictsDuringCopy) \
    X(gb_ShowLaborCostsOnDailyForm) \
    X(gb_CheckConflictAllSchedules) \
    X(gb_ShowTotalHoursOnDailyForm) \
    X(gs_PaySalesRates) \
    X(gb_PaySalesQuals) \
    X(gs_PayrollEstRates) \
    X(gb_PayrollEstQuals)

// Page margins; `orientation` follows them when loading and leads when saving.
#define TM_MARGIN_OPTIONS(X) \
    X(margintop) \
    X(marginbottom) \
    X(marginleft) \
    X(marginright)

// Entry alerts, quick bar and scheduler rules.
#define TM_RULE_OPTIONS(X) \
    X(gb_AlertDoubleShifts) \
    X(gb_AlertShiftOver12Hours) \
    X(gb_ShowQuickBar) \
    X(gs_AutoFillDayWeek) \
    X(gs_AutoRebuildDayWeek) \
    X(gb_AutoEnforceWeeklyHrs) \
    X(gb_AutoDesiredShiftsFirst) \
    X(gb_AutoAllowDblShifts) \
    X(gb_RestrictOvertime) \
    X(gb_NoOvertime) \
    X(gb_AlertForOvertime) \
    X(gi_OvertimeThreshold) \
    X(gd_OvertimeFactor)

// The report options: employee, position, shift and monthly weekly reports, leave, shared.
#define TM_REPORT_OPTIONS(X, WIDTH) \
    X(gb_RepWeekEmpAllEmployees) \
    X(gs_RepWeekEmpGroupBy) \
    X(gs_RepWeekEmpFont) \
    X(gi_RepWeekEmpFontSize) \
    X(gb_RepWeekEmpFontBold) \
    X(gb_RepWeekEmpFontItalic) \
    X(gi_RepWeekEmpPadding) \
    X(gb_RepWeekEmpShift) \
    X(gb_RepWeekEmpTime) \
    X(gb_RepWeekEmpSection) \
    X(gb_RepWeekEmpPosition) \
    X(gb_RepWeekEmpTotalHrs) \
    X(gb_RepWeekEmpSingleLine) \
    X(gs_RepWeekPosFont) \
    X(gi_RepWeekPosFontSize) \
    X(gb_RepWeekPosFontBold) \
    X(gb_RepWeekPosFontItalic) \
    X(gi_RepWeekPosPadding) \
    X(gb_RepWeekPosShift) \
    X(gb_RepWeekPosTime) \
    X(gb_RepWeekPosSection) \
    X(gb_RepWeekPosPosition) \
    X(gb_RepWeekPosSingleLine) \
    X(gs_RepWeekShiftFont) \
    X(gi_RepWeekShiftFontSize) \
    X(gb_RepWeekShiftFontBold) \
    X(gb_RepWeekShiftFontItalic) \
    X(gi_RepWeekShiftPadding) \
    X(gb_RepWeekShiftTime) \
    X(gb_RepWeekShiftSection) \
    X(gb_RepWeekShiftPosition) \
    X(gb_RepWeekShiftSingleLine) \
    X(gb_RepWeekShiftSchedOnly) \
    X(gs_RepMonthFont) \
    X(gi_RepMonthFontSize) \
    X(gb_RepMonthFontBold) \
    X(gb_RepMonthFontItalic) \
    X(gi_RepMonthPadding) \
    X(gb_RepMonthShift) \
    X(gb_RepMonthTime) \
    X(gb_RepMonthSection) \
    X(gb_RepMonthPosition) \
    X(gb_RepMonthSingleLine) \
    X(gs_LeaveMonthFont) \
    X(gi_LeaveMonthFontSize) \
    X(gb_LeaveMonthFontBold) \
    X(gb_LeaveMonthFontItalic) \
    X(gs_PrintGridFont) \
    X(gi_PrintGridFontSize) \
    X(gb_PrintGridFontBold) \
    X(gb_PrintGridFontItalic) \
    X(gb_ReportFitToPage) \
    X(gi_ReportNumDays) \
    WIDTH(gi_ReportColumnWidth) \
    X(gs_ReportNameFormat) \
    X(gs_ReportTimeFormat)

// A start counter: a missing row starts at 1, otherwise the stored count goes up by one and is
// written back at once, so the count survives a run that does not exit cleanly.
void countStart(Session& s, std::string_view key, int& global) {
    const StoredOption o = readOption(s, key);
    if (!o.exists) {
        insertOption(s, key, "1");
        global = 1;
        return;
    }
    const int count = (o.text.empty() ? 0 : parseInt(o.text)) + 1;
    SaveOption(s, key, std::to_string(count));
    global = count;
}

// A text key whose row is made with `insertedValue` when missing; a stored value replaces the default.
void loadInserted(Session& s, std::string_view key, std::string& global, const std::string& def,
                  std::string_view insertedValue, bool read = true) {
    global = def;
    const StoredOption o = readOption(s, key);
    if (!o.exists) insertOption(s, key, insertedValue);
    else if (read && !o.text.empty()) global = o.text;
}

// The navigator's format is the custom one when it holds the date control's custom format number.
bool isCustomToolDateFormat(const std::string& format) {
    return format == "3" || common::equalsNoCase(format, "dtpcustom");
}

void loadMainWindowPlace(Session& s, GlobalSettings& g) {
    g.mainx = g.mainy = g.mainheight = g.mainwidth = g.mainstate = std::nullopt;
    Recordset rs = GetRecs(s, "select * from options");
    for (; rs.isOpen() && !rs.eof(); rs.MoveNext()) {
        const std::string name = common::toUpper(rs["optionname"].text());
        std::optional<int>* target = name == "MAINX"        ? &g.mainx
                                     : name == "MAINY"      ? &g.mainy
                                     : name == "MAINHEIGHT" ? &g.mainheight
                                     : name == "MAINWIDTH"  ? &g.mainwidth
                                     : name == "MAINSTATE"  ? &g.mainstate
                                                            : nullptr;
        if (!target) continue;
        // An unreadable place is ignored: the window then keeps the system's place.
        *target = readInt(rs["optionvalue"].text());
    }
}

void loadOptions(Session& s) {
    GlobalSettings& g = s.settings;
    const GlobalSettings d;

    g.dailyschedsort = d.dailyschedsort;
    const std::string sort = common::toLower(common::trim(GetRegSetting(s, "dailyschedsort")));
    if (sort == "employee" || sort == "position" || sort == "section" || sort == "shift" || sort == "starttime")
        g.dailyschedsort = sort;

    GetYesNoOption(s, "reportunassigned", g.reportunassigned, d.reportunassigned);
    TM_DAILY_OPTIONS(TM_LOAD)
    TM_MARGIN_OPTIONS(TM_LOAD)
    TM_LOAD(orientation)
    TM_RULE_OPTIONS(TM_LOAD)

    // Stored as "Yes"/"No"; only "No" hides the column. A blank value is repaired as a NULL is.
    {
        g.dailyflexgridshowposition = false;
        const StoredOption o = readOption(s, "dailyflexgridshowposition");
        if (!o.exists) insertOption(s, "dailyflexgridshowposition", "No");
        else if (o.text.empty()) updateOption(s, "dailyflexgridshowposition", "No");
        else g.dailyflexgridshowposition = common::toUpper(o.text) != "NO";
    }

    {
        g.firstdayofweek = d.firstdayofweek;
        const StoredOption o = readOption(s, "firstdayofweek");
        if (!o.exists)
            InsertRecs(s, "insert into options (optionname,optionvalue) values('firstdayofweek',weekdayname(1))");
        else if (o.text.empty()) updateOption(s, "firstdayofweek", "Sunday");
        else g.firstdayofweek = o.text;
    }

    TM_LOAD(gi_defaultschedlength)
    countStart(s, "nrun", g.nrun);
    countStart(s, "nrunsincebackup", g.nrunsincebackup);

    loadInserted(s, "reportdateformat", g.reportdateformat, d.reportdateformat, "short date");
    loadInserted(s, "tooldateformat", g.tooldateformat, d.tooldateformat, "dtplongdate");
    // The row keeps the formatting language's form; the control's own form is the default in memory.
    loadInserted(s, "tooldatecustomformat", g.tooldatecustomformat, d.tooldatecustomformat, "mm/dd/yyyy",
                 isCustomToolDateFormat(g.tooldateformat));

    loadMainWindowPlace(s, g);
}

void loadReportOptions(Session& s) {
    GlobalSettings& g = s.settings;
    GlobalSettings d;
    // Worked out from the page before the report options are read; a stored width overrides it.
    d.gi_ReportColumnWidth = g.gi_ReportColumnWidth;

    // An empty name format keeps "Smith, John" like any other empty value.
    TM_REPORT_OPTIONS(TM_LOAD, TM_LOAD_WIDTH)
}

// Kept by their own windows; written at exit only when this run holds a value, so that a run which
// never touched them does not blank what another wrote.
void saveIfSet(Session& s, std::string_view key, const std::string& value) {
    if (!value.empty()) SaveOption(s, key, value);
}

// The name of one of a window's place rows: "dailyflexgrid" + "x".
std::string placeKey(std::string_view window, std::string_view field) { return std::string(window) + std::string(field); }

constexpr const char* kPlaceFields[] = {"x", "y", "width", "height", "state"};

}  // namespace

void SaveOption(Session& s, std::string_view key, std::string_view value) {
    Recordset rs = GetRecs(s, kSelectOptionRows, {Value(key)});
    if (!rs.isOpen()) return;
    if (rs.eof()) InsertRecs(s, kInsertOption, {Value(value), Value(key)});
    else UdateRecs(s, kUpdateOption, {Value(value), Value(key)});
}

std::string GetOption(Session& s, std::string_view key) { return readOption(s, key).text; }

void GetYesNoOption(Session& s, std::string_view key, bool& flag, bool defaultValue) {
    const StoredOption o = readOption(s, key);
    if (!o.exists) {
        insertOption(s, key, boolText(defaultValue));
        flag = defaultValue;
    } else if (o.text.empty()) {
        // NULL, and a blank value with it, is repaired to the default.
        updateOption(s, key, boolText(defaultValue));
        flag = defaultValue;
    } else {
        const std::string u = common::toUpper(o.text);
        flag = !(u == "NO" || u == "FALSE");
    }
}

std::string GetRegSetting(Session& s, std::string_view name) { return s.userSettings().get(name); }

void SaveRegSetting(Session& s, std::string_view name, std::string_view value) { s.userSettings().set(name, value); }

bool getoptions(Session& s) {
    try {
        loadOptions(s);
        return true;
    } catch (const BadOptionValue&) {
        s.ui().message("Unable to load Tallymere options.", MsgButtons::Ok, MsgIcon::Critical, Session::kAppTitle);
        return false;
    }
}

bool getreportoptions(Session& s) {
    try {
        loadReportOptions(s);
        return true;
    } catch (const BadOptionValue&) {
        s.ui().message("Unable to load Tallymere Report Options.", MsgButtons::Ok, MsgIcon::Critical,
                       Session::kAppTitle);
        return false;
    }
}

void saveoptions(Session& s) {
    const GlobalSettings& g = s.settings;

    // The sort column, the open schedule, the counters and the main window's place are written by the
    // shutdown itself; the counters in particular must not undo the reset of the backup reminder.
    TM_SAVE(orientation)
    TM_MARGIN_OPTIONS(TM_SAVE)
    SaveOption(s, "reportunassigned", boolText(g.reportunassigned));
    TM_DAILY_OPTIONS(TM_SAVE)
    TM_RULE_OPTIONS(TM_SAVE)
    // Read back as "anything but No", so it is kept as Yes/No rather than True/False.
    SaveOption(s, "dailyflexgridshowposition", g.dailyflexgridshowposition ? "Yes" : "No");
    TM_SAVE(firstdayofweek)
    TM_SAVE(gi_defaultschedlength)
    TM_SAVE(reportdateformat)
    TM_SAVE(tooldateformat)
    TM_SAVE(tooldatecustomformat)

    TM_REPORT_OPTIONS(TM_SAVE, TM_SAVE)
    TM_SAVE(gb_RepWeekPosTotalHrs)

    saveIfSet(s, "gs_PrinterDevice", g.gs_PrinterDevice);
    saveIfSet(s, "gs_PaperSize", g.gs_PaperSize);
    saveIfSet(s, "gs_versionnumber", g.gs_versionnumber);
    saveIfSet(s, "DateofLastRun", g.DateofLastRun);
    saveIfSet(s, "DateofLastBackUp", g.DateofLastBackUp);
}

#undef TM_LOAD
#undef TM_SAVE
#undef TM_LOAD_WIDTH
#undef TM_DAILY_OPTIONS
#undef TM_MARGIN_OPTIONS
#undef TM_RULE_OPTIONS
#undef TM_REPORT_OPTIONS

void CreateFormPositionRows(Session& s, std::string_view window) {
    bool present[std::size(kPlaceFields)] = {};
    Recordset rs = GetRecs(s, "select * from options where optionname like ?", {Value(std::string(window) + "*")});
    for (; rs.isOpen() && !rs.eof(); rs.MoveNext()) {
        const std::string name = common::toUpper(rs["optionname"].text());
        for (std::size_t i = 0; i < std::size(kPlaceFields); ++i)
            if (name == common::toUpper(placeKey(window, kPlaceFields[i]))) present[i] = true;
    }
    for (std::size_t i = 0; i < std::size(kPlaceFields); ++i) {
        if (present[i]) continue;
        if (!InsertRecs(s, "insert into options (optionname) values(?)", {Value(placeKey(window, kPlaceFields[i]))})) {
            s.ui().message("Error creating form location data.", MsgButtons::Ok, MsgIcon::Critical, Session::kAppTitle);
            return;
        }
    }
}

void SaveFormPosition(Session& s, std::string_view window, const WindowPlace& place, bool sizable) {
    SaveOption(s, placeKey(window, "x"), std::to_string(place.left));
    SaveOption(s, placeKey(window, "y"), std::to_string(place.top));
    if (sizable) {
        SaveOption(s, placeKey(window, "width"), std::to_string(place.width));
        SaveOption(s, placeKey(window, "height"), std::to_string(place.height));
    }
    SaveOption(s, placeKey(window, "state"), std::to_string(place.state));
}

WindowPlace LoadFormPosition(Session& s, std::string_view window, const WindowPlace& current,
                             const WindowPlace& mainWindow, bool sizable, bool mainStateForbids) {
    // A window must not come up where the user cannot reach its title bar.
    constexpr int kMarginX = 500;
    constexpr int kMarginY = 1000;

    std::optional<int> x, y, width, height, state;
    Recordset rs = GetRecs(s, "select * from options where optionname like ?", {Value(std::string(window) + "*")});
    for (; rs.isOpen() && !rs.eof(); rs.MoveNext()) {
        const std::string name = common::toUpper(rs["optionname"].text());
        const auto v = readInt(rs["optionvalue"].text());
        if (!v) continue;
        if (name == common::toUpper(placeKey(window, "x"))) x = *v;
        else if (name == common::toUpper(placeKey(window, "y"))) y = *v;
        else if (name == common::toUpper(placeKey(window, "width"))) width = *v;
        else if (name == common::toUpper(placeKey(window, "height"))) height = *v;
        else if (name == common::toUpper(placeKey(window, "state"))) state = *v;
    }

    WindowPlace place = current;
    const bool xInside = x && *x >= mainWindow.left && *x <= mainWindow.left + mainWindow.width - kMarginX;
    const bool yInside = y && *y >= mainWindow.top && *y <= mainWindow.top + mainWindow.height - kMarginY;
    // Half a stored place is no place the user chose: both or neither.
    if (xInside && yInside) {
        place.left = *x;
        place.top = *y;
    }
    if (sizable) {
        if (width && *width > 0) place.width = *width;
        if (height && *height > 0) place.height = *height;
    }
    if (state && *state >= 0 && *state <= 2 && !mainStateForbids) place.state = *state;
    return place;
}

}  // namespace tallymere::store

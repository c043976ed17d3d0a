#include "shell/menus.h"

#include <algorithm>
#include <map>
#include <string>

namespace tallymere::shell {

namespace {

struct Row {
    std::string_view name;
    std::string_view caption;
    std::string_view parent;
    bool popup = false;
    bool separatorBefore = false;
};

constexpr bool kSep = true;

// Parents before children, siblings in menu order; the order numbers are counted from this list.
const Row kMenuRows[] = {
    // The menu bar.
    {"mnuFile", "&File", ""},
    {"mnuEdit", "&Edit", ""},
    {"mnuview", "&View", ""},
    {"mnuSched", "&Schedule", ""},
    {"mnutools", "&Tools", ""},
    {"mnureports", "&Reports", ""},
    {"mnuWindow", "&Window", ""},
    {"mnuHelp", "&Help", ""},

    {"mnunew", "&New Schedule File...", "mnuFile"},
    {"mnusaveas", "&Save Schedule File As...", "mnuFile"},
    {"mnuOpen", "&Open Schedule File ...", "mnuFile"},
    {"mnudeleteschedule", "&Delete Schedule File...", "mnuFile"},
    {"mnupagesetup", "Page Set&up...", "mnuFile", false, kSep},
    {"mnuPrintPreview", "Print Pre&view", "mnuFile"},
    {"mnuprintreport", "&Print...", "mnuFile"},
    {"mnuExportReportRtf", "Export to RTF...", "mnuFile"},
    {"mnuSaveToPDF", "Save to PDF...", "mnuFile"},
    // Asked for by the accountants: a list window's grid as CSV, as its own button saves it.
    {"mnuSaveAsCsv", "Save As CSV...", "mnuFile"},
    {"mnuExportScheduleData", "Export Schedule Data...", "mnuFile", false, kSep},
    {"mnupreferences", "Pre&ferences...", "mnuFile", false, kSep},
    {"mnuFExit", "E&xit", "mnuFile", false, kSep},

    {"mnuEditUndo", "&Undo", "mnuEdit"},
    {"mnuEditUndoSep", "-", "mnuEdit"},
    {"mnuScheduleEdit", "Edit &Schedule Entry...", "mnuEdit"},
    {"mnudelete", "&Delete Schedule Entry", "mnuEdit"},
    {"mnudeleteday", "Delete Da&y", "mnuEdit"},
    {"mnuAddEmployee", "Add Employee...", "mnuEdit", false, kSep},
    {"mnuEmployeeEdit", "Edit Employee...", "mnuEdit"},
    {"mnuEmployeeDelete", "Delete Employee", "mnuEdit"},

    {"mnudailyschedule", "&Daily Schedule", "mnuview"},
    {"mnuschedulefilter", "&Sort Daily Schedule", "mnuview"},
    {"mnuweekly", "&Weekly Schedule", "mnuview"},
    {"mnurefresh", "&Refresh", "mnuview", false, kSep},
    {"mnutoolbar", "Main &Toolbar", "mnuview", false, kSep},
    {"mnuQuickBar", "Quickplot ToolBar", "mnuview"},
    {"mnuResetForm", "Reset Window", "mnuview", false, kSep},

    {"mnusortdailyposition", "by &Position", "mnuschedulefilter"},
    {"mnusortdailyemployee", "by &Employee", "mnuschedulefilter"},
    {"mnusortdailyshift", "by S&hift", "mnuschedulefilter"},
    {"mnusortdailysection", "by Se&ction", "mnuschedulefilter"},
    {"mnusortdailystarttime", "by Start &Time", "mnuschedulefilter"},

    {"mnuEmployeeS", "&Employees...", "mnuSched"},
    {"mnushifts", "&Shifts...", "mnuSched"},
    {"mnupositions", "&Positions...", "mnuSched"},
    {"mnusections", "Se&ctions...", "mnuSched"},
    {"mnuChkSchedConflict", "Find Schedule Conflicts...", "mnuSched", false, kSep},
    {"mnuSrchPerson", "Find Empoyee's Schedule Entries...", "mnuSched"},
    {"mnuFindAvailableEmployees", "Find Available Employees...", "mnuSched"},
    {"mnuAutoSched", "Automatic Scheduler...", "mnuSched", false, kSep},
    {"mnuAutoRebuildSchedule", "Rebuild Schedule...", "mnuSched"},
    {"mnuAutoSchedOptions", "Automatic Scheduler Options...", "mnuSched"},

    {"mnusaveasdefault", "&Save as Default Schedule", "mnutools"},
    {"mnugetdefaultsched", "Get Default Schedule", "mnutools"},
    {"mnucopyschedule1", "Copy Schedule...", "mnutools"},
    {"mnusetstaffinglevels", "&Set Staffing Levels...", "mnutools", false, kSep},
    {"mnucheckstaffinglevels", "&Analyze Staffing Levels...", "mnutools"},
    {"mnubackup", "&Backup...", "mnutools", false, kSep},
    {"mnuRestore", "Restore...", "mnutools"},
    {"mnusetpassword", "Set &Password...", "mnutools", false, kSep},
    {"mnuRepairScheduleEntries", "Repair Schedule Entries...", "mnutools", false, kSep},

    {"mnureportdaily", "&Daily...", "mnureports"},
    {"mnureportweekly", "&Weekly", "mnureports"},
    {"mnureportmonth", "&Month...", "mnureports"},
    {"mnuemployeeleave", "&Employee Leave", "mnureports", false, kSep},
    {"mnuemployeelist", "Em&ployee Phone List...", "mnureports"},
    {"mnuemployeefullreport", "Employee Report...", "mnureports"},
    {"mnuemployeehoursshifts", "Employee &Hours and Shifts...", "mnureports"},
    {"mnupayrollestimator", "Payroll &Estimator...", "mnureports", false, kSep},
    {"MnuPayrollwithSales", "Payroll with Sales...", "mnureports"},
    {"mnuPayrollwithOvertime", "Payroll with &Overtime...", "mnureports"},
    {"mnuweeklypayroll", "Weekly Payroll...", "mnureports"},
    {"MnuSelectReportFont", "Report &Font...", "mnureports", false, kSep},
    {"mnuReportConfig", "Report &Configure...", "mnureports"},

    {"mnuweeklybyemployee", "by &Employee...", "mnureportweekly"},
    {"mnuweeklybyshift", "by &Shift...", "mnureportweekly"},
    {"mnuweeklyproblems", "Problems...", "mnureportweekly"},
    {"mnuweeklybyposition", "by P&osition...", "mnureportweekly"},

    {"mnuemployeeleavelist", "&List...", "mnuemployeeleave"},
    {"mnuemployeeleavemonth", "&Month View...", "mnuemployeeleave"},

    // The list of open windows follows these; it is the view's.
    {"mnuTile", "&Tile", "mnuWindow"},
    {"mnuCascade", "&Cascade", "mnuWindow"},

    {"mnutallymerehelp", "Tallymere &Help", "mnuHelp"},
    {"mnuabout", "&About Tallymere...", "mnuHelp", false, kSep},

    // Pop-up menus.
    {"mnudailgridrightclick", "", "", true},
    {"mnudailygridlistviewrightclick", "", "", true},
    {"mnudaterightclick", "", "", true},

    {"mnudailygridrightclickedit", "&Edit Schedule Entry...", "mnudailgridrightclick"},
    {"mnudailygridrightclickcut", "&Cut", "mnudailgridrightclick", false, kSep},
    {"mnudailygridrightclickcopy", "Co&py", "mnudailgridrightclick"},
    {"mnudailygridrightclickpaste", "&Paste", "mnudailgridrightclick"},
    {"mnudailygridrightclickremove", "&Delete Schedule Entry", "mnudailgridrightclick", false, kSep},
    {"mnudailygridrightclickrefresh", "&Refresh Daily Schedule", "mnudailgridrightclick", false, kSep},
    {"mnudailygridrightclickselectall", "Select &All", "mnudailgridrightclick"},
    {"mnudailyflexsort", "&Sort Daily Schedule", "mnudailgridrightclick", false, kSep},

    {"mnudailyflexsortposition", "by &Position", "mnudailyflexsort"},
    {"mnudailyflexsortemployee", "by &Employee", "mnudailyflexsort"},
    {"mnudailyflexsortshift", "by S&hift", "mnudailyflexsort"},
    {"mnudailyflexsortsection", "by Se&ction", "mnudailyflexsort"},
    {"mnudailyflexsortstarttime", "by Start &Time", "mnudailyflexsort"},

    {"mnuaddtoschedulelistview", "&Add to Schedule", "mnudailygridlistviewrightclick"},
    {"mnuemployeeposition", "&Change Employee Position", "mnudailygridlistviewrightclick"},
    {"mnudailygridlistviewaddnewemployee", "Add &New Employee...", "mnudailygridlistviewrightclick", false, kSep},
    {"mnudailygridlistviewedit", "&Edit Employee...", "mnudailygridlistviewrightclick"},
    {"mnudailygridlistviewdeleteemployee", "&Delete Employee", "mnudailygridlistviewrightclick"},

    // The captions of the date formats are written with today's date at start.
    {"mnuselectdateformat", "Select Date Format Below", "mnudaterightclick"},
    {"mnushortdate", "Short Date", "mnudaterightclick", false, kSep},
    {"mnulongdate", "Long Date", "mnudaterightclick"},
    {"mnummmddyyyy", "MMMM dd, yyyy", "mnudaterightclick"},
    {"mnummddyyyy", "MM/dd/yyyy", "mnudaterightclick"},
    {"mnuddddmmmddyyyy", "dddd MMM dd, yyyy", "mnudaterightclick"},
    {"mnuddddmmmmddyyyy", "dddd MMMM dd, yyyy", "mnudaterightclick"},
    {"mnudddmmmddyyyy", "ddd MMM dd, yyyy", "mnudaterightclick"},
    {"mnuddmmyy", "dd/mm/yy", "mnudaterightclick"},
    {"mnuddmmyydash", "dd-mm-yy", "mnudaterightclick"},
    {"mnuddmmyyyy", "dd/mm/yyyy", "mnudaterightclick"},
    {"mnuddmmmyyyydash", "dd-mmm-yyyy", "mnudaterightclick"},
    {"mnuddmmmmyyyy", "dd MMMM yyyy", "mnudaterightclick"},
    {"mnummddyyddd", "MM/dd/yy ddd", "mnudaterightclick"},
};

std::vector<MenuEntry> buildMenuTable() {
    std::vector<MenuEntry> table;
    std::map<std::string_view, int> next;  // next order number per parent
    for (const Row& r : kMenuRows) {
        const int order = next[r.popup ? std::string_view("(popup)") : r.parent]++;
        table.push_back({r.name, r.caption, r.parent, order, r.popup, r.separatorBefore});
    }
    return table;
}

}  // namespace

const std::vector<MenuEntry>& menuTable() {
    static const std::vector<MenuEntry> table = buildMenuTable();
    return table;
}

const MenuEntry* findMenu(std::string_view name) {
    const auto& t = menuTable();
    const auto it = std::find_if(t.begin(), t.end(), [&](const MenuEntry& e) { return e.name == name; });
    return it == t.end() ? nullptr : &*it;
}

std::vector<const MenuEntry*> menuChildren(std::string_view parent) {
    std::vector<const MenuEntry*> out;
    for (const MenuEntry& e : menuTable())
        if (e.parent == parent && !e.popup) out.push_back(&e);
    std::stable_sort(out.begin(), out.end(),
                     [](const MenuEntry* a, const MenuEntry* b) { return a->order < b->order; });
    return out;
}

std::vector<const MenuEntry*> popupMenus() {
    std::vector<const MenuEntry*> out;
    for (const MenuEntry& e : menuTable())
        if (e.popup) out.push_back(&e);
    return out;
}

const std::vector<ToolbarButton>& toolbarTable() {
    static const std::vector<ToolbarButton> table = {
        {"new", "New Schedule", "mnunew"},
        {"open", "Open Schedule", "mnuOpen"},
        {},
        {"people", "Employees", "mnuEmployeeS"},
        {"position", "Positions", "mnupositions"},
        {"shift", "Shifts", "mnushifts"},
        {},
        {"edit", "Edit Schedule Entry", "mnuScheduleEdit"},
        {"delete", "Delete Schedule Entry", "mnudelete"},
        {},
        {"auto", "Automatic Scheduler", "mnuAutoSched"},
        {},
        {"refresh", "Refresh", "mnurefresh"},
        {"copy", "Copy Schedule", "mnucopyschedule1"},
        {"search", "Find Available Employees", "mnuFindAvailableEmployees"},
        {"report", "", "mnureports"},
        {"backup", "Backup", "mnubackup"},
        {"key", "", "mnusetpassword"},
        {"help", "Help", "mnutallymerehelp"},
    };
    return table;
}

const std::vector<SortEntry>& sortTable() {
    static const std::vector<SortEntry> table = {
        {"position", "mnusortdailyposition", "mnudailyflexsortposition"},
        {"employee", "mnusortdailyemployee", "mnudailyflexsortemployee"},
        {"shift", "mnusortdailyshift", "mnudailyflexsortshift"},
        {"section", "mnusortdailysection", "mnudailyflexsortsection"},
        {"starttime", "mnusortdailystarttime", "mnudailyflexsortstarttime"},
    };
    return table;
}

const SortEntry* findSortEntry(std::string_view menuName) {
    for (const SortEntry& e : sortTable())
        if (e.viewMenu == menuName || e.popupMenu == menuName) return &e;
    return nullptr;
}

const std::vector<DateFormatEntry>& dateFormatTable() {
    static const std::vector<DateFormatEntry> table = {
        {"mnushortdate", DateFormatKind::Short, ""},
        {"mnulongdate", DateFormatKind::Long, ""},
        {"mnummmddyyyy", DateFormatKind::Custom, "MMMM dd, yyyy"},
        {"mnummddyyyy", DateFormatKind::Custom, "MM/dd/yyyy"},
        {"mnuddddmmmddyyyy", DateFormatKind::Custom, "dddd MMM dd, yyyy"},
        {"mnuddddmmmmddyyyy", DateFormatKind::Custom, "dddd MMMM dd, yyyy"},
        {"mnudddmmmddyyyy", DateFormatKind::Custom, "ddd MMM dd, yyyy"},
        {"mnuddmmyy", DateFormatKind::Custom, "dd/mm/yy"},
        {"mnuddmmyydash", DateFormatKind::Custom, "dd-mm-yy"},
        {"mnuddmmyyyy", DateFormatKind::Custom, "dd/mm/yyyy"},
        {"mnuddmmmyyyydash", DateFormatKind::Custom, "dd-mmm-yyyy"},
        {"mnuddmmmmyyyy", DateFormatKind::Custom, "dd MMMM yyyy"},
        {"mnummddyyddd", DateFormatKind::Custom, "MM/dd/yy ddd"},
    };
    return table;
}

const DateFormatEntry* findDateFormat(std::string_view menuName) {
    for (const DateFormatEntry& e : dateFormatTable())
        if (e.name == menuName) return &e;
    return nullptr;
}

const std::vector<std::string_view>& outputCommands() {
    static const std::vector<std::string_view> list = {"mnuprintreport", "MnuSelectReportFont", "mnuExportReportRtf",
                                                       "mnuSaveToPDF",   "mnuReportConfig",     "mnuPrintPreview",
                                                       "mnuSaveAsCsv"};
    return list;
}

const std::vector<OutputCommandRule>& outputCommandTable() {
    static const std::vector<OutputCommandRule> table = [] {
        const std::vector<std::string_view> fontRow = {"mnuprintreport", "MnuSelectReportFont", "mnuExportReportRtf",
                                                       "mnuSaveToPDF"};
        const std::vector<std::string_view> previewRow = {"mnuprintreport", "mnuPrintPreview", "mnuExportReportRtf",
                                                          "mnuSaveToPDF"};
        std::vector<std::string_view> configRow = fontRow;
        configRow.push_back("mnuReportConfig");

        std::vector<OutputCommandRule> t;
        for (const char* w : {"ReportDaily", "leavemonth", "ReportEmpList", "printlist"}) t.push_back({w, fontRow, {}});
        for (const char* w :
             {"dailyflexgrid", "PayrollwithSales", "ReportAvailable", "PayrollwithOvertime", "queryemployee",
              "CheckConflicts", "leavelist", "payrollestimator", "hoursshifts", "analyzelevels", "settings"})
            t.push_back({w, previewRow, {}});
        t.push_back({"ReportWeeklyPayroll", fontRow, {}});
        t.push_back(
            {"ReportEmployee", {"mnuprintreport", "MnuSelectReportFont", "mnuSaveToPDF"}, {"mnuExportReportRtf"}});
        for (const char* w : {"ReportMonth", "ReportWeek", "ReportWeekShift", "ReportWeekPosition"})
            t.push_back({w, configRow, {}});
        t.push_back(
            {"staffing",
             {},
             {"mnuprintreport", "MnuSelectReportFont", "mnuExportReportRtf", "mnuSaveToPDF", "mnuPrintPreview"}});
        return t;
    }();
    return table;
}

const OutputCommandRule* findOutputRule(std::string_view windowName) {
    for (const OutputCommandRule& r : outputCommandTable())
        if (r.window == windowName) return &r;
    return nullptr;
}

const std::vector<std::string_view>& scheduleMenus() {
    static const std::vector<std::string_view> list = {
        "mnusaveas",
        "mnuExportScheduleData",
        "mnuScheduleEdit",
        "mnudelete",
        "mnudeleteday",
        "mnuweekly",
        "mnusaveasdefault",
        "mnugetdefaultsched",
        "mnuAutoSched",
        "mnuAutoRebuildSchedule",
        "mnuaddtoschedulelistview",
        "mnudailygridrightclickedit",
        "mnudailygridrightclickcut",
        "mnudailygridrightclickcopy",
        "mnudailygridrightclickpaste",
        "mnudailygridrightclickremove",
    };
    return list;
}

bool needsOpenSchedule(std::string_view menuName) {
    const auto& l = scheduleMenus();
    return std::find(l.begin(), l.end(), menuName) != l.end();
}

}  // namespace tallymere::shell

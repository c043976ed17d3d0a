#pragma once
// The daily schedule, `dailyflexgrid`: the entries of the active date in the open schedule file
// (`grid1`), the week of hours (`grid2`), the employee list from which entries are made (`lstlist`),
// the panel of figures on the selected employee and the day's labor and hours. The window exists once
// and stays open behind the others; the Qt view binds to the members below and calls the operations.
//
// Rows and columns are numbered as the grid numbers them: row 0 is the fixed header row, data rows
// run from 1. Colours are handed to the view as 0xRRGGBB (see rgbFromStored).

#include "common/session.h"
#include "payroll/day_figures.h"
#include "reference/employee_records.h"
#include "schedule/clipboard.h"
#include "schedule/schedule_host.h"
#include "store/recordset.h"
#include "store/value.h"

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tallymere::schedule {

using common::Date;
using common::DateTime;
using common::Session;

// A colour as the view paints it: 0xRRGGBB.
using Rgb = std::uint32_t;

// The system keeps colours with red in the low byte, 0xBBGGRR: `position.color` (red + green * 256 +
// blue * 65536) and the fixed colours of the grids. The view wants red in the high byte.
constexpr Rgb rgbFromStored(long stored) {
    const auto v = static_cast<std::uint32_t>(stored);
    return ((v & 0xFFu) << 16) | (v & 0xFF00u) | ((v >> 16) & 0xFFu);
}
// The Name cells: 0xC0FFFF in the stored order (blue C0, green FF, red FF), a pale yellow.
inline constexpr long kNameCellStoredColor = 0xC0FFFF;
inline constexpr Rgb kNameCellColor = rgbFromStored(kNameCellStoredColor);  // 0xFFFFC0

// The pictures of an employee list row.
inline constexpr int kPictureNone = 1;
inline constexpr int kPictureScheduled = 2;
inline constexpr int kPictureOnLeave = 3;
inline constexpr int kPictureNotAvailable = 4;

struct GridCell {
    std::string text;
    std::optional<Rgb> background;  // none: the grid's own
};

// `grid1`: one fixed row, seven columns, selection over whole rows.
struct DailyGrid {
    static constexpr int kCols = 7;
    static constexpr std::array<const char*, kCols> kCaptions{"Name",  "Position", "Start Time", "End Time",
                                                              "Shift", "Section",  "Note"};
    enum Column { NameCol, PositionCol, StartCol, EndCol, ShiftCol, SectionCol, NoteCol };

    struct Entry {
        std::array<GridCell, kCols> cells;
        long schedid = 0;  // the row value
    };

    std::array<std::string, kCols> captions;
    std::array<int, kCols> ColWidth{};  // twips
    int width = 0;                      // the grid's width in twips, set by the view (grid1_Resize)
    std::vector<Entry> rows;            // grid row n is rows[n - 1]

    int Row = 0;     // the current row; 0 when no entry row is current
    int RowSel = 0;  // the other end of the selection
    bool HighLight = false;

    int Rows() const { return static_cast<int>(rows.size()) + 1; }
    // The row value: the entry's schedid, 0 for the header row or a row that is not there.
    long RowData(int row) const;
    const std::string& TextMatrix(int row, int col) const;
    // The selected rows, lower first; empty when no entry row is selected.
    int firstSelected() const;
    int lastSelected() const;
    bool severalSelected() const { return HighLight && Row >= 1 && Row != RowSel; }
    bool isSelected(int row) const { return HighLight && row >= firstSelected() && row <= lastSelected() && row >= 1; }
    std::vector<long> selectedSchedids() const;
    // The row holding `schedid`, 0 when none does.
    int findRow(long schedid) const;
};

// `grid2`: employees by the days of the week.
struct WeekGrid {
    struct Row {
        long personid = 0;
        std::string name;
        std::string hours;
        std::array<std::string, 7> days;  // each entry "start-end", line break, shift; entries on lines
    };
    std::array<std::string, 9> captions;  // "Name", "Hrs", the seven days as "ddd mmm, dd"
    std::vector<Row> rows;
};

// `lstlist`: the employees, **Unassigned** first.
struct EmployeeList {
    struct Row {
        std::string name;      // FormatReportName
        std::string position;  // primpos
        long personid = 0;
        int picture = kPictureNone;
    };
    std::vector<Row> rows;
    int selected = -1;            // index into rows; 0 is **Unassigned**
    std::string order = "lname";  // "lname" or "primpos": which column stands first and sorts
    bool positionFirst() const { return order == "primpos"; }
};

enum class MouseButton { Left, Right, Middle };

// The keys grid1 acts on; the view maps its key codes to these.
enum class GridKey { Delete, Up, Down, Left, Right, X, C, V, Six, Other };
struct KeyModifiers {
    bool ctrl = false;
    bool alt = false;
    bool shift = false;
};

// What a key asks of the view beyond what the model already did.
struct GridAction {
    bool scrollToRow = false;  // keep grid1.Row in view
};

class dailyflexgrid {
public:
    static constexpr const char* kWindowName = "dailyflexgrid";
    static constexpr const char* kCaption = "Daily Schedule";
    // The daily report's captions, kept beside its statement.
    static constexpr const char* kDailyReportCaptions = "Name|Position|Shift|Day";

    // The window's load: the filter combo and the employee list (not yet marked). The main window
    // then asks for updailyflexform.
    dailyflexgrid(Session& s, ScheduleHost& main);
    ~dailyflexgrid();
    dailyflexgrid(const dailyflexgrid&) = delete;
    dailyflexgrid& operator=(const dailyflexgrid&) = delete;

    // --- Controls
    DailyGrid grid1;
    WeekGrid grid2;
    bool weekView = false;  // grid2 shown instead of grid1
    EmployeeList lstlist;
    reference::ChoiceList filtercombo;
    std::string datelabeldailyflex;

    // The employee panel.
    std::string employeeframe;
    std::string TodayLabel;
    std::string WeekofLabel;
    std::string TotalHoursLabel;
    std::string HoursRequestedLabel;
    std::string NumHoursTodayLabel;
    std::string LeaveLabel;
    std::string NumShiftsLabel;

    // The day's figures.
    std::string LaborEstimate;
    std::string TotalHours;
    bool LaborEstimateVisible = true;

    // The statement of the daily report for the day and order on show, with its values.
    std::string dailyReportSql;
    std::vector<store::Value> dailyReportParams;

    // How the list's marks and the day's figures are read: over the whole day at once, or (to compare
    // and measure) with the statements per employee and per entry. Both show the same.
    payroll::DayReads reads = payroll::DayReads::Batched;

    // The employee picked in lstlist (-1 for **Unassigned**).
    long selectedEmployee() const;
    // True while the window is the active child: only then does a refresh enable the entry commands.
    bool activeWindow = true;
    // Raised when employees were added, changed or deleted: the list is filled again on activation.
    bool employeeListStale = false;

    // --- Refreshes
    // The whole window for the active date: heading, grid1, marks, panel, week grid when on.
    void updailyflexform();
    // grid1 and the employee list, after the sort or the employees changed.
    void UpDailyGridUpEmpl();
    // The window came to the front: pointer and menus, a stale list, a pending refresh.
    void Form_Activate();
    void Form_Deactivate() { activeWindow = false; }
    // `Command4` "Refresh", `mnurefresh` and the grid pop-up's refresh.
    void Command4_Click() { updailyflexform(); }

    void RefreshDailyGrid();
    void RefreshGridRow(long schedid);
    void RestoreGridSelection(int row);
    void ShowDayFigures();
    void UpdateEmployeePanel(long personid);
    void FillEmployeeList();
    void MarkEmployeeList();
    // One employee's picture after an entry was added ("add") or removed ("remove").
    void MarkEmployee(long personid, Date day, std::optional<DateTime> start, std::optional<DateTime> end,
                      std::string_view reason);
    void LoadWeekGrid();
    void FillFilterCombo();
    void SelectAllRows();
    // The view's grid width changed: the Note column takes what is left.
    void grid1_Resize(int widthTwips);
    // Switches between grid1 and grid2.
    void setWeekView(bool on);
    void filtercombo_Click() { LoadWeekGrid(); }

    // --- The employee list
    void lstlist_Click(int row);
    // True when the employee editor is to be opened on the session's current employee.
    bool lstlist_DblClick();
    // A click on a column header: 1 is the name column wherever it stands, 2 the position column.
    void lstlist_ColumnClick(int column);
    // Whether pressing and moving on the list starts a drag of the employee.
    bool lstlist_StartDrag() const { return !lstlist.rows.empty(); }

    // --- Adding, editing, deleting
    // Quick add from the quick bar for the selected employee. True when an entry was added; the view
    // then gives grid1 the focus. The view reads the quick bar's fields again afterwards (empty
    // minutes were set to "00").
    bool addfromlv_Click();
    // A drag from lstlist ended on grid1: ClearUndo, then the quick add.
    bool grid1_DragDrop();
    // `Command2` "Edit": the schedid to open `dailyadd` on, or nothing after saying why not. The view
    // gives the interface a turn, runs the editor modally and then calls editorClosed.
    std::optional<long> Command2_Click();
    void editorClosed(long schedid);
    // Edit from the menus (`mnuScheduleEdit`, `mnudailygridrightclickedit`) and the double click.
    std::optional<long> mnuScheduleEdit_Click();
    std::optional<long> grid1_DblClick() { return mnuScheduleEdit_Click(); }
    // `Command3` "Delete", `mnudelete`, `mnudailygridrightclickremove` and the Delete key.
    void Command3_Click();

    // --- Clipboard (menus; the keys go through grid1_KeyDown)
    void mnudailygridrightclickcut_Click();
    void mnudailygridrightclickcopy_Click();
    void mnudailygridrightclickpaste_Click();
    void mnudailygridrightclickselectall_Click() { SelectAllRows(); }
    void mnudeleteday_Click();

    // --- Mouse and keyboard in grid1. `row` is the grid row under the pointer, or -1 below the rows.
    void grid1_MouseDown(int row, MouseButton button, bool extend = false);
    // True when the pop-up menu `mnudailgridrightclick` is to be shown.
    bool grid1_MouseUp(MouseButton button) const { return button == MouseButton::Right; }
    // A selection dragged out with the mouse.
    void grid1_SelChange(int row, int rowSel);
    GridAction grid1_KeyDown(GridKey key, KeyModifiers modifiers);

private:
    struct Deleter;

    GridCell nameCell(const store::Recordset& rs) const;
    GridCell positionCell(const std::string& title, std::map<std::string, std::optional<Rgb>>* cache);
    DailyGrid::Entry makeRow(const store::Recordset& rs, std::map<std::string, std::optional<Rgb>>* cache);
    void setColumns();
    void removeGridRow(long schedid);
    void updateEntryCommands();
    void setEntryCommands(bool anyRow, bool several);
    std::optional<std::pair<DateTime, DateTime>> quickBarTimes() const;
    void afterClipboardChange(bool changed);

    Session& s_;
    ScheduleHost& main_;
    bool loading_ = true;
};

}  // namespace tallymere::schedule

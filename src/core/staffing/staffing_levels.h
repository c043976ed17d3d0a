#pragma once
// `staffing`: the head counts a schedule file needs per weekday, shift and position, kept by hand in
// seven tabs or gathered from the week of the active date; and `staffingadd`, its small add window.

#include "staffing/staffing_lists.h"

#include <array>
#include <string>
#include <vector>

namespace tallymere::staffing {

// One tab's `Grid1`: columns "Shift", "Position", "Needed".
struct LevelGrid {
    struct Row {
        std::string shift;
        std::string position;
        std::string needed;  // empty when the level has no value
    };
    std::vector<Row> rows;
};

// Looks the level up and inserts or updates it. False when the write failed (already told).
bool saveLevel(Session& s, int sday, const std::string& shift, const std::string& position, long numreq);

class staffing {
public:
    static constexpr const char* kWindowName = "staffing";
    static constexpr const char* kGetLevelsTitle = "Set Staffing Levels";

    // The window's load: filters, the table brought in line with the shifts and positions, the tabs.
    explicit staffing(Session& s);

    // --- Controls
    std::string Caption;
    int SSTab1 = 0;  // 0 = Sunday ... 6 = Saturday
    std::array<LevelGrid, 7> Grid1;
    ChoiceList shiftcombo;
    ChoiceList positioncombo;
    int Row = -1;        // the current row of the current tab's grid; -1 when none
    std::string numreq;  // the edit box over the "Needed" cell of that row
    bool StaffPbarVisible = false;
    int StaffPbarMax = 0;
    int StaffPbarValue = 0;

    int sday() const { return SSTab1 + 1; }

    // The load, again when the open schedule file changed: caption, filters, rows, tabs.
    void Form_Load();

    // Re-reads every tab under the filters.
    void LoadTabs();
    // Selecting a cell: the edit box leaves the old one (writing it) and takes the new one's value.
    void Grid1_EnterCell(int row);
    // The edit box takes digits only; any other key beeps and is dropped (false).
    bool numreq_KeyPress(char key);
    // Writes the edit box into the current row. A text that is no head count is refused with a
    // message and the stored value comes back; false then.
    bool leaveCell();
    // Arrow keys move the row and write at once.
    void moveRow(int delta);
    void SSTab1_Click(int tab);
    void shiftcombo_Click(int index);
    void positioncombo_Click(int index);
    // After `staffingadd` (Add... or Edit...) closed.
    void afterAdd() { LoadTabs(); }
    // Get Levels from Schedule.
    void Command5_Click();

private:
    // Where there is no level for a weekday, shift and position, an empty one; levels of deleted
    // shifts and positions go.
    void layRows();
    void loadTab(int tab, const std::vector<std::string>& shifts, const std::vector<std::string>& positions);

    Session& s_;
};

class staffingadd {
public:
    static constexpr const char* kWindowName = "staffingadd";
    static constexpr const char* kCaption = "Add Staffing Levels";

    // `sday` is the weekday of the tab the window was opened from.
    staffingadd(Session& s, int sday);

    ChoiceList shiftcombo;
    ChoiceList positioncombo;
    std::string numreq;

    // Edit...: the window opens on the level of the grid's current row.
    void preset(const std::string& shift, const std::string& position, const std::string& needed);
    // OK: true when the level was written and the window closes.
    bool Command1_Click();

private:
    Session& s_;
    int sday_;
};

}  // namespace tallymere::staffing

#pragma once
// The weekly schedule, `week`: the week of the active date in the open schedule file, employees down
// and days across. A window to look at; entries are changed in the daily schedule.

#include "common/session.h"
#include "reference/employee_records.h"

#include <array>
#include <string>
#include <vector>

namespace tallymere::schedule {

using common::Date;
using common::Session;

// `Grid1`: one fixed row, nine columns ("Name", "Hrs", the seven days). Widths and heights in twips.
struct WeeklyGrid {
    static constexpr int kCols = 9;
    static constexpr int kNameCol = 0;
    static constexpr int kHrsCol = 1;
    static constexpr int kFirstDayCol = 2;
    static constexpr int kMinWidth = 12760;
    static constexpr int kHrsWidth = 400;
    static constexpr int kRowHeight = 500;  // rows start at this height and grow with their lines

    struct Row {
        long personid = 0;
        std::string name;
        std::string hours;                // empty for an employee without entries in the week
        std::array<std::string, 7> days;  // per entry "<start>-<end>", a line break, the shift
        int lines = 1;                    // lines of the highest cell
    };

    std::array<std::string, kCols> captions;
    std::array<int, kCols> ColWidth{};
    int width = kMinWidth;
    std::vector<Row> rows;  // grid row n is rows[n - 1]

    int Rows() const { return static_cast<int>(rows.size()) + 1; }
};

class week {
public:
    static constexpr const char* kWindowName = "week";
    static constexpr const char* kCaption = "Weekly Schedule";
    static constexpr const char* kAll = "All";

    // The window's load: the two filters, then the week.
    explicit week(Session& s);

    // --- Controls
    WeeklyGrid Grid1;
    reference::ChoiceList employeeCombo;  // "All", then the employees (item data: personid)
    reference::ChoiceList shiftCombo;     // "All", then the shifts
    bool hourscheck = true;               // "Show Hours"
    Date firstDay;                        // of the week on show
    Date lastDay;

    // Reads the week again and fills the grid.
    void LoadWeek();
    void employeeCombo_Click(int index);
    void shiftCombo_Click(int index);
    // "Show Hours" only rebuilds: the hours column shows either way.
    void hourscheck_Click(bool checked);
    void refreshbutton_Click() { LoadWeek(); }
    // The window came to the front: rebuilt when the schedule changed meanwhile.
    void Form_Activate();
    // The window's inner width changed: the grid takes it less 200, at least its minimum width.
    void Form_Resize(int windowWidthTwips);

private:
    void fillFilters();
    void setColumns();

    Session& s_;
};

}  // namespace tallymere::schedule

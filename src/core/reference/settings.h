#pragma once
// The window with the three lists every schedule entry refers to by name: shifts, positions and
// sections, one tab each. Add and edit open the small windows (the view opens them with what the
// buttons return); delete asks and runs its statements here. Schedule entries are never touched by a
// delete: they keep the text of a shift, position or section that is gone.

#include "common/session.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace tallymere::reference {

struct ShiftRow {
    std::string name;
    std::string startTime;  // "10:00 PM"
    std::string endTime;
    std::string length;  // "8h 00": hours, the mark "h ", two-digit minutes
    std::string description;
};

struct PositionRow {
    std::string title;
    std::string baserate;  // as typed
    std::string description;
    long color = 0;  // the row is painted in it (see rgbColor)
};

struct SectionRow {
    std::string name;
    std::string description;
};

class settings {
public:
    enum Tab { ShiftsTab = 0, PositionsTab = 1, SectionsTab = 2 };
    static constexpr std::array<const char*, 5> kShiftColumns{"Name", "Start Time", "End Time", "Length",
                                                              "Description"};
    static constexpr std::array<const char*, 3> kPositionColumns{"Title", "Baserate", "Description"};
    static constexpr std::array<const char*, 2> kSectionColumns{"Section Name", "Description"};

    // `mnushifts`, `mnupositions` and `mnusections` open the window on their tab.
    explicit settings(common::Session& s, int tab = ShiftsTab);

    int SSTab1 = ShiftsTab;
    // Each grid's rows and its selected row (-1 for none; the first row after a fill).
    std::vector<ShiftRow> shiftgrid;
    int shiftgridRow = -1;
    std::vector<PositionRow> positiongrid;
    int positiongridRow = -1;
    std::vector<SectionRow> groupgrid;
    int groupgridRow = -1;

    // Reads the three grids again (after an add or edit window closed).
    void Refresh();

    // True when the add window may open.
    bool addShift();
    bool addPosition();
    bool addSection();
    // The name of the selected row, to open the edit window on; nullopt when it must not open.
    std::optional<std::string> editShift();
    std::optional<std::string> editPosition();
    std::optional<std::string> editSection();
    // True when the row was deleted (the grid is then read again).
    bool deleteShift();
    bool deletePosition();
    bool deleteSection();

    // Preview and print of the current tab's grid: false, after saying so, when there is nothing to print.
    bool canPrint();

private:
    bool refused(int tab);
    template <class Row>
    const Row* selected(const std::vector<Row>& rows, int row) const;

    common::Session& s_;
};

// The length of a shift from its two times: "8h 00", "13h 30".
std::string shiftLengthText(common::DateTime start, common::DateTime end);

}  // namespace tallymere::reference

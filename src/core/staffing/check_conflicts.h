#pragma once
// `CheckConflicts`: every entry of a day, a week or a range that now breaks a rule (leave,
// availability, an overlap), one row per rule broken; it changes nothing. `RepairEndtimes`: entries
// whose end lies before their start, moved to end on the next day.

#include "staffing/staffing_lists.h"
#include "store/recordset.h"

#include <optional>
#include <string>
#include <vector>

namespace tallymere::staffing {

struct ConflictRow {
    long schedid = 0;
    std::string name;
    std::string position;
    std::string day;
    std::string start;
    std::string end;
    std::string conflict;  // "Leave", "Availability" or "Overlaped time"
};

class CheckConflicts {
public:
    static constexpr const char* kWindowName = "CheckConflicts";
    static constexpr const char* kCaption = "Find Schedule Conflicts";
    static constexpr const char* kTitle = "Check Conflicts";

    // The window's load: `dayoption` on the active date, then the search.
    explicit CheckConflicts(Session& s);

    // --- Controls
    bool dayoption = true;
    bool weekoption = false;
    bool rangeoption = false;
    Date startdate;
    Date enddate;
    bool datesEnabled() const { return rangeoption; }
    std::vector<ConflictRow> ConflictGrid;
    std::string Label1;
    std::string Label2;
    // True asks the entry rules one statement at a time, as they stand; false (the window's way)
    // answers the same questions from the range read once.
    bool literal = false;

    void dayoption_Click();
    void weekoption_Click();
    void rangeoption_Click();
    // Runs the search; false when the dates were refused. A range longer than a year is refused too:
    // one typed a year off would otherwise read the whole history.
    bool RefreshButton_Click() { return search(); }
    bool search();

    reports::ListGrid listGrid() const;

private:
    void collect(store::Recordset& rs);

    Session& s_;
};

struct RepairRow {
    long schedid = 0;
    std::string start;
    std::string end;
    std::string sname;
};

class RepairEndtimes {
public:
    static constexpr const char* kWindowName = "RepairEndtimes";
    static constexpr const char* kCaption = "Repair Schedule Entries";

    explicit RepairEndtimes(Session& s);

    std::vector<RepairRow> Grid1;
    // The window itself looks at every entry; the command line may narrow it to days from..to.
    std::optional<Date> fromDay;
    std::optional<Date> toDay;

    void load();
    // Moves each end onto the next day, all in one go. False when there was nothing to do or the
    // write failed; both have been told.
    bool Repair_Click();

    reports::ListGrid listGrid() const;

private:
    store::Recordset broken();

    Session& s_;
};

}  // namespace tallymere::staffing

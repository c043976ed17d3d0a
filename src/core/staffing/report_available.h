#pragma once
// `ReportAvailable`: who could work on a day from one time to another. Every active employee is
// listed with a status and what stands in the way; nothing is changed.

#include "reference/time_entry.h"
#include "staffing/staffing_lists.h"

#include <optional>
#include <string>
#include <vector>

namespace tallymere::staffing {

struct AvailableRow {
    long personid = 0;
    int picture = 4;  // 4 "Available", 9 "Unavailable" in `imglist`
    std::string name;
    std::string position;
    std::string status;
    std::string phone;
    std::string conflict;  // "Yes" (picture 5) when an entry overlaps the times
    std::string hours;     // the day's hours, "####0.00 hrs"; empty when none
    std::string reqoff;    // "Off" (picture 5) when the times lie outside the availability
    std::string leave;     // the kind of leave (picture 5)
};

class ReportAvailable {
public:
    static constexpr const char* kWindowName = "ReportAvailable";
    static constexpr const char* kCaption = "Find Available Employees";
    static constexpr int kColumns = 8;

    // The window's load: the day is the active date, the lists fill.
    explicit ReportAvailable(Session& s);

    // --- Controls
    Date dtdate;
    ChoiceList shiftCombo;
    ChoiceList positionCombo;        // shown, and takes no part in the search
    reference::TimeEntry startTime;  // the first `TEFrame`
    reference::TimeEntry endTime;    // the second `TEFrame`
    std::vector<AvailableRow> bblistview1;
    int sortColumn = -1;  // -1 while no header was clicked: the rows stay by last name
    bool sortAscending = true;
    int selectedRow = -1;

    // A shift chosen: its times go into the four fields.
    void shiftCombo_Click(int index);
    void dtdate_Change(Date d);
    void positionCombo_Click(int index);
    // The search. False when the times were refused or the search failed (told).
    bool refreshbutton_Click();
    void ColumnClick(int column);

    // The times as checked, for the search; nullopt after a message or a No.
    struct Span {
        DateTime start;
        DateTime end;
    };
    std::optional<Span> checkTimes();

    std::string printTitle() const;
    reports::ListGrid listGrid() const;

private:
    void sortRows();

    Session& s_;
};

}  // namespace tallymere::staffing

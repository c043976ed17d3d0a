#pragma once
// Writing one schedule entry by hand: the time fields' checks that the quick add (dailyflexgrid's
// addfromlv_Click, quick_add.cpp) and the entry editor share, the entry editor `dailyadd`, and the
// small note window `commentfrm`. The quick add and the editor ask their questions in different
// orders and words; each keeps its own.

#include "common/session.h"
#include "reference/employee_records.h"
#include "reference/time_entry.h"
#include "schedule/entry_rules.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace tallymere::schedule {

// The time fields' checks in the order both forms ask them: start empty, end empty, start hour and
// minutes, end hour and minutes (hours 0 to 12). A single minute digit stands for tens, "5" being 50
// minutes. Gives the entry's start and end on `day`, an end before the start on the day after; says
// what is wrong and gives nothing when a field fails. Empty minutes must have been set to "00" first.
std::optional<EntryTimes> readEntryTimes(Session& s, Date day, const reference::TimeEntry& start,
                                         const reference::TimeEntry& end);

// A combo whose text need not be one of its items: an entry keeps a shift, position or section that
// has since been renamed or deleted.
struct TextCombo {
    std::vector<std::string> items;
    std::string text;
};

// The entry editor, caption "Edit Schedule". The view opens it modally on the schedid that
// dailyflexgrid::Command2_Click gave, and calls dailyflexgrid::editorClosed afterwards.
class dailyadd {
public:
    static constexpr const char* kWindowName = "dailyadd";
    static constexpr const char* kCaption = "Edit Schedule";

    struct EmployeeRow {
        std::string name;  // FormatReportName; "**Unassigned**" for the first row
        std::string lname;
        std::string fname;
        long personid = 0;
        int picture = 1;  // 1 none, 2 scheduled today, 3 on leave, 4 not available
    };

    dailyadd(Session& s, long schedid) : s_(s), schedid_(schedid) {}

    // Fills the window from the entry. False when it must not open: the load failed, the user was
    // told, and the program ends (common::ProgramEnd passes through).
    bool Form_Load();

    // The two time fields: index 1 the start, index 0 the end, as the control arrays are numbered.
    std::array<reference::TimeEntry, 2> times;
    TextCombo shiftcombo;
    TextCombo positioncombo;
    TextCombo sectioncombo;
    std::vector<EmployeeRow> EmplBBlist;
    int EmplBBlistIndex = -1;           // the selected row
    reference::ChoiceList filtercombo;  // "All" and the position titles
    std::string note;

    long schedid() const { return schedid_; }

    // The filter changed: the employee list is read again, keeping the selected employee if listed.
    void filtercombo_Click();
    // A shift was chosen: the time fields take its times and the pictures follow them.
    void shiftcombo_Click();
    // `Command1` "OK": true when the entry was saved and the window closes.
    bool Command1_Click();
    // `Command2` "Cancel".
    bool Command2_Click() { return true; }

private:
    void FillEmployeeList();
    void markEmployees();
    bool timesChanged() const;
    bool save();

    Session& s_;
    long schedid_;
    Date day_;
    // As loaded, to tell what changed.
    long loadedPersonid_ = 0;
    std::string loadedLname_;
    std::string loadedFname_;
    std::optional<DateTime> loadedStart_;
    std::optional<DateTime> loadedEnd_;
    std::array<reference::TimeEntry, 2> loadedTimes_;
};

// "Employee Comment": edits a note held by the caller.
class commentfrm {
public:
    static constexpr const char* kWindowName = "commentfrm";
    static constexpr const char* kCaption = "Employee Comment";

    explicit commentfrm(std::string& sharedComment) : Text1(sharedComment), comment_(sharedComment) {}

    std::string Text1;

    // OK: stores the trimmed text; the window closes.
    bool Command1_Click();
    // Cancel: the note stays as it was.
    bool Command2_Click() { return true; }

private:
    std::string& comment_;
};

}  // namespace tallymere::schedule

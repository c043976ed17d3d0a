#pragma once
// The windows that open, create, rename, copy and delete schedule files. A schedule file is a row of
// `schedname`; its name is copied into `sname` of its entries and day notes. The windows the menu
// opens forget the undo snapshot as they open, and so do Openfrm's select and open.
//
// When the current schedule changes, a window sets Session::currentSchedule and raises its own
// `scheduleChanged`: the view then sets the main window's title ("Tallymere - <name>") and refreshes
// the open schedule windows (the daily grid for the active date, staffing, analysis), and lowers it.

#include "common/session.h"

#include <optional>
#include <string>
#include <vector>

namespace tallymere::reference {

struct ScheduleListItem {
    std::string text;  // the name, and two tabs and the comment when there is one
    long id = 0;       // `schedname.id`
};

// The list of schedule files and the figures of the selected one, as `Openfrm` and `deletesched`
// both show them.
class ScheduleFileList {
public:
    std::vector<ScheduleListItem> List1;
    int ListIndex = -1;     // the selected item, -1 for none
    std::string firstdate;  // first and last day with entries, "mmm dd, yyyy"; empty without entries
    std::string lastdate;
    std::string Label4;  // "'<name>' has <n> entries."
    bool scheduleChanged = false;

    // Reads the list again; nothing is selected afterwards.
    void fillList();

protected:
    explicit ScheduleFileList(common::Session& s) : s_(s) {}
    // Selects an item and reads its figures.
    void select(int index);
    void clearFigures();
    bool hasSelection() const { return ListIndex >= 0 && static_cast<std::size_t>(ListIndex) < List1.size(); }

    common::Session& s_;
    std::string selectedName_;
    std::size_t selectedEntries_ = 0;
};

class Openfrm : public ScheduleFileList {
public:
    static constexpr const char* kCaption = "Open Schedule File";

    explicit Openfrm(common::Session& s);

    void List1_Click(int index);
    // Open. True when the window closes.
    bool okbutton_Click();
    bool List1_DblClick() { return okbutton_Click(); }
    // Change Name: the `id` to open `opennew` on in rename mode, or nullopt. Call fillList() when
    // that window has closed.
    std::optional<long> Command1_Click();
    void deletebutton_Click();
    bool cancelbutton_Click() { return true; }
};

class opennew {
public:
    // New mode, as `mnunew` opens it.
    explicit opennew(common::Session& s);
    // Rename mode, on the schedule file with that `id`.
    opennew(common::Session& s, long id);

    std::string Caption;  // "Create New Schedule File" or "Edit Schedule Name"
    std::string schedname;
    std::string description;
    bool scheduleChanged = false;

    bool renameMode() const { return id_.has_value(); }
    // OK. True when the window closes.
    bool Command1_Click();
    bool Command2_Click() { return true; }

private:
    bool create();
    bool rename();

    common::Session& s_;
    std::optional<long> id_;
    std::string oldName_;
};

class SaveAs {
public:
    static constexpr const char* kCaption = "Save Schedule File As";

    explicit SaveAs(common::Session& s);

    std::string schedname;
    std::string description;
    bool scheduleChanged = false;

    // Copies the current schedule file, entries and day notes, under the new name. True when the
    // window closes.
    bool OKButton_Click();
    bool Command2_Click() { return true; }

private:
    bool copyInto(const std::string& name);

    common::Session& s_;
};

class deletesched : public ScheduleFileList {
public:
    static constexpr const char* kCaption = "Delete Schedule";

    explicit deletesched(common::Session& s);

    void List1_Click(int index) { select(index); }
    void deletebutton_Click();
    bool Command1_Click() { return true; }
};

}  // namespace tallymere::reference

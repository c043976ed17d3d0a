#pragma once
// The commands of the main window as data: its menus and pop-up menus, the toolbar, the date format
// entries of the date navigator, and which output commands each active window switches on. The view
// builds its widgets from these tables and routes every action by menu name.

#include <string_view>
#include <vector>

namespace tallymere::shell {

// One entry of a menu. A menu of the menu bar and a pop-up root have no parent; an entry with
// children is a submenu. Separators are entries of their own only where they are shown and hidden
// with a command (the one beside `mnuEditUndo`); other group breaks are `separatorBefore`.
struct MenuEntry {
    std::string_view name;
    std::string_view caption;  // "&" marks the access key; "..." is part of the caption; "-" a separator
    std::string_view parent;   // empty for a menu of the bar and for a pop-up root
    int order = 0;             // position among the entries of the same parent, from 0
    bool popup = false;        // a pop-up root, never shown in the menu bar
    bool separatorBefore = false;

    bool isSeparator() const { return caption == "-"; }
};

// Every menu entry, the pop-up menus included, in menu order. Besides the named entries of the
// system there are:
//   `mnuEditUndoSep`  the separator below `mnuEditUndo`, hidden with it;
//   the sort entries of the pop-up menu `mnudailyflexsort`: `mnudailyflexsortposition`,
//   `mnudailyflexsortemployee`, `mnudailyflexsortshift`, `mnudailyflexsortsection` and
//   `mnudailyflexsortstarttime`, the twins of the View menu's `mnusortdaily...` entries.
const std::vector<MenuEntry>& menuTable();
// nullptr for a name that is not in the table. Names are exact (they are the code's names).
const MenuEntry* findMenu(std::string_view name);
// The entries below `parent`, in order; with an empty parent, the menus of the bar (no pop-ups).
std::vector<const MenuEntry*> menuChildren(std::string_view parent);
// The three pop-up roots: `mnudailgridrightclick`, `mnudailygridlistviewrightclick`, `mnudaterightclick`.
std::vector<const MenuEntry*> popupMenus();

// A button of `Toolbar1`, in the order they are built. A separator has no key.
struct ToolbarButton {
    std::string_view key;     // selects the action and the image of `ImageList1`
    std::string_view tip;     // empty where the button has no tip
    std::string_view action;  // the menu entry whose command the button runs
    bool isSeparator() const { return key.empty(); }
};
// "edit" runs `mnuScheduleEdit` (the selection of `dailyflexgrid` when it is the active window) and
// "report" opens the `mnureports` menu as a drop-down.
const std::vector<ToolbarButton>& toolbarTable();

// One sort of the daily schedule and its two entries, in the View menu and in the grid's pop-up menu.
struct SortEntry {
    std::string_view column;  // "position", "employee", "shift", "section", "starttime"
    std::string_view viewMenu;
    std::string_view popupMenu;
};
const std::vector<SortEntry>& sortTable();
// The sort of a menu entry of either menu; nullptr for another entry.
const SortEntry* findSortEntry(std::string_view menuName);

// A date format entry of `mnudaterightclick`.
enum class DateFormatKind { Short, Long, Custom };
struct DateFormatEntry {
    std::string_view name;
    DateFormatKind kind;
    std::string_view format;  // the date control's custom format; empty for the short and long entries
};
// `mnushortdate`, `mnulongdate`, then the custom formats in menu order.
const std::vector<DateFormatEntry>& dateFormatTable();
const DateFormatEntry* findDateFormat(std::string_view menuName);

// The output commands, as MenuSetupFormDeactivation switches them off.
const std::vector<std::string_view>& outputCommands();

// What MenuSetupFormActivation does for one active window: the output commands it switches off,
// then those it switches on. `mnuSaveToPDF` goes on only when PDF output is set up.
struct OutputCommandRule {
    std::string_view window;
    std::vector<std::string_view> on;
    std::vector<std::string_view> off;
};
const std::vector<OutputCommandRule>& outputCommandTable();
// nullptr for a window that switches nothing.
const OutputCommandRule* findOutputRule(std::string_view windowName);

// Entries that act on the open schedule file or its entries, disabled while none is open:
// Save As, Export Schedule Data, the entry commands of the Edit menu and of the daily grid's pop-up
// menu (edit, cut, copy, paste, delete), Delete Day, the weekly schedule, Save as Default Schedule,
// Get Default Schedule, the automatic scheduler and rebuild, and Add to Schedule. Opening, creating,
// copying and deleting schedule files need none open, nor do the reports, which ask for themselves.
const std::vector<std::string_view>& scheduleMenus();
bool needsOpenSchedule(std::string_view menuName);

}  // namespace tallymere::shell

#pragma once
// Copying the entries of a day, a week or a range of up to 28 days onto other days, in the same or
// another schedule file. `CopyNew` is the copy window; `copytodifferent` the older one for a day or a
// week within the open file. Each copy replaces what the target days held, is undoable, and is
// written as one change.

#include "common/session.h"
#include "reference/employee_records.h"

#include <optional>
#include <string>

namespace tallymere::schedule {

using common::Date;
using common::Session;

enum class CopyMode { Day, Week, Range };

// A selection of days in a month view; unset while nothing valid is selected.
struct DaySelection {
    std::optional<Date> first;
    std::optional<Date> last;

    bool valid() const { return first && last && *first <= *last; }
    int count() const;  // days from first to last, 0 when not valid
};

// How a copy ended.
enum class CopyOutcome {
    Copied,         // every day was copied
    Cancelled,      // Cancel at a conflict question: the days reached so far were copied
    NothingToCopy,  // a single day without entries: nothing changed
    Failed,         // the database refused: nothing changed
};

// Copies `days` days from `fromFirst` in `fromSchedule` onto the days from `toFirst` in `toSchedule`.
// Each target day is emptied and takes the source day's entries on its own date, an entry that
// crossed midnight crossing it again. With `checkConflicts`, an employee who is not available or on
// leave is asked about (Yes copies, No skips, Cancel ends the copy). A source day without entries
// empties its target, except that with `refuseEmptyDay` a copy of a single such day says so and
// changes nothing. No checks of the arguments: the windows and CopySchedule make them.
CopyOutcome CopyDays(Session& s, const std::string& fromSchedule, Date fromFirst, const std::string& toSchedule,
                     Date toFirst, int days, bool checkConflicts, bool refuseEmptyDay);

class CopyNew {
public:
    static constexpr const char* kWindowName = "CopyNew";
    static constexpr const char* kCaption = "Copy Schedule";
    static constexpr int kMaxRangeDays = 28;

    // Both lists hold the schedule files, with the open one chosen; both month views the active date.
    explicit CopyNew(Session& s);

    // --- Controls
    reference::ChoiceList fromschedulecombo;
    reference::ChoiceList toschedulecombo;
    DaySelection FromDate;
    DaySelection ToDate;
    CopyMode mode = CopyMode::Day;  // `dayoption`, `weekoption`, `RangeOption`
    std::string FromSelectLabel;
    std::string ToSelectLabel;
    bool CheckforConflicts = true;  // `gb_CheckConflictsDuringCopy`

    void dayoption_Click() { setMode(CopyMode::Day); }
    void weekoption_Click() { setMode(CopyMode::Week); }
    void RangeOption_Click() { setMode(CopyMode::Range); }
    // A selection made in a month view, from `first` to `last` in either order: one day in day mode,
    // widened to its week in week mode, cut to 28 days in range mode.
    void FromDate_SelChange(Date first, Date last) { select(FromDate, first, last); }
    void ToDate_SelChange(Date first, Date last) { select(ToDate, first, last); }
    void CheckforConflicts_Click(bool checked);

    // `Command1` "Copy": checks the choices, asks, copies. True when the schedule changed (the
    // views refresh); the window stays open either way.
    bool Command1_Click();

    // How the last copy ended; unset when none ran.
    std::optional<CopyOutcome> lastOutcome;

private:
    void setMode(CopyMode m);
    void select(DaySelection& side, Date first, Date last);
    void updateLabels();
    bool run(const std::string& from, Date fromFirst, const std::string& to, Date toFirst, int days);

    Session& s_;
};

// The copy window's choices for a run without the window. In week mode any day of each week will
// do; in range mode `toLast` defaults to as many days as the source has, and `fromLast` to
// `fromFirst`. Unset `checkConflicts` keeps `gb_CheckConflictsDuringCopy`.
struct CopyChoices {
    std::string fromSchedule;
    std::string toSchedule;
    CopyMode mode = CopyMode::Day;
    Date fromFirst;
    std::optional<Date> fromLast;
    Date toFirst;
    std::optional<Date> toLast;
    std::optional<bool> checkConflicts;
};
// Runs the copy window's Copy with these choices, after checking that both schedule files exist.
// True when the schedule changed.
bool CopySchedule(Session& s, const CopyChoices& choices);

// `copytodifferent`: a day (`dayframe`) or a week (`weekframe`) copied within the open file, with no
// tests of the entries. Dates are typed.
class copytodifferent {
public:
    static constexpr const char* kWindowName = "copytodifferent";
    static constexpr const char* kCaption = "Copy Schedule";

    explicit copytodifferent(Session& s);

    // --- Controls
    bool dayoption = true;  // false: `weekoption`
    std::string sourcestart;
    std::string destinationstart;
    std::string sourceweek;
    std::string destinationweek;
    // The seven days from `firstdayofweek` that hold the picked dates.
    std::string wsourcestart;
    std::string wsourceend;
    std::string wdestinationstart;
    std::string wdestinationend;

    void dayoption_Click() { dayoption = true; }
    void weekoption_Click() { dayoption = false; }
    // A week field changed: its labels follow.
    void UpdateWeekLabels();
    // OK: checks, copies, says "Copy completed". True when it copied and the window closes.
    bool OKButton_Click();

private:
    Session& s_;
};

}  // namespace tallymere::schedule

#pragma once
// Why the automatic scheduler chose as it did. For every entry a run looked at it keeps who got it,
// in which phase, and for each other candidate the first rule that stopped them; entries that stayed
// **Unassigned** keep the last pass that tried them. Kept as the run decides, at no extra reads.

#include "autosched/scheduler_facts.h"

#include <map>
#include <ostream>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tallymere::autosched {

// The phases of a run: the desired shifts, the balanced fill, the balanced fill that may give a second
// entry on a day, and the first fit.
enum class Phase { DesiredShifts = 0, Balanced = 1, DoubleShifts = 2, FirstFit = 3 };
std::string_view phaseText(Phase p);

enum class Reason {
    Assigned,        // got the entry
    NotQualified,    // nobody holds the position: the entry had no candidate at all
    Conflict,        // another entry of theirs overlaps it
    NotAvailable,    // outside their hours of availability
    OnLeave,         // on leave that day
    Overtime,        // the overtime options
    WeeklyHours,     // at or over their hours per week
    DoubleShift,     // already works that day and double shifts were not allowed in that pass
    LostBalanceTie,  // another candidate came first: fewer hours, or as few and earlier in row order
};
std::string_view reasonText(Reason r);

// One candidate of one entry: a row of the explanation as the command line prints it.
struct ExplainRow {
    long schedid = 0;
    std::optional<Date> day;
    std::optional<DateTime> start;
    std::optional<DateTime> end;
    std::string shift;
    std::string position;
    long assignedId = 0;   // 0 when the entry stayed **Unassigned**
    std::string assigned;  // the name of who got it
    Phase phase = Phase::Balanced;
    long candidateId = 0;  // 0 on the one row of an entry without candidates
    std::string candidate;
    Reason reason = Reason::NotQualified;
};

// What a run decided about one entry in one pass.
struct EntryStory {
    OpenEntry entry;
    Phase phase = Phase::Balanced;
    struct Verdict {
        long personid;
        Reason reason;
    };
    std::vector<Verdict> verdicts;  // in the order the candidates were looked at
    long winner = 0;                // personid of who got it; 0 while it stays **Unassigned**
};

class Explanation {
public:
    // `nameFormat` is gs_ReportNameFormat: names are shown as the reports show them.
    explicit Explanation(std::string nameFormat = {}) : nameFormat_(std::move(nameFormat)) {}

    // The name a personid in a story stands for.
    void noteName(const Person& p) { names_.try_emplace(p.personid, p.lname, p.fname); }
    // A pass has decided about an entry. A filled entry's story is final; an unfilled one stands until
    // a later pass tells a newer one.
    void record(EntryStory story);
    void clear();

    // Filled entries in the order they were filled, then those left **Unassigned**, by schedid.
    std::vector<ExplainRow> rows() const;

private:
    void addRows(const EntryStory& story, std::vector<ExplainRow>& out) const;
    std::string nameOf(long personid) const;

    std::string nameFormat_;
    std::unordered_map<long, std::pair<std::string, std::string>> names_;  // last, first
    std::vector<EntryStory> filled_;
    std::map<long, EntryStory> open_;
};

// The rows as CSV (RFC 4180, CRLF line ends): the header
// "date,start,end,shift,position,assigned,phase,candidate,reason" and a line per row. Dates are ISO,
// times "HH:MM" on the clock, the phase its number 0 to 3.
void writeExplanationCsv(std::ostream& out, const std::vector<ExplainRow>& rows);

}  // namespace tallymere::autosched

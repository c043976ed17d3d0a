#pragma once
// What the automatic scheduler asks of the data while it fills entries. One algorithm runs over this
// interface; two implementations answer it: SqlFacts asks the database every question anew, one
// statement per question as the scheduler has always done, and MemoryFacts reads what a run needs
// once and keeps it current as entries are assigned. Both must give the same answers.

#include "common/date_time.h"

#include <optional>
#include <string>
#include <vector>

namespace tallymere::autosched {

using common::Date;
using common::DateTime;

// An **Unassigned** entry as the scheduler reads it.
struct OpenEntry {
    long schedid = 0;
    std::optional<Date> sday;
    std::optional<DateTime> strttime;
    std::optional<DateTime> endtime;
    std::string position;  // trimmed
    std::string shift;     // trimmed
};

// An employee row, as a candidate or as the owner of a desired shift.
struct Person {
    long personid = 0;
    std::string lname;  // `LName`, trimmed
    std::string fname;  // trimmed
    std::string primpos;
    double hoursperweek = 0;
};

// A row of `desiredshift`.
struct DesiredShift {
    long personid = 0;
    int sday = 0;  // 1 = Sunday
    std::string shift;
    std::string position;
};

// IsEmployeeFree, with the first of its tests that said no.
enum class Freedom { Free, Conflict, NotAvailable, OnLeave };

// Which of the two candidate statements: the balanced passes' or the first-fit pass's. They select
// the same rows; the literal path keeps each text as it is.
enum class CandidateStatement { Balanced, FirstFit };

// The fixed frame of one run: the week of the active date (which drives every hour count) and the
// range being filled, inside it.
struct RunRange {
    Date weekstart;
    Date weekend;
    Date fillstart;
    Date fillend;
};

class SchedulerFacts {
public:
    virtual ~SchedulerFacts() = default;

    // The **Unassigned** entries of `from`..`to` in the open schedule file, in row order. The list stays
    // valid until the next call of unassigned().
    virtual const std::vector<OpenEntry>& unassigned(Date from, Date to) = 0;
    // How many there are: the recount between passes.
    virtual long countUnassigned(Date from, Date to) = 0;
    virtual std::vector<DesiredShift> desiredShifts() = 0;
    virtual std::optional<Person> person(long personid) = 0;
    // The employees who may take an entry of `position`, in row order; valid until the next call.
    virtual const std::vector<Person>& candidates(const std::string& position, CandidateStatement which) = 0;
    // Hours of the employee in the run's week: in the open schedule file only, or in every file.
    virtual double weekHours(long personid, bool openFileOnly) = 0;
    // Length of an entry in hours; nullopt when its times are missing.
    virtual std::optional<double> entryHours(long schedid) = 0;
    virtual Freedom freedom(long personid, Date day, DateTime start, DateTime end) = 0;
    // GetHoursInRange over the open schedule file (or every file, as the conflict setting says).
    virtual double hoursInRange(long personid, Date from, Date to) = 0;
    // Gives the entry to the employee. False when the statement failed.
    virtual bool assign(const OpenEntry& entry, const Person& person) = 0;

    // A read failed or the program is ending: the run must stop.
    virtual bool broken() const = 0;
};

// Hours are summed from whole minutes. Rounding a sum to the minute makes the order in which rows are
// added irrelevant, so that both implementations, and the engine whatever plan it picks, agree to the
// last bit on every comparison and tie.
inline double wholeMinutesAsHours(double hours) {
    const double minutes = hours * 60.0;
    return static_cast<double>(static_cast<long long>(minutes < 0 ? minutes - 0.5 : minutes + 0.5)) / 60.0;
}

}  // namespace tallymere::autosched

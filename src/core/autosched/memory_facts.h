#pragma once
// The scheduler's questions answered from memory: what a run needs is read once when it starts (the
// schedule entries of the week and the days on either side of it, in every file, the employees, the
// wishes, availability and the leave of the week) and kept current as the run assigns entries. Each
// assignment is still written to the database at once. Comparisons follow the engine's: text keys
// without regard to case where the columns are so, days as the stored text compares.

#include "autosched/scheduler_facts.h"
#include "common/session.h"

#include <array>
#include <cstdint>
#include <unordered_map>

namespace tallymere::autosched {

class MemoryFacts : public SchedulerFacts {
public:
    // Reads everything at once; broken() tells whether a read failed.
    MemoryFacts(common::Session& s, const RunRange& range);

    const std::vector<OpenEntry>& unassigned(Date from, Date to) override;
    long countUnassigned(Date from, Date to) override;
    std::vector<DesiredShift> desiredShifts() override { return desired_; }
    std::optional<Person> person(long personid) override;
    const std::vector<Person>& candidates(const std::string& position, CandidateStatement which) override;
    double weekHours(long personid, bool openFileOnly) override;
    std::optional<double> entryHours(long schedid) override;
    Freedom freedom(long personid, Date day, DateTime start, DateTime end) override;
    double hoursInRange(long personid, Date from, Date to) override;
    bool assign(const OpenEntry& entry, const Person& person) override;
    bool broken() const override { return failed_ || s_.ExitNow; }

private:
    struct Row {
        OpenEntry entry;                   // schedid, day, times, position, shift
        std::optional<long> personid;      // NULL never matches
        std::optional<std::int32_t> day;   // the stored day, when it is a plain ISO date
        std::optional<std::string> sday;   // the stored text otherwise, compared as text
        bool inOpenFile = false;           // `sname` equals the open file's name
        std::optional<long long> minutes;  // DateDiff("n") of the times, when both are there
        bool isOpen() const { return personid == -1 && inOpenFile; }
    };
    struct WeekMinutes {
        long long openFile = 0;
        long long all = 0;
    };

    void load();
    static bool dayIn(const Row& r, Date from, Date to);
    static bool dayIs(const Row& r, Date d) { return dayIn(r, d, d); }
    const std::vector<std::size_t>& rowsOf(long personid) const;
    long long sumMinutes(long personid, Date from, Date to, bool openFileOnly) const;

    common::Session& s_;
    RunRange range_;
    bool failed_ = false;

    std::vector<Row> rows_;  // ascending schedid
    std::unordered_map<long, std::size_t> bySchedid_;
    std::unordered_map<long, std::vector<std::size_t>> byPerson_;
    std::unordered_map<long, WeekMinutes> weekMinutes_;  // worked out on first use, then kept current
    std::unordered_map<long, Person> persons_;
    std::vector<DesiredShift> desired_;
    // The first availability row of each weekday (1 = Sunday), by employee: its trimmed string.
    std::unordered_map<long, std::array<std::optional<std::string>, 8>> availability_;
    // The first leave row of (employee, day): its trimmed type.
    std::unordered_map<std::uint64_t, std::string> leave_;
    // Candidates by the position as bound (trimmed): both candidate statements select the same rows.
    std::unordered_map<std::string, std::vector<Person>> candidates_;
    // The last list of **Unassigned** entries, until an assignment changes it.
    std::vector<OpenEntry> open_;
    std::optional<std::pair<Date, Date>> openRange_;
};

}  // namespace tallymere::autosched

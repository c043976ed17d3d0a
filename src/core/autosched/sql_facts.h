#pragma once
// The scheduler's questions answered the way the scheduler has always asked them: a statement per
// question, nothing kept between questions. The reference against which MemoryFacts is checked.

#include "autosched/scheduler_facts.h"
#include "common/session.h"

namespace tallymere::autosched {

class SqlFacts : public SchedulerFacts {
public:
    SqlFacts(common::Session& s, const RunRange& range) : s_(s), range_(range) {}

    const std::vector<OpenEntry>& unassigned(Date from, Date to) override;
    long countUnassigned(Date from, Date to) override;
    std::vector<DesiredShift> desiredShifts() override;
    std::optional<Person> person(long personid) override;
    const std::vector<Person>& candidates(const std::string& position, CandidateStatement which) override;
    double weekHours(long personid, bool openFileOnly) override;
    std::optional<double> entryHours(long schedid) override;
    Freedom freedom(long personid, Date day, DateTime start, DateTime end) override;
    double hoursInRange(long personid, Date from, Date to) override;
    bool assign(const OpenEntry& entry, const Person& person) override;
    bool broken() const override { return failed_ || s_.ExitNow; }

private:
    common::Session& s_;
    RunRange range_;
    bool failed_ = false;
    std::vector<OpenEntry> entries_;
    std::vector<Person> candidates_;
};

}  // namespace tallymere::autosched

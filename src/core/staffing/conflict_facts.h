#pragma once
// The facts the conflict finder asks of every entry of a range (leave, availability, the employee's
// other entries that day and the days around it), read once for the whole range and answered from
// memory with the entry rules' own tests. Over a year of a busy file this is the difference between
// a statement per question and a handful of reads.

#include "common/session.h"

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tallymere::staffing {

using common::Date;
using common::DateTime;
using common::Session;

class ConflictFacts {
public:
    // Reads what entries of `first`..`last` can be asked about, in the open schedule file.
    ConflictFacts(Session& s, Date first, Date last);

    // As schedule::GetLeaveType.
    std::string leaveType(long personid, Date day) const;
    // As schedule::CheckAvailability.
    bool available(long personid, Date day, DateTime start, DateTime end) const;
    // As schedule::HasConflictExcept.
    bool conflictExcept(long schedid, long personid, Date day, DateTime start, DateTime end) const;

private:
    struct Entry {
        long schedid = 0;
        std::optional<DateTime> start;
        std::optional<DateTime> end;
    };
    using Key = std::pair<long, std::int32_t>;  // personid, day

    const std::vector<Entry>* entriesOf(long personid, Date day) const;

    std::map<Key, std::string> leave_;                   // the first row's kind per employee and day
    std::map<std::pair<long, int>, std::string> hours_;  // the first `houravail` per employee and weekday
    std::map<Key, std::vector<Entry>> entries_;          // the open file's entries per employee and day
};

}  // namespace tallymere::staffing

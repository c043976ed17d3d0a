#include "staffing/conflict_facts.h"

#include "common/text.h"
#include "schedule/entry_rules.h"
#include "store/access.h"

namespace tallymere::staffing {

using store::GetRecs;

ConflictFacts::ConflictFacts(Session& s, Date first, Date last) {
    // Rows come in key order, so the first one kept per key is the one a single read would find.
    for (auto rs = GetRecs(s, "select * from employeeleave where sday>=? and sday<=?", {first, last}); !rs.eof();
         rs.MoveNext()) {
        const auto day = rs["sday"].toDate();
        if (!day || rs["personid"].isNull()) continue;
        leave_.try_emplace({static_cast<long>(rs["personid"].toLong()), day->daysSinceEpoch()},
                           rs["typeofleave"].text());
    }
    for (auto rs = GetRecs(s, "select * from availability"); !rs.eof(); rs.MoveNext()) {
        // Only a full English name, in any case, matches the weekday the rules ask with.
        int weekday = 0;
        for (int d = 1; d <= 7 && weekday == 0; ++d)
            if (common::equalsNoCase(rs["sday"].value().toText(), common::weekdayName(d))) weekday = d;
        if (weekday == 0 || rs["personid"].isNull()) continue;
        hours_.try_emplace({static_cast<long>(rs["personid"].toLong()), weekday}, rs["houravail"].text());
    }
    for (auto rs = GetRecs(s, "select * from sched where sday>=? and sday<=? and sname=?",
                           {first.addDays(-1), last.addDays(1), s.currentSchedule});
         !rs.eof(); rs.MoveNext()) {
        const auto day = rs["sday"].toDate();
        if (!day || rs["personid"].isNull()) continue;
        entries_[{static_cast<long>(rs["personid"].toLong()), day->daysSinceEpoch()}].push_back(
            {static_cast<long>(rs["schedid"].toLong()), rs["strttime"].toDateTime(), rs["endtime"].toDateTime()});
    }
}

std::string ConflictFacts::leaveType(long personid, Date day) const {
    const auto it = leave_.find({personid, day.daysSinceEpoch()});
    return it == leave_.end() ? std::string() : it->second;
}

bool ConflictFacts::available(long personid, Date day, DateTime start, DateTime end) const {
    return schedule::AvailabilityAllows(start, end, [&](int offset) -> std::optional<std::string> {
        const auto it = hours_.find({personid, day.addDays(offset).weekdayNumber()});
        if (it == hours_.end()) return std::nullopt;
        return it->second;
    });
}

const std::vector<ConflictFacts::Entry>* ConflictFacts::entriesOf(long personid, Date day) const {
    const auto it = entries_.find({personid, day.daysSinceEpoch()});
    return it == entries_.end() ? nullptr : &it->second;
}

bool ConflictFacts::conflictExcept(long schedid, long personid, Date day, DateTime start, DateTime end) const {
    if (const auto* same = entriesOf(personid, day)) {
        for (const Entry& e : *same)
            if (e.schedid != schedid && e.start && e.end && schedule::SameDayTest(*e.start, *e.end, start, end))
                return true;
    }
    if (const auto* prev = entriesOf(personid, day.addDays(-1))) {
        for (const Entry& e : *prev)
            if (e.end && start < *e.end) return true;
    }
    if (const auto* next = entriesOf(personid, day.addDays(1))) {
        for (const Entry& e : *next) {
            if (!e.start || !e.end) continue;
            if (start < *e.start && end >= *e.end) return true;
            if (end > *e.start && end < *e.end) return true;
        }
    }
    return false;
}

}  // namespace tallymere::staffing

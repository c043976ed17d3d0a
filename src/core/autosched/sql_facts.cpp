#include "autosched/sql_facts.h"

#include "autosched/statements.h"
#include "schedule/entry_rules.h"
#include "store/access.h"

namespace tallymere::autosched {

using store::GetRecs;

namespace {

// Availability compares clock times only: the dates are set aside, so that an entry of exactly 24
// hours counts as start = end, as it always has.
DateTime timeOfDay(DateTime t) { return DateTime::at(Date::fromYmd(1899, 12, 30), t.hour(), t.minute(), t.second()); }

}  // namespace

const std::vector<OpenEntry>& SqlFacts::unassigned(Date from, Date to) {
    entries_.clear();
    for (auto rs = GetRecs(s_, sql::kUnassigned, {from, to, s_.currentSchedule}); !rs.eof(); rs.MoveNext())
        entries_.push_back(sql::readOpenEntry(rs));
    return entries_;
}

long SqlFacts::countUnassigned(Date from, Date to) {
    return static_cast<long>(GetRecs(s_, sql::kUnassigned, {from, to, s_.currentSchedule}).RecordCount());
}

std::vector<DesiredShift> SqlFacts::desiredShifts() {
    std::vector<DesiredShift> out;
    for (auto rs = GetRecs(s_, sql::kDesiredShifts); !rs.eof(); rs.MoveNext()) out.push_back(sql::readDesiredShift(rs));
    return out;
}

std::optional<Person> SqlFacts::person(long personid) {
    const auto rs = GetRecs(s_, sql::kPerson, {personid});
    if (rs.empty()) return std::nullopt;
    return sql::readPerson(rs);
}

const std::vector<Person>& SqlFacts::candidates(const std::string& position, CandidateStatement which) {
    candidates_.clear();
    const char* text = which == CandidateStatement::Balanced ? sql::kCandidatesBalanced : sql::kCandidatesFirstFit;
    for (auto rs = GetRecs(s_, text, {position, position}); !rs.eof(); rs.MoveNext())
        candidates_.push_back(sql::readPerson(rs));
    return candidates_;
}

double SqlFacts::weekHours(long personid, bool openFileOnly) {
    const auto rs = openFileOnly ? GetRecs(s_, sql::kWeekHoursOpenFile,
                                           {range_.weekstart, range_.weekend, s_.currentSchedule, personid})
                                 : GetRecs(s_, sql::kWeekHoursAllFiles, {range_.weekstart, range_.weekend, personid});
    if (rs.empty() || rs["Expr2"].isNull()) return 0;
    return wholeMinutesAsHours(rs["Expr2"].toDouble());
}

std::optional<double> SqlFacts::entryHours(long schedid) {
    const auto rs = GetRecs(s_, sql::kEntryLength, {schedid});
    if (rs.empty() || rs["Expr2"].isNull()) return std::nullopt;
    return wholeMinutesAsHours(rs["Expr2"].toDouble());
}

Freedom SqlFacts::freedom(long personid, Date day, DateTime start, DateTime end) {
    // IsEmployeeFree, test by test, to know which one said no.
    if (schedule::HasConflict(s_, personid, day, start, end)) return Freedom::Conflict;
    if (!schedule::CheckAvailability(s_, personid, day, timeOfDay(start), timeOfDay(end))) return Freedom::NotAvailable;
    if (!schedule::GetLeaveType(s_, personid, day).empty()) return Freedom::OnLeave;
    return Freedom::Free;
}

double SqlFacts::hoursInRange(long personid, Date from, Date to) {
    return wholeMinutesAsHours(schedule::GetHoursInRange(s_, personid, from, to, s_.currentSchedule));
}

bool SqlFacts::assign(const OpenEntry& entry, const Person& person) {
    if (!store::UdateRecs(s_, sql::kAssign, {person.personid, person.lname, person.fname, entry.schedid}))
        failed_ = true;
    return !failed_;
}

}  // namespace tallymere::autosched

#include "autosched/memory_facts.h"

#include "autosched/statements.h"
#include "common/text.h"
#include "schedule/entry_rules.h"
#include "store/access.h"

namespace tallymere::autosched {

using store::GetRecs;

namespace {

DateTime timeOfDay(DateTime t) { return DateTime::at(Date::fromYmd(1899, 12, 30), t.hour(), t.minute(), t.second()); }

// A stored value as the engine compares it with bound text: only text ever equals text.
std::optional<std::string> storedText(const store::Field& f) {
    if (f.isNull()) return std::nullopt;
    if (const auto* text = std::get_if<std::string>(&f.value().storage())) return *text;
    return std::nullopt;
}

// The day of a stored text that is exactly what a bound date becomes, so that comparing day numbers is
// comparing the texts.
std::optional<std::int32_t> plainDay(const std::string& text) {
    const auto d = Date::parseIso(text);
    if (!d || d->toIso() != text) return std::nullopt;
    return d->daysSinceEpoch();
}

std::uint64_t leaveKey(long personid, std::int32_t day) {
    return (static_cast<std::uint64_t>(static_cast<std::uint32_t>(personid)) << 32) | static_cast<std::uint32_t>(day);
}

const std::vector<std::size_t> kNoRows;

}  // namespace

MemoryFacts::MemoryFacts(common::Session& s, const RunRange& range) : s_(s), range_(range) { load(); }

void MemoryFacts::load() {
    // The week with a day on either side: the conflict tests look at the days before and after an entry.
    auto sched = GetRecs(s_,
                         "select *, (sname = ?) as inopenfile from sched where sday >= ? and sday <= ? order by "
                         "schedid",
                         {s_.currentSchedule, range_.weekstart.addDays(-1), range_.weekend.addDays(1)});
    auto persons = GetRecs(s_, "select * from person");
    auto desired = GetRecs(s_, sql::kDesiredShifts);
    auto availability = GetRecs(s_, "select * from availability");
    auto leave =
        GetRecs(s_, "select * from employeeleave where sday >= ? and sday <= ?", {range_.weekstart, range_.weekend});
    if (!sched.isOpen() || !persons.isOpen() || !desired.isOpen() || !availability.isOpen() || !leave.isOpen()) {
        failed_ = true;
        return;
    }

    rows_.reserve(sched.RecordCount());
    for (; !sched.eof(); sched.MoveNext()) {
        Row r;
        r.entry = sql::readOpenEntry(sched);
        if (!sched["personid"].isNull()) r.personid = static_cast<long>(sched["personid"].toLong());
        if (auto text = storedText(sched["sday"])) {
            r.day = plainDay(*text);
            if (!r.day) r.sday = std::move(text);
        }
        r.inOpenFile = !sched["inopenfile"].isNull() && sched["inopenfile"].toLong() == 1;
        if (r.entry.strttime && r.entry.endtime)
            r.minutes = common::minutesBetween(*r.entry.strttime, *r.entry.endtime);
        const std::size_t index = rows_.size();
        bySchedid_[r.entry.schedid] = index;
        // Hours and conflicts are only ever asked for real employees.
        if (r.personid && *r.personid > 0) byPerson_[*r.personid].push_back(index);
        rows_.push_back(std::move(r));
    }
    for (; !persons.eof(); persons.MoveNext()) {
        Person p = sql::readPerson(persons);
        persons_.emplace(p.personid, std::move(p));
    }
    for (; !desired.eof(); desired.MoveNext()) desired_.push_back(sql::readDesiredShift(desired));
    for (; !availability.eof(); availability.MoveNext()) {
        const auto day = storedText(availability["sday"]);
        if (!day || availability["personid"].isNull()) continue;
        // Matched as the engine matches the day's name: without regard to case, nothing more.
        const std::string name = common::toLower(*day);
        for (int n = 1; n <= 7; ++n) {
            if (name != common::toLower(common::weekdayName(n))) continue;
            auto& slot =
                availability_[static_cast<long>(availability["personid"].toLong())][static_cast<std::size_t>(n)];
            // The first row of a day is the one that counts.
            if (!slot) slot = availability["houravail"].text();
        }
    }
    for (; !leave.eof(); leave.MoveNext()) {
        const auto day = storedText(leave["sday"]);
        const auto number = day ? plainDay(*day) : std::nullopt;
        if (!number || leave["personid"].isNull()) continue;
        leave_.emplace(leaveKey(static_cast<long>(leave["personid"].toLong()), *number), leave["typeofleave"].text());
    }
}

bool MemoryFacts::dayIn(const Row& r, Date from, Date to) {
    if (r.day) return *r.day >= from.daysSinceEpoch() && *r.day <= to.daysSinceEpoch();
    return r.sday && *r.sday >= from.toIso() && *r.sday <= to.toIso();
}

const std::vector<std::size_t>& MemoryFacts::rowsOf(long personid) const {
    const auto it = byPerson_.find(personid);
    return it == byPerson_.end() ? kNoRows : it->second;
}

const std::vector<OpenEntry>& MemoryFacts::unassigned(Date from, Date to) {
    if (openRange_ && openRange_->first == from && openRange_->second == to) return open_;
    open_.clear();
    for (const Row& r : rows_)
        if (r.isOpen() && dayIn(r, from, to)) open_.push_back(r.entry);
    openRange_ = {from, to};
    return open_;
}

long MemoryFacts::countUnassigned(Date from, Date to) {
    long n = 0;
    for (const Row& r : rows_)
        if (r.isOpen() && dayIn(r, from, to)) ++n;
    return n;
}

std::optional<Person> MemoryFacts::person(long personid) {
    const auto it = persons_.find(personid);
    if (it == persons_.end()) return std::nullopt;
    return it->second;
}

const std::vector<Person>& MemoryFacts::candidates(const std::string& position, CandidateStatement which) {
    const std::string key = store::boundText(position);
    auto it = candidates_.find(key);
    if (it == candidates_.end()) {
        std::vector<Person> list;
        const char* text = which == CandidateStatement::Balanced ? sql::kCandidatesBalanced : sql::kCandidatesFirstFit;
        auto rs = GetRecs(s_, text, {position, position});
        if (!rs.isOpen()) failed_ = true;
        for (; !rs.eof(); rs.MoveNext()) list.push_back(sql::readPerson(rs));
        it = candidates_.emplace(key, std::move(list)).first;
    }
    return it->second;
}

long long MemoryFacts::sumMinutes(long personid, Date from, Date to, bool openFileOnly) const {
    long long minutes = 0;
    for (const std::size_t i : rowsOf(personid)) {
        const Row& r = rows_[i];
        if (r.minutes && (r.inOpenFile || !openFileOnly) && dayIn(r, from, to)) minutes += *r.minutes;
    }
    return minutes;
}

double MemoryFacts::weekHours(long personid, bool openFileOnly) {
    auto it = weekMinutes_.find(personid);
    if (it == weekMinutes_.end())
        it = weekMinutes_
                 .emplace(personid, WeekMinutes{sumMinutes(personid, range_.weekstart, range_.weekend, true),
                                                sumMinutes(personid, range_.weekstart, range_.weekend, false)})
                 .first;
    return static_cast<double>(openFileOnly ? it->second.openFile : it->second.all) / 60.0;
}

std::optional<double> MemoryFacts::entryHours(long schedid) {
    const auto it = bySchedid_.find(schedid);
    if (it == bySchedid_.end() || !rows_[it->second].minutes) return std::nullopt;
    return static_cast<double>(*rows_[it->second].minutes) / 60.0;
}

Freedom MemoryFacts::freedom(long personid, Date day, DateTime start, DateTime end) {
    // HasConflict: the same day (in every file when conflicts are checked across schedules), and the
    // open file's entries of the day before that run past the start and of the day after that the
    // entry runs into.
    const bool allFiles = s_.settings.gb_CheckConflictAllSchedules;
    const Date yesterday = day.addDays(-1), tomorrow = day.addDays(1);
    for (const std::size_t i : rowsOf(personid)) {
        const Row& r = rows_[i];
        const auto& rs = r.entry.strttime;
        const auto& re = r.entry.endtime;
        if (dayIs(r, day)) {
            if ((allFiles || r.inOpenFile) && rs && re && schedule::SameDayTest(*rs, *re, start, end))
                return Freedom::Conflict;
        } else if (!r.inOpenFile) {
            continue;
        } else if (dayIs(r, yesterday)) {
            if (re && start < *re) return Freedom::Conflict;
        } else if (dayIs(r, tomorrow)) {
            if (rs && re && ((start < *rs && end >= *re) || (end > *rs && end < *re))) return Freedom::Conflict;
        }
    }

    const auto days = availability_.find(personid);
    const auto hoursOf = [&](int offset) -> std::optional<std::string> {
        if (days == availability_.end()) return std::nullopt;
        return days->second[static_cast<std::size_t>(day.addDays(offset).weekdayNumber())];
    };
    if (!schedule::AvailabilityAllows(timeOfDay(start), timeOfDay(end), hoursOf)) return Freedom::NotAvailable;

    const auto onLeave = leave_.find(leaveKey(personid, day.daysSinceEpoch()));
    if (onLeave != leave_.end() && !onLeave->second.empty()) return Freedom::OnLeave;
    return Freedom::Free;
}

double MemoryFacts::hoursInRange(long personid, Date from, Date to) {
    return static_cast<double>(sumMinutes(personid, from, to, !s_.settings.gb_CheckConflictAllSchedules)) / 60.0;
}

bool MemoryFacts::assign(const OpenEntry& entry, const Person& person) {
    if (!store::UdateRecs(s_, sql::kAssign, {person.personid, person.lname, person.fname, entry.schedid})) {
        failed_ = true;
        return false;
    }
    const auto it = bySchedid_.find(entry.schedid);
    if (it == bySchedid_.end()) return true;
    Row& r = rows_[it->second];
    r.personid = person.personid;
    openRange_.reset();
    if (person.personid <= 0) return true;
    byPerson_[person.personid].push_back(it->second);
    const auto week = weekMinutes_.find(person.personid);
    if (week != weekMinutes_.end() && r.minutes && dayIn(r, range_.weekstart, range_.weekend)) {
        week->second.all += *r.minutes;
        if (r.inOpenFile) week->second.openFile += *r.minutes;
    }
    return true;
}

}  // namespace tallymere::autosched

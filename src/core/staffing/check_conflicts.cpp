#include "staffing/check_conflicts.h"

#include "schedule/entry_rules.h"
#include "staffing/conflict_facts.h"
#include "store/access.h"

namespace tallymere::staffing {

using common::MsgIcon;
using store::GetRecs;

namespace {

std::string dayText(Session& s, const std::optional<Date>& d) {
    return d ? common::formatDate(*d, "short date", s.locale) : std::string();
}

std::string timeText(Session& s, const std::optional<DateTime>& t) {
    return t ? common::formatDateTime(*t, "general date", s.locale) : std::string();
}

}  // namespace

CheckConflicts::CheckConflicts(Session& s) : s_(s) { dayoption_Click(); }

void CheckConflicts::dayoption_Click() {
    dayoption = true;
    weekoption = rangeoption = false;
    search();
}

void CheckConflicts::weekoption_Click() {
    weekoption = true;
    dayoption = rangeoption = false;
    search();
}

void CheckConflicts::rangeoption_Click() {
    rangeoption = true;
    dayoption = weekoption = false;
    search();
}

bool CheckConflicts::search() {
    // Day and week follow the active date as it is now.
    if (dayoption) startdate = enddate = s_.activeDate;
    if (weekoption) {
        startdate = common::weekStart(s_.activeDate, s_.settings.firstdayofweek);
        enddate = startdate.addDays(6);
    }
    if (rangeoption && startdate > enddate) {
        s_.ui().inform("The Start Date must be less than the End Date.", MsgIcon::Exclamation, kTitle);
        return false;
    }
    if (rangeoption && enddate > startdate.addYears(1)) {
        s_.ui().inform("The date range can not be longer than one year.", MsgIcon::Exclamation, kTitle);
        return false;
    }
    const std::string fmt = "long date";
    Label1 = dayoption ? "Schedule Conflicts for " + common::formatDate(startdate, fmt, s_.locale)
                       : "Schedule Conflicts from " + common::formatDate(startdate, fmt, s_.locale) + " to " +
                             common::formatDate(enddate, fmt, s_.locale);
    ConflictGrid.clear();

    const bool all = s_.settings.gb_CheckConflictAllSchedules;
    store::Recordset rs;
    if (dayoption)
        rs = all ? GetRecs(s_, "select * from sched where sday=? and personid <> -1 order by sday desc", {startdate})
                 : GetRecs(s_, "select * from sched where sday=? and sname=? and personid <> -1 order by sday desc",
                           {startdate, s_.currentSchedule});
    else
        rs = all ? GetRecs(s_, "select * from sched where sday>=? and sday<=? and personid <> -1 order by sday desc",
                           {startdate, enddate})
                 : GetRecs(s_,
                           "select * from sched where sday>=? and sday<=? and sname=? and personid <> -1 order by "
                           "sday desc",
                           {startdate, enddate, s_.currentSchedule});

    try {
        collect(rs);
    } catch (const common::ProgramEnd&) {
        throw;
    } catch (const std::exception&) {
        s_.ui().inform("Error occurred while updating the conflict.", MsgIcon::Exclamation);
    }

    const std::size_t n = ConflictGrid.size();
    Label2 = n == 0   ? "No schedule conflicts found"
             : n == 1 ? "1 schedule conflict found"
                      : std::to_string(n) + " schedule conflicts found";
    return true;
}

void CheckConflicts::collect(store::Recordset& rs) {
    std::optional<ConflictFacts> facts;
    if (!literal) facts.emplace(s_, startdate, enddate);
    for (; !rs.eof(); rs.MoveNext()) {
        const long schedid = static_cast<long>(rs["schedid"].toLong());
        const long personid = static_cast<long>(rs["personid"].toLong());
        const auto day = rs["sday"].toDate();
        const auto start = rs["strttime"].toDateTime();
        const auto end = rs["endtime"].toDateTime();
        if (!day) continue;
        ConflictRow row{schedid,
                        reference::leaveFullName(rs["lname"].text(), rs["fname"].text()),
                        rs["position"].text(),
                        dayText(s_, day),
                        timeText(s_, start),
                        timeText(s_, end),
                        {}};
        // All three tests run for every entry, so one entry may give three rows.
        const std::string leave = facts ? facts->leaveType(personid, *day) : schedule::GetLeaveType(s_, personid, *day);
        if (!leave.empty()) {
            row.conflict = "Leave";
            ConflictGrid.push_back(row);
        }
        if (start && end &&
            !(facts ? facts->available(personid, *day, *start, *end)
                    : schedule::CheckAvailability(s_, personid, *day, *start, *end))) {
            row.conflict = "Availability";
            ConflictGrid.push_back(row);
        }
        if (start && end &&
            (facts ? facts->conflictExcept(schedid, personid, *day, *start, *end)
                   : schedule::HasConflictExcept(s_, schedid, personid, *day, *start, *end))) {
            row.conflict = "Overlaped time";
            ConflictGrid.push_back(row);
        }
        s_.ui().processEvents();
    }
}

reports::ListGrid CheckConflicts::listGrid() const {
    reports::ListGrid grid;
    grid.columns = {{"Name", 2400, reports::Align::Left},     {"Position", 1600, reports::Align::Left},
                    {"Day", 1300, reports::Align::Left},      {"Start Time", 2200, reports::Align::Left},
                    {"End Time", 2200, reports::Align::Left}, {"Conflict", 1500, reports::Align::Left}};
    for (const auto& r : ConflictGrid) grid.rows.push_back({r.name, r.position, r.day, r.start, r.end, r.conflict});
    return grid;
}

RepairEndtimes::RepairEndtimes(Session& s) : s_(s) { load(); }

void RepairEndtimes::load() {
    Grid1.clear();
    try {
        for (auto rs = broken(); !rs.eof(); rs.MoveNext())
            Grid1.push_back({static_cast<long>(rs["schedid"].toLong()), timeText(s_, rs["strttime"].toDateTime()),
                             timeText(s_, rs["endtime"].toDateTime()), rs["sname"].text()});
    } catch (const common::ProgramEnd&) {
        throw;
    } catch (const std::exception&) {
        s_.ui().inform("Error loading Schedule Entries. [Repair Schedule]", MsgIcon::Exclamation);
    }
}

store::Recordset RepairEndtimes::broken() {
    if (fromDay && toDay)
        return GetRecs(s_, "select * from sched where endtime < strttime and sday>=? and sday<=? order by sday",
                       {*fromDay, *toDay});
    return GetRecs(s_, "select * from sched where endtime < strttime order by sday");
}

bool RepairEndtimes::Repair_Click() {
    const auto rs = broken();
    if (rs.empty()) {
        s_.ui().inform("No problems found.", MsgIcon::Information, "Repair Schedule (EndDates)");
        return false;
    }
    bool done = true;
    {
        store::Transaction tx(s_);
        for (std::size_t i = 0; i < rs.RecordCount() && !tx.failed(); ++i) {
            const auto start = rs.field(i, "strttime").toDateTime();
            const auto end = rs.field(i, "endtime").toDateTime();
            if (!start || !end) continue;
            store::UdateRecs(s_, "update sched set strttime=?,endtime=? where schedid=?",
                             {*start, end->addDays(1), rs.field(i, "schedid").toLong()});
        }
        done = tx.commit();
    }
    if (done) s_.refreshWanted = true;
    load();
    return done;
}

reports::ListGrid RepairEndtimes::listGrid() const {
    reports::ListGrid grid;
    grid.columns = {{"Sched ID", 1200, reports::Align::Right},
                    {"Start Time", 2600, reports::Align::Left},
                    {"End Time", 2600, reports::Align::Left},
                    {"Schedule Name", 2600, reports::Align::Left}};
    for (const auto& r : Grid1) grid.rows.push_back({std::to_string(r.schedid), r.start, r.end, r.sname});
    return grid;
}

}  // namespace tallymere::staffing

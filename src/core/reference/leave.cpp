#include "reference/leave.h"

#include "common/display_format.h"
#include "common/text.h"
#include "reference/window_support.h"
#include "store/access.h"

#include <algorithm>

namespace tallymere::reference {

using common::Date;
using common::MsgIcon;
using store::GetRecs;

namespace {
std::string leaveDay(Date d) { return common::formatDate(d, "mmm dd, yyyy"); }
}  // namespace

std::vector<LeaveRow> foldLeaveDays(const std::vector<std::pair<Date, std::string>>& days) {
    std::vector<LeaveRow> rows;
    for (const auto& [day, type] : days) {
        if (!rows.empty() && rows.back().TypeOfLeave == type && common::daysBetween(rows.back().last, day) <= 1) {
            rows.back().last = day;
            continue;
        }
        rows.push_back({{}, type, day, day});
    }
    for (auto& r : rows) r.Date = r.first == r.last ? leaveDay(r.first) : leaveDay(r.first) + " - " + leaveDay(r.last);
    return rows;
}

bool LeaveTab::Refresh(long personid) {
    return detail::trapped(s_, "Error loading employee leave grid. [Edit Staff]", [&] {
        leavegrid.clear();
        row = -1;
        const Date today = s_.clock().today();
        const Date from = today.addYears(-1), to = today.addYears(1);
        auto rs =
            staging_
                ? GetRecs(s_, "select * from employeeleavetemp where sday>=? and sday <=? order by sday", {from, to})
                : GetRecs(s_, "select * from employeeleave where personid=? and sday>=? and sday <=? order by sday",
                          {personid, from, to});
        std::vector<std::pair<Date, std::string>> days;
        for (; !rs.eof(); rs.MoveNext())
            if (const auto d = rs["sday"].toDate()) days.emplace_back(*d, rs["typeofleave"].text());
        leavegrid = foldLeaveDays(days);
        if (!leavegrid.empty()) row = 0;
        return rs.isOpen();
    });
}

bool LeaveTab::deleteleavebutton(long personid) {
    if (row < 0 || row >= static_cast<int>(leavegrid.size())) return false;
    const LeaveRow range = leavegrid[static_cast<std::size_t>(row)];
    // The days of the range go together or not at all.
    store::Transaction tx(s_);
    for (Date d = range.first; d <= range.last; d = d.addDays(1)) {
        const bool ok =
            staging_ ? store::DeleteRecs(s_, "delete from employeeleavetemp where sday =?", {d})
                     : store::DeleteRecs(s_, "delete from employeeleave where personid = ? and sday =?", {personid, d});
        if (!ok) break;
    }
    return tx.commit();
}

bool LeaveTab::deleteallbutton(long personid) {
    return staging_ ? store::DeleteRecs(s_, "delete from employeeleavetemp")
                    : store::DeleteRecs(s_, "delete from employeeleave where personid = ?", {personid});
}

void LeaveTab::editleavebutton() { s_.ui().inform("Edit employee leave is not available.", MsgIcon::Information); }

employeeleaveedit::employeeleaveedit(common::Session& s, EmployeeRef employee, bool staging)
    : s_(s), employee_(std::move(employee)), staging_(staging) {
    startdate = enddate = s_.clock().today();
    showRange();
}

const char* employeeleaveedit::note() const {
    return staging_ ? "(Note: Only 14 days can be set at one time)." : "(Note: Only 31 days can be set at one time).";
}

bool employeeleaveedit::Load() {
    leavecombo.clear();
    auto rs = GetRecs(s_, "select type from leavetypes order by type");
    for (; !rs.eof(); rs.MoveNext()) leavecombo.add(rs["type"].text());
    leavecombo.select("Vacation");
    startdate = enddate = s_.clock().today();
    showRange();
    return rs.isOpen();
}

void employeeleaveedit::showRange() { MonthView1 = {startdate, enddate}; }

void employeeleaveedit::startdateChange() {
    if (enddate < startdate) enddate = startdate;
    if (common::daysBetween(startdate, enddate) >= maxDays()) enddate = startdate.addDays(maxDays() - 1);
    showRange();
}

void employeeleaveedit::enddateChange() {
    if (enddate < startdate) startdate = enddate;
    if (common::daysBetween(startdate, enddate) >= maxDays()) startdate = enddate.addDays(-(maxDays() - 1));
    showRange();
}

void employeeleaveedit::MonthView1SelChange(Date first, Date last) {
    if (last < first) std::swap(first, last);
    startdate = first;
    enddate = last;
    startdateChange();
}

bool employeeleaveedit::Command1() {
    const std::string type = common::trim(leavecombo.text());
    if (type.empty()) {
        s_.ui().inform("Please select the type of leave.", MsgIcon::Exclamation);
        return false;
    }
    startdateChange();
    return detail::trapped(s_, "Error occurred entering employee leave.", [&] {
        std::string fullname;
        if (staging_) {
            fullname = leaveFullName(employee_.lname, employee_.fname);
        } else {
            auto person = GetRecs(s_, "select lname,fname from person where personid=?", {employee_.personid});
            if (!person.isOpen()) return false;
            if (person.eof()) {
                s_.ui().inform("Employee not found; [Add Employee Leave].", MsgIcon::Exclamation);
                return false;
            }
            fullname = leaveFullName(person["lname"].text(), person["fname"].text());
        }
        // The days of the range are entered together or not at all.
        store::Transaction tx(s_);
        const auto enterDays = [&] {
            for (Date d = startdate; d <= enddate; d = d.addDays(1)) {
                // A day that already has leave keeps its kind.
                auto rs = staging_ ? GetRecs(s_, "select * from employeeleavetemp where sday=?", {d})
                                   : GetRecs(s_, "select * from employeeleave where sday=? and personid=?",
                                             {d, employee_.personid});
                if (!rs.isOpen()) return false;
                if (!rs.eof()) continue;
                const bool ok =
                    staging_ ? store::InsertRecs(
                                   s_, "insert into employeeleavetemp (fullname,typeofleave,sday) values(?,?,?)",
                                   {fullname, type, d})
                             : store::InsertRecs(
                                   s_, "insert into employeeleave (personid,fullname,typeofleave,sday) values(?,?,?,?)",
                                   {employee_.personid, fullname, type, d});
                if (!ok) return false;
            }
            return true;
        };
        // A read that failed has been told and ends the action; nothing of it is kept.
        if (!enterDays() && !tx.failed()) return false;
        return tx.commit();
    });
}

}  // namespace tallymere::reference

#include "staffing/report_available.h"

#include "common/report_name.h"
#include "schedule/entry_rules.h"
#include "store/access.h"

#include <algorithm>
#include <cctype>

namespace tallymere::staffing {

using common::MsgIcon;
using store::GetRecs;

namespace {

constexpr const char* kTitle = "Find Available Employees";

// A field that reads as a whole number: digits only, at least one.
std::optional<int> wholeNumber(const std::string& text) {
    if (text.empty() || text.size() > 4) return std::nullopt;
    int n = 0;
    for (char c : text) {
        if (c < '0' || c > '9') return std::nullopt;
        n = n * 10 + (c - '0');
    }
    return n;
}

int compareNoCase(const std::string& a, const std::string& b) {
    const std::size_t n = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < n; ++i) {
        const int x = std::tolower(static_cast<unsigned char>(a[i])),
                  y = std::tolower(static_cast<unsigned char>(b[i]));
        if (x != y) return x < y ? -1 : 1;
    }
    return a.size() == b.size() ? 0 : (a.size() < b.size() ? -1 : 1);
}

int hour24(int hour12, bool pm) {
    const int h = hour12 % 12;
    return pm ? h + 12 : h;
}

}  // namespace

ReportAvailable::ReportAvailable(Session& s) : s_(s) {
    dtdate = s.activeDate;
    fillShiftList(s, shiftCombo, false);
    shiftCombo.ListIndex = -1;
    fillPositionList(s, positionCombo, true);
}

void ReportAvailable::shiftCombo_Click(int index) {
    shiftCombo.ListIndex = index;
    const auto rs = GetRecs(s_, "select * from shift where name=?", {shiftCombo.text()});
    if (rs.empty()) return;
    const auto start = rs["strttime"].toDateTime();
    const auto end = rs["endtime"].toDateTime();
    startTime = start ? reference::TimeEntry::of(*start) : reference::TimeEntry("00", "00", "AM");
    endTime = end ? reference::TimeEntry::of(*end) : reference::TimeEntry("00", "00", "AM");
}

void ReportAvailable::dtdate_Change(Date d) {
    dtdate = d;
    refreshbutton_Click();
}

void ReportAvailable::positionCombo_Click(int index) {
    // The filter is shown but every active employee is listed whatever it says: the search runs again
    // and lists the same people. Kept so on purpose.
    positionCombo.ListIndex = index;
    refreshbutton_Click();
}

std::optional<ReportAvailable::Span> ReportAvailable::checkTimes() {
    auto refuse = [&](const char* text) -> std::optional<Span> {
        s_.ui().inform(text, MsgIcon::Exclamation, kTitle);
        return std::nullopt;
    };
    if (startTime.TETxtHr.empty() || endTime.TETxtHr.empty()) return refuse("Please enter the start and end times.");
    const auto sh = wholeNumber(startTime.TETxtHr);
    if (!sh) return refuse("Hour value for Start Time is not valid.");
    if (*sh > 12) return refuse("Hour value must be between 0 and 12.");
    std::optional<int> sm = 0;
    if (!startTime.TeTxtMin.empty()) {
        sm = wholeNumber(startTime.TeTxtMin);
        if (!sm) return refuse("Minute value for Start Time is not valid.");
        if (*sm > 59) return refuse("Minute value must be between 0 and 59.");
    }
    const auto eh = wholeNumber(endTime.TETxtHr);
    if (!eh) return refuse("Hour value for End Time is not valid.");
    if (*eh > 12) return refuse("Hour value for End Time must be between 0 and 12.");
    std::optional<int> em = 0;
    if (!endTime.TeTxtMin.empty()) {
        em = wholeNumber(endTime.TeTxtMin);
        if (!em) return refuse("Minute value for End Time is not valid.");
        if (*em > 59) return refuse("The End Time minute value must be between 0 and 59.");
    }
    startTime.padMinute();
    endTime.padMinute();
    const bool startPm = startTime.TEAmPm == "PM", endPm = endTime.TEAmPm == "PM";
    const auto times = schedule::buildEntryTimes(dtdate, hour24(*sh, startPm), *sm, hour24(*eh, endPm), *em);
    const bool midnight = (*sh == 12 && *sm == 0 && !startPm) || (*eh == 12 && *em == 0 && !endPm);
    if (midnight && common::minutesBetween(times.start, times.end) > 12 * 60) {
        if (!s_.ui().askYesNo("Note: 12:00 AM is 12 midnight not 12 noon. You've just entered a time longer than 12 "
                              "hours, is this correct?",
                              MsgIcon::Exclamation, kTitle))
            return std::nullopt;
    }
    return Span{times.start, times.end};
}

bool ReportAvailable::refreshbutton_Click() {
    const auto span = checkTimes();
    if (!span) return false;
    bblistview1.clear();
    selectedRow = -1;
    try {
        const bool all = s_.settings.gb_CheckConflictAllSchedules;
        const std::string hoursSql =
            std::string(
                "SELECT Sum(DateDiff(\"n\",[strttime],[endtime])/60) AS Expr2 from sched where sched.sday = ?") +
            (all ? "" : " and sname=?") + " GROUP BY sched.PersonID Having sched.personid =?";
        for (auto rs = GetRecs(s_, "select * from person where active = true order by lname"); !rs.eof();
             rs.MoveNext()) {
            const long personid = static_cast<long>(rs["personid"].toLong());
            AvailableRow row;
            row.personid = personid;
            row.name =
                common::FormatReportName(rs["fname"].text(), rs["lname"].text(), s_.settings.gs_ReportNameFormat);
            bool unavailable = false;
            DateTime start = span->start, end = span->end;
            if (schedule::HasConflict(s_, personid, dtdate, start, end)) {
                row.conflict = "Yes";
                unavailable = true;
            }
            // Availability and leave are those of the active date, not of `dtdate`, while the conflict
            // and the hours go by `dtdate`. Kept so on purpose.
            if (!schedule::CheckAvailability(s_, personid, s_.activeDate, span->start, span->end)) {
                row.reqoff = "Off";
                unavailable = true;
            }
            store::Params params{dtdate};
            if (!all) params.emplace_back(s_.currentSchedule);
            params.emplace_back(personid);
            const auto hours = GetRecs(s_, hoursSql, params);
            if (!hours.empty() && !hours["Expr2"].isNull())
                row.hours = common::formatNumber(hours["Expr2"].toDouble(), "####0.00", s_.locale) + " hrs";
            const std::string leave = schedule::GetLeaveType(s_, personid, s_.activeDate);
            if (!leave.empty()) {
                row.leave = leave;
                unavailable = true;
            }
            row.position = store::chknull(rs["primpos"].value());
            row.phone = store::chknull(rs["phone"].value());
            row.status = unavailable ? "Unavailable" : "Available";
            row.picture = unavailable ? 9 : 4;
            bblistview1.push_back(std::move(row));
            s_.ui().processEvents();
        }
    } catch (const common::ProgramEnd&) {
        throw;
    } catch (const std::exception&) {
        s_.ui().inform("An error occurred creating the Daily Employee Status report.", MsgIcon::Critical,
                       "Error Employee Availability");
        return false;
    }
    sortRows();
    selectedRow = bblistview1.empty() ? -1 : 0;
    return true;
}

void ReportAvailable::ColumnClick(int column) {
    if (column < 0 || column >= kColumns) return;
    sortAscending = column == sortColumn ? !sortAscending : true;
    sortColumn = column;
    sortRows();
}

void ReportAvailable::sortRows() {
    if (sortColumn < 0) return;
    auto key = [c = sortColumn](const AvailableRow& r) -> const std::string& {
        switch (c) {
        case 0: return r.name;
        case 1: return r.position;
        case 2: return r.status;
        case 3: return r.phone;
        case 4: return r.conflict;
        case 5: return r.hours;
        case 6: return r.reqoff;
        default: return r.leave;
        }
    };
    std::stable_sort(bblistview1.begin(), bblistview1.end(), [&](const AvailableRow& a, const AvailableRow& b) {
        const int c = compareNoCase(key(a), key(b));
        return sortAscending ? c < 0 : c > 0;
    });
}

std::string ReportAvailable::printTitle() const {
    return std::string("Employee Status") + " - " + common::formatDate(dtdate, "dddd MMM dd, yyyy", s_.locale);
}

reports::ListGrid ReportAvailable::listGrid() const {
    reports::ListGrid grid;
    grid.columns = {{"Name", 2400, reports::Align::Left},    {"Position", 1500, reports::Align::Left},
                    {"Status", 1300, reports::Align::Left},  {"Phone", 1500, reports::Align::Left},
                    {"Conflict", 900, reports::Align::Left}, {"Hours", 1100, reports::Align::Right},
                    {"Req Off", 900, reports::Align::Left},  {"Leave", 1300, reports::Align::Left}};
    for (const auto& r : bblistview1)
        grid.rows.push_back({r.name, r.position, r.status, r.phone, r.conflict, r.hours, r.reqoff, r.leave});
    return grid;
}

}  // namespace tallymere::staffing

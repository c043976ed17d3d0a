#include "schedule/weekly_schedule.h"

#include "common/display_format.h"
#include "schedule/entry_rules.h"
#include "store/access.h"

#include <algorithm>
#include <exception>
#include <map>

namespace tallymere::schedule {

using common::MsgIcon;
using store::GetRecs;
using store::Params;
using store::Recordset;

namespace {

void sayFailure(Session& s, const std::string& text, const std::exception& e) {
    s.ui().inform(text + " " + e.what(), MsgIcon::Exclamation);
}

}  // namespace

week::week(Session& s) : s_(s) {
    try {
        fillFilters();
        setColumns();
    } catch (const common::ProgramEnd&) {
        throw;
    } catch (const std::exception& e) {
        sayFailure(s_, "Error loading Weekly Schedule. Form Load", e);
    }
    LoadWeek();
}

void week::fillFilters() {
    employeeCombo.clear();
    employeeCombo.add(kAll);
    for (Recordset rs = GetRecs(s_, "select * from person where active=true order by lname,fname"); !rs.eof();
         rs.MoveNext())
        employeeCombo.add(reference::leaveFullName(rs["lname"].text(), rs["fname"].text()),
                          static_cast<long>(rs["personid"].toLong()));
    employeeCombo.ListIndex = 0;

    shiftCombo.clear();
    shiftCombo.add(kAll);
    for (Recordset rs = GetRecs(s_, "select name from shift order by name"); !rs.eof(); rs.MoveNext())
        if (!rs["name"].text().empty()) shiftCombo.add(rs["name"].text());
    shiftCombo.ListIndex = 0;
}

void week::setColumns() {
    // Name and the days take an eighth each; Hrs is narrow and fixed.
    const int eighth = Grid1.width / 8;
    Grid1.ColWidth.fill(eighth);
    Grid1.ColWidth[WeeklyGrid::kHrsCol] = WeeklyGrid::kHrsWidth;
}

void week::Form_Resize(int windowWidthTwips) {
    Grid1.width = std::max(WeeklyGrid::kMinWidth, windowWidthTwips - 200);
    setColumns();
}

void week::LoadWeek() {
    try {
        firstDay = common::weekStart(s_.activeDate, s_.settings.firstdayofweek);
        lastDay = firstDay.addDays(6);

        // The filters are told by their place: an employee or a shift may well be called "All".
        const bool oneEmployee = employeeCombo.ListIndex > 0;
        const bool oneShift = shiftCombo.ListIndex > 0;
        std::string sql = "select * from sched where sday>=? and sday <=? and sname=?";
        Params params{firstDay, lastDay, s_.currentSchedule};
        if (oneEmployee) {
            sql += " and personid=?";
            params.emplace_back(employeeCombo.data());
        }
        if (oneShift) {
            sql += " and shift=?";
            params.emplace_back(shiftCombo.text());
        }
        sql += " order by lname,fname,sday,strttime";
        Recordset entries = GetRecs(s_, sql, params);

        Recordset people = oneEmployee
                               ? GetRecs(s_, "select * from person where active=true and personid= ? order by lname",
                                         {employeeCombo.data()})
                               : GetRecs(s_, "select * from person where active=true order by lname");

        Grid1.rows.clear();
        Grid1.captions[WeeklyGrid::kNameCol] = "Name";
        Grid1.captions[WeeklyGrid::kHrsCol] = "Hrs";
        for (int d = 0; d < 7; ++d)
            Grid1.captions[static_cast<std::size_t>(WeeklyGrid::kFirstDayCol + d)] =
                common::formatDate(firstDay.addDays(d), "ddd mmm, dd", s_.locale);
        setColumns();

        std::map<long, std::size_t> rowOf;
        for (; !people.eof(); people.MoveNext()) {
            WeeklyGrid::Row row;
            row.personid = static_cast<long>(people["personid"].toLong());
            row.name = reference::leaveFullName(people["lname"].text(), people["fname"].text());
            rowOf.emplace(row.personid, Grid1.rows.size());
            Grid1.rows.push_back(std::move(row));
        }

        // **Unassigned** entries, and those of employees no longer active, have no row to go in.
        for (; !entries.eof(); entries.MoveNext()) {
            const auto it = rowOf.find(static_cast<long>(entries["personid"].toLong()));
            const auto day = entries["sday"].toDate();
            if (it == rowOf.end() || !day) continue;
            const auto index = common::daysBetween(firstDay, *day);
            if (index < 0 || index > 6) continue;
            WeeklyGrid::Row& row = Grid1.rows[it->second];
            const auto time = [&](const char* column) {
                const auto t = entries[column].toDateTime();
                return t ? common::formatDateTime(*t, "HH:MM AMPM", s_.locale) : std::string();
            };
            std::string& cell = row.days[static_cast<std::size_t>(index)];
            if (!cell.empty()) cell += '\n';
            cell += time("strttime") + "-" + time("endtime") + "\n" + entries["shift"].text();
            row.lines = std::max(row.lines, static_cast<int>(std::count(cell.begin(), cell.end(), '\n')) + 1);
            if (row.hours.empty())
                row.hours = common::formatNumber(
                    GetHoursInRange(s_, row.personid, firstDay, lastDay, s_.currentSchedule), "0.00", s_.locale);
        }
    } catch (const common::ProgramEnd&) {
        throw;
    } catch (const std::exception& e) {
        sayFailure(s_, "Error loading weekly/hour gridd", e);
    }
}

void week::employeeCombo_Click(int index) {
    employeeCombo.ListIndex = index;
    LoadWeek();
}

void week::shiftCombo_Click(int index) {
    shiftCombo.ListIndex = index;
    LoadWeek();
}

void week::hourscheck_Click(bool checked) {
    hourscheck = checked;
    LoadWeek();
}

void week::Form_Activate() {
    // The flag stays raised: the daily schedule clears it when it has caught up.
    if (s_.refreshWanted) LoadWeek();
}

}  // namespace tallymere::schedule

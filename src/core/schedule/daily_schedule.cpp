#include "schedule/daily_schedule.h"

#include "common/display_format.h"
#include "common/report_name.h"
#include "common/text.h"
#include "maintenance/access_control.h"
#include "payroll/day_figures.h"
#include "reference/time_entry.h"
#include "schedule/bulk_change.h"
#include "schedule/entry_rules.h"
#include "schedule/schedule_host.h"
#include "schedule/undo.h"
#include "store/access.h"

#include <algorithm>
#include <exception>
#include <map>
#include <set>

namespace tallymere::schedule {

using common::MsgButtons;
using common::MsgIcon;
using store::GetRecs;
using store::Params;
using store::Recordset;

namespace {

constexpr const char* kNoItemsToEdit = "There are no schedule items to edit.";
constexpr const char* kNoItemsToDelete = "There are no schedule items to delete.";

// The commands that act on the selected entries. Edit takes one entry only.
constexpr std::array<const char*, 2> kEditCommands{"mnuScheduleEdit", "mnudailygridrightclickedit"};
constexpr std::array<const char*, 4> kSelectionCommands{"mnudelete", "mnudailygridrightclickremove",
                                                        "mnudailygridrightclickcut", "mnudailygridrightclickcopy"};
// Edit and delete of the employee picked in lstlist; **Unassigned** is nobody to edit.
constexpr std::array<const char*, 2> kEmployeeCommands{"mnudailygridlistviewedit",
                                                       "mnudailygridlistviewdeleteemployee"};
constexpr const char* kPasteCommand = "mnudailygridrightclickpaste";

constexpr int kNameWidth = 1700;
constexpr int kColumnWidth = 1400;
constexpr int kFixedWidths = 8700;  // what the first six columns and the grid's frame take

std::string orderClause(std::string_view sort) {
    if (sort == "position") return " order by position,sday,strttime,lname";
    if (sort == "shift") return " order by shift,sday,strttime,lname";
    if (sort == "employee") return " order by lname,fname,sday,strttime";
    if (sort == "section") return " order by section,position,sday,strttime";
    // By the clock time alone, so an entry at 12:30 AM stands before one at 6:00 AM.
    if (sort == "starttime") return R"(order by sday,format(strttime,"HH:MM"),lname)";
    return {};
}

std::string withDescription(std::string_view text, const std::exception& e) {
    std::string out(text);
    if (!out.empty() && out.back() != ' ') out += ' ';
    return out + e.what();
}

const std::string kNoText;

bool scheduledOn(Session& s, long personid, Date day, bool allSchedules) {
    if (allSchedules)
        return !GetRecs(s, "select lname from sched where personid=? and sday=?", {personid, day}).empty();
    return !GetRecs(s, "select lname from sched where personid=? and sday=? and sname=?",
                    {personid, day, s.currentSchedule})
                .empty();
}

// What an employee's picture in the list rests on, for one day: an entry that day, the availability
// for the quick bar's times, leave.
class ListFacts {
public:
    virtual ~ListFacts() = default;
    virtual bool scheduled(long personid) = 0;
    virtual bool available(long personid, DateTime start, DateTime end) = 0;
    virtual bool onLeave(long personid) = 0;
};

// The list's picture. Each later mark overwrites the earlier: leave beats not available, which beats
// scheduled (MarkEmployee orders them the other way).
int listPicture(ListFacts& facts, long personid, const std::optional<std::pair<DateTime, DateTime>>& times) {
    int picture = kPictureNone;
    if (facts.scheduled(personid)) picture = kPictureScheduled;
    if (times && !facts.available(personid, times->first, times->second)) picture = kPictureNotAvailable;
    if (facts.onLeave(personid)) picture = kPictureOnLeave;
    return picture;
}

// Three statements for each employee, as the entry rules ask them.
class FactsPerEmployee : public ListFacts {
public:
    FactsPerEmployee(Session& s, Date day, bool allSchedules) : s_(s), day_(day), allSchedules_(allSchedules) {}
    bool scheduled(long personid) override { return scheduledOn(s_, personid, day_, allSchedules_); }
    bool available(long personid, DateTime start, DateTime end) override {
        return CheckAvailability(s_, personid, day_, start, end);
    }
    bool onLeave(long personid) override { return !GetLeaveType(s_, personid, day_).empty(); }

private:
    Session& s_;
    Date day_;
    bool allSchedules_;
};

// The day's entries, availability and leave read once each, whatever the number of employees. Where
// an employee has several rows of a kind, the first in key order counts, as with the reads above.
class FactsOfDay : public ListFacts {
public:
    FactsOfDay(Session& s, Date day, bool allSchedules) : s_(s), day_(day), allSchedules_(allSchedules) {}

    bool scheduled(long personid) override {
        if (!scheduled_) {
            scheduled_.emplace();
            const auto rs = allSchedules_ ? GetRecs(s_, "select personid from sched where sday=?", {day_})
                                          : GetRecs(s_, "select personid from sched where sday=? and sname=?",
                                                    {day_, s_.currentSchedule});
            for (std::size_t r = 0; r < rs.RecordCount(); ++r)
                if (!rs.field(r, "personid").isNull())
                    scheduled_->insert(static_cast<long>(rs.field(r, "personid").toLong()));
        }
        return scheduled_->contains(personid);
    }

    bool available(long personid, DateTime start, DateTime end) override {
        // The next day's row is wanted only for an entry past midnight, and is read only then.
        return AvailabilityAllows(start, end, [&](int offset) -> std::optional<std::string> {
            const auto& hours = availability(offset);
            const auto it = hours.find(personid);
            if (it == hours.end()) return std::nullopt;
            return it->second;
        });
    }

    bool onLeave(long personid) override {
        if (!leave_) {
            leave_.emplace();
            const auto rs =
                GetRecs(s_, "select personid,typeofleave from employeeleave where sday = ? order by id", {day_});
            for (std::size_t r = 0; r < rs.RecordCount(); ++r)
                leave_->try_emplace(static_cast<long>(rs.field(r, "personid").toLong()),
                                    rs.field(r, "typeofleave").text());
        }
        const auto it = leave_->find(personid);
        return it != leave_->end() && !it->second.empty();
    }

private:
    // The availability strings of the weekday of the day (offset 0) or of the next day (1).
    const std::map<long, std::string>& availability(int offset) {
        auto& hours = availability_[static_cast<std::size_t>(offset)];
        if (!hours) {
            hours.emplace();
            const auto rs = GetRecs(s_, "select personid,houravail from availability where sday = ? order by rowid",
                                    {common::GetDayName(day_.addDays(offset))});
            for (std::size_t r = 0; r < rs.RecordCount(); ++r)
                hours->try_emplace(static_cast<long>(rs.field(r, "personid").toLong()),
                                   rs.field(r, "houravail").text());
        }
        return *hours;
    }

    Session& s_;
    Date day_;
    bool allSchedules_;
    std::optional<std::set<long>> scheduled_;
    std::optional<std::map<long, std::string>> leave_;
    std::array<std::optional<std::map<long, std::string>>, 2> availability_;
};

}  // namespace

// ---------------------------------------------------------------------------------------------
// grid1

long DailyGrid::RowData(int row) const {
    return row >= 1 && row < Rows() ? rows[static_cast<std::size_t>(row - 1)].schedid : 0;
}

const std::string& DailyGrid::TextMatrix(int row, int col) const {
    if (col < 0 || col >= kCols) return kNoText;
    if (row == 0) return captions[static_cast<std::size_t>(col)];
    if (row < 1 || row >= Rows()) return kNoText;
    return rows[static_cast<std::size_t>(row - 1)].cells[static_cast<std::size_t>(col)].text;
}

int DailyGrid::firstSelected() const {
    if (!HighLight || Row < 1 || rows.empty()) return 0;
    return std::max(1, std::min(Row, RowSel));
}

int DailyGrid::lastSelected() const {
    if (!HighLight || Row < 1 || rows.empty()) return 0;
    return std::min(Rows() - 1, std::max(Row, RowSel));
}

std::vector<long> DailyGrid::selectedSchedids() const {
    std::vector<long> out;
    const int first = firstSelected();
    if (first == 0) return out;
    for (int r = first; r <= lastSelected(); ++r)
        if (const long id = RowData(r)) out.push_back(id);
    return out;
}

int DailyGrid::findRow(long schedid) const {
    for (int r = 1; r < Rows(); ++r)
        if (RowData(r) == schedid) return r;
    return 0;
}

// What DeleteSelectedEntries tells the window as it works down the selection.
struct dailyflexgrid::Deleter : DeleteListener {
    explicit Deleter(dailyflexgrid& w) : window(w) {}
    void rowDeleted(long schedid) override { window.removeGridRow(schedid); }
    void employeeUnscheduled(long personid, Date day, std::optional<DateTime> start,
                             std::optional<DateTime> end) override {
        window.MarkEmployee(personid, day, start, end, "remove");
    }
    dailyflexgrid& window;
};

// ---------------------------------------------------------------------------------------------
// Load and refreshes

dailyflexgrid::dailyflexgrid(Session& s, ScheduleHost& main) : s_(s), main_(main) {
    // Without the payroll right the cost stays hidden as long as the window lives.
    LaborEstimateVisible = !(s_.IsUserMode && s_.rights.noPayroll);
    setColumns();
    FillFilterCombo();
    FillEmployeeList();  // not marked yet: the window is still loading
    loading_ = false;
}

dailyflexgrid::~dailyflexgrid() = default;

long dailyflexgrid::selectedEmployee() const {
    const int i = lstlist.selected;
    if (i < 0 || i >= static_cast<int>(lstlist.rows.size())) return kUnassignedId;
    return lstlist.rows[static_cast<std::size_t>(i)].personid;
}

void dailyflexgrid::updailyflexform() {
    datelabeldailyflex = common::formatDate(s_.activeDate, s_.dailyHeadingFormat, s_.locale);
    RefreshDailyGrid();
    MarkEmployeeList();
    if (weekView) LoadWeekGrid();
}

void dailyflexgrid::UpDailyGridUpEmpl() {
    RefreshDailyGrid();
    FillEmployeeList();
}

void dailyflexgrid::Form_Activate() {
    activeWindow = true;
    s_.ui().setBusy(false);
    // Marking clears the refresh-wanted flag, so read it before the list is filled again.
    const bool refresh = s_.refreshWanted;
    if (refresh) {
        datelabeldailyflex = common::formatDate(s_.activeDate, s_.dailyHeadingFormat, s_.locale);
        RefreshDailyGrid();
        if (weekView) LoadWeekGrid();
    } else {
        updateEntryCommands();
    }
    if (employeeListStale) {
        employeeListStale = false;
        FillEmployeeList();
    } else if (refresh) {
        MarkEmployeeList();
    }
}

void dailyflexgrid::setColumns() {
    for (int c = 0; c < DailyGrid::kCols; ++c) {
        grid1.captions[static_cast<std::size_t>(c)] = DailyGrid::kCaptions[static_cast<std::size_t>(c)];
        grid1.ColWidth[static_cast<std::size_t>(c)] = c == 0 ? kNameWidth : kColumnWidth;
    }
    grid1.ColWidth[DailyGrid::NoteCol] = std::max(kColumnWidth, grid1.width - kFixedWidths);
}

void dailyflexgrid::grid1_Resize(int widthTwips) {
    grid1.width = widthTwips;
    grid1.ColWidth[DailyGrid::NoteCol] = std::max(kColumnWidth, grid1.width - kFixedWidths);
}

GridCell dailyflexgrid::nameCell(const Recordset& rs) const {
    const std::string fname = rs["fname"].text();
    return {fname.empty() ? std::string(Session::kUnassignedName)
                          : common::FormatReportName(fname, rs["lname"].text(), s_.settings.gs_ReportNameFormat),
            kNameCellColor};
}

GridCell dailyflexgrid::positionCell(const std::string& title, std::map<std::string, std::optional<Rgb>>* cache) {
    // Titles compare without regard to case, as the table does.
    const std::string key = common::toLower(title);
    if (cache) {
        if (const auto it = cache->find(key); it != cache->end()) return {title, it->second};
    }
    std::optional<Rgb> colour;
    const Recordset rs = GetRecs(s_, "select color from position where title = ?", {title});
    if (!rs.empty() && !rs["color"].isNull()) colour = rgbFromStored(static_cast<long>(rs["color"].toLong()));
    if (cache) (*cache)[key] = colour;
    return {title, colour};
}

DailyGrid::Entry dailyflexgrid::makeRow(const Recordset& rs, std::map<std::string, std::optional<Rgb>>* cache) {
    DailyGrid::Entry row;
    row.cells[DailyGrid::NameCol] = nameCell(rs);
    if (!rs["position"].isNull()) row.cells[DailyGrid::PositionCol] = positionCell(rs["position"].text(), cache);
    // The date does not show: an overnight entry is told only by its times.
    const auto time = [&](const char* column) {
        const auto t = rs[column].toDateTime();
        return t ? common::formatDateTime(*t, s_.settings.gs_ReportTimeFormat, s_.locale) : std::string();
    };
    row.cells[DailyGrid::StartCol].text = time("strttime");
    row.cells[DailyGrid::EndCol].text = time("endtime");
    row.cells[DailyGrid::ShiftCol].text = rs["shift"].text();
    row.cells[DailyGrid::SectionCol].text = rs["section"].text();
    row.cells[DailyGrid::NoteCol].text = rs["comment"].text();
    row.schedid = static_cast<long>(rs["schedid"].toLong());
    return row;
}

void dailyflexgrid::RefreshDailyGrid() {
    s_.ui().setBusy(true);
    const int previousRow = grid1.Row;
    try {
        const std::string order = orderClause(s_.settings.dailyschedsort);
        Recordset rs =
            GetRecs(s_, "select * from sched where sday=? and sname=? " + order, {s_.activeDate, s_.currentSchedule});
        dailyReportSql =
            "select lname,fname,position,shift,strttime,endtime,sday,section from sched where sday=? " + order;
        dailyReportParams = {store::Value(s_.activeDate)};

        grid1.rows.clear();
        if (rs.empty()) {
            grid1.Row = grid1.RowSel = 0;
            grid1.HighLight = false;
        }
        updateEntryCommands();
        setColumns();

        // One read per position title, not per row: a busy day repeats a handful of positions.
        std::map<std::string, std::optional<Rgb>> colours;
        grid1.rows.reserve(rs.RecordCount());
        for (; !rs.eof(); rs.MoveNext()) grid1.rows.push_back(makeRow(rs, &colours));

        RestoreGridSelection(std::clamp(previousRow, 1, std::max(1, grid1.Rows() - 1)));
        ShowDayFigures();
    } catch (const common::ProgramEnd&) {
        s_.ui().setBusy(false);
        throw;
    } catch (const std::exception& e) {
        s_.ui().message(withDescription("Error occurred while updating daily schedule.", e), MsgButtons::Ok,
                        MsgIcon::Exclamation, {});
    }
    s_.ui().setBusy(false);
}

void dailyflexgrid::RefreshGridRow(long schedid) {
    const int row = grid1.findRow(schedid);
    if (row == 0) return;
    const Recordset rs = GetRecs(s_, "select * from sched where schedid = ?", {schedid});
    if (rs.empty()) return;
    grid1.rows[static_cast<std::size_t>(row - 1)] = makeRow(rs, nullptr);
}

void dailyflexgrid::RestoreGridSelection(int row) {
    if (grid1.Rows() <= row) return;
    if (grid1.Rows() == 1) {
        grid1.Row = grid1.RowSel = 0;
        grid1.HighLight = false;
    } else if (row >= 1) {
        grid1.Row = grid1.RowSel = row;
        grid1.HighLight = true;
    }
    updateEntryCommands();
}

void dailyflexgrid::SelectAllRows() {
    if (grid1.Rows() <= 1) return;
    grid1.Row = 1;
    grid1.RowSel = grid1.Rows() - 1;
    grid1.HighLight = true;
    updateEntryCommands();
}

void dailyflexgrid::removeGridRow(long schedid) {
    const int row = grid1.findRow(schedid);
    if (row == 0) return;
    grid1.rows.erase(grid1.rows.begin() + (row - 1));
    if (grid1.rows.empty()) {
        // Down to the header alone, as on a day without entries.
        grid1.Row = grid1.RowSel = 0;
        grid1.HighLight = false;
    } else {
        grid1.Row = std::clamp(grid1.Row, 1, grid1.Rows() - 1);
        grid1.RowSel = grid1.Row;
    }
    updateEntryCommands();
}

void dailyflexgrid::updateEntryCommands() {
    setEntryCommands(grid1.Rows() > 1 && grid1.Row >= 1, grid1.severalSelected());
}

void dailyflexgrid::setEntryCommands(bool anyRow, bool several) {
    if (!anyRow) {
        for (const char* name : kEditCommands) main_.setMenuEnabled(name, false);
        for (const char* name : kSelectionCommands) main_.setMenuEnabled(name, false);
        return;
    }
    // Another window's commands are not this window's to switch on.
    if (!activeWindow) return;
    for (const char* name : kEditCommands) main_.setMenuEnabled(name, !several);
    for (const char* name : kSelectionCommands) main_.setMenuEnabled(name, true);
}

// ---------------------------------------------------------------------------------------------
// Figures and the employee panel

void dailyflexgrid::ShowDayFigures() {
    LaborEstimate = s_.settings.gb_ShowLaborCostsOnDailyForm
                        ? "Labor Cost: " + common::formatNumber(payroll::GetDailyLaborCost(s_, s_.activeDate, reads),
                                                                "$00.00", s_.locale)
                        : std::string();
    TotalHours = s_.settings.gb_ShowTotalHoursOnDailyForm
                     ? "Total Hours: " +
                           common::formatNumber(payroll::GetDailyHours(s_, s_.activeDate, reads), "0.00", s_.locale)
                     : std::string();
}

void dailyflexgrid::UpdateEmployeePanel(long personid) {
    const Date day = s_.activeDate;
    const Date first = common::weekStart(day, s_.settings.firstdayofweek);
    const Date last = first.addDays(6);
    const auto shortDay = [this](Date d) { return common::formatDate(d, "ddd mmm dd", s_.locale); };
    const auto hours = [this](double h) { return common::formatNumber(h, "0.00", s_.locale); };

    TodayLabel = shortDay(day);
    WeekofLabel = "Wk of " + shortDay(first) + " - " + shortDay(last);
    TotalHoursLabel = "Total hours this week: " + hours(GetHoursInRange(s_, personid, first, last, s_.currentSchedule));

    std::string name = Session::kUnassignedName;
    if (personid == kUnassignedId) {
        HoursRequestedLabel = "Hours requested: N/A";
    } else {
        const Recordset person = GetRecs(s_, "select * from person where personid = ?", {personid});
        HoursRequestedLabel = "Hours requested: " + person["hoursperweek"].text();
        name =
            common::FormatReportName(person["fname"].text(), person["lname"].text(), s_.settings.gs_ReportNameFormat);
    }
    employeeframe = name;

    const double today = GetHoursInRange(s_, personid, day, day, s_.currentSchedule);
    NumHoursTodayLabel = today == 0 ? "Hours scheduled: 0" : "Hours scheduled: " + hours(today);

    if (personid == kUnassignedId) {
        LeaveLabel = "Leave: N/A";
    } else {
        const std::string leave = GetLeaveType(s_, personid, day);
        LeaveLabel = leave.empty() ? "Leave: None scheduled" : "Leave: " + name + " Out, " + leave;
    }

    std::string sql = "select * from sched where sday=? and personid = ?";
    Params params{day, personid};
    if (!s_.settings.gb_CheckConflictAllSchedules) {
        sql += " and sname=?";
        params.emplace_back(s_.currentSchedule);
    }
    NumShiftsLabel = "Number of shifts: " + std::to_string(GetRecs(s_, sql, params).RecordCount());
}

// ---------------------------------------------------------------------------------------------
// The employee list

void dailyflexgrid::FillEmployeeList() {
    lstlist.rows.clear();
    lstlist.rows.push_back({Session::kUnassignedName, {}, kUnassignedId, kPictureNone});
    lstlist.selected = 0;
    const char* sql = lstlist.positionFirst() ? "select * from person where active = true order by primpos"
                                              : "select * from person where active = true order by lname, fname";
    for (Recordset rs = GetRecs(s_, sql); !rs.eof(); rs.MoveNext()) {
        std::string name;
        if (!rs["lname"].isNull())
            name = common::FormatReportName(rs["fname"].text(), rs["lname"].text(), s_.settings.gs_ReportNameFormat);
        lstlist.rows.push_back(
            {std::move(name), rs["primpos"].text(), static_cast<long>(rs["personid"].toLong()), kPictureNone});
    }
    MarkEmployeeList();
}

std::optional<std::pair<DateTime, DateTime>> dailyflexgrid::quickBarTimes() const {
    const reference::TimeEntry start{main_.quickBar().TETxtHr[1], main_.quickBar().TeTxtMin[1],
                                     main_.quickBar().TEAmPm[1]};
    const reference::TimeEntry end{main_.quickBar().TETxtHr[0], main_.quickBar().TeTxtMin[0],
                                   main_.quickBar().TEAmPm[0]};
    if (!start.hasHour() || !end.hasHour()) return std::nullopt;
    const auto from = start.on(s_.activeDate);
    const auto to = end.on(s_.activeDate);
    if (!from || !to) return std::nullopt;
    return std::pair{*from, *to};
}

void dailyflexgrid::MarkEmployeeList() {
    if (loading_) return;
    const Date day = s_.activeDate;
    const auto times = quickBarTimes();
    const bool allSchedules = s_.settings.gb_CheckConflictAllSchedules;
    FactsPerEmployee perEmployee(s_, day, allSchedules);
    FactsOfDay ofDay(s_, day, allSchedules);
    ListFacts& facts = reads == payroll::DayReads::Batched ? static_cast<ListFacts&>(ofDay) : perEmployee;
    // **Unassigned** keeps its picture.
    for (std::size_t i = 1; i < lstlist.rows.size(); ++i)
        lstlist.rows[i].picture = listPicture(facts, lstlist.rows[i].personid, times);
    UpdateEmployeePanel(selectedEmployee());
    s_.refreshWanted = false;
}

void dailyflexgrid::MarkEmployee(long personid, Date day, std::optional<DateTime> start, std::optional<DateTime> end,
                                 std::string_view /*reason*/) {
    // Both reasons mark alike: the entry is already in, or already gone from, the table.
    if (personid < 0) return;  // **Unassigned** (and the transient id) has no mark of its own
    const auto it = std::find_if(lstlist.rows.begin(), lstlist.rows.end(),
                                 [personid](const EmployeeList::Row& r) { return r.personid == personid; });
    if (it == lstlist.rows.end()) return;
    // Here scheduled wins, the opposite of MarkEmployeeList's order, and only the open file counts.
    it->picture = kPictureNone;
    if (start && end && !CheckAvailability(s_, personid, day, *start, *end)) it->picture = kPictureNotAvailable;
    if (!GetLeaveType(s_, personid, day).empty()) it->picture = kPictureOnLeave;
    if (scheduledOn(s_, personid, day, false)) it->picture = kPictureScheduled;
}

void dailyflexgrid::lstlist_Click(int row) {
    if (row < 0 || row >= static_cast<int>(lstlist.rows.size())) return;
    lstlist.selected = row;
    const long personid = selectedEmployee();
    s_.currentEmployee = personid;
    UpdateEmployeePanel(personid);
    for (const char* name : kEmployeeCommands) main_.setMenuEnabled(name, personid != kUnassignedId);
    if (weekView) LoadWeekGrid();
}

bool dailyflexgrid::lstlist_DblClick() {
    const long personid = selectedEmployee();
    if (personid == kUnassignedId) return false;
    if (s_.IsUserMode && s_.rights.noEmployeeView) {
        s_.ui().message(
            "You do not have permissions to view employee information. To view employee data, restart Tallymere and "
            "enter the owner password.",
            MsgButtons::Ok, MsgIcon::Information, {});
        return false;
    }
    s_.currentEmployee = personid;
    return true;
}

void dailyflexgrid::lstlist_ColumnClick(int column) {
    lstlist.order = column == 1 ? "lname" : "primpos";
    FillEmployeeList();
}

// ---------------------------------------------------------------------------------------------
// The week grid

void dailyflexgrid::FillFilterCombo() {
    filtercombo.clear();
    filtercombo.add("All");
    for (Recordset rs = GetRecs(s_, "select * from position order by title"); !rs.eof(); rs.MoveNext())
        filtercombo.add(rs["title"].text());
    filtercombo.ListIndex = 0;
}

void dailyflexgrid::setWeekView(bool on) {
    weekView = on;
    if (on) LoadWeekGrid();
}

void dailyflexgrid::LoadWeekGrid() {
    try {
        const Date first = common::weekStart(s_.activeDate, s_.settings.firstdayofweek);
        const Date last = first.addDays(6);
        grid2.captions[0] = "Name";
        grid2.captions[1] = "Hrs";
        for (int d = 0; d < 7; ++d)
            grid2.captions[static_cast<std::size_t>(d + 2)] =
                common::formatDate(first.addDays(d), "ddd mmm, dd", s_.locale);
        grid2.rows.clear();

        // A filter other than "All" narrows the week to the employee picked in the list.
        const bool filtered = filtercombo.text() != "All";
        const long picked = selectedEmployee();
        std::string sql = "select * from sched where sday>=? and sday <=? and sname=?";
        Params params{first, last, s_.currentSchedule};
        if (filtered) {
            sql += " and personid=?";
            params.emplace_back(picked);
        }
        sql += " order by lname,fname,sday,strttime";

        std::map<long, std::array<std::vector<std::string>, 7>> cells;
        for (Recordset rs = GetRecs(s_, sql, params); !rs.eof(); rs.MoveNext()) {
            const auto day = rs["sday"].toDate();
            if (!day) continue;
            const auto index = common::daysBetween(first, *day);
            if (index < 0 || index > 6) continue;
            const auto time = [&](const char* column) {
                const auto t = rs[column].toDateTime();
                return t ? common::formatDateTime(*t, "HH:MM AMPM", s_.locale) : std::string();
            };
            cells[static_cast<long>(rs["personid"].toLong())][static_cast<std::size_t>(index)].push_back(
                time("strttime") + "-" + time("endtime") + "\n" + rs["shift"].text());
        }

        Recordset people = filtered ? GetRecs(s_, "select * from person where active=true and personid= ?", {picked})
                                    : GetRecs(s_, "select * from person where active=true order by lname");
        for (; !people.eof(); people.MoveNext()) {
            WeekGrid::Row row;
            row.personid = static_cast<long>(people["personid"].toLong());
            const std::string lname = people["lname"].text();
            const std::string fname = people["fname"].text();
            row.name = fname.empty() ? lname : lname + ", " + fname;
            row.hours = common::formatNumber(GetHoursInRange(s_, row.personid, first, last, s_.currentSchedule), "0.00",
                                             s_.locale);
            if (const auto it = cells.find(row.personid); it != cells.end()) {
                for (std::size_t d = 0; d < 7; ++d) {
                    std::string text;
                    for (const std::string& entry : it->second[d]) text += (text.empty() ? "" : "\n") + entry;
                    row.days[d] = std::move(text);
                }
            }
            grid2.rows.push_back(std::move(row));
        }
    } catch (const common::ProgramEnd&) {
        throw;
    } catch (const std::exception&) {
        s_.ui().message("Error loading weekly/hour gridd", MsgButtons::Ok, MsgIcon::Exclamation, {});
    }
}

// ---------------------------------------------------------------------------------------------
// Edit and delete

bool dailyflexgrid::grid1_DragDrop() {
    ClearUndo(s_);
    return addfromlv_Click();
}

std::optional<long> dailyflexgrid::Command2_Click() {
    if (maintenance::NoSchedulePermission(s_)) return std::nullopt;
    const long schedid = grid1.RowData(grid1.Row);
    if (schedid == 0) {
        s_.ui().inform(kNoItemsToEdit);
        return std::nullopt;
    }
    if (grid1.severalSelected()) {
        s_.ui().inform("Please select a single shedule entry to edit.");
        return std::nullopt;
    }
    // Lets the window repaint before the editor covers it.
    s_.ui().processEvents();
    return schedid;
}

void dailyflexgrid::editorClosed(long schedid) {
    RefreshGridRow(schedid);
    MarkEmployeeList();
    ShowDayFigures();
}

std::optional<long> dailyflexgrid::mnuScheduleEdit_Click() {
    ClearUndo(s_);
    return Command2_Click();
}

void dailyflexgrid::Command3_Click() {
    if (maintenance::NoSchedulePermission(s_)) return;
    const long schedid = grid1.RowData(grid1.Row);
    if (schedid == 0) {
        s_.ui().inform(kNoItemsToDelete);
        return;
    }
    if (grid1.severalSelected()) {
        Deleter deleter(*this);
        if (DeleteSelectedEntries(s_, schedid, grid1.selectedSchedids(), deleter)) ShowDayFigures();
        updateEntryCommands();
        return;
    }

    const int row = grid1.Row;
    if (!s_.ui().askYesNo("Delete schedule entry for " + grid1.TextMatrix(row, DailyGrid::NameCol) + ". Start Time - " +
                          grid1.TextMatrix(row, DailyGrid::StartCol) + " ?"))
        return;
    try {
        const Date day = s_.activeDate;
        const Recordset entry =
            GetRecs(s_, "select personid,sday,strttime,endtime from sched where schedid=? and sname=?",
                    {schedid, s_.currentSchedule});
        const bool deleted = runAsOneChange(s_, [&] {
            SaveUndoSnapshot(s_, day, day, "Undo Delete Schedule", true, s_.currentSchedule);
            return store::DeleteRecs(s_, "delete from sched where schedid = ? and sname=?",
                                     {schedid, s_.currentSchedule});
        });
        if (!deleted) return;
        s_.refreshWanted = true;
        removeGridRow(schedid);
        if (!entry.empty()) {
            const long personid = static_cast<long>(entry["personid"].toLong());
            if (GetRecs(s_, "select * from sched where personid=? and sday=? and sname=?",
                        {personid, day, s_.currentSchedule})
                    .empty())
                MarkEmployee(personid, day, entry["strttime"].toDateTime(), entry["endtime"].toDateTime(), "remove");
        }
        // The day's figures would otherwise still count the entry.
        ShowDayFigures();
    } catch (const common::ProgramEnd&) {
        throw;
    } catch (const std::exception& e) {
        s_.ui().message(withDescription("Error occurred removing schedule item.", e), MsgButtons::Ok,
                        MsgIcon::Exclamation, {});
    }
}

// ---------------------------------------------------------------------------------------------
// Clipboard

void dailyflexgrid::afterClipboardChange(bool changed) {
    if (changed) updailyflexform();
}

void dailyflexgrid::mnudailygridrightclickcut_Click() {
    // The pop-up's cut takes no snapshot: only Ctrl+X can be undone.
    const bool cut = CutFromMenu(s_, grid1.RowData(grid1.Row), grid1.selectedSchedids());
    if (cut) main_.setMenuEnabled(kPasteCommand, true);
    afterClipboardChange(cut);
}

void dailyflexgrid::mnudailygridrightclickcopy_Click() {
    if (CopyClearingUndo(s_, grid1.RowData(grid1.Row), grid1.selectedSchedids()))
        main_.setMenuEnabled(kPasteCommand, true);
}

void dailyflexgrid::mnudailygridrightclickpaste_Click() { afterClipboardChange(PasteWithUndo(s_)); }

void dailyflexgrid::mnudeleteday_Click() { afterClipboardChange(schedule::mnudeleteday(s_)); }

// ---------------------------------------------------------------------------------------------
// Mouse and keyboard

void dailyflexgrid::grid1_MouseDown(int row, MouseButton button, bool extend) {
    if (row < 1 || row >= grid1.Rows()) {
        setEntryCommands(false, false);
        return;
    }
    // A press inside a selection of several rows keeps it, so a right click can act on all of them.
    const bool keep = grid1.severalSelected() && grid1.isSelected(row);
    if (!keep && (button == MouseButton::Left || button == MouseButton::Right)) {
        if (extend && button == MouseButton::Left && grid1.Row >= 1) {
            grid1.RowSel = row;
        } else {
            grid1.Row = grid1.RowSel = row;
        }
        grid1.HighLight = true;
    }
    updateEntryCommands();
}

void dailyflexgrid::grid1_SelChange(int row, int rowSel) {
    if (grid1.Rows() <= 1) return;
    const int last = grid1.Rows() - 1;
    grid1.Row = std::clamp(row, 1, last);
    grid1.RowSel = std::clamp(rowSel, 1, last);
    grid1.HighLight = true;
    updateEntryCommands();
}

GridAction dailyflexgrid::grid1_KeyDown(GridKey key, KeyModifiers modifiers) {
    GridAction action;
    if (modifiers.alt && !modifiers.ctrl) {
        if (key == GridKey::Left) main_.SSCommand1_Click();
        if (key == GridKey::Right) main_.dayPlus_Click();
        return action;
    }
    if (modifiers.ctrl && !modifiers.alt) {
        const long current = grid1.RowData(grid1.Row);
        switch (key) {
        case GridKey::X: {
            const bool cut = CutWithUndo(s_, current, grid1.selectedSchedids());
            if (cut) main_.setMenuEnabled(kPasteCommand, true);
            afterClipboardChange(cut);
            break;
        }
        case GridKey::C:
            if (CopyClearingUndo(s_, current, grid1.selectedSchedids())) main_.setMenuEnabled(kPasteCommand, true);
            break;
        case GridKey::V: afterClipboardChange(PasteWithUndo(s_)); break;
        case GridKey::Six:
            s_.ui().showModal("SetDataLocation");
            if (s_.ExitNow) s_.endProgram();
            break;
        default: break;
        }
        return action;
    }
    switch (key) {
    case GridKey::Delete: Command3_Click(); break;
    case GridKey::Up:
    case GridKey::Down: {
        if (grid1.Rows() <= 1) break;
        const int step = key == GridKey::Up ? -1 : 1;
        grid1.Row = grid1.RowSel = std::clamp(grid1.Row + step, 1, grid1.Rows() - 1);
        grid1.HighLight = true;
        updateEntryCommands();
        action.scrollToRow = true;
        break;
    }
    default: break;
    }
    return action;
}

}  // namespace tallymere::schedule

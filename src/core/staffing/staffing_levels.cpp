#include "staffing/staffing_levels.h"

#include "store/access.h"

namespace tallymere::staffing {

using common::MsgIcon;
using store::DeleteRecs;
using store::GetRecs;
using store::InsertRecs;
using store::UdateRecs;

namespace {

void say(Session& s, std::string_view text, std::string_view title = {}) {
    s.ui().inform(text, MsgIcon::Information, title);
}

}  // namespace

bool saveLevel(Session& s, int sday, const std::string& shift, const std::string& position, long numreq) {
    const auto rs = GetRecs(s, "select * from staffing where sday=? and shift=? and position=? and sname=?",
                            {sday, shift, position, s.currentSchedule});
    if (rs.empty())
        return InsertRecs(s, "insert into staffing (sday,shift,position,sname,numreq) values(?,?,?,?,?)",
                          {sday, shift, position, s.currentSchedule, numreq});
    return UdateRecs(s, "update staffing set numreq=? where sday=? and shift=? and position=? and sname=?",
                     {numreq, sday, shift, position, s.currentSchedule});
}

staffing::staffing(Session& s) : s_(s) { Form_Load(); }

void staffing::Form_Load() {
    Caption = "Staffing Levels - " + s_.currentSchedule;
    fillShiftList(s_, shiftcombo, true);
    fillPositionList(s_, positioncombo, true);
    layRows();
    LoadTabs();
}

void staffing::layRows() {
    const auto shifts = GetRecs(s_, "select * from shift");
    const auto positions = GetRecs(s_, "select * from position");
    if (shifts.empty() || positions.empty()) return;
    store::Transaction tx(s_);
    for (int day = 1; day <= 7 && !tx.failed(); ++day) {
        for (std::size_t i = 0; i < shifts.RecordCount(); ++i) {
            const std::string shift = shifts.field(i, "name").text();
            for (std::size_t j = 0; j < positions.RecordCount(); ++j) {
                const std::string position = positions.field(j, "title").text();
                const auto rs =
                    GetRecs(s_, "select * from staffing where sday=? and shift =? and position=? and sname=?",
                            {day, shift, position, s_.currentSchedule});
                if (rs.empty())
                    InsertRecs(s_, "insert into staffing (sday,shift,position,sname) values(?,?,?,?)",
                               {day, shift, position, s_.currentSchedule});
            }
        }
    }
    DeleteRecs(s_,
               "delete from staffing where sname=? and (shift not in (select name from shift) or position not in "
               "(select title from position))",
               {s_.currentSchedule});
    if (!tx.commit()) say(s_, "There is a problem loading the staffing information.", "Export Data");
}

void staffing::LoadTabs() {
    const auto shifts = shiftsPassing(s_, shiftcombo);
    const auto positions = positionsPassing(s_, positioncombo);
    for (int tab = 0; tab < 7; ++tab) loadTab(tab, shifts, positions);
    Row = Grid1[static_cast<std::size_t>(SSTab1)].rows.empty() ? -1 : 0;
    numreq = Row < 0 ? std::string() : Grid1[static_cast<std::size_t>(SSTab1)].rows[0].needed;
}

void staffing::loadTab(int tab, const std::vector<std::string>& shifts, const std::vector<std::string>& positions) {
    LevelGrid& grid = Grid1[static_cast<std::size_t>(tab)];
    grid.rows.clear();
    for (const auto& shift : shifts) {
        for (const auto& position : positions) {
            const auto rs = GetRecs(s_, "select * from staffing where sday=? and shift=? and position =? and sname=?",
                                    {tab + 1, shift, position, s_.currentSchedule});
            grid.rows.push_back({shift, position, rs.empty() ? std::string() : store::chknull(rs["numreq"].value())});
        }
    }
}

void staffing::Grid1_EnterCell(int row) {
    auto& rows = Grid1[static_cast<std::size_t>(SSTab1)].rows;
    if (row == Row) return;
    leaveCell();
    if (row < 0 || row >= static_cast<int>(rows.size())) {
        Row = -1;
        numreq.clear();
        return;
    }
    Row = row;
    numreq = rows[static_cast<std::size_t>(row)].needed;
}

bool staffing::numreq_KeyPress(char key) {
    if (key >= '0' && key <= '9') return true;
    s_.ui().beep();
    return false;
}

bool staffing::leaveCell() {
    auto& rows = Grid1[static_cast<std::size_t>(SSTab1)].rows;
    if (Row < 0 || Row >= static_cast<int>(rows.size())) return true;
    LevelGrid::Row& row = rows[static_cast<std::size_t>(Row)];
    const std::string typed = numreq.empty() ? "0" : numreq;
    const auto n = parseHeadCount(typed);
    if (!n) {
        // Text that did not come through the keys (pasted, or from a script) is refused, not stored.
        s_.ui().inform(kBadHeadCount, MsgIcon::Exclamation, "Staffing Levels");
        numreq = row.needed;
        return false;
    }
    if (!saveLevel(s_, sday(), row.shift, row.position, *n)) {
        numreq = row.needed;
        return false;
    }
    row.needed = std::to_string(*n);
    numreq = row.needed;
    return true;
}

void staffing::moveRow(int delta) {
    const int count = static_cast<int>(Grid1[static_cast<std::size_t>(SSTab1)].rows.size());
    const int to = Row + delta;
    if (to < 0 || to >= count) return;
    Grid1_EnterCell(to);
}

void staffing::SSTab1_Click(int tab) {
    if (tab == SSTab1 || tab < 0 || tab > 6) return;
    leaveCell();
    SSTab1 = tab;
    const auto& rows = Grid1[static_cast<std::size_t>(tab)].rows;
    Row = rows.empty() ? -1 : 0;
    numreq = rows.empty() ? std::string() : rows[0].needed;
}

void staffing::shiftcombo_Click(int index) {
    leaveCell();
    shiftcombo.ListIndex = index;
    LoadTabs();
}

void staffing::positioncombo_Click(int index) {
    leaveCell();
    positioncombo.ListIndex = index;
    LoadTabs();
}

void staffing::Command5_Click() {
    const Date first = common::weekStart(s_.activeDate, s_.settings.firstdayofweek);
    const Date last = first.addDays(6);
    const std::string fmt = "short date";
    if (!s_.ui().askYesNo("Staffing requirements will be gathered from the week of " +
                              common::formatDate(first, fmt, s_.locale) + " to " +
                              common::formatDate(last, fmt, s_.locale) + " continue?",
                          MsgIcon::Question))
        return;
    s_.ui().setBusy(true);
    const auto shifts = GetRecs(s_, "select * from shift");
    const auto positions = GetRecs(s_, "select * from position");
    if (shifts.empty()) {
        s_.ui().setBusy(false);
        say(s_,
            "Get Staffing Levels collects the number of employees needed for each position and shift. There are no "
            "shifts.",
            kGetLevelsTitle);
        return;
    }
    if (positions.empty()) {
        s_.ui().setBusy(false);
        say(s_,
            "Get Staffing Levels collects the number of employees needed for each position and shift. There are no "
            "positions entered.",
            kGetLevelsTitle);
        return;
    }
    {
        store::Transaction tx(s_);
        // No sname test: gathering replaces the levels of every schedule file. Kept so on purpose.
        DeleteRecs(s_, "delete from staffing");
        StaffPbarVisible = true;
        StaffPbarValue = 0;
        StaffPbarMax = 7 * static_cast<int>(shifts.RecordCount());
        for (int d = 0; d < 7 && !tx.failed(); ++d) {
            const Date day = first.addDays(d);
            for (std::size_t i = 0; i < shifts.RecordCount(); ++i) {
                const std::string shift = shifts.field(i, "name").text();
                const auto any = GetRecs(s_, "select * from sched where sday =? and shift=? and sname=?",
                                         {day, shift, s_.currentSchedule});
                if (!any.empty()) {
                    for (std::size_t j = 0; j < positions.RecordCount(); ++j) {
                        const std::string position = positions.field(j, "title").text();
                        const auto rs =
                            GetRecs(s_, "select * from sched where sday = ? and shift=? and position=? and sname=?",
                                    {day, shift, position, s_.currentSchedule});
                        if (rs.RecordCount() > 0)
                            InsertRecs(s_, "Insert into staffing (sday,shift,position,numreq,sname) values(?,?,?,?,?)",
                                       {day.weekdayNumber(), shift, position, static_cast<long>(rs.RecordCount()),
                                        s_.currentSchedule});
                    }
                }
                ++StaffPbarValue;
                s_.ui().processEvents();
            }
        }
        tx.commit();
    }
    s_.ui().setBusy(false);
    StaffPbarVisible = false;
    LoadTabs();
}

staffingadd::staffingadd(Session& s, int sday) : s_(s), sday_(sday) {
    fillShiftList(s, shiftcombo, false);
    fillPositionList(s, positioncombo, false);
    shiftcombo.ListIndex = -1;
    positioncombo.ListIndex = -1;
}

void staffingadd::preset(const std::string& shift, const std::string& position, const std::string& needed) {
    shiftcombo.select(shift);
    positioncombo.select(position);
    numreq = needed;
}

bool staffingadd::Command1_Click() {
    if (shiftcombo.text().empty()) {
        say(s_, "No shift was selected.");
        return false;
    }
    if (positioncombo.text().empty()) {
        say(s_, "No position was selected.");
        return false;
    }
    if (numreq.empty()) {
        say(s_, "No value entered for the number required.");
        return false;
    }
    const auto n = parseHeadCount(numreq);
    if (!n) {
        s_.ui().inform(kBadHeadCount, MsgIcon::Exclamation, kCaption);
        return false;
    }
    const std::string shift = shiftcombo.text(), position = positioncombo.text();
    const auto rs = GetRecs(s_, "select * from staffing where sday=? and shift=? and position=? and sname=?",
                            {sday_, shift, position, s_.currentSchedule});
    if (rs.empty())
        return InsertRecs(s_, "Insert into staffing (sday,shift,position,numreq,sname) values(?,?,?,?,?)",
                          {sday_, shift, position, *n, s_.currentSchedule});
    return UdateRecs(s_, "update staffing set numreq=? where sday=? and shift=? and position=? and sname=?",
                     {*n, sday_, shift, position, s_.currentSchedule});
}

}  // namespace tallymere::staffing

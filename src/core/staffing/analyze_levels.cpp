#include "staffing/analyze_levels.h"

#include "store/access.h"

namespace tallymere::staffing {

using common::MsgIcon;
using store::GetRecs;

analyzelevels::analyzelevels(Session& s) : s_(s) {
    analyzeday = s.activeDate;
    for (LevelMark m : {LevelMark::Equal, LevelMark::Over, LevelMark::Under}) legend.push_back({m, markText(m)});
    Form_Load();
}

void analyzelevels::Form_Load() {
    // Levels left at 0 by the levels window are dropped; that window lays them down again.
    store::DeleteRecs(s_, "delete from staffing where numreq = 0");
    Caption = "Analyze Staffing Levels - " + s_.currentSchedule;
    fillShiftList(s_, shiftcombo, true);
    fillPositionList(s_, positioncombo, true);
    Bblistview1.clear();
    Label4.clear();
}

const char* analyzelevels::markText(LevelMark mark) {
    switch (mark) {
    case LevelMark::Equal: return "Number scheduled equals staffing level";
    case LevelMark::Over: return "Over staffed";
    case LevelMark::Under: return "Under staffed";
    }
    return "";
}

bool analyzelevels::analyzebutton_Click() {
    Label4 = "Schedule analysis for " + common::formatDate(analyzeday, "DDDD mmm dd, yyyy", s_.locale);
    const auto shifts = shiftsPassing(s_, shiftcombo);
    const auto positions = positionsPassing(s_, positioncombo);
    if (shifts.empty()) {
        s_.ui().inform(
            "Analyze Staffing Levels examines the number of employees needed for each position and shift. There are "
            "no shifts.",
            MsgIcon::Exclamation, kTitle);
        return false;
    }
    if (positions.empty()) {
        s_.ui().inform(
            "Analyze Staffing Levels examines the number of employees needed for each position and shift. There are "
            "no positions entered.",
            MsgIcon::Exclamation, kTitle);
        return false;
    }
    Bblistview1.clear();
    s_.ui().setBusy(true);
    const auto levels = GetRecs(s_, "select * from staffing where sday=? and sname=?",
                                {analyzeday.weekdayNumber(), s_.currentSchedule});
    for (const auto& shift : shifts) {
        for (const auto& position : positions) {
            // **Unassigned** entries are nobody.
            const auto count = GetRecs(s_,
                                       "select count(position) as numsched from sched where sday=? and position=? and "
                                       "shift=? and sname=? and personid <> -1 group by position",
                                       {analyzeday, position, shift, s_.currentSchedule});
            AnalysisRow row;
            row.shift = shift;
            row.position = position;
            long needed = 0;
            for (std::size_t i = 0; i < levels.RecordCount(); ++i) {
                if (levels.field(i, "shift").text() == shift && levels.field(i, "position").text() == position) {
                    const auto n = levels.field(i, "numreq");
                    row.needed = store::chknull(n.value());
                    needed = n.isNull() ? 0 : static_cast<long>(n.toLong());
                }
            }
            long scheduled = 0;
            if (count.empty() || count["numsched"].isNull()) {
                row.scheduled = "0";
            } else {
                scheduled = static_cast<long>(count["numsched"].toLong());
                row.scheduled = std::to_string(scheduled);
            }
            row.picture = scheduled == needed  ? LevelMark::Equal
                          : scheduled > needed ? LevelMark::Over
                                               : LevelMark::Under;
            Bblistview1.push_back(std::move(row));
        }
    }
    s_.ui().setBusy(false);
    return true;
}

reports::ListGrid analyzelevels::listGrid() const {
    reports::ListGrid grid;
    grid.columns = {{"Shift", 2400, reports::Align::Left},
                    {"Position", 2400, reports::Align::Left},
                    {"Needed", 1200, reports::Align::Right},
                    {"Scheduled", 1200, reports::Align::Right},
                    {"Status", 3000, reports::Align::Left}};
    for (const auto& r : Bblistview1)
        grid.rows.push_back({r.shift, r.position, r.needed, r.scheduled, markText(r.picture)});
    return grid;
}

}  // namespace tallymere::staffing

#include "reference/desired_shifts.h"

#include "common/numbers.h"
#include "common/text.h"
#include "reference/window_support.h"
#include "store/access.h"

#include <algorithm>

namespace tallymere::reference {

using common::MsgIcon;
using store::GetRecs;

constexpr const char* kNeedPrimaryForShifts =
    "You must select a primary position for an employee before you can add desired shifts.";

bool DesiredShiftTab::Refresh(long personid) {
    return detail::trapped(s_, "Error loading desired shift grid. [Edit Staff]", [&] {
        desiredshiftgrid.clear();
        row = -1;
        auto rs = staging_ ? GetRecs(s_, "select * from desiredshifttemp order by sday")
                           : GetRecs(s_, "select * from desiredshift where personid=? order by sday", {personid});
        for (; !rs.eof(); rs.MoveNext())
            desiredshiftgrid.push_back({common::weekdayName(rs["sday"].toInt()), rs["shift"].text(),
                                        rs["position"].text(), static_cast<long>(rs["id"].toLong())});
        if (!desiredshiftgrid.empty()) row = 0;
        return rs.isOpen();
    });
}

bool DesiredShiftTab::adddesiredshiftbutton(const std::string& primpos) {
    if (common::trim(primpos).empty()) {
        s_.ui().inform(kNeedPrimaryForShifts, MsgIcon::Exclamation, "Add New Employee");
        return false;
    }
    return true;
}

bool DesiredShiftTab::deletedesiredshiftbutton() {
    if (row < 0 || row >= static_cast<int>(desiredshiftgrid.size())) return false;
    const long id = desiredshiftgrid[static_cast<std::size_t>(row)].id;
    return staging_ ? store::DeleteRecs(s_, "delete from desiredshifttemp where id = ?", {id})
                    : store::DeleteRecs(s_, "delete from desiredshift where id = ?", {id});
}

bool adddesiredshift::Load() {
    const auto fill = [&] {
        daycombo.clear();
        for (int d = 1; d <= 7; ++d) daycombo.add(common::weekdayName(d));
        shiftCombo.clear();
        auto shifts = GetRecs(s_, "select name from shift order by strttime,endtime,name");
        for (; !shifts.eof(); shifts.MoveNext()) shiftCombo.add(shifts["name"].text());
        PositionCombo.clear();
        const std::string primpos = common::trim(employee_.primpos);
        if (!primpos.empty()) PositionCombo.add(primpos);
        auto quals = staging_ ? GetRecs(s_, "select * from qualificationstemp")
                              : GetRecs(s_, "select * from qualifications where personid = ?", {employee_.personid});
        for (; !quals.eof(); quals.MoveNext()) {
            const std::string p = quals["position"].text();
            const bool listed = std::any_of(PositionCombo.items.begin(), PositionCombo.items.end(),
                                            [&](const std::string& i) { return common::equalsNoCase(i, p); });
            if (!p.empty() && !listed) PositionCombo.add(p);
        }
        if (!primpos.empty()) PositionCombo.ListIndex = 0;
        return shifts.isOpen() && quals.isOpen();
    };
    return staging_ ? detail::trapped(s_, "Error occurred while loading Add Desired Shift. [Add New Employee]", fill)
                    : fill();
}

void adddesiredshift::preferenceChange() {
    const auto n = common::parseNumberStrict(preference);
    if (n) preferenceslider = std::clamp(static_cast<int>(common::roundHalfEven(*n)), kPreferenceMin, kPreferenceMax);
}

void adddesiredshift::preferencesliderChange() {
    preferenceslider = std::clamp(preferenceslider, kPreferenceMin, kPreferenceMax);
    preference = std::to_string(preferenceslider);
}

bool adddesiredshift::OKbutton() {
    if (daycombo.ListIndex < 0) {
        s_.ui().inform("Please select a day.", MsgIcon::Exclamation);
        return false;
    }
    const std::string shift = shiftCombo.text();
    if (shift.empty()) {
        s_.ui().inform("Please select a shift.", MsgIcon::Exclamation);
        return false;
    }
    const std::string position = common::trim(PositionCombo.text());
    if (position.empty()) {
        s_.ui().inform("Please select a position.", MsgIcon::Exclamation);
        return false;
    }
    preferenceChange();
    const int sday = daycombo.ListIndex + 1;
    const long id = employee_.personid;
    return detail::trapped(s_, "Error occurred while adding to desired shift list.", [&] {
        auto rs =
            staging_
                ? GetRecs(s_, "select * from desiredshifttemp where sday=? and shift = ? order by sday", {sday, shift})
                : GetRecs(s_, "select * from desiredshift where personid=? and sday=? and shift = ? order by sday",
                          {id, sday, shift});
        if (!rs.isOpen()) return false;
        if (!rs.eof()) {
            if (!s_.ui().askYesNo("The desired shift for " + daycombo.text() + " " + shift +
                                  " already exists. Would you like to update it?"))
                return false;
            return staging_
                       ? store::UdateRecs(
                             s_, "update desiredshifttemp set position = ?,preference=? where sday = ? and shift =?",
                             {position, preferenceslider, sday, shift})
                       : store::UdateRecs(
                             s_, "update desiredshift set position  = ? where personid=? and sday = ? and shift =?",
                             {position, id, sday, shift});
        }
        // Only the staging row keeps the preference; a desired shift added to an existing employee
        // gets none, as it always has.
        return staging_
                   ? store::InsertRecs(s_,
                                       "Insert into desiredshifttemp (sday,shift,position,preference) values(?,?,?,?)",
                                       {sday, shift, position, preferenceslider})
                   : store::InsertRecs(s_, "Insert into desiredshift (personid,sday,shift,position) values(?,?,?,?)",
                                       {id, sday, shift, position});
    });
}

}  // namespace tallymere::reference

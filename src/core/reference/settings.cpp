#include "reference/settings.h"

#include "common/display_format.h"
#include "reference/window_support.h"
#include "store/access.h"

#include <cstdlib>

namespace tallymere::reference {

using common::MsgIcon;
using common::Session;
using detail::say;

namespace {

std::string timeText(const store::Field& f) {
    const auto t = f.toDateTime();
    return t ? common::formatDateTime(*t, "h:mm AM/PM") : std::string();
}

int firstRow(std::size_t rows) { return rows == 0 ? -1 : 0; }

}  // namespace

std::string shiftLengthText(common::DateTime start, common::DateTime end) {
    const auto minutes = common::minutesBetween(start, end);
    const auto rest = std::llabs(minutes % 60);
    return std::to_string(minutes / 60) + "h " + (rest < 10 ? "0" : "") + std::to_string(rest);
}

settings::settings(Session& s, int tab) : SSTab1(tab), s_(s) { Refresh(); }

void settings::Refresh() {
    shiftgrid.clear();
    for (auto rs = store::GetRecs(s_, "select * from shift order by strttime,endtime,name"); !rs.eof(); rs.MoveNext()) {
        const auto from = rs["strttime"].toDateTime();
        const auto to = rs["endtime"].toDateTime();
        shiftgrid.push_back({rs["name"].text(), timeText(rs["strttime"]), timeText(rs["endtime"]),
                             from && to ? shiftLengthText(*from, *to) : std::string(), rs["description"].text()});
    }
    positiongrid.clear();
    for (auto rs = store::GetRecs(s_, "select * from position order by title"); !rs.eof(); rs.MoveNext())
        positiongrid.push_back({rs["title"].text(), rs["baserate"].text(), rs["description"].text(),
                                static_cast<long>(rs["color"].toLong())});
    groupgrid.clear();
    for (auto rs = store::GetRecs(s_, "select * from section order by name"); !rs.eof(); rs.MoveNext())
        groupgrid.push_back({rs["name"].text(), rs["description"].text()});
    shiftgridRow = firstRow(shiftgrid.size());
    positiongridRow = firstRow(positiongrid.size());
    groupgridRow = firstRow(groupgrid.size());
}

bool settings::refused(int tab) {
    if (!s_.IsUserMode) return false;
    const char* text = nullptr;
    if (tab == ShiftsTab && s_.rights.noShift)
        text =
            "You do not have permissions to edit shifts. To edit shifts, restart Tallymere and enter the owner "
            "password.";
    else if (tab == PositionsTab && s_.rights.noPosition)
        text =
            "You do not have permissions to edit positions. To edit positions, restart Tallymere and enter the "
            "owner password.";
    else if (tab == SectionsTab && s_.rights.noSection)
        text =
            "You do not have permissions to edit sections. To edit section data, restart Tallymere and enter the "
            "owner password.";
    if (!text) return false;
    say(s_, text, MsgIcon::Information);
    return true;
}

template <class Row>
const Row* settings::selected(const std::vector<Row>& rows, int row) const {
    // No row chosen is none: acting on the first one would act on a row the user did not pick.
    return row >= 0 && static_cast<std::size_t>(row) < rows.size() ? &rows[static_cast<std::size_t>(row)] : nullptr;
}

bool settings::addShift() { return !refused(ShiftsTab); }
bool settings::addPosition() { return !refused(PositionsTab); }
bool settings::addSection() { return !refused(SectionsTab); }

std::optional<std::string> settings::editShift() {
    if (refused(ShiftsTab)) return std::nullopt;
    const auto* row = selected(shiftgrid, shiftgridRow);
    if (!row) {
        say(s_, "There are no shifts to be edited.");
        return std::nullopt;
    }
    return row->name;
}

std::optional<std::string> settings::editPosition() {
    if (refused(PositionsTab)) return std::nullopt;
    const auto* row = selected(positiongrid, positiongridRow);
    if (!row) {
        say(s_, "There are no positions to be edited.");
        return std::nullopt;
    }
    return row->title;
}

std::optional<std::string> settings::editSection() {
    if (refused(SectionsTab)) return std::nullopt;
    const auto* row = selected(groupgrid, groupgridRow);
    if (!row) {
        say(s_, "There are no sections to be edited.");
        return std::nullopt;
    }
    return row->name;
}

bool settings::deleteShift() {
    if (refused(ShiftsTab)) return false;
    const auto* row = selected(shiftgrid, shiftgridRow);
    if (!row) {
        say(s_, "There are no shifts to be deleted.");
        return false;
    }
    const std::string name = row->name;
    if (!s_.ui().askYesNo("Are you sure you want to delete the shift " + name + " ?")) return false;
    bool deleted = false;
    {
        // The shift and the rows that name it go together or not at all.
        store::Transaction tx(s_);
        for (const char* sql : {"delete from shift where name=?", "delete from staffing where shift =?",
                                "delete from desiredshift where shift =?"})
            if (!store::DeleteRecs(s_, sql, {name})) break;
        deleted = tx.commit();
    }
    Refresh();
    return deleted;
}

bool settings::deletePosition() {
    if (refused(PositionsTab)) return false;
    const auto* row = selected(positiongrid, positiongridRow);
    if (!row) {
        say(s_, "There are no positions to be deleted.");
        return false;
    }
    const std::string title = row->title;
    if (!s_.ui().askYesNo("Are you sure you want to delete the position " + title + " ?")) return false;
    bool deleted = false;
    {
        // Employees keep a primary position that is gone, as entries do.
        store::Transaction tx(s_);
        for (const char* sql :
             {"delete from position where title=?", "delete from staffing where position =?",
              "delete from desiredshift where position =?", "delete from qualifications where position =?"})
            if (!store::DeleteRecs(s_, sql, {title})) break;
        deleted = tx.commit();
    }
    Refresh();
    return deleted;
}

bool settings::deleteSection() {
    if (refused(SectionsTab)) return false;
    const auto* row = selected(groupgrid, groupgridRow);
    if (!row) {
        say(s_, "There are no sections to be deleted.");
        return false;
    }
    const std::string name = row->name;
    if (!s_.ui().askYesNo("Are you sure you want to delete the section '" + name + " ' ?")) return false;
    store::DeleteRecs(s_, "delete from section where name=?", {name});
    Refresh();
    return true;
}

bool settings::canPrint() {
    const bool empty = SSTab1 == ShiftsTab      ? shiftgrid.empty()
                       : SSTab1 == PositionsTab ? positiongrid.empty()
                                                : groupgrid.empty();
    if (empty) say(s_, "There is nothing to print.");
    return !empty;
}

}  // namespace tallymere::reference

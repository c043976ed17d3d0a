#include "schedule/daily_entry.h"

#include "common/report_name.h"
#include "common/text.h"
#include "schedule/bulk_change.h"
#include "schedule/undo.h"
#include "store/access.h"

#include <exception>
#include <stdexcept>

namespace tallymere::schedule {

using common::MsgAnswer;
using common::MsgButtons;
using common::MsgIcon;
using reference::TimeEnd;
using reference::TimeEntry;
using store::GetRecs;
using store::Params;
using store::Recordset;

namespace {

std::optional<EntryTimes> refuse(Session& s, const std::string& text) {
    s.ui().message(text, MsgButtons::Ok, MsgIcon::Exclamation, {});
    return std::nullopt;
}

// The fields of a stored time; a missing one shows as "00:00 AM".
TimeEntry fieldsOf(std::optional<DateTime> t) { return t ? TimeEntry::of(*t) : TimeEntry("0", "00", "AM"); }

// Only the clock time: the editor tests availability on times without a day.
DateTime timeOfDay(DateTime t) { return DateTime::at(Date(), t.hour(), t.minute(), t.second()); }

void fillCombo(Session& s, TextCombo& combo, const char* sql, const char* column, std::string text) {
    combo.items.clear();
    for (Recordset rs = GetRecs(s, sql); !rs.eof(); rs.MoveNext())
        if (std::string v = rs[column].text(); !v.empty()) combo.items.push_back(std::move(v));
    combo.text = std::move(text);
}

}  // namespace

std::optional<EntryTimes> readEntryTimes(Session& s, Date day, const TimeEntry& startIn, const TimeEntry& endIn) {
    const auto empty = [](const TimeEntry& t) {
        return common::trimView(t.TETxtHr).empty() || common::trimView(t.TeTxtMin).empty();
    };
    if (empty(startIn)) return refuse(s, "Please enter a valid start time.");
    if (empty(endIn)) return refuse(s, "Please enter a valid end time.");

    TimeEntry start = startIn;
    if (const auto fault = start.check(TimeEnd::Start, 0)) return refuse(s, *fault);
    // One digit stands for tens: "5" is :50.
    start.padMinuteTens();
    const auto from = start.on(day);
    // "6" to "9" would read as 60 to 90 minutes.
    if (!from) return refuse(s, "Minute value must be between 0 and 59.");

    TimeEntry end = endIn;
    if (const auto fault = end.check(TimeEnd::End, 0)) return refuse(s, *fault);
    end.padMinuteTens();
    const auto to = end.on(day);
    if (!to) return refuse(s, "The End Time minute value must be between 0 and 59.");

    return buildEntryTimes(day, from->hour(), from->minute(), to->hour(), to->minute());
}

// ---------------------------------------------------------------------------------------------
// dailyadd

bool dailyadd::Form_Load() {
    try {
        const Recordset rs = GetRecs(s_, "select * from sched where schedid = ?", {schedid_});
        if (rs.empty()) throw std::runtime_error("the schedule entry was not found");
        day_ = rs["sday"].toDate().value_or(s_.activeDate);
        loadedPersonid_ = static_cast<long>(rs["personid"].toLong());
        loadedLname_ = rs["lname"].text();
        loadedFname_ = rs["fname"].text();
        loadedStart_ = rs["strttime"].toDateTime();
        loadedEnd_ = rs["endtime"].toDateTime();
        times[1] = fieldsOf(loadedStart_);
        times[0] = fieldsOf(loadedEnd_);
        loadedTimes_ = times;
        note = rs["comment"].text();

        fillCombo(s_, shiftcombo, "select name from shift order by strttime,endtime,name", "name", rs["shift"].text());
        fillCombo(s_, positioncombo, "select title from position order by title", "title", rs["position"].text());
        fillCombo(s_, sectioncombo, "select name from section order by name", "name", rs["section"].text());

        filtercombo.clear();
        filtercombo.add("All");
        for (Recordset p = GetRecs(s_, "select title from position order by title"); !p.eof(); p.MoveNext())
            filtercombo.add(p["title"].text());
        filtercombo.ListIndex = 0;

        FillEmployeeList();
        for (std::size_t i = 0; i < EmplBBlist.size(); ++i)
            if (EmplBBlist[i].personid == loadedPersonid_) EmplBBlistIndex = static_cast<int>(i);
        return true;
    } catch (const common::ProgramEnd&) {
        throw;
    } catch (const std::exception&) {
        s_.ui().message("There was an error loading the Daily Edit form. Tallymere will terminate.", MsgButtons::Ok,
                        MsgIcon::Critical, "Error Loading Daily Edit Form");
        s_.endProgram();
    }
}

void dailyadd::FillEmployeeList() {
    const long selected = EmplBBlistIndex >= 0 && EmplBBlistIndex < static_cast<int>(EmplBBlist.size())
                              ? EmplBBlist[static_cast<std::size_t>(EmplBBlistIndex)].personid
                              : loadedPersonid_;
    EmplBBlist.clear();
    EmplBBlist.push_back({Session::kUnassignedName, Session::kUnassignedName, {}, kUnassignedId, 1});

    std::string sql = "SELECT * FROM person where active = true ";
    Params params;
    if (const std::string filter = filtercombo.text(); !filter.empty() && filter != "All") {
        sql += " and primpos =?";
        params.emplace_back(filter);
    }
    sql += " order by lname";
    for (Recordset rs = GetRecs(s_, sql, params); !rs.eof(); rs.MoveNext()) {
        EmployeeRow row;
        row.lname = rs["lname"].text();
        row.fname = rs["fname"].text();
        row.name = common::FormatReportName(row.fname, row.lname, s_.settings.gs_ReportNameFormat);
        row.personid = static_cast<long>(rs["personid"].toLong());
        EmplBBlist.push_back(std::move(row));
    }
    EmplBBlistIndex = -1;
    for (std::size_t i = 0; i < EmplBBlist.size(); ++i)
        if (EmplBBlist[i].personid == selected) EmplBBlistIndex = static_cast<int>(i);
    markEmployees();
}

void dailyadd::markEmployees() {
    const auto start = times[1].on(day_);
    const auto end = times[0].on(day_);
    for (std::size_t i = 1; i < EmplBBlist.size(); ++i) {
        EmployeeRow& row = EmplBBlist[i];
        // The last mark wins: scheduled over leave over not available.
        row.picture = 1;
        if (start && end && !CheckAvailability(s_, row.personid, day_, *start, *end)) row.picture = 4;
        if (!GetLeaveType(s_, row.personid, day_).empty()) row.picture = 3;
        if (!GetRecs(s_, "select lname from sched where personid=? and sday=? and sname=?",
                     {row.personid, day_, s_.currentSchedule})
                 .empty())
            row.picture = 2;
    }
}

void dailyadd::filtercombo_Click() { FillEmployeeList(); }

void dailyadd::shiftcombo_Click() {
    const std::string name = common::trim(shiftcombo.text);
    if (name.empty()) return;
    const Recordset rs = GetRecs(s_, "select * from shift where name=?", {name});
    if (rs.empty()) return;
    times[1] = fieldsOf(rs["strttime"].toDateTime());
    times[0] = fieldsOf(rs["endtime"].toDateTime());
    markEmployees();
}

bool dailyadd::timesChanged() const {
    for (std::size_t i = 0; i < 2; ++i) {
        // Leaving the hour field writes "9" as "09": the same time, not an edit, or a note-only edit
        // of an entry that sits on a conflict would be checked as new times. The minutes stay
        // compared as typed, since a lone digit there means tens.
        TimeEntry now = times[i];
        TimeEntry then = loadedTimes_[i];
        now.leave(reference::TimeField::Hour);
        then.leave(reference::TimeField::Hour);
        if (now.TETxtHr != then.TETxtHr || now.TeTxtMin != then.TeTxtMin || now.TEAmPm != then.TEAmPm) return true;
    }
    return false;
}

bool dailyadd::Command1_Click() {
    try {
        return save();
    } catch (const common::ProgramEnd&) {
        throw;
    } catch (const std::exception& e) {
        s_.ui().message(std::string("There was a problem updating the schedule record [Schedule Edit].  ") + e.what(),
                        MsgButtons::Ok, MsgIcon::Exclamation, {});
        return false;
    }
}

bool dailyadd::save() {
    common::Ui& ui = s_.ui();
    const auto override = [&ui](const std::string& text) {
        return ui.message(text, MsgButtons::YesNo, MsgIcon::None, {}) == MsgAnswer::Yes;
    };

    // Unchanged times are taken as stored, unchecked: an edit of the note or the position alone
    // must go through even where the entry sits on a conflict.
    const bool changed = timesChanged() || !loadedStart_ || !loadedEnd_;
    DateTime start;
    DateTime end;
    if (!changed) {
        start = *loadedStart_;
        end = *loadedEnd_;
    } else {
        for (TimeEntry& t : times)
            if (common::trim(t.TeTxtMin).empty()) t.TeTxtMin = "00";
        const auto built = readEntryTimes(s_, day_, times[1], times[0]);
        if (!built) return false;
        if (!ConfirmMidnightAndZeroLength(s_, built->start, built->end)) return false;
        start = built->start;
        end = built->end;
    }

    // Nobody picked (the entry's employee is not listed, being inactive or filtered out): the entry
    // keeps its employee.
    long personid = loadedPersonid_;
    std::string lname = loadedLname_;
    std::string fname = loadedFname_;
    if (EmplBBlistIndex >= 0 && EmplBBlistIndex < static_cast<int>(EmplBBlist.size())) {
        const EmployeeRow& row = EmplBBlist[static_cast<std::size_t>(EmplBBlistIndex)];
        personid = row.personid;
        lname = row.lname;
        fname = row.fname;
    }

    if (personid == kUnassignedId) {
        lname = Session::kUnassignedName;
        fname.clear();
    } else {
        const Recordset person = GetRecs(s_, "select * from person where personid = ?", {personid});
        if (person.empty()) {
            ui.message("No ID was found for " + fname + " " + lname + ". Unable to update the Schedule.",
                       MsgButtons::Ok, MsgIcon::Exclamation, {});
            return false;
        }
        lname = person["lname"].text();
        fname = person["fname"].text();
        const std::string who = fname + " " + lname;
        const auto available = [&] {
            return CheckAvailability(s_, personid, day_, timeOfDay(start), timeOfDay(end)) ||
                   override(who + " is not available for that time. Override?");
        };

        // The editor asks in its own order: conflict, availability, leave, then the alerts, and only
        // the plain overtime test.
        if (personid != loadedPersonid_) {
            DateTime workingStart = start;
            DateTime workingEnd = end;
            if (CheckEntryConflict(s_, personid, day_, workingStart, workingEnd, lname, fname)) return false;
            if (!available()) return false;
            if (!GetLeaveType(s_, personid, day_).empty() &&
                !override(who + " is scheduled for leave that day. Override?"))
                return false;
            long hours = 0;
            if (!AlertShiftOver12Hours(s_, start, end, hours)) return false;
            if (!AlertDoubleShift(s_, personid, day_, "Daily Schedule", hours)) return false;
            if (!AlertOvertime(s_, personid, day_, "Daily Schedule", hours)) return false;
        } else if (changed) {
            if (OverlapsOtherEntry(s_, schedid_, personid, day_, start, end)) {
                ui.message(who + " is already scheduled for that time.", MsgButtons::Ok, MsgIcon::Exclamation, {});
                return false;
            }
            if (!available()) return false;
        }
    }

    const bool saved = runAsOneChange(s_, [&] {
        SaveUndoSnapshot(s_, s_.activeDate, s_.activeDate, "Undo Edit Schedule", true, s_.currentSchedule);
        return store::UdateRecs(s_,
                                "update sched set personid=?,lname=?,fname=?,shift=?,position=?,section=?,strttime=?,"
                                "endtime=?,comment=? where schedid=?",
                                {personid, lname, fname, shiftcombo.text, positioncombo.text, sectioncombo.text, start,
                                 end, note, schedid_});
    });
    if (!saved) return false;
    s_.refreshWanted = true;
    return true;
}

// ---------------------------------------------------------------------------------------------
// commentfrm

bool commentfrm::Command1_Click() {
    comment_ = common::trim(Text1);
    return true;
}

}  // namespace tallymere::schedule

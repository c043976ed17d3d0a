// The quick add: one entry for the employee picked in the daily schedule's list, from the fields of
// the main window's quick bar. Its order of checks and some of its words differ from the entry
// editor's (daily_entry.cpp); both are kept as users know them.

#include "common/date_time.h"
#include "common/text.h"
#include "maintenance/access_control.h"
#include "reference/time_entry.h"
#include "schedule/daily_entry.h"
#include "schedule/daily_schedule.h"
#include "schedule/entry_rules.h"
#include "schedule/schedule_host.h"
#include "schedule/undo.h"
#include "store/access.h"

#include <exception>
#include <string>

namespace tallymere::schedule {

using common::MsgAnswer;
using common::MsgButtons;
using common::MsgIcon;
using store::GetRecs;
using store::Recordset;

bool dailyflexgrid::addfromlv_Click() {
    common::Ui& ui = s_.ui();
    const auto refuse = [&ui](const std::string& text) {
        ui.message(text, MsgButtons::Ok, MsgIcon::Exclamation, {});
        return false;
    };
    const auto override = [&ui](const std::string& text) {
        return ui.message(text, MsgButtons::YesNo, MsgIcon::Exclamation, {}) == MsgAnswer::Yes;
    };

    if (common::trim(s_.currentSchedule).empty()) return refuse("No schedule file is open.");
    if (maintenance::NoSchedulePermission(s_)) return false;

    try {
        // Empty minutes read as whole hours, in the quick bar itself.
        for (std::size_t i : {std::size_t{1}, std::size_t{0}})
            if (common::trim(main_.quickBar().TeTxtMin[i]).empty()) main_.quickBar().TeTxtMin[i] = "00";
        const reference::TimeEntry startFields{main_.quickBar().TETxtHr[1], main_.quickBar().TeTxtMin[1],
                                               main_.quickBar().TEAmPm[1]};
        const reference::TimeEntry endFields{main_.quickBar().TETxtHr[0], main_.quickBar().TeTxtMin[0],
                                             main_.quickBar().TEAmPm[0]};
        const Date day = s_.activeDate;

        const auto times = readEntryTimes(s_, day, startFields, endFields);
        if (!times) return false;
        const DateTime start = times->start;
        const DateTime end = times->end;

        long personid = selectedEmployee();
        std::string lname;
        std::string fname;
        std::string primpos;
        if (personid == kUnassignedId) {
            // No test applies to an unassigned entry. It goes in under the transient id so that the
            // read-back finds this row and not another unassigned entry at the same times.
            lname = Session::kUnassignedName;
            personid = kTransientUnassignedId;
        } else {
            const Recordset person = GetRecs(s_, "select * from person where personid = ?", {personid});
            if (person.empty())
                return refuse("No record was found for employee ID number " + std::to_string(personid) +
                              ", Unable to update the Schedule. Database is corrupt.");
            lname = person["lname"].text();
            fname = person["fname"].text();
            primpos = person["primpos"].text();

            DateTime workingStart = start;
            DateTime workingEnd = end;
            if (CheckEntryConflict(s_, personid, day, workingStart, workingEnd, lname, fname)) return false;

            long longShift = 0;
            if (!AlertShiftOver12Hours(s_, start, end, longShift)) return false;
            long today = 0;
            if (!AlertDoubleShift(s_, personid, day, "Double Shift Alert", today, MsgIcon::Question)) return false;
            // The overtime sum adds the figure the earlier alerts left besides the entry's own length,
            // and asks in slightly other words; users know it so.
            const long leftOver = s_.settings.gb_AlertDoubleShifts       ? today
                                  : s_.settings.gb_AlertShiftOver12Hours ? longShift
                                                                         : 0;
            const long entryHours = alertHours(static_cast<double>(common::minutesBetween(start, end)) / 60.0);
            long week = 0;
            if (!AlertOvertimeWithSum(s_, personid, day, "Overtime Alert", entryHours, leftOver, week)) return false;

            const std::string who = fname + " " + lname;
            if (!CheckAvailability(s_, personid, day, start, end) &&
                !override(who + " is not available for that time. Override?"))
                return false;
            if (!GetLeaveType(s_, personid, day).empty() &&
                !override(who + " is scheduled for leave that day. Override?"))
                return false;
        }

        const std::string position =
            s_.settings.dailyflexgridshowposition ? common::trim(main_.quickBar().positioncombo.text) : primpos;
        const std::string section = common::trim(main_.quickBar().sectioncombo.text);
        const std::string shift = main_.quickBar().shiftcombo.text;

        // The insert itself cannot be undone, and an older snapshot would no longer fit the day.
        ClearUndo(s_);
        // The insert and the turning of the transient id into -1 go in together or not at all: a row
        // left at -2 would be found by the next unassigned add's read-back.
        store::Transaction transaction(s_);
        if (!store::InsertRecs(s_,
                               "Insert into sched (personid,lname,fname,sday,strttime,endtime,position,shift,section,"
                               "sname) values (?,?,?,?,?,?,?,?,?,?)",
                               {personid, lname, fname, day, start, end, position, shift, section, s_.currentSchedule}))
            return false;  // the access layer has said why; nothing else was written

        Recordset added = GetRecs(s_,
                                  "select * from sched where personid=? and sday = ? and strttime=? and endtime=? and "
                                  "shift = ? and sname =?",
                                  {personid, day, start, end, shift, s_.currentSchedule});
        if (added.empty()) {
            // Left without its commit: the row that cannot be found again does not stay either.
            ui.message("A system error occurred, schedule record not found. [addfromlv]", MsgButtons::Ok, MsgIcon::None,
                       {});
            return false;
        }
        added.MoveLast();  // the newest, should an older twin exist
        if (personid == kTransientUnassignedId)
            store::UdateRecs(s_, "update sched set personid=? where personid =?",
                             {kUnassignedId, kTransientUnassignedId});
        if (!transaction.commit()) return false;
        s_.refreshWanted = true;

        PlayAppSound(s_, "tm_shck.wav");

        // The new row goes at the end without a rebuild, so the user sees it land where it was dropped.
        UpdateEmployeePanel(selectedEmployee());
        grid1.rows.push_back(makeRow(added, nullptr));
        if (grid1.Row < 1) {
            grid1.Row = grid1.RowSel = grid1.Rows() - 1;
            grid1.HighLight = true;
        }
        MarkEmployee(personid, day, start, end, "add");
        ShowDayFigures();

        setEntryCommands(true, grid1.severalSelected());
        s_.refreshWanted = true;
        return true;
    } catch (const common::ProgramEnd&) {
        throw;
    } catch (const std::exception& e) {
        ui.message(std::string("Unable to add to add schedule record [addfromlv]. ") + e.what(), MsgButtons::Ok,
                   MsgIcon::Exclamation, {});
        return false;
    }
}

}  // namespace tallymere::schedule

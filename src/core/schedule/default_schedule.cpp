#include "schedule/default_schedule.h"

#include "common/display_format.h"
#include "common/numbers.h"
#include "common/text.h"
#include "maintenance/access_control.h"
#include "schedule/bulk_change.h"
#include "schedule/undo.h"
#include "store/access.h"
#include "store/options.h"

#include <cmath>
#include <exception>

namespace tallymere::schedule {

using common::MsgButtons;
using common::MsgIcon;
using store::GetRecs;
using store::Recordset;

namespace {

constexpr const char* kMessageDateFormat = "dddd mmm dd, yyyy";

std::string messageDate(Session& s, Date d) { return common::formatDate(d, kMessageDateFormat, s.locale); }

bool lengthUsable(Session& s, int length) {
    if (length >= 1) return true;
    s.ui().inform("The default schedule must be at least one day long. Set its length in Preferences.",
                  MsgIcon::Exclamation);
    return false;
}

// The save itself, with the length it is to have; the caller keeps the length once it is saved.
bool saveDefault(Session& s, Date day, const std::string& scheduleName, int length) {
    if (!requireScheduleFile(s, scheduleName)) return false;
    if (maintenance::NoSchedulePermission(s)) return false;
    if (!lengthUsable(s, length)) return false;
    const DefaultRange range = defaultRange(s, day, length);
    if (s.ui().message(s.settings.firstdayofweek +
                           " is designated as the first day of the workweek and the default "
                           "schedule is " +
                           std::to_string(length) +
                           " days long. The default schedule will use the data "
                           "from " +
                           messageDate(s, range.first) + " to " + messageDate(s, range.last) + ". Continue?",
                       MsgButtons::YesNo, MsgIcon::Question, "Save as default schedule") != common::MsgAnswer::Yes)
        return false;

    s.ui().setBusy(true);
    bool saved = false;
    try {
        store::Transaction transaction(s);
        if (transaction.failed()) {
            s.ui().setBusy(false);
            return false;
        }
        bool written = store::DeleteRecs(s, "delete from scheddefault");
        for (int daynum = 1; written && daynum <= length; ++daynum) {
            const Date date = range.first.addDays(daynum - 1);
            Recordset rs = GetRecs(s, "select * from sched where sday = ? and sname=?", {date, scheduleName});
            for (; written && !rs.eof(); rs.MoveNext()) {
                const EntryRow row = entryRow(rs);
                // Only the clock times are kept: the pattern is laid on other days.
                const auto time = [](const std::optional<DateTime>& t) {
                    return t ? store::Value(clockTimeOn(kTimeBaseDay, *t)) : store::Value();
                };
                written = store::InsertRecs(
                    s,
                    "Insert into scheddefault (personid,lname,fname,sdayname,strttime,endtime,position,shift,section,"
                    "comment,daynum) values (?,?,?,?,?,?,?,?,?,?,?)",
                    {row.personid, row.lname, row.fname, common::GetDayName(date), time(row.start), time(row.end),
                     row.position, row.shift, row.section, row.comment, daynum});
            }
        }
        // A statement that failed makes the commit roll back and say that nothing was saved.
        saved = transaction.commit() && written;
    } catch (const common::ProgramEnd&) {
        throw;
    } catch (const std::exception& e) {
        s.ui().setBusy(false);
        s.ui().inform(std::string("Error occurred creating default weekly schedule, ") + e.what(), MsgIcon::Critical);
        return false;
    }
    s.ui().setBusy(false);
    return saved;
}

}  // namespace

DefaultRange defaultRange(Session& s, Date day, int length) {
    const Date first = common::weekStart(day, s.settings.firstdayofweek);
    return {first, first.addDays(length - 1)};
}

bool SaveDefaultSchedule(Session& s, Date day, const std::string& scheduleName) {
    return saveDefault(s, day, scheduleName, s.settings.gi_defaultschedlength);
}

bool GetDefaultSchedule(Session& s, Date day, const std::string& scheduleName) {
    if (!requireScheduleFile(s, scheduleName)) return false;
    if (maintenance::NoSchedulePermission(s)) return false;
    const Recordset days = GetRecs(s, "select distinct daynum from scheddefault");
    if (!days.isOpen()) return false;
    if (days.empty()) {
        s.ui().inform("The current default weekly schedule is blank.");
        return false;
    }
    const int length = s.settings.gi_defaultschedlength;
    if (!lengthUsable(s, length)) return false;
    const DefaultRange range = defaultRange(s, day, length);
    if (s.ui().message("The current default schedule is " + std::to_string(length) +
                           " days long. Any existing schedule entries from " + messageDate(s, range.first) + " to " +
                           messageDate(s, range.last) + " will be replaced. Continue?",
                       MsgButtons::YesNo, MsgIcon::Question, "Get default schedule") != common::MsgAnswer::Yes)
        return false;

    s.ui().setBusy(true);
    const bool laid = runAsOneChange(s, [&] {
        SaveUndoSnapshot(s, range.first, range.last, "Undo Get Default Schedule", false, scheduleName);
        for (int daynum = 1; daynum <= length; ++daynum) {
            const Date date = range.first.addDays(daynum - 1);
            // The snapshot has moved the day's rows already; the delete stays as a safeguard.
            if (!store::DeleteRecs(s, "delete from sched where sday=? and sname=?", {date, scheduleName})) return false;
            for (Recordset rs = GetRecs(s, "select * from scheddefault where daynum=?", {daynum}); !rs.eof();
                 rs.MoveNext()) {
                EntryRow row = entryRow(rs);
                if (!row.start || !row.end) continue;
                row.start = clockTimeOn(date, *row.start);
                row.end = clockTimeOn(date, *row.end);
                if (*row.end < *row.start) row.end = row.end->addDays(1);
                if (!insertEntry(s, row, date, scheduleName)) return false;
            }
        }
        return true;
    });
    s.ui().setBusy(false);
    if (laid) s.refreshWanted = true;
    return laid;
}

void mnusaveasdefault(Session& s) {
    if (s.currentSchedule.empty()) {
        s.ui().inform("No schedule file is open.");
        return;
    }
    if (s.settings.gi_defaultschedlength < 1) {
        s.ui().showModal(DefaultSave::kWindowName);
        return;
    }
    SaveDefaultSchedule(s, s.activeDate, s.currentSchedule);
}

bool mnugetdefaultsched(Session& s) { return GetDefaultSchedule(s, s.activeDate, s.currentSchedule); }

// ---------------------------------------------------------------- DefaultSave

DefaultSave::DefaultSave(Session& s) : s_(s) {
    const int length = s_.settings.gi_defaultschedlength;
    if (length >= 1 && length % 7 == 0) {
        dayoption = false;
        TxtWeeks = std::to_string(length / 7);
    }
    if (length >= 1) TxtDays = std::to_string(length);
    UpdateLabels();
}

int DefaultSave::length() const {
    const auto n = common::parseNumberStrict(dayoption ? TxtDays : TxtWeeks);
    if (!n || *n < 1 || *n != std::floor(*n) || *n > 3650) return 0;
    return static_cast<int>(*n) * (dayoption ? 1 : 7);
}

void DefaultSave::UpdateLabels() {
    const Date first = common::weekStart(s_.activeDate, s_.settings.firstdayofweek);
    Startdaylabel = "The default schedule will be saved starting on " + messageDate(s_, first);
    const int n = length();
    Endlabel = n > 0 ? "The default schedule will be saved ending on " + messageDate(s_, first.addDays(n - 1)) : "";
}

void DefaultSave::dayoption_Click() {
    dayoption = true;
    UpdateLabels();
}

void DefaultSave::weekoption_Click() {
    dayoption = false;
    UpdateLabels();
}

bool DefaultSave::Save_Click() {
    const int n = length();
    if (n < 1) {
        s_.ui().inform(dayoption ? "Please enter the number of days as a whole number of at least 1."
                                 : "Please enter the number of weeks as a whole number of at least 1.",
                       MsgIcon::Exclamation, kCaption);
        return false;
    }
    if (!saveDefault(s_, s_.activeDate, s_.currentSchedule, n)) return false;
    // The length is kept at once, not only at exit.
    s_.settings.gi_defaultschedlength = n;
    store::SaveOption(s_, "gi_defaultschedlength", std::to_string(n));
    saved_ = true;
    return true;
}

}  // namespace tallymere::schedule

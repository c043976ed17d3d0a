#include "reference/edit_staff.h"

#include "common/numbers.h"
#include "common/text.h"
#include "reference/window_support.h"
#include "store/access.h"

namespace tallymere::reference {

using common::MsgIcon;
using store::GetRecs;
using store::UdateRecs;

namespace {
constexpr const char* kSaveFailure = "Unable to update the employee information [Edit Statff].";
}

EmployeeRef EditStaff::employee() const {
    return {personid_, loadedLname_, loadedFname_, common::trim(PositionCombo.text())};
}

void EditStaff::fillList() {
    List1.clear();
    for (auto rs = GetRecs(s_, "select * from person order by lname"); !rs.eof(); rs.MoveNext())
        List1.add(rs["lname"].text() + ", " + rs["fname"].text(), static_cast<long>(rs["personid"].toLong()));
    List1.selectData(personid_);
}

bool EditStaff::Load() {
    return detail::trapped(s_, "Error occurred loading Edit Staff form.", [&] {
        personid_ = s_.currentEmployee;
        auto rs = GetRecs(s_, "select * from person where personid=?", {personid_});
        if (!rs.isOpen()) return false;
        if (rs.eof()) {
            s_.ui().inform(
                "The system id for the employee was not found in the person table. The database could be corrupt. You "
                "should restore the database from a backup.",
                MsgIcon::Critical);
            return false;
        }
        fillPositions();
        fillList();
        fname = loadedFname_ = rs["fname"].text();
        LName = loadedLname_ = rs["lname"].text();
        address = rs["addr"].text();
        Addr2 = rs["addr2"].text();
        city = rs["city"].text();
        state = rs["state"].text();
        zip = rs["zip"].text();
        loadedPrimpos_ = rs["primpos"].text();
        // A position that is no longer listed is still the stored one; it stays shown.
        if (!PositionCombo.select(loadedPrimpos_) && !loadedPrimpos_.empty()) {
            PositionCombo.add(loadedPrimpos_);
            PositionCombo.ListIndex = static_cast<int>(PositionCombo.size()) - 1;
        }
        phone = rs["phone"].text();
        pager = rs["pager"].text();
        cellphone = rs["cellphone"].text();
        note = rs["lnote"].text();
        email = rs["email"].text();
        doh = rs["doh"].text();
        dob = rs["dob"].text();
        empenddate = rs["enddate"].text();
        hourlyrate = rs["hourlyrate"].text();
        hoursperweek = rs["hoursperweek"].text();
        shiftsperweek = rs["shiftsperweek"].text();
        primaryskill = rs["skilllevel"].text();
        inactivecheck = !rs["active"].toBool();
        empid = rs["empid"].text();
        ssn = rs["ssn"].text();
        license = rs["license"].text();
        picfile = rs["picfile"].text();
        Caption = "Edit Employee - " + displayName(fname, LName);
        applyPayrollRight();
        availabilityTab.Load(personid_);
        RefreshTabs();
        clearDirty();
        return true;
    });
}

bool EditStaff::checkNames(bool& renamed) {
    const std::string first = common::trim(fname);
    const std::string last = common::trim(LName);
    if (first.empty() && last.empty()) {
        s_.ui().inform("You need to enter a first name or a last name.", MsgIcon::Exclamation);
        return false;
    }
    // A change of case alone is no rename: nothing is checked and nothing is written.
    if (common::toUpper(first) == common::toUpper(common::trim(loadedFname_)) &&
        common::toUpper(last) == common::toUpper(common::trim(loadedLname_)))
        return true;
    auto rs = GetRecs(s_, "select * from person where fname=? and lname=?", {first, last});
    if (!rs.isOpen()) return false;
    if (!rs.eof()) {
        s_.ui().inform("A person with the name '" + first + " " + last + "' already exists.", MsgIcon::Exclamation);
        return false;
    }
    if (!s_.ui().askYesNo("You have changed the name from " + loadedFname_ + " " + loadedLname_ + " to " + first + " " +
                          last + " is this what you want to do?"))
        return false;
    renamed = true;
    return true;
}

bool EditStaff::saveSteps() {
    const long id = personid_;
    // Every question and check comes before the first write: the user is never asked while the file
    // is held for writing, and a refusal leaves nothing half saved.
    bool renamed = false;
    if (namesDirty && !checkNames(renamed)) return false;
    if (datesDirty && !datesValid()) return false;
    const std::string first = renamed ? common::trim(fname) : loadedFname_;
    const std::string last = renamed ? common::trim(LName) : loadedLname_;
    const auto [birth, hire, end] = storedDates();

    // One save is one transaction: the employee's rows change together or not at all.
    store::Transaction tx(s_);
    const auto write = [&] {
        // Entries of other schedule files keep the old name: only the open file follows a rename.
        if (renamed &&
            (!UdateRecs(s_, "update person set fname=?,lname=? where personid=?", {first, last, id}) ||
             !UdateRecs(s_, "update sched set lname=?,fname=? where personid = ? and sname=?",
                        {last, first, id, s_.currentSchedule}) ||
             !UdateRecs(s_, "update employeeleave set fullname=? where personid=?", {leaveFullName(last, first), id}) ||
             !UdateRecs(s_, "update availability set lname=?,fname=? where personid = ?", {last, first, id}) ||
             !UdateRecs(s_, "update qualifications set lname=?,fname=? where personid = ?", {last, first, id})))
            return false;
        if (datesDirty &&
            !UdateRecs(s_, "update person set dob=?,doh=?,enddate=? where personid = ?", {birth, hire, end, id}))
            return false;
        if (addressDirty &&
            !UdateRecs(
                s_,
                "update person set addr=?,addr2=?,city=?,state=?,zip=?,primpos=?,phone=?,pager=?,cellphone=?,lnote=?,"
                "email=? where personid=?",
                {address, Addr2, city, state, zip, PositionCombo.text(), phone, pager, cellphone, note, email, id}))
            return false;
        // The pay group is written only with a rate: without one, the hours and shifts stay as stored too.
        if (payDirty && !common::trim(hourlyrate).empty() &&
            !UdateRecs(
                s_, "update person set hourlyrate=?,hoursperweek=?,shiftsperweek=?,skilllevel=? where personid = ?",
                {hourlyrate, hoursperweek, shiftsperweek, common::roundHalfEven(common::toNumber(primaryskill)), id}))
            return false;
        if (idsDirty && !UdateRecs(s_, "update person set empid=?,ssn=?,license=?,active=? where personid = ?",
                                   {empid, ssn, license, !inactivecheck, id}))
            return false;
        // Every save writes the seven availability rows, so that they exist after the first one.
        return availabilityTab.Save(id, last, first);
    };
    // A failed read has been told and ends the save without a further word.
    if (!write() && !tx.failed()) return false;
    if (!tx.commit()) return false;

    if (datesDirty) {
        dob = birth;
        doh = hire;
        empenddate = end;
    }
    if (renamed) {
        loadedFname_ = first;
        loadedLname_ = last;
        fillList();
        Caption = "Edit Employee - " + displayName(loadedFname_, loadedLname_);
    }
    clearDirty();
    return true;
}

bool EditStaff::Save() {
    if (s_.IsUserMode && s_.rights.noEmployee) {
        s_.ui().inform(
            "You do not have permission to change employee records. To make the changes, restart Tallymere and enter "
            "the "
            "owner password.",
            MsgIcon::Exclamation);
        return false;
    }
    return detail::trapped(s_, kSaveFailure, [&] { return saveSteps(); });
}

bool EditStaff::QueryUnload() {
    if (s_.ExitNow || !dirty()) return true;
    if (!s_.ui().askYesNo("Would you like to save the changes for " + displayName(loadedFname_, loadedLname_) + "?"))
        return true;
    return Save();
}

bool EditStaff::List1Click() {
    const long chosen = List1.data();
    if (chosen == 0 || chosen == personid_) return false;
    if (dirty() &&
        s_.ui().askYesNo("Would you like to save the changes for " + displayName(loadedFname_, loadedLname_) + "?") &&
        !Save()) {
        List1.selectData(personid_);
        return false;
    }
    s_.currentEmployee = chosen;
    return Load();
}

bool EditStaff::storePicture(const std::string& path) {
    return UdateRecs(s_, " update person set picfile=? where personid=?", {path, personid_});
}

}  // namespace tallymere::reference

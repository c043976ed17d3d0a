#include "reference/edit_staff_new.h"

#include "common/numbers.h"
#include "common/text.h"
#include "reference/window_support.h"
#include "store/access.h"

namespace tallymere::reference {

using common::MsgIcon;
using store::GetRecs;
using store::InsertRecs;
using store::UdateRecs;

bool EditStaffnew::Load() {
    Caption = "Add New Employee";
    {
        // The work tables are emptied together: none keeps rows of an earlier, abandoned employee.
        store::Transaction tx(s_);
        for (const char* table : {"availabilitytemp", "persontemp", "desiredshifttemp", "employeeleavetemp",
                                  "qualificationstemp", "staffingtemp"})
            if (!store::DeleteRecs(s_, std::string("delete from ") + table)) break;
        if (!tx.commit()) return false;
    }
    fillPositions();
    applyPayrollRight();
    RefreshTabs();
    clearDirty();
    return true;
}

bool EditStaffnew::dirty() const {
    if (saved_) return false;
    if (anyFieldDirty() || availabilityTab.changed() || !common::trim(picfile).empty()) return true;
    for (const char* table : {"qualificationstemp", "desiredshifttemp", "employeeleavetemp"})
        if (!GetRecs(s_, std::string("select * from ") + table).empty()) return true;
    return false;
}

bool EditStaffnew::copyWorkTables(long id, const std::string& last, const std::string& first) {
    // The copies carry the employee's final name, whatever was typed when a row was staged.
    for (auto rs = GetRecs(s_, "select * from qualificationstemp"); !rs.eof(); rs.MoveNext())
        if (!InsertRecs(
                s_, "Insert into qualifications (personid,lname,fname,position,hourlyrate,slevel) values(?,?,?,?,?,?)",
                {id, last, first, rs["position"].text(), rs["hourlyrate"].text(), rs["slevel"].toLong()}))
            return false;
    // A new employee's desired shifts keep the preference and leave the position empty: the
    // scheduler then falls back on the primary position. Meant so.
    for (auto rs = GetRecs(s_, "select * from desiredshifttemp"); !rs.eof(); rs.MoveNext())
        if (!InsertRecs(s_, "Insert into desiredshift (personid,sday,shift,preference) values(?,?,?,?)",
                        {id, rs["sday"].toLong(), rs["shift"].text(), rs["preference"].toLong()}))
            return false;
    const std::string fullname = leaveFullName(last, first);
    for (auto rs = GetRecs(s_, "select * from employeeleavetemp"); !rs.eof(); rs.MoveNext()) {
        const auto day = rs["sday"].toDate();
        if (day && !InsertRecs(s_, "insert into employeeleave (personid,fullname,typeofleave,sday) values(?,?,?,?)",
                               {id, fullname, rs["typeofleave"].text(), *day}))
            return false;
    }
    return true;
}

bool EditStaffnew::saveSteps() {
    if (!datesValid()) return false;
    const std::string first = common::trim(fname);
    const std::string last = common::trim(LName);
    if (first.empty()) {
        s_.ui().inform("No first name was entered", MsgIcon::Exclamation);
        return false;
    }
    if (last.empty()) {
        s_.ui().inform("No last name was entered", MsgIcon::Exclamation);
        return false;
    }
    constexpr const char* kFind = "select * from person where fname=? and lname=?";
    auto rs = GetRecs(s_, kFind, {first, last});
    if (!rs.isOpen()) return false;
    if (!rs.eof()) {
        s_.ui().inform(
            "An employee with the name '" + first + " " + last + "' already exists. The name must be unique.",
            MsgIcon::Exclamation);
        return false;
    }
    const std::string position = PositionCombo.text();
    // The employee is made whole or not at all: the person row, its fields, the copies of the work
    // tables and the availability are one transaction.
    store::Transaction tx(s_);
    const long id = writeEmployee(first, last, position);
    // A failed read has been told and ends the save without a further word.
    if (id == 0 && !tx.failed()) return false;
    if (!tx.commit()) return false;
    newPersonid_ = id;
    clearDirty();
    return true;
}

long EditStaffnew::writeEmployee(const std::string& first, const std::string& last, const std::string& position) {
    constexpr const char* kFind = "select * from person where fname=? and lname=?";
    if (!InsertRecs(s_, "Insert into person (lname,fname,primpos,active) values(?,?,?,?)",
                    {last, first, position, true}))
        return 0;
    auto rs = GetRecs(s_, kFind, {first, last});
    if (rs.eof()) {
        if (rs.isOpen()) s_.ui().inform("Unable to add new employee. ", MsgIcon::Exclamation);
        return 0;
    }
    rs.MoveLast();
    const long id = static_cast<long>(rs["personid"].toLong());

    if (!UdateRecs(s_,
                   "update person set fname=?,lname=?,addr=?,addr2=?,city=?,state=?,zip=?,primpos=?,phone=?,pager=?,"
                   "cellphone=?,lnote=? where personid=?",
                   {first, last, address, Addr2, city, state, zip, position, phone, pager, cellphone, note, id}))
        return 0;
    struct Optional {
        const std::string* field;
        const char* sql;
    };
    const Optional optionals[] = {
        {&hourlyrate, "update person set hourlyrate=? where personid=?"},
        {&hoursperweek, "update person set hoursperweek=? where personid=?"},
        {&shiftsperweek, "update person set shiftsperweek=? where personid=?"},
        {&primaryskill, "update person set skilllevel=? where personid=?"},
        {&email, "update person set email=? where personid=?"},
    };
    for (const Optional& o : optionals) {
        if (common::trim(*o.field).empty()) continue;
        const store::Value value = o.field == &primaryskill
                                       ? store::Value(common::roundHalfEven(common::toNumber(primaryskill)))
                                       : store::Value(*o.field);
        if (!UdateRecs(s_, o.sql, {value, id})) return 0;
    }
    if (!UdateRecs(s_, "update person set empid=?,ssn=?,license=?,active=? where personid = ?",
                   {empid, ssn, license, !inactivecheck, id}))
        return 0;
    const auto [birth, hire, end] = storedDates();
    // Limited to the new employee: without the condition every employee's dates would be overwritten.
    if (!UdateRecs(s_, "update person set dob=?,doh=?,enddate=? where personid = ?", {birth, hire, end, id})) return 0;

    if (!copyWorkTables(id, last, first)) return 0;
    if (!availabilityTab.Save(id, last, first)) return 0;
    if (!UdateRecs(s_, " update person set picfile=? where personid=?", {picfile, id})) return 0;
    return id;
}

bool EditStaffnew::Save() {
    // Saved once: a second press must not create the employee again.
    if (saved_) return true;
    saved_ = detail::trapped(s_, "Unable to update Add New Employee information [EditStaffNew]. ",
                             [&] { return saveSteps(); });
    return saved_;
}

bool EditStaffnew::QueryUnload() {
    if (s_.ExitNow || !dirty()) return true;
    if (!s_.ui().askYesNo("Would you like create the employee " + displayName(fname, LName) + "?")) return true;
    return Save();
}

}  // namespace tallymere::reference

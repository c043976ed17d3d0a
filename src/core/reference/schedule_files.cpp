#include "reference/schedule_files.h"

#include "common/display_format.h"
#include "common/text.h"
#include "reference/window_support.h"
#include "store/undo_snapshot.h"
#include "store/access.h"

namespace tallymere::reference {

using common::MsgButtons;
using common::MsgIcon;
using common::Session;
using detail::say;
using store::Value;

namespace {

constexpr const char* kListDateFormat = "mmm dd, yyyy";

bool exists(Session& s, const std::string& name) {
    return !store::GetRecs(s, "select * from schedname where schedname=?", {name}).empty();
}

bool isCurrent(const Session& s, const std::string& name) { return common::equalsNoCase(s.currentSchedule, name); }

Value dateOf(const store::Field& f) {
    const auto d = f.toDate();
    return d ? Value(*d) : Value();
}

Value dateTimeOf(const store::Field& f) {
    const auto t = f.toDateTime();
    return t ? Value(*t) : Value();
}

}  // namespace

// ---------------------------------------------------------------- the list

void ScheduleFileList::fillList() {
    List1.clear();
    ListIndex = -1;
    for (auto rs = store::GetRecs(s_, "select * from schedname order by schedname"); !rs.eof(); rs.MoveNext()) {
        const std::string name = rs["schedname"].text();
        if (name.empty()) continue;
        std::string text = name;
        if (!rs["comment"].isNull()) text += "\t\t" + rs["comment"].text();
        List1.push_back({std::move(text), static_cast<long>(rs["id"].toLong())});
    }
}

void ScheduleFileList::clearFigures() {
    firstdate.clear();
    lastdate.clear();
    Label4.clear();
    selectedName_.clear();
    selectedEntries_ = 0;
}

void ScheduleFileList::select(int index) {
    ListIndex = index;
    clearFigures();
    if (!hasSelection()) return;
    const auto row = store::GetRecs(s_, "select * from schedname where id=?", {List1[ListIndex].id});
    if (row.empty()) return;
    selectedName_ = row["schedname"].text();
    const auto rs = store::GetRecs(s_, "SELECT * from sched where sname=? order by sday", {selectedName_});
    selectedEntries_ = rs.RecordCount();
    if (rs.empty()) {
        Label4 = "'" + selectedName_ + "' has no entries.";
        return;
    }
    if (const auto d = rs.field(0, "sday").toDate()) firstdate = common::formatDate(*d, kListDateFormat, s_.locale);
    if (const auto d = rs.field(rs.RecordCount() - 1, "sday").toDate())
        lastdate = common::formatDate(*d, kListDateFormat, s_.locale);
    Label4 = "'" + selectedName_ + "' has " + std::to_string(selectedEntries_) + " entries.";
}

// ---------------------------------------------------------------- Openfrm

Openfrm::Openfrm(Session& s) : ScheduleFileList(s) {
    store::ClearUndo(s_);
    fillList();
}

void Openfrm::List1_Click(int index) {
    store::ClearUndo(s_);
    select(index);
}

bool Openfrm::okbutton_Click() {
    if (!hasSelection()) {
        say(s_, "No Schedule was selected to be opened.");
        return false;
    }
    store::ClearUndo(s_);
    const auto rs = store::GetRecs(s_, "select schedname from schedname where id=?", {List1[ListIndex].id});
    if (!rs.empty()) {
        s_.currentSchedule = rs["schedname"].text();
        s_.refreshWanted = true;
        scheduleChanged = true;
    }
    return true;
}

std::optional<long> Openfrm::Command1_Click() {
    if (!hasSelection()) {
        say(s_, "No Schedule was selected.");
        return std::nullopt;
    }
    return List1[ListIndex].id;
}

void Openfrm::deletebutton_Click() {
    if (!hasSelection()) {
        say(s_, "There is no Schedule selected.");
        return;
    }
    select(ListIndex);  // the count as it stands now
    const std::string name = selectedName_;
    if (name.empty()) return;  // gone meanwhile: an empty name would take the unnamed entries
    const std::string question = selectedEntries_ == 0 ? "Delete the Schedule " + name + "?"
                                                       : "Delete the Schedule " + name + " containing " +
                                                             std::to_string(selectedEntries_) + " schedule entries?";
    if (!s_.ui().askYesNo(question)) return;
    // Day notes stay behind here; the delete window removes them.
    {
        store::Transaction tx(s_);
        if (store::DeleteRecs(s_, "delete from sched where sname=?", {name}))
            store::DeleteRecs(s_, "delete from schedname where schedname=?", {name});
        if (!tx.commit()) return;
    }
    say(s_, "The " + name + " Schedule was deleted.", MsgIcon::Information);
    if (isCurrent(s_, name)) {
        s_.currentSchedule.clear();
        scheduleChanged = true;
    }
    clearFigures();
    fillList();
}

// ---------------------------------------------------------------- opennew

opennew::opennew(Session& s) : Caption("Create New Schedule File"), s_(s) { store::ClearUndo(s_); }

opennew::opennew(Session& s, long id) : Caption("Edit Schedule Name"), s_(s), id_(id) {
    const auto rs = store::GetRecs(s_, "select * from schedname where id=?", {id});
    if (rs.empty()) return;
    schedname = oldName_ = rs["schedname"].text();
    description = rs["comment"].text();
}

bool opennew::Command1_Click() {
    if (common::trimView(schedname).empty()) {
        say(s_, "No name was entered.");
        return false;
    }
    return renameMode() ? rename() : create();
}

bool opennew::create() {
    const std::string name = common::trim(schedname);
    if (exists(s_, name)) {
        say(s_, "A Schedule with the name " + name + " already exists.");
        return false;
    }
    if (!store::InsertRecs(s_, "insert into schedname (schedname,comment) values(?,?)", {name, description}))
        return false;
    s_.currentSchedule = name;
    s_.refreshWanted = true;
    scheduleChanged = true;
    return true;
}

bool opennew::rename() {
    const std::string name = common::trim(schedname);
    if (name == oldName_) return store::UdateRecs(s_, "update schedname set comment=? where id=?", {description, *id_});
    // Names compare as the database compares them, without regard to case: a change of case alone
    // finds the file itself and is refused like any other taken name.
    if (exists(s_, name)) {
        say(s_, "A Schedule with the name " + name + " already exists.");
        return false;
    }
    // Day notes and staffing levels stay under the old name on purpose: only the file and its entries
    // move, together or not at all.
    {
        store::Transaction tx(s_);
        if (store::UdateRecs(s_, "update schedname set schedname=?,comment=? where id=?", {name, description, *id_}))
            store::UdateRecs(s_, "update sched set sname =? where sname=?", {name, oldName_});
        if (!tx.commit()) return false;
    }
    s_.refreshWanted = true;
    if (isCurrent(s_, oldName_)) {
        s_.currentSchedule = name;
        scheduleChanged = true;
    }
    return true;
}

// ---------------------------------------------------------------- SaveAs

SaveAs::SaveAs(Session& s) : s_(s) { store::ClearUndo(s_); }

bool SaveAs::OKButton_Click() {
    const std::string name = common::trim(schedname);
    if (name.empty()) {
        say(s_, "No name was entered.");
        return false;
    }
    const bool replace = exists(s_, name);
    if (replace) {
        if (s_.ui().message("A Schedule with the name " + name + " already exists. Replace it?", MsgButtons::YesNo,
                            MsgIcon::Question, {}) != common::MsgAnswer::Yes)
            return false;
        // Copying a file onto itself would only double its entries.
        if (isCurrent(s_, name)) return true;
    }
    {
        // The file and the copy of the entries and day notes are made together or not at all.
        store::Transaction tx(s_);
        if (replace
                ? store::DeleteRecs(s_, "delete from sched where sname =?", {name})
                : store::InsertRecs(s_, "insert into schedname (schedname,comment) values(?,?)", {name, description}))
            copyInto(name);
        if (!tx.commit()) return false;
    }
    s_.currentSchedule = name;
    s_.refreshWanted = true;
    scheduleChanged = true;
    return true;
}

bool SaveAs::copyInto(const std::string& name) {
    const std::string current = s_.currentSchedule;
    for (auto rs = store::GetRecs(s_, "select * from sched where sname = ? order by sday", {current}); !rs.eof();
         rs.MoveNext()) {
        if (!store::InsertRecs(s_,
                               "insert into sched (lname,fname,personid,sday,strttime,endtime,position,shift,section,"
                               "comment,sname) values(?,?,?,?,?,?,?,?,?,?,?)",
                               {rs["lname"].text(), rs["fname"].text(), rs["personid"].toLong(), dateOf(rs["sday"]),
                                dateTimeOf(rs["strttime"]), dateTimeOf(rs["endtime"]), rs["position"].text(),
                                rs["shift"].text(), rs["section"].text(), rs["comment"].text(), name}))
            return false;
    }
    for (auto rs = store::GetRecs(s_, "select * from daynote where sname = ?", {current}); !rs.eof(); rs.MoveNext()) {
        const auto sales = rs["dailysales"];
        if (!store::InsertRecs(s_, "insert into daynote (sday,dailysales,sname) values(?,?,?)",
                               {dateOf(rs["sday"]), sales.isNull() ? Value() : Value(sales.toDouble()), name}))
            return false;
    }
    return true;
}

// ---------------------------------------------------------------- deletesched

deletesched::deletesched(Session& s) : ScheduleFileList(s) {
    store::ClearUndo(s_);
    fillList();
}

void deletesched::deletebutton_Click() {
    if (!hasSelection()) {
        say(s_, "There is no Schedule selected.");
        return;
    }
    const std::string name = selectedName_;
    if (name.empty()) return;  // gone meanwhile: an empty name would take the unnamed entries
    const std::string lead = "You are about to delete the " + name + " Schedule File. ";
    const std::string count = std::to_string(selectedEntries_);
    std::string question;
    if (firstdate.empty())
        question = lead + "This Schedule File does not contain any schedule entries. Continue?";
    else if (firstdate == lastdate)
        question =
            lead + "This Schedule File contains " + count + " scehdule entries entered on " + firstdate + ". Continue?";
    else
        question = lead + "This Schedule File contains " + count + " schedule entries entered from " + firstdate +
                   " to " + lastdate + ". Continue?";
    if (!s_.ui().askYesNo(question)) return;
    {
        // The file, its entries and its day notes go together or not at all.
        store::Transaction tx(s_);
        for (const char* sql : {"delete from sched where sname=?", "delete from schedname where schedname=?",
                                "delete from daynote where sname=?"})
            if (!store::DeleteRecs(s_, sql, {name})) break;
        if (!tx.commit()) return;
    }
    clearFigures();
    fillList();
    if (isCurrent(s_, name)) {
        s_.currentSchedule.clear();
        s_.refreshWanted = false;
        scheduleChanged = true;
    }
}

}  // namespace tallymere::reference

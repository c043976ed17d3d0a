#include "reference/person_list.h"

#include "store/access.h"

namespace tallymere::reference {

using common::MsgIcon;
using store::DeleteRecs;
using store::GetRecs;

namespace {

constexpr const char* kNoChangeRight =
    "You do not have permissions to change employee information. To view employee data, restart Tallymere and enter "
    "the owner password.";
constexpr const char* kNoEditRight =
    "You do not have permissions to view or change employee information. To view employee data, restart Tallymere "
    "and enter the owner password.";
constexpr const char* kNoViewRight =
    "You do not have permissions to view employee information. To view employee data, restart Tallymere and enter "
    "the owner password.";

}  // namespace

bool DeleteEmployee(common::Session& s, long selectedId, const std::string& fname, const std::string& lname) {
    if (s.IsUserMode && s.rights.noEmployee) {
        s.ui().inform(kNoChangeRight, MsgIcon::Exclamation);
        return false;
    }
    if (!s.ui().askYesNo("Are you sure you want to delete " + fname + " " + lname + " ?")) return false;
    // The person by the selected row, the rest by the current employee: deliberately not the same id.
    const long current = s.currentEmployee;
    // The employee and the rows that belong to him go together or not at all.
    store::Transaction tx(s);
    const bool deleted = DeleteRecs(s, "delete from person where personid = ?", {selectedId}) &&
                         DeleteRecs(s, "delete from availability where personid= ?", {current}) &&
                         DeleteRecs(s, "delete from desiredshift where personid= ?", {current}) &&
                         DeleteRecs(s, "delete from employeeleave where personid= ?", {current}) &&
                         DeleteRecs(s, "delete from qualifications where personid= ?", {current});
    return tx.commit() && deleted;
}

void PersonListFrm::Refresh() {
    const long keep = selected() ? selected()->personid : 0;
    grid1.clear();
    row = -1;
    for (auto rs = GetRecs(s_, "select * from person order by lname"); !rs.eof(); rs.MoveNext()) {
        const std::string position = rs["primpos"].text();
        grid1.push_back({rs["lname"].text(), rs["fname"].text(), position.empty() ? "None Assigned" : position,
                         rs["active"].toBool() ? "Active" : "Inactive", static_cast<long>(rs["personid"].toLong())});
        if (grid1.back().personid == keep) row = static_cast<int>(grid1.size()) - 1;
    }
    if (row < 0 && !grid1.empty()) row = 0;
}

const PersonRow* PersonListFrm::selected() const {
    return row >= 0 && row < static_cast<int>(grid1.size()) ? &grid1[static_cast<std::size_t>(row)] : nullptr;
}

bool PersonListFrm::addbutton() {
    // Adding is a change as much as a view: either missing right refuses.
    if (s_.IsUserMode && (s_.rights.noEmployeeView || s_.rights.noEmployee)) {
        s_.ui().inform(kNoViewRight, MsgIcon::Exclamation);
        return false;
    }
    return true;
}

bool PersonListFrm::editbutton() {
    if (s_.IsUserMode && s_.rights.noEmployeeView) {
        s_.ui().inform(kNoEditRight, MsgIcon::Exclamation);
        return false;
    }
    const PersonRow* p = selected();
    if (!p) {
        s_.ui().inform("There are no employees to edit.", MsgIcon::Information);
        return false;
    }
    // The row is found again by its name, so an employee renamed or deleted elsewhere is noticed.
    auto rs = GetRecs(s_, "select * from person where lname=? and fname=?", {p->LastName, p->FirstName});
    if (rs.eof()) {
        if (rs.isOpen()) s_.ui().inform("No personnel found by the name " + p->LastName + ", " + p->FirstName);
        return false;
    }
    s_.currentEmployee = static_cast<long>(rs["personid"].toLong());
    return true;
}

bool PersonListFrm::deletebutton() {
    const PersonRow* p = selected();
    if (!p) {
        s_.ui().inform("There are no employees.", MsgIcon::Information);
        return false;
    }
    const bool deleted = DeleteEmployee(s_, p->personid, p->FirstName, p->LastName);
    // Read again even after a failure half way: the person row may already be gone.
    Refresh();
    return deleted;
}

}  // namespace tallymere::reference

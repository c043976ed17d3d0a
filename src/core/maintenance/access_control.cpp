#include "maintenance/access_control.h"

#include "common/text.h"
#include "store/access.h"

namespace tallymere::maintenance {

const char* const kRightKeys[8] = {"passworduserschedule", "passworduseremployeeview", "passworduseremployee",
                                   "passworduserposition", "passwordusershift",        "passwordusersection",
                                   "passworduserpayroll",  "passworduserstafflevels"};

void ReadUserRights(common::Session& s) {
    bool* lacks[8] = {&s.rights.noSchedule, &s.rights.noEmployeeView, &s.rights.noEmployee, &s.rights.noPosition,
                      &s.rights.noShift,    &s.rights.noSection,      &s.rights.noPayroll,  &s.rights.noStaffLevels};
    for (int i = 0; i < 8; ++i) {
        const auto rs = store::GetRecs(s, "select * from options where optionname = ?", {kRightKeys[i]});
        if (rs.isOpen() && rs.eof())
            store::InsertRecs(s, "insert into options (optionname,optionvalue) values(?,'No')", {kRightKeys[i]});
        *lacks[i] = !(rs.isOpen() && !rs.eof() && common::equalsNoCase(rs["optionvalue"].text(), "Yes"));
    }
}

std::vector<std::string> MenusDisabledByRights(const common::UserRights& r) {
    std::vector<std::string> menus;
    const auto add = [&](std::initializer_list<const char*> names) { menus.insert(menus.end(), names.begin(), names.end()); };
    if (r.noPayroll) add({"mnupayrollestimator", "MnuPayrollwithSales", "mnuPayrollwithOvertime", "mnuweeklypayroll"});
    if (r.noStaffLevels) add({"mnusetstaffinglevels"});
    if (r.noEmployee) add({"mnudailygridlistviewaddnewemployee", "mnudailygridlistviewdeleteemployee", "mnuAddEmployee"});
    if (r.noEmployeeView) add({"mnuemployeefullreport", "mnudailygridlistviewedit"});
    if (r.noSchedule)
        add({"mnuaddtoschedulelistview", "mnudelete", "mnudeleteday", "mnucopyschedule1",
             "mnudailygridrightclickremove", "mnudailygridrightclickedit", "mnudailygridrightclickcut",
             "mnudailygridrightclickcopy", "mnudailygridrightclickpaste", "mnusaveasdefault", "mnugetdefaultsched",
             "mnusaveas", "mnudeleteschedule", "mnubackup", "mnuRestore", "mnunew", "mnuAutoSched",
             "mnuAutoRebuildSchedule", "mnuAutoSchedOptions", "mnupreferences"});
    return menus;
}

bool ShowNoPermission(common::Session& s) {
    s.ui().message("You do not have permissions to change the schedule. To change the schedule, restart Tallymere "
                   "and enter the owner password.",
                   common::MsgButtons::Ok, common::MsgIcon::Information, common::Session::kAppTitle);
    return true;
}

}  // namespace tallymere::maintenance

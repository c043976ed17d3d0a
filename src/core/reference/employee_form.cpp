#include "reference/employee_form.h"

#include "common/text.h"
#include "reference/window_support.h"
#include "store/access.h"

#include <algorithm>
#include <array>

namespace tallymere::reference {

using common::MsgIcon;

std::string picturewindowCaption(const std::string& file, bool shown) {
    return shown ? "Viewer [" + file + "]" : "Viewer [Invalid picture]";
}

EmployeeForm::EmployeeForm(common::Session& s, bool staging)
    : availabilityTab(s),
      desiredShiftTab(s, staging),
      qualificationTab(s, staging),
      leaveTab(s, staging),
      s_(s),
      staging_(staging) {}

bool EmployeeForm::fieldChanged(std::string_view control) {
    struct Group {
        bool EmployeeForm::*flag;
        std::array<std::string_view, 11> controls;
    };
    static const Group kGroups[] = {
        {&EmployeeForm::namesDirty, {"fname", "LName"}},
        {&EmployeeForm::datesDirty, {"doh", "dob", "empenddate"}},
        {&EmployeeForm::addressDirty,
         {"address", "Addr2", "city", "state", "zip", "PositionCombo", "phone", "pager", "cellphone", "note", "email"}},
        {&EmployeeForm::payDirty, {"hourlyrate", "hoursperweek", "shiftsperweek", "primaryskill"}},
        {&EmployeeForm::idsDirty, {"empid", "ssn", "license", "inactivecheck"}},
    };
    for (const Group& g : kGroups) {
        if (std::find(g.controls.begin(), g.controls.end(), control) != g.controls.end() && !control.empty()) {
            this->*g.flag = true;
            return true;
        }
    }
    return false;
}

void EmployeeForm::clearDirty() { namesDirty = datesDirty = addressDirty = payDirty = idsDirty = false; }

std::string EmployeeForm::displayName(std::string_view first, std::string_view last) {
    return common::trim(common::trim(first) + " " + common::trim(last));
}

EmployeeRef EmployeeForm::employee() const {
    return {tabPersonid(), common::trim(LName), common::trim(fname), common::trim(PositionCombo.text())};
}

void EmployeeForm::fillPositions() {
    PositionCombo.clear();
    for (auto rs = store::GetRecs(s_, "select title from position order by title"); !rs.eof(); rs.MoveNext())
        PositionCombo.add(rs["title"].text());
}

void EmployeeForm::applyPayrollRight() { payFieldsVisible = !(s_.IsUserMode && s_.rights.noPayroll); }

bool EmployeeForm::datesValid() {
    struct Check {
        const std::string* text;
        const char* message;
        MsgIcon icon;
    };
    const Check checks[] = {
        {&doh, "Date of hire is not a valid date.", MsgIcon::Information},
        {&dob, "Date of birth is not a valid date.", MsgIcon::Information},
        {&empenddate, "Employee end date is not a valid date.", MsgIcon::Exclamation},
    };
    for (const Check& c : checks) {
        if (common::trim(*c.text).empty() || parseTypedDate(*c.text)) continue;
        if (c.text == &empenddate) SSTab1 = kEmploymentTab;
        s_.ui().inform(c.message, c.icon);
        return false;
    }
    return true;
}

std::array<std::string, 3> EmployeeForm::storedDates() const {
    const auto stored = [](const std::string& typed) {
        const auto d = parseTypedDate(typed);
        return d ? personDateText(*d) : std::string();
    };
    return {stored(dob), stored(doh), stored(empenddate)};
}

std::unique_ptr<adddesiredshift> EmployeeForm::adddesiredshiftbutton() {
    if (!desiredShiftTab.adddesiredshiftbutton(PositionCombo.text())) return nullptr;
    std::unique_ptr<adddesiredshift> w;
    if (staging_)
        w = std::make_unique<adddesiredshifttemp>(s_, employee());
    else
        w = std::make_unique<adddesiredshift>(s_, employee());
    if (!w->Load()) return nullptr;
    return w;
}

bool EmployeeForm::deletedesiredshiftbutton() {
    const bool ok = desiredShiftTab.deletedesiredshiftbutton();
    desiredShiftTab.Refresh(tabPersonid());
    return ok;
}

std::unique_ptr<addqualifications> EmployeeForm::addqualificationbutton() {
    if (!qualificationTab.addqualificationbutton(PositionCombo.text())) return nullptr;
    std::unique_ptr<addqualifications> w;
    if (staging_)
        w = std::make_unique<addqualificationstemp>(s_, employee());
    else
        w = std::make_unique<addqualifications>(s_, employee());
    if (!w->Load()) return nullptr;
    return w;
}

bool EmployeeForm::deletequalificationbutton() {
    const bool ok = qualificationTab.deletequalificationbutton();
    qualificationTab.Refresh(tabPersonid());
    return ok;
}

std::unique_ptr<employeeleaveedit> EmployeeForm::addleavebutton() {
    if (!leaveTab.addleavebutton()) return nullptr;
    std::unique_ptr<employeeleaveedit> w;
    if (staging_)
        w = std::make_unique<employeeleaveedittemp>(s_, employee());
    else
        w = std::make_unique<employeeleaveedit>(s_, employee());
    if (!w->Load()) return nullptr;
    return w;
}

bool EmployeeForm::deleteleavebutton() {
    const bool ok = leaveTab.deleteleavebutton(tabPersonid());
    leaveTab.Refresh(tabPersonid());
    return ok;
}

bool EmployeeForm::deleteallbutton() {
    const bool ok = leaveTab.deleteallbutton(tabPersonid());
    leaveTab.Refresh(tabPersonid());
    return ok;
}

bool EmployeeForm::RefreshTabs() {
    const long id = tabPersonid();
    // Each grid is read even when another failed, so that what can be shown is shown.
    const bool shifts = desiredShiftTab.Refresh(id);
    const bool quals = qualificationTab.Refresh(id);
    const bool leave = leaveTab.Refresh(id);
    return shifts && quals && leave;
}

std::string EmployeeForm::blankPicturePath() const { return s_.programFolder + "/blankpic.bmp"; }

std::string EmployeeForm::picturePath() const { return common::trim(picfile).empty() ? blankPicturePath() : picfile; }

const std::vector<common::FileFilter>& EmployeeForm::pictureFilter() {
    static const std::vector<common::FileFilter> kFilter = {{"*.bmp;*.jpg;*.gif", "*.bmp;*.jpg;*.gif"}};
    return kFilter;
}

bool EmployeeForm::picturebutton() {
    const auto chosen = s_.ui().chooseOpenFile("", "", pictureFilter());
    if (!chosen || common::trim(*chosen).empty()) return false;
    return detail::trapped(s_, "An error occurred selecting a picture file.", [&] {
        if (!storePicture(*chosen)) return false;
        picfile = *chosen;
        return true;
    });
}

bool EmployeeForm::clearbutton() {
    if (!storePicture("")) return false;
    picfile.clear();
    return true;
}

}  // namespace tallymere::reference

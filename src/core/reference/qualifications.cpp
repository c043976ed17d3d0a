#include "reference/qualifications.h"

#include "common/display_format.h"
#include "common/numbers.h"
#include "common/text.h"
#include "reference/window_support.h"
#include "store/access.h"

#include <algorithm>

namespace tallymere::reference {

using common::MsgIcon;
using store::GetRecs;

namespace {
// The rate as a plain number, whatever currency form the field shows it in: payroll reads the
// column with a conversion that knows only "." as the decimal point.
std::string plainRate(std::string_view shown, const common::FormatLocale& locale) {
    std::string text(shown);
    if (!locale.thousandsSeparator.empty()) text = common::replaceAll(text, locale.thousandsSeparator, "");
    if (!locale.decimalSeparator.empty()) text = common::replaceAll(text, locale.decimalSeparator, ".");
    std::string out;
    for (char c : text)
        if (addqualifications::hourlyrateAccepts(c)) out += c;
    return out;
}
}  // namespace

bool QualificationTab::Refresh(long personid) {
    return detail::trapped(s_, "Error loading qualifications. [Edit Staff]", [&] {
        qualificationsGrid.clear();
        row = -1;
        auto rs = staging_ ? GetRecs(s_, "select * from qualificationstemp")
                           : GetRecs(s_, "select * from qualifications where personid = ?", {personid});
        for (; !rs.eof(); rs.MoveNext())
            qualificationsGrid.push_back({rs["position"].text(), rs["hourlyrate"].text(), rs["slevel"].text(),
                                          static_cast<long>(rs["qualid"].toLong())});
        if (!qualificationsGrid.empty()) row = 0;
        return rs.isOpen();
    });
}

bool QualificationTab::addqualificationbutton(const std::string& primpos) {
    if (common::trim(primpos).empty()) {
        s_.ui().inform(
            "You must select a primary position for an employee before you can add additional qualifications.",
            MsgIcon::Exclamation, "Add New Employee");
        return false;
    }
    return true;
}

bool QualificationTab::deletequalificationbutton() {
    if (row < 0 || row >= static_cast<int>(qualificationsGrid.size())) return false;
    const long id = qualificationsGrid[static_cast<std::size_t>(row)].qualid;
    return staging_ ? store::DeleteRecs(s_, "delete from qualificationstemp where qualid = ?", {id})
                    : store::DeleteRecs(s_, "delete from qualifications where qualid = ?", {id});
}

bool addqualifications::Load() {
    positioncombo.clear();
    auto rs = GetRecs(s_, "select title from position order by title");
    for (; !rs.eof(); rs.MoveNext()) positioncombo.add(rs["title"].text());
    return rs.isOpen();
}

void addqualifications::hourlyrateLostFocus() {
    if (common::trim(hourlyrate).empty()) return;
    hourlyrate = common::formatNumber(common::toNumber(hourlyrate), "currency", s_.locale);
}

void addqualifications::skillChange() {
    if (const auto n = common::parseNumberStrict(skill))
        skillslider = std::clamp(static_cast<int>(common::roundHalfEven(*n)), kSkillMin, kSkillMax);
}

void addqualifications::skillsliderChange() {
    skillslider = std::clamp(skillslider, kSkillMin, kSkillMax);
    skill = std::to_string(skillslider);
}

bool addqualifications::OKbutton() {
    const std::string position = common::trim(positioncombo.text());
    if (position.empty()) {
        s_.ui().inform("Please select a position.", MsgIcon::Exclamation);
        return false;
    }
    // The primary position lives in the person row and is never a qualification too.
    if (common::equalsNoCase(position, common::trim(employee_.primpos))) {
        s_.ui().inform("Primary position is already set to this position.", MsgIcon::Exclamation, "Edit Employee");
        return false;
    }
    skillChange();
    const long id = employee_.personid;
    const std::string rate = plainRate(hourlyrate, s_.locale);
    auto rs = staging_ ? GetRecs(s_, "select * from qualificationstemp where position=?", {position})
                       : GetRecs(s_, "select * from qualifications where personid=? and position=?", {id, position});
    if (!rs.isOpen()) return false;
    if (rs.eof()) {
        return staging_
                   ? store::InsertRecs(
                         s_,
                         "Insert into qualificationstemp (lname,fname,position,hourlyrate,slevel) values(?,?,?,?,?)",
                         {employee_.lname, employee_.fname, position, rate, skillslider})
                   : store::InsertRecs(s_,
                                       "Insert into qualifications (personid,lname,fname,position,hourlyrate,slevel) "
                                       "values(?,?,?,?,?,?)",
                                       {id, employee_.lname, employee_.fname, position, rate, skillslider});
    }
    if (!s_.ui().askYesNo(
            "A qualification entry already exists for this employee and position. Would you like to update it?"))
        return false;
    return staging_ ? store::UdateRecs(s_, "update qualificationstemp set slevel = ?,hourlyrate=? where position = ?",
                                       {skillslider, rate, position})
                    : store::UdateRecs(
                          s_, "update qualifications set slevel = ?,hourlyrate=? where personid=? and position = ?",
                          {skillslider, rate, id, position});
}

}  // namespace tallymere::reference

#include "reference/add_staff.h"

#include "common/text.h"
#include "reference/window_support.h"
#include "store/access.h"

namespace tallymere::reference {

using common::MsgIcon;
using store::GetRecs;
using store::InsertRecs;

void AddStaff::Load() {
    PositionCombo.clear();
    for (auto rs = GetRecs(s_, "select title from position order by title"); !rs.eof(); rs.MoveNext())
        PositionCombo.add(rs["title"].text());
}

bool AddStaff::OKButton() {
    const std::string first = common::trim(fname);
    const std::string last = common::trim(LName);
    if (first.empty() && last.empty()) {
        s_.ui().inform("No first name or last name were entered", MsgIcon::Exclamation);
        return false;
    }
    return detail::trapped(s_, "An error occurred while creating a new employee.", [&] {
        constexpr const char* kFind = "select * from person where lname=? and fname=?";
        auto rs = GetRecs(s_, kFind, {last, first});
        if (!rs.isOpen()) return false;
        if (!rs.eof()) {
            s_.ui().inform("An employee by the name " + first + " " + last + " already exists.", MsgIcon::Exclamation);
            return false;
        }
        if (!InsertRecs(s_, "Insert into person (lname,fname,primpos,active) values(?,?,?,?)",
                        {last, first, PositionCombo.text(), true}))
            return false;
        rs = GetRecs(s_, kFind, {last, first});
        if (rs.eof()) {
            if (rs.isOpen()) s_.ui().inform("An error occurred while creating a new employee.", MsgIcon::Exclamation);
            return false;
        }
        s_.currentEmployee = static_cast<long>(rs["personid"].toLong());
        return true;
    });
}

}  // namespace tallymere::reference

#include "reference/leave_calendar.h"

#include "common/display_format.h"
#include "store/access.h"

namespace tallymere::reference {

using common::Date;
using store::GetRecs;

int daysInMonth(int year, int month) {
    static constexpr int kDays[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month < 1 || month > 12) return 0;
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return kDays[month - 1] + (month == 2 && leap ? 1 : 0);
}

leavecal::leavecal(common::Session& s) : leavecaldate(s.clock().today()), s_(s) {}

bool leavecal::Load() {
    personcombo.clear();
    personcombo.add("All", 0);
    auto rs = GetRecs(s_, "SELECT * FROM person order by lname");
    if (rs.isOpen() && rs.eof()) s_.ui().inform("There are no personnel.", common::MsgIcon::Information);
    for (; !rs.eof(); rs.MoveNext())
        personcombo.add(rs["lname"].text() + ", " + rs["fname"].text(), static_cast<long>(rs["personid"].toLong()));
    personcombo.ListIndex = 0;
    leavecaldate = s_.clock().today();
    return Command1();
}

bool leavecal::Command1() {
    const Date first = Date::fromYmd(leavecaldate.year(), leavecaldate.month(), 1);
    heading = "Scheduled Leave for " + common::formatDate(first, "mmmm, yyyy");
    Text1.clear();
    const bool all = personcombo.ListIndex <= 0;
    const long personid = personcombo.data();
    const int days = daysInMonth(first.year(), first.month());
    int column = first.weekdayNumber() - 1;
    for (int day = 1; day <= days; ++day) {
        if (Text1.empty() || column == 7) {
            Text1.emplace_back();
            if (column == 7) column = 0;
        }
        LeaveCalendarCell& cell = Text1.back()[static_cast<std::size_t>(column++)];
        cell.day = day;
        const Date d = first.addDays(day - 1);
        auto rs = all ? GetRecs(s_, "select * from employeeleave where sday=?", {d})
                      : GetRecs(s_, "select * from employeeleave where sday=? and personid =?", {d, personid});
        if (!rs.isOpen()) return false;
        for (; !rs.eof(); rs.MoveNext()) cell.lines.push_back(rs["fullname"].text() + " - " + rs["typeofleave"].text());
    }
    return true;
}

bool leavecal::canPrintWithSchedule() {
    if (personcombo.ListIndex > 0) return true;
    s_.ui().inform("Please select an employee.", common::MsgIcon::Information);
    return false;
}

}  // namespace tallymere::reference

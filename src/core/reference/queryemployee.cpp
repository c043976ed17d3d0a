#include "reference/queryemployee.h"

#include "common/display_format.h"
#include "common/text.h"
#include "reference/window_support.h"
#include "store/access.h"

namespace tallymere::reference {

using common::MsgIcon;
using store::GetRecs;

bool queryemployee::Load() {
    personcombo.clear();
    names_.clear();
    auto people = GetRecs(s_, "SELECT * FROM person order by lname");
    for (; !people.eof(); people.MoveNext()) {
        const std::string first = people["fname"].text(), last = people["lname"].text();
        personcombo.add(leaveFullName(last, first), static_cast<long>(people["personid"].toLong()));
        names_.emplace_back(first, last);
    }
    schedulecombo.clear();
    schedulecombo.add("All");
    auto files = GetRecs(s_, "select schedname from schedname order by schedname");
    for (; !files.eof(); files.MoveNext()) schedulecombo.add(files["schedname"].text());
    schedulecombo.ListIndex = 0;
    const common::Date today = s_.clock().today();
    startdate = enddate = today;
    return people.isOpen() && files.isOpen();
}

bool queryemployee::searchbutton() {
    if (personcombo.ListIndex < 0 || personcombo.ListIndex >= static_cast<int>(names_.size())) {
        s_.ui().inform("Please select an employee.", MsgIcon::Information);
        return false;
    }
    if (!startdate) {
        s_.ui().inform("Please enter a start date.", MsgIcon::Information);
        return false;
    }
    if (!enddate) {
        s_.ui().inform("Please enter an end date.", MsgIcon::Information);
        return false;
    }
    if (*startdate > *enddate) {
        // The wording is the program's own, though it says the reverse of the test.
        s_.ui().inform("Start date must be greater than end date.", MsgIcon::Information);
        return false;
    }
    return detail::trapped(s_, "Error occurred searching for employee.", [&] {
        const auto& [first, last] = names_[static_cast<std::size_t>(personcombo.ListIndex)];
        std::string sql = "select * from sched where sday>=? and sday <=? and fname = ? and lname = ?";
        store::Params params{*startdate, *enddate, first, last};
        if (schedulecombo.ListIndex > 0) {
            sql += " and sname=?";
            params.push_back(schedulecombo.text());
        } else {
            // The undo snapshot belongs to no schedule file and is never shown.
            sql += " and sname<>?";
            params.push_back(common::Session::kUndoScheduleName);
        }
        sql += " order by sday,strttime";
        auto rs = GetRecs(s_, sql, params);
        grid1.clear();
        const std::string dateFormat = s_.settings.reportdateformat;
        for (; !rs.eof(); rs.MoveNext()) {
            const auto day = rs["sday"].toDate();
            const auto start = rs["strttime"].toDateTime();
            const auto end = rs["endtime"].toDateTime();
            grid1.push_back({day ? common::formatDate(*day, dateFormat, s_.locale) : std::string(),
                             start ? common::formatDateTime(*start, "hh:mm AM/PM", s_.locale) : std::string(),
                             end ? common::formatDateTime(*end, "hh:mm AM/PM", s_.locale) : std::string(),
                             rs["shift"].text(), rs["position"].text(), rs["section"].text(), rs["sname"].text()});
        }
        heading = "Schedule Entries for " + common::trim(first + " " + last) + " from " +
                  common::formatDate(*startdate, dateFormat, s_.locale) + " to " +
                  common::formatDate(*enddate, dateFormat, s_.locale);
        return rs.isOpen();
    });
}

}  // namespace tallymere::reference

#pragma once
// Shifts "Day" (9 AM - 5 PM) and "Night" (10 PM - 6 AM), positions "Cook" and "Server", on the
// schedule test's database with "Week 1" open on Monday, November 23, 2026.

#include "support/schedule_test.h"

namespace tallymere::testing {

class StaffingTest : public ScheduleTest {
protected:
    static common::DateTime at(int day, int hour, int minute = 0) {
        return common::DateTime::fromParts(2026, 11, day, hour, minute);
    }

    void SetUp() override {
        ScheduleTest::SetUp();
        addShift("Day", 9, 17);
        addShift("Night", 22, 6);
        addPosition("Cook");
        addPosition("Server");
    }
    void addShift(const std::string& name, int from, int to) {
        const auto base = common::Date::fromYmd(1899, 12, 30);
        ASSERT_TRUE(store::InsertRecs(s(), "insert into shift (name,strttime,endtime) values(?,?,?)",
                                      {name, common::DateTime::at(base, from), common::DateTime::at(base, to)}));
    }
    void addPosition(const std::string& title) {
        ASSERT_TRUE(store::InsertRecs(s(), "insert into position (title) values(?)", {title}));
    }
    void setLevel(int sday, const std::string& shift, const std::string& position, const store::Value& n,
                  const std::string& sname = "Week 1") {
        ASSERT_TRUE(store::InsertRecs(s(), "insert into staffing (sday,shift,position,sname,numreq) values(?,?,?,?,?)",
                                      {sday, shift, position, sname, n}));
    }
    // numreq of one level, "<none>" when there is no row.
    std::string level(int sday, const std::string& shift, const std::string& position,
                      const std::string& sname = "Week 1") {
        const auto v = column(s(), "select numreq from staffing where sday=? and shift=? and position=? and sname=?",
                              {sday, shift, position, sname});
        return v.empty() ? "<none>" : v.front();
    }
};

}  // namespace tallymere::testing

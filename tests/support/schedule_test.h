#pragma once
// A database with the schedule file "Week 1" open on Monday, November 23, 2026, the sample employee
// a Cook, and the rows schedule tests put in place, stored the way the program's editors store them.

#include "schedule/daily_schedule.h"
#include "shell/main_form.h"
#include "support/fake_main_form_host.h"
#include "support/table_rows.h"
#include "support/test_database.h"

#include <memory>
#include <string>

namespace tallymere::testing {

class ScheduleTest : public DatabaseTest {
protected:
    static inline const common::Date kDay = common::Date::fromYmd(2026, 11, 23);  // a Monday
    static constexpr long kSam = 1;  // the template's sample employee, Sam Sample, 12.50 an hour

    void SetUp() override {
        DatabaseTest::SetUp();
        s().currentSchedule = "Week 1";
        s().activeDate = kDay;
        ASSERT_TRUE(store::UdateRecs(s(), "update person set primpos='Cook' where personid=1"));
    }

    long addPerson(const std::string& lname, const std::string& fname, const std::string& primpos = "Server") {
        EXPECT_TRUE(store::InsertRecs(s(), "insert into person (lname,fname,primpos,active) values(?,?,?,1)",
                                      {lname, fname, primpos}));
        return lastId(s(), "person", "personid");
    }
    // On the day of its start, under the names the person table gives; returns its schedid.
    long addEntry(long personid, common::DateTime start, common::DateTime end, const std::string& sname = "Week 1",
                  const store::Value& position = "Cook", const std::string& shift = "Day",
                  const std::string& section = "", const std::string& comment = "") {
        std::string lname = "**Unassigned**", fname;
        if (personid != -1) {
            const auto p = store::GetRecs(s(), "select lname,fname from person where personid=?", {personid});
            lname = p["lname"].text();
            fname = p["fname"].text();
        }
        EXPECT_TRUE(store::InsertRecs(s(),
                                      "insert into sched (personid,lname,fname,sday,strttime,endtime,position,shift,"
                                      "section,comment,sname) values(?,?,?,?,?,?,?,?,?,?,?)",
                                      {personid, lname, fname, start.date(), start, end, position, shift, section,
                                       comment, sname}));
        return lastId(s(), "sched", "schedid");
    }
    void addLeave(long personid, common::Date day = kDay, const store::Value& type = "Vacation") {
        ASSERT_TRUE(store::InsertRecs(
            s(), "insert into employeeleave (personid,fullname,typeofleave,sday) values(?,'x',?,?)",
            {personid, type, day}));
    }
    void setAvailability(long personid, common::Date day, const std::string& hours) {
        ASSERT_TRUE(store::InsertRecs(s(), "insert into availability (personid,sday,houravail) values(?,?,?)",
                                      {personid, common::GetDayName(day), hours}));
    }
};

// The daily schedule window, on a main form that records what the window asks of it.
class DailyWindowTest : public ScheduleTest {
protected:
    schedule::dailyflexgrid& open() {
        window = std::make_unique<schedule::dailyflexgrid>(s(), form);
        window->updailyflexform();
        return *window;
    }
    // The employee list's row of the employee, -1 when not listed.
    int listRow(long personid) const {
        for (std::size_t i = 0; i < window->lstlist.rows.size(); ++i)
            if (window->lstlist.rows[i].personid == personid) return static_cast<int>(i);
        return -1;
    }

    FakeMainFormHost host;
    shell::MainForm form{*session, host};
    std::unique_ptr<schedule::dailyflexgrid> window;
};

}  // namespace tallymere::testing

#pragma once
// One small business for the payroll tests, on Monday, November 23, 2026 of "Week 1" (weeks start on
// Sunday, November 22):
//   positions Cook (base 10) and Server (base 8)
//   Able, Ann   Server, own rate 15, qualified as Cook at 20
//   Baker, Bob  Cook, no rate,       qualified as Server at 0
//   Sample, Sam Cook, 12.50 (the template's employee)
// and on the Monday: Sam Cook 8h; Ann Server 4h then Cook 2h; Bob Server 2.5h then Cook 2.5h; an
// unassigned Cook 2h.

#include "payroll/pay_list.h"
#include "store/access.h"
#include "support/schedule_test.h"

#include <string>
#include <vector>

namespace tallymere::testing {

class PayrollTest : public ScheduleTest {
protected:
    void SetUp() override {
        ScheduleTest::SetUp();
        s().settings.firstdayofweek = "Sunday";
    }

    long person(const std::string& lname, const std::string& fname, const std::string& primpos,
                const store::Value& rate) {
        const long id = addPerson(lname, fname, primpos);
        EXPECT_TRUE(store::UdateRecs(s(), "update person set hourlyrate=? where personid=?", {rate, id}));
        return id;
    }
    void position(const std::string& title, const store::Value& base) {
        ASSERT_TRUE(store::InsertRecs(s(), "insert into position (title,baserate) values(?,?)", {title, base}));
    }
    void qualification(long id, const std::string& pos, const store::Value& rate) {
        ASSERT_TRUE(store::InsertRecs(s(), "insert into qualifications (personid,position,hourlyrate) values(?,?,?)",
                                      {id, pos, rate}));
    }
    // `minutes` long from hour:minute of `day`.
    long work(long id, const std::string& pos, int hour, int minute, int minutes, common::Date day = kDay,
              const std::string& shift = "Day") {
        const auto start = common::DateTime::at(day, hour, minute);
        return addEntry(id, start, start.addMinutes(minutes), "Week 1", pos, shift);
    }

    void business() {
        position("Cook", "10");
        position("Server", "8");
        ann = person("Able", "Ann", "Server", "15");
        bob = person("Baker", "Bob", "Cook", nullptr);
        qualification(ann, "Cook", "20");
        qualification(bob, "Server", "0");
        work(kSam, "Cook", 9, 0, 8 * 60);
        work(ann, "Server", 9, 0, 4 * 60);
        work(ann, "Cook", 13, 0, 2 * 60);
        work(bob, "Server", 10, 0, 150);
        work(bob, "Cook", 14, 0, 150);
        work(-1, "Cook", 18, 0, 120);
    }

    static std::vector<std::vector<std::string>> texts(const payroll::PayList& list) {
        std::vector<std::vector<std::string>> out;
        for (std::size_t r = 0; r < list.rows.size(); ++r) out.push_back(list.texts(r));
        return out;
    }

    long ann = 0;
    long bob = 0;
};

}  // namespace tallymere::testing

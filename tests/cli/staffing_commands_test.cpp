#include "cli_test.h"

namespace tallymere::testing {
namespace {

class StaffingCommands : public CliTest {
protected:
    void SetUp() override {
        CliTest::SetUp();
        const auto base = common::Date::fromYmd(1899, 12, 30);
        ASSERT_TRUE(store::InsertRecs(s(), "insert into shift (name,strttime,endtime) values('Day',?,?)",
                                      {common::DateTime::at(base, 9), common::DateTime::at(base, 17)}));
        ASSERT_TRUE(store::InsertRecs(s(), "insert into position (title) values('Cook')"));
    }
    long entry(long personid, common::DateTime start, common::DateTime end, const std::string& sname = "Week 1") {
        EXPECT_TRUE(store::InsertRecs(s(),
                                      "insert into sched (personid,lname,fname,sday,strttime,endtime,position,shift,"
                                      "sname) values(?,'Sample','Sam',?,?,?,'Cook','Day',?)",
                                      {personid, start.date(), start, end, sname}));
        return lastId(s(), "sched", "schedid");
    }
    static common::DateTime at(int day, int hour) { return common::DateTime::fromParts(2026, 11, day, hour, 0); }
};

TEST_F(StaffingCommands, ConflictsListsTheRangeAndAllSchedulesOnRequest) {
    entry(1, at(23, 9), at(23, 17));
    entry(1, at(24, 12), at(24, 20), "Week 2");
    entry(1, at(24, 9), at(24, 13));
    const std::vector<std::string> range{"conflicts",  "--schedule", "Week 1",    "--from",
                                         "2026-11-22", "--to",       "2026-11-28"};
    EXPECT_EQ(cli(range), 0) << err.str();
    EXPECT_EQ(out.str(), "Name,Position,Day,Start Time,End Time,Conflict\r\n");
    auto all = range;
    all.push_back("--all-schedules");
    EXPECT_EQ(cli(all), 0) << err.str();
    EXPECT_EQ(out.str(),
              "Name,Position,Day,Start Time,End Time,Conflict\r\n"
              "\"Sample, Sam\",Cook,11/24/2026,11/24/2026 12:00:00 PM,11/24/2026 8:00:00 PM,Overlaped time\r\n");

    EXPECT_EQ(cli({"conflicts", "--from", "2025-01-01", "--to", "2026-11-28"}), 1);
    EXPECT_NE(err.str().find("The date range can not be longer than one year."), std::string::npos);
    EXPECT_EQ(cli({"conflicts", "--from", "2026-11-28", "--to", "2026-11-22"}), 2);
}

TEST_F(StaffingCommands, RepairAsksAndTouchesOnlyTheRange) {
    const long inRange = entry(1, at(23, 22), at(23, 6));
    entry(1, at(27, 22), at(27, 6));
    EXPECT_EQ(cli({"repair", "--from", "2026-11-23", "--to", "2026-11-24"}), 2);  // unanswered
    EXPECT_EQ(cli({"repair", "--from", "2026-11-23", "--to", "2026-11-24", "--yes"}), 0) << err.str();
    EXPECT_EQ(column(s(), "select endtime from sched order by schedid"),
              (std::vector<std::string>{"2026-11-24 06:00:00", "2026-11-27 06:00:00"}));
    EXPECT_EQ(inRange, 1);
    EXPECT_EQ(cli({"repair", "--from", "2026-11-23", "--to", "2026-11-24", "--yes"}), 0);
    EXPECT_NE(err.str().find("No problems found."), std::string::npos);
}

TEST_F(StaffingCommands, AvailableTakesTwentyFourHourTimes) {
    entry(1, at(23, 13), at(23, 18));
    EXPECT_EQ(cli({"available", "--date", "2026-11-23", "--from", "12:00", "--to", "14:30", "--schedule", "Week 1"}), 0)
        << err.str();
    EXPECT_EQ(out.str(),
              "Name,Position,Status,Phone,Conflict,Hours,Req Off,Leave\r\n"
              "\"Sample, Sam\",,Unavailable,555-0100,Yes,5.00 hrs,,\r\n");
    EXPECT_EQ(cli({"available", "--date", "2026-11-23", "--from", "24:00", "--to", "14:30"}), 2);
    EXPECT_EQ(cli({"available", "--date", "2026-11-23", "--from", "9", "--to", "7:5x"}), 2);
    // Midnight to 1 PM asks first.
    EXPECT_EQ(cli({"available", "--date", "2026-11-23", "--from", "00:00", "--to", "13:00", "--no"}), 1);
    EXPECT_EQ(out.str(), "");
}

TEST_F(StaffingCommands, StaffingAnalyzeWritesOneBlockPerDay) {
    ASSERT_TRUE(store::InsertRecs(
        s(), "insert into staffing (sday,shift,position,sname,numreq) values(2,'Day','Cook','Week 1',2)"));
    entry(1, at(23, 9), at(23, 17));
    EXPECT_EQ(cli({"staffing", "analyze", "--from", "2026-11-23", "--to", "2026-11-24", "--schedule", "Week 1"}), 0)
        << err.str();
    EXPECT_EQ(out.str(),
              "Day,Shift,Position,Needed,Scheduled,Status\r\n"
              "2026-11-23,Day,Cook,2,1,Under staffed\r\n"
              "2026-11-24,Day,Cook,,0,Number scheduled equals staffing level\r\n");
    EXPECT_EQ(cli({"staffing", "analyze", "--from", "2025-11-23", "--to", "2026-11-24"}), 2);
}

}  // namespace
}  // namespace tallymere::testing

#include "cli_test.h"

namespace tallymere::testing {
namespace {

// Sam Sample (12.50 an hour) works 8 hours on Monday and 10 on Tuesday of the week of Sunday, Nov 22.
class PayrollCommands : public CliTest {
protected:
    void SetUp() override {
        CliTest::SetUp();
        for (auto [day, hours] : {std::pair{23, 8}, std::pair{24, 10}}) {
            const auto start = common::DateTime::fromParts(2026, 11, day, 8, 0);
            ASSERT_TRUE(
                store::InsertRecs(s(),
                                  "insert into sched (personid,lname,fname,sday,strttime,endtime,position,shift,"
                                  "sname) values(1,'Sample','Sam',?,?,?,'Cook','Day','Week 1')",
                                  {start.date(), start, start.addHours(hours)}));
        }
    }
    std::vector<std::string> week(std::vector<std::string> more) {
        std::vector<std::string> args{"--schedule", "Week 1", "--from", "2026-11-23"};
        args.insert(args.end(), more.begin(), more.end());
        return args;
    }
};

TEST_F(PayrollCommands, ListsComeOutAsTheWindowsShowThemWithPlainNumbers) {
    auto args = week({"--period", "week"});
    args.insert(args.begin(), {"payroll", "estimator"});
    EXPECT_EQ(cli(args), 0) << err.str();
    EXPECT_EQ(out.str(), "Name,Hours,Shifts,Wages\r\n\"Sample, Sam\",18.00,2,225.00\r\nTotal,18.00,2,225.00\r\n");

    args.insert(args.end(), {"--overtime", "--threshold", "16", "--factor", "2", "--format", "tsv"});
    EXPECT_EQ(cli(args), 0) << err.str();
    EXPECT_EQ(out.str(), "Name\tHours\tShifts\tWages\nSample, Sam\t18.00\t2\t250.00\nTotal\t18.00\t2\t250.00\n");

    auto hours = week({"--period", "month"});
    hours.insert(hours.begin(), {"payroll", "hours"});
    EXPECT_EQ(cli(hours), 0) << err.str();
    EXPECT_EQ(out.str(), "Name,Hours,Shifts\r\n\"Sample, Sam\",18.00,2\r\n");

    auto sales = week({"--period", "range", "--to", "2026-11-24"});
    sales.insert(sales.begin(), {"payroll", "sales"});
    EXPECT_EQ(cli(sales), 0) << err.str();
    EXPECT_EQ(out.str(),
              "Date,Hours,Labor Cost,Sales,Labor as % of Sales\r\n11/23/2026,8.00,100.00,,0\r\n"
              "11/24/2026,10.00,125.00,,0\r\nTotal,18.00,225.00,0.00,0\r\n");

    auto weekly = week({"--weeks", "2", "--threshold", "16"});
    weekly.insert(weekly.begin(), {"payroll", "weekly"});
    EXPECT_EQ(cli(weekly), 0) << err.str();
    EXPECT_EQ(out.str(),
              "Week,Employee,Hours,Shifts,Rate,Regular,Overtime,Total\r\n"
              "2026-11-22,\"Sample, Sam\",18.00,2,12.50,200.00,37.50,237.50\r\n"
              "2026-11-22,Total,18.00,2,,200.00,37.50,237.50\r\n"
              "2026-11-29,\"Sample, Sam\",0.00,0,12.50,0.00,0.00,0.00\r\n"
              "2026-11-29,Total,0.00,0,,0.00,0.00,0.00\r\n"
              "Total,\"Sample, Sam\",18.00,2,12.50,200.00,37.50,237.50\r\n"
              "Total,Total,18.00,2,,200.00,37.50,237.50\r\n");
}

TEST_F(PayrollCommands, BadInputIsRefusedWithTheWindowsMessageAndNothingWritten) {
    const std::string before = rowsOf({"sched", "options", "daynote"});
    for (const char* factor : {"0", "-1", "1.5x"}) {
        EXPECT_EQ(cli({"payroll", "overtime", "--factor", factor}), 1) << factor;
        EXPECT_NE(err.str().find("Overtime factor must be greater than 0"), std::string::npos);
    }
    EXPECT_EQ(cli({"payroll", "estimator", "--period", "range", "--from", "2026-11-23", "--to", "2026-11-22"}), 1);
    EXPECT_NE(err.str().find("The start date cannot be greater than the end date."), std::string::npos);
    EXPECT_EQ(cli({"payroll", "weekly", "--weeks", "53"}), 1);
    EXPECT_NE(err.str().find("Number of weeks must be less than 53"), std::string::npos);
    EXPECT_EQ(cli({"payroll", "hours", "--employee", "99"}), 2);
    // More than 365 days asks; nobody answered.
    EXPECT_EQ(cli({"payroll", "sales", "--period", "range", "--from", "2025-01-01", "--to", "2026-01-01"}), 2);
    EXPECT_EQ(rowsOf({"sched", "options", "daynote"}), before);
}

}  // namespace
}  // namespace tallymere::testing

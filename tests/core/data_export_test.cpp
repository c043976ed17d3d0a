#include "maintenance/data_export.h"

#include "bulk_schedule_fixture.h"
#include "common/text.h"

#include <filesystem>
#include <fstream>
#include <sstream>

namespace tallymere::testing {
namespace {

using common::Date;
using common::DateTime;
using maintenance::ExportData;
using maintenance::ExportScheduleData;

const Date kMon = Date::fromYmd(2026, 11, 23);

class DataExportTest : public BulkScheduleTest {
protected:
    void SetUp() override {
        BulkScheduleTest::SetUp();
        ASSERT_TRUE(store::UdateRecs(s(), "update person set empid='E-1' where personid=1"));
        obrien = addPerson("O'Brien", "Olive");
        ASSERT_TRUE(store::UdateRecs(s(), "update person set empid='7' where personid=?", {obrien}));
        smith = addPerson("Smith, Jr", "Al");

        entry(kSam, kMon, 9, 480);
        entry(obrien, kMon, 0, 240, "Week 1", "Early", 30);  // 12:30 AM, first by the clock
        entry(smith, kMon.addDays(1), 22, 240, "Week 1", "Late");
        // An employee deleted since: the entry keeps the name, the id is gone.
        ASSERT_TRUE(store::InsertRecs(s(),
                                      "insert into sched (personid,lname,fname,sday,strttime,endtime,position,section,"
                                      "sname) values(99,'Gone','Gil',?,?,?,'Cook','Grill','Week 1')",
                                      {kMon, DateTime::at(kMon, 9), DateTime::at(kMon, 10)}));
        entry(-1, kMon, 6, 60);
        entry(kSam, kMon, 6, 60, "Week 2");
        entry(kSam, kMon.addDays(2), 6, 60);
    }

    std::string path(const std::string& name = "schedule.txt") { return (folder.path() / name).string(); }
    static std::string read(const std::string& p) {
        std::ifstream in(p, std::ios::binary);
        std::stringstream text;
        text << in.rdbuf();
        return text.str();
    }

    long obrien = 0;
    long smith = 0;
};

TEST_F(DataExportTest, TheFileIsAHeaderAndOneUnquotedLinePerEntryOfARealEmployee) {
    ASSERT_TRUE(ExportScheduleData(s(), kMon, kMon.addDays(1), "Week 1", std::nullopt, "start time", path()));
    // A comma in a name shifts that line's fields: the format has no escape.
    EXPECT_EQ(read(path()),
              "EmpID, Last Name, First Name, Position, Day, StartTime, EndTime, Section\r\n"
              "7,O'Brien,Olive,Cook,11/23/2026,12:30am,4:30am,Grill\r\n"
              ",Gone,Gil,Cook,11/23/2026,9:00am,10:00am,Grill\r\n"
              "E-1,Sample,Sam,Cook,11/23/2026,9:00am,5:00pm,Grill\r\n"
              ",Smith, Jr,Al,Cook,11/24/2026,10:00pm,2:00am,Grill\r\n");
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_FALSE(std::filesystem::exists(path() + ".part"));

    // Written again from the start: a shorter export leaves nothing of the longer one.
    s().settings.gs_ReportTimeFormat = "HH:MM";
    ASSERT_TRUE(ExportScheduleData(s(), kMon.addDays(1), kMon.addDays(1), "week 1", smith, "employee", path()));
    EXPECT_EQ(read(path()),
              "EmpID, Last Name, First Name, Position, Day, StartTime, EndTime, Section\r\n"
              ",Smith, Jr,Al,Cook,11/24/2026,22:00,02:00,Grill\r\n");
}

TEST_F(DataExportTest, EachSortOrdersTheLinesItsOwnWay) {
    const auto lastNames = [&](const char* sort) {
        EXPECT_TRUE(ExportScheduleData(s(), kMon, kMon.addDays(1), "Week 1", std::nullopt, sort, path())) << sort;
        Texts names;
        std::istringstream lines(read(path()));
        std::string line;
        std::getline(lines, line);
        while (std::getline(lines, line)) names.push_back(common::split(line, ',')[1]);
        return names;
    };
    EXPECT_EQ(lastNames("employee"), (Texts{"Gone", "O'Brien", "Sample", "Smith"}));
    EXPECT_EQ(lastNames("start time"), (Texts{"O'Brien", "Gone", "Sample", "Smith"}));
    ASSERT_TRUE(store::UdateRecs(s(), "update sched set shift='Zz' where lname='Gone'"));
    EXPECT_EQ(lastNames("shift name"), (Texts{"Sample", "O'Brien", "Smith", "Gone"}));
}

TEST_F(DataExportTest, BadInputSaysWhyAndWritesNothing) {
    const std::string p = path();
    EXPECT_FALSE(ExportScheduleData(s(), kMon.addDays(1), kMon, "Week 1", std::nullopt, "employee", p));
    EXPECT_FALSE(ExportScheduleData(s(), kMon.addDays(10), kMon.addDays(12), "Week 1", std::nullopt, "employee", p));
    EXPECT_FALSE(ExportScheduleData(s(), kMon, kMon, "Week 9", std::nullopt, "employee", p));
    EXPECT_FALSE(ExportScheduleData(s(), kMon, kMon, "Week 1", std::nullopt, "salary", p));
    EXPECT_EQ(
        ui.messages,
        (Messages{{"The start date cannot be greater than the end date.", MsgButtons::Ok, MsgIcon::None, "Export Data"},
                  {"No scheduling data was found for the dates entered", MsgButtons::Ok, MsgIcon::None, "Export Data"},
                  {"There is no schedule file named 'Week 9'.", MsgButtons::Ok, MsgIcon::Exclamation, ""},
                  {"The sort order 'salary' is not one of position, shift name, employee, section, start time.",
                   MsgButtons::Ok, MsgIcon::Exclamation, "Export Data"}}));
    EXPECT_FALSE(std::filesystem::exists(p));

    // A file that cannot be written leaves the one that was there.
    { std::ofstream(p) << "kept"; }
    std::filesystem::create_directory(path("taken"));
    ui.clear();
    EXPECT_FALSE(ExportScheduleData(s(), kMon, kMon, "Week 1", std::nullopt, "employee", path("taken")));
    EXPECT_FALSE(ExportScheduleData(s(), kMon, kMon, "Week 1", std::nullopt, "employee", path("no/such/folder.txt")));
    ASSERT_EQ(ui.messages.size(), 2u);
    EXPECT_EQ(ui.messages[0].text.rfind("Unable to write the file " + path("taken") + ".", 0), 0u);
    EXPECT_EQ(read(p), "kept");
}

TEST_F(DataExportTest, TheWindowExportsTheOpenFileForTheEmployeeChosenToTheFileChosen) {
    ExportData w(s());
    EXPECT_EQ(w.SortCombo.text(), "start time");
    EXPECT_EQ(w.employeeCombo.items, (Texts{"All", "O'Brien, Olive", "Sample, Sam", "Smith, Jr, Al"}));
    EXPECT_EQ(w.startdate, kMon);

    w.employeeCombo.ListIndex = 2;
    ui.nextFile(std::nullopt);  // the dialog cancelled
    EXPECT_FALSE(w.SaveButton_Click());
    EXPECT_TRUE(ui.messages.empty());

    ui.nextFile(path());
    w.enddate = kMon.addDays(2);
    ASSERT_TRUE(w.SaveButton_Click());
    EXPECT_EQ(read(path()),
              "EmpID, Last Name, First Name, Position, Day, StartTime, EndTime, Section\r\n"
              "E-1,Sample,Sam,Cook,11/23/2026,9:00am,5:00pm,Grill\r\n"
              "E-1,Sample,Sam,Cook,11/25/2026,6:00am,7:00am,Grill\r\n");
}

}  // namespace
}  // namespace tallymere::testing

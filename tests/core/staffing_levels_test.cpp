#include "staffing/staffing_levels.h"
#include "staffing/analyze_levels.h"
#include "staffing_fixture.h"

#include <sstream>

namespace tallymere::testing {
namespace {

using staffing::analyzelevels;
using staffing::LevelMark;
using staffing::staffingadd;

using StaffingLevels = StaffingTest;

TEST_F(StaffingLevels, OpeningLaysEmptyRowsAndDropsThoseOfDeletedShifts) {
    setLevel(2, "Gone", "Cook", 3);
    setLevel(2, "Gone", "Cook", 3, "Other file");
    staffing::staffing w(s());
    EXPECT_EQ(w.Caption, "Staffing Levels - Week 1");
    // 7 days x 2 shifts x 2 positions, without a value; only the open file's orphan goes.
    EXPECT_EQ(column(s(), "select count(*) from staffing where sname='Week 1' and numreq is null"),
              std::vector<std::string>{"28"});
    EXPECT_EQ(level(2, "Gone", "Cook"), "<none>");
    EXPECT_EQ(level(2, "Gone", "Cook", "Other file"), "3");
    ASSERT_EQ(w.Grid1[0].rows.size(), 4u);
    EXPECT_EQ(w.Grid1[0].rows[0].shift, "Day");  // by start time: Day before Night
    EXPECT_EQ(w.Grid1[0].rows[0].position, "Cook");
    EXPECT_EQ(w.Grid1[0].rows[0].needed, "");
}

TEST_F(StaffingLevels, CellEditsAreKeptPerWeekdayShiftAndPosition) {
    staffing::staffing w(s());
    w.SSTab1_Click(1);     // Monday
    w.Grid1_EnterCell(3);  // Night / Server
    w.numreq = "4";
    w.moveRow(-1);  // leaving the cell writes it
    EXPECT_EQ(level(2, "Night", "Server"), "4");
    EXPECT_EQ(level(3, "Night", "Server"), "<null>");
    EXPECT_EQ(level(2, "Night", "Cook"), "<null>");
    EXPECT_EQ(w.Row, 2);
    w.numreq = "";  // an emptied cell is 0
    w.SSTab1_Click(2);
    EXPECT_EQ(level(2, "Night", "Cook"), "0");
    EXPECT_EQ(w.SSTab1, 2);

    // Filters narrow the rows; the stored values come back in the right rows.
    w.shiftcombo_Click(2);  // Night
    ASSERT_EQ(w.Grid1[1].rows.size(), 2u);
    EXPECT_EQ(w.Grid1[1].rows[1].needed, "4");
}

TEST_F(StaffingLevels, BadHeadCountsAreRefusedAndNothingIsWritten) {
    staffing::staffing w(s());
    EXPECT_TRUE(w.numreq_KeyPress('7'));
    EXPECT_FALSE(w.numreq_KeyPress('-'));
    EXPECT_FALSE(w.numreq_KeyPress('x'));
    EXPECT_EQ(ui.beeps, 2);
    for (const char* bad : {"-1", "3a", "1.5"}) {
        w.numreq = bad;
        EXPECT_FALSE(w.leaveCell()) << bad;
        EXPECT_EQ(w.numreq, "") << bad;
    }
    EXPECT_TRUE(ui.shown(staffing::kBadHeadCount));
    EXPECT_EQ(level(1, "Day", "Cook"), "<null>");

    staffingadd add(s(), 3);
    EXPECT_FALSE(add.Command1_Click());
    add.shiftcombo.select("Day");
    EXPECT_FALSE(add.Command1_Click());
    add.positioncombo.select("Server");
    EXPECT_FALSE(add.Command1_Click());
    add.numreq = "two";
    EXPECT_FALSE(add.Command1_Click());
    EXPECT_EQ(ui.texts(),
              (std::vector<std::string>{staffing::kBadHeadCount, staffing::kBadHeadCount, staffing::kBadHeadCount,
                                        "No shift was selected.", "No position was selected.",
                                        "No value entered for the number required.", staffing::kBadHeadCount}));
    EXPECT_EQ(level(3, "Day", "Server"), "<null>");
    add.numreq = "2";
    EXPECT_TRUE(add.Command1_Click());
    EXPECT_EQ(level(3, "Day", "Server"), "2");
}

TEST_F(StaffingLevels, GatheringCountsEveryEntryOfTheWeekAndReplacesAllFiles) {
    setLevel(5, "Day", "Cook", 9, "Other file");
    addEntry(kSam, at(23, 9), at(23, 17));                               // Monday Day Cook
    addEntry(-1, at(23, 9), at(23, 17));                                 // Unassigned counts too
    addEntry(kSam, at(24, 22), at(25, 6), "Week 1", "Server", "Night");  // Tuesday, over midnight
    addEntry(kSam, at(30, 9), at(30, 17));                               // next week: not gathered
    addEntry(kSam, at(24, 9), at(24, 17), "Other file");                 // other file: not gathered
    staffing::staffing w(s());
    w.Command5_Click();
    EXPECT_EQ(ui.texts().back(),
              "Staffing requirements will be gathered from the week of 11/22/2026 to 11/28/2026 continue?");
    auto levels = [&] {
        return column(s(), "select sday||' '||shift||' '||position||' '||numreq||' '||sname from staffing order by 1");
    };
    const std::vector<std::string> expected{"2 Day Cook 2 Week 1", "3 Night Server 1 Week 1"};
    EXPECT_EQ(levels(), expected);
    EXPECT_EQ(w.StaffPbarMax, 14);
    EXPECT_EQ(w.StaffPbarValue, 14);
    EXPECT_FALSE(w.StaffPbarVisible);
    w.Command5_Click();  // twice gives the same
    EXPECT_EQ(levels(), expected);

    ui.answer(MsgAnswer::No);
    ASSERT_TRUE(store::DeleteRecs(s(), "delete from sched"));
    w.Command5_Click();
    EXPECT_EQ(levels(), expected);
    w.Command5_Click();  // a week without entries empties the table
    EXPECT_TRUE(levels().empty());
}

class StaffingAnalysis : public StaffingTest {};

TEST_F(StaffingAnalysis, MarksCompareScheduledWithTheLevelOfTheDay) {
    setLevel(2, "Day", "Cook", 2);
    setLevel(2, "Day", "Server", 1);
    setLevel(2, "Night", "Cook", 0);    // dropped when the window opens
    setLevel(3, "Night", "Server", 5);  // another weekday
    setLevel(2, "Night", "Server", 1, "Other file");
    addEntry(kSam, at(23, 9), at(23, 17));
    addEntry(addPerson("Baker", "Bo"), at(23, 9), at(23, 17));
    addEntry(-1, at(23, 9), at(23, 17), "Week 1", "Server");  // nobody
    addEntry(kSam, at(23, 22), at(24, 6), "Week 1", "Server", "Night");
    addEntry(kSam, at(23, 22), at(24, 6), "Other file", "Cook", "Night");

    analyzelevels w(s());
    EXPECT_EQ(level(2, "Night", "Cook"), "<none>");
    ASSERT_TRUE(w.analyzebutton_Click());
    EXPECT_EQ(w.Label4, "Schedule analysis for Monday Nov 23, 2026");
    ASSERT_EQ(w.Bblistview1.size(), 4u);
    auto row = [&](std::size_t i) {
        const auto& r = w.Bblistview1[i];
        return r.shift + "/" + r.position + " " + r.needed + ":" + r.scheduled + " " +
               std::to_string(static_cast<int>(r.picture));
    };
    EXPECT_EQ(row(0), "Day/Cook 2:2 2");
    EXPECT_EQ(row(1), "Day/Server 1:0 4");
    EXPECT_EQ(row(2), "Night/Cook :0 2");
    EXPECT_EQ(row(3), "Night/Server :1 3");

    // The overnight entry belongs to the day it starts on only.
    w.analyzeday = kDay.addDays(1);
    w.positioncombo.select("Server");
    ASSERT_TRUE(w.analyzebutton_Click());
    ASSERT_EQ(w.Bblistview1.size(), 2u);
    EXPECT_EQ(row(1), "Night/Server 5:0 4");

    std::ostringstream csv;
    staffing::writeList(csv, w.listGrid());
    EXPECT_EQ(csv.str(),
              "Shift,Position,Needed,Scheduled,Status\r\nDay,Server,,0,Number scheduled equals staffing level\r\n"
              "Night,Server,5,0,Under staffed\r\n");
}

TEST_F(StaffingAnalysis, StopsWithoutPositions) {
    ASSERT_TRUE(store::DeleteRecs(s(), "delete from position"));
    analyzelevels w(s());
    EXPECT_FALSE(w.analyzebutton_Click());
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].title, "Analyze Staffing");
    EXPECT_TRUE(w.Bblistview1.empty());
}

}  // namespace
}  // namespace tallymere::testing

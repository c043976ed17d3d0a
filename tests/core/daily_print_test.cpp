// The daily schedule on paper: the main window's print of the active day, exported RTF compared
// whole with a reference, and the daily window's small preview.

#include "reports/daily_print.h"
#include "reports/font_metrics.h"
#include "reports/rtf_writer.h"
#include "store/access.h"
#include "support/golden_file.h"
#include "support/report_pages.h"
#include "support/test_database.h"

#include <gtest/gtest.h>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace tallymere::reports {
namespace {

using common::Date;
using common::DateTime;

const std::filesystem::path kGolden = std::filesystem::path(__FILE__).parent_path() / "golden";
const Date kMon = Date::fromYmd(2026, 11, 23);

class DailyPrintTest : public testing::DatabaseTest {
protected:
    void SetUp() override {
        DatabaseTest::SetUp();
        s().currentSchedule = "Main";
        s().activeDate = kMon;
        ASSERT_TRUE(store::InsertRecs(s(), "insert into position (title,color) values('Cook',?)", {255L}));
        ASSERT_TRUE(store::InsertRecs(s(), "insert into position (title) values('Host')"));
        add(1, "Sample", "Sam", kMon, 9, 8, "Cook", "Day", "Kitchen", "brings keys");
        add(-1, "**Unassigned**", "", kMon, 6, 6, "Host", "Early", "", "");
        add(2, "Baker", "Ann", kMon, 14, 9, "Cook", "Late", "Kitchen", "");
        // Not this day, not this schedule file.
        add(2, "Baker", "Ann", kMon.addDays(1), 9, 8, "Cook", "Day", "", "");
        add(1, "Sample", "Sam", kMon, 9, 8, "Cook", "Day", "", "");
        store::UdateRecs(s(), "update sched set sname='Other' where schedid = (select max(schedid) from sched)");
    }

    void add(long id, const char* lname, const char* fname, Date day, int hour, int hours, const char* position,
             const char* shift, const char* section, const char* comment) {
        const auto start = DateTime::at(day, hour);
        ASSERT_TRUE(store::InsertRecs(
            s(),
            "insert into sched (personid,lname,fname,sday,strttime,endtime,position,shift,"
            "section,comment,sname) values(?,?,?,?,?,?,?,?,?,?,'Main')",
            {id, lname, fname, day, start, start.addHours(hours), position, shift, section, comment}));
    }

    static const Table& onlyTable(const Document& doc) {
        for (const auto& b : doc.flow)
            if (const auto* t = std::get_if<TableBlock>(&b)) return t->table;
        throw std::runtime_error("no table");
    }
    static std::vector<std::string> column(const Table& t, int c) {
        std::vector<std::string> r;
        for (int row = 1; row <= t.Rows(); ++row) r.push_back(t.text(row, c));
        return r;
    }

    FixedPitchMetrics metrics;
    Surface vp{metrics};
};

TEST_F(DailyPrintTest, ExportedDayMatchesItsReference) {
    const std::string file = (folder.path() / "daily.rtf").string();
    ReportOutput out;
    {
        OutputCommand command(out, OutputCommand::Kind::Rtf, file);
        DailySchedulePrint(s(), vp, out);
    }
    std::ifstream in(file, std::ios::binary);
    const std::string rtf((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    EXPECT_TRUE(testing::matchesGolden(rtf, kGolden / "daily_schedule.rtf"));
    // Exported, the title is text between two rules and the pages carry no header.
    EXPECT_EQ(rtf.find("{\\header"), std::string::npos);
    EXPECT_NE(rtf.find("Main - Daily Schedule  Monday Nov 23, 2026"), std::string::npos);
}

TEST_F(DailyPrintTest, PrintedDayFollowsTheSortWithItsColumnsAndColours) {
    s().settings.dailyschedsort = "employee";
    DailySchedulePrint(s(), vp, {});
    const Document& doc = *vp.document();
    EXPECT_EQ(doc.header, "||Main - Daily Schedule  Monday Nov 23, 2026");
    const Table& t = onlyTable(doc);
    EXPECT_EQ(t.text(0, 3), "Shift");
    EXPECT_EQ(t.Cols(), 7);
    EXPECT_EQ(column(t, 1), (std::vector<std::string>{"**Unassigned**", "Baker, Ann", "Sample, Sam"}));
    EXPECT_EQ(column(t, 4), (std::vector<std::string>{"6:00am", "2:00pm", "9:00am"}));
    EXPECT_EQ(column(t, 7), (std::vector<std::string>{"", "", "brings keys"}));
    // The note column takes 0.27 of the body width, which leaves 360 twips of the text width.
    const int body = doc.pageWidth - doc.marginLeft - doc.marginRight - 360;
    EXPECT_EQ(t.colWidth(7), static_cast<int>(body * 0.27));
    // A position without a colour prints grey, and the colour stands over the even row's shading.
    EXPECT_EQ(t.backColor(1, 2), rgb(150, 150, 150));
    EXPECT_EQ(t.backColor(2, 2), Color::fromStored(255));
    EXPECT_EQ(t.backColor(2, 1), kEvenRowGrey);

    s().settings.dailyschedsort = "starttime";
    DailySchedulePrint(s(), vp, {});
    EXPECT_EQ(column(onlyTable(*vp.document()), 1),
              (std::vector<std::string>{"**Unassigned**", "Sample, Sam", "Baker, Ann"}));

    // A day without entries gives the header row alone.
    s().activeDate = kMon.addDays(3);
    DailySchedulePrint(s(), vp, {});
    EXPECT_EQ(onlyTable(*vp.document()).Rows(), 0);
}

TEST_F(DailyPrintTest, WindowPreviewHasItsOwnLayout) {
    dailyflexgridprint(s(), vp);
    const Document& doc = *vp.document();
    EXPECT_EQ(doc.marginLeft, 360);
    EXPECT_EQ(testing::countText(doc, "Main, Daily Schedule - Monday Nov 23, 2026"), 1);
    const Table& t = onlyTable(doc);
    EXPECT_EQ(t.colWidth(1), 2200);
    EXPECT_EQ(t.text(0, 3), "Day");
    EXPECT_EQ(column(t, 1), (std::vector<std::string>{"**Unassigned**, ", "Baker, Ann", "Sample, Sam"}));
    EXPECT_EQ(t.text(2, 3), "Mon Nov 23, 2026");
    EXPECT_EQ(t.text(2, 5), "02:00 PM");
    EXPECT_EQ(t.backColor(2, 2), Color::fromStored(255));
    EXPECT_EQ(t.backColor(1, 2), std::nullopt);
}

}  // namespace
}  // namespace tallymere::reports

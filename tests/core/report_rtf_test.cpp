// The RTF written from a composed document: compared whole with a reference under golden/, and its
// structure checked where a reference would let a fault pass unnoticed.

#include "reports/rtf_writer.h"
#include "reports/surface.h"
#include "support/golden_file.h"
#include "support/test_database.h"

#include <gtest/gtest.h>
#include <filesystem>
#include <fstream>
#include <regex>

namespace tallymere::reports {
namespace {

const std::filesystem::path kGolden = std::filesystem::path(__FILE__).parent_path() / "golden";

// A small weekly grid in landscape: a title, a rule, a table with a grey header, a coloured cell, a
// bold cell, a right-aligned column, two lines in a cell, the characters RTF must escape and some
// beyond ASCII; then a page break and a centred note.
std::string sampleRtf() {
    FixedPitchMetrics metrics;
    Surface vp(metrics);
    vp.setOrientation(kLandscape);
    vp.setMarginLeft(".5in");
    vp.setFooter("11/23/2026 9:00:00 AM||Page %d");
    vp.StartDoc();
    vp.setFontSize(11);
    vp.Text("Main Street - Sunday Nov 22, 2026");
    vp.setCurrentY(vp.CurrentY() + 240 + 200);
    vp.setPenWidth(15);
    vp.DrawLine(vp.MarginLeft(), vp.CurrentY(), vp.PageWidth() - vp.MarginRight(), vp.CurrentY());
    vp.setFontSize(8);
    vp.StartTable();
    Table& t = vp.AddTable("2160|>1000|", "Name|Hrs|Sun\nNov 22");
    t.setRows(3);
    t.setText(1, 1, "Smith, John");
    t.setText(1, 2, "8.00");
    t.setText(1, 3, "9:00am-5:00pm\nCashier");
    t.setText(2, 1, "{Brace} \\ back\tslash");
    t.setText(2, 2, "0.00");
    t.setText(3, 1, "Müller, Zoë ☕ 😀");
    t.setBackColor(t.row(0), rgb(200, 200, 200));
    t.setFontSize(t.row(0), 9);
    t.setBackColor(t.row(2), rgb(235, 235, 235));
    t.setBackColor(Table::cell(1, 3), Color::fromStored(0x00FFFF));
    t.setFontBold(Table::cell(3, 1), true);
    t.setFontName(Table::cell(3, 3), "Courier New");
    t.setRowPadding(1, 3, 100);
    vp.EndTable();
    vp.NewPage();
    vp.setTextAlign(Align::Center);
    vp.setFontItalic(true);
    vp.Paragraph("End of report");
    vp.EndDoc();
    return toRtf(*vp.document());
}

TEST(RtfOutput, SampleMatchesItsReference) {
    EXPECT_TRUE(testing::matchesGolden(sampleRtf(), kGolden / "weekly_sample.rtf"));
}

// Groups open and close in pairs, escaped braces aside.
bool balanced(const std::string& rtf) {
    int depth = 0;
    for (std::size_t i = 0; i < rtf.size(); ++i) {
        if (rtf[i] == '\\') {
            ++i;
            continue;
        }
        if (rtf[i] == '{') ++depth;
        if (rtf[i] == '}' && --depth < 0) return false;
    }
    return depth == 0;
}

int count(const std::string& s, const std::string& what) {
    int n = 0;
    for (auto p = s.find(what); p != std::string::npos; p = s.find(what, p + 1)) ++n;
    return n;
}

TEST(RtfOutput, TablesFontsAndColoursAreDeclaredOnce) {
    const std::string rtf = sampleRtf();
    EXPECT_TRUE(rtf.starts_with("{\\rtf1\\ansi"));
    EXPECT_TRUE(balanced(rtf));
    EXPECT_EQ(count(rtf, "{\\f0\\fswiss\\fcharset0 Arial;}"), 1);
    EXPECT_EQ(count(rtf, "Courier New;}"), 1);
    // Grey is used by three header cells and once more by a shaded row: one entry.
    EXPECT_EQ(count(rtf, "\\red200\\green200\\blue200;"), 1);
    EXPECT_EQ(count(rtf, "\\red255\\green255\\blue0;"), 1);
    EXPECT_EQ(count(rtf, "\\trowd"), 4);
    EXPECT_EQ(count(rtf, "\\trhdr"), 1);
    EXPECT_EQ(count(rtf, "\\row"), 4);
    EXPECT_EQ(count(rtf, "\\cell\n"), 12);
    // Cell edges add up from the left indent: 2160, then 1000, then what is left of the page.
    EXPECT_EQ(count(rtf, "\\cellx2160\n"), 4);
    EXPECT_EQ(count(rtf, "\\cellx3160\n"), 4);
    EXPECT_EQ(count(rtf, "\\cellx" + std::to_string(15840 - 720 - 720)), 4);
    EXPECT_NE(rtf.find("\\landscape"), std::string::npos);
    EXPECT_NE(rtf.find("{\\field{\\*\\fldinst{ PAGE }}"), std::string::npos);
    EXPECT_EQ(rtf.find("%d"), std::string::npos);
}

TEST(RtfOutput, TextIsEscaped) {
    EXPECT_EQ(rtfEscape("{a}\\b"), "\\{a\\}\\\\b");
    EXPECT_EQ(rtfEscape("one\ntwo\tthree"), "one\\line two\\tab three");
    EXPECT_EQ(rtfEscape("é"), "\\u233?");
    EXPECT_EQ(rtfEscape("€"), "\\u8364?");
    EXPECT_EQ(rtfEscape("\xEF\xBF\xBD"), "\\u-3?");    // U+FFFD, above the signed 16-bit range
    EXPECT_EQ(rtfEscape("😀"), "\\u-10179?\\u-8704?");  // a surrogate pair
    EXPECT_EQ(rtfEscape("caf\xE9"), "caf\\'e9");       // not UTF-8: kept as a code page byte
}

TEST(RtfOutput, ExportWritesTheFileAndKeepsAnOldOneWhenItCannot) {
    testing::TempFolder temp;
    const auto folder = temp.path();
    const auto file = folder / "out.rtf";
    FixedPitchMetrics metrics;
    Surface vp(metrics);
    vp.setExportFormat(kExportRtf);
    vp.setExportFile(file.string());
    vp.StartDoc();
    vp.Paragraph("first");
    vp.EndDoc();
    std::ifstream in(file);
    const std::string written((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    EXPECT_NE(written.find("first"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(folder / "out.rtf.tmp"));

    // A folder standing where the temporary file would go: the write fails, the old file stays.
    std::filesystem::create_directories(folder / "out.rtf.tmp" / "x");
    vp.StartDoc();
    vp.Paragraph("second");
    EXPECT_THROW(vp.EndDoc(), ReportError);
    std::ifstream again(file);
    const std::string kept((std::istreambuf_iterator<char>(again)), std::istreambuf_iterator<char>());
    EXPECT_EQ(kept, written);
}

TEST(RtfOutput, OtherExportFormatsAreRefused) {
    FixedPitchMetrics metrics;
    Surface vp(metrics);
    testing::TempFolder temp;
    vp.setExportFormat(2);
    vp.setExportFile((temp.path() / "out.txt").string());
    vp.StartDoc();
    EXPECT_THROW(vp.EndDoc(), ReportError);
}

}  // namespace
}  // namespace tallymere::reports

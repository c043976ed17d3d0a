// Page layout of the report surface, measured with fixed-pitch fonts: a 10 point character is 100
// twips wide and its line 240 high. The page is Letter portrait, margins 1080 top and 720 elsewhere,
// so the text runs from x 720 to 11520 and from y 1080 to 15120.

#include "reports/surface.h"
#include "support/report_pages.h"
#include "support/test_database.h"

#include <gtest/gtest.h>

namespace tallymere::reports {
namespace {

using testing::countText;
using testing::findText;
using testing::pagesWith;
using testing::pageTexts;

class SurfaceTest : public ::testing::Test {
protected:
    FixedPitchMetrics metrics;
    Surface vp{metrics};

    const Document& doc() { return *vp.document(); }
    int bodyBottom() const { return vp.PageHeight() - vp.MarginBottom(); }
};

TEST(Lengths, TwipsAndUnits) {
    EXPECT_EQ(parseTwips("720"), 720);
    EXPECT_EQ(parseTwips("1.5in"), 2160);
    EXPECT_EQ(parseTwips(".25in"), 360);
    EXPECT_EQ(parseTwips(" 1 in "), 1440);
    EXPECT_EQ(parseTwips("2.54cm"), 1440);
    EXPECT_EQ(parseTwips("10mm"), 567);
    EXPECT_EQ(parseTwips("12pt"), 240);
    EXPECT_EQ(parseTwips("1IN"), 1440);
    for (const char* bad : {"", "in", "-1in", "1.5inch", "1.5 furlongs", "abc", "1.2.3"})
        EXPECT_EQ(parseTwips(bad), std::nullopt) << bad;
}

TEST(Lengths, FitWidthSharesThePageLessTheNameColumn) {
    // Letter, 720 margins: 12240 - 1440 - 2160 = 8640 twips for the days.
    EXPECT_NEAR(fitColumnWidthInches(12240, 720, 720, 7), 8640.0 / 7 / 1440, 1e-12);
    EXPECT_NEAR(fitColumnWidthInches(12240, 720, 720, 14), fitColumnWidthInches(12240, 720, 720, 7) / 2, 1e-12);
    EXPECT_NEAR(fitColumnWidthInches(15840, 720, 720, 7), (15840.0 - 1440 - 2160) / 7 / 1440, 1e-12);
    EXPECT_NEAR(fitColumnWidthInches(12240, 720, 720, 7, 3024), (12240.0 - 1440 - 3024) / 7 / 1440, 1e-12);
    EXPECT_EQ(fitColumnWidthInches(12240, 720, 720, 0), 0);
}

TEST(Lengths, PaperAndOrientation) {
    PageSettings p;
    EXPECT_EQ(p.pageWidth(), 12240);
    EXPECT_EQ(p.pageHeight(), 15840);
    p.orientation = kLandscape;
    EXPECT_EQ(p.pageWidth(), 15840);
    EXPECT_EQ(p.pageHeight(), 12240);
    p.paperSize = kPaperA4;
    p.orientation = kPortrait;
    EXPECT_EQ(p.pageWidth(), 11906);

    common::GlobalSettings g;
    g.gs_PaperSize = "no paper";
    EXPECT_EQ(pageSettingsFrom(g).paperSize, kPaperLetter);
    g.gs_PaperSize = "9";
    g.orientation = 2;
    g.marginleft = 1000;
    const PageSettings read = pageSettingsFrom(g);
    EXPECT_EQ(read.paperSize, kPaperA4);
    EXPECT_EQ(read.orientation, kLandscape);
    EXPECT_EQ(read.marginLeft, 1000);
    common::GlobalSettings back;
    storePageSettings(back, read);
    EXPECT_EQ(back.gs_PaperSize, "9");
    EXPECT_EQ(back.marginleft, 1000);
}

TEST(Wrapping, BreaksAtBlanksKeepsLineBreaksAndSplitsLongWords) {
    FixedPitchMetrics m;
    const Font f;  // 100 twips a character
    using V = std::vector<std::string>;
    EXPECT_EQ(wrapText(m, f, "one two three", 700), (V{"one two", "three"}));
    EXPECT_EQ(wrapText(m, f, "one\r\ntwo\n\nthree", 10000), (V{"one", "two", "", "three"}));
    EXPECT_EQ(wrapText(m, f, "abcdefghij", 400), (V{"abcd", "efgh", "ij"}));
    EXPECT_EQ(wrapText(m, f, "9:00am-5:00pm", 1000), (V{"9:00am-", "5:00pm"}));
    EXPECT_EQ(wrapText(m, f, "a-b-cdefgh", 400), (V{"a-b-", "cdef", "gh"}));
    EXPECT_EQ(wrapText(m, f, "ab   cd", 300), (V{"ab", "cd"}));
    EXPECT_EQ(wrapText(m, f, "  indented", 10000), (V{"  indented"}));
    EXPECT_EQ(wrapText(m, f, "", 1000), (V{""}));
    // Widths count characters: "é" is one, and a word is never cut inside one.
    EXPECT_EQ(m.textWidth(f, "café"), 400);
    EXPECT_EQ(wrapText(m, f, "ééé", 200), (V{"éé", "é"}));
}

TEST_F(SurfaceTest, MarginsGivenAsLengthsPlaceTheText) {
    EXPECT_TRUE(vp.setMarginLeft("1.5in"));
    EXPECT_TRUE(vp.setMarginTop("1in"));
    EXPECT_FALSE(vp.setMarginRight("wide"));
    EXPECT_EQ(vp.MarginRight(), 720);
    vp.StartDoc();
    vp.Paragraph("Hello");
    vp.EndDoc();
    const TextItem* t = findText(doc().pages[0], "Hello");
    ASSERT_NE(t, nullptr);
    EXPECT_EQ(t->x, 2160);
    EXPECT_EQ(t->y, 1440);
}

TEST_F(SurfaceTest, ParagraphsWrapAlignAndFlowOntoTheNextPage) {
    vp.StartDoc();
    vp.setTextAlign(Align::Right);
    vp.Paragraph("right");
    vp.setTextAlign(Align::Center);
    vp.Paragraph("mid");
    vp.setTextAlign(Align::Left);
    vp.Paragraph(std::string(150, 'x'));  // 15000 twips: two lines in the 10800 between the margins
    vp.CalcText(std::string(150, 'x'));
    EXPECT_EQ(vp.TextHei(), 480);
    EXPECT_EQ(vp.TextWid(), 10800);
    for (int i = 0; i < 80; ++i) vp.Paragraph("line " + std::to_string(i));
    vp.EndDoc();

    const Page& p1 = doc().pages[0];
    EXPECT_EQ(findText(p1, "right")->x + findText(p1, "right")->width, 11520);
    EXPECT_EQ(findText(p1, "mid")->x, 720 + (10800 - 300) / 2);
    EXPECT_EQ(findText(p1, std::string(108, 'x'))->y, 1080 + 480);
    ASSERT_EQ(doc().PageCount(), 2);
    for (const auto& page : doc().pages)
        for (const auto* t : pageTexts(page)) EXPECT_LE(t->y + t->height, bodyBottom()) << t->text;
    for (int i = 0; i < 80; ++i) EXPECT_EQ(countText(doc(), "line " + std::to_string(i)), 1);
    EXPECT_EQ(pageTexts(doc().pages[1]).front()->y, 1080);
}

TEST_F(SurfaceTest, TextContinuesOnTheLineUntilALineBreak) {
    vp.StartDoc();
    vp.Text("Name: ");
    EXPECT_EQ(vp.CurrentX(), 720 + 600);
    vp.Text("Smith\nnext");
    EXPECT_EQ(vp.CurrentY(), 1080 + 240);
    EXPECT_EQ(vp.CurrentX(), 720 + 400);
    vp.EndDoc();
    EXPECT_EQ(findText(doc().pages[0], "Smith")->x, 1320);
    EXPECT_EQ(findText(doc().pages[0], "next")->x, 720);
}

TEST_F(SurfaceTest, FooterAndHeaderNumberEachPageInTheirMargins) {
    vp.onBeforeFooter = [](Surface& s) {
        s.setFontSize(10);
        s.setFontItalic(false);
    };
    vp.setFontSize(14);
    vp.setFontItalic(true);
    vp.setFooter("printed|Page %d|end");
    vp.setHeader("||Weekly");
    vp.StartDoc();
    vp.Paragraph("one");
    vp.NewPage();
    vp.Paragraph("two");
    vp.NewPage();
    vp.EndDoc();

    ASSERT_EQ(doc().PageCount(), 3);
    for (int n = 1; n <= 3; ++n) {
        const Page& p = doc().pages[static_cast<std::size_t>(n) - 1];
        const TextItem* number = findText(p, "Page " + std::to_string(n));
        ASSERT_NE(number, nullptr) << n;
        EXPECT_EQ(number->x, 720 + (10800 - number->width) / 2);
        EXPECT_GE(number->y, bodyBottom());
        EXPECT_EQ(number->font.size, 10);
        EXPECT_FALSE(number->font.italic);
        EXPECT_EQ(findText(p, "printed")->x, 720);
        EXPECT_EQ(findText(p, "end")->x + findText(p, "end")->width, 11520);
        const TextItem* header = findText(p, "Weekly");
        ASSERT_NE(header, nullptr);
        EXPECT_LE(header->y + header->height, vp.MarginTop());
        EXPECT_EQ(header->x + header->width, 11520);
    }
    EXPECT_EQ(countText(doc(), "Page %d"), 0);
    // The footer's font was the footer's only.
    EXPECT_EQ(vp.FontSize(), 14);
    EXPECT_TRUE(vp.FontItalic());
}

TEST_F(SurfaceTest, PageEventsComeOnlyWhenNotExporting) {
    int pages = 0;
    vp.onNewPage = [&](Surface&) { ++pages; };
    vp.StartDoc();
    vp.NewPage();
    vp.EndDoc();
    EXPECT_EQ(pages, 2);

    testing::TempFolder temp;
    const auto file = temp.path() / "events.rtf";
    vp.setExportFormat(kExportRtf);
    vp.setExportFile(file.string());
    pages = 0;
    vp.StartDoc();
    vp.NewPage();
    vp.EndDoc();
    EXPECT_EQ(pages, 0);
    EXPECT_TRUE(std::filesystem::exists(file));

    vp.setExportFile("/no/such/folder/out.rtf");
    vp.StartDoc();
    vp.Paragraph("kept");
    EXPECT_THROW(vp.EndDoc(), ReportError);
    // The composed document is still there to preview.
    EXPECT_EQ(countText(*vp.document(), "kept"), 1);
}

// --- Tables

TEST_F(SurfaceTest, ColumnWidthsFromFormatLengthsAndTheRestOfThePage) {
    vp.StartDoc();
    vp.StartTable();
    Table& t = vp.AddTable(">1440|^2000|", "A|B|C", "r|c|l");
    EXPECT_EQ(t.Cols(), 3);
    EXPECT_EQ(t.Rows(), 1);
    EXPECT_EQ(t.colAlign(1), Align::Right);
    EXPECT_EQ(t.colAlign(2), Align::Center);
    EXPECT_TRUE(t.setColWidth(2, "1.5in"));
    EXPECT_FALSE(t.setColWidth(2, "wide"));
    EXPECT_EQ(t.colWidth(2), 2160);
    vp.EndTable();
    vp.EndDoc();

    const Page& p = doc().pages[0];
    const TextItem* r = findText(p, "r");
    const TextItem* c = findText(p, "c");
    const TextItem* l = findText(p, "l");
    EXPECT_EQ(r->x + r->width, 720 + 1440 - Surface::kCellMarginX);
    EXPECT_EQ(c->x, 720 + 1440 + (2160 - 100) / 2);
    EXPECT_EQ(l->x, 720 + 1440 + 2160 + Surface::kCellMarginX);
    // The default column takes what the others leave between the margins.
    const auto& block = std::get<TableBlock>(doc().flow.back());
    EXPECT_EQ(block.colWidths, (std::vector<int>{1440, 2160, 10800 - 1440 - 2160}));

    // Without a header, the widest body row makes the columns.
    const Table plain("|", "", "a|b;c", Font{});
    EXPECT_EQ(plain.Cols(), 2);
    EXPECT_EQ(plain.Rows(), 2);
    EXPECT_FALSE(plain.hasHeader());
    EXPECT_EQ(plain.text(2, 1), "c");
}

TEST_F(SurfaceTest, HeaderRowRepeatsAfterEveryPageBreak) {
    vp.onNewPage = [](Surface& s) {
        s.Text("Weekly Report");
        s.setCurrentY(s.MarginTop() + 480);
    };
    vp.StartDoc();
    vp.StartTable();
    Table& t = vp.AddTable("|", "Name|Mon");
    t.setRows(120);
    for (int r = 1; r <= 120; ++r) t.setText(r, 1, "row " + std::to_string(r));
    vp.EndTable();
    vp.EndDoc();

    ASSERT_GE(doc().PageCount(), 3);
    for (std::size_t i = 0; i < doc().pages.size(); ++i) {
        const Page& p = doc().pages[i];
        const TextItem* title = findText(p, "Weekly Report");
        const TextItem* header = findText(p, "Name");
        ASSERT_NE(header, nullptr) << "page " << i + 1;
        // Below the page's heading, above every row of the page.
        EXPECT_EQ(header->y, title->y + 480 + Surface::kCellMarginY);
        for (const auto* text : pageTexts(p)) {
            if (!text->text.starts_with("row ")) continue;
            EXPECT_GT(text->y, header->y);
            EXPECT_LE(text->y + text->height, bodyBottom());
        }
    }
    for (int r = 1; r <= 120; ++r) EXPECT_EQ(countText(doc(), "row " + std::to_string(r)), 1) << r;
}

TEST_F(SurfaceTest, PaddingAddsToTheNaturalRowHeight) {
    vp.StartDoc();
    Table& t = vp.AddTable("|", "H", "a;b\nb2;c");
    t.setRowPadding(1, t.Rows(), 100);
    t.setRowHeight(3, 3, 1000);
    vp.EndTable();
    vp.EndDoc();
    const Page& p = doc().pages[0];
    const int natural = 240 + 2 * Surface::kCellMarginY;
    EXPECT_EQ(findText(p, "a")->y - findText(p, "H")->y, natural);
    EXPECT_EQ(findText(p, "b")->y - findText(p, "a")->y, natural + 100);
    EXPECT_EQ(findText(p, "c")->y - findText(p, "b")->y, 480 + 2 * Surface::kCellMarginY + 100);
    const auto& block = std::get<TableBlock>(doc().flow.back());
    EXPECT_EQ(block.rowHeights[3], 1000 + 100);
    EXPECT_EQ(vp.CurrentY(), findText(p, "c")->y - Surface::kCellMarginY + 1100);
}

TEST_F(SurfaceTest, ARowThatFitsAPageIsNeverSplit) {
    vp.StartDoc();
    Table& t = vp.AddTable("|", "H");
    t.setRows(40);
    for (int r = 1; r <= 40; ++r) t.setText(r, 1, "r" + std::to_string(r) + "a\nr" + std::to_string(r) + "b\nend");
    vp.EndTable();
    vp.EndDoc();
    ASSERT_GE(doc().PageCount(), 2);
    for (int r = 1; r <= 40; ++r)
        EXPECT_EQ(pagesWith(doc(), "r" + std::to_string(r) + "a"), pagesWith(doc(), "r" + std::to_string(r) + "b"));
}

TEST_F(SurfaceTest, ARowTallerThanAPageIsSplitWithoutLosingALine) {
    vp.StartDoc();
    vp.Paragraph("before");
    Table& t = vp.AddTable("|", "Day");
    t.setRows(2);
    std::string tall;
    for (int i = 1; i <= 130; ++i) tall += (i > 1 ? "\n" : "") + std::string("entry ") + std::to_string(i);
    t.setText(1, 1, tall);
    t.setText(2, 1, "after");
    vp.EndTable();
    vp.EndDoc();

    ASSERT_EQ(doc().PageCount(), 3);
    for (int i = 1; i <= 130; ++i) EXPECT_EQ(countText(doc(), "entry " + std::to_string(i)), 1) << i;
    // The row starts where it stands, under the paragraph, and the header opens every page.
    EXPECT_EQ(pagesWith(doc(), "entry 1"), std::vector<int>{1});
    EXPECT_EQ(pagesWith(doc(), "Day"), (std::vector<int>{1, 2, 3}));
    for (const auto& page : doc().pages)
        for (const auto* text : pageTexts(page)) EXPECT_LE(text->y + text->height, bodyBottom()) << text->text;
    EXPECT_EQ(pagesWith(doc(), "after"), std::vector<int>{3});
}

TEST_F(SurfaceTest, AHeaderDoesNotStandAloneAtTheFootOfAPage) {
    vp.StartDoc();
    // Room for the header and one line, not for the first row's three.
    vp.setCurrentY(bodyBottom() - 800);
    vp.AddTable("|", "Head", "body\nmore\nmost");
    vp.EndTable();
    vp.EndDoc();
    EXPECT_EQ(pagesWith(doc(), "Head"), std::vector<int>{2});
    EXPECT_EQ(pagesWith(doc(), "body"), std::vector<int>{2});
}

TEST_F(SurfaceTest, CellFormatsFallBackToTheTableAndColumn) {
    vp.setFontName("Courier New");
    vp.setFontSize(9);
    vp.StartDoc();
    Table& t = vp.AddTable("|", "A|B", "1|2;3|4");
    t.setBackColor(t.row(0), rgb(200, 200, 200));
    t.setFontBold(Table::cell(2, 2), true);
    t.setColAlign(2, Align::Right);
    t.setAlign(Table::cell(1, 2), Align::Center);
    EXPECT_EQ(t.cellFont(1, 1), (Font{"Courier New", 9, false, false}));
    EXPECT_TRUE(t.cellFont(2, 2).bold);
    EXPECT_EQ(t.cellAlign(1, 2), Align::Center);
    EXPECT_EQ(t.cellAlign(2, 2), Align::Right);
    EXPECT_EQ(t.backColor(0, 2), rgb(200, 200, 200));
    EXPECT_EQ(t.backColor(1, 2), std::nullopt);
    EXPECT_THROW(t.setText(3, 1, "x"), ReportError);
    EXPECT_THROW(t.setText(1, 0, "x"), ReportError);
    vp.EndTable();
    vp.EndDoc();
    int greys = 0;
    for (const auto& item : doc().pages[0].items)
        if (const auto* r = std::get_if<RectItem>(&item)) greys += r->fill == rgb(200, 200, 200);
    EXPECT_EQ(greys, 2);
}

}  // namespace
}  // namespace tallymere::reports

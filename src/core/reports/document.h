#pragma once
// A composed report, independent of any device. It is kept twice over: as laid-out pages of
// positioned text, lines and filled rectangles in twips from the paper's top left corner, which the
// app paints on the preview, the printer and PDF; and as the flow of paragraphs, rules and tables
// it was written as, which the RTF writer turns into a document that a word processor lays out anew.

#include "reports/font_metrics.h"
#include "reports/report_error.h"
#include "reports/table.h"

#include <string>
#include <variant>
#include <vector>

namespace tallymere::reports {

enum class PenStyle { Solid = 0, Dash = 1, Dot = 2, DashDot = 3, DashDotDot = 4, Transparent = 5 };

// One line of text. `y` is the top of the line and `height` the line's height in its font, so that a
// device places the baseline by its own ascent; `width` is the measured width.
struct TextItem {
    int x = 0, y = 0, width = 0, height = 0;
    Font font;
    Color color = kBlack;
    std::string text;
};

struct LineItem {
    int x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    int width = 1;  // twips; a device draws at least its thinnest line
    PenStyle style = PenStyle::Solid;
    Color color = kBlack;
};

struct RectItem {
    int x = 0, y = 0, width = 0, height = 0;
    Color fill;
};

// Painted in order: later items over earlier ones.
using PageItem = std::variant<RectItem, LineItem, TextItem>;

struct Page {
    int width = 0, height = 0;
    std::vector<PageItem> items;
};

// --- The flow

struct Span {
    Font font;
    std::string text;
};
struct ParagraphBlock {
    std::vector<Span> spans;
    Align align = Align::Left;
    int indentLeft = 0;  // from the left margin
};
// A horizontal rule across the text width.
struct RuleBlock {
    int width = 1;
    PenStyle style = PenStyle::Solid;
};
// Empty room of a fixed height.
struct SpaceBlock {
    int height = 0;
};
struct TableBlock {
    Table table;
    int indentLeft = 0;           // from the left margin
    std::vector<int> colWidths;   // as laid out, columns 1..n at [0..n-1]
    std::vector<int> rowHeights;  // as laid out, row 0 (the header) first
};
struct PageBreakBlock {};
using Block = std::variant<ParagraphBlock, RuleBlock, SpaceBlock, TableBlock, PageBreakBlock>;

struct Document {
    // Page setup of the first page.
    int orientation = 1;
    int paperSize = 1;
    int pageWidth = 12240, pageHeight = 15840;
    int marginTop = 1080, marginBottom = 720, marginLeft = 720, marginRight = 720;

    std::vector<Page> pages;
    std::vector<Block> flow;

    // Header and footer as they stood when the document ended, for outputs that flow the text:
    // three fields "left|centre|right", "%d" the page number.
    std::string header, footer;
    Font headerFont, footerFont;

    int PageCount() const { return static_cast<int>(pages.size()); }
};

}  // namespace tallymere::reports

#include "reports/surface.h"

#include "common/text.h"
#include "reports/rtf_writer.h"

#include <algorithm>
#include <cmath>

namespace tallymere::reports {

struct Surface::RowLayout {
    struct CellLines {
        std::vector<std::string> lines;
        Font font;
        std::optional<Color> color;
        int lineHeight = 0;
        Align align = Align::Left;
    };
    std::vector<CellLines> cells;
    int height = 0;
};

namespace {

// Runs an event handler with the flow switched off, so that what a page's heading or footer writes
// stays on the pages and is not taken for the report's own text.
class EventScope {
public:
    explicit EventScope(int& depth) : depth_(depth) { ++depth_; }
    ~EventScope() { --depth_; }
    EventScope(const EventScope&) = delete;
    EventScope& operator=(const EventScope&) = delete;

private:
    int& depth_;
};

}  // namespace

Surface::Surface(const FontMetrics& metrics) : metrics_(metrics) {}
Surface::~Surface() = default;

void Surface::setOrientation(int orientation) {
    setup_.orientation = orientation == kLandscape ? kLandscape : kPortrait;
}

bool Surface::setPaperSize(int code) {
    if (!findPaperSize(code)) return false;
    setup_.paperSize = code;
    return true;
}

namespace {
bool setLength(int& margin, std::string_view length) {
    const auto t = parseTwips(length);
    if (!t) return false;
    margin = *t;
    return true;
}
}  // namespace

bool Surface::setMarginTop(std::string_view length) { return setLength(setup_.marginTop, length); }
bool Surface::setMarginBottom(std::string_view length) { return setLength(setup_.marginBottom, length); }
bool Surface::setMarginLeft(std::string_view length) { return setLength(setup_.marginLeft, length); }
bool Surface::setMarginRight(std::string_view length) { return setLength(setup_.marginRight, length); }

// --- Document and pages

void Surface::StartDoc() {
    building_ = std::make_shared<Document>();
    Document& d = *building_;
    d.orientation = setup_.orientation;
    d.paperSize = setup_.paperSize;
    d.pageWidth = PageWidth();
    d.pageHeight = PageHeight();
    d.marginTop = setup_.marginTop;
    d.marginBottom = setup_.marginBottom;
    d.marginLeft = setup_.marginLeft;
    d.marginRight = setup_.marginRight;
    currentPage_ = -1;
    pageOpen_ = false;
    tableStarted_ = false;
    table_.reset();
    pendingParagraph_.reset();
    beginPage();
}

void Surface::ensureDoc() {
    if (!building_) StartDoc();
}

void Surface::beginPage() {
    building_->pages.push_back(Page{PageWidth(), PageHeight(), {}});
    currentPage_ = static_cast<int>(building_->pages.size()) - 1;
    pageOpen_ = true;
    currentX_ = setup_.marginLeft;
    currentY_ = setup_.marginTop;
    if (exportFile_.empty() && onNewPage) {
        EventScope scope(eventDepth_);
        onNewPage(*this);
    }
    flowY_ = currentY_;
}

void Surface::finishPage() {
    if (!pageOpen_) return;
    pageOpen_ = false;
    EventScope scope(eventDepth_);
    const Font saved = font_;
    if (onBeforeFooter) onBeforeFooter(*this);
    Page& p = page();
    const int h = lineHeight(font_);
    if (!header_.empty()) drawHeaderFooter(p, header_, std::max(0, (setup_.marginTop - h) / 2), font_);
    if (!footer_.empty())
        drawHeaderFooter(p, footer_, bodyBottom() + std::max(0, (setup_.marginBottom - h) / 2), font_);
    building_->header = header_;
    building_->footer = footer_;
    building_->headerFont = font_;
    building_->footerFont = font_;
    if (onAfterFooter) onAfterFooter(*this);
    font_ = saved;
}

void Surface::drawHeaderFooter(Page& p, const std::string& text, int top, const Font& f) {
    auto fields = common::split(text, '|');
    fields.resize(3);
    const std::string number = std::to_string(currentPage_ + 1);
    const int left = setup_.marginLeft, right = bodyRight();
    for (int i = 0; i < 3; ++i) {
        const std::string s =
            common::replaceAll(common::replaceAll(fields[static_cast<std::size_t>(i)], "\r", ""), "\n", " ");
        if (s.empty()) continue;
        const std::string shown = common::replaceAll(s, "%d", number);
        const int w = width(f, shown);
        const int x = i == 0 ? left : i == 1 ? left + (right - left - w) / 2 : right - w;
        p.items.push_back(TextItem{x, top, w, lineHeight(f), f, textColor_, shown});
    }
}

void Surface::NewPage() {
    ensureDoc();
    flowEndParagraph();
    if (recording()) flowBlock(PageBreakBlock{});
    finishPage();
    beginPage();
}

int Surface::PageCount() const {
    if (building_) return building_->PageCount();
    return done_ ? done_->PageCount() : 0;
}

void Surface::EndDoc() {
    if (!building_) return;
    if (tableStarted_) EndTable();
    flowEndParagraph();
    finishPage();
    done_ = std::move(building_);
    building_.reset();
    if (exportFile_.empty()) return;
    if (exportFormat_ != kExportRtf)
        throw ReportError("Export format " + std::to_string(exportFormat_) + " is not supported.");
    writeRtfFile(*done_, exportFile_);
}

Page& Surface::page() { return building_->pages[static_cast<std::size_t>(currentPage_)]; }

int Surface::lineHeight(const Font& f) const { return static_cast<int>(std::ceil(metrics_.get().lineHeight(f))); }

int Surface::width(const Font& f, std::string_view text) const {
    return static_cast<int>(std::ceil(metrics_.get().textWidth(f, text)));
}

void Surface::breakIfNeeded(int height) {
    if (currentY_ + height > bodyBottom() && currentY_ > setup_.marginTop) {
        finishPage();
        beginPage();
    }
}

void Surface::addText(int x, int y, const std::string& text, const Font& f, int w) {
    if (text.empty()) return;
    page().items.push_back(TextItem{x, y, w < 0 ? width(f, text) : w, lineHeight(f), f, textColor_, text});
}

// --- Text

void Surface::CalcText(std::string_view text) {
    const auto lines = wrapText(metrics_, font_, text, std::max(1, bodyRight() - bodyLeft()));
    textHei_ = static_cast<int>(lines.size()) * lineHeight(font_);
    textWid_ = 0;
    for (const auto& l : lines) textWid_ = std::max(textWid_, width(font_, l));
}

void Surface::Text(std::string_view text) {
    ensureDoc();
    const int lh = lineHeight(font_);
    const auto hardLines = common::split(common::replaceAll(text, "\r\n", "\n"), '\n');
    for (std::size_t i = 0; i < hardLines.size(); ++i) {
        if (i > 0) {
            flowEndParagraph();
            currentY_ += lh;
            currentX_ = bodyLeft();
        }
        const std::string& hard = hardLines[i];
        if (hard.empty()) continue;
        if (currentX_ > bodyLeft() && width(font_, hard) > bodyRight() - currentX_) {
            // What does not fit beside the text already on the line starts the next line.
            currentY_ += lh;
            currentX_ = bodyLeft();
        }
        if (currentX_ < bodyLeft()) currentX_ = bodyLeft();
        flowSpan(hard);
        const auto lines = wrapText(metrics_, font_, hard, std::max(1, bodyRight() - currentX_));
        for (std::size_t j = 0; j < lines.size(); ++j) {
            if (j > 0) {
                currentY_ += lh;
                currentX_ = bodyLeft();
            }
            breakIfNeeded(lh);
            const int w = width(font_, lines[j]);
            addText(currentX_, currentY_, lines[j], font_, w);
            currentX_ += w;
        }
        pendingBottom_ = currentY_ + lh;
    }
}

void Surface::Paragraph(std::string_view text) {
    ensureDoc();
    const int lh = lineHeight(font_);
    if (currentX_ > bodyLeft()) {
        currentY_ += lh;
        currentX_ = bodyLeft();
    }
    flowEndParagraph();
    flowGap();
    const int left = bodyLeft(), right = bodyRight();
    for (const auto& line : wrapText(metrics_, font_, text, std::max(1, right - left))) {
        breakIfNeeded(lh);
        const int w = width(font_, line);
        const int x = textAlign_ == Align::Left    ? left
                      : textAlign_ == Align::Right ? right - w
                                                   : left + (right - left - w) / 2;
        addText(x, currentY_, line, font_, w);
        currentY_ += lh;
    }
    currentX_ = left;
    if (recording()) {
        ParagraphBlock p;
        p.spans.push_back(Span{font_, std::string(text)});
        p.align = textAlign_;
        p.indentLeft = indentLeft_;
        flowBlock(std::move(p));
        flowY_ = currentY_;
    }
}

void Surface::DrawLine(int x1, int y1, int x2, int y2) {
    ensureDoc();
    page().items.push_back(LineItem{x1, y1, x2, y2, penWidth_, penStyle_, textColor_});
    if (recording() && y1 == y2) {
        flowEndParagraph();
        flowBlock(RuleBlock{penWidth_, penStyle_});
    }
}

// --- The flow

void Surface::flowSpan(const std::string& text) {
    if (!recording() || text.empty()) return;
    if (!pendingParagraph_) {
        flowGap();
        pendingParagraph_.emplace();
        pendingParagraph_->align = textAlign_;
        pendingParagraph_->indentLeft = indentLeft_;
    }
    auto& spans = pendingParagraph_->spans;
    if (!spans.empty() && spans.back().font == font_)
        spans.back().text += text;
    else
        spans.push_back(Span{font_, text});
}

void Surface::flowEndParagraph() {
    if (!pendingParagraph_) return;
    building_->flow.emplace_back(std::move(*pendingParagraph_));
    pendingParagraph_.reset();
    flowY_ = pendingBottom_;
}

void Surface::flowGap() {
    if (!recording()) return;
    if (currentY_ > flowY_) building_->flow.emplace_back(SpaceBlock{currentY_ - flowY_});
    flowY_ = currentY_;
}

void Surface::flowBlock(Block b) { building_->flow.push_back(std::move(b)); }

// --- Tables

void Surface::StartTable() {
    ensureDoc();
    tableStarted_ = true;
    table_.reset();
}

Table& Surface::AddTable(std::string_view format, std::string_view header, std::string_view body) {
    if (!tableStarted_) StartTable();
    table_.emplace(format, header, body, font_);
    return *table_;
}

Table& Surface::table() {
    if (!table_) throw ReportError("No table has been added.");
    return *table_;
}

void Surface::EndTable() {
    tableStarted_ = false;
    if (!table_) return;
    Table t = std::move(*table_);
    table_.reset();
    ensureDoc();
    if (t.Cols() > 0) layoutTable(t);
}

std::vector<int> Surface::resolveWidths(const Table& t) const {
    std::vector<int> widths(static_cast<std::size_t>(t.Cols()));
    int fixed = 0, unset = 0;
    for (int c = 1; c <= t.Cols(); ++c) {
        widths[static_cast<std::size_t>(c - 1)] = t.colWidth(c);
        if (t.colWidth(c) > 0)
            fixed += t.colWidth(c);
        else
            ++unset;
    }
    if (unset > 0) {
        const int room = bodyRight() - bodyLeft() - fixed;
        const int share = room >= unset * 360 ? room / unset : kTwipsPerInch;
        for (auto& w : widths)
            if (w == 0) w = share;
    }
    return widths;
}

Surface::RowLayout Surface::measureRow(const Table& t, int row, const std::vector<int>& widths) const {
    RowLayout r;
    int content = 0;
    for (int c = 1; c <= t.Cols(); ++c) {
        RowLayout::CellLines cell;
        cell.font = t.cellFont(row, c);
        cell.color = t.foreColor(row, c);
        cell.lineHeight = lineHeight(cell.font);
        cell.align = t.cellAlign(row, c);
        const int inner = std::max(1, widths[static_cast<std::size_t>(c - 1)] - 2 * kCellMarginX);
        const std::string& text = t.text(row, c);
        if (!text.empty()) cell.lines = wrapText(metrics_, cell.font, text, inner);
        content = std::max(content, static_cast<int>(cell.lines.size()) * cell.lineHeight);
        if (cell.lines.empty()) content = std::max(content, cell.lineHeight);
        r.cells.push_back(std::move(cell));
    }
    r.height = std::max(content + 2 * kCellMarginY, t.rowMinHeight(row)) + t.rowPadding(row);
    return r;
}

void Surface::drawRow(const RowLayout& row, const std::vector<int>& widths, int left, int top, int height,
                      std::vector<std::size_t>& nextLine, bool force) {
    Page& p = page();
    int x = left;
    for (std::size_t c = 0; c < row.cells.size(); ++c) {
        const auto& cell = row.cells[c];
        const int w = widths[c];
        std::size_t& k = nextLine[c];
        int y = top + kCellMarginY;
        bool first = true;
        while (k < cell.lines.size() && (y + cell.lineHeight <= top + height - kCellMarginY || (force && first))) {
            const std::string& line = cell.lines[k];
            const int lw = width(cell.font, line);
            const int inner = w - 2 * kCellMarginX;
            const int lx = cell.align == Align::Left    ? x + kCellMarginX
                           : cell.align == Align::Right ? x + w - kCellMarginX - lw
                                                        : x + kCellMarginX + (inner - lw) / 2;
            if (!line.empty())
                p.items.push_back(
                    TextItem{lx, y, lw, cell.lineHeight, cell.font, cell.color.value_or(textColor_), line});
            y += cell.lineHeight;
            ++k;
            first = false;
        }
        x += w;
    }
}

void Surface::layoutTable(Table& t) {
    flowEndParagraph();
    flowGap();
    const auto widths = resolveWidths(t);
    std::vector<RowLayout> rows;
    rows.reserve(static_cast<std::size_t>(t.Rows()) + 1);
    for (int r = 0; r <= t.Rows(); ++r) rows.push_back(t.hasHeader() || r > 0 ? measureRow(t, r, widths) : RowLayout{});
    const int tableWidth = [&] {
        int sum = 0;
        for (int w : widths) sum += w;
        return sum;
    }();
    const int headerHeight = t.hasHeader() ? rows[0].height : 0;
    const int left = bodyLeft();

    // Backgrounds under the text, borders over both.
    auto paintRow = [&](int r, int top, int height, std::vector<std::size_t>& nextLine, bool force) {
        Page& p = page();
        int x = left;
        for (int c = 1; c <= t.Cols(); ++c) {
            const int w = widths[static_cast<std::size_t>(c - 1)];
            if (const auto bg = t.backColor(r, c)) p.items.push_back(RectItem{x, top, w, height, *bg});
            x += w;
        }
        drawRow(rows[static_cast<std::size_t>(r)], widths, left, top, height, nextLine, force);
        // Every row draws its top rule over its own background, which would hide the rule of the row above.
        p.items.push_back(LineItem{left, top, left + tableWidth, top, kTableBorder});
        p.items.push_back(LineItem{left, top + height, left + tableWidth, top + height, kTableBorder});
        x = left;
        p.items.push_back(LineItem{x, top, x, top + height, kTableBorder});
        for (int w : widths) {
            x += w;
            p.items.push_back(LineItem{x, top, x, top + height, kTableBorder});
        }
    };

    int y = currentY_;
    int pageTop = y;  // where body rows begin on this page, below the header row
    auto startPage = [&](bool breakFirst) {
        if (breakFirst) {
            finishPage();
            beginPage();
            y = currentY_;
        }
        if (t.hasHeader()) {
            std::vector<std::size_t> next(widths.size(), 0);
            paintRow(0, y, headerHeight, next, true);
            y += headerHeight;
        }
        pageTop = y;
    };

    // A header never stands alone at the foot of a page.
    // (Of a first row that must be split anyway, its first line is enough.)
    int firstBody = 0;
    if (t.Rows() > 0) {
        int firstLine = 0;
        for (const auto& c : rows[1].cells) firstLine = std::max(firstLine, c.lineHeight);
        const bool split = rows[1].height > bodyBottom() - setup_.marginTop - headerHeight;
        firstBody = split ? firstLine + 2 * kCellMarginY : rows[1].height;
    }
    startPage(y + headerHeight + firstBody > bodyBottom() && y > setup_.marginTop);

    for (int r = 1; r <= t.Rows(); ++r) {
        const RowLayout& row = rows[static_cast<std::size_t>(r)];
        // A row goes whole to the next page when it would fit on one; a row taller than a page is split
        // between lines where it stands.
        if (y + row.height > bodyBottom() && y > pageTop && row.height <= bodyBottom() - pageTop) startPage(true);
        std::vector<std::size_t> next(widths.size(), 0);
        if (y + row.height <= bodyBottom()) {
            paintRow(r, y, row.height, next, false);
            y += row.height;
            continue;
        }
        while (true) {
            int rest = 0, nextLine = 0;  // what is left of the row, and its next line's height
            for (std::size_t c = 0; c < row.cells.size(); ++c) {
                const auto& cell = row.cells[c];
                rest = std::max(rest, static_cast<int>(cell.lines.size() - next[c]) * cell.lineHeight);
                if (next[c] < cell.lines.size()) nextLine = std::max(nextLine, cell.lineHeight);
            }
            const int last = std::max(rest + 2 * kCellMarginY, t.rowMinHeight(r)) + t.rowPadding(r);
            const int room = bodyBottom() - y;
            if (last <= room) {
                paintRow(r, y, last, next, y == pageTop);
                y += last;
                break;
            }
            if (nextLine + 2 * kCellMarginY <= room || y == pageTop) {
                const int height = std::max(room, nextLine + 2 * kCellMarginY);
                paintRow(r, y, height, next, y == pageTop);
                bool more = false;
                for (std::size_t c = 0; c < row.cells.size(); ++c) more = more || next[c] < row.cells[c].lines.size();
                if (!more) {
                    y += height;
                    break;
                }
            }
            startPage(true);
        }
    }
    currentY_ = y;
    currentX_ = setup_.marginLeft;

    if (recording()) {
        TableBlock b{std::move(t), indentLeft_, widths, {}};
        for (const auto& r : rows) b.rowHeights.push_back(r.height);
        flowBlock(std::move(b));
        flowY_ = currentY_;
    }
}

}  // namespace tallymere::reports

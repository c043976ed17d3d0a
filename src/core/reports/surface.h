#pragma once
// The report surface: what every report composes into. Its operations carry the names the reports
// use (page setup, StartDoc/EndDoc, fonts, Text and Paragraph, DrawLine, StartTable/AddTable/EndTable,
// header and footer). It lays out pages itself, measuring text through the FontMetrics port, and
// records a Document that the app paints and the RTF writer writes. Positions are in twips from the
// paper's top left corner.

#include "reports/document.h"
#include "reports/font_metrics.h"
#include "reports/page_setup.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tallymere::reports {

// The export format that writes RTF.
constexpr int kExportRtf = 4;

class Surface {
public:
    explicit Surface(const FontMetrics& metrics);
    ~Surface();
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;

    const FontMetrics& metrics() const { return metrics_; }
    void setMetrics(const FontMetrics& m) { metrics_ = m; }

    // --- Page setup, set before StartDoc; margins may change between pages.
    int Orientation() const { return setup_.orientation; }
    void setOrientation(int orientation);
    int PaperSize() const { return setup_.paperSize; }
    // False for a paper the surface does not know; the size is then unchanged.
    bool setPaperSize(int code);
    const std::string& Device() const { return setup_.device; }
    void setDevice(std::string device) { setup_.device = std::move(device); }
    int MarginTop() const { return setup_.marginTop; }
    int MarginBottom() const { return setup_.marginBottom; }
    int MarginLeft() const { return setup_.marginLeft; }
    int MarginRight() const { return setup_.marginRight; }
    void setMarginTop(int twips) { setup_.marginTop = twips; }
    void setMarginBottom(int twips) { setup_.marginBottom = twips; }
    void setMarginLeft(int twips) { setup_.marginLeft = twips; }
    void setMarginRight(int twips) { setup_.marginRight = twips; }
    // A margin as text: twips ("720") or a length ("1.5in"). False, and the margin unchanged, for
    // another text.
    bool setMarginTop(std::string_view length);
    bool setMarginBottom(std::string_view length);
    bool setMarginLeft(std::string_view length);
    bool setMarginRight(std::string_view length);
    const PageSettings& pageSettings() const { return setup_; }
    void setPageSettings(const PageSettings& p) { setup_ = p; }
    int PageWidth() const { return setup_.pageWidth(); }
    int PageHeight() const { return setup_.pageHeight(); }

    // --- Export: with a file name, EndDoc writes the document to it (RTF is format 4). While a file
    // is named the surface raises no new-page events: a flowing document has no pages of its own.
    int ExportFormat() const { return exportFormat_; }
    void setExportFormat(int format) { exportFormat_ = format; }
    const std::string& ExportFile() const { return exportFile_; }
    void setExportFile(std::string path) { exportFile_ = std::move(path); }

    // --- Document
    // Opens a new document on page 1; the finished one stays readable until this one ends.
    void StartDoc();
    // Closes the document; with an export file named, writes it. Throws ReportError when it cannot.
    void EndDoc();
    bool docOpen() const { return building_ != nullptr; }
    // Ends the page and starts the next.
    void NewPage();
    // Pages composed so far (of the open document, else of the last one).
    int PageCount() const;
    // The last finished document; empty before the first EndDoc.
    std::shared_ptr<const Document> document() const { return done_; }

    // --- Current font, for text and as the default of tables.
    const Font& font() const { return font_; }
    void setFont(const Font& f) { font_ = f; }
    const std::string& FontName() const { return font_.name; }
    double FontSize() const { return font_.size; }
    bool FontBold() const { return font_.bold; }
    bool FontItalic() const { return font_.italic; }
    void setFontName(std::string name) { font_.name = std::move(name); }
    void setFontSize(double size) { font_.size = size; }
    void setFontBold(bool bold) { font_.bold = bold; }
    void setFontItalic(bool italic) { font_.italic = italic; }
    const Color& TextColor() const { return textColor_; }
    void setTextColor(Color c) { textColor_ = c; }

    // --- Header and footer: "left|centre|right", "%d" the page number. A page takes the texts and
    // the font in force when it ends.
    const std::string& Header() const { return header_; }
    void setHeader(std::string text) { header_ = std::move(text); }
    const std::string& Footer() const { return footer_; }
    void setFooter(std::string text) { footer_ = std::move(text); }

    // --- Writing text. CurrentX/CurrentY are where the next text starts (the top of its line);
    // IndentLeft is added to the left margin where lines begin.
    int CurrentX() const { return currentX_; }
    int CurrentY() const { return currentY_; }
    void setCurrentX(int x) { currentX_ = x; }
    void setCurrentY(int y) { currentY_ = y; }
    int IndentLeft() const { return indentLeft_; }
    void setIndentLeft(int twips) { indentLeft_ = twips; }
    Align TextAlign() const { return textAlign_; }
    void setTextAlign(Align a) { textAlign_ = a; }
    // Measures a text as Paragraph would lay it in the current font and indent: TextHei and TextWid.
    void CalcText(std::string_view text);
    int TextHei() const { return textHei_; }
    int TextWid() const { return textWid_; }
    // Writes at CurrentX/CurrentY without ending the line; "\n" ends it. Afterwards CurrentX is the
    // end of the text and CurrentY the top of its last line.
    void Text(std::string_view text);
    // Writes a paragraph from the left (plus IndentLeft), aligned by TextAlign, and moves below it.
    void Paragraph(std::string_view text);

    // --- Lines
    int PenWidth() const { return penWidth_; }
    void setPenWidth(int twips) { penWidth_ = twips; }
    PenStyle penStyle() const { return penStyle_; }
    void setPenStyle(PenStyle s) { penStyle_ = s; }
    void setPenStyle(int s) { penStyle_ = s >= 0 && s <= 5 ? static_cast<PenStyle>(s) : PenStyle::Solid; }
    void DrawLine(int x1, int y1, int x2, int y2);

    // --- Tables: StartTable, AddTable (columns and header), fill and format the cells, EndTable
    // lays it out from CurrentY, breaking pages and repeating the header row on each.
    void StartTable();
    Table& AddTable(std::string_view format, std::string_view header, std::string_view body = {});
    // The table between AddTable and EndTable; throws ReportError outside one.
    Table& table();
    void EndTable();
    bool inTable() const { return tableStarted_; }

    // Cell margins and border of tables, in twips.
    static constexpr int kCellMarginX = 60;
    static constexpr int kCellMarginY = 20;
    static constexpr int kTableBorder = 10;

    // --- Events: a page begins (not while exporting), before and after a page's footer is drawn.
    // The font is put back after the footer.
    std::function<void(Surface&)> onNewPage;
    std::function<void(Surface&)> onBeforeFooter;
    std::function<void(Surface&)> onAfterFooter;

private:
    struct RowLayout;
    void ensureDoc();
    void beginPage();
    void finishPage();
    void drawHeaderFooter(Page& page, const std::string& text, int top, const Font& font);
    Page& page();
    int bodyLeft() const { return setup_.marginLeft + indentLeft_; }
    int bodyRight() const { return PageWidth() - setup_.marginRight; }
    int bodyBottom() const { return PageHeight() - setup_.marginBottom; }
    int lineHeight(const Font& f) const;
    int width(const Font& f, std::string_view text) const;
    // Moves to a new page when a line of `height` no longer fits below CurrentY.
    void breakIfNeeded(int height);
    void addText(int x, int y, const std::string& text, const Font& f, int w = -1);

    // The flow, as RTF sees the document.
    bool recording() const { return eventDepth_ == 0 && building_ != nullptr; }
    void flowSpan(const std::string& text);
    void flowEndParagraph();
    void flowBlock(Block b);
    void flowGap();

    void layoutTable(Table& t);
    std::vector<int> resolveWidths(const Table& t) const;
    RowLayout measureRow(const Table& t, int row, const std::vector<int>& widths) const;
    // Draws the lines of a row's cells that fit in `height`, from each cell's next line on; `force`
    // draws one line of each cell even where it does not fit, so that a split row always moves on.
    void drawRow(const RowLayout& row, const std::vector<int>& widths, int left, int top, int height,
                 std::vector<std::size_t>& nextLine, bool force);

    std::reference_wrapper<const FontMetrics> metrics_;
    PageSettings setup_;
    int exportFormat_ = 0;
    std::string exportFile_;

    std::shared_ptr<Document> building_;
    std::shared_ptr<const Document> done_;
    int currentPage_ = -1;
    bool pageOpen_ = false;
    int eventDepth_ = 0;

    Font font_;
    Color textColor_ = kBlack;
    std::string header_, footer_;
    int currentX_ = 0, currentY_ = 0, indentLeft_ = 0;
    Align textAlign_ = Align::Left;
    int textHei_ = 0, textWid_ = 0;
    int penWidth_ = 1;
    PenStyle penStyle_ = PenStyle::Solid;

    bool tableStarted_ = false;
    std::optional<Table> table_;

    std::optional<ParagraphBlock> pendingParagraph_;
    int flowY_ = 0;          // where the flow's last block ended on the page, to turn moves down into room
    int pendingBottom_ = 0;  // the foot of the last line written into the open paragraph
};

}  // namespace tallymere::reports

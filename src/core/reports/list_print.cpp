#include "reports/list_print.h"

#include "common/text.h"

namespace tallymere::reports {

using common::MsgButtons;
using common::MsgIcon;

void ComposeListGrid(Session& s, Surface& vp, const ListGrid& list, std::string_view title, const ReportOutput& out) {
    const ReportFontFields font = loadReportFont(s.settings, ReportFamily::PrintGrid);
    PrepareDocument(s, vp, font, title, out);
    if (list.columns.empty()) {
        vp.EndDoc();
        return;
    }

    // The header names the columns; the captions themselves go in afterwards, as they may hold a "|".
    std::string header(list.columns.size() - 1, '|');
    if (header.empty()) header.push_back(' ');
    vp.StartTable();
    Table& t = vp.AddTable("|", header);
    t.setRows(static_cast<int>(list.rows.size()));

    int total = 0;
    for (const auto& c : list.columns) total += c.width;
    const int room = vp.PageWidth() - vp.MarginLeft() - vp.MarginRight();
    const double scale = total > room ? static_cast<double>(room) / total : 1.0;
    for (int c = 1; c <= t.Cols(); ++c) {
        const ListColumn& col = list.columns[static_cast<std::size_t>(c - 1)];
        t.setText(0, c, col.caption);
        t.setColWidth(c, static_cast<int>(col.width * scale));
        t.setColAlign(c, col.align);
    }
    for (std::size_t r = 0; r < list.rows.size(); ++r) {
        const auto& cells = list.rows[r];
        for (std::size_t c = 0; c < cells.size() && c < list.columns.size(); ++c)
            t.setText(static_cast<int>(r) + 1, static_cast<int>(c) + 1, cells[c]);
    }

    // Header and body in the grid font, header grey, even rows shaded as in the weekly grid.
    const Font f = font.font();
    const CellRange all{0, 1, t.Rows(), t.Cols()};
    t.setFontName(all, f.name);
    t.setFontSize(all, f.size);
    t.setFontBold(all, f.bold);
    t.setFontItalic(all, f.italic);
    t.setBackColor(t.row(0), kHeaderGrey);
    for (int r = 2; r <= t.Rows(); r += 2) t.setBackColor(t.row(r), kEvenRowGrey);

    vp.EndTable();
    vp.EndDoc();
}

bool PrintListGrid(Session& s, Surface& vpmain, Printer& printer, const ListGrid& list, std::string_view title,
                   const ReportOutput& out) {
    try {
        ComposeListGrid(s, vpmain, list, title, out);
    } catch (const ReportError& e) {
        s.ui().message(e.what(), MsgButtons::Ok, MsgIcon::Exclamation, "");
        return false;
    }
    if (out.exportRtf) return true;
    return PrintSurface(s, vpmain, printer, out);
}

}  // namespace tallymere::reports

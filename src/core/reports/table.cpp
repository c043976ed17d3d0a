#include "reports/table.h"

#include "common/text.h"
#include "reports/page_setup.h"

#include <algorithm>

namespace tallymere::reports {

Table::Table(std::string_view format, std::string_view header, std::string_view body, const Font& font) : font_(font) {
    const auto formatFields = common::split(format, '|');
    const auto headerFields = common::split(header, '|');
    hasHeader_ = !header.empty();
    std::vector<std::vector<std::string>> bodyRows;
    if (!body.empty())
        for (const auto& line : common::split(body, ';')) bodyRows.push_back(common::split(line, '|'));
    // The widest of header, format and body; a format of "|" alone stands for default columns and
    // counts none.
    std::size_t n = hasHeader_ ? headerFields.size() : 0;
    if (common::trimView(format).find_first_not_of('|') != std::string_view::npos) n = std::max(n, formatFields.size());
    for (const auto& r : bodyRows) n = std::max(n, r.size());
    cols_ = static_cast<int>(n);
    columns_.resize(static_cast<std::size_t>(cols_));
    for (std::size_t i = 0; i < formatFields.size() && i < columns_.size(); ++i) {
        std::string_view f = common::trimView(formatFields[i]);
        while (!f.empty() && (f[0] == '<' || f[0] == '^' || f[0] == '>' || f[0] == '=' || f[0] == '+' || f[0] == '~')) {
            if (f[0] == '<') columns_[i].align = Align::Left;
            if (f[0] == '^') columns_[i].align = Align::Center;
            if (f[0] == '>') columns_[i].align = Align::Right;
            f.remove_prefix(1);
        }
        if (const auto w = parseTwips(f)) columns_[i].width = *w;
    }

    rows_.push_back({std::vector<Cell>(columns_.size()), 0, 0});
    if (hasHeader_)
        for (std::size_t c = 0; c < headerFields.size(); ++c) rows_[0].cells[c].text = headerFields[c];
    for (const auto& fields : bodyRows) {
        const int r = addRow();
        for (std::size_t c = 0; c < fields.size(); ++c) rows_[static_cast<std::size_t>(r)].cells[c].text = fields[c];
    }
}

void Table::setRows(int n) {
    if (n < 0) n = 0;
    rows_.resize(static_cast<std::size_t>(n) + 1, Row{std::vector<Cell>(columns_.size()), 0, 0});
}

int Table::addRow() {
    rows_.push_back(Row{std::vector<Cell>(columns_.size()), 0, 0});
    return Rows();
}

int Table::checkRow(int row) const {
    if (row < 0 || row > Rows()) throw ReportError("Table row " + std::to_string(row) + " does not exist.");
    return row;
}

int Table::checkCol(int col) const {
    if (col < 1 || col > cols_) throw ReportError("Table column " + std::to_string(col) + " does not exist.");
    return col;
}

const Table::Cell& Table::at(int row, int col) const {
    return rows_[static_cast<std::size_t>(checkRow(row))].cells[static_cast<std::size_t>(checkCol(col) - 1)];
}

Table::Cell& Table::at(int row, int col) {
    return rows_[static_cast<std::size_t>(checkRow(row))].cells[static_cast<std::size_t>(checkCol(col) - 1)];
}

const std::string& Table::text(int row, int col) const { return at(row, col).text; }
void Table::setText(int row, int col, std::string text) { at(row, col).text = std::move(text); }
void Table::appendText(int row, int col, std::string_view text) { at(row, col).text.append(text); }

int Table::colWidth(int col) const { return columns_[static_cast<std::size_t>(checkCol(col) - 1)].width; }
void Table::setColWidth(int col, int twips) {
    columns_[static_cast<std::size_t>(checkCol(col) - 1)].width = std::max(0, twips);
}
bool Table::setColWidth(int col, std::string_view length) {
    const auto w = parseTwips(length);
    if (!w) return false;
    setColWidth(col, *w);
    return true;
}
Align Table::colAlign(int col) const { return columns_[static_cast<std::size_t>(checkCol(col) - 1)].align; }
void Table::setColAlign(int col, Align align) { columns_[static_cast<std::size_t>(checkCol(col) - 1)].align = align; }

template <typename F>
void Table::forRange(const CellRange& r, F f) {
    const int r1 = std::min(r.row1, r.row2), r2 = std::max(r.row1, r.row2);
    const int c1 = std::min(r.col1, r.col2), c2 = std::max(r.col1, r.col2);
    checkRow(r1), checkRow(r2), checkCol(c1), checkCol(c2);
    for (int row = r1; row <= r2; ++row)
        for (int col = c1; col <= c2; ++col) f(at(row, col));
}

void Table::setBackColor(const CellRange& r, std::optional<Color> color) {
    forRange(r, [&](Cell& c) { c.backColor = color; });
}
void Table::setForeColor(const CellRange& r, std::optional<Color> color) {
    forRange(r, [&](Cell& c) { c.foreColor = color; });
}
void Table::setFontName(const CellRange& r, const std::string& name) {
    forRange(r, [&](Cell& c) { c.fontName = name; });
}
void Table::setFontSize(const CellRange& r, double size) {
    forRange(r, [&](Cell& c) { c.fontSize = size; });
}
void Table::setFontBold(const CellRange& r, bool bold) {
    forRange(r, [&](Cell& c) { c.bold = bold; });
}
void Table::setFontItalic(const CellRange& r, bool italic) {
    forRange(r, [&](Cell& c) { c.italic = italic; });
}
void Table::setAlign(const CellRange& r, Align align) {
    forRange(r, [&](Cell& c) { c.align = align; });
}

void Table::setRowHeight(int row1, int row2, int twips) {
    for (int r = checkRow(std::min(row1, row2)); r <= checkRow(std::max(row1, row2)); ++r)
        rows_[static_cast<std::size_t>(r)].minHeight = std::max(0, twips);
}

void Table::setRowPadding(int row1, int row2, int twips) {
    for (int r = checkRow(std::min(row1, row2)); r <= checkRow(std::max(row1, row2)); ++r)
        rows_[static_cast<std::size_t>(r)].padding = std::max(0, twips);
}

std::optional<Color> Table::backColor(int row, int col) const { return at(row, col).backColor; }
std::optional<Color> Table::foreColor(int row, int col) const { return at(row, col).foreColor; }

Font Table::cellFont(int row, int col) const {
    const Cell& c = at(row, col);
    Font f = font_;
    if (c.fontName) f.name = *c.fontName;
    if (c.fontSize) f.size = *c.fontSize;
    if (c.bold) f.bold = *c.bold;
    if (c.italic) f.italic = *c.italic;
    return f;
}

Align Table::cellAlign(int row, int col) const {
    const Cell& c = at(row, col);
    return c.align ? *c.align : colAlign(col);
}

}  // namespace tallymere::reports

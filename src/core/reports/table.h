#pragma once
// A table of the report surface as a report builds it: row 0 is the header, body rows count from 1,
// columns from 1. Cells keep their text and any format of their own; what they do not set comes from
// the table (its font is the surface's font when the table was added, its alignment the column's).
// A row or column that does not exist throws ReportError.

#include "reports/font_metrics.h"
#include "reports/report_error.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tallymere::reports {

enum class Align { Left, Center, Right };

struct Color {
    std::uint8_t r = 0, g = 0, b = 0;
    bool operator==(const Color&) const = default;
    // A colour as the database keeps it (`position.color`): red + green * 256 + blue * 65536.
    static constexpr Color fromStored(long value) {
        return {static_cast<std::uint8_t>(value & 0xFF), static_cast<std::uint8_t>((value >> 8) & 0xFF),
                static_cast<std::uint8_t>((value >> 16) & 0xFF)};
    }
    constexpr long stored() const { return r + g * 256L + b * 65536L; }
};
constexpr Color rgb(int r, int g, int b) {
    return {static_cast<std::uint8_t>(r), static_cast<std::uint8_t>(g), static_cast<std::uint8_t>(b)};
}
// Black or white, whichever reads better on `background`.
constexpr Color readableOn(Color background) {
    const int luminance = 299 * background.r + 587 * background.g + 114 * background.b;
    return luminance < 140'000 ? rgb(255, 255, 255) : rgb(0, 0, 0);
}
inline constexpr Color kBlack = rgb(0, 0, 0);

// The cells between two corners, both included.
struct CellRange {
    int row1 = 0, col1 = 1, row2 = 0, col2 = 1;
};

class Table {
public:
    // Columns from `header` ("Name|Mon|Tue"; empty means no header row) or, where `format` has more
    // fields, from `format`. A format field is an optional alignment mark ("<" left, "^" centre,
    // ">" right) and a width as parseTwips reads it; an empty width leaves the column at the default.
    // `body` holds rows separated by ";" and cells by "|".
    Table(std::string_view format, std::string_view header, std::string_view body, const Font& font);

    int Cols() const { return cols_; }
    // Body rows; the header is row 0 beside them. Growing adds empty rows, shrinking drops the last.
    int Rows() const { return static_cast<int>(rows_.size()) - 1; }
    void setRows(int n);
    // Appends an empty body row and returns its number.
    int addRow();
    bool hasHeader() const { return hasHeader_; }

    const std::string& text(int row, int col) const;
    void setText(int row, int col, std::string text);
    void appendText(int row, int col, std::string_view text);

    // Column widths in twips; 0 (the default) shares what the set columns leave of the page.
    int colWidth(int col) const;
    void setColWidth(int col, int twips);
    // A width as a length text ("1.5in", "2200"); false, and the width unchanged, for another text.
    bool setColWidth(int col, std::string_view length);
    Align colAlign(int col) const;
    void setColAlign(int col, Align align);

    // Formats of a range of cells.
    void setBackColor(const CellRange& r, std::optional<Color> color);
    // The cells' text colour; without one, the surface's.
    void setForeColor(const CellRange& r, std::optional<Color> color);
    void setFontName(const CellRange& r, const std::string& name);
    void setFontSize(const CellRange& r, double size);
    void setFontBold(const CellRange& r, bool bold);
    void setFontItalic(const CellRange& r, bool italic);
    void setAlign(const CellRange& r, Align align);
    // Rows between row1 and row2: at least `twips` high, or `twips` added to their natural height.
    void setRowHeight(int row1, int row2, int twips);
    void setRowPadding(int row1, int row2, int twips);

    // Ranges over every column.
    CellRange row(int r) const { return {r, 1, r, cols_}; }
    CellRange rows(int r1, int r2) const { return {r1, 1, r2, cols_}; }
    CellRange body() const { return {1, 1, Rows(), cols_}; }
    static CellRange cell(int r, int c) { return {r, c, r, c}; }

    std::optional<Color> backColor(int row, int col) const;
    std::optional<Color> foreColor(int row, int col) const;
    Font cellFont(int row, int col) const;
    Align cellAlign(int row, int col) const;
    int rowMinHeight(int row) const { return rows_.at(checkRow(row)).minHeight; }
    int rowPadding(int row) const { return rows_.at(checkRow(row)).padding; }
    const Font& font() const { return font_; }

private:
    struct Cell {
        std::string text;
        std::optional<Color> backColor;
        std::optional<Color> foreColor;
        std::optional<std::string> fontName;
        std::optional<double> fontSize;
        std::optional<bool> bold;
        std::optional<bool> italic;
        std::optional<Align> align;
    };
    struct Row {
        std::vector<Cell> cells;
        int minHeight = 0;
        int padding = 0;
    };
    struct Column {
        int width = 0;
        Align align = Align::Left;
    };

    int checkRow(int row) const;
    int checkCol(int col) const;
    const Cell& at(int row, int col) const;
    Cell& at(int row, int col);
    template <typename F>
    void forRange(const CellRange& r, F f);

    int cols_ = 0;
    bool hasHeader_ = false;
    Font font_;
    std::vector<Column> columns_;
    std::vector<Row> rows_;  // rows_[0] is the header, empty when the table has none
};

}  // namespace tallymere::reports

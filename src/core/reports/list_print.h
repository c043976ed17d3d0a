#pragma once
// Printing of a list window's grid on the main window's surface: the list's captions as the header
// row, its columns' widths and alignments, its rows shaded like the weekly grid.

#include "common/session.h"
#include "reports/output.h"
#include "reports/report_frame.h"
#include "reports/surface.h"

#include <string>
#include <string_view>
#include <vector>

namespace tallymere::reports {

// A list as its window shows it: columns with caption, width and alignment, and rows of texts.
struct ListColumn {
    std::string caption;
    int width = 0;  // twips; 0 takes a share of the page
    Align align = Align::Left;
};

struct ListGrid {
    std::vector<ListColumn> columns;
    std::vector<std::vector<std::string>> rows;  // a row shorter than the columns leaves the rest empty
};

// Composes the list on `vp` in the grid printing font, with the title as the page heading. Columns
// keep the list's widths unless together they are wider than the page, when they shrink alike to fit.
// Throws ReportError when the export file cannot be written.
void ComposeListGrid(Session& s, Surface& vp, const ListGrid& list, std::string_view title, const ReportOutput& out);

// Composes the list on `vpmain` and, unless it is exported to RTF, prints it through PrintSurface.
// False when it was not composed or did not go out; a failure has been told.
bool PrintListGrid(Session& s, Surface& vpmain, Printer& printer, const ListGrid& list, std::string_view title,
                   const ReportOutput& out);

}  // namespace tallymere::reports

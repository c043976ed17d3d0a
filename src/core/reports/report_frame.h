#pragma once
// What every report shares around its own content: the window's four font fields and the families
// of report settings they come from, the output flags of one command, the preparing of a document
// from the page settings, and the page heading and footer.

#include "common/session.h"
#include "reports/surface.h"

#include <string>
#include <string_view>

namespace tallymere::reports {

using common::Session;

// The font fields a document report window keeps, read by the shared heading code and by the report
// font command. A report window's model holds one, copied from its family's settings when the window
// opens and back when it closes.
struct ReportFontFields {
    std::string ls_ReportFont = "Arial";
    int li_ReportFontSize = 8;
    bool lb_ReportFontBold = false;
    bool lb_ReportFontItalic = false;

    Font font(int sizeOffset = 0) const {
        return Font{ls_ReportFont, static_cast<double>(li_ReportFontSize + sizeOffset), lb_ReportFontBold,
                    lb_ReportFontItalic};
    }
};

// The families of report settings that carry a font.
enum class ReportFamily { WeekEmp, WeekPos, WeekShift, Month, LeaveMonth, PrintGrid };

ReportFontFields loadReportFont(const common::GlobalSettings& g, ReportFamily family);
void saveReportFont(common::GlobalSettings& g, ReportFamily family, const ReportFontFields& f);
// The same font for every family ("Apply to all Reports").
void applyReportFontToAll(common::GlobalSettings& g, const ReportFontFields& f);

// The output of one print, preview, RTF or PDF command. The flags hold for that command only: set
// them through OutputCommand, which clears them on every way out.
struct ReportOutput {
    bool exportRtf = false;
    std::string rtfFile;
    bool exportPdf = false;
    std::string pdfFile;
};

class OutputCommand {
public:
    enum class Kind { Rtf, Pdf };
    OutputCommand(ReportOutput& out, Kind kind, std::string file);
    ~OutputCommand();
    OutputCommand(const OutputCommand&) = delete;
    OutputCommand& operator=(const OutputCommand&) = delete;

private:
    ReportOutput& out_;
};

// "<date in the report date format> <time>||Page %d".
std::string reportFooter(Session& s);

// The heading of a page: the title at the top left in the window's font three points larger, the
// text beginning 200 twips below it, and the footer. Exporting, the page header is emptied, since a
// flowing document keeps no page headers.
void DrawPageHeading(Session& s, Surface& vp, const ReportFontFields& window, std::string_view title, bool exportRtf);

// The other heading, of the daily schedule print and the position layout: printing, the title goes
// to the right of the page header and the top margin moves down by its height, once per document
// (the next document's preparation puts the margin back); exporting, the title stands between two
// rules in the text.
void DrawPageHeadingInHeader(Surface& vp, std::string_view title, bool exportRtf);

// How every report starts: page setup from the global settings, the export file, StartDoc, the page
// heading (answering the surface's page events with DrawPageHeading and a footer font of 10 points,
// not italic; exporting, drawn at once since no page events come), then the window's font two points
// larger and the footer.
void PrepareDocument(Session& s, Surface& vp, const ReportFontFields& window, std::string_view title,
                     const ReportOutput& out);

// The common table style of document reports: header row grey (200,200,200) in the window's font one
// point larger, the body in the window's font, even body rows light grey (235,235,235), and each body
// row `padding` twips higher than its text.
void ApplyReportTableStyle(Table& t, const ReportFontFields& window, int padding);

inline constexpr Color kHeaderGrey = rgb(200, 200, 200);
inline constexpr Color kEvenRowGrey = rgb(235, 235, 235);

}  // namespace tallymere::reports

#include "reports/report_frame.h"

#include "common/display_format.h"

namespace tallymere::reports {

namespace {

struct FamilyKeys {
    std::string common::GlobalSettings::*font;
    int common::GlobalSettings::*size;
    bool common::GlobalSettings::*bold;
    bool common::GlobalSettings::*italic;
};

FamilyKeys keys(ReportFamily family) {
    using G = common::GlobalSettings;
    switch (family) {
    case ReportFamily::WeekEmp:
        return {&G::gs_RepWeekEmpFont, &G::gi_RepWeekEmpFontSize, &G::gb_RepWeekEmpFontBold,
                &G::gb_RepWeekEmpFontItalic};
    case ReportFamily::WeekPos:
        return {&G::gs_RepWeekPosFont, &G::gi_RepWeekPosFontSize, &G::gb_RepWeekPosFontBold,
                &G::gb_RepWeekPosFontItalic};
    case ReportFamily::WeekShift:
        return {&G::gs_RepWeekShiftFont, &G::gi_RepWeekShiftFontSize, &G::gb_RepWeekShiftFontBold,
                &G::gb_RepWeekShiftFontItalic};
    case ReportFamily::Month:
        return {&G::gs_RepMonthFont, &G::gi_RepMonthFontSize, &G::gb_RepMonthFontBold, &G::gb_RepMonthFontItalic};
    case ReportFamily::LeaveMonth:
        return {&G::gs_LeaveMonthFont, &G::gi_LeaveMonthFontSize, &G::gb_LeaveMonthFontBold,
                &G::gb_LeaveMonthFontItalic};
    case ReportFamily::PrintGrid: break;
    }
    return {&G::gs_PrintGridFont, &G::gi_PrintGridFontSize, &G::gb_PrintGridFontBold, &G::gb_PrintGridFontItalic};
}

}  // namespace

ReportFontFields loadReportFont(const common::GlobalSettings& g, ReportFamily family) {
    const FamilyKeys k = keys(family);
    return {g.*k.font, g.*k.size, g.*k.bold, g.*k.italic};
}

void saveReportFont(common::GlobalSettings& g, ReportFamily family, const ReportFontFields& f) {
    const FamilyKeys k = keys(family);
    g.*k.font = f.ls_ReportFont;
    g.*k.size = f.li_ReportFontSize;
    g.*k.bold = f.lb_ReportFontBold;
    g.*k.italic = f.lb_ReportFontItalic;
}

void applyReportFontToAll(common::GlobalSettings& g, const ReportFontFields& f) {
    for (ReportFamily family : {ReportFamily::WeekEmp, ReportFamily::WeekPos, ReportFamily::WeekShift,
                                ReportFamily::Month, ReportFamily::LeaveMonth, ReportFamily::PrintGrid})
        saveReportFont(g, family, f);
}

OutputCommand::OutputCommand(ReportOutput& out, Kind kind, std::string file) : out_(out) {
    out_ = ReportOutput{};
    if (kind == Kind::Rtf) {
        out_.exportRtf = true;
        out_.rtfFile = std::move(file);
    } else {
        out_.exportPdf = true;
        out_.pdfFile = std::move(file);
    }
}

OutputCommand::~OutputCommand() { out_ = ReportOutput{}; }

std::string reportFooter(Session& s) {
    const common::DateTime now = s.clock().now();
    return common::formatDateTime(now, s.settings.reportdateformat, s.locale) + " " +
           common::formatDateTime(now, "long time", s.locale) + "||Page %d";
}

void DrawPageHeading(Session& s, Surface& vp, const ReportFontFields& window, std::string_view title, bool exportRtf) {
    vp.setFont(window.font(3));
    vp.CalcText(title);
    vp.setCurrentX(vp.MarginLeft());
    vp.setIndentLeft(0);
    vp.Text(title);
    vp.setCurrentY(vp.MarginTop() + vp.TextHei() + 200);
    // The report's text starts at the left again, not after the title.
    vp.setCurrentX(vp.MarginLeft());
    vp.setFooter(reportFooter(s));
    if (exportRtf) vp.setHeader("");
}

void DrawPageHeadingInHeader(Surface& vp, std::string_view title, bool exportRtf) {
    vp.CalcText(title);
    if (!exportRtf) {
        vp.setMarginTop(vp.MarginTop() + vp.TextHei());
        vp.setHeader("||" + std::string(title));
        vp.setCurrentY(vp.MarginTop());
        vp.setCurrentX(vp.MarginLeft());
        return;
    }
    const int marginTop = vp.MarginTop();
    const int left = vp.MarginLeft(), right = vp.PageWidth() - vp.MarginRight();
    vp.setPenWidth(1);
    vp.setPenStyle(1);
    vp.DrawLine(left, marginTop, right, marginTop);
    vp.setCurrentY(marginTop + 60);
    const Align saved = vp.TextAlign();
    vp.setTextAlign(Align::Right);
    vp.Paragraph(title);
    vp.setTextAlign(saved);
    vp.DrawLine(left, vp.CurrentY() + 60, right, vp.CurrentY() + 60);
    vp.setCurrentY(vp.CurrentY() + 120);
    vp.setMarginTop(marginTop);
    vp.setHeader("");
}

void PrepareDocument(Session& s, Surface& vp, const ReportFontFields& window, std::string_view title,
                     const ReportOutput& out) {
    const common::GlobalSettings& g = s.settings;
    vp.setOrientation(g.orientation);
    vp.setMarginTop(g.margintop);
    vp.setMarginLeft(g.marginleft);
    vp.setMarginRight(g.marginright);
    vp.setMarginBottom(g.marginbottom);
    const PageSettings page = pageSettingsFrom(g);
    vp.setDevice(page.device);
    vp.setPaperSize(page.paperSize);

    if (out.exportRtf) {
        vp.setExportFormat(kExportRtf);
        vp.setExportFile(out.rtfFile);
    } else {
        vp.setExportFile("");
    }

    vp.onNewPage = [&s, window, heading = std::string(title), exportRtf = out.exportRtf](Surface& surface) {
        DrawPageHeading(s, surface, window, heading, exportRtf);
    };
    vp.onBeforeFooter = [](Surface& surface) {
        surface.setFontSize(10);
        surface.setFontItalic(false);
    };
    vp.onAfterFooter = nullptr;

    vp.StartDoc();
    if (out.exportRtf) DrawPageHeading(s, vp, window, title, true);

    vp.setFont(window.font(2));
    vp.setFooter(reportFooter(s));
}

void ApplyReportTableStyle(Table& t, const ReportFontFields& window, int padding) {
    if (t.Cols() == 0) return;
    if (t.hasHeader()) {
        const CellRange header = t.row(0);
        t.setBackColor(header, kHeaderGrey);
        const Font f = window.font(1);
        t.setFontName(header, f.name);
        t.setFontSize(header, f.size);
        t.setFontBold(header, f.bold);
        t.setFontItalic(header, f.italic);
    }
    if (t.Rows() == 0) return;
    const Font f = window.font();
    const CellRange body = t.body();
    t.setFontName(body, f.name);
    t.setFontSize(body, f.size);
    t.setFontBold(body, f.bold);
    t.setFontItalic(body, f.italic);
    for (int r = 2; r <= t.Rows(); r += 2) t.setBackColor(t.row(r), kEvenRowGrey);
    t.setRowPadding(1, t.Rows(), padding);
}

}  // namespace tallymere::reports

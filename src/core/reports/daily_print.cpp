#include "reports/daily_print.h"

#include "common/display_format.h"
#include "common/report_name.h"
#include "reports/page_setup.h"
#include "reports/report_error.h"
#include "store/access.h"

#include <array>
#include <map>
#include <optional>
#include <vector>

namespace tallymere::reports {

using store::GetRecs;
using store::Recordset;

namespace {

constexpr const char* kDayHeader = "Name|Position|Shift|Start Time|End Time|Section|Note";
// Shares of the body width, column by column.
constexpr std::array<double, 7> kDayFractions = {0.16, 0.13, 0.11, 0.11, 0.11, 0.11, 0.27};
constexpr Color kNoPositionColor = rgb(150, 150, 150);

constexpr const char* kPreviewHeader = "Name|Position|Day|Shift|Start Time|End Time|Section";
constexpr const char* kPreviewWidths = "2200|1700|900|1200|1400|1400|1200";

Recordset dayEntries(Session& s) {
    return GetRecs(s, "select * from sched where sday=? and sname=?" + dailySortClause(s.settings.dailyschedsort),
                   {s.activeDate, s.currentSchedule});
}

std::string timeText(Session& s, const Recordset& rs, const char* column, std::string_view format) {
    const auto t = rs[column].toDateTime();
    return t ? common::formatDateTime(*t, format, s.locale) : std::string();
}

}  // namespace

std::string dailySortClause(std::string_view sortWord) {
    if (sortWord == "position") return " order by position,sday,strttime,lname";
    if (sortWord == "shift") return " order by shift,sday,strttime,lname";
    if (sortWord == "employee") return " order by lname,fname,sday,strttime";
    if (sortWord == "section") return " order by section,position,sday,strttime";
    if (sortWord == "starttime") return R"( order by sday,format(strttime,"HH:MM"),lname)";
    return {};
}

void DailySchedulePrint(Session& s, Surface& vpmain, const ReportOutput& out) {
    const common::GlobalSettings& g = s.settings;
    const ReportFontFields font = loadReportFont(g, ReportFamily::PrintGrid);
    const std::string title =
        s.currentSchedule + " - Daily Schedule  " + common::formatDate(s.activeDate, "dddd mmm dd, yyyy", s.locale);

    vpmain.setOrientation(g.orientation);
    vpmain.setMarginTop(g.margintop);
    vpmain.setMarginLeft(g.marginleft);
    vpmain.setMarginRight(g.marginright);
    vpmain.setMarginBottom(g.marginbottom);
    const PageSettings page = pageSettingsFrom(g);
    vpmain.setDevice(page.device);
    vpmain.setPaperSize(page.paperSize);
    if (out.exportRtf) {
        vpmain.setExportFormat(kExportRtf);
        vpmain.setExportFile(out.rtfFile);
    } else {
        vpmain.setExportFile("");
    }
    // The title lives in the page header, so the pages need no heading of their own.
    vpmain.onNewPage = nullptr;
    vpmain.onBeforeFooter = [](Surface& surface) {
        surface.setFontSize(10);
        surface.setFontItalic(false);
    };
    vpmain.onAfterFooter = nullptr;

    vpmain.StartDoc();
    vpmain.setFont(font.font(2));
    DrawPageHeadingInHeader(vpmain, title, out.exportRtf);
    vpmain.setFont(font.font());
    vpmain.setFooter(reportFooter(s));

    const int body = vpmain.PageWidth() - vpmain.MarginLeft() - vpmain.MarginRight() - 360;
    vpmain.StartTable();
    Table& t = vpmain.AddTable("|", kDayHeader);
    for (int c = 1; c <= t.Cols(); ++c)
        t.setColWidth(c, static_cast<int>(body * kDayFractions[static_cast<std::size_t>(c - 1)]));

    std::map<std::string, Color> colours;
    std::vector<Color> rowColours;
    for (Recordset rs = dayEntries(s); !rs.eof(); rs.MoveNext()) {
        const int r = t.addRow();
        t.setText(r, 1, common::FormatReportName(rs["fname"].text(), rs["lname"].text(), g.gs_ReportNameFormat));
        const std::string position = rs["position"].text();
        t.setText(r, 2, position);
        t.setText(r, 3, rs["shift"].text());
        t.setText(r, 4, timeText(s, rs, "strttime", g.gs_ReportTimeFormat));
        t.setText(r, 5, timeText(s, rs, "endtime", g.gs_ReportTimeFormat));
        t.setText(r, 6, rs["section"].text());
        t.setText(r, 7, rs["comment"].text());
        auto it = colours.find(position);
        if (it == colours.end()) {
            const Recordset c = GetRecs(s, "select color from position where title = ?", {position});
            const Color colour = !c.empty() && !c["color"].isNull()
                                     ? Color::fromStored(static_cast<long>(c["color"].toLong()))
                                     : kNoPositionColor;
            it = colours.emplace(position, colour).first;
        }
        rowColours.push_back(it->second);
    }
    // The position's colour stands over the shading of even rows.
    ApplyReportTableStyle(t, font, 0);
    for (std::size_t i = 0; i < rowColours.size(); ++i) {
        t.setBackColor(Table::cell(static_cast<int>(i) + 1, 2), rowColours[i]);
        t.setForeColor(Table::cell(static_cast<int>(i) + 1, 2), readableOn(rowColours[i]));
    }
    vpmain.EndTable();
    vpmain.EndDoc();
}

void dailyflexgridprint(Session& s, Surface& vp) {
    const std::string title =
        s.currentSchedule + ", Daily Schedule - " + common::formatDate(s.activeDate, "dddd mmm dd, yyyy", s.locale);
    vp.setMarginLeft(".25in");
    vp.setMarginRight(".25in");
    vp.setMarginTop("1in");
    vp.setMarginBottom("1in");
    vp.setExportFile("");
    vp.onNewPage = nullptr;
    vp.onBeforeFooter = nullptr;
    vp.onAfterFooter = nullptr;
    vp.StartDoc();
    vp.setFont(Font{"Arial", 12, true, false});
    vp.Paragraph(title);
    vp.setFont(Font{"Arial", 8, false, false});

    vp.StartTable();
    Table& t = vp.AddTable(kPreviewWidths, kPreviewHeader);
    t.setBackColor(t.row(0), kHeaderGrey);
    for (Recordset rs = dayEntries(s); !rs.eof(); rs.MoveNext()) {
        const int r = t.addRow();
        t.setText(r, 1, rs["lname"].text() + ", " + rs["fname"].text());
        const std::string position = rs["position"].text();
        t.setText(r, 2, position);
        const auto day = rs["sday"].toDate();
        t.setText(r, 3, day ? common::formatDate(*day, "ddd mmm dd, yyyy", s.locale) : std::string());
        t.setText(r, 4, rs["shift"].text());
        t.setText(r, 5, timeText(s, rs, "strttime", "HH:MM AMPM"));
        t.setText(r, 6, timeText(s, rs, "endtime", "HH:MM AMPM"));
        t.setText(r, 7, rs["section"].text());
        const Recordset p = GetRecs(s, "select * from position where title = ?", {position});
        if (!p.empty() && !p["color"].isNull()) {
            const Color colour = Color::fromStored(static_cast<long>(p["color"].toLong()));
            t.setBackColor(Table::cell(r, 2), colour);
            t.setForeColor(Table::cell(r, 2), readableOn(colour));
        }
    }
    vp.EndTable();
    vp.EndDoc();
}

}  // namespace tallymere::reports

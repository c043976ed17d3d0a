#pragma once
// What a child window does for the main window's output commands. A window that the commands reach
// implements it beside QWidget; print, RTF and PDF are one routine whose flags say which.

#include "reports/output.h"
#include "reports/report_frame.h"

namespace tallymere::app {

class OutputWindow {
public:
    virtual ~OutputWindow() = default;
    // Prints on `printer`; with `out.exportRtf` writes `out.rtfFile` instead, with `out.exportPdf`
    // `out.pdfFile`. A failure has been told.
    virtual void printReport(reports::Printer& printer, const reports::ReportOutput& out) = 0;
    virtual void previewReport() = 0;
    // The list as shown, to a CSV file the user chooses; false when it was not written.
    virtual bool saveReportCsv() { return false; }
};

}  // namespace tallymere::app

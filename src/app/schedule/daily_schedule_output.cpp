// The daily window's print and preview, through the report engine.

#include "app/render/preview_widget.h"
#include "app/render/render_fonts.h"
#include "app/schedule/daily_schedule_window.h"
#include "common/session.h"
#include "reports/daily_print.h"
#include "reports/output.h"
#include "reports/report_error.h"

#include <QDialog>
#include <QVBoxLayout>

namespace tallymere::app {

void DailyScheduleWindow::printReport(reports::Printer& printer, const reports::ReportOutput& out) {
    common::Session& s = context_.session();
    render::QtFontMetrics metrics;
    reports::Surface vpmain(metrics);
    try {
        reports::DailySchedulePrint(s, vpmain, out);
    } catch (const reports::ReportError& e) {
        s.ui().inform(std::string("Error creating daily report. ") + e.what());
        return;
    }
    if (!out.exportRtf) reports::PrintSurface(s, vpmain, printer, out);
}

void DailyScheduleWindow::previewReport() {
    common::Session& s = context_.session();
    render::QtFontMetrics metrics;
    reports::Surface vp(metrics);
    try {
        reports::dailyflexgridprint(s, vp);
    } catch (const reports::ReportError&) {
        s.ui().inform("Error creating daily report.");
        return;
    }
    auto* dialog = new QDialog(this);
    dialog->setObjectName(QStringLiteral("dailyflexgridprint"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(tr("Daily Schedule"));
    auto* preview = new render::PreviewWidget(dialog);
    preview->setObjectName(QStringLiteral("vp"));
    preview->setDocument(vp.document());
    (new QVBoxLayout(dialog))->addWidget(preview);
    dialog->resize(820, 900);
    dialog->show();
}

}  // namespace tallymere::app

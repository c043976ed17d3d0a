// The main window's output commands: page setup, and print, preview, RTF, PDF and CSV of the active
// child window, which decides what each of them does.

#include "app/render/qt_printer.h"
#include "app/render/render_fonts.h"
#include "app/shell/main_window.h"
#include "app/shell/output_window.h"
#include "common/session.h"
#include "reports/surface.h"
#include "shell/output_routing.h"

#include <QMdiSubWindow>
#include <optional>

namespace tallymere::app {

void MainWindow::withPrinter(const std::function<void(reports::Printer&)>& use) {
    if (printer_) return use(*printer_);
    render::QtPrinter printer(this);
    use(printer);
}

void MainWindow::registerOutputCommands() {
    registerCommand("mnupagesetup", [this] {
        render::QtFontMetrics metrics;
        reports::Surface vpmain(metrics);
        bool ok = false;
        withPrinter([&](reports::Printer& printer) { ok = reports::mnupagesetup(session_, vpmain, printer); });
        if (ok) refreshActiveChild();
    });
    for (const char* name : {"mnuPrintPreview", "mnuprintreport", "mnuExportReportRtf", "mnuSaveToPDF", "mnuSaveAsCsv"})
        registerCommand(name, [this, name = std::string(name)] { outputCommand(name); });
}

OutputWindow* MainWindow::outputWindow() const {
    const QString name = activeChildName();
    if (name.isEmpty() || !shell::routesOutput(name.toStdString())) return nullptr;
    return dynamic_cast<OutputWindow*>(activeChild_->widget());
}

void MainWindow::outputCommand(const std::string& menuName) {
    if (menuName == "mnuSaveAsCsv") {
        // Only the list windows have a grid to save; the menu entry is off for the others.
        if (!shell::savesListCsv(activeChildName().toStdString())) return;
        if (auto* w = dynamic_cast<OutputWindow*>(activeChild_->widget())) w->saveReportCsv();
        return;
    }
    OutputWindow* window = outputWindow();
    if (!window) return;
    if (menuName == "mnuPrintPreview") {
        window->previewReport();
        return;
    }
    reports::ReportOutput out;
    std::optional<reports::OutputCommand> command;
    if (menuName == "mnuExportReportRtf" || menuName == "mnuSaveToPDF") {
        const bool rtf = menuName == "mnuExportReportRtf";
        const std::string file = rtf ? reports::AskSaveFile(session_, "RTF", reports::kRtfFilter)
                                     : reports::AskSaveFile(session_, "PDF", reports::kPdfFilter);
        if (file.empty()) return;
        command.emplace(out, rtf ? reports::OutputCommand::Kind::Rtf : reports::OutputCommand::Kind::Pdf, file);
    }
    withPrinter([&](reports::Printer& printer) { window->printReport(printer, out); });
}

}  // namespace tallymere::app

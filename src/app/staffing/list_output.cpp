#include "app/staffing/list_output.h"

#include "app/render/preview_widget.h"
#include "app/render/qt_printer.h"
#include "app/render/render_fonts.h"
#include "reports/report_error.h"
#include "staffing/staffing_lists.h"

#include <QDialog>
#include <QVBoxLayout>
#include <fstream>
#include <memory>

namespace tallymere::app {

void previewList(common::Session& s, QWidget* parent, const reports::ListGrid& list, const std::string& title) {
    render::QtFontMetrics metrics;
    reports::Surface vp(metrics);
    try {
        reports::ComposeListGrid(s, vp, list, title, {});
    } catch (const reports::ReportError&) {
        return;
    }
    auto* dialog = new QDialog(parent);
    dialog->setObjectName(QStringLiteral("printpreview"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(QString::fromUtf8(title.c_str()));
    auto* preview = new render::PreviewWidget(dialog);
    preview->setObjectName(QStringLiteral("vp"));
    preview->setDocument(vp.document());
    auto* layout = new QVBoxLayout(dialog);
    layout->addWidget(preview);
    dialog->resize(820, 900);
    dialog->show();
}

void printList(common::Session& s, QWidget* parent, const reports::ListGrid& list, const std::string& title) {
    render::QtFontMetrics metrics;
    reports::Surface vpmain(metrics);
    render::QtPrinter printer(parent);
    reports::PrintListGrid(s, vpmain, printer, list, title, {});
}

bool saveListCsv(common::Session& s, const reports::ListGrid& list, const std::string& suggestedName) {
    const auto path = s.ui().chooseSaveFile("Save CSV File", suggestedName,
                                            {{"CSV Files (*.csv)", "*.csv"}, {"All Files (*.*)", "*.*"}}, true);
    if (!path || path->empty()) return false;
    std::ofstream out(*path, std::ios::binary | std::ios::trunc);
    if (out) staffing::writeList(out, list);
    if (!out) {
        s.ui().inform("The file " + *path + " could not be written.", common::MsgIcon::Exclamation);
        return false;
    }
    return true;
}

void ListOutputWindow::setListOutput(QWidget* view, common::Session& s, std::function<reports::ListGrid()> grid,
                                     std::function<std::string()> title) {
    view_ = view;
    session_ = &s;
    grid_ = std::move(grid);
    title_ = std::move(title);
}

void ListOutputWindow::printReport(reports::Printer& printer, const reports::ReportOutput& out) {
    if (!session_) return;
    render::QtFontMetrics metrics;
    reports::Surface vpmain(metrics);
    reports::PrintListGrid(*session_, vpmain, printer, grid_(), title_(), out);
}

void ListOutputWindow::previewReport() {
    if (session_) previewList(*session_, view_, grid_(), title_());
}

bool ListOutputWindow::saveReportCsv() { return session_ && saveListCsv(*session_, grid_(), title_() + ".csv"); }

}  // namespace tallymere::app

#include "app/render/qt_printer.h"

#include "app/render/page_renderer.h"

#include <QLocale>
#include <QPageSetupDialog>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QSaveFile>
#include <algorithm>
#include <cmath>

namespace tallymere::app::render {

namespace {

struct PaperId {
    int code;
    QPageSize::PageSizeId id;
};
constexpr PaperId kPapers[] = {
    {1, QPageSize::Letter}, {3, QPageSize::Tabloid}, {5, QPageSize::Legal}, {7, QPageSize::Executive},
    {8, QPageSize::A3},     {9, QPageSize::A4},      {11, QPageSize::A5},   {13, QPageSize::B5},
};

int twipsFromPoints(double points) { return static_cast<int>(std::lround(points * reports::kTwipsPerPoint)); }

}  // namespace

QPageSize::PageSizeId qtPageSizeId(int paperSize) {
    for (const auto& p : kPapers)
        if (p.code == paperSize) return p.id;
    return QPageSize::Letter;
}

int paperSizeCode(QPageSize::PageSizeId id) {
    for (const auto& p : kPapers)
        if (p.id == id) return p.code;
    return 0;
}

int defaultPaperSizeCode() {
    const QPrinterInfo printer = QPrinterInfo::defaultPrinter();
    if (!printer.isNull()) {
        if (const int code = paperSizeCode(printer.defaultPageSize().id())) return code;
    }
    const auto country = QLocale().territory();
    const bool letter = country == QLocale::UnitedStates || country == QLocale::Canada || country == QLocale::Mexico ||
                        country == QLocale::Philippines || country == QLocale::Chile;
    return letter ? reports::kPaperLetter : reports::kPaperA4;
}

QPageLayout sheetLayout(const reports::Page& page) {
    const double w = page.width / double(reports::kTwipsPerPoint), h = page.height / double(reports::kTwipsPerPoint);
    const bool landscape = w > h;
    const QPageSize size(QSizeF(std::min(w, h), std::max(w, h)), QPageSize::Point, QString(), QPageSize::FuzzyMatch);
    return QPageLayout(size, landscape ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF(0, 0, 0, 0),
                       QPageLayout::Point, QMarginsF(0, 0, 0, 0));
}

bool paintDocument(QPagedPaintDevice& device, const reports::Document& document, int from, int to) {
    from = std::max(from, 1);
    to = std::min(to, document.PageCount());
    if (from > to) return true;
    device.setPageLayout(sheetLayout(document.pages[static_cast<std::size_t>(from) - 1]));
    QPainter painter;
    if (!painter.begin(&device)) return false;
    PageRenderer renderer;
    for (int n = from; n <= to; ++n) {
        const reports::Page& page = document.pages[static_cast<std::size_t>(n) - 1];
        if (n > from) {
            device.setPageLayout(sheetLayout(page));
            if (!device.newPage()) return false;
        }
        painter.save();
        painter.scale(device.logicalDpiX() / double(reports::kTwipsPerInch),
                      device.logicalDpiY() / double(reports::kTwipsPerInch));
        renderer.paint(painter, page);
        painter.restore();
    }
    return painter.end();
}

bool writePdfFile(const reports::Document& document, const QString& path, int from, int to) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return false;
    {
        QPdfWriter pdf(&file);
        pdf.setResolution(1200);
        pdf.setCreator(QStringLiteral("Tallymere"));
        if (!paintDocument(pdf, document, from, to)) {
            file.cancelWriting();
            return false;
        }
    }
    return file.commit();
}

QtPrinter::QtPrinter(QWidget* parent) : parent_(parent) {}
QtPrinter::~QtPrinter() = default;

int QtPrinter::NDevices() { return static_cast<int>(QPrinterInfo::availablePrinterNames().size()); }

std::optional<reports::PrintJob> QtPrinter::PrintDialog(const reports::Document& document, const std::string& device) {
    printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    if (!device.empty() && QPrinterInfo::availablePrinterNames().contains(QString::fromStdString(device)))
        printer_->setPrinterName(QString::fromStdString(device));
    QPrintDialog dialog(printer_.get(), parent_);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange, true);
    dialog.setMinMax(1, std::max(1, document.PageCount()));
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;

    reports::PrintJob job;
    const bool range = printer_->printRange() == QPrinter::PageRange;
    job.fromPage = range && printer_->fromPage() > 0 ? printer_->fromPage() : 1;
    job.toPage = range && printer_->toPage() > 0 ? printer_->toPage() : document.PageCount();
    job.copies = printer_->copyCount();
    job.device = printer_->printerName().toStdString();
    return job;
}

bool QtPrinter::PrintDoc(const reports::Document& document, const reports::PrintJob& job) {
    if (!printer_ || printer_->printerName().toStdString() != job.device) {
        printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
        if (!job.device.empty()) printer_->setPrinterName(QString::fromStdString(job.device));
    }
    printer_->setFullPage(true);
    printer_->setCopyCount(std::max(1, job.copies));
    // Where the device cannot make copies itself, each copy is printed in turn.
    const int rounds = printer_->supportsMultipleCopies() ? 1 : std::max(1, job.copies);
    bool ok = true;
    for (int i = 0; i < rounds && ok; ++i) ok = paintDocument(*printer_, document, job.fromPage, job.toPage);
    printer_.reset();
    return ok;
}

bool QtPrinter::PageSetupDialog(reports::PageSettings& settings) {
    QPrinter printer(QPrinter::HighResolution);
    if (!settings.device.empty() &&
        QPrinterInfo::availablePrinterNames().contains(QString::fromStdString(settings.device)))
        printer.setPrinterName(QString::fromStdString(settings.device));
    const auto points = [](int twips) { return twips / double(reports::kTwipsPerPoint); };
    printer.setPageLayout(
        QPageLayout(QPageSize(qtPageSizeId(settings.paperSize)),
                    settings.orientation == reports::kLandscape ? QPageLayout::Landscape : QPageLayout::Portrait,
                    QMarginsF(points(settings.marginLeft), points(settings.marginTop), points(settings.marginRight),
                              points(settings.marginBottom)),
                    QPageLayout::Point));
    QPageSetupDialog dialog(&printer, parent_);
    if (dialog.exec() != QDialog::Accepted) return false;

    const QPageLayout layout = printer.pageLayout();
    settings.orientation = layout.orientation() == QPageLayout::Landscape ? reports::kLandscape : reports::kPortrait;
    if (const int code = paperSizeCode(layout.pageSize().id())) settings.paperSize = code;
    const QMarginsF m = layout.margins(QPageLayout::Point);
    settings.marginLeft = twipsFromPoints(m.left());
    settings.marginTop = twipsFromPoints(m.top());
    settings.marginRight = twipsFromPoints(m.right());
    settings.marginBottom = twipsFromPoints(m.bottom());
    settings.device = printer.printerName().toStdString();
    return true;
}

bool QtPrinter::writePdf(const reports::Document& document, const std::string& path, int fromPage, int toPage) {
    return writePdfFile(document, QString::fromStdString(path), fromPage, toPage);
}

}  // namespace tallymere::app::render

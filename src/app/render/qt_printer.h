#pragma once
// The printer port on Qt: the system's printers through QPrinter and its dialogs, and PDF through
// QPdfWriter, which needs no printer at all.

#include "reports/output.h"

#include <QPageLayout>
#include <QPageSize>
#include <QString>
#include <memory>

class QPagedPaintDevice;
class QPrinter;
class QWidget;

namespace tallymere::app::render {

// The paper of a page setup number and back; 0 for a size the surface has no number for.
QPageSize::PageSizeId qtPageSizeId(int paperSize);
int paperSizeCode(QPageSize::PageSizeId id);
// The paper a first run starts with: the default printer's, else Letter or A4 by the locale.
int defaultPaperSizeCode();

// A sheet the size and orientation of the page, without margins: the page is laid out already.
QPageLayout sheetLayout(const reports::Page& page);

// Paints pages `from` to `to` (from 1, kept inside the document) on a paged device, each on a sheet
// of its own size. False when painting could not begin on the device.
bool paintDocument(QPagedPaintDevice& device, const reports::Document& document, int from, int to);

// Writes pages `from` to `to` as a PDF file, replacing the file only once it is complete.
bool writePdfFile(const reports::Document& document, const QString& path, int from, int to);

class QtPrinter final : public reports::Printer {
public:
    // `parent` parents the dialogs (the main window); null is allowed.
    explicit QtPrinter(QWidget* parent = nullptr);
    ~QtPrinter() override;

    int NDevices() override;
    std::optional<reports::PrintJob> PrintDialog(const reports::Document& document, const std::string& device) override;
    bool PageSetupDialog(reports::PageSettings& settings) override;
    bool pdfAvailable() override { return true; }
    bool PrintDoc(const reports::Document& document, const reports::PrintJob& job) override;
    bool writePdf(const reports::Document& document, const std::string& path, int fromPage, int toPage) override;

private:
    QWidget* parent_;
    // The printer as the print dialog left it (device, file, duplex, ...), for the print that follows.
    std::unique_ptr<QPrinter> printer_;
};

}  // namespace tallymere::app::render

#pragma once
// Getting a composed document out: the file question of the export commands, printing, PDF, and the
// page setup command. The printer itself is a port: the app implements it with Qt's printing and
// PDF writer, tests with a fake.

#include "common/session.h"
#include "reports/document.h"
#include "reports/page_setup.h"
#include "reports/report_frame.h"
#include "reports/surface.h"

#include <optional>
#include <string>
#include <string_view>

namespace tallymere::reports {

using common::Session;

// The device name under which PDF output is asked for.
inline constexpr const char* kPdfDevice = "Tallymere PDF Converter";
inline constexpr const char* kPdfFilter = "PDF Files (*.pdf)|*.pdf|All Files (*.*)|*.*";
inline constexpr const char* kRtfFilter = "RTF Files (*.rtf)|*.rtf|All Files (*.*)|*.*";

// What the print dialog gave: the pages, the copies and the device.
struct PrintJob {
    int fromPage = 1;
    int toPage = 1;
    int copies = 1;
    std::string device;
};

class Printer {
public:
    virtual ~Printer() = default;
    // Printers installed; 0 means none usable.
    virtual int NDevices() = 0;
    // The print dialog for `document` on `device`; nullopt on Cancel.
    virtual std::optional<PrintJob> PrintDialog(const Document& document, const std::string& device) = 0;
    // The page setup dialog over `settings`; false on Cancel.
    virtual bool PageSetupDialog(PageSettings& settings) = 0;
    // Whether PDF can be written here (in place of the PDF printer driver being installed).
    virtual bool pdfAvailable() = 0;
    // Sends the pages of the job to its device; false when that failed.
    virtual bool PrintDoc(const Document& document, const PrintJob& job) = 0;
    // Writes pages `fromPage` to `toPage` as a PDF file; false when the file could not be written.
    virtual bool writePdf(const Document& document, const std::string& path, int fromPage, int toPage) = 0;
};

// "PDF Files (*.pdf)|*.pdf|All Files (*.*)|*.*" as the file chooser's filters.
std::vector<common::FileFilter> parseFileFilter(std::string_view filter);

// Asks for a file to write: the chooser titled "Save <extension> File" with the filter and the
// default name, a name typed without an extension taking `extension`, and an existing file only after
// "File already exists. Overwrite?" is answered Yes. Empty text on Cancel or No.
std::string AskSaveFile(Session& s, std::string_view extension, std::string_view filter,
                        std::string_view defaultName = {});

// Prints the surface's finished document, or with `out.exportPdf` writes it to `out.pdfFile`. True
// when the document went out. PDF needs no printer, so the check for printers is the print's alone.
bool PrintSurface(Session& s, Surface& surface, Printer& printer, const ReportOutput& out);

// The page setup command: the page settings into `vpmain`, the page setup dialog, and on OK the
// settings back into the global settings with the fit width worked out again. True on OK, when the
// active report should be composed again.
bool mnupagesetup(Session& s, Surface& vpmain, Printer& printer);

}  // namespace tallymere::reports

#include "reports/output.h"

#include "common/text.h"

#include <filesystem>

namespace tallymere::reports {

using common::MsgAnswer;
using common::MsgButtons;
using common::MsgIcon;

std::vector<common::FileFilter> parseFileFilter(std::string_view filter) {
    std::vector<common::FileFilter> filters;
    const auto parts = common::split(filter, '|');
    for (std::size_t i = 0; i + 1 < parts.size(); i += 2) {
        std::string description = common::trim(parts[i]);
        std::string pattern = common::trim(parts[i + 1]);
        // The chooser shows the pattern after the description itself.
        const std::string shown = " (" + pattern + ")";
        if (description.size() > shown.size() && description.ends_with(shown))
            description.erase(description.size() - shown.size());
        // "*.*" would hide names without a dot, which are common here.
        if (pattern == "*.*") pattern = "*";
        filters.push_back({std::move(description), std::move(pattern)});
    }
    return filters;
}

std::string AskSaveFile(Session& s, std::string_view extension, std::string_view filter, std::string_view defaultName) {
    const std::string title = "Save " + std::string(extension) + " File";
    // The question about an existing file is asked below, in the program's own words.
    const auto chosen = s.ui().chooseSaveFile(title, defaultName, parseFileFilter(filter), false);
    if (!chosen || chosen->empty()) return {};
    std::filesystem::path path(*chosen);
    if (!path.has_extension() && !extension.empty()) path += "." + common::toLower(extension);
    std::error_code ec;
    if (std::filesystem::exists(path, ec)) {
        if (s.ui().message("File already exists. Overwrite?", MsgButtons::YesNo, MsgIcon::None, title) !=
            MsgAnswer::Yes)
            return {};
    }
    return path.string();
}

namespace {

bool writePdfFile(Session& s, Printer& printer, const Document& doc, const std::string& path, int from, int to) {
    if (printer.writePdf(doc, path, from, to)) return true;
    s.ui().message("Unable to write the file " + path + ".", MsgButtons::Ok, MsgIcon::Exclamation, "");
    return false;
}

}  // namespace

bool PrintSurface(Session& s, Surface& surface, Printer& printer, const ReportOutput& out) {
    const auto doc = surface.document();
    if (!out.exportPdf) {
        if (printer.NDevices() == 0) {
            s.ui().message(
                "Can't get printer information.\n\nMake sure that you have a printer installed and selected.",
                MsgButtons::Ok, MsgIcon::Exclamation, "Error");
            return false;
        }
        if (!doc) return false;
        const auto job = printer.PrintDialog(*doc, surface.Device());
        if (!job) return false;
        surface.setDevice(job->device);
        if (job->device == kPdfDevice) {
            const std::string file = AskSaveFile(s, "PDF", kPdfFilter);
            if (file.empty()) return false;
            return writePdfFile(s, printer, *doc, file, job->fromPage, job->toPage);
        }
        if (printer.PrintDoc(*doc, *job)) return true;
        s.ui().message("The document could not be printed on " + job->device + ".", MsgButtons::Ok,
                       MsgIcon::Exclamation, "");
        return false;
    }

    const std::string device = surface.Device();
    surface.setDevice(kPdfDevice);
    bool written = false;
    if (!printer.pdfAvailable()) {
        s.ui().message("Tallymere PDF Converter printer driver is not installed or cannot be accessed.", MsgButtons::Ok,
                       MsgIcon::Critical, "Error PDF converter");
    } else if (doc) {
        written = writePdfFile(s, printer, *doc, out.pdfFile, 1, doc->PageCount());
    }
    surface.setDevice(device);
    return written;
}

bool mnupagesetup(Session& s, Surface& vpmain, Printer& printer) {
    PageSettings page = pageSettingsFrom(s.settings);
    vpmain.setPageSettings(page);
    if (!printer.PageSetupDialog(page)) {
        if (printer.NDevices() == 0)
            s.ui().message("Make sure a printer is installed.", MsgButtons::Ok, MsgIcon::Information, "Information");
        return false;
    }
    vpmain.setPageSettings(page);
    storePageSettings(s.settings, page);
    if (s.settings.gb_ReportFitToPage)
        s.settings.gi_ReportColumnWidth = fitColumnWidthInches(vpmain.PageWidth(), vpmain.MarginLeft(),
                                                               vpmain.MarginRight(), s.settings.gi_ReportNumDays);
    return true;
}

}  // namespace tallymere::reports

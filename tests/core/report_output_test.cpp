// The frame around every report and its ways out: preparing a document and its page heading, the
// file question, printing and PDF through a fake printer, page setup, and list printing.

#include "reports/list_print.h"
#include "reports/output.h"
#include "reports/report_frame.h"
#include "reports/rtf_writer.h"
#include "support/fake_ui.h"
#include "support/report_pages.h"
#include "support/test_database.h"

#include <gtest/gtest.h>
#include <fstream>
#include <type_traits>

namespace tallymere::reports {
namespace {

using common::MsgAnswer;
using common::MsgButtons;
using common::MsgIcon;
using testing::countText;
using testing::findText;
using testing::pagesWith;
using testing::ShownMessage;

// Also keeps what the file chooser was asked.
class RecordingUi : public testing::FakeUi {
public:
    std::optional<std::string> chooseSaveFile(std::string_view title, std::string_view suggested,
                                              const std::vector<common::FileFilter>& filters,
                                              bool confirmOverwrite) override {
        chooserTitle = title;
        chooserSuggested = suggested;
        chooserFilters = filters;
        return FakeUi::chooseSaveFile(title, suggested, filters, confirmOverwrite);
    }
    std::string chooserTitle, chooserSuggested;
    std::vector<common::FileFilter> chooserFilters;
};

class FakePrinter : public Printer {
public:
    int NDevices() override { return devices; }
    std::optional<PrintJob> PrintDialog(const Document&, const std::string& device) override {
        dialogDevices.push_back(device);
        return dialogAnswer;
    }
    bool PageSetupDialog(PageSettings& settings) override {
        if (!pageSetupAnswer) return false;
        settings = *pageSetupAnswer;
        return true;
    }
    bool pdfAvailable() override { return pdf; }
    bool PrintDoc(const Document& doc, const PrintJob& job) override {
        printed.push_back(job);
        printedPages = doc.PageCount();
        return true;
    }
    bool writePdf(const Document&, const std::string& path, int from, int to) override {
        pdfs.push_back({path, from, to});
        return writeOk;
    }

    int devices = 1;
    std::optional<PrintJob> dialogAnswer;
    std::optional<PageSettings> pageSetupAnswer;
    bool pdf = true;
    bool writeOk = true;
    std::vector<std::string> dialogDevices;
    std::vector<PrintJob> printed;
    int printedPages = 0;
    struct Pdf {
        std::string path;
        int from, to;
    };
    std::vector<Pdf> pdfs;
};

class ReportOutputTest : public ::testing::Test {
protected:
    RecordingUi ui;
    common::MemoryUserSettings userSettings;
    common::FixedClock clock{common::DateTime::fromParts(2026, 11, 23, 9, 0)};
    common::Session session{ui, userSettings, clock};
    FixedPitchMetrics metrics;
    Surface vp{metrics};
    FakePrinter printer;
    ReportOutput out;
    testing::TempFolder folder;

    common::Session& s() { return session; }
    std::string path(const std::string& name) const { return (folder.path() / name).string(); }

    // A report of `rows` rows, composed as every document report starts.
    void compose(int rows, const std::string& title = "Main - Weekly") {
        ReportFontFields window;
        window.li_ReportFontSize = 10;
        PrepareDocument(s(), vp, window, title, out);
        vp.StartTable();
        Table& t = vp.AddTable("|", "Name|Hours");
        t.setRows(rows);
        for (int r = 1; r <= rows; ++r) t.setText(r, 1, "emp " + std::to_string(r));
        ApplyReportTableStyle(t, window, 100);
        vp.EndTable();
        vp.EndDoc();
    }
};

// --- Preparing a document

TEST_F(ReportOutputTest, PagesCarryTheHeadingTheFooterAndThePageSettings) {
    s().settings.orientation = 2;
    s().settings.marginleft = 1000;
    s().settings.gs_PrinterDevice = "Office";
    compose(80);
    const Document& doc = *vp.document();
    ASSERT_GE(doc.PageCount(), 2);
    EXPECT_EQ(doc.pageWidth, 15840);
    EXPECT_EQ(vp.Device(), "Office");
    for (int n = 1; n <= doc.PageCount(); ++n) {
        const Page& p = doc.pages[static_cast<std::size_t>(n) - 1];
        const TextItem* title = findText(p, "Main - Weekly");
        ASSERT_NE(title, nullptr) << "page " << n;
        EXPECT_EQ(title->x, 1000);
        EXPECT_EQ(title->y, 1080);
        EXPECT_EQ(title->font.size, 13);  // the window's 10 and 3
        // The table begins 200 twips below the title.
        EXPECT_EQ(findText(p, "Name")->y, 1080 + title->height + 200 + Surface::kCellMarginY);
        const TextItem* date = findText(p, "11/23/2026 9:00:00 AM");
        ASSERT_NE(date, nullptr);
        EXPECT_EQ(date->font.size, 10);
        EXPECT_NE(findText(p, "Page " + std::to_string(n)), nullptr);
    }
    // The table style: grey header one point larger, even rows light grey, rows padded.
    const auto& block = std::get<TableBlock>(doc.flow.back());
    EXPECT_EQ(block.table.backColor(0, 1), kHeaderGrey);
    EXPECT_EQ(block.table.cellFont(0, 2).size, 11);
    EXPECT_EQ(block.table.cellFont(1, 1).size, 10);
    EXPECT_EQ(block.table.backColor(1, 1), std::nullopt);
    EXPECT_EQ(block.table.backColor(2, 2), kEvenRowGrey);
    EXPECT_EQ(block.rowHeights[1], 240 + 2 * Surface::kCellMarginY + 100);
}

TEST_F(ReportOutputTest, UnderRtfExportTheTitleIsBodyTextOfPageOneOnly) {
    vp.setHeader("||left over");
    OutputCommand command(out, OutputCommand::Kind::Rtf, path("week.rtf"));
    compose(80);
    const Document& doc = *vp.document();
    ASSERT_GE(doc.PageCount(), 2);
    EXPECT_EQ(pagesWith(doc, "Main - Weekly"), std::vector<int>{1});
    EXPECT_EQ(doc.header, "");
    EXPECT_EQ(countText(doc, "left over"), 0);
    ASSERT_TRUE(std::holds_alternative<ParagraphBlock>(doc.flow.front()));
    EXPECT_EQ(std::get<ParagraphBlock>(doc.flow.front()).spans.front().text, "Main - Weekly");

    std::ifstream in(path("week.rtf"));
    const std::string rtf((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    ASSERT_NE(rtf.find("Main - Weekly"), std::string::npos);
    EXPECT_EQ(rtf.find("Main - Weekly"), rtf.rfind("Main - Weekly"));
    EXPECT_EQ(rtf.find("{\\header"), std::string::npos);
    EXPECT_NE(rtf.find("{\\footer"), std::string::npos);
    // The 200 twips below the title stay as room before the table.
    EXPECT_NE(rtf.find("\\sl-200\\slmult0"), std::string::npos);
}

TEST_F(ReportOutputTest, TheOtherHeadingMovesTheTitleIntoTheHeader) {
    vp.StartDoc();
    DrawPageHeadingInHeader(vp, "Daily Schedule", false);
    EXPECT_EQ(vp.MarginTop(), 1080 + 240);
    EXPECT_EQ(vp.Header(), "||Daily Schedule");
    EXPECT_EQ(vp.CurrentY(), 1320);
    vp.EndDoc();
    EXPECT_LT(findText(vp.document()->pages[0], "Daily Schedule")->y, 1080);

    vp.setMarginTop(1080);
    vp.setExportFile(path("daily.rtf"));
    vp.setExportFormat(kExportRtf);
    vp.StartDoc();
    DrawPageHeadingInHeader(vp, "Daily Schedule", true);
    EXPECT_EQ(vp.MarginTop(), 1080);
    EXPECT_EQ(vp.Header(), "");
    vp.EndDoc();
    std::string kinds;
    for (const auto& b : vp.document()->flow) {
        if (std::holds_alternative<RuleBlock>(b)) kinds += "rule ";
        if (std::holds_alternative<ParagraphBlock>(b)) kinds += "text ";
    }
    EXPECT_EQ(kinds, "rule text rule ");
}

TEST_F(ReportOutputTest, FontFieldsComeFromTheirFamily) {
    s().settings.gs_RepMonthFont = "Verdana";
    s().settings.gi_RepMonthFontSize = 12;
    s().settings.gb_RepMonthFontItalic = true;
    ReportFontFields f = loadReportFont(s().settings, ReportFamily::Month);
    EXPECT_EQ(f.font(1), (Font{"Verdana", 13, false, true}));
    EXPECT_EQ(loadReportFont(s().settings, ReportFamily::WeekPos).li_ReportFontSize, 9);
    f.lb_ReportFontBold = true;
    saveReportFont(s().settings, ReportFamily::WeekShift, f);
    EXPECT_TRUE(s().settings.gb_RepWeekShiftFontBold);
    EXPECT_EQ(s().settings.gs_RepWeekShiftFont, "Verdana");
    EXPECT_FALSE(s().settings.gb_RepWeekEmpFontBold);
    applyReportFontToAll(s().settings, f);
    EXPECT_EQ(s().settings.gs_PrintGridFont, "Verdana");
    EXPECT_EQ(s().settings.gi_LeaveMonthFontSize, 12);
    EXPECT_TRUE(s().settings.gb_RepWeekEmpFontBold);
}

TEST_F(ReportOutputTest, OutputFlagsLastOneCommandWhateverHappens) {
    try {
        OutputCommand command(out, OutputCommand::Kind::Pdf, "x.pdf");
        EXPECT_TRUE(out.exportPdf);
        EXPECT_EQ(out.pdfFile, "x.pdf");
        EXPECT_FALSE(out.exportRtf);
        throw ReportError("composing failed");
    } catch (const ReportError&) {
    }
    EXPECT_FALSE(out.exportPdf);
    EXPECT_EQ(out.pdfFile, "");
}

// --- The file question

TEST_F(ReportOutputTest, AskSaveFileOffersTheExtensionAndTheFilter) {
    EXPECT_EQ(AskSaveFile(s(), "RTF", kRtfFilter, "week"), "");
    EXPECT_EQ(ui.chooserTitle, "Save RTF File");
    EXPECT_EQ(ui.chooserSuggested, "week");
    ASSERT_EQ(ui.chooserFilters.size(), 2u);
    EXPECT_EQ(ui.chooserFilters[0].description, "RTF Files");
    EXPECT_EQ(ui.chooserFilters[0].pattern, "*.rtf");
    EXPECT_EQ(ui.chooserFilters[1].pattern, "*");
    EXPECT_TRUE(ui.messages.empty());

    ui.nextFile(path("week"));
    EXPECT_EQ(AskSaveFile(s(), "RTF", kRtfFilter), path("week.rtf"));
    ui.nextFile(path("week.doc"));
    EXPECT_EQ(AskSaveFile(s(), "RTF", kRtfFilter), path("week.doc"));
}

TEST_F(ReportOutputTest, AnExistingFileIsOverwrittenOnlyOnYes) {
    std::ofstream(path("old.pdf")) << "keep";
    ui.nextFile(path("old.pdf"));
    ui.answer(MsgAnswer::No);
    EXPECT_EQ(AskSaveFile(s(), "PDF", kPdfFilter), "");
    // The question is the program's; the chooser must not ask it a second time.
    EXPECT_FALSE(ui.lastSaveConfirmsOverwrite);
    EXPECT_EQ(
        ui.messages,
        (testing::Messages{{"File already exists. Overwrite?", MsgButtons::YesNo, MsgIcon::None, "Save PDF File"}}));
    ui.nextFile(path("old"));  // the extension is added before the question
    ui.answer(MsgAnswer::Yes);
    EXPECT_EQ(AskSaveFile(s(), "PDF", kPdfFilter), path("old.pdf"));
    EXPECT_EQ(ui.messages.size(), 2u);
}

// --- Printing and PDF

TEST_F(ReportOutputTest, PrintingWithoutPrintersOnlySaysSo) {
    compose(3);
    printer.devices = 0;
    EXPECT_FALSE(PrintSurface(s(), vp, printer, out));
    EXPECT_EQ(ui.messages, (testing::Messages{{"Can't get printer information.\n\nMake sure that you have a printer "
                                               "installed and selected.",
                                               MsgButtons::Ok, MsgIcon::Exclamation, "Error"}}));
    EXPECT_TRUE(printer.dialogDevices.empty());
    EXPECT_TRUE(printer.printed.empty());
    EXPECT_TRUE(printer.pdfs.empty());
}

TEST_F(ReportOutputTest, PrintingGoesToTheDialogsChoice) {
    s().settings.gs_PrinterDevice = "Office";
    compose(80);
    EXPECT_FALSE(PrintSurface(s(), vp, printer, out));  // Cancel
    EXPECT_TRUE(printer.printed.empty());

    printer.dialogAnswer = PrintJob{2, 3, 2, "Hall"};
    EXPECT_TRUE(PrintSurface(s(), vp, printer, out));
    EXPECT_EQ(printer.dialogDevices, (std::vector<std::string>{"Office", "Office"}));
    ASSERT_EQ(printer.printed.size(), 1u);
    EXPECT_EQ(printer.printed[0].fromPage, 2);
    EXPECT_EQ(printer.printed[0].copies, 2);
    EXPECT_EQ(printer.printedPages, vp.PageCount());
    EXPECT_EQ(vp.Device(), "Hall");
    EXPECT_TRUE(ui.messages.empty());

    // The PDF device of the dialog asks for its file.
    printer.dialogAnswer = PrintJob{1, 2, 1, kPdfDevice};
    EXPECT_FALSE(PrintSurface(s(), vp, printer, out));  // no file chosen
    ui.nextFile(path("week"));
    EXPECT_TRUE(PrintSurface(s(), vp, printer, out));
    ASSERT_EQ(printer.pdfs.size(), 1u);
    EXPECT_EQ(printer.pdfs[0].path, path("week.pdf"));
    EXPECT_EQ(printer.pdfs[0].to, 2);
}

TEST_F(ReportOutputTest, PdfExportNeedsNoPrinterAndPutsTheDeviceBack) {
    printer.devices = 0;
    s().settings.gs_PrinterDevice = "Office";
    compose(80);
    OutputCommand command(out, OutputCommand::Kind::Pdf, path("week.pdf"));
    EXPECT_TRUE(PrintSurface(s(), vp, printer, out));
    ASSERT_EQ(printer.pdfs.size(), 1u);
    EXPECT_EQ(printer.pdfs[0].path, path("week.pdf"));
    EXPECT_EQ(printer.pdfs[0].from, 1);
    EXPECT_EQ(printer.pdfs[0].to, vp.PageCount());
    EXPECT_EQ(vp.Device(), "Office");
    EXPECT_TRUE(printer.dialogDevices.empty());
    EXPECT_TRUE(ui.messages.empty());

    printer.writeOk = false;
    EXPECT_FALSE(PrintSurface(s(), vp, printer, out));
    EXPECT_EQ(ui.texts(), std::vector<std::string>{"Unable to write the file " + path("week.pdf") + "."});

    ui.clear();
    printer.pdf = false;
    EXPECT_FALSE(PrintSurface(s(), vp, printer, out));
    EXPECT_EQ(ui.messages,
              (testing::Messages{{"Tallymere PDF Converter printer driver is not installed or cannot be accessed.",
                                  MsgButtons::Ok, MsgIcon::Critical, "Error PDF converter"}}));
    EXPECT_EQ(vp.Device(), "Office");
}

TEST_F(ReportOutputTest, PageSetupStoresTheSettingsAndTheFitWidth) {
    PageSettings chosen;
    chosen.orientation = kLandscape;
    chosen.paperSize = kPaperA4;
    chosen.device = "Hall";
    chosen.marginLeft = 1440;
    chosen.marginRight = 1440;
    printer.pageSetupAnswer = chosen;
    s().settings.gi_ReportNumDays = 14;
    EXPECT_TRUE(mnupagesetup(s(), vp, printer));
    const auto& g = s().settings;
    EXPECT_EQ(g.orientation, kLandscape);
    EXPECT_EQ(g.gs_PaperSize, "9");
    EXPECT_EQ(g.gs_PrinterDevice, "Hall");
    EXPECT_EQ(g.marginleft, 1440);
    EXPECT_EQ(vp.PageWidth(), 16838);
    using Width = std::remove_cvref_t<decltype(g.gi_ReportColumnWidth)>;
    EXPECT_EQ(g.gi_ReportColumnWidth, static_cast<Width>(fitColumnWidthInches(16838, 1440, 1440, 14)));

    printer.pageSetupAnswer.reset();
    EXPECT_FALSE(mnupagesetup(s(), vp, printer));
    EXPECT_TRUE(ui.messages.empty());
    printer.devices = 0;
    EXPECT_FALSE(mnupagesetup(s(), vp, printer));
    EXPECT_EQ(ui.messages, (testing::Messages{{"Make sure a printer is installed.", MsgButtons::Ok,
                                               MsgIcon::Information, "Information"}}));
}

// --- Lists

ListGrid payrollList(int rows) {
    ListGrid list;
    list.columns = {{"Employee", 6000, Align::Left}, {"Hours", 6000, Align::Right}, {"Pay|Net", 6000, Align::Center}};
    for (int r = 1; r <= rows; ++r) list.rows.push_back({"emp " + std::to_string(r), std::to_string(r) + ".00"});
    return list;
}

TEST_F(ReportOutputTest, PrintListGridPrintsTheListAsATable) {
    s().settings.gi_PrintGridFontSize = 9;
    printer.dialogAnswer = PrintJob{1, 1, 1, "Office"};
    EXPECT_TRUE(PrintListGrid(s(), vp, printer, payrollList(5), "Payroll Estimator", out));
    ASSERT_EQ(printer.printed.size(), 1u);

    const Document& doc = *vp.document();
    EXPECT_NE(findText(doc.pages[0], "Payroll Estimator"), nullptr);
    const auto& block = std::get<TableBlock>(doc.flow.back());
    const Table& t = block.table;
    EXPECT_EQ(t.text(0, 3), "Pay|Net");
    EXPECT_EQ(t.text(2, 2), "2.00");
    EXPECT_EQ(t.text(2, 3), "");
    EXPECT_EQ(t.cellFont(0, 1).size, 9);
    EXPECT_EQ(t.cellFont(3, 1).size, 9);
    EXPECT_EQ(t.backColor(0, 2), kHeaderGrey);
    EXPECT_EQ(t.backColor(1, 2), std::nullopt);
    EXPECT_EQ(t.backColor(4, 2), kEvenRowGrey);
    EXPECT_EQ(t.colAlign(2), Align::Right);
    // 18000 twips of list on 10800 of page: every column shrinks alike.
    EXPECT_EQ(block.colWidths, (std::vector<int>{3600, 3600, 3600}));
}

TEST_F(ReportOutputTest, PrintListGridExportedToRtfIsNotPrinted) {
    OutputCommand command(out, OutputCommand::Kind::Rtf, path("list.rtf"));
    EXPECT_TRUE(PrintListGrid(s(), vp, printer, payrollList(60), "Payroll Estimator", out));
    EXPECT_TRUE(printer.dialogDevices.empty());
    std::ifstream in(path("list.rtf"));
    const std::string rtf((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    EXPECT_NE(rtf.find("emp 60"), std::string::npos);
    EXPECT_NE(rtf.find("Pay|Net"), std::string::npos);
}

TEST_F(ReportOutputTest, PrintListGridTellsAFileThatCannotBeWritten) {
    OutputCommand command(out, OutputCommand::Kind::Rtf, path("missing/list.rtf"));
    EXPECT_FALSE(PrintListGrid(s(), vp, printer, payrollList(2), "Payroll Estimator", out));
    EXPECT_EQ(ui.texts(), std::vector<std::string>{"Unable to write the file " + path("missing/list.rtf") + "."});
}

}  // namespace
}  // namespace tallymere::reports

#include "app/common/qt_ui.h"
#include "app/schedule/daily_schedule_window.h"
#include "app/shell/main_window.h"
#include "app/shell/output_window.h"
#include "app_test.h"
#include "reports/page_setup.h"
#include "store/access.h"

#include <QAction>
#include <QDialog>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace tallymere::testing {
namespace {

using common::Date;
using common::DateTime;

// A printer that records what it was asked and prints nowhere.
class RecordingPrinter : public reports::Printer {
public:
    int NDevices() override { return devices; }
    std::optional<reports::PrintJob> PrintDialog(const reports::Document& doc, const std::string&) override {
        return reports::PrintJob{1, doc.PageCount(), 1, "Office"};
    }
    bool PageSetupDialog(reports::PageSettings& settings) override {
        if (pageSetupAnswer) settings = *pageSetupAnswer;
        return pageSetupAnswer.has_value();
    }
    bool pdfAvailable() override { return true; }
    bool PrintDoc(const reports::Document&, const reports::PrintJob&) override { return ++printed, true; }
    bool writePdf(const reports::Document&, const std::string& path, int, int) override {
        pdfs.push_back(path);
        return true;
    }

    int devices = 1;
    int printed = 0;
    std::optional<reports::PageSettings> pageSetupAnswer;
    std::vector<std::string> pdfs;
};

// A child window that records what the output commands asked of it.
class OutputChild : public QWidget, public app::ChildWindow, public app::OutputWindow {
public:
    explicit OutputChild(const QString& name) { setObjectName(name); }
    void printReport(reports::Printer&, const reports::ReportOutput& out) override { calls.push_back(out); }
    void previewReport() override { ++previews; }
    bool saveReportCsv() override { return ++csvSaves, true; }
    void refreshWindow() override { ++refreshes; }

    std::vector<reports::ReportOutput> calls;
    int previews = 0, csvSaves = 0, refreshes = 0;
};

std::string readFile(const std::filesystem::path& p) {
    std::ifstream in(p, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

class MainWindowOutputTest : public AppDatabaseTest {
protected:
    void SetUp() override {
        AppDatabaseTest::SetUp();
        s().currentSchedule = "Week 1";
        s().activeDate = Date::fromYmd(2026, 11, 23);
        const auto start = DateTime::at(s().activeDate, 8);
        ASSERT_TRUE(store::InsertRecs(s(),
                                      "insert into sched (personid,lname,fname,sday,strttime,endtime,position,shift,"
                                      "sname) values(1,'Sample','Sam',?,?,?,'Cook','Day','Week 1')",
                                      {start.date(), start, start.addHours(8)}));
        window = std::make_unique<app::MainWindow>(s(), qtUi);
        app::registerPayrollWindows(*window);
        app::registerStaffingWindows(*window);
        window->show();
    }

    OutputChild* open(const char* name) {
        return static_cast<OutputChild*>(window->openChild(
            QString::fromLatin1(name), [name] { return new OutputChild(QString::fromLatin1(name)); }));
    }
    std::string file(const std::string& name) const { return (folder.path() / name).string(); }

    app::QtUi qtUi;
    RecordingPrinter printer;
    std::unique_ptr<app::MainWindow> window;
};

TEST_F(MainWindowOutputTest, TheActiveRoutedWindowAloneGetsTheCommands) {
    window->setPrinter(&printer);
    OutputChild* leave = open("leavelist");
    OutputChild* other = open("printlist");
    window->runCommand("mnuprintreport");
    window->runCommand("mnuPrintPreview");
    ASSERT_EQ(other->calls.size(), 1u);
    EXPECT_FALSE(other->calls[0].exportRtf || other->calls[0].exportPdf);
    EXPECT_EQ(other->previews, 1);
    EXPECT_TRUE(leave->calls.empty());

    // The file asked for reaches the window with its flag; Cancel reaches nothing.
    window->mdiArea()->setActiveSubWindow(window->mdiArea()->subWindowList().front());
    ui.nextFile(file("out.rtf"));
    window->runCommand("mnuExportReportRtf");
    ui.nextFile(file("out.pdf"));
    window->runCommand("mnuSaveToPDF");
    ui.nextFile(std::nullopt);
    window->runCommand("mnuSaveToPDF");
    ASSERT_EQ(leave->calls.size(), 2u);
    EXPECT_TRUE(leave->calls[0].exportRtf && !leave->calls[0].exportPdf);
    EXPECT_EQ(leave->calls[0].rtfFile, file("out.rtf"));
    EXPECT_TRUE(leave->calls[1].exportPdf && !leave->calls[1].exportRtf);
    EXPECT_EQ(leave->calls[1].pdfFile, file("out.pdf"));

    // A window outside the routed names does nothing, port or not.
    OutputChild* staffing = open("staffing");
    for (const char* name : {"mnuprintreport", "mnuPrintPreview", "mnuSaveAsCsv"}) window->runCommand(name);
    EXPECT_TRUE(staffing->calls.empty());
    EXPECT_EQ(staffing->previews + staffing->csvSaves, 0);
}

TEST_F(MainWindowOutputTest, ListWindowsWritePdfAndRtfWithoutAnyPrinter) {
    // The real printer port: no printer is installed where the tests run.
    for (const auto& [menu, name] : {std::pair{"mnupayrollestimator", "payrollestimator"},
                                     std::pair{"mnuFindAvailableEmployees", "ReportAvailable"},
                                     std::pair{"mnuweeklypayroll", "ReportWeeklyPayroll"}}) {
        ASSERT_TRUE(window->runCommand(menu)) << menu;
        ASSERT_EQ(window->activeChildName(), QString::fromLatin1(name));
        ui.nextFile(file(std::string(name) + ".pdf"));
        window->runCommand("mnuSaveToPDF");
        ui.nextFile(file(std::string(name) + ".rtf"));
        window->runCommand("mnuExportReportRtf");
        EXPECT_EQ(readFile(file(std::string(name) + ".pdf")).substr(0, 4), "%PDF") << name;
        EXPECT_EQ(readFile(file(std::string(name) + ".rtf")).substr(0, 5), "{\\rtf") << name;
    }
    EXPECT_TRUE(ui.texts().empty());
}

TEST_F(MainWindowOutputTest, SaveAsCsvFollowsTheListWindows) {
    QAction* csv = window->action("mnuSaveAsCsv");
    ASSERT_NE(csv, nullptr);
    EXPECT_EQ(csv->text(), QStringLiteral("Save As CSV..."));
    EXPECT_FALSE(csv->isEnabled());
    open("dailyflexgrid");
    EXPECT_FALSE(csv->isEnabled());

    ASSERT_TRUE(window->runCommand("mnupayrollestimator"));
    EXPECT_TRUE(csv->isEnabled());
    ui.nextFile(file("estimate.csv"));
    csv->trigger();
    EXPECT_NE(readFile(file("estimate.csv")).find("Sample, Sam"), std::string::npos);

    ASSERT_TRUE(window->runCommand("mnucheckstaffinglevels"));
    EXPECT_TRUE(csv->isEnabled());
    for (QMdiSubWindow* sub : window->mdiArea()->subWindowList()) delete sub;
    EXPECT_FALSE(csv->isEnabled());
}

TEST_F(MainWindowOutputTest, PageSetupStoresTheSettingsAndRecomposesTheActiveReport) {
    window->setPrinter(&printer);
    OutputChild* report = open("leavelist");
    reports::PageSettings page = reports::pageSettingsFrom(s().settings);
    page.marginLeft = 1440;
    printer.pageSetupAnswer = page;
    window->runCommand("mnupagesetup");
    EXPECT_EQ(reports::pageSettingsFrom(s().settings).marginLeft, 1440);
    EXPECT_EQ(report->refreshes, 1);

    printer.pageSetupAnswer.reset();
    printer.devices = 0;
    window->runCommand("mnupagesetup");
    EXPECT_EQ(ui.texts(), std::vector<std::string>{"Make sure a printer is installed."});
    EXPECT_EQ(report->refreshes, 1);
}

TEST_F(MainWindowOutputTest, TheDailySchedulePrintsExportsAndPreviews) {
    window->setPrinter(&printer);
    auto* daily = static_cast<app::DailyScheduleWindow*>(
        window->openChild(QStringLiteral("dailyflexgrid"), [this] { return new app::DailyScheduleWindow(*window); }));
    window->runCommand("mnuprintreport");
    ui.nextFile(file("day.pdf"));
    window->runCommand("mnuSaveToPDF");
    ui.nextFile(file("day.rtf"));
    window->runCommand("mnuExportReportRtf");
    EXPECT_EQ(printer.printed, 1);
    EXPECT_EQ(printer.pdfs, std::vector<std::string>{file("day.pdf")});
    const std::string rtf = readFile(file("day.rtf"));
    EXPECT_NE(rtf.find("Week 1 - Daily Schedule  Monday Nov 23, 2026"), std::string::npos);
    EXPECT_NE(rtf.find("Sample, Sam"), std::string::npos);

    // The window's own Preview button and the menu open the small preview window.
    auto* preview = daily->findChild<QPushButton*>(QStringLiteral("PreviewButton"));
    ASSERT_TRUE(preview && preview->isEnabled());
    QTest::mouseClick(preview, Qt::LeftButton);
    window->runCommand("mnuPrintPreview");
    EXPECT_EQ(daily->findChildren<QDialog*>(QStringLiteral("dailyflexgridprint")).size(), 2);
    EXPECT_TRUE(ui.texts().empty());
}

}  // namespace
}  // namespace tallymere::testing

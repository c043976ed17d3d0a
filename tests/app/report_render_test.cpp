// The report document on Qt: fonts measured as they are painted, pages painted where the document
// puts them, PDF written without a printer, and the preview's pages and zoom.

#include "app/render/page_renderer.h"
#include "app/render/preview_widget.h"
#include "app/render/qt_printer.h"
#include "app/render/render_fonts.h"
#include "app_test.h"
#include "reports/output.h"
#include "reports/report_frame.h"
#include "reports/surface.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFontDatabase>
#include <QImage>
#include <QPainter>
#include <QSpinBox>
#include <QToolButton>
#include <regex>

namespace tallymere::testing {
namespace {

namespace render = app::render;
using reports::Font;
using reports::Surface;

// Pages of a PDF as its page objects tell them, with their sizes in points.
struct PdfPages {
    int count = 0;
    std::vector<std::pair<double, double>> sizes;  // width, height
};
PdfPages readPdf(const QString& path) {
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) return {};
    const std::string data = f.readAll().toStdString();
    PdfPages pages;
    static const std::regex page(R"(/Type\s*/Page(?![a-zA-Z]))");
    pages.count =
        static_cast<int>(std::distance(std::sregex_iterator(data.begin(), data.end(), page), std::sregex_iterator()));
    static const std::regex box(R"(/MediaBox\s*\[\s*([-0-9.]+)\s+([-0-9.]+)\s+([-0-9.]+)\s+([-0-9.]+)\s*\])");
    for (auto it = std::sregex_iterator(data.begin(), data.end(), box); it != std::sregex_iterator(); ++it)
        pages.sizes.emplace_back(std::stod((*it)[3].str()) - std::stod((*it)[1].str()),
                                 std::stod((*it)[4].str()) - std::stod((*it)[2].str()));
    return pages;
}

// A table of `rows` employees with a grey header, as the reports lay them.
std::shared_ptr<const reports::Document> tableDocument(const reports::FontMetrics& metrics, int rows,
                                                       int orientation = reports::kPortrait) {
    Surface vp(metrics);
    vp.setOrientation(orientation);
    vp.setFooter("11/23/2026||Page %d");
    vp.onNewPage = [](Surface& s) {
        s.setFontSize(13);
        s.Text("Main Street - Weekly Report by Employee");
        s.setCurrentY(s.MarginTop() + 300 + 200);
        s.setFontSize(10);
    };
    vp.StartDoc();
    vp.StartTable();
    reports::Table& t = vp.AddTable("2160|>720|", "Name|Hrs|Sun\nNov 22|Mon\nNov 23|Tue\nNov 24");
    t.setRows(rows);
    for (int r = 1; r <= rows; ++r) {
        t.setText(r, 1, "Employee " + std::to_string(r));
        t.setText(r, 2, "8.00");
        t.setText(r, 3 + r % 3, "9:00am-5:00pm\nCashier");
    }
    reports::ReportFontFields font;
    reports::ApplyReportTableStyle(t, font, 100);
    vp.EndTable();
    vp.EndDoc();
    return vp.document();
}

class ReportRenderTest : public AppTest {
protected:
    render::QtFontMetrics metrics;
    TempFolder folder;
    QString path(const char* name) const { return QString::fromStdString((folder.path() / name).string()); }
};

TEST_F(ReportRenderTest, ArialIsMeasuredInTwipsAsItsLiberationTwin) {
    if (!QFontDatabase::hasFamily(QStringLiteral("Arial"))) {
        EXPECT_EQ(render::paintFamily("Arial"), QStringLiteral("Liberation Sans"));
    }
    const Font arial{"Arial", 10};
    const Font liberation{"Liberation Sans", 10};
    const std::string text = "Smith, John 9:00am-5:00pm";
    EXPECT_DOUBLE_EQ(metrics.textWidth(arial, text), metrics.textWidth(liberation, text));
    EXPECT_DOUBLE_EQ(metrics.lineHeight(arial), metrics.lineHeight(liberation));
    // An Arial "M" is 0.833 em: 167 twips at 10 points. Lines are about 1.15 em.
    EXPECT_NEAR(metrics.textWidth(arial, "M"), 166.7, 2);
    EXPECT_NEAR(metrics.lineHeight(arial), 230, 10);
    // Without hinting, widths grow with the size alone.
    EXPECT_NEAR(metrics.textWidth(Font{"Arial", 20}, text), 2 * metrics.textWidth(arial, text), 1);
    EXPECT_GT(metrics.textWidth(Font{"Arial", 10, true}, text), metrics.textWidth(arial, text));
}

TEST_F(ReportRenderTest, PagesArePaintedWhereTheDocumentPutsThem) {
    reports::Page page{1440, 1440, {}};
    page.items.push_back(reports::RectItem{720, 720, 360, 360, reports::rgb(200, 0, 0)});
    page.items.push_back(reports::LineItem{0, 300, 1440, 300, 20});
    QImage image(144, 144, QImage::Format_RGB32);  // a tenth of a pixel per twip
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        render::PageRenderer().paint(painter, page, QRectF(0, 0, 144, 144));
    }
    EXPECT_EQ(image.pixelColor(80, 80), QColor(200, 0, 0));
    EXPECT_EQ(image.pixelColor(60, 60), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(40, 30), QColor(Qt::black));
    EXPECT_EQ(image.pixelColor(40, 35), QColor(Qt::white));
}

TEST_F(ReportRenderTest, TwoPagesGoToPdfWithoutAPrinter) {
    const auto doc = tableDocument(metrics, 40);
    ASSERT_EQ(doc->PageCount(), 2);
    ASSERT_TRUE(render::writePdfFile(*doc, path("week.pdf"), 1, doc->PageCount()));
    const PdfPages pdf = readPdf(path("week.pdf"));
    EXPECT_EQ(pdf.count, 2);
    ASSERT_FALSE(pdf.sizes.empty());
    EXPECT_EQ(pdf.sizes.front(), (std::pair<double, double>{612, 792}));

    // A range, and a folder that is not there: nothing written, nothing left behind.
    ASSERT_TRUE(render::writePdfFile(*doc, path("second.pdf"), 2, 2));
    EXPECT_EQ(readPdf(path("second.pdf")).count, 1);
    EXPECT_FALSE(render::writePdfFile(*doc, path("missing/week.pdf"), 1, 2));
}

TEST_F(ReportRenderTest, SaveToPdfRunsThroughThePrinterPort) {
    common::MemoryUserSettings userSettings;
    common::FixedClock clock{common::DateTime::fromParts(2026, 11, 23, 9, 0)};
    FakeUi fakeUi;
    common::Session session(fakeUi, userSettings, clock);
    session.settings.orientation = reports::kLandscape;
    Surface vp(metrics);
    reports::ReportOutput out;
    reports::ReportFontFields font;
    reports::PrepareDocument(session, vp, font, "Main Street - Daily Report", out);
    vp.Paragraph("Nothing scheduled.");
    vp.EndDoc();

    render::QtPrinter printer;
    reports::OutputCommand command(out, reports::OutputCommand::Kind::Pdf, path("daily.pdf").toStdString());
    ASSERT_TRUE(reports::PrintSurface(session, vp, printer, out));
    const PdfPages pdf = readPdf(path("daily.pdf"));
    EXPECT_EQ(pdf.count, 1);
    ASSERT_FALSE(pdf.sizes.empty());
    EXPECT_EQ(pdf.sizes.front(), (std::pair<double, double>{792, 612}));
    EXPECT_TRUE(fakeUi.messages.empty());
}

TEST_F(ReportRenderTest, PreviewMovesBetweenPagesAndKeepsItsPlace) {
    render::PreviewWidget vp;
    EXPECT_EQ(vp.objectName(), QStringLiteral("vp"));
    EXPECT_EQ(vp.page(), 0);
    vp.resize(800, 600);
    vp.show();

    vp.setDocument(tableDocument(metrics, 100));
    ASSERT_EQ(vp.pageCount(), 4);
    EXPECT_EQ(vp.page(), 1);
    auto* previous = vp.findChild<QToolButton*>(QStringLiteral("vpPreviousPage"));
    auto* next = vp.findChild<QToolButton*>(QStringLiteral("vpNextPage"));
    auto* number = vp.findChild<QSpinBox*>(QStringLiteral("vpPageNumber"));
    ASSERT_TRUE(previous && next && number);
    EXPECT_FALSE(previous->isEnabled());
    next->click();
    EXPECT_EQ(vp.page(), 2);
    EXPECT_EQ(number->value(), 2);
    number->setValue(4);
    EXPECT_EQ(vp.page(), 4);
    EXPECT_FALSE(next->isEnabled());
    vp.nextPage();
    EXPECT_EQ(vp.page(), 4);

    // A shorter document after a refresh: the last page it has.
    vp.setDocument(tableDocument(metrics, 40));
    EXPECT_EQ(vp.page(), 2);
    vp.setDocument(nullptr);
    EXPECT_EQ(vp.page(), 0);
}

TEST_F(ReportRenderTest, PreviewZoomsToTheWidthTheWholePageOrAPercentage) {
    render::PreviewWidget vp;
    vp.resize(700, 500);
    vp.show();
    vp.setDocument(tableDocument(metrics, 10));
    const double width = vp.scale();
    EXPECT_NEAR(width * 12240, 700 - 40, 60);
    vp.setZoom(render::PreviewWidget::Zoom::WholePage);
    EXPECT_LT(vp.scale(), width);
    EXPECT_LE(vp.scale() * 15840, 500);
    vp.setZoomPercent(100);
    EXPECT_DOUBLE_EQ(vp.scale(), vp.logicalDpiX() / 1440.0);

    // The page is painted: white paper with dark text on it.
    vp.setZoom(render::PreviewWidget::Zoom::PageWidth);
    const QImage shot = vp.findChild<QWidget*>(QStringLiteral("vpPage"))->grab().toImage();
    int white = 0, dark = 0;
    for (int y = 0; y < shot.height(); y += 2)
        for (int x = 0; x < shot.width(); x += 2) {
            const QColor c = shot.pixelColor(x, y);
            white += c == QColor(Qt::white);
            dark += c.lightness() < 80;
        }
    EXPECT_GT(white, 1000);
    EXPECT_GT(dark, 50);
}

// Timings, not a test: TALLYMERE_BENCH=1 prints how long 100 pages take to compose and to write.
TEST_F(ReportRenderTest, HundredPagePdfTiming) {
    if (qEnvironmentVariable("TALLYMERE_BENCH") != QStringLiteral("1")) GTEST_SKIP() << "set TALLYMERE_BENCH=1";
    QElapsedTimer timer;
    timer.start();
    const auto doc = tableDocument(metrics, 2550);
    const qint64 compose = timer.restart();
    ASSERT_TRUE(render::writePdfFile(*doc, path("hundred.pdf"), 1, doc->PageCount()));
    const qint64 pdf = timer.elapsed();
    std::printf("%d pages: composed with Qt metrics in %lld ms, PDF written in %lld ms (%lld bytes)\n",
                doc->PageCount(), static_cast<long long>(compose), static_cast<long long>(pdf),
                static_cast<long long>(QFile(path("hundred.pdf")).size()));
    EXPECT_EQ(readPdf(path("hundred.pdf")).count, doc->PageCount());
}

}  // namespace
}  // namespace tallymere::testing

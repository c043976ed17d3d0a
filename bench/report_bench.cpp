// The report engine on a long weekly grid: composing about 100 pages (a table whose header row
// repeats on every page, cells of two to five lines, shaded rows, the page heading and footer on each
// page) and writing it as RTF. Measured with fixed-pitch metrics, so this is the engine's own time;
// the app's PDF of 100 pages is timed by the app test ReportRenderTest.HundredPagePdfTiming
// (TALLYMERE_BENCH=1).

#include "reports/report_frame.h"
#include "reports/rtf_writer.h"
#include "reports/surface.h"

#include <benchmark/benchmark.h>

namespace {

using namespace tallymere::reports;

constexpr int kRows = 1400;

std::shared_ptr<const Document> composeWeek(const FontMetrics& metrics) {
    Surface vp(metrics);
    ReportFontFields window;
    const std::string title = "Main Street - Sunday Nov 22, 2026 to Saturday Nov 28, 2026";
    vp.onNewPage = [&](Surface& s) {
        s.setFont(window.font(3));
        s.CalcText(title);
        s.setCurrentX(s.MarginLeft());
        s.Text(title);
        s.setCurrentY(s.MarginTop() + s.TextHei() + 200);
    };
    vp.onBeforeFooter = [](Surface& s) { s.setFontSize(10); };
    vp.setFooter("11/23/2026 9:00:00 AM||Page %d");
    vp.StartDoc();
    vp.StartTable();
    Table& t =
        vp.AddTable("|", "Name|Sun\nNov 22|Mon\nNov 23|Tue\nNov 24|Wed\nNov 25|Thu\nNov 26|Fri\nNov 27|Sat\nNov 28");
    const int day =
        static_cast<int>(fitColumnWidthInches(vp.PageWidth(), vp.MarginLeft(), vp.MarginRight(), 7) * 100) * 1440 / 100;
    for (int c = 1; c <= t.Cols(); ++c) t.setColWidth(c, day);
    t.setColWidth(1, "1.5in");
    t.setRows(kRows);
    for (int r = 1; r <= kRows; ++r) {
        t.setText(r, 1, "Employee" + std::to_string(r) + ", Pat");
        for (int d = 0; d < 7; ++d) {
            if ((r + d) % 3 == 0) continue;
            t.setText(r, 2 + d, r % 2 ? "9:00am-5:00pm\nCashier" : "11:00am-7:30pm\nStock\n\n5:00pm-9:00pm\nFloor");
        }
    }
    ApplyReportTableStyle(t, window, 100);
    vp.EndTable();
    vp.EndDoc();
    return vp.document();
}

void BM_ComposeWeeklyGrid(benchmark::State& state) {
    FixedPitchMetrics metrics;
    int pages = 0;
    for (auto _ : state) {
        const auto doc = composeWeek(metrics);
        pages = doc->PageCount();
        benchmark::DoNotOptimize(doc);
    }
    state.counters["pages"] = pages;
}

void BM_WriteRtf(benchmark::State& state) {
    FixedPitchMetrics metrics;
    const auto doc = composeWeek(metrics);
    std::size_t bytes = 0;
    for (auto _ : state) {
        const std::string rtf = toRtf(*doc);
        bytes = rtf.size();
        benchmark::DoNotOptimize(rtf);
    }
    state.counters["pages"] = doc->PageCount();
    state.counters["kB"] = static_cast<double>(bytes) / 1024;
}

BENCHMARK(BM_ComposeWeeklyGrid)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WriteRtf)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();

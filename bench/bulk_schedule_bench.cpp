// The operations that rewrite or read many days at once, on a large business (a year of 150 entries a
// day, 250 employees): a copy of 28 days into another schedule file with and without the conflict
// questions, the default schedule of 14 days saved and laid, the weekly window's build, and the
// export of a month. Each copy or laying replaces the same target days every time, so every
// iteration does the same work.

#include "maintenance/data_export.h"
#include "schedule/copy_schedule.h"
#include "schedule/default_schedule.h"
#include "schedule/weekly_schedule.h"
#include "store/access.h"
#include "support/large_business.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

namespace {

using namespace tallymere;
using common::Date;

constexpr const char* kCopyTarget = "Copy Target";

struct Business {
    Business() {
        auto& s = session();
        store::InsertRecs(s, "insert into schedname (schedname) values (?)", {kCopyTarget});
        s.settings.gi_defaultschedlength = 14;
        s.activeDate = day();
        exportPath = (std::filesystem::temp_directory_path() / "tallymere-bench-export.txt").string();
    }
    ~Business() { std::filesystem::remove(exportPath); }

    common::Session& session() { return business.session(); }
    Date day() const { return business.firstDay().addDays(120); }
    // Days past the generated year, so that a laying or a copy lands on days of its own.
    Date freeDay() const { return business.firstDay().addDays(business.size().days + 14); }

    bench::LargeBusiness business;
    std::string exportPath;
};

Business& business() {
    static Business b;
    return b;
}

// check 1: every entry through the availability and leave tests (the silent Ui answers Yes); 0: none.
void BM_CopyRange28Days(benchmark::State& state) {
    auto& b = business();
    auto& s = b.session();
    long copied = 0;
    for (auto _ : state) {
        const auto outcome = schedule::CopyDays(s, bench::LargeBusiness::kScheduleName, b.day(), kCopyTarget, b.day(),
                                                28, state.range(0) != 0, false);
        if (outcome != schedule::CopyOutcome::Copied) {
            state.SkipWithError("the copy did not complete");
            break;
        }
    }
    copied = static_cast<long>(
        store::GetRecs(s, "select schedid from sched where sname=?", {std::string(kCopyTarget)}).RecordCount());
    state.counters["entries copied"] = static_cast<double>(copied);
}

void BM_SaveDefault14Days(benchmark::State& state) {
    auto& b = business();
    for (auto _ : state)
        if (!schedule::SaveDefaultSchedule(b.session(), b.day(), bench::LargeBusiness::kScheduleName)) {
            state.SkipWithError("the default schedule was not saved");
            break;
        }
    state.counters["pattern rows"] =
        static_cast<double>(store::GetRecs(b.session(), "select daynum from scheddefault").RecordCount());
}

void BM_GetDefault14Days(benchmark::State& state) {
    auto& b = business();
    schedule::SaveDefaultSchedule(b.session(), b.day(), bench::LargeBusiness::kScheduleName);
    for (auto _ : state)
        if (!schedule::GetDefaultSchedule(b.session(), b.freeDay(), bench::LargeBusiness::kScheduleName)) {
            state.SkipWithError("the default schedule was not laid");
            break;
        }
}

void BM_WeeklyWindowBuild(benchmark::State& state) {
    auto& b = business();
    schedule::week window(b.session());
    for (auto _ : state) {
        window.LoadWeek();
        benchmark::DoNotOptimize(window.Grid1.rows.data());
    }
    state.counters["rows"] = static_cast<double>(window.Grid1.rows.size());
}

void BM_ExportMonth(benchmark::State& state) {
    auto& b = business();
    for (auto _ : state)
        if (!maintenance::ExportScheduleData(b.session(), b.day(), b.day().addDays(29),
                                             bench::LargeBusiness::kScheduleName, std::nullopt, "start time",
                                             b.exportPath)) {
            state.SkipWithError("the export failed");
            break;
        }
    state.counters["bytes"] = static_cast<double>(std::filesystem::file_size(b.exportPath));
}

BENCHMARK(BM_CopyRange28Days)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SaveDefault14Days)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_GetDefault14Days)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WeeklyWindowBuild)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ExportMonth)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();

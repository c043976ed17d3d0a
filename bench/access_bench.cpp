// Statements per second through the access layer on a large business: a day's entries and a week's
// hour sum, with prepared statements reused (the program's way) and prepared afresh each time.

#include "store/access.h"
#include "store/database.h"
#include "support/large_business.h"

#include <benchmark/benchmark.h>

namespace {

using namespace tallymere;

bench::LargeBusiness& business() {
    static bench::LargeBusiness b;
    return b;
}

void daySelect(benchmark::State& state) {
    auto& s = business().session();
    store::db(s).setStatementCaching(state.range(0) != 0);
    int d = 0;
    std::size_t rows = 0;
    for (auto _ : state) {
        const auto day = business().firstDay().addDays(d++ % 365);
        const auto rs = store::GetRecs(s, "select * from sched where sday = ? and sname = ?", {day, s.currentSchedule});
        rows += rs.RecordCount();
    }
    state.SetItemsProcessed(state.iterations());
    state.counters["rows/select"] = static_cast<double>(rows) / static_cast<double>(state.iterations());
    store::db(s).setStatementCaching(true);
}

void weekHourSum(benchmark::State& state) {
    auto& s = business().session();
    store::db(s).setStatementCaching(state.range(0) != 0);
    int d = 0;
    double hours = 0;
    for (auto _ : state) {
        const auto from = business().firstDay().addDays(d++ % 358);
        const auto rs = store::GetRecs(
            s, "SELECT Sum(DateDiff(\"n\",[strttime],[endtime])/60) AS Expr2 from sched where sday >= ? and sday <= ? and sname = ?",
            {from, from.addDays(6), s.currentSchedule});
        hours += rs["Expr2"].toDouble();
    }
    state.SetItemsProcessed(state.iterations());
    benchmark::DoNotOptimize(hours);
    store::db(s).setStatementCaching(true);
}

BENCHMARK(daySelect)->ArgName("reuse")->Arg(1)->Arg(0)->Unit(benchmark::kMicrosecond);
BENCHMARK(weekHourSum)->ArgName("reuse")->Arg(1)->Arg(0)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();

// The staffing windows on a large business (a year of 150 entries a day, 250 employees, a third of
// them with availability rows and some with leave): the conflict finder over the whole year
// (`BM_ConflictFinderYear`), the staffing analysis of each day of a month (`BM_AnalyzeMonth`), and
// the search for available employees on one day (`BM_FindAvailableDay`). `literal:0` is the conflict
// finder as the window runs it, the range read once; `literal:1` asks the entry rules one statement
// at a time, for comparison.

#include "reference/time_entry.h"
#include "staffing/analyze_levels.h"
#include "staffing/check_conflicts.h"
#include "staffing/report_available.h"
#include "store/access.h"
#include "support/large_business.h"

#include <benchmark/benchmark.h>

namespace {

using namespace tallymere;
using common::Date;

struct Business {
    Business() {
        auto& s = session();
        s.activeDate = business.firstDay().addDays(120);
        store::InsertRecs(s, "begin");
        for (int e = 2; e <= 251; e += 3)
            for (int d = 1; d <= 7; ++d)
                store::InsertRecs(s, "insert into availability (personid,sday,houravail) values(?,?,?)",
                                  {e, common::weekdayName(d), std::string(6, 'N') + std::string(16, 'Y') + "NN"});
        for (int e = 2; e <= 251; e += 10)
            for (int d = 0; d < 365; d += 30)
                store::InsertRecs(s, "insert into employeeleave (personid,fullname,typeofleave,sday) values(?,'x',?,?)",
                                  {e, "Vacation", business.firstDay().addDays(d + e % 30)});
        for (const char* shift : {"Open", "Day", "Mid", "Swing", "Close", "Night"})
            for (int d = 1; d <= 7; ++d)
                for (const auto& rs = store::GetRecs(s, "select title from position"); const auto& row : rs.rows())
                    store::InsertRecs(s, "insert into staffing (sday,shift,position,sname,numreq) values(?,?,?,?,3)",
                                      {d, shift, row[0], bench::LargeBusiness::kScheduleName});
        store::InsertRecs(s, "commit");
    }
    common::Session& session() { return business.session(); }
    bench::LargeBusiness business;
};

Business& business() {
    static Business b;
    return b;
}

void BM_ConflictFinderYear(benchmark::State& state) {
    auto& b = business();
    auto& s = b.session();
    staffing::CheckConflicts w(s);
    w.literal = state.range(0) != 0;
    w.startdate = b.business.firstDay();
    w.enddate = w.startdate.addDays(364);
    std::size_t rows = 0;
    for (auto _ : state) {
        w.rangeoption_Click();
        rows = w.ConflictGrid.size();
    }
    state.counters["rows"] = static_cast<double>(rows);
}
BENCHMARK(BM_ConflictFinderYear)->ArgName("literal")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_AnalyzeMonth(benchmark::State& state) {
    auto& b = business();
    staffing::analyzelevels w(b.session());
    const Date first = b.business.firstDay().addDays(90);
    for (auto _ : state) {
        for (int d = 0; d < 30; ++d) {
            w.analyzeday = first.addDays(d);
            w.analyzebutton_Click();
        }
        benchmark::DoNotOptimize(w.Bblistview1.size());
    }
}
BENCHMARK(BM_AnalyzeMonth)->Unit(benchmark::kMillisecond);

void BM_FindAvailableDay(benchmark::State& state) {
    auto& b = business();
    staffing::ReportAvailable w(b.session());
    w.startTime = reference::TimeEntry("10", "00", "AM");
    w.endTime = reference::TimeEntry("2", "00", "PM");
    for (auto _ : state) {
        w.refreshbutton_Click();
        benchmark::DoNotOptimize(w.bblistview1.size());
    }
}
BENCHMARK(BM_FindAvailableDay)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();

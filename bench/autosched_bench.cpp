// The automatic scheduler on a large business: 250 active employees, 12 positions, 20 shifts, two
// qualifications and two desired shifts each, a year of entries, and a week that holds 1,500
// **Unassigned** entries besides the week's own. Auto Add and Rebuild of the week, by the shipped path
// (read once, kept in memory) and by the literal one (a statement per question), in the same run.
// Every iteration starts from a copy of the same file, put back outside the timing; the timing
// includes the commit of the run.

#include "autosched/auto_rebuild_sched.h"
#include "autosched/auto_sched.h"
#include "store/access.h"
#include "support/large_business.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace tallymere;
using autosched::FactsKind;
using common::Date;
using common::DateTime;
namespace fs = std::filesystem;

constexpr int kUnassigned = 1500;
// The large business's own eight positions, and four that only qualifications give.
const char* const kPositions[] = {"Cashier", "Cook",   "Server",  "Host", "Dishwasher", "Manager",
                                  "Stock",   "Driver", "Barista", "Prep", "Runner",     "Busser"};
constexpr int kPositionCount = 12;

struct ShiftDef {
    std::string name;
    int hour;
    int minutes;
};

// The large business's six shifts and fourteen more, some across midnight.
std::vector<ShiftDef> shifts() {
    std::vector<ShiftDef> out = {{"Open", 6, 480},   {"Day", 9, 480},    {"Mid", 11, 360},
                                 {"Swing", 14, 480}, {"Close", 17, 480}, {"Night", 22, 480}};
    for (int i = 0; out.size() < 20; ++i)
        out.push_back({"Extra" + std::to_string(i + 1), 5 + (i * 3) % 19, 240 + 60 * (i % 5)});
    return out;
}

class SchedulerBusiness {
public:
    SchedulerBusiness() {
        auto& s = session();
        // The last full week of the generated year, Sunday to Saturday, with the year's entries in it.
        weekStart_ = Date::fromYmd(2026, 12, 20);
        s.settings.firstdayofweek = "Sunday";
        s.activeDate = weekStart_.addDays(3);
        std::mt19937 rng(7);
        const auto all = shifts();
        store::Transaction tx(s);
        for (int p = 8; p < kPositionCount; ++p)
            store::InsertRecs(s, "insert into position (title, baserate, color) values (?, ?, ?)",
                              {kPositions[p], "11.50", 0xC0FFC0});
        for (std::size_t i = 6; i < all.size(); ++i) {
            const DateTime start = DateTime::fromParts(2006, 1, 1, all[i].hour);
            store::InsertRecs(s, "insert into shift (name, strttime, endtime) values (?, ?, ?)",
                              {all[i].name, start, start.addMinutes(all[i].minutes)});
        }
        const auto people = store::GetRecs(s, "select personid from person where personid > 1");
        for (const auto& row : people.rows()) {
            const auto id = row[0].toLong();
            for (int q = 0; q < 2; ++q)
                store::InsertRecs(s, "insert into qualifications (personid, position) values (?, ?)",
                                  {id, kPositions[rng() % kPositionCount]});
            for (int w = 0; w < 2; ++w)
                store::InsertRecs(s, "insert into desiredshift (personid, sday, shift, position) values (?, ?, ?, ?)",
                                  {id, static_cast<int>(rng() % 7) + 1, all[rng() % all.size()].name,
                                   rng() % 2 ? std::string() : std::string(kPositions[rng() % kPositionCount])});
        }
        for (int i = 0; i < kUnassigned; ++i) {
            const Date day = weekStart_.addDays(static_cast<int>(rng() % 7));
            const ShiftDef& sh = all[rng() % all.size()];
            const DateTime start = DateTime::at(day, sh.hour);
            store::InsertRecs(s,
                              "insert into sched (personid, lname, fname, sday, strttime, endtime, position, shift, "
                              "section, sname) values (-1, ?, '', ?, ?, ?, ?, ?, 'Front', ?)",
                              {common::Session::kUnassignedName, day, start, start.addMinutes(sh.minutes),
                               kPositions[rng() % kPositionCount], sh.name, bench::LargeBusiness::kScheduleName});
        }
        if (!tx.commit()) throw std::runtime_error("the scheduler's data could not be written");
        store::CloseDB(s);
        start_ = fs::path(s.DataFolder()) / "autosched-start.db";
        fs::copy_file(s.DatabasePath(), start_, fs::copy_options::overwrite_existing);
        store::ConnectDB(s);
    }

    common::Session& session() { return business_.session(); }

    // The file as it was before any run.
    void reset() {
        auto& s = session();
        store::CloseDB(s);
        fs::copy_file(start_, s.DatabasePath(), fs::copy_options::overwrite_existing);
        if (!store::ConnectDB(s)) throw std::runtime_error("cannot reopen the benchmark database");
    }

    long unassignedInWeek() {
        return static_cast<long>(
            store::GetRecs(session(),
                           "select count(*) as n from sched where personid = -1 and sday >= ? "
                           "and sday <= ? and sname = ?",
                           {weekStart_, weekStart_.addDays(6), bench::LargeBusiness::kScheduleName})["n"]
                .toLong());
    }

private:
    bench::LargeBusiness business_;
    Date weekStart_;
    fs::path start_;
};

SchedulerBusiness& business() {
    static SchedulerBusiness b;
    return b;
}

template <class Window>
void runWeek(benchmark::State& state) {
    const FactsKind facts = state.range(0) == 0 ? FactsKind::InMemory : FactsKind::PerQuestion;
    auto& b = business();
    long remaining = 0;
    std::size_t explained = 0;
    for (auto _ : state) {
        state.PauseTiming();
        b.reset();
        state.ResumeTiming();
        Window window(b.session());
        window.factsKind = facts;
        window.WeekOption_Click();
        if constexpr (std::is_same_v<Window, autosched::AutoRebuildSched>)
            window.AutoRedoButton_Click();
        else
            window.OKButton_Click();
        state.PauseTiming();
        remaining = b.unassignedInWeek();
        explained = window.explanation().size();
        state.ResumeTiming();
    }
    state.counters["remaining"] = static_cast<double>(remaining);
    state.counters["explained"] = static_cast<double>(explained);
    state.SetLabel(facts == FactsKind::InMemory ? "shipped" : "literal");
}

void BM_AutoAddWeek(benchmark::State& state) { runWeek<autosched::AutoSched>(state); }
void BM_RebuildWeek(benchmark::State& state) { runWeek<autosched::AutoRebuildSched>(state); }

// 0: the shipped path, a few times; 1: the literal path, once, since it takes long.
BENCHMARK(BM_AutoAddWeek)->Arg(0)->ArgName("literal")->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RebuildWeek)->Arg(0)->ArgName("literal")->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AutoAddWeek)->Arg(1)->ArgName("literal")->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RebuildWeek)->Arg(1)->ArgName("literal")->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();

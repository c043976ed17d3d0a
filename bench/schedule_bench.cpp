// The daily schedule window's model on a large business (five years of entries, a day of 150 entries,
// 250 employees): the whole refresh of the window, the quick add from the quick bar, and copy and
// paste of 50 entries. Every iteration of a changing benchmark is put back outside the timing, so each
// one does the same work on the same data.
//
// Where the window's reads matter, the argument `batched` picks how the employee list's marks and the
// day's figures are read: 1 over the whole day at once (what the program does), 0 with the statements
// per employee and per entry, for comparison.

#include "schedule/clipboard.h"
#include "schedule/daily_schedule.h"
#include "schedule/entry_rules.h"
#include "schedule/undo.h"
#include "shell/main_form.h"
#include "store/access.h"
#include "support/large_business.h"
#include "support/silent_host.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <optional>
#include <vector>

namespace {

using namespace tallymere;
using common::Date;
using common::DateTime;
using schedule::dailyflexgrid;

constexpr int kPasteRows = 50;
constexpr int kYears = 5;

// The business with the daily window open on a mid-year day, as the program shows it after the start.
struct DailyWindow {
    DailyWindow() : business(bench::LargeBusinessSize{.years = kYears}), form(business.session(), host) {
        auto& s = business.session();
        // Every check of the quick add on; the silent Ui answers Yes to each question.
        s.settings.gb_AlertDoubleShifts = true;
        s.settings.gb_AlertShiftOver12Hours = true;
        s.settings.gb_AlertForOvertime = true;
        s.settings.gb_ShowLaborCostsOnDailyForm = true;
        s.settings.gb_ShowTotalHoursOnDailyForm = true;
        s.activeDate = day();
        form.shiftcombo.text = "Open";
        form.positioncombo.text = "Cook";
        form.sectioncombo.text = "Front";
        // The quick bar: 6:00 AM to 2:00 PM. Index 1 is the start, 0 the end.
        form.TETxtHr = {"2", "6"};
        form.TeTxtMin = {"00", "00"};
        form.TEAmPm = {"PM", "AM"};
        window = std::make_unique<dailyflexgrid>(s, form);
        window->updailyflexform();
    }

    common::Session& session() { return business.session(); }
    Date day() const { return business.firstDay().addDays(180); }
    // A day past the generated year, empty, so that every pasted row goes in.
    Date emptyDay() const { return business.firstDay().addDays(business.size().days + 30); }
    long entriesOn(Date d) {
        return static_cast<long>(store::GetRecs(session(), "select schedid from sched where sday=? and sname=?",
                                                {d, session().currentSchedule})
                                     .RecordCount());
    }
    // Back to the day of 150 entries, freshly shown, **Unassigned** picked.
    void showDay(payroll::DayReads reads = payroll::DayReads::Batched) {
        window->reads = reads;
        session().activeDate = day();
        window->lstlist_Click(0);
        window->updailyflexform();
    }

    bench::LargeBusiness business;
    bench::SilentHost host;
    shell::MainForm form;
    std::unique_ptr<dailyflexgrid> window;
};

DailyWindow& daily() {
    static DailyWindow w;
    return w;
}

int listRow(const dailyflexgrid& w, long personid) {
    for (std::size_t i = 0; i < w.lstlist.rows.size(); ++i)
        if (w.lstlist.rows[i].personid == personid) return static_cast<int>(i);
    return -1;
}

// An employee whom the quick bar's times fit without a conflict and who already works that day, so
// that every alert has figures to work out.
std::optional<long> quickAddEmployee(DailyWindow& d) {
    auto& s = d.session();
    for (std::size_t i = 1; i < d.window->lstlist.rows.size(); ++i) {
        const long personid = d.window->lstlist.rows[i].personid;
        DateTime start = DateTime::at(d.day(), 6, 0);
        DateTime end = DateTime::at(d.day(), 14, 0);
        if (schedule::HasConflict(s, personid, d.day(), start, end)) continue;
        if (store::GetRecs(s, "select schedid from sched where personid=? and sday=? and sname=?",
                           {personid, d.day(), s.currentSchedule})
                .empty())
            continue;
        return personid;
    }
    return std::nullopt;
}

payroll::DayReads readsArg(const benchmark::State& state, int index) {
    return state.range(index) != 0 ? payroll::DayReads::Batched : payroll::DayReads::PerRow;
}

void BM_RefreshDailyWindow(benchmark::State& state) {
    auto& d = daily();
    d.showDay(readsArg(state, 0));
    for (auto _ : state) {
        d.window->updailyflexform();
        benchmark::DoNotOptimize(d.window->grid1.rows.data());
    }
    state.counters["grid rows"] = static_cast<double>(d.window->grid1.rows.size());
    state.counters["employees"] = static_cast<double>(d.window->lstlist.rows.size() - 1);
    d.showDay();
}

// employee 1: a real employee, through every check; 0: **Unassigned**, which no check applies to.
void BM_QuickAdd(benchmark::State& state) {
    auto& d = daily();
    auto& s = d.session();
    d.showDay(readsArg(state, 1));
    if (state.range(0) != 0) {
        const auto personid = quickAddEmployee(d);
        if (!personid) {
            state.SkipWithError("no employee fits the quick bar's times");
            return;
        }
        d.window->lstlist_Click(listRow(*d.window, *personid));
    }
    const std::size_t rowsBefore = d.window->grid1.rows.size();
    for (auto _ : state) {
        if (!d.window->addfromlv_Click()) {
            state.SkipWithError("the quick add refused the entry");
            break;
        }
        state.PauseTiming();
        // The entry goes again, from the table and the grid, so the next add meets the same day.
        store::DeleteRecs(s, "delete from sched where schedid=?", {d.window->grid1.rows.back().schedid});
        d.window->grid1.rows.resize(rowsBefore);
        state.ResumeTiming();
    }
    d.showDay();
    state.counters["grid rows"] = static_cast<double>(rowsBefore);
}

// Selects `count` grid rows from the run that a paste onto an empty day takes most of, and gives how
// many rows that paste puts in. On a busy day some employees work two overlapping entries; when both
// are in the buffer the paste asks about the second and skips it (the silent Ui answers Yes). On the
// generated day every run of 50 rows holds a few such pairs.
int selectPasteRows(DailyWindow& d, int count) {
    struct Taken {
        long personid;
        std::optional<DateTime> start;
        std::optional<DateTime> end;
    };
    auto& w = *d.window;
    const int last = w.grid1.Rows() - 1;
    int bestFirst = 0;
    int bestPasted = 0;
    for (int first = 1; first + count - 1 <= last; ++first) {
        std::vector<Taken> pasted;
        for (int r = first; r < first + count; ++r) {
            const auto rs = store::GetRecs(d.session(), "select personid,strttime,endtime from sched where schedid=?",
                                           {w.grid1.RowData(r)});
            const Taken t{static_cast<long>(rs["personid"].toLong()), rs["strttime"].toDateTime(),
                          rs["endtime"].toDateTime()};
            bool overlaps = false;
            for (const Taken& o : pasted)
                overlaps = overlaps || (o.personid == t.personid && t.start && t.end &&
                                        schedule::OverlapTest(o.start, o.end, *t.start, *t.end));
            if (!overlaps) pasted.push_back(t);
        }
        if (static_cast<int>(pasted.size()) > bestPasted) {
            bestFirst = first;
            bestPasted = static_cast<int>(pasted.size());
        }
    }
    if (bestFirst != 0) w.grid1_SelChange(bestFirst, bestFirst + count - 1);
    return bestPasted;
}

std::size_t bufferedRows(common::Session& s) { return store::GetRecs(s, "select * from schedpaste").RecordCount(); }

// The pop-up menu's copy of 50 selected rows into the paste buffer.
void BM_Copy50(benchmark::State& state) {
    auto& d = daily();
    d.showDay();
    if (selectPasteRows(d, kPasteRows) == 0) {
        state.SkipWithError("no rows to copy");
        return;
    }
    for (auto _ : state) d.window->mnudailygridrightclickcopy_Click();
    if (bufferedRows(d.session()) != kPasteRows) state.SkipWithError("the copy did not fill the buffer");
    state.SetItemsProcessed(state.iterations() * kPasteRows);
}

// 50 copied rows pasted onto another, empty day; the second of two overlapping entries is tested and
// skipped. menu 1: the pop-up menu's paste (undo snapshot, paste, the window's refresh); 0:
// PasteEntries alone.
void BM_Paste50(benchmark::State& state) {
    auto& d = daily();
    auto& s = d.session();
    d.showDay(readsArg(state, 1));
    const int expected = selectPasteRows(d, kPasteRows);
    if (expected == 0) {
        state.SkipWithError("no rows to copy");
        return;
    }
    d.window->mnudailygridrightclickcopy_Click();
    if (bufferedRows(s) != kPasteRows) {
        state.SkipWithError("the copy did not fill the buffer");
        return;
    }
    const Date target = d.emptyDay();
    s.activeDate = target;
    d.window->updailyflexform();
    if (d.entriesOn(target) != 0) {
        state.SkipWithError("the target day is not empty");
        return;
    }
    const bool fromMenu = state.range(0) != 0;
    long pasted = 0;
    for (auto _ : state) {
        if (fromMenu) {
            d.window->mnudailygridrightclickpaste_Click();
        } else if (!schedule::PasteEntries(s)) {
            state.SkipWithError("the paste failed");
            break;
        }
        state.PauseTiming();
        pasted = d.entriesOn(target);
        store::DeleteRecs(s, "delete from sched where sday=? and sname=?", {target, s.currentSchedule});
        state.ResumeTiming();
        if (pasted != expected) {
            state.SkipWithError("the paste did not put in the rows it should");
            break;
        }
    }
    schedule::ClearUndo(s);
    d.showDay();
    state.counters["rows pasted"] = static_cast<double>(pasted);
    state.counters["rows skipped"] = static_cast<double>(kPasteRows - pasted);
    state.SetItemsProcessed(state.iterations() * kPasteRows);
}

BENCHMARK(BM_RefreshDailyWindow)->ArgName("batched")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_QuickAdd)->ArgNames({"employee", "batched"})->ArgsProduct({{1, 0}, {0, 1}})->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Copy50)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Paste50)->ArgNames({"menu", "batched"})->ArgsProduct({{1, 0}, {0, 1}})->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();

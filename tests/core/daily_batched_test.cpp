// The daily window reads its marks and figures over the whole day, and each action that writes several
// rows is one transaction. Both must leave what the user sees and what the file holds as they were.

#include "common/text.h"
#include "payroll/day_figures.h"
#include "schedule/clipboard.h"
#include "store/schema_upgrade.h"
#include "support/other_connection.h"
#include "support/schedule_test.h"

#include <algorithm>
#include <array>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace tallymere::testing {
namespace {

using common::Date;
using common::DateTime;
using payroll::DayReads;
using store::DbError;
using store::DbErrorKind;

constexpr const char* kNothingSaved = "None of this change was saved: the data is as it was before.";

class DailyBatchedTest : public DailyWindowTest {
protected:
    // Employees active and not, rates typed every which way, availability (some weekdays twice, some
    // names in another case), leave (some days twice, the first without a type), and entries in two
    // files and the undo snapshot: unassigned, overnight, ending before they start, without times.
    void generate(unsigned seed) {
        store::Transaction transaction(s());
        std::mt19937 rng(seed);
        const auto pick = [&](int n) { return static_cast<int>(rng() % static_cast<unsigned>(n)); };
        const char* rates[] = {"12.25", "", "$9.50", "abc", "0", "15"};
        std::vector<long> people{kSam};
        for (int e = 0; e < 25; ++e) {
            const long id = addPerson("Last" + std::to_string(e), e % 7 ? "First" + std::to_string(e) : "");
            store::UdateRecs(s(), "update person set hourlyrate=?, active=? where personid=?",
                             {rates[pick(6)], pick(5) != 0, id});
            people.push_back(id);
        }
        for (const long id : people) {
            for (int d = 0; d < 7; ++d) {
                if (pick(2)) continue;
                std::string hours(24, 'Y');
                for (int h = pick(24), n = pick(12); n-- > 0; h = (h + 1) % 24)
                    hours[static_cast<std::size_t>(h)] = 'N';
                std::string name = common::GetDayName(kDay.addDays(d));
                if (pick(4) == 0) name = common::toLower(name);
                const auto add = [&](const std::string& h) {
                    store::InsertRecs(s(), "insert into availability (personid,sday,houravail) values(?,?,?)",
                                      {id, name, h});
                };
                add(hours);
                if (pick(4) == 0) add(std::string(24, pick(2) ? 'N' : 'Y'));  // a second row, never read
            }
            for (int n = pick(3); n-- > 0;) {
                const Date day = kDay.addDays(pick(7));
                if (pick(3) == 0) addLeave(id, day, pick(2) ? store::Value() : store::Value(""));
                addLeave(id, day);
            }
        }
        const char* files[] = {"Week 1", "Week 1", "Week 2", "*undo*"};
        for (int n = 0; n < 120; ++n) {
            const long id = pick(6) == 0 ? -1 : people[static_cast<std::size_t>(pick(26))];
            const DateTime start = DateTime::at(kDay.addDays(pick(7)), pick(24), 15 * pick(4));
            const int minutes = pick(10) == 0 ? -90 : 30 + 15 * pick(48);
            const bool noTimes = pick(25) == 0;
            store::InsertRecs(s(),
                              "insert into sched (personid,lname,sday,strttime,endtime,position,sname) "
                              "values(?,?,?,?,?,'Cook',?)",
                              {id, "x", start.date(), noTimes ? store::Value() : store::Value(start),
                               store::Value(start.addMinutes(minutes)), files[pick(4)]});
        }
        ASSERT_TRUE(transaction.commit());
    }

    struct Shown {
        std::vector<int> pictures;
        std::vector<std::string> cells;
        std::string labor, hours;
        bool operator==(const Shown&) const = default;
    };
    Shown shown(DayReads reads) {
        window->reads = reads;
        window->updailyflexform();
        Shown out{{}, {}, window->LaborEstimate, window->TotalHours};
        for (const auto& row : window->lstlist.rows) out.pictures.push_back(row.picture);
        for (const auto& row : window->grid1.rows)
            for (const auto& cell : row.cells) out.cells.push_back(cell.text);
        return out;
    }
    // Fails the `nth` statement (from 1) that writes and whose text holds `part`.
    void failWrite(const std::string& part, int nth = 1) {
        store::db(s()).setFaultInjector([part, nth, seen = 0](std::string_view op, std::string_view sql) mutable {
            if (op != "select" && sql.find(part) != std::string_view::npos && ++seen == nth)
                return std::optional<DbError>(DbError{DbErrorKind::Other, 19, "constraint failed"});
            return std::optional<DbError>();
        });
    }
    std::size_t count(const std::string& sql, const store::Params& p = {}) {
        return store::GetRecs(s(), sql, p).RecordCount();
    }
};

class GeneratedBusinessTest : public DailyBatchedTest, public ::testing::WithParamInterface<unsigned> {};

TEST_P(GeneratedBusinessTest, BothWaysOfReadingShowTheSameMarksFiguresAndRows) {
    const std::array<std::array<const char*, 6>, 4> quickBars{{{"", "", "", "", "", ""},
                                                               {"5", "9", "00", "00", "PM", "AM"},
                                                               {"2", "10", "00", "30", "AM", "PM"},
                                                               {"6", "6", "00", "00", "AM", "AM"}}};
    generate(GetParam());
    open();
    std::set<int> picturesSeen;
    for (int d = 0; d < 7; ++d) {
        s().activeDate = kDay.addDays(d);
        for (const bool allSchedules : {false, true}) {
            s().settings.gb_CheckConflictAllSchedules = allSchedules;
            for (const auto& q : quickBars) {
                form.TETxtHr = {q[0], q[1]};
                form.TeTxtMin = {q[2], q[3]};
                form.TEAmPm = {q[4], q[5]};
                const Shown perRow = shown(DayReads::PerRow);
                EXPECT_EQ(shown(DayReads::Batched), perRow) << "day " << d << ", quick bar " << q[1] << q[5];
                picturesSeen.insert(perRow.pictures.begin(), perRow.pictures.end());
            }
        }
        EXPECT_DOUBLE_EQ(payroll::GetDailyLaborCost(s(), s().activeDate, DayReads::Batched),
                         payroll::GetDailyLaborCost(s(), s().activeDate, DayReads::PerRow));
        EXPECT_NEAR(payroll::GetDailyHours(s(), s().activeDate, DayReads::Batched),
                    payroll::GetDailyHours(s(), s().activeDate, DayReads::PerRow), 1e-9);
    }
    // The business was varied enough to show every picture.
    EXPECT_EQ(picturesSeen, (std::set<int>{1, 2, 3, 4}));
}

INSTANTIATE_TEST_SUITE_P(Seeds, GeneratedBusinessTest, ::testing::Values(1u, 2u, 3u));

TEST_F(DailyBatchedTest, ARefreshReadsAsOftenWhateverTheNumberOfEmployees) {
    const auto readsOfRefresh = [&] {
        int selects = 0;
        store::db(s()).setFaultInjector([&](std::string_view op, std::string_view) {
            if (op == "select") ++selects;
            return std::optional<DbError>();
        });
        window->updailyflexform();
        store::db(s()).setFaultInjector(nullptr);
        return selects;
    };
    generate(7);
    open();
    const int before = readsOfRefresh();
    for (int e = 0; e < 10; ++e)
        addEntry(addPerson("More" + std::to_string(e), "M"), DateTime::at(kDay, 9), DateTime::at(kDay, 17));
    window->FillEmployeeList();
    EXPECT_EQ(readsOfRefresh(), before);
}

TEST_F(DailyBatchedTest, APasteThatFailsPartWayLeavesTheDayTheBufferAndNoUndo) {
    const Date tue = kDay.addDays(1);
    const long a = addEntry(kSam, DateTime::at(kDay, 9), DateTime::at(kDay, 12));
    const long b = addEntry(-1, DateTime::at(kDay, 9), DateTime::at(kDay, 12));
    const long c = addEntry(-1, DateTime::at(kDay, 13), DateTime::at(kDay, 14));
    ASSERT_TRUE(schedule::CopyEntries(s(), a, {a, b, c}));
    const long kept = addEntry(-1, DateTime::at(tue, 6), DateTime::at(tue, 7));
    s().activeDate = tue;

    failWrite("insert into sched", 3);  // after the snapshot's copy of `kept` and the first pasted row
    EXPECT_FALSE(schedule::PasteWithUndo(s()));
    EXPECT_EQ(column(s(), "select schedid from sched where sday=? and sname='Week 1'", {tue}),
              std::vector<std::string>{std::to_string(kept)});
    EXPECT_EQ(count("select * from schedpaste"), 3u);
    EXPECT_EQ(count("select * from sched where sname='*undo*'"), 0u);
    const auto texts = ui.texts();
    EXPECT_EQ(std::count(texts.begin(), texts.end(), kNothingSaved), 1);
}

TEST_F(DailyBatchedTest, ANoPartWayThroughAPasteKeepsTheRowsBeforeIt) {
    const long a = addEntry(-1, DateTime::at(kDay, 9), DateTime::at(kDay, 12));
    const long b = addEntry(kSam, DateTime::at(kDay, 13), DateTime::at(kDay, 14));
    ASSERT_TRUE(schedule::CopyEntries(s(), a, {a, b}));
    s().activeDate = kDay.addDays(1);
    addLeave(kSam, s().activeDate);
    ui.answer(MsgAnswer::No);
    EXPECT_TRUE(schedule::PasteWithUndo(s()));
    EXPECT_EQ(column(s(), "select personid from sched where sday=? and sname='Week 1'", {s().activeDate}),
              std::vector<std::string>{"-1"});
}

TEST_F(DailyBatchedTest, AQuickAddWhoseUnassignedIdCannotBeSetLeavesNoRow) {
    form.TETxtHr = {"5", "9"};
    form.TeTxtMin = {"00", "00"};
    form.TEAmPm = {"PM", "AM"};
    open();
    window->lstlist_Click(0);
    failWrite("update sched set personid=");
    EXPECT_FALSE(window->addfromlv_Click());
    EXPECT_EQ(count("select * from sched"), 0u);
    EXPECT_TRUE(window->grid1.rows.empty());
    EXPECT_TRUE(ui.shown(kNothingSaved));
    EXPECT_TRUE(ui.sounds.empty());
}

TEST_F(DailyBatchedTest, DeletingSeveralEntriesIsWholeOrNothing) {
    const long zed = addPerson("Zed", "Zoe");
    for (const long id : {kSam, zed, -1L}) addEntry(id, DateTime::at(kDay, 9), DateTime::at(kDay, 12));
    schedule::dailyflexgrid& w = open();
    w.SelectAllRows();
    failWrite("delete from sched where schedid", 2);
    w.Command3_Click();
    EXPECT_EQ(count("select * from sched where sname='Week 1'"), 3u);
    EXPECT_EQ(w.grid1.rows.size(), 3u);
    EXPECT_EQ(count("select * from sched where sname='*undo*'"), 0u);

    store::db(s()).setFaultInjector(nullptr);
    w.Command3_Click();
    EXPECT_EQ(count("select * from sched where sname='Week 1'"), 0u);
    EXPECT_TRUE(w.grid1.rows.empty());
}

TEST_F(DailyBatchedTest, TheUpgradeGivesAnOlderFileTheIndexesOfTheDailyReads) {
    const char* indexes[] = {
        "sched_day",        "sched_person", "sched_date", "availability_person_day", "employeeleave_person",
        "employeeleave_day"};
    for (const char* index : indexes) ASSERT_TRUE(store::UdateRecs(s(), std::string("drop index ") + index));
    store::UpgradeSchema(s());
    OtherConnection file(s().DatabasePath());
    for (const char* index : indexes)
        EXPECT_EQ(file.value(std::string("select count(*) from sqlite_master where name='") + index + "'"), "1")
            << index;
    EXPECT_TRUE(ui.messages.empty());
}

}  // namespace
}  // namespace tallymere::testing

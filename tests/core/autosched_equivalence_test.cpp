// The shipped way of answering the scheduler's questions (read once, kept in memory) against the
// literal one (a statement per question), on generated small businesses: the same assignments in the
// same order, the same message, the same explanation, whatever the settings.

#include "autosched/auto_rebuild_sched.h"
#include "autosched/auto_sched.h"
#include "store/access.h"
#include "support/test_database.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace tallymere::testing {
namespace {

namespace fs = std::filesystem;
using autosched::FactsKind;
using common::Date;
using common::DateTime;

const Date kMonday = Date::fromYmd(2026, 11, 23);
const Date kSunday = kMonday.addDays(-1);
const char* const kPositions[] = {"Cook", "Host", "Cook's Mate"};
struct ShiftDef {
    const char* name;
    int hour;
    int minutes;
};
// Night runs into the next day, where Early begins before it ends: the days on either side matter.
const ShiftDef kShifts[] = {{"Early", 4, 240}, {"Day", 9, 480},  {"Close", 17, 480}, {"Night", 22, 480},
                            {"Short", 12, 25}, {"Half", 12, 30}, {"Long", 9, 600},   {"Late", 20, 360}};
constexpr unsigned kShiftCount = 8;
const char* const kNames[] = {"Adams", "O'Hara", "Baker", "Chen", "D'Souza", "Evans", "Fox", "Gray"};
const char* const kHoursPerWeek[] = {"40", "40", "24", "16", "8", "0", ""};

// One small business in a database of its own.
class Business {
public:
    explicit Business(unsigned seed) : rng_(seed), session_(ui_, settings_, clock_) {
        session_.setDataFolder(folder_.str());
        session_.programFolder = templatePath().parent_path().string();
        fs::copy_file(templatePath(), session_.DatabasePath(), fs::copy_options::overwrite_existing);
        if (!store::ConnectDB(session_)) throw std::runtime_error("no database");
        session_.currentSchedule = "Week 1";
        store::Transaction tx(session_);
        generate();
        if (!tx.commit()) throw std::runtime_error("the business could not be written");
    }

    common::Session& s() { return session_; }
    bool week() const { return week_; }
    Date activeDate() const { return active_; }

private:
    unsigned pick(unsigned n) { return static_cast<unsigned>(rng_() % n); }
    bool chance(unsigned oneIn) { return pick(oneIn) == 0; }
    const char* position() { return kPositions[pick(3)]; }

    void insertEntry(long personid, Date day, const ShiftDef& shift, const char* pos, const char* sname) {
        std::string lname = "**Unassigned**", fname;
        if (personid != -1) {
            lname = names_[personid];
            fname = "F";
        }
        const DateTime start = DateTime::at(day, shift.hour);
        store::InsertRecs(
            session_,
            "insert into sched (personid,lname,fname,sday,strttime,endtime,position,shift,section,sname) "
            "values(?,?,?,?,?,?,?,?,'',?)",
            {personid, lname, fname, day, start, start.addMinutes(shift.minutes), pos, shift.name, sname});
    }

    void generate() {
        auto& s = session_;
        const int employees = 4 + static_cast<int>(pick(5));
        for (int e = 0; e < employees; ++e) {
            const std::string lname = kNames[pick(8)] + std::to_string(e);
            store::InsertRecs(s, "insert into person (lname,fname,primpos,active,hoursperweek) values(?,'F',?,?,?)",
                              {lname, position(), !chance(6), kHoursPerWeek[pick(7)]});
            const long id =
                static_cast<long>(store::GetRecs(s, "select max(personid) as id from person")["id"].toLong());
            names_[id] = lname;
            ids_.push_back(id);
        }

        for (const long id : ids_) {
            if (chance(3))
                store::InsertRecs(s, "insert into qualifications (personid,position) values(?,?)", {id, position()});
            for (unsigned w = pick(3); w > 0; --w) {
                const char* wanted = chance(2) ? "" : position();
                store::InsertRecs(s, "insert into desiredshift (personid,sday,shift,position) values(?,?,?,?)",
                                  {id, static_cast<int>(pick(7)) + 1, kShifts[pick(kShiftCount)].name, wanted});
            }
            if (chance(4)) {
                std::string hours(24, 'Y');
                for (char& h : hours)
                    if (chance(4)) h = 'N';
                store::InsertRecs(s, "insert into availability (personid,sday,houravail) values(?,?,?)",
                                  {id, common::weekdayName(static_cast<int>(pick(7)) + 1), hours});
            }
            if (chance(5))
                store::InsertRecs(s, "insert into employeeleave (personid,fullname,typeofleave,sday) values(?,'x',?,?)",
                                  {id, chance(4) ? "" : "Vacation", kSunday.addDays(static_cast<int>(pick(7)))});
        }
        // Entries already given, around and in the week, some in another schedule file.
        for (int d = -9; d <= 15; ++d) {
            for (unsigned n = pick(4); n > 0; --n)
                insertEntry(ids_[pick(static_cast<unsigned>(ids_.size()))], kSunday.addDays(d),
                            kShifts[pick(kShiftCount)], position(), chance(5) ? "Other" : "Week 1");
        }
        // The entries to fill.
        for (unsigned n = 6 + pick(9); n > 0; --n)
            insertEntry(-1, kSunday.addDays(static_cast<int>(pick(7))), kShifts[pick(kShiftCount)], position(),
                        chance(10) ? "Other" : "Week 1");

        auto& g = s.settings;
        g.gb_AutoDesiredShiftsFirst = !chance(4);
        g.gb_AutoEnforceWeeklyHrs = chance(2);
        g.gb_AutoAllowDblShifts = !chance(3);
        g.gb_RestrictOvertime = chance(3);
        g.gb_NoOvertime = chance(3);
        g.gi_OvertimeThreshold = std::vector<int>{8, 16, 24, 40}[pick(4)];
        g.gb_CheckConflictAllSchedules = chance(3);
        week_ = chance(2);
        active_ = kSunday.addDays(static_cast<int>(pick(7)));
        s.activeDate = active_;
    }

    std::mt19937 rng_;
    TempFolder folder_;
    FakeUi ui_;
    common::MemoryUserSettings settings_;
    common::FixedClock clock_{DateTime::fromParts(2026, 11, 23, 9, 0)};
    common::Session session_;
    std::map<long, std::string> names_;
    std::vector<long> ids_;
    bool week_ = false;
    Date active_;
};

struct Outcome {
    std::vector<long> filledInOrder;
    std::string message;
    std::vector<std::string> explanation;
    std::vector<std::string> rows;  // every row of sched: schedid, personid, names, file
    std::set<std::string> reasons;
    long remaining = 0;
};

std::string describe(const autosched::ExplainRow& r) {
    return std::to_string(r.schedid) + " " + std::to_string(r.assignedId) + " " + r.assigned + " " +
           std::to_string(static_cast<int>(r.phase)) + " " + std::to_string(r.candidateId) + " " + r.candidate + " " +
           std::string(autosched::reasonText(r.reason));
}

// One run by one path, inside a transaction of the test's that is rolled back afterwards, so that the
// other path starts from the same file.
template <class Window>
Outcome runOnce(Business& b, FactsKind facts) {
    Outcome out;
    store::Transaction keepNothing(b.s());
    Window window(b.s());
    window.factsKind = facts;
    if (b.week())
        window.WeekOption_Click();
    else
        window.DayOption_Click();
    window.onEntryFilled = [&](long schedid) { out.filledInOrder.push_back(schedid); };
    if constexpr (std::is_same_v<Window, autosched::AutoRebuildSched>)
        window.AutoRedoButton_Click();
    else
        window.OKButton_Click();
    out.message = window.lastMessage();
    for (const auto& row : window.explanation()) {
        out.explanation.push_back(describe(row));
        out.reasons.emplace(autosched::reasonText(row.reason));
    }
    for (auto rs = store::GetRecs(b.s(), "select * from sched order by schedid"); !rs.eof(); rs.MoveNext()) {
        out.rows.push_back(rs["schedid"].value().toText() + " " + rs["personid"].value().toText() + " " +
                           rs["lname"].text() + " " + rs["fname"].text() + " " + rs["sname"].text());
        if (rs["personid"].toLong() == -1 && rs["sname"].text() == "Week 1") ++out.remaining;
    }
    return out;
}

TEST(AutoSchedEquivalence, BothPathsGiveTheSameRunOnAHundredGeneratedBusinesses) {
    std::set<std::string> reasons;
    long filled = 0, remaining = 0;
    for (unsigned seed = 1; seed <= 100; ++seed) {
        Business b(seed);
        // Every fourth business is rebuilt rather than filled.
        const bool rebuild = seed % 4 == 0;
        const auto literal = rebuild ? runOnce<autosched::AutoRebuildSched>(b, FactsKind::PerQuestion)
                                     : runOnce<autosched::AutoSched>(b, FactsKind::PerQuestion);
        const auto shipped = rebuild ? runOnce<autosched::AutoRebuildSched>(b, FactsKind::InMemory)
                                     : runOnce<autosched::AutoSched>(b, FactsKind::InMemory);
        ASSERT_FALSE(literal.message.empty()) << "seed " << seed;
        EXPECT_EQ(shipped.filledInOrder, literal.filledInOrder) << "seed " << seed;
        EXPECT_EQ(shipped.message, literal.message) << "seed " << seed;
        EXPECT_EQ(shipped.explanation, literal.explanation) << "seed " << seed;
        EXPECT_EQ(shipped.rows, literal.rows) << "seed " << seed;
        if (::testing::Test::HasFailure()) break;
        filled += static_cast<long>(literal.filledInOrder.size());
        remaining += literal.remaining;
        reasons.insert(literal.reasons.begin(), literal.reasons.end());
    }
    // The businesses reach every rule, so that the agreement above means something.
    EXPECT_GT(filled, 300);
    EXPECT_GT(remaining, 50);
    for (const char* reason : {"assigned", "not qualified", "conflict", "not available", "on leave", "overtime",
                               "weekly hours", "double shift", "lost the balance tie"})
        EXPECT_TRUE(reasons.count(reason)) << reason;
}

}  // namespace
}  // namespace tallymere::testing

#include "schedule/clipboard.h"
#include "schedule/undo.h"

#include "bulk_schedule_fixture.h"

#include <optional>
#include <string>
#include <vector>

namespace tallymere::testing {
namespace {

using common::Date;
using common::DateTime;
using schedule::Selection;

const Date kMon = Date::fromYmd(2026, 11, 23);
const Date kTue = kMon.addDays(1);
const Date kWed = kMon.addDays(2);
const Date kFri = kMon.addDays(4);

class RecordingListener : public schedule::DeleteListener {
public:
    void rowDeleted(long schedid) override { deleted.push_back(schedid); }
    void employeeUnscheduled(long personid, Date day, std::optional<DateTime> start,
                             std::optional<DateTime> end) override {
        unscheduled.push_back({personid, day, start, end});
    }
    struct Unscheduled {
        long personid;
        Date day;
        std::optional<DateTime> start, end;
    };
    std::vector<long> deleted;
    std::vector<Unscheduled> unscheduled;
};

struct Row {
    long schedid;
    long personid;
    std::string lname, fname;
    DateTime start, end;
    std::string position, shift, comment;
};

class ClipboardUndoTest : public ScheduleTest {
protected:
    void SetUp() override {
        ScheduleTest::SetUp();
        s().undoMenu = &menu;
    }
    // An entry starting at `hour` on `day`, `minutes` long (past midnight when long enough).
    long addEntry(long personid, Date day, int hour, int minutes, const std::string& sname = "Week 1") {
        const DateTime start = DateTime::at(day, hour);
        return ScheduleTest::addEntry(personid, start, start.addMinutes(minutes), sname, "Cook", "Late", "Grill",
                                      "bring keys");
    }
    std::vector<Row> rows(Date day, const std::string& sname = "Week 1") {
        std::vector<Row> out;
        for (auto rs = store::GetRecs(s(), "select * from sched where sday=? and sname=? order by strttime,schedid",
                                      {day, sname});
             !rs.eof(); rs.MoveNext())
            out.push_back({static_cast<long>(rs["schedid"].toLong()), static_cast<long>(rs["personid"].toLong()),
                           rs["lname"].text(), rs["fname"].text(), *rs["strttime"].toDateTime(),
                           *rs["endtime"].toDateTime(), rs["position"].text(), rs["shift"].text(),
                           rs["comment"].text()});
        return out;
    }
    static std::vector<long> ids(const std::vector<Row>& rs) {
        std::vector<long> out;
        for (const Row& r : rs) out.push_back(r.schedid);
        return out;
    }
    std::size_t count(const std::string& sql, const store::Params& p = {}) {
        return store::GetRecs(s(), sql, p).RecordCount();
    }
    std::size_t bufferRows() { return count("select * from schedpaste"); }
    std::size_t snapshotRows() { return count("select * from sched where sname='*undo*'"); }
    void pasteOn(Date day) {
        s().activeDate = day;
        schedule::PasteEntries(s());
    }

    RecordingUndoMenu menu;
};

// --- Copy and paste

TEST_F(ClipboardUndoTest, PasteKeepsClockTimesAndOvernightCrossingAndTheBufferStays) {
    const long night = addEntry(kSam, kMon, 22, 240);  // 22:00 to 02:00 on Tuesday
    const long open = addEntry(-1, kMon, 9, 480);

    EXPECT_TRUE(schedule::CopyEntries(s(), night, {night, open}));
    // The buffer keeps the source day in its times.
    auto buf = store::GetRecs(s(), "select * from schedpaste");
    ASSERT_EQ(buf.RecordCount(), 2u);
    EXPECT_EQ(*buf["endtime"].toDateTime(), DateTime::at(kTue, 2));

    for (Date day : {kWed, kFri}) {
        pasteOn(day);
        const auto pasted = rows(day);
        ASSERT_EQ(pasted.size(), 2u) << day.toIso();
        EXPECT_EQ(pasted[0].lname, "**Unassigned**");
        EXPECT_EQ(pasted[0].start, DateTime::at(day, 9));
        EXPECT_EQ(pasted[0].end, DateTime::at(day, 17));
        EXPECT_EQ(pasted[1].personid, kSam);
        EXPECT_EQ(pasted[1].start, DateTime::at(day, 22));
        EXPECT_EQ(pasted[1].end, DateTime::at(day.addDays(1), 2));
        EXPECT_EQ(pasted[1].position + pasted[1].shift + pasted[1].comment, "CookLatebring keys");
    }
    EXPECT_EQ(bufferRows(), 2u);
    EXPECT_EQ(rows(kMon).size(), 2u);
    EXPECT_TRUE(ui.texts().empty());
    EXPECT_TRUE(s().refreshWanted);
}

TEST_F(ClipboardUndoTest, CopyReplacesTheBufferButDoesNothingWithoutACurrentEntryOrTheRight) {
    const long a = addEntry(kSam, kMon, 9, 60);
    const long b = addEntry(kSam, kMon, 12, 60);
    ASSERT_TRUE(schedule::CopyEntries(s(), a, {a, b}));
    ASSERT_TRUE(schedule::CopyEntries(s(), b, {b}));
    EXPECT_EQ(bufferRows(), 1u);

    EXPECT_FALSE(schedule::CopyEntries(s(), 0, {a}));
    s().IsUserMode = true;
    s().rights.noSchedule = true;
    EXPECT_FALSE(schedule::CopyEntries(s(), a, {a}));

    auto buf = store::GetRecs(s(), "select * from schedpaste");
    ASSERT_EQ(buf.RecordCount(), 1u);
    EXPECT_EQ(*buf["strttime"].toDateTime(), DateTime::at(kMon, 12));
    EXPECT_EQ(ui.texts(), Texts{"You do not have permissions to change the schedule. To change the schedule, restart "
                                "Tallymere and enter the owner password."});
}

TEST_F(ClipboardUndoTest, PasteOfOneRowOntoAScheduledEmployeeSaysSoAndStops) {
    const long e = addEntry(kSam, kMon, 9, 480);
    schedule::CopyEntries(s(), e, {e});
    addEntry(kSam, kTue, 16, 120);  // 16:00-18:00 overlaps 09:00-17:00

    s().activeDate = kTue;
    EXPECT_FALSE(schedule::PasteEntries(s()));
    EXPECT_EQ(ui.texts(), Texts{"Sample, Sam is already scheduled for that time."});
    EXPECT_EQ(rows(kTue).size(), 1u);
}

TEST_F(ClipboardUndoTest, PasteOfSeveralRowsAsksToContinueAndYesSkipsTheScheduledOne) {
    const long other = addPerson("Other", "Olive");
    const long a = addEntry(kSam, kMon, 9, 480);
    const long b = addEntry(other, kMon, 10, 240);
    const long c = addEntry(-1, kMon, 9, 480);
    schedule::CopyEntries(s(), a, {a, b, c});
    addEntry(kSam, kTue, 8, 240);
    addEntry(kSam, kWed, 8, 240);

    ui.answer(MsgAnswer::Yes);
    pasteOn(kTue);
    EXPECT_EQ(ui.texts(), Texts{"Sample, Sam is already scheduled for that time. Continue?"});
    const auto tue = rows(kTue);
    ASSERT_EQ(tue.size(), 3u);
    EXPECT_EQ(tue[0].personid, kSam);  // the one already there
    EXPECT_EQ(tue[0].start, DateTime::at(kTue, 8));
    EXPECT_EQ(tue[1].personid, -1);
    EXPECT_EQ(tue[2].personid, other);

    ui.answer(MsgAnswer::No);
    pasteOn(kWed);
    EXPECT_EQ(rows(kWed).size(), 1u);
}

TEST_F(ClipboardUndoTest, YesToAvailabilityOrLeaveSkipsTheRowAndNoStopsThePaste) {
    const long other = addPerson("Other", "Olive");
    const long a = addEntry(other, kMon, 10, 240);
    const long b = addEntry(kSam, kMon, 9, 480);
    const long c = addEntry(-1, kMon, 9, 480);
    schedule::CopyEntries(s(), a, {a, b, c});
    setAvailability(other, kTue, std::string(24, 'N'));
    addLeave(kSam, kTue);

    ui.answer(MsgAnswer::Yes);
    ui.answer(MsgAnswer::Yes);
    pasteOn(kTue);
    EXPECT_EQ(ui.texts(), (Texts{"Other, Olive is not available for that time. Override?",
                                 "Sample, Sam is scheduled for leave that day. Override?"}));
    // Yes overrides nothing: both rows were left out, only the unassigned one landed.
    auto tue = rows(kTue);
    ASSERT_EQ(tue.size(), 1u);
    EXPECT_EQ(tue[0].personid, -1);

    ui.clear();
    ui.answer(MsgAnswer::No);
    pasteOn(kTue);
    EXPECT_EQ(ui.texts(), Texts{"Other, Olive is not available for that time. Override?"});
    EXPECT_EQ(rows(kTue).size(), 1u);
}

TEST_F(ClipboardUndoTest, UnassignedRowsArePastedWithoutTests) {
    const long open = addEntry(-1, kMon, 9, 480);
    schedule::CopyEntries(s(), open, {open});
    // A buffer row whose names no longer read as unassigned still pastes as one.
    ASSERT_TRUE(store::UdateRecs(s(), "update schedpaste set lname='Open', fname='Slot'"));

    pasteOn(kMon);
    pasteOn(kMon);
    const auto mon = rows(kMon);
    ASSERT_EQ(mon.size(), 3u);
    for (const Row& r : mon) EXPECT_EQ(r.lname + "/" + r.fname, "**Unassigned**/");
    EXPECT_TRUE(ui.texts().empty());
}

// --- Cut

TEST_F(ClipboardUndoTest, CtrlXCanBeUndoneButTheMenuCutCannot) {
    const long a = addEntry(kSam, kMon, 9, 60);
    const long b = addEntry(-1, kMon, 12, 60);

    EXPECT_TRUE(schedule::CutWithUndo(s(), a, {a}));
    EXPECT_EQ(ids(rows(kMon)), std::vector<long>{b});
    EXPECT_EQ(bufferRows(), 1u);
    EXPECT_TRUE(menu.visible);
    EXPECT_EQ(menu.caption, "Undo Cut");
    schedule::UndoLastChange(s());
    ASSERT_EQ(rows(kMon).size(), 2u);

    s().refreshWanted = false;
    const auto before = ids(rows(kMon));
    EXPECT_TRUE(schedule::CutFromMenu(s(), before[0], before));
    EXPECT_TRUE(rows(kMon).empty());
    EXPECT_EQ(bufferRows(), 2u);
    EXPECT_TRUE(s().refreshWanted);
    EXPECT_FALSE(menu.visible);
    EXPECT_EQ(snapshotRows(), 0u);
}

// --- Undo snapshots

TEST_F(ClipboardUndoTest, SnapshotOfAnEmptyRangeStillOffersUndoWhichEmptiesTheRange) {
    const long outside = addEntry(kSam, kFri, 9, 60);
    schedule::SaveUndoSnapshot(s(), kMon, kWed, "Undo Copy Schedule", false, "Week 1");
    EXPECT_TRUE(menu.visible);
    EXPECT_EQ(menu.caption, "Undo Copy Schedule");

    // What the bulk change then wrote.
    addEntry(kSam, kMon, 9, 60);
    addEntry(-1, kWed, 9, 60);
    const long otherFile = addEntry(kSam, kTue, 9, 60, "Week 2");

    schedule::UndoLastChange(s());
    EXPECT_FALSE(menu.visible);
    EXPECT_TRUE(s().refreshWanted);
    EXPECT_EQ(count("select * from sched where sname='Week 1' and sday>=? and sday<=?", {kMon, kWed}), 0u);
    EXPECT_EQ(ids(rows(kFri)), std::vector<long>{outside});
    EXPECT_EQ(ids(rows(kTue, "Week 2")), std::vector<long>{otherFile});
}

TEST_F(ClipboardUndoTest, MovedSnapshotTakesTheWholeRangeOfOneScheduleOnly) {
    const long mon = addEntry(kSam, kMon, 9, 60);
    const long tue = addEntry(kSam, kTue, 9, 60);
    const long wed = addEntry(kSam, kWed, 9, 60);
    const long otherFile = addEntry(kSam, kMon, 9, 60, "Week 2");

    schedule::SaveUndoSnapshot(s(), kMon, kTue, "Undo Get Default Schedule", false, "Week 1");
    EXPECT_TRUE(rows(kMon).empty());
    EXPECT_TRUE(rows(kTue).empty());
    EXPECT_EQ(ids(rows(kWed)), std::vector<long>{wed});
    EXPECT_EQ(ids(rows(kMon, "Week 2")), std::vector<long>{otherFile});

    addEntry(-1, kTue, 9, 60);
    schedule::UndoLastChange(s());
    EXPECT_EQ(ids(rows(kMon)), std::vector<long>{mon});
    EXPECT_EQ(ids(rows(kTue)), std::vector<long>{tue});
    EXPECT_EQ(snapshotRows(), 0u);
}

TEST_F(ClipboardUndoTest, SnapshotWithoutADateOnlyDropsTheOldOne) {
    addEntry(kSam, kMon, 9, 60);
    schedule::SaveUndoSnapshot(s(), kMon, kMon, "Undo Paste", true, "Week 1");
    ASSERT_EQ(snapshotRows(), 1u);

    schedule::SaveUndoSnapshot(s(), std::nullopt, kTue, "Undo Copy Schedule", false, "Week 1");
    EXPECT_EQ(snapshotRows(), 0u);
    EXPECT_EQ(menu.caption, "Undo Paste");
    EXPECT_EQ(s().undoTo, kMon);
    EXPECT_EQ(rows(kMon).size(), 1u);
}

TEST_F(ClipboardUndoTest, UndoOfAKeptRowsSnapshotRestoresTheDayAsItWasWithNewSchedids) {
    const long a = addEntry(kSam, kMon, 9, 240);
    const long b = addEntry(-1, kMon, 22, 240);
    const long source = addEntry(-1, kTue, 14, 60);
    schedule::CopyEntries(s(), source, {source});
    const auto before = rows(kMon);

    EXPECT_TRUE(schedule::PasteWithUndo(s()));
    EXPECT_EQ(menu.caption, "Undo Paste");
    EXPECT_EQ(rows(kMon).size(), 3u);

    schedule::UndoLastChange(s());
    const auto after = rows(kMon);
    ASSERT_EQ(after.size(), 2u);
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(after[i].personid, before[i].personid);
        EXPECT_EQ(after[i].lname + after[i].fname, before[i].lname + before[i].fname);
        EXPECT_EQ(after[i].start, before[i].start);
        EXPECT_EQ(after[i].end, before[i].end);
        EXPECT_EQ(after[i].comment, before[i].comment);
        EXPECT_NE(after[i].schedid, a);
        EXPECT_NE(after[i].schedid, b);
    }
    EXPECT_EQ(rows(kTue).size(), 1u);
}

TEST_F(ClipboardUndoTest, DeleteDayAsksAndItsUndoBringsBackTheSameEntries) {
    addEntry(kSam, kMon, 9, 60);
    addEntry(-1, kMon, 12, 60);
    const long tue = addEntry(kSam, kTue, 9, 60);
    const long otherFile = addEntry(kSam, kMon, 9, 60, "Week 2");
    const auto before = ids(rows(kMon));

    ui.answer(MsgAnswer::No);
    EXPECT_FALSE(schedule::mnudeleteday(s()));
    EXPECT_EQ(ui.texts(), Texts{"Remove all schedule records for 11/23/2026?"});
    EXPECT_EQ(rows(kMon).size(), 2u);
    EXPECT_FALSE(menu.visible);

    EXPECT_TRUE(schedule::mnudeleteday(s()));
    EXPECT_TRUE(rows(kMon).empty());
    EXPECT_EQ(menu.caption, "Undo Delete Day");
    EXPECT_EQ(ids(rows(kTue)), std::vector<long>{tue});
    EXPECT_EQ(ids(rows(kMon, "Week 2")), std::vector<long>{otherFile});

    schedule::UndoLastChange(s());
    EXPECT_EQ(ids(rows(kMon)), before);
}

// --- Delete of several entries

TEST_F(ClipboardUndoTest, DeleteSelectedAsksSnapshotsAndReportsWhoLostTheirLastEntry) {
    const long other = addPerson("Other", "Olive");
    const long sam1 = addEntry(kSam, kMon, 9, 180);
    const long sam2 = addEntry(kSam, kMon, 13, 240);
    const long olive = addEntry(other, kMon, 22, 240);
    const long open = addEntry(-1, kMon, 10, 240);
    const Selection selected{sam1, olive, open};
    RecordingListener grid;

    ui.answer(MsgAnswer::No);
    EXPECT_FALSE(schedule::DeleteSelectedEntries(s(), sam1, selected, grid));
    EXPECT_EQ(ui.texts(), Texts{"Are you sure you want to delete the selected schedule entries?"});
    EXPECT_EQ(rows(kMon).size(), 4u);
    EXPECT_FALSE(menu.visible);

    EXPECT_TRUE(schedule::DeleteSelectedEntries(s(), sam1, selected, grid));
    EXPECT_EQ(ids(rows(kMon)), std::vector<long>{sam2});
    EXPECT_EQ(grid.deleted, selected);
    ASSERT_EQ(grid.unscheduled.size(), 1u);
    EXPECT_EQ(grid.unscheduled[0].personid, other);
    EXPECT_EQ(grid.unscheduled[0].day, kMon);
    EXPECT_EQ(grid.unscheduled[0].start, DateTime::at(kMon, 22));
    EXPECT_EQ(grid.unscheduled[0].end, DateTime::at(kTue, 2));
    EXPECT_EQ(menu.caption, "Undo Delete Schedule");
    EXPECT_FALSE(ui.busy());

    schedule::UndoLastChange(s());
    EXPECT_EQ(rows(kMon).size(), 4u);
}

}  // namespace
}  // namespace tallymere::testing

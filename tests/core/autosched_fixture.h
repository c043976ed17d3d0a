#pragma once
// The schedule file "Week 1" open on Monday, November 23, 2026 (a week from Sunday the 22nd to
// Saturday the 28th), the sample employee out of the way, and short forms for laying out employees and
// entries and for running the automatic scheduler by either path.

#include "autosched/auto_rebuild_sched.h"
#include "autosched/auto_sched.h"
#include "support/schedule_test.h"

#include <memory>
#include <string>
#include <vector>

namespace tallymere::testing {

class RecordingAutoUndoMenu : public common::UndoMenu {
public:
    void showUndo(std::string_view c) override {
        visible = true;
        caption = c;
    }
    void hideUndo() override { visible = false; }
    bool visible = false;
    std::string caption;
};

class AutoschedTest : public ScheduleTest {
protected:
    static inline const common::Date kSun = kDay.addDays(-1);
    static inline const common::Date kTue = kDay.addDays(1);
    static inline const common::Date kWed = kDay.addDays(2);
    static inline const common::Date kThu = kDay.addDays(3);
    static inline const common::Date kFri = kDay.addDays(4);
    static inline const common::Date kSat = kDay.addDays(5);

    void SetUp() override {
        ScheduleTest::SetUp();
        s().undoMenu = &menu;
        // The sample employee holds no position the tests fill.
        ASSERT_TRUE(store::UdateRecs(s(), "update person set primpos='Owner' where personid=1"));
    }

    // Without a first name, so that the explanation names them by the last name alone.
    long employee(const std::string& lname, const std::string& primpos = "Cook", const std::string& hoursperweek = "40",
                  bool active = true, const std::string& fname = "") {
        EXPECT_TRUE(store::InsertRecs(s(),
                                      "insert into person (lname,fname,primpos,active,hoursperweek) values(?,?,?,?,?)",
                                      {lname, fname, primpos, active, hoursperweek}));
        return lastId(s(), "person", "personid");
    }
    // An entry of `personid` from hour:minute on `day`, `minutes` long.
    long entry(long personid, common::Date day, int hour, int minutes, const std::string& position = "Cook",
               const std::string& shift = "Day", const std::string& sname = "Week 1", int minute = 0) {
        const common::DateTime start = common::DateTime::at(day, hour, minute);
        return addEntry(personid, start, start.addMinutes(minutes), sname, position, shift);
    }
    long open(common::Date day, int hour, int minutes, const std::string& position = "Cook",
              const std::string& shift = "Day") {
        return entry(-1, day, hour, minutes, position, shift);
    }
    void wish(long personid, int weekday, const std::string& shift, const std::string& position = "") {
        ASSERT_TRUE(store::InsertRecs(s(), "insert into desiredshift (personid,sday,shift,position) values(?,?,?,?)",
                                      {personid, weekday, shift, position}));
    }
    void qualify(long personid, const std::string& position) {
        ASSERT_TRUE(
            store::InsertRecs(s(), "insert into qualifications (personid,position) values(?,?)", {personid, position}));
    }
    long owner(long schedid) {
        return static_cast<long>(
            store::GetRecs(s(), "select personid from sched where schedid=?", {schedid})["personid"].toLong());
    }

    // Runs Auto Add on the active date (or its week) and keeps the window for its explanation.
    autosched::AutoSched& fill(bool week = false) {
        window = std::make_unique<autosched::AutoSched>(s());
        window->factsKind = facts;
        if (week)
            window->WeekOption_Click();
        else
            window->DayOption_Click();
        window->OKButton_Click();
        return *window;
    }
    // The explanation of the last run for one entry: "candidate:reason" in the order looked at.
    std::vector<std::string> verdicts(long schedid) const {
        std::vector<std::string> out;
        for (const auto& row : window->explanation())
            if (row.schedid == schedid)
                out.push_back(row.candidate + ":" + std::string(autosched::reasonText(row.reason)));
        return out;
    }
    autosched::Phase phaseOf(long schedid) const {
        for (const auto& row : window->explanation())
            if (row.schedid == schedid) return row.phase;
        ADD_FAILURE() << "no explanation for " << schedid;
        return autosched::Phase::Balanced;
    }

    autosched::FactsKind facts = autosched::FactsKind::InMemory;
    RecordingAutoUndoMenu menu;
    std::unique_ptr<autosched::AutoSched> window;
};

}  // namespace tallymere::testing

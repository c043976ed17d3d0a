#pragma once
// The schedule files "Week 1" and "Week 2", an undo menu that shows what it was told, and short forms
// of what `sched` holds, for the tests of operations that rewrite whole days.

#include "support/schedule_test.h"

#include <string>
#include <vector>

namespace tallymere::testing {

using Texts = std::vector<std::string>;

class RecordingUndoMenu : public common::UndoMenu {
public:
    void showUndo(std::string_view c) override {
        visible = true;
        caption = c;
    }
    void hideUndo() override { visible = false; }
    bool visible = false;
    std::string caption;
};

class BulkScheduleTest : public ScheduleTest {
protected:
    void SetUp() override {
        ScheduleTest::SetUp();
        s().undoMenu = &menu;
        for (const char* name : {"Week 1", "Week 2"})
            ASSERT_TRUE(store::InsertRecs(s(), "insert into schedname (schedname,comment) values(?,'')", {name}));
    }

    // An entry from hour:minute on `day`, `minutes` long (into the next day when long enough).
    long entry(long personid, common::Date day, int hour, int minutes, const std::string& sname = "Week 1",
               const std::string& shift = "Day", int minute = 0) {
        const common::DateTime start = common::DateTime::at(day, hour, minute);
        return addEntry(personid, start, start.addMinutes(minutes), sname, "Cook", shift, "Grill", "note");
    }

    // The entries of `day` in a file as "<lname> <start>-<end> <shift>", times "HH:MM", the end's day
    // marked "+1" when it is the next one, in time order.
    Texts day(common::Date d, const std::string& sname = "Week 1") {
        Texts out;
        for (auto rs = store::GetRecs(s(), "select * from sched where sday=? and sname=? order by strttime,lname",
                                      {d, sname});
             !rs.eof(); rs.MoveNext()) {
            const auto start = rs["strttime"].toDateTime();
            const auto end = rs["endtime"].toDateTime();
            const auto hm = [](const common::DateTime& t) {
                char buf[8];
                std::snprintf(buf, sizeof buf, "%02d:%02d", t.hour(), t.minute());
                return std::string(buf);
            };
            std::string text = rs["lname"].text() + " " + (start ? hm(*start) : "?") + "-" + (end ? hm(*end) : "?");
            if (start && end && end->date() != d) text += "+" + std::to_string(common::daysBetween(d, end->date()));
            if (start && start->date() != d) text += " (starts " + start->date().toIso() + ")";
            out.push_back(text + " " + rs["shift"].text());
        }
        return out;
    }

    // Every row of `sched`, key and all, for "nothing changed".
    Texts everything() {
        Texts out;
        for (auto rs = store::GetRecs(s(), "select * from sched order by schedid"); !rs.eof(); rs.MoveNext()) {
            std::string row;
            for (std::size_t c = 0; c < rs.columns().size(); ++c)
                row += rs.field(rs.position(), c).value().toText() + "|";
            out.push_back(row);
        }
        return out;
    }

    std::size_t snapshotRows() { return store::GetRecs(s(), "select * from sched where sname='*undo*'").RecordCount(); }

    // From now on the engine refuses to insert an entry of an employee with this last name, as a full
    // disk or a lost share would refuse it halfway through a change.
    void refuseInsertsOf(const std::string& lname) {
        ASSERT_TRUE(store::InsertRecs(s(), "create trigger refuse_" + std::to_string(++triggers_) +
                                               " before insert on sched when new.lname = '" + lname +
                                               "' begin select raise(abort, 'disk full'); end"));
    }

    RecordingUndoMenu menu;

private:
    int triggers_ = 0;
};

}  // namespace tallymere::testing

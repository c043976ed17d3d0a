#include "reference/schedule_files.h"

#include "schedule/undo.h"
#include "support/table_rows.h"
#include "support/test_database.h"

#include <string>
#include <vector>

namespace tallymere::testing {
namespace {

using common::Date;
using common::DateTime;
using reference::deletesched;
using reference::Openfrm;
using reference::opennew;
using reference::SaveAs;
using Texts = std::vector<std::string>;

const Date kMonday = Date::fromYmd(2026, 11, 23);

class ScheduleFilesTest : public DatabaseTest {
protected:
    void exec(const std::string& sql, const store::Params& params) {
        ASSERT_TRUE(store::InsertRecs(s(), sql, params)) << sql;
    }
    void addFile(const std::string& name, const store::Value& comment = {}) {
        exec("insert into schedname (schedname,comment) values(?,?)", {name, comment});
    }
    void addEntry(const std::string& sname, Date day, int from = 9, int to = 17) {
        exec(
            "insert into sched (personid,lname,sday,strttime,endtime,position,sname) values(1,'Sample',?,?,?,'Cook',?)",
            {day, DateTime::at(day).addHours(from), DateTime::at(day).addHours(to), sname});
    }
    void addNote(const std::string& sname, Date day) {
        exec("insert into daynote (sday,dailysales,sname) values(?,1200.5,?)", {day, sname});
    }
    int count(const std::string& table, const std::string& sname) {
        return static_cast<int>(
            store::GetRecs(s(), "select * from " + table + " where sname=?", {sname}).RecordCount());
    }
    Texts files() { return column(s(), "select schedname from schedname order by id"); }
    static int indexOf(const reference::ScheduleFileList& w, const std::string& name) {
        for (std::size_t i = 0; i < w.List1.size(); ++i)
            if (w.List1[i].text.rfind(name, 0) == 0) return static_cast<int>(i);
        return -1;
    }
};

TEST_F(ScheduleFilesTest, ListSelectAndOpen) {
    addFile("Week 2", "holiday week");
    addFile("Cook's Week");
    addFile("  ");
    for (int d : {6, 0, 2}) addEntry("Cook's Week", kMonday.addDays(d));
    addEntry("*undo*", kMonday);

    Openfrm w(s());
    EXPECT_EQ(count("sched", "*undo*"), 0);
    ASSERT_EQ(w.List1.size(), 2u);
    EXPECT_EQ(w.List1[1].text, "Week 2\t\tholiday week");
    EXPECT_EQ(w.List1[1].id, 1);
    EXPECT_FALSE(w.okbutton_Click());
    EXPECT_EQ(ui.texts(), Texts{"No Schedule was selected to be opened."});

    w.List1_Click(1);
    EXPECT_EQ(w.firstdate + w.lastdate + w.Label4, "'Week 2' has no entries.");
    w.List1_Click(0);
    EXPECT_EQ(w.firstdate, "Nov 23, 2026");
    EXPECT_EQ(w.lastdate, "Nov 29, 2026");
    EXPECT_EQ(w.Label4, "'Cook's Week' has 3 entries.");
    EXPECT_TRUE(w.List1_DblClick());
    EXPECT_EQ(s().currentSchedule, "Cook's Week");
    EXPECT_TRUE(w.scheduleChanged);
}

TEST_F(ScheduleFilesTest, NewFileNeedsAFreeNameWithoutRegardToCase) {
    addFile("Week 1");
    opennew w(s());
    w.schedname = "  ";
    EXPECT_FALSE(w.Command1_Click());
    w.schedname = "WEEK 1";
    EXPECT_FALSE(w.Command1_Click());
    EXPECT_EQ(ui.texts(), (Texts{"No name was entered.", "A Schedule with the name WEEK 1 already exists."}));
    w.schedname = " Cook's Week ";
    EXPECT_TRUE(w.Command1_Click());
    EXPECT_EQ(s().currentSchedule, "Cook's Week");
    EXPECT_EQ(files(), (Texts{"Week 1", "Cook's Week"}));
}

TEST_F(ScheduleFilesTest, RenameMovesTheEntriesButNotTheDayNotes) {
    addFile("Week 1", "first");
    addFile("Week 2");
    addEntry("Week 1", kMonday);
    addEntry("Week 1", kMonday.addDays(1));
    addNote("Week 1", kMonday);
    s().currentSchedule = "Week 1";

    Openfrm list(s());
    list.List1_Click(indexOf(list, "Week 1"));
    opennew w(s(), *list.Command1_Click());
    EXPECT_EQ(w.Caption, "Edit Schedule Name");
    EXPECT_EQ(w.schedname + "/" + w.description, "Week 1/first");
    w.schedname = "week 2";
    EXPECT_FALSE(w.Command1_Click());
    EXPECT_EQ(ui.texts(), Texts{"A Schedule with the name week 2 already exists."});
    w.schedname = "Cook's Week";
    EXPECT_TRUE(w.Command1_Click());

    EXPECT_EQ(files(), (Texts{"Cook's Week", "Week 2"}));
    EXPECT_EQ(count("sched", "Cook's Week"), 2);
    EXPECT_EQ(count("daynote", "Week 1"), 1);
    EXPECT_EQ(s().currentSchedule, "Cook's Week");
    EXPECT_TRUE(w.scheduleChanged);
}

TEST_F(ScheduleFilesTest, SaveAsCopiesEntriesAndDayNotesAndOntoItselfChangesNothing) {
    addFile("Week 1");
    addFile("Week 2");
    addEntry("Week 1", kMonday, 22, 30);  // ends on Tuesday 06:00
    addNote("Week 1", kMonday);
    addEntry("Week 2", kMonday.addDays(3));
    addEntry("Week 2", kMonday.addDays(4));
    s().currentSchedule = "Week 1";

    SaveAs w(s());
    w.schedname = "WEEK 1";
    EXPECT_TRUE(w.OKButton_Click());
    EXPECT_EQ(count("sched", "Week 1") + count("daynote", "Week 1"), 2);
    EXPECT_FALSE(w.scheduleChanged);
    ui.answer(MsgAnswer::No);
    w.schedname = "Week 2";
    EXPECT_FALSE(w.OKButton_Click());
    EXPECT_EQ(count("sched", "Week 2"), 2);
    EXPECT_EQ(ui.texts(), (Texts{"A Schedule with the name WEEK 1 already exists. Replace it?",
                                 "A Schedule with the name Week 2 already exists. Replace it?"}));
    EXPECT_TRUE(w.OKButton_Click());
    EXPECT_EQ(count("sched", "Week 2"), 1);

    w.schedname = "Cook's Copy";
    EXPECT_TRUE(w.OKButton_Click());  // copies Week 2, now current
    EXPECT_EQ(s().currentSchedule, "Cook's Copy");
    EXPECT_EQ(files(), (Texts{"Week 1", "Week 2", "Cook's Copy"}));
    EXPECT_EQ(count("sched", "Week 1"), 1);
    const auto copy = store::GetRecs(s(), "select * from sched where sname=?", {"Cook's Copy"});
    ASSERT_EQ(copy.RecordCount(), 1u);
    EXPECT_EQ(copy["sday"].toDate(), kMonday);
    EXPECT_EQ(copy["endtime"].toDateTime(), DateTime::at(kMonday.addDays(1), 6));
    EXPECT_EQ(copy["lname"].text() + copy["position"].text(), "SampleCook");
    const auto note = store::GetRecs(s(), "select * from daynote where sname=?", {"Cook's Copy"});
    ASSERT_EQ(note.RecordCount(), 1u);
    EXPECT_DOUBLE_EQ(note["dailysales"].toDouble(), 1200.5);
}

TEST_F(ScheduleFilesTest, OpenWindowDeleteLeavesDayNotesAndClosesTheCurrentFile) {
    addFile("Cook's Week");
    addEntry("Cook's Week", kMonday);
    addEntry("Cook's Week", kMonday.addDays(1));
    addNote("Cook's Week", kMonday);
    s().currentSchedule = "cook's week";

    Openfrm w(s());
    w.deletebutton_Click();
    ui.answer(MsgAnswer::No);
    w.List1_Click(0);
    w.deletebutton_Click();
    EXPECT_EQ(count("sched", "Cook's Week"), 2);
    w.deletebutton_Click();
    EXPECT_EQ(ui.texts(),
              (Texts{"There is no Schedule selected.", "Delete the Schedule Cook's Week containing 2 schedule entries?",
                     "Delete the Schedule Cook's Week containing 2 schedule entries?",
                     "The Cook's Week Schedule was deleted."}));
    EXPECT_EQ(count("sched", "Cook's Week"), 0);
    EXPECT_EQ(count("daynote", "Cook's Week"), 1);
    EXPECT_TRUE(files().empty());
    EXPECT_EQ(s().currentSchedule, "");
    EXPECT_TRUE(w.scheduleChanged);
    EXPECT_TRUE(w.List1.empty());
}

TEST_F(ScheduleFilesTest, DeleteWindowAsksByTheDaysShownAndRemovesDayNotes) {
    for (const char* name : {"Empty", "One Day", "Cook's Week"}) addFile(name);
    addEntry("One Day", kMonday);
    addEntry("One Day", kMonday, 18, 22);
    addEntry("Cook's Week", kMonday);
    addEntry("Cook's Week", kMonday.addDays(4));
    addNote("Cook's Week", kMonday);
    addEntry("", kMonday);  // an unnamed schedule's entry must survive
    s().currentSchedule = "Cook's Week";
    s().refreshWanted = true;

    deletesched w(s());
    const std::string lead = " Schedule File. This Schedule File ";
    const Texts questions{
        "You are about to delete the Empty" + lead + "does not contain any schedule entries. Continue?",
        "You are about to delete the One Day" + lead + "contains 2 scehdule entries entered on Nov 23, 2026. Continue?",
        "You are about to delete the Cook's Week" + lead +
            "contains 2 schedule entries entered from Nov 23, 2026 to Nov 27, 2026. Continue?"};
    for (const char* name : {"Empty", "One Day", "Cook's Week"}) {
        ui.answer(MsgAnswer::No);
        w.List1_Click(indexOf(w, name));
        w.deletebutton_Click();
    }
    EXPECT_EQ(ui.texts(), questions);
    w.deletebutton_Click();  // Cook's Week is still selected

    EXPECT_EQ(count("sched", "Cook's Week") + count("daynote", "Cook's Week"), 0);
    EXPECT_EQ(count("sched", ""), 1);
    EXPECT_EQ(files(), (Texts{"Empty", "One Day"}));
    EXPECT_EQ(w.List1.size(), 2u);
    EXPECT_EQ(w.Label4 + w.firstdate, "");
    EXPECT_EQ(s().currentSchedule, "");
    EXPECT_FALSE(s().refreshWanted);
    EXPECT_TRUE(w.scheduleChanged);
}

}  // namespace
}  // namespace tallymere::testing

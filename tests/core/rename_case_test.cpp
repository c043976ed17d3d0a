// Renames of schedule files, shifts, positions and sections: names compare as the database compares
// them, so a new name that differs from a taken one (the row's own included) only in case is taken.

#include "reference/position_windows.h"
#include "reference/schedule_files.h"
#include "reference/section_windows.h"
#include "reference/shift_windows.h"

#include "support/table_rows.h"
#include "support/test_database.h"

#include <string>
#include <vector>

namespace tallymere::testing {
namespace {

using common::DateTime;
using Texts = std::vector<std::string>;

class RenameCaseTest : public DatabaseTest {
protected:
    void SetUp() override {
        DatabaseTest::SetUp();
        for (const char* name : {"Day Shift", "Night"})
            exec("insert into shift (name,strttime,endtime,description) values(?,?,?,'')",
                 {name, DateTime::fromParts(2006, 1, 1, 9), DateTime::fromParts(2006, 1, 1, 17)});
        for (const char* title : {"Cook", "Server"})
            exec("insert into position (title,description,baserate,color) values(?,'','$10.00',0)", {title});
        for (const char* name : {"Kitchen", "Bar"}) exec("insert into section (name,description) values(?,'')", {name});
        for (const char* name : {"Week 1", "Week 2"})
            exec("insert into schedname (schedname,comment) values(?,'')", {name});
        // Entries under the old names show whether a refused rename still carried anything on.
        exec("insert into sched (personid,lname,sday,shift,position,section,sname) values(1,'Sample',?,?,?,?,?)",
             {common::Date::fromYmd(2026, 11, 23), "Day Shift", "Cook", "Kitchen", "Week 1"});
    }
    void exec(const std::string& sql, const store::Params& params) {
        ASSERT_TRUE(store::InsertRecs(s(), sql, params)) << sql;
    }
    Texts entry() {
        const auto rs = store::GetRecs(s(), "select * from sched");
        return {rs["shift"].text(), rs["position"].text(), rs["section"].text(), rs["sname"].text()};
    }
    long fileId(const std::string& name) {
        return static_cast<long>(
            store::GetRecs(s(), "select id from schedname where schedname=?", {name})["id"].toLong());
    }
};

TEST_F(RenameCaseTest, ACaseOnlyChangeIsRefusedLikeAnyTakenNameAndNothingMoves) {
    reference::EditShift shift(s(), "Day Shift");
    shift.name = "day shift";
    EXPECT_FALSE(shift.ok());
    reference::positionedit position(s(), "Cook");
    position.title = "COOK";
    EXPECT_FALSE(position.ok());
    reference::groupedit section(s(), "Kitchen");
    section.name = " kitchen ";
    EXPECT_FALSE(section.ok());
    reference::opennew file(s(), fileId("Week 1"));
    file.schedname = "WEEK 1";
    EXPECT_FALSE(file.Command1_Click());

    EXPECT_EQ(ui.texts(),
              (Texts{"Shift day shift already exists.", "Position COOK already exists.",
                     "Section kitchen already exists.", "A Schedule with the name WEEK 1 already exists."}));
    EXPECT_EQ(column(s(), "select name from shift order by name"), (Texts{"Day Shift", "Night"}));
    EXPECT_EQ(column(s(), "select title from position order by title"), (Texts{"Cook", "Server"}));
    EXPECT_EQ(column(s(), "select name from section order by name"), (Texts{"Bar", "Kitchen"}));
    EXPECT_EQ(column(s(), "select schedname from schedname order by id"), (Texts{"Week 1", "Week 2"}));
    EXPECT_EQ(entry(), (Texts{"Day Shift", "Cook", "Kitchen", "Week 1"}));
}

TEST_F(RenameCaseTest, AnotherRowInOtherLettersIsTakenAndTheSameNameKeepsOnlyTheDescription) {
    reference::EditShift shift(s(), "Day Shift");
    shift.name = "NIGHT";
    EXPECT_FALSE(shift.ok());
    reference::positionedit position(s(), "Cook");
    position.title = "server";
    EXPECT_FALSE(position.ok());
    reference::groupedit section(s(), "Kitchen");
    section.name = "bar";
    EXPECT_FALSE(section.ok());
    EXPECT_EQ(ui.texts(),
              (Texts{"Shift NIGHT already exists.", "Position server already exists.", "Section bar already exists."}));

    // The unchanged name is no rename: the other fields are saved.
    shift.name = "Day Shift";
    shift.description = "breakfast and lunch";
    EXPECT_TRUE(shift.ok());
    reference::opennew file(s(), fileId("Week 1"));
    file.schedname = " Week 1 ";
    file.description = "first week";
    EXPECT_TRUE(file.Command1_Click());
    EXPECT_EQ(column(s(), "select description from shift where name='Day Shift'"), Texts{"breakfast and lunch"});
    EXPECT_EQ(column(s(), "select comment from schedname where schedname='Week 1'"), Texts{"first week"});
    EXPECT_EQ(entry(), (Texts{"Day Shift", "Cook", "Kitchen", "Week 1"}));
}

}  // namespace
}  // namespace tallymere::testing

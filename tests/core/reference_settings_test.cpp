#include "reference/position_windows.h"
#include "reference/section_windows.h"
#include "reference/settings.h"
#include "reference/shift_windows.h"
#include "reference/time_entry.h"

#include "support/table_rows.h"
#include "support/test_database.h"

#include <string>
#include <vector>

namespace tallymere::testing {
namespace {

using common::Date;
using common::DateTime;
using reference::TimeEntry;
using reference::TimeField;
using Texts = std::vector<std::string>;

TEST(TimeEntry, SpinWrapsTheFocusedFieldAndTwelveIsMidnightOrNoon) {
    TimeEntry t("12", "59", "AM");
    EXPECT_FALSE(t.TEAmPm_KeyPress(U'x'));
    EXPECT_TRUE(t.TEAmPm_KeyPress(U'p'));
    EXPECT_EQ(t.TEAmPm, "PM");
    t.SpinButton1_SpinUp(TimeField::Hour);
    t.SpinButton1_SpinUp(TimeField::Minutes);
    t.SpinButton1_SpinUp(TimeField::AmPm);
    EXPECT_EQ(t.TETxtHr + ":" + t.TeTxtMin + t.TEAmPm, "1:00AM");
    t.SpinButton1_SpinDown(TimeField::Hour);
    t.SpinButton1_SpinDown(TimeField::Minutes);
    EXPECT_EQ(t.TETxtHr + ":" + t.TeTxtMin, "12:59");

    const Date day = Date::fromYmd(2026, 11, 23);
    EXPECT_EQ(TimeEntry("12", "00", "AM").on(day), DateTime::at(day, 0, 0));
    EXPECT_EQ(TimeEntry("12", "30", "PM").on(day), DateTime::at(day, 12, 30));
    TimeEntry padded("9", "5", "PM");
    padded.padMinute();
    EXPECT_EQ(padded.on(day), DateTime::at(day, 21, 5));
}

class ReferenceTest : public DatabaseTest {
protected:
    Texts column(const std::string& sql) { return testing::column(s(), sql); }
    void exec(const std::string& sql, const store::Params& params = {}) {
        ASSERT_TRUE(store::InsertRecs(s(), sql, params)) << sql;
    }
    std::optional<DateTime> shiftTime(const char* column) {
        return store::GetRecs(s(), "select * from shift")[column].toDateTime();
    }
    bool addShift(const std::string& name, TimeEntry start, TimeEntry end) {
        reference::shiftadd w(s());
        w.name = name;
        w.startTime = std::move(start);
        w.endTime = std::move(end);
        return w.ok();
    }
    // One row in every table that refers to a shift, position or section by name.
    void referTo(const std::string& shift, const std::string& position, const std::string& section) {
        const Date day = Date::fromYmd(2026, 11, 23);
        exec(
            "insert into sched (personid,sday,strttime,endtime,position,shift,section,sname) values(1,?,?,?,?,?,?,'W')",
            {day, DateTime::at(day, 9), DateTime::at(day, 17), position, shift, section});
        exec("insert into scheddefault (personid,daynum,position,shift,section) values(1,1,?,?,?)",
             {position, shift, section});
        exec("insert into staffing (sday,shift,position,sname,numreq) values(2,?,?,'W',3)", {shift, position});
        exec("insert into desiredshift (personid,sday,shift,position) values(1,2,?,?)", {shift, position});
        exec("insert into qualifications (personid,position,hourlyrate) values(1,?,'9')", {position});
        exec("update person set primpos=? where personid=1", {position});
    }
};

TEST_F(ReferenceTest, OvernightShiftAnsweredYesEndsOnTheNextBaseDay) {
    EXPECT_TRUE(addShift("Night", {"10", "00", "PM"}, {"6", "00", "AM"}));
    ASSERT_EQ(ui.texts(), Texts{"The start time is greater than the endtime. Is the end time the next day?"});
    EXPECT_EQ(ui.messages[0].icon, common::MsgIcon::Question);
    EXPECT_EQ(shiftTime("strttime"), DateTime::fromParts(2006, 1, 1, 22));
    EXPECT_EQ(shiftTime("endtime"), DateTime::fromParts(2006, 1, 2, 6));
    const auto row = reference::settings(s()).shiftgrid.at(0);
    EXPECT_EQ(row.startTime + " " + row.endTime + " " + row.length, "10:00 PM 6:00 AM 8h 00");

    ui.answer(MsgAnswer::No);
    EXPECT_FALSE(addShift("Late", {"11", "00", "PM"}, {"7", "30", "AM"}));
    EXPECT_EQ(column("select name from shift"), Texts{"Night"});
}

TEST_F(ReferenceTest, LongShiftAtMidnightAndZeroHourShiftAsk) {
    ui.answer(MsgAnswer::No);
    EXPECT_FALSE(addShift("Early", {"12", "00", "AM"}, {"1", "00", "PM"}));
    ASSERT_EQ(ui.texts(), Texts{"12:00 AM is 12 midnight not 12 noon. This shift is 13 hours long, is this correct?"});
    EXPECT_EQ(ui.messages[0].title, "Add New Shift");

    ui.clear();
    EXPECT_TRUE(addShift("Half", {"11", "30", "AM"}, {"12", "00", "AM"}));  // ends at midnight the next day
    EXPECT_EQ(ui.texts().back(),
              "12:00 AM is 12 midnight not 12 noon. This shift is 12.5 hours long, is this correct?");
    EXPECT_EQ(reference::settings(s()).shiftgrid.at(0).length, "12h 30");

    ui.clear();
    ui.answer(MsgAnswer::No);
    EXPECT_FALSE(addShift("Zero", {"9", "00", "AM"}, {"9", "00", "AM"}));
    EXPECT_EQ(ui.texts(),
              Texts{"The start time is equal to the end time, this shift is 0 hours long, is this correct?"});
    EXPECT_EQ(ui.messages[0].title, "Edit Schedule Entry");
    EXPECT_EQ(column("select name from shift"), Texts{"Half"});
}

TEST_F(ReferenceTest, TimeFieldsAreCheckedStartBeforeEndHourBeforeMinute) {
    struct Case {
        TimeEntry start, end;
        const char* message;
    };
    const std::vector<Case> cases{
        {{"x", "zz", "AM"}, {"q", "q", "PM"}, "Hour value for Start Time is not valid."},
        {{"13", "zz", "AM"}, {"q", "q", "PM"}, "Hour value must be between 1 and 12."},
        {{"0", "00", "AM"}, {"5", "00", "PM"}, "Hour value must be between 1 and 12."},
        {{"9", "zz", "AM"}, {"q", "q", "PM"}, "Minute value for Start Time is not valid."},
        {{"9", "60", "AM"}, {"q", "q", "PM"}, "Minute value must be between 0 and 59."},
        {{"9", "00", "AM"}, {"q", "q", "PM"}, "Hour value for End Time is not valid."},
        {{"9", "00", "AM"}, {"13", "q", "PM"}, "Hour value for End Time must be between 1 and 12."},
        {{"9", "00", "AM"}, {"5", "q", "PM"}, "Minute value for End Time is not valid."},
        {{"9", "00", "AM"}, {"5", "75", "PM"}, "The End Time minute value must be between 0 and 59."},
        {{"", "30", "AM"}, {"5", "", "PM"}, "Please enter the start and end times."},
    };
    for (const auto& c : cases) {
        ui.clear();
        EXPECT_FALSE(addShift("Day", c.start, c.end));
        EXPECT_EQ(ui.texts(), Texts{c.message}) << c.message;
    }
    EXPECT_TRUE(addShift("Day", {"9", "", "AM"}, {"5", "3", "PM"}));
    EXPECT_EQ(shiftTime("endtime"), DateTime::fromParts(2006, 1, 1, 17, 3));  // "3" is 03, not 30
}

TEST_F(ReferenceTest, NamesAreRequiredAndUniqueWithoutRegardToCase) {
    EXPECT_FALSE(addShift("   ", {"9", "00", "AM"}, {"5", "00", "PM"}));
    EXPECT_TRUE(addShift("  Day  ", {"9", "00", "AM"}, {"5", "00", "PM"}));
    EXPECT_FALSE(addShift("DAY", {"9", "00", "AM"}, {"5", "00", "PM"}));
    ASSERT_TRUE(addShift("Night", {"10", "00", "PM"}, {"6", "00", "AM"}));
    reference::EditShift edit(s(), "Day");
    edit.name = "night";
    EXPECT_FALSE(edit.ok());
    reference::positionadd position(s());
    EXPECT_FALSE(position.ok());
    position.title = "Cook";
    ASSERT_TRUE(position.ok());
    EXPECT_FALSE(position.ok());
    reference::GroupAdd section(s());
    section.name = "Bar";
    ASSERT_TRUE(section.ok());
    section.name = "BAR";
    EXPECT_FALSE(section.ok());
    EXPECT_EQ(ui.texts(), (Texts{"No shift name was entered", "Shift name 'DAY' already exists.",
                                 "The start time is greater than the endtime. Is the end time the next day?",
                                 "Shift night already exists.", "No Position Title was entered",
                                 "Position Cook already exists.", "The section 'BAR' already exists."}));
}

TEST_F(ReferenceTest, ShiftRenameCarriesOnExceptToStaffingAndKeepsEntryTimes) {
    ASSERT_TRUE(addShift("Cook's Day", {"9", "00", "AM"}, {"5", "00", "PM"}));
    referTo("Cook's Day", "Chef", "Kitchen");
    reference::EditShift edit(s(), "Cook's Day");
    EXPECT_EQ(edit.startTime.TETxtHr + edit.endTime.TEAmPm, "9PM");
    edit.name = "Cook's Long Day";
    edit.endTime = {"7", "30", "PM"};
    EXPECT_TRUE(edit.ok());

    EXPECT_EQ(shiftTime("endtime"), DateTime::fromParts(2006, 1, 1, 19, 30));
    const Texts renamed{"Cook's Long Day"};
    EXPECT_EQ(column("select name from shift"), renamed);
    EXPECT_EQ(column("select shift from desiredshift"), renamed);
    EXPECT_EQ(column("select shift from sched"), renamed);
    EXPECT_EQ(column("select shift from scheddefault"), renamed);
    EXPECT_EQ(column("select shift from staffing"), Texts{"Cook's Day"});
    EXPECT_EQ(column("select endtime from sched"), Texts{"2026-11-23 17:00:00"});
}

TEST_F(ReferenceTest, PositionRenameCarriesOnExceptToDesiredShiftsAndSectionRenameToEntries) {
    reference::positionadd add(s());
    add.title = "Chef's Aide";
    add.color = reference::rgbColor(255, 0, 0);
    ASSERT_TRUE(add.ok());
    exec("insert into section (name) values('Kid''s Corner')");
    referTo("Day", "Chef's Aide", "Kid's Corner");

    reference::positionedit edit(s(), "Chef's Aide");
    EXPECT_EQ(edit.color, 255);
    edit.title = "Sous Chef's Aide";
    edit.color = reference::rgbColor(0, 0, 255);
    EXPECT_TRUE(edit.ok());
    const Texts renamed{"Sous Chef's Aide"};
    EXPECT_EQ(column("select title from position"), renamed);
    EXPECT_EQ(column("select color from position"), Texts{"16711680"});
    for (const char* table : {"sched", "scheddefault", "qualifications", "staffing"})
        EXPECT_EQ(column(std::string("select position from ") + table), renamed) << table;
    EXPECT_EQ(column("select primpos from person"), renamed);
    EXPECT_EQ(column("select position from desiredshift"), Texts{"Chef's Aide"});

    reference::groupedit section(s(), "Kid's Corner");
    section.name = "Kids' Corner";
    EXPECT_TRUE(section.ok());
    EXPECT_EQ(column("select section from sched"), Texts{"Kids' Corner"});
    EXPECT_EQ(column("select section from scheddefault"), Texts{"Kids' Corner"});
}

TEST_F(ReferenceTest, BaseRateTakesDigitsAndOneDecimalSymbolAndShowsCurrency) {
    reference::positionadd w(s());
    for (const char* key : {"1", "2", ".", "5", ".", "a", "0"})
        if (w.baserate_KeyPress(s(), key)) w.baserate += key;
    EXPECT_EQ(w.baserate, "12.50");
    EXPECT_EQ(ui.beeps, 2);
    w.baserate_LostFocus(s());
    EXPECT_EQ(w.baserate, "$12.50");
    s().locale.decimalSeparator = ",";
    s().locale.thousandsSeparator = ".";
    w.baserate = "8,5";
    w.baserate_LostFocus(s());
    EXPECT_EQ(w.baserate, "$8,50");
}

TEST_F(ReferenceTest, DeletesAskThenRemoveTheirRowsButNeverEntriesOrPrimaryPositions) {
    ASSERT_TRUE(addShift("Day", {"9", "00", "AM"}, {"5", "00", "PM"}));
    exec("insert into position (title) values('Chef''s Aide')");
    exec("insert into section (name) values('Kid''s Corner')");
    referTo("Day", "Chef's Aide", "Kid's Corner");
    reference::settings w(s());

    ui.answer(MsgAnswer::No);
    EXPECT_FALSE(w.deletePosition());
    EXPECT_TRUE(w.deletePosition());
    EXPECT_EQ(ui.texts(), Texts(2, "Are you sure you want to delete the position Chef's Aide ?"));
    for (const char* table : {"position", "staffing", "desiredshift", "qualifications"})
        EXPECT_TRUE(column(std::string("select * from ") + table).empty()) << table;
    EXPECT_EQ(column("select primpos from person"), Texts{"Chef's Aide"});
    EXPECT_EQ(column("select position from sched"), Texts{"Chef's Aide"});

    referTo("Day", "Cook", "Kid's Corner");
    ui.clear();
    EXPECT_TRUE(w.deleteShift());
    EXPECT_TRUE(w.deleteSection());
    EXPECT_EQ(ui.texts(), (Texts{"Are you sure you want to delete the shift Day ?",
                                 "Are you sure you want to delete the section 'Kid's Corner ' ?"}));
    for (const char* table : {"shift", "section", "staffing", "desiredshift"})
        EXPECT_TRUE(column(std::string("select * from ") + table).empty()) << table;
    EXPECT_EQ(column("select shift || section from sched"), Texts(2, "DayKid's Corner"));
    EXPECT_EQ(column("select shift from scheddefault"), Texts(2, "Day"));
}

TEST_F(ReferenceTest, EmptyGridsAndMissingRightsStopTheButtons) {
    reference::settings w(s());
    EXPECT_FALSE(w.editShift() || w.deleteShift() || w.editPosition() || w.deletePosition() || w.editSection() ||
                 w.deleteSection() || w.canPrint());
    EXPECT_EQ(ui.texts(), (Texts{"There are no shifts to be edited.", "There are no shifts to be deleted.",
                                 "There are no positions to be edited.", "There are no positions to be deleted.",
                                 "There are no sections to be edited.", "There are no sections to be deleted.",
                                 "There is nothing to print."}));
    ui.clear();
    s().IsUserMode = true;
    s().rights.noShift = s().rights.noSection = true;
    EXPECT_FALSE(w.addShift());
    EXPECT_TRUE(w.addPosition());
    EXPECT_FALSE(w.editSection());
    EXPECT_EQ(ui.texts(), (Texts{"You do not have permissions to edit shifts. To edit shifts, restart Tallymere and "
                                 "enter the owner password.",
                                 "You do not have permissions to edit sections. To edit section data, restart "
                                 "Tallymere and enter the owner password."}));
}

}  // namespace
}  // namespace tallymere::testing

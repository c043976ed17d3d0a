#include "reference/add_staff.h"
#include "reference/edit_staff.h"
#include "reference/edit_staff_new.h"
#include "reference/person_list.h"
#include "reference/queryemployee.h"

#include "support/table_rows.h"
#include "support/test_database.h"

#include <string>
#include <vector>

namespace tallymere::testing {
namespace {

using common::Date;
using common::DateTime;
using reference::AddStaff;
using reference::EditStaff;
using reference::EditStaffnew;
using reference::PersonListFrm;
using Rows = std::vector<std::string>;

constexpr long kSam = 1;  // the template's sample employee, Sam Sample

class EmployeesTest : public DatabaseTest {
protected:
    long addPerson(const std::string& fname, const std::string& lname, const std::string& primpos = "") {
        EXPECT_TRUE(store::InsertRecs(s(), "insert into person (lname,fname,primpos,active) values(?,?,?,1)",
                                      {lname, fname, primpos}));
        return lastId(s(), "person", "personid");
    }
    void addPosition(const std::string& title) {
        ASSERT_TRUE(store::InsertRecs(s(), "insert into position (title) values(?)", {title}));
    }
    // Rows that hang on an employee, one of each kind.
    void addDependents(long id, const std::string& lname, const std::string& fname) {
        ASSERT_TRUE(
            store::InsertRecs(s(), "insert into availability (personid,lname,fname,sday,houravail) values(?,?,?,?,?)",
                              {id, lname, fname, "Monday", std::string(24, 'Y')}));
        ASSERT_TRUE(store::InsertRecs(
            s(), "insert into desiredshift (personid,sday,shift,position) values(?,2,'Morning','Cook')", {id}));
        ASSERT_TRUE(store::InsertRecs(
            s(), "insert into employeeleave (personid,fullname,typeofleave,sday) values(?,?,'Vacation',?)",
            {id, lname + ", " + fname, Date::fromYmd(2026, 12, 1)}));
        ASSERT_TRUE(store::InsertRecs(
            s(),
            "insert into qualifications (personid,lname,fname,position,hourlyrate,slevel) values(?,?,?,'Server','9',3)",
            {id, lname, fname}));
    }
    void addEntry(long id, const std::string& lname, const std::string& fname, const std::string& sname, Date day) {
        ASSERT_TRUE(
            store::InsertRecs(s(),
                              "insert into sched (personid,lname,fname,sday,strttime,endtime,position,shift,sname) "
                              "values(?,?,?,?,?,?,'Cook','',?)",
                              {id, lname, fname, day, DateTime::at(day, 9), DateTime::at(day, 17), sname}));
    }
    Rows column(const std::string& sql, const store::Params& params = {}) { return testing::column(s(), sql, params); }
    std::size_t count(const std::string& table, long id) {
        return store::GetRecs(s(), "select * from " + table + " where personid=?", {id}).RecordCount();
    }
    // The stored fields of an employee, joined by " | ".
    std::string personField(long id, std::initializer_list<const char*> columns) {
        const auto rs = store::GetRecs(s(), "select * from person where personid=?", {id});
        std::string out;
        for (const char* c : columns) out += (out.empty() ? "" : " | ") + rs[c].text();
        return out;
    }
    void userMode(common::UserRights rights) {
        s().IsUserMode = true;
        s().rights = rights;
    }
    std::unique_ptr<EditStaff> openEditor(long id) {
        s().currentEmployee = id;
        auto w = std::make_unique<EditStaff>(s());
        EXPECT_TRUE(w->Load());
        return w;
    }
};

TEST_F(EmployeesTest, RenameFollowsEntriesOfTheOpenScheduleFileOnly) {
    addDependents(kSam, "Sample", "Sam");
    addEntry(kSam, "Sample", "Sam", "Week A", Date::fromYmd(2026, 11, 23));
    addEntry(kSam, "Sample", "Sam", "Week B", Date::fromYmd(2026, 11, 24));
    s().currentSchedule = "Week A";
    auto w = openEditor(kSam);
    EXPECT_EQ(w->Caption, "Edit Employee - Sam Sample");

    w->fname = "Samuel";
    w->fieldChanged("fname");
    ui.answer(MsgAnswer::No);
    EXPECT_FALSE(w->Save());
    EXPECT_EQ(ui.messages.back().text,
              "You have changed the name from Sam Sample to Samuel Sample is this what you want to do?");
    EXPECT_EQ(personField(kSam, {"fname"}), "Sam");

    ASSERT_TRUE(w->Save());
    EXPECT_EQ(personField(kSam, {"fname"}), "Samuel");
    EXPECT_EQ(column("select fname from sched where sname='Week A'"), Rows{"Samuel"});
    EXPECT_EQ(column("select fname from sched where sname='Week B'"), Rows{"Sam"});
    EXPECT_EQ(column("select fullname from employeeleave"), Rows{"Sample, Samuel"});
    EXPECT_EQ(column("select fname from availability where sday='Monday'"), Rows{"Samuel"});
    EXPECT_EQ(column("select fname from qualifications"), Rows{"Samuel"});
    EXPECT_EQ(w->Caption, "Edit Employee - Samuel Sample");
    EXPECT_EQ(w->List1.text(), "Sample, Samuel");
    EXPECT_FALSE(w->dirty());
}

TEST_F(EmployeesTest, CaseOnlyRenameMakesNoCheckAndNoCascade) {
    addDependents(kSam, "Sample", "Sam");
    addEntry(kSam, "Sample", "Sam", "", Date::fromYmd(2026, 11, 23));
    auto w = openEditor(kSam);
    w->fname = " SAM ";
    w->fieldChanged("fname");
    w->city = "Shelbyville";
    w->fieldChanged("city");
    ASSERT_TRUE(w->Save());
    // No duplicate refusal (the employee would find itself) and no question.
    EXPECT_TRUE(ui.messages.empty()) << ui.texts().front();
    EXPECT_EQ(column("select fname from person where personid=1"), Rows{"Sam"});
    EXPECT_EQ(column("select fname from sched"), Rows{"Sam"});
    EXPECT_EQ(column("select fullname from employeeleave"), Rows{"Sample, Sam"});
    EXPECT_EQ(personField(kSam, {"city"}), "Shelbyville");
}

TEST_F(EmployeesTest, DuplicateNamesAreRefusedEverywhere) {
    AddStaff quick(s());
    quick.Load();
    quick.fname = "sam";
    quick.LName = "SAMPLE ";
    EXPECT_FALSE(quick.OKButton());
    EXPECT_TRUE(ui.shown("An employee by the name sam SAMPLE already exists."));

    EditStaffnew full(s());
    ASSERT_TRUE(full.Load());
    full.fname = "Sam";
    full.LName = "Sample";
    EXPECT_FALSE(full.Save());
    EXPECT_TRUE(ui.shown("An employee with the name 'Sam Sample' already exists. The name must be unique."));

    const long ann = addPerson("Ann", "Lee");
    auto w = openEditor(ann);
    w->fname = "Sam";
    w->LName = "Sample";
    w->fieldChanged("LName");
    EXPECT_FALSE(w->Save());
    EXPECT_TRUE(ui.shown("A person with the name 'Sam Sample' already exists."));
    EXPECT_EQ(personField(ann, {"lname"}), "Lee");
    EXPECT_EQ(column("select personid from person"), (Rows{"1", std::to_string(ann)}));
}

TEST_F(EmployeesTest, NameChecksOfTheThreeWindows) {
    AddStaff quick(s());
    EXPECT_FALSE(quick.OKButton());
    EXPECT_TRUE(ui.shown("No first name or last name were entered"));
    quick.LName = "Cher";
    ASSERT_TRUE(quick.OKButton());
    EXPECT_EQ(personField(s().currentEmployee, {"lname", "active"}), "Cher | 1");

    EditStaffnew full(s());
    ASSERT_TRUE(full.Load());
    full.LName = "Lee";
    EXPECT_FALSE(full.Save());
    EXPECT_TRUE(ui.shown("No first name was entered"));
    full.fname = "Ann";
    full.LName = "";
    EXPECT_FALSE(full.Save());
    EXPECT_TRUE(ui.shown("No last name was entered"));

    auto w = openEditor(kSam);
    w->fname = w->LName = "  ";
    w->fieldChanged("fname");
    EXPECT_FALSE(w->Save());
    EXPECT_TRUE(ui.shown("You need to enter a first name or a last name."));
}

TEST_F(EmployeesTest, ListDeleteTakesSelectedPersonButDependentsOfTheLastEdited) {
    const long ann = addPerson("Ann", "Lee");
    addDependents(kSam, "Sample", "Sam");
    addDependents(ann, "Lee", "Ann");
    addEntry(ann, "Lee", "Ann", "Week A", Date::fromYmd(2026, 11, 23));

    PersonListFrm list(s());
    list.Refresh();
    ASSERT_EQ(list.grid1.size(), 2u);
    list.row = 1;  // Sample
    ASSERT_EQ(list.grid1[1].LastName, "Sample");
    ASSERT_TRUE(list.editbutton());
    EXPECT_EQ(s().currentEmployee, kSam);

    list.row = 0;  // Lee
    ui.answer(MsgAnswer::No);
    EXPECT_FALSE(list.deletebutton());
    EXPECT_EQ(ui.messages.back().text, "Are you sure you want to delete Ann Lee ?");
    EXPECT_EQ(count("person", ann), 1u);

    list.row = 0;
    ASSERT_TRUE(list.deletebutton());
    EXPECT_EQ(count("person", ann), 0u);
    EXPECT_EQ(count("person", kSam), 1u);
    for (const char* table : {"availability", "desiredshift", "employeeleave", "qualifications"}) {
        EXPECT_EQ(count(table, kSam), 0u) << table;
        EXPECT_EQ(count(table, ann), 1u) << table;
    }
    EXPECT_EQ(count("sched", ann), 1u);
    ASSERT_EQ(list.grid1.size(), 1u);
    EXPECT_EQ(list.grid1[0].LastName, "Sample");
}

TEST_F(EmployeesTest, ListShowsPositionAndStatusAndRefusesEmptyList) {
    const long ann = addPerson("Ann", "Lee", "Cook");
    store::UdateRecs(s(), "update person set active=0 where personid=?", {ann});
    PersonListFrm list(s());
    list.Refresh();
    ASSERT_EQ(list.grid1.size(), 2u);
    EXPECT_EQ(list.grid1[0].Position, "Cook");
    EXPECT_EQ(list.grid1[0].Status, "Inactive");
    EXPECT_EQ(list.grid1[1].Position, "None Assigned");
    EXPECT_EQ(list.grid1[1].Status, "Active");

    // Renamed behind the list's back: the edit finds the row by its name and says so.
    store::UdateRecs(s(), "update person set lname='Li' where personid=?", {ann});
    list.row = 0;
    EXPECT_FALSE(list.editbutton());
    EXPECT_TRUE(ui.shown("No personnel found by the name Lee, Ann"));

    store::DeleteRecs(s(), "delete from person");
    list.Refresh();
    EXPECT_FALSE(list.editbutton());
    EXPECT_FALSE(list.deletebutton());
    EXPECT_TRUE(ui.shown("There are no employees to edit."));
    EXPECT_TRUE(ui.shown("There are no employees."));
}

TEST_F(EmployeesTest, UserModeRights) {
    PersonListFrm list(s());
    list.Refresh();
    userMode({.noEmployeeView = true, .noEmployee = true});
    EXPECT_FALSE(list.addbutton());
    EXPECT_FALSE(list.editbutton());
    EXPECT_FALSE(list.deletebutton());
    EXPECT_EQ(
        ui.texts(),
        (Rows{"You do not have permissions to view employee information. To view employee data, restart Tallymere "
              "and enter the owner password.",
              "You do not have permissions to view or change employee information. To view employee data, restart "
              "Tallymere and enter the owner password.",
              "You do not have permissions to change employee information. To view employee data, restart Tallymere "
              "and enter the owner password."}));
    EXPECT_EQ(count("person", kSam), 1u);

    userMode({.noEmployee = true, .noPayroll = true});
    auto w = openEditor(kSam);
    EXPECT_FALSE(w->payFieldsVisible);
    w->city = "Elsewhere";
    w->fieldChanged("city");
    EXPECT_FALSE(w->Save());
    EXPECT_TRUE(
        ui.shown("You do not have permission to change employee records. To make the changes, restart "
                 "Tallymere and enter the owner password."));
    EXPECT_EQ(personField(kSam, {"city"}), "Springfield");

    s().IsUserMode = false;
    EXPECT_TRUE(openEditor(kSam)->payFieldsVisible);
}

TEST_F(EmployeesTest, EmptyRateLeavesTheWholePayGroupAsStored) {
    auto w = openEditor(kSam);
    w->hourlyrate = "";
    w->hoursperweek = "20";
    w->fieldChanged("hourlyrate");
    w->fieldChanged("hoursperweek");
    ASSERT_TRUE(w->Save());
    EXPECT_EQ(personField(kSam, {"hourlyrate", "hoursperweek"}), "12.50 | 40");

    w->hourlyrate = "14.25";
    w->primaryskill = "7";
    w->fieldChanged("primaryskill");
    ASSERT_TRUE(w->Save());
    EXPECT_EQ(personField(kSam, {"hourlyrate", "hoursperweek", "skilllevel"}), "14.25 | 20 | 7");
}

TEST_F(EmployeesTest, DatesAreCheckedAndStoredAsMonthDayYear) {
    auto w = openEditor(kSam);
    w->doh = "13/45/2026";
    w->fieldChanged("doh");
    EXPECT_FALSE(w->Save());
    EXPECT_EQ(ui.messages.back().text, "Date of hire is not a valid date.");
    EXPECT_EQ(ui.messages.back().icon, MsgIcon::Information);

    w->doh = "3/4/26";
    w->empenddate = "someday";
    EXPECT_FALSE(w->Save());
    EXPECT_EQ(ui.messages.back().text, "Employee end date is not a valid date.");
    EXPECT_EQ(ui.messages.back().icon, MsgIcon::Exclamation);
    EXPECT_EQ(w->SSTab1, EditStaff::kEmploymentTab);

    w->empenddate = "2027-01-31";
    ASSERT_TRUE(w->Save());
    EXPECT_EQ(personField(kSam, {"doh", "enddate", "dob"}), "03/04/2026 | 01/31/2027 | ");
}

TEST_F(EmployeesTest, NewEmployeeCopiesTheWorkTables) {
    addPosition("Cook");
    addPosition("Server");
    store::InsertRecs(s(), "insert into shift (name,strttime,endtime) values('Morning',?,?)",
                      {DateTime::fromParts(2006, 1, 1, 6), DateTime::fromParts(2006, 1, 1, 14)});
    store::InsertRecs(s(), "insert into desiredshifttemp (sday,shift,preference) values(1,'Stale',1)");

    EditStaffnew w(s());
    ASSERT_TRUE(w.Load());
    EXPECT_EQ(w.Caption, "Add New Employee");
    EXPECT_TRUE(w.desiredShiftTab.desiredshiftgrid.empty());

    EXPECT_FALSE(w.adddesiredshiftbutton());
    EXPECT_EQ(ui.messages.back().text,
              "You must select a primary position for an employee before you can add desired shifts.");
    EXPECT_EQ(ui.messages.back().title, "Add New Employee");

    w.fname = "Ann";
    w.LName = "O'Lee";
    w.PositionCombo.select("Cook");
    w.doh = "11/2/2026";
    w.hoursperweek = "32";
    w.fieldChanged("fname");

    auto shift = w.adddesiredshiftbutton();
    ASSERT_TRUE(shift);
    EXPECT_EQ(shift->PositionCombo.text(), "Cook");
    shift->daycombo.select("Tuesday");
    shift->shiftCombo.select("Morning");
    shift->preferenceslider = 8;
    shift->preferencesliderChange();
    ASSERT_TRUE(shift->OKbutton());

    auto qual = w.addqualificationbutton();
    ASSERT_TRUE(qual);
    qual->positioncombo.select("Server");
    qual->hourlyrate = "9.5";
    qual->hourlyrateLostFocus();
    EXPECT_EQ(qual->hourlyrate, "$9.50");
    ASSERT_TRUE(qual->OKbutton());

    auto leave = w.addleavebutton();
    ASSERT_TRUE(leave);
    EXPECT_EQ(leave->maxDays(), 14);
    leave->enddate = leave->startdate.addDays(1);
    leave->enddateChange();
    ASSERT_TRUE(leave->Command1());

    w.availabilityTab.daybutton(0);
    ASSERT_TRUE(w.RefreshTabs());
    EXPECT_EQ(w.desiredShiftTab.desiredshiftgrid.size(), 1u);
    EXPECT_EQ(w.leaveTab.leavegrid.size(), 1u);

    ASSERT_TRUE(w.Save());
    const long id = w.newPersonid();
    ASSERT_GT(id, kSam);
    EXPECT_EQ(personField(id, {"primpos", "hoursperweek", "hourlyrate", "doh"}), "Cook | 32 |  | 11/02/2026");
    EXPECT_EQ(personField(kSam, {"doh"}), "01/02/2026");
    // The desired shift keeps the preference; its position stays empty.
    EXPECT_EQ(column("select sday || '/' || preference || '/' || ifnull(position, '<null>') from desiredshift "
                     "where personid=?",
                     {id}),
              Rows{"3/8/<null>"});
    EXPECT_EQ(column("select lname || '/' || position || '/' || hourlyrate from qualifications where personid=?", {id}),
              Rows{"O'Lee/Server/9.50"});
    EXPECT_EQ(column("select fullname from employeeleave where personid=?", {id}), (Rows{"O'Lee, Ann", "O'Lee, Ann"}));
    EXPECT_EQ(column("select houravail from availability where personid=? and sday='Sunday'", {id}),
              Rows{std::string(24, 'N')});
    EXPECT_EQ(count("availability", id), 7u);
    EXPECT_TRUE(w.QueryUnload());
    EXPECT_EQ(ui.messages.size(), 1u);
}

TEST_F(EmployeesTest, LeavingWithUnsavedWorkAsks) {
    auto w = openEditor(kSam);
    EXPECT_TRUE(w->QueryUnload());
    w->phone = "555-0199";
    w->fieldChanged("phone");
    ui.answer(MsgAnswer::No);
    EXPECT_TRUE(w->QueryUnload());
    EXPECT_EQ(ui.messages.back().text, "Would you like to save the changes for Sam Sample?");
    EXPECT_EQ(personField(kSam, {"phone"}), "555-0100");
    EXPECT_TRUE(w->QueryUnload());
    EXPECT_EQ(personField(kSam, {"phone"}), "555-0199");

    EditStaffnew n(s());
    ASSERT_TRUE(n.Load());
    EXPECT_TRUE(n.QueryUnload());
    n.fname = "Ann";
    n.LName = "Lee";
    n.fieldChanged("LName");
    ui.answer(MsgAnswer::No);
    EXPECT_TRUE(n.QueryUnload());
    EXPECT_EQ(ui.messages.back().text, "Would you like create the employee Ann Lee?");
    EXPECT_TRUE(n.QueryUnload());
    EXPECT_EQ(column("select fname from person where lname='Lee'"), Rows{"Ann"});
}

TEST_F(EmployeesTest, ChoosingAnotherEmployeeInTheListMovesTheWindow) {
    const long ann = addPerson("Ann", "Lee");
    auto w = openEditor(kSam);
    ASSERT_EQ(w->List1.items, (Rows{"Lee, Ann", "Sample, Sam"}));
    EXPECT_EQ(w->List1.ListIndex, 1);
    w->zip = "00000";
    w->fieldChanged("zip");
    w->List1.ListIndex = 0;
    ui.answer(MsgAnswer::No);
    ASSERT_TRUE(w->List1Click());
    EXPECT_EQ(s().currentEmployee, ann);
    EXPECT_EQ(w->Caption, "Edit Employee - Ann Lee");
    EXPECT_EQ(w->zip, "");
    EXPECT_EQ(personField(kSam, {"zip"}), "62701");
}

TEST_F(EmployeesTest, NamesWithApostrophes) {
    AddStaff quick(s());
    quick.fname = "D'Arcy";
    quick.LName = "O'Brien";
    ASSERT_TRUE(quick.OKButton());
    const long id = s().currentEmployee;
    EXPECT_EQ(personField(id, {"lname"}), "O'Brien");
    addDependents(id, "O'Brien", "D'Arcy");

    PersonListFrm list(s());
    list.Refresh();
    list.row = 0;
    ASSERT_EQ(list.grid1[0].LastName, "O'Brien");
    ASSERT_TRUE(list.editbutton());
    EXPECT_EQ(s().currentEmployee, id);

    auto w = openEditor(id);
    w->LName = "O'Neil";
    w->fieldChanged("LName");
    ASSERT_TRUE(w->Save());
    EXPECT_EQ(column("select fullname from employeeleave where personid=?", {id}), Rows{"O'Neil, D'Arcy"});
    EXPECT_EQ(column("select lname from qualifications where personid=?", {id}), Rows{"O'Neil"});
}

TEST_F(EmployeesTest, PictureIsChosenStoredAndCleared) {
    auto w = openEditor(kSam);
    EXPECT_EQ(w->picturePath(), s().programFolder + "/blankpic.bmp");
    ui.nextFile(std::nullopt);
    EXPECT_FALSE(w->picturebutton());
    ui.nextFile("/pictures/sam.jpg");
    ASSERT_TRUE(w->picturebutton());
    EXPECT_EQ(personField(kSam, {"picfile"}), "/pictures/sam.jpg");
    EXPECT_EQ(w->picturePath(), "/pictures/sam.jpg");
    EXPECT_EQ(reference::picturewindowCaption(w->picturePath(), true), "Viewer [/pictures/sam.jpg]");
    EXPECT_EQ(reference::picturewindowCaption(w->picturePath(), false), "Viewer [Invalid picture]");
    ASSERT_TRUE(w->clearbutton());
    EXPECT_EQ(personField(kSam, {"picfile"}), "");
    EXPECT_EQ(w->picturePath(), s().programFolder + "/blankpic.bmp");
}

TEST_F(EmployeesTest, FindEmployeeEntries) {
    addEntry(kSam, "Sample", "Sam", "Week A", Date::fromYmd(2026, 11, 24));
    addEntry(kSam, "Sample", "Sam", "Week B", Date::fromYmd(2026, 11, 23));
    addEntry(kSam, "Sample", "Sam", "*undo*", Date::fromYmd(2026, 11, 23));
    addEntry(kSam, "Sample", "Sam", "Week B", Date::fromYmd(2026, 12, 23));
    store::InsertRecs(s(), "insert into schedname (schedname) values('Week B')");
    store::InsertRecs(s(), "insert into schedname (schedname) values('Week A')");

    reference::queryemployee q(s());
    ASSERT_TRUE(q.Load());
    EXPECT_EQ(q.schedulecombo.items, (Rows{"All", "Week A", "Week B"}));
    q.personcombo.select("Sample, Sam");
    q.startdate.reset();
    EXPECT_FALSE(q.searchbutton());
    q.startdate = Date::fromYmd(2026, 11, 30);
    q.enddate.reset();
    EXPECT_FALSE(q.searchbutton());
    q.enddate = Date::fromYmd(2026, 11, 1);
    EXPECT_FALSE(q.searchbutton());
    EXPECT_EQ(ui.texts(), (Rows{"Please enter a start date.", "Please enter an end date.",
                                "Start date must be greater than end date."}));

    q.startdate = Date::fromYmd(2026, 11, 1);
    q.enddate = Date::fromYmd(2026, 11, 30);
    ASSERT_TRUE(q.searchbutton());
    ASSERT_EQ(q.grid1.size(), 2u);
    EXPECT_EQ(q.grid1[0].Schedule, "Week B");
    EXPECT_EQ(q.grid1[0].Date, "11/23/2026");
    EXPECT_EQ(q.grid1[0].StartTime, "09:00 AM");
    EXPECT_EQ(q.grid1[1].Schedule, "Week A");
    EXPECT_EQ(q.heading, "Schedule Entries for Sam Sample from 11/1/2026 to 11/30/2026");

    q.schedulecombo.select("Week A");
    ASSERT_TRUE(q.searchbutton());
    ASSERT_EQ(q.grid1.size(), 1u);
    EXPECT_EQ(q.grid1[0].Date, "11/24/2026");
}

}  // namespace
}  // namespace tallymere::testing

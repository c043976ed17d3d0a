// Each action of the reference windows that writes several rows is all or nothing: whichever of its
// statements fails, the file is left as it was and the user is told that nothing was saved.

#include "reference/edit_staff.h"
#include "reference/edit_staff_new.h"
#include "reference/leave.h"
#include "reference/person_list.h"
#include "reference/position_windows.h"
#include "reference/schedule_files.h"
#include "reference/section_windows.h"
#include "reference/settings.h"
#include "reference/shift_windows.h"
#include "store/database.h"
#include "support/test_database.h"

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <optional>
#include <string>

namespace tallymere::testing {
namespace {

namespace fs = std::filesystem;
using common::Date;
using common::DateTime;
using store::DbError;
using store::DbErrorKind;

constexpr long kSam = 1;  // the template's sample employee
constexpr const char* kNothingSaved = "None of this change was saved: the data is as it was before.";

class OneActionOneTransactionTest : public DatabaseTest {
protected:
    void SetUp() override {
        DatabaseTest::SetUp();
        const Date day = Date::fromYmd(2026, 11, 23);
        for (const auto& [sql, params] : std::initializer_list<std::pair<const char*, store::Params>>{
                 {"insert into shift (name,strttime,endtime) values('Day',?,?)",
                  {DateTime::fromParts(2006, 1, 1, 9), DateTime::fromParts(2006, 1, 1, 17)}},
                 {"insert into position (title,baserate) values('Cook','9')", {}},
                 {"insert into section (name) values('Kitchen')", {}},
                 {"insert into schedname (schedname,comment) values('W','week')", {}},
                 {"insert into sched (personid,lname,fname,sday,strttime,endtime,position,shift,section,sname) "
                  "values(1,'Sample','Sam',?,?,?,'Cook','Day','Kitchen','W')",
                  {day, DateTime::at(day, 9), DateTime::at(day, 17)}},
                 {"insert into daynote (sday,dailysales,sname) values(?,1200,'W')", {day}},
                 {"insert into scheddefault (personid,daynum,position,shift,section) "
                  "values(1,1,'Cook','Day','Kitchen')",
                  {}},
                 {"insert into staffing (sday,shift,position,sname,numreq) values(2,'Day','Cook','W',3)", {}},
                 {"insert into desiredshift (personid,sday,shift,position) values(1,2,'Day','Cook')", {}},
                 {"insert into qualifications (personid,lname,fname,position,hourlyrate) "
                  "values(1,'Sample','Sam','Cook','9')",
                  {}},
                 {"insert into availability (personid,lname,fname,sday,houravail) values(1,'Sample','Sam','Monday',?)",
                  {std::string(24, 'Y')}},
                 {"update person set primpos='Cook' where personid=1", {}},
             }) {
            ASSERT_TRUE(store::InsertRecs(s(), sql, params)) << sql;
        }
        for (int d = 1; d <= 3; ++d)
            ASSERT_TRUE(store::InsertRecs(
                s(),
                "insert into employeeleave (personid,fullname,typeofleave,sday) values(1,'Sample, Sam','Vacation',?)",
                {Date::fromYmd(2026, 12, d)}));
        store::CloseDB(s());
        std::ifstream in(s().DatabasePath(), std::ios::binary);
        seeded_.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }

    // Every row of every table, as text.
    std::string snapshot() {
        std::string out;
        for (auto tables = store::GetRecs(s(), "select name from sqlite_master where type='table' order by name");
             !tables.eof(); tables.MoveNext()) {
            const std::string table = tables["name"].text();
            out += "[" + table + "]\n";
            for (auto rs = store::GetRecs(s(), "select * from " + table); !rs.eof(); rs.MoveNext()) {
                for (std::size_t c = 0; c < rs.columns().size(); ++c) {
                    const auto f = rs.field(rs.position(), c);
                    out += (f.isNull() ? "<null>" : f.text()) + "|";
                }
                out += "\n";
            }
        }
        return out;
    }

    // The seeded file again, with a fresh session state.
    void restore() {
        store::db(s()).setFaultInjector(nullptr);
        store::CloseDB(s());
        std::ofstream(s().DatabasePath(), std::ios::binary | std::ios::trunc) << seeded_;
        ASSERT_TRUE(store::ConnectDB(s()));
        s().currentSchedule = "W";
        s().currentEmployee = kSam;
        s().ExitNow = false;
        ui.clear();
    }

    // Runs `act` (after `prepare`, which sets its window up) once for each statement it writes,
    // failing that one statement: nothing of the action may remain, the user is told so, and `act`
    // reports the failure.
    void expectAllOrNothing(const std::string& what, const std::function<void()>& prepare,
                            const std::function<bool()>& act) {
        SCOPED_TRACE(what);
        restore();
        prepare();
        int writes = 0;
        store::db(s()).setFaultInjector([&](std::string_view op, std::string_view) -> std::optional<DbError> {
            if (op == "execute" || op == "executeOwn") ++writes;
            return std::nullopt;
        });
        const std::string untouched = snapshot();
        EXPECT_TRUE(act());
        EXPECT_NE(snapshot(), untouched) << "the action changes nothing";
        ASSERT_GT(writes, 1) << "not an action of several statements";

        for (int failing = 1; failing <= writes; ++failing) {
            SCOPED_TRACE("failing statement " + std::to_string(failing));
            restore();
            prepare();
            const std::string before = snapshot();
            int n = 0;
            store::db(s()).setFaultInjector([&](std::string_view op, std::string_view) -> std::optional<DbError> {
                if ((op == "execute" || op == "executeOwn") && ++n == failing)
                    return DbError{DbErrorKind::Other, 1, "disk full"};
                return std::nullopt;
            });
            const bool ok = act();
            store::db(s()).setFaultInjector(nullptr);
            EXPECT_FALSE(ok);
            EXPECT_EQ(snapshot(), before);
            EXPECT_TRUE(ui.shown(kNothingSaved));
        }
    }

    std::string seeded_;
};

TEST_F(OneActionOneTransactionTest, RenamesOfShiftsPositionsSectionsAndScheduleFilesWithTheirRows) {
    expectAllOrNothing(
        "position rename", [] {},
        [&] {
            reference::positionedit w(s(), "Cook");
            w.title = "Chef";
            return w.ok();
        });
    expectAllOrNothing(
        "section rename", [] {},
        [&] {
            reference::groupedit w(s(), "Kitchen");
            w.name = "Galley";
            return w.ok();
        });
    expectAllOrNothing(
        "shift rename", [] {},
        [&] {
            reference::EditShift w(s(), "Day");
            w.name = "Early";
            return w.ok();
        });
    expectAllOrNothing(
        "schedule file rename", [] {},
        [&] {
            const long id = store::GetRecs(s(), "select id from schedname where schedname='W'")["id"].toLong();
            reference::opennew w(s(), id);
            w.schedname = "Week";
            return w.Command1_Click();
        });
    std::unique_ptr<reference::SaveAs> saveAs;
    expectAllOrNothing(
        "save as", [&] { saveAs = std::make_unique<reference::SaveAs>(s()); },
        [&] {
            saveAs->schedname = "Copy of W";
            return saveAs->OKButton_Click();
        });
}

TEST_F(OneActionOneTransactionTest, DeletesTakeTheirRowsWithThemOrNothing) {
    expectAllOrNothing(
        "employee delete", [] {}, [&] { return reference::DeleteEmployee(s(), kSam, "Sam", "Sample"); });
    expectAllOrNothing(
        "shift delete", [] {},
        [&] {
            reference::settings w(s(), reference::settings::ShiftsTab);
            return w.deleteShift();
        });
    expectAllOrNothing(
        "position delete", [] {},
        [&] {
            reference::settings w(s(), reference::settings::PositionsTab);
            return w.deletePosition();
        });
    std::unique_ptr<reference::deletesched> files;
    expectAllOrNothing(
        "schedule file delete",
        [&] {
            files = std::make_unique<reference::deletesched>(s());
            files->List1_Click(0);
        },
        [&] {
            files->deletebutton_Click();
            return s().currentSchedule.empty();
        });
    std::unique_ptr<reference::Openfrm> open;
    expectAllOrNothing(
        "schedule file delete from the open window",
        [&] {
            open = std::make_unique<reference::Openfrm>(s());
            open->List1_Click(0);
        },
        [&] {
            open->deletebutton_Click();
            return s().currentSchedule.empty();
        });
    expectAllOrNothing(
        "leave range delete", [] {},
        [&] {
            reference::LeaveTab t(s(), false);
            t.Refresh(kSam);
            t.row = 0;
            return t.deleteleavebutton(kSam);
        });
}

TEST_F(OneActionOneTransactionTest, EmployeeSavesAndLeaveRangesAreWrittenWhole) {
    std::unique_ptr<reference::EditStaff> edit;
    expectAllOrNothing(
        "employee save with a new name",
        [&] {
            edit = std::make_unique<reference::EditStaff>(s());
            ASSERT_TRUE(edit->Load());
            edit->fname = "Samuel";
            edit->fieldChanged("fname");
            edit->city = "Dayton";
            edit->fieldChanged("city");
            edit->doh = "11/02/2026";
            edit->fieldChanged("doh");
        },
        [&] { return edit->Save(); });
    // The window still holds what was typed and can save it again.
    EXPECT_TRUE(edit->dirty());
    EXPECT_EQ(edit->Caption, "Edit Employee - Sam Sample");

    std::unique_ptr<reference::EditStaffnew> added;
    expectAllOrNothing(
        "new employee",
        [&] {
            added = std::make_unique<reference::EditStaffnew>(s());
            ASSERT_TRUE(added->Load());
            added->fname = "Ann";
            added->LName = "Lee";
            added->fieldChanged("LName");
            added->hourlyrate = "11";
            added->fieldChanged("hourlyrate");
            ASSERT_TRUE(store::InsertRecs(s(),
                                          "insert into qualificationstemp (position,hourlyrate,slevel) "
                                          "values('Cook','9',2)"));
            ASSERT_TRUE(store::InsertRecs(s(),
                                          "insert into employeeleavetemp (fullname,typeofleave,sday) "
                                          "values('Lee, Ann','Vacation',?)",
                                          {Date::fromYmd(2026, 12, 9)}));
        },
        [&] { return added->Save(); });
    EXPECT_EQ(added->newPersonid(), 0);

    expectAllOrNothing(
        "leave range", [] {},
        [&] {
            reference::employeeleaveedit w(s(), {kSam, "Sample", "Sam", "Cook"});
            w.Load();
            w.startdate = Date::fromYmd(2026, 12, 10);
            w.enddate = Date::fromYmd(2026, 12, 12);
            return w.Command1();
        });
}

}  // namespace
}  // namespace tallymere::testing

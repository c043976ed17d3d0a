#pragma once
// The command line run in-process on a fresh database from the template, with the schedule file
// "Week 1" in it: what it printed, what it returned, and the rows it left.

#include "cli/cli.h"
#include "support/table_rows.h"
#include "support/test_database.h"

#include <sstream>
#include <string>
#include <vector>

namespace tallymere::testing {

class CliTest : public DatabaseTest {
protected:
    static inline const common::Date kMonday = common::Date::fromYmd(2026, 11, 23);

    void SetUp() override {
        DatabaseTest::SetUp();
        ASSERT_TRUE(store::InsertRecs(s(), "insert into schedname (schedname) values('Week 1')"));
    }

    // Runs on the test's database; `--db` comes first unless the test gives its own.
    int cli(std::vector<std::string> args, bool withDb = true) {
        if (withDb) args.insert(args.begin(), {"--db", s().DatabasePath()});
        out.str("");
        err.str("");
        cli::Environment env{cliSettings, platform, clock, {}, templatePath().parent_path().string(), password};
        return cli::run(args, out, err, env);
    }

    long addPerson(const std::string& lname, const std::string& primpos, const std::string& hoursPerWeek = "40") {
        EXPECT_TRUE(store::InsertRecs(s(),
                                      "insert into person (lname,fname,primpos,active,hoursperweek) values(?,?,?,1,?)",
                                      {lname, "A", primpos, hoursPerWeek}));
        return lastId(s(), "person", "personid");
    }
    long addUnassigned(common::Date day, int fromHour, int toHour, const std::string& position,
                       const std::string& sname = "Week 1") {
        EXPECT_TRUE(store::InsertRecs(
            s(),
            "insert into sched (personid,lname,fname,sday,strttime,endtime,position,shift,sname)"
            " values(-1,'**Unassigned**','',?,?,?,?,'Day',?)",
            {day, common::DateTime::at(day, fromHour), common::DateTime::at(day, toHour), position, sname}));
        return lastId(s(), "sched", "schedid");
    }
    // Every row of the tables a command may change, as text: equal before and after means untouched.
    std::string rowsOf(const std::vector<std::string>& tables = {"sched", "options", "scheddefault", "schedname"}) {
        std::string all;
        for (const std::string& t : tables) {
            const auto rs = store::GetRecs(s(), "select * from " + t);
            for (const auto& row : rs.rows()) {
                for (const auto& v : row) all += v.toText() + "|";
                all += "\n";
            }
        }
        return all;
    }

    common::MemoryUserSettings cliSettings;
    common::PlainPlatform platform;
    std::optional<std::string> password;
    std::ostringstream out;
    std::ostringstream err;
};

}  // namespace tallymere::testing

// The real tallymere-cli on a generated business: a week of open entries over three positions, with
// weekly hours, availability, leave, a second qualification and desired shifts. Its result must be
// the automatic scheduler's own, run in-process on a copy of the same file.

#include "autosched/headless.h"
#include "store/options.h"
#include "support/table_rows.h"
#include "support/test_database.h"

#include <sys/wait.h>
#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

namespace tallymere::testing {
namespace {

namespace fs = std::filesystem;
using common::Date;
using common::DateTime;

const Date kMonday = Date::fromYmd(2026, 11, 23);

std::string slurp(const fs::path& p) {
    std::ifstream in(p, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

class GeneratedBusiness : public DatabaseTest {
protected:
    void SetUp() override {
        DatabaseTest::SetUp();
        ASSERT_TRUE(store::InsertRecs(s(), "insert into schedname (schedname) values('Week 1')"));
        const char* positions[] = {"Cook", "Server", "Host"};
        const char* hours[] = {"40", "32", "24", "16", "40"};
        for (int i = 0; i < 15; ++i) {
            const std::string position = positions[i % 3];
            ASSERT_TRUE(
                store::InsertRecs(s(), "insert into person (lname,fname,primpos,active,hoursperweek) values(?,?,?,1,?)",
                                  {"Staff" + std::to_string(i), "N" + std::to_string(i), position, hours[i % 5]}));
            const long id = lastId(s(), "person", "personid");
            if (i % 4 == 1) {  // mornings only on Tuesdays
                ASSERT_TRUE(store::InsertRecs(s(), "insert into availability (personid,sday,houravail) values(?,?,?)",
                                              {id, "Tuesday", std::string(13, 'Y') + std::string(11, 'N')}));
            }
            if (i % 5 == 2) {
                ASSERT_TRUE(store::InsertRecs(
                    s(), "insert into employeeleave (personid,fullname,typeofleave,sday) values(?,'x','Vacation',?)",
                    {id, kMonday.addDays(2)}));
            }
            if (i % 3 == 1 && i < 6) {
                ASSERT_TRUE(
                    store::InsertRecs(s(), "insert into qualifications (personid,position) values(?,'Host')", {id}));
            }
            if (i % 6 == 0) {
                ASSERT_TRUE(store::InsertRecs(
                    s(), "insert into desiredshift (personid,sday,shift,position) values(?,?,'Late','')",
                    {id, (i / 6) % 7 + 1}));
            }
        }
        // Every day: two cooks, three servers, one host, early and late.
        for (int d = 0; d < 7; ++d) {
            const Date day = kMonday.addDays(d);
            const auto entry = [&](const char* position, int from, int to, const char* shift) {
                ASSERT_TRUE(store::InsertRecs(s(),
                                              "insert into sched (personid,lname,fname,sday,strttime,endtime,position,"
                                              "shift,sname) values(-1,'**Unassigned**','',?,?,?,?,?,'Week 1')",
                                              {day, DateTime::at(day, from), DateTime::at(day, to), position, shift}));
            };
            entry("Cook", 6, 14, "Early");
            entry("Cook", 14, 22, "Late");
            entry("Server", 7, 15, "Early");
            entry("Server", 11, 19, "Middle");
            entry("Server", 15, 23, "Late");
            entry("Host", 16, 22, "Late");
        }
        store::CloseDB(s());
    }

    // schedid -> personid of every entry of the week.
    static std::map<long, long> assignments(common::Session& session) {
        std::map<long, long> out;
        for (auto rs = store::GetRecs(session, "select schedid, personid from sched order by schedid"); !rs.eof();
             rs.MoveNext())
            out[static_cast<long>(rs["schedid"].toLong())] = static_cast<long>(rs["personid"].toLong());
        return out;
    }
};

TEST_F(GeneratedBusiness, AutofillOfAWeekFromTheCommandLineIsTheSchedulersOwnResult) {
    // The same file, filled in-process by the scheduler's model.
    TempFolder referenceFolder;
    fs::copy_file(s().DatabasePath(), referenceFolder.path() / "Tallymere.db");
    FakeUi referenceUi;
    common::MemoryUserSettings referenceSettings;
    common::Session reference(referenceUi, referenceSettings, clock);
    reference.setDataFolder(referenceFolder.str());
    ASSERT_TRUE(store::ConnectDB(reference));
    ASSERT_TRUE(store::getoptions(reference));
    const auto expected = autosched::runAutoFill(reference, kMonday.addDays(3), "Week 1", autosched::FillMode::Week);
    ASSERT_TRUE(expected.ran);

    // The executable, in a home of its own so that no user's settings take part.
    const fs::path home = folder.path() / "home";
    fs::create_directories(home);
    const fs::path outFile = folder.path() / "out.csv", errFile = folder.path() / "err.txt";
    const std::string command = "HOME='" + home.string() + "' XDG_CONFIG_HOME='" + home.string() + "' '" +
                                TALLYMERE_CLI_PATH + "' --db '" + s().DatabasePath() +
                                "' autofill --date 2026-11-26 --schedule 'Week 1' --mode Week --explain >'" +
                                outFile.string() + "' 2>'" + errFile.string() + "'";
    const int status = std::system(command.c_str());
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0) << slurp(errFile);

    ASSERT_TRUE(store::ConnectDB(s()));
    const std::map<long, long> got = assignments(s());
    EXPECT_EQ(got, assignments(reference));
    const long filled =
        static_cast<long>(std::count_if(got.begin(), got.end(), [](auto& e) { return e.second != -1; }));
    EXPECT_GT(filled, 30);  // most of the 42 entries find someone

    // The finishing message, line by line, on the error stream.
    std::string message = expected.message;
    for (std::size_t p; (p = message.find("\r\n")) != std::string::npos;) message.replace(p, 2, "\n");
    EXPECT_NE(slurp(errFile).find(message + "\n"), std::string::npos) << slurp(errFile);

    // The explanation: one assigned row per filled entry, naming whom the file now holds.
    std::istringstream csv(slurp(outFile));
    std::string line;
    std::getline(csv, line);
    EXPECT_EQ(line, "entry,date,start,end,shift,position,assigned,phase,candidate,reason\r");
    std::set<long> explainedFilled;
    std::size_t rows = 0;
    while (std::getline(csv, line)) {
        ++rows;
        if (line.find(",assigned\r") == std::string::npos) continue;
        explainedFilled.insert(std::stol(line.substr(0, line.find(','))));
    }
    EXPECT_EQ(rows, expected.explanation.size());
    EXPECT_EQ(static_cast<long>(explainedFilled.size()), filled);
    for (const long id : explainedFilled) EXPECT_NE(got.at(id), -1) << id;
}

}  // namespace
}  // namespace tallymere::testing

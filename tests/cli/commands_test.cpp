// Each command drives its window's model with the choices of the line, and its status says how the
// operation ended.

#include "cli_test.h"
#include "common/text.h"
#include "store/options.h"

#include <fstream>

namespace tallymere::testing {
namespace {

bool has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

class CliCommands : public CliTest {
protected:
    std::string personOf(long schedid) {
        return column(s(), "select lname from sched where schedid=?", {schedid}).at(0);
    }
    long countIn(const std::string& sql, const store::Params& params = {}) {
        return static_cast<long>(store::GetRecs(s(), sql, params)["n"].toLong());
    }
};

TEST_F(CliCommands, AutofillRefusesAScheduleFileThatIsNotThere) {
    addPerson("Baker", "Cook");
    addUnassigned(kMonday, 9, 17, "Cook", "Week 2");
    const std::string before = rowsOf();
    EXPECT_EQ(cli({"autofill", "--date", "2026-11-23", "--schedule", "Week 2"}), 1);
    EXPECT_TRUE(has(err.str(), "There is no schedule file named 'Week 2'."));
    EXPECT_EQ(rowsOf(), before);
}

TEST_F(CliCommands, AutofillUsesTheFilesSettingsWithTheRunsOverrides) {
    addPerson("Baker", "Cook", "0");  // no weekly hours: never chosen while they are enforced
    const long entry = addUnassigned(kMonday, 9, 17, "Cook");

    EXPECT_EQ(cli({"autofill", "--date", "2026-11-23", "--schedule", "Week 1"}), 0);
    EXPECT_EQ(personOf(entry), "**Unassigned**");
    EXPECT_TRUE(has(err.str(), "0  schedule entries were filled.")) << err.str();

    EXPECT_EQ(cli({"autofill", "--date", "2026-11-23", "--schedule", "Week 1", "--set", "gb_AutoEnforceWeeklyHrs=No"}),
              0);
    EXPECT_EQ(personOf(entry), "Baker");
    EXPECT_TRUE(has(err.str(), "All **Unassigned** schedule entries were filled.")) << err.str();
    // For the run only: the file keeps its own value.
    EXPECT_NE(common::toUpper(store::GetOption(s(), "gb_AutoEnforceWeeklyHrs")), "FALSE");
}

TEST_F(CliCommands, AutofillTakesTheWindowsDefaultsForDateScheduleAndMode) {
    addPerson("Baker", "Cook");
    addPerson("Cole", "Cook");
    const long today = addUnassigned(kMonday, 9, 17, "Cook");  // the test clock's day
    const long tuesday = addUnassigned(kMonday.addDays(1), 9, 17, "Cook");
    store::SaveOption(s(), "currentschedule", "Week 1");

    EXPECT_EQ(cli({"autofill", "--mode", "Day"}), 0);
    EXPECT_NE(personOf(today), "**Unassigned**");
    EXPECT_EQ(personOf(tuesday), "**Unassigned**");

    // The file says Week, so the whole week is filled.
    store::SaveOption(s(), "gs_AutoFillDayWeek", "Week");
    EXPECT_EQ(cli({"autofill"}), 0);
    EXPECT_NE(personOf(tuesday), "**Unassigned**");
}

TEST_F(CliCommands, AutofillExplainsEachEntryAsALoadableList) {
    addPerson("Baker", "Cook", "0");
    addPerson("Cole", "Cook");
    addUnassigned(kMonday, 9, 17, "Cook");
    EXPECT_EQ(cli({"autofill", "--date", "2026-11-23", "--schedule", "Week 1", "--explain"}), 0);
    const std::string csv = out.str();
    EXPECT_EQ(csv.rfind("entry,date,start,end,shift,position,assigned,phase,candidate,reason\r\n", 0), 0u) << csv;
    EXPECT_TRUE(has(csv, ",2026-11-23,09:00,17:00,Day,Cook,\"Cole, A\",balanced,\"Baker, A\",weekly hours\r\n")) << csv;
    EXPECT_TRUE(has(csv, ",\"Cole, A\",balanced,\"Cole, A\",assigned\r\n")) << csv;

    addUnassigned(kMonday, 18, 22, "Cook");
    EXPECT_EQ(cli({"--format", "tsv", "autofill", "--date", "2026-11-23", "--schedule", "Week 1", "--explain"}), 0);
    EXPECT_EQ(out.str().rfind("entry\tdate\tstart\tend\tshift\tposition\tassigned\tphase\tcandidate\treason\n", 0), 0u);
    EXPECT_TRUE(has(out.str(), "\t18:00\t22:00\t")) << out.str();
}

TEST_F(CliCommands, RebuildAsksFirstAndTheAnswerComesFromTheLine) {
    const long baker = addPerson("Baker", "Cook");
    const long entry = addUnassigned(kMonday, 9, 17, "Cook");
    ASSERT_TRUE(store::UdateRecs(s(), "update sched set personid=?, lname='Baker' where schedid=?", {baker, entry}));
    const std::string before = rowsOf();
    const std::vector<std::string> args{"rebuild", "--date", "2026-11-23", "--schedule", "Week 1"};

    EXPECT_EQ(cli(args), 2);
    EXPECT_TRUE(has(err.str(), "The live schedule for Mon Nov 23, 2026 will be rebuilt. Continue?")) << err.str();
    EXPECT_EQ(rowsOf(), before);

    std::vector<std::string> no = args;
    no.push_back("--no");
    EXPECT_EQ(cli(no), 1);
    EXPECT_EQ(rowsOf(), before);

    std::vector<std::string> yes = args;
    yes.push_back("--yes");
    EXPECT_EQ(cli(yes), 0);
    EXPECT_EQ(personOf(entry), "Baker");
    EXPECT_TRUE(has(err.str(), "All **Unassigned** schedule entries were filled.")) << err.str();
}

TEST_F(CliCommands, DefaultScheduleIsSavedAndLaidOverAnotherWeek) {
    const long baker = addPerson("Baker", "Cook");
    const long entry = addUnassigned(kMonday, 9, 17, "Cook");
    ASSERT_TRUE(store::UdateRecs(s(), "update sched set personid=?, lname='Baker' where schedid=?", {baker, entry}));

    EXPECT_EQ(cli({"default", "save", "--date", "2026-11-23", "--schedule", "Week 1"}), 2);
    EXPECT_EQ(countIn("select count(*) as n from scheddefault"), 0);
    EXPECT_EQ(cli({"default", "save", "--date", "2026-11-23", "--schedule", "Week 1", "--weeks", "2", "--yes"}), 0);
    EXPECT_EQ(countIn("select count(*) as n from scheddefault"), 1);
    EXPECT_EQ(store::GetOption(s(), "gi_defaultschedlength"), "14");

    EXPECT_EQ(cli({"default", "apply", "--date", "2026-12-07", "--schedule", "Week 1", "--yes"}), 0);
    EXPECT_EQ(countIn("select count(*) as n from sched where sday=? and personid=?", {kMonday.addDays(14), baker}), 1);
}

TEST_F(CliCommands, CopyTakesTheCopyWindowsChoices) {
    addUnassigned(kMonday, 9, 17, "Cook");
    addUnassigned(kMonday, 22, 23, "Cook");
    const auto onTarget = [&] {
        return countIn("select count(*) as n from sched where sday=? and sname='Week 1'", {kMonday.addDays(7)});
    };
    // A copy names its two files.
    EXPECT_EQ(cli({"copy", "--schedule", "Week 1", "--from", "2026-11-23", "--to", "2026-11-30"}), 2);
    EXPECT_EQ(cli({"copy", "--from-schedule", "Week 1", "--to-schedule", "Week 1", "--from", "2026-11-23", "--to",
                   "2026-11-30", "--no"}),
              1);
    EXPECT_EQ(onTarget(), 0);
    EXPECT_EQ(cli({"copy", "--from-schedule", "Week 1", "--to-schedule", "Week 1", "--from", "2026-11-23", "--to",
                   "2026-11-30", "--yes"}),
              0);
    EXPECT_EQ(onTarget(), 2);
    EXPECT_TRUE(has(err.str(), "Copy completed"));
}

TEST_F(CliCommands, ExportWritesTheFileNamedOnTheLine) {
    const long baker = addPerson("Baker", "Cook");
    const long entry = addUnassigned(kMonday, 9, 17, "Cook");
    ASSERT_TRUE(
        store::UdateRecs(s(), "update sched set personid=?, lname='Baker', fname='A' where schedid=?", {baker, entry}));
    const std::string file = folder.str() + "/export.txt";
    EXPECT_EQ(cli({"export", "--from", "2026-11-23", "--to", "2026-11-29", "--schedule", "Week 1", "--sort", "EMPLOYEE",
                   "--out", file}),
              0);
    std::ifstream in(file, std::ios::binary);
    const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    EXPECT_EQ(text.rfind("EmpID, Last Name, First Name, Position, Day, StartTime, EndTime, Section\r\n", 0), 0u);
    EXPECT_TRUE(has(text, ",Baker,A,Cook,11/23/2026,")) << text;
}

}  // namespace
}  // namespace tallymere::testing

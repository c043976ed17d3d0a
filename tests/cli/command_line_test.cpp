// Bad usage is told clearly and stops before the file is touched; the file is found and opened as
// the program finds it, or the run ends with status 3.

#include "cli/command_line.h"
#include "cli/commands.h"
#include "cli/stop.h"
#include "cli_test.h"
#include "maintenance/password.h"
#include "store/options.h"

#include <fstream>

namespace tallymere::testing {
namespace {

bool has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

class CliUsage : public CliTest {
protected:
    void SetUp() override {
        CliTest::SetUp();
        // Something an autofill that ran by mistake would change.
        addPerson("Baker", "Cook", "0");
        addUnassigned(kMonday, 9, 17, "Cook");
        before = rowsOf();
    }
    void expectUsage(std::vector<std::string> args, const std::string& said) {
        SCOPED_TRACE(::testing::PrintToString(args));
        EXPECT_EQ(cli(std::move(args)), 2);
        EXPECT_TRUE(has(err.str(), said)) << err.str();
        EXPECT_EQ(out.str(), "");
        EXPECT_EQ(rowsOf(), before);
    }
    std::string before;
};

TEST_F(CliUsage, UnknownCommandsAndOptionsAreRefused) {
    expectUsage({"fly"}, "Unknown command 'fly'");
    expectUsage({"autofill", "--fast"}, "Unknown option --fast for autofill");
    expectUsage({"autofill", "Week"}, "autofill does not take 'Week'");
    expectUsage({"default"}, "default needs one of: save or apply.");
    expectUsage({"default", "load"}, "Unknown command 'default load'");
    expectUsage({"--yes", "--no", "autofill"}, "--yes and --no cannot both be given.");
    expectUsage({"export", "--out"}, "--out needs a value: FILE.");
    expectUsage({"copy", "--from", "2026-11-23"}, "copy needs --to YYYY-MM-DD.");
    expectUsage({}, "No command given.");
}

TEST_F(CliUsage, ValuesMustHaveTheirOptionsForm) {
    expectUsage({"autofill", "--date", "2026-02-30"}, "--date 2026-02-30 is not a date: write it as YYYY-MM-DD");
    expectUsage({"autofill", "--date=11/23/2026"}, "--date 11/23/2026 is not a date");
    expectUsage({"autofill", "--mode", "Month"}, "--mode Month: choose Day or Week.");
    expectUsage({"export", "--out", "x.txt", "--employee", "Sam"}, "--employee Sam is not a whole number.");
    expectUsage({"autofill", "--format", "xml"}, "--format xml: choose csv or tsv.");
}

TEST_F(CliUsage, SettingsAreCheckedAgainstTheirKeysType) {
    expectUsage({"--set", "gi_OvertimeThreshold=forty", "autofill", "--date", "2026-11-23"},
                "--set gi_OvertimeThreshold=forty: gi_OvertimeThreshold takes a whole number.");
    expectUsage({"autofill", "--set", "gi_OvertimeThreshold=40.5"}, "takes a whole number");
    expectUsage({"autofill", "--set", "gd_OvertimeFactor=lots"}, "gd_OvertimeFactor takes a number.");
    expectUsage({"autofill", "--set", "gb_NoOvertime=maybe"}, "gb_NoOvertime takes Yes, No, True or False.");
    expectUsage({"autofill", "--set", "gb_NoOvertime=1"}, "takes Yes, No, True or False.");
    expectUsage({"autofill", "--set", "gb_NoSuchThing=True"}, "there is no setting gb_NoSuchThing.");
    expectUsage({"autofill", "--set", "firstdayofweek=Mon"}, "the full English name of a weekday");
    expectUsage({"autofill", "--set", "gb_NoOvertime"}, "write it as KEY=VALUE");
}

TEST(SettingOverrides, TakeTheKeysSpellingAndTheValuesType) {
    const cli::SettingOverride o = cli::parseSettingOverride("GB_NOOVERTIME= yes ");
    EXPECT_EQ(o.key, "gb_NoOvertime");
    common::GlobalSettings g;
    cli::applySettingOverrides(
        g,
        {o, cli::parseSettingOverride("gi_OvertimeThreshold=32"), cli::parseSettingOverride("gd_OvertimeFactor=1.75"),
         cli::parseSettingOverride("firstdayofweek=monday"), cli::parseSettingOverride("gs_AutoFillDayWeek=Week")});
    EXPECT_TRUE(g.gb_NoOvertime);
    EXPECT_EQ(g.gi_OvertimeThreshold, 32);
    EXPECT_DOUBLE_EQ(g.gd_OvertimeFactor, 1.75);
    EXPECT_EQ(g.firstdayofweek, "Monday");
    EXPECT_EQ(g.gs_AutoFillDayWeek, "Week");
    cli::applySettingOverrides(g, {cli::parseSettingOverride("gb_NoOvertime=False")});
    EXPECT_FALSE(g.gb_NoOvertime);
}

TEST(CliHelp, ListsEveryCommandAndEachCommandsOptions) {
    const auto commands = cli::allCommands();
    const std::string list = cli::helpText(commands, "");
    for (const auto& c : commands) EXPECT_TRUE(has(list, "  " + c.name + " ")) << c.name;
    EXPECT_TRUE(has(list, "help [COMMAND]"));
    const std::string one = cli::helpText(commands, "autofill");
    for (const char* option : {"--date", "--schedule", "--mode Day|Week", "--explain"}) EXPECT_TRUE(has(one, option));
    EXPECT_TRUE(has(cli::helpText(commands, "default"), "default apply"));
    EXPECT_THROW(cli::helpText(commands, "fly"), cli::Stop);
}

TEST_F(CliUsage, ADatabaseThatIsNotThereIsNeverMade) {
    const std::string missing = folder.str() + "/elsewhere/Tallymere.db";
    EXPECT_EQ(cli({"--db", missing, "autofill"}, false), 3);
    EXPECT_TRUE(has(err.str(), "was not found"));
    EXPECT_FALSE(std::filesystem::exists(missing));

    // No --db and no data folder known on this machine.
    EXPECT_EQ(cli({"autofill"}, false), 3);
    EXPECT_TRUE(has(err.str(), "No data folder is known"));

    const std::string copy = folder.str() + "/copy.db";
    std::filesystem::copy_file(s().DatabasePath(), copy);
    EXPECT_EQ(cli({"--db", copy, "autofill"}, false), 3);
    EXPECT_TRUE(has(err.str(), "must be named Tallymere.db"));

    // A file whose name differs in case only is the one the program opens.
    TempFolder other;
    std::filesystem::copy_file(s().DatabasePath(), other.path() / "tallymere.DB");
    EXPECT_EQ(cli({"--db", other.str(), "autofill", "--schedule", "Nope"}, false), 1);
    EXPECT_TRUE(has(err.str(), "There is no schedule file named 'Nope'."));
}

TEST_F(CliUsage, AFileThatIsNoDatabaseCannotBeOpened) {
    TempFolder junkFolder;
    std::ofstream(junkFolder.path() / "Tallymere.db") << "not a database at all, just some text\n";
    EXPECT_EQ(cli({"--db", junkFolder.str(), "autofill"}, false), 3);
    EXPECT_NE(err.str(), "");
}

TEST_F(CliUsage, WithoutDbTheDataFolderOfTheUsersSettingsIsOpened) {
    cliSettings.set("DataLocation", folder.str());
    EXPECT_EQ(cli({"autofill", "--schedule", "Nope"}, false), 1);
    EXPECT_TRUE(has(err.str(), "There is no schedule file named 'Nope'."));
    EXPECT_EQ(rowsOf(), before);
}

TEST_F(CliUsage, AProtectedFileNeedsItsPassword) {
    store::SaveOption(s(), "passwordowner", maintenance::hashPassword("secret"));
    before = rowsOf();
    expectUsage({"autofill"}, "protected by a password");

    EXPECT_EQ(cli({"--password", "guess", "autofill"}), 3);
    EXPECT_TRUE(has(err.str(), "Please enter a valid password."));

    password = "secret";  // as TALLYMERE_PASSWORD gives it
    EXPECT_EQ(cli({"autofill", "--schedule", "Nope"}), 1);
    EXPECT_TRUE(has(err.str(), "There is no schedule file named 'Nope'."));
}

TEST_F(CliUsage, ReadingTheFilesSettingsLeavesNoTrace) {
    // The program's start counts itself and fills in missing rows; a command line run does not.
    ASSERT_TRUE(store::DeleteRecs(s(), "delete from options where optionname='gb_NoOvertime'"));
    before = rowsOf();
    EXPECT_EQ(cli({"export", "--schedule", "Week 1", "--from", "2026-11-01", "--to", "2026-11-01", "--out",
                   folder.str() + "/x.txt"}),
              1);
    EXPECT_TRUE(has(err.str(), "No scheduling data was found for the dates entered"));
    EXPECT_EQ(rowsOf(), before);
}

}  // namespace
}  // namespace tallymere::testing

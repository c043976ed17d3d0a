#include "shell/main_form.h"

#include "store/access.h"
#include "store/options.h"
#include "support/fake_main_form_host.h"
#include "support/fake_platform.h"
#include "support/other_connection.h"
#include "support/table_rows.h"
#include "support/test_database.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tallymere::testing {
namespace {

namespace fs = std::filesystem;
using common::Session;
using Rows = std::vector<std::string>;
using OptionRows = std::vector<std::pair<std::string, store::Value>>;

// A session of its own on the database of a folder, to arrange a file or to look into it.
struct Direct {
    explicit Direct(const std::string& folder) {
        s.setDataFolder(folder);
        EXPECT_TRUE(store::ConnectDB(s));
    }
    FakeUi ui;
    common::MemoryUserSettings settings;
    common::FixedClock clock{common::DateTime::fromParts(2026, 11, 23, 9, 0)};
    Session s{ui, settings, clock};
};

class StartupTest : public ::testing::Test {
protected:
    StartupTest() {
        fs::copy_file(templatePath(), program.path() / Session::kTemplateFileName);
        platform.commonDocuments = docs.str();
        fresh();
    }

    // A new process: its own session, main window and recordings.
    void fresh() {
        form.reset();
        session = std::make_unique<Session>(ui, userSettings, clock);
        session->setPlatform(platform);
        session->programFolder = program.str();
        host = FakeMainFormHost();
        form = std::make_unique<shell::MainForm>(*session, host);
        ui.clear();
        ui.modals.clear();
    }
    Session& s() { return *session; }

    std::string defaultFolder() const { return docs.str() + "/Quillbrook/Tallymere"; }
    std::string dataFolder() const { return data.str(); }

    // A database made from the template in `folder`, with these rows added to its options; a used one
    // has been started with before, so it shows no welcome.
    void placeDatabase(const std::string& folder, OptionRows options = {}, bool used = true) {
        fs::create_directories(folder);
        fs::copy_file(templatePath(), folder + "/" + Session::kDatabaseFileName, fs::copy_options::overwrite_existing);
        if (used) options.emplace_back("nrun", "5");
        Direct d(folder);
        for (const auto& [name, value] : options)
            store::InsertRecs(d.s, "insert into options (optionname,optionvalue) values(?,?)", {name, value});
    }
    // A start after earlier ones, with the data folder the user chose then.
    void laterStart(const std::string& folder) {
        userSettings.set("NumRun", "4");
        userSettings.set("DataLocation", folder);
    }
    Rows options(const std::string& folder) {
        Direct d(folder);
        return column(d.s, "select optionname || '=' || ifnull(optionvalue, '<null>') from options order by 1");
    }
    static std::string readBytes(const std::string& path) {
        std::ifstream in(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }
    bool hasDatabase(const std::string& folder) { return fs::exists(folder + "/" + Session::kDatabaseFileName); }
    // Records the engine operations of the session's database.
    void recordOperations() {
        store::db(s()).setFaultInjector([this](std::string_view op, std::string_view) {
            operations.emplace_back(op);
            return std::nullopt;
        });
    }
    long repairs() const { return std::count(operations.begin(), operations.end(), "repair"); }

    TempFolder program, docs, data, scratch;
    FakeUi ui;
    common::MemoryUserSettings userSettings;
    common::FixedClock clock{common::DateTime::fromParts(2026, 11, 23, 9, 0)};
    FakePlatform platform;
    FakeMainFormHost host;
    std::vector<std::string> operations;
    std::unique_ptr<Session> session;
    std::unique_ptr<shell::MainForm> form;
};

TEST_F(StartupTest, FirstStartMakesTheDatabaseFromTheTemplateWithoutAQuestionOrAPassword) {
    // A template that holds an owner password must still not ask on a first start.
    placeDatabase(scratch.str(), {{"passwordowner", "secret"}}, false);
    fs::copy_file(scratch.str() + "/Tallymere.db", program.path() / Session::kTemplateFileName,
                  fs::copy_options::overwrite_existing);
    fs::create_directories(defaultFolder());

    ASSERT_TRUE(form->Load());
    EXPECT_TRUE(hasDatabase(defaultFolder()));
    EXPECT_TRUE(fs::exists(defaultFolder() + "/Tallymere.bak"));
    EXPECT_EQ(userSettings.get("NumRun"), "1");
    EXPECT_EQ(userSettings.get("DataLocation"), defaultFolder());
    EXPECT_TRUE(s().PasswordPassed);
    // The only word is that no schedule is open; then the open window and the welcome.
    EXPECT_EQ(ui.texts(), Rows{"There is no schedule open."});
    EXPECT_EQ(ui.messages[0].icon, MsgIcon::Information);
    EXPECT_EQ(ui.modals, (Rows{"Openfrm", "firstrun"}));
    EXPECT_TRUE(host.called("show dailyflexgrid"));
    EXPECT_EQ(host.calls.back(), "splash off");
    EXPECT_FALSE(form->loading());
    EXPECT_EQ(store::GetOption(s(), "gs_versionnumber"), "3.1.4");
    EXPECT_EQ(store::GetOption(s(), "DateofLastRun"), "11/23/2026");
}

TEST_F(StartupTest, RemovedDataFolderFallsBackToTheDefaultOnYesAndLeavesOnNo) {
    placeDatabase(defaultFolder());
    const std::string gone = data.str() + "/gone";
    laterStart(gone);
    ui.answer(MsgAnswer::No);
    EXPECT_FALSE(form->Load());
    EXPECT_EQ(ui.texts().back(), "Without a schedule data file Tallymere cannot continue.");
    EXPECT_TRUE(s().ExitNow);
    EXPECT_EQ(userSettings.get("DataLocation"), gone);

    fresh();
    ASSERT_TRUE(form->Load());
    EXPECT_EQ(ui.messages[0].text, "The path " + gone +
                                       " was not found. \n\nWould you like to set the data location to "
                                       "the default path " +
                                       defaultFolder() + " ?");
    EXPECT_EQ(ui.messages[0].title, "Tallymere database could not be found");
    EXPECT_EQ(ui.messages[0].icon, MsgIcon::Exclamation);
    EXPECT_EQ(userSettings.get("DataLocation"), defaultFolder());
}

TEST_F(StartupTest, MissingDatabaseIsCreatedFromTheTemplateOnYesWhenThereIsOne) {
    laterStart(dataFolder());
    const fs::path templateFile = program.path() / Session::kTemplateFileName;
    fs::rename(templateFile, scratch.path() / "kept.tmx");
    EXPECT_FALSE(form->Load());
    EXPECT_EQ(ui.texts().back(), "Tallymere was unable to create a new schedule database. The program will exit.");
    EXPECT_TRUE(s().ExitNow);
    EXPECT_FALSE(hasDatabase(dataFolder()));

    fs::rename(scratch.path() / "kept.tmx", templateFile);
    fresh();
    ASSERT_TRUE(form->Load());
    EXPECT_TRUE(hasDatabase(dataFolder()));
    EXPECT_EQ(ui.messages[0].text, "The Tallymere database " + dataFolder() +
                                       "/Tallymere.db was not found. \n\n"
                                       "This special file contains all of the schedule information. Would you like to "
                                       "create a new schedule database?");
    EXPECT_EQ(ui.messages[1].text,
              "A new Tallymere.db database was created and placed in the " + dataFolder() + " directory.");
    EXPECT_EQ(ui.messages[1].title, "New schedule database created");
}

TEST_F(StartupTest, SecondCopyIsRefusedWithoutTouchingAnything) {
    platform.anotherCopy = true;
    fs::create_directories(defaultFolder());
    EXPECT_FALSE(form->Load());
    EXPECT_EQ(ui.texts(), Rows{"Tallymere is already running."});
    EXPECT_EQ(ui.messages[0].icon, MsgIcon::Information);
    EXPECT_TRUE(form->mnuFExit_Click());
    EXPECT_TRUE(fs::is_empty(defaultFolder()));
    EXPECT_EQ(userSettings.get("DataLocation"), "");
}

TEST_F(StartupTest, CancelledPasswordPromptWritesNoOptionAndAUserLoginTakesItsRights) {
    placeDatabase(dataFolder(), {{"passwordowner", "some hash"}, {"currentschedule", "Spring"}});
    laterStart(dataFolder());
    const Rows before = options(dataFolder());

    EXPECT_FALSE(form->Load());
    EXPECT_EQ(ui.modals, Rows{"enterpassword"});
    EXPECT_TRUE(s().ExitNow);
    EXPECT_FALSE(host.called("show dailyflexgrid"));
    EXPECT_TRUE(form->mnuFExit_Click());
    EXPECT_EQ(options(dataFolder()), before);

    // A user password instead: the rights it lacks leave the menus.
    fresh();
    ui.onModal("enterpassword", [this] { s().PasswordPassed = s().IsUserMode = s().rights.noPayroll = true; });
    ASSERT_TRUE(form->Load());
    EXPECT_FALSE(form->menuEnabled("mnupayrollestimator"));
    EXPECT_TRUE(form->menuEnabled("mnuweekly"));
}

TEST_F(StartupTest, ASharedFolderIsNeitherRepairedNorCopied) {
    placeDatabase(dataFolder(), {{"currentschedule", "Spring"}});
    // "//" names the same folder here, but reads as a share; so does a folder on a network file system.
    platform.networkFolders = {dataFolder()};
    for (const std::string& folder : {"/" + dataFolder(), dataFolder()}) {
        fresh();
        operations.clear();
        recordOperations();
        laterStart(folder);
        ASSERT_TRUE(form->Load()) << folder;
        EXPECT_EQ(repairs(), 0) << folder;
        EXPECT_FALSE(fs::exists(dataFolder() + "/Tallymere.bak")) << folder;
    }
    platform.networkFolders.clear();
    fresh();
    recordOperations();
    ASSERT_TRUE(form->Load());
    EXPECT_EQ(repairs(), 1);
    EXPECT_TRUE(fs::exists(dataFolder() + "/Tallymere.bak"));
}

TEST_F(StartupTest, AFileAnotherCopyIsWritingIsLeftAloneNotRepaired) {
    placeDatabase(dataFolder());
    laterStart(dataFolder());
    const std::string file = dataFolder() + "/Tallymere.db";
    const std::string before = readBytes(file);
    {
        OtherConnection other(file);
        other.lockForWriting();
        store::db(s()).setBusyTimeout(100);  // held for longer than the start waits
        EXPECT_FALSE(form->Load());
        EXPECT_EQ(ui.messages.front().title, "Open Connection Error");
        EXPECT_EQ(readBytes(file), before);
        EXPECT_EQ(other.release(), SQLITE_OK);
    }
    EXPECT_FALSE(fs::exists(dataFolder() + "/Tallymere.damaged.db"));
    EXPECT_FALSE(fs::exists(dataFolder() + "/Tallymere.bak"));

    // Once it is free the start goes on, on the file the other copy wrote to.
    fresh();
    ASSERT_TRUE(form->Load());
    EXPECT_EQ(store::GetOption(s(), "othercopy"), "other copy");
    EXPECT_FALSE(fs::exists(dataFolder() + "/Tallymere.damaged.db"));
    OtherConnection bak(dataFolder() + "/Tallymere.bak");
    EXPECT_EQ(bak.value("select optionvalue from options where optionname = 'othercopy'"), "other copy");
}

TEST_F(StartupTest, ADatabaseNamedInAnotherCaseIsTheOneOpened) {
    placeDatabase(dataFolder(), {{"currentschedule", "Spring"}});
    fs::rename(dataFolder() + "/Tallymere.db", dataFolder() + "/tallymere.db");
    laterStart(dataFolder());
    ASSERT_TRUE(form->Load());
    EXPECT_EQ(s().DatabasePath(), dataFolder() + "/tallymere.db");
    EXPECT_EQ(form->caption(), "Quillbrook Tallymere - Spring");
    EXPECT_FALSE(fs::exists(dataFolder() + "/Tallymere.db"));
    EXPECT_TRUE(fs::exists(dataFolder() + "/tallymere.bak"));
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(StartupTest, TheDayColumnWidthIsWorkedOutFromThePageAndAStoredZeroGivesWayToIt) {
    // Letter, portrait, margins of 720: (12240 - 1440 - 2160) / 7 days / 1440 inches.
    const double letter = 8640.0 / 7 / 1440;
    placeDatabase(dataFolder(), {{"gi_ReportColumnWidth", "0"}});
    laterStart(dataFolder());
    ASSERT_TRUE(form->Load());
    EXPECT_DOUBLE_EQ(s().settings.gi_ReportColumnWidth, letter);
    ASSERT_TRUE(form->mnuFExit_Click());
    EXPECT_DOUBLE_EQ(std::stod(store::GetOption(s(), "gi_ReportColumnWidth")), letter);

    // Unreadable is no failure of the report options: the page's width stands.
    store::SaveOption(s(), "gi_ReportColumnWidth", "wide");
    fresh();
    ASSERT_TRUE(form->Load());
    EXPECT_FALSE(ui.shown("Unable to load Tallymere Report Options."));
    EXPECT_DOUBLE_EQ(s().settings.gi_ReportColumnWidth, letter);

    // The options' page: A4 across, and a width the user chose is kept.
    store::SaveOption(s(), "gi_ReportColumnWidth", "");
    store::SaveOption(s(), "orientation", "2");
    store::SaveOption(s(), "gs_PaperSize", "9");
    fresh();
    ASSERT_TRUE(form->Load());
    EXPECT_DOUBLE_EQ(s().settings.gi_ReportColumnWidth, (16838.0 - 1440 - 2160) / 7 / 1440);
    store::SaveOption(s(), "gi_ReportColumnWidth", "1.25");
    fresh();
    ASSERT_TRUE(form->Load());
    EXPECT_DOUBLE_EQ(s().settings.gi_ReportColumnWidth, 1.25);
}

TEST_F(StartupTest, LastScheduleOpensByNameOrAsksForOne) {
    placeDatabase(dataFolder());
    laterStart(dataFolder());
    ASSERT_TRUE(form->Load());
    EXPECT_EQ(ui.texts(), Rows{"There is no schedule open."});
    EXPECT_EQ(ui.modals, Rows{"Openfrm"});
    EXPECT_FALSE(form->menuEnabled("mnuweekly"));
    EXPECT_EQ(form->caption(), "Quillbrook Tallymere - ");

    // A name: it opens, and the undo snapshot of an earlier run is gone.
    store::SaveOption(s(), "currentschedule", " Spring ");
    store::InsertRecs(s(), "insert into sched (personid,lname,sday,sname) values(1,'A','2026-11-20',?)", {"*undo*"});
    fresh();
    ASSERT_TRUE(form->Load());
    EXPECT_TRUE(ui.messages.empty() && ui.modals.empty());
    EXPECT_EQ(form->caption(), "Quillbrook Tallymere - Spring");
    EXPECT_TRUE(form->menuEnabled("mnuweekly"));
    EXPECT_TRUE(host.called("updailyflexform"));
    EXPECT_TRUE(store::GetRecs(s(), "select * from sched where sname = ?", {"*undo*"}).empty());

    // Empty: the day shows, then the open window, whose choice reaches caption and menus.
    store::UdateRecs(s(), "update options set optionvalue = null where optionname = ?", {"currentschedule"});
    fresh();
    ui.onModal("Openfrm", [this] { s().currentSchedule = "Summer"; });
    ASSERT_TRUE(form->Load());
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(ui.modals, Rows{"Openfrm"});
    EXPECT_EQ(std::count(host.calls.begin(), host.calls.end(), "updailyflexform"), 2);
    EXPECT_EQ(form->caption(), "Quillbrook Tallymere - Summer");
    EXPECT_TRUE(form->menuEnabled("mnusaveas"));
}

TEST_F(StartupTest, MissingFilesGoToTheHandlerByFolderKind) {
    // A first start with neither template nor shipped database: the copy finds nothing.
    fs::remove(program.path() / Session::kTemplateFileName);
    fs::create_directories(defaultFolder());
    EXPECT_FALSE(form->Load());
    EXPECT_EQ(ui.texts(), (Rows{"The Tallymere.db file was not found in the folder " + defaultFolder() +
                                    " The folder and/or the Tallymere.db file may be missing. This file should be in "
                                    "the folder " +
                                    defaultFolder() + ".",
                                "Tallymere will now terminate."}));
    EXPECT_EQ(ui.messages[0].title, "Error: Missing Folder or Database");
    EXPECT_TRUE(s().ExitNow);

    platform.networkFolders = {defaultFolder()};
    userSettings.set("NumRun", "0");
    fresh();
    EXPECT_FALSE(form->Load());
    EXPECT_EQ(ui.texts(), (Rows{"Unable to connect to the network location " + defaultFolder() +
                                    ". Possible causes include the network location being unavailable or the "
                                    "Tallymere.db file missing from this location.\n\nWould you like to select "
                                    "another folder?",
                                "Tallymere will now terminate."}));
    EXPECT_EQ(ui.modals, Rows{"SetDataLocation"});
}

TEST(DefaultDataFolder, CommonDocumentsFirstThenApplicationDataMadeWhereMissing) {
    TempFolder docs, appData;
    FakePlatform p;
    EXPECT_EQ(shell::DefaultDataFolder(p), "");
    p.applicationData = appData.str() + "/";
    EXPECT_EQ(shell::DefaultDataFolder(p), appData.str() + "/Quillbrook/Tallymere");
    EXPECT_TRUE(fs::is_directory(appData.str() + "/Quillbrook/Tallymere"));
    p.commonDocuments = docs.str();
    EXPECT_EQ(shell::DefaultDataFolder(p), docs.str() + "/Quillbrook/Tallymere");
}

}  // namespace
}  // namespace tallymere::testing

#include "shell/main_form.h"

#include "maintenance/access_control.h"
#include "shell/menus.h"
#include "store/options.h"
#include "support/fake_main_form_host.h"
#include "support/table_rows.h"
#include "support/test_database.h"

#include <algorithm>
#include <functional>
#include <set>
#include <string>
#include <vector>

namespace tallymere::testing {
namespace {

using common::Date;
using common::DateTime;
using shell::MainForm;
using Rows = std::vector<std::string>;

class MainFormTest : public DatabaseTest {
protected:
    Rows optionRows() {
        return column(s(), "select optionname || '=' || ifnull(optionvalue, '<null>') from options order by 1");
    }
    bool hasOption(const std::string& key) {
        return !store::GetRecs(s(), "select * from options where optionname = ?", {key}).empty();
    }
    void addUnnamedEntry() {
        ASSERT_TRUE(store::InsertRecs(
            s(), "insert into sched (personid,lname,sday,sname) values(1,'Sample','2026-11-23',?)", {""}));
    }
    std::size_t unnamedEntries() {
        return store::GetRecs(s(), "select * from sched where sname = ?", {""}).RecordCount();
    }
    // The backup counter as getoptions leaves it after a start that found `stored`.
    void countStartsSinceBackup(int stored) {
        store::SaveOption(s(), "nrunsincebackup", std::to_string(stored));
        store::getoptions(s());
    }

    FakeMainFormHost host;
    MainForm form{*session, host};
};

TEST(MenuTables, EveryNameTheTablesUseIsAMenuEntry) {
    std::set<std::string_view> names;
    for (const shell::MenuEntry& e : shell::menuTable()) {
        EXPECT_TRUE(names.insert(e.name).second) << "twice: " << e.name;
        if (!e.parent.empty()) {
            EXPECT_NE(shell::findMenu(e.parent), nullptr) << e.name;
        }
    }
    const auto known = [](std::string_view name) { return shell::findMenu(name) != nullptr; };
    for (const auto& b : shell::toolbarTable()) {
        if (!b.isSeparator()) {
            EXPECT_TRUE(known(b.action)) << b.key;
        }
    }
    for (const auto& e : shell::sortTable()) EXPECT_TRUE(known(e.viewMenu) && known(e.popupMenu)) << e.column;
    for (const auto& e : shell::dateFormatTable()) EXPECT_EQ(shell::findMenu(e.name)->parent, "mnudaterightclick");
    for (const auto& r : shell::outputCommandTable())
        for (const auto* list : {&r.on, &r.off})
            for (std::string_view n : *list) EXPECT_TRUE(known(n)) << r.window << " " << n;
    for (std::string_view n : shell::scheduleMenus()) EXPECT_TRUE(known(n)) << n;
    common::UserRights none;
    none.noPayroll = none.noStaffLevels = none.noEmployee = none.noEmployeeView = none.noSchedule = true;
    for (const std::string& n : maintenance::MenusDisabledByRights(none)) EXPECT_TRUE(known(n)) << n;
}

TEST_F(MainFormTest, NavigatorButtonsMoveTheActiveDate) {
    const Date start = Date::fromYmd(2026, 1, 31);
    const std::vector<std::pair<std::function<void()>, Date>> steps = {
        {[&] { form.dayPlus_Click(); }, Date::fromYmd(2026, 2, 1)},
        {[&] { form.SSCommand1_Click(); }, Date::fromYmd(2026, 1, 30)},
        {[&] { form.weekplus_Click(); }, Date::fromYmd(2026, 2, 7)},
        {[&] { form.SSCommand3_Click(); }, Date::fromYmd(2026, 1, 24)},
        {[&] { form.monthplus_Click(); }, Date::fromYmd(2026, 2, 28)},
        {[&] { form.SSCommand2_Click(); }, Date::fromYmd(2025, 12, 31)},
        {[&] { form.yearplus_Click(); }, Date::fromYmd(2027, 1, 30)},  // 364 days: same weekday
        {[&] { form.SSCommand4_Click(); }, Date::fromYmd(2025, 2, 1)},
    };
    for (const auto& [click, expected] : steps) {
        s().activeDate = start;
        host.calls.clear();
        click();
        EXPECT_EQ(s().activeDate, expected);
        EXPECT_EQ(host.calls, (Rows{"date", "updailyflexform"}));
    }
}

TEST_F(MainFormTest, OutputCommandsFollowTheActiveWindow) {
    const auto on = [&] {
        Rows r;
        for (std::string_view n : shell::outputCommands())
            if (form.menuEnabled(n)) r.emplace_back(n);
        return r;
    };
    EXPECT_EQ(on(), Rows{});
    form.MenuSetupFormActivation("dailyflexgrid");
    EXPECT_EQ(on(), (Rows{"mnuprintreport", "mnuExportReportRtf", "mnuSaveToPDF", "mnuPrintPreview"}));
    form.MenuSetupFormActivation("staffing");
    EXPECT_EQ(on(), Rows{});
    form.MenuSetupFormActivation("ReportEmployee");
    EXPECT_EQ(on(), (Rows{"mnuprintreport", "MnuSelectReportFont", "mnuSaveToPDF"}));
    form.MenuSetupFormDeactivation();
    EXPECT_EQ(on(), Rows{});

    form.setPdfOutputReady(false);
    for (const auto& rule : shell::outputCommandTable()) {
        form.MenuSetupFormActivation(rule.window);
        EXPECT_FALSE(form.menuEnabled("mnuSaveToPDF")) << rule.window;
    }
}

TEST_F(MainFormTest, SortEntriesAreTickedInBothMenus) {
    for (const char* clicked : {"mnudailyflexsortshift", "mnusortdailyshift"}) {
        form.sortDaily("position");
        ASSERT_TRUE(form.sortMenu_Click(clicked));
        EXPECT_EQ(s().settings.dailyschedsort, "shift");
        for (const auto& e : shell::sortTable()) {
            EXPECT_EQ(form.menuChecked(e.viewMenu), e.column == "shift") << e.viewMenu;
            EXPECT_EQ(form.menuChecked(e.popupMenu), e.column == "shift") << e.popupMenu;
        }
    }
    EXPECT_TRUE(host.called("UpDailyGridUpEmpl"));
}

TEST_F(MainFormTest, RightsAndTheOpenScheduleDisableTheirMenus) {
    EXPECT_FALSE(form.menuEnabled("mnuweekly"));
    EXPECT_TRUE(form.menuEnabled("mnuOpen"));
    EXPECT_TRUE(form.requireOpenSchedule());
    EXPECT_EQ(ui.texts(), Rows{"No schedule file is open. Please open a schedule file or create a new one."});
    EXPECT_EQ(ui.messages[0].icon, MsgIcon::Information);

    s().currentSchedule = "Spring";
    form.scheduleChanged();
    EXPECT_EQ(form.caption(), "Quillbrook Tallymere - Spring");
    EXPECT_TRUE(form.menuEnabled("mnuweekly") && form.menuEnabled("mnudelete"));
    EXPECT_FALSE(form.requireOpenSchedule());

    s().rights.noSchedule = s().rights.noPayroll = true;
    form.applyRights();
    EXPECT_TRUE(form.menuEnabled("mnunew"));  // rights are in force in user mode only
    s().IsUserMode = true;
    form.applyRights();
    for (const char* m : {"mnunew", "mnudelete", "mnudailygridrightclickpaste", "mnuweeklypayroll"})
        EXPECT_FALSE(form.menuEnabled(m)) << m;
    for (const char* m : {"mnuOpen", "mnusetstaffinglevels", "mnuweekly"}) EXPECT_TRUE(form.menuEnabled(m)) << m;
    // A window that switches an entry on cannot give a right back.
    form.setMenuEnabled("mnudelete", true);
    EXPECT_FALSE(form.menuEnabled("mnudelete"));
}

TEST_F(MainFormTest, DateFormatEntriesShowTodayAndSetTheNavigator) {
    form.FillDateFormatMenu();  // the clock says Monday, November 23, 2026
    EXPECT_EQ(form.menu("mnushortdate").caption, "11/23/2026  <Short Date>");
    EXPECT_EQ(form.menu("mnulongdate").caption, "Monday, November 23, 2026  <Long Date>");
    EXPECT_EQ(form.menu("mnuddmmyy").caption, "23/11/26");
    EXPECT_EQ(form.menu("mnummddyyddd").caption, "11/23/26 Mon");

    s().activeDate = Date::fromYmd(2026, 3, 4);
    ASSERT_TRUE(form.dateFormatMenu_Click("mnuddmmyydash"));
    EXPECT_EQ(form.toolDateText(), "04-03-26");
    EXPECT_EQ(shell::dateControlFormat(form.toolDateCustomFormat()), "dd-MM-yy");
    // Messages follow the format picked here.
    EXPECT_EQ(s().messageDate(s().activeDate), "04-03-26");
    form.dateFormatMenu_Click("mnushortdate");
    EXPECT_EQ(form.toolDateText(), "3/4/2026");
    EXPECT_EQ(s().messageDate(s().activeDate), "3/4/2026");
}

TEST_F(MainFormTest, QuickBarRestoresItsLastChoicesAndTakesAShiftsTimes) {
    const auto time = [&](int i) { return form.TETxtHr[i] + ":" + form.TeTxtMin[i] + " " + form.TEAmPm[i]; };
    const auto base = [](int h, int m) { return DateTime::fromParts(1899, 12, 30, h, m); };
    store::InsertRecs(s(), "insert into shift (name,strttime,endtime) values(?,?,?)",
                      {"Late", base(16, 0), base(23, 45)});
    store::InsertRecs(s(), "insert into shift (name,strttime,endtime) values(?,?,?)",
                      {"Day", base(8, 0), base(16, 30)});
    store::InsertRecs(s(), "insert into position (title) values(?)", {"Cook"});
    userSettings.set("SBShift", "day");
    userSettings.set("SBStrtTime", "07:30 PM");
    userSettings.set("SBEndTime", "nonsense");
    userSettings.set("SBPosition", "Gone");
    form.SetupQuickBar();
    EXPECT_EQ(form.shiftcombo.items, (Rows{"Day", "Late"}));
    EXPECT_EQ(form.shiftcombo.text, "Day");
    EXPECT_EQ(form.positioncombo.text, "");
    EXPECT_EQ(time(1), "07:30 PM");
    EXPECT_EQ(time(0), "05:00 PM");

    form.shiftcombo.text = "Late";
    ASSERT_TRUE(form.shiftCombo_click());
    EXPECT_EQ(time(1), "4:00 PM");
    EXPECT_EQ(time(0), "11:45 PM");

    // Without shifts the saved times are not used.
    store::DeleteRecs(s(), "delete from shift");
    form.SetupQuickBar();
    EXPECT_EQ(time(1), "09:00 AM");
    EXPECT_EQ(time(0), "05:00 PM");
}

// --- The way out

TEST_F(MainFormTest, BackupReminderComesFromFifteenStartsAndRestartsTheCount) {
    countStartsSinceBackup(13);
    EXPECT_TRUE(form.mnuFExit_Click());
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(store::GetOption(s(), "nrunsincebackup"), "14");

    bool closedDuringBackup = false;
    ui.onModal("backup", [&] { closedDuringBackup = !store::db(s()).isOpen(); });
    for (const MsgAnswer answer : {MsgAnswer::Yes, MsgAnswer::No}) {
        countStartsSinceBackup(14);
        ui.clear();
        ui.answer(answer);
        EXPECT_TRUE(MainForm(s(), host).mnuFExit_Click());
        EXPECT_EQ(ui.texts(),
                  Rows{"Quillbrook highly recommends backing up your data to avoid any accidental data loss. "
                       "Would you like to backup now?"});
        EXPECT_EQ(store::GetOption(s(), "nrunsincebackup"), "0");
    }
    EXPECT_EQ(ui.modals, Rows{"backup"});
    EXPECT_TRUE(closedDuringBackup);
}

TEST_F(MainFormTest, UnnamedEntriesCancelKeepsRunningNoDeletesYesNamesThem) {
    addUnnamedEntry();
    ui.answer(MsgAnswer::Cancel);
    EXPECT_FALSE(form.mnuFExit_Click());
    EXPECT_EQ(ui.texts(), Rows{"You need to give the schedule a name in order to save it. Save schedule?"});
    EXPECT_EQ(unnamedEntries(), 1u);
    EXPECT_FALSE(hasOption("currentschedule"));

    ui.onModal("SaveAs", [&] { s().currentSchedule = "Named"; });
    ui.answer(MsgAnswer::Yes);
    EXPECT_TRUE(MainForm(s(), host).mnuFExit_Click());
    EXPECT_EQ(store::GetOption(s(), "currentschedule"), "Named");
    EXPECT_EQ(unnamedEntries(), 1u);

    s().currentSchedule.clear();
    ui.answer(MsgAnswer::No);
    EXPECT_TRUE(form.mnuFExit_Click());
    EXPECT_EQ(unnamedEntries(), 0u);
}

TEST_F(MainFormTest, NothingIsSavedAfterALeaveOrWithoutThePasswordOrForAUserWhoCannotChangeAnything) {
    addUnnamedEntry();
    const Rows before = optionRows();
    const std::vector<std::function<void()>> setups = {
        [&] { s().ExitNow = true; },
        [&] { s().PasswordPassed = false; },
        [&] {
            s().IsUserMode = true;
            s().rights.noSchedule = s().rights.noEmployee = true;
        },
    };
    for (std::size_t i = 0; i < setups.size(); ++i) {
        s().ExitNow = false;
        s().PasswordPassed = true;
        s().IsUserMode = false;
        s().settings.nrunsincebackup = 20;
        setups[i]();
        EXPECT_TRUE(MainForm(s(), host).mnuFExit_Click()) << i;
        EXPECT_TRUE(ui.messages.empty()) << i;
        EXPECT_EQ(optionRows(), before) << i;
        EXPECT_EQ(unnamedEntries(), 1u) << i;
    }
    EXPECT_TRUE(s().ExitNow);  // the user without rights
}

TEST_F(MainFormTest, ExitSavesTheQuickBarSortScheduleAndPlaces) {
    s().currentSchedule = "Spring";
    host.loaded.insert("dailyflexgrid");
    host.places["dailyflexgrid"] = {10, 20, 3000, 4000, 0};
    form.TETxtHr = {"5", "09"};
    form.TeTxtMin = {"30", "15"};
    form.TEAmPm = {"PM", "AM"};
    form.shiftcombo.text = "Day";
    form.positioncombo.text = "Cook";
    form.sectioncombo.text = "Patio";
    form.sortDaily("section");
    form.dateFormatMenu_Click("mnummmddyyyy");

    ASSERT_TRUE(form.mnuFExit_Click());
    EXPECT_EQ(userSettings.get("SBStrtTime") + "-" + userSettings.get("SBEndTime"), "09:15 AM-5:30 PM");
    EXPECT_EQ(userSettings.get("dailyschedsort"), "section");
    const std::pair<const char*, const char*> saved[] = {
        {"currentschedule", "Spring"}, {"tooldateformat", "3"}, {"tooldatecustomformat", "MMMM dd, yyyy"},
        {"dailyflexgridx", "10"},      {"mainx", "100"},        {"mainstate", "0"}};
    for (const auto& [key, value] : saved) EXPECT_EQ(store::GetOption(s(), key), value) << key;
    EXPECT_TRUE(hasOption("gd_OvertimeFactor"));  // the global settings go back too
    EXPECT_FALSE(ui.busy());

    // A maximized window keeps its state only, a minimized one nothing.
    store::DeleteRecs(s(), "delete from options where optionname like ?", {"main*"});
    for (const int state : {2, 1}) {
        host.main = {1, 2, 3, 4, state};
        EXPECT_TRUE(MainForm(s(), host).mnuFExit_Click());
        EXPECT_FALSE(hasOption("mainx"));
        EXPECT_EQ(store::GetOption(s(), "mainstate"), "2") << state;
    }
}

}  // namespace
}  // namespace tallymere::testing

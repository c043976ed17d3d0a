#include "store/options.h"

#include "support/table_rows.h"
#include "support/test_database.h"

#include <string>
#include <vector>

namespace tallymere::testing {
namespace {

using store::WindowPlace;
using Rows = std::vector<std::string>;

class OptionsTest : public DatabaseTest {
protected:
    void addRow(const std::string& key, store::Value value) {
        ASSERT_TRUE(store::InsertRecs(s(), "insert into options (optionname,optionvalue) values(?,?)", {key, value}));
    }
    void setNull(const std::string& key) {
        store::UdateRecs(s(), "update options set optionvalue = null where optionname = ?", {key});
    }
    // Every stored value of a key in row order, NULL as "<null>".
    Rows rows(const std::string& key) {
        return column(s(), "select optionvalue from options where optionname = ?", {key});
    }
    common::GlobalSettings& g() { return s().settings; }
};

TEST_F(OptionsTest, SaveOptionInsertsOnceThenUpdatesEveryRowOfTheKey) {
    store::SaveOption(s(), "gs_PaySalesRates", "Position");
    store::SaveOption(s(), "GS_PAYSALESRATES", "Employee");
    EXPECT_EQ(rows("gs_PaySalesRates"), Rows{"Employee"});

    addRow("orientation", "1");
    addRow("orientation", "1");
    store::SaveOption(s(), "orientation", "2");
    EXPECT_EQ(rows("orientation"), (Rows{"2", "2"}));
}

TEST_F(OptionsTest, YesNoOptionIsFalseOnlyForNoAndFalse) {
    bool flag = true;
    store::GetYesNoOption(s(), "reportunassigned", flag, false);
    EXPECT_FALSE(flag);
    EXPECT_EQ(rows("reportunassigned"), Rows{"False"});

    for (const char* stored : {"FALSE", "False", "NO", "No"}) {
        store::SaveOption(s(), "reportunassigned", stored);
        flag = true;
        store::GetYesNoOption(s(), "reportunassigned", flag, true);
        EXPECT_FALSE(flag) << stored;
    }
    store::SaveOption(s(), "reportunassigned", "maybe");
    store::GetYesNoOption(s(), "reportunassigned", flag, false);
    EXPECT_TRUE(flag);

    setNull("reportunassigned");
    store::GetYesNoOption(s(), "reportunassigned", flag, false);
    EXPECT_FALSE(flag);
    EXPECT_EQ(rows("reportunassigned"), Rows{"False"});
}

TEST_F(OptionsTest, EmptyValuesKeepTheDefaultOfEveryKind) {
    // Values a previous read may have left in memory.
    g().gb_ShowQuickBar = false;
    g().gs_AutoFillDayWeek = "Week";
    g().gi_OvertimeThreshold = 10;
    g().gd_OvertimeFactor = 3.0;
    g().firstdayofweek = "Friday";
    for (const char* key : {"gb_ShowQuickBar", "gs_AutoFillDayWeek", "gi_OvertimeThreshold", "gd_OvertimeFactor",
                            "firstdayofweek", "dailyflexgridshowposition"})
        addRow(key, "");

    EXPECT_TRUE(store::getoptions(s()));
    EXPECT_TRUE(g().gb_ShowQuickBar);
    EXPECT_EQ(g().gs_AutoFillDayWeek, "Day");
    EXPECT_EQ(g().gi_OvertimeThreshold, 40);
    EXPECT_DOUBLE_EQ(g().gd_OvertimeFactor, 1.5);
    EXPECT_EQ(g().firstdayofweek, "Sunday");
    EXPECT_FALSE(g().dailyflexgridshowposition);
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(OptionsTest, UnreadableValueStopsLoadingAndLaterKeysKeepDefaults) {
    addRow("gb_ShowQuickBar", "False");       // before the bad key: read
    addRow("gi_OvertimeThreshold", "forty");  // bad
    addRow("gd_OvertimeFactor", "2");         // behind it: not read
    addRow("nrun", "5");
    EXPECT_FALSE(store::getoptions(s()));
    EXPECT_EQ(ui.texts(), Rows{"Unable to load Tallymere options."});
    EXPECT_FALSE(g().gb_ShowQuickBar);
    EXPECT_EQ(g().gi_OvertimeThreshold, 40);
    EXPECT_DOUBLE_EQ(g().gd_OvertimeFactor, 1.5);
    EXPECT_EQ(rows("nrun"), Rows{"5"});

    // A yes/no key holding neither yes/no nor a number.
    store::SaveOption(s(), "gi_OvertimeThreshold", "40");
    store::SaveOption(s(), "gb_AlertForOvertime", "perhaps");
    EXPECT_FALSE(store::getoptions(s()));
}

TEST_F(OptionsTest, ShowPositionIsOnUnlessNo) {
    EXPECT_TRUE(store::getoptions(s()));
    EXPECT_FALSE(g().dailyflexgridshowposition);
    EXPECT_EQ(rows("dailyflexgridshowposition"), Rows{"No"});

    store::SaveOption(s(), "dailyflexgridshowposition", "Yes");
    EXPECT_TRUE(store::getoptions(s()));
    EXPECT_TRUE(g().dailyflexgridshowposition);

    // Bound text is trimmed on the way in, so the trailing blank goes in as a literal.
    store::UdateRecs(s(), "update options set optionvalue = 'no ' where optionname = ?", {"dailyflexgridshowposition"});
    EXPECT_TRUE(store::getoptions(s()));
    EXPECT_FALSE(g().dailyflexgridshowposition);

    setNull("dailyflexgridshowposition");
    EXPECT_TRUE(store::getoptions(s()));
    EXPECT_EQ(rows("dailyflexgridshowposition"), Rows{"No"});
}

TEST_F(OptionsTest, MissingRowsAreMadeWithTheirStartValues) {
    EXPECT_TRUE(store::getoptions(s()));
    EXPECT_EQ(rows("firstdayofweek"), Rows{"Sunday"});
    EXPECT_EQ(rows("reportdateformat"), Rows{"short date"});
    EXPECT_EQ(rows("tooldateformat"), Rows{"dtplongdate"});
    EXPECT_EQ(rows("tooldatecustomformat"), Rows{"mm/dd/yyyy"});
    EXPECT_EQ(g().nrun, 1);
    EXPECT_EQ(rows("nrunsincebackup"), Rows{"1"});

    setNull("firstdayofweek");
    store::SaveOption(s(), "nrunsincebackup", "0");  // as the backup reminder leaves it
    EXPECT_TRUE(store::getoptions(s()));
    EXPECT_EQ(rows("firstdayofweek"), Rows{"Sunday"});
    EXPECT_EQ(g().nrun, 2);
    EXPECT_EQ(rows("nrun"), Rows{"2"});
    EXPECT_EQ(g().nrunsincebackup, 1);
}

TEST_F(OptionsTest, MainWindowPlaceIsReadAndTheCustomNavigatorFormatOnlyWhileInUse) {
    addRow("MainX", "120");
    addRow("mainheight", "");  // never saved
    addRow("mainstate", "2");
    addRow("tooldatecustomformat", "dd-MM-yy");
    EXPECT_TRUE(store::getoptions(s()));
    EXPECT_EQ(g().mainx, 120);
    EXPECT_FALSE(g().mainheight.has_value());
    EXPECT_EQ(g().mainstate, 2);
    EXPECT_EQ(g().tooldatecustomformat, "MM/dd/yyyy");
    store::SaveOption(s(), "tooldateformat", "3");
    EXPECT_TRUE(store::getoptions(s()));
    EXPECT_EQ(g().tooldatecustomformat, "dd-MM-yy");
}

TEST_F(OptionsTest, ReportOptionsKeepTheComputedColumnWidthAndStopAtABadValue) {
    g().gi_ReportColumnWidth = 1234;
    addRow("gs_ReportNameFormat", "");
    addRow("gb_RepWeekShiftTime", "x");
    addRow("gi_RepMonthFontSize", "12");
    EXPECT_FALSE(store::getreportoptions(s()));
    EXPECT_EQ(ui.texts(), Rows{"Unable to load Tallymere Report Options."});
    EXPECT_EQ(g().gi_ReportColumnWidth, 1234);
    EXPECT_EQ(g().gs_ReportNameFormat, "Smith, John");
    EXPECT_EQ(g().gi_RepMonthFontSize, 8);
}

TEST_F(OptionsTest, SavedOptionsComeBackOnTheNextStart) {
    g().gs_PaySalesRates = "Section's rate";
    g().reportunassigned = true;
    g().orientation = 2;
    g().gd_OvertimeFactor = 1.75;
    g().dailyflexgridshowposition = true;
    g().gs_RepWeekEmpFont = "O'Brien Sans";
    g().gb_RepWeekShiftSchedOnly = true;
    g().gb_RepWeekPosTotalHrs = true;
    store::saveoptions(s());
    EXPECT_EQ(rows("gb_RepWeekPosTotalHrs"), Rows{"True"});
    EXPECT_TRUE(rows("DateofLastBackUp").empty());  // not held by this run: left alone
    EXPECT_TRUE(rows("nrunsincebackup").empty());   // counters are written where they count

    g() = common::GlobalSettings{};
    EXPECT_TRUE(store::getoptions(s()));
    EXPECT_TRUE(store::getreportoptions(s()));
    EXPECT_EQ(g().gs_PaySalesRates, "Section's rate");
    EXPECT_TRUE(g().reportunassigned);
    EXPECT_EQ(g().orientation, 2);
    EXPECT_DOUBLE_EQ(g().gd_OvertimeFactor, 1.75);
    EXPECT_TRUE(g().dailyflexgridshowposition);
    EXPECT_EQ(g().gs_RepWeekEmpFont, "O'Brien Sans");
    EXPECT_TRUE(g().gb_RepWeekShiftSchedOnly);
    EXPECT_TRUE(ui.messages.empty());
}

class FormPositionTest : public OptionsTest {
protected:
    WindowPlace load(bool sizable, bool mainStateForbids = false) {
        return store::LoadFormPosition(s(), "ReportWeek", defaultPlace, main, sizable, mainStateForbids);
    }
    const WindowPlace main{0, 0, 12000, 9000, 0};
    const WindowPlace defaultPlace{300, 400, 6000, 5000, 0};
};

TEST_F(FormPositionTest, RowsAreMadeOnceAndOnlyForThePlace) {
    store::CreateFormPositionRows(s(), "dailyflexgrid");
    store::CreateFormPositionRows(s(), "dailyflexgrid");
    for (const char* field : {"x", "y", "width", "height", "state"})
        EXPECT_EQ(rows(std::string("dailyflexgrid") + field), Rows{"<null>"}) << field;
    EXPECT_TRUE(rows("dailyflexgridshowposition").empty());
}

TEST_F(FormPositionTest, PlaceOutsideTheMainWindowKeepsTheDefault) {
    store::CreateFormPositionRows(s(), "ReportWeek");
    EXPECT_EQ(load(true).left, defaultPlace.left);

    for (const WindowPlace stored : {WindowPlace{11600, 2000}, WindowPlace{1000, 8100}, WindowPlace{-200, 2000}}) {
        store::SaveFormPosition(s(), "ReportWeek", stored, false);
        const WindowPlace p = load(true);
        EXPECT_EQ(p.left, defaultPlace.left) << stored.left << "," << stored.top;
        EXPECT_EQ(p.top, defaultPlace.top) << stored.left << "," << stored.top;
    }
    store::SaveFormPosition(s(), "reportweek", {11500, 8000, 7000, 6000, 0}, true);  // on the margins
    const WindowPlace p = load(true);
    EXPECT_EQ(p.left, 11500);
    EXPECT_EQ(p.top, 8000);
    EXPECT_EQ(p.width, 7000);
}

TEST_F(FormPositionTest, FixedBorderKeepsItsSize) {
    store::SaveFormPosition(s(), "ReportWeek", {1000, 1000, 2000, 2000, 2}, false);
    EXPECT_TRUE(rows("ReportWeekheight").empty());
    store::SaveOption(s(), "ReportWeekwidth", "9999");
    WindowPlace p = load(false);
    EXPECT_EQ(p.left, 1000);
    EXPECT_EQ(p.width, defaultPlace.width);
    EXPECT_EQ(p.state, 2);
    EXPECT_EQ(load(false, /*mainStateForbids=*/true).state, 0);
}

}  // namespace
}  // namespace tallymere::testing

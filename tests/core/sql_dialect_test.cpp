#include "store/sql_dialect.h"

#include "support/test_database.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace tallymere::testing {
namespace {

using common::DateTime;
using store::GetRecs;
using store::InsertRecs;
using store::Params;
using store::Recordset;
using store::UdateRecs;
using store::Value;

TEST(SqlDialectLike, JetPatterns) {
    struct Case {
        const char* pattern;
        const char* text;
        bool matches;
    };
    const Case cases[] = {
        {"mainform*", "MainFormTop", true},
        {"*", "", true},
        {"?", "", false},
        {"a*b*c", "aXXbYYbc", true},
        {"a*b*c", "aXXbYYbcd", false},
        {"key#", "key7", true},
        {"key#", "keyx", false},
        {"[a-c]x", "Bx", true},
        {"[!a-c]x", "bx", false},
        {"[!a-c]x", "dx", true},
        {"[*]*", "*star", true},
        {"[*]*", "star", false},
        // % and _ are plain characters; an unclosed bracket is one too.
        {"gs_*", "gs_x", true},
        {"gs_*", "gsax", false},
        {"100%", "1000", false},
        {"a[b", "a[b", true},
        {"caf?", "caf\xC3\xA9", true},  // one ? is one character, not one byte
    };
    for (const Case& c : cases) EXPECT_EQ(store::jetLike(c.pattern, c.text), c.matches) << c.pattern << " ~ " << c.text;
    EXPECT_TRUE(store::jetLike("a\\*", "a*", U'\\'));
    EXPECT_FALSE(store::jetLike("a\\*", "ab", U'\\'));
}

// ---- on the engine ------------------------------------------------------------------------------

class SqlDialectDb : public DatabaseTest {
protected:
    void addEntry(const std::string& lname, long personid, DateTime start, DateTime end,
                  const std::string& sname = "Main") {
        ASSERT_TRUE(InsertRecs(s(),
                               "insert into sched (lname,fname,personid,sday,strttime,endtime,position,shift,section,"
                               "comment,sname) values(?,?,?,?,?,?,?,?,?,?,?)",
                               {lname, "", personid, start.date(), start, end, "Cook", "", "", "", sname}));
    }

    std::vector<long> ids(std::string_view sql, const Params& params = {}, std::string_view column = "schedid") {
        Recordset rs = GetRecs(s(), sql, params);
        EXPECT_TRUE(rs.isOpen()) << sql;
        std::vector<long> r;
        for (rs.MoveFirst(); !rs.eof(); rs.MoveNext()) r.push_back(rs[column].toInt());
        return r;
    }

    Value scalar(std::string_view sql, const Params& params = {}) {
        Recordset rs = GetRecs(s(), sql, params);
        EXPECT_EQ(rs.RecordCount(), 1u) << sql;
        return rs.empty() ? Value() : rs.field(0, std::size_t{0}).value();
    }

    // A statement the engine must refuse.
    bool refused(std::string_view sql, const Params& params = {}) {
        Recordset rs;
        return static_cast<bool>(store::db(s()).select(sql, params, rs));
    }

    static DateTime at(int d, int h, int m) { return DateTime::fromParts(2026, 11, d, h, m); }
};

TEST_F(SqlDialectDb, HoursAreFractionalMinutesOverSixty) {
    addEntry("Ames", 1, at(23, 9, 0), at(23, 10, 30));   // 1.5 h
    addEntry("Ames", 1, at(23, 22, 0), at(24, 2, 0));    // across midnight: 4 h
    addEntry("Ames", 1, at(24, 10, 0), at(24, 10, 20));  // 1/3 h
    addEntry("Bell", 2, at(23, 9, 0), at(23, 9, 45));

    const std::string sum = R"(SELECT Sum(DateDiff("n",[strttime],[endtime])/60) AS Expr2 from sched )";
    Recordset rs = GetRecs(s(),
                           sum +
                               "Where sched.sday >= ? and sday <=? and sname=? GROUP BY sched.PersonID Having "
                               "sched.personid =?",
                           {at(23, 0, 0).date(), at(24, 0, 0).date(), "Main", 1});
    ASSERT_EQ(rs.RecordCount(), 1u);
    EXPECT_NEAR(rs["Expr2"].toDouble(), 1.5 + 4.0 + 20.0 / 60.0, 1e-9);
    EXPECT_NEAR(rs["expr2"].toDouble(), 1.5 + 4.0 + 20.0 / 60.0, 1e-9);

    EXPECT_DOUBLE_EQ(scalar(sum + " where sched!schedid =?", {1}).toDouble(), 1.5);
    EXPECT_DOUBLE_EQ(scalar(sum + " where sched.sday = ? and personid=?", {at(23, 0, 0).date(), 1}).toDouble(), 5.5);
    EXPECT_TRUE(scalar(sum + " where personid = 99").isNull());

    // Other intervals count boundaries crossed; NULL in gives NULL out; an unknown interval fails.
    EXPECT_EQ(scalar(R"(select DateDiff("d", strttime, endtime) from sched where schedid = 2)").toLong(), 1);
    EXPECT_EQ(scalar(R"(select DateDiff("h", strttime, endtime) from sched where schedid = 3)").toLong(), 0);
    EXPECT_TRUE(scalar("select datediff('n', null, endtime) from sched where schedid = 1").isNull());
    EXPECT_TRUE(refused("select datediff('fortnight', strttime, endtime) from sched"));
}

TEST_F(SqlDialectDb, DateAddKeepsTheFormOfItsInput) {
    EXPECT_EQ(scalar("select dateadd('d', 1, ?)", {"2026-11-30"}).toText(), "2026-12-01");
    EXPECT_EQ(scalar("select dateadd('m', 1, ?)", {"2026-01-31"}).toText(), "2026-02-28");
    EXPECT_EQ(scalar("select dateadd('yyyy', -1, ?)", {"2026-11-23"}).toText(), "2025-11-23");
    EXPECT_EQ(scalar("select dateadd('h', 3, ?)", {"2026-11-23"}).toText(), "2026-11-23 03:00:00");
    EXPECT_EQ(scalar("select dateadd('n', 90, ?)", {at(23, 23, 0)}).toText(), "2026-11-24 00:30:00");
    EXPECT_EQ(scalar("select dateadd('d', 1, ?)", {at(23, 23, 0)}).toText(), "2026-11-24 23:00:00");
    EXPECT_TRUE(scalar("select dateadd('d', 1, null)").isNull());
    EXPECT_TRUE(refused("select dateadd('x', 1, '2026-11-23')"));
}

TEST_F(SqlDialectDb, DatePartsOfStoredValues) {
    const Value t = at(23, 22, 5);  // a Monday
    EXPECT_EQ(scalar("select year(?)*10000 + month(?)*100 + day(?)", {t, t, t}).toLong(), 20261123);
    EXPECT_EQ(scalar("select hour(?)*100 + minute(?)", {t, t}).toLong(), 2205);
    EXPECT_EQ(scalar("select weekday(?)", {t}).toLong(), 2);
    EXPECT_EQ(scalar("select datepart('q', ?)", {t}).toLong(), 4);
    EXPECT_EQ(scalar("select datepart('ww', '2026-01-04')").toLong(), 2);  // Jan 1, 2026 is a Thursday
    EXPECT_EQ(scalar("select nz(null, 'x') || nz(null) || nz('y')").toText(), "xy");
}

TEST_F(SqlDialectDb, LikeTakesJetWildcardsLiteralOrBound) {
    for (const char* key : {"mainformtop", "mainformleft", "MainFormWidth", "mainformx", "reportdateformat", "gs_a"})
        ASSERT_TRUE(InsertRecs(s(), "insert into options (optionname,optionvalue) values(?,'1')", {key}));
    EXPECT_EQ(GetRecs(s(), "select * from options where optionname like 'mainform*'").RecordCount(), 4u);
    EXPECT_EQ(GetRecs(s(), "select * from options where optionname like ?", {"mainform*"}).RecordCount(), 4u);
    EXPECT_EQ(GetRecs(s(), "select * from options where optionname like \"mainform???\"").RecordCount(), 1u);
    EXPECT_EQ(GetRecs(s(), "select * from options where optionname like ?", {"*form?"}).RecordCount(), 1u);
    EXPECT_EQ(GetRecs(s(), "select * from options where optionname not like ?", {"*form*"}).RecordCount(), 1u);
    EXPECT_TRUE(scalar("select null like 'a*'").isNull());
}

TEST_F(SqlDialectDb, WeekdayNameInAnInsert) {
    ASSERT_TRUE(
        InsertRecs(s(), "insert into options (optionname,optionvalue) values('firstdayofweek',weekdayname(1))"));
    EXPECT_EQ(scalar("select optionvalue from options where optionname='firstdayofweek'").toText(), "Sunday");
    EXPECT_EQ(scalar("select weekdayname(7, true)").toText(), "Sat");
    EXPECT_EQ(scalar("select weekdayname(1, false, 2)").toText(), "Monday");
    EXPECT_TRUE(refused("select weekdayname(8)"));
}

TEST_F(SqlDialectDb, ChkfldInsideSql) {
    ASSERT_TRUE(InsertRecs(s(), "insert into person (lname,fname,active) values(?,?,true)", {"O'Brien", "Pat"}));
    ASSERT_TRUE(InsertRecs(s(), "insert into employeeleave (personid,fullname,typeofleave,sday) values(?,?,?,?)",
                           {7, "O'Brien, Pat", "Vacation", at(23, 0, 0).date()}));
    // The leave calendar compares the doubled form of the stored name with the doubled form of the text.
    EXPECT_EQ(
        GetRecs(s(), "select * from person where active = true and chkfld(lname) = ?", {"O''Brien"}).RecordCount(), 1u);
    EXPECT_EQ(scalar("select chkfld('  it''s ''x''  ')").toText(), "it''s ''x''");
    EXPECT_EQ(scalar("select chkfld(null)").toText(), "");
    EXPECT_EQ(scalar("select chkfld(8.5)").toText(), "8.5");
}

TEST_F(SqlDialectDb, FormatGivesSortableTimesAndDates) {
    const Value t = at(23, 22, 5);
    EXPECT_EQ(scalar(R"(select format(?, "HH:MM"))", {t}).toText(), "22:05");
    EXPECT_EQ(scalar(R"(select format(?, "hh:mm:ss"))", {t}).toText(), "22:05:00");
    EXPECT_EQ(scalar(R"(select format(?, "h:mm AM/PM"))", {t}).toText(), "10:05 PM");
    EXPECT_EQ(scalar(R"(select format(?, "mm/dd/yyyy"))", {t}).toText(), "11/23/2026");
    EXPECT_EQ(scalar(R"(select format(?, "yyyy-mm-dd"))", {t}).toText(), "2026-11-23");
    EXPECT_EQ(scalar(R"(select format(?, "dddd mmm d, yyyy"))", {t}).toText(), "Monday Nov 23, 2026");
    EXPECT_TRUE(scalar(R"(select format(null, "HH:MM"))").isNull());
    EXPECT_EQ(scalar(R"(select format('Cook', "HH:MM"))").toText(), "Cook");
    EXPECT_EQ(scalar("select format('%d-%s', 7, 'x')").toText(), "7-x");  // printf is still there

    // Times of day sort apart from the dates they sit on.
    const auto row = [&](const char* lname, DateTime start) {
        ASSERT_TRUE(InsertRecs(s(), "insert into scheddefault (lname,daynum,strttime,endtime) values(?,1,?,?)",
                               {lname, start, start.addHours(4)}));
    };
    row("Cole", DateTime::fromParts(2006, 1, 1, 17, 0));
    row("Baker", DateTime::fromParts(2006, 1, 3, 8, 0));
    row("Adams", DateTime::fromParts(2006, 1, 2, 17, 0));
    row("Dunn", DateTime::fromParts(2006, 1, 2, 9, 30));
    Recordset rs = GetRecs(s(), R"(select * from scheddefault order by daynum,format(strttime,"HH:MM"),lname)");
    std::vector<std::string> names;
    for (; !rs.eof(); rs.MoveNext()) names.push_back(rs["lname"].text());
    EXPECT_EQ(names, (std::vector<std::string>{"Baker", "Dunn", "Adams", "Cole"}));
}

TEST_F(SqlDialectDb, SingleTableReadsComeInKeyOrder) {
    // Later keys on earlier days: an index on (sname, sday) would hand them out by day.
    for (int i = 0; i < 6; ++i) addEntry("E" + std::to_string(i), -1, at(28 - i, 9, 0), at(28 - i, 17, 0));
    ASSERT_TRUE(UdateRecs(s(), "update sched set sday = ?, lname = 'A' where schedid = 4", {at(1, 0, 0).date()}));
    ASSERT_TRUE(store::DeleteRecs(s(), "delete from sched where schedid = 2"));
    addEntry("Late", -1, at(2, 9, 0), at(2, 17, 0));

    const std::vector<long> expected = {1, 3, 4, 5, 6, 7};
    EXPECT_EQ(ids("select * from sched where sname=? and personid = -1", {"Main"}), expected);
    EXPECT_EQ(ids("select * from sched where sday>=? and sday <=? and sname=? and personid = -1",
                  {at(1, 0, 0).date(), at(30, 0, 0).date(), "Main"}),
              expected);
    EXPECT_EQ(ids("select * from sched where sname='Main' order by sday"), (std::vector<long>{4, 7, 6, 5, 3, 1}));

    // The candidate read: the sub-select does not stop the outer read from being ordered.
    ASSERT_TRUE(InsertRecs(s(), "insert into person (lname,fname,primpos,active) values('Zed','A','Cook',true)"));
    ASSERT_TRUE(InsertRecs(s(), "insert into person (lname,fname,primpos,active) values('Abe','B','Cook',true)"));
    EXPECT_EQ(ids("SELECT * From person WHERE active= true and primpos=? or personid in (select personid from "
                  "qualifications where position=?)",
                  {"Cook", "Cook"}, "personid"),
              (std::vector<long>{2, 3}));
}

TEST_F(SqlDialectDb, TextLiteralsComeBackAsWrittenAndDateLiteralsAsStoredText) {
    // Nothing inside a literal is rewritten: quotes, a placeholder mark, a date, a bang, true, &.
    EXPECT_EQ(scalar(R"(select 'it''s "true" & #1/2/2026# a!b ?')").toText(), R"(it's "true" & #1/2/2026# a!b ?)");
    EXPECT_EQ(scalar(R"(select "say ""hi""" & '' & "")").toText(), R"(say "hi")");
    EXPECT_EQ(scalar("select #1/2/26# & ' ' & #11/23/2026 12:30 am# & ' ' & #12:00 PM#").toText(),
              "2026-01-02 2026-11-23 00:30:00 1899-12-30 12:00:00");
    EXPECT_EQ(scalar("select lcase('AB') & len('abc') & mid('abcdef', 2, 3)").toText(), "ab3bcd");
    EXPECT_EQ(GetRecs(s(), "select distinctrow active from person").RecordCount(), 1u);
}

TEST_F(SqlDialectDb, JetFormsRunOnTheEngine) {
    addEntry("Ames", 1, at(23, 9, 0), at(23, 17, 0));
    EXPECT_EQ(GetRecs(s(), "select * from sched where sday = #11/23/2026#").RecordCount(), 1u);
    EXPECT_EQ(GetRecs(s(), "select * from sched where strttime = #11/23/2026 9:00 AM#").RecordCount(), 1u);
    EXPECT_EQ(GetRecs(s(), "select * from person where active = true").RecordCount(), 1u);  // the sample employee
    EXPECT_EQ(GetRecs(s(), "select * from person where active = false").RecordCount(), 0u);
    EXPECT_EQ(scalar("select lname & ', ' & UCase(fname) from person").toText(), "Sample, SAM");
    EXPECT_EQ(GetRecs(s(), "select top 1 * from leavetypes").RecordCount(), 1u);

    ASSERT_TRUE(InsertRecs(s(), "insert into options (optionname,optionvalue) values('nrunsincebackup','5')"));
    ASSERT_TRUE(UdateRecs(s(), "update options set options.optionvalue='0' where optionname='nrunsincebackup'"));
    EXPECT_EQ(scalar("select optionvalue from options where optionname='nrunsincebackup'").toText(), "0");
}

}  // namespace
}  // namespace tallymere::testing

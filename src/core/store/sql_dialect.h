#pragma once
// The program's statements keep the forms of the Jet dialect they were first written in; values are
// bound to `?`. translateSql rewrites what SQLite does not speak, before a statement is prepared,
// and registerSqlFunctions gives each connection the functions the statements call.
//
// Rewritten by translateSql (never inside '...' strings, [names], comments or `?` placeholders):
//   "text"                      -> 'text'   (inner "" become ", inner ' are doubled)
//   #11/23/2026#, #11/23/2026 10:00 PM#, #2026-11-23 22:00#
//                               -> '2026-11-23', '2026-11-23 22:00:00' (ISO text, as dates are stored);
//                                  a time alone falls on the engine's base day 1899-12-30
//   table!column                -> table.column
//   true / false (any case)     -> 1 / 0
//   a & b                       -> a || b   (|| binds tighter than + here: parenthesise sums)
//   select top N ...            -> select ... limit N   (outer statement)
//   distinctrow                 -> distinct
//   UCase( LCase( Len( Mid(    -> upper( lower( length( substr(
//   update t set t.col = ...    -> update t set col = ...
//   [column]                    stays: SQLite reads it as a name
// A select of one table (no join, no list of tables, no union, no group by or having, no distinct,
// no aggregate in the select list) without ORDER BY gets " order by rowid", before any LIMIT: the
// engine's row order is ascending key order, and the scheduler's tie-breaks rest on it.
//
// Registered by registerSqlFunctions:
//   like(pattern, text[, escape])   Jet wildcards for LIKE: * any run, ? one character, # one digit,
//                                   [abc], [!abc], [a-z]; ASCII letters without regard to case.
//                                   % and _ are plain characters. Works for bound patterns too.
//   datediff(interval, a, b)        REAL, so that DateDiff("n",a,b)/60 keeps its fraction
//   dateadd(interval, n, date)      ISO text; a date stays a date unless the interval is a time unit
//   datepart(interval, date)        yyyy q m y d w ww h n s
//   year month day hour minute second weekday (1 = Sunday)
//   format(value, pattern)          a date-time in a date/time pattern ("HH:MM", "mm/dd/yyyy",
//                                   "yyyy-mm-dd", "dddd", "h:mm AM/PM", ...); other values unchanged.
//                                   Only the two-argument form: format with more arguments is printf.
//   weekdayname(n[, abbreviate[, firstdayofweek]])   English names, 1 = Sunday
//   chkfld(x)                       NULL -> '', trimmed, cut to 255 characters, quotes doubled
//   nz(x[, ifnull])                 NULL -> ifnull, or '' without it
// Dates are read from ISO text. The date functions give NULL for NULL or for a value that is no date;
// an unknown interval or a weekday number out of range fails the statement, as it did in Jet.

#include <string>
#include <string_view>

struct sqlite3;

namespace tallymere::store {

std::string translateSql(std::string_view sql);

// Registers the system's SQL functions on a connection. False if the engine refused one.
bool registerSqlFunctions(sqlite3* db);

// Jet's LIKE on UTF-8 text (exposed for tests and for code that filters in memory).
bool jetLike(std::string_view pattern, std::string_view text, char32_t escape = 0);

}  // namespace tallymere::store

#pragma once
// The scheduler's statements and how their rows are read, shared by both ways of answering its
// questions so that they cannot drift apart.

#include "autosched/scheduler_facts.h"
#include "store/recordset.h"

namespace tallymere::autosched::sql {

// Bound: fillstart, fillend, the open schedule file.
inline constexpr const char* kUnassigned =
    "select * from sched where sday>=? and sday <=? and sname=? and personid = -1";
// Bound: the position, twice. AND binds tighter than OR: `active` holds for the primary position only,
// so an inactive employee with a qualification for the position is a candidate. Kept as it is.
inline constexpr const char* kCandidatesBalanced =
    "SELECT * From person WHERE active= true and primpos=? or personid in (select personid from qualifications "
    "where position=?)";
inline constexpr const char* kCandidatesFirstFit =
    "SELECT * From person WHERE active = true and primpos=? or personid in (select personid from qualifications "
    "where position=?)";
// Bound: weekstart, weekend, [the open schedule file,] personid.
inline constexpr const char* kWeekHoursAllFiles =
    "SELECT Sum(DateDiff(\"n\",[strttime],[endtime])/60) AS Expr2 from sched  where sched.sday >=? and sched.sday "
    "<=? and personid=?";
inline constexpr const char* kWeekHoursOpenFile =
    "SELECT Sum(DateDiff(\"n\",[strttime],[endtime])/60) AS Expr2 from sched  where sched.sday >=? and sched.sday "
    "<=? and sname=? and personid=?";
// Bound: schedid.
inline constexpr const char* kEntryLength =
    "SELECT Sum(DateDiff(\"n\",[strttime],[endtime])/60) AS Expr2 from sched  where sched!schedid =?";
// Bound: personid, last name, first name, schedid. Names are bound like any value, so an apostrophe
// in a name is just a character.
inline constexpr const char* kAssign = "update sched set personid = ?, lname = ?, fname = ? where schedid = ?";
inline constexpr const char* kDesiredShifts = "select * from desiredshift";
inline constexpr const char* kPerson = "select * from person where personid =?";

OpenEntry readOpenEntry(const store::Recordset& rs);
Person readPerson(const store::Recordset& rs);
DesiredShift readDesiredShift(const store::Recordset& rs);

}  // namespace tallymere::autosched::sql

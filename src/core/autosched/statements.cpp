#include "autosched/statements.h"

#include "common/numbers.h"

namespace tallymere::autosched::sql {

OpenEntry readOpenEntry(const store::Recordset& rs) {
    OpenEntry e;
    e.schedid = static_cast<long>(rs["schedid"].toLong());
    e.sday = rs["sday"].toDate();
    e.strttime = rs["strttime"].toDateTime();
    e.endtime = rs["endtime"].toDateTime();
    e.position = rs["position"].text();
    e.shift = rs["Shift"].text();
    return e;
}

Person readPerson(const store::Recordset& rs) {
    Person p;
    p.personid = static_cast<long>(rs["personid"].toLong());
    p.lname = rs["LName"].text();
    p.fname = rs["fname"].text();
    p.primpos = rs["primpos"].text();
    // A text column as the user typed it; what cannot be read counts as 0.
    p.hoursperweek = common::toNumber(rs["hoursperweek"].text());
    return p;
}

DesiredShift readDesiredShift(const store::Recordset& rs) {
    DesiredShift d;
    d.personid = static_cast<long>(rs["personid"].toLong());
    d.sday = rs["sday"].isNull() ? 0 : static_cast<int>(rs["sday"].toLong());
    d.shift = rs["Shift"].text();
    d.position = rs["position"].text();
    return d;
}

}  // namespace tallymere::autosched::sql

#pragma once
// Small pieces the employee windows share: a list control's state, the employee a tab works for,
// the name forms stored beside an employee's rows, and typed dates.

#include "common/date_time.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tallymere::reference {

// The state of a combo or list box: its items, an id per item where the list carries one, and the
// selected index (-1 for none).
struct ChoiceList {
    std::vector<std::string> items;
    std::vector<long> itemData;
    int ListIndex = -1;

    void clear();
    void add(std::string item, long data = 0);
    std::string text() const;  // the selected item, "" when none
    long data() const;         // the selected item's id, 0 when none
    // Selects the first item equal to `item` without regard to case; false (and no selection) when absent.
    bool select(std::string_view item);
    bool selectData(long data);
    std::size_t size() const { return items.size(); }
};

// The employee a tab or a small window works for. In the add-employee window there is no personid
// yet; the names are then those typed so far.
struct EmployeeRef {
    long personid = 0;
    std::string lname;
    std::string fname;
    std::string primpos;
};

// "Last, First", or the last name alone when there is no first name: the form kept in
// employeeleave.fullname and shown in employee lists.
std::string leaveFullName(std::string_view lname, std::string_view fname);

// A date as the user types it: m/d/yyyy (two-digit years fall in 1930-2029), m-d-yyyy or yyyy-mm-dd.
std::optional<common::Date> parseTypedDate(std::string_view text);

// The text form of the person table's date columns.
std::string personDateText(common::Date d);

}  // namespace tallymere::reference

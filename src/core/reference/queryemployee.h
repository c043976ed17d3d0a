#pragma once
// Finds the schedule entries of one employee between two dates, in one schedule file or in all.

#include "common/date_time.h"
#include "common/session.h"
#include "reference/employee_records.h"

#include <optional>
#include <string>
#include <vector>

namespace tallymere::reference {

struct EmployeeEntryRow {
    std::string Date;
    std::string StartTime;
    std::string EndTime;
    std::string Shift;
    std::string Position;
    std::string Section;
    std::string Schedule;
};

class queryemployee {
public:
    explicit queryemployee(common::Session& s) : s_(s) {}

    static constexpr const char* kColumns[7] = {"Date",     "Start Time", "End Time", "Shift",
                                                "Position", "Section",    "Schedule"};

    ChoiceList personcombo;    // "Last, First" with the personid
    ChoiceList schedulecombo;  // "All", then the schedule files
    std::optional<common::Date> startdate;
    std::optional<common::Date> enddate;

    std::string heading;  // "Schedule Entries for <name> from <start> to <end>"
    std::vector<EmployeeEntryRow> grid1;

    bool Load();
    // Runs the search into grid1 and heading. False after a message.
    bool searchbutton();

private:
    common::Session& s_;
    std::vector<std::pair<std::string, std::string>> names_;  // (fname, lname) per personcombo item
};

}  // namespace tallymere::reference

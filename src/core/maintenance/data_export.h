#pragma once
// The export of schedule entries to a comma-separated text file for other programs (`ExportData`).
// The file has a header line and one line per entry of a real employee; fields are joined by a comma
// with no quotes and no escaping, so a comma inside a name shifts that line's fields. Other programs
// read these files as they are, so the format stays.

#include "common/session.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tallymere::maintenance {

using common::Date;
using common::Session;

inline constexpr const char* kExportHeader = "EmpID, Last Name, First Name, Position, Day, StartTime, EndTime, Section";
// Every line, the header's too, ends so; what spreadsheets and the files of earlier versions expect.
inline constexpr const char* kExportLineEnd = "\r\n";
// The orders the file can have, as `SortCombo` lists them.
inline constexpr std::array<const char*, 5> kExportSorts{"position", "shift name", "employee", "section", "start time"};

// Writes the entries from `from` to `to` of `scheduleName` (of one employee when `personid` is set)
// in the order `sort` to the file at `path`, replacing it. The file is written whole or not at all.
// False, after saying why, when there is nothing to write or it could not be written.
bool ExportScheduleData(Session& s, Date from, Date to, const std::string& scheduleName, std::optional<long> personid,
                        std::string_view sort, const std::string& path);

// A combo's items, an id per item, and the chosen index.
struct ExportChoices {
    std::vector<std::string> items;
    std::vector<long> itemData;
    int ListIndex = -1;

    std::string text() const;
    long data() const;
};

class ExportData {
public:
    static constexpr const char* kWindowName = "ExportData";
    static constexpr const char* kCaption = "Export Data";
    static constexpr std::array<const char*, 3> kTexts{
        "Schedule data, for the dates specified is exported to a text file. ",
        "The fields exported are EmpID, Last Name, First Name, Position, Day, StartTime, EndTime, Section",
        "The fields are separated by a comma."};

    // Both dates the active date; all employees; ordered by start time.
    explicit ExportData(Session& s);

    // --- Controls
    Date startdate;
    Date enddate;
    ExportChoices employeeCombo;  // "All", then the active employees (item data: personid)
    ExportChoices SortCombo;

    // Checks the dates, asks for the file and writes it. True when the file was written.
    bool SaveButton_Click();

private:
    Session& s_;
};

}  // namespace tallymere::maintenance

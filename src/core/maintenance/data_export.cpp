#include "maintenance/data_export.h"

#include "common/display_format.h"
#include "common/text.h"
#include "store/access.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>

namespace tallymere::maintenance {

using common::MsgIcon;
using store::GetRecs;
using store::Recordset;

namespace {

namespace fs = std::filesystem;

constexpr const char* kTitle = ExportData::kCaption;

std::optional<std::string> orderBy(std::string_view sort) {
    if (sort == "position") return " order by position,sday,strttime,lname";
    if (sort == "shift name") return " order by shift,sday,strttime,lname";
    if (sort == "employee") return " order by lname,fname,sday,strttime";
    if (sort == "section") return " order by section,position,sday,strttime";
    // By the clock time, so that an entry at 12:30 AM comes before one at 6:00 AM of the same day.
    if (sort == "start time") return R"( order by sday,format(strttime,"HH:MM"),lname)";
    return std::nullopt;
}

bool scheduleFileKnown(Session& s, const std::string& name) {
    if (name.empty()) {
        s.ui().inform("No schedule file is open.");
        return false;
    }
    const auto rs = GetRecs(s, "select id from schedname where schedname=?", {name});
    if (!rs.isOpen()) return false;
    if (rs.empty()) {
        s.ui().inform("There is no schedule file named '" + name + "'.", MsgIcon::Exclamation);
        return false;
    }
    return true;
}

// The entries to write, after the checks that come before the file is asked for; nothing after a
// refusal.
std::optional<Recordset> exportRows(Session& s, Date from, Date to, const std::string& scheduleName,
                                    std::optional<long> personid, std::string_view sort) {
    if (from > to) {
        s.ui().inform("The start date cannot be greater than the end date.", MsgIcon::None, kTitle);
        return std::nullopt;
    }
    const auto order = orderBy(sort);
    if (!order) {
        s.ui().inform("The sort order '" + std::string(sort) +
                          "' is not one of position, shift name, employee, section, start time.",
                      MsgIcon::Exclamation, kTitle);
        return std::nullopt;
    }
    if (!scheduleFileKnown(s, scheduleName)) return std::nullopt;

    // **Unassigned** entries are never exported.
    std::string sql = "select * from sched where sday>=? and sday<=? and personid <> -1 and sname=?";
    store::Params params{from, to, scheduleName};
    if (personid) {
        sql += " and personid=?";
        params.emplace_back(*personid);
    }
    Recordset rs = GetRecs(s, sql + *order, params);
    if (!rs.isOpen()) return std::nullopt;
    if (rs.empty()) {
        s.ui().inform("No scheduling data was found for the dates entered", MsgIcon::None, kTitle);
        return std::nullopt;
    }
    return rs;
}

std::string exportText(Session& s, Recordset& rs) {
    std::map<long, std::string> empids;  // a deleted employee's is empty
    const auto empid = [&](long personid) -> const std::string& {
        auto it = empids.find(personid);
        if (it == empids.end())
            it = empids
                     .emplace(personid,
                              GetRecs(s, "select empid from person where personid=?", {personid})["empid"].text())
                     .first;
        return it->second;
    };
    const auto time = [&](const char* column) {
        const auto t = rs[column].toDateTime();
        return t ? common::formatDateTime(*t, s.settings.gs_ReportTimeFormat, s.locale) : std::string();
    };

    std::string out = std::string(kExportHeader) + kExportLineEnd;
    for (rs.MoveFirst(); !rs.eof(); rs.MoveNext()) {
        const auto day = rs["sday"].toDate();
        out += empid(static_cast<long>(rs["personid"].toLong())) + "," + rs["lname"].text() + "," + rs["fname"].text() +
               "," + rs["position"].text() + "," + (day ? common::formatDate(*day, "mm/dd/yyyy") : std::string()) +
               "," + time("strttime") + "," + time("endtime") + "," + rs["section"].text() + kExportLineEnd;
    }
    return out;
}

// Written beside the target and put in its place at the end, so that a failure halfway leaves the
// file that was there before.
bool writeWhole(Session& s, const std::string& path, const std::string& text) {
    const fs::path target(path);
    fs::path part = target;
    part += ".part";
    const auto fail = [&](const std::string& why) {
        std::error_code ignored;
        fs::remove(part, ignored);
        s.ui().inform("Unable to write the file " + path + ". " + why, MsgIcon::Critical, kTitle);
        return false;
    };
    {
        std::ofstream file(part, std::ios::binary | std::ios::trunc);
        if (!file) return fail(std::strerror(errno));
        file.write(text.data(), static_cast<std::streamsize>(text.size()));
        file.close();
        if (!file) return fail(std::strerror(errno));
    }
    std::error_code ec;
    fs::rename(part, target, ec);
    if (ec) return fail(ec.message());
    return true;
}

}  // namespace

bool ExportScheduleData(Session& s, Date from, Date to, const std::string& scheduleName, std::optional<long> personid,
                        std::string_view sort, const std::string& path) {
    auto rs = exportRows(s, from, to, scheduleName, personid, sort);
    if (!rs) return false;
    if (path.empty()) {
        s.ui().inform("No file was given to export to.", MsgIcon::Exclamation, kTitle);
        return false;
    }
    return writeWhole(s, path, exportText(s, *rs));
}

std::string ExportChoices::text() const {
    return ListIndex >= 0 && ListIndex < static_cast<int>(items.size()) ? items[static_cast<std::size_t>(ListIndex)]
                                                                        : std::string();
}

long ExportChoices::data() const {
    return ListIndex >= 0 && ListIndex < static_cast<int>(itemData.size())
               ? itemData[static_cast<std::size_t>(ListIndex)]
               : 0;
}

ExportData::ExportData(Session& s) : startdate(s.activeDate), enddate(s.activeDate), s_(s) {
    employeeCombo.items.push_back("All");
    employeeCombo.itemData.push_back(0);
    for (Recordset rs = GetRecs(s_, "select * from person where active=true order by lname,fname"); !rs.eof();
         rs.MoveNext()) {
        const std::string lname = rs["lname"].text(), fname = rs["fname"].text();
        employeeCombo.items.push_back(fname.empty() ? lname : lname + ", " + fname);
        employeeCombo.itemData.push_back(static_cast<long>(rs["personid"].toLong()));
    }
    employeeCombo.ListIndex = 0;
    SortCombo.items.assign(kExportSorts.begin(), kExportSorts.end());
    SortCombo.itemData.assign(kExportSorts.size(), 0);
    SortCombo.ListIndex = static_cast<int>(kExportSorts.size()) - 1;  // "start time"
}

bool ExportData::SaveButton_Click() {
    const std::optional<long> personid =
        employeeCombo.ListIndex > 0 ? std::optional<long>(employeeCombo.data()) : std::nullopt;
    auto rs = exportRows(s_, startdate, enddate, s_.currentSchedule, personid, SortCombo.text());
    if (!rs) return false;
    // The file dialog asks before an existing file is replaced.
    const auto path = s_.ui().chooseSaveFile(kTitle, "", {{"TXT Files", "*.txt"}, {"All Files", "*.*"}});
    if (!path || path->empty()) return false;
    return writeWhole(s_, *path, exportText(s_, *rs));
}

}  // namespace tallymere::maintenance

#include "staffing/staffing_lists.h"

#include "store/access.h"

namespace tallymere::staffing {

using store::GetRecs;

void fillShiftList(Session& s, ChoiceList& list, bool withAll) {
    list.clear();
    if (withAll) list.add(kAll);
    for (auto rs = GetRecs(s, "select name from shift order by strttime,endtime,name"); !rs.eof(); rs.MoveNext())
        list.add(rs["name"].text());
    list.ListIndex = list.size() > 0 ? 0 : -1;
}

void fillPositionList(Session& s, ChoiceList& list, bool withAll) {
    list.clear();
    if (withAll) list.add(kAll);
    for (auto rs = GetRecs(s, "select title from position"); !rs.eof(); rs.MoveNext()) list.add(rs["title"].text());
    list.ListIndex = list.size() > 0 ? 0 : -1;
}

std::vector<std::string> shiftsPassing(Session& s, const ChoiceList& filter) {
    const std::string name = filter.text();
    auto rs = name.empty() || name == kAll
                  ? GetRecs(s, "select * from shift order by strttime,endtime,name")
                  : GetRecs(s, "select * from shift where name = ? order by strttime,endtime,name", {name});
    std::vector<std::string> out;
    for (; !rs.eof(); rs.MoveNext()) out.push_back(rs["name"].text());
    return out;
}

std::vector<std::string> positionsPassing(Session& s, const ChoiceList& filter) {
    const std::string title = filter.text();
    auto rs = title.empty() || title == kAll
                  ? GetRecs(s, "select * from position order by title")
                  : GetRecs(s, "select * from position where title = ? order by title", {title});
    std::vector<std::string> out;
    for (; !rs.eof(); rs.MoveNext()) out.push_back(rs["title"].text());
    return out;
}

void writeList(std::ostream& out, const reports::ListGrid& grid, common::Delimited style) {
    common::CsvWriter csv(out, style);
    std::vector<std::string> captions;
    for (const auto& c : grid.columns) captions.push_back(c.caption);
    csv.row(captions);
    for (auto row : grid.rows) {
        row.resize(grid.columns.size());
        csv.row(row);
    }
}

std::optional<long> parseHeadCount(std::string_view text) {
    if (text.empty() || text.size() > 6) return std::nullopt;
    long n = 0;
    for (char c : text) {
        if (c < '0' || c > '9') return std::nullopt;
        n = n * 10 + (c - '0');
    }
    return n;
}

}  // namespace tallymere::staffing

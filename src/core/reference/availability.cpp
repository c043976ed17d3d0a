#include "reference/availability.h"

#include "store/access.h"

#include <algorithm>

namespace tallymere::reference {

using store::GetRecs;

namespace {
constexpr const char* kFindDay = "select * from availability where personid=? and sday=?";
bool validDay(int day) { return day >= 0 && day < 7; }
}  // namespace

void AvailabilityTab::availableoptionClick() {
    availableoption = true;
    unavailableoption = false;
}

void AvailabilityTab::unavailableoptionClick() {
    availableoption = false;
    unavailableoption = true;
}

void AvailabilityTab::paint(int day, int fromHour, int toHour) {
    if (!validDay(day)) return;
    if (fromHour > toHour) std::swap(fromHour, toHour);
    fromHour = std::max(fromHour, 0);
    toHour = std::min(toHour, 23);
    for (int h = fromHour; h <= toHour; ++h)
        availGrid1[static_cast<std::size_t>(day)][static_cast<std::size_t>(h)] = unavailableoption;
    if (fromHour <= toHour) changed_ = true;
}

void AvailabilityTab::daybutton(int day) { paint(day, 0, 23); }

std::string AvailabilityTab::houravail(int day) const {
    std::string text(24, 'Y');
    if (!validDay(day)) return text;
    for (std::size_t h = 0; h < 24; ++h)
        if (availGrid1[static_cast<std::size_t>(day)][h]) text[h] = 'N';
    return text;
}

bool AvailabilityTab::Load(long personid) {
    for (int day = 0; day < 7; ++day) {
        auto& cells = availGrid1[static_cast<std::size_t>(day)];
        cells.fill(false);
        auto rs = GetRecs(s_, kFindDay, {personid, common::weekdayName(day + 1)});
        if (!rs.isOpen()) return false;
        if (rs.eof()) continue;
        const std::string text = rs["houravail"].text();
        for (std::size_t h = 0; h < 24 && h < text.size(); ++h) cells[h] = text[h] == 'N' || text[h] == 'n';
    }
    changed_ = false;
    return true;
}

bool AvailabilityTab::Save(long personid, const std::string& lname, const std::string& fname) {
    for (int day = 0; day < 7; ++day) {
        const std::string name = common::weekdayName(day + 1);
        const std::string text = houravail(day);
        auto rs = GetRecs(s_, kFindDay, {personid, name});
        if (!rs.isOpen()) return false;
        const bool ok =
            rs.eof() ? store::InsertRecs(
                           s_, "insert into availability (personid,lname,fname,sday,houravail) values(?,?,?,?,?)",
                           {personid, lname, fname, name, text})
                     : store::UdateRecs(s_, "update availability set houravail=? where personid=? and sday=?",
                                        {text, personid, name});
        if (!ok) return false;
    }
    changed_ = false;
    return true;
}

}  // namespace tallymere::reference

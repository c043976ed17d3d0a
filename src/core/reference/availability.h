#pragma once
// The availability tab of the employee windows: seven day grids of 24 hour cells, painted with a
// brush, read from and written to the employee's 24-character availability strings (one character
// an hour from midnight, "Y" available, "N" not).

#include "common/session.h"

#include <array>
#include <string>

namespace tallymere::reference {

class AvailabilityTab {
public:
    explicit AvailabilityTab(common::Session& s) : s_(s) {}

    static constexpr const char* kHint = "Click on the day name to set the entire day.";
    static constexpr const char* kAvailableCaption = "Set Available";
    static constexpr const char* kUnavailableCaption = "Set Unavailable";

    // availGrid1[day][hour], day 0 = Sunday .. 6 = Saturday, hour 0 = from midnight; true for a cell
    // painted unavailable.
    std::array<std::array<bool, 24>, 7> availGrid1{};

    // The brush: which of the two options is chosen.
    bool availableoption = false;
    bool unavailableoption = true;
    void availableoptionClick();
    void unavailableoptionClick();

    // Paints the cells from `fromHour` to `toHour` of one day, both included and in either order (a
    // click is a range of one cell, a drag the cells it swept), with the brush.
    void paint(int day, int fromHour, int toHour);
    // Paints the whole day with the brush.
    void daybutton(int day);

    // True once a cell was painted since the last load or save.
    bool changed() const { return changed_; }

    // The day's string as it would be saved.
    std::string houravail(int day) const;

    // Reads the employee's seven rows; a missing row leaves the day available.
    bool Load(long personid);
    // Writes the seven strings, updating a day's row or inserting it, so that every day has its row
    // after the first save.
    bool Save(long personid, const std::string& lname, const std::string& fname);

private:
    common::Session& s_;
    bool changed_ = false;
};

}  // namespace tallymere::reference

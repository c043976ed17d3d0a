#pragma once
// What the schedule windows need of the window that holds them: the quick bar's fields, the enabling
// of menu entries and the day navigator. The shell's main form provides it; the schedule windows do
// not know the shell.

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace tallymere::schedule {

// The quick bar. Time fields are control arrays: index 1 the start, index 0 the end.
struct QuickBar {
    struct Combo {
        std::vector<std::string> items;
        std::string text;
    };
    Combo shiftcombo;
    Combo positioncombo;
    Combo sectioncombo;
    std::array<std::string, 2> TETxtHr;
    std::array<std::string, 2> TeTxtMin;
    std::array<std::string, 2> TEAmPm;
};

class ScheduleHost {
public:
    virtual ~ScheduleHost() = default;
    virtual QuickBar& quickBar() = 0;
    // The entry's own enabled state; the host still weighs the user's rights. An unknown name throws
    // std::invalid_argument.
    virtual void setMenuEnabled(std::string_view name, bool enabled) = 0;
    virtual void dayPlus_Click() = 0;     // one day on
    virtual void SSCommand1_Click() = 0;  // one day back
};

}  // namespace tallymere::schedule

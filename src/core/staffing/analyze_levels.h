#pragma once
// `analyzelevels`: for one day, the head count scheduled in each position on each shift against the
// staffing level, marked as matching, over or under.

#include "staffing/staffing_lists.h"

#include <string>
#include <vector>

namespace tallymere::staffing {

// The pictures of `imglist` the marks use.
enum class LevelMark { Equal = 2, Over = 3, Under = 4 };

struct AnalysisRow {
    LevelMark picture = LevelMark::Equal;
    std::string shift;
    std::string position;
    std::string needed;     // empty when there is no level
    std::string scheduled;  // "0" when nobody is scheduled
};

struct LegendItem {
    LevelMark picture;
    std::string text;
};

class analyzelevels {
public:
    static constexpr const char* kWindowName = "analyzelevels";
    static constexpr const char* kTitle = "Analyze Staffing";

    // The window's load: levels at 0 go, the filters fill, the day is the active date.
    explicit analyzelevels(Session& s);

    // --- Controls
    std::string Caption;
    Date analyzeday;
    ChoiceList shiftcombo;
    ChoiceList positioncombo;
    std::string Label4;
    std::vector<AnalysisRow> Bblistview1;
    std::vector<LegendItem> legend;

    // The load, again when the open schedule file changed; the day stays.
    void Form_Load();
    // Analyze. False when it stopped at a message (no shifts or no positions).
    bool analyzebutton_Click();

    // The list as shown, for printing and saving.
    reports::ListGrid listGrid() const;
    static const char* markText(LevelMark mark);

private:
    Session& s_;
};

}  // namespace tallymere::staffing

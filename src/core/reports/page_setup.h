#pragma once
// Page geometry of the report surface, in twips (1440 to the inch, 20 to the point): lengths as the
// page setup and tables take them, the paper sizes, the page settings kept in the global settings,
// and the width of a day column when reports fit their days to the page.

#include "common/global_settings.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tallymere::reports {

constexpr int kTwipsPerInch = 1440;
constexpr int kTwipsPerPoint = 20;

// A length: a number of twips ("720", "1000.4") or a number with a unit, "in", "cm", "mm", "pt" or
// "tw", with or without a blank before it ("1.5in", ".25in", "2 cm"). Rounded to whole twips.
// nullopt for anything else, a negative length included.
std::optional<int> parseTwips(std::string_view text);

// Orientation values of the surface.
constexpr int kPortrait = 1;
constexpr int kLandscape = 2;

// The paper sizes the surface knows, by the PaperSize numbers of the printing system.
struct PaperSize {
    int code;
    const char* name;  // "Letter", "A4", ...
    int width;         // portrait, twips
    int height;
};
constexpr int kPaperLetter = 1;
constexpr int kPaperA4 = 9;
const std::vector<PaperSize>& paperSizes();
// nullptr for a number the surface does not know.
const PaperSize* findPaperSize(int code);

// Width of one day column in inches when a report fits its days to the page: the space between the
// margins less the name column (1.5 inches unless given), shared by the days. 0 for no days.
double fitColumnWidthInches(int pageWidth, int marginLeft, int marginRight, int numDays, int nameColumnTwips = 2160);

// The page settings every report starts from, as the global settings keep them.
struct PageSettings {
    int orientation = kPortrait;
    int paperSize = kPaperLetter;
    std::string device;
    int marginTop = 1080;
    int marginBottom = 720;
    int marginLeft = 720;
    int marginRight = 720;

    // Page size in twips for the paper and orientation.
    int pageWidth() const;
    int pageHeight() const;
};

// `gs_PaperSize` is text: an empty or unreadable value means Letter.
PageSettings pageSettingsFrom(const common::GlobalSettings& g);
void storePageSettings(common::GlobalSettings& g, const PageSettings& p);

}  // namespace tallymere::reports

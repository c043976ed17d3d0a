#include "reports/page_setup.h"

#include "common/text.h"

#include <charconv>
#include <cmath>

namespace tallymere::reports {

std::optional<int> parseTwips(std::string_view text) {
    const std::string_view t = common::trimView(text);
    std::size_t i = 0;
    bool digits = false;
    while (i < t.size() && t[i] >= '0' && t[i] <= '9') ++i, digits = true;
    if (i < t.size() && t[i] == '.') {
        ++i;
        while (i < t.size() && t[i] >= '0' && t[i] <= '9') ++i, digits = true;
    }
    if (!digits) return std::nullopt;
    double value = 0;
    const auto [end, ec] = std::from_chars(t.data(), t.data() + i, value);
    if (ec != std::errc() || end != t.data() + i) return std::nullopt;

    const std::string unit = common::toLower(common::trimView(t.substr(i)));
    double perUnit = 0;
    if (unit.empty() || unit == "tw")
        perUnit = 1;
    else if (unit == "in")
        perUnit = kTwipsPerInch;
    else if (unit == "cm")
        perUnit = kTwipsPerInch / 2.54;
    else if (unit == "mm")
        perUnit = kTwipsPerInch / 25.4;
    else if (unit == "pt")
        perUnit = kTwipsPerPoint;
    else
        return std::nullopt;
    const double twips = std::round(value * perUnit);
    if (twips > 1e8) return std::nullopt;
    return static_cast<int>(twips);
}

const std::vector<PaperSize>& paperSizes() {
    static const std::vector<PaperSize> sizes = {
        {kPaperLetter, "Letter", 12240, 15840},
        {3, "Tabloid", 15840, 24480},
        {5, "Legal", 12240, 20160},
        {7, "Executive", 10440, 15120},
        {8, "A3", 16838, 23811},
        {kPaperA4, "A4", 11906, 16838},
        {11, "A5", 8391, 11906},
        {13, "B5", 10319, 14571},
    };
    return sizes;
}

const PaperSize* findPaperSize(int code) {
    for (const auto& p : paperSizes())
        if (p.code == code) return &p;
    return nullptr;
}

double fitColumnWidthInches(int pageWidth, int marginLeft, int marginRight, int numDays, int nameColumnTwips) {
    if (numDays <= 0) return 0;
    return (static_cast<double>(pageWidth) - (marginLeft + marginRight) - nameColumnTwips) / numDays / kTwipsPerInch;
}

int PageSettings::pageWidth() const {
    const PaperSize* p = findPaperSize(paperSize);
    if (!p) p = findPaperSize(kPaperLetter);
    return orientation == kLandscape ? p->height : p->width;
}

int PageSettings::pageHeight() const {
    const PaperSize* p = findPaperSize(paperSize);
    if (!p) p = findPaperSize(kPaperLetter);
    return orientation == kLandscape ? p->width : p->height;
}

PageSettings pageSettingsFrom(const common::GlobalSettings& g) {
    PageSettings p;
    p.orientation = g.orientation == kLandscape ? kLandscape : kPortrait;
    int code = 0;
    const std::string_view paper = common::trimView(g.gs_PaperSize);
    const auto [end, ec] = std::from_chars(paper.data(), paper.data() + paper.size(), code);
    if (ec == std::errc() && end == paper.data() + paper.size() && findPaperSize(code)) p.paperSize = code;
    p.device = g.gs_PrinterDevice;
    p.marginTop = g.margintop;
    p.marginBottom = g.marginbottom;
    p.marginLeft = g.marginleft;
    p.marginRight = g.marginright;
    return p;
}

void storePageSettings(common::GlobalSettings& g, const PageSettings& p) {
    g.orientation = p.orientation;
    g.gs_PaperSize = std::to_string(p.paperSize);
    g.gs_PrinterDevice = p.device;
    g.margintop = p.marginTop;
    g.marginbottom = p.marginBottom;
    g.marginleft = p.marginLeft;
    g.marginright = p.marginRight;
}

}  // namespace tallymere::reports

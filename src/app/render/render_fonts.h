#pragma once
// Report fonts on Qt. Text is measured and painted at one pixel per twip (20 pixels to the point)
// with hinting off, so a line measured while composing is the line painted on the screen, the
// printer and PDF. "Arial" and its kin are painted in their metric-compatible Liberation families
// where the system lacks them, so page breaks do not move from one machine to another.

#include "reports/font_metrics.h"

#include <QFont>
#include <QFontMetricsF>
#include <QString>
#include <map>
#include <memory>
#include <string>
#include <tuple>

namespace tallymere::app::render {

// The family a report font is painted in.
QString paintFamily(const std::string& name);

// The font at 20 pixels to the point.
QFont twipFont(const reports::Font& f);

// Fonts and their metrics, made once per report font. Owned by whoever measures or paints, never
// kept beyond the application object.
class FontCache {
public:
    const QFont& font(const reports::Font& f) { return entry(f).font; }
    const QFontMetricsF& metrics(const reports::Font& f) { return entry(f).metrics; }

private:
    struct Entry {
        QFont font;
        QFontMetricsF metrics;
    };
    using Key = std::tuple<std::string, double, bool, bool>;
    Entry& entry(const reports::Font& f);
    std::map<Key, std::unique_ptr<Entry>> entries_;
};

// The font metrics port on Qt.
class QtFontMetrics final : public reports::FontMetrics {
public:
    double textWidth(const reports::Font& font, std::string_view text) const override;
    double lineHeight(const reports::Font& font) const override;

private:
    mutable FontCache cache_;
};

}  // namespace tallymere::app::render

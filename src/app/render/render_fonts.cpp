#include "app/render/render_fonts.h"

#include "reports/page_setup.h"

#include <QFontDatabase>
#include <cmath>

namespace tallymere::app::render {

QString paintFamily(const std::string& name) {
    static const std::map<QString, QString> substitutes = {
        {QStringLiteral("arial"), QStringLiteral("Liberation Sans")},
        {QStringLiteral("helvetica"), QStringLiteral("Liberation Sans")},
        {QStringLiteral("arial narrow"), QStringLiteral("Liberation Sans Narrow")},
        {QStringLiteral("times new roman"), QStringLiteral("Liberation Serif")},
        {QStringLiteral("times"), QStringLiteral("Liberation Serif")},
        {QStringLiteral("courier new"), QStringLiteral("Liberation Mono")},
        {QStringLiteral("courier"), QStringLiteral("Liberation Mono")},
    };
    const QString family = QString::fromStdString(name);
    if (QFontDatabase::hasFamily(family)) return family;
    const auto it = substitutes.find(family.toLower());
    if (it != substitutes.end() && QFontDatabase::hasFamily(it->second)) return it->second;
    return family;
}

QFont twipFont(const reports::Font& f) {
    QFont font(paintFamily(f.name));
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(f.size * reports::kTwipsPerPoint))));
    font.setBold(f.bold);
    font.setItalic(f.italic);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::PreferOutline);
    return font;
}

FontCache::Entry& FontCache::entry(const reports::Font& f) {
    const Key key{f.name, f.size, f.bold, f.italic};
    auto it = entries_.find(key);
    if (it == entries_.end()) {
        QFont font = twipFont(f);
        it = entries_.emplace(key, std::make_unique<Entry>(Entry{font, QFontMetricsF(font)})).first;
    }
    return *it->second;
}

double QtFontMetrics::textWidth(const reports::Font& font, std::string_view text) const {
    return cache_.metrics(font).horizontalAdvance(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
}

double QtFontMetrics::lineHeight(const reports::Font& font) const { return cache_.metrics(font).lineSpacing(); }

}  // namespace tallymere::app::render

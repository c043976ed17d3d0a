#include "reports/font_metrics.h"

namespace tallymere::reports {

std::size_t utf8CharSize(std::string_view text, std::size_t pos) {
    const auto c = static_cast<unsigned char>(text[pos]);
    std::size_t n = 1;
    if (c >= 0xF0 && c < 0xF8)
        n = 4;
    else if (c >= 0xE0)
        n = c < 0xF0 ? 3 : 1;
    else if (c >= 0xC2)
        n = 2;
    if (pos + n > text.size()) return 1;
    for (std::size_t i = 1; i < n; ++i)
        if ((static_cast<unsigned char>(text[pos + i]) & 0xC0) != 0x80) return 1;
    return n;
}

std::size_t utf8Length(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < text.size(); i += utf8CharSize(text, i)) ++count;
    return count;
}

double FixedPitchMetrics::textWidth(const Font& font, std::string_view text) const {
    return static_cast<double>(utf8Length(text)) * font.size * 10;
}

double FixedPitchMetrics::lineHeight(const Font& font) const { return font.size * 24; }

namespace {

// Breaks one line that has no line breaks.
void wrapLine(const FontMetrics& m, const Font& font, std::string_view line, double width,
              std::vector<std::string>& out) {
    std::string current;
    std::string_view pendingBlanks;
    bool lineStart = true;  // blanks that open the text are indentation and stay
    std::size_t i = 0;
    auto fits = [&](std::string_view s) { return m.textWidth(font, s) <= width + 0.01; };
    while (i < line.size()) {
        if (line[i] == ' ') {
            const std::size_t start = i;
            while (i < line.size() && line[i] == ' ') ++i;
            pendingBlanks = line.substr(start, i - start);
            continue;
        }
        const std::size_t start = i;
        while (i < line.size() && line[i] != ' ') ++i;
        std::string_view word = line.substr(start, i - start);

        std::string candidate = current;
        if (!current.empty() || lineStart) candidate.append(pendingBlanks);
        candidate.append(word);
        pendingBlanks = {};
        if (fits(candidate)) {
            current = std::move(candidate);
            lineStart = false;
            continue;
        }
        if (!current.empty()) {
            out.push_back(std::move(current));
            current.clear();
        }
        lineStart = false;
        // The word alone, while it is too wide: broken after a hyphen ("9:00am-" "5:00pm"), else
        // between characters.
        while (!word.empty() && !fits(word)) {
            std::size_t take = 0;
            for (std::size_t h = word.find('-'); h != std::string_view::npos && h + 1 < word.size();
                 h = word.find('-', h + 1)) {
                if (!fits(word.substr(0, h + 1))) break;
                take = h + 1;
            }
            if (take == 0) take = utf8CharSize(word, 0);
            while (take < word.size() && word[take - 1] != '-') {
                const std::size_t next = take + utf8CharSize(word, take);
                if (!fits(word.substr(0, next))) break;
                take = next;
            }
            out.emplace_back(word.substr(0, take));
            word.remove_prefix(take);
        }
        current = std::string(word);
    }
    // Blanks that end the text are kept while they fit: text written after it follows them.
    if (current.empty() && lineStart)
        current = std::string(pendingBlanks);
    else if (!pendingBlanks.empty() && fits(current + std::string(pendingBlanks)))
        current.append(pendingBlanks);
    out.push_back(std::move(current));
}

}  // namespace

std::vector<std::string> wrapText(const FontMetrics& metrics, const Font& font, std::string_view text, double width) {
    std::vector<std::string> lines;
    std::size_t pos = 0;
    while (true) {
        const std::size_t nl = text.find('\n', pos);
        std::string_view line = text.substr(pos, nl == std::string_view::npos ? std::string_view::npos : nl - pos);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        wrapLine(metrics, font, line, width, lines);
        if (nl == std::string_view::npos) break;
        pos = nl + 1;
    }
    return lines;
}

}  // namespace tallymere::reports

#pragma once
// Fonts of the report surface and how their text is measured. The surface lays out pages itself, so
// it asks a FontMetrics port: the app answers with the fonts it will paint with, tests and the
// command line with a fixed pitch.

#include <string>
#include <string_view>
#include <vector>

namespace tallymere::reports {

struct Font {
    std::string name = "Arial";
    double size = 10;  // points
    bool bold = false;
    bool italic = false;

    bool operator==(const Font&) const = default;
};

class FontMetrics {
public:
    virtual ~FontMetrics() = default;
    // Width of one line of text (no line breaks), in twips.
    virtual double textWidth(const Font& font, std::string_view text) const = 0;
    // From the top of one line to the top of the next, in twips.
    virtual double lineHeight(const Font& font) const = 0;
};

// Every character half an em wide and lines 1.2 em apart: a 10 point font has 100-twip characters
// and 240-twip lines. Widths count characters, not bytes, of UTF-8 text.
class FixedPitchMetrics final : public FontMetrics {
public:
    double textWidth(const Font& font, std::string_view text) const override;
    double lineHeight(const Font& font) const override;
};

// Number of characters of UTF-8 text; a byte that starts no valid sequence counts as one.
std::size_t utf8Length(std::string_view text);
// Byte length of the character that starts at `pos`.
std::size_t utf8CharSize(std::string_view text, std::size_t pos);

// The lines of `text` within `width` twips: line breaks ("\n", "\r\n") are kept, lines break at
// blanks, and a word wider than the width is broken after a hyphen or else between characters. Blanks at a break are
// dropped; blanks at the end are kept while they fit. An empty text is one empty line.
std::vector<std::string> wrapText(const FontMetrics& metrics, const Font& font, std::string_view text, double width);

}  // namespace tallymere::reports

#include "reports/rtf_writer.h"

#include "common/text.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <system_error>

namespace tallymere::reports {
namespace {

std::string hexByte(unsigned char c) {
    char buf[8];
    std::snprintf(buf, sizeof buf, "\\'%02x", c);
    return buf;
}

// \uN takes a signed 16-bit number; characters beyond the basic plane go as a surrogate pair.
void unicodeEscape(std::string& out, std::uint32_t cp) {
    auto unit = [&](std::uint32_t u) {
        const int n = u < 0x8000 ? static_cast<int>(u) : static_cast<int>(u) - 0x10000;
        out += "\\u" + std::to_string(n) + "?";
    };
    if (cp > 0xFFFF) {
        cp -= 0x10000;
        unit(0xD800 + (cp >> 10));
        unit(0xDC00 + (cp & 0x3FF));
    } else {
        unit(cp);
    }
}

const char* fontFamily(const std::string& name) {
    const std::string n = common::toLower(name);
    if (n.find("courier") != std::string::npos || n.find("mono") != std::string::npos) return "fmodern";
    if (n.find("times") != std::string::npos || n.find("serif") != std::string::npos ||
        n.find("georgia") != std::string::npos)
        return n.find("sans") != std::string::npos ? "fswiss" : "froman";
    if (n.find("arial") != std::string::npos || n.find("helvetica") != std::string::npos ||
        n.find("sans") != std::string::npos || n.find("verdana") != std::string::npos ||
        n.find("tahoma") != std::string::npos)
        return "fswiss";
    return "fnil";
}

const char* alignWord(Align a) { return a == Align::Center ? "\\qc" : a == Align::Right ? "\\qr" : "\\ql"; }

const char* borderStyle(PenStyle s) {
    switch (s) {
    case PenStyle::Dash: return "\\brdrdash";
    case PenStyle::Dot: return "\\brdrdot";
    case PenStyle::DashDot: return "\\brdrdashd";
    case PenStyle::DashDotDot: return "\\brdrdashdd";
    default: return "\\brdrs";
    }
}

class RtfWriter {
public:
    explicit RtfWriter(const Document& d) : d_(d) {}

    std::string write() {
        collect();
        out_ += "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1\n";
        out_ += "{\\fonttbl";
        for (std::size_t i = 0; i < fontNames_.size(); ++i)
            out_ += "{\\f" + std::to_string(i) + "\\" + fontFamily(fontNames_[i]) + "\\fcharset0 " +
                    rtfEscape(fontNames_[i]) + ";}";
        out_ += "}\n{\\colortbl;";
        for (const Color& c : colors_)
            out_ +=
                "\\red" + std::to_string(c.r) + "\\green" + std::to_string(c.g) + "\\blue" + std::to_string(c.b) + ";";
        out_ += "}\n";
        out_ += "\\paperw" + std::to_string(d_.pageWidth) + "\\paperh" + std::to_string(d_.pageHeight) + "\\margl" +
                std::to_string(d_.marginLeft) + "\\margr" + std::to_string(d_.marginRight) + "\\margt" +
                std::to_string(d_.marginTop) + "\\margb" + std::to_string(d_.marginBottom);
        if (d_.orientation == 2) out_ += "\\landscape";
        out_ += "\n\\sectd";
        if (d_.orientation == 2) out_ += "\\lndscpsxn";
        out_ += "\n";
        if (!d_.header.empty()) headerFooter("\\header", d_.header, d_.headerFont);
        if (!d_.footer.empty()) headerFooter("\\footer", d_.footer, d_.footerFont);

        bool breakBefore = false;
        for (std::size_t i = 0; i < d_.flow.size(); ++i) {
            const Block& b = d_.flow[i];
            if (const auto* p = std::get_if<ParagraphBlock>(&b)) paragraph(*p, breakBefore);
            breakBefore = false;
            if (const auto* r = std::get_if<RuleBlock>(&b)) rule(*r);
            if (const auto* s = std::get_if<SpaceBlock>(&b)) space(*s);
            if (const auto* t = std::get_if<TableBlock>(&b)) table(*t);
            if (std::holds_alternative<PageBreakBlock>(b)) {
                // A paragraph after the break starts the page itself; anything else gets a paragraph of
                // its own to start it, as a page break character after a table is lost.
                const bool paragraphNext =
                    i + 1 < d_.flow.size() && std::holds_alternative<ParagraphBlock>(d_.flow[i + 1]);
                if (paragraphNext)
                    breakBefore = true;
                else
                    out_ += "\\pard\\plain\\pagebb\\fs2\\par\n";
            }
        }
        // A document may not end in a table.
        if (!d_.flow.empty() && std::holds_alternative<TableBlock>(d_.flow.back())) out_ += "\\pard\\plain\\fs2\\par\n";
        out_ += "}\n";
        return std::move(out_);
    }

private:
    void addFont(const std::string& name) {
        if (fontIndex_.emplace(name, static_cast<int>(fontNames_.size())).second) fontNames_.push_back(name);
    }
    void addColor(const Color& c) {
        if (colorIndex_.emplace(c.stored(), static_cast<int>(colors_.size()) + 1).second) colors_.push_back(c);
    }

    // Fonts and colours in the order they are first used, so the tables read like the document.
    void collect() {
        addFont("Arial");
        if (!d_.header.empty()) addFont(d_.headerFont.name);
        if (!d_.footer.empty()) addFont(d_.footerFont.name);
        for (const Block& b : d_.flow) {
            if (const auto* p = std::get_if<ParagraphBlock>(&b))
                for (const Span& s : p->spans) addFont(s.font.name);
            if (const auto* t = std::get_if<TableBlock>(&b)) {
                const Table& tb = t->table;
                for (int r = tb.hasHeader() ? 0 : 1; r <= tb.Rows(); ++r)
                    for (int c = 1; c <= tb.Cols(); ++c) {
                        addFont(tb.cellFont(r, c).name);
                        if (const auto bg = tb.backColor(r, c)) addColor(*bg);
                        if (const auto fg = tb.foreColor(r, c)) addColor(*fg);
                    }
            }
        }
    }

    std::string fontWords(const Font& f) const {
        std::string s = "\\f" + std::to_string(fontIndex_.at(f.name)) + "\\fs" +
                        std::to_string(static_cast<int>(std::lround(f.size * 2)));
        if (f.bold) s += "\\b";
        if (f.italic) s += "\\i";
        return s;
    }

    void headerFooter(const char* word, const std::string& text, const Font& font) {
        auto fields = common::split(text, '|');
        fields.resize(3);
        const int width = d_.pageWidth - d_.marginLeft - d_.marginRight;
        out_ += std::string("{") + word + "\\pard\\plain\\tqc\\tx" + std::to_string(width / 2) + "\\tqr\\tx" +
                std::to_string(width) + "{" + fontWords(font) + " ";
        for (std::size_t i = 0; i < 3; ++i) {
            if (i > 0) out_ += "\\tab ";
            const auto parts = common::split(fields[i], '%');
            // "%d" is the page number; any other "%" stays as it is.
            std::string field;
            for (std::size_t k = 0; k < parts.size(); ++k) {
                if (k == 0) {
                    field += rtfEscape(parts[k]);
                } else if (!parts[k].empty() && parts[k][0] == 'd') {
                    field += "{\\field{\\*\\fldinst{ PAGE }}{\\fldrslt{1}}}" + rtfEscape(parts[k].substr(1));
                } else {
                    field += "%" + rtfEscape(parts[k]);
                }
            }
            out_ += field;
        }
        out_ += "}\\par}\n";
    }

    void paragraph(const ParagraphBlock& p, bool breakBefore) {
        out_ += std::string("\\pard\\plain") + (breakBefore ? "\\pagebb" : "") + alignWord(p.align);
        if (p.indentLeft != 0) out_ += "\\li" + std::to_string(p.indentLeft);
        for (const Span& s : p.spans) out_ += "{" + fontWords(s.font) + " " + rtfEscape(s.text) + "}";
        out_ += "\\par\n";
    }

    void rule(const RuleBlock& r) {
        if (r.style == PenStyle::Transparent) return;
        const int w = std::clamp(r.width, 10, 75);
        out_ += std::string("\\pard\\plain\\brdrb") + borderStyle(r.style) + "\\brdrw" + std::to_string(w) +
                "\\brsp20\\fs4\\par\n";
    }

    void space(const SpaceBlock& s) {
        if (s.height < 20) return;
        out_ += "\\pard\\plain\\sl-" + std::to_string(s.height) + "\\slmult0\\fs2\\par\n";
    }

    void table(const TableBlock& b) {
        const Table& t = b.table;
        for (int r = t.hasHeader() ? 0 : 1; r <= t.Rows(); ++r) {
            out_ += "\\trowd\\trgaph60\\trleft" + std::to_string(b.indentLeft);
            if (r == 0) out_ += "\\trhdr";
            out_ += "\\trkeep";
            const std::size_t hi = static_cast<std::size_t>(r);
            if (hi < b.rowHeights.size() && b.rowHeights[hi] > 0) out_ += "\\trrh" + std::to_string(b.rowHeights[hi]);
            out_ += "\n";
            int right = b.indentLeft;
            for (int c = 1; c <= t.Cols(); ++c) {
                if (const auto bg = t.backColor(r, c))
                    out_ += "\\clcbpat" + std::to_string(colorIndex_.at(bg->stored()));
                out_ +=
                    "\\clbrdrt\\brdrs\\brdrw10\\clbrdrl\\brdrs\\brdrw10\\clbrdrb\\brdrs\\brdrw10\\clbrdrr\\brdrs\\brdrw"
                    "10";
                right += static_cast<std::size_t>(c - 1) < b.colWidths.size()
                             ? b.colWidths[static_cast<std::size_t>(c - 1)]
                             : t.colWidth(c);
                out_ += "\\cellx" + std::to_string(right) + "\n";
            }
            for (int c = 1; c <= t.Cols(); ++c) {
                const auto fg = t.foreColor(r, c);
                out_ += std::string("\\pard\\plain\\intbl") + alignWord(t.cellAlign(r, c)) + "{" +
                        fontWords(t.cellFont(r, c)) +
                        (fg ? "\\cf" + std::to_string(colorIndex_.at(fg->stored())) : "") + " " +
                        rtfEscape(t.text(r, c)) + "}\\cell\n";
            }
            out_ += "\\row\n";
        }
    }

    const Document& d_;
    std::string out_;
    std::vector<std::string> fontNames_;
    std::map<std::string, int> fontIndex_;
    std::vector<Color> colors_;
    std::map<long, int> colorIndex_;
};

}  // namespace

std::string rtfEscape(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const auto c = static_cast<unsigned char>(text[i]);
        const std::size_t n = utf8CharSize(text, i);
        if (c < 0x80) {
            switch (c) {
            case '\\': out += "\\\\"; break;
            case '{': out += "\\{"; break;
            case '}': out += "\\}"; break;
            case '\t': out += "\\tab "; break;
            case '\n': out += "\\line "; break;
            default:
                if (c >= 0x20) out += static_cast<char>(c);
            }
        } else if (n == 1) {
            // Not UTF-8: taken as a byte of the Windows code page the header names.
            out += hexByte(c);
        } else {
            std::uint32_t cp = n == 2 ? c & 0x1F : n == 3 ? c & 0x0F : c & 0x07;
            for (std::size_t k = 1; k < n; ++k) cp = (cp << 6) | (static_cast<unsigned char>(text[i + k]) & 0x3F);
            unicodeEscape(out, cp);
        }
        i += n;
    }
    return out;
}

std::string toRtf(const Document& document) { return RtfWriter(document).write(); }

void writeRtfFile(const Document& document, const std::string& path) {
    const std::string text = toRtf(document);
    const std::filesystem::path target(path);
    std::filesystem::path temp = target;
    temp += ".tmp";
    {
        std::ofstream f(temp, std::ios::binary | std::ios::trunc);
        if (f) f.write(text.data(), static_cast<std::streamsize>(text.size()));
        if (!f || !f.flush()) {
            std::error_code ignored;
            std::filesystem::remove(temp, ignored);
            throw ReportError("Unable to write the file " + path + ".");
        }
    }
    std::error_code ec;
    std::filesystem::rename(temp, target, ec);
    if (ec) {
        std::error_code ignored;
        std::filesystem::remove(temp, ignored);
        throw ReportError("Unable to write the file " + path + ": " + ec.message() + ".");
    }
}

}  // namespace tallymere::reports

#include "common/csv.h"

namespace tallymere::common {

namespace {

char separatorOf(Delimited style) { return style == Delimited::Tsv ? '\t' : ','; }
const char* lineEndOf(Delimited style) { return style == Delimited::Tsv ? "\n" : "\r\n"; }

}  // namespace

std::string CsvWriter::field(std::string_view text, Delimited style) {
    const char sep = separatorOf(style);
    const bool quoted = text.find_first_of(std::string{sep, '"', '\r', '\n'}) != std::string_view::npos;
    if (!quoted) return std::string(text);
    std::string out;
    out.reserve(text.size() + 2);
    out += '"';
    for (const char c : text) {
        if (c == '"') out += '"';
        out += c;
    }
    out += '"';
    return out;
}

std::string CsvWriter::line(const std::vector<std::string>& fields, Delimited style) {
    std::string out;
    // A line with one empty field would read back as an empty line, which holds no field at all.
    if (fields.size() == 1 && fields[0].empty()) out = "\"\"";
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0) out += separatorOf(style);
        out += field(fields[i], style);
    }
    out += lineEndOf(style);
    return out;
}

void CsvWriter::row(const std::vector<std::string>& fields) {
    out_ << line(fields, style_);
    ++rows_;
}

}  // namespace tallymere::common

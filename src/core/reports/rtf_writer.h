#pragma once
// The report document as RTF: its flow of paragraphs, rules and tables, for a word processor to lay
// out anew. Tables are RTF tables (header rows repeat on each page, cell colours and widths kept),
// fonts go to the font table and colours to the colour table; the header and footer are the page's,
// with the page number as a field.

#include "reports/document.h"

#include <string>
#include <string_view>

namespace tallymere::reports {

std::string toRtf(const Document& document);

// Writes the RTF to `path` through a temporary file beside it, so that a failed write leaves an
// existing file as it was. Throws ReportError when the file cannot be written.
void writeRtfFile(const Document& document, const std::string& path);

// Text as RTF: the special characters escaped, line breaks as \line, characters beyond ASCII as
// Unicode escapes.
std::string rtfEscape(std::string_view text);

}  // namespace tallymere::reports

#include "common/report_name.h"

#include "common/text.h"

namespace tallymere::common {

std::string FormatReportName(std::string_view firstName, std::string_view lastName, std::string_view nameFormat) {
    const std::string last(lastName);
    if (trimView(firstName).empty()) return last;
    const std::string first(firstName);
    // The first letter whole, also when it takes more than one byte ("Émile" -> "É").
    std::size_t letter = 1;
    while (letter < first.size() && (static_cast<unsigned char>(first[letter]) & 0xC0) == 0x80) ++letter;
    const std::string initial = first.substr(0, letter);
    const std::string_view format = trimView(nameFormat);
    if (equalsNoCase(format, "Smith, J")) return last + ", " + initial;
    if (equalsNoCase(format, "J. Smith")) return initial + ". " + last;
    if (equalsNoCase(format, "John Smith")) return first + " " + last;
    if (equalsNoCase(format, "Smith")) return last;
    return last + ", " + first;
}

}  // namespace tallymere::common

#pragma once
// Lists as delimited text for other programs: comma-separated as RFC 4180 has it (a field that holds
// the separator, a double quote or a line break is quoted, quotes inside doubled, lines end in CR LF),
// or tab-separated with the same quoting and plain line feeds. Texts are written as they are, UTF-8.

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace tallymere::common {

enum class Delimited { Csv, Tsv };

class CsvWriter {
public:
    explicit CsvWriter(std::ostream& out, Delimited style = Delimited::Csv) : out_(out), style_(style) {}

    void row(const std::vector<std::string>& fields);
    std::size_t rowsWritten() const { return rows_; }

    // One field as it goes into a line of the given style.
    static std::string field(std::string_view text, Delimited style = Delimited::Csv);
    // A whole line, its line end included.
    static std::string line(const std::vector<std::string>& fields, Delimited style = Delimited::Csv);

private:
    std::ostream& out_;
    Delimited style_;
    std::size_t rows_ = 0;
};

}  // namespace tallymere::common

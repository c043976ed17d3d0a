#include "common/csv.h"

#include <gtest/gtest.h>
#include <sstream>

namespace tallymere::common {
namespace {

TEST(CsvWriter, QuotesOnlyTheFieldsThatNeedIt) {
    EXPECT_EQ(CsvWriter::line({"Smith", "John", "8.00"}), "Smith,John,8.00\r\n");
    EXPECT_EQ(CsvWriter::line({"Smith, Jr.", "say \"hi\"", "two\nlines", "cr\r"}),
              "\"Smith, Jr.\",\"say \"\"hi\"\"\",\"two\nlines\",\"cr\r\"\r\n");
    // Blanks and non-ASCII text go out as they are.
    EXPECT_EQ(CsvWriter::line({" lead", "Zoë", ""}), " lead,Zoë,\r\n");
}

TEST(CsvWriter, KeepsAnEmptyLoneFieldApartFromAnEmptyLine) {
    EXPECT_EQ(CsvWriter::line({""}), "\"\"\r\n");
    EXPECT_EQ(CsvWriter::line({"", ""}), ",\r\n");
}

TEST(CsvWriter, TabSeparatedQuotesTabsButNotCommas) {
    EXPECT_EQ(CsvWriter::line({"a,b", "c\td", "e"}, Delimited::Tsv), "a,b\t\"c\td\"\te\n");
}

TEST(CsvWriter, WritesRowsToTheStream) {
    std::ostringstream out;
    CsvWriter csv(out);
    csv.row({"Name", "Hrs"});
    csv.row({"Total", "16.00"});
    EXPECT_EQ(out.str(), "Name,Hrs\r\nTotal,16.00\r\n");
    EXPECT_EQ(csv.rowsWritten(), 2u);
}

}  // namespace
}  // namespace tallymere::common

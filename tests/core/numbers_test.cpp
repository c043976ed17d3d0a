#include "common/numbers.h"
#include "common/report_name.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace tallymere::common {
namespace {

TEST(ToNumber, ReadsTheLongestNumericPrefixAndZeroOtherwise) {
    struct Case {
        const char* text;
        double expected;
    };
    const std::vector<Case> cases{
        {"8.50abc", 8.5}, {"", 0},           {"abc", 0},          {"  42", 42},      {"-7.25", -7.25},
        {"+3", 3},        {".5", 0.5},       {"5.", 5},           {"$8.50", 8.5},    {"-$3", -3},
        {"$-3", -3},      {"1,234.5", 1234.5}, {"1,234,567", 1234567}, {"12,", 12},  {",5", 0},
        {"1.2.3", 1.2},   {"2e3", 2000},     {"2e", 2},           {"2e+", 2},        {"1.5E-1x", 0.15},
        {"-", 0},         {"$", 0},          {".", 0},            {"12 34", 12},     {"0x10", 0},
        {"1e999", HUGE_VAL}, {"1e-999", 0},
    };
    for (const auto& c : cases) EXPECT_DOUBLE_EQ(toNumber(c.text), c.expected) << '"' << c.text << '"';
}

TEST(ParseNumberStrict, AcceptsOnlyAWholeNumber) {
    EXPECT_EQ(parseNumberStrict("12"), 12.0);
    EXPECT_EQ(parseNumberStrict("  12.5  "), 12.5);
    EXPECT_EQ(parseNumberStrict("$1,200.00"), 1200.0);
    EXPECT_EQ(parseNumberStrict("-0.5"), -0.5);
    EXPECT_EQ(parseNumberStrict("007"), 7.0);
    for (const char* text : {"", "   ", "12a", "a12", "1.2.3", "-", "$", ".", "1 2", "1,", "twelve"}) {
        EXPECT_FALSE(parseNumberStrict(text).has_value()) << '"' << text << '"';
    }
}

TEST(RoundHalfEven, HalvesGoToTheEvenNeighbour) {
    struct Case {
        double value;
        long long expected;
    };
    const std::vector<Case> cases{
        {0.5, 0},  {1.5, 2},    {2.5, 2},     {3.5, 4},      {-0.5, 0},    {-1.5, -2}, {-2.5, -2},
        {2.4, 2},  {2.6, 3},    {-2.6, -3},   {7.5, 8},      {15.5, 16},   {23.5, 24}, {0.49999999999999994, 0},
        {12, 12},  {12.0000001, 12},          {4503599627370497.0, 4503599627370497LL},
    };
    for (const auto& c : cases) EXPECT_EQ(roundHalfEven(c.value), c.expected) << c.value;
}

TEST(FormatReportName, FiveFormsAndTheirFallbacks) {
    struct Case {
        const char* format;
        const char* expected;
    };
    const std::vector<Case> cases{
        {"Smith, John", "Smith, John"}, {"Smith, J", "Smith, J"},     {"J. Smith", "J. Smith"},
        {"John Smith", "John Smith"},   {"Smith", "Smith"},           {"", "Smith, John"},
        {"Nonsense", "Smith, John"},    {"smith, j", "Smith, J"},
    };
    for (const auto& c : cases) EXPECT_EQ(FormatReportName("John", "Smith", c.format), c.expected) << c.format;
    EXPECT_EQ(FormatReportName("Émile", "Zola", "J. Smith"), "É. Zola");
}

TEST(FormatReportName, EmptyFirstNameGivesTheLastNameInEveryForm) {
    for (const char* format : {"Smith, John", "Smith, J", "J. Smith", "John Smith", "Smith", ""}) {
        EXPECT_EQ(FormatReportName("", "**Unassigned**", format), "**Unassigned**") << format;
        EXPECT_EQ(FormatReportName("  ", "Smith", format), "Smith") << format;
    }
}

}  // namespace
}  // namespace tallymere::common

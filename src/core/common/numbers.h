#pragma once
// Numbers that arrive as text (typed fields, text columns such as daily sales) and the whole-number
// rounding of the system's conversions.

#include <optional>
#include <string_view>

namespace tallymere::common {

// Tolerant conversion: whatever cannot be read counts as 0. Leading blanks are skipped and the longest
// numeric prefix is read: an optional sign, an optional "$", digits with "," between them, a "."
// fraction and an exponent ("8.50abc" is 8.5, "$1,234.5" is 1234.5, "-$3" is -3, "" and "abc" are 0).
// The decimal point is always "."; a "," is only ever a thousands separator, as users here type money.
double toNumber(std::string_view text);

// The same forms as toNumber, but the whole text (blanks around it aside) must be the number:
// nullopt for "", "12a", "a12", "1.2.3" or a lone sign, so that a field can tell a typed letter.
std::optional<double> parseNumberStrict(std::string_view text);

// Nearest whole number, a half going to the even neighbour (2.5 -> 2, 3.5 -> 4, -2.5 -> -2).
long long roundHalfEven(double value);

}  // namespace tallymere::common

#include "common/numbers.h"

#include <charconv>
#include <cmath>
#include <string>

namespace tallymere::common {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isBlank(char c) { return c == ' ' || c == '\t'; }

struct Scan {
    double value = 0;
    std::size_t end = 0;   // one past the last character read
    bool found = false;    // at least one digit was read
};

// Reads a number starting at `pos`; `end` stays at `pos` when there is none.
Scan scanNumber(std::string_view s, std::size_t pos) {
    Scan r;
    r.end = pos;
    std::string clean;  // the number in the form from_chars reads: no sign, no "$", no separators
    bool negative = false;
    std::size_t i = pos;
    const auto takeSign = [&] {
        if (i < s.size() && (s[i] == '+' || s[i] == '-')) {
            negative = s[i] == '-';
            ++i;
            return true;
        }
        return false;
    };
    const bool signFirst = takeSign();
    if (i < s.size() && s[i] == '$') {
        ++i;
        if (!signFirst) takeSign();
    }
    bool digits = false;
    bool nonZero = false;
    while (i < s.size()) {
        if (isDigit(s[i])) {
            nonZero = nonZero || s[i] != '0';
            clean += s[i++];
            digits = true;
        } else if (s[i] == ',' && digits && i + 1 < s.size() && isDigit(s[i + 1])) {
            ++i;
        } else {
            break;
        }
    }
    if (i < s.size() && s[i] == '.') {
        std::size_t j = i + 1;
        std::string fraction;
        while (j < s.size() && isDigit(s[j])) fraction += s[j++];
        if (digits || !fraction.empty()) {
            if (!fraction.empty()) clean += '.' + fraction;
            digits = true;
            i = j;
        }
    }
    if (!digits) return r;
    if (i < s.size() && (s[i] == 'e' || s[i] == 'E')) {
        std::size_t j = i + 1;
        std::string exponent = "e";
        if (j < s.size() && (s[j] == '+' || s[j] == '-')) exponent += s[j++];
        const std::size_t firstDigit = j;
        while (j < s.size() && isDigit(s[j])) exponent += s[j++];
        if (j > firstDigit) {
            clean += exponent;
            i = j;
        }
    }
    double v = 0;
    const auto [ptr, ec] = std::from_chars(clean.data(), clean.data() + clean.size(), v);
    if (ec == std::errc::result_out_of_range) {
        // Too large keeps its size; too small is 0.
        v = nonZero && clean.find("e-") == std::string::npos ? HUGE_VAL : 0.0;
    } else if (ec != std::errc{} || ptr != clean.data() + clean.size()) {
        return r;
    }
    r.value = negative ? -v : v;
    r.end = i;
    r.found = true;
    return r;
}

}  // namespace

double toNumber(std::string_view text) {
    std::size_t pos = 0;
    while (pos < text.size() && isBlank(text[pos])) ++pos;
    return scanNumber(text, pos).value;
}

std::optional<double> parseNumberStrict(std::string_view text) {
    std::size_t pos = 0;
    while (pos < text.size() && isBlank(text[pos])) ++pos;
    const Scan r = scanNumber(text, pos);
    if (!r.found) return std::nullopt;
    std::size_t end = r.end;
    while (end < text.size() && isBlank(text[end])) ++end;
    if (end != text.size()) return std::nullopt;
    return r.value;
}

long long roundHalfEven(double value) {
    double whole = std::floor(value);
    const double rest = value - whole;  // exact for any double
    if (rest > 0.5 || (rest == 0.5 && std::fmod(whole, 2.0) != 0.0)) whole += 1.0;
    return static_cast<long long>(whole);
}

}  // namespace tallymere::common

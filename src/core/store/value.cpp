#include "store/value.h"

#include "common/text.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace tallymere::store {

namespace {
std::string shortestDouble(double d) {
    char buf[64];
    const auto r = std::to_chars(buf, buf + sizeof buf, d);
    return std::string(buf, r.ptr);
}

// The longest leading number of a text, as a tolerant reading of typed numbers: "8.50" is 8.5,
// "12 hours" is 12, "abc" is 0.
double leadingNumber(std::string_view s) {
    s = common::trimView(s);
    std::string buf(s);
    char* end = nullptr;
    const double d = std::strtod(buf.c_str(), &end);
    if (end == buf.c_str() || !std::isfinite(d)) return 0.0;
    return d;
}
}  // namespace

std::string Value::toText() const {
    return std::visit(
        [](const auto& v) -> std::string {
            using T = std::decay_t<decltype(v)>;
            if constexpr (std::is_same_v<T, std::monostate>) return {};
            else if constexpr (std::is_same_v<T, std::int64_t>) return std::to_string(v);
            else if constexpr (std::is_same_v<T, double>) return shortestDouble(v);
            else if constexpr (std::is_same_v<T, std::string>) return v;
            else return v.toIso();
        },
        v_);
}

double Value::toDouble() const {
    if (const auto* n = std::get_if<std::int64_t>(&v_)) return static_cast<double>(*n);
    if (const auto* d = std::get_if<double>(&v_)) return *d;
    if (const auto* s = std::get_if<std::string>(&v_)) return leadingNumber(*s);
    return 0.0;
}

std::int64_t Value::toLong() const {
    if (const auto* n = std::get_if<std::int64_t>(&v_)) return *n;
    const double d = toDouble();
    // Whole-number conversion rounds half to even, as the system's own does.
    return static_cast<std::int64_t>(std::nearbyint(d));
}

bool Value::toBool() const {
    if (const auto* s = std::get_if<std::string>(&v_)) {
        const std::string u = common::toUpper(common::trimView(*s));
        if (u == "TRUE" || u == "YES" || u == "ON") return true;
        if (u.empty() || u == "FALSE" || u == "NO" || u == "OFF") return false;
        return leadingNumber(u) != 0.0;
    }
    return toDouble() != 0.0;
}

std::optional<Date> Value::toDate() const {
    if (const auto* d = std::get_if<Date>(&v_)) return *d;
    if (const auto* t = std::get_if<DateTime>(&v_)) return t->date();
    if (const auto* s = std::get_if<std::string>(&v_)) return Date::parseIso(*s);
    return std::nullopt;
}

std::optional<DateTime> Value::toDateTime() const {
    if (const auto* t = std::get_if<DateTime>(&v_)) return *t;
    if (const auto* d = std::get_if<Date>(&v_)) return DateTime::at(*d);
    if (const auto* s = std::get_if<std::string>(&v_)) return DateTime::parseIso(*s);
    return std::nullopt;
}

}  // namespace tallymere::store

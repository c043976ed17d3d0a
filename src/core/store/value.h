#pragma once
// A value bound to a statement or read from a row. Dates bind as ISO text ("2026-11-23") and
// date-times as "2026-11-23 22:00:00", so no display format can ever reach SQL; yes/no binds as 1/0.

#include "common/date_time.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tallymere::store {

using common::Date;
using common::DateTime;

class Value {
public:
    using Storage = std::variant<std::monostate, std::int64_t, double, std::string, Date, DateTime>;

    Value() = default;
    Value(std::nullptr_t) {}
    Value(bool b) : v_(std::int64_t{b ? 1 : 0}) {}
    Value(int i) : v_(std::int64_t{i}) {}
    Value(long i) : v_(std::int64_t{i}) {}
    Value(long long i) : v_(std::int64_t{i}) {}
    Value(unsigned u) : v_(std::int64_t{u}) {}
    Value(double d) : v_(d) {}
    Value(const char* s) : v_(std::string(s)) {}
    Value(std::string s) : v_(std::move(s)) {}
    Value(std::string_view s) : v_(std::string(s)) {}
    Value(Date d) : v_(d) {}
    Value(DateTime t) : v_(t) {}

    bool isNull() const { return std::holds_alternative<std::monostate>(v_); }
    const Storage& storage() const { return v_; }

    // The value as text: integers and reals in their shortest decimal form, dates in ISO form,
    // NULL as empty text. Not trimmed.
    std::string toText() const;
    // Tolerant conversions: anything unreadable counts as 0.
    double toDouble() const;
    std::int64_t toLong() const;
    // A yes/no column or text: "True", "Yes", "-1", any non-zero number is true.
    bool toBool() const;
    // Dates read back from ISO text (or date-times, whose day is taken).
    std::optional<Date> toDate() const;
    std::optional<DateTime> toDateTime() const;

    friend bool operator==(const Value&, const Value&) = default;

private:
    Storage v_;
};

using Params = std::vector<Value>;

}  // namespace tallymere::store

#pragma once
// A snapshot of a SELECT: every row loaded, the record count exact, fields found by name without
// regard to case, NULL told apart from empty text and read null-safely.

#include "store/value.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tallymere::store {

// One field of the current row. `text()` is what the system's null-safe read gives: NULL yields
// empty text, anything else is trimmed.
class Field {
public:
    explicit Field(const Value* v) : v_(v) {}
    bool isNull() const { return v_ == nullptr || v_->isNull(); }
    const Value& value() const;
    std::string text() const;
    double toDouble() const { return value().toDouble(); }
    std::int64_t toLong() const { return value().toLong(); }
    int toInt() const { return static_cast<int>(value().toLong()); }
    bool toBool() const { return value().toBool(); }
    std::optional<Date> toDate() const { return value().toDate(); }
    std::optional<DateTime> toDateTime() const { return value().toDateTime(); }

private:
    const Value* v_;
};

class Recordset {
public:
    Recordset() = default;
    Recordset(std::vector<std::string> columns, std::vector<std::vector<Value>> rows);

    // False for the empty result a failed read gives.
    bool isOpen() const { return open_; }
    std::size_t RecordCount() const { return rows_.size(); }
    bool empty() const { return rows_.empty(); }
    bool eof() const { return pos_ >= rows_.size(); }
    bool bof() const { return rows_.empty() || pos_ == npos; }
    void MoveFirst() { pos_ = 0; }
    void MoveLast() { pos_ = rows_.empty() ? 0 : rows_.size() - 1; }
    void MoveNext() { if (pos_ < rows_.size()) ++pos_; }
    void MovePrevious() { pos_ = pos_ == 0 ? npos : pos_ - 1; }
    std::size_t position() const { return pos_; }

    // Field of the current row; a missing column or a position off the rows reads as NULL.
    Field operator[](std::string_view column) const { return field(pos_, column); }
    Field field(std::size_t row, std::string_view column) const;
    Field field(std::size_t row, std::size_t columnIndex) const;

    const std::vector<std::string>& columns() const { return columns_; }
    int columnIndex(std::string_view column) const;  // -1 when there is no such column
    const std::vector<std::vector<Value>>& rows() const { return rows_; }

private:
    static constexpr std::size_t npos = static_cast<std::size_t>(-1);
    std::vector<std::string> columns_;
    std::vector<std::vector<Value>> rows_;
    std::size_t pos_ = 0;
    bool open_ = false;
};

}  // namespace tallymere::store

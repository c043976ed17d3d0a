#include "store/recordset.h"

#include "common/text.h"

namespace tallymere::store {

namespace {
const Value kNull;
}

const Value& Field::value() const { return v_ ? *v_ : kNull; }

std::string Field::text() const { return isNull() ? std::string() : common::trim(v_->toText()); }

Recordset::Recordset(std::vector<std::string> columns, std::vector<std::vector<Value>> rows)
    : columns_(std::move(columns)), rows_(std::move(rows)), open_(true) {}

int Recordset::columnIndex(std::string_view column) const {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (common::equalsNoCase(columns_[i], column)) return static_cast<int>(i);
    }
    return -1;
}

Field Recordset::field(std::size_t row, std::string_view column) const {
    const int c = columnIndex(column);
    if (c < 0) return Field(nullptr);
    return field(row, static_cast<std::size_t>(c));
}

Field Recordset::field(std::size_t row, std::size_t columnIndex) const {
    if (row >= rows_.size() || columnIndex >= rows_[row].size()) return Field(nullptr);
    return Field(&rows_[row][columnIndex]);
}

}  // namespace tallymere::store

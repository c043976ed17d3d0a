#include "reference/employee_records.h"

#include "common/display_format.h"
#include "common/text.h"

#include <charconv>

namespace tallymere::reference {

using common::Date;

void ChoiceList::clear() {
    items.clear();
    itemData.clear();
    ListIndex = -1;
}

void ChoiceList::add(std::string item, long data) {
    items.push_back(std::move(item));
    itemData.push_back(data);
}

std::string ChoiceList::text() const {
    return ListIndex >= 0 && ListIndex < static_cast<int>(items.size()) ? items[static_cast<std::size_t>(ListIndex)]
                                                                        : std::string();
}

long ChoiceList::data() const {
    return ListIndex >= 0 && ListIndex < static_cast<int>(itemData.size())
               ? itemData[static_cast<std::size_t>(ListIndex)]
               : 0;
}

bool ChoiceList::select(std::string_view item) {
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (common::equalsNoCase(items[i], common::trimView(item))) {
            ListIndex = static_cast<int>(i);
            return true;
        }
    }
    ListIndex = -1;
    return false;
}

bool ChoiceList::selectData(long data) {
    for (std::size_t i = 0; i < itemData.size(); ++i) {
        if (itemData[i] == data) {
            ListIndex = static_cast<int>(i);
            return true;
        }
    }
    ListIndex = -1;
    return false;
}

std::string leaveFullName(std::string_view lname, std::string_view fname) {
    const std::string last = common::trim(lname);
    const std::string first = common::trim(fname);
    return first.empty() ? last : last + ", " + first;
}

namespace {

std::optional<int> wholeNumber(std::string_view s) {
    if (s.empty() || s.size() > 4) return std::nullopt;
    int n = 0;
    const auto [end, ec] = std::from_chars(s.data(), s.data() + s.size(), n);
    if (ec != std::errc() || end != s.data() + s.size()) return std::nullopt;
    return n;
}

}  // namespace

std::optional<Date> parseTypedDate(std::string_view text) {
    const std::string t = common::trim(text);
    if (t.empty()) return std::nullopt;
    const char sep = t.find('/') != std::string::npos ? '/' : '-';
    const auto parts = common::split(t, sep);
    if (parts.size() != 3) return std::nullopt;
    auto a = wholeNumber(parts[0]), b = wholeNumber(parts[1]), c = wholeNumber(parts[2]);
    if (!a || !b || !c) return std::nullopt;
    int year, month, day;
    if (parts[0].size() == 4) {
        year = *a, month = *b, day = *c;
    } else {
        month = *a, day = *b, year = *c;
        if (parts[2].size() <= 2)
            year += year < 30 ? 2000 : 1900;
        else if (parts[2].size() != 4)
            return std::nullopt;
    }
    if (!Date::isValidYmd(year, month, day)) return std::nullopt;
    return Date::fromYmd(year, month, day);
}

std::string personDateText(Date d) { return common::formatDate(d, "mm/dd/yyyy"); }

}  // namespace tallymere::reference

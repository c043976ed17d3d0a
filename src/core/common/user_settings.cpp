#include "common/user_settings.h"

#include "common/text.h"

namespace tallymere::common {

std::string MemoryUserSettings::get(std::string_view name) const {
    const auto it = values_.find(toLower(name));
    return it == values_.end() ? std::string() : it->second;
}

void MemoryUserSettings::set(std::string_view name, std::string_view value) { values_[toLower(name)] = std::string(value); }

}  // namespace tallymere::common

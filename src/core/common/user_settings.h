#pragma once
// The per-user settings store (NumRun, DataLocation, SBShift, ...). Names do not tell case:
// "datalocation" and "DataLocation" are one value.

#include <map>
#include <string>
#include <string_view>

namespace tallymere::common {

class UserSettings {
public:
    virtual ~UserSettings() = default;
    // Empty text when the value is missing.
    virtual std::string get(std::string_view name) const = 0;
    virtual void set(std::string_view name, std::string_view value) = 0;
};

// Settings held in memory, for tests and for a run whose store cannot be written.
class MemoryUserSettings final : public UserSettings {
public:
    std::string get(std::string_view name) const override;
    void set(std::string_view name, std::string_view value) override;

private:
    std::map<std::string, std::string> values_;  // keys folded to lower case
};

}  // namespace tallymere::common

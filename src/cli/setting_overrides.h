#pragma once
// `--set KEY=VALUE`: a global setting of the open file, changed for this run only. Every override is
// checked against its key's type before the file is opened, so a bad one changes nothing.

#include "common/global_settings.h"

#include <string>
#include <string_view>
#include <vector>

namespace tallymere::cli {

struct SettingOverride {
    std::string key;  // as the settings spell it, whatever case was typed
    std::string value;
};

// Reads "KEY=VALUE"; throws a usage Stop for an unknown key or a value the key cannot hold.
SettingOverride parseSettingOverride(std::string_view arg);

// Puts the overrides into the settings, in the order given.
void applySettingOverrides(common::GlobalSettings& g, const std::vector<SettingOverride>& overrides);

}  // namespace tallymere::cli

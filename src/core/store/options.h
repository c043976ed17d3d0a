#pragma once
// The two stores of settings: the options table, which travels with the database so every user of a
// shared data folder sees the same values, and the per-user settings store of this machine. At start
// the options are read into the session's global settings; at exit every key is written back.

#include "common/session.h"

#include <optional>
#include <string>
#include <string_view>

namespace tallymere::store {

using common::Session;

// Writes a key of the options table: updates every row of the key, or inserts one when there is none.
void SaveOption(Session& s, std::string_view key, std::string_view value);
// The key's value; no row, NULL or a failed read give empty text.
std::string GetOption(Session& s, std::string_view key);
// Reads a yes/no key, inserting the default when the row is missing and writing it over a NULL or
// blank value. The flag is false exactly when the trimmed upper-cased value is "NO" or "FALSE".
void GetYesNoOption(Session& s, std::string_view key, bool& flag, bool defaultValue);

std::string GetRegSetting(Session& s, std::string_view name);
void SaveRegSetting(Session& s, std::string_view name, std::string_view value);

// Reads every global setting of the options table into the session. False when a read failed, after
// "Unable to load Tallymere options."; the keys after the failing one keep their defaults.
bool getoptions(Session& s);
// Reads the report options. False after "Unable to load Tallymere Report Options.".
bool getreportoptions(Session& s);
// Writes every global setting back, in the order they are loaded, beginning with `orientation`. Not
// written here: the sort column, the open schedule, the main window's place (the shutdown writes
// them), the start counters (written when counted), and the printer, version and last run or backup
// keys while this run holds no value for them.
void saveoptions(Session& s);

// The place of a window, in twips, as the options rows `<window>x`, `y`, `width`, `height`, `state`
// keep it. `state`: 0 normal, 1 minimized, 2 maximized.
struct WindowPlace {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    int state = 0;
};

void CreateFormPositionRows(Session& s, std::string_view window);
void SaveFormPosition(Session& s, std::string_view window, const WindowPlace& place, bool sizable);
// The stored place to apply to `current` (the window's default place), inside `mainWindow`: the
// position only when both `x` and `y` are stored and inside the main window less its margins, the
// size only for a sizable window, the state last unless `mainStateForbids`. Rows that are missing or
// unset leave the default.
WindowPlace LoadFormPosition(Session& s, std::string_view window, const WindowPlace& current,
                             const WindowPlace& mainWindow, bool sizable, bool mainStateForbids = false);

}  // namespace tallymere::store

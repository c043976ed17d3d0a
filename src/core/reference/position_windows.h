#pragma once
// The windows that add and edit a position: title, base rate (kept as typed) and the colour the
// schedule views paint its entries with.

#include "common/session.h"

#include <string>

namespace tallymere::reference {

// A colour as stored in `position.color`: red + green * 256 + blue * 65536.
constexpr long rgbColor(int red, int green, int blue) {
    return static_cast<long>(red & 0xFF) | static_cast<long>(green & 0xFF) << 8 | static_cast<long>(blue & 0xFF) << 16;
}
constexpr int colorRed(long color) { return static_cast<int>(color & 0xFF); }
constexpr int colorGreen(long color) { return static_cast<int>((color >> 8) & 0xFF); }
constexpr int colorBlue(long color) { return static_cast<int>((color >> 16) & 0xFF); }
inline constexpr long kWhite = rgbColor(255, 255, 255);

// The base rate field of both windows.
class BaseRateField {
public:
    std::string baserate;

    // A typed character (UTF-8): digits, and the locale's decimal symbol once. Anything else beeps and
    // is refused (false). The view lets editing keys through itself.
    bool baserate_KeyPress(common::Session& s, std::string_view key);
    // Shows the value in currency format; an empty field stays empty.
    void baserate_LostFocus(common::Session& s);
};

class positionadd : public BaseRateField {
public:
    explicit positionadd(common::Session& s) : s_(s) {}

    std::string title;
    std::string description;
    // Set by the view from the colour dialog (`Command3`).
    long color = kWhite;

    // True when the position was added and the window closes.
    bool ok();
    bool cancel() { return true; }

private:
    common::Session& s_;
};

class positionedit : public BaseRateField {
public:
    // Opens on the position of that title, as selected in the settings grid.
    positionedit(common::Session& s, std::string positionTitle);

    std::string title;
    std::string description;
    long color = kWhite;

    // True when the position was saved and the window closes.
    bool ok();
    bool cancel() { return true; }

    const std::string& oldTitle() const { return oldTitle_; }

private:
    bool save();

    common::Session& s_;
    std::string oldTitle_;
};

}  // namespace tallymere::reference

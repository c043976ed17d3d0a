#pragma once
// The shell's pictures: the toolbar's images by button key, and the program's own icon and splash.

#include <QIcon>
#include <QPixmap>
#include <string_view>

namespace tallymere::app {

// The image of a toolbar button: the desktop theme's icon where it has one, else the style's.
QIcon toolbarIcon(std::string_view key);
// The program's icon: a calendar page with a tally.
QIcon programIcon();
// The splash picture with the program's name and version.
QPixmap splashPixmap(const QString& version);

}  // namespace tallymere::app

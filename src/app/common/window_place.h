#pragma once
// Where windows stand between runs: places are kept in twips in the options table, as they always
// were; these turn them into screen pixels and back for the child windows and the dialogs.

#include "common/session.h"
#include "store/options.h"

class QRect;
class QWidget;

namespace tallymere::app {

inline constexpr int kTwipsPerPixel = 15;

store::WindowPlace twipsOf(const QRect& r, int state = 0);

// A child window of the main window's area: its saved place and size, kept inside the area, and
// maximized when it was. Call once, when it is first shown.
void restoreChildPlace(common::Session& s, QWidget* view, const char* windowName);
// The child's place and state as it closes; nothing once the program is ending at once.
void saveChildPlace(common::Session& s, QWidget* view, const char* windowName);

// A dialog: its saved position, inside the main window.
void restoreDialogPlace(common::Session& s, QWidget* dialog, QWidget* mainWindow, const char* windowName);
void saveDialogPlace(common::Session& s, QWidget* dialog, const char* windowName);

}  // namespace tallymere::app

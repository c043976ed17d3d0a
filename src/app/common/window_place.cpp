#include "app/common/window_place.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QRect>
#include <QWidget>

namespace tallymere::app {

store::WindowPlace twipsOf(const QRect& r, int state) {
    return {r.x() * kTwipsPerPixel, r.y() * kTwipsPerPixel, r.width() * kTwipsPerPixel, r.height() * kTwipsPerPixel,
            state};
}

void restoreChildPlace(common::Session& s, QWidget* view, const char* windowName) {
    auto* sub = qobject_cast<QMdiSubWindow*>(view->parentWidget());
    if (!sub || !sub->mdiArea()) return;
    const QRect area = sub->mdiArea()->viewport()->rect();
    const store::WindowPlace place =
        store::LoadFormPosition(s, windowName, twipsOf(sub->geometry()), twipsOf(area), true);
    sub->setGeometry(place.left / kTwipsPerPixel, place.top / kTwipsPerPixel, place.width / kTwipsPerPixel,
                     place.height / kTwipsPerPixel);
    if (place.state == 2) sub->showMaximized();
}

void saveChildPlace(common::Session& s, QWidget* view, const char* windowName) {
    auto* sub = qobject_cast<QMdiSubWindow*>(view->parentWidget());
    if (!sub || s.ExitNow) return;
    const QRect r = sub->normalGeometry().isValid() ? sub->normalGeometry() : sub->geometry();
    const int state = sub->isMinimized() ? 1 : sub->isMaximized() ? 2 : 0;
    store::SaveFormPosition(s, windowName, twipsOf(r, state), true);
}

void restoreDialogPlace(common::Session& s, QWidget* dialog, QWidget* mainWindow, const char* windowName) {
    if (!mainWindow) return;
    const store::WindowPlace place =
        store::LoadFormPosition(s, windowName, twipsOf(dialog->geometry()), twipsOf(mainWindow->geometry()), false);
    dialog->move(place.left / kTwipsPerPixel, place.top / kTwipsPerPixel);
}

void saveDialogPlace(common::Session& s, QWidget* dialog, const char* windowName) {
    if (s.ExitNow) return;
    store::SaveFormPosition(s, windowName, twipsOf(dialog->geometry()), false);
}

}  // namespace tallymere::app

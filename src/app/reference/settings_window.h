#pragma once
// The child window `settings`: the shifts, positions and sections, one tab each (`SSTab1`), with
// their grids and the buttons that add, edit and delete through the small windows.

#include "app/common/widget_support.h"
#include "app/shell/app_context.h"
#include "reference/settings.h"

#include <QWidget>

class QTabWidget;
class QTableWidget;

namespace tallymere::app {

class SettingsWindow : public QWidget, public ChildWindow {
public:
    SettingsWindow(AppContext& context, int tab, QWidget* parent = nullptr);

    reference::settings& model() { return model_; }
    // Brings the tab forward, as the menu entry of that list asks.
    void showTab(int tab);

    void refreshWindow() override;
    QSize defaultSize() const override { return {700, 440}; }
    // Opened at the size it is made for, whatever the window around it does with a hint.
    QSize sizeHint() const override { return defaultSize(); }

private:
    QWidget* makeTab(const char* what, QTableWidget* grid, const std::function<void()>& add,
                     const std::function<void()>& edit, const std::function<void()>& remove);
    void addShift();
    void editShift();
    void addPosition();
    void editPosition();
    void addSection();
    void editSection();
    // After an add or edit window closed with OK: the lists are read again, the row of `name` selected.
    void changed(int tab, const std::string& name);
    void display();

    AppContext& context_;
    reference::settings model_;
    QTabWidget* tabs_;
    QTableWidget* shiftgrid_;
    QTableWidget* positiongrid_;
    QTableWidget* groupgrid_;
    ViewGuard guard_{this};
};

}  // namespace tallymere::app

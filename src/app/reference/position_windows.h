#pragma once
// The windows that add a position (`positionadd`) and edit one (`positionedit`): title, description,
// base rate and the colour the schedule views paint its entries with.

#include "app/reference/view_support.h"
#include "reference/position_windows.h"

#include <QDialog>

class QLabel;

namespace tallymere::app {

template <class Model>
class PositionWindow : public QDialog {
public:
    Model& model() { return model_; }

protected:
    template <class... Args>
    PositionWindow(common::Session& s, QWidget* parent, const char* windowName, const QString& caption,
                   Args&&... modelArgs);

private:
    void ok();
    void chooseColor();
    void display();

    common::Session& s_;
    Model model_;
    Binder binder_;
    QLabel* swatch_;
    ViewGuard guard_{this};
};

class PositionAddWindow : public PositionWindow<reference::positionadd> {
public:
    PositionAddWindow(common::Session& s, QWidget* parent);
};

class PositionEditWindow : public PositionWindow<reference::positionedit> {
public:
    PositionEditWindow(common::Session& s, const std::string& title, QWidget* parent);
};

}  // namespace tallymere::app

#pragma once
// `leavecal`: the month of scheduled leave, for everyone or one employee, as a grid of day cells.

#include "app/common/widget_support.h"
#include "app/shell/app_context.h"
#include "reference/leave_calendar.h"

#include <QWidget>
#include <vector>

class QComboBox;
class QDateEdit;
class QLabel;
class QPlainTextEdit;

namespace tallymere::app {

class LeaveCalendarWindow : public QWidget, public ChildWindow {
public:
    static constexpr int kWeeks = 6;

    explicit LeaveCalendarWindow(AppContext& context, QWidget* parent = nullptr);

    reference::leavecal& model() { return model_; }

    void refreshWindow() override;
    QSize defaultSize() const override { return {900, 640}; }
    // Opened at the size it is made for, whatever the window around it does with a hint.
    QSize sizeHint() const override { return defaultSize(); }

private:
    void display();

    reference::leavecal model_;
    QComboBox* personcombo_;
    QDateEdit* leavecaldate_;
    QLabel* heading_;
    std::vector<QPlainTextEdit*> cells_;  // Text1, kWeeks rows of seven
    ViewGuard guard_{this};
};

}  // namespace tallymere::app

#pragma once
// `queryemployee`: the schedule entries of one employee between two dates, in one schedule file or
// in all.

#include "app/common/widget_support.h"
#include "app/shell/app_context.h"
#include "reference/queryemployee.h"

#include <QWidget>

class QComboBox;
class QDateEdit;
class QLabel;
class QTableWidget;

namespace tallymere::app {

class QueryEmployeeWindow : public QWidget, public ChildWindow {
public:
    explicit QueryEmployeeWindow(AppContext& context, QWidget* parent = nullptr);

    reference::queryemployee& model() { return model_; }

    QSize defaultSize() const override { return {840, 500}; }
    // Opened at the size it is made for, whatever the window around it does with a hint.
    QSize sizeHint() const override { return defaultSize(); }

private:
    void display();

    reference::queryemployee model_;
    QComboBox* personcombo_;
    QComboBox* schedulecombo_;
    QDateEdit* startdate_;
    QDateEdit* enddate_;
    QLabel* heading_;
    QTableWidget* grid_;
    ViewGuard guard_{this};
};

}  // namespace tallymere::app

#pragma once
// The window that adds a range of leave days to an employee (`employeeleaveedit`, or
// `employeeleaveedittemp` while a new employee is being added): two date pickers and a month view
// that follow one another, the kind of leave, and the limit on the number of days.

#include "app/common/widget_support.h"
#include "reference/leave.h"

#include <QDialog>
#include <memory>

class QCalendarWidget;
class QComboBox;
class QDateEdit;

namespace tallymere::app {

class LeaveWindow : public QDialog {
public:
    // `model` is loaded, as the employee window's add button gives it.
    LeaveWindow(std::unique_ptr<reference::employeeleaveedit> model, QWidget* parent);

    reference::employeeleaveedit& model() { return *model_; }

private:
    void monthViewClicked(const QDate& day);
    void display();

    std::unique_ptr<reference::employeeleaveedit> model_;
    QDateEdit* startdate_;
    QDateEdit* enddate_;
    QCalendarWidget* monthView_;
    QComboBox* leavecombo_;
    QDate anchor_;  // where a range chosen in the month view starts
    ViewGuard guard_{this};
};

}  // namespace tallymere::app

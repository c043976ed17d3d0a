#pragma once
// The copy windows: `CopyNew`, which copies a day, a week or a range of up to 28 days within or
// between schedule files, chosen on two month views, and the older `copytodifferent`, which copies a
// typed day or week within the open file. Both leave the rules to their models.

#include "app/common/widget_support.h"
#include "schedule/copy_schedule.h"

#include <QDate>
#include <QDialog>
#include <functional>

class QCalendarWidget;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QRadioButton;

namespace tallymere::app {

class CopyScheduleDialog : public QDialog {
public:
    // `changed` runs after each copy that changed the schedule, for the windows that show it.
    CopyScheduleDialog(common::Session& session, std::function<void()> changed, QWidget* parent = nullptr);

    schedule::CopyNew& model() { return model_; }

private:
    // A click on a day of a month view; with Shift held in range mode it extends from the last click.
    void dayClicked(QCalendarWidget* view, const QDate& date);
    void display();
    void showSelection(QCalendarWidget* view, const schedule::DaySelection& selection);

    schedule::CopyNew model_;
    std::function<void()> changed_;
    QComboBox* fromschedulecombo_;
    QComboBox* toschedulecombo_;
    QCalendarWidget* FromDate_;
    QCalendarWidget* ToDate_;
    QRadioButton* dayoption_;
    QRadioButton* weekoption_;
    QRadioButton* RangeOption_;
    QLabel* FromSelectLabel_;
    QLabel* ToSelectLabel_;
    QCheckBox* CheckforConflicts_;
    QDate fromAnchor_;
    QDate toAnchor_;
    ViewGuard guard_{this};
};

class CopyToDifferentDialog : public QDialog {
public:
    CopyToDifferentDialog(common::Session& session, std::function<void()> changed, QWidget* parent = nullptr);

    schedule::copytodifferent& model() { return model_; }

private:
    void display();

    schedule::copytodifferent model_;
    std::function<void()> changed_;
    Binder binder_;
    QGroupBox* dayframe_;
    QGroupBox* weekframe_;
    ViewGuard guard_{this};
};

}  // namespace tallymere::app

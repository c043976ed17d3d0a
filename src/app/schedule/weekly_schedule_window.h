#pragma once
// The weekly schedule `week`: the model's grid (schedule::week) of employees by the days of the
// week of the active date, with its two filters. A window to look at; it is rebuilt on Refresh, on a
// filter, and when it comes to the front after the schedule changed.

#include "app/common/widget_support.h"
#include "app/shell/app_context.h"
#include "schedule/weekly_schedule.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QTableWidget;

namespace tallymere::app {

class WeeklyScheduleWindow : public QWidget, public ChildWindow {
public:
    explicit WeeklyScheduleWindow(AppContext& context, QWidget* parent = nullptr);
    ~WeeklyScheduleWindow() override;

    schedule::week& model() { return model_; }

    // --- ChildWindow
    void refreshWindow() override;
    void activated() override;
    QSize defaultSize() const override { return {980, 520}; }
    QSize sizeHint() const override { return defaultSize(); }

protected:
    // The first show puts the window where it was last closed; closing keeps the place.
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void display();
    void setColumnWidth(int column, int twips);
    int hoursColumnPixels() const;

    AppContext& context_;
    schedule::week model_;
    QTableWidget* grid_;
    QComboBox* employeeCombo_;
    QComboBox* shiftCombo_;
    QCheckBox* hourscheck_;
    bool placed_ = false;
    ViewGuard guard_{this};
};

}  // namespace tallymere::app

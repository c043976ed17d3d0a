#pragma once
// The daily schedule `dailyflexgrid`: the program's working window. It shows the model
// (schedule::dailyflexgrid): the day's entries in `grid1` or the week in `grid2`, the employee list
// `lstlist` with its pictures, the employee panel and the day's figures. Every click, key and drop
// goes to the model; the window then shows what the model holds.

#include "app/common/widget_support.h"
#include "app/shell/app_context.h"
#include "app/shell/output_window.h"
#include "schedule/daily_schedule.h"

#include <QWidget>
#include <optional>

class QComboBox;
class QGroupBox;
class QLabel;
class QMimeData;
class QPushButton;
class QStackedWidget;
class QTableWidget;
class QTreeWidget;

namespace tallymere::app {

class DailyScheduleWindow : public QWidget, public ChildWindow, public OutputWindow {
public:
    // The day on paper: printed, exported or written as PDF on the main window's surface; the
    // preview is a small window of its own.
    void printReport(reports::Printer& printer, const reports::ReportOutput& out) override;
    void previewReport() override;
    // The type of what lstlist drags: the employee's row in the list.
    static constexpr const char* kEmployeeMimeType = "application/x-tallymere-employee-row";

    explicit DailyScheduleWindow(AppContext& context, QWidget* parent = nullptr);
    ~DailyScheduleWindow() override;

    schedule::dailyflexgrid& model() { return model_; }

    // --- ChildWindow
    void refreshWindow() override {
        runAndShow([this] { model_.Command4_Click(); });
    }
    QSize defaultSize() const override { return {980, 560}; }
    QSize sizeHint() const override { return defaultSize(); }
    void updailyflexform() override;
    void UpDailyGridUpEmpl() override;
    void quickBarTimesChanged() override;
    void activated() override;
    void deactivated() override;

    // --- The commands the menus route here
    // Quick add for the selected employee (the Add buttons, `mnuaddtoschedulelistview`).
    void addFromQuickBar();
    // Edit the current entry; `fromMenu` clears the undo first, as the menu and double click do.
    void editEntry(bool fromMenu);
    void deleteEntries() {
        runAndShow([this] { model_.Command3_Click(); });
    }
    void deleteDay() {
        runAndShow([this] { model_.mnudeleteday_Click(); });
    }
    void cut() {
        runAndShow([this] { model_.mnudailygridrightclickcut_Click(); });
    }
    void copy() {
        runAndShow([this] { model_.mnudailygridrightclickcopy_Click(); });
    }
    void paste() {
        runAndShow([this] { model_.mnudailygridrightclickpaste_Click(); });
    }
    void selectAll() {
        runAndShow([this] { model_.mnudailygridrightclickselectall_Click(); });
    }
    void setWeekView(bool on);
    // The employee list's other order: by position with the position first, or by name.
    void switchEmployeeOrder();

    // A drop of lstlist's drag on grid1: where a real drag ends. False when the data is not an
    // employee of this list or the add was refused.
    bool dropEmployee(const QMimeData* data);

protected:
    // The first show puts the window where the last run left it.
    void showEvent(QShowEvent* event) override;

private:
    void buildGrid1();
    void buildEmployeeList();
    void buildWeekPage();
    QWidget* buildPanel();

    // Runs a model operation, then shows the model.
    template <class Operation>
    void runAndShow(Operation&& operation) {
        operation();
        display();
    }
    void display();
    void showGrid1();
    void showGrid1Selection();
    void showEmployeeList();
    void showPanel();
    void showWeekGrid();
    void afterAdd(bool added);

    bool grid1MouseEvent(QEvent* event);
    bool grid1KeyEvent(QEvent* event);
    bool grid1DropEvent(QEvent* event);
    bool lstlistMouseEvent(QEvent* event);
    // The model's row under a point of grid1's viewport: 1 for the first entry, -1 below the rows.
    int grid1RowAt(const QPoint& pos) const;
    void applyGridFont();
    void fitNoteColumn();

    AppContext& context_;
    schedule::dailyflexgrid model_;

    QLabel* datelabel_;
    QStackedWidget* pages_;
    QTableWidget* grid1_;
    QTableWidget* grid2_;
    QComboBox* filtercombo_;
    QTreeWidget* lstlist_;
    QGroupBox* employeeframe_;
    QLabel* todayLabel_;
    QLabel* weekofLabel_;
    QLabel* totalHoursLabel_;
    QLabel* hoursRequestedLabel_;
    QLabel* numHoursTodayLabel_;
    QLabel* leaveLabel_;
    QLabel* numShiftsLabel_;
    QLabel* laborEstimate_;
    QLabel* totalHours_;

    // Where a press on lstlist started, for telling a drag from a click.
    std::optional<QPoint> dragStart_;
    // While the mouse extends grid1's selection.
    bool selecting_ = false;
    // Set while the view fills its widgets, so their signals do not reach the model.
    bool showing_ = false;
    bool placed_ = false;
    ViewGuard guard_{this};
};

}  // namespace tallymere::app

#pragma once
// The staffing windows: `staffing` with its seven tabs and `staffingadd`, `analyzelevels`,
// `CheckConflicts`, `RepairEndtimes` and `ReportAvailable`. Each owns its core model and shows it;
// the lists print through the report engine and save as CSV.

#include "app/common/widget_support.h"
#include "app/shell/app_context.h"
#include "app/staffing/list_output.h"
#include "staffing/analyze_levels.h"
#include "staffing/check_conflicts.h"
#include "staffing/report_available.h"
#include "staffing/staffing_levels.h"

#include <QDialog>
#include <QWidget>
#include <array>

class QComboBox;
class QDateEdit;
class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QRadioButton;
class QTabWidget;
class QTableWidget;

namespace tallymere::app {

class TimeEntryWidget;

// Closes a child window through its MDI subwindow.
void closeChildWindow(QWidget* w);

class StaffingWindow : public QWidget, public ChildWindow {
public:
    explicit StaffingWindow(AppContext& context, QWidget* parent = nullptr);
    ~StaffingWindow() override;
    staffing::staffing& model() { return model_; }

    void refreshWindow() override;
    QSize defaultSize() const override { return {620, 480}; }
    QSize sizeHint() const override { return defaultSize(); }

private:
    void display();
    void placeEditor();
    void openAdd(bool edit);
    QTableWidget* currentGrid() const;

    AppContext& context_;
    staffing::staffing model_;
    QTabWidget* tabs_;
    std::array<QTableWidget*, 7> grids_{};
    QLineEdit* numreq_;
    QComboBox* shiftcombo_;
    QComboBox* positioncombo_;
    QProgressBar* bar_;
    bool showing_ = false;
    ViewGuard guard_{this};
};

class StaffingAddDialog : public QDialog {
public:
    StaffingAddDialog(common::Session& s, int sday, QWidget* parent = nullptr);
    ~StaffingAddDialog() override;
    staffing::staffingadd& model() { return model_; }
    void showModel() { binder_.show(); }

private:
    staffing::staffingadd model_;
    Binder binder_;
    ViewGuard guard_{this};
};

class AnalyzeLevelsWindow : public QWidget, public ChildWindow, public ListOutputWindow {
public:
    explicit AnalyzeLevelsWindow(AppContext& context, QWidget* parent = nullptr);
    ~AnalyzeLevelsWindow() override;
    staffing::analyzelevels& model() { return model_; }

    void refreshWindow() override;
    QSize defaultSize() const override { return {720, 480}; }
    QSize sizeHint() const override { return defaultSize(); }

private:
    void display();

    AppContext& context_;
    staffing::analyzelevels model_;
    QDateEdit* analyzeday_;
    QTableWidget* list_;
    QLabel* label4_;
    Binder binder_;
    ViewGuard guard_{this};
};

class CheckConflictsWindow : public QWidget, public ChildWindow, public ListOutputWindow {
public:
    explicit CheckConflictsWindow(AppContext& context, QWidget* parent = nullptr);
    ~CheckConflictsWindow() override;
    staffing::CheckConflicts& model() { return model_; }

    void refreshWindow() override;
    QSize defaultSize() const override { return {820, 480}; }
    QSize sizeHint() const override { return defaultSize(); }

private:
    void display();

    AppContext& context_;
    staffing::CheckConflicts model_;
    QRadioButton* dayoption_;
    QRadioButton* weekoption_;
    QRadioButton* rangeoption_;
    QDateEdit* startdate_;
    QDateEdit* enddate_;
    QTableWidget* grid_;
    QLabel* label1_;
    QLabel* label2_;
    ViewGuard guard_{this};
};

class RepairEndtimesWindow : public QWidget, public ChildWindow {
public:
    explicit RepairEndtimesWindow(AppContext& context, QWidget* parent = nullptr);
    ~RepairEndtimesWindow() override;
    staffing::RepairEndtimes& model() { return model_; }

    void refreshWindow() override;
    QSize defaultSize() const override { return {620, 400}; }
    QSize sizeHint() const override { return defaultSize(); }

private:
    void display();

    AppContext& context_;
    staffing::RepairEndtimes model_;
    QTableWidget* grid_;
    ViewGuard guard_{this};
};

class ReportAvailableWindow : public QWidget, public ChildWindow, public ListOutputWindow {
public:
    explicit ReportAvailableWindow(AppContext& context, QWidget* parent = nullptr);
    ~ReportAvailableWindow() override;
    staffing::ReportAvailable& model() { return model_; }

    void refreshWindow() override;
    QSize defaultSize() const override { return {900, 520}; }
    QSize sizeHint() const override { return defaultSize(); }

private:
    void display();
    void readTimes();

    AppContext& context_;
    staffing::ReportAvailable model_;
    QDateEdit* dtdate_;
    TimeEntryWidget* start_;
    TimeEntryWidget* end_;
    QTableWidget* list_;
    Binder binder_;
    ViewGuard guard_{this};
};

}  // namespace tallymere::app

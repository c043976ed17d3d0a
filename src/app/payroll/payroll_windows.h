#pragma once
// The payroll windows: the list reports `payrollestimator`, `PayrollwithOvertime`, `PayrollwithSales`
// and `hoursshifts`, the document report `ReportWeeklyPayroll`, and the sales entry `AddSalesForm`.
// Each owns its core model; the lists print and preview through the report engine and save as CSV.

#include "app/shell/app_context.h"
#include "app/shell/output_window.h"
#include "payroll/hours_shifts.h"
#include "payroll/payroll_estimator.h"
#include "payroll/payroll_overtime.h"
#include "payroll/payroll_sales.h"

#include <QDialog>
#include <QWidget>
#include <array>
#include <functional>
#include <memory>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QLabel;
class QLineEdit;
class QRadioButton;
class QTableWidget;
class QVBoxLayout;

namespace tallymere::app {

namespace render {
class PreviewWidget;
}

// What a list window shares: its list, heading and total, and the print, preview and CSV buttons.
class PayListWindow : public QWidget, public ChildWindow, public OutputWindow {
public:
    QSize sizeHint() const override { return {640, 520}; }
    void refreshWindow() override { refresh(); }
    // Builds again from the controls and shows the result.
    void refresh();
    // The list as shown, to a CSV file the user chooses.
    bool saveCsv();
    void print();
    void preview();

    // The main window's output commands: the same as the buttons, and RTF and PDF of the printed list.
    void printReport(reports::Printer& printer, const reports::ReportOutput& out) override;
    void previewReport() override { preview(); }
    bool saveReportCsv() override { return saveCsv(); }

protected:
    PayListWindow(AppContext& context, const char* windowName, const char* caption, const char* listName);
    // The controls above the list, then the buttons below it with the close button's name.
    void finish(QLayout* controls, const char* closeName, const char* refreshName = "refreshbutton");
    virtual payroll::PayList& list() = 0;
    virtual std::string headingText() const = 0;
    virtual std::string totalText() const { return {}; }
    virtual std::string printTitle() const { return headingText(); }
    // Widgets -> model, then the model's own build.
    virtual bool build() = 0;
    virtual void showControls() {}
    void showList();

    AppContext& context_;
    QTableWidget* list_;
    QLabel* heading_;
    QLabel* total_;
};

class PayrollEstimatorWindow : public PayListWindow {
public:
    PayrollEstimatorWindow(AppContext& context, payroll::PayrollFlags& flags);
    ~PayrollEstimatorWindow() override;
    payroll::payrollestimator& model() { return *model_; }

protected:
    payroll::PayList& list() override { return model_->paylistview; }
    std::string headingText() const override { return model_->heading; }
    std::string totalText() const override { return model_->total; }
    std::string printTitle() const override { return model_->printHeading(); }
    bool build() override;
    void showControls() override;

private:
    std::unique_ptr<payroll::payrollestimator> model_;
    QRadioButton *day_, *week_, *range_, *employees_, *positions_, *own_, *all_, *base_;
    QDateEdit *start_, *end_;
    QCheckBox *quals_, *overtime_;
    QLineEdit* factor_;
    QComboBox *shifts_, *people_;
};

class PayrollOvertimeWindow : public PayListWindow {
public:
    explicit PayrollOvertimeWindow(AppContext& context);
    payroll::PayrollwithOvertime& model() { return *model_; }

protected:
    payroll::PayList& list() override { return model_->paylistview; }
    std::string headingText() const override { return model_->heading; }
    std::string totalText() const override { return model_->total; }
    bool build() override;
    void showControls() override;

private:
    std::unique_ptr<payroll::PayrollwithOvertime> model_;
    QDateEdit* start_;
    QComboBox* people_;
    QLineEdit* factor_;
    QLabel* weekLabel_;
};

class PayrollSalesWindow : public PayListWindow {
public:
    PayrollSalesWindow(AppContext& context, payroll::PayrollFlags& flags);
    ~PayrollSalesWindow() override;
    payroll::PayrollwithSales& model() { return *model_; }

protected:
    payroll::PayList& list() override { return model_->paylistview; }
    std::string headingText() const override { return model_->heading; }
    std::string totalText() const override { return model_->total; }
    bool build() override;
    void showControls() override;

private:
    std::unique_ptr<payroll::PayrollwithSales> model_;
    QRadioButton *day_, *week_, *range_, *own_, *all_, *base_;
    QDateEdit *start_, *end_;
    QCheckBox* quals_;
};

class HoursShiftsWindow : public PayListWindow {
public:
    explicit HoursShiftsWindow(AppContext& context);
    payroll::hoursshifts& model() { return *model_; }

protected:
    payroll::PayList& list() override { return model_->leavelistview; }
    std::string headingText() const override { return model_->heading; }
    bool build() override;
    void showControls() override;

private:
    std::unique_ptr<payroll::hoursshifts> model_;
    std::array<QRadioButton*, 5> periods_{};
    QDateEdit *start_, *end_;
    QComboBox* people_;
};

class WeeklyPayrollWindow : public QWidget, public ChildWindow, public OutputWindow {
public:
    explicit WeeklyPayrollWindow(AppContext& context);
    ~WeeklyPayrollWindow() override;
    payroll::ReportWeeklyPayroll& model() { return *model_; }
    QSize sizeHint() const override { return {820, 700}; }
    void refreshWindow() override { refresh(); }
    void refresh();

    // The document as composed: printed, written as RTF or PDF. Its preview is the window itself.
    void printReport(reports::Printer& printer, const reports::ReportOutput& out) override;
    void previewReport() override {}

private:
    AppContext& context_;
    std::unique_ptr<payroll::ReportWeeklyPayroll> model_;
    QDateEdit* start_;
    QLineEdit* weeks_;
    QComboBox* people_;
    render::PreviewWidget* vp_;
};

class AddSalesDialog : public QDialog {
public:
    AddSalesDialog(common::Session& s, QWidget* parent = nullptr);
    payroll::AddSalesForm& model() { return model_; }

private:
    void showWeek();
    payroll::AddSalesForm model_;
    QDateEdit* week_;
    std::array<QLabel*, 7> days_{};
    std::array<QLineEdit*, 7> sales_{};
};

}  // namespace tallymere::app

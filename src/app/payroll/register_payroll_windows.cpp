// The payroll commands: the estimator, payroll with overtime and with sales, the weekly payroll and
// the employees' hours and shifts. The payroll right decides who may open the money windows.

#include "app/common/qt_ui.h"
#include "app/payroll/payroll_windows.h"
#include "payroll/pay_list.h"

namespace tallymere::app {

namespace {

// The "Calc. Overtime" state the payroll windows share for the run, kept by the main window.
class SharedFlags : public QObject {
public:
    using QObject::QObject;
    payroll::PayrollFlags flags;
};

template <class Window, class Make>
void childCommand(AppContext& context, const std::string& menuName, const char* windowName, bool money, Make make) {
    AppContext* c = &context;
    const QString name = QString::fromLatin1(windowName);
    c->registerChildWindow(name, make);
    c->registerCommand(menuName, [c, name, money, make] {
        if (money && payroll::NoPayrollPermission(c->session())) return;
        c->openChild(name, make);
    });
}

}  // namespace

void registerPayrollWindows(AppContext& context) {
    AppContext* c = &context;
    auto* shared = new SharedFlags(context.mainWindow());
    payroll::PayrollFlags* flags = &shared->flags;
    childCommand<PayrollEstimatorWindow>(context, "mnupayrollestimator", payroll::payrollestimator::kWindowName, true,
                                         [c, flags] { return new PayrollEstimatorWindow(*c, *flags); });
    childCommand<PayrollSalesWindow>(context, "MnuPayrollwithSales", payroll::PayrollwithSales::kWindowName, true,
                                     [c, flags] { return new PayrollSalesWindow(*c, *flags); });
    childCommand<PayrollOvertimeWindow>(context, "mnuPayrollwithOvertime", payroll::PayrollwithOvertime::kWindowName,
                                        true, [c] { return new PayrollOvertimeWindow(*c); });
    childCommand<WeeklyPayrollWindow>(context, "mnuweeklypayroll", payroll::ReportWeeklyPayroll::kWindowName, true,
                                      [c] { return new WeeklyPayrollWindow(*c); });
    childCommand<HoursShiftsWindow>(context, "mnuemployeehoursshifts", payroll::hoursshifts::kWindowName, false,
                                    [c] { return new HoursShiftsWindow(*c); });
    context.ui().registerModal(payroll::AddSalesForm::kWindowName, [c] {
        AddSalesDialog dialog(c->session(), c->mainWindow());
        dialog.exec();
    });
}

}  // namespace tallymere::app

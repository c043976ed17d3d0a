#pragma once
// Window `payrollestimator`: wages and hours of a day, a week or a range, listed by employee or by
// position under one of three rate policies. Each of the six combinations has its own builder; they
// differ in small ways on purpose (noted at each), so they are not folded into one.

#include "common/session.h"
#include "payroll/pay_list.h"

#include <string>
#include <vector>

namespace tallymere::payroll {

struct ComboItem {
    std::string text;
    long personid = 0;
};

class payrollestimator : public PeriodChoice {
public:
    static constexpr const char* kWindowName = "payrollestimator";
    static constexpr const char* kCaption = "Payroll Estimator";

    // Null when the payroll right is missing (the message has been shown) or the window failed to load.
    static std::unique_ptr<payrollestimator> open(common::Session& s, PayrollFlags& flags);
    payrollestimator(common::Session& s, PayrollFlags& flags);

    // The date options are the PeriodChoice base.
    void weekoption_Click() { chooseWeek(s_.settings.firstdayofweek); }

    bool employeeOption = true;
    bool positionOption = false;
    bool personcomboEnabled = true;
    void employeeOption_Click();
    void positionOption_Click();

    bool primaryonlyoption = true;
    bool overrideoption = false;
    bool baseoption = false;
    void primaryonlyoption_Click();
    void overrideoption_Click();
    void baseoption_Click();

    bool QualRateCheck = true;
    bool QualRateCheckEnabled = true;

    bool OvertimeCalcCheck = false;
    void OvertimeCalcCheck_Click(bool checked);
    std::string OverTimeFactor;
    bool OverTimeFactorEnabled = false;
    bool OverTimeFactor_KeyPress(char key);  // false: beeped and dropped
    void OverTimeFactor_LostFocus();

    std::vector<std::string> shiftCombo{"All"};
    std::string shiftComboText = "All";
    std::vector<ComboItem> personcombo{{"All", 0}};
    int personcomboIndex = 0;

    PayList paylistview;
    std::string heading;
    std::string total;

    // Rebuilds with the chosen builder. False when the dates were refused or a builder stopped.
    bool refreshbutton_Click();
    // The heading as printed: " (base rates only)" added with base rates.
    std::string printHeading() const;
    // Stores the remembered choices.
    void Form_Unload();

    // The six builders, public so a caller may run one directly. False when it stopped with a message.
    bool EstimateByEmployeeOwnRates();
    bool EstimateByEmployeeAllRates();
    bool EstimateByEmployeeBaseRates();
    bool EstimateByPositionOwnRates();
    bool EstimateByPositionAllRates();
    bool EstimateByPositionBaseRates();

private:
    DateFilter filter() const;
    store::Recordset employees();
    bool estimateByEmployeeAtPositionRates(bool base);
    bool estimateByPositionDayByDay(bool ownRates);
    void addTotal(double hours, long shifts, double wages);
    void SetPayHeading();

    common::Session& s_;
    PayrollFlags& flags_;
};

}  // namespace tallymere::payroll

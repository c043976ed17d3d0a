#pragma once
// Labor cost against sales day by day: the list window `PayrollwithSales` and the entry of the sales
// of a week, `AddSalesForm`, which keeps them in the day notes of the open schedule file.

#include "common/session.h"
#include "payroll/pay_list.h"
#include "payroll/payroll_estimator.h"

#include <array>
#include <memory>
#include <optional>
#include <string>

namespace tallymere::payroll {

class PayrollwithSales : public PeriodChoice {
public:
    static constexpr const char* kWindowName = "PayrollwithSales";
    static constexpr const char* kCaption = "Payroll with Sales";

    static std::unique_ptr<PayrollwithSales> open(common::Session& s, PayrollFlags& flags);
    PayrollwithSales(common::Session& s, PayrollFlags& flags);

    void weekoption_Click() { chooseWeek(s_.settings.firstdayofweek); }

    bool primaryonlyoption = true;
    bool overrideoption = false;
    bool baseoption = false;
    bool overrideoptionEnabled = true;
    bool baseoptionEnabled = true;
    bool QualRateCheck = true;
    // Shown as in the estimator; no builder here computes overtime.
    bool OvertimeCalcCheck = false;
    std::string OverTimeFactor;

    PayList paylistview;
    std::string heading;
    std::string total;

    bool refreshbutton_Click();
    // Opens the sales entry; the list is built again when it closes.
    void AddSales_Click();
    void Form_Unload();

    bool SalesByOwnRates();
    bool SalesByAllRates();
    bool SalesByBaseRates();

private:
    enum class Rates { Own, All, Base };
    bool build(Rates rates);
    common::Session& s_;
    PayrollFlags& flags_;
};

class AddSalesForm {
public:
    static constexpr const char* kWindowName = "AddSalesForm";
    static constexpr const char* kCaption = "Add Daily Sales Data";

    explicit AddSalesForm(common::Session& s);

    common::Date WeekofDate;
    std::array<std::string, 7> day;    // labels day1..day7
    std::array<std::string, 7> Sales;  // the boxes as shown
    bool changed = false;

    // A key typed at the end of box `index`. False: beeped and dropped.
    bool Sales_KeyPress(int index, char key);
    // A box's text as the user leaves it: a figure is shown as currency.
    void Sales_LostFocus(int index);
    void Sales_Change(int index, std::string text);
    // Another week: pending changes are offered first (false when they could not be saved).
    bool WeekofDate_Change(common::Date d);
    // True: the window closes.
    bool OKButton_Click();
    bool CancelButton_Click() { return true; }

    // The amount a box holds: nullopt for blank, or for text that is not a figure in the user's format.
    std::optional<double> amount(const std::string& text) const;

private:
    void load();
    bool save();
    common::Session& s_;
};

}  // namespace tallymere::payroll

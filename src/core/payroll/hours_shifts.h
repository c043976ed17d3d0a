#pragma once
// Window `hoursshifts`: hours and shift counts per employee over a period, without money.

#include "common/session.h"
#include "payroll/pay_list.h"
#include "payroll/payroll_estimator.h"

#include <memory>
#include <string>
#include <vector>

namespace tallymere::payroll {

class hoursshifts {
public:
    static constexpr const char* kWindowName = "hoursshifts";
    static constexpr const char* kCaption = "Employee Hours and Shifts";

    static std::unique_ptr<hoursshifts> open(common::Session& s);
    explicit hoursshifts(common::Session& s);

    std::vector<ComboItem> personcombo{{"All", 0}};
    int personcomboIndex = 0;
    enum class Period { Day, Week, Month, Year, Range };
    Period period = Period::Day;  // dayoption, weekoption, monthoption, yearoption, daterangeoption
    common::Date startdate;
    common::Date enddate;

    PayList leavelistview;
    std::string heading;

    bool RefreshButton_Click();

private:
    common::Session& s_;
};

}  // namespace tallymere::payroll

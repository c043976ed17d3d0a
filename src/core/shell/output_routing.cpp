#include "shell/output_routing.h"

#include <algorithm>

namespace tallymere::shell {

const std::vector<std::string_view>& outputRouteWindows() {
    static const std::vector<std::string_view> list = {"ReportDaily",
                                                       "dailyflexgrid",
                                                       "leavemonth",
                                                       "ReportAvailable",
                                                       "PayrollwithOvertime",
                                                       "PayrollwithSales",
                                                       "ReportWeeklyPayroll",
                                                       "queryemployee",
                                                       "CheckConflicts",
                                                       "leavelist",
                                                       "ReportEmpList",
                                                       "ReportEmployee",
                                                       "ReportMonth",
                                                       "ReportWeek",
                                                       "ReportWeekShift",
                                                       "ReportWeekPosition",
                                                       "hoursshifts",
                                                       "payrollestimator",
                                                       "week",
                                                       "printlist",
                                                       "settings",
                                                       "analyzelevels"};
    return list;
}

bool routesOutput(std::string_view windowName) {
    const auto& list = outputRouteWindows();
    return std::find(list.begin(), list.end(), windowName) != list.end();
}

const std::vector<std::string_view>& listCsvWindows() {
    static const std::vector<std::string_view> list = {"payrollestimator", "PayrollwithOvertime", "PayrollwithSales",
                                                       "hoursshifts",      "CheckConflicts",      "ReportAvailable",
                                                       "analyzelevels"};
    return list;
}

bool savesListCsv(std::string_view windowName) {
    const auto& list = listCsvWindows();
    return std::find(list.begin(), list.end(), windowName) != list.end();
}

}  // namespace tallymere::shell

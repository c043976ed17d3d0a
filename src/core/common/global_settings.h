#pragma once
// The global settings: read from the options table at start, held here for the whole run, written
// back at exit. Member names are the option keys, so a reader finds `gb_AlertDoubleShifts` under the
// name the database uses. Prefixes tell the type: gb_ yes/no, gi_ whole number, gs_ text, gd_ real.

#include <optional>
#include <string>

namespace tallymere::common {

struct GlobalSettings {
    // Daily schedule and entry rules.
    std::string dailyschedsort = "employee";  // kept in the user's settings store, not the options table
    bool reportunassigned = false;
    bool gb_CheckConflictsDuringCopy = true;
    bool gb_ShowLaborCostsOnDailyForm = true;
    bool gb_CheckConflictAllSchedules = false;
    bool gb_ShowTotalHoursOnDailyForm = true;
    std::string gs_PaySalesRates = "Employee";
    bool gb_PaySalesQuals = true;
    std::string gs_PayrollEstRates = "Employee";
    bool gb_PayrollEstQuals = true;

    // Page setup, in twips.
    int margintop = 1080;
    int marginbottom = 720;
    int marginleft = 720;
    int marginright = 720;
    int orientation = 1;  // 1 portrait, 2 landscape

    bool gb_AlertDoubleShifts = true;
    bool gb_AlertShiftOver12Hours = true;
    bool gb_ShowQuickBar = true;
    std::string gs_AutoFillDayWeek = "Day";
    std::string gs_AutoRebuildDayWeek = "Day";
    bool gb_AutoEnforceWeeklyHrs = true;
    bool gb_AutoDesiredShiftsFirst = true;
    bool gb_AutoAllowDblShifts = true;
    bool gb_RestrictOvertime = false;
    bool gb_NoOvertime = false;
    bool gb_AlertForOvertime = true;
    int gi_OvertimeThreshold = 40;
    double gd_OvertimeFactor = 1.5;

    bool dailyflexgridshowposition = false;
    std::string firstdayofweek = "Sunday";
    int gi_defaultschedlength = 7;
    int nrun = 1;
    int nrunsincebackup = 1;
    std::string reportdateformat = "short date";
    std::string tooldateformat = "dtplongdate";
    std::string tooldatecustomformat = "MM/dd/yyyy";  // the date control's form of "mm/dd/yyyy"

    // The main window's place, in twips; unset when never saved.
    std::optional<int> mainx, mainy, mainheight, mainwidth, mainstate;

    // Employee weekly report.
    bool gb_RepWeekEmpAllEmployees = false;
    std::string gs_RepWeekEmpGroupBy;
    std::string gs_RepWeekEmpFont = "Arial";
    int gi_RepWeekEmpFontSize = 8;
    bool gb_RepWeekEmpFontBold = false;
    bool gb_RepWeekEmpFontItalic = false;
    int gi_RepWeekEmpPadding = 100;
    bool gb_RepWeekEmpShift = false;
    bool gb_RepWeekEmpTime = true;
    bool gb_RepWeekEmpSection = false;
    bool gb_RepWeekEmpPosition = true;
    bool gb_RepWeekEmpTotalHrs = false;
    bool gb_RepWeekEmpSingleLine = false;

    // Position weekly report.
    std::string gs_RepWeekPosFont = "Arial";
    int gi_RepWeekPosFontSize = 9;
    bool gb_RepWeekPosFontBold = false;
    bool gb_RepWeekPosFontItalic = false;
    int gi_RepWeekPosPadding = 100;
    bool gb_RepWeekPosShift = false;
    bool gb_RepWeekPosTime = true;
    bool gb_RepWeekPosSection = false;
    bool gb_RepWeekPosPosition = true;
    bool gb_RepWeekPosSingleLine = false;
    bool gb_RepWeekPosTotalHrs = false;  // written at exit, never read back

    // Shift weekly report.
    std::string gs_RepWeekShiftFont = "Arial";
    int gi_RepWeekShiftFontSize = 8;
    bool gb_RepWeekShiftFontBold = false;
    bool gb_RepWeekShiftFontItalic = false;
    int gi_RepWeekShiftPadding = 50;
    bool gb_RepWeekShiftTime = true;
    bool gb_RepWeekShiftSection = true;
    bool gb_RepWeekShiftPosition = true;
    bool gb_RepWeekShiftSingleLine = false;
    bool gb_RepWeekShiftSchedOnly = false;

    // Monthly report.
    std::string gs_RepMonthFont = "Arial";
    int gi_RepMonthFontSize = 8;
    bool gb_RepMonthFontBold = false;
    bool gb_RepMonthFontItalic = false;
    int gi_RepMonthPadding = 50;
    bool gb_RepMonthShift = false;
    bool gb_RepMonthTime = true;
    bool gb_RepMonthSection = true;
    bool gb_RepMonthPosition = true;
    bool gb_RepMonthSingleLine = false;

    // Leave month report.
    std::string gs_LeaveMonthFont = "Arial";
    int gi_LeaveMonthFontSize = 8;
    bool gb_LeaveMonthFontBold = false;
    bool gb_LeaveMonthFontItalic = false;

    // Shared by the list reports.
    std::string gs_PrintGridFont = "Arial";
    int gi_PrintGridFontSize = 8;
    bool gb_PrintGridFontBold = false;
    bool gb_PrintGridFontItalic = false;
    bool gb_ReportFitToPage = true;
    int gi_ReportNumDays = 7;
    // Inches, in spite of its prefix: the width of a day column without fit to page. The start works
    // out the fit width of the page for 7 days; a stored width replaces it.
    double gi_ReportColumnWidth = 0;
    std::string gs_ReportNameFormat = "Smith, John";
    std::string gs_ReportTimeFormat = "H:MMam/pm";

    // Written at exit, not loaded at start.
    std::string gs_PrinterDevice;
    std::string gs_PaperSize;
    std::string gs_versionnumber;
    std::string DateofLastRun;
    std::string DateofLastBackUp;
};

}  // namespace tallymere::common

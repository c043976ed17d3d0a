#include "cli/setting_overrides.h"

#include "cli/stop.h"
#include "common/date_time.h"
#include "common/numbers.h"
#include "common/text.h"

#include <climits>
#include <cmath>
#include <type_traits>
#include <variant>

namespace tallymere::cli {

using common::GlobalSettings;

namespace {

using Member = std::variant<bool GlobalSettings::*, int GlobalSettings::*, double GlobalSettings::*,
                            std::string GlobalSettings::*>;

struct Key {
    const char* name;
    Member member;
};

// The settings the options table keeps for the whole file. The window places, the start counters and
// what is only written at exit are left out: overriding them would mean nothing for a run.
#define TM_KEY(name) Key{#name, &GlobalSettings::name},
constexpr Key kKeys[] =
    {TM_KEY(reportunassigned) TM_KEY(gb_CheckConflictsDuringCopy) TM_KEY(gb_ShowLaborCostsOnDailyForm) TM_KEY(
        gb_CheckConflictAllSchedules) TM_KEY(gb_ShowTotalHoursOnDailyForm) TM_KEY(gs_PaySalesRates)
         TM_KEY(gb_PaySalesQuals) TM_KEY(gs_PayrollEstRates) TM_KEY(gb_PayrollEstQuals) TM_KEY(margintop) TM_KEY(
             marginbottom) TM_KEY(marginleft) TM_KEY(marginright) TM_KEY(orientation) TM_KEY(gb_AlertDoubleShifts)
             TM_KEY(gb_AlertShiftOver12Hours) TM_KEY(gb_ShowQuickBar) TM_KEY(gs_AutoFillDayWeek) TM_KEY(
                 gs_AutoRebuildDayWeek) TM_KEY(gb_AutoEnforceWeeklyHrs) TM_KEY(gb_AutoDesiredShiftsFirst)
                 TM_KEY(gb_AutoAllowDblShifts) TM_KEY(gb_RestrictOvertime) TM_KEY(gb_NoOvertime) TM_KEY(
                     gb_AlertForOvertime) TM_KEY(gi_OvertimeThreshold) TM_KEY(gd_OvertimeFactor)
                     TM_KEY(dailyflexgridshowposition) TM_KEY(firstdayofweek) TM_KEY(gi_defaultschedlength) TM_KEY(
                         reportdateformat) TM_KEY(gb_RepWeekEmpAllEmployees) TM_KEY(gs_RepWeekEmpGroupBy)
                         TM_KEY(gs_RepWeekEmpFont) TM_KEY(gi_RepWeekEmpFontSize) TM_KEY(gb_RepWeekEmpFontBold) TM_KEY(
                             gb_RepWeekEmpFontItalic)
                             TM_KEY(gi_RepWeekEmpPadding) TM_KEY(gb_RepWeekEmpShift) TM_KEY(gb_RepWeekEmpTime) TM_KEY(
                                 gb_RepWeekEmpSection) TM_KEY(gb_RepWeekEmpPosition)
                                 TM_KEY(gb_RepWeekEmpTotalHrs) TM_KEY(gb_RepWeekEmpSingleLine) TM_KEY(
                                     gs_RepWeekPosFont) TM_KEY(gi_RepWeekPosFontSize)
                                     TM_KEY(gb_RepWeekPosFontBold) TM_KEY(gb_RepWeekPosFontItalic) TM_KEY(
                                         gi_RepWeekPosPadding) TM_KEY(gb_RepWeekPosShift) TM_KEY(gb_RepWeekPosTime)
                                         TM_KEY(gb_RepWeekPosSection) TM_KEY(gb_RepWeekPosPosition) TM_KEY(
                                             gb_RepWeekPosSingleLine) TM_KEY(gs_RepWeekShiftFont)
                                             TM_KEY(
                                                 gi_RepWeekShiftFontSize) TM_KEY(gb_RepWeekShiftFontBold)
                                                 TM_KEY(gb_RepWeekShiftFontItalic) TM_KEY(gi_RepWeekShiftPadding) TM_KEY(
                                                     gb_RepWeekShiftTime) TM_KEY(gb_RepWeekShiftSection)
                                                     TM_KEY(
                                                         gb_RepWeekShiftPosition) TM_KEY(gb_RepWeekShiftSingleLine)
                                                         TM_KEY(gb_RepWeekShiftSchedOnly) TM_KEY(gs_RepMonthFont) TM_KEY(
                                                             gi_RepMonthFontSize) TM_KEY(gb_RepMonthFontBold)
                                                             TM_KEY(gb_RepMonthFontItalic) TM_KEY(gi_RepMonthPadding)
                                                                 TM_KEY(gb_RepMonthShift) TM_KEY(gb_RepMonthTime) TM_KEY(
                                                                     gb_RepMonthSection) TM_KEY(gb_RepMonthPosition)
                                                                     TM_KEY(gb_RepMonthSingleLine) TM_KEY(
                                                                         gs_LeaveMonthFont) TM_KEY(gi_LeaveMonthFontSize)
                                                                         TM_KEY(gb_LeaveMonthFontBold) TM_KEY(
                                                                             gb_LeaveMonthFontItalic)
                                                                             TM_KEY(gs_PrintGridFont) TM_KEY(
                                                                                 gi_PrintGridFontSize)
                                                                                 TM_KEY(gb_PrintGridFontBold) TM_KEY(
                                                                                     gb_PrintGridFontItalic)
                                                                                     TM_KEY(gb_ReportFitToPage) TM_KEY(
                                                                                         gi_ReportNumDays)
                                                                                         TM_KEY(gi_ReportColumnWidth)
                                                                                             TM_KEY(gs_ReportNameFormat)
                                                                                                 TM_KEY(
                                                                                                     gs_ReportTimeFormat)};
#undef TM_KEY

const Key* findKey(std::string_view name) {
    for (const Key& k : kKeys)
        if (common::equalsNoCase(k.name, name)) return &k;
    return nullptr;
}

std::string quoted(const SettingOverride& o) { return "--set " + o.key + "=" + o.value; }

// The value in the form the key holds, or a usage Stop that says what the key takes.
void check(const Key& key, const SettingOverride& o) {
    const std::string v = common::trim(o.value);
    const auto refuse = [&](const std::string& takes) {
        return usage(quoted(o) + ": " + o.key + " takes " + takes + ".");
    };
    std::visit(
        [&](auto member) {
            using T = std::remove_reference_t<decltype(GlobalSettings{}.*member)>;
            if constexpr (std::is_same_v<T, bool>) {
                const std::string u = common::toUpper(v);
                if (u != "YES" && u != "NO" && u != "TRUE" && u != "FALSE") throw refuse("Yes, No, True or False");
            } else if constexpr (std::is_same_v<T, int>) {
                const auto n = common::parseNumberStrict(v);
                if (!n || !std::isfinite(*n) || *n != std::floor(*n) || *n > INT_MAX || *n < INT_MIN)
                    throw refuse("a whole number");
                // The scheduler holds the threshold in 16 bits.
                if (common::equalsNoCase(key.name, "gi_OvertimeThreshold") && (*n > 32767 || *n < -32768))
                    throw refuse("a whole number from -32768 to 32767");
            } else if constexpr (std::is_same_v<T, double>) {
                const auto n = common::parseNumberStrict(v);
                if (!n || !std::isfinite(*n)) throw refuse("a number");
            }
        },
        key.member);
    // The week is found by this name: anything else would put every week on the date itself.
    if (common::equalsNoCase(key.name, "firstdayofweek")) {
        const int day = common::weekdayFromName(v);
        if (day == 0 || !common::equalsNoCase(common::weekdayName(day), v))
            throw refuse("the full English name of a weekday");
    }
}

}  // namespace

SettingOverride parseSettingOverride(std::string_view arg) {
    const std::size_t eq = arg.find('=');
    if (eq == std::string_view::npos || common::trim(arg.substr(0, eq)).empty())
        throw usage("--set " + std::string(arg) + ": write it as KEY=VALUE, for example --set gb_NoOvertime=True.");
    SettingOverride o{common::trim(arg.substr(0, eq)), std::string(arg.substr(eq + 1))};
    const Key* key = findKey(o.key);
    if (!key) throw usage(quoted(o) + ": there is no setting " + o.key + ".");
    o.key = key->name;
    check(*key, o);
    return o;
}

void applySettingOverrides(GlobalSettings& g, const std::vector<SettingOverride>& overrides) {
    for (const SettingOverride& o : overrides) {
        const Key* key = findKey(o.key);
        if (!key) continue;  // parseSettingOverride let it through, so this does not happen
        const std::string v = common::trim(o.value);
        std::visit(
            [&](auto member) {
                using T = std::remove_reference_t<decltype(g.*member)>;
                if constexpr (std::is_same_v<T, bool>) {
                    const std::string u = common::toUpper(v);
                    g.*member = u == "YES" || u == "TRUE";
                } else if constexpr (std::is_same_v<T, int>) {
                    g.*member = static_cast<int>(*common::parseNumberStrict(v));
                } else if constexpr (std::is_same_v<T, double>) {
                    g.*member = *common::parseNumberStrict(v);
                } else {
                    g.*member = common::equalsNoCase(key->name, "firstdayofweek")
                                    ? common::weekdayName(common::weekdayFromName(v))
                                    : v;
                }
            },
            key->member);
    }
}

}  // namespace tallymere::cli

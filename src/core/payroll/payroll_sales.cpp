#include "payroll/payroll_sales.h"

#include "common/date_time.h"
#include "common/display_format.h"
#include "common/numbers.h"
#include "common/text.h"
#include "store/access.h"

#include <exception>
#include <map>

namespace tallymere::payroll {

using common::Date;
using common::MsgAnswer;
using common::MsgButtons;
using common::MsgIcon;
using common::Session;

namespace {

// "Labor as % of Sales" in whole percents; no sales gives "0%".
std::string percentOf(Session& s, double labor, double sales) {
    if (sales > 0) return common::formatNumber(labor / sales * 100, "0", s.locale) + "%";
    return "0%";
}

PayCell percentCell(Session& s, double labor, double sales) {
    return PayCell{percentOf(s, labor, sales), sales > 0 ? labor / sales * 100 : 0.0, 0};
}

// Stored sales are text or a number; anything that is not a figure counts as none.
std::optional<double> storedSales(const store::Field& f) {
    if (f.isNull()) return std::nullopt;
    return common::parseNumberStrict(f.text());
}

}  // namespace

std::unique_ptr<PayrollwithSales> PayrollwithSales::open(Session& s, PayrollFlags& flags) {
    if (NoPayrollPermission(s)) return nullptr;
    try {
        auto w = std::make_unique<PayrollwithSales>(s, flags);
        w->refreshbutton_Click();
        return w;
    } catch (const common::ProgramEnd&) {
        throw;
    } catch (const std::exception& e) {
        s.ui().inform(std::string("Error loading Payroll with Sales Report. Error: ") + e.what());
        return nullptr;
    }
}

PayrollwithSales::PayrollwithSales(Session& s, PayrollFlags& flags) : s_(s), flags_(flags) {
    startdate = enddate = s.activeDate;
    dayoption_Click();
    QualRateCheck = s.settings.gb_PaySalesQuals;
    if (s.settings.gs_PaySalesRates != "Employee") {
        baseoption = true;
        primaryonlyoption = false;
    }
    flags.CalcOvertimeFlag = false;
    OverTimeFactor = common::formatNumber(s.settings.gd_OvertimeFactor, "0.00");
    paylistview.columns = {"Date", "Hours", "Labor Cost", "Sales", "Labor as % of Sales"};
    if (store::GetRecs(s, "select title from position").empty()) {
        overrideoptionEnabled = baseoptionEnabled = false;
        primaryonlyoption = true;
        overrideoption = baseoption = false;
        QualRateCheck = false;
    }
}

void PayrollwithSales::Form_Unload() {
    s_.settings.gs_PaySalesRates = baseoption ? "Base" : "Employee";
    s_.settings.gb_PaySalesQuals = QualRateCheck;
}

void PayrollwithSales::AddSales_Click() {
    s_.ui().showModal(AddSalesForm::kWindowName);
    refreshbutton_Click();
}

bool PayrollwithSales::refreshbutton_Click() {
    if (!dayoption && startdate > enddate) {
        s_.ui().inform("The start date cannot be greater than the end date.");
        return false;
    }
    return primaryonlyoption ? SalesByOwnRates() : overrideoption ? SalesByAllRates() : SalesByBaseRates();
}

bool PayrollwithSales::SalesByOwnRates() { return build(Rates::Own); }
bool PayrollwithSales::SalesByAllRates() { return build(Rates::All); }
bool PayrollwithSales::SalesByBaseRates() { return build(Rates::Base); }

bool PayrollwithSales::build(Rates rates) {
    heading = rates == Rates::Base ? "Payroll Estimate with Sales (base rates)"
                                   : "Payroll Estimate with Sales (Employee rates)";
    std::map<std::string, double> baseRates;  // by upper-cased title
    if (rates != Rates::Own) {
        auto p = store::GetRecs(s_, "select title,baserate from position");
        if (p.empty()) {
            s_.ui().inform("You must enter and assign positions in order to use this feature.");
            return false;
        }
        for (; !p.eof(); p.MoveNext()) baseRates.emplace(common::toUpper(p["title"].text()), rateValue(p["baserate"]));
    }
    const int days = dayoption ? 1 : static_cast<int>(common::daysBetween(startdate, enddate)) + 1;
    if (days > 365 && s_.ui().message("There is a 365 day limit.", MsgButtons::OkCancel, MsgIcon::None, kCaption) ==
                          MsgAnswer::Cancel)
        return false;
    try {
        // The rows a build reads again and again do not change while it runs: each is read once.
        std::map<long, store::Recordset> people;
        std::map<std::pair<long, std::string>, store::Recordset> quals;
        auto personOf = [&](long id) -> const store::Recordset& {
            auto it = people.find(id);
            if (it == people.end())
                it = people.emplace(id, store::GetRecs(s_, "select * from person where personid = ?", {id})).first;
            return it->second;
        };
        auto qualOf = [&](long id, const std::string& position) -> const store::Recordset& {
            const auto key = std::make_pair(id, common::toUpper(position));
            auto it = quals.find(key);
            if (it == quals.end())
                it = quals
                         .emplace(key,
                                  store::GetRecs(s_, "select * from qualifications where personid=? and position = ?",
                                                 {id, position}))
                         .first;
            return it->second;
        };

        paylistview.clear();
        double sumHours = 0, sumLabor = 0, sumSales = 0;
        for (int d = 0; d < days; ++d) {
            const Date day = startdate.addDays(d);
            double hours = 0, labor = 0;
            const char* sql =
                rates == Rates::Own ? "select * from sched where sday = ? and sname=? and personid in (select personid "
                                      "from person where active=true)"
                : rates == Rates::All ? "select * from sched where sday =? and personid <> -1 and sname =?"
                                      : "select * from sched where sched.sday = ? and sname=? and personid in (select "
                                        "personid from person where active = true) ";
            const store::Params params{day, s_.currentSchedule};
            for (auto e = store::GetRecs(s_, sql, params); !e.eof(); e.MoveNext()) {
                const long id = static_cast<long>(e["personid"].toLong());
                const std::string position = e["position"].text();
                const double h = entryHours(e["strttime"], e["endtime"]);
                double rate = 0;
                if (rates == Rates::Own) {
                    const auto& person = personOf(id);
                    if (person.empty()) break;  // the rest of the day is not costed
                    rate = ownRate(person["hourlyrate"]);
                    if (QualRateCheck && person["primpos"].text() != position) {
                        const auto& q = qualOf(id, position);
                        if (!q.empty() && !q["hourlyrate"].isNull()) rate = rateValue(q["hourlyrate"]);
                    }
                    if (h < 0) continue;
                } else {
                    const auto base = baseRates.find(common::toUpper(position));
                    rate = base == baseRates.end() ? 0 : base->second;
                    if (rates == Rates::All) {
                        const auto& person = personOf(id);
                        if (!person.empty() && common::trim(person["primpos"].text()) == position) {
                            if (const double own = ownRate(person["hourlyrate"]); own != 0) rate = own;
                        } else {
                            // A qualification rate of 0 stands as it is.
                            const auto& q = qualOf(id, position);
                            if (!q.empty() && !q["hourlyrate"].isNull()) rate = rateValue(q["hourlyrate"]);
                        }
                    }
                }
                hours += h;
                labor += h * rate;
            }
            std::optional<double> sales;
            const auto note =
                store::GetRecs(s_, "select * from daynote where sday = ? and sname = ?", {day, s_.currentSchedule});
            if (!note.empty()) sales = storedSales(note["dailysales"]);
            paylistview.rows.push_back(
                {PayCell{common::formatDate(day, s_.displayDateFormat, s_.locale), std::nullopt, 0},
                 hoursCell(s_, hours, "00.00"), moneyCell(s_, labor), sales ? moneyCell(s_, *sales) : textCell(""),
                 percentCell(s_, labor, sales.value_or(0))});
            sumHours += hours;
            sumLabor += labor;
            sumSales += sales.value_or(0);
            s_.ui().processEvents();
        }
        paylistview.rows.push_back({textCell("Total"), hoursCell(s_, sumHours, "00.00"), moneyCell(s_, sumLabor),
                                    moneyCell(s_, sumSales), percentCell(s_, sumLabor, sumSales)});
        total = currency(s_, sumLabor);
        return true;
    } catch (const common::ProgramEnd&) {
        throw;
    } catch (const std::exception& e) {
        if (rates == Rates::Own)
            s_.ui().inform(std::string("Unable to create the Payroll with Sales Report. Error: ") + e.what());
        else if (rates == Rates::All)
            s_.ui().inform(std::string("Unable to create the Payroll with Sales Report (override rates).") + " " +
                           e.what());
        else
            s_.ui().inform(std::string("Unable to create the Payroll report.") + " " + e.what());
        return false;
    }
}

AddSalesForm::AddSalesForm(Session& s) : s_(s) {
    WeekofDate = common::weekStart(s.activeDate, s.settings.firstdayofweek);
    load();
}

void AddSalesForm::load() {
    for (int i = 0; i < 7; ++i) {
        const Date d = WeekofDate.addDays(i);
        day[static_cast<std::size_t>(i)] = common::formatDate(d, "ddd mmm dd, yyyy", s_.locale);
        const auto r =
            store::GetRecs(s_, "select dailysales from daynote where sday = ? and sname = ?", {d, s_.currentSchedule});
        const auto v = r.empty() ? std::nullopt : storedSales(r["dailysales"]);
        Sales[static_cast<std::size_t>(i)] = v ? currency(s_, *v) : std::string();
    }
    changed = false;
}

std::optional<double> AddSalesForm::amount(const std::string& text) const {
    std::string t = common::trim(text);
    if (t.empty()) return std::nullopt;
    const auto& loc = s_.locale;
    // What currency() wrote: the symbol, grouping and the parentheses of a negative amount go.
    bool negative = false;
    if (t.size() > 2 && t.front() == '(' && t.back() == ')') {
        negative = true;
        t = t.substr(1, t.size() - 2);
    }
    if (!loc.currencySymbol.empty()) t = common::replaceAll(t, loc.currencySymbol, "");
    if (!loc.thousandsSeparator.empty() && loc.thousandsSeparator != loc.decimalSeparator)
        t = common::replaceAll(t, loc.thousandsSeparator, "");
    if (loc.decimalSeparator != ".") t = common::replaceAll(t, loc.decimalSeparator, ".");
    const auto v = common::parseNumberStrict(common::trim(t));
    if (!v) return std::nullopt;
    return negative ? -*v : *v;
}

bool AddSalesForm::Sales_KeyPress(int index, char key) {
    const std::string& text = Sales.at(static_cast<std::size_t>(index));
    if (key == '\b') return true;
    const std::string& dec = s_.locale.decimalSeparator;
    const auto point = text.find(dec);
    bool ok;
    if (key >= '0' && key <= '9')
        ok = point == std::string::npos || text.size() - point - dec.size() < 2;
    else
        ok = dec.size() == 1 && key == dec[0] && point == std::string::npos;
    if (!ok) s_.ui().beep();
    return ok;
}

void AddSalesForm::Sales_Change(int index, std::string text) {
    Sales.at(static_cast<std::size_t>(index)) = std::move(text);
    changed = true;
}

void AddSalesForm::Sales_LostFocus(int index) {
    auto& text = Sales.at(static_cast<std::size_t>(index));
    if (const auto v = amount(text)) text = currency(s_, *v);
}

bool AddSalesForm::save() {
    for (int i = 0; i < 7; ++i) {
        const auto& text = Sales[static_cast<std::size_t>(i)];
        if (!common::trim(text).empty() && !amount(text)) {
            s_.ui().inform("The sales of " + day[static_cast<std::size_t>(i)] + " are not a number.",
                           MsgIcon::Exclamation, "Enter Sales Data");
            return false;
        }
    }
    store::Transaction t(s_);
    for (int i = 0; i < 7 && !t.failed(); ++i) {
        const Date d = WeekofDate.addDays(i);
        const auto v = amount(Sales[static_cast<std::size_t>(i)]);
        const bool exists =
            !store::GetRecs(s_, "select * from daynote where sday = ? and sname = ?", {d, s_.currentSchedule}).empty();
        if (exists)
            store::UdateRecs(
                s_, "update daynote set dailysales = ? where sday = ? and sname = ?",
                v ? store::Params{*v, d, s_.currentSchedule} : store::Params{nullptr, d, s_.currentSchedule});
        else
            store::InsertRecs(
                s_, "insert into daynote (sday,dailysales,sname) values(?, ?,?)",
                v ? store::Params{d, *v, s_.currentSchedule} : store::Params{d, nullptr, s_.currentSchedule});
    }
    if (!t.commit()) return false;
    changed = false;
    return true;
}

bool AddSalesForm::WeekofDate_Change(Date d) {
    if (changed && s_.ui().askYesNo("Save sales data?", MsgIcon::Question, "Enter Sales Data") && !save()) return false;
    WeekofDate = common::weekStart(d, s_.settings.firstdayofweek);
    load();
    return true;
}

bool AddSalesForm::OKButton_Click() {
    if (changed && s_.ui().askYesNo("Save sales data?", MsgIcon::Question, "Enter Sales Data")) return save();
    return true;
}

}  // namespace tallymere::payroll

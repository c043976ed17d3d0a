#include "app/payroll/payroll_windows.h"

#include "app/common/widget_support.h"
#include "app/render/preview_widget.h"
#include "app/render/qt_printer.h"
#include "app/render/render_fonts.h"
#include "reports/list_print.h"
#include "reports/report_error.h"
#include "reports/rtf_writer.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <fstream>

namespace tallymere::app {

namespace {

void closeWindow(QWidget* w) {
    if (auto* sub = qobject_cast<QMdiSubWindow*>(w->parentWidget()))
        sub->close();
    else
        w->close();
}

QRadioButton* radio(QWidget* parent, const char* name, const char* caption) {
    auto* r = new QRadioButton(QString::fromUtf8(caption), parent);
    r->setObjectName(QString::fromLatin1(name));
    return r;
}

QDateEdit* dateEdit(QWidget* parent, const char* name) {
    auto* d = new QDateEdit(parent);
    d->setObjectName(QString::fromLatin1(name));
    d->setCalendarPopup(true);
    return d;
}

QComboBox* personCombo(QWidget* parent, const char* name, const std::vector<payroll::ComboItem>& items) {
    auto* c = new QComboBox(parent);
    c->setObjectName(QString::fromLatin1(name));
    for (const auto& i : items) c->addItem(qs(i.text), static_cast<qlonglong>(i.personid));
    return c;
}

QGroupBox* frame(QWidget* parent, const QString& title, std::initializer_list<QWidget*> widgets) {
    auto* box = new QGroupBox(title, parent);
    auto* l = new QVBoxLayout(box);
    for (QWidget* w : widgets) l->addWidget(w);
    return box;
}

// The overtime factor field: digits, the point and backspace only; leaving it stores the factor.
QLineEdit* factorField(QWidget* parent, std::function<bool(char)> key, std::function<void(std::string)> left) {
    auto* f = new QLineEdit(parent);
    f->setObjectName(QStringLiteral("OverTimeFactor"));
    filterTypedKeys(f, [key](const QString& typed) {
        for (QChar c : typed)
            if (!key(static_cast<char>(c.unicode() < 128 ? c.toLatin1() : '?'))) return false;
        return true;
    });
    onFocusOut(f, [f, left] { left(ss(f->text())); });
    return f;
}

}  // namespace

PayListWindow::PayListWindow(AppContext& context, const char* windowName, const char* caption, const char* listName)
    : context_(context) {
    setObjectName(QString::fromLatin1(windowName));
    setWindowTitle(QString::fromUtf8(caption));
    heading_ = new QLabel(this);
    heading_->setObjectName(QStringLiteral("heading"));
    heading_->setTextFormat(Qt::PlainText);
    total_ = new QLabel(this);
    total_->setObjectName(QStringLiteral("total"));
    total_->setTextFormat(Qt::PlainText);
    list_ = new QTableWidget(this);
    list_->setObjectName(QString::fromLatin1(listName));
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list_->setSelectionBehavior(QAbstractItemView::SelectRows);
    list_->verticalHeader()->hide();
    connect(list_->horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int section) {
        list().ColumnClick(section + 1);
        showList();
    });
}

void PayListWindow::finish(QLayout* controls, const char* closeName, const char* refreshName) {
    auto* refresh = makeButton(this, refreshName, QStringLiteral("Refresh"));
    auto* printB = makeButton(this, "printbutton", QStringLiteral("Print..."));
    auto* previewB = makeButton(this, "PreviewButton", QStringLiteral("Print Preview"));
    auto* csv = makeButton(this, "SaveCsvButton", QStringLiteral("Save As CSV..."));
    auto* close = makeButton(this, closeName, QStringLiteral("Close"));
    connect(refresh, &QPushButton::clicked, this, [this] { this->refresh(); });
    connect(printB, &QPushButton::clicked, this, [this] { print(); });
    connect(previewB, &QPushButton::clicked, this, [this] { preview(); });
    connect(csv, &QPushButton::clicked, this, [this] { saveCsv(); });
    connect(close, &QPushButton::clicked, this, [this] { closeWindow(this); });
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(controls);
    layout->addWidget(heading_);
    layout->addWidget(list_, 1);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(total_, 1);
    bottom->addLayout(buttonRow({refresh, printB, previewB, csv, close}));
    layout->addLayout(bottom);
    showControls();
    showList();
}

void PayListWindow::refresh() {
    build();
    showControls();
    showList();
}

void PayListWindow::showList() {
    const auto& l = list();
    list_->setColumnCount(static_cast<int>(l.columns.size()));
    QStringList captions;
    for (const auto& c : l.columns) captions << qs(c);
    list_->setHorizontalHeaderLabels(captions);
    list_->setRowCount(static_cast<int>(l.rows.size()));
    for (std::size_t r = 0; r < l.rows.size(); ++r)
        for (std::size_t c = 0; c < l.rows[r].size(); ++c) {
            auto* item = new QTableWidgetItem(qs(l.rows[r][c].text));
            if (c > 0) item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            list_->setItem(static_cast<int>(r), static_cast<int>(c), item);
        }
    // Money and captions such as "Labor as % of Sales" are read whole, never cut.
    list_->resizeColumnsToContents();
    auto* header = list_->horizontalHeader();
    header->setSortIndicatorShown(l.sortColumn > 0);
    if (l.sortColumn > 0)
        header->setSortIndicator(l.sortColumn - 1, l.descending ? Qt::DescendingOrder : Qt::AscendingOrder);
    if (l.selectedRow >= 0) list_->selectRow(l.selectedRow);
    heading_->setText(qs(headingText()));
    total_->setText(qs(totalText()));
}

bool PayListWindow::saveCsv() {
    common::Session& s = context_.session();
    const auto path = s.ui().chooseSaveFile("Save As CSV", ss(windowTitle()) + ".csv",
                                            {{"CSV Files (*.csv)", "*.csv"}, {"All Files (*.*)", "*.*"}});
    if (!path || path->empty()) return false;
    std::ofstream out(*path, std::ios::binary | std::ios::trunc);
    if (out) list().writeDelimited(out);
    if (!out) {
        s.ui().inform("The file " + *path + " could not be written.", common::MsgIcon::Exclamation);
        return false;
    }
    return true;
}

void PayListWindow::print() {
    render::QtPrinter printer(context_.mainWindow());
    printReport(printer, {});
}

void PayListWindow::printReport(reports::Printer& printer, const reports::ReportOutput& out) {
    render::QtFontMetrics metrics;
    reports::Surface vpmain(metrics);
    reports::PrintListGrid(context_.session(), vpmain, printer, list().grid(), printTitle(), out);
}

void PayListWindow::preview() {
    render::QtFontMetrics metrics;
    reports::Surface vp(metrics);
    try {
        reports::ComposeListGrid(context_.session(), vp, list().grid(), printTitle(), {});
    } catch (const reports::ReportError&) {
        return;
    }
    auto* dialog = new QDialog(this);
    dialog->setObjectName(QStringLiteral("printlist"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(qs(printTitle()));
    auto* view = new render::PreviewWidget(dialog);
    view->setObjectName(QStringLiteral("vp"));
    view->setDocument(vp.document());
    (new QVBoxLayout(dialog))->addWidget(view);
    dialog->resize(820, 900);
    dialog->show();
}

// --- payrollestimator

PayrollEstimatorWindow::PayrollEstimatorWindow(AppContext& context, payroll::PayrollFlags& flags)
    : PayListWindow(context, payroll::payrollestimator::kWindowName, payroll::payrollestimator::kCaption,
                    "paylistview") {
    model_ = std::make_unique<payroll::payrollestimator>(context.session(), flags);
    auto& m = *model_;
    day_ = radio(this, "dayoption", "Day");
    week_ = radio(this, "weekoption", "Week");
    range_ = radio(this, "daterangeoption", "Date Range");
    employees_ = radio(this, "employeeOption", "Employees");
    positions_ = radio(this, "positionOption", "Positions");
    own_ = radio(this, "primaryonlyoption", "Employee rates");
    all_ = radio(this, "overrideoption", "Employee, qualification and base rates");
    base_ = radio(this, "baseoption", "Base rates");
    for (auto group :
         {std::initializer_list<QRadioButton*>{day_, week_, range_}, {employees_, positions_}, {own_, all_, base_}}) {
        auto* g = new QButtonGroup(this);
        for (auto* r : group) g->addButton(r);
    }
    start_ = dateEdit(this, "startdate");
    end_ = dateEdit(this, "enddate");
    quals_ = new QCheckBox(QStringLiteral("Use qualification rate if entered."), this);
    quals_->setObjectName(QStringLiteral("QualRateCheck"));
    overtime_ = new QCheckBox(QStringLiteral("Calc. Overtime"), this);
    overtime_->setObjectName(QStringLiteral("OvertimeCalcCheck"));
    factor_ = factorField(
        this, [&m](char k) { return m.OverTimeFactor_KeyPress(k); },
        [this](std::string text) {
            model_->OverTimeFactor = std::move(text);
            model_->OverTimeFactor_LostFocus();
            showControls();
        });
    shifts_ = new QComboBox(this);
    shifts_->setObjectName(QStringLiteral("shiftCombo"));
    for (const auto& sh : m.shiftCombo) shifts_->addItem(qs(sh));
    people_ = personCombo(this, "personcombo", m.personcombo);

    auto click = [this](QRadioButton* r, void (payroll::payrollestimator::*f)()) {
        connect(r, &QRadioButton::clicked, this, [this, f] {
            model_->startdate = fromQDate(start_->date());
            model_->enddate = fromQDate(end_->date());
            ((*model_).*f)();
            showControls();
        });
    };
    click(day_, &payroll::payrollestimator::dayoption_Click);
    click(week_, &payroll::payrollestimator::weekoption_Click);
    click(range_, &payroll::payrollestimator::daterangeoption_Click);
    click(employees_, &payroll::payrollestimator::employeeOption_Click);
    click(positions_, &payroll::payrollestimator::positionOption_Click);
    click(own_, &payroll::payrollestimator::primaryonlyoption_Click);
    click(all_, &payroll::payrollestimator::overrideoption_Click);
    click(base_, &payroll::payrollestimator::baseoption_Click);
    connect(overtime_, &QCheckBox::clicked, this, [this](bool on) {
        model_->OvertimeCalcCheck_Click(on);
        showControls();
    });

    auto* controls = new QHBoxLayout;
    controls->addWidget(frame(this, QStringLiteral("Period"), {day_, week_, range_, start_, end_}));
    controls->addWidget(frame(this, QStringLiteral("List by"), {employees_, positions_, people_, shifts_}));
    controls->addWidget(frame(this, QStringLiteral("Rates"), {own_, all_, base_, quals_, overtime_, factor_}));
    finish(controls, "Command1");
    m.refreshbutton_Click();
    showControls();
    showList();
}

PayrollEstimatorWindow::~PayrollEstimatorWindow() {
    if (!context_.session().ExitNow) model_->Form_Unload();
}

bool PayrollEstimatorWindow::build() {
    auto& m = *model_;
    m.startdate = fromQDate(start_->date());
    m.enddate = fromQDate(end_->date());
    m.QualRateCheck = quals_->isChecked();
    m.shiftComboText = ss(shifts_->currentText());
    m.personcomboIndex = people_->currentIndex();
    return m.refreshbutton_Click();
}

void PayrollEstimatorWindow::showControls() {
    const auto& m = *model_;
    day_->setChecked(m.dayoption);
    week_->setChecked(m.weekoption);
    range_->setChecked(m.daterangeoption);
    employees_->setChecked(m.employeeOption);
    positions_->setChecked(m.positionOption);
    own_->setChecked(m.primaryonlyoption);
    all_->setChecked(m.overrideoption);
    base_->setChecked(m.baseoption);
    start_->setDate(toQDate(m.startdate));
    end_->setDate(toQDate(m.enddate));
    end_->setEnabled(m.enddateEnabled);
    people_->setEnabled(m.personcomboEnabled);
    quals_->setChecked(m.QualRateCheck);
    quals_->setEnabled(m.QualRateCheckEnabled);
    overtime_->setChecked(m.OvertimeCalcCheck);
    factor_->setText(qs(m.OverTimeFactor));
    factor_->setEnabled(m.OverTimeFactorEnabled);
}

// --- PayrollwithOvertime

PayrollOvertimeWindow::PayrollOvertimeWindow(AppContext& context)
    : PayListWindow(context, payroll::PayrollwithOvertime::kWindowName, payroll::PayrollwithOvertime::kCaption,
                    "paylistview") {
    model_ = std::make_unique<payroll::PayrollwithOvertime>(context.session());
    auto& m = *model_;
    start_ = dateEdit(this, "startdate");
    people_ = personCombo(this, "personcombo", m.personcombo);
    factor_ = factorField(
        this, [&m](char k) { return m.OverTimeFactor_KeyPress(k); },
        [this](std::string text) {
            model_->OverTimeFactor = std::move(text);
            model_->OverTimeFactor_LostFocus();
            showControls();
        });
    weekLabel_ = plainText(this, {});
    weekLabel_->setObjectName(QStringLiteral("WeekLabel"));
    connect(start_, &QDateEdit::dateChanged, this, [this](const QDate& d) {
        model_->startdate_Change(fromQDate(d));
        weekLabel_->setText(qs(model_->WeekLabel));
    });
    auto* controls = new QHBoxLayout;
    controls->addWidget(start_);
    controls->addWidget(weekLabel_, 1);
    controls->addWidget(people_);
    controls->addWidget(factor_);
    finish(controls, "Command1");
    m.refreshbutton_Click();
    showControls();
    showList();
}

bool PayrollOvertimeWindow::build() {
    model_->personcomboIndex = people_->currentIndex();
    return model_->refreshbutton_Click();
}

void PayrollOvertimeWindow::showControls() {
    const QSignalBlocker block(start_);
    start_->setDate(toQDate(model_->startdate));
    weekLabel_->setText(qs(model_->WeekLabel));
    factor_->setText(qs(model_->OverTimeFactor));
}

// --- PayrollwithSales

PayrollSalesWindow::PayrollSalesWindow(AppContext& context, payroll::PayrollFlags& flags)
    : PayListWindow(context, payroll::PayrollwithSales::kWindowName, payroll::PayrollwithSales::kCaption,
                    "paylistview") {
    model_ = std::make_unique<payroll::PayrollwithSales>(context.session(), flags);
    day_ = radio(this, "dayoption", "Day");
    week_ = radio(this, "weekoption", "Week");
    range_ = radio(this, "daterangeoption", "Date Range");
    own_ = radio(this, "primaryonlyoption", "Employee rates");
    all_ = radio(this, "overrideoption", "Employee rates, qualification rates and base rates");
    base_ = radio(this, "baseoption", "Base rates only");
    for (auto group : {std::initializer_list<QRadioButton*>{day_, week_, range_}, {own_, all_, base_}}) {
        auto* g = new QButtonGroup(this);
        for (auto* r : group) g->addButton(r);
    }
    start_ = dateEdit(this, "startdate");
    end_ = dateEdit(this, "enddate");
    quals_ = new QCheckBox(QStringLiteral("Use qualification rate if entered."), this);
    quals_->setObjectName(QStringLiteral("QualRateCheck"));
    auto* sales = makeButton(this, "AddSales", QStringLiteral("Sales..."));
    auto period = [this](QRadioButton* r, void (payroll::PayrollwithSales::*f)()) {
        connect(r, &QRadioButton::clicked, this, [this, f] {
            model_->startdate = fromQDate(start_->date());
            model_->enddate = fromQDate(end_->date());
            ((*model_).*f)();
            showControls();
        });
    };
    period(day_, &payroll::PayrollwithSales::dayoption_Click);
    period(week_, &payroll::PayrollwithSales::weekoption_Click);
    period(range_, &payroll::PayrollwithSales::daterangeoption_Click);
    for (auto* r : {own_, all_, base_})
        connect(r, &QRadioButton::clicked, this, [this] {
            model_->primaryonlyoption = own_->isChecked();
            model_->overrideoption = all_->isChecked();
            model_->baseoption = base_->isChecked();
        });
    connect(sales, &QPushButton::clicked, this, [this] {
        model_->AddSales_Click();
        showControls();
        showList();
    });
    auto* controls = new QHBoxLayout;
    controls->addWidget(frame(this, QStringLiteral("Period"), {day_, week_, range_, start_, end_}));
    controls->addWidget(frame(this, QStringLiteral("Rates"), {own_, all_, base_, quals_, sales}));
    finish(controls, "Command1");
    model_->refreshbutton_Click();
    showControls();
    showList();
}

PayrollSalesWindow::~PayrollSalesWindow() {
    if (!context_.session().ExitNow) model_->Form_Unload();
}

bool PayrollSalesWindow::build() {
    model_->startdate = fromQDate(start_->date());
    model_->enddate = fromQDate(end_->date());
    model_->QualRateCheck = quals_->isChecked();
    return model_->refreshbutton_Click();
}

void PayrollSalesWindow::showControls() {
    const auto& m = *model_;
    day_->setChecked(m.dayoption);
    week_->setChecked(m.weekoption);
    range_->setChecked(m.daterangeoption);
    own_->setChecked(m.primaryonlyoption);
    all_->setChecked(m.overrideoption);
    base_->setChecked(m.baseoption);
    all_->setEnabled(m.overrideoptionEnabled);
    base_->setEnabled(m.baseoptionEnabled);
    start_->setDate(toQDate(m.startdate));
    end_->setDate(toQDate(m.enddate));
    end_->setEnabled(m.enddateEnabled);
    quals_->setChecked(m.QualRateCheck);
}

// --- hoursshifts

HoursShiftsWindow::HoursShiftsWindow(AppContext& context)
    : PayListWindow(context, payroll::hoursshifts::kWindowName, payroll::hoursshifts::kCaption, "leavelistview") {
    model_ = std::make_unique<payroll::hoursshifts>(context.session());
    periods_ = {radio(this, "dayoption", "Day"), radio(this, "weekoption", "Week"),
                radio(this, "monthoption", "Show Month"), radio(this, "yearoption", "Show Year"),
                radio(this, "daterangeoption", "Date Range")};
    auto* g = new QButtonGroup(this);
    for (auto* r : periods_) g->addButton(r);
    start_ = dateEdit(this, "startdate");
    end_ = dateEdit(this, "enddate");
    people_ = personCombo(this, "personcombo", model_->personcombo);
    auto* controls = new QHBoxLayout;
    auto* options = new QVBoxLayout;
    for (auto* r : periods_) options->addWidget(r);
    controls->addLayout(options);
    controls->addWidget(frame(this, QStringLiteral("Dates"), {start_, end_, people_}));
    finish(controls, "Command2", "RefreshButton");
    model_->RefreshButton_Click();
    showControls();
    showList();
}

bool HoursShiftsWindow::build() {
    for (std::size_t i = 0; i < periods_.size(); ++i)
        if (periods_[i]->isChecked()) model_->period = static_cast<payroll::hoursshifts::Period>(i);
    model_->startdate = fromQDate(start_->date());
    model_->enddate = fromQDate(end_->date());
    model_->personcomboIndex = people_->currentIndex();
    return model_->RefreshButton_Click();
}

void HoursShiftsWindow::showControls() {
    periods_[static_cast<std::size_t>(model_->period)]->setChecked(true);
    start_->setDate(toQDate(model_->startdate));
    end_->setDate(toQDate(model_->enddate));
}

// --- ReportWeeklyPayroll

WeeklyPayrollWindow::WeeklyPayrollWindow(AppContext& context) : context_(context) {
    setObjectName(QString::fromLatin1(payroll::ReportWeeklyPayroll::kWindowName));
    setWindowTitle(QString::fromLatin1(payroll::ReportWeeklyPayroll::kCaption));
    model_ = std::make_unique<payroll::ReportWeeklyPayroll>(context.session());
    start_ = dateEdit(this, "StartDate");
    weeks_ = new QLineEdit(this);
    weeks_->setObjectName(QStringLiteral("NWeeks"));
    filterTypedKeys(weeks_, [this](const QString& typed) {
        for (QChar c : typed)
            if (!model_->NWeeks_KeyPress(static_cast<char>(c.unicode() < 128 ? c.toLatin1() : '?'))) return false;
        return true;
    });
    people_ = personCombo(this, "employeecombo", model_->employeecombo);
    vp_ = new render::PreviewWidget(this);
    vp_->setObjectName(QStringLiteral("vp"));
    auto* refreshB = makeButton(this, "refreshbutton", QStringLiteral("Refresh"));
    auto* printB = makeButton(this, "printbutton", QStringLiteral("Print..."));
    auto* close = makeButton(this, "closebutton", QStringLiteral("Close"));
    connect(refreshB, &QPushButton::clicked, this, [this] { refresh(); });
    connect(printB, &QPushButton::clicked, this, [this] {
        if (!vp_->document()) return;
        render::QtPrinter printer(context_.mainWindow());
        if (const auto job = printer.PrintDialog(*vp_->document(), {}))
            if (!printer.PrintDoc(*vp_->document(), *job))
                context_.session().ui().inform("Error printing Weekly Payroll Report.");
    });
    connect(close, &QPushButton::clicked, this, [this] { closeWindow(this); });
    auto* top = new QHBoxLayout;
    top->addWidget(makeLabel(this, QStringLiteral("Number of Weeks"), weeks_));
    top->addWidget(weeks_);
    top->addWidget(start_);
    top->addWidget(people_, 1);
    top->addLayout(buttonRow({refreshB, printB, close}));
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(vp_, 1);
    start_->setDate(toQDate(model_->StartDate));
    weeks_->setText(qs(model_->NWeeks));
    refresh();
}

WeeklyPayrollWindow::~WeeklyPayrollWindow() = default;

void WeeklyPayrollWindow::refresh() {
    model_->StartDate = fromQDate(start_->date());
    model_->NWeeks = ss(weeks_->text());
    model_->employeecomboIndex = people_->currentIndex();
    render::QtFontMetrics metrics;
    reports::Surface vp(metrics);
    if (model_->refreshbutton_Click(&vp)) vp_->setDocument(vp.document());
    start_->setDate(toQDate(model_->StartDate));
}

void WeeklyPayrollWindow::printReport(reports::Printer& printer, const reports::ReportOutput& out) {
    // Composed again as the last refresh left the model, on a surface of its own.
    render::QtFontMetrics metrics;
    reports::Surface vp(metrics);
    if (!model_->refreshbutton_Click(&vp) || !vp.document()) return;
    if (!out.exportRtf) {
        reports::PrintSurface(context_.session(), vp, printer, out);
        return;
    }
    try {
        reports::writeRtfFile(*vp.document(), out.rtfFile);
    } catch (const reports::ReportError& e) {
        context_.session().ui().inform(std::string("Error creating Weekly Payroll Report. ") + e.what());
    }
}

// --- AddSalesForm

AddSalesDialog::AddSalesDialog(common::Session& s, QWidget* parent) : QDialog(parent), model_(s) {
    setObjectName(QString::fromLatin1(payroll::AddSalesForm::kWindowName));
    setWindowTitle(QString::fromLatin1(payroll::AddSalesForm::kCaption));
    week_ = dateEdit(this, "WeekofDate");
    auto* form = new QFormLayout;
    form->addRow(week_);
    for (int i = 0; i < 7; ++i) {
        const auto idx = static_cast<std::size_t>(i);
        days_[idx] = plainText(this, {});
        days_[idx]->setObjectName(QStringLiteral("day%1").arg(i + 1));
        sales_[idx] = new QLineEdit(this);
        sales_[idx]->setObjectName(QStringLiteral("Sales%1").arg(i));
        auto* field = sales_[idx];
        filterTypedKeys(field, [this, i, field](const QString& typed) {
            model_.Sales[static_cast<std::size_t>(i)] = ss(field->text());
            for (QChar c : typed)
                if (!model_.Sales_KeyPress(i, static_cast<char>(c.unicode() < 128 ? c.toLatin1() : '?'))) return false;
            return true;
        });
        connect(field, &QLineEdit::textEdited, this, [this, i](const QString& t) { model_.Sales_Change(i, ss(t)); });
        onFocusOut(field, [this, i, field] {
            model_.Sales_LostFocus(i);
            field->setText(qs(model_.Sales[static_cast<std::size_t>(i)]));
        });
        form->addRow(days_[idx], field);
    }
    auto* ok = makeButton(this, "OKButton", QStringLiteral("OK"));
    auto* cancel = makeButton(this, "CancelButton", QStringLiteral("Close"));
    connect(ok, &QPushButton::clicked, this, [this] {
        if (model_.OKButton_Click()) accept();
    });
    connect(cancel, &QPushButton::clicked, this, [this] { reject(); });
    connect(week_, &QDateEdit::dateChanged, this, [this](const QDate& d) {
        model_.WeekofDate_Change(fromQDate(d));
        showWeek();
    });
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addLayout(buttonRow({ok, cancel}));
    showWeek();
}

void AddSalesDialog::showWeek() {
    const QSignalBlocker block(week_);
    week_->setDate(toQDate(model_.WeekofDate));
    for (std::size_t i = 0; i < 7; ++i) {
        days_[i]->setText(qs(model_.day[i]));
        sales_[i]->setText(qs(model_.Sales[i]));
    }
}

}  // namespace tallymere::app

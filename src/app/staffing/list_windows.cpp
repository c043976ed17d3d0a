// The list windows of staffing: the analysis, the conflict finder, the repair of end times and the
// search for available employees.

#include "app/common/time_entry_widget.h"
#include "app/staffing/list_output.h"
#include "app/staffing/staffing_windows.h"

#include <QApplication>
#include <QComboBox>
#include <QDateEdit>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tallymere::app {

namespace {

QDateEdit* makeDate(QWidget* parent, const char* name) {
    auto* w = new QDateEdit(parent);
    w->setObjectName(QString::fromLatin1(name));
    w->setCalendarPopup(true);
    return w;
}

// Preview, print and save of a list; `grid` and `title` are read when a button is pressed.
QBoxLayout* outputButtons(QWidget* view, common::Session& s, const char* printName,
                          std::function<reports::ListGrid()> grid, std::function<std::string()> title,
                          std::initializer_list<QPushButton*> more) {
    auto* preview = makeButton(view, "PreviewButton", QObject::tr("Preview"));
    auto* print = makeButton(view, printName, QObject::tr("Print..."));
    auto* save = makeButton(view, "SaveCsvButton", QObject::tr("Save as CSV..."));
    QObject::connect(preview, &QPushButton::clicked, view,
                     [view, &s, grid, title] { previewList(s, view, grid(), title()); });
    QObject::connect(print, &QPushButton::clicked, view,
                     [view, &s, grid, title] { printList(s, view, grid(), title()); });
    QObject::connect(save, &QPushButton::clicked, view,
                     [&s, grid, title] { saveListCsv(s, grid(), title() + ".csv"); });
    auto* row = buttonRow(more);
    row->insertWidget(0, save);
    row->insertWidget(0, print);
    row->insertWidget(0, preview);
    return row;
}

// The same buttons on a window that the main window's output commands reach too.
QBoxLayout* outputButtons(ListOutputWindow& window, QWidget* view, common::Session& s, const char* printName,
                          std::function<reports::ListGrid()> grid, std::function<std::string()> title,
                          std::initializer_list<QPushButton*> more) {
    window.setListOutput(view, s, grid, title);
    return outputButtons(view, s, printName, std::move(grid), std::move(title), more);
}

// The analysis marks: equal, over (up) and under (down) staffed each look different.
QIcon levelIcon(QWidget* w, staffing::LevelMark mark) {
    switch (mark) {
    case staffing::LevelMark::Equal: return w->style()->standardIcon(QStyle::SP_DialogApplyButton);
    case staffing::LevelMark::Over: return w->style()->standardIcon(QStyle::SP_ArrowUp);
    case staffing::LevelMark::Under: return w->style()->standardIcon(QStyle::SP_ArrowDown);
    }
    return {};
}

// The available list's pictures: 4 available, anything else (9) unavailable.
QIcon availabilityIcon(QWidget* w, int picture) {
    return w->style()->standardIcon(picture == 4 ? QStyle::SP_DialogApplyButton : QStyle::SP_MessageBoxWarning);
}

}  // namespace

// --- analyzelevels

AnalyzeLevelsWindow::AnalyzeLevelsWindow(AppContext& context, QWidget* parent)
    : QWidget(parent), context_(context), model_(context.session()) {
    setObjectName(QString::fromLatin1(staffing::analyzelevels::kWindowName));
    auto* dayFrame = new QGroupBox(tr("Select Day to Analyze"), this);
    analyzeday_ = makeDate(dayFrame, "analyzeday");
    (new QVBoxLayout(dayFrame))->addWidget(analyzeday_);
    auto* filterFrame = new QGroupBox(tr("Shift / Position"), this);
    auto* shift = new QComboBox(filterFrame);
    shift->setObjectName(QStringLiteral("shiftcombo"));
    auto* position = new QComboBox(filterFrame);
    position->setObjectName(QStringLiteral("positioncombo"));
    auto* filters = new QHBoxLayout(filterFrame);
    filters->addWidget(makeLabel(filterFrame, tr("Shift"), shift));
    filters->addWidget(shift, 1);
    filters->addWidget(makeLabel(filterFrame, tr("Position"), position));
    filters->addWidget(position, 1);
    binder_.combo(shift, model_.shiftcombo);
    binder_.combo(position, model_.positioncombo);

    auto* analyze = makeButton(this, "analyzebutton", tr("Analyze"));
    connect(analyze, &QPushButton::clicked, this, [this] {
        model_.analyzeday = fromQDate(analyzeday_->date());
        model_.analyzebutton_Click();
        display();
    });
    label4_ = plainText(this, {});
    label4_->setObjectName(QStringLiteral("Label4"));
    list_ = makeGrid(this, "Bblistview1", columnTitles({"Shift", "Position", "Needed", "Scheduled"}));
    list_->horizontalHeader()->setStretchLastSection(true);
    auto* legendFrame = new QGroupBox(tr("Legend"), this);
    auto* legend = new QListWidget(legendFrame);
    legend->setObjectName(QStringLiteral("legend"));
    for (const auto& item : model_.legend)
        legend->addItem(new QListWidgetItem(levelIcon(this, item.picture), qs(item.text)));
    (new QVBoxLayout(legendFrame))->addWidget(legend);

    auto* close = makeButton(this, "Command2", tr("Close"));
    connect(close, &QPushButton::clicked, this, [this] { closeChildWindow(this); });
    common::Session& s = context.session();
    auto* buttons = outputButtons(
        *this, this, s, "PrintButton", [this] { return model_.listGrid(); }, [this] { return model_.Label4; }, {close});

    auto* top = new QHBoxLayout;
    top->addWidget(dayFrame);
    top->addWidget(filterFrame, 1);
    top->addWidget(analyze);
    auto* middle = new QHBoxLayout;
    middle->addWidget(list_, 3);
    middle->addWidget(legendFrame, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(label4_);
    layout->addLayout(middle, 1);
    layout->addLayout(buttons);
    display();
}

AnalyzeLevelsWindow::~AnalyzeLevelsWindow() = default;

void AnalyzeLevelsWindow::refreshWindow() {
    // Another schedule file: its caption and filters; a shown analysis is made again for it.
    const bool shown = !model_.Bblistview1.empty();
    model_.analyzeday = fromQDate(analyzeday_->date());
    model_.Form_Load();
    if (shown) model_.analyzebutton_Click();
    display();
}

void AnalyzeLevelsWindow::display() {
    setWindowTitle(qs(model_.Caption));
    analyzeday_->setDate(toQDate(model_.analyzeday));
    binder_.show();
    label4_->setText(qs(model_.Label4));
    std::vector<std::vector<std::string>> rows;
    for (const auto& r : model_.Bblistview1) rows.push_back({r.shift, r.position, r.needed, r.scheduled});
    fillGrid(list_, rows, -1);
    for (int r = 0; r < static_cast<int>(model_.Bblistview1.size()); ++r) {
        const auto mark = model_.Bblistview1[static_cast<std::size_t>(r)].picture;
        list_->item(r, 0)->setIcon(levelIcon(this, mark));
        list_->item(r, 0)->setToolTip(qs(staffing::analyzelevels::markText(mark)));
    }
}

// --- CheckConflicts

CheckConflictsWindow::CheckConflictsWindow(AppContext& context, QWidget* parent)
    : QWidget(parent), context_(context), model_(context.session()) {
    setObjectName(QString::fromLatin1(staffing::CheckConflicts::kWindowName));
    setWindowTitle(QString::fromLatin1(staffing::CheckConflicts::kCaption));
    dayoption_ = new QRadioButton(tr("Day"), this);
    dayoption_->setObjectName(QStringLiteral("dayoption"));
    weekoption_ = new QRadioButton(tr("Week"), this);
    weekoption_->setObjectName(QStringLiteral("weekoption"));
    rangeoption_ = new QRadioButton(tr("Date Range"), this);
    rangeoption_->setObjectName(QStringLiteral("rangeoption"));
    startdate_ = makeDate(this, "startdate");
    enddate_ = makeDate(this, "enddate");
    connect(dayoption_, &QRadioButton::clicked, this, [this] {
        model_.dayoption_Click();
        display();
    });
    connect(weekoption_, &QRadioButton::clicked, this, [this] {
        model_.weekoption_Click();
        display();
    });
    connect(rangeoption_, &QRadioButton::clicked, this, [this] {
        model_.startdate = fromQDate(startdate_->date());
        model_.enddate = fromQDate(enddate_->date());
        model_.rangeoption_Click();
        display();
    });
    auto* refresh = makeButton(this, "RefreshButton", tr("Refresh"));
    connect(refresh, &QPushButton::clicked, this, [this] { refreshWindow(); });
    auto* close = makeButton(this, "Close", tr("Close"));
    connect(close, &QPushButton::clicked, this, [this] { closeChildWindow(this); });
    label1_ = plainText(this, {});
    label1_->setObjectName(QStringLiteral("Label1"));
    label2_ = plainText(this, {});
    label2_->setObjectName(QStringLiteral("Label2"));
    grid_ =
        makeGrid(this, "ConflictGrid", columnTitles({"Name", "Position", "Day", "Start Time", "End Time", "Conflict"}));
    grid_->horizontalHeader()->setStretchLastSection(true);

    auto* options = new QHBoxLayout;
    for (QWidget* w :
         {static_cast<QWidget*>(dayoption_), static_cast<QWidget*>(weekoption_), static_cast<QWidget*>(rangeoption_)})
        options->addWidget(w);
    options->addWidget(makeLabel(this, tr("Start Date"), startdate_));
    options->addWidget(startdate_);
    options->addWidget(makeLabel(this, tr("End Date"), enddate_));
    options->addWidget(enddate_);
    options->addStretch(1);
    options->addWidget(refresh);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(options);
    layout->addWidget(label1_);
    layout->addWidget(grid_, 1);
    layout->addWidget(label2_);
    layout->addLayout(outputButtons(
        *this, this, context.session(), "printbutton", [this] { return model_.listGrid(); },
        [this] { return model_.Label1; }, {close}));
    display();
}

CheckConflictsWindow::~CheckConflictsWindow() = default;

void CheckConflictsWindow::refreshWindow() {
    if (model_.rangeoption) {
        model_.startdate = fromQDate(startdate_->date());
        model_.enddate = fromQDate(enddate_->date());
    }
    model_.RefreshButton_Click();
    display();
}

void CheckConflictsWindow::display() {
    dayoption_->setChecked(model_.dayoption);
    weekoption_->setChecked(model_.weekoption);
    rangeoption_->setChecked(model_.rangeoption);
    startdate_->setDate(toQDate(model_.startdate));
    enddate_->setDate(toQDate(model_.enddate));
    startdate_->setEnabled(model_.datesEnabled());
    enddate_->setEnabled(model_.datesEnabled());
    label1_->setText(qs(model_.Label1));
    label2_->setText(qs(model_.Label2));
    std::vector<std::vector<std::string>> rows;
    for (const auto& r : model_.ConflictGrid) rows.push_back({r.name, r.position, r.day, r.start, r.end, r.conflict});
    fillGrid(grid_, rows, rows.empty() ? -1 : 0);
}

// --- RepairEndtimes

RepairEndtimesWindow::RepairEndtimesWindow(AppContext& context, QWidget* parent)
    : QWidget(parent), context_(context), model_(context.session()) {
    setObjectName(QString::fromLatin1(staffing::RepairEndtimes::kWindowName));
    setWindowTitle(QString::fromLatin1(staffing::RepairEndtimes::kCaption));
    grid_ = makeGrid(this, "Grid1", columnTitles({"Sched ID", "Start Time", "End Time", "Schedule Name"}));
    grid_->horizontalHeader()->setStretchLastSection(true);
    auto* repair = makeButton(this, "Repair", tr("Repair"));
    connect(repair, &QPushButton::clicked, this, [this] {
        model_.Repair_Click();
        display();
    });
    auto* close = makeButton(this, "Close", tr("Close"));
    connect(close, &QPushButton::clicked, this, [this] { closeChildWindow(this); });
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(grid_, 1);
    layout->addLayout(outputButtons(
        this, context.session(), "printbutton", [this] { return model_.listGrid(); },
        [] { return std::string(staffing::RepairEndtimes::kCaption); }, {repair, close}));
    display();
}

RepairEndtimesWindow::~RepairEndtimesWindow() = default;

void RepairEndtimesWindow::refreshWindow() {
    model_.load();
    display();
}

void RepairEndtimesWindow::display() {
    std::vector<std::vector<std::string>> rows;
    for (const auto& r : model_.Grid1) rows.push_back({std::to_string(r.schedid), r.start, r.end, r.sname});
    fillGrid(grid_, rows, -1);
}

// --- ReportAvailable

ReportAvailableWindow::ReportAvailableWindow(AppContext& context, QWidget* parent)
    : QWidget(parent), context_(context), model_(context.session()) {
    setObjectName(QString::fromLatin1(staffing::ReportAvailable::kWindowName));
    setWindowTitle(QString::fromLatin1(staffing::ReportAvailable::kCaption));
    dtdate_ = makeDate(this, "dtdate");
    auto* shift = new QComboBox(this);
    shift->setObjectName(QStringLiteral("shiftCombo"));
    auto* position = new QComboBox(this);
    position->setObjectName(QStringLiteral("positionCombo"));
    start_ = new TimeEntryWidget(this);
    start_->setObjectName(QStringLiteral("StartTime"));
    end_ = new TimeEntryWidget(this);
    end_->setObjectName(QStringLiteral("EndTime"));
    binder_.combo(shift, model_.shiftCombo, [this] {
        model_.shiftCombo_Click(model_.shiftCombo.ListIndex);
        display();
    });
    binder_.combo(position, model_.positionCombo, [this] {
        readTimes();
        model_.positionCombo_Click(model_.positionCombo.ListIndex);
        display();
    });
    connect(dtdate_, &QDateEdit::dateChanged, this, [this](const QDate& d) {
        if (fromQDate(d) == model_.dtdate) return;
        readTimes();
        model_.dtdate_Change(fromQDate(d));
        display();
    });
    auto* refresh = makeButton(this, "refreshbutton", tr("Refresh"));
    connect(refresh, &QPushButton::clicked, this, [this] { refreshWindow(); });
    auto* close = makeButton(this, "closebutton", tr("Close"));
    connect(close, &QPushButton::clicked, this, [this] { closeChildWindow(this); });
    list_ = makeGrid(this, "bblistview1",
                     columnTitles({"Name", "Position", "Status", "Phone", "Conflict", "Hours", "Req Off", "Leave"}));
    list_->horizontalHeader()->setSectionsClickable(true);
    connect(list_->horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int column) {
        model_.ColumnClick(column);
        display();
    });

    auto* fields = new QHBoxLayout;
    fields->addWidget(makeLabel(this, tr("Date"), dtdate_));
    fields->addWidget(dtdate_);
    fields->addWidget(makeLabel(this, tr("Shift"), shift));
    fields->addWidget(shift);
    fields->addWidget(makeLabel(this, tr("Position"), position));
    fields->addWidget(position);
    auto* startFrame = new QGroupBox(tr("Start Time"), this);
    startFrame->setObjectName(QStringLiteral("TEFrame"));
    (new QHBoxLayout(startFrame))->addWidget(start_);
    auto* endFrame = new QGroupBox(tr("End Time"), this);
    endFrame->setObjectName(QStringLiteral("TEFrame"));
    (new QHBoxLayout(endFrame))->addWidget(end_);
    fields->addWidget(startFrame);
    fields->addWidget(endFrame);
    fields->addWidget(refresh);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(fields);
    layout->addWidget(list_, 1);
    layout->addLayout(outputButtons(
        *this, this, context.session(), "PrintButton", [this] { return model_.listGrid(); },
        [this] { return model_.printTitle(); }, {close}));
    display();
}

ReportAvailableWindow::~ReportAvailableWindow() = default;

void ReportAvailableWindow::readTimes() {
    model_.startTime = start_->entry();
    model_.endTime = end_->entry();
}

void ReportAvailableWindow::refreshWindow() {
    readTimes();
    model_.refreshbutton_Click();
    display();
}

void ReportAvailableWindow::display() {
    {
        const QSignalBlocker quiet(dtdate_);
        dtdate_->setDate(toQDate(model_.dtdate));
    }
    binder_.show();
    start_->setEntry(model_.startTime);
    end_->setEntry(model_.endTime);
    std::vector<std::vector<std::string>> rows;
    for (const auto& r : model_.bblistview1)
        rows.push_back({r.name, r.position, r.status, r.phone, r.conflict, r.hours, r.reqoff, r.leave});
    fillGrid(list_, rows, model_.selectedRow);
    const QIcon warn = style()->standardIcon(QStyle::SP_MessageBoxWarning);
    for (int r = 0; r < static_cast<int>(model_.bblistview1.size()); ++r) {
        const auto& row = model_.bblistview1[static_cast<std::size_t>(r)];
        list_->item(r, 0)->setIcon(availabilityIcon(this, row.picture));
        if (!row.conflict.empty()) list_->item(r, 4)->setIcon(warn);
        if (!row.reqoff.empty()) list_->item(r, 6)->setIcon(warn);
        if (!row.leave.empty()) list_->item(r, 7)->setIcon(warn);
    }
}

}  // namespace tallymere::app

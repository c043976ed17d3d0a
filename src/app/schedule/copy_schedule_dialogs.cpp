#include "app/schedule/copy_schedule_dialogs.h"

#include "common/session.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTextCharFormat>
#include <QVBoxLayout>

namespace tallymere::app {

namespace {

using schedule::CopyMode;

QCalendarWidget* monthView(QWidget* parent, const char* name, const common::Session& s) {
    auto* view = new QCalendarWidget(parent);
    // Weeks as the business counts them, so that a week copy shows as one row.
    view->setFirstDayOfWeek(toQtDayOfWeek(s.settings.firstdayofweek));
    view->setObjectName(QString::fromLatin1(name));
    view->setGridVisible(true);
    view->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    return view;
}

QRadioButton* option(QWidget* parent, const char* name, const QString& caption) {
    auto* b = new QRadioButton(caption, parent);
    b->setObjectName(QString::fromLatin1(name));
    return b;
}

QLabel* namedLabel(QWidget* parent, const char* name) {
    auto* l = new QLabel(parent);
    l->setObjectName(QString::fromLatin1(name));
    return l;
}

}  // namespace

// ---------------------------------------------------------------------------------------------
// CopyNew

CopyScheduleDialog::CopyScheduleDialog(common::Session& session, std::function<void()> changed, QWidget* parent)
    : QDialog(parent), model_(session), changed_(std::move(changed)) {
    setObjectName(QString::fromLatin1(schedule::CopyNew::kWindowName));
    setWindowTitle(QString::fromLatin1(schedule::CopyNew::kCaption));

    fromschedulecombo_ = new QComboBox(this);
    fromschedulecombo_->setObjectName(QStringLiteral("fromschedulecombo"));
    toschedulecombo_ = new QComboBox(this);
    toschedulecombo_->setObjectName(QStringLiteral("toschedulecombo"));
    FromDate_ = monthView(this, "FromDate", session);
    ToDate_ = monthView(this, "ToDate", session);
    FromSelectLabel_ = namedLabel(this, "FromSelectLabel");
    ToSelectLabel_ = namedLabel(this, "ToSelectLabel");
    dayoption_ = option(this, "dayoption", tr("Day"));
    weekoption_ = option(this, "weekoption", tr("Week"));
    RangeOption_ = option(this, "RangeOption", tr("Range (28 day max)"));
    CheckforConflicts_ = new QCheckBox(tr("Check for Conflicts"), this);
    CheckforConflicts_->setObjectName(QStringLiteral("CheckforConflicts"));
    auto* copy = makeButton(this, "Command1", tr("Copy"));
    auto* close = makeButton(this, "Command2", tr("Close"));
    copy->setDefault(true);

    connect(fromschedulecombo_, &QComboBox::activated, this, [this](int i) { model_.fromschedulecombo.ListIndex = i; });
    connect(toschedulecombo_, &QComboBox::activated, this, [this](int i) { model_.toschedulecombo.ListIndex = i; });
    connect(FromDate_, &QCalendarWidget::clicked, this, [this](const QDate& d) { dayClicked(FromDate_, d); });
    connect(ToDate_, &QCalendarWidget::clicked, this, [this](const QDate& d) { dayClicked(ToDate_, d); });
    const auto onMode = [this](QRadioButton* b, void (schedule::CopyNew::*click)()) {
        connect(b, &QRadioButton::toggled, this, [this, click](bool on) {
            if (!on) return;
            (model_.*click)();
            display();
        });
    };
    onMode(dayoption_, &schedule::CopyNew::dayoption_Click);
    onMode(weekoption_, &schedule::CopyNew::weekoption_Click);
    onMode(RangeOption_, &schedule::CopyNew::RangeOption_Click);
    connect(CheckforConflicts_, &QCheckBox::clicked, this, [this](bool on) { model_.CheckforConflicts_Click(on); });
    connect(copy, &QPushButton::clicked, this, [this] {
        const bool didChange = model_.Command1_Click();
        display();
        if (didChange && changed_) changed_();
    });
    connect(close, &QPushButton::clicked, this, &QDialog::reject);

    auto* sides = new QGridLayout;
    sides->addWidget(makeLabel(this, tr("Copy &from:"), fromschedulecombo_), 0, 0);
    sides->addWidget(fromschedulecombo_, 1, 0);
    sides->addWidget(FromDate_, 2, 0);
    sides->addWidget(FromSelectLabel_, 3, 0);
    sides->addWidget(makeLabel(this, tr("Copy &to:"), toschedulecombo_), 0, 1);
    sides->addWidget(toschedulecombo_, 1, 1);
    sides->addWidget(ToDate_, 2, 1);
    sides->addWidget(ToSelectLabel_, 3, 1);

    auto* modes = new QHBoxLayout;
    for (QWidget* w :
         {static_cast<QWidget*>(dayoption_), static_cast<QWidget*>(weekoption_), static_cast<QWidget*>(RangeOption_)})
        modes->addWidget(w);
    modes->addStretch();
    modes->addWidget(CheckforConflicts_);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(new QLabel(tr("In range mode, hold Shift and click to choose the last day."), this));
    buttons->addStretch();
    buttons->addWidget(copy);
    buttons->addWidget(close);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(modes);
    layout->addLayout(sides);
    layout->addLayout(buttons);

    {
        const QSignalBlocker quiet(dayoption_);
        dayoption_->setChecked(true);
    }
    display();
}

void CopyScheduleDialog::dayClicked(QCalendarWidget* view, const QDate& date) {
    const bool from = view == FromDate_;
    QDate& anchor = from ? fromAnchor_ : toAnchor_;
    const bool extend =
        model_.mode == CopyMode::Range && anchor.isValid() && (QApplication::keyboardModifiers() & Qt::ShiftModifier);
    const common::Date first = fromQDate(extend ? anchor : date);
    if (!extend) anchor = date;
    if (from)
        model_.FromDate_SelChange(first, fromQDate(date));
    else
        model_.ToDate_SelChange(first, fromQDate(date));
    display();
}

void CopyScheduleDialog::showSelection(QCalendarWidget* view, const schedule::DaySelection& selection) {
    view->setDateTextFormat(QDate(), QTextCharFormat());  // clears every day's look
    if (!selection.valid()) return;
    QTextCharFormat chosen;
    chosen.setBackground(palette().highlight());
    chosen.setForeground(palette().highlightedText());
    for (common::Date d = *selection.first; d <= *selection.last; d = d.addDays(1))
        view->setDateTextFormat(toQDate(d), chosen);
    const QSignalBlocker quiet(view);
    view->setSelectedDate(toQDate(*selection.first));
}

void CopyScheduleDialog::display() {
    showChoices(fromschedulecombo_, model_.fromschedulecombo);
    showChoices(toschedulecombo_, model_.toschedulecombo);
    showSelection(FromDate_, model_.FromDate);
    showSelection(ToDate_, model_.ToDate);
    FromSelectLabel_->setText(qs(model_.FromSelectLabel));
    ToSelectLabel_->setText(qs(model_.ToSelectLabel));
    const QSignalBlocker quiet(CheckforConflicts_);
    CheckforConflicts_->setChecked(model_.CheckforConflicts);
}

// ---------------------------------------------------------------------------------------------
// copytodifferent

CopyToDifferentDialog::CopyToDifferentDialog(common::Session& session, std::function<void()> changed, QWidget* parent)
    : QDialog(parent), model_(session), changed_(std::move(changed)) {
    setObjectName(QString::fromLatin1(schedule::copytodifferent::kWindowName));
    setWindowTitle(QString::fromLatin1(schedule::copytodifferent::kCaption));

    auto* dayoption = option(this, "dayoption", tr("Copy a day"));
    auto* weekoption = option(this, "weekoption", tr("Copy a week"));
    const auto dateField = [this](QWidget* parent, const char* name) {
        auto* field = new QLineEdit(parent);
        field->setObjectName(QString::fromLatin1(name));
        field->setPlaceholderText(tr("m/d/yyyy"));
        return field;
    };

    dayframe_ = new QGroupBox(tr("Copy Day"), this);
    dayframe_->setObjectName(QStringLiteral("dayframe"));
    QLineEdit* sourcestart = dateField(dayframe_, "sourcestart");
    QLineEdit* destinationstart = dateField(dayframe_, "destinationstart");
    auto* dayForm = new QGridLayout(dayframe_);
    dayForm->addWidget(makeLabel(dayframe_, tr("&Source date:"), sourcestart), 0, 0);
    dayForm->addWidget(sourcestart, 0, 1);
    dayForm->addWidget(makeLabel(dayframe_, tr("&Destination date:"), destinationstart), 1, 0);
    dayForm->addWidget(destinationstart, 1, 1);

    weekframe_ = new QGroupBox(tr("Copy Week"), this);
    weekframe_->setObjectName(QStringLiteral("weekframe"));
    QLineEdit* sourceweek = dateField(weekframe_, "sourceweek");
    QLineEdit* destinationweek = dateField(weekframe_, "destinationweek");
    QLabel* labels[4];
    const char* labelNames[4] = {"wsourcestart", "wsourceend", "wdestinationstart", "wdestinationend"};
    for (int i = 0; i < 4; ++i) labels[i] = namedLabel(weekframe_, labelNames[i]);
    auto* weekForm = new QGridLayout(weekframe_);
    weekForm->addWidget(makeLabel(weekframe_, tr("S&ource week:"), sourceweek), 0, 0);
    weekForm->addWidget(sourceweek, 0, 1);
    weekForm->addWidget(labels[0], 0, 2);
    weekForm->addWidget(new QLabel(tr("to"), weekframe_), 0, 3);
    weekForm->addWidget(labels[1], 0, 4);
    weekForm->addWidget(makeLabel(weekframe_, tr("D&estination week:"), destinationweek), 1, 0);
    weekForm->addWidget(destinationweek, 1, 1);
    weekForm->addWidget(labels[2], 1, 2);
    weekForm->addWidget(new QLabel(tr("to"), weekframe_), 1, 3);
    weekForm->addWidget(labels[3], 1, 4);

    binder_.line(sourcestart, model_.sourcestart);
    binder_.line(destinationstart, model_.destinationstart);
    const auto weekChanged = [this] {
        model_.UpdateWeekLabels();
        binder_.show();
    };
    binder_.line(sourceweek, model_.sourceweek, weekChanged);
    binder_.line(destinationweek, model_.destinationweek, weekChanged);
    std::string* texts[4] = {&model_.wsourcestart, &model_.wsourceend, &model_.wdestinationstart,
                             &model_.wdestinationend};
    for (int i = 0; i < 4; ++i) binder_.custom([label = labels[i], text = texts[i]] { label->setText(qs(*text)); });

    connect(dayoption, &QRadioButton::toggled, this, [this](bool on) {
        if (on) model_.dayoption_Click();
        display();
    });
    connect(weekoption, &QRadioButton::toggled, this, [this](bool on) {
        if (on) model_.weekoption_Click();
        display();
    });

    auto* ok = makeButton(this, "OKButton", tr("OK"));
    auto* cancel = makeButton(this, "CancelButton", tr("Cancel"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, [this] {
        if (!model_.OKButton_Click()) return;
        if (changed_) changed_();
        accept();
    });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

    auto* modes = new QHBoxLayout;
    modes->addWidget(dayoption);
    modes->addWidget(weekoption);
    modes->addStretch();
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(modes);
    layout->addWidget(dayframe_);
    layout->addWidget(weekframe_);
    layout->addLayout(buttons);

    {
        const QSignalBlocker quiet(dayoption);
        dayoption->setChecked(true);
    }
    display();
}

void CopyToDifferentDialog::display() {
    dayframe_->setVisible(model_.dayoption);
    weekframe_->setVisible(!model_.dayoption);
    binder_.show();
}

}  // namespace tallymere::app

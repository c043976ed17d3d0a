#include "app/reference/leave_window.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QComboBox>
#include <QDateEdit>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTextCharFormat>
#include <QVBoxLayout>

namespace tallymere::app {

namespace {

QDateEdit* datePicker(QWidget* parent, const char* name) {
    auto* d = new QDateEdit(parent);
    d->setObjectName(QString::fromUtf8(name));
    d->setCalendarPopup(true);
    d->setDisplayFormat(QStringLiteral("MMM dd, yyyy"));
    return d;
}

}  // namespace

LeaveWindow::LeaveWindow(std::unique_ptr<reference::employeeleaveedit> model, QWidget* parent)
    : QDialog(parent),
      model_(std::move(model)),
      startdate_(datePicker(this, "startdate")),
      enddate_(datePicker(this, "enddate")),
      monthView_(new QCalendarWidget(this)),
      leavecombo_(new QComboBox(this)) {
    const bool staging = dynamic_cast<reference::employeeleaveedittemp*>(model_.get()) != nullptr;
    setObjectName(staging ? QStringLiteral("employeeleaveedittemp") : QStringLiteral("employeeleaveedit"));
    setWindowTitle(qs(reference::employeeleaveedit::kCaption));

    monthView_->setObjectName(QStringLiteral("MonthView1"));
    monthView_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    monthView_->setToolTip(tr("Click a day, then Shift+click another to choose a range."));
    leavecombo_->setObjectName(QStringLiteral("leavecombo"));
    leavecombo_->setMinimumWidth(160);

    auto* note = new QLabel(QString::fromUtf8(model_->note()), this);
    note->setObjectName(QStringLiteral("note"));

    auto* form = new QFormLayout;
    form->addRow(makeLabel(this, tr("&Start Date:"), startdate_), startdate_);
    form->addRow(makeLabel(this, tr("&End Date:"), enddate_), enddate_);
    form->addRow(makeLabel(this, tr("&Type of Leave:"), leavecombo_), leavecombo_);

    auto* add = makeButton(this, "Command1", tr("Add"));
    add->setDefault(true);
    auto* cancel = makeButton(this, "Command2", tr("Cancel"));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(add);
    buttons->addWidget(cancel);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(monthView_);
    layout->addWidget(note);
    layout->addLayout(buttons);

    connect(startdate_, &QDateEdit::dateChanged, this, [this](const QDate& d) {
        model_->startdate = fromQDate(d);
        model_->startdateChange();
        display();
    });
    connect(enddate_, &QDateEdit::dateChanged, this, [this](const QDate& d) {
        model_->enddate = fromQDate(d);
        model_->enddateChange();
        display();
    });
    connect(monthView_, &QCalendarWidget::clicked, this, [this](const QDate& d) { monthViewClicked(d); });
    connect(leavecombo_, &QComboBox::activated, this, [this](int index) { model_->leavecombo.ListIndex = index; });
    connect(add, &QPushButton::clicked, this, [this] {
        const bool closes = model_->Command1();
        display();
        if (closes) accept();
    });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    anchor_ = toQDate(model_->startdate);
    display();
}

void LeaveWindow::monthViewClicked(const QDate& day) {
    // A plain click starts a range of one day; Shift+click stretches it from where it started.
    if (!(QApplication::keyboardModifiers() & Qt::ShiftModifier) || !anchor_.isValid()) anchor_ = day;
    model_->MonthView1SelChange(fromQDate(anchor_), fromQDate(day));
    display();
}

void LeaveWindow::display() {
    for (QDateEdit* d : {startdate_, enddate_}) d->blockSignals(true);
    startdate_->setDate(toQDate(model_->startdate));
    enddate_->setDate(toQDate(model_->enddate));
    for (QDateEdit* d : {startdate_, enddate_}) d->blockSignals(false);

    const QSignalBlocker quiet(monthView_);
    monthView_->setDateTextFormat(QDate(), QTextCharFormat());
    QTextCharFormat chosen;
    chosen.setBackground(palette().color(QPalette::Highlight));
    chosen.setForeground(palette().color(QPalette::HighlightedText));
    const QDate first = toQDate(model_->MonthView1.first), last = toQDate(model_->MonthView1.last);
    for (QDate d = first; d.isValid() && d <= last; d = d.addDays(1)) monthView_->setDateTextFormat(d, chosen);
    monthView_->setSelectedDate(toQDate(model_->enddate));

    showChoices(leavecombo_, model_->leavecombo);
}

}  // namespace tallymere::app

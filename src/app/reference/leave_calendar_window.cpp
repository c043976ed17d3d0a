#include "app/reference/leave_calendar_window.h"

#include <QComboBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace tallymere::app {

LeaveCalendarWindow::LeaveCalendarWindow(AppContext& context, QWidget* parent)
    : QWidget(parent),
      model_(context.session()),
      personcombo_(new QComboBox(this)),
      leavecaldate_(new QDateEdit(this)),
      heading_(new QLabel(this)) {
    setObjectName(QStringLiteral("leavecal"));
    setWindowTitle(qs(reference::leavecal::kCaption));

    personcombo_->setObjectName(QStringLiteral("personcombo"));
    personcombo_->setMinimumWidth(200);
    leavecaldate_->setObjectName(QStringLiteral("leavecaldate"));
    leavecaldate_->setDisplayFormat(QStringLiteral("MMMM yyyy"));
    leavecaldate_->setCalendarPopup(true);
    leavecaldate_->setMinimumWidth(leavecaldate_->fontMetrics().horizontalAdvance(QStringLiteral("September 0000")) +
                                   48);
    auto* refresh = makeButton(this, "Command1", tr("Refresh"));
    auto* add = makeButton(this, "Add", tr("Add..."));
    add->setEnabled(false);
    add->setToolTip(tr("Leave is added on the Leave tab of the employee's window."));

    heading_->setObjectName(QStringLiteral("heading"));
    QFont big = heading_->font();
    big.setPointSizeF(big.pointSizeF() * 1.3);
    big.setBold(true);
    heading_->setFont(big);
    heading_->setAlignment(Qt::AlignCenter);

    auto* top = new QHBoxLayout;
    top->addWidget(makeLabel(this, tr("&Employee:"), personcombo_));
    top->addWidget(personcombo_);
    top->addSpacing(12);
    top->addWidget(makeLabel(this, tr("&Month:"), leavecaldate_));
    top->addWidget(leavecaldate_);
    top->addStretch();
    top->addWidget(refresh);
    top->addWidget(add);

    auto* month = new QGridLayout;
    month->setSpacing(2);
    for (int d = 0; d < 7; ++d) {
        auto* name = new QLabel(qs(common::weekdayName(d + 1)), this);
        name->setAlignment(Qt::AlignCenter);
        month->addWidget(name, 0, d);
        month->setColumnStretch(d, 1);
    }
    // The 42 cells repeat the name Text1; the property "index" counts them from the top left.
    for (int i = 0; i < kWeeks * 7; ++i) {
        auto* cell = new QPlainTextEdit(this);
        cell->setObjectName(QStringLiteral("Text1"));
        cell->setProperty("index", i);
        cell->setReadOnly(true);
        cell->setLineWrapMode(QPlainTextEdit::WidgetWidth);
        cell->setMinimumSize(90, 64);
        cell->setTabChangesFocus(true);
        cells_.push_back(cell);
        month->addWidget(cell, 1 + i / 7, i % 7);
    }
    for (int w = 0; w < kWeeks; ++w) month->setRowStretch(1 + w, 1);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(heading_);
    layout->addLayout(month, 1);

    connect(personcombo_, &QComboBox::activated, this, [this](int index) {
        model_.personcombo.ListIndex = index;
        model_.personcomboClick();
        display();
    });
    connect(leavecaldate_, &QDateEdit::dateChanged, this, [this](const QDate& d) {
        model_.leavecaldate = fromQDate(d);
        model_.leavecaldateChange();
        display();
    });
    connect(refresh, &QPushButton::clicked, this, [this] { refreshWindow(); });

    model_.Load();
    display();
}

void LeaveCalendarWindow::refreshWindow() {
    model_.Command1();
    display();
}

void LeaveCalendarWindow::display() {
    showChoices(personcombo_, model_.personcombo);
    {
        const QSignalBlocker quiet(leavecaldate_);
        leavecaldate_->setDate(toQDate(model_.leavecaldate));
    }
    heading_->setText(qs(model_.heading));
    for (std::size_t i = 0; i < cells_.size(); ++i) {
        const std::size_t week = i / 7, day = i % 7;
        const reference::LeaveCalendarCell* cell = week < model_.Text1.size() ? &model_.Text1[week][day] : nullptr;
        QPlainTextEdit* text = cells_[i];
        if (!cell || cell->day == 0) {
            text->clear();
            text->setEnabled(false);
            continue;
        }
        QStringList lines{QString::number(cell->day)};
        for (const auto& line : cell->lines) lines << qs(line);
        text->setEnabled(true);
        text->setPlainText(lines.join(QLatin1Char('\n')));
    }
}

}  // namespace tallymere::app

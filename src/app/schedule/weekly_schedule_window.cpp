#include "app/schedule/weekly_schedule_window.h"

#include "app/common/window_place.h"
#include "common/session.h"
#include "store/options.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace tallymere::app {

namespace {

using schedule::WeeklyGrid;

// Widths and heights are kept in twips, 15 to a pixel at the usual resolution.

// The name cells' pale yellow.
const QColor kNameCellColor(0xFF, 0xFF, 0xC0);

}  // namespace

WeeklyScheduleWindow::WeeklyScheduleWindow(AppContext& context, QWidget* parent)
    : QWidget(parent), context_(context), model_(context.session()) {
    setObjectName(QString::fromLatin1(schedule::week::kWindowName));
    setWindowTitle(QString::fromLatin1(schedule::week::kCaption));

    grid_ = new QTableWidget(0, WeeklyGrid::kCols, this);
    grid_->setObjectName(QStringLiteral("Grid1"));
    grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid_->setSelectionMode(QAbstractItemView::NoSelection);
    grid_->verticalHeader()->hide();
    grid_->setWordWrap(true);
    grid_->horizontalHeader()->setHighlightSections(false);

    employeeCombo_ = new QComboBox(this);
    employeeCombo_->setObjectName(QStringLiteral("employeeCombo"));
    shiftCombo_ = new QComboBox(this);
    shiftCombo_->setObjectName(QStringLiteral("shiftCombo"));
    hourscheck_ = new QCheckBox(tr("Show Hours"), this);
    hourscheck_->setObjectName(QStringLiteral("hourscheck"));
    auto* refresh = makeButton(this, "refreshbutton", tr("Refresh"));
    auto* print = makeButton(this, "printbutton", tr("Print"));
    auto* close = makeButton(this, "closebutton", tr("Close"));
    print->setEnabled(false);
    print->setToolTip(tr("Printing comes with the report engine."));

    connect(employeeCombo_, &QComboBox::activated, this, [this](int index) {
        model_.employeeCombo_Click(index);
        display();
    });
    connect(shiftCombo_, &QComboBox::activated, this, [this](int index) {
        model_.shiftCombo_Click(index);
        display();
    });
    connect(hourscheck_, &QCheckBox::clicked, this, [this](bool checked) {
        model_.hourscheck_Click(checked);
        display();
    });
    connect(refresh, &QPushButton::clicked, this, [this] { refreshWindow(); });
    // The window lives in a subwindow of the main window's area: closing that closes the window.
    connect(close, &QPushButton::clicked, this, [this] {
        if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget()))
            sub->close();
        else
            QWidget::close();
    });

    auto* filters = new QHBoxLayout;
    filters->addWidget(makeLabel(this, tr("&Employee:"), employeeCombo_));
    filters->addWidget(employeeCombo_);
    filters->addSpacing(12);
    filters->addWidget(makeLabel(this, tr("S&hift:"), shiftCombo_));
    filters->addWidget(shiftCombo_);
    filters->addSpacing(12);
    filters->addWidget(hourscheck_);
    filters->addStretch();

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton* b : {refresh, print, close}) buttons->addWidget(b);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(filters);
    layout->addWidget(grid_, 1);
    layout->addLayout(buttons);
    display();
}

WeeklyScheduleWindow::~WeeklyScheduleWindow() = default;

void WeeklyScheduleWindow::refreshWindow() {
    model_.refreshbutton_Click();
    display();
}

void WeeklyScheduleWindow::activated() {
    model_.Form_Activate();
    display();
}

void WeeklyScheduleWindow::display() {
    showChoices(employeeCombo_, model_.employeeCombo);
    showChoices(shiftCombo_, model_.shiftCombo);
    {
        const QSignalBlocker quiet(hourscheck_);
        hourscheck_->setChecked(model_.hourscheck);
    }

    const WeeklyGrid& g = model_.Grid1;
    QStringList captions;
    for (const std::string& caption : g.captions) captions << qs(caption);
    grid_->setHorizontalHeaderLabels(captions);
    grid_->setRowCount(static_cast<int>(g.rows.size()));
    const int lineHeight = grid_->fontMetrics().lineSpacing();
    for (int r = 0; r < static_cast<int>(g.rows.size()); ++r) {
        const WeeklyGrid::Row& row = g.rows[static_cast<std::size_t>(r)];
        QStringList cells{qs(row.name), qs(row.hours)};
        for (const std::string& d : row.days) cells << qs(d);
        for (int c = 0; c < cells.size(); ++c) {
            QTableWidgetItem* item = grid_->item(r, c);
            if (!item) {
                item = new QTableWidgetItem;
                grid_->setItem(r, c, item);
            }
            item->setText(cells[c]);
            item->setTextAlignment(c == WeeklyGrid::kHrsCol ? Qt::AlignRight | Qt::AlignTop
                                                            : Qt::AlignLeft | Qt::AlignTop);
            if (c == WeeklyGrid::kNameCol) {
                item->setBackground(kNameCellColor);
                item->setForeground(Qt::black);
                item->setData(Qt::UserRole, QVariant::fromValue<qlonglong>(row.personid));
            }
        }
        // A row grows to its highest cell, from its starting height.
        grid_->setRowHeight(r, std::max(WeeklyGrid::kRowHeight / kTwipsPerPixel, row.lines * lineHeight + 6));
    }
    for (int c = 0; c < WeeklyGrid::kCols; ++c)
        if (const int twips = g.ColWidth[static_cast<std::size_t>(c)]; twips > 0) setColumnWidth(c, twips);
}

void WeeklyScheduleWindow::setColumnWidth(int column, int twips) {
    grid_->setColumnWidth(column, column == WeeklyGrid::kHrsCol ? hoursColumnPixels() : twips / kTwipsPerPixel);
}

int WeeklyScheduleWindow::hoursColumnPixels() const {
    // Sized for a smaller screen font once: never narrower than a week's hours.
    return std::max(WeeklyGrid::kHrsWidth / kTwipsPerPixel,
                    grid_->fontMetrics().horizontalAdvance(QStringLiteral("000.00")) + 8);
}

void WeeklyScheduleWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    // The model shares the width among the name and the days and adds the hours column on top; give it
    // what the grid can show once that column and the row numbers are set aside, so that Saturday is
    // not cut off.
    const int spare = hoursColumnPixels() + grid_->verticalHeader()->width() + grid_->frameWidth() * 2 +
                      grid_->verticalScrollBar()->sizeHint().width();
    model_.Form_Resize((width() - spare) * kTwipsPerPixel);
    for (int c = 0; c < WeeklyGrid::kCols; ++c) setColumnWidth(c, model_.Grid1.ColWidth[static_cast<std::size_t>(c)]);
}

void WeeklyScheduleWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (placed_) return;
    placed_ = true;
    restoreChildPlace(context_.session(), this, schedule::week::kWindowName);
}

void WeeklyScheduleWindow::closeEvent(QCloseEvent* event) {
    saveChildPlace(context_.session(), this, schedule::week::kWindowName);
    QWidget::closeEvent(event);
}

}  // namespace tallymere::app

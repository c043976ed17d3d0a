#include "app/reference/availability_grid.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

namespace tallymere::app {

namespace {
constexpr int kCellWidth = 22;
constexpr int kCellHeight = 20;
}  // namespace

QColor availableColor() { return QColor(196, 232, 196); }
QColor unavailableColor() { return QColor(214, 82, 74); }

AvailabilityDayGrid::AvailabilityDayGrid(reference::AvailabilityTab& tab, int day, QWidget* parent)
    : QWidget(parent), tab_(tab), day_(day) {
    setObjectName(QStringLiteral("availGrid1"));
    setProperty("index", day);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setCursor(Qt::PointingHandCursor);
}

QSize AvailabilityDayGrid::sizeHint() const { return {24 * kCellWidth + 1, kCellHeight + 1}; }

QRect AvailabilityDayGrid::cellRect(int hour) const { return {hour * kCellWidth, 0, kCellWidth, kCellHeight}; }

int AvailabilityDayGrid::hourAt(int x) const { return std::clamp(x / kCellWidth, 0, 23); }

void AvailabilityDayGrid::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const auto& cells = tab_.availGrid1[static_cast<std::size_t>(day_)];
    const int from = std::min(anchor_, reach_), to = std::max(anchor_, reach_);
    const QColor brush = tab_.unavailableoption ? unavailableColor() : availableColor();
    for (int h = 0; h < 24; ++h) {
        const QRect r = cellRect(h);
        QColor fill = cells[static_cast<std::size_t>(h)] ? unavailableColor() : availableColor();
        // The cells a drag sweeps show the brush before the button is let go.
        if (anchor_ >= 0 && h >= from && h <= to) fill = brush.darker(115);
        p.fillRect(r, fill);
        p.setPen(palette().color(QPalette::Mid));
        p.drawRect(r);
    }
}

void AvailabilityDayGrid::mousePressEvent(QMouseEvent* e) {
    if (e->button() != Qt::LeftButton) return;
    anchor_ = reach_ = hourAt(static_cast<int>(e->position().x()));
    update();
}

void AvailabilityDayGrid::mouseMoveEvent(QMouseEvent* e) {
    if (anchor_ < 0) return;
    const int h = hourAt(static_cast<int>(e->position().x()));
    if (h == reach_) return;
    reach_ = h;
    update();
}

void AvailabilityDayGrid::mouseReleaseEvent(QMouseEvent* e) {
    if (anchor_ < 0 || e->button() != Qt::LeftButton) return;
    const int from = anchor_, to = hourAt(static_cast<int>(e->position().x()));
    anchor_ = reach_ = -1;
    tab_.paint(day_, from, to);
    update();
}

AvailabilityHours::AvailabilityHours(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("availHours"));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize AvailabilityHours::sizeHint() const { return {24 * kCellWidth + 1, 2 * fontMetrics().height() + 2}; }

void AvailabilityHours::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const int line = fontMetrics().height();
    p.setPen(palette().color(QPalette::WindowText));
    p.drawText(QRect(0, 0, 12 * kCellWidth, line), Qt::AlignCenter, tr("AM"));
    p.drawText(QRect(12 * kCellWidth, 0, 12 * kCellWidth, line), Qt::AlignCenter, tr("PM"));
    p.setPen(palette().color(QPalette::Mid));
    p.drawLine(2, line - 1, 12 * kCellWidth - 3, line - 1);
    p.drawLine(12 * kCellWidth + 2, line - 1, 24 * kCellWidth - 3, line - 1);
    p.setPen(palette().color(QPalette::WindowText));
    for (int h = 0; h < 24; ++h) {
        const int shown = h % 12 == 0 ? 12 : h % 12;
        p.drawText(QRect(h * kCellWidth, line, kCellWidth, line + 2), Qt::AlignCenter, QString::number(shown));
    }
}

}  // namespace tallymere::app

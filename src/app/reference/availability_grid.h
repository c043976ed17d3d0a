#pragma once
// One day of the availability tab (`availGrid1`): 24 hour cells from midnight, painted in the colour
// of unavailability or availability. A click paints one cell with the brush, a drag the cells it
// sweeps; the painting goes to the model, which says what each cell is.

#include "reference/availability.h"

#include <QColor>
#include <QWidget>

namespace tallymere::app {

// The colours of the two brushes, shown beside their options.
QColor availableColor();
QColor unavailableColor();

class AvailabilityDayGrid : public QWidget {
public:
    AvailabilityDayGrid(reference::AvailabilityTab& tab, int day, QWidget* parent = nullptr);

    int day() const { return day_; }
    // The hour under a point, clamped to the row.
    int hourAt(int x) const;
    QRect cellRect(int hour) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent*) override;
    void mousePressEvent(QMouseEvent* e) override;
    void mouseMoveEvent(QMouseEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;

private:
    reference::AvailabilityTab& tab_;
    int day_;
    int anchor_ = -1;  // the cell the drag started on, -1 when none
    int reach_ = -1;   // the cell the drag has reached
};

// The hours above the seven rows: AM and PM, and each hour's number.
class AvailabilityHours : public QWidget {
public:
    explicit AvailabilityHours(QWidget* parent = nullptr);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent*) override;
};

}  // namespace tallymere::app

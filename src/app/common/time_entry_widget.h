#pragma once
// The three small time fields with their spin button: `TETxtHr`, `TeTxtMin`, `TEAmPm` and
// `SpinButton1`, bound to a reference::TimeEntry that holds their text and editing rules. Every
// window with a time of this kind (the quick bar, the shift and entry editors) can use it; since the
// control names repeat, each use gives the widget a name of its own ("StartTime", "EndTime").

#include "reference/time_entry.h"

#include <QWidget>

class QLineEdit;
class QToolButton;

namespace tallymere::app {

class TimeEntryWidget : public QWidget {
    Q_OBJECT

public:
    explicit TimeEntryWidget(QWidget* parent = nullptr);

    const reference::TimeEntry& entry() const { return entry_; }
    // Shows another time; no edited() signal.
    void setEntry(const reference::TimeEntry& entry);

    QLineEdit* hourField() const { return hour_; }
    QLineEdit* minuteField() const { return minute_; }
    QLineEdit* amPmField() const { return amPm_; }

signals:
    // The user changed the time: typed, left a field or spun.
    void edited();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void display();
    void spin(int direction);
    reference::TimeField fieldOf(QObject* o) const;

    reference::TimeEntry entry_;
    reference::TimeField focus_ = reference::TimeField::Hour;
    QLineEdit* hour_;
    QLineEdit* minute_;
    QLineEdit* amPm_;
};

}  // namespace tallymere::app

#pragma once
// The quick bar `QuickBar`: the lists `shiftcombo`, `positioncombo`, `sectioncombo`, the start and
// end time fields and the Add button `addfromlv`. Its values live in the main window's model; the
// bar shows them and writes the user's choices back.

#include <QToolBar>

class QComboBox;
class QPushButton;

namespace tallymere::shell {
class MainForm;
}

namespace tallymere::app {

class TimeEntryWidget;

class QuickBar : public QToolBar {
    Q_OBJECT

public:
    QuickBar(shell::MainForm& form, QWidget* parent = nullptr);

    // Shows the model's lists, choices and times.
    void refresh();
    void setAddEnabled(bool enabled);

    // The start time is index 1 of the model's time fields, the end index 0.
    TimeEntryWidget* startTime() const { return startTime_; }
    TimeEntryWidget* endTime() const { return endTime_; }

signals:
    // A shift was chosen and the times took its start and end.
    void shiftTimesChanged();
    void addClicked();

private:
    void timeEdited(TimeEntryWidget* field, std::size_t index);

    shell::MainForm& form_;
    QComboBox* shiftcombo_;
    QComboBox* positioncombo_;
    QComboBox* sectioncombo_;
    TimeEntryWidget* startTime_;
    TimeEntryWidget* endTime_;
    QPushButton* addfromlv_;
};

}  // namespace tallymere::app

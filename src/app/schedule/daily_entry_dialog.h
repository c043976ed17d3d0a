#pragma once
// The entry editor `dailyadd` ("Edit Schedule"): one schedule entry's times, shift, position,
// section, employee and note. The daily schedule opens it modally on the entry being edited.

#include "app/common/widget_support.h"
#include "schedule/daily_entry.h"

#include <QDialog>
#include <array>

class QComboBox;
class QLineEdit;
class QListWidget;

namespace tallymere::app {

class TimeEntryWidget;

class DailyAddDialog : public QDialog {
public:
    DailyAddDialog(common::Session& s, long schedid, QWidget* parent);

    // False when the entry could not be read: the user has been told, and the window must not open.
    bool loaded() const { return loaded_; }
    schedule::dailyadd& model() { return model_; }

private:
    void display();
    void showEmployees();
    // What the widgets hold that the model does not follow edit by edit.
    void collect();
    void ok();
    void editComment();

    schedule::dailyadd model_;
    Binder binder_;
    // Indexed as the model's times: 1 the start, 0 the end.
    std::array<TimeEntryWidget*, 2> times_{};
    QComboBox* shiftcombo_;
    QComboBox* positioncombo_;
    QComboBox* sectioncombo_;
    QListWidget* emplBBlist_;
    QComboBox* filtercombo_;
    QLineEdit* note_;
    bool loaded_ = false;
    ViewGuard guard_{this};
};

}  // namespace tallymere::app

#pragma once
// The list of schedule files with the figures of the one selected (first and last day, number of
// entries), as `Openfrm` and `deletesched` both show it.

#include "reference/schedule_files.h"

#include <functional>

class QGridLayout;
class QLabel;
class QLineEdit;
class QListWidget;
class QWidget;

namespace tallymere::app {

class ScheduleFileListView {
public:
    // `select` runs the window's own selection of a row.
    ScheduleFileListView(QWidget* parent, reference::ScheduleFileList& model, std::function<void(int)> select);

    QListWidget* list() const { return list_; }
    // The list on the left, the figures below it.
    QGridLayout* layout() const { return layout_; }
    void display();

private:
    reference::ScheduleFileList& model_;
    QListWidget* list_;
    QLineEdit* firstdate_;
    QLineEdit* lastdate_;
    QLabel* label4_;
    QGridLayout* layout_;
};

}  // namespace tallymere::app

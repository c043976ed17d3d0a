#pragma once
// The window `RestoreSchedData`: a backed-up database replaces the live one, and the program ends.

#include "maintenance/restore_sched_data.h"

#include <QDialog>

class QLineEdit;

namespace tallymere::app {

class RestoreSchedDataDialog : public QDialog {
    Q_OBJECT

public:
    RestoreSchedDataDialog(common::Session& session, QWidget* parent = nullptr);

private:
    maintenance::RestoreSchedData model_;
    QLineEdit* txtPath_;
};

}  // namespace tallymere::app

#pragma once
// The window `backup`: copies the database and its start copy into a folder of the user's choice.

#include "maintenance/backup.h"

#include <QDialog>

class QLineEdit;

namespace tallymere::app {

class BackupDialog : public QDialog {
    Q_OBJECT

public:
    BackupDialog(common::Session& session, QWidget* parent = nullptr);

private:
    maintenance::backup model_;
    QLineEdit* txtPath_;
};

}  // namespace tallymere::app

#include "app/maintenance/backup_dialog.h"

#include "app/common/widget_support.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tallymere::app {

BackupDialog::BackupDialog(common::Session& session, QWidget* parent) : QDialog(parent), model_(session) {
    setObjectName(QStringLiteral("backup"));
    setWindowTitle(QStringLiteral("Backup Tallymere Data"));

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 12);
    layout->addWidget(plainText(this, QStringLiteral("All of your schedule data is kept in one file, Tallymere.db. "
                                                     "Backup copies it, with the copy made at the last start, into "
                                                     "the folder below. Choose a folder on another disk or on a "
                                                     "removable drive, not the data folder itself.")));
    layout->addSpacing(6);
    const FolderField path = folderField(this, layout, "txtPath", QStringLiteral("Backup &folder:"));
    txtPath_ = path.field;
    txtPath_->setText(QString::fromStdString(model_.txtPath));
    layout->addSpacing(8);
    QPushButton* backupButton = makeButton(this, "backupbutton", QStringLiteral("Back &Up"));
    QPushButton* closeButton = makeButton(this, "CloseButton", QStringLiteral("Close"));
    backupButton->setDefault(true);
    layout->addLayout(buttonRow({backupButton, closeButton}));
    setMinimumWidth(480);

    connect(txtPath_, &QLineEdit::textChanged, this, [this](const QString& t) { model_.txtPath = t.toStdString(); });
    connect(path.browse, &QPushButton::clicked, this, [this] {
        model_.BrowseButton();
        txtPath_->setText(QString::fromStdString(model_.txtPath));
    });
    // A finished backup has nothing left to do here.
    connect(backupButton, &QPushButton::clicked, this, [this] {
        if (model_.backupbutton()) accept();
    });
    connect(closeButton, &QPushButton::clicked, this, &QDialog::reject);
}

}  // namespace tallymere::app

#include "app/maintenance/restore_sched_data_dialog.h"

#include "app/common/widget_support.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tallymere::app {

RestoreSchedDataDialog::RestoreSchedDataDialog(common::Session& session, QWidget* parent)
    : QDialog(parent), model_(session) {
    setObjectName(QStringLiteral("RestoreSchedData"));
    setWindowTitle(QStringLiteral("Restore Tallymere Data"));

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 12);
    layout->addWidget(plainText(this, QString::fromUtf8(maintenance::RestoreSchedData::kExplanation)));
    layout->addSpacing(6);
    const FolderField path = folderField(this, layout, "txtPath", QStringLiteral("&Folder that holds the backup:"));
    txtPath_ = path.field;
    txtPath_->setText(QString::fromStdString(model_.txtPath));
    layout->addSpacing(8);
    QPushButton* restoreButton = makeButton(this, "RestoreButton", QStringLiteral("&Restore"));
    QPushButton* closeButton = makeButton(this, "CloseButton", QStringLiteral("Close"));
    layout->addLayout(buttonRow({restoreButton, closeButton}));
    setMinimumWidth(480);

    connect(txtPath_, &QLineEdit::textChanged, this, [this](const QString& t) { model_.txtPath = t.toStdString(); });
    connect(path.browse, &QPushButton::clicked, this, [this] {
        model_.BrowseButton();
        txtPath_->setText(QString::fromStdString(model_.txtPath));
    });
    // A restore that succeeds ends the program from inside the model.
    connect(restoreButton, &QPushButton::clicked, this, [this] { model_.RestoreButton(); });
    connect(closeButton, &QPushButton::clicked, this, &QDialog::reject);
}

}  // namespace tallymere::app

#include "app/maintenance/data_location_dialog.h"

#include "app/common/widget_support.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tallymere::app {

using maintenance::SetDataLocation;
using maintenance::SetDataLocationStart;

DataLocationDialog::DataLocationDialog(Kind kind, common::Session& session, const std::string& defaultFolder,
                                       QWidget* parent)
    : QDialog(parent), kind_(kind) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 12);
    if (kind == Kind::Running) {
        model_ = std::make_unique<SetDataLocation>(session, defaultFolder);
        setObjectName(QStringLiteral("SetDataLocation"));
        setWindowTitle(QStringLiteral("Set Data Location"));
        layout->addWidget(plainText(this, QString::fromUtf8(SetDataLocation::kNetworkNote)));
        layout->addWidget(plainText(this, QString::fromUtf8(SetDataLocation::kAccountsNote)));
    } else {
        model_ = std::make_unique<SetDataLocationStart>(session, defaultFolder);
        setObjectName(QStringLiteral("SetDataLocationStart"));
        setWindowTitle(QStringLiteral("Select Data Folder"));
        layout->addWidget(plainText(this, QString::fromUtf8(SetDataLocationStart::kPrompt)));
    }
    layout->addSpacing(6);
    const FolderField path = folderField(this, layout, "TxtPath", QStringLiteral("Folder of the Tallymere &data:"));
    txtPath_ = path.field;
    showPath();
    layout->addSpacing(8);

    QPushButton* defaultButton = makeButton(this, "DefaultButton", QStringLiteral("Set to Default"));
    QPushButton* setButton = makeButton(this, "SetLocationButton", QStringLiteral("&Set Location"));
    QPushButton* cancelButton = makeButton(this, "CancelButton", QStringLiteral("Cancel"));
    setButton->setDefault(true);
    defaultButton->setToolTip(QString::fromStdString(defaultFolder));
    QBoxLayout* buttons = buttonRow({setButton, cancelButton});
    buttons->insertWidget(0, defaultButton);
    layout->addLayout(buttons);
    setMinimumWidth(520);

    connect(txtPath_, &QLineEdit::textChanged, this, [this](const QString& t) { model_->TxtPath = t.toStdString(); });
    connect(path.browse, &QPushButton::clicked, this, [this] {
        model_->BrowseButton();
        showPath();
    });
    connect(defaultButton, &QPushButton::clicked, this, [this] {
        model_->DefaultButton();
        showPath();
    });
    connect(setButton, &QPushButton::clicked, this, &DataLocationDialog::setLocation);
    connect(cancelButton, &QPushButton::clicked, this, &DataLocationDialog::reject);
}

DataLocationDialog::~DataLocationDialog() = default;

void DataLocationDialog::showPath() {
    const QString path = QString::fromStdString(model_->TxtPath);
    if (txtPath_->text() != path) txtPath_->setText(path);
}

void DataLocationDialog::setLocation() {
    const bool done = kind_ == Kind::Running ? static_cast<SetDataLocation&>(*model_).SetLocationButton()
                                             : static_cast<SetDataLocationStart&>(*model_).SetLocationButton();
    if (done) accept();
}

void DataLocationDialog::reject() {
    if (kind_ == Kind::Start) static_cast<SetDataLocationStart&>(*model_).Cancel();
    QDialog::reject();
}

}  // namespace tallymere::app

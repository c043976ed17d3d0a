#include "app/reference/model_dialog.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace tallymere::app {

void formOverOkCancel(QDialog* dialog, QLayout* form, const char* okName, const char* cancelName,
                      std::function<bool()> ok, std::function<bool()> cancel) {
    auto* buttons = new QDialogButtonBox(dialog);
    auto* okButton = buttons->addButton(QDialog::tr("OK"), QDialogButtonBox::AcceptRole);
    okButton->setObjectName(QString::fromUtf8(okName));
    okButton->setDefault(true);
    auto* cancelButton = buttons->addButton(QDialog::tr("Cancel"), QDialogButtonBox::RejectRole);
    cancelButton->setObjectName(QString::fromUtf8(cancelName));
    QObject::connect(okButton, &QPushButton::clicked, dialog, [dialog, ok = std::move(ok)] {
        if (ok()) dialog->accept();
    });
    QObject::connect(cancelButton, &QPushButton::clicked, dialog, [dialog, cancel = std::move(cancel)] {
        if (!cancel || cancel()) dialog->reject();
    });

    auto* layout = new QVBoxLayout(dialog);
    layout->addLayout(form);
    layout->addWidget(buttons);
}

}  // namespace tallymere::app

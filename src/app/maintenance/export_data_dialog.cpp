#include "app/maintenance/export_data_dialog.h"

#include "app/common/widget_support.h"

#include <QComboBox>
#include <QDateEdit>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tallymere::app {

namespace {

QComboBox* choices(QWidget* parent, const char* name, const maintenance::ExportChoices& list) {
    auto* combo = new QComboBox(parent);
    combo->setObjectName(QString::fromLatin1(name));
    for (const std::string& item : list.items) combo->addItem(QString::fromStdString(item));
    combo->setCurrentIndex(list.ListIndex);
    return combo;
}

}  // namespace

ExportDataDialog::ExportDataDialog(common::Session& session, QWidget* parent) : QDialog(parent), model_(session) {
    setObjectName(QString::fromLatin1(maintenance::ExportData::kWindowName));
    setWindowTitle(QString::fromLatin1(maintenance::ExportData::kCaption));

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 12);
    for (const char* text : maintenance::ExportData::kTexts)
        layout->addWidget(plainText(this, QString::fromUtf8(text)));
    layout->addSpacing(6);

    const auto datePicker = [this](const char* name, common::Date value) {
        auto* picker = new QDateEdit(toQDate(value), this);
        picker->setObjectName(QString::fromLatin1(name));
        picker->setCalendarPopup(true);
        picker->setDisplayFormat(QStringLiteral("MM/dd/yyyy"));
        return picker;
    };
    QDateEdit* startdate = datePicker("startdate", model_.startdate);
    QDateEdit* enddate = datePicker("enddate", model_.enddate);
    QComboBox* employeeCombo = choices(this, "employeeCombo", model_.employeeCombo);
    QComboBox* SortCombo = choices(this, "SortCombo", model_.SortCombo);
    auto* form = new QFormLayout;
    form->addRow(tr("&Start date:"), startdate);
    form->addRow(tr("&End date:"), enddate);
    form->addRow(tr("E&mployee:"), employeeCombo);
    form->addRow(tr("S&ort by:"), SortCombo);
    layout->addLayout(form);
    layout->addSpacing(8);

    QPushButton* save = makeButton(this, "SaveButton", tr("&Export..."));
    QPushButton* close = makeButton(this, "CloseButton", tr("Close"));
    save->setDefault(true);
    layout->addLayout(buttonRow({save, close}));
    setMinimumWidth(460);

    connect(startdate, &QDateEdit::dateChanged, this, [this](const QDate& d) { model_.startdate = fromQDate(d); });
    connect(enddate, &QDateEdit::dateChanged, this, [this](const QDate& d) { model_.enddate = fromQDate(d); });
    connect(employeeCombo, &QComboBox::currentIndexChanged, this,
            [this](int i) { model_.employeeCombo.ListIndex = i; });
    connect(SortCombo, &QComboBox::currentIndexChanged, this, [this](int i) { model_.SortCombo.ListIndex = i; });
    connect(save, &QPushButton::clicked, this, [this] {
        if (model_.SaveButton_Click()) accept();
    });
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
}

}  // namespace tallymere::app

#include "app/maintenance/dialog_parts.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace tallymere::app::parts {

QPushButton* button(QWidget* parent, const char* name, const QString& caption) {
    auto* b = new QPushButton(caption, parent);
    b->setObjectName(QString::fromLatin1(name));
    b->setAutoDefault(false);
    return b;
}

QLabel* text(QWidget* parent, const QString& text) {
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

FolderField folderField(QWidget* parent, QBoxLayout* layout, const char* fieldName, const QString& caption) {
    auto* label = new QLabel(caption, parent);
    auto* field = new QLineEdit(parent);
    field->setObjectName(QString::fromLatin1(fieldName));
    field->setMinimumWidth(320);
    label->setBuddy(field);
    auto* row = new QHBoxLayout;
    row->addWidget(field, 1);
    QPushButton* browse = button(parent, "BrowseButton", QStringLiteral("&Browse..."));
    row->addWidget(browse);
    layout->addWidget(label);
    layout->addLayout(row);
    return {field, browse};
}

QBoxLayout* buttonRow(std::initializer_list<QPushButton*> buttons) {
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    for (QPushButton* b : buttons) row->addWidget(b);
    return row;
}

}  // namespace tallymere::app::parts

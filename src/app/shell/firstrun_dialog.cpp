#include "app/shell/firstrun_dialog.h"

#include "app/shell/shell_icons.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tallymere::app {

FirstRunDialog::FirstRunDialog(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("firstrun"));
    setWindowTitle(QStringLiteral("Welcome to Tallymere"));

    auto* picture = new QLabel(this);
    picture->setPixmap(programIcon().pixmap(48, 48));
    picture->setAlignment(Qt::AlignTop);

    auto* texts = new QVBoxLayout;
    texts->setSpacing(10);
    for (const char* text :
         {"To get started, add your Positions, Shifts, and Employees.",
          "Once your employees are entered, just drag and drop them from the employee list to the schedule.",
          "Tallymere comes with a single sample employee. Try 'dragging' the sample employee to the schedule to see "
          "how easy it is to schedule employees."}) {
        auto* label = new QLabel(QString::fromUtf8(text), this);
        label->setWordWrap(true);
        label->setTextFormat(Qt::PlainText);
        texts->addWidget(label);
    }

    auto* ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setObjectName(QStringLiteral("OK"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);

    auto* body = new QHBoxLayout;
    body->setSpacing(14);
    body->addWidget(picture);
    body->addLayout(texts, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ok);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(18, 18, 18, 14);
    layout->addLayout(body);
    layout->addSpacing(6);
    layout->addLayout(buttons);
    setMinimumWidth(440);
}

}  // namespace tallymere::app

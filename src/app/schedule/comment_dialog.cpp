#include "app/schedule/comment_dialog.h"

#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tallymere::app {

CommentDialog::CommentDialog(std::string& sharedComment, QWidget* parent) : QDialog(parent), model_(sharedComment) {
    setObjectName(QString::fromLatin1(schedule::commentfrm::kWindowName));
    setWindowTitle(tr(schedule::commentfrm::kCaption));

    auto* text1 = new QPlainTextEdit(this);
    text1->setObjectName(QStringLiteral("Text1"));
    // Tab moves on to the buttons; a note has no use for tab characters.
    text1->setTabChangesFocus(true);
    text1->setMinimumSize(320, 120);

    auto* ok = makeButton(this, "Command1", tr("OK"));
    ok->setDefault(true);
    auto* cancel = makeButton(this, "Command2", tr("Cancel"));
    connect(ok, &QPushButton::clicked, this, [this] {
        if (model_.Command1_Click()) accept();
    });
    connect(cancel, &QPushButton::clicked, this, [this] {
        if (model_.Command2_Click()) reject();
    });

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text1, 1);
    layout->addLayout(buttons);

    binder_.text(text1, model_.Text1);
    binder_.show();
    text1->moveCursor(QTextCursor::End);
    text1->setFocus();
}

}  // namespace tallymere::app

#include "app/reference/position_windows.h"

#include <QColorDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tallymere::app {

template <class Model>
template <class... Args>
PositionWindow<Model>::PositionWindow(common::Session& s, QWidget* parent, const char* windowName,
                                      const QString& caption, Args&&... modelArgs)
    : QDialog(parent), s_(s), model_(s, std::forward<Args>(modelArgs)...), swatch_(new QLabel(this)) {
    setObjectName(QString::fromUtf8(windowName));
    setWindowTitle(caption);

    auto* title = new QLineEdit(this);
    title->setObjectName(QStringLiteral("title"));
    auto* description = new QLineEdit(this);
    description->setObjectName(QStringLiteral("description"));
    description->setMinimumWidth(260);
    auto* baserate = new QLineEdit(this);
    baserate->setObjectName(QStringLiteral("baserate"));
    baserate->setMaximumWidth(120);

    swatch_->setObjectName(QStringLiteral("colorswatch"));
    swatch_->setFixedSize(48, 22);
    swatch_->setFrameShape(QFrame::Box);
    swatch_->setAutoFillBackground(true);
    auto* colorButton = makeButton(this, "Command3", tr("C&olor..."));
    auto* colorRow = new QHBoxLayout;
    colorRow->addWidget(swatch_);
    colorRow->addWidget(colorButton);
    colorRow->addStretch();

    auto* form = new QFormLayout;
    form->addRow(makeLabel(this, tr("&Title:"), title), title);
    form->addRow(makeLabel(this, tr("&Description:"), description), description);
    form->addRow(makeLabel(this, tr("&Base Rate:"), baserate), baserate);
    form->addRow(makeLabel(this, tr("Color:"), colorButton), colorRow);

    auto* buttons = new QDialogButtonBox(this);
    auto* okButton = buttons->addButton(tr("OK"), QDialogButtonBox::AcceptRole);
    okButton->setObjectName(QStringLiteral("OKButton"));
    okButton->setDefault(true);
    auto* cancelButton = buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    cancelButton->setObjectName(QStringLiteral("CancelButton"));

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);

    binder_.line(title, model_.title);
    binder_.line(description, model_.description);
    binder_.line(baserate, model_.baserate);
    filterTypedKeys(baserate, [this](const QString& typed) { return model_.baserate_KeyPress(s_, ss(typed)); });
    onFocusOut(baserate, [this] {
        model_.baserate_LostFocus(s_);
        display();
    });
    connect(colorButton, &QPushButton::clicked, this, [this] { chooseColor(); });
    connect(okButton, &QPushButton::clicked, this, [this] { ok(); });
    connect(cancelButton, &QPushButton::clicked, this, [this] {
        if (model_.cancel()) reject();
    });
    display();
}

template <class Model>
void PositionWindow<Model>::display() {
    binder_.show();
    QPalette p = swatch_->palette();
    p.setColor(QPalette::Window, toQColor(model_.color));
    swatch_->setPalette(p);
}

template <class Model>
void PositionWindow<Model>::chooseColor() {
    const QColor chosen = QColorDialog::getColor(toQColor(model_.color), this, tr("Position Color"));
    if (!chosen.isValid()) return;
    model_.color = fromQColor(chosen);
    display();
}

template <class Model>
void PositionWindow<Model>::ok() {
    const bool closes = model_.ok();
    display();
    if (closes) accept();
}

PositionAddWindow::PositionAddWindow(common::Session& s, QWidget* parent)
    : PositionWindow(s, parent, "positionadd", tr("Add New Position")) {}

PositionEditWindow::PositionEditWindow(common::Session& s, const std::string& title, QWidget* parent)
    : PositionWindow(s, parent, "positionedit", tr("Edit Position"), title) {}

template class PositionWindow<reference::positionadd>;
template class PositionWindow<reference::positionedit>;

}  // namespace tallymere::app

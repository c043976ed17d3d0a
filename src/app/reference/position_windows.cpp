#include "app/reference/position_windows.h"

#include <QColorDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace tallymere::app {

namespace {

template <class Model>
QFormLayout* positionForm(QDialog* dialog, Binder& binder, Model& model, common::Session& s) {
    auto* title = new QLineEdit(dialog);
    title->setObjectName(QStringLiteral("title"));
    auto* description = new QLineEdit(dialog);
    description->setObjectName(QStringLiteral("description"));
    description->setMinimumWidth(260);
    auto* baserate = new QLineEdit(dialog);
    baserate->setObjectName(QStringLiteral("baserate"));
    baserate->setMaximumWidth(120);

    auto* swatch = new QLabel(dialog);
    swatch->setObjectName(QStringLiteral("colorswatch"));
    swatch->setFixedSize(48, 22);
    swatch->setFrameShape(QFrame::Box);
    swatch->setAutoFillBackground(true);
    auto* colorButton = makeButton(dialog, "Command3", QDialog::tr("C&olor..."));
    auto* colorRow = new QHBoxLayout;
    colorRow->addWidget(swatch);
    colorRow->addWidget(colorButton);
    colorRow->addStretch();

    auto* form = new QFormLayout;
    form->addRow(makeLabel(dialog, QDialog::tr("&Title:"), title), title);
    form->addRow(makeLabel(dialog, QDialog::tr("&Description:"), description), description);
    form->addRow(makeLabel(dialog, QDialog::tr("&Base Rate:"), baserate), baserate);
    form->addRow(makeLabel(dialog, QDialog::tr("Color:"), colorButton), colorRow);

    binder.line(title, model.title);
    binder.line(description, model.description);
    binder.line(baserate, model.baserate);
    filterTypedKeys(baserate, [&model, &s](const QString& typed) { return model.baserate_KeyPress(s, ss(typed)); });
    onFocusOut(baserate, [&model, &s, &binder] {
        model.baserate_LostFocus(s);
        binder.show();
    });
    binder.custom([swatch, &model] {
        QPalette p = swatch->palette();
        p.setColor(QPalette::Window, toQColor(model.color));
        swatch->setPalette(p);
    });
    QObject::connect(colorButton, &QPushButton::clicked, dialog, [dialog, &model, &binder] {
        const QColor chosen = QColorDialog::getColor(toQColor(model.color), dialog, QDialog::tr("Position Color"));
        if (!chosen.isValid()) return;
        model.color = fromQColor(chosen);
        binder.show();
    });
    return form;
}

}  // namespace

PositionAddWindow::PositionAddWindow(common::Session& s, QWidget* parent)
    : ModelDialog(parent, "positionadd", tr("Add New Position"), s) {
    finish(positionForm(this, binder_, model_, s));
}

PositionEditWindow::PositionEditWindow(common::Session& s, const std::string& title, QWidget* parent)
    : ModelDialog(parent, "positionedit", tr("Edit Position"), s, title) {
    finish(positionForm(this, binder_, model_, s));
}

}  // namespace tallymere::app

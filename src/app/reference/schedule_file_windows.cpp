#include "app/reference/schedule_file_windows.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace tallymere::app {

namespace {

// The model raised its flag: the caption and the schedule views follow, and the flag goes down.
void tell(AppContext& context, bool& scheduleChanged) {
    if (!scheduleChanged) return;
    scheduleChanged = false;
    context.scheduleChanged();
}

QVBoxLayout* buttonColumn(std::initializer_list<QPushButton*> buttons) {
    auto* column = new QVBoxLayout;
    for (QPushButton* b : buttons) column->addWidget(b);
    column->addStretch();
    return column;
}

// A name and a description over OK and Cancel, as `opennew` and `SaveAs` both have them. OK tells
// the application when the model changed the current schedule file.
template <class Model>
void nameDialog(QDialog* dialog, AppContext& context, Binder& binder, Model& model, const char* okName,
                std::function<bool()> okClick) {
    auto* ok = makeButton(dialog, okName, QDialog::tr("OK"));
    ok->setDefault(true);
    auto* cancel = makeButton(dialog, "Command2", QDialog::tr("Cancel"));
    QObject::connect(ok, &QPushButton::clicked, dialog, [dialog, &context, &model, okClick = std::move(okClick)] {
        const bool closes = okClick();
        tell(context, model.scheduleChanged);
        if (closes) dialog->accept();
    });
    QObject::connect(cancel, &QPushButton::clicked, dialog, [dialog, &model] {
        if (model.Command2_Click()) dialog->reject();
    });

    auto* schedname = new QLineEdit(dialog);
    schedname->setObjectName(QStringLiteral("schedname"));
    schedname->setMinimumWidth(280);
    auto* desc = new QLineEdit(dialog);
    desc->setObjectName(QStringLiteral("description"));
    binder.line(schedname, model.schedname);
    binder.line(desc, model.description);
    auto* form = new QFormLayout;
    form->addRow(makeLabel(dialog, QObject::tr("&Name:"), schedname), schedname);
    form->addRow(makeLabel(dialog, QObject::tr("&Description:"), desc), desc);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(dialog);
    layout->addLayout(form);
    layout->addLayout(buttons);
    // The fields first: the buttons were made before them.
    QWidget::setTabOrder(schedname, desc);
    QWidget::setTabOrder(desc, ok);
    QWidget::setTabOrder(ok, cancel);
    schedname->setFocus();
    binder.show();
}

}  // namespace

// ------------------------------------------------------------------------------------------------ Openfrm

OpenScheduleWindow::OpenScheduleWindow(AppContext& context, QWidget* parent)
    : QDialog(parent), context_(context), model_(context.session()), list_(this, model_, [this](int row) {
          model_.List1_Click(row);
          list_.display();
      }) {
    setObjectName(QStringLiteral("Openfrm"));
    setWindowTitle(qs(reference::Openfrm::kCaption));

    auto* okbutton = makeButton(this, "okbutton", tr("Open"));
    okbutton->setDefault(true);
    auto* command1 = makeButton(this, "Command1", tr("Change Name..."));
    auto* deletebutton = makeButton(this, "deletebutton", tr("Delete"));
    auto* cancelbutton = makeButton(this, "cancelbutton", tr("&Close"));
    connect(okbutton, &QPushButton::clicked, this, [this] { open(); });
    connect(list_.list(), &QListWidget::itemDoubleClicked, this, [this] {
        if (model_.List1_DblClick()) {
            afterChange();
            accept();
        }
    });
    connect(command1, &QPushButton::clicked, this, [this] { changeName(); });
    connect(deletebutton, &QPushButton::clicked, this, [this] {
        model_.deletebutton_Click();
        list_.display();
        afterChange();
    });
    connect(cancelbutton, &QPushButton::clicked, this, [this] {
        if (model_.cancelbutton_Click()) reject();
    });

    auto* layout = new QHBoxLayout(this);
    layout->addLayout(list_.layout(), 1);
    layout->addLayout(buttonColumn({okbutton, command1, deletebutton, cancelbutton}));
    list_.display();
}

void OpenScheduleWindow::afterChange() { tell(context_, model_.scheduleChanged); }

void OpenScheduleWindow::open() {
    if (!model_.okbutton_Click()) return;
    afterChange();
    accept();
}

void OpenScheduleWindow::changeName() {
    const auto id = model_.Command1_Click();
    if (!id) return;
    ScheduleNameWindow window(context_, *id, this);
    window.exec();
    model_.fillList();
    list_.display();
}

// ------------------------------------------------------------------------------------------------ opennew

ScheduleNameWindow::ScheduleNameWindow(AppContext& context, std::optional<long> id, QWidget* parent)
    : QDialog(parent),
      context_(context),
      model_(id ? reference::opennew(context.session(), *id) : reference::opennew(context.session())) {
    setObjectName(QStringLiteral("opennew"));
    setWindowTitle(qs(model_.Caption));
    nameDialog(this, context_, binder_, model_, "Command1", [this] { return model_.Command1_Click(); });
}

// ------------------------------------------------------------------------------------------------ SaveAs

SaveAsWindow::SaveAsWindow(AppContext& context, QWidget* parent)
    : QDialog(parent), context_(context), model_(context.session()) {
    setObjectName(QStringLiteral("SaveAs"));
    setWindowTitle(qs(reference::SaveAs::kCaption));
    nameDialog(this, context_, binder_, model_, "OKButton", [this] { return model_.OKButton_Click(); });
}

// ------------------------------------------------------------------------------------------------ deletesched

DeleteScheduleWindow::DeleteScheduleWindow(AppContext& context, QWidget* parent)
    : QDialog(parent), context_(context), model_(context.session()), list_(this, model_, [this](int row) {
          model_.List1_Click(row);
          list_.display();
      }) {
    setObjectName(QStringLiteral("deletesched"));
    setWindowTitle(qs(reference::deletesched::kCaption));
    auto* deletebutton = makeButton(this, "deletebutton", tr("&Delete"));
    auto* command1 = makeButton(this, "Command1", tr("&Close"));
    connect(deletebutton, &QPushButton::clicked, this, [this] {
        model_.deletebutton_Click();
        list_.display();
        tell(context_, model_.scheduleChanged);
    });
    connect(command1, &QPushButton::clicked, this, [this] {
        if (model_.Command1_Click()) reject();
    });
    auto* layout = new QHBoxLayout(this);
    layout->addLayout(list_.layout(), 1);
    layout->addLayout(buttonColumn({deletebutton, command1}));
    list_.display();
}

}  // namespace tallymere::app

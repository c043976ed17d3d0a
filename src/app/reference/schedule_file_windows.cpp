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

QFormLayout* nameForm(QWidget* parent, Binder& binder, std::string& name, std::string& description) {
    auto* schedname = new QLineEdit(parent);
    schedname->setObjectName(QStringLiteral("schedname"));
    schedname->setMinimumWidth(280);
    auto* desc = new QLineEdit(parent);
    desc->setObjectName(QStringLiteral("description"));
    binder.line(schedname, name);
    binder.line(desc, description);
    auto* form = new QFormLayout;
    form->addRow(makeLabel(parent, QObject::tr("&Name:"), schedname), schedname);
    form->addRow(makeLabel(parent, QObject::tr("&Description:"), desc), desc);
    return form;
}

QHBoxLayout* okCancel(QPushButton* ok, QPushButton* cancel) {
    ok->setDefault(true);
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(ok);
    row->addWidget(cancel);
    return row;
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
    auto* ok = makeButton(this, "Command1", tr("OK"));
    auto* cancel = makeButton(this, "Command2", tr("Cancel"));
    connect(ok, &QPushButton::clicked, this, [this] {
        const bool closes = model_.Command1_Click();
        tell(context_, model_.scheduleChanged);
        if (closes) accept();
    });
    connect(cancel, &QPushButton::clicked, this, [this] {
        if (model_.Command2_Click()) reject();
    });
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(nameForm(this, binder_, model_.schedname, model_.description));
    layout->addLayout(okCancel(ok, cancel));
    binder_.show();
}

// ------------------------------------------------------------------------------------------------ SaveAs

SaveAsWindow::SaveAsWindow(AppContext& context, QWidget* parent)
    : QDialog(parent), context_(context), model_(context.session()) {
    setObjectName(QStringLiteral("SaveAs"));
    setWindowTitle(qs(reference::SaveAs::kCaption));
    auto* ok = makeButton(this, "OKButton", tr("OK"));
    auto* cancel = makeButton(this, "Command2", tr("Cancel"));
    connect(ok, &QPushButton::clicked, this, [this] {
        const bool closes = model_.OKButton_Click();
        tell(context_, model_.scheduleChanged);
        if (closes) accept();
    });
    connect(cancel, &QPushButton::clicked, this, [this] {
        if (model_.Command2_Click()) reject();
    });
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(nameForm(this, binder_, model_.schedname, model_.description));
    layout->addLayout(okCancel(ok, cancel));
    binder_.show();
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

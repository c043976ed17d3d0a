#include "app/reference/edit_staff_window.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QVBoxLayout>

namespace tallymere::app {

EditStaffWindow::EditStaffWindow(AppContext& context, QWidget* parent)
    : EmployeeWindow(context, parent), model_(context.session()), list1_(new QListWidget(this)) {
    setObjectName(QStringLiteral("EditStaff"));
    list1_->setObjectName(QStringLiteral("List1"));
    list1_->setFixedWidth(180);
    QTabWidget* tabs = buildTabs(model_);

    auto* save = makeButton(this, "savebutton", tr("&Save"));
    auto* close = makeButton(this, "closebutton", tr("&Close"));
    connect(save, &QPushButton::clicked, this, [this] { this->save(); });
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(save);
    buttons->addWidget(close);

    auto* body = new QHBoxLayout;
    body->addWidget(list1_);
    body->addWidget(tabs, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(body, 1);
    layout->addLayout(buttons);

    // Another employee is chosen by selecting a row, not by the list taking the focus.
    connect(list1_, &QListWidget::itemSelectionChanged, this, [this] {
        const int row = selectedRow(list1_);
        if (row == model_.List1.ListIndex) return;
        model_.List1.ListIndex = row;
        // On failure the model has put its own employee back in the list.
        model_.List1Click();
        display();
    });

    loaded_ = model_.Load();
    display();
}

void EditStaffWindow::display() {
    {
        const QSignalBlocker quiet(list1_);
        bool same = list1_->count() == static_cast<int>(model_.List1.size());
        for (int i = 0; same && i < list1_->count(); ++i)
            same = list1_->item(i)->text() == qs(model_.List1.items[static_cast<std::size_t>(i)]);
        if (!same) {
            list1_->clear();
            for (const auto& item : model_.List1.items) list1_->addItem(qs(item));
        }
        list1_->setCurrentRow(model_.List1.ListIndex);
    }
    EmployeeWindow::display();
}

void EditStaffWindow::save() {
    if (model_.Save()) context_.employeesChanged();
    display();
}

}  // namespace tallymere::app

#include "app/reference/edit_staff_new_window.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace tallymere::app {

EditStaffNewWindow::EditStaffNewWindow(AppContext& context, QWidget* parent)
    : EmployeeWindow(context, parent), model_(context.session()) {
    setObjectName(QStringLiteral("EditStaffnew"));
    QTabWidget* tabs = buildTabs(model_);

    auto* save = makeButton(this, "savebutton", tr("&Save"));
    auto* cancel = makeButton(this, "closebutton", tr("&Cancel"));
    connect(save, &QPushButton::clicked, this, [this] {
        const bool created = model_.Save();
        display();
        if (created) accept();
    });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(save);
    buttons->addWidget(cancel);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs, 1);
    layout->addLayout(buttons);

    loaded_ = model_.Load();
    display();
}

}  // namespace tallymere::app

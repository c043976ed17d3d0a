#include "app/reference/person_list_window.h"

#include "app/reference/add_staff_window.h"
#include "app/reference/reference_windows.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tallymere::app {

PersonListWindow::PersonListWindow(AppContext& context, QWidget* parent)
    : QWidget(parent),
      context_(context),
      model_(context.session()),
      grid_(makeGrid(this, "grid1", columnTitles(reference::PersonListFrm::kColumns))) {
    setObjectName(QStringLiteral("PersonListFrm"));
    setWindowTitle(tr("Employees"));

    auto* add = makeButton(this, "addbutton", tr("&Add..."));
    auto* quickAdd = makeButton(this, "quickaddbutton", tr("&Quick Add..."));
    auto* edit = makeButton(this, "editbutton", tr("&Edit..."));
    auto* remove = makeButton(this, "deletebutton", tr("&Delete"));
    connect(add, &QPushButton::clicked, this, [this] { this->add(); });
    connect(quickAdd, &QPushButton::clicked, this, [this] { this->quickAdd(); });
    connect(edit, &QPushButton::clicked, this, [this] { this->edit(); });
    connect(grid_, &QTableWidget::cellDoubleClicked, this, [this](int, int) { this->edit(); });
    connect(remove, &QPushButton::clicked, this, [this] {
        if (model_.deletebutton()) context_.employeesChanged();
        display();
    });
    bindGridRow(grid_, model_.row);

    auto* buttons = new QVBoxLayout;
    for (QPushButton* b : {add, quickAdd, edit, remove}) buttons->addWidget(b);
    buttons->addStretch();
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(grid_, 1);
    layout->addLayout(buttons);

    refreshWindow();
}

void PersonListWindow::refreshWindow() {
    model_.Refresh();
    display();
}

void PersonListWindow::display() {
    std::vector<std::vector<std::string>> rows;
    for (const auto& p : model_.grid1) rows.push_back({p.LastName, p.FirstName, p.Position, p.Status});
    fillGrid(grid_, rows, model_.row);
}

void PersonListWindow::add() {
    if (!model_.addbutton()) return;
    openEditStaffNew(context_, this);
}

void PersonListWindow::quickAdd() {
    // The short window adds as much as the full one; the same right guards both.
    if (!model_.addbutton()) return;
    AddStaffWindow window(context_.session(), this);
    if (window.exec() == QDialog::Accepted) employeesChanged(context_);
}

void PersonListWindow::edit() {
    if (!model_.editbutton()) return;
    openEditStaff(context_, this);
}

}  // namespace tallymere::app

#include "app/reference/settings_window.h"

#include "app/reference/position_windows.h"
#include "app/reference/section_windows.h"
#include "app/reference/shift_windows.h"
#include "common/text.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tallymere::app {

using reference::settings;

namespace {

const QString kNoReportEngine = QStringLiteral("Printing comes with the report engine");

// Each row of the position grid shows its position's colour; the selected row keeps it and is framed
// instead of filled.
class ColourRowDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* p, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyleOptionViewItem plain(option);
        plain.state &= ~(QStyle::State_Selected | QStyle::State_HasFocus);
        QStyledItemDelegate::paint(p, plain, index);
        if (!(option.state & QStyle::State_Selected)) return;
        p->save();
        p->setPen(QPen(option.palette.color(QPalette::Highlight), 2));
        const QRect r = option.rect.adjusted(0, 1, 0, -1);
        p->drawLine(r.topLeft(), r.topRight());
        p->drawLine(r.bottomLeft(), r.bottomRight());
        if (index.column() == 0) p->drawLine(r.topLeft() + QPoint(1, 0), r.bottomLeft() + QPoint(1, 0));
        if (index.column() == index.model()->columnCount() - 1)
            p->drawLine(r.topRight() - QPoint(1, 0), r.bottomRight() - QPoint(1, 0));
        p->restore();
    }
};

template <class Row, class Key>
int rowOf(const std::vector<Row>& rows, const std::string& name, Key key) {
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (common::equalsNoCase(rows[i].*key, common::trim(name))) return static_cast<int>(i);
    return -1;
}

}  // namespace

SettingsWindow::SettingsWindow(AppContext& context, int tab, QWidget* parent)
    : QWidget(parent),
      context_(context),
      model_(context.session(), tab),
      tabs_(new QTabWidget(this)),
      shiftgrid_(makeGrid(this, "shiftgrid", columnTitles(settings::kShiftColumns))),
      positiongrid_(makeGrid(this, "positiongrid", columnTitles(settings::kPositionColumns))),
      groupgrid_(makeGrid(this, "groupgrid", columnTitles(settings::kSectionColumns))) {
    setObjectName(QStringLiteral("settings"));
    setWindowTitle(tr("Shifts, Positions and Sections"));
    tabs_->setObjectName(QStringLiteral("SSTab1"));

    tabs_->addTab(makeTab(
                      "Shift", shiftgrid_, [this] { addShift(); }, [this] { editShift(); },
                      [this] {
                          if (model_.deleteShift()) context_.referenceListsChanged();
                          display();
                      }),
                  tr("&Shifts"));
    tabs_->addTab(makeTab(
                      "Position", positiongrid_, [this] { addPosition(); }, [this] { editPosition(); },
                      [this] {
                          if (model_.deletePosition()) context_.referenceListsChanged();
                          display();
                      }),
                  tr("&Positions"));
    tabs_->addTab(makeTab(
                      "Section", groupgrid_, [this] { addSection(); }, [this] { editSection(); },
                      [this] {
                          if (model_.deleteSection()) context_.referenceListsChanged();
                          display();
                      }),
                  tr("S&ections"));
    positiongrid_->setItemDelegate(new ColourRowDelegate(positiongrid_));

    bindGridRow(shiftgrid_, model_.shiftgridRow);
    bindGridRow(positiongrid_, model_.positiongridRow);
    bindGridRow(groupgrid_, model_.groupgridRow);
    connect(tabs_, &QTabWidget::currentChanged, this, [this](int index) { model_.SSTab1 = index; });

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs_);
    display();
}

QWidget* SettingsWindow::makeTab(const char* what, QTableWidget* grid, const std::function<void()>& add,
                                 const std::function<void()>& edit, const std::function<void()>& remove) {
    auto* page = new QWidget(tabs_);
    const std::string base(what);
    const auto name = [&](const char* verb) { return std::string(verb) + base + "Button"; };
    auto* addButton = makeButton(page, name("add").c_str(), tr("&Add..."));
    auto* editButton = makeButton(page, name("edit").c_str(), tr("&Edit..."));
    auto* deleteButton = makeButton(page, name("delete").c_str(), tr("&Delete"));
    auto* previewButton = makeButton(page, name("preview").c_str(), tr("Pre&view"));
    auto* printButton = makeButton(page, name("print").c_str(), tr("P&rint..."));
    // Shown, so the user knows they exist, but not pretending to work.
    for (QPushButton* b : {previewButton, printButton}) {
        b->setEnabled(false);
        b->setToolTip(kNoReportEngine);
    }
    connect(addButton, &QPushButton::clicked, this, add);
    connect(editButton, &QPushButton::clicked, this, edit);
    connect(deleteButton, &QPushButton::clicked, this, remove);
    connect(grid, &QTableWidget::cellDoubleClicked, this, [edit](int, int) { edit(); });

    auto* buttons = new QVBoxLayout;
    for (QPushButton* b : {addButton, editButton, deleteButton}) buttons->addWidget(b);
    buttons->addSpacing(12);
    for (QPushButton* b : {previewButton, printButton}) buttons->addWidget(b);
    buttons->addStretch();

    auto* layout = new QHBoxLayout(page);
    grid->setParent(page);
    layout->addWidget(grid, 1);
    layout->addLayout(buttons);
    return page;
}

void SettingsWindow::showTab(int tab) {
    model_.SSTab1 = tab;
    const QSignalBlocker quiet(tabs_);
    tabs_->setCurrentIndex(tab);
}

void SettingsWindow::refreshWindow() {
    model_.Refresh();
    display();
}

void SettingsWindow::display() {
    std::vector<std::vector<std::string>> rows;
    for (const auto& r : model_.shiftgrid) rows.push_back({r.name, r.startTime, r.endTime, r.length, r.description});
    fillGrid(shiftgrid_, rows, model_.shiftgridRow);

    rows.clear();
    for (const auto& r : model_.positiongrid) rows.push_back({r.title, r.baserate, r.description});
    fillGrid(positiongrid_, rows, model_.positiongridRow);
    for (int r = 0; r < positiongrid_->rowCount(); ++r) {
        const QColor color = toQColor(model_.positiongrid[static_cast<std::size_t>(r)].color);
        for (int c = 0; c < positiongrid_->columnCount(); ++c) {
            positiongrid_->item(r, c)->setBackground(color);
            positiongrid_->item(r, c)->setForeground(textColorOn(color));
        }
    }

    rows.clear();
    for (const auto& r : model_.groupgrid) rows.push_back({r.name, r.description});
    fillGrid(groupgrid_, rows, model_.groupgridRow);

    showTab(model_.SSTab1);
}

void SettingsWindow::changed(int tab, const std::string& name) {
    model_.Refresh();
    if (tab == settings::ShiftsTab) {
        if (const int r = rowOf(model_.shiftgrid, name, &reference::ShiftRow::name); r >= 0) model_.shiftgridRow = r;
    } else if (tab == settings::PositionsTab) {
        if (const int r = rowOf(model_.positiongrid, name, &reference::PositionRow::title); r >= 0)
            model_.positiongridRow = r;
    } else if (const int r = rowOf(model_.groupgrid, name, &reference::SectionRow::name); r >= 0) {
        model_.groupgridRow = r;
    }
    display();
    context_.referenceListsChanged();
}

void SettingsWindow::addShift() {
    if (!model_.addShift()) return;
    ShiftAddWindow window(context_.session(), this);
    if (window.exec() == QDialog::Accepted) changed(settings::ShiftsTab, window.model().name);
}

void SettingsWindow::editShift() {
    const auto name = model_.editShift();
    if (!name) return;
    EditShiftWindow window(context_.session(), *name, this);
    if (window.exec() == QDialog::Accepted) changed(settings::ShiftsTab, window.model().name);
}

void SettingsWindow::addPosition() {
    if (!model_.addPosition()) return;
    PositionAddWindow window(context_.session(), this);
    if (window.exec() == QDialog::Accepted) changed(settings::PositionsTab, window.model().title);
}

void SettingsWindow::editPosition() {
    const auto title = model_.editPosition();
    if (!title) return;
    PositionEditWindow window(context_.session(), *title, this);
    if (window.exec() == QDialog::Accepted) changed(settings::PositionsTab, window.model().title);
}

void SettingsWindow::addSection() {
    if (!model_.addSection()) return;
    GroupAddWindow window(context_.session(), this);
    if (window.exec() == QDialog::Accepted) changed(settings::SectionsTab, window.model().name);
}

void SettingsWindow::editSection() {
    const auto name = model_.editSection();
    if (!name) return;
    GroupEditWindow window(context_.session(), *name, this);
    if (window.exec() == QDialog::Accepted) changed(settings::SectionsTab, window.model().name);
}

}  // namespace tallymere::app

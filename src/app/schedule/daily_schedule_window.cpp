#include "app/schedule/daily_schedule_window.h"

#include "app/common/qt_ui.h"
#include "app/common/window_place.h"
#include "app/reference/reference_windows.h"
#include "app/render/qt_printer.h"
#include "app/schedule/daily_entry_dialog.h"
#include "app/schedule/employee_pictures.h"
#include "common/session.h"
#include "shell/main_form.h"
#include "store/options.h"

#include <QApplication>
#include <QComboBox>
#include <QDrag>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QSplitter>
#include <QStackedWidget>
#include <QTableWidget>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace tallymere::app {

namespace {

using schedule::DailyGrid;
using schedule::GridKey;
using schedule::MouseButton;

// The grid's widths are kept in twips, 15 to a pixel at the usual resolution.

MouseButton toButton(Qt::MouseButton button) {
    switch (button) {
    case Qt::RightButton: return MouseButton::Right;
    case Qt::MiddleButton: return MouseButton::Middle;
    default: return MouseButton::Left;
    }
}

GridKey toGridKey(int key) {
    switch (key) {
    case Qt::Key_Delete: return GridKey::Delete;
    case Qt::Key_Up: return GridKey::Up;
    case Qt::Key_Down: return GridKey::Down;
    case Qt::Key_Left: return GridKey::Left;
    case Qt::Key_Right: return GridKey::Right;
    case Qt::Key_X: return GridKey::X;
    case Qt::Key_C: return GridKey::C;
    case Qt::Key_V: return GridKey::V;
    case Qt::Key_6: return GridKey::Six;
    default: return GridKey::Other;
    }
}

QLabel* panelLabel(QWidget* parent, const char* objectName) {
    auto* label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(objectName));
    return label;
}

}  // namespace

DailyScheduleWindow::DailyScheduleWindow(AppContext& context, QWidget* parent)
    : QWidget(parent), context_(context), model_(context.session(), context.mainForm()) {
    setObjectName(QString::fromLatin1(schedule::dailyflexgrid::kWindowName));
    setWindowTitle(QString::fromLatin1(schedule::dailyflexgrid::kCaption));

    datelabel_ = new QLabel(this);
    datelabel_->setObjectName(QStringLiteral("datelabeldailyflex"));
    QFont heading = datelabel_->font();
    heading.setBold(true);
    heading.setPointSizeF(heading.pointSizeF() * 1.25);
    datelabel_->setFont(heading);

    buildGrid1();
    buildWeekPage();
    pages_ = new QStackedWidget(this);
    pages_->setObjectName(QStringLiteral("pages"));
    pages_->addWidget(grid1_);
    pages_->addWidget(grid2_->parentWidget());
    buildEmployeeList();

    auto* add = makeButton(this, "addfromlv", tr("&Add"));
    auto* edit = makeButton(this, "Command2", tr("&Edit"));
    auto* remove = makeButton(this, "Command3", tr("&Delete"));
    auto* refresh = makeButton(this, "Command4", tr("&Refresh"));
    auto* preview = makeButton(this, "PreviewButton", tr("Pre&view"));
    auto* print = makeButton(this, "PrintButton", tr("&Print"));
    connect(preview, &QPushButton::clicked, this, [this] { previewReport(); });
    connect(print, &QPushButton::clicked, this, [this] {
        render::QtPrinter printer(context_.mainWindow());
        printReport(printer, {});
    });
    connect(add, &QPushButton::clicked, this, [this] { addFromQuickBar(); });
    connect(edit, &QPushButton::clicked, this, [this] { editEntry(false); });
    connect(remove, &QPushButton::clicked, this, [this] { deleteEntries(); });
    connect(refresh, &QPushButton::clicked, this, [this] { refreshWindow(); });

    laborEstimate_ = panelLabel(this, "LaborEstimate");
    totalHours_ = panelLabel(this, "TotalHours");

    auto* top = new QHBoxLayout;
    top->addWidget(datelabel_);
    top->addStretch();
    top->addWidget(laborEstimate_);
    top->addSpacing(16);
    top->addWidget(totalHours_);

    auto* side = new QWidget(this);
    auto* sideLayout = new QVBoxLayout(side);
    sideLayout->setContentsMargins(0, 0, 0, 0);
    sideLayout->addWidget(lstlist_, 1);
    sideLayout->addWidget(buildPanel());

    auto* splitter = new QSplitter(Qt::Horizontal, this);
    splitter->setObjectName(QStringLiteral("splitter"));
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(pages_);
    splitter->addWidget(side);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({700, 260});

    auto* buttons = new QHBoxLayout;
    for (QPushButton* b : {add, edit, remove, refresh}) buttons->addWidget(b);
    buttons->addStretch();
    buttons->addWidget(preview);
    buttons->addWidget(print);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(splitter, 1);
    layout->addLayout(buttons);

    applyGridFont();
    setTabOrder(grid1_, lstlist_);
    // Filled at once: at a start without an open schedule file nobody else asks for it.
    updailyflexform();
}

DailyScheduleWindow::~DailyScheduleWindow() = default;

// ---------------------------------------------------------------------------------------------
// Building

void DailyScheduleWindow::buildGrid1() {
    grid1_ = new QTableWidget(0, DailyGrid::kCols, this);
    grid1_->setObjectName(QStringLiteral("grid1"));
    grid1_->setHorizontalHeaderLabels(columnTitles(DailyGrid::kCaptions));
    grid1_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid1_->setSelectionBehavior(QAbstractItemView::SelectRows);
    grid1_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    grid1_->verticalHeader()->hide();
    grid1_->verticalHeader()->setDefaultSectionSize(grid1_->fontMetrics().height() + 8);
    grid1_->setWordWrap(false);
    grid1_->horizontalHeader()->setHighlightSections(false);
    // The model keeps the selection; the grid only shows it. Presses, moves, keys and drops all go
    // through the hooks below first.
    grid1_->viewport()->setAcceptDrops(true);
    hookEvents(grid1_->viewport(), [this](QEvent* e) { return grid1MouseEvent(e) || grid1DropEvent(e); });
    hookEvents(grid1_, [this](QEvent* e) {
        if (e->type() == QEvent::Resize) QTimer::singleShot(0, this, [this] { fitNoteColumn(); });
        return grid1KeyEvent(e);
    });
}

void DailyScheduleWindow::buildEmployeeList() {
    lstlist_ = new QTreeWidget(this);
    lstlist_->setObjectName(QStringLiteral("lstlist"));
    lstlist_->setRootIsDecorated(false);
    lstlist_->setUniformRowHeights(true);
    lstlist_->setColumnCount(2);
    lstlist_->setSelectionMode(QAbstractItemView::SingleSelection);
    lstlist_->header()->setSectionsClickable(true);
    lstlist_->header()->setStretchLastSection(false);
    lstlist_->header()->setSectionResizeMode(QHeaderView::Stretch);
    lstlist_->setContextMenuPolicy(Qt::CustomContextMenu);
    // The selection, not the keyboard's current row: tabbing into the list picks nobody.
    connect(lstlist_, &QTreeWidget::itemSelectionChanged, this, [this] {
        const QList<QTreeWidgetItem*> picked = lstlist_->selectedItems();
        if (showing_ || picked.isEmpty()) return;
        runAndShow([this, row = lstlist_->indexOfTopLevelItem(picked.first())] { model_.lstlist_Click(row); });
    });
    connect(lstlist_, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem*) {
        if (model_.lstlist_DblClick()) openEditStaff(context_, context_.mainWindow());
    });
    connect(lstlist_->header(), &QHeaderView::sectionClicked, this, [this](int section) {
        // Header 1 is the name wherever it stands.
        const bool nameClicked = (section == 0) != model_.lstlist.positionFirst();
        runAndShow([this, nameClicked] { model_.lstlist_ColumnClick(nameClicked ? 1 : 2); });
    });
    connect(lstlist_, &QWidget::customContextMenuRequested, this, [this](const QPoint& pos) {
        if (QMenu* menu = context_.popupMenu("mnudailygridlistviewrightclick"))
            menu->exec(lstlist_->viewport()->mapToGlobal(pos));
    });
    hookEvents(lstlist_->viewport(), [this](QEvent* e) { return lstlistMouseEvent(e); });
}

void DailyScheduleWindow::buildWeekPage() {
    auto* page = new QWidget(this);
    filtercombo_ = new QComboBox(page);
    filtercombo_->setObjectName(QStringLiteral("filtercombo"));
    connect(filtercombo_, &QComboBox::activated, this, [this](int index) {
        model_.filtercombo.ListIndex = index;
        runAndShow([this] { model_.filtercombo_Click(); });
    });
    grid2_ = new QTableWidget(0, 9, page);
    grid2_->setObjectName(QStringLiteral("grid2"));
    grid2_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid2_->setSelectionBehavior(QAbstractItemView::SelectRows);
    grid2_->verticalHeader()->hide();
    grid2_->setWordWrap(true);

    auto* filterRow = new QHBoxLayout;
    filterRow->addWidget(makeLabel(page, tr("&Show:"), filtercombo_));
    filterRow->addWidget(filtercombo_);
    filterRow->addStretch();
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(filterRow);
    layout->addWidget(grid2_, 1);
}

QWidget* DailyScheduleWindow::buildPanel() {
    employeeframe_ = new QGroupBox(this);
    employeeframe_->setObjectName(QStringLiteral("employeeframe"));
    todayLabel_ = panelLabel(employeeframe_, "TodayLabel");
    weekofLabel_ = panelLabel(employeeframe_, "WeekofLabel");
    totalHoursLabel_ = panelLabel(employeeframe_, "TotalHoursLabel");
    hoursRequestedLabel_ = panelLabel(employeeframe_, "HoursRequestedLabel");
    numHoursTodayLabel_ = panelLabel(employeeframe_, "NumHoursTodayLabel");
    leaveLabel_ = panelLabel(employeeframe_, "LeaveLabel");
    numShiftsLabel_ = panelLabel(employeeframe_, "NumShiftsLabel");
    leaveLabel_->setWordWrap(true);
    auto* layout = new QVBoxLayout(employeeframe_);
    for (QLabel* l : {todayLabel_, numHoursTodayLabel_, numShiftsLabel_, leaveLabel_, weekofLabel_, totalHoursLabel_,
                      hoursRequestedLabel_})
        layout->addWidget(l);
    return employeeframe_;
}

void DailyScheduleWindow::applyGridFont() {
    const common::GlobalSettings& settings = context_.session().settings;
    QFont font = grid1_->font();
    if (!settings.gs_PrintGridFont.empty()) font.setFamily(qs(settings.gs_PrintGridFont));
    // The printed size would be too small to read on most screens; the screen's own size is the floor.
    if (settings.gi_PrintGridFontSize > 0)
        font.setPointSize(std::max(settings.gi_PrintGridFontSize, QApplication::font().pointSize()));
    font.setBold(settings.gb_PrintGridFontBold);
    font.setItalic(settings.gb_PrintGridFontItalic);
    grid1_->setFont(font);
    grid1_->verticalHeader()->setDefaultSectionSize(QFontMetrics(font).height() + 8);
}

// ---------------------------------------------------------------------------------------------
// Showing the model

void DailyScheduleWindow::display() {
    showing_ = true;
    datelabel_->setText(qs(model_.datelabeldailyflex));
    pages_->setCurrentIndex(model_.weekView ? 1 : 0);
    showGrid1();
    showEmployeeList();
    showPanel();
    if (model_.weekView) showWeekGrid();
    showing_ = false;
}

void DailyScheduleWindow::showGrid1() {
    const DailyGrid& g = model_.grid1;
    grid1_->setRowCount(static_cast<int>(g.rows.size()));
    for (int c = 0; c < DailyGrid::kCols; ++c) {
        if (!g.captions[static_cast<std::size_t>(c)].empty())
            grid1_->horizontalHeaderItem(c)->setText(qs(g.captions[static_cast<std::size_t>(c)]));
        if (const int twips = g.ColWidth[static_cast<std::size_t>(c)]; twips > 0)
            grid1_->setColumnWidth(c, twips / kTwipsPerPixel);
    }
    for (int r = 0; r < static_cast<int>(g.rows.size()); ++r) {
        const DailyGrid::Entry& entry = g.rows[static_cast<std::size_t>(r)];
        for (int c = 0; c < DailyGrid::kCols; ++c) {
            const schedule::GridCell& cell = entry.cells[static_cast<std::size_t>(c)];
            QTableWidgetItem* item = grid1_->item(r, c);
            if (!item) {
                item = new QTableWidgetItem;
                grid1_->setItem(r, c, item);
            }
            item->setText(qs(cell.text));
            if (cell.background) {
                const QColor colour(static_cast<QRgb>(*cell.background));
                item->setBackground(colour);
                item->setForeground(textColorOn(colour));
            } else {
                item->setData(Qt::BackgroundRole, QVariant());
                item->setData(Qt::ForegroundRole, QVariant());
            }
            if (c == 0) item->setData(Qt::UserRole, QVariant::fromValue<qlonglong>(entry.schedid));
        }
    }
    showGrid1Selection();
}

void DailyScheduleWindow::showGrid1Selection() {
    const DailyGrid& g = model_.grid1;
    QItemSelectionModel* selection = grid1_->selectionModel();
    const QSignalBlocker block(selection);
    selection->clearSelection();
    const int first = g.firstSelected();
    if (first >= 1) {
        const QModelIndex from = grid1_->model()->index(first - 1, 0);
        const QModelIndex to = grid1_->model()->index(g.lastSelected() - 1, DailyGrid::kCols - 1);
        selection->select(QItemSelection(from, to), QItemSelectionModel::Select);
    }
    if (g.Row >= 1 && g.Row < g.Rows())
        selection->setCurrentIndex(grid1_->model()->index(g.Row - 1, 0), QItemSelectionModel::NoUpdate);
    grid1_->viewport()->update();
}

void DailyScheduleWindow::showEmployeeList() {
    const schedule::EmployeeList& list = model_.lstlist;
    const bool positionFirst = list.positionFirst();
    lstlist_->setHeaderLabels(positionFirst ? QStringList{tr("Position"), tr("Name")}
                                            : QStringList{tr("Name"), tr("Position")});
    const int count = static_cast<int>(list.rows.size());
    while (lstlist_->topLevelItemCount() > count) delete lstlist_->takeTopLevelItem(lstlist_->topLevelItemCount() - 1);
    while (lstlist_->topLevelItemCount() < count) lstlist_->addTopLevelItem(new QTreeWidgetItem);
    for (int i = 0; i < count; ++i) {
        const schedule::EmployeeList::Row& row = list.rows[static_cast<std::size_t>(i)];
        QTreeWidgetItem* item = lstlist_->topLevelItem(i);
        const int nameColumn = positionFirst ? 1 : 0;
        item->setText(nameColumn, qs(row.name));
        item->setText(1 - nameColumn, qs(row.position));
        item->setIcon(0, employeePicture(row.picture));
        item->setIcon(1, QIcon());
        item->setToolTip(0, employeePictureText(row.picture));
        item->setData(0, Qt::UserRole, QVariant::fromValue<qlonglong>(row.personid));
    }
    if (list.selected >= 0 && list.selected < count) lstlist_->setCurrentItem(lstlist_->topLevelItem(list.selected));
}

void DailyScheduleWindow::showPanel() {
    employeeframe_->setTitle(qs(model_.employeeframe));
    todayLabel_->setText(qs(model_.TodayLabel));
    weekofLabel_->setText(qs(model_.WeekofLabel));
    totalHoursLabel_->setText(qs(model_.TotalHoursLabel));
    hoursRequestedLabel_->setText(qs(model_.HoursRequestedLabel));
    numHoursTodayLabel_->setText(qs(model_.NumHoursTodayLabel));
    leaveLabel_->setText(qs(model_.LeaveLabel));
    numShiftsLabel_->setText(qs(model_.NumShiftsLabel));
    laborEstimate_->setText(qs(model_.LaborEstimate));
    laborEstimate_->setVisible(model_.LaborEstimateVisible);
    totalHours_->setText(qs(model_.TotalHours));
}

void DailyScheduleWindow::showWeekGrid() {
    showChoices(filtercombo_, model_.filtercombo);
    const schedule::WeekGrid& g = model_.grid2;
    QStringList captions;
    for (const std::string& caption : g.captions) captions << qs(caption);
    grid2_->setHorizontalHeaderLabels(captions);
    grid2_->setRowCount(static_cast<int>(g.rows.size()));
    for (int r = 0; r < static_cast<int>(g.rows.size()); ++r) {
        const schedule::WeekGrid::Row& row = g.rows[static_cast<std::size_t>(r)];
        QStringList cells{qs(row.name), qs(row.hours)};
        for (const std::string& day : row.days) cells << qs(day);
        for (int c = 0; c < cells.size(); ++c) {
            QTableWidgetItem* item = grid2_->item(r, c);
            if (!item) {
                item = new QTableWidgetItem;
                grid2_->setItem(r, c, item);
            }
            item->setText(cells[c]);
            item->setTextAlignment(c >= 2 ? Qt::AlignLeft | Qt::AlignTop : Qt::AlignLeft | Qt::AlignVCenter);
        }
    }
    // Each entry takes two lines: the columns fit the longest line, the rows grow to fit the lines.
    grid2_->resizeColumnsToContents();
    for (int c = 2; c < grid2_->columnCount(); ++c) grid2_->setColumnWidth(c, std::max(grid2_->columnWidth(c), 96));
    grid2_->resizeRowsToContents();
}

// ---------------------------------------------------------------------------------------------
// The main window's requests

void DailyScheduleWindow::updailyflexform() {
    runAndShow([this] { model_.updailyflexform(); });
}

void DailyScheduleWindow::UpDailyGridUpEmpl() {
    // Only the active window reads its list at once; behind others the list waits for its
    // activation, while the grid shows changed names at once.
    if (model_.activeWindow) {
        runAndShow([this] { model_.UpDailyGridUpEmpl(); });
        return;
    }
    model_.employeeListStale = true;
    runAndShow([this] { model_.RefreshDailyGrid(); });
}

void DailyScheduleWindow::quickBarTimesChanged() {
    runAndShow([this] { model_.MarkEmployeeList(); });
}

void DailyScheduleWindow::activated() {
    runAndShow([this] { model_.Form_Activate(); });
}

void DailyScheduleWindow::deactivated() { model_.Form_Deactivate(); }

void DailyScheduleWindow::setWeekView(bool on) {
    runAndShow([this, on] { model_.setWeekView(on); });
}

void DailyScheduleWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (placed_) return;
    placed_ = true;
    // Where the last run left it, inside the main window's area.
    restoreChildPlace(context_.session(), this, schedule::dailyflexgrid::kWindowName);
}

void DailyScheduleWindow::switchEmployeeOrder() {
    runAndShow([this] { model_.lstlist_ColumnClick(model_.lstlist.positionFirst() ? 1 : 2); });
}

void DailyScheduleWindow::fitNoteColumn() {
    // The Note column takes what the grid's width leaves.
    model_.grid1_Resize(grid1_->viewport()->width() * kTwipsPerPixel);
    const int note = model_.grid1.ColWidth[DailyGrid::NoteCol];
    if (note > 0) grid1_->setColumnWidth(DailyGrid::NoteCol, note / kTwipsPerPixel);
}

// ---------------------------------------------------------------------------------------------
// Commands

void DailyScheduleWindow::afterAdd(bool added) {
    // Empty minutes were set to "00" in the quick bar's fields.
    context_.quickBarChanged();
    display();
    if (!added) return;
    grid1_->setFocus();
    grid1_->scrollToBottom();
}

void DailyScheduleWindow::addFromQuickBar() { afterAdd(model_.addfromlv_Click()); }

bool DailyScheduleWindow::dropEmployee(const QMimeData* data) {
    if (!data || !data->hasFormat(QString::fromLatin1(kEmployeeMimeType))) return false;
    bool ok = false;
    const int row = QString::fromLatin1(data->data(QString::fromLatin1(kEmployeeMimeType))).toInt(&ok);
    if (!ok || row < 0 || row >= static_cast<int>(model_.lstlist.rows.size())) return false;
    if (row != model_.lstlist.selected) model_.lstlist_Click(row);
    const bool added = model_.grid1_DragDrop();
    afterAdd(added);
    return added;
}

void DailyScheduleWindow::editEntry(bool fromMenu) {
    const std::optional<long> schedid = fromMenu ? model_.mnuScheduleEdit_Click() : model_.Command2_Click();
    display();
    if (!schedid) return;
    {
        DailyAddDialog editor(context_.session(), *schedid, context_.mainWindow());
        if (editor.loaded()) editor.exec();
    }
    runAndShow([this, id = *schedid] { model_.editorClosed(id); });
}

// ---------------------------------------------------------------------------------------------
// Mouse, keys and drops

int DailyScheduleWindow::grid1RowAt(const QPoint& pos) const {
    const int row = grid1_->rowAt(pos.y());
    return row < 0 ? -1 : row + 1;
}

bool DailyScheduleWindow::grid1MouseEvent(QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress: {
        auto* e = static_cast<QMouseEvent*>(event);
        grid1_->setFocus(Qt::MouseFocusReason);
        const bool extend = e->modifiers() & Qt::ShiftModifier;
        runAndShow([&] { model_.grid1_MouseDown(grid1RowAt(e->position().toPoint()), toButton(e->button()), extend); });
        selecting_ = e->button() == Qt::LeftButton && !extend;
        return true;
    }
    case QEvent::MouseMove: {
        auto* e = static_cast<QMouseEvent*>(event);
        if (!selecting_ || !(e->buttons() & Qt::LeftButton)) return false;
        const int row = grid1RowAt(e->position().toPoint());
        if (row >= 1 && row != model_.grid1.RowSel) runAndShow([&] { model_.grid1_SelChange(model_.grid1.Row, row); });
        return true;
    }
    case QEvent::MouseButtonRelease: {
        auto* e = static_cast<QMouseEvent*>(event);
        selecting_ = false;
        if (model_.grid1_MouseUp(toButton(e->button())))
            if (QMenu* menu = context_.popupMenu("mnudailgridrightclick"))
                menu->exec(grid1_->viewport()->mapToGlobal(e->position().toPoint()));
        return true;
    }
    case QEvent::MouseButtonDblClick: {
        auto* e = static_cast<QMouseEvent*>(event);
        if (e->button() == Qt::LeftButton && grid1RowAt(e->position().toPoint()) >= 1) editEntry(true);
        return true;
    }
    default: return false;
    }
}

bool DailyScheduleWindow::grid1KeyEvent(QEvent* event) {
    if (event->type() != QEvent::KeyPress) return false;
    auto* e = static_cast<QKeyEvent*>(event);
    const Qt::KeyboardModifiers mods = e->modifiers();
    const GridKey key = toGridKey(e->key());
    const int last = model_.grid1.Rows() - 1;
    // Shift with Up or Down extends the selection; the page and end keys move the current row.
    if ((mods & Qt::ShiftModifier) && !(mods & (Qt::ControlModifier | Qt::AltModifier)) &&
        (key == GridKey::Up || key == GridKey::Down)) {
        if (last >= 1) {
            const int rowSel = model_.grid1.RowSel + (key == GridKey::Up ? -1 : 1);
            runAndShow([&] { model_.grid1_SelChange(model_.grid1.Row, rowSel); });
            grid1_->scrollTo(grid1_->model()->index(model_.grid1.RowSel - 1, 0));
        }
        return true;
    }
    const int page = std::max(1, grid1_->viewport()->height() / std::max(1, grid1_->rowHeight(0)));
    int jump = 0;
    switch (e->key()) {
    case Qt::Key_Home: jump = 1; break;
    case Qt::Key_End: jump = last; break;
    case Qt::Key_PageUp: jump = model_.grid1.Row - page; break;
    case Qt::Key_PageDown: jump = model_.grid1.Row + page; break;
    default: break;
    }
    if (jump != 0 && !(mods & (Qt::ControlModifier | Qt::AltModifier))) {
        if (last >= 1) {
            runAndShow([&] { model_.grid1_SelChange(jump, jump); });
            grid1_->scrollTo(grid1_->model()->index(model_.grid1.Row - 1, 0));
        }
        return true;
    }
    // Enter opens the entry as a double click does.
    if ((e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter) &&
        !(mods & (Qt::ControlModifier | Qt::AltModifier))) {
        editEntry(true);
        return true;
    }
    if (key == GridKey::Other) return false;
    schedule::KeyModifiers modifiers;
    modifiers.ctrl = mods & Qt::ControlModifier;
    modifiers.alt = mods & Qt::AltModifier;
    modifiers.shift = mods & Qt::ShiftModifier;
    // Plain Left and Right move nothing in a grid that selects whole rows.
    schedule::GridAction action;
    runAndShow([&] { action = model_.grid1_KeyDown(key, modifiers); });
    if (action.scrollToRow && model_.grid1.Row >= 1) grid1_->scrollTo(grid1_->model()->index(model_.grid1.Row - 1, 0));
    return true;
}

bool DailyScheduleWindow::grid1DropEvent(QEvent* event) {
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove: {
        auto* e = static_cast<QDropEvent*>(event);
        if (!e->mimeData()->hasFormat(QString::fromLatin1(kEmployeeMimeType))) return false;
        e->setDropAction(Qt::CopyAction);
        e->accept();
        return true;
    }
    case QEvent::Drop: {
        auto* e = static_cast<QDropEvent*>(event);
        if (!e->mimeData()->hasFormat(QString::fromLatin1(kEmployeeMimeType))) return false;
        e->setDropAction(Qt::CopyAction);
        e->accept();
        // Once the drag's own event loop has ended: the add may ask questions.
        auto* data = new QMimeData;
        for (const QString& format : e->mimeData()->formats()) data->setData(format, e->mimeData()->data(format));
        QTimer::singleShot(0, this, [this, data] {
            dropEmployee(data);
            delete data;
        });
        return true;
    }
    default: return false;
    }
}

bool DailyScheduleWindow::lstlistMouseEvent(QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress: {
        auto* e = static_cast<QMouseEvent*>(event);
        if (e->button() == Qt::LeftButton) dragStart_ = e->position().toPoint();
        return false;
    }
    case QEvent::MouseMove: {
        auto* e = static_cast<QMouseEvent*>(event);
        if (!dragStart_ || !(e->buttons() & Qt::LeftButton)) return false;
        if ((e->position().toPoint() - *dragStart_).manhattanLength() < QApplication::startDragDistance()) return false;
        QTreeWidgetItem* item = lstlist_->itemAt(*dragStart_);
        dragStart_.reset();
        if (!item || !model_.lstlist_StartDrag()) return false;
        const int row = lstlist_->indexOfTopLevelItem(item);
        if (row != model_.lstlist.selected) runAndShow([&] { model_.lstlist_Click(row); });
        auto* data = new QMimeData;
        data->setData(QString::fromLatin1(kEmployeeMimeType), QByteArray::number(row));
        data->setText(item->text(model_.lstlist.positionFirst() ? 1 : 0));
        auto* drag = new QDrag(lstlist_);
        drag->setMimeData(data);
        drag->setPixmap(item->icon(0).pixmap(16, 16));
        drag->exec(Qt::CopyAction);
        return true;
    }
    case QEvent::MouseButtonRelease: dragStart_.reset(); return false;
    default: return false;
    }
}

}  // namespace tallymere::app

#include "app/common/qt_ui.h"
#include "app/staffing/staffing_windows.h"

#include <QComboBox>
#include <QEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QProgressBar>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tallymere::app {

void closeChildWindow(QWidget* w) {
    if (auto* sub = qobject_cast<QMdiSubWindow*>(w->parentWidget()))
        sub->close();
    else
        w->close();
}

StaffingWindow::StaffingWindow(AppContext& context, QWidget* parent)
    : QWidget(parent), context_(context), model_(context.session()) {
    setObjectName(QString::fromLatin1(staffing::staffing::kWindowName));

    tabs_ = new QTabWidget(this);
    tabs_->setObjectName(QStringLiteral("SSTab1"));
    for (int d = 0; d < 7; ++d) {
        QTableWidget* grid = makeGrid(tabs_, "Grid1", columnTitles({"Shift", "Position", "Needed"}));
        grid->setSelectionBehavior(QAbstractItemView::SelectItems);
        grid->horizontalHeader()->setStretchLastSection(true);
        grids_[static_cast<std::size_t>(d)] = grid;
        tabs_->addTab(grid, qs(common::weekdayName(d + 1)));
        connect(grid, &QTableWidget::currentCellChanged, this, [this](int row, int, int, int) {
            if (showing_) return;
            model_.Grid1_EnterCell(row);
            display();
        });
    }
    numreq_ = new QLineEdit(this);
    numreq_->setObjectName(QStringLiteral("numreq"));
    numreq_->setVisible(false);
    filterTypedKeys(numreq_, [this](const QString& typed) {
        for (QChar c : typed)
            if (!model_.numreq_KeyPress(static_cast<char>(c.unicode() < 128 ? c.unicode() : '?'))) return false;
        return true;
    });
    connect(numreq_, &QLineEdit::textEdited, this, [this](const QString& t) { model_.numreq = ss(t); });
    hookEvents(numreq_, [this](QEvent* e) {
        if (e->type() != QEvent::KeyPress) return false;
        const int key = static_cast<QKeyEvent*>(e)->key();
        if (key != Qt::Key_Up && key != Qt::Key_Down && key != Qt::Key_Return && key != Qt::Key_Enter) return false;
        if (key == Qt::Key_Up)
            model_.moveRow(-1);
        else if (key == Qt::Key_Down)
            model_.moveRow(+1);
        else
            model_.leaveCell();
        display();
        return true;
    });
    connect(tabs_, &QTabWidget::currentChanged, this, [this](int tab) {
        if (showing_) return;
        model_.SSTab1_Click(tab);
        display();
    });

    auto* frame = new QGroupBox(tr("Filters"), this);
    frame->setObjectName(QStringLiteral("Frame1"));
    shiftcombo_ = new QComboBox(frame);
    shiftcombo_->setObjectName(QStringLiteral("shiftcombo"));
    positioncombo_ = new QComboBox(frame);
    positioncombo_->setObjectName(QStringLiteral("positioncombo"));
    auto* filters = new QHBoxLayout(frame);
    filters->addWidget(makeLabel(frame, tr("Select Shift"), shiftcombo_));
    filters->addWidget(shiftcombo_, 1);
    filters->addWidget(makeLabel(frame, tr("Select Position"), positioncombo_));
    filters->addWidget(positioncombo_, 1);
    connect(shiftcombo_, &QComboBox::activated, this, [this](int i) {
        model_.shiftcombo_Click(i);
        display();
    });
    connect(positioncombo_, &QComboBox::activated, this, [this](int i) {
        model_.positioncombo_Click(i);
        display();
    });

    auto* add = makeButton(this, "Command1", tr("&Add..."));
    auto* edit = makeButton(this, "Command2", tr("Edit..."));
    auto* del = makeButton(this, "Command3", tr("Delete"));  // a level goes by setting it to 0
    auto* close = makeButton(this, "Command4", tr("Close"));
    auto* gather = makeButton(this, "Command5", tr("Get Levels from Schedule"));
    connect(add, &QPushButton::clicked, this, [this] { openAdd(false); });
    connect(edit, &QPushButton::clicked, this, [this] { openAdd(true); });
    (void)del;
    connect(close, &QPushButton::clicked, this, [this] {
        model_.leaveCell();
        closeChildWindow(this);
    });
    connect(gather, &QPushButton::clicked, this, [this] {
        bar_->setVisible(true);
        model_.Command5_Click();
        display();
    });
    bar_ = new QProgressBar(this);
    bar_->setObjectName(QStringLiteral("StaffPbar"));
    bar_->setVisible(false);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(frame);
    layout->addWidget(tabs_, 1);
    layout->addWidget(bar_);
    layout->addLayout(buttonRow({add, edit, del, gather, close}));
    display();
}

StaffingWindow::~StaffingWindow() = default;

QTableWidget* StaffingWindow::currentGrid() const { return grids_[static_cast<std::size_t>(model_.SSTab1)]; }

void StaffingWindow::refreshWindow() {
    model_.leaveCell();
    model_.Form_Load();
    display();
}

void StaffingWindow::openAdd(bool edit) {
    model_.leaveCell();
    StaffingAddDialog dialog(context_.session(), model_.sday(), this);
    const auto& rows = model_.Grid1[static_cast<std::size_t>(model_.SSTab1)].rows;
    if (edit && model_.Row >= 0 && model_.Row < static_cast<int>(rows.size())) {
        const auto& row = rows[static_cast<std::size_t>(model_.Row)];
        dialog.model().preset(row.shift, row.position, row.needed);
        dialog.showModel();
    }
    dialog.exec();
    model_.afterAdd();
    display();
}

void StaffingWindow::display() {
    showing_ = true;
    setWindowTitle(qs(model_.Caption));
    showChoices(shiftcombo_, model_.shiftcombo);
    showChoices(positioncombo_, model_.positioncombo);
    for (int d = 0; d < 7; ++d) {
        std::vector<std::vector<std::string>> rows;
        for (const auto& r : model_.Grid1[static_cast<std::size_t>(d)].rows)
            rows.push_back({r.shift, r.position, r.needed});
        fillGrid(grids_[static_cast<std::size_t>(d)], rows, -1);
    }
    tabs_->setCurrentIndex(model_.SSTab1);
    if (model_.Row >= 0) currentGrid()->setCurrentCell(model_.Row, 2);
    bar_->setRange(0, std::max(1, model_.StaffPbarMax));
    bar_->setValue(model_.StaffPbarValue);
    bar_->setVisible(model_.StaffPbarVisible);
    showing_ = false;
    placeEditor();
}

void StaffingWindow::placeEditor() {
    QTableWidget* grid = currentGrid();
    if (model_.Row < 0) {
        numreq_->setVisible(false);
        return;
    }
    numreq_->setParent(grid->viewport());
    const QRect cell = grid->visualRect(grid->model()->index(model_.Row, 2));
    numreq_->setGeometry(cell);
    numreq_->setText(qs(model_.numreq));
    numreq_->setVisible(true);
    numreq_->raise();
    numreq_->setFocus();
    numreq_->selectAll();
}

StaffingAddDialog::StaffingAddDialog(common::Session& s, int sday, QWidget* parent) : QDialog(parent), model_(s, sday) {
    setObjectName(QString::fromLatin1(staffing::staffingadd::kWindowName));
    setWindowTitle(QString::fromLatin1(staffing::staffingadd::kCaption));
    auto* shift = new QComboBox(this);
    shift->setObjectName(QStringLiteral("shiftcombo"));
    auto* position = new QComboBox(this);
    position->setObjectName(QStringLiteral("positioncombo"));
    auto* numreq = new QLineEdit(this);
    numreq->setObjectName(QStringLiteral("numreq"));
    filterTypedKeys(numreq, [](const QString& typed) {
        for (QChar c : typed)
            if (!c.isDigit()) return false;
        return true;
    });
    binder_.combo(shift, model_.shiftcombo);
    binder_.combo(position, model_.positioncombo);
    binder_.line(numreq, model_.numreq);
    auto* ok = makeButton(this, "Command1", tr("OK"));
    auto* cancel = makeButton(this, "Command2", tr("Cancel"));
    connect(ok, &QPushButton::clicked, this, [this] {
        if (model_.Command1_Click()) accept();
    });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(makeLabel(this, tr("Shift"), shift));
    layout->addWidget(shift);
    layout->addWidget(makeLabel(this, tr("Position"), position));
    layout->addWidget(position);
    layout->addWidget(makeLabel(this, tr("Number Needed"), numreq));
    layout->addWidget(numreq);
    layout->addLayout(buttonRow({ok, cancel}));
    binder_.show();
}

StaffingAddDialog::~StaffingAddDialog() = default;

}  // namespace tallymere::app

#include "app/common/widget_support.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QTableWidget>
#include <algorithm>

namespace tallymere::app {

Qt::DayOfWeek toQtDayOfWeek(std::string_view dayName) {
    static constexpr const char* kNames[] = {"monday", "tuesday",  "wednesday", "thursday",
                                             "friday", "saturday", "sunday"};
    const QString name = qs(dayName).trimmed().toLower();
    for (int i = 0; i < 7; ++i)
        if (name == QLatin1String(kNames[i])) return static_cast<Qt::DayOfWeek>(i + 1);
    return Qt::Sunday;
}

QColor toQColor(long color) {
    return QColor(static_cast<int>(color & 0xFF), static_cast<int>((color >> 8) & 0xFF),
                  static_cast<int>((color >> 16) & 0xFF));
}

long fromQColor(const QColor& color) {
    return static_cast<long>(color.red()) | static_cast<long>(color.green()) << 8 |
           static_cast<long>(color.blue()) << 16;
}

QColor textColorOn(const QColor& background) {
    const double luminance = 0.299 * background.red() + 0.587 * background.green() + 0.114 * background.blue();
    return luminance < 140 ? QColor(Qt::white) : QColor(Qt::black);
}

// ------------------------------------------------------------------------------------------------ Binder

void Binder::line(QLineEdit* w, std::string& field, std::function<void()> edited) {
    QObject::connect(w, &QLineEdit::textEdited, w, [&field, edited](const QString& t) {
        field = ss(t);
        if (edited) edited();
    });
    shows_.push_back([w, &field] {
        const QString t = qs(field);
        // Putting the same text back would move the cursor of the field being typed in.
        if (w->text() != t) w->setText(t);
    });
}

void Binder::text(QPlainTextEdit* w, std::string& field, std::function<void()> edited) {
    QObject::connect(w, &QPlainTextEdit::textChanged, w, [w, &field, edited] {
        field = ss(w->toPlainText());
        if (edited) edited();
    });
    shows_.push_back([w, &field] {
        const QString t = qs(field);
        if (w->toPlainText() == t) return;
        const QSignalBlocker quiet(w);
        w->setPlainText(t);
    });
}

void Binder::check(QCheckBox* w, bool& field, std::function<void()> edited) {
    QObject::connect(w, &QCheckBox::clicked, w, [&field, edited](bool on) {
        field = on;
        if (edited) edited();
    });
    shows_.push_back([w, &field] {
        const QSignalBlocker quiet(w);
        w->setChecked(field);
    });
}

void Binder::combo(QComboBox* w, reference::ChoiceList& list, std::function<void()> chosen) {
    QObject::connect(w, &QComboBox::activated, w, [&list, chosen](int index) {
        list.ListIndex = index;
        if (chosen) chosen();
    });
    shows_.push_back([w, &list] { showChoices(w, list); });
}

void Binder::slider(QSlider* w, int& field, std::function<void()> moved) {
    QObject::connect(w, &QSlider::valueChanged, w, [&field, moved](int value) {
        field = value;
        if (moved) moved();
    });
    shows_.push_back([w, &field] {
        const QSignalBlocker quiet(w);
        w->setValue(field);
    });
}

void Binder::show() const {
    for (const auto& s : shows_) s();
}

void showChoices(QComboBox* w, const reference::ChoiceList& list) {
    const QSignalBlocker quiet(w);
    bool same = w->count() == static_cast<int>(list.items.size());
    for (int i = 0; same && i < w->count(); ++i) same = w->itemText(i) == qs(list.items[static_cast<std::size_t>(i)]);
    if (!same) {
        w->clear();
        for (const auto& item : list.items) w->addItem(qs(item));
    }
    w->setCurrentIndex(list.ListIndex < w->count() ? list.ListIndex : -1);
}

// ------------------------------------------------------------------------------------------------ grids

QStringList columnTitles(std::initializer_list<const char*> titles) {
    QStringList out;
    for (const char* t : titles) out << QString::fromUtf8(t);
    return out;
}

QTableWidget* makeGrid(QWidget* parent, const char* objectName, const QStringList& columns) {
    auto* grid = new QTableWidget(0, static_cast<int>(columns.size()), parent);
    grid->setObjectName(QString::fromUtf8(objectName));
    grid->setHorizontalHeaderLabels(columns);
    grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    grid->setSelectionMode(QAbstractItemView::SingleSelection);
    grid->setTabKeyNavigation(false);
    grid->setWordWrap(false);
    grid->verticalHeader()->hide();
    grid->verticalHeader()->setDefaultSectionSize(grid->fontMetrics().height() + 8);
    grid->horizontalHeader()->setStretchLastSection(true);
    grid->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    grid->horizontalHeader()->setHighlightSections(false);
    return grid;
}

void fillGrid(QTableWidget* grid, const std::vector<std::vector<std::string>>& rows, int selected) {
    const QSignalBlocker quiet(grid);
    grid->clearContents();
    grid->setRowCount(static_cast<int>(rows.size()));
    for (int r = 0; r < static_cast<int>(rows.size()); ++r) {
        const auto& cells = rows[static_cast<std::size_t>(r)];
        for (int c = 0; c < static_cast<int>(cells.size()) && c < grid->columnCount(); ++c)
            grid->setItem(r, c, new QTableWidgetItem(qs(cells[static_cast<std::size_t>(c)])));
    }
    // Each column as wide as its widest text, within reason; the last one takes the rest.
    for (int c = 0; c + 1 < grid->columnCount(); ++c) {
        grid->resizeColumnToContents(c);
        grid->setColumnWidth(c, std::min(std::max(grid->columnWidth(c) + 16, 70), 320));
    }
    if (selected >= 0 && selected < grid->rowCount())
        grid->selectRow(selected);
    else
        grid->clearSelection();
}

int selectedRow(const QAbstractItemView* view) {
    const QModelIndexList rows = view->selectionModel()->selectedIndexes();
    return rows.isEmpty() ? -1 : rows.first().row();
}

void bindGridRow(QTableWidget* grid, int& row) {
    // The selected row, not the current cell: a grid that takes the focus makes its first cell
    // current without selecting anything, and Ctrl+click takes the selection away but not the cell.
    QObject::connect(grid, &QTableWidget::itemSelectionChanged, grid, [grid, &row] { row = selectedRow(grid); });
}

QGridLayout* levelRow(QLineEdit* field, QSlider* slider, int min, int max, const char* scaleName) {
    field->setMaxLength(2);
    field->setFixedWidth(field->fontMetrics().horizontalAdvance(QStringLiteral("000")) + 12);
    slider->setRange(min, max);
    slider->setTickPosition(QSlider::TicksBelow);
    slider->setPageStep(1);
    auto* scale = new QLabel(QStringLiteral("Least                       Most"), field->parentWidget());
    scale->setObjectName(QString::fromUtf8(scaleName));
    slider->setMinimumWidth(scale->sizeHint().width());
    auto* row = new QGridLayout;
    row->addWidget(field, 0, 0);
    row->addWidget(slider, 0, 1);
    row->addWidget(scale, 1, 1);
    return row;
}

QPushButton* makeButton(QWidget* parent, const char* objectName, const QString& text) {
    auto* b = new QPushButton(text, parent);
    b->setObjectName(QString::fromUtf8(objectName));
    b->setAutoDefault(false);
    return b;
}

QLabel* makeLabel(QWidget* parent, const QString& text, QWidget* buddy) {
    auto* l = new QLabel(text, parent);
    if (buddy) l->setBuddy(buddy);
    return l;
}

QLabel* plainText(QWidget* parent, const QString& text) {
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

FolderField folderField(QWidget* parent, QBoxLayout* layout, const char* fieldName, const QString& caption) {
    auto* label = new QLabel(caption, parent);
    auto* field = new QLineEdit(parent);
    field->setObjectName(QString::fromLatin1(fieldName));
    field->setMinimumWidth(320);
    label->setBuddy(field);
    auto* row = new QHBoxLayout;
    row->addWidget(field, 1);
    QPushButton* browse = makeButton(parent, "BrowseButton", QStringLiteral("&Browse..."));
    row->addWidget(browse);
    layout->addWidget(label);
    layout->addLayout(row);
    return {field, browse};
}

QBoxLayout* buttonRow(std::initializer_list<QPushButton*> buttons) {
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    for (QPushButton* b : buttons) row->addWidget(b);
    return row;
}

// ------------------------------------------------------------------------------------------------ hooks

ViewGuard::~ViewGuard() {
    // Leaving a field runs its model's handler: let that happen now, while the model is there.
    if (QWidget* focus = QApplication::focusWidget(); focus && view_->isAncestorOf(focus)) focus->clearFocus();
    for (QObject* o : view_->findChildren<QObject*>()) o->blockSignals(true);
}

namespace {

class EventHook : public QObject {
public:
    EventHook(QObject* target, std::function<bool(QEvent*)> hook) : QObject(target), hook_(std::move(hook)) {
        target->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override { return hook_(event); }

private:
    std::function<bool(QEvent*)> hook_;
};

}  // namespace

void hookEvents(QObject* target, std::function<bool(QEvent*)> hook) { new EventHook(target, std::move(hook)); }

void filterTypedKeys(QWidget* field, std::function<bool(const QString&)> accepts) {
    hookEvents(field, [accepts = std::move(accepts)](QEvent* e) {
        if (e->type() != QEvent::KeyPress) return false;
        const auto* key = static_cast<QKeyEvent*>(e);
        const QString text = key->text();
        // Editing keys, shortcuts and navigation pass; only what would be typed is examined.
        if (text.isEmpty() || !text.at(0).isPrint() ||
            (key->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)))
            return false;
        return !accepts(text);
    });
}

void onFocusOut(QWidget* w, std::function<void()> left) {
    hookEvents(w, [left = std::move(left)](QEvent* e) {
        if (e->type() == QEvent::FocusOut) left();
        return false;
    });
}

void onDoubleClick(QWidget* w, std::function<void()> clicked) {
    hookEvents(w, [clicked = std::move(clicked)](QEvent* e) {
        if (e->type() != QEvent::MouseButtonDblClick) return false;
        clicked();
        return true;
    });
}

}  // namespace tallymere::app

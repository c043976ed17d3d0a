#include "app/schedule/daily_entry_dialog.h"

#include "app/common/time_entry_widget.h"
#include "app/schedule/comment_dialog.h"
#include "app/schedule/employee_pictures.h"
#include "schedule/daily_schedule.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

namespace tallymere::app {

namespace {

// A combo whose text may be none of its items, as an entry keeps a renamed shift.
QComboBox* textCombo(QWidget* parent, const char* name) {
    auto* c = new QComboBox(parent);
    c->setObjectName(QString::fromLatin1(name));
    c->setEditable(true);
    c->setInsertPolicy(QComboBox::NoInsert);
    c->setMinimumContentsLength(14);
    c->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    return c;
}

void showTextCombo(QComboBox* w, const schedule::TextCombo& combo) {
    const QSignalBlocker quiet(w);
    QStringList items;
    for (const auto& item : combo.items) items << qs(item);
    QStringList shown;
    for (int i = 0; i < w->count(); ++i) shown << w->itemText(i);
    if (shown != items) {
        w->clear();
        w->addItems(items);
    }
    const QString text = qs(combo.text);
    w->setCurrentIndex(w->findText(text, Qt::MatchFixedString));
    w->setEditText(text);
}

QString pictureTip(int picture) {
    if (picture == schedule::kPictureNotAvailable) return QObject::tr("Not available for these times");
    return employeePictureText(picture);
}

}  // namespace

DailyAddDialog::DailyAddDialog(common::Session& s, long schedid, QWidget* parent)
    : QDialog(parent),
      model_(s, schedid),
      shiftcombo_(textCombo(this, "shiftcombo")),
      positioncombo_(textCombo(this, "positioncombo")),
      sectioncombo_(textCombo(this, "sectioncombo")),
      emplBBlist_(new QListWidget(this)),
      filtercombo_(new QComboBox(this)),
      note_(new QLineEdit(this)) {
    setObjectName(QString::fromLatin1(schedule::dailyadd::kWindowName));
    setWindowTitle(tr(schedule::dailyadd::kCaption));

    for (std::size_t i = 0; i < times_.size(); ++i) {
        times_[i] = new TimeEntryWidget(this);
        times_[i]->setObjectName(QStringLiteral("times%1").arg(i));
        times_[i]->setProperty("index", static_cast<int>(i));
    }
    TimeEntryWidget* start = times_[1];
    TimeEntryWidget* end = times_[0];

    note_->setObjectName(QStringLiteral("note"));
    note_->setMinimumWidth(200);
    auto* commentButton = makeButton(this, "commentbutton", QStringLiteral("..."));
    commentButton->setToolTip(tr("Edit the note in a larger window"));
    commentButton->setFixedWidth(commentButton->fontMetrics().horizontalAdvance(QStringLiteral("...")) + 20);
    auto* noteRow = new QHBoxLayout;
    noteRow->setSpacing(4);
    noteRow->addWidget(note_, 1);
    noteRow->addWidget(commentButton);

    auto* form = new QFormLayout;
    form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    form->addRow(makeLabel(this, tr("&Start:"), start->hourField()), start);
    form->addRow(makeLabel(this, tr("&End:"), end->hourField()), end);
    form->addRow(makeLabel(this, tr("S&hift:"), shiftcombo_), shiftcombo_);
    form->addRow(makeLabel(this, tr("&Position:"), positioncombo_), positioncombo_);
    form->addRow(makeLabel(this, tr("Se&ction:"), sectioncombo_), sectioncombo_);
    form->addRow(makeLabel(this, tr("&Note:"), note_), noteRow);

    emplBBlist_->setObjectName(QStringLiteral("EmplBBlist"));
    emplBBlist_->setSelectionMode(QAbstractItemView::SingleSelection);
    emplBBlist_->setIconSize(QSize(16, 16));
    emplBBlist_->setMinimumHeight(220);
    filtercombo_->setObjectName(QStringLiteral("filtercombo"));
    filtercombo_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    auto* filterRow = new QHBoxLayout;
    filterRow->addWidget(makeLabel(this, tr("E&mployee:"), emplBBlist_), 1);
    filterRow->addWidget(makeLabel(this, tr("F&ilter:"), filtercombo_));
    filterRow->addWidget(filtercombo_);
    auto* employees = new QVBoxLayout;
    employees->addLayout(filterRow);
    employees->addWidget(emplBBlist_, 1);

    auto* body = new QHBoxLayout;
    body->addLayout(form);
    body->addSpacing(12);
    body->addLayout(employees, 1);

    auto* okButton = makeButton(this, "Command1", tr("OK"));
    okButton->setDefault(true);
    auto* cancelButton = makeButton(this, "Command2", tr("Cancel"));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(okButton);
    buttons->addWidget(cancelButton);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(body, 1);
    layout->addLayout(buttons);

    // Down the left column, then the employees, then the buttons.
    QWidget* chain[] = {
        start->hourField(), start->minuteField(), start->amPmField(), end->hourField(), end->minuteField(),
        end->amPmField(),   shiftcombo_,          positioncombo_,     sectioncombo_,    note_,
        commentButton,      filtercombo_,         emplBBlist_,        okButton,         cancelButton};
    for (std::size_t i = 0; i + 1 < std::size(chain); ++i) setTabOrder(chain[i], chain[i + 1]);

    connect(okButton, &QPushButton::clicked, this, [this] { ok(); });
    connect(cancelButton, &QPushButton::clicked, this, [this] {
        if (model_.Command2_Click()) reject();
    });
    connect(commentButton, &QPushButton::clicked, this, [this] { editComment(); });
    connect(shiftcombo_, &QComboBox::activated, this, [this] {
        collect();
        model_.shiftcombo_Click();
        display();
    });
    // The selection, not the current row: the list makes its first row current when it takes the
    // focus, and passing through it must not change the entry's employee.
    connect(emplBBlist_, &QListWidget::itemSelectionChanged, this, [this] {
        const auto selected = emplBBlist_->selectedItems();
        model_.EmplBBlistIndex = selected.isEmpty() ? -1 : emplBBlist_->row(selected.front());
    });
    binder_.combo(filtercombo_, model_.filtercombo, [this] {
        collect();
        model_.filtercombo_Click();
        display();
    });
    binder_.line(note_, model_.note);

    loaded_ = model_.Form_Load();
    if (loaded_) display();
    start->hourField()->setFocus();
}

void DailyAddDialog::display() {
    binder_.show();
    for (std::size_t i = 0; i < times_.size(); ++i) times_[i]->setEntry(model_.times[i]);
    showTextCombo(shiftcombo_, model_.shiftcombo);
    showTextCombo(positioncombo_, model_.positioncombo);
    showTextCombo(sectioncombo_, model_.sectioncombo);
    showEmployees();
}

void DailyAddDialog::showEmployees() {
    const QSignalBlocker quiet(emplBBlist_);
    emplBBlist_->clear();
    int widest = 0;
    for (const auto& row : model_.EmplBBlist) {
        auto* item = new QListWidgetItem(employeePicture(row.picture), qs(row.name), emplBBlist_);
        item->setToolTip(pictureTip(row.picture));
        widest = std::max(widest, emplBBlist_->fontMetrics().horizontalAdvance(item->text()));
    }
    // Wide enough for the longest name beside its picture and the scroll bar, within reason.
    const int needed = widest + emplBBlist_->iconSize().width() + 2 * emplBBlist_->frameWidth() +
                       emplBBlist_->style()->pixelMetric(QStyle::PM_ScrollBarExtent) + 24;
    emplBBlist_->setMinimumWidth(std::clamp(needed, 210, 420));
    const int selected = model_.EmplBBlistIndex;
    if (selected >= 0 && selected < emplBBlist_->count()) {
        emplBBlist_->setCurrentRow(selected);
        emplBBlist_->scrollToItem(emplBBlist_->item(selected), QAbstractItemView::PositionAtCenter);
    }
}

void DailyAddDialog::collect() {
    for (std::size_t i = 0; i < times_.size(); ++i) model_.times[i] = times_[i]->entry();
    model_.shiftcombo.text = ss(shiftcombo_->currentText());
    model_.positioncombo.text = ss(positioncombo_->currentText());
    model_.sectioncombo.text = ss(sectioncombo_->currentText());
}

void DailyAddDialog::ok() {
    collect();
    if (model_.Command1_Click()) {
        accept();
        return;
    }
    // A refusal may have filled in empty minutes.
    display();
}

void DailyAddDialog::editComment() {
    CommentDialog comment(model_.note, this);
    comment.exec();
    binder_.show();
    note_->setFocus();
}

}  // namespace tallymere::app

#include "app/shell/quick_bar.h"

#include "app/common/time_entry_widget.h"
#include "shell/main_form.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>

namespace tallymere::app {

namespace {

QComboBox* list(QWidget* parent, const char* name, int width, const char* tip) {
    auto* c = new QComboBox(parent);
    c->setObjectName(QString::fromLatin1(name));
    c->setMinimumWidth(width);
    c->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    c->setToolTip(QString::fromLatin1(tip));
    return c;
}

// A caption and its control as one item of the bar, so the pair never wraps apart.
QWidget* labelled(QWidget* parent, const QString& caption, QWidget* control) {
    auto* box = new QWidget(parent);
    auto* layout = new QHBoxLayout(box);
    layout->setContentsMargins(6, 0, 6, 0);
    layout->setSpacing(4);
    auto* label = new QLabel(caption, box);
    label->setBuddy(control);
    layout->addWidget(label);
    control->setParent(box);
    layout->addWidget(control);
    return box;
}

void showCombo(QComboBox* combo, const schedule::QuickBar::Combo& model) {
    const QSignalBlocker block(combo);
    QStringList items;
    for (const std::string& item : model.items) items << QString::fromStdString(item);
    QStringList shown;
    for (int i = 0; i < combo->count(); ++i) shown << combo->itemText(i);
    if (shown != items) {
        combo->clear();
        combo->addItems(items);
    }
    combo->setCurrentIndex(combo->findText(QString::fromStdString(model.text), Qt::MatchFixedString));
}

}  // namespace

QuickBar::QuickBar(shell::MainForm& form, QWidget* parent)
    : QToolBar(QStringLiteral("Quickplot ToolBar"), parent),
      form_(form),
      shiftcombo_(list(this, "shiftcombo", 120, "The shift of the entry to add")),
      positioncombo_(list(this, "positioncombo", 110, "The position of the entry to add")),
      sectioncombo_(list(this, "sectioncombo", 100, "The section of the entry to add")),
      startTime_(new TimeEntryWidget(this)),
      endTime_(new TimeEntryWidget(this)),
      addfromlv_(new QPushButton(QStringLiteral("Add"), this)) {
    setObjectName(QStringLiteral("QuickBar"));
    setMovable(false);
    startTime_->setObjectName(QStringLiteral("StartTime"));
    endTime_->setObjectName(QStringLiteral("EndTime"));
    addfromlv_->setObjectName(QStringLiteral("addfromlv"));
    addfromlv_->setToolTip(QStringLiteral("Add the employee selected in the daily schedule with these values"));
    addfromlv_->setEnabled(false);

    addWidget(labelled(this, QStringLiteral("&Shift"), shiftcombo_));
    addWidget(labelled(this, QStringLiteral("Start"), startTime_));
    addWidget(labelled(this, QStringLiteral("End"), endTime_));
    addWidget(labelled(this, QStringLiteral("P&osition"), positioncombo_));
    addWidget(labelled(this, QStringLiteral("S&ection"), sectioncombo_));
    addSeparator();
    addWidget(addfromlv_);

    connect(shiftcombo_, &QComboBox::activated, this, [this] {
        form_.shiftcombo.text = shiftcombo_->currentText().toStdString();
        if (form_.shiftCombo_click()) emit shiftTimesChanged();
    });
    connect(positioncombo_, &QComboBox::activated, this,
            [this] { form_.positioncombo.text = positioncombo_->currentText().toStdString(); });
    connect(sectioncombo_, &QComboBox::activated, this,
            [this] { form_.sectioncombo.text = sectioncombo_->currentText().toStdString(); });
    connect(startTime_, &TimeEntryWidget::edited, this, [this] { timeEdited(startTime_, 1); });
    connect(endTime_, &TimeEntryWidget::edited, this, [this] { timeEdited(endTime_, 0); });
    connect(addfromlv_, &QPushButton::clicked, this, &QuickBar::addClicked);
    refresh();
}

void QuickBar::timeEdited(TimeEntryWidget* field, std::size_t index) {
    const reference::TimeEntry& e = field->entry();
    form_.TETxtHr[index] = e.TETxtHr;
    form_.TeTxtMin[index] = e.TeTxtMin;
    form_.TEAmPm[index] = e.TEAmPm;
}

void QuickBar::refresh() {
    showCombo(shiftcombo_, form_.shiftcombo);
    showCombo(positioncombo_, form_.positioncombo);
    showCombo(sectioncombo_, form_.sectioncombo);
    startTime_->setEntry({form_.TETxtHr[1], form_.TeTxtMin[1], form_.TEAmPm[1]});
    endTime_->setEntry({form_.TETxtHr[0], form_.TeTxtMin[0], form_.TEAmPm[0]});
}

void QuickBar::setAddEnabled(bool enabled) { addfromlv_->setEnabled(enabled); }

}  // namespace tallymere::app

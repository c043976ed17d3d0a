#include "app/common/time_entry_widget.h"

#include <QEvent>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

namespace tallymere::app {

using reference::TimeField;

namespace {

QLineEdit* smallField(QWidget* parent, const char* name, const char* sample) {
    auto* f = new QLineEdit(parent);
    f->setObjectName(QString::fromLatin1(name));
    f->setMaxLength(2);
    f->setAlignment(Qt::AlignCenter);
    f->setFixedWidth(f->fontMetrics().horizontalAdvance(QString::fromLatin1(sample)) + 14);
    return f;
}

QToolButton* spinArrow(QWidget* parent, Qt::ArrowType arrow) {
    auto* b = new QToolButton(parent);
    b->setArrowType(arrow);
    // The spin steps the field that has the focus, so the button must not take it.
    b->setFocusPolicy(Qt::NoFocus);
    b->setAutoRepeat(true);
    b->setFixedSize(16, 11);
    return b;
}

}  // namespace

TimeEntryWidget::TimeEntryWidget(QWidget* parent)
    : QWidget(parent),
      hour_(smallField(this, "TETxtHr", "00")),
      minute_(smallField(this, "TeTxtMin", "00")),
      amPm_(smallField(this, "TEAmPm", "PM")) {
    auto* colon = new QLabel(QStringLiteral(":"), this);
    colon->setObjectName(QStringLiteral("TEColon"));

    auto* spinButton = new QWidget(this);
    spinButton->setObjectName(QStringLiteral("SpinButton1"));
    auto* up = spinArrow(spinButton, Qt::UpArrow);
    auto* down = spinArrow(spinButton, Qt::DownArrow);
    auto* spinLayout = new QVBoxLayout(spinButton);
    spinLayout->setContentsMargins(0, 0, 0, 0);
    spinLayout->setSpacing(0);
    spinLayout->addWidget(up);
    spinLayout->addWidget(down);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(1);
    layout->addWidget(hour_);
    layout->addWidget(colon);
    layout->addWidget(minute_);
    layout->addSpacing(2);
    layout->addWidget(amPm_);
    layout->addWidget(spinButton);

    // As small as its fields, wherever it is put.
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    for (QLineEdit* f : {hour_, minute_, amPm_}) f->installEventFilter(this);
    connect(hour_, &QLineEdit::textEdited, this, [this](const QString& t) {
        entry_.TETxtHr = t.toStdString();
        emit edited();
    });
    connect(minute_, &QLineEdit::textEdited, this, [this](const QString& t) {
        entry_.TeTxtMin = t.toStdString();
        emit edited();
    });
    connect(up, &QToolButton::clicked, this, [this] { spin(+1); });
    connect(down, &QToolButton::clicked, this, [this] { spin(-1); });
    display();
}

void TimeEntryWidget::setEntry(const reference::TimeEntry& entry) {
    entry_ = entry;
    display();
}

void TimeEntryWidget::display() {
    const auto put = [](QLineEdit* f, const std::string& text) {
        const QString t = QString::fromStdString(text);
        if (f->text() != t) f->setText(t);
    };
    put(hour_, entry_.TETxtHr);
    put(minute_, entry_.TeTxtMin);
    put(amPm_, entry_.TEAmPm);
}

void TimeEntryWidget::spin(int direction) {
    entry_.spin(focus_, direction);
    display();
    emit edited();
}

TimeField TimeEntryWidget::fieldOf(QObject* o) const {
    if (o == minute_) return TimeField::Minutes;
    if (o == amPm_) return TimeField::AmPm;
    return TimeField::Hour;
}

bool TimeEntryWidget::eventFilter(QObject* watched, QEvent* event) {
    auto* field = qobject_cast<QLineEdit*>(watched);
    if (!field) return QWidget::eventFilter(watched, event);
    const TimeField which = fieldOf(watched);
    switch (event->type()) {
    case QEvent::FocusIn:
        focus_ = which;
        // After the click that gave the focus has placed the cursor.
        QTimer::singleShot(0, field, &QLineEdit::selectAll);
        break;
    case QEvent::FocusOut:
        if (which != TimeField::AmPm) {
            const std::string before = which == TimeField::Hour ? entry_.TETxtHr : entry_.TeTxtMin;
            entry_.leave(which);
            display();
            if ((which == TimeField::Hour ? entry_.TETxtHr : entry_.TeTxtMin) != before) emit edited();
        }
        break;
    case QEvent::KeyPress: {
        const auto* key = static_cast<QKeyEvent*>(event);
        const QString text = key->text();
        const bool typed = !text.isEmpty() && text.at(0).isPrint();
        if (which == TimeField::AmPm) {
            if (typed) {
                if (entry_.TEAmPm_KeyPress(text.at(0).unicode())) {
                    display();
                    emit edited();
                }
                return true;
            }
            // The field holds AM or PM, never less.
            return key->key() == Qt::Key_Backspace || key->key() == Qt::Key_Delete;
        }
        if (typed && !reference::TimeEntry::acceptsDigitKey(text.at(0).unicode())) return true;
        break;
    }
    case QEvent::MouseButtonDblClick:
        if (which == TimeField::AmPm) {
            entry_.TEAmPm_DblClick();
            display();
            emit edited();
            return true;
        }
        break;
    default: break;
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace tallymere::app

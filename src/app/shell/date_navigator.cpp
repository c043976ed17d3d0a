#include "app/shell/date_navigator.h"

#include <QDateEdit>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMenu>
#include <QSignalBlocker>
#include <QToolButton>

namespace tallymere::app {

namespace {

struct StepButton {
    const char* name;
    const char* text;  // an arrow and the step's letter
    const char* tip;
};

constexpr StepButton kBack[] = {
    {"SSCommand4", "\u25C2Y", "Back 52 weeks (Y)"},
    {"SSCommand2", "\u25C2M", "Back one month (M)"},
    {"SSCommand3", "\u25C2W", "Back one week (W)"},
    {"SSCommand1", "\u25C2D", "Back one day (D)"},
};
constexpr StepButton kForward[] = {
    {"dayPlus", "D\u25B8", "Forward one day (D)"},
    {"weekplus", "W\u25B8", "Forward one week (W)"},
    {"monthplus", "M\u25B8", "Forward one month (M)"},
    {"yearplus", "Y\u25B8", "Forward 52 weeks (Y)"},
};

}  // namespace

DateNavigator::DateNavigator(QWidget* parent) : QWidget(parent), tooldate_(new QDateEdit(this)) {
    setObjectName(QStringLiteral("Picture2"));
    tooldate_->setObjectName(QStringLiteral("tooldate"));
    tooldate_->setCalendarPopup(true);
    tooldate_->setMinimumWidth(
        tooldate_->fontMetrics().horizontalAdvance(QStringLiteral("Wednesday, September 30, 2026")) + 40);
    tooldate_->setToolTip(QStringLiteral("The day shown. Right click to choose how the date is written."));

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 0, 4, 0);
    layout->setSpacing(1);
    const auto add = [this, layout](const StepButton& b) {
        auto* button = new QToolButton(this);
        button->setObjectName(QString::fromLatin1(b.name));
        button->setText(QString::fromUtf8(b.text));
        button->setToolTip(QString::fromLatin1(b.tip));
        button->setToolButtonStyle(Qt::ToolButtonTextOnly);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::NoFocus);
        layout->addWidget(button);
        connect(button, &QToolButton::clicked, this, [this, name = button->objectName()] { emit stepClicked(name); });
    };
    for (const StepButton& b : kBack) add(b);
    layout->addSpacing(3);
    layout->addWidget(tooldate_);
    layout->addSpacing(3);
    for (const StepButton& b : kForward) add(b);

    connect(tooldate_, &QDateEdit::dateChanged, this, &DateNavigator::dateEdited);

    // A right click anywhere on the date, its text field included, opens the format menu.
    const auto openMenu = [this](QWidget* on, const QPoint& pos) {
        if (contextMenu_) contextMenu_->popup(on->mapToGlobal(pos));
    };
    for (QWidget* w : {static_cast<QWidget*>(tooldate_), static_cast<QWidget*>(tooldate_->findChild<QLineEdit*>())}) {
        if (!w) continue;
        w->setContextMenuPolicy(Qt::CustomContextMenu);
        connect(w, &QWidget::customContextMenuRequested, this, [openMenu, w](const QPoint& pos) { openMenu(w, pos); });
    }
}

void DateNavigator::display(const QDate& date, const QString& displayFormat) {
    const QSignalBlocker block(tooldate_);
    if (tooldate_->displayFormat() != displayFormat) tooldate_->setDisplayFormat(displayFormat);
    tooldate_->setDate(date);
}

}  // namespace tallymere::app

#include "app/autosched/autosched_dialogs.h"

#include "app/common/qt_ui.h"
#include "app/common/widget_support.h"
#include "app/common/window_place.h"
#include "common/display_format.h"
#include "common/session.h"
#include "store/options.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <fstream>

namespace tallymere::app {

namespace {

QPushButton* namedButton(QWidget* parent, const char* name, const char* caption) {
    auto* b = new QPushButton(QString::fromUtf8(caption), parent);
    b->setObjectName(QString::fromUtf8(name));
    b->setAutoDefault(false);
    return b;
}

// A text of the program's, shown as written and wrapped.
QLabel* plainText(QWidget* parent, const char* name, const QString& text) {
    auto* l = new QLabel(text, parent);
    l->setObjectName(QString::fromUtf8(name));
    l->setTextFormat(Qt::PlainText);
    l->setWordWrap(true);
    return l;
}

}  // namespace

// ---------------------------------------------------------------------------------------------
// AutoSched and AutoRebuildSched

AutoFillDialog::AutoFillDialog(AppContext& context, autosched::AutoFillWindow& model,
                               std::vector<autosched::ExplainRow>& lastRun, const char* windowName, const char* caption,
                               const char* frameCaption, const char* runName, const char* runCaption, QWidget* parent)
    : QDialog(parent ? parent : context.mainWindow()), context_(context), model_(model), lastRun_(lastRun) {
    setObjectName(QString::fromUtf8(windowName));
    setWindowTitle(QString::fromUtf8(caption));

    auto* frame = new QGroupBox(QString::fromUtf8(frameCaption), this);
    frame->setObjectName(QStringLiteral("Frame2"));
    dayOption_ = new QRadioButton(tr("Day"), frame);
    dayOption_->setObjectName(QStringLiteral("DayOption"));
    weekOption_ = new QRadioButton(tr("Week"), frame);
    weekOption_->setObjectName(QStringLiteral("WeekOption"));
    dayLabel_ = plainText(frame, "DayOptionLabel", {});
    weekLabel_ = plainText(frame, "WeekOptionLabel", {});
    auto* options = new QGridLayout(frame);
    options->addWidget(dayOption_, 0, 0);
    options->addWidget(dayLabel_, 0, 1);
    options->addWidget(weekOption_, 1, 0);
    options->addWidget(weekLabel_, 1, 1);
    options->setColumnStretch(1, 1);

    bar_ = new QProgressBar(this);
    bar_->setObjectName(QStringLiteral("AutoPBar"));
    bar_->setTextVisible(false);

    runButton_ = namedButton(this, runName, runCaption);
    runButton_->setDefault(true);
    closeButton_ = namedButton(this, "CloseButton", "Close");
    explainButton_ = namedButton(this, "ExplainButton", "Explain Last Run...");
    explainButton_->setToolTip(tr("Who got each entry of the last run, and what kept the others from it"));

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(explainButton_);
    buttons->addStretch(1);
    buttons->addWidget(runButton_);
    buttons->addWidget(closeButton_);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(frame);
    layout->addWidget(bar_);
    layout->addLayout(buttons);
    // Wide enough for the week's dates on one line.
    setMinimumWidth(420);

    connect(dayOption_, &QRadioButton::clicked, this, [this] {
        model_.DayOption_Click();
        display();
    });
    connect(weekOption_, &QRadioButton::clicked, this, [this] {
        model_.WeekOption_Click();
        display();
    });
    connect(runButton_, &QPushButton::clicked, this, [this] { runClicked(); });
    connect(closeButton_, &QPushButton::clicked, this, [this] { QDialog::reject(); });
    connect(explainButton_, &QPushButton::clicked, this, [this] { explain(); });

    model_.onProgress = [this] { showBar(); };
    // The daily schedule follows the run when it is open.
    model_.reloadDay = [this] {
        if (auto* daily = dynamic_cast<ChildWindow*>(context_.findChild(QStringLiteral("dailyflexgrid"))))
            daily->updailyflexform();
    };
    display();
}

void AutoFillDialog::display() {
    dayOption_->setChecked(model_.DayOption);
    weekOption_->setChecked(model_.WeekOption);
    dayLabel_->setText(qs(model_.DayOptionLabel));
    weekLabel_->setText(qs(model_.WeekOptionLabel));
    dayLabel_->setEnabled(model_.DayOptionLabelEnabled);
    weekLabel_->setEnabled(model_.WeekOptionLabelEnabled);
    showBar();
    for (QWidget* w : {static_cast<QWidget*>(dayOption_), static_cast<QWidget*>(weekOption_),
                       static_cast<QWidget*>(runButton_), static_cast<QWidget*>(closeButton_)})
        w->setEnabled(!running_);
    explainButton_->setEnabled(!running_ && !lastRun_.empty());
}

void AutoFillDialog::showBar() {
    const auto& b = model_.AutoPBar;
    if (bar_->minimum() != b.Min || bar_->maximum() != std::max(b.Max, b.Min))
        bar_->setRange(b.Min, std::max(b.Max, b.Min));
    bar_->setValue(b.Value);
}

void AutoFillDialog::runClicked() {
    if (running_) return;
    running_ = true;
    display();
    bool closes = false;
    try {
        closes = runModel();
    } catch (...) {
        running_ = false;
        throw;
    }
    running_ = false;
    lastRun_ = model_.explanation();
    if (closes) {
        QDialog::accept();
        return;
    }
    display();
}

void AutoFillDialog::explain() {
    AutoSchedExplanationDialog dialog(context_.session(), lastRun_, this);
    dialog.exec();
}

void AutoFillDialog::reject() {
    if (!running_) QDialog::reject();
}

void AutoFillDialog::closeEvent(QCloseEvent* event) {
    if (running_) {
        event->ignore();
        return;
    }
    QDialog::closeEvent(event);
}

void AutoFillDialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (placed_) return;
    placed_ = true;
    restoreDialogPlace(context_.session(), this, context_.mainWindow(), ss(objectName()).c_str());
}

void AutoFillDialog::done(int result) {
    saveDialogPlace(context_.session(), this, ss(objectName()).c_str());
    QDialog::done(result);
}

AutoSchedDialog::AutoSchedDialog(AppContext& context, LastRuns& lastRuns, QWidget* parent)
    : AutoSchedDialog(context, lastRuns, std::make_unique<autosched::AutoSched>(context.session()), parent) {}

AutoSchedDialog::AutoSchedDialog(AppContext& context, LastRuns& lastRuns, std::unique_ptr<autosched::AutoSched> model,
                                 QWidget* parent)
    : AutoFillDialog(context, *model, lastRuns.autoFill, autosched::AutoSched::kWindowName,
                     autosched::AutoSched::kCaption, autosched::AutoSched::kFrame2, "OKButton",
                     autosched::AutoSched::kOKButton, parent),
      model_(std::move(model)) {}

AutoRebuildSchedDialog::AutoRebuildSchedDialog(AppContext& context, LastRuns& lastRuns, QWidget* parent)
    : AutoRebuildSchedDialog(context, lastRuns, std::make_unique<autosched::AutoRebuildSched>(context.session()),
                             parent) {}

AutoRebuildSchedDialog::AutoRebuildSchedDialog(AppContext& context, LastRuns& lastRuns,
                                               std::unique_ptr<autosched::AutoRebuildSched> model, QWidget* parent)
    : AutoFillDialog(context, *model, lastRuns.rebuild, autosched::AutoRebuildSched::kWindowName,
                     autosched::AutoRebuildSched::kCaption, autosched::AutoRebuildSched::kFrame2, "AutoRedoButton",
                     autosched::AutoRebuildSched::kAutoRedoButton, parent),
      model_(std::move(model)) {}

// ---------------------------------------------------------------------------------------------
// The explanation

AutoSchedExplanationDialog::AutoSchedExplanationDialog(common::Session& s,
                                                       const std::vector<autosched::ExplainRow>& rows, QWidget* parent)
    : QDialog(parent), s_(s), rows_(rows) {
    setObjectName(QString::fromUtf8(kWindowName));
    setWindowTitle(tr("Automatic Scheduler - Last Run"));
    auto* grid = makeGrid(
        this, "explaingrid",
        columnTitles({"Date", "Start", "End", "Shift", "Position", "Assigned", "Phase", "Candidate", "Reason"}));
    std::vector<std::vector<std::string>> cells;
    cells.reserve(rows.size());
    for (const auto& r : rows) {
        const auto clock = [](const std::optional<common::DateTime>& t) {
            return t ? common::formatDateTime(*t, "h:mm AM/PM") : std::string();
        };
        cells.push_back({r.day ? common::formatDate(*r.day, "ddd mmm dd, yyyy") : std::string(), clock(r.start),
                         clock(r.end), r.shift, r.position, r.assigned, std::string(autosched::phaseText(r.phase)),
                         r.candidate, std::string(autosched::reasonText(r.reason))});
    }
    fillGrid(grid, cells, -1);
    grid->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);

    auto* saveButton = namedButton(this, "SaveButton", "Save As CSV...");
    saveButton->setEnabled(!rows.empty());
    auto* closeButton = namedButton(this, "CloseButton", "Close");
    closeButton->setDefault(true);
    connect(saveButton, &QPushButton::clicked, this, [this] { save(); });
    connect(closeButton, &QPushButton::clicked, this, &QDialog::accept);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(saveButton);
    buttons->addWidget(closeButton);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(grid);
    layout->addLayout(buttons);
    resize(900, 480);
}

void AutoSchedExplanationDialog::save() {
    const auto path =
        s_.ui().chooseSaveFile("Save the explanation", "autoscheduler.csv", {{"Comma separated values", "*.csv"}});
    if (!path) return;
    std::ofstream out(*path, std::ios::binary);
    autosched::writeExplanationCsv(out, rows_);
    if (!out) s_.ui().inform("The file " + *path + " could not be written.", common::MsgIcon::Exclamation);
}

// ---------------------------------------------------------------------------------------------
// AutoSchedOptions and the first-use messages

AutoSchedOptionsDialog::AutoSchedOptionsDialog(common::Session& s, QWidget* parent) : QDialog(parent), model_(s) {
    using Options = autosched::AutoSchedOptions;
    setObjectName(QString::fromUtf8(Options::kWindowName));
    setWindowTitle(QString::fromUtf8(Options::kCaption));
    auto* frame = new QGroupBox(QString::fromUtf8(Options::kFrame1), this);
    frame->setObjectName(QStringLiteral("Frame1"));
    auto* boxes = new QVBoxLayout(frame);
    for (const Options::Box& b : Options::boxes()) {
        auto* box = new QCheckBox(QString::fromUtf8(b.caption), frame);
        box->setObjectName(QString::fromUtf8(b.name));
        box->setChecked(model_.*b.control);
        connect(box, &QCheckBox::toggled, this, [this, control = b.control](bool on) { model_.*control = on; });
        auto* text = plainText(frame, "", QString::fromUtf8(b.explanation));
        text->setContentsMargins(20, 0, 0, 8);
        boxes->addWidget(box);
        boxes->addWidget(text);
    }
    auto* ok = namedButton(this, "OKButton", "OK");
    ok->setDefault(true);
    auto* cancel = namedButton(this, "CancelButton", "Cancel");
    connect(ok, &QPushButton::clicked, this, [this] {
        if (model_.OKButton_Click()) accept();
    });
    connect(cancel, &QPushButton::clicked, this, [this] {
        if (model_.CancelButton_Click()) reject();
    });
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(frame);
    layout->addLayout(buttons);
    setMinimumWidth(460);
}

FirstUseMessageDialog::FirstUseMessageDialog(autosched::FirstUseMessage& model, const char* windowName,
                                             const char* caption, const std::vector<const char*>& labels,
                                             QWidget* parent)
    : QDialog(parent), model_(model) {
    setObjectName(QString::fromUtf8(windowName));
    setWindowTitle(QString::fromUtf8(caption));
    auto* layout = new QVBoxLayout(this);
    int n = 0;
    for (const char* text : labels) {
        const std::string name = "Label" + std::to_string(++n);
        layout->addWidget(plainText(this, name.c_str(), QString::fromUtf8(text)));
    }
    auto* again = new QCheckBox(QString::fromUtf8(autosched::FirstUseMessage::kDoNotShowAgain), this);
    again->setObjectName(QStringLiteral("DoNotShowAgain"));
    connect(again, &QCheckBox::toggled, this, [this](bool on) { model_.DoNotShowAgain = on; });
    auto* ok = namedButton(this, "OKButton", "OK");
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, [this] {
        model_.OKButton_Click();
        accept();
    });
    auto* row = new QHBoxLayout;
    row->addWidget(again);
    row->addStretch(1);
    row->addWidget(ok);
    layout->addLayout(row);
    setMinimumWidth(480);
}

}  // namespace tallymere::app

#pragma once
// The windows of the automatic scheduler: `AutoSched` and `AutoRebuildSched` with their Day or Week
// choice, progress bar and the explanation of the last run; `AutoSchedOptions`; the first-use
// messages `FirstAutoAddMsg` and `FirstAutoRebuildMsg`. Each shows a model of core/autosched and keeps
// no rule of its own.

#include "app/shell/app_context.h"
#include "autosched/auto_rebuild_sched.h"
#include "autosched/auto_sched.h"
#include "autosched/auto_sched_options.h"

#include <QDialog>
#include <memory>
#include <vector>

class QCheckBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QTableWidget;

namespace tallymere::app {

// What the last run of each window explained, kept while the program runs: `AutoSched` closes after
// its run, so its explanation is offered the next time it opens.
struct LastRuns {
    std::vector<autosched::ExplainRow> autoFill;
    std::vector<autosched::ExplainRow> rebuild;
};

// What both scheduler windows show: the frame with Day and Week, the bar, the buttons.
class AutoFillDialog : public QDialog {
public:
    // Ignored while a run is under way: the window stays until the run is over.
    void reject() override;

    bool running() const { return running_; }
    QProgressBar* progressBar() const { return bar_; }

protected:
    AutoFillDialog(AppContext& context, autosched::AutoFillWindow& model, std::vector<autosched::ExplainRow>& lastRun,
                   const char* windowName, const char* caption, const char* frameCaption, const char* runName,
                   const char* runCaption, QWidget* parent);

    // The run behind the action button; true when the window closes after it.
    virtual bool runModel() = 0;

    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void done(int result) override;

private:
    void display();
    void showBar();
    void runClicked();
    void explain();

    AppContext& context_;
    autosched::AutoFillWindow& model_;
    std::vector<autosched::ExplainRow>& lastRun_;
    QRadioButton* dayOption_;
    QRadioButton* weekOption_;
    QLabel* dayLabel_;
    QLabel* weekLabel_;
    QProgressBar* bar_;
    QPushButton* runButton_;
    QPushButton* closeButton_;
    QPushButton* explainButton_;
    bool running_ = false;
    bool placed_ = false;
};

class AutoSchedDialog : public AutoFillDialog {
public:
    AutoSchedDialog(AppContext& context, LastRuns& lastRuns, QWidget* parent = nullptr);
    autosched::AutoSched& model() { return *model_; }

protected:
    bool runModel() override { return model_->OKButton_Click(); }

private:
    AutoSchedDialog(AppContext& context, LastRuns& lastRuns, std::unique_ptr<autosched::AutoSched> model,
                    QWidget* parent);
    std::unique_ptr<autosched::AutoSched> model_;
};

class AutoRebuildSchedDialog : public AutoFillDialog {
public:
    AutoRebuildSchedDialog(AppContext& context, LastRuns& lastRuns, QWidget* parent = nullptr);
    autosched::AutoRebuildSched& model() { return *model_; }

protected:
    // The window stays open after a rebuild.
    bool runModel() override {
        model_->AutoRedoButton_Click();
        return false;
    }

private:
    AutoRebuildSchedDialog(AppContext& context, LastRuns& lastRuns, std::unique_ptr<autosched::AutoRebuildSched> model,
                           QWidget* parent);
    std::unique_ptr<autosched::AutoRebuildSched> model_;
};

// The list of the last run's explanation, with a button that saves it as CSV.
class AutoSchedExplanationDialog : public QDialog {
public:
    static constexpr const char* kWindowName = "AutoSchedExplanation";
    AutoSchedExplanationDialog(common::Session& s, const std::vector<autosched::ExplainRow>& rows,
                               QWidget* parent = nullptr);

private:
    void save();

    common::Session& s_;
    const std::vector<autosched::ExplainRow>& rows_;
};

class AutoSchedOptionsDialog : public QDialog {
public:
    explicit AutoSchedOptionsDialog(common::Session& s, QWidget* parent = nullptr);
    autosched::AutoSchedOptions& model() { return model_; }

private:
    autosched::AutoSchedOptions model_;
};

// `FirstAutoAddMsg` or `FirstAutoRebuildMsg`: the texts, the box and OK.
class FirstUseMessageDialog : public QDialog {
public:
    FirstUseMessageDialog(autosched::FirstUseMessage& model, const char* windowName, const char* caption,
                          const std::vector<const char*>& labels, QWidget* parent = nullptr);

private:
    autosched::FirstUseMessage& model_;
};

}  // namespace tallymere::app

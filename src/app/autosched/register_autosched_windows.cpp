// The automatic scheduler's commands: the scheduler and the rebuild, each after its first-use message,
// and the options.

#include "app/autosched/autosched_dialogs.h"
#include "app/common/qt_ui.h"
#include "autosched/auto_sched_options.h"

#include <memory>

namespace tallymere::app {

void registerAutoschedWindows(AppContext& context) {
    AppContext* c = &context;
    auto lastRuns = std::make_shared<LastRuns>();
    QtUi& ui = context.ui();
    ui.registerModal(autosched::AutoSched::kWindowName, [c, lastRuns] {
        AutoSchedDialog dialog(*c, *lastRuns);
        dialog.exec();
    });
    ui.registerModal(autosched::AutoRebuildSched::kWindowName, [c, lastRuns] {
        AutoRebuildSchedDialog dialog(*c, *lastRuns);
        dialog.exec();
    });
    ui.registerModal(autosched::AutoSchedOptions::kWindowName, [c] {
        AutoSchedOptionsDialog dialog(c->session(), c->mainWindow());
        dialog.exec();
    });
    ui.registerModal(autosched::FirstAutoAddMsg::kWindowName, [c] {
        autosched::FirstAutoAddMsg model(c->session());
        const auto& labels = autosched::FirstAutoAddMsg::labels();
        FirstUseMessageDialog dialog(model, autosched::FirstAutoAddMsg::kWindowName,
                                     autosched::FirstAutoAddMsg::kCaption, {labels.begin(), labels.end()},
                                     c->mainWindow());
        dialog.exec();
    });
    ui.registerModal(autosched::FirstAutoRebuildMsg::kWindowName, [c] {
        autosched::FirstAutoRebuildMsg model(c->session());
        const auto& labels = autosched::FirstAutoRebuildMsg::labels();
        FirstUseMessageDialog dialog(model, autosched::FirstAutoRebuildMsg::kWindowName,
                                     autosched::FirstAutoRebuildMsg::kCaption, {labels.begin(), labels.end()},
                                     c->mainWindow());
        dialog.exec();
    });

    context.registerCommand("mnuAutoSched", [c] { autosched::mnuAutoSched_Click(c->session()); });
    context.registerCommand("mnuAutoRebuildSchedule", [c] { autosched::mnuAutoRebuildSchedule_Click(c->session()); });
    context.registerCommand("mnuAutoSchedOptions", [c] { autosched::mnuAutoSchedOptions_Click(c->session()); });
}

}  // namespace tallymere::app

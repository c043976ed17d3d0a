#pragma once
// The windows of schedule files: `Openfrm` opens one (and renames or deletes), `opennew` creates or
// renames one, `SaveAs` copies the open one under a new name, `deletesched` deletes one. Whenever
// the current schedule file changes, the application around them is told.

#include "app/common/widget_support.h"
#include "app/reference/schedule_file_list.h"
#include "app/shell/app_context.h"
#include "reference/schedule_files.h"

#include <QDialog>
#include <optional>

namespace tallymere::app {

class OpenScheduleWindow : public QDialog {
public:
    OpenScheduleWindow(AppContext& context, QWidget* parent);

    reference::Openfrm& model() { return model_; }

private:
    void open();
    void changeName();
    void afterChange();

    AppContext& context_;
    reference::Openfrm model_;
    ScheduleFileListView list_;
    ViewGuard guard_{this};
};

class ScheduleNameWindow : public QDialog {
public:
    // New mode without `id`, rename mode on the schedule file with that `id`.
    ScheduleNameWindow(AppContext& context, std::optional<long> id, QWidget* parent);

    reference::opennew& model() { return model_; }

private:
    AppContext& context_;
    reference::opennew model_;
    Binder binder_;
    ViewGuard guard_{this};
};

class SaveAsWindow : public QDialog {
public:
    SaveAsWindow(AppContext& context, QWidget* parent);

    reference::SaveAs& model() { return model_; }

private:
    AppContext& context_;
    reference::SaveAs model_;
    Binder binder_;
    ViewGuard guard_{this};
};

class DeleteScheduleWindow : public QDialog {
public:
    DeleteScheduleWindow(AppContext& context, QWidget* parent);

    reference::deletesched& model() { return model_; }

private:
    AppContext& context_;
    reference::deletesched model_;
    ScheduleFileListView list_;
    ViewGuard guard_{this};
};

}  // namespace tallymere::app

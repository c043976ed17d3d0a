#pragma once
// `DefaultSave`: the length of the default schedule asked in days or weeks, with the days it will
// cover, before the week of the active date is saved as the default schedule.

#include "app/common/widget_support.h"
#include "schedule/default_schedule.h"

#include <QDialog>

namespace tallymere::app {

class DefaultSaveDialog : public QDialog {
public:
    explicit DefaultSaveDialog(common::Session& session, QWidget* parent = nullptr);

    schedule::DefaultSave& model() { return model_; }

private:
    schedule::DefaultSave model_;
    Binder binder_;
    ViewGuard guard_{this};
};

}  // namespace tallymere::app

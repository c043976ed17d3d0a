#pragma once
// The small dialogs over a model of their own: a form over OK and Cancel, where OK hands the entries
// to the model and closes the dialog only when the model accepts them.

#include "app/common/widget_support.h"

#include <QDialog>
#include <functional>
#include <utility>

class QLayout;

namespace tallymere::app {

// Makes `form` over a row of OK (the default button) and Cancel the dialog's layout. OK closes the
// dialog when `ok` returns true; Cancel when `cancel` does, or at once without one.
void formOverOkCancel(QDialog* dialog, QLayout* form, const char* okName, const char* cancelName,
                      std::function<bool()> ok, std::function<bool()> cancel = {});

// A dialog that owns a model answering ok() and cancel(); the widgets show it through binder_.
template <class Model>
class ModelDialog : public QDialog {
public:
    Model& model() { return model_; }

protected:
    template <class... Args>
    ModelDialog(QWidget* parent, const char* windowName, const QString& caption, Args&&... modelArgs)
        : QDialog(parent), model_(std::forward<Args>(modelArgs)...) {
        setObjectName(QString::fromUtf8(windowName));
        setWindowTitle(caption);
    }

    // The last step of a constructor, once the form's widgets are made and bound.
    void finish(QLayout* form) {
        formOverOkCancel(
            this, form, "OKButton", "CancelButton",
            [this] {
                const bool closes = model_.ok();
                // The checks may tidy an entry (pad the minutes, say); a refused one stays as they left it.
                binder_.show();
                return closes;
            },
            [this] { return model_.cancel(); });
        binder_.show();
    }

    Model model_;
    Binder binder_;

private:
    ViewGuard guard_{this};
};

}  // namespace tallymere::app

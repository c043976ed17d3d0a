#pragma once
// "Employee Comment" (`commentfrm`): a larger field for an entry's note, held by the caller.

#include "app/common/widget_support.h"
#include "schedule/daily_entry.h"

#include <QDialog>
#include <string>

namespace tallymere::app {

class CommentDialog : public QDialog {
public:
    // OK writes the trimmed text back into `sharedComment`; Cancel leaves it alone.
    CommentDialog(std::string& sharedComment, QWidget* parent);

    schedule::commentfrm& model() { return model_; }

private:
    schedule::commentfrm model_;
    Binder binder_;
    ViewGuard guard_{this};
};

}  // namespace tallymere::app

#pragma once
// The welcome window `firstrun`, shown once on the first start.

#include <QDialog>

namespace tallymere::app {

class FirstRunDialog : public QDialog {
    Q_OBJECT

public:
    explicit FirstRunDialog(QWidget* parent = nullptr);
};

}  // namespace tallymere::app

#pragma once
// `picturewindow`: an employee's picture shown large, its file in the caption.

#include <QDialog>

namespace tallymere::app {

class PictureWindow : public QDialog {
public:
    PictureWindow(const QString& file, QWidget* parent);
};

}  // namespace tallymere::app

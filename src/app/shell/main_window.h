#pragma once
// The main window: the frame of every child window. Its menus, toolbar and quick bar come with the shell.

#include <QMainWindow>

class QMdiArea;

namespace tallymere::common {
class Session;
}

namespace tallymere::app {

class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(common::Session& session, QWidget* parent = nullptr);

    common::Session& session() { return session_; }
    QMdiArea* mdiArea() const { return mdiArea_; }

private:
    common::Session& session_;
    QMdiArea* mdiArea_;
};

}  // namespace tallymere::app

#include "app/shell/main_window.h"

#include "common/session.h"

#include <QMdiArea>
#include <QMenuBar>

namespace tallymere::app {

MainWindow::MainWindow(common::Session& session, QWidget* parent)
    : QMainWindow(parent), session_(session), mdiArea_(new QMdiArea(this)) {
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(QString::fromUtf8(common::Session::kAppTitle));
    mdiArea_->setObjectName(QStringLiteral("mdiArea"));
    setCentralWidget(mdiArea_);
    menuBar();  // created now so that the shell's menus have their place
    resize(1024, 720);
}

}  // namespace tallymere::app

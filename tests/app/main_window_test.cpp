#include "app/shell/main_window.h"
#include "app_test.h"

#include <QApplication>
#include <QMdiArea>
#include <QMenuBar>

namespace tallymere::testing {
namespace {

using MainWindowTest = AppDatabaseTest;

QWidget* topLevelNamed(const QString& name) {
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->objectName() == name) return w;
    return nullptr;
}

TEST_F(MainWindowTest, IsFoundByItsWindowNameWithTheChildWindowArea) {
    app::MainWindow window(s());
    window.show();

    QWidget* frmMain = topLevelNamed(QStringLiteral("frmMain"));
    ASSERT_EQ(frmMain, &window);
    EXPECT_EQ(frmMain->windowTitle(), QStringLiteral("Tallymere"));
    auto* area = frmMain->findChild<QMdiArea*>(QStringLiteral("mdiArea"));
    ASSERT_NE(area, nullptr);
    EXPECT_EQ(window.centralWidget(), area);
    EXPECT_TRUE(area->subWindowList().isEmpty());
    EXPECT_NE(window.findChild<QMenuBar*>(), nullptr);
    EXPECT_TRUE(ui.messages.empty());
}

}  // namespace
}  // namespace tallymere::testing

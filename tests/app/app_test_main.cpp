#include "app_test.h"

#include <QByteArray>

namespace tallymere::testing {

namespace {
int argc = 1;
char name[] = "tallymere_app_tests";
char* argv[] = {name, nullptr};
}  // namespace

ApplicationScope::ApplicationScope() : app_(std::make_unique<app::TallymereApplication>(argc, argv)) {}

ApplicationScope::~ApplicationScope() = default;

}  // namespace tallymere::testing

int main(int argc, char** argv) {
    // Also when CTest lists the tests at build time, where no environment is set for it.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

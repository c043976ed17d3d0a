#pragma once
// One application object per test, so that what one test does to it (the program's end, the busy
// cursor) cannot reach the next.

#include "app/tallymere_application.h"
#include "support/test_database.h"

#include <gtest/gtest.h>
#include <memory>

namespace tallymere::testing {

class ApplicationScope {
public:
    ApplicationScope();
    ~ApplicationScope();
    app::TallymereApplication& app() { return *app_; }

private:
    std::unique_ptr<app::TallymereApplication> app_;
};

class AppTest : public ::testing::Test {
protected:
    app::TallymereApplication& app() { return scope_.app(); }

private:
    ApplicationScope scope_;
};

// A fresh database from the template with a session on it, and the application around it.
class AppDatabaseTest : public DatabaseTest {
protected:
    app::TallymereApplication& app() { return scope_.app(); }

private:
    ApplicationScope scope_;
};

}  // namespace tallymere::testing

#pragma once
// A fresh database made from the template in a temporary folder, with a session on it, a scripted
// Ui and a fixed clock. Each test gets its own.

#include "common/session.h"
#include "store/access.h"
#include "store/database.h"
#include "support/fake_ui.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <memory>

namespace tallymere::testing {

// A temporary folder removed with the object.
class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    const std::filesystem::path& path() const { return path_; }
    std::string str() const { return path_.string(); }

private:
    std::filesystem::path path_;
};

std::filesystem::path templatePath();

class DatabaseTest : public ::testing::Test {
protected:
    DatabaseTest();
    void SetUp() override;

    // Copies the template into the folder as Tallymere.db and connects.
    void makeDatabase();

    TempFolder folder;
    FakeUi ui;
    common::MemoryUserSettings userSettings;
    common::FixedClock clock{common::DateTime::fromParts(2026, 11, 23, 9, 0)};
    std::unique_ptr<common::Session> session;

    common::Session& s() { return *session; }
};

}  // namespace tallymere::testing

#include "support/test_database.h"

#include <atomic>
#include <random>
#include <unistd.h>

namespace tallymere::testing {

namespace fs = std::filesystem;

TempFolder::TempFolder() {
    static std::atomic<int> counter{0};
    std::random_device rd;
    path_ = fs::temp_directory_path() /
            ("tallymere-test-" + std::to_string(::getpid()) + "-" + std::to_string(counter++) + "-" + std::to_string(rd()));
    fs::create_directories(path_);
}

TempFolder::~TempFolder() {
    std::error_code ec;
    // Tests make files read-only; give the rights back so the folder can go.
    for (auto it = fs::recursive_directory_iterator(path_, ec); !ec && it != fs::recursive_directory_iterator(); ++it)
        fs::permissions(it->path(), fs::perms::owner_all, fs::perm_options::add, ec);
    fs::remove_all(path_, ec);
}

fs::path templatePath() { return TALLYMERE_TEMPLATE_PATH; }

DatabaseTest::DatabaseTest() : session(std::make_unique<common::Session>(ui, userSettings, clock)) {}

void DatabaseTest::SetUp() { makeDatabase(); }

void DatabaseTest::makeDatabase() {
    session->setDataFolder(folder.str());
    session->programFolder = templatePath().parent_path().string();
    fs::copy_file(templatePath(), session->DatabasePath(), fs::copy_options::overwrite_existing);
    ASSERT_TRUE(store::ConnectDB(*session));
}

}  // namespace tallymere::testing

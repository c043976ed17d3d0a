#pragma once
// A machine as a test sets it up: another copy running or not, the special folders, and which
// folders count as network shares.

#include "common/platform.h"

#include <set>
#include <string>

namespace tallymere::testing {

class FakePlatform : public common::Platform {
public:
    bool anotherCopyRunning() override { return anotherCopy; }
    std::string commonDocumentsFolder() override { return commonDocuments; }
    std::string applicationDataFolder() override { return applicationData; }
    bool isNetworkFolder(const std::string& path) override {
        return path.rfind("//", 0) == 0 || networkFolders.count(path) > 0;
    }
    std::string programVersion() override { return version; }

    bool anotherCopy = false;
    std::string commonDocuments;
    std::string applicationData;
    std::set<std::string> networkFolders;
    std::string version = "3.1.4";
};

}  // namespace tallymere::testing

#pragma once
// What the start-up and the maintenance windows need from the machine beyond files: other running
// copies, the special folders, whether a folder is on a network share, the program's version. The
// app implements it with Qt and the system; tests use a fake.

#include <string>

namespace tallymere::common {

class Platform {
public:
    virtual ~Platform() = default;

    // True when another copy of the program already runs on this machine for this user. A copy that
    // gets false holds the machine until it ends.
    virtual bool anotherCopyRunning() = 0;
    // The folder shared by all users' documents, and the user's application data folder; empty when
    // the system does not know one.
    virtual std::string commonDocumentsFolder() = 0;
    virtual std::string applicationDataFolder() = 0;
    // A folder on a network file system (NFS, SMB/CIFS, sshfs, or a path beginning with "//"), where
    // other machines may have the database open.
    virtual bool isNetworkFolder(const std::string& path) = 0;
    // "major.minor.revision"
    virtual std::string programVersion() = 0;
};

// A platform with no other copies, no special folders and no network shares but "//" paths.
class PlainPlatform : public Platform {
public:
    bool anotherCopyRunning() override { return false; }
    std::string commonDocumentsFolder() override { return {}; }
    std::string applicationDataFolder() override { return {}; }
    bool isNetworkFolder(const std::string& path) override { return path.rfind("//", 0) == 0; }
    std::string programVersion() override { return "3.0.0"; }
};

}  // namespace tallymere::common

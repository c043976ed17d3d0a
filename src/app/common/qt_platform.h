#pragma once
// The machine as Qt and the system see it: the lock that keeps a second copy out, the special
// folders, network file systems and the program's version.

#include "common/platform.h"

#include <QString>
#include <memory>
#include <optional>

class QLockFile;

namespace tallymere::app {

class QtPlatform final : public common::Platform {
public:
    // `lockFolder` empty: the user's runtime folder, or the temporary folder when there is none.
    explicit QtPlatform(QString lockFolder = {});
    ~QtPlatform() override;

    // Takes the lock on the first call and keeps it for the life of this object.
    bool anotherCopyRunning() override;
    std::string commonDocumentsFolder() override { return {}; }
    std::string applicationDataFolder() override;
    bool isNetworkFolder(const std::string& path) override;
    std::string programVersion() override;

    QString lockFilePath() const { return lockPath_; }

private:
    QString lockPath_;
    std::unique_ptr<QLockFile> lock_;
    std::optional<bool> another_;
};

}  // namespace tallymere::app

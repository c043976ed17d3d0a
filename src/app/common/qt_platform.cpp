#include "app/common/qt_platform.h"

#include <sys/statfs.h>
#include <QDir>
#include <QLockFile>
#include <QStandardPaths>

#ifndef TALLYMERE_VERSION
#define TALLYMERE_VERSION "0.0.0"
#endif

namespace tallymere::app {

namespace {

// File systems on which other machines may have the database open.
constexpr unsigned long kNetworkFileSystems[] = {
    0x6969,      // NFS
    0x517B,      // SMB
    0xFF534D42,  // CIFS
    0xFE534D42,  // SMB2
    0x65735546,  // FUSE, which is how sshfs mounts
};

}  // namespace

QtPlatform::QtPlatform(QString lockFolder) {
    if (lockFolder.isEmpty()) lockFolder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (lockFolder.isEmpty()) lockFolder = QStandardPaths::writableLocation(QStandardPaths::TempLocation);
    lockPath_ = QDir(lockFolder).filePath(QStringLiteral("tallymere.lock"));
}

QtPlatform::~QtPlatform() = default;

bool QtPlatform::anotherCopyRunning() {
    if (another_) return *another_;
    lock_ = std::make_unique<QLockFile>(lockPath_);
    // A copy that crashed leaves its lock behind; QLockFile sees that its process is gone.
    lock_->setStaleLockTime(0);
    if (lock_->tryLock(0)) {
        another_ = false;
    } else {
        // Only a lock held by a live process means another copy; a folder we cannot write to must
        // not keep the program from starting.
        another_ = lock_->error() == QLockFile::LockFailedError;
        lock_.reset();
    }
    return *another_;
}

std::string QtPlatform::applicationDataFolder() {
    // The system's folder is there on any desktop; in a fresh account it may not be made yet.
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (folder.isEmpty() || !QDir().mkpath(folder)) return {};
    return folder.toStdString();
}

bool QtPlatform::isNetworkFolder(const std::string& path) {
    if (path.rfind("//", 0) == 0) return true;
    struct statfs info {};
    if (path.empty() || ::statfs(path.c_str(), &info) != 0) return false;
    const auto type = static_cast<unsigned long>(static_cast<unsigned int>(info.f_type));
    for (const unsigned long t : kNetworkFileSystems)
        if (type == t) return true;
    return false;
}

std::string QtPlatform::programVersion() { return TALLYMERE_VERSION; }

}  // namespace tallymere::app

#pragma once
// The backup window, and the menu commands that open the backup and restore windows with the
// shared connection closed around them.

#include "common/session.h"

#include <string>

namespace tallymere::maintenance {

class backup {
public:
    // txtPath starts at the folder of the last backup or restore.
    explicit backup(common::Session& s);

    std::string txtPath;

    // Fills txtPath from the folder browser; a cancelled browser leaves it.
    void BrowseButton();
    // Copies Tallymere.db (consistently, even while another machine writes) and Tallymere.bak into
    // txtPath. True when the backup was made; every refusal and failure has been told.
    bool backupbutton();

private:
    common::Session& s_;
};

// mnubackup and the backup offered at exit: the window `backup` with the connection closed.
void RunBackup(common::Session& s);
// mnuRestore: the window `RestoreSchedData` with the connection closed. A successful restore ends
// the program (ProgramEnd goes through).
void RunRestore(common::Session& s);

}  // namespace tallymere::maintenance

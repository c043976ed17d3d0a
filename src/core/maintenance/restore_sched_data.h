#pragma once
// The restore window: a backed-up Tallymere.db replaces the live database. The old file is kept as
// Tallymere.tmp in the data folder, and the program then ends without the saves of a normal exit,
// so nothing of this run reaches the restored data.

#include "common/session.h"

#include <string>

namespace tallymere::maintenance {

class RestoreSchedData {
public:
    // txtPath starts at the folder of the last backup or restore.
    explicit RestoreSchedData(common::Session& s);

    static constexpr const char* kExplanation =
        "The Tallymere.db database file found in the folder selected below will be used to replace (overwrite) the "
        "shedule data currently in use. After restore is complete, you must restart Tallymere to use the restored "
        "data.";

    std::string txtPath;

    // Fills txtPath from the folder browser; a cancelled browser leaves it.
    void BrowseButton();
    // Refusals and failures are told and the window stays open. A successful restore ends the
    // program: Session::endProgram throws ProgramEnd after the message.
    void RestoreButton();

private:
    common::Session& s_;
};

}  // namespace tallymere::maintenance

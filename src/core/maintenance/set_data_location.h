#pragma once
// The windows that choose the data folder: SetDataLocation moves a running program to another folder
// (it then has to end), SetDataLocationStart gives the start a folder when it has none. No file is
// moved: the next start finds the database there or offers to create one.

#include "common/session.h"

#include <string>

namespace tallymere::maintenance {

// What the two windows share: the path field and its buttons.
class DataLocationWindow {
public:
    // `defaultFolder`: the folder DefaultButton offers, as the start works it out.
    DataLocationWindow(common::Session& s, std::string defaultFolder);

    std::string TxtPath;  // starts at the data folder

    void DefaultButton() { TxtPath = defaultFolder_; }
    // Fills TxtPath from the folder browser; a cancelled browser leaves it.
    void BrowseButton();

protected:
    // TxtPath as a folder; empty after telling the user to browse.
    std::string chosenFolder();

    common::Session& s_;
    std::string defaultFolder_;
};

class SetDataLocation : public DataLocationWindow {
public:
    using DataLocationWindow::DataLocationWindow;

    static constexpr const char* kNetworkNote =
        "Note: Set Data Location is used to set the data path when you want to share schedule data between 2 or more "
        "machines connected via a network.";
    // The default folder is in the user's own data location, so accounts of one machine do not
    // share it: the note says so rather than promise otherwise.
    static constexpr const char* kAccountsNote =
        "The default data folder belongs to your user account; other accounts on this machine have their own. To "
        "share data between accounts or machines, choose a shared or network folder with Browse.";

    // True when the window closes: the new folder is written to DataLocation and ExitNow is set, so
    // the caller ends the process.
    bool SetLocationButton();
};

class SetDataLocationStart : public DataLocationWindow {
public:
    using DataLocationWindow::DataLocationWindow;

    static constexpr const char* kPrompt = "Use the browse button to select a path for the Tallymere data.";

    // True when the window closes: the session's data folder is the path, written to DataLocation.
    bool SetLocationButton();
    // No folder: the start ends.
    void Cancel() { s_.setDataFolder(""); }
};

}  // namespace tallymere::maintenance

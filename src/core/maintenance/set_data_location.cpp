#include "maintenance/set_data_location.h"

#include "maintenance/file_copy.h"
#include "store/options.h"

#include <utility>

namespace tallymere::maintenance {

using common::MsgButtons;
using common::MsgIcon;

DataLocationWindow::DataLocationWindow(common::Session& s, std::string defaultFolder)
    : TxtPath(s.DataFolder()), s_(s), defaultFolder_(std::move(defaultFolder)) {}

void DataLocationWindow::BrowseButton() {
    if (auto folder = s_.ui().chooseFolder("Select the folder for the Tallymere data", TxtPath)) TxtPath = *folder;
}

std::string DataLocationWindow::chosenFolder() {
    std::string folder = folderText(TxtPath);
    if (folder.empty())
        s_.ui().message("Use browse to search for a folder to be used to set the new data location.", MsgButtons::Ok,
                        MsgIcon::None, "Set New Data Location");
    return folder;
}

bool SetDataLocation::SetLocationButton() {
    const std::string folder = chosenFolder();
    if (folder.empty()) return false;
    if (s_.ui().message("You are about to change the location of your Tallymere database from: \n" + s_.DataFolder() +
                            "\n\nto: \n" + folder +
                            "\n\n Are you sure you want to change the location of your schedule data? ",
                        MsgButtons::YesNo, MsgIcon::Exclamation,
                        "Confirm Request to Change Data Location") != common::MsgAnswer::Yes)
        return false;
    s_.ui().message("The new data location has been set to " + folder +
                        " Tallymere must now shut down to finish setting the new location. When you restart you will "
                        "be using the schedule data located at the new path.",
                    MsgButtons::Ok, MsgIcon::None, "Set Data location Complete");
    store::SaveRegSetting(s_, "DataLocation", folder);
    s_.ExitNow = true;
    return true;
}

bool SetDataLocationStart::SetLocationButton() {
    const std::string folder = chosenFolder();
    if (folder.empty()) return false;
    s_.setDataFolder(folder);
    s_.ui().message("The data folder location has been set to " + folder, MsgButtons::Ok, MsgIcon::None,
                    "Setect Data Folder");
    store::SaveRegSetting(s_, "DataLocation", folder);
    return true;
}

}  // namespace tallymere::maintenance

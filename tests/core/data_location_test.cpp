// The windows that choose the data folder, at start and while running.

#include "maintenance/set_data_location.h"
#include "support/test_database.h"

namespace tallymere::testing {
namespace {

using Rows = std::vector<std::string>;
const std::string kDefault = "/home/owner/Documents/Quillbrook/Tallymere";

class DataLocationTest : public DatabaseTest {};

TEST_F(DataLocationTest, ChangingTheLocationAsksThenWritesItAndEndsTheRun) {
    maintenance::SetDataLocation w(s(), kDefault);
    EXPECT_EQ(w.TxtPath, folder.str());
    w.TxtPath = " ";
    EXPECT_FALSE(w.SetLocationButton());
    EXPECT_EQ(ui.texts(), Rows{"Use browse to search for a folder to be used to set the new data location."});

    ui.clear();
    ui.nextFolder("/srv/share/tallymere/");
    w.BrowseButton();
    ui.answer(MsgAnswer::No);
    EXPECT_FALSE(w.SetLocationButton());
    EXPECT_EQ(ui.texts(),
              Rows{"You are about to change the location of your Tallymere database from: \n" + folder.str() +
                   "\n\nto: \n/srv/share/tallymere\n\n Are you sure you want to change the location of "
                   "your schedule data? "});
    EXPECT_EQ(userSettings.get("datalocation"), "");
    EXPECT_FALSE(s().ExitNow);

    EXPECT_TRUE(w.SetLocationButton());
    EXPECT_EQ(ui.messages.back().text,
              "The new data location has been set to /srv/share/tallymere Tallymere must now shut down to finish "
              "setting the new location. When you restart you will be using the schedule data located at the new "
              "path.");
    EXPECT_EQ(userSettings.get("datalocation"), "/srv/share/tallymere");
    EXPECT_TRUE(s().ExitNow);
    EXPECT_EQ(s().DataFolder(), folder.str());  // this run keeps its folder until it ends
}

TEST_F(DataLocationTest, AtStartTheChosenFolderBecomesTheDataFolder) {
    s().setDataFolder("");
    maintenance::SetDataLocationStart w(s(), kDefault);
    EXPECT_FALSE(w.SetLocationButton());
    EXPECT_EQ(ui.messages.back().title, "Set New Data Location");

    w.DefaultButton();
    EXPECT_TRUE(w.SetLocationButton());
    EXPECT_EQ(ui.messages.back().text, "The data folder location has been set to " + kDefault);
    EXPECT_EQ(ui.messages.back().title, "Setect Data Folder");
    EXPECT_EQ(s().DatabasePath(), kDefault + "/Tallymere.db");
    EXPECT_EQ(userSettings.get("DataLocation"), kDefault);

    maintenance::SetDataLocationStart(s(), kDefault).Cancel();
    EXPECT_EQ(s().DataFolder(), "");
}

}  // namespace
}  // namespace tallymere::testing

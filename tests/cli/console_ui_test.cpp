#include "cli/console_ui.h"

#include "cli/stop.h"

#include <gtest/gtest.h>
#include <sstream>

namespace tallymere::cli {
namespace {

using common::MsgAnswer;
using common::MsgButtons;
using common::MsgIcon;

TEST(ConsoleUi, PrintsAMessageOneLinePerLineKeepingBlankLines) {
    std::ostringstream err;
    ConsoleUi ui(err, Answer::None);
    ui.inform("For Mon Nov 23, 2026\r\n\r\n3  schedule entries were filled.\r\n1 remain **Unassigned**.");
    ui.inform("one\nline\rmore");
    EXPECT_EQ(err.str(),
              "For Mon Nov 23, 2026\n\n3  schedule entries were filled.\n1 remain **Unassigned**.\none\nline\nmore\n");
    EXPECT_EQ(ui.messagesShown(), 2);
}

TEST(ConsoleUi, AQuestionWithoutAnAnswerStopsWithStatus2AfterPrintingIt) {
    std::ostringstream err;
    ConsoleUi ui(err, Answer::None);
    try {
        ui.askYesNo("The live schedule for Mon Nov 23, 2026 will be rebuilt. Continue?");
        FAIL() << "the question was answered";
    } catch (const Stop& e) {
        EXPECT_EQ(e.status(), 2);
    }
    EXPECT_EQ(err.str().rfind("The live schedule for Mon Nov 23, 2026 will be rebuilt. Continue?\n", 0), 0u);
    EXPECT_NE(err.str().find("--yes or --no"), std::string::npos);
}

TEST(ConsoleUi, AnswersFromTheCommandLineInTheQuestionsOwnButtons) {
    std::ostringstream err;
    ConsoleUi yes(err, Answer::Yes);
    EXPECT_EQ(yes.message("Copy?", MsgButtons::YesNo, MsgIcon::Question, ""), MsgAnswer::Yes);
    EXPECT_EQ(yes.message("Override?", MsgButtons::YesNoCancel, MsgIcon::Question, ""), MsgAnswer::Yes);
    EXPECT_EQ(yes.message("Go on?", MsgButtons::OkCancel, MsgIcon::Question, ""), MsgAnswer::Ok);
    ConsoleUi no(err, Answer::No);
    EXPECT_EQ(no.message("Override?", MsgButtons::YesNoCancel, MsgIcon::Question, ""), MsgAnswer::No);
    EXPECT_EQ(no.message("Go on?", MsgButtons::OkCancel, MsgIcon::Question, ""), MsgAnswer::Cancel);
    // A plain message needs no answer, whatever was given.
    EXPECT_EQ(no.message("Copy completed", MsgButtons::Ok, MsgIcon::None, ""), MsgAnswer::Ok);
}

TEST(ConsoleUi, HasNoWindowsAndNoFileChooserWithoutAFileGiven) {
    std::ostringstream err;
    ConsoleUi ui(err, Answer::Yes);
    try {
        ui.showModal("DefaultSave");
        FAIL();
    } catch (const Stop& e) {
        EXPECT_EQ(e.status(), 2);
        EXPECT_NE(e.message().find("DefaultSave"), std::string::npos);
    }
    EXPECT_THROW(ui.chooseSaveFile("Export Data", "", {}, true), Stop);
    ui.setChosenFile("/tmp/out.txt", "--out");
    EXPECT_EQ(ui.chooseSaveFile("Export Data", "", {}, true), "/tmp/out.txt");
}

}  // namespace
}  // namespace tallymere::cli

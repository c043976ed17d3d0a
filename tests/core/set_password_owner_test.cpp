// The password settings belong to the owner: in user mode the owner password is asked for before the
// window opens, and passing that check changes nothing else of the run.

#include "maintenance/enterpassword.h"
#include "maintenance/setpassword.h"
#include "store/options.h"
#include "support/test_database.h"

#include <initializer_list>
#include <string>
#include <vector>

namespace tallymere::testing {
namespace {

using maintenance::kOwnerPasswordPrompt;
using maintenance::OpenSetPassword;
using Texts = std::vector<std::string>;

class SetPasswordOwnerTest : public DatabaseTest {
protected:
    void SetUp() override {
        DatabaseTest::SetUp();
        // Clear text, as an older database keeps it: no hash to wait for.
        for (const auto& [key, value] : {std::pair{"passwordowner", "Boss"}, std::pair{"passworduser", "Clerk"}})
            ASSERT_TRUE(
                store::InsertRecs(s(), "insert into options (optionname,optionvalue) values(?,?)", {key, value}));
        s().IsUserMode = true;
        s().rights.noShift = true;
    }
    // The prompt gets these entries one after the other, and is cancelled when none of them passes.
    void typeAtThePrompt(std::initializer_list<const char*> entries) {
        std::vector<std::string> typed(entries.begin(), entries.end());
        ui.onModal(kOwnerPasswordPrompt, [this, typed] {
            maintenance::enterpassword prompt(s(), true);
            for (const std::string& t : typed) {
                prompt.password = t;
                if (prompt.OK()) return;
            }
            prompt.Cancel();
        });
    }
    void expectUserModeKept() {
        EXPECT_TRUE(s().IsUserMode);
        EXPECT_TRUE(s().PasswordPassed);
        EXPECT_TRUE(s().rights.noShift);
    }
};

TEST_F(SetPasswordOwnerTest, UserModeOpensTheWindowOnlyAfterTheOwnerPassword) {
    typeAtThePrompt({"guess", "clerk"});
    EXPECT_FALSE(OpenSetPassword(s()));
    EXPECT_EQ(ui.modals, Texts{kOwnerPasswordPrompt});
    EXPECT_EQ(ui.texts(), Texts(2, "Please enter a valid password."));
    expectUserModeKept();

    typeAtThePrompt({"BOSS "});
    EXPECT_TRUE(OpenSetPassword(s()));
    EXPECT_EQ(ui.modals, (Texts{kOwnerPasswordPrompt, kOwnerPasswordPrompt, "setpassword"}));
    expectUserModeKept();
    EXPECT_EQ(store::GetOption(s(), "passworduser"), "Clerk");
}

TEST_F(SetPasswordOwnerTest, OwnerModeIsNotAskedAgain) {
    s().IsUserMode = false;
    EXPECT_TRUE(OpenSetPassword(s()));
    EXPECT_EQ(ui.modals, Texts{"setpassword"});
}

}  // namespace
}  // namespace tallymere::testing

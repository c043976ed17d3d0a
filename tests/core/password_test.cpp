// Owner and user passwords: how they are kept, the prompt of the start, and the window that sets
// them. Each hash costs a tenth of a second, so the tests make few.

#include "maintenance/password.h"
#include "common/text.h"
#include "maintenance/access_control.h"
#include "maintenance/enterpassword.h"
#include "maintenance/setpassword.h"
#include "store/options.h"
#include "support/test_database.h"

namespace tallymere::testing {
namespace {

using maintenance::hashPassword;
using maintenance::isPasswordHash;
using maintenance::passwordMatches;
using maintenance::passwordNeedsRehash;
using Rows = std::vector<std::string>;

TEST(PasswordHash, SaltedBlindToCaseAndBlanksAndClearTextStillCompares) {
    const std::string a = hashPassword(" Abc ");
    EXPECT_TRUE(isPasswordHash(a));
    EXPECT_EQ(a.find("ABC"), std::string::npos);
    EXPECT_NE(a, hashPassword("ABC"));
    EXPECT_TRUE(passwordMatches(a, "abc  "));
    EXPECT_FALSE(passwordMatches(a, "ab c"));
    EXPECT_FALSE(passwordNeedsRehash(a));

    EXPECT_TRUE(passwordMatches("Abc", " aBC"));
    EXPECT_FALSE(passwordMatches("Abc", "abd"));
    EXPECT_TRUE(passwordNeedsRehash("Abc"));
    EXPECT_FALSE(passwordNeedsRehash(" "));  // no password: nothing to protect
}

class PasswordTest : public DatabaseTest {
protected:
    void addRow(const std::string& key, const std::string& value) {
        ASSERT_TRUE(store::InsertRecs(s(), "insert into options (optionname,optionvalue) values(?,?)", {key, value}));
    }
    std::string option(const std::string& key) { return store::GetOption(s(), key); }
    std::size_t rows(const std::string& key) {
        return store::GetRecs(s(), "select * from options where optionname = ?", {key}).RecordCount();
    }
    bool login(const std::string& typed) {
        maintenance::enterpassword w(s());
        w.password = typed;
        return w.OK();
    }
};

TEST_F(PasswordTest, OwnerPasswordIgnoresCaseAndBlanks) {
    addRow("passwordowner", hashPassword("Abc"));
    s().IsUserMode = true;
    s().rights.noSchedule = true;
    EXPECT_TRUE(login("ABC "));
    EXPECT_TRUE(login("abc"));
    EXPECT_TRUE(s().PasswordPassed);
    EXPECT_FALSE(s().IsUserMode);
    EXPECT_FALSE(s().rights.noSchedule);

    // Without a user password any wrong entry gets the same answer, and the prompt stays.
    EXPECT_FALSE(login("abd"));
    EXPECT_FALSE(login(""));
    EXPECT_FALSE(s().PasswordPassed);
    EXPECT_EQ(ui.texts(), Rows(2, "Please enter a valid password."));
}

TEST_F(PasswordTest, OwnerIsComparedFirstAndAnEmptyUserValueOpensNothing) {
    addRow("passwordowner", hashPassword("same"));
    addRow("passworduser", hashPassword("SAME"));
    EXPECT_TRUE(login("Same"));
    EXPECT_FALSE(s().IsUserMode);

    store::UdateRecs(s(), "update options set optionvalue='' where optionname='passworduser'");
    EXPECT_FALSE(login(" "));
    EXPECT_FALSE(s().PasswordPassed);
}

TEST_F(PasswordTest, UserModeReadsTheRightsAndAddsMissingRowsAsNo) {
    addRow("passwordowner", hashPassword("boss"));
    addRow("passworduser", hashPassword("clerk"));
    addRow("passworduserschedule", "Yes");
    addRow("passworduseremployeeview", "Yes");
    addRow("passworduserpayroll", "No");
    EXPECT_TRUE(login(" CLERK"));
    EXPECT_TRUE(s().IsUserMode);
    const auto& r = s().rights;
    EXPECT_FALSE(r.noSchedule || r.noEmployeeView);
    EXPECT_TRUE(r.noPayroll && r.noEmployee && r.noPosition && r.noShift && r.noSection && r.noStaffLevels);
    for (const char* key : maintenance::kRightKeys) EXPECT_EQ(rows(key), 1u) << key;
    EXPECT_EQ(option("passwordusershift"), "No");
}

TEST_F(PasswordTest, ClearTextOfAnOlderDatabaseWorksAndIsReplacedByItsHash) {
    addRow("passwordowner", "Abc");
    addRow("passworduser", "Clerk");
    EXPECT_TRUE(login("abc"));
    const std::string owner = option("passwordowner");
    EXPECT_TRUE(isPasswordHash(owner));
    EXPECT_EQ(option("passworduser"), "Clerk");  // not typed, not touched yet

    EXPECT_TRUE(login("clerk"));
    EXPECT_TRUE(s().IsUserMode);
    EXPECT_TRUE(isPasswordHash(option("passworduser")));
    EXPECT_TRUE(login("ABC"));  // the hash lets the owner in, and is not made again
    EXPECT_EQ(option("passwordowner"), owner);
}

TEST_F(PasswordTest, SetPasswordShowsWhatIsSetButNotThePasswords) {
    addRow("passwordowner", hashPassword("boss"));
    addRow("passworduser", "clerk");
    addRow("passworduserschedule", "Yes");
    addRow("passworduseremployee", "Yes");  // without the view the change box cannot stay ticked
    maintenance::setpassword w(s());
    EXPECT_TRUE(w.requirepasswordoption && w.LockedImageVisible && w.passwordownerEnabled);
    EXPECT_TRUE(w.ownerPasswordSet && w.userPasswordSet);
    EXPECT_EQ(w.passwordowner + w.passworduser, "");
    EXPECT_TRUE(w.schedulecheck);
    EXPECT_FALSE(w.employeecheck || w.employeecheckEnabled || w.payrollcheck);

    w.setEmployeeView(true);
    w.employeecheck = true;
    w.setEmployeeView(false);
    EXPECT_FALSE(w.employeecheck || w.employeecheckEnabled);
    w.chooseNoPassword();
    EXPECT_TRUE(w.UnlockImageVisible);
    EXPECT_FALSE(w.passwordownerEnabled || w.passworduserEnabled || w.LockedImageVisible);
}

TEST_F(PasswordTest, SetPasswordStoresHashesAndTheBoxesInOrder) {
    maintenance::setpassword w(s());
    EXPECT_TRUE(w.nopasswordoption);
    w.chooseRequirePassword();
    w.passwordowner = " Boss ";
    w.passworduser = "Clerk";
    w.payrollcheck = true;
    w.setEmployeeView(true);
    ASSERT_TRUE(w.OK());

    Rows names;
    for (auto rs = store::GetRecs(s(), "select * from options order by rowid"); !rs.eof(); rs.MoveNext()) {
        names.push_back(rs["optionname"].text());
        // No clear text: the passwords are hashes (whose random letters may spell anything).
        const std::string value = rs["optionvalue"].text();
        if (names.size() <= 2) {
            EXPECT_EQ(value.rfind("$argon2id$", 0), 0u) << value;
        }
        EXPECT_NE(common::toUpper(value), "BOSS");
        EXPECT_NE(common::toUpper(value), "CLERK");
    }
    EXPECT_EQ(names, (Rows{"passwordowner", "passworduser", "passworduserstafflevels", "passworduserpayroll",
                           "passworduseremployeeview", "passwordusersection", "passworduserschedule",
                           "passworduserposition", "passwordusershift", "passworduseremployee"}));
    EXPECT_TRUE(login("clerk"));  // what was set is what the prompt takes
    EXPECT_FALSE(s().rights.noPayroll || s().rights.noEmployeeView);
    EXPECT_TRUE(s().rights.noEmployee && s().rights.noSchedule);
    EXPECT_TRUE(login("BOSS"));
    EXPECT_FALSE(s().IsUserMode);
}

TEST_F(PasswordTest, EmptyFieldsKeepStoredPasswordsAndRefuseAMissingOwner) {
    maintenance::setpassword first(s());
    first.chooseRequirePassword();
    first.passworduser = "clerk";
    EXPECT_FALSE(first.OK());
    EXPECT_EQ(ui.texts(), Rows{"If you want to specify a password, you must set the owner password. The user "
                               "password is optional."});
    EXPECT_EQ(rows("passwordowner") + rows("passworduser"), 0u);

    addRow("passwordowner", "Boss");  // clear text of an older database: kept, as its hash
    addRow("passworduser", hashPassword("clerk"));
    const std::string user = option("passworduser");
    maintenance::setpassword kept(s());
    ASSERT_TRUE(kept.OK());
    EXPECT_TRUE(isPasswordHash(option("passwordowner")));
    EXPECT_TRUE(passwordMatches(option("passwordowner"), "boss"));
    EXPECT_EQ(option("passworduser"), user);

    maintenance::setpassword cleared(s());
    cleared.ClearUserPasswordButton();
    ASSERT_TRUE(cleared.OK());
    EXPECT_EQ(rows("passworduser"), 0u);
    EXPECT_FALSE(login("clerk"));
}

TEST_F(PasswordTest, NoPasswordOptionEmptiesTheOwnerPasswordAndLeavesTheRest) {
    addRow("passwordowner", hashPassword("boss"));
    addRow("passworduser", "clerk");
    addRow("passworduserschedule", "Yes");
    maintenance::setpassword w(s());
    w.chooseNoPassword();
    w.schedulecheck = false;
    ASSERT_TRUE(w.OK());
    EXPECT_EQ(option("passwordowner"), "");
    EXPECT_EQ(option("passworduserschedule"), "Yes");
    EXPECT_TRUE(isPasswordHash(option("passworduser")));  // left, but not in clear text
    EXPECT_TRUE(passwordMatches(option("passworduser"), "CLERK"));
}

}  // namespace
}  // namespace tallymere::testing

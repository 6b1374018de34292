#include "backends/linux/PamService.h"

#include <gtest/gtest.h>

#include "linux/TestFolder.h"

namespace tavrix {
namespace {

class PamServiceTest : public testing::Test {
  protected:
    [[nodiscard]] bool Checks() const {
        return PamChecksPasswords("tavrix", {folder_.At("first"), folder_.At("second")});
    }
    /// With these rules of "other" alone.
    bool ChecksBy(const std::string& rules) {
        folder_.Put("second/other", rules);
        return Checks();
    }

    TestFolder folder_;
};

TEST_F(PamServiceTest, WithoutRulesNobodyIsLetIn) {
    EXPECT_FALSE(Checks());
    EXPECT_FALSE(ChecksBy(""));
    EXPECT_FALSE(ChecksBy("account required pam_unix.so\n#auth required pam_unix.so\n"));
}

TEST_F(PamServiceTest, APasswordModuleLetsIn) {
    EXPECT_TRUE(ChecksBy("auth required pam_unix.so nullok\n"));
    EXPECT_TRUE(ChecksBy("-auth\tsufficient\t/lib/security/pam_sss.so\n"));
    EXPECT_TRUE(ChecksBy("auth [success=1 default=ignore] pam_unix.so\nauth requisite pam_deny.so\n"));
    for (const char* module : {"pam_unix", "pam_sss", "pam_ldap", "pam_krb5", "pam_winbind",
                               "pam_systemd_home", "pam_unix2", "pam_tcb", "pam_pwdfile"})
        EXPECT_TRUE(ChecksBy(std::string("auth required ") + module + ".so\n")) << module;
    EXPECT_TRUE(ChecksBy("auth optional pam_faildelay.so delay=1\nauth required pam_unix.so\n"));
}

TEST_F(PamServiceTest, RulesThatRefuseLetNobodyIn) {
    EXPECT_FALSE(ChecksBy("auth required pam_warn.so\nauth required pam_deny.so\n"));
    EXPECT_FALSE(ChecksBy("auth required pam_deny.so\nauth required pam_unix.so\n"));
    EXPECT_FALSE(ChecksBy("auth required pam_permit.so\n"));
    EXPECT_FALSE(ChecksBy("auth required pam_warn.so # pam_unix.so\n"));
    EXPECT_TRUE(ChecksBy("auth optional pam_deny.so\nauth required pam_unix.so\n"));
}

TEST_F(PamServiceTest, IncludedRulesCount) {
    folder_.Put("first/common-auth", "auth required pam_unix.so\n");
    folder_.Put("second/closed", "auth requisite pam_deny.so\n");
    EXPECT_TRUE(ChecksBy("@include common-auth\n"));
    EXPECT_TRUE(ChecksBy("auth include common-auth\n"));
    EXPECT_TRUE(ChecksBy("auth substack common-auth\n"));
    EXPECT_FALSE(ChecksBy("account include common-auth\n"));
    EXPECT_FALSE(ChecksBy("@include closed\nauth required pam_unix.so\n"));
    EXPECT_FALSE(ChecksBy("@include none\nauth required pam_unix.so\n"));
    EXPECT_FALSE(ChecksBy("@include other\n"));  // round and round
    folder_.Put("first/silent", "auth optional pam_faildelay.so\n");
    for (const char* way : {"@include silent\n", "auth include silent\n", "auth substack silent\n"}) {
        EXPECT_TRUE(ChecksBy(way + std::string("auth required pam_unix.so\n"))) << way;
        EXPECT_FALSE(ChecksBy(way)) << way;
    }
    folder_.Put("first/again", "@include common-auth\n");
    EXPECT_TRUE(ChecksBy("@include again\n"));
}

TEST_F(PamServiceTest, RulesAreIncludedFromTheirFoldersOrByTheirWholePath) {
    folder_.Put("elsewhere", "auth required pam_unix.so\n");
    EXPECT_TRUE(ChecksBy("@include " + folder_.At("elsewhere") + "\n"));
    EXPECT_FALSE(ChecksBy("@include ../elsewhere\n"));
    EXPECT_FALSE(ChecksBy("@include\nauth required pam_unix.so\n"));
}

TEST_F(PamServiceTest, RulesOfOurOwnComeFirst) {
    folder_.Put("second/tavrix", "auth required pam_deny.so\n");
    EXPECT_FALSE(ChecksBy("auth required pam_unix.so\n"));
    folder_.Put("first/tavrix", "auth required pam_unix.so\n");
    EXPECT_TRUE(ChecksBy("auth required pam_deny.so\n"));
}

}  // namespace
}  // namespace tavrix

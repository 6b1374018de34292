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
    EXPECT_TRUE(ChecksBy("auth optional pam_faildelay.so delay=1\nauth required pam_unix.so\n"));
}

TEST_F(PamServiceTest, RulesThatRefuseLetNobodyIn) {
    EXPECT_FALSE(ChecksBy("auth required pam_warn.so\nauth required pam_deny.so\n"));
    EXPECT_FALSE(ChecksBy("auth required pam_deny.so\nauth required pam_unix.so\n"));
    EXPECT_FALSE(ChecksBy("auth required pam_permit.so\n"));
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
}

TEST_F(PamServiceTest, RulesOfOurOwnComeFirst) {
    folder_.Put("second/tavrix", "auth required pam_deny.so\n");
    EXPECT_FALSE(ChecksBy("auth required pam_unix.so\n"));
    folder_.Put("first/tavrix", "auth required pam_unix.so\n");
    EXPECT_TRUE(ChecksBy("auth required pam_deny.so\n"));
}

}  // namespace
}  // namespace tavrix

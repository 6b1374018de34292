// tavrix-password with a PAM of the tests' own.

#include <gtest/gtest.h>
#include <pwd.h>
#include <security/pam_appl.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

#include "backends/linux/PipedProgram.h"
#include "linux/Script.h"

namespace tavrix {
namespace {

/// Where Debian and others keep it; empty where it is not installed.
std::string Find(const std::string& file) {
    std::error_code error;
    for (const char* root : {"/usr/lib", "/usr/lib64"}) {
        if (std::filesystem::exists(std::filesystem::path(root) / file))
            return std::string(root) + "/" + file;
        for (const auto& folder : std::filesystem::directory_iterator(root, error)) {
            if (std::filesystem::exists(folder.path() / file)) return folder.path() / file;
        }
    }
    return {};
}

class PasswordCheckerTest : public testing::Test {
  protected:
    void SetUp() override {
#ifdef __SANITIZE_ADDRESS__
        GTEST_SKIP() << "a sanitized program is not wrapped";
#endif
        const std::string wrapper = Find("libpam_wrapper.so");
        matrix_ = Find("pam_wrapper/pam_matrix.so");
        if (wrapper.empty() || matrix_.empty()) GTEST_SKIP() << "libpam-wrapper is not installed";
        ASSERT_NE(std::getenv("TAVRIX_PASSWORD"), nullptr) << "the path of tavrix-password";
        ASSERT_NE(std::getenv("TAVRIX_PAM_MODULE"), nullptr) << "the path of the module of the tests";
        folder_.Put("known", account_ + ":secret:tavrix\n");
        Rules("auth required " + matrix_ + " passdb=" + folder_.At("known"));
        program_ = PutScript(folder_, "wrapped",
                             "export LD_PRELOAD=" + wrapper + " PAM_WRAPPER=1 PAM_WRAPPER_SERVICE_DIR=" +
                                 folder_.At("services") + "\nexec \"" + std::getenv("TAVRIX_PASSWORD") +
                                 "\" 2> '" + folder_.At("errors") + "'");
    }
    void Rules(const std::string& lines) {
        folder_.Put("services/tavrix", lines + "\n");
    }
    /// The rule of a module that lets everybody in, see PamModule.cpp.
    void LetIn(const std::string& options) {
        Rules("auth required " + std::string(std::getenv("TAVRIX_PAM_MODULE")) + " " + options);
    }
    /// The shell starts it like this from now on.
    void StartedBy(const std::string& before, const std::string& after) {
        program_ = PutScript(folder_, "starter", before + "\nexec '" + program_ + "' " + after);
    }
    /// The status for what is entered. Whatever happens, nothing is said.
    std::optional<int> StatusOf(std::string_view entered) {
        auto program = PipedProgram::Start(program_);
        if (!program) return std::nullopt;
        EXPECT_TRUE(program->Write(entered));
        program->EndInput();
        EXPECT_EQ(program->ReadLine(std::chrono::seconds(60)), "");
        EXPECT_EQ(folder_.Content("errors").find("secret"), std::string::npos);
        return program->Status(std::chrono::seconds(60));
    }

    TestFolder folder_;
    const std::string account_ = ::getpwuid(::getuid())->pw_name;
    std::string matrix_;
    std::string program_;
};

TEST_F(PasswordCheckerTest, KnowsTheRightPassword) {
    EXPECT_EQ(StatusOf("secret"), 0);
}

TEST_F(PasswordCheckerTest, KnowsAWrongOne) {
    EXPECT_EQ(StatusOf("secre"), 1);
    EXPECT_EQ(StatusOf("secret\n"), 1);
    EXPECT_EQ(StatusOf("Secret"), 1);
    EXPECT_EQ(StatusOf(""), 1);
}

TEST_F(PasswordCheckerTest, WhatNoPasswordIsIsNotChecked) {
    EXPECT_EQ(StatusOf(std::string_view("secret\0", 7)), 2);
    EXPECT_EQ(StatusOf("secret" + std::string(1018, 'x')), 2);
    EXPECT_EQ(StatusOf(std::string(100'000, 'x')), 2);
}

TEST_F(PasswordCheckerTest, WhatCannotBeReadIsNoEmptyPassword) {
    LetIn("");
    EXPECT_EQ(StatusOf(""), 0);
    StartedBy("", "< /");
    EXPECT_EQ(StatusOf(""), 2);
}

TEST_F(PasswordCheckerTest, OnlyARefusalIsAWrongPassword) {
    for (const int refusal : {PAM_AUTH_ERR, PAM_MAXTRIES, PAM_PERM_DENIED, PAM_USER_UNKNOWN}) {
        LetIn("result=" + std::to_string(refusal));
        EXPECT_EQ(StatusOf("secret"), 1) << refusal;
    }
    for (const int failure : {PAM_SYSTEM_ERR, PAM_BUF_ERR, PAM_CONV_ERR, PAM_AUTHINFO_UNAVAIL,
                              PAM_CRED_INSUFFICIENT, PAM_ABORT}) {
        LetIn("result=" + std::to_string(failure));
        EXPECT_EQ(StatusOf("secret"), 2) << failure;
    }
}

TEST_F(PasswordCheckerTest, WhoIsLetInAsSomebodyElseIsNotLetIn) {
    LetIn("user=" + account_);
    EXPECT_EQ(StatusOf("secret"), 0);
    for (const char* another : {"x", "-", " "}) {
        LetIn("[user=" + account_ + another + "]");
        EXPECT_EQ(StatusOf("secret"), 2) << another;
    }
    LetIn("user=" + account_.substr(1));
    EXPECT_EQ(StatusOf("secret"), 2);
}

TEST_F(PasswordCheckerTest, WhatIsSaidIsHeardAndOneSecretIsAnswered) {
    for (const char* asks : {"s", "is", "es", "siei", "i"}) {
        LetIn("asks=" + std::string(asks));
        EXPECT_EQ(StatusOf("secret"), 0) << asks;
    }
    for (const char* asks : {"n", "sn", "ns", "ss", "sis", ""}) {
        LetIn("asks=" + std::string(asks));
        EXPECT_EQ(StatusOf("secret"), 2) << asks;
    }
    LetIn("asks=s asks=s");
    EXPECT_EQ(StatusOf("secret"), 2);
    LetIn("asks=is");
    EXPECT_EQ(StatusOf("another"), 1);
}

TEST_F(PasswordCheckerTest, ItKeepsNothingThatTheCheckHasNoNeedOf) {
    LetIn("told=" + folder_.At("told"));
    StartedBy("export DISPLAY=:47.1\nulimit -c unlimited\numask 002\ncd '" + folder_.Path() + "'",
              "9< /dev/null");
    EXPECT_EQ(StatusOf("secret"), 0);
    EXPECT_EQ(
        folder_.Content("told"),
        "core 0 0\ndumpable 0\nfolder /\nmask 77\nends 1\nhanded on 0\ndisplay :47.1\nservice tavrix\n");
}

TEST_F(PasswordCheckerTest, RulesThatCannotBeFollowedLetNobodyIn) {
    Rules("auth required " + folder_.At("none.so"));
    EXPECT_NE(StatusOf("secret"), 0);
    Rules("auth required " + matrix_ + " passdb=" + folder_.At("none"));
    EXPECT_NE(StatusOf("secret"), 0);
    std::filesystem::remove(folder_.At("services/tavrix"));
    EXPECT_NE(StatusOf("secret"), 0);
}

TEST_F(PasswordCheckerTest, OneEntryAnswersOneQuestion) {
    const std::string rule = "auth required " + matrix_ + " passdb=" + folder_.At("known");
    Rules(rule + "\n" + rule);
    EXPECT_EQ(StatusOf("secret"), 2);
}

TEST_F(PasswordCheckerTest, RulesThatAskNothingLetInWhomTheyWill) {
    Rules("auth required pam_permit.so");
    EXPECT_EQ(StatusOf(""), 0);
    Rules("auth required pam_deny.so");
    EXPECT_EQ(StatusOf("secret"), 1);
}

}  // namespace
}  // namespace tavrix

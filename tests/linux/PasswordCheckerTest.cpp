// tavrix-password with a PAM of the tests' own.

#include <gtest/gtest.h>
#include <pwd.h>
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
        folder_.Put("known", std::string(::getpwuid(::getuid())->pw_name) + ":secret:tavrix\n");
        Rules("auth required " + matrix_ + " passdb=" + folder_.At("known"));
        program_ = PutScript(folder_, "wrapped",
                             "export LD_PRELOAD=" + wrapper + " PAM_WRAPPER=1 PAM_WRAPPER_SERVICE_DIR=" +
                                 folder_.At("services") + "\nexec \"" + std::getenv("TAVRIX_PASSWORD") +
                                 "\" 2> '" + folder_.At("errors") + "'");
    }
    void Rules(const std::string& lines) {
        folder_.Put("services/tavrix", lines + "\n");
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

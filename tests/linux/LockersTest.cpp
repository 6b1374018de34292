#include "backends/linux/Lockers.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>

#include "linux/Script.h"

namespace tavrix {
namespace {

class LockersTest : public testing::Test {
  protected:
    void Run(int id, const std::string& name, const std::string& display) {
        const std::string folder = std::to_string(id) + "/";
        processes_.Put(folder + "comm", name + "\n");
        processes_.Put(folder + "environ",
                       std::string("HOME=/root\0", 11) +
                           (display.empty() ? "" : "DISPLAY=" + display + std::string(1, '\0')));
    }
    [[nodiscard]] bool Runs(const std::string& display = ":1") const {
        return LockerRuns(display, processes_.Path());
    }

    TestFolder processes_;
};

TEST_F(LockersTest, OnlyLockersCount) {
    EXPECT_FALSE(Runs());
    Run(10, "openbox", ":1");
    Run(11, "xss-lock-not", ":1");
    processes_.Put("self/comm", "xss-lock\n");
    EXPECT_FALSE(Runs());
    for (const char* name :
         {"xss-lock", "xscreensaver", "light-locker", "xfce4-screensav", "kscreenlocker_g"}) {
        Run(12, name, ":1");
        EXPECT_TRUE(Runs()) << name;
    }
}

TEST_F(LockersTest, EachIsKnownByAsMuchOfItsNameAsTheSystemKeeps) {
    constexpr std::size_t Kept = 15;
    for (const std::string name : {"xscreensaver",
                                   "xscreensaver-systemd",
                                   "light-locker",
                                   "xss-lock",
                                   "xautolock",
                                   "xidlehook",
                                   "gnome-screensaver",
                                   "mate-screensaver",
                                   "cinnamon-screensaver",
                                   "xfce4-screensaver",
                                   "kscreenlocker_greet",
                                   "ukui-screensaver-dialog",
                                   "dde-lock",
                                   "budgie-screensaver",
                                   "i3lock",
                                   "i3lock-color",
                                   "betterlockscreen",
                                   "slock",
                                   "xsecurelock",
                                   "xtrlock",
                                   "xlock",
                                   "physlock",
                                   "vlock",
                                   "alock",
                                   "sxlock",
                                   "pyxtrlock",
                                   "swaylock",
                                   "swayidle",
                                   "hypridle",
                                   "hyprlock",
                                   "lxlock",
                                   "enlightenment",
                                   "gnome-shell"}) {
        Run(12, name.substr(0, Kept), ":1");
        EXPECT_TRUE(Runs()) << name;
    }
}

TEST_F(LockersTest, ThoseOfOtherDisplaysDoNot) {
    Run(12, "xss-lock", ":2.0");
    EXPECT_FALSE(Runs(":1"));
    EXPECT_FALSE(Runs(":20"));
    EXPECT_FALSE(Runs("host:2"));
    EXPECT_TRUE(Runs(":2"));
    EXPECT_TRUE(Runs("unix:2.1"));
}

TEST_F(LockersTest, OneThatHidesItsDisplayDoes) {
    processes_.Put("12/comm", "slock\n");
    EXPECT_TRUE(Runs());
    processes_.Put("12/environ", "");
    EXPECT_TRUE(Runs());
}

TEST_F(LockersTest, OneWithoutADisplayDoesNot) {
    Run(12, "vlock", "");
    EXPECT_FALSE(Runs());
}

TEST_F(LockersTest, OneOfAnotherUserDoesNot) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root makes somebody else's files";
    Run(12, "xss-lock", ":1");
    ASSERT_EQ(::chown(processes_.At("12").c_str(), 12345, 12345), 0);
    EXPECT_FALSE(Runs());
}

TEST_F(LockersTest, WithoutAListOfProcessesNobodyKnows) {
    EXPECT_TRUE(LockerRuns(":1", processes_.At("none")));
}

TEST_F(LockersTest, AServerStartedFromAConsoleIsSeen) {
    Run(10, "Xorg", "");
    Run(11, "bash", "");
    EXPECT_FALSE(StartedFromConsole(processes_.Path()));
    for (const char* starter : {"xinit", "startx", "sx"}) {
        Run(12, starter, "");
        EXPECT_TRUE(StartedFromConsole(processes_.Path())) << starter;
    }
    EXPECT_FALSE(Runs());
}

TEST(DesktopHasLockerTest, AllDesktopsDoButMereWindowManagers) {
    for (const char* names : {"", "openbox", "i3", "ICEWM", "fluxbox:openbox", ":"})
        EXPECT_FALSE(DesktopHasLocker(names)) << names;
    for (const char* names :
         {"GNOME", "KDE", "XFCE", "X-Cinnamon", "MATE", "LXQt", "openbox:GNOME", "Something new"})
        EXPECT_TRUE(DesktopHasLocker(names)) << names;
}

TEST(HasPasswordTest, OnlyAPasswordThatCanBeEnteredCounts) {
    EXPECT_TRUE(HasPassword("ada P 2026-01-01 0 99999 7 -1"));
    EXPECT_TRUE(HasPassword("ada PS 2026-01-01 0 99999 7 -1 (Password set, SHA512 crypt.)"));
    for (const char* status : {"ada NP 2026-01-01 0 99999 7 -1", "ada PX 2026-01-01", "ada L 2026-01-01",
                               "ada LK 2026-01-01", "P", "", "ada", "passwd: Permission denied."})
        EXPECT_FALSE(HasPassword(status)) << status;
}

class AccountTest : public testing::Test {
  protected:
    AccountTest() { ::setenv("PATH", (folder_.Path() + ":" + path_).c_str(), 1); }
    ~AccountTest() override { ::setenv("PATH", path_.c_str(), 1); }

    const std::string path_ = std::getenv("PATH");
    TestFolder folder_;
};

TEST_F(AccountTest, IsAskedOfTheSystem) {
    PutScript(folder_, "passwd", "[ \"$*\" = -S ] && cat > /dev/null && echo 'ada P 2026-01-01'");
    EXPECT_TRUE(AccountHasPassword());
    PutScript(folder_, "passwd", "echo 'ada NP 2026-01-01'");
    EXPECT_FALSE(AccountHasPassword());
    PutScript(folder_, "passwd", "echo 'ada P 2026-01-01'; exit 1");
    EXPECT_FALSE(AccountHasPassword());
}

TEST_F(AccountTest, WithoutAnAnswerHasNone) {
    PutScript(folder_, "passwd", "echo $$ > '" + folder_.At("id") + "'; exec sleep 600");
    EXPECT_FALSE(AccountHasPassword());
    if (const int id = std::atoi(folder_.Content("id").c_str()); id > 0) {
        const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (::kill(id, 0) == 0 && std::chrono::steady_clock::now() < limit)
            ::usleep(1000);
        EXPECT_NE(::kill(id, 0), 0) << "it is not left behind";
    }
    std::filesystem::remove(folder_.At("passwd"));
    ::setenv("PATH", folder_.Path().c_str(), 1);
    EXPECT_FALSE(AccountHasPassword());
}

}  // namespace
}  // namespace tavrix

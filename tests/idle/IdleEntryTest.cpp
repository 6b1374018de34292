#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include "backends/linux/HostIdleStart.h"
#include "backends/linux/HostProfile.h"
#include "backends/linux/Neighbour.h"
#include "base/RuntimeError.h"
#include "linux/TestFolder.h"

namespace tavrix {
namespace {

namespace fs = std::filesystem;

class IdleEntryTest : public testing::Test {
  protected:
    IdleEntryTest() { paths.config = folder.Path() + "/config/tavrix"; }

    [[nodiscard]] std::string Text() const {
        std::ostringstream text;
        text << std::ifstream(entry().File()).rdbuf();
        return text.str();
    }
    void Write(const std::string& text) const {
        fs::create_directories(fs::path(entry().File()).parent_path());
        std::ofstream(entry().File()) << text;
    }
    [[nodiscard]] IdleEntry entry() const { return IdleEntry(paths); }

    TestFolder folder;
    HostPaths paths;
};

TEST_F(IdleEntryTest, WithoutAnEntryItIsOff) {
    EXPECT_EQ(entry().File(), folder.Path() + "/config/autostart/tavrix-idle.desktop");
    EXPECT_EQ(entry().Minutes(), std::nullopt);
    entry().Set(std::nullopt, "/p");
    EXPECT_EQ(entry().Minutes(), std::nullopt);
}

TEST_F(IdleEntryTest, IsWhatTheDesktopStartsAndTellsTheMinutes) {
    entry().Set(25, "/usr/bin/tavrix-idle");
    EXPECT_EQ(Text(),
              "[Desktop Entry]\nType=Application\nName=Tavrix screen saver\n"
              "Comment=Starts the screen saver when nobody has worked for a while\n"
              "Exec=\"/usr/bin/tavrix-idle\"\nTryExec=/usr/bin/tavrix-idle\nNoDisplay=true\nHidden=false\n"
              "X-Tavrix-Minutes=25\n");
    EXPECT_EQ(entry().Minutes(), 25);
    entry().Set(std::nullopt, "/usr/bin/tavrix-idle");
    EXPECT_FALSE(fs::exists(entry().File()));
    EXPECT_EQ(entry().Minutes(), std::nullopt);
}

TEST_F(IdleEntryTest, APathWithSpecialCharactersIsOneProgram) {
    entry().Set(1, R"(/a b/c"d$e`f\g%h/tavrix-idle)");
    EXPECT_NE(Text().find("\nExec=\"/a b/c\\\\\"d\\\\$e\\\\`f\\\\\\\\g%%h/tavrix-idle\"\n"),
              std::string::npos)
        << Text();
    EXPECT_NE(Text().find("\nTryExec=/a b/c\"d$e`f\\\\g%h/tavrix-idle\n"), std::string::npos) << Text();
}

TEST_F(IdleEntryTest, LinesOfOthersStay) {
    Write(
        "# mine\n[Desktop Entry]\nName[de]=Bildschirmschoner\nName=other\nOnlyShowIn=LXDE;\n"
        "X-GNOME-Autostart-enabled=false\nExec=old\n\n[Desktop Action x]\nName=stays\n");
    entry().Set(3, "/p/tavrix-idle");
    EXPECT_EQ(Text(),
              "# mine\n[Desktop Entry]\nName[de]=Bildschirmschoner\nName=Tavrix screen saver\n"
              "OnlyShowIn=LXDE;\nX-GNOME-Autostart-enabled=true\nExec=\"/p/tavrix-idle\"\n\n"
              "Type=Application\nComment=Starts the screen saver when nobody has worked for a while\n"
              "TryExec=/p/tavrix-idle\nNoDisplay=true\nHidden=false\nX-Tavrix-Minutes=3\n"
              "[Desktop Action x]\nName=stays\n");
    EXPECT_EQ(entry().Minutes(), 3);
}

TEST_F(IdleEntryTest, BlanksMakeNoDifference) {
    Write("[Desktop Entry] \nExec = old\n X-Tavrix-Minutes =5\n");
    EXPECT_EQ(entry().Minutes(), 5);
    entry().Set(3, "/p/tavrix-idle");
    EXPECT_EQ(Text(),
              "[Desktop Entry] \nExec=\"/p/tavrix-idle\"\nX-Tavrix-Minutes=3\nType=Application\n"
              "Name=Tavrix screen saver\nComment=Starts the screen saver when nobody has worked for a while\n"
              "TryExec=/p/tavrix-idle\nNoDisplay=true\nHidden=false\n");
    EXPECT_EQ(entry().Minutes(), 3);
}

TEST_F(IdleEntryTest, LinesMayEndAsOnOtherSystems) {
    Write("[Desktop Entry]\r\nExec=old\r\nHidden=true\r\nX-Tavrix-Minutes=5\r\nOnlyShowIn=LXDE;\r\n");
    entry().Set(3, "/p/tavrix-idle");
    EXPECT_EQ(entry().Minutes(), 3);
    EXPECT_EQ(Text().find("[Desktop Entry]", 1), std::string::npos) << Text();
    EXPECT_NE(Text().find("\nOnlyShowIn=LXDE;\r\n"), std::string::npos) << Text();
}

TEST_F(IdleEntryTest, OthersMayReadItAndNotWriteIt) {
    const mode_t former = ::umask(002);
    entry().Set(3, "/p");
    ::umask(former);
    EXPECT_EQ(fs::status(entry().File()).permissions(), fs::perms(0644));
}

TEST_F(IdleEntryTest, DesktopsSwitchItOffInTheirOwnWays) {
    const std::string on = "[Desktop Entry]\nExec=x\nX-Tavrix-Minutes=5\n";
    Write(on);
    EXPECT_EQ(entry().Minutes(), 5);
    for (const char* off : {"Hidden=true\n", "X-GNOME-Autostart-enabled=false\n"}) {
        Write(on + off);
        EXPECT_EQ(entry().Minutes(), std::nullopt) << off;
        entry().Set(6, "/p");
        EXPECT_EQ(entry().Minutes(), 6) << off;
    }
    Write("");
    EXPECT_EQ(entry().Minutes(), std::nullopt);
}

TEST_F(IdleEntryTest, WhatIsHalfWrittenChangesNothingThatIsKnown) {
    entry().Set(25, "/p/tavrix-idle");
    const std::string whole = Text();
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        Write(whole.substr(0, length));
        const bool namesProgram = length > whole.find("Exec=") + 4;
        if (!namesProgram) {
            EXPECT_EQ(entry().Minutes(7), 7) << length;
            EXPECT_EQ(entry().Minutes(), std::nullopt) << length;
        }
        EXPECT_EQ(entry().Minutes(7), length < whole.size() ? 7 : 25) << length;
        // Of who has just begun nothing is known.
        EXPECT_EQ(entry().Minutes().has_value(), namesProgram) << length;
    }
    Write(whole + "Hidden=true\n");
    EXPECT_EQ(entry().Minutes(7), 25) << "the first of two counts";
    Write("[Desktop Entry]\nExec=x\nHidden=true\n");
    EXPECT_EQ(entry().Minutes(7), std::nullopt);
    fs::remove(entry().File());
    EXPECT_EQ(entry().Minutes(7), std::nullopt);
}

TEST_F(IdleEntryTest, AWholeOneWithoutANumberIsTheUsualOneWhereNothingIsKnown) {
    for (const char* end : {"", "\n"}) {
        Write(std::string("[Desktop Entry]\nExec=x") + end);
        EXPECT_EQ(entry().Minutes(), IdleEntry::UsualMinutes);
        EXPECT_EQ(entry().Minutes(7), 7);
        Write(std::string("[Desktop Entry]\nExec=x\nX-Tavrix-Minutes=5") + end);
        EXPECT_EQ(entry().Minutes(), 5);
    }
    Write("[Desktop Entry]\nExec=x\nX-Tavrix-Minutes=none\n");
    EXPECT_EQ(entry().Minutes(7), IdleEntry::UsualMinutes);
}

TEST_F(IdleEntryTest, WhoeverReadsItMeetsTheFormerOneOrTheNewOne) {
    entry().Set(25, "/p/tavrix-idle");
    const std::string former = Text();
    std::ifstream reader(entry().File());
    entry().Set(3, "/p/tavrix-idle");
    std::ostringstream read;
    read << reader.rdbuf();
    EXPECT_EQ(read.str(), former);
    EXPECT_EQ(entry().Minutes(), 3);
    EXPECT_EQ(std::distance(fs::directory_iterator(fs::path(entry().File()).parent_path()), {}), 1);
}

TEST_F(IdleEntryTest, ANumberThatMakesNoSenseIsTheUsualOne) {
    for (const char* number : {"", "0", "-3", "ten", "99999", "123456789123", "1 0"}) {
        Write("[Desktop Entry]\nExec=x\nX-Tavrix-Minutes=" + std::string(number) + "\n");
        EXPECT_EQ(entry().Minutes(), IdleEntry::UsualMinutes) << number;
    }
    Write("[Desktop Entry]\nExec=x\nX-Tavrix-Minutes=1440\n");
    EXPECT_EQ(entry().Minutes(), 1440);
    entry().Set(0, "/p");
    EXPECT_EQ(entry().Minutes(), 1);
    entry().Set(100'000, "/p");
    EXPECT_EQ(entry().Minutes(), 1440);
    EXPECT_NE(Text().find("X-Tavrix-Minutes=1440\n"), std::string::npos) << Text();
}

TEST_F(IdleEntryTest, WhatCannotBeWrittenIsAFailureAndAllIsAsBefore) {
    Write("[Desktop Entry]\nExec=x\n");
    fs::remove(entry().File());
    fs::create_directory(entry().File());
    EXPECT_THROW(entry().Set(3, "/p"), RuntimeError);
    EXPECT_THROW(entry().Set(std::nullopt, "/p"), RuntimeError);
    EXPECT_TRUE(fs::is_directory(entry().File()));
}

TEST_F(IdleEntryTest, WhatCannotBeReadIsNotTakenForNothing) {
    const std::string large = "[Desktop Entry]\nExec=mine\n" + std::string(LargestProfile, '#');
    Write(large);
    EXPECT_EQ(entry().Minutes(), std::nullopt);
    EXPECT_THROW(entry().Set(3, "/p"), RuntimeError);
    EXPECT_TRUE(Text() == large);
    entry().Set(std::nullopt, "/p");
    EXPECT_FALSE(fs::exists(entry().File()));
}

TEST_F(IdleEntryTest, SwitchingItOnStartsTheProgram) {
    const auto put = [this](const std::string& name) {
        const std::string program = folder.At(name);
        std::ofstream(program) << "#!/bin/sh\necho x >> " << program << ".started\n";
        fs::permissions(program, fs::perms::owner_all);
        return program;
    };
    HostIdleStart(paths, put("off")).Set(std::nullopt);
    HostIdleStart start(paths, put("on"));
    start.Set(4);
    EXPECT_EQ(start.Minutes(), 4);
    for (int i = 0; i < 2000 && !folder.Has("on.started"); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_TRUE(folder.Has("on.started"));
    EXPECT_FALSE(folder.Has("off.started"));
}

TEST_F(IdleEntryTest, ANeighbourLiesBesideOrInTheProgramsFolder) {
    const auto put = [this](const std::string& path, bool runs) {
        fs::create_directories(fs::path(folder.Path() + path).parent_path());
        std::ofstream(folder.Path() + path) << "x";
        if (runs) fs::permissions(folder.Path() + path, fs::perms::owner_all);
    };
    const std::string self = folder.Path() + "/usr/libexec/xscreensaver/tavrix-saver";
    put("/usr/libexec/xscreensaver/tavrix-saver", true);
    EXPECT_EQ(NeighbourOf(self, "tavrix"), "");
    put("/usr/bin/tavrix", false);
    EXPECT_EQ(NeighbourOf(self, "tavrix"), "");
    put("/usr/bin/tavrix", true);
    EXPECT_EQ(NeighbourOf(self, "tavrix"), folder.Path() + "/usr/bin/tavrix");
    put("/usr/libexec/xscreensaver/tavrix", true);
    EXPECT_EQ(NeighbourOf(self, "tavrix"), folder.Path() + "/usr/libexec/xscreensaver/tavrix");
}

}  // namespace
}  // namespace tavrix

#include "backends/linux/HostProcess.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "TestFolder.h"
#include "backends/shared/FileAddress.h"

namespace tavrix {
namespace {

class HostProcessTest : public testing::Test {
  protected:
    std::string LineOf(std::vector<std::string> arguments) {
        return HostProcess(drives, HostPaths{}, std::move(arguments)).CommandLine();
    }

    TestFolder folder;
    DriveMap drives{[this] {
        DriveMap::Sources sources;
        sources.drives = "C=/;D=" + folder.Path();
        return sources;
    }()};
};

TEST_F(HostProcessTest, JoinsTheArguments) {
    EXPECT_EQ(LineOf({}), "");
    EXPECT_EQ(LineOf({"SCRNSAVE"}), "SCRNSAVE");
    EXPECT_EQ(LineOf({"SCRNSAVE", "C"}), "SCRNSAVE C");
    EXPECT_EQ(LineOf({"a", "b"}), "a b");
}

TEST_F(HostProcessTest, TellsHostPathsAsDrivePaths) {
    folder.Put("My Pictures/a b.jpg", "");
    EXPECT_EQ(LineOf({folder.At("My Pictures/a b.jpg")}), "D:\\My Pictures\\a b.jpg");
    EXPECT_EQ(LineOf({folder.At("My"), "Pictures/a", "b.jpg"}), "D:\\My Pictures\\a b.jpg");
    EXPECT_EQ(LineOf({"/none/at all.jpg"}), "C:\\none\\at all.jpg");
    EXPECT_EQ(LineOf({"SCRNSAVE", "/shows/a.tvs"}), "SCRNSAVE C:\\shows\\a.tvs");
    EXPECT_EQ(LineOf({"SCRNSAVE /shows/a.tvs"}), "SCRNSAVE C:\\shows\\a.tvs");
    EXPECT_EQ(LineOf({FileAddressOf(folder.At("a b.jpg"))}), "D:\\a b.jpg");
    EXPECT_EQ(LineOf({folder.At("x/../a.jpg")}), "D:\\a.jpg");
}

TEST_F(HostProcessTest, TakesRelativePathsFromItsOwnFolder) {
    folder.Put("pictures/a.jpg", "");
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.At("pictures"));
    EXPECT_EQ(LineOf({"a.jpg"}), "D:\\pictures\\a.jpg");
    EXPECT_EQ(LineOf({"../pictures/a.jpg"}), "D:\\pictures\\a.jpg");
    EXPECT_EQ(LineOf({"b.jpg"}), "b.jpg");
    EXPECT_EQ(LineOf({"sub/b.jpg"}), "D:\\pictures\\sub\\b.jpg");
    std::filesystem::current_path(before);
}

TEST_F(HostProcessTest, BehindAnOptionOfTheDesktopEverythingIsAPath) {
    folder.Put("pictures/a", "");
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.At("pictures"));
    EXPECT_EQ(LineOf({"--open", "/none/at all.jpeg"}), "--open C:\\none\\at all.jpeg");
    EXPECT_EQ(LineOf({"--open", "/a"}), "--open C:\\a");
    EXPECT_EQ(LineOf({"--open", "a"}), "--open D:\\pictures\\a");
    EXPECT_EQ(LineOf({"--open", "../pictures/gone"}), "--open D:\\pictures\\gone");
    EXPECT_EQ(LineOf({"--open", folder.At("pictures/b  c.jpg")}), "--open D:\\pictures\\b  c.jpg");
    EXPECT_EQ(LineOf({"--open", folder.At("pictures/b ")}),
              "--open " + drives.ToDrivePath(folder.At("pictures/b ")));
    EXPECT_EQ(LineOf({"--open", FileAddressOf(folder.At("a b.jpg"))}), "--open D:\\a b.jpg");
    EXPECT_EQ(LineOf({"--open", "D:\\pictures\\a"}), "--open D:\\pictures\\a");
    EXPECT_EQ(LineOf({"--full-screen", "a"}), "--full-screen D:\\pictures\\a");
    EXPECT_EQ(LineOf({"--open"}), "--open");
    EXPECT_EQ(LineOf({"--open", ""}), "--open");
    EXPECT_EQ(LineOf({"--opened", "a"}), "--opened a");
    std::filesystem::current_path(before);
}

TEST_F(HostProcessTest, ABareWordIsNoFileWhateverLiesAboutUnderThatName) {
    for (const char* word : {"ABOUT", "open", "SLIDE SHOW", "S", "?"})
        folder.Put(word, "");
    folder.Put("about.jpg", "");
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.Path());
    for (const char* word : {"ABOUT", "open", "SLIDE SHOW", "S", "?"})
        EXPECT_EQ(LineOf({word}), word);
    EXPECT_EQ(LineOf({"SLIDE", "SHOW"}), "SLIDE SHOW");
    EXPECT_EQ(LineOf({"about.jpg"}), "D:\\about.jpg");
    EXPECT_EQ(LineOf({"./ABOUT"}), "D:\\ABOUT");
    std::filesystem::current_path(before);
}

TEST_F(HostProcessTest, LeavesSwitchesAndOtherTextAlone) {
    for (const char* text : {"/C", "/c", "/HELP", "/?", "C:\\a.bmp", "C:/a/b.bmp", "http://example.org/a.jpg",
                             "SCRNSAVE /C", "SCRNSAVEC", "https://example.org"}) {
        EXPECT_EQ(LineOf({text}), text);
    }
}

TEST_F(HostProcessTest, MakesTheProgramsFolder) {
    HostPaths paths;
    paths.program = folder.At("data/tavrix");
    EXPECT_EQ(HostProcess(drives, paths, {}).Path(), "D:\\data\\tavrix");
    EXPECT_TRUE(std::filesystem::is_directory(folder.At("data/tavrix")));
}

TEST_F(HostProcessTest, EndsAtOnce) {
    const pid_t child = ::fork();
    if (child == 0) {
        try {
            HostProcess(drives, HostPaths{}, {}).End();
        } catch (...) {
            ::_exit(7);
        }
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

TEST_F(HostProcessTest, DoesWhatIsLeftBeforeItsEnd) {
    const pid_t child = ::fork();
    if (child == 0) {
        HostProcess process(drives, HostPaths{}, {});
        process.BeforeEnd = [this] { folder.Put("left", "done"); };
        process.End();
    }
    ASSERT_EQ(::waitpid(child, nullptr, 0), child);
    EXPECT_EQ(folder.Content("left"), "done");
}

TEST(FileAddress, GoesBothWays) {
    EXPECT_EQ(FileAddressOf("/home/me/a b#%\u00e4.jpg"), "file:///home/me/a%20b%23%25%C3%A4.jpg");
    std::string all = "/";
    for (int byte = 1; byte < 256; ++byte)
        all.push_back(static_cast<char>(byte));
    EXPECT_EQ(PathOfFileAddress(FileAddressOf(all)), all);
    EXPECT_EQ(PathOfFileAddress("file://localhost/a"), "/a");
    EXPECT_EQ(PathOfFileAddress("file:///a%2fb"), "/a/b");
    for (const char* address : {"", "/a", "http://x/a", "file://machine/a", "file:///a%", "file:///a%2",
                                "file:///%zz", "file:///a%00"}) {
        EXPECT_EQ(PathOfFileAddress(address), std::nullopt) << address;
    }
}

}  // namespace
}  // namespace tavrix

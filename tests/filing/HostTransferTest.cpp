// The transfer of real files: look-alikes, links and kills.

#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "dialogs/CopyWindow.h"
#include "filing/HostProgram.h"
#include "filing/moving/frmCopyImages.h"
#include "filing/moving/frmMoveImages.h"
#include "linux/KilledChild.h"

namespace tavrix::test {
namespace {

TEST(HostTransferTest, LookAlikeFoldersStayApart) {
    HostDisks disks;
    for (const std::string folder : {"Pics", "PICS"}) {
        disks.folder.Put("c/" + folder + "/a.bmp", folder);
        disks.folder.Put("c/" + folder + "/A.BMP", folder + " capital");
    }
    HostProgram program(disks);
    program.Carry<frmMoveImages>("C:\\Pics", "C:\\q", {"a.bmp"}, 1);
    EXPECT_EQ(disks.folder.Content("c/q/a.bmp"), "Pics");
    EXPECT_FALSE(disks.folder.Has("c/Pics/a.bmp"));
    EXPECT_EQ(disks.folder.Content("c/Pics/A.BMP"), "Pics capital");
    EXPECT_EQ(disks.folder.Content("c/PICS/a.bmp"), "PICS");
    EXPECT_EQ(disks.folder.Content("c/PICS/A.BMP"), "PICS capital");
    // What looks like it is replaced in the target, after the question.
    program.Carry<frmCopyImages>("C:\\PICS", "C:\\q", {"A.BMP"}, 2);
    EXPECT_EQ(program.toolkit.BoxesShown(), 3);
    EXPECT_EQ(disks.folder.Content("c/q/a.bmp"), "PICS capital");
    EXPECT_FALSE(disks.folder.Has("c/q/A.BMP"));
    EXPECT_EQ(disks.folder.Content("c/PICS/A.BMP"), "PICS capital");
}

TEST(HostTransferTest, LinksMoveAsLinksAndAreReplacedThemselves) {
    HostDisks disks;
    disks.folder.Put("c/p/file.bmp", "file");
    disks.folder.Put("c/p/new.bmp", "new");
    disks.folder.Put("c/kept.bmp", "kept");
    std::filesystem::create_symlink("file.bmp", disks.folder.At("c/p/link.bmp"));
    std::filesystem::create_symlink("../kept.bmp", disks.folder.At("c/q/new.bmp"));
    HostProgram program(disks);
    program.Carry<frmMoveImages>("C:\\p", "C:\\q", {"link.bmp", "new.bmp"}, 2);
    EXPECT_TRUE(std::filesystem::is_symlink(disks.folder.At("c/q/link.bmp")));
    EXPECT_EQ(disks.folder.Content("c/q/link.bmp"), "file");
    EXPECT_EQ(disks.folder.Content("c/kept.bmp"), "kept");
    EXPECT_EQ(disks.folder.Content("c/q/new.bmp"), "new");
    EXPECT_FALSE(std::filesystem::is_symlink(disks.folder.At("c/q/new.bmp")));
}

TEST(HostTransferTest, AFolderThatIsALinkToTheSourceLosesNothing) {
    HostDisks disks;
    disks.folder.Put("c/p/a.bmp", "a");
    std::filesystem::create_directory_symlink(disks.folder.At("c/p"), disks.folder.At("c/same"));
    HostProgram program(disks);
    program.Carry<frmMoveImages>("C:\\p", "C:\\same", {"a.bmp"}, 1);
    program.Carry<frmCopyImages>("C:\\same", "C:\\p", {"a.bmp"}, 1);
    EXPECT_EQ(disks.folder.Content("c/p/a.bmp"), "a");
    EXPECT_EQ(program.toolkit.BoxesShown(), 2);
}

TEST(HostTransferTest, NamesOfAllKinds) {
    HostDisks disks;
    const std::string longest = std::string(251, 'n') + ".bmp";
    const std::vector<std::string> names{"with blanks.bmp", "it's \"mine\".bmp", "Äpfel & 写真.bmp", longest};
    for (const std::string& name : names)
        disks.folder.Put("c/p/" + name, name);
    HostProgram program(disks);
    // A quotation mark is shown by a look-alike, since no drive path can hold one.
    std::vector<std::string> listed = names;
    listed[1] = "it's \u02BAmine\u02BA.bmp";
    program.Carry<frmCopyImages>("C:\\p", "C:\\q", listed, 1);
    program.Carry<frmMoveImages>("C:\\p", "D:\\", listed, 1);
    for (const std::string& name : names) {
        EXPECT_EQ(disks.folder.Content("c/q/" + name), name);
        EXPECT_FALSE(disks.folder.Has("c/p/" + name));
        EXPECT_TRUE(std::filesystem::exists(disks.other + "/" + name)) << name;
    }
    EXPECT_EQ(program.toolkit.BoxesShown(), 2);
}

TEST(HostTransferTest, AKilledMoveLeavesEachFileWholeSomewhere) {
    HostDisks disks;
    if (!disks.OnTwoFileSystems()) GTEST_SKIP() << "/dev/shm is no second file system here";
    constexpr int Count = 50;
    constexpr int Kills = 200;
    std::vector<std::string> names;
    std::vector<std::string> contents;
    std::mt19937 random(7);
    for (int i = 0; i < Count; ++i) {
        names.push_back("picture " + std::to_string(i) + ".bmp");
        contents.emplace_back(20'000U + random() % 200'000U, static_cast<char>('a' + i % 26));
        disks.folder.Put("c/p/" + names.back(), contents.back());
    }
    const auto contentAt = [](const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        std::ostringstream content;
        content << file.rdbuf();
        return std::move(content).str();
    };
    // There and back, for as long as it is let.
    const auto moveOn = [&](int rounds, bool backFirst) {
        HostProgram program(disks);
        for (int round = 0; round < rounds; ++round) {
            for (const bool back : {backFirst, !backFirst}) {
                const std::string from = back ? "D:\\" : "C:\\p\\";
                const std::string to = back ? "C:\\p\\" : "D:\\";
                std::vector<TransferItem> items;
                for (const std::string& name : names) {
                    if (program.files.FileExists(from + name))
                        items.push_back({from + name, to + name, name});
                }
                CopyWindow window(program.module);
                FileTransfer(program.module, window, TransferAct::Move,
                             {.doing = "", .failure = "", .replace = {}})
                    .Run(items);
            }
        }
    };
    const auto start = std::chrono::steady_clock::now();
    moveOn(1, false);
    const auto once = std::chrono::nanoseconds(std::chrono::steady_clock::now() - start).count();
    int inBoth = 0;
    int midway = 0;
    for (int kill = 0; kill < Kills; ++kill) {
        const pid_t child = InChild([&] { moveOn(1'000'000, kill % 2 == 1); });
        ASSERT_GT(child, 0);
        const timespec moment{
            0, static_cast<long>(random()) % std::clamp(static_cast<long>(once), 1'000'000L, 60'000'000L)};
        ::nanosleep(&moment, nullptr);
        ::kill(child, SIGKILL);
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status));
        int there = 0;
        for (int i = 0; i < Count; ++i) {
            const auto at = static_cast<std::size_t>(i);
            const std::string here = disks.folder.At("c/p/" + names[at]);
            const std::string gone = disks.other + "/" + names[at];
            const bool hereNow = std::filesystem::exists(here);
            const bool goneNow = std::filesystem::exists(gone);
            ASSERT_TRUE(hereNow || goneNow) << names[at];
            if (hereNow) {
                ASSERT_TRUE(contentAt(here) == contents[at]) << here;
            }
            if (goneNow) {
                ASSERT_TRUE(contentAt(gone) == contents[at]) << gone;
            }
            if (hereNow && goneNow) ++inBoth;
            if (goneNow) ++there;
        }
        if (there > 0 && there < Count) ++midway;
    }
    // The kills came in the middle of it.
    EXPECT_GT(midway, Kills / 4);
    RecordProperty("midway", midway);
    RecordProperty("in_both", inBoth);
    // What lies about is cleared away by the next one that moves.
    moveOn(1, false);
    for (const std::string& folder : {disks.folder.At("c/p"), disks.other}) {
        for (const auto& entry : std::filesystem::directory_iterator(folder))
            EXPECT_NE(entry.path().filename().string().front(), '.') << entry.path();
    }
}

}  // namespace
}  // namespace tavrix::test

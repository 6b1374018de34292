// Copies to a disk that is really full: an image of 1.4 megabytes, mounted where the floppy's folder is. It needs the
// superuser and loop devices; elsewhere it is left out.

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "filing/HostProgram.h"
#include "filing/moving/frmCopyImages.h"
#include "filing/moving/frmMoveImages.h"

namespace tavrix::test {
namespace {

bool Runs(const std::string& command) {
    return std::system(("PATH=$PATH:/sbin:/usr/sbin; " + command + " >/dev/null 2>&1").c_str()) == 0;
}

/// A disk with this file system behind A:, seen by this process alone.
class SmallDiskTest : public ::testing::TestWithParam<const char*> {
  protected:
    void SetUp() override {
        const std::string kind = GetParam();
        if (::geteuid() != 0) GTEST_SKIP() << "mounting needs the superuser";
        if (!Runs("command -v mkfs." + kind)) GTEST_SKIP() << "mkfs." << kind << " is not installed";
        if (::unshare(CLONE_NEWNS) != 0 || ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
            GTEST_SKIP() << "no mounts of a process's own here";
        const std::string image = disks.folder.At("disk.img");
        if (!Runs("truncate -s 1440K " + image + " && mkfs." + kind + " " + image))
            GTEST_SKIP() << "mkfs." << kind << " makes no such disk";
        mounted_ = Runs("mount -t " + kind + " -o loop " + image + " " + disks.folder.At("a"));
        if (!mounted_) GTEST_SKIP() << "this machine does not mount " << kind << " images";
    }
    void TearDown() override {
        if (mounted_) ::umount2(disks.folder.At("a").c_str(), MNT_DETACH);
    }

    void Put(const std::string& name, std::size_t bytes) const {
        disks.folder.Put(name, std::string(bytes, 'p'));
    }
    [[nodiscard]] bool IsWhole(const std::string& name, std::size_t bytes, char content) const {
        return disks.folder.Content(name) == std::string(bytes, content);
    }
    static void ExpectYes(HostProgram& program, const std::string& question) {
        program.toolkit.Expect({.text = question + "\r\n\r\nA:\\",
                                .icon = forms::BoxIcon::Question,
                                .buttons = forms::BoxButtons::YesNo,
                                .reply = forms::Answer::Yes});
    }
    /// A copy that replaces the file old.bmp.
    static void ExpectReplacing(HostProgram& program) {
        ExpectYes(program, "Copy the file:\r\n\r\nold.bmp\r\n\r\n...to the following directory?");
        program.toolkit.Expect({.text = "The following file already exists in the destination folder:\r\n\r\n"
                                        "old.bmp\r\n\r\nReplace this file with the one in the source folder?",
                                .icon = forms::BoxIcon::Question,
                                .buttons = forms::BoxButtons::YesNoCancel,
                                .reply = forms::Answer::Yes});
    }
    static void ExpectFailure(HostProgram& program, const std::string& what, const std::string& path) {
        program.toolkit.Expect(
            {.text = "Aborting, unable to " + what + " the file:\r\n\r\n" + path + "\r\n\r\nDisk full...",
             .icon = forms::BoxIcon::Stop});
    }
    static void ExpectAsScripted(const HostProgram& program) {
        EXPECT_EQ(program.toolkit.Failures(), std::vector<std::string>{});
    }
    [[nodiscard]] std::vector<std::string> OnDisk() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(disks.folder.At("a"))) {
            if (entry.is_regular_file()) names.push_back(entry.path().filename());
        }
        std::ranges::sort(names);
        return names;
    }

    HostDisks disks;

  private:
    bool mounted_ = false;
};

TEST_P(SmallDiskTest, WhatNoLongerFitsIsToldAndNothingHalfIsLeft) {
    using Names = std::vector<std::string>;
    const Names names{"1.bmp", "2.bmp", "3.bmp", "4.bmp", "5.bmp"};
    for (const std::string& name : names)
        Put("c/p/" + name, 300'000);
    HostProgram program(disks);
    ExpectYes(program, "Move 5 files to the following directory?");
    ExpectFailure(program, "move", "C:\\P\\5.bmp");
    program.Carry<frmMoveImages>("C:\\p", "A:\\", names, 0);
    ExpectAsScripted(program);
    EXPECT_EQ(OnDisk(), (Names{"1.bmp", "2.bmp", "3.bmp", "4.bmp"}));
    for (const std::string& name : OnDisk())
        EXPECT_TRUE(IsWhole("a/" + name, 300'000, 'p')) << name;
    EXPECT_TRUE(IsWhole("c/p/5.bmp", 300'000, 'p'));
    EXPECT_FALSE(disks.folder.Has("c/p/4.bmp"));
}

TEST_P(SmallDiskTest, AFileIsReplacedAlsoWhereBothDoNotFitAndStaysWhereTheNewOneDoesNot) {
    disks.folder.Put("a/old.bmp", std::string(700'000, 'o'));
    disks.folder.Put("a/other.bmp", std::string(300'000, 't'));
    disks.folder.Put("c/p/old.bmp", std::string(800'000, 'n'));
    HostProgram program(disks);
    ExpectReplacing(program);
    program.Carry<frmCopyImages>("C:\\p", "A:\\", {"old.bmp"}, 0);
    ExpectAsScripted(program);
    EXPECT_TRUE(IsWhole("a/old.bmp", 800'000, 'n'));
    EXPECT_TRUE(IsWhole("a/other.bmp", 300'000, 't'));

    disks.folder.Put("c/q/old.bmp", std::string(1'200'000, 'm'));
    ExpectReplacing(program);
    ExpectFailure(program, "copy", "C:\\Q\\old.bmp");
    program.Carry<frmCopyImages>("C:\\q", "A:\\", {"old.bmp"}, 0);
    ExpectAsScripted(program);
    EXPECT_TRUE(IsWhole("a/old.bmp", 800'000, 'n'));
    EXPECT_EQ(OnDisk(), (std::vector<std::string>{"old.bmp", "other.bmp"}));
    EXPECT_TRUE(IsWhole("c/q/old.bmp", 1'200'000, 'm'));
}

TEST_P(SmallDiskTest, WhatIsWrittenPieceByPieceReplacesLikewise) {
    disks.folder.Put("a/old.bmp", std::string(700'000, 'o'));
    disks.folder.Put("a/other.bmp", std::string(300'000, 't'));
    HostProgram program(disks);
    const auto write = [&](int pieces) {
        const auto writer = program.files.Create("A:\\old.bmp");
        const std::string piece(100'000, 'n');
        for (int count = 0; count < pieces; ++count)
            writer->Write(std::as_bytes(std::span(piece)));
        EXPECT_TRUE(IsWhole("a/old.bmp", 700'000, 'o')) << "until the end";
        writer->Close();
    };
    EXPECT_EQ(ErrorOfCall([&] { write(12); }), 61);
    EXPECT_TRUE(IsWhole("a/old.bmp", 700'000, 'o'));
    write(8);
    EXPECT_TRUE(IsWhole("a/old.bmp", 800'000, 'n'));
    EXPECT_TRUE(IsWhole("a/other.bmp", 300'000, 't'));
    EXPECT_EQ(OnDisk(), (std::vector<std::string>{"old.bmp", "other.bmp"}));
}

INSTANTIATE_TEST_SUITE_P(Kinds, SmallDiskTest, ::testing::Values("vfat", "ext2"),
                         [](const auto& kind) { return std::string(kind.param); });

}  // namespace
}  // namespace tavrix::test

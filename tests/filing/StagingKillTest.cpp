// Floppy to floppy with real files, and a process that is killed at any moment of it.

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <ctime>
#include <filesystem>
#include <random>
#include <string>
#include <utility>

#include "base/Text.h"
#include "filing/HostProgram.h"
#include "filing/floppies/Staging.h"
#include "filing/floppies/frmDiskcopy.h"
#include "linux/KilledChild.h"

namespace tavrix::test {
namespace {

using forms::Answer;

/// Images on the floppy that would be staged over what an edit has in the temporary folder.
class StagingKillTest : public ::testing::Test {
  protected:
    StagingKillTest() {
        for (const std::string& name : {WorkingName, std::string("a.bmp"), std::string("z.bmp")})
            disks.folder.Put("a/" + name, std::string(150'000, name.front()));
        disks.folder.Put("a/" + UndoName, std::string(150'000, '~'));
        {
            HostProgram program(disks);  // which makes the temporary folder as it is to be
            static_cast<void>(program.files.Folder(KnownFolder::Temporary));
        }
        disks.folder.Put("c/Temp/Untitled.BMP", Edit);
        disks.folder.Put("c/Temp/~undo.tmp", Before);
    }

    /// The user copies all images of the disk, onto the same disk.
    static void CopyAll(HostProgram& program) {
        auto& dialog = program.app.Load<frmDiskcopy>(program.module);
        dialog.Show();
        dialog.Files.File1.SelectAll();
        const int files = dialog.Files.File1.ListCount();
        program.toolkit.Expect({.text = "", .reply = Answer::Ok});   // the source disk
        program.toolkit.Expect({.text = "", .reply = Answer::Yes});  // the question
        program.toolkit.Expect({.text = "", .reply = Answer::Ok});   // the destination disk
        for (int file = 0; file < files; ++file)
            program.toolkit.Expect({.text = "", .reply = Answer::Yes});
        dialog.CmdCopy.Deliver(forms::ClickEvent{});
    }
    /// Both of an edit's files are in the way. No list shows the undo file's name, so this is what the dialog does.
    static void StageBoth(HostProgram& program) {
        Staging staging(program.module, {UndoName, WorkingName});
        staging.SetAside();
        for (const std::string& name : {UndoName, WorkingName}) {
            program.files.Copy("A:\\" + name, staging.PathOf(name));
            staging.Staged(staging.PathOf(name));
        }
    }
    [[nodiscard]] bool IsAside() const {
        return disks.folder.Has("c/Temp/Untitled.BMP.aside") || disks.folder.Has("c/Temp/~undo.tmp.aside");
    }
    void ExpectEdit(const std::string& when) const {
        ASSERT_TRUE(disks.folder.Content("c/Temp/Untitled.BMP") == Edit) << when;
        ASSERT_TRUE(disks.folder.Content("c/Temp/~undo.tmp") == Before) << when;
        ASSERT_FALSE(IsAside()) << when;
    }

    static inline const std::string WorkingName = "UNTITLED.BMP";
    static inline const std::string UndoName = "~UNDO.TMP";
    const std::string Edit = std::string(60'000, 'e') + "the edit";
    const std::string Before = std::string(60'000, 'b') + "before it";
    HostDisks disks;
};

TEST_F(StagingKillTest, ACopyThatEndsLeavesTheEditAndNothingElse) {
    HostProgram program(disks);
    CopyAll(program);
    StageBoth(program);
    ExpectEdit("at the end");
    for (const auto& entry : std::filesystem::directory_iterator(disks.folder.At("c/Temp"))) {
        const std::string name = entry.path().filename();
        EXPECT_TRUE(name == "Untitled.BMP" || name == "~undo.tmp") << name;
    }
}

TEST_F(StagingKillTest, AfterAKillAtAnyMomentTheNextStartHasTheEditAgain) {
    constexpr int Kills = 120;
    std::mt19937 random(17);
    int aside = 0;
    for (int kill = 0; kill < Kills; ++kill) {
        const bool both = kill % 2 == 1;
        std::array<int, 2> ready{};
        ASSERT_EQ(::pipe(ready.data()), 0);
        const pid_t child = InChild([&] {
            HostProgram program(disks);
            for (bool first = true;; first = false) {
                if (both) {
                    StageBoth(program);
                } else {
                    CopyAll(program);
                }
                if (first && ::write(ready[1], "x", 1) != 1) ::_exit(1);
            }
        });
        ASSERT_GT(child, 0);
        ::close(ready[1]);
        char told = 0;
        ASSERT_EQ(::read(ready[0], &told, 1), 1);
        ::close(ready[0]);
        const timespec moment{0, static_cast<long>(random() % 6'000'000U)};
        ::nanosleep(&moment, nullptr);
        ::kill(child, SIGKILL);
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status));
        const bool wasAside = IsAside();
        if (wasAside) ++aside;

        HostProgram next(disks);
        PutBackSetAside(next.module);
        ExpectEdit("after kill " + std::to_string(kill));
        // The exit of that start leaves what nobody was asked about.
        if (wasAside && !both) {
            ASSERT_EQ(next.module.KeptWorkingFiles, std::vector<std::string>{"C:\\Temp\\Untitled.BMP"});
        }
        if (testing::Test::HasFatalFailure()) return;
    }
    // The kills came in the middle of it.
    EXPECT_GT(aside, Kills / 8);
    RecordProperty("aside", aside);
}

}  // namespace
}  // namespace tavrix::test

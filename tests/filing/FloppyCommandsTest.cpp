#include "FloppyTest.h"
#include "filing/floppies/frmCopyFloppy.h"
#include "filing/floppies/frmDeleteFloppy.h"
#include "filing/floppies/frmDiskcopy.h"
#include "filing/floppies/frmPutOnFloppy.h"

namespace tavrix::test {
namespace {

class FloppyCommandsTest : public FloppyTest {
  protected:
    struct Command {
        forms::Menu* entry;
        std::string window;
        std::string noFiles;  ///< empty: it needs none
    };
    std::vector<Command> Commands() {
        MainMenu& menu = View().menu;
        const std::string copy = "There are no files on the floppy disk to copy.";
        return {
            {&menu.mnuCopyFromFloppy, "frmCopyFloppy", copy},
            {&menu.mnuCopyImgToFloppy, "frmPutOnFloppy", ""},
            {&menu.mnuDiskcopyFloppy, "frmDiskcopy", copy},
            {&menu.mnuDelImgOnFloppy, "frmDeleteFloppy", "There are no files on the floppy disk to delete."}};
    }
    /// Runs a command; how often its dialog was shown.
    int Shown(const Command& command) {
        int shown = 0;
        toolkit.OnModal(command.window, [&] {
            ++shown;
            EXPECT_FALSE(module.Busy());
            app.Unload(app.FormAt(app.FormCount() - 1));
        });
        command.entry->Deliver(forms::ClickEvent{});
        EXPECT_FALSE(module.Busy());
        return shown;
    }

    static constexpr const char* Insert =
        "Insert a disk into floppy drive A:\\ and then press the OK button to continue.";
};

TEST_F(FloppyCommandsTest, ADiskWithFilesOpensTheDialogs) {
    PutOnDisk({"x.bmp"});
    for (const Command& command : Commands())
        EXPECT_EQ(Shown(command), 1) << command.window;
}

TEST_F(FloppyCommandsTest, AFileThatIsNoImageIsOneToo) {
    PutOnDisk({"readme.txt"});
    for (const Command& command : Commands())
        EXPECT_EQ(Shown(command), 1) << command.window;
}

TEST_F(FloppyCommandsTest, AnEmptyDiskIsToldWhereFilesAreNeeded) {
    for (const Command& command : Commands()) {
        if (!command.noFiles.empty())
            ExpectTold(command.noFiles + "\r\n\r\nInsert another disk and then try again...");
        EXPECT_EQ(Shown(command), command.noFiles.empty() ? 1 : 0) << command.window;
    }
}

TEST_F(FloppyCommandsTest, WithoutADiskOneIsAskedForUntilThereIsOne) {
    PutOnDisk({"x.bmp"});
    for (const Command& command : Commands()) {
        platform.disks.PullDisk('A');
        ExpectPrompt(Insert, Answer::Ok);
        ExpectPrompt(Insert, Answer::Ok, [this] { platform.disks.InsertDisk('A', disk); });
        EXPECT_EQ(Shown(command), 1) << command.window;
        platform.disks.PullDisk('A');
        ExpectPrompt(Insert, Answer::Cancel);
        EXPECT_EQ(Shown(command), 0) << command.window;
    }
}

TEST_F(FloppyCommandsTest, TheDriveIsTheOneOfTheSettings) {
    platform.disks.AddDrive('B', DriveType::Removable);
    module.config.DefaultFloppy = "B:\\";
    ExpectPrompt("Insert a disk into floppy drive B:\\ and then press the OK button to continue.",
                 Answer::Cancel);
    EXPECT_EQ(Shown(Commands().front()), 0);
}

TEST_F(FloppyCommandsTest, NothingHappensWhileSomethingElseRuns) {
    PutOnDisk({"x.bmp"});
    const auto commands = Commands();
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    for (const Command& command : commands)
        command.entry->Deliver(forms::ClickEvent{});
    EXPECT_EQ(app.FormCount(), 1);
    module.Screen().MousePointer = forms::MousePointer::Default;
}

TEST_F(FloppyCommandsTest, TheMainViewIsNotAboveTheDialogs) {
    PutOnDisk({"x.bmp"});
    module.config.TopMostWindow = true;
    View().SetTopmost(true);
    for (const Command& command : Commands()) {
        toolkit.OnModal(command.window, [&] {
            EXPECT_FALSE(toolkit.VisibleWindow("MainViewFrm")->topmost) << command.window;
            app.Unload(app.FormAt(app.FormCount() - 1));
        });
        command.entry->Deliver(forms::ClickEvent{});
        EXPECT_TRUE(toolkit.VisibleWindow("MainViewFrm")->topmost) << command.window;
    }
}

}  // namespace
}  // namespace tavrix::test

#include <functional>
#include <tuple>

#include "lists/frmBrowseQuick.h"
#include "lists/frmFavFolder.h"
#include "lists/frmQuickFolders.h"
#include "support/FaultSweep.h"
#include "support/QuietMachine.h"
#include "viewer/OneProcess.h"

#include <gtest/gtest.h>

namespace tavrix::test {
namespace {

using headless::Service;

void Press(forms::CommandButton& button) {
    button.Deliver(forms::ClickEvent{});
}

/// A user who sets the favorite folder and a quick folder by all the ways that there are, with the first, the second,
/// the third call of a service failing. Boxes are closed as they come.
class FolderWindowsFault : public ::testing::TestWithParam<Service> {
  protected:
    static void SetUpMachine(headless::HeadlessServices& machine) {
        MakeQuiet(machine);
        machine.disks.AddDrive('D', DriveType::Fixed);
        machine.disks.InsertDisk('D');
        machine.disks.PutFile("C:\\Pictures\\a.bmp", "a");
        machine.disks.PutFile("C:\\My Documents\\b.txt", "b");
        machine.disks.PutFile("D:\\Photos\\c.bmp", "c");
        machine.disks.PutFile("C:\\Tavrix\\tavrix.ini",
                              "[Viewer]\r\nStartupDialog=0\r\nFavoriteFolder=C:\\Pictures\r\n"
                              "QuickFolder1=Photos\r\nQuickFolderPath1=D:\\Photos\\\r\n");
    }
    static void Use(OneProcess& program, FolderChooser& chooser) {
        Press(chooser.CmdFF2);
        program.toolkit.ChooseFromPopup("Photos");
        chooser.CmdFF2.Deliver(
            forms::MouseEvent{forms::MouseAction::Down, forms::MouseButton::Right, 0, 1, 1});
        Press(chooser.CmdMyDocuments);
        Press(chooser.CmdExplore);
        for (const int row : {0, 2, 1})
            chooser.Drive1.Deliver(forms::RowEvent{row});
        chooser.Dir1.Deliver(forms::RowEvent{0});
        chooser.Dir1.Deliver(forms::DoubleClickEvent{});
        program.toolkit.ExpectInput(
            {.prompt = "Enter the name of the folder to create:", .title = "New Folder", .reply = "New"});
        Press(chooser.CmdNewFolder);
    }
    /// The windows are open and close by OK.
    static void UserSetsFolders(OneProcess& program, int& opened) {
        program.toolkit.OnModal("frmFavFolder", [&] {
            ++opened;
            auto& dialog = *program.app.Loaded<frmFavFolder>();
            Use(program, dialog.Chooser);
            Press(dialog.CmdHelp);
            Press(dialog.CmdOK);
        });
        program.toolkit.OnModal("frmBrowseQuick", [&] {
            ++opened;
            auto& browse = *program.app.Loaded<frmBrowseQuick>();
            Use(program, browse.Chooser);
            Press(browse.CmdOK);
        });
        program.toolkit.OnModal("frmQuickFolders", [&] {
            ++opened;
            auto& dialog = *program.app.Loaded<frmQuickFolders>();
            Press(dialog.Rows[0].CmdBrowse);
            Press(dialog.Rows[1].CmdBrowse);
            Press(dialog.CmdOK);
        });
        program.View().menu.mnuFavoriteFolder.Deliver(forms::ClickEvent{});
        program.View().menu.mnuQuickFolders.Deliver(forms::ClickEvent{});
    }
    /// Whether a fault came.
    static bool RunWithFault(Service service, int call) {
        headless::HeadlessServices machine;
        SetUpMachine(machine);
        const auto before = machine.disks.AllFiles();
        OneProcess program(machine);
        EXPECT_TRUE(program.Start());
        machine.faults.Clear();
        machine.faults.FailNth(service, call, ErrorNumber::DiskNotReady);

        int opened = 0;
        EXPECT_NO_THROW(UserSetsFolders(program, opened));
        const bool fired = machine.faults.Fired();
        machine.faults.Clear();

        EXPECT_EQ(opened, 4);
        EXPECT_EQ(program.app.FormCount(), 1);
        EXPECT_FALSE(program.module.Busy());
        EXPECT_EQ(program.toolkit.ScreenPointer(), forms::MousePointer::Default);
        EXPECT_EQ(machine.disks.AllFiles(), before);

        // The windows can be used, and they find their folders again.
        program.toolkit.OnModal("frmFavFolder", [&] {
            auto& dialog = *program.app.Loaded<frmFavFolder>();
            dialog.Chooser.Drive1.Deliver(forms::RowEvent{2});
            dialog.Chooser.Dir1.Path = "D:\\Photos";
            Press(dialog.CmdOK);
        });
        program.View().menu.mnuFavoriteFolder.Deliver(forms::ClickEvent{});
        EXPECT_EQ(program.module.config.FavoriteFolder, "D:\\Photos");
        return fired;
    }
};

TEST_P(FolderWindowsFault, NothingCrossesAndTheWindowsStayUsable) {
    const int faults = SweepFaults([&](int call) { return RunWithFault(GetParam(), call); });
    EXPECT_GT(faults, 0);
}

INSTANTIATE_TEST_SUITE_P(Services, FolderWindowsFault,
                         ::testing::Values(Service::Files, Service::Drives, Service::Shell, Service::Help,
                                           Service::System));

}  // namespace
}  // namespace tavrix::test

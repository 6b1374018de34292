#include <gtest/gtest.h>

#include "browsing/frmThumbFolder.h"
#include "browsing/frmThumbSelect.h"
#include "browsing/frmThumbnail.h"
#include "shows/stage/FullViewFrm.h"
#include "support/FaultSweep.h"
#include "support/ProgramFixture.h"
#include "viewer/OneProcess.h"

namespace tavrix::test {
namespace {

using headless::Service;

void Press(forms::CommandButton& button) {
    button.Deliver(forms::ClickEvent{});
}

/// A user who browses by all the ways that there are, with the first, the second, the third call of a service failing.
/// Boxes are closed as they come.
class BrowsingFault : public ::testing::TestWithParam<Service> {
  protected:
    static std::string PathOf(int number) { return "C:\\Pictures\\" + std::to_string(number) + ".bmp"; }

    static void SetUpMachine(headless::HeadlessServices& machine) {
        machine.store.Set("EXEPath", "C:\\Tavrix\\");
        machine.store.Set("ProgramRun", "1");
        machine.store.Set("Show Tips at Startup", "0");
        for (int number = 10; number < 22; ++number)
            machine.pictures.SetPicture(PathOf(number), PlainPicture(20, 10));
        machine.pictures.SetPicture("C:\\Pictures\\0.gif", PlainPicture(20, 10));
        machine.disks.PutFile("C:\\Tavrix\\tavrix.ini", "[Viewer]\r\nStartupDialog=0\r\n");
        machine.shell.links["C:\\Pictures\\link.lnk"] = PathOf(12);
        machine.files.ChangeFolder("C:\\Pictures");
    }
    static void Click(frmThumbnail& browser, int button) {
        browser.picPreview[0].Deliver(forms::MouseEvent{forms::MouseAction::Down, button, 0, 1, 1});
    }
    static void UserBrowses(OneProcess& program) {
        program.toolkit.OnModal("frmThumbFolder", [&] {
            auto& dialog = *program.app.Loaded<frmThumbFolder>();
            dialog.Chooser.Drive1.Deliver(forms::RowEvent{0});
            dialog.Chooser.Drive1.Deliver(forms::RowEvent{1});
            SkipFailure([&] { dialog.Chooser.Dir1.Path = "C:\\Pictures"; });
            Press(dialog.CmdOK);
            if (!dialog.Unloaded()) program.app.Unload(dialog);
        });
        program.toolkit.OnModal("frmThumbSelect", [&] {
            auto& dialog = *program.app.Loaded<frmThumbSelect>();
            Press(dialog.CmdAll);
            Press(dialog.CmdOK);
            if (!dialog.Unloaded()) program.app.Unload(dialog);
        });
        program.toolkit.OnModal("FullViewFrm",
                                [&] { program.app.Unload(*program.app.Loaded<FullViewFrm>()); });
        program.View().menu.mnuThumbnailBrowse.Deliver(forms::ClickEvent{});
        auto* browser = program.app.Loaded<frmThumbnail>();
        if (browser == nullptr) return;
        Press(browser->CmdNext);
        browser->picPreview[1].Deliver(forms::MouseEvent{forms::MouseAction::Move, 0, 0, 1, 1});
        Press(browser->CmdSelect);
        for (const char* entry :
             {"Show &Image Information", "»»  &View Animated GIF  ««", "»»  Vie&w Image  ««"}) {
            program.toolkit.ChooseFromPopup(entry);
            Click(*browser, forms::MouseButton::Right);
        }
        browser->Deliver(forms::DropEvent{{"C:\\Pictures\\link.lnk", PathOf(13)}, 1, 1});
        Click(*browser, forms::MouseButton::Left);
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

        EXPECT_NO_THROW(UserBrowses(program));
        const bool fired = machine.faults.Fired();
        machine.faults.Clear();

        EXPECT_FALSE(program.module.Busy());
        EXPECT_EQ(program.toolkit.ScreenPointer(), forms::MousePointer::Default);
        EXPECT_EQ(machine.disks.AllFiles(), before);
        EXPECT_FALSE(program.module.StageImageAnimated);
        // The way back is there, and all can be done again.
        if (auto* browser = program.app.Loaded<frmThumbnail>()) {
            EXPECT_TRUE(program.app.Unload(*browser));
        }
        EXPECT_EQ(program.app.FormCount(), 1) << program.app.FormAt(program.app.FormCount() - 1).Name();
        EXPECT_TRUE(program.View().Visible());
        machine.files.ChangeFolder("C:\\Pictures");
        UserBrowses(program);
        EXPECT_EQ(program.module.CurrentImage, PathOf(12));
        EXPECT_EQ(program.app.FormCount(), 1);
        return fired;
    }
};

TEST_P(BrowsingFault, NothingCrossesAndTheWindowsStayUsable) {
    const int faults = SweepFaults([&](int call) { return RunWithFault(GetParam(), call); });
    EXPECT_GT(faults, 0);
}

INSTANTIATE_TEST_SUITE_P(Services, BrowsingFault,
                         ::testing::Values(Service::Files, Service::Drives, Service::Pictures, Service::Shell,
                                           Service::System));

}  // namespace
}  // namespace tavrix::test

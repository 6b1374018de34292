#include "base/RuntimeError.h"
#include "editing/SavingTest.h"
#include "finding/FindImageFrm.h"
#include "finding/frmDuplicateFiles.h"
#include "shows/stage/FullViewFrm.h"
#include "support/FaultSweep.h"
#include "viewer/OneProcess.h"

namespace tavrix::test {
namespace {

using headless::Service;

void Press(forms::CommandButton& button) {
    button.Deliver(forms::ClickEvent{});
}

void PressDelete(forms::ListBox& list) {
    list.SetFocus();
    list.OwnerForm().Deliver(forms::KeyEvent{true, forms::KeyCode::Delete, 0, nullptr});
}

/// A user who finds, previews and imports, with the first, the second, the third call of a service failing. Boxes are
/// closed as they come, so that no question is agreed to.
class FindingFault : public ::testing::TestWithParam<Service> {
  protected:
    static void SetUpMachine(headless::HeadlessServices& machine) {
        machine.store.Set("EXEPath", "C:\\Tavrix\\");
        machine.store.Set("ProgramRun", "1");
        machine.store.Set("Show Tips at Startup", "0");
        for (const char* path : {"C:\\a\\1.bmp", "C:\\b\\1.bmp"})
            machine.pictures.SetPicture(path, PlainPicture(20, 10));
        machine.disks.PutFile("C:\\c\\t.tga", PlainTga(5, 4, 0, 0));
        machine.disks.PutFile("C:\\Tavrix\\tavrix.ini", "[Viewer]\r\nStartupDialog=0\r\n");
    }
    static void UserFinds(OneProcess& program) {
        program.toolkit.OnModal("FindImageFrm", [&] {
            auto& form = *program.app.Loaded<FindImageFrm>();
            SkipFailure([&] { form.Find.Drive1.Drive = "C:"; });
            Press(form.Find.CmdFind);
            PressDelete(form.Find.ListFiles);
            if (form.Find.ListFiles.ListCount() > 0) {
                form.Find.ListFiles.ListIndex = form.Find.ListFiles.ListCount() - 1;
            }
            Press(form.Find.CmdHelp);
            Press(form.Find.CmdOpen);
            if (auto* left = program.app.Loaded<FindImageFrm>()) program.app.Unload(*left);
        });
        program.toolkit.OnModal("FullViewFrm",
                                [&] { program.app.Unload(*program.app.Loaded<FullViewFrm>()); });
        program.toolkit.OnModal("frmDuplicateFiles", [&] {
            auto& form = *program.app.Loaded<frmDuplicateFiles>();
            program.toolkit.Expect(
                {.text = "You are about to search the selected drive(s) for duplicate files...\r\n\r\n"
                         "This could take several minutes to complete.",
                 .buttons = forms::BoxButtons::OkCancel,
                 .reply = forms::Answer::Ok});
            form.ListDrives.SelectNone();
            form.ListDrives.Select(form.ListDrives.ListCount() - 1);
            Press(form.CmdFind);
            if (form.ListFiles.ListCount() > 0) form.ListFiles.ListIndex = 0;
            for (forms::CommandButton* button : {&form.CmdPreview, &form.CmdShowPath, &form.CmdDelete})
                Press(*button);
            if (form.ListFiles.ListCount() > 0) form.ListFiles.ListIndex = 0;
            Press(form.CmdOpen);
            if (auto* left = program.app.Loaded<frmDuplicateFiles>()) Press(left->CmdClose);
        });
        program.View().menu.mnuFindImage.Click();
        // What was imported has not been saved.
        program.module.CurrentImage.clear();
        program.View().menu.mnuSearchDuplicate.Click();
    }
    static bool RunWithFault(Service service, int call) {
        headless::HeadlessServices machine;
        SetUpMachine(machine);
        const auto before = machine.disks.AllFiles();
        OneProcess program(machine);
        EXPECT_TRUE(program.Start());
        machine.faults.Clear();
        machine.faults.FailNth(service, call, ErrorNumber::DiskNotReady);
        EXPECT_NO_THROW(UserFinds(program));
        const bool fired = machine.faults.Fired();
        machine.faults.Clear();

        EXPECT_EQ(program.app.FormCount(), 1);
        EXPECT_FALSE(program.module.Busy());
        EXPECT_TRUE(program.View().picFrame.Visible);
        for (const auto& [path, content] : before)
            EXPECT_EQ(machine.disks.Content(path), content) << path;
        EXPECT_TRUE(machine.shell.trash.empty());

        // The windows can be used.
        std::size_t found = 0;
        program.toolkit.OnModal("FindImageFrm", [&] {
            auto& form = *program.app.Loaded<FindImageFrm>();
            form.Find.Drive1.Drive = "C:";
            form.Find.txtSearch.Text = "1.bmp";
            Press(form.Find.CmdFind);
            found = form.Find.FoundPaths.size();
            program.app.Unload(form);
        });
        program.module.CurrentImage.clear();
        program.View().menu.mnuFindImage.Click();
        EXPECT_EQ(found, 2U);
        return fired;
    }
};

TEST_P(FindingFault, NothingIsLostAndTheWindowsStayUsable) {
    EXPECT_GT(SweepFaults([&](int call) { return RunWithFault(GetParam(), call); }), 0);
}

INSTANTIATE_TEST_SUITE_P(Services, FindingFault,
                         ::testing::Values(Service::Files, Service::Drives, Service::Shell, Service::Pictures,
                                           Service::NViewLib, Service::Help, Service::System));

}  // namespace
}  // namespace tavrix::test

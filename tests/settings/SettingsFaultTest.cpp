#include <gtest/gtest.h>

#include "settings/SysInfoFrm.h"
#include "settings/frmAbout.h"
#include "settings/frmAdvanced.h"
#include "settings/frmPreferences.h"
#include "settings/frmTip.h"
#include "support/FaultSweep.h"
#include "support/QuietMachine.h"
#include "viewer/OneProcess.h"

namespace tavrix::test {
namespace {

using headless::Service;

void Press(forms::CommandButton& button) {
    button.Deliver(forms::ClickEvent{});
}

/// A user who goes through all windows of the settings and of the Help menu, with the first, the second, the third call of a
/// service failing. Boxes are closed as they come.
class SettingsFault : public ::testing::TestWithParam<Service> {
  protected:
    static void UserGoesThroughAll(OneProcess& program, int& opened) {
        program.toolkit.OnModal("frmPreferences", [&] {
            ++opened;
            auto& dialog = *program.app.Loaded<frmPreferences>();
            Press(dialog.CmdHelp);
            for (forms::CommandButton* button :
                 {&dialog.CmdClearList, &dialog.CmdClearRecentShow, &dialog.CmdRecentDocs})
                Press(*button);
            dialog.CheckClickOpen.Deliver(forms::CheckEvent{true});
            Press(dialog.CmdOK);
        });
        program.toolkit.OnModal("frmAdvanced", [&] {
            ++opened;
            auto& dialog = *program.app.Loaded<frmAdvanced>();
            Press(dialog.CmdHelp);
            Press(dialog.CmdDefaultCD);
            Press(dialog.CmdOK);
        });
        program.toolkit.OnModal("frmTip", [&] {
            ++opened;
            auto& dialog = *program.app.Loaded<frmTip>();
            Press(dialog.cmdNextTip);
            dialog.chkLoadTipsAtStartup.Deliver(forms::CheckEvent{true});
            Press(dialog.cmdOK);
        });
        program.toolkit.OnModal("frmAbout", [&] {
            ++opened;
            Press(program.app.Loaded<frmAbout>()->cmdOK);
        });
        program.toolkit.OnModal("SysInfoFrm", [&] {
            ++opened;
            auto& dialog = *program.app.Loaded<SysInfoFrm>();
            Press(dialog.CmdSettings);
            Press(dialog.CmdMultimedia);
            dialog.lblTempDir.Deliver(forms::ClickEvent{});
            Press(dialog.CmdOK);
        });
        MainMenu& menu = program.View().menu;
        for (forms::Menu* entry :
             {&menu.mnuPref, &menu.mnuAdvancedSettings, &menu.mnuTipOfDay, &menu.mnuAbout, &menu.mnuSysInfo,
              &menu.mnuWebSite, &menu.mnuMainWebSite, &menu.mnuCheckForUpgrade, &menu.mnuDisplayProperties,
              &menu.mnuMultimediaProperties, &menu.mnuHelpSearch, &menu.mnuFaq})
            entry->Deliver(forms::ClickEvent{});
    }
    /// Whether a fault came.
    static bool RunWithFault(Service service, int call) {
        headless::HeadlessServices machine;
        MakeQuiet(machine);
        machine.disks.AddDrive('D', DriveType::CdRom);
        machine.disks.PutFile("C:\\Tavrix\\TIPOFDAY.DAT", "one\ntwo\n");
        OneProcess program(machine);
        EXPECT_TRUE(program.Start());
        machine.faults.Clear();
        machine.faults.FailNth(service, call, ErrorNumber::DiskNotReady);

        int opened = 0;
        EXPECT_NO_THROW(UserGoesThroughAll(program, opened));
        const bool fired = machine.faults.Fired();
        EXPECT_EQ(opened, 5);
        EXPECT_EQ(program.app.FormCount(), 1);
        EXPECT_FALSE(program.module.Busy());
        EXPECT_TRUE(program.module.config.ClickScreenOpen);
        return fired;
    }
};

TEST_P(SettingsFault, NothingCrossesAndAllWindowsOpen) {
    const int faults = SweepFaults([&](int call) { return RunWithFault(GetParam(), call); });
    EXPECT_GT(faults, 0);
}

INSTANTIATE_TEST_SUITE_P(Services, SettingsFault,
                         ::testing::Values(Service::Files, Service::Drives, Service::Shell, Service::Help,
                                           Service::System, Service::UserStore, Service::Profile));

}  // namespace
}  // namespace tavrix::test

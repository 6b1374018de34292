#include "settings/SysInfoFrm.h"

#include "settings/SettingsTest.h"

namespace tavrix::test {
namespace {

constexpr const char* Rundll = "rundll32.exe shell32.dll,Control_RunDLL ";

class SysInfoFrmTest : public SettingsTest {
  protected:
    void Open(std::function<void(SysInfoFrm&)> user) {
        Show<SysInfoFrm>(View().menu.mnuSysInfo, "SysInfoFrm", std::move(user));
    }
};

TEST_F(SysInfoFrmTest, TextsAreAsTold) {
    ASSERT_TRUE(Start());
    Open([](SysInfoFrm& d) {
        const std::vector<std::string> texts{
            d.Caption,           d.FrameDisplay.Caption,     d.FrameMemory.Caption, d.FrameMultimedia.Caption,
            d.FrameTemp.Caption, d.lblTPName.Caption,        d.lblAPName.Caption,   d.lblTVName.Caption,
            d.lblAVName.Caption, d.lblWaveAudioName.Caption, d.lblMIDIName.Caption, d.lblCDAudioName.Caption,
            d.lblNote.Caption,   d.lblNoteMsg.Caption,       d.CmdSettings.Caption, d.CmdMultimedia.Caption};
        EXPECT_EQ(texts,
                  (std::vector<std::string>{
                      "System Information", "Display Settings:", "Memory Status:", "Multimedia Devices:",
                      "Temporary Files Folder:", "Total Physical:", "Available Physical:", "Total Virtual:",
                      "Available Virtual:", "Digital Audio:", "MIDI Synthesizer:", "CD Audio:", "NOTE:",
                      "You should set your current display mode to more than 256 colors -- this program will "
                      "look and "
                      "perform better as a result...",
                      "&Display...", "&Multimedia..."}));
        EXPECT_TRUE(d.CmdOK.Default && d.CmdOK.Cancel);
        EXPECT_EQ(d.HelpContext, HelpContext::SystemInformation);
        Press(d.CmdOK);
        EXPECT_TRUE(d.Unloaded());
    });
    ExpectDialogRules<SysInfoFrm>(View().menu.mnuSysInfo, "SysInfoFrm");
}

TEST_F(SysInfoFrmTest, TheColoursGoByTheBitsOfAPixel) {
    ASSERT_TRUE(Start());
    for (const auto& [bits, text] :
         std::vector<std::pair<int, std::string>>{{8, "256 (8 bit color)"},
                                                  {16, "64,000 (16 bit, High Color)"},
                                                  {24, "16 million (24 bit, True Color)"},
                                                  {25, "> 16 million (32 bit or higher)"},
                                                  {32, "> 16 million (32 bit or higher)"},
                                                  {15, "Unknown"},
                                                  {4, "Unknown"}}) {
        toolkit.screen = {1600, 900, 15, 15, bits};
        Open([&](SysInfoFrm& d) {
            EXPECT_EQ(d.lblColors.Caption.Get(), text);
            EXPECT_EQ(d.lblWidth.Caption.Get(), "1600 pixels");
            EXPECT_EQ(d.lblHeight.Caption.Get(), "900 pixels");
            EXPECT_EQ(d.lblNote.Visible.Get(), bits == 8);
            EXPECT_EQ(d.lblNoteMsg.Visible.Get(), bits == 8);
        });
    }
}

TEST_F(SysInfoFrmTest, MemoryIsInGroupsOfDigits) {
    platform.system.memory = {17'179'869'184, 1'048'575, 1024, 1023};
    platform.system.numbers.thousands = ".";
    ASSERT_TRUE(Start());
    Open([](SysInfoFrm& d) {
        const std::vector<std::string> figures{d.lblTP.Caption, d.lblAP.Caption, d.lblTV.Caption,
                                               d.lblAV.Caption};
        EXPECT_EQ(figures, (std::vector<std::string>{"16.777.216 KB", "1.023 KB", "1 KB", "0 KB"}));
    });
    platform.system.memory = {};
    Open([](SysInfoFrm& d) {
        EXPECT_EQ(d.lblTP.Caption.Get(), "Unknown");
        EXPECT_EQ(d.lblAV.Caption.Get(), "Unknown");
    });
}

TEST_F(SysInfoFrmTest, EachDeviceIsTold) {
    ASSERT_TRUE(Start());
    for (int present = 0; present < 3; ++present) {
        module.WaveDevicePresent = present == 0;
        module.MidiDevicePresent = present == 1;
        module.CdDevicePresent = present == 2;
        Open([&](SysInfoFrm& d) {
            EXPECT_EQ(d.lblWaveAudio.Caption.Get(), present == 0 ? "Yes" : "No");
            EXPECT_EQ(d.lblMIDI.Caption.Get(), present == 1 ? "Yes" : "No");
            EXPECT_EQ(d.lblCDAudio.Caption.Get(), present == 2 ? "Yes" : "No");
        });
    }
}

TEST_F(SysInfoFrmTest, AClickShowsTheWholePathOfTheTemporaryFolder) {
    ASSERT_TRUE(Start());
    const std::string folder = platform.files.Folder(KnownFolder::Temporary);
    Open([&](SysInfoFrm& d) {
        EXPECT_TRUE(d.lblTempDir.Caption.Get().starts_with(folder)) << d.lblTempDir.Caption.Get();
        EXPECT_TRUE(d.lblTempDir.Caption.Get().ends_with("\\"));
        EXPECT_TRUE(d.lblTempDir.Literal);
        Expect(
            {.text = "Complete path to your temporary files folder:\r\n\r\n" + d.lblTempDir.Caption.Get()});
        d.lblTempDir.Deliver(forms::ClickEvent{});
    });
}

TEST_F(SysInfoFrmTest, ButtonsAndMenuOpenTheDesktopsOwnDialogs) {
    ASSERT_TRUE(Start());
    const std::string display = std::string(Rundll) + "desk.cpl,@0,3";
    const std::string sound = std::string(Rundll) + "mmsys.cpl";
    Open([](SysInfoFrm& d) {
        Press(d.CmdSettings);
        Press(d.CmdMultimedia);
    });
    Choose(View().menu.mnuDisplayProperties);
    Choose(View().menu.mnuMultimediaProperties);
    EXPECT_EQ(platform.shell.commands, (std::vector<std::string>{display, sound, display, sound}));
}

TEST_F(SysInfoFrmTest, DialogsThatDoNotOpenAreTold) {
    ASSERT_TRUE(Start());
    const std::string before = "An error occurred while trying to open the ";
    const auto expectBoth = [&] {
        Expect({.text = before + "display properties dialog..."});
        Expect({.text = before + "multimedia properties dialog..."});
    };
    platform.shell.canRun = false;
    expectBoth();
    Open([](SysInfoFrm& d) {
        Press(d.CmdSettings);
        Press(d.CmdMultimedia);
    });
    expectBoth();
    Choose(View().menu.mnuDisplayProperties);
    Choose(View().menu.mnuMultimediaProperties);
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    Choose(View().menu.mnuDisplayProperties);
    Choose(View().menu.mnuMultimediaProperties);
}

TEST_F(SysInfoFrmTest, FailuresOfTheSystemLeaveAWindowThatWorks) {
    platform.system.memory = {1, 1, 1, 1};
    ASSERT_TRUE(Start());
    platform.faults.FailAlways(headless::Service::System, "Memory", ErrorNumber::PermissionDenied);
    Open([](SysInfoFrm& d) { EXPECT_EQ(d.lblTP.Caption.Get(), "Unknown"); });
}

}  // namespace
}  // namespace tavrix::test

#include "settings/frmAdvanced.h"

#include "settings/SettingsTest.h"

namespace tavrix::test {
namespace {

class frmAdvancedTest : public SettingsTest {
  protected:
    void AddCdDrive(char letter) { platform.disks.AddDrive(letter, DriveType::CdRom); }
    void Open(std::function<void(frmAdvanced&)> user) {
        Show<frmAdvanced>(View().menu.mnuAdvancedSettings, "frmAdvanced", std::move(user));
    }
    static std::vector<std::string> Entries(const forms::ComboBox& combo) {
        std::vector<std::string> entries;
        for (int i = 0; i < combo.ListCount(); ++i)
            entries.push_back(combo.List(i));
        return entries;
    }
    std::string File() { return platform.disks.AllFiles().at("C:\\Tavrix\\tavrix.ini"); }
};

TEST_F(frmAdvancedTest, TextsAreAsTold) {
    ASSERT_TRUE(Start());
    Open([](frmAdvanced& d) {
        EXPECT_EQ(d.Caption.Get(), "Advanced Settings");
        EXPECT_EQ(Entries(d.ComboFloppy), (std::vector<std::string>{"A:\\", "B:\\"}));
        EXPECT_EQ(Entries(d.ComboDelay),
                  (std::vector<std::string>{"No Delay", "1/4 Second", "1/2 Second", "1 Second", "2 Seconds",
                                            "3 Seconds", "4 Seconds", "5 Seconds"}));
        const std::vector<std::string> texts{d.lblCDROM.Caption,        d.CheckRecycleBin.Caption,
                                             d.CheckRecentDocs.Caption, d.lblDelay.Caption,
                                             d.lblDelayNote.Caption,    d.CmdDefaultCD.Caption,
                                             d.CmdCancel.Caption,       d.CmdCancel.ToolTip};
        EXPECT_EQ(texts,
                  (std::vector<std::string>{
                      "CD-&ROM drive used for CD-Audio:", "Use Recycle &Bin when deleting files.",
                      "&Add opened files to Recent Documents in Start menu.",
                      "Delay before &showing preview in open dialog:", "(1/2 Second is the default setting.)",
                      "D&efault", "&Cancel", "Don't save changes."}));
        EXPECT_TRUE(d.CmdOK.Default);
        EXPECT_TRUE(d.CmdCancel.Cancel);
    });
}

struct DelayCase {
    std::int16_t value;
    int selected;
    std::int16_t written;
};

class PreviewDelayTest : public frmAdvancedTest, public ::testing::WithParamInterface<DelayCase> {};

TEST_P(PreviewDelayTest, IsSelectedByItsRangeAndWrittenAsItsEntrySays) {
    Setting("OpenPreviewTimer", std::to_string(GetParam().value));
    ASSERT_TRUE(Start());
    Open([](frmAdvanced& d) {
        EXPECT_EQ(d.ComboDelay.ListIndex.Get(), GetParam().selected);
        Press(d.CmdOK);
    });
    EXPECT_EQ(module.config.OpenPreviewTimer, GetParam().written);
    EXPECT_EQ(Saved("OpenPreviewTimer"), std::to_string(GetParam().written));
}

INSTANTIATE_TEST_SUITE_P(Values, PreviewDelayTest,
                         ::testing::Values(DelayCase{1, 0, 1}, DelayCase{249, 0, 1}, DelayCase{250, 1, 250},
                                           DelayCase{300, 1, 250}, DelayCase{499, 1, 250},
                                           DelayCase{500, 2, 500}, DelayCase{999, 2, 500},
                                           DelayCase{1000, 3, 1000}, DelayCase{1999, 3, 1000},
                                           DelayCase{2000, 4, 2000}, DelayCase{2999, 4, 2000},
                                           DelayCase{3000, 5, 3000}, DelayCase{3999, 5, 3000},
                                           DelayCase{4000, 6, 4000}, DelayCase{4999, 6, 4000},
                                           DelayCase{5000, 7, 5000}));

TEST_F(frmAdvancedTest, OkWritesAllAtOnce) {
    AddCdDrive('D');
    AddCdDrive('E');
    Setting("Foreign", "kept");
    ASSERT_TRUE(Start());
    Open([this](frmAdvanced& d) {
        EXPECT_EQ(Entries(d.ComboCDROM), (std::vector<std::string>{"No CD-ROM", "D:\\", "E:\\"}));
        EXPECT_EQ(d.ComboCDROM.ListIndex.Get(), 1) << "the start has filled the letter";
        EXPECT_EQ(d.ComboFloppy.ListIndex.Get(), 0);
        EXPECT_TRUE(d.CheckRecycleBin.Value && d.CheckRecentDocs.Value);
        d.ComboFloppy.ListIndex = 1;
        d.ComboCDROM.ListIndex = 2;
        d.ComboDelay.ListIndex = 3;
        Tick(d.CheckRecycleBin, false);
        Tick(d.CheckRecentDocs, false);
        EXPECT_EQ(module.config.DefaultFloppy, "A:\\");
        EXPECT_TRUE(module.config.UseRecycleBin);
        Press(d.CmdOK);
    });
    const AppConfig& c = module.config;
    EXPECT_EQ(c.DefaultFloppy, "B:\\");
    EXPECT_EQ(c.CdRomDriveLetter, "E:\\");
    EXPECT_FALSE(c.UseRecycleBin);
    EXPECT_FALSE(c.UseRecentDocuments);
    EXPECT_EQ(c.OpenPreviewTimer, 1000);
    const std::vector<std::string> saved{Saved("DefaultFloppy"),    Saved("CdRomDriveLetter"),
                                         Saved("UseRecycleBin"),    Saved("UseRecentDocuments"),
                                         Saved("OpenPreviewTimer"), Saved("Foreign")};
    EXPECT_EQ(saved, (std::vector<std::string>{"B:\\", "E:\\", "False", "False", "1000", "kept"}));
    Open([](frmAdvanced& d) {
        EXPECT_EQ(d.ComboFloppy.ListIndex.Get(), 1);
        EXPECT_EQ(d.ComboCDROM.ListIndex.Get(), 2);
        EXPECT_FALSE(d.CheckRecycleBin.Value || d.CheckRecentDocs.Value);
    });
}

TEST_F(frmAdvancedTest, ACanceledDialogLeavesTheFileAndTheSettings) {
    AddCdDrive('D');
    ASSERT_TRUE(Start());
    const std::string before = File();
    Open([](frmAdvanced& d) {
        d.ComboFloppy.ListIndex = 1;
        d.ComboCDROM.ListIndex = 0;
        d.ComboDelay.ListIndex = 7;
        Tick(d.CheckRecycleBin, false);
        Tick(d.CheckRecentDocs, false);
        Press(d.CmdCancel);
    });
    EXPECT_EQ(File(), before);
    EXPECT_EQ(module.config.DefaultFloppy, "A:\\");
    EXPECT_EQ(module.config.CdRomDriveLetter, "D:\\");
    EXPECT_TRUE(module.config.UseRecycleBin && module.config.UseRecentDocuments);
    EXPECT_EQ(module.config.OpenPreviewTimer, 500);
}

TEST_F(frmAdvancedTest, NoCdRomEmptiesTheLetterUntilTheNextStart) {
    AddCdDrive('D');
    ASSERT_TRUE(Start());
    Open([](frmAdvanced& d) {
        d.ComboCDROM.ListIndex = 0;
        Press(d.CmdOK);
    });
    EXPECT_EQ(module.config.CdRomDriveLetter, "");
    EXPECT_EQ(Saved("CdRomDriveLetter"), "");
    Open([](frmAdvanced& d) { EXPECT_EQ(d.ComboCDROM.ListIndex.Get(), 0); });
    headless::HeadlessToolkit next;
    forms::Application nextApp(next);
    MainModule nextModule(nextApp, platform.services);
    Lives nextLives;
    nextLives.ShowMainView = [] {};
    Main(nextModule, nextLives);
    EXPECT_EQ(nextModule.config.CdRomDriveLetter, "D:\\");
}

TEST_F(frmAdvancedTest, TheDriveIsFoundByItsLetterAlone) {
    AddCdDrive('D');
    AddCdDrive('E');
    Setting("CdRomDriveLetter", "e:");
    ASSERT_TRUE(Start());
    Open([](frmAdvanced& d) { EXPECT_EQ(d.ComboCDROM.ListIndex.Get(), 2); });
}

TEST_F(frmAdvancedTest, ALetterOfADriveThatIsAwayIsKept) {
    AddCdDrive('D');
    Setting("CdRomDriveLetter", "Q:\\");
    ASSERT_TRUE(Start());
    Open([](frmAdvanced& d) {
        EXPECT_EQ(d.ComboCDROM.ListIndex.Get(), -1);
        Press(d.CmdOK);
    });
    EXPECT_EQ(module.config.CdRomDriveLetter, "Q:\\");
    EXPECT_EQ(Saved("CdRomDriveLetter"), "Q:\\");
}

TEST_F(frmAdvancedTest, WithoutADeviceThereIsNoCdRom) {
    Setting("CdRomDriveLetter", "C:\\");
    ASSERT_TRUE(Start());
    Open([this](frmAdvanced& d) {
        EXPECT_EQ(Entries(d.ComboCDROM), std::vector<std::string>{"No CD-ROM"});
        EXPECT_EQ(d.ComboCDROM.ListIndex.Get(), 0);
        Expect({.text = "This computer does not appear to have a CD-ROM drive, unable to set default..."});
        Press(d.CmdDefaultCD);
        EXPECT_EQ(d.ComboCDROM.ListIndex.Get(), 0);
    });
}

TEST_F(frmAdvancedTest, DefaultSelectsTheFirstDrive) {
    AddCdDrive('D');
    AddCdDrive('E');
    Setting("CdRomDriveLetter", "E:\\");
    ASSERT_TRUE(Start());
    Open([this](frmAdvanced& d) {
        Expect({.text = "D:\\ is your default CD-ROM drive..."});
        Press(d.CmdDefaultCD);
        EXPECT_EQ(d.ComboCDROM.ListIndex.Get(), 1);
        EXPECT_EQ(module.config.CdRomDriveLetter, "E:\\") << "before OK";
    });
}

TEST_F(frmAdvancedTest, ADriveThatCameMeanwhileJoinsTheList) {
    ASSERT_TRUE(Start());
    Open([this](frmAdvanced& d) {
        AddCdDrive('F');
        Expect({.text = "F:\\ is your default CD-ROM drive..."});
        Press(d.CmdDefaultCD);
        EXPECT_EQ(Entries(d.ComboCDROM), (std::vector<std::string>{"No CD-ROM", "F:\\"}));
        EXPECT_EQ(d.ComboCDROM.ListIndex.Get(), 1);
        Press(d.CmdOK);
    });
    EXPECT_EQ(module.config.CdRomDriveLetter, "F:\\");
}

TEST_F(frmAdvancedTest, FailuresOfDrivesAndFileLeaveADialogThatWorks) {
    AddCdDrive('D');
    ASSERT_TRUE(Start());
    platform.faults.FailAlways(headless::Service::Drives, "Roots", ErrorNumber::DeviceUnavailable);
    platform.faults.FailAlways(headless::Service::Profile, "Write", ErrorNumber::PermissionDenied);
    Open([](frmAdvanced& d) {
        EXPECT_EQ(Entries(d.ComboCDROM), std::vector<std::string>{"No CD-ROM"});
        Tick(d.CheckRecycleBin, false);
        Press(d.CmdOK);
        EXPECT_TRUE(d.Unloaded());
    });
    EXPECT_FALSE(module.config.UseRecycleBin);
    EXPECT_EQ(module.config.CdRomDriveLetter, "D:\\");
}

TEST_F(frmAdvancedTest, NothingHappensWhileTheProgramIsBusy) {
    ASSERT_TRUE(Start());
    Open([this](frmAdvanced& d) {
        const forms::BusyGuard busy(module.Screen());
        Press(d.CmdDefaultCD);
        Press(d.CmdOK);
        EXPECT_FALSE(d.Unloaded());
    });
}

TEST_F(frmAdvancedTest, HelpAndTheRulesOfDialogs) {
    ASSERT_TRUE(Start());
    Open([this](frmAdvanced& d) { ExpectHelp(d, HelpContext::AdvancedSettings); });
    ExpectDialogRules<frmAdvanced>(View().menu.mnuAdvancedSettings, "frmAdvanced");
}

}  // namespace
}  // namespace tavrix::test

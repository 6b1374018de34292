#include "settings/frmPreferences.h"

#include "settings/SettingsTest.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using forms::WindowState;

class frmPreferencesTest : public SettingsTest {
  protected:
    void Open(std::function<void(frmPreferences&)> user) {
        Show<frmPreferences>(View().menu.mnuPref, "frmPreferences", std::move(user));
    }
    void StartWith(std::vector<std::pair<std::string, std::string>> settings) {
        for (const auto& [key, value] : settings)
            Setting(key, value);
        ASSERT_TRUE(Start());
    }
    std::string File() { return platform.disks.AllFiles().at("C:\\Tavrix\\tavrix.ini"); }
};

struct TickCase {
    const char* key;
    forms::CheckBox frmPreferences::*box;
    bool AppConfig::*setting;
    bool inverted = false;
};

const std::vector<TickCase> Ticks{
    {"SaveWindowSize", &frmPreferences::CheckSaveSize, &AppConfig::SaveWindowSize},
    {"DeleteUntitled", &frmPreferences::CheckDelUntitled, &AppConfig::DeleteUntitled},
    {"ClearClipboard", &frmPreferences::CheckClipboard, &AppConfig::ClearClipboard},
    {"KeepRecent", &frmPreferences::CheckRecent, &AppConfig::KeepRecent, true},
    {"EnlargeImages", &frmPreferences::CheckEnlarge, &AppConfig::EnlargeImages},
    {"AutosizeWindow", &frmPreferences::CheckResizeForm, &AppConfig::AutosizeWindow},
    {"StretchImages", &frmPreferences::CheckStretch, &AppConfig::StretchImages},
    {"ClickScreenOpen", &frmPreferences::CheckClickOpen, &AppConfig::ClickScreenOpen},
    {"ViewFullScreen", &frmPreferences::CheckViewFull, &AppConfig::ViewFullScreen},
    {"DisplayLastOpened", &frmPreferences::CheckDisplayLast, &AppConfig::DisplayLastOpened},
    {"WindowMaximized", &frmPreferences::CheckMaximize, &AppConfig::WindowMaximized}};

class PreferenceTickTest : public frmPreferencesTest, public ::testing::WithParamInterface<TickCase> {};

TEST_P(PreferenceTickTest, ShowsItsSettingAndStoresItByOkAlone) {
    const TickCase& tick = GetParam();
    StartWith({});
    for (const bool before : {false, true}) {
        for (const TickCase& other : Ticks)
            module.config.*other.setting = other.inverted;
        module.config.*tick.setting = before;
        const bool after = !before;
        Open([&](frmPreferences& dialog) {
            for (const TickCase& other : Ticks) {
                const bool on = other.key == tick.key ? before != tick.inverted : false;
                EXPECT_EQ((dialog.*other.box).Value.Get(), on) << other.key;
            }
            Tick(dialog.*tick.box, after != tick.inverted);
            EXPECT_EQ(module.config.*tick.setting, before) << "before OK";
            Press(dialog.CmdOK);
        });
        for (const TickCase& other : Ticks) {
            const bool expected = other.key == tick.key ? after : other.inverted;
            EXPECT_EQ(module.config.*other.setting, expected) << other.key;
            EXPECT_EQ(Saved(other.key), expected ? "True" : "False") << other.key;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Boxes, PreferenceTickTest, ::testing::ValuesIn(Ticks),
                         [](const auto& instance) { return std::string(instance.param.key); });

TEST_F(frmPreferencesTest, TextsAreAsTold) {
    StartWith({});
    Open([](frmPreferences& d) {
        EXPECT_EQ(d.Caption.Get(), "Preferences");
        const std::vector<std::string> frames{d.FrameExit.Caption, d.FrameRecent.Caption, d.FrameOpen.Caption,
                                              d.FrameStartup.Caption, d.FrameColor.Caption};
        EXPECT_EQ(frames,
                  (std::vector<std::string>{"Exit Options:", "Recent Files:", "Open Image:",
                                            "Startup Options:", "Background Color: (Full Screen View)"}));
        const std::vector<std::string> boxes{
            d.CheckSaveSize.Caption,    d.CheckDelUntitled.Caption, d.CheckClipboard.Caption,
            d.CheckRecent.Caption,      d.CheckEnlarge.Caption,     d.CheckResizeForm.Caption,
            d.CheckStretch.Caption,     d.CheckClickOpen.Caption,   d.CheckViewFull.Caption,
            d.CheckDisplayLast.Caption, d.CheckMaximize.Caption};
        EXPECT_EQ(
            boxes,
            (std::vector<std::string>{
                "Save current window &position and size on exit.",
                "D&elete temporary file(s) when program exits.",
                "Ask to clear image from clipboard on e&xit.", "Don't keep rece&nt files lists.",
                "En&large images, if too small for full screen.", "Resi&ze main viewing window to fit image.",
                "Shrink images, if too big for &full screen.", "Clic&k screen to display \"Open\" dialog.",
                "&View images full screen by default.", "&Try to display image that was last opened.",
                "&Maximize Tavrix window."}));
        std::vector<std::string> options;
        for (const forms::OptionButton& option : d.OptionStartup)
            options.push_back(option.Caption);
        for (const forms::OptionButton* option : d.OptionsOfColor)
            options.push_back(option->Caption);
        EXPECT_EQ(options, (std::vector<std::string>{
                               "&Don't show any dialogs at startup.", "Display \"&About Tavrix\" dialog.",
                               "Display \"&Slide Show Editor\" dialog.", "Display \"Open &Image\" dialog.",
                               "Display \"Thumbnail Browser\" dialog.", "&Black", "&White", "S&ystem",
                               "Dark Blue", "Dark Red", "Dark Brown"}));
        EXPECT_EQ(d.lblColor.Caption.Get(), "Select a color to preview it here.");
        EXPECT_EQ(d.CmdCancel.Caption.Get(), "&Cancel");
        EXPECT_EQ(d.CmdCancel.ToolTip.Get(), "Don't save changes.");
        EXPECT_TRUE(d.CmdCancel.Cancel);
        EXPECT_TRUE(d.CmdOK.Default);
    });
}

TEST_F(frmPreferencesTest, EachStartupDialogHasItsOption) {
    StartWith({});
    for (std::int16_t value = 0; value < 5; ++value) {
        module.config.StartupDialog = value;
        const auto next = static_cast<std::size_t>((value + 1) % 5);
        Open([&](frmPreferences& dialog) {
            for (std::size_t i = 0; i < 5; ++i)
                EXPECT_EQ(dialog.OptionStartup.at(i).Value.Get(), i == static_cast<std::size_t>(value));
            dialog.OptionStartup.at(next).Value = true;
            EXPECT_EQ(module.config.StartupDialog, value);
            Press(dialog.CmdOK);
        });
        EXPECT_EQ(module.config.StartupDialog, static_cast<std::int16_t>(next));
        EXPECT_EQ(Saved("StartupDialog"), std::to_string(next));
    }
}

TEST_F(frmPreferencesTest, EachColourIsPreviewedAndOkPaintsTheMainView) {
    StartWith({});
    const std::vector<Colour> colours{Black,        White,           ButtonFace, Colour{0x400000},
                                      Colour{0x40}, Colour{0x404040}};
    for (std::size_t value = 0; value < colours.size(); ++value) {
        module.config.BackgroundColor = static_cast<std::int16_t>(value);
        View().ShowBackgroundColor();
        const std::size_t next = (value + 1) % colours.size();
        Open([&](frmPreferences& dialog) {
            EXPECT_EQ(dialog.lblColor.BackColor.Get(), colours[value]);
            EXPECT_TRUE(dialog.OptionsOfColor.at(value)->Value);
            dialog.OptionsOfColor.at(next)->Value = true;
            EXPECT_EQ(dialog.lblColor.BackColor.Get(), colours[next]);
            EXPECT_EQ(View().picFrame.BackColor.Get(), colours[value]) << "before OK";
            Press(dialog.CmdOK);
            EXPECT_EQ(View().picFrame.BackColor.Get(), colours[next]);
        });
        EXPECT_EQ(Saved("BackgroundColor"), std::to_string(next));
    }
}

TEST_F(frmPreferencesTest, TheWindowIsMaximisedAndRestoredAtOnce) {
    StartWith({});
    Open([&](frmPreferences& dialog) {
        Tick(dialog.CheckMaximize, true);
        EXPECT_EQ(View().WindowState.Get(), WindowState::Normal);
        Press(dialog.CmdOK);
        EXPECT_EQ(View().WindowState.Get(), WindowState::Maximized);
    });
    Open([&](frmPreferences& dialog) {
        Tick(dialog.CheckMaximize, false);
        Press(dialog.CmdOK);
        EXPECT_EQ(View().WindowState.Get(), WindowState::Normal);
    });
}

TEST_F(frmPreferencesTest, OkSavesWhatTheDialogOwnsInTheOrderOfTheFile) {
    StartWith({});
    Open([](frmPreferences& dialog) { Press(dialog.CmdOK); });
    const std::string file = File();
    std::size_t last = 0;
    for (const char* key : {"WindowMaximized", "SaveWindowSize", "BackgroundColor", "DeleteUntitled",
                            "ClearClipboard", "ViewFullScreen", "StretchImages", "EnlargeImages",
                            "ClickScreenOpen", "DisplayLastOpened", "KeepRecent"}) {
        const std::size_t at = file.find(key);
        ASSERT_NE(at, std::string::npos) << key;
        EXPECT_GT(at, last) << key;
        last = at;
    }
}

TEST_F(frmPreferencesTest, WhatCannotBeWrittenHoldsForThisRun) {
    StartWith({});
    platform.faults.FailAlways(headless::Service::Profile, "Write", ErrorNumber::PermissionDenied);
    Open([&](frmPreferences& dialog) {
        Tick(dialog.CheckClickOpen, true);
        Press(dialog.CmdOK);
        EXPECT_TRUE(dialog.Unloaded());
    });
    EXPECT_TRUE(module.config.ClickScreenOpen);
}

TEST_F(frmPreferencesTest, ACanceledDialogLeavesFileAndSettings) {
    StartWith({{"Recent1", "C:\\p\\x.jpg"}});
    const std::string before = File();
    for (const bool byFrame : {false, true}) {
        Open([&](frmPreferences& d) {
            for (const TickCase& tick : Ticks)
                Tick(d.*tick.box, !(d.*tick.box).Value);
            d.OptionStartup[3].Value = true;
            d.Option2.Value = true;
            if (!byFrame) Press(d.CmdCancel);
        });
        EXPECT_EQ(File(), before);
        EXPECT_TRUE(module.config.KeepRecent);
        EXPECT_FALSE(module.config.WindowMaximized);
        EXPECT_EQ(module.config.StartupDialog, 0);
        EXPECT_EQ(module.config.BackgroundColor, 0);
        EXPECT_EQ(View().picFrame.BackColor.Get(), Black);
        EXPECT_EQ(View().WindowState.Get(), WindowState::Normal);
        EXPECT_EQ(module.config.Recent[0], "C:\\p\\x.jpg");
    }
}

TEST_F(frmPreferencesTest, WithoutRecentListsTheirButtonsRest) {
    StartWith({});
    Open([](frmPreferences& d) {
        EXPECT_TRUE(d.CmdClearList.Enabled && d.CmdClearRecentShow.Enabled && d.CmdRecentDocs.Enabled);
        Tick(d.CheckRecent, true);
        EXPECT_FALSE(d.CmdClearList.Enabled || d.CmdClearRecentShow.Enabled);
        EXPECT_TRUE(d.CmdRecentDocs.Enabled);
        Tick(d.CheckRecent, false);
        EXPECT_TRUE(d.CmdClearList.Enabled && d.CmdClearRecentShow.Enabled);
    });
    module.config.KeepRecent = false;
    Open([](frmPreferences& d) { EXPECT_FALSE(d.CmdClearList.Enabled || d.CmdClearRecentShow.Enabled); });
}

TEST_F(frmPreferencesTest, OkWithoutRecentListsEmptiesThoseOfFilesAndTheMenu) {
    StartWith(
        {{"Recent1", "C:\\p\\x.jpg"}, {"Recent7", "C:\\p\\y.jpg"}, {"RecentShow1", "C:\\shows\\a.tvs"}});
    EXPECT_TRUE(View().menu.mnuLast1.Visible);
    Open([](frmPreferences& d) {
        Tick(d.CheckRecent, true);
        Press(d.CmdOK);
    });
    EXPECT_EQ(module.config.Recent, (std::array<std::string, 7>{}));
    EXPECT_FALSE(View().menu.mnuLast1.Visible);
    EXPECT_FALSE(View().menu.mnuFileLine3.Visible);
    EXPECT_EQ(module.config.RecentShows[0], "C:\\shows\\a.tvs");
}

TEST_F(frmPreferencesTest, ClearingTheRecentFilesActsAtOnceAndIsNotCanceled) {
    StartWith({{"Recent7", "C:\\p\\x.jpg"}, {"RecentShow20", "C:\\shows\\a.tvs"}});
    Open([this](frmPreferences& d) {
        ExpectQuestion("Clear the recent files list?", Answer::No);
        Press(d.CmdClearList);
        EXPECT_EQ(module.config.Recent[6], "C:\\p\\x.jpg");
        ExpectQuestion("Clear the recent files list?", Answer::Yes);
        Press(d.CmdClearList);
        EXPECT_EQ(module.config.Recent[6], "");
        EXPECT_FALSE(View().menu.mnuLast7.Visible);
        Expect({.text = "The recent files list is already empty..."});
        Press(d.CmdClearList);
        Press(d.CmdCancel);
    });
    EXPECT_EQ(module.config.Recent, (std::array<std::string, 7>{}));
    EXPECT_EQ(module.config.RecentShows[19], "C:\\shows\\a.tvs");
}

TEST_F(frmPreferencesTest, ClearingTheRecentShowsActsAtOnceAndIsNotCanceled) {
    StartWith({{"Recent7", "C:\\p\\x.jpg"}, {"RecentShow20", "C:\\shows\\a.tvs"}});
    Open([this](frmPreferences& d) {
        ExpectQuestion("Clear the recent slide show list?", Answer::No);
        Press(d.CmdClearRecentShow);
        EXPECT_EQ(module.config.RecentShows[19], "C:\\shows\\a.tvs");
        ExpectQuestion("Clear the recent slide show list?", Answer::Yes);
        Press(d.CmdClearRecentShow);
        Expect({.text = "The recent slide show list is already empty..."});
        Press(d.CmdClearRecentShow);
        Press(d.CmdCancel);
    });
    EXPECT_EQ(module.config.RecentShows, (std::array<std::string, 20>{}));
    EXPECT_EQ(module.config.Recent[6], "C:\\p\\x.jpg");
}

TEST_F(frmPreferencesTest, TheRecentDocumentsGoAfterYesAlone) {
    constexpr const char* question = "Clear the Recent Documents located in your Start menu?";
    StartWith({});
    platform.shell.recent = {"C:\\p\\x.jpg"};
    Open([&](frmPreferences& d) {
        ExpectQuestion(question, Answer::No);
        Press(d.CmdRecentDocs);
        EXPECT_EQ(platform.shell.recent.size(), 1U);
        ExpectQuestion(question, Answer::Yes);
        Press(d.CmdRecentDocs);
        EXPECT_TRUE(platform.shell.recent.empty());
    });
    EXPECT_TRUE(module.config.KeepRecent);
}

TEST_F(frmPreferencesTest, RecentDocumentsThatStayAreTold) {
    StartWith({});
    platform.shell.canClearRecent = false;
    Open([&](frmPreferences& d) {
        ExpectQuestion("Clear the Recent Documents located in your Start menu?", Answer::Yes);
        Expect({.text = "Unable to clear the Recent Documents...", .icon = forms::BoxIcon::Stop});
        Press(d.CmdRecentDocs);
    });
}

TEST_F(frmPreferencesTest, NothingHappensWhileTheProgramIsBusy) {
    StartWith({{"Recent1", "C:\\p\\x.jpg"}, {"RecentShow1", "C:\\shows\\a.tvs"}});
    Open([this](frmPreferences& d) {
        const forms::BusyGuard busy(module.Screen());
        for (forms::CommandButton* button :
             {&d.CmdClearList, &d.CmdClearRecentShow, &d.CmdRecentDocs, &d.CmdOK})
            Press(*button);
        EXPECT_FALSE(d.Unloaded());
    });
}

TEST_F(frmPreferencesTest, HelpAndTheRulesOfDialogs) {
    StartWith({});
    Open([this](frmPreferences& d) { ExpectHelp(d, HelpContext::Preferences); });
    ExpectDialogRules<frmPreferences>(View().menu.mnuPref, "frmPreferences");
}

}  // namespace
}  // namespace tavrix::test

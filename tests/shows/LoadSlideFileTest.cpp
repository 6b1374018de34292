#include "shows/library/LoadSlideFile.h"

#include "LibraryTest.h"

namespace tavrix::test {
namespace {

using forms::Answer;
namespace KeyCode = forms::KeyCode;

constexpr const char* NothingSelected =
    "Unable to delete file(s) by pressing the delete key, nothing is selected in the file list...";

class LoadSlideFileTest : public LoadingTest {};

TEST_F(LoadSlideFileTest, BeginsInTheFolderOfShowsWithTheFirst) {
    EXPECT_FALSE(InFolders([](LoadSlideFile& dialog) {
        EXPECT_EQ(dialog.Caption.Get(), "Load - Tavrix Slide Show  (.tvs)");
        EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\Tavrix\\SLIDES");
        EXPECT_EQ(dialog.Chooser.Drive1.Drive.Get(), "C:");
        EXPECT_EQ(Listed(dialog.Chooser.File1), (Texts{"a.tvs", "b.tvs"}));
        EXPECT_EQ(dialog.Chooser.File1.ListIndex.Get(), 0);
        EXPECT_EQ(dialog.ActiveControl(), &dialog.Chooser.File1);
        EXPECT_TRUE(dialog.CmdOK.Default);
        EXPECT_TRUE(dialog.CmdCancel.Cancel);
        EXPECT_EQ(dialog.HelpContext, HelpContext::LoadShow);
    }));
}

TEST_F(LoadSlideFileTest, SoItDoesWhereThatIsTheCurrentFolder) {
    platform.files.ChangeFolder("C:\\Tavrix\\SLIDES");
    InFolders([](LoadSlideFile& dialog) { EXPECT_EQ(dialog.Chooser.File1.FileName(), "a.tvs"); });
}

TEST_F(LoadSlideFileTest, BeginsWithTheShowOfTheLastTime) {
    module.config.LastSlideShow = B;
    InFolders([](LoadSlideFile& dialog) { EXPECT_EQ(dialog.Chooser.File1.FileName(), "b.tvs"); });
    PutShow("", "D:\\out\\X.tvs");
    PutShow("", "D:\\out\\y.tvs");
    module.config.LastSlideShow = "d:\\out\\Y.TVS";
    InFolders([](LoadSlideFile& dialog) {
        EXPECT_EQ(dialog.Chooser.File1.FileName(), "y.tvs");
        EXPECT_EQ(dialog.Chooser.Drive1.Drive.Get(), "D:");
    });
}

TEST_F(LoadSlideFileTest, ALastShowThatHasGoneDoesNotCount) {
    for (const char* gone : {"D:\\out\\gone.tvs", "A:\\s.tvs", "Q:\\s.tvs", "C:\\Tavrix\\SLIDES"}) {
        module.config.LastSlideShow = gone;
        InFolders([](LoadSlideFile& dialog) {
            EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\Tavrix\\SLIDES");
            EXPECT_EQ(dialog.Chooser.File1.FileName(), "a.tvs");
        });
    }
}

TEST_F(LoadSlideFileTest, WithoutAFolderOfShowsItIsTheProgramsOwn) {
    for (const char* file : {A, B, "C:\\Tavrix\\SLIDES\\none.txt", "C:\\Tavrix\\SLIDES"})
        platform.disks.Remove(file);
    platform.files.ChangeFolder("C:\\Shows");
    InFolders([](LoadSlideFile& dialog) {
        EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\Tavrix");
        EXPECT_EQ(dialog.Chooser.File1.ListIndex.Get(), -1);
    });
}

TEST_F(LoadSlideFileTest, AnotherFolderSelectsItsFirstShow) {
    PutShow("", "D:\\x.tvs");
    InFolders([](LoadSlideFile& dialog) {
        dialog.Chooser.File1.ListIndex = 1;
        dialog.Chooser.Drive1.Drive = "D:";
        EXPECT_EQ(dialog.Chooser.File1.FileName(), "x.tvs");
        dialog.Chooser.Drive1.Drive = "C:";
        dialog.Chooser.Dir1.Path = "C:\\Shows";
        EXPECT_EQ(dialog.Chooser.File1.ListIndex.Get(), -1);
        dialog.Chooser.Dir1.Path = "C:\\Tavrix\\SLIDES";
        EXPECT_EQ(dialog.Chooser.File1.ListIndex.Get(), 0);
    });
}

TEST_F(LoadSlideFileTest, ADriveWithoutADiskIsToldOf) {
    InFolders([this](LoadSlideFile& dialog) {
        ExpectTold("The selected drive is currently not available...");
        dialog.Chooser.Drive1.Drive = "A:";
        EXPECT_EQ(dialog.Chooser.Drive1.Drive.Get(), "C:");
        EXPECT_EQ(dialog.Chooser.File1.FileName(), "a.tvs");
    });
}

TEST_F(LoadSlideFileTest, TheFolderButtonGoesToTheFavoriteAndTheQuickFolders) {
    module.config.FavoriteFolder = "D:\\";
    module.config.QuickFolder = {"Queue", "", "", ""};
    module.config.QuickFolderPath = {"C:\\Shows\\", "", "", ""};
    InFolders([this](LoadSlideFile& dialog) {
        Press(dialog.Chooser.CmdFF);
        EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "D:\\");
        toolkit.ChooseFromPopup("Queue");
        dialog.Chooser.CmdFF.Deliver(
            forms::MouseEvent{forms::MouseAction::Down, forms::MouseButton::Right, 0, 1, 1});
        EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\Shows");
    });
}

TEST_F(LoadSlideFileTest, OkLoadsTheSelectedShow) {
    editor.rows = {"old"};
    const bool loaded = InFolders([this](LoadSlideFile& dialog) {
        dialog.Chooser.File1.ListIndex = 1;
        toolkit.AtYield(1, [this, &dialog] {
            EXPECT_EQ(toolkit.ScreenPointer(), forms::MousePointer::Hourglass);
            EXPECT_TRUE(dialog.Visible());
            dialog.Chooser.File1.ListIndex = 0;  // too late
            Press(dialog.CmdOK);
            Press(dialog.CmdRecent);
        });
        Press(dialog.CmdOK);
        EXPECT_TRUE(dialog.Unloaded());
    });
    EXPECT_TRUE(loaded);
    EXPECT_EQ(editor.loads, 1);
    EXPECT_EQ(editor.rows, (Texts{"C:\\p\\b.bmp"}));
    EXPECT_EQ(editor.filename, B);
    EXPECT_EQ(SlideDescriptions(), (Texts{"b"}));
    EXPECT_EQ(module.config.LastSlideShow, B);
    EXPECT_EQ(module.config.RecentShows[0], B);
}

TEST_F(LoadSlideFileTest, SoDoesADoubleClickAlsoInTheRootOfADrive) {
    PutShow(ShowOf("x"), "D:\\x.tvs");
    EXPECT_TRUE(InFolders([](LoadSlideFile& dialog) {
        dialog.Chooser.Drive1.Drive = "D:";
        dialog.Chooser.File1.Deliver(forms::DoubleClickEvent{});
        EXPECT_TRUE(dialog.Unloaded());
    }));
    EXPECT_EQ(editor.filename, "D:\\x.tvs");
}

TEST_F(LoadSlideFileTest, WithoutASelectionNothingIsLoaded) {
    EXPECT_FALSE(InFolders([this](LoadSlideFile& dialog) {
        dialog.Chooser.File1.ListIndex = -1;
        ExpectTold("Select a slide show file to load first...");
        Press(dialog.CmdOK);
        dialog.Chooser.Dir1.Path = "C:\\Shows";
        ExpectTold("There are no slide show files in the selected directory to load...");
        Press(dialog.CmdOK);
        EXPECT_FALSE(dialog.Unloaded());
    }));
    EXPECT_EQ(editor.loads, 0);
}

TEST_F(LoadSlideFileTest, WhatCannotBeReadIsShownAsFarAsItCould) {
    PutShow(Header() + Slides({"a.bmp", "A", "b.bmp"}), A);
    Expect({.text = "An error occurred while reading Slide Show data.\r\n\r\nInput past end of file...",
            .icon = forms::BoxIcon::Stop,
            .systemModal = true,
            .whileOpen = [this] { EXPECT_TRUE(app.Loaded<LoadSlideFile>()->Visible()); }});
    EXPECT_TRUE(InFolders([](LoadSlideFile& dialog) { Press(dialog.CmdOK); }));
    EXPECT_EQ(editor.rows, (Texts{"a.bmp", "b.bmp"}));
    EXPECT_EQ(editor.filename, A);
    EXPECT_TRUE(editor.HasReadInPart(A));
}

TEST_F(LoadSlideFileTest, AWindowThatIsClosedInThatMomentLoadsNothing) {
    EXPECT_FALSE(InFolders([this](LoadSlideFile& dialog) {
        toolkit.AtYield(1, [&dialog] { Press(dialog.CmdCancel); });
        Press(dialog.CmdOK);
    }));
    EXPECT_EQ(editor.loads, 0);
}

TEST_F(LoadSlideFileTest, NothingIsDoneWhileTheProgramIsBusy) {
    InFolders([this](LoadSlideFile& dialog) {
        module.Screen().MousePointer = forms::MousePointer::Hourglass;
        Press(dialog.CmdOK);
        Press(dialog.CmdRecent);
        Key(dialog.Chooser.File1, KeyCode::Delete);
        EXPECT_FALSE(dialog.Unloaded());
        module.Screen().MousePointer = forms::MousePointer::Default;
    });
    EXPECT_EQ(editor.loads, 0);
    EXPECT_NE(Content(A), "none");
}

TEST_F(LoadSlideFileTest, DeleteSendsTheSelectedShowToTheTrash) {
    module.config.RecentShows = {B, "C:\\tavrix\\slides\\A.tvs"};
    InFolders([this](LoadSlideFile& dialog) {
        Key(dialog.Chooser.File1, KeyCode::Insert);
        ExpectDelete(A, Answer::No);
        Key(dialog.Chooser.File1, KeyCode::Delete);
        EXPECT_EQ(module.config.RecentShows[1], "C:\\tavrix\\slides\\A.tvs");
        ExpectDelete(A, Answer::Yes);
        Key(dialog.Chooser.File1, KeyCode::Delete);
        EXPECT_EQ(module.config.RecentShows[0], B);
        EXPECT_EQ(module.config.RecentShows[1], "");
        EXPECT_EQ(Listed(dialog.Chooser.File1), (Texts{"b.tvs"}));
        EXPECT_EQ(dialog.Chooser.File1.ListIndex.Get(), 0);
        ExpectDelete(B, Answer::Yes);
        Key(dialog.Chooser.File1, KeyCode::Delete);
        EXPECT_EQ(dialog.Chooser.File1.ListIndex.Get(), -1);
        ExpectTold(NothingSelected);
        Key(dialog.Chooser.File1, KeyCode::Delete);
    });
    ASSERT_EQ(platform.shell.trash.size(), 2U);
    EXPECT_EQ(platform.shell.trash[0].path, A);
}

TEST_F(LoadSlideFileTest, AShowThatCouldNotBeDeletedStaysListed) {
    module.config.RecentShows[0] = A;
    platform.shell.trashRefusal = ErrorNumber::PermissionDenied;
    InFolders([this](LoadSlideFile& dialog) {
        ExpectDelete(A, Answer::Yes);
        ExpectStop("Unable to send the file to the Recycle Bin, it has not been deleted:\r\n\r\n" +
                   std::string(A) + "\r\n\r\nPermission denied...");
        Key(dialog.Chooser.File1, KeyCode::Delete);
        EXPECT_EQ(dialog.Chooser.File1.FileName(), "a.tvs");
    });
    EXPECT_EQ(module.config.RecentShows[0], A);
}

TEST_F(LoadSlideFileTest, TheTwoDialogsLeadToEachOther) {
    module.config.RecentShows[0] = B;
    Texts shown;
    toolkit.OnModal("LoadSlideFile", [&, this] {
        shown.emplace_back("folders");
        EXPECT_EQ(app.Loaded<LoadRecentFile>(), nullptr);
        auto& dialog = *app.Loaded<LoadSlideFile>();
        Press(shown.size() < 5 ? dialog.CmdRecent : dialog.CmdOK);
    });
    toolkit.OnModal("LoadRecentFile", [&, this] {
        shown.emplace_back("recent");
        Press(app.Loaded<LoadRecentFile>()->CmdBrowse);
    });
    EXPECT_TRUE(Run());
    EXPECT_EQ(shown, (Texts{"folders", "recent", "folders", "recent", "folders"}));
    EXPECT_EQ(editor.filename, A);
}

TEST_F(LoadSlideFileTest, WhicheverCallFailsTheDialogEndsAndTheShowStands) {
    for (const headless::Service service : {headless::Service::Files, headless::Service::Shell}) {
        int call = 1;
        for (bool fired = true; fired; ++call) {
            headless::HeadlessToolkit silent;
            forms::Application application{silent};
            MainModule other{application, platform.services};
            other.AppPath = "C:\\Tavrix\\";
            auto& rows = application.Load<FakeEditor>(other);
            EditorTarget into{other, rows};
            silent.OnModal("LoadSlideFile", [&application] {
                auto& dialog = *application.Loaded<LoadSlideFile>();
                Press(dialog.CmdOK);
                if (!dialog.Unloaded()) Press(dialog.CmdCancel);
            });
            platform.faults.Clear();
            platform.faults.FailNth(service, call, ErrorNumber::DiskNotReady);
            EXPECT_NO_THROW(LoadShow(other, into));
            fired = platform.faults.Fired();
            platform.faults.Clear();
            EXPECT_FALSE(other.Busy()) << call;
            EXPECT_EQ(application.FormCount(), 1) << call;
            EXPECT_EQ(Content(A), ShowOf("a"));
        }
        EXPECT_GE(call, 2);
    }
}

/// Settings of the screen saver that note what they are told.
class FakeSaverSettings final : public SaverSettings {
  public:
    void SetCurrentFile(const std::string& path) override { file = path; }
    void ReadCurrentFile() override { read.push_back(file); }

    std::string file = "former";
    std::vector<std::string> read;
};

class SaverTargetTest : public LoadingTest {
  protected:
    SaverTargetTest() {
        target = &saverTarget;
        module.ScreenSaverMode = true;
        module.config.ImageLastDisplayed = 7;
        Setting("ImageLastDisplayed", "7");
        editor.rows = {"mine"};
        module.config.LastSlideShow = A;
    }
    ~SaverTargetTest() override {
        EXPECT_EQ(editor.rows, (Texts{"mine"}));
        EXPECT_EQ(editor.loads, 0);
        EXPECT_EQ(editor.filename, "Untitled.tvs");
        EXPECT_EQ(module.config.LastSlideShow, A);
    }
    FakeSaverSettings settings;
    SaverTarget saverTarget{module, settings};
};

TEST_F(SaverTargetTest, TakesTheShowAndBeginsWithItsFirstImage) {
    module.config.LastSlideShow = "c:\\tavrix\\SLIDES\\b.tvs";
    EXPECT_TRUE(InFolders([](LoadSlideFile& dialog) { Press(dialog.CmdOK); }));
    EXPECT_EQ(settings.file, "C:\\Tavrix\\SLIDES\\b.tvs");  // as the disk spells it
    EXPECT_EQ(settings.read, Texts{settings.file});
    EXPECT_EQ(Saved("ImageLastDisplayed"), "0");
    EXPECT_EQ(module.config.ImageLastDisplayed, 0);
    EXPECT_EQ(module.config.RecentShows[0], "");
    module.config.LastSlideShow = A;
}

TEST_F(SaverTargetTest, FromTheRecentListToo) {
    module.config.RecentShows[0] = "c:\\Tavrix/SLIDES\\b.tvs";
    EXPECT_TRUE(InRecent([](LoadRecentFile& dialog) { Press(dialog.CmdOK); }));
    EXPECT_EQ(settings.file, B);
    EXPECT_EQ(settings.read, Texts{settings.file});
}

TEST_F(SaverTargetTest, SettingsThatCannotBeWrittenDoNotStopIt) {
    platform.faults.FailAlways(headless::Service::Profile, "Write", ErrorNumber::DiskFull);
    EXPECT_TRUE(InFolders([](LoadSlideFile& dialog) { Press(dialog.CmdOK); }));
    platform.faults.Clear();
    EXPECT_EQ(Saved("ImageLastDisplayed"), "7");
    EXPECT_EQ(module.config.ImageLastDisplayed, 0);
    EXPECT_EQ(settings.read, Texts{settings.file});
}

}  // namespace
}  // namespace tavrix::test

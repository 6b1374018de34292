// Loading, saving, renaming, deleting and packing shows, and their sounds and pictures.

#include "shows/editor/SlideLoadFrm.h"
#include "shows/editor/frmSlideCopyImages.h"
#include "shows/library/DeleteSlideFrm.h"
#include "shows/library/LoadSlideFile.h"
#include "shows/library/SaveSlideFile.h"
#include "shows/library/ShowTarget.h"
#include "shows/library/frmRenameShow.h"
#include "shows/options/BrowseWavFrm.h"
#include "shows/options/SlideOptionsFrm.h"
#include "shows/package/DelPackageFrm.h"
#include "shows/package/PackageFrm.h"
#include "shows/package/PackageLayout.h"
#include "slow_folders/SlowFoldersTest.h"

namespace tavrix::test {
namespace {

using forms::Answer;

/// The shows a.tvs and b.tvs lie in C:\slow; the last was b.tvs.
class SlowShowsTest : public SlowFoldersTest {
  protected:
    SlowShowsTest() {
        for (const char* name : {"a", "b"}) {
            platform.disks.PutFile(std::string("C:\\slow\\") + name + ".tvs",
                                   "\"Tavrix Slide Show\"\r\n\"Version "
                                   "1.5\"\r\n0\r\n\"\"\r\n3\r\n0\r\n0\r\n0\r\n0\r\n0\r\n-1\r\n0\r\n"
                                   "\"a.bmp\"\r\n\"\"\r\n");
        }
        platform.disks.PutFolder("C:\\Tavrix\\SLIDES");
        Start();
        module.config.LastSlideShow = "C:\\slow\\b.tvs";
    }
};

/// A show is loaded into it.
class NotingTarget final : public ShowTarget {
  public:
    void Load(const std::string& path) override { loaded.push_back(path); }
    std::vector<std::string> loaded;
};

TEST_F(SlowShowsTest, TheLastShowIsSelectedAndLoadingWaits) {
    NotingTarget target;
    LoadEnd end{};
    auto& dialog = Show<LoadSlideFile>(module, target, end);
    EXPECT_EQ(dialog.Chooser.File1.ListCount(), 0);
    Press(dialog.CmdOK);
    EXPECT_EQ(target.loaded, Names{});
    Come();
    EXPECT_EQ(target.loaded, Names{"C:\\slow\\b.tvs"});
    EXPECT_EQ(end, LoadEnd::Loaded);
    EXPECT_EQ(app.Loaded<LoadSlideFile>(), nullptr);
}

TEST_F(SlowShowsTest, AfterADeletionTheNextShowIsCurrent) {
    NotingTarget target;
    LoadEnd end{};
    platform.disks.PutFile("C:\\slow\\c.tvs", "x");
    auto& dialog = Show<LoadSlideFile>(module, target, end);
    Come();
    ExpectDelete("C:\\slow\\b.tvs");
    Key(dialog.Chooser.File1, forms::KeyCode::Delete);
    EXPECT_EQ(dialog.Chooser.File1.ListCount(), 0);
    Come();
    EXPECT_EQ(dialog.Chooser.File1.FileName(), "c.tvs");
    dialog.Chooser.Dir1.Path = Quick;
    dialog.Chooser.Dir1.Path = Slow;
    Come();
    EXPECT_EQ(dialog.Chooser.File1.FileName(), "a.tvs") << "the first one of a folder";
    dialog.Chooser.File1.ListIndex = 1;
    ExpectDelete("C:\\slow\\c.tvs");
    Key(dialog.Chooser.File1, forms::KeyCode::Delete);
    Come();
    EXPECT_EQ(dialog.Chooser.File1.FileName(), "a.tvs") << "there is none behind the last";
}

TEST_F(SlowShowsTest, RecentShowsDoNotWait) {
    NotingTarget target;
    LoadEnd end{};
    auto& dialog = Show<LoadSlideFile>(module, target, end);
    const forms::Milliseconds before = toolkit.Now();
    Press(dialog.CmdRecent);
    EXPECT_EQ(end, LoadEnd::Other);
    EXPECT_EQ(toolkit.Now(), before);
}

TEST_F(SlowShowsTest, ATypedNameIsTakenWhenTheFolderHasCome) {
    std::optional<SaveEnd> end;
    module.config.SaveSlides = false;
    auto& dialog = Show<SaveSlideFile>(module, "C:\\slow\\b.tvs", end);
    const forms::Milliseconds before = toolkit.Now();
    dialog.txtFilename.Text = "new";
    Press(dialog.CmdOK);
    EXPECT_EQ(toolkit.Now(), before);
    ExpectQuestion("About to save the slide show as:\r\n\r\nC:\\slow\\new.tvs\r\n\r\nIs this filename OK?",
                   Answer::No);
    Come();
    EXPECT_EQ(dialog.txtFilename.Text.Get(), "new") << "also when the list has come";
    EXPECT_EQ(Listed(dialog.Chooser.File1), (Names{"a.tvs", "b.tvs"}));
}

TEST_F(SlowShowsTest, RenameWaitsForTheShow) {
    auto& dialog = Show<frmRenameShow>(module);
    EXPECT_EQ(dialog.txtFilename.Text.Get(), "");
    Press(dialog.CmdRename);
    Expect({.text = "The new filename is the same as the current one, unable to rename slide show...",
            .title = "Tavrix - [Rename Slide Show]"});
    Come();
    EXPECT_EQ(dialog.Chooser.File1.FileName(), "b.tvs");
    EXPECT_EQ(dialog.txtFilename.Text.Get(), "b.tvs");
    dialog.Chooser.Dir1.Path = Quick;
    dialog.Chooser.Dir1.Path = Slow;
    Come();
    EXPECT_EQ(dialog.txtFilename.Text.Get(), "a.tvs");
}

TEST_F(SlowShowsTest, ANewNameThatIsTypedInTheMeantimeStays) {
    auto& dialog = Show<frmRenameShow>(module);
    dialog.txtFilename.Text = "new";
    Press(dialog.CmdRename);
    Expect(
        {.text =
             "You are about to rename:\r\n\r\nb.tvs\r\n\r\n   -- to --\r\n\r\nnew.tvs\r\n\r\nAre you sure?",
         .icon = forms::BoxIcon::Question,
         .buttons = forms::BoxButtons::YesNo,
         .reply = Answer::No,
         .title = "Tavrix - [Rename Slide Show]"});
    Come();
    EXPECT_EQ(dialog.txtFilename.Text.Get(), "new");
    dialog.Chooser.File1.ListIndex = 0;
    EXPECT_EQ(dialog.txtFilename.Text.Get(), "a.tvs") << "a show that is chosen tells its name";
    dialog.Chooser.Dir1.Path = Quick;
    dialog.Chooser.Dir1.Path = Slow;
    dialog.txtFilename.Text = "another";
    Come();
    EXPECT_EQ(dialog.txtFilename.Text.Get(), "another");
    dialog.Chooser.Dir1.Path = Quick;
    dialog.Chooser.Dir1.Path = Slow;
    dialog.txtFilename.Text = "a third";
    dialog.Chooser.Dir1.Path = Quick;
    dialog.Chooser.Dir1.Path = Slow;
    Come();
    EXPECT_EQ(dialog.txtFilename.Text.Get(), "a.tvs") << "the name was meant for the folder before";
}

class SlowDeleteShowTest : public SlowShowsTest {
  protected:
    void ExpectShowDeleted(const std::string& name) {
        ExpectQuestion("Delete the selected slide show file?\r\n\r\nC:\\slow\\" + name, Answer::Yes);
        ExpectQuestion(
            "Delete ALL of the images referenced in this slide show file?\r\n\r\n(You may want to open "
            "the slide show to check the images that it contains first.)",
            Answer::No);
    }
    void KeepAlone(const char* show) {
        for (const char* name : {"a.bmp", "b.bmp", "c.bmp", "a.tvs", "b.tvs"}) {
            if (std::string(name) != show) platform.disks.Remove(std::string("C:\\slow\\") + name);
        }
    }
    static constexpr const char* Done = "The selected slide show has been deleted...";
    static constexpr const char* AskFolder =
        "This slide show folder is now empty:\r\n\r\nC:\\slow\r\n\r\nRemove this directory?";
};

TEST_F(SlowDeleteShowTest, DeleteWaitsForTheShowAndForWhatIsLeft) {
    module.config.UseRecycleBin = true;
    auto& dialog = Show<DeleteSlideFrm>(module);
    Press(dialog.CmdDelete);
    EXPECT_TRUE(IsThere("C:\\slow\\b.tvs"));
    ExpectShowDeleted("b.tvs");
    ExpectTold(Done);  // and nobody is asked about a folder with another show
    Come();
    EXPECT_FALSE(IsThere("C:\\slow\\b.tvs"));
    EXPECT_EQ(Listed(dialog.Chooser.File1), Names{"a.tvs"});
    EXPECT_FALSE(module.Busy());
}

TEST_F(SlowDeleteShowTest, AnEmptyFolderIsOfferedBeforeTheEndIsTold) {
    module.config.UseRecycleBin = true;
    KeepAlone("b.tvs");
    auto& dialog = Show<DeleteSlideFrm>(module);
    Come();
    ExpectShowDeleted("b.tvs");
    ExpectQuestion(AskFolder, Answer::Yes);
    ExpectTold(Done);
    platform.files.ChangeFolder(Slow);
    Press(dialog.CmdDelete);
    EXPECT_FALSE(IsThere(Slow));
    EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\");
    EXPECT_EQ(platform.files.CurrentFolder(), "C:\\");
}

TEST_F(SlowDeleteShowTest, AFolderThatTheUserLeavesMeanwhileIsNot) {
    module.config.UseRecycleBin = true;
    platform.disks.PutFolder("C:\\none");
    KeepAlone("b.tvs");
    auto& dialog = Show<DeleteSlideFrm>(module);
    Come();
    ExpectShowDeleted("b.tvs");
    ExpectTold(Done);
    bool left = false;
    for (int yield = 1; yield < 40; ++yield) {
        toolkit.AtYield(yield, [&] {
            if (left || !dialog.Chooser.Lists.Pending()) return;
            left = true;
            dialog.Chooser.Dir1.Path = "C:\\none";
        });
    }
    Press(dialog.CmdDelete);
    EXPECT_TRUE(left);
    EXPECT_TRUE(IsThere(Slow));
    EXPECT_TRUE(IsThere("C:\\none"));
}

TEST_F(SlowShowsTest, ASoundIsPlayedAndTakenWhenItsFolderHasCome) {
    module.WaveDevicePresent = true;
    for (const char* name : {"a.wav", "b.wav"})
        platform.disks.PutFile(std::string("C:\\slow\\") + name, "x");
    module.config.SoundFile = "C:\\slow\\b.wav";
    module.config.SoundMode = 1;
    auto& options = app.Load<SlideOptionsFrm>(module, ShowFolder(""));
    auto& dialog = Show<BrowseWavFrm>(module, options);
    EXPECT_EQ(dialog.Chooser.File1.ListIndex, -1);
    Press(dialog.CmdPlay);
    EXPECT_EQ(dialog.CmdPlay.Caption.Get(), "&Play...");
    Come();
    EXPECT_EQ(dialog.Chooser.File1.FileName(), "b.wav");
    EXPECT_EQ(dialog.CmdPlay.Caption.Get(), "&Stop...");
    dialog.Chooser.File1.Refresh();
    static_cast<void>(dialog.Chooser.File1.ListCount());
    Press(dialog.CmdPlay);
    EXPECT_EQ(dialog.CmdPlay.Caption.Get(), "&Play...") << "to stop needs no list";
    Come();
    dialog.Chooser.File1.ListIndex = 0;
    ExpectDelete("C:\\slow\\a.wav");
    Key(dialog.Chooser.File1, forms::KeyCode::Delete);
    EXPECT_EQ(dialog.Chooser.File1.ListCount(), 2) << "the list stays until the next has come";
    dialog.Chooser.File1.ListIndex = 1;
    Press(dialog.CmdOK);
    options.txtWavFile.Text = "";
    Come();
    EXPECT_EQ(options.txtWavFile.Text.Get(), "C:\\slow\\b.wav");
    EXPECT_EQ(app.Loaded<BrowseWavFrm>(), nullptr);
    app.Unload(options);
}

// The editor

class SlowEditorTest : public SlowShowsTest {
  protected:
    SlideLoadFrm& Open() {
        auto& editor = Show<SlideLoadFrm>(*app.Loaded<MainViewFrm>());
        editor.Dir1.Path = Slow;
        return editor;
    }
    static Names Rows(const forms::ListBox& list) {
        Names rows;
        for (int row = 0; row < list.ListCount(); ++row)
            rows.push_back(list.List(row));
        return rows;
    }
    /// The user drags the first file to the end of the show.
    static void DropFirst(SlideLoadFrm& editor) {
        using forms::MouseAction;
        for (const auto action : {MouseAction::Down, MouseAction::Move}) {
            const int at = action == MouseAction::Down ? 10 : 40;
            editor.File1.Deliver(forms::MouseEvent{action, forms::MouseButton::Left, 0, at, at, 0});
        }
        for (const auto action : {forms::DragAction::Over, forms::DragAction::Drop}) {
            forms::DragEvent drag;
            drag.action = action;
            drag.row = -1;
            editor.ListView.Deliver(drag);
        }
        forms::DragEvent ended;
        ended.action = forms::DragAction::Ended;
        editor.File1.Deliver(ended);
        editor.File1.Deliver(forms::MouseEvent{MouseAction::Up, forms::MouseButton::Left, 0, 40, 40, 0});
    }
    static Names Whole(const Names& names) {
        Names paths;
        for (const std::string& name : names)
            paths.push_back("C:\\slow\\" + name);
        return paths;
    }
    void Close() {
        module.show.ShowChanged = false;
        app.Unload(*app.Loaded<SlideLoadFrm>());
    }
};

TEST_F(SlowEditorTest, AllOfTheFolderIsAddedAndNotWhatThereIsOfIt) {
    auto& editor = Open();
    Press(editor.CmdAddAll);
    EXPECT_EQ(editor.ListView.ListCount(), 0);
    Come();
    EXPECT_EQ(Rows(editor.ListView), Whole({"a.bmp", "b.bmp", "c.bmp"}));
    Close();
}

TEST_F(SlowEditorTest, ACommandForTheShowForgetsOneForTheFolder) {
    auto& editor = Open();
    Press(editor.CmdAddAll);
    ExpectTold("There are no files in the View List to remove...");
    Press(editor.CmdRemove);
    Come();
    EXPECT_EQ(editor.ListView.ListCount(), 0);
    Close();
}

TEST_F(SlowEditorTest, ARenamedFileIsSelectedWhenTheListHasCome) {
    auto& editor = Open();
    Come();
    editor.File1.SetSelection({1, 2});
    toolkit.ExpectInput({.prompt = "C:\\slow\\b.bmp\r\n\r\nEnter a new name for the file:",
                         .title = "Tavrix - [Rename Image]",
                         .text = "b.bmp",
                         .reply = "z.bmp"});
    editor.Menu1.mnuRenameFile.Click();
    EXPECT_EQ(Listed(editor.File1), (Names{"a.bmp", "b.bmp", "c.bmp"})) << "until the next has come";
    // It is not dragged, since what lies under the mouse may be another one when it is let go.
    DropFirst(editor);
    EXPECT_EQ(editor.ListView.ListCount(), 0);
    Press(editor.CmdAdd);
    Come();
    EXPECT_EQ(Listed(editor.File1), (Names{"a.bmp", "c.bmp", "z.bmp"}));
    EXPECT_EQ(editor.File1.FileName(), "z.bmp");
    EXPECT_EQ(Rows(editor.ListView), Whole({"z.bmp"}));
    DropFirst(editor);
    EXPECT_EQ(Rows(editor.ListView), Whole({"z.bmp", "a.bmp"}));
    Close();
}

TEST_F(SlowEditorTest, ADeletionKeepsTheRowsThatAreLeft) {
    auto& editor = Open();
    Come();
    editor.File1.SetSelection({0, 1});
    ExpectDelete("C:\\slow\\a.bmp");
    editor.Menu1.mnuDeleteFile.Click();
    editor.File1.SetSelection({2, 3});
    Come();
    EXPECT_EQ(Listed(editor.File1), (Names{"b.bmp", "c.bmp"}));
    EXPECT_TRUE(editor.File1.Selected(1));
    Close();
}

TEST_F(SlowEditorTest, ACopyOfItsFilesWaitsForTheDestination) {
    auto& view = *app.Loaded<MainViewFrm>();
    auto& dialog = Show<frmSlideCopyImages>(
        view, frmSlideCopyImages::Sources{.folder = "C:\\quick\\", .names = {"a.bmp"}},
        frmSlideCopyImages::Editor{.Moved = [](const auto&, const auto&) { return false; },
                                   .RefreshSources = [] {}});
    dialog.Dir1.Path = Slow;
    Press(dialog.CmdCopy);
    ExpectQuestion(
        "OK to copy the file:\r\n\r\na.bmp\r\n\r\n...to the following directory?\r\n\r\nC:\\slow\\",
        Answer::No);
    Come();
    EXPECT_EQ(dialog.MousePointer, forms::MousePointer::Default);
}

// Packages

class SlowPackageTest : public SlowShowsTest {
  protected:
    SlowPackageTest() {
        platform.disks.PutFolder("C:\\Out");
        const std::vector<ProfileEntry> settings{
            {"PackageDestination", "C:\\Out"}, {"PackageName", "Trip"}, {"PackageSize", "7.5"}};
        platform.profile.Write("Package", settings, "C:\\Tavrix\\tavrix.ini");
    }
    static constexpr const char* Title = "Tavrix - [Package Slide Show]";
    void ExpectSummary(Answer reply) {
        ExpectQuestion(
            "NAME:\r\nTrip\r\n\r\nTYPE:\r\nSlide Show\r\n\r\nSIZE:\r\n7.5 (megabytes)\r\n\r\n"
            "SOURCE:\r\nC:\\slow\\b.tvs\r\n\r\nPACKAGE:\r\nC:\\Out\r\n\r\nCreate the above package?",
            reply, Title);
    }
    package::InstalledFiles programFiles{module};
};

TEST_F(SlowPackageTest, TheLastShowIsChosenAndThePackageWaits) {
    auto& dialog = Show<PackageFrm>(module, programFiles);
    EXPECT_EQ(dialog.Dir1.Path.Get(), Slow);
    Press(dialog.CmdPackage);
    ExpectSummary(Answer::No);
    Come();
    EXPECT_EQ(dialog.File1.FileName(), "b.tvs");
    dialog.Dir1.Path = Quick;
    dialog.Dir1.Path = Slow;
    Come();
    EXPECT_EQ(dialog.File1.FileName(), "a.tvs") << "the first one of a folder";
    app.Unload(dialog);
}

TEST_F(SlowPackageTest, ADropForgetsThePackage) {
    auto& dialog = Show<PackageFrm>(module, programFiles);
    Press(dialog.CmdPackage);
    dialog.File1.Deliver(forms::DropEvent{{"C:\\slow\\a.tvs"}});
    Come();
    Come();
    EXPECT_EQ(dialog.File1.FileName(), "a.tvs");
    app.Unload(dialog);
}

TEST_F(SlowPackageTest, ADestinationThatFailsLateIsToldAsAFolder) {
    platform.disks.PutFolder("C:\\Bad");
    platform.disks.SetUnreadable("C:\\Bad", true);
    disk.also.insert("C:\\Bad");
    auto& dialog = Show<PackageFrm>(module, programFiles);
    Come();
    dialog.Dir2.Path = "C:\\Bad";
    Press(dialog.CmdPackage);
    EXPECT_FALSE(module.Busy());
    Expect({.text = "Unable to change directory to:\r\n\r\nC:\\Bad\r\n\r\nPermission denied...",
            .icon = forms::BoxIcon::Stop});
    Come();
    Come();
    EXPECT_EQ(dialog.Dir2.Path.Get(), "C:\\Out");
    app.Unload(dialog);
}

TEST_F(SlowPackageTest, AnEstimateWaits) {
    auto& dialog = Show<PackageFrm>(module, programFiles);
    Press(dialog.CmdSize);
    EXPECT_EQ(dialog.txtSize.Text.Get(), "7.5");
    Come();
    EXPECT_NE(dialog.txtSize.Text.Get(), "7.5");
    app.Unload(dialog);
}

TEST_F(SlowPackageTest, FilesInASlowDestinationAreSeenWhileMessagesRun) {
    disk.also.insert("C:\\Out");
    platform.disks.PutFile("C:\\Out\\there.txt", "x");
    auto& dialog = Show<PackageFrm>(module, programFiles);
    Press(dialog.CmdPackage);
    ExpectQuestion(
        "The selected package directory already has files in it:\r\n\r\nC:\\Out\r\n\r\nUse this "
        "directory anyway?",
        Answer::No, Title);
    Come();
    EXPECT_FALSE(module.Busy());
    // Who closes the window meanwhile is asked nothing.
    const forms::Form::HandlerScope scope(dialog);
    toolkit.Post([&] { Press(dialog.CmdCancel); });
    Press(dialog.CmdPackage);
    EXPECT_TRUE(dialog.Unloaded());
    EXPECT_FALSE(module.Busy());
}

TEST_F(SlowPackageTest, ADroppedShowIsChosenWhenItsFolderHasCome) {
    module.config.LastSlideShow.clear();
    auto& dialog = Show<PackageFrm>(module, programFiles);
    dialog.File1.Deliver(forms::DropEvent{{"C:\\slow\\b.tvs"}});
    EXPECT_EQ(dialog.Dir1.Path.Get(), Slow);
    Come();
    EXPECT_EQ(dialog.File1.FileName(), "b.tvs");
    dialog.Dir1.Path = Quick;
    platform.disks.SetUnreadable(Slow, true);
    dialog.File1.Deliver(forms::DropEvent{{"C:\\slow\\a.tvs"}});
    Expect({.text = "The file that was dropped here is not a valid Tavrix slide show (.TVS) file.",
            .icon = forms::BoxIcon::Exclamation,
            .title = Title});
    Come();
    EXPECT_EQ(dialog.Dir1.Path.Get(), Quick);
    app.Unload(dialog);
}

TEST_F(SlowPackageTest, ADeletionWaits) {
    auto& dialog = Show<DelPackageFrm>(module);
    dialog.Dir1.Path = Slow;
    EXPECT_EQ(dialog.lblMsg.Caption.Get(), "Please wait...");
    Press(dialog.CmdDelete);
    Expect({.text = "The selected folder is not a complete package directory, SETUP.INI could not be "
                    "found.\r\n\r\nUnable to delete selected package...",
            .icon = forms::BoxIcon::Exclamation});
    Come();
    EXPECT_EQ(dialog.lblMsg.Caption.Get(), "Select location of the package to delete...");
    dialog.Dir1.Path = Quick;
    EXPECT_EQ(dialog.lblMsg.Caption.Get(), "Select location of the package to delete...");
    platform.disks.SetUnreadable(Slow, true);
    dialog.Dir1.Path = Slow;
    Expect({.text = "Unable to change directory to:\r\n\r\nC:\\slow\r\n\r\nPermission denied...",
            .icon = forms::BoxIcon::Stop});
    Come();
    EXPECT_EQ(dialog.lblMsg.Caption.Get(), "Select location of the package to delete...");
    app.Unload(dialog);
}

TEST_F(SlowPackageTest, NobodyWaitsForAFolderWhoseDriveHasGone) {
    platform.disks.AddDrive('D', DriveType::Removable);
    platform.disks.InsertDisk('D');
    platform.disks.PutFolder("D:\\Old\\Deeper");
    disk.also = {"D:\\Old", "D:\\Old\\Deeper"};
    auto& dialog = Show<DelPackageFrm>(module);
    dialog.Dir1.Path = "D:\\Old";
    Come();
    platform.disks.SetUnreadable("D:\\Old\\Deeper", true);
    dialog.Dir1.Path = "D:\\Old\\Deeper";
    platform.disks.RemoveDrive('D');
    Expect({.text = "Unable to change directory to:\r\n\r\nD:\\Old\\Deeper\r\n\r\nPermission denied...",
            .icon = forms::BoxIcon::Stop});
    Come();
    Come();  // the folder before it is not there either
    EXPECT_FALSE(dialog.Lists.Pending());
    EXPECT_EQ(dialog.lblMsg.Caption.Get(), "Select location of the package to delete...");
    app.Unload(dialog);
}

}  // namespace
}  // namespace tavrix::test

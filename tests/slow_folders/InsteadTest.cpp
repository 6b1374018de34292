// Who has pressed a button that waits for a folder, and then does something that opens a box: the folder comes below the
// box, and nothing more is opened or done.

#include "editing/saving/ExportBmpFrm.h"
#include "editing/saving/SaveCopyFrm.h"
#include "filing/deleting/DeleteImgFrm.h"
#include "filing/floppies/frmCopyFloppy.h"
#include "filing/floppies/frmPutOnFloppy.h"
#include "filing/moving/frmCopyImages.h"
#include "filing/moving/frmMoveCurrentImg.h"
#include "lists/frmFavFolder.h"
#include "shows/editor/SlideLoadFrm.h"
#include "shows/editor/frmSlideCopyImages.h"
#include "shows/library/LoadSlideFile.h"
#include "shows/library/ShowTarget.h"
#include "shows/options/BrowseWavFrm.h"
#include "shows/options/SlideOptionsFrm.h"
#include "shows/package/PackageFrm.h"
#include "shows/package/PackageLayout.h"
#include "slow_folders/SlowFoldersTest.h"
#include "viewer/OpenFrm.h"

namespace tavrix::test {
namespace {

using forms::Answer;

class InsteadTest : public SlowFoldersTest {
  protected:
    ~InsteadTest() override {
        // Nothing is left that would be done later.
        Come();
        EXPECT_GE(boxes_, 1);
    }
    /// A box while which the folder comes.
    void ExpectMeanwhile(headless::ExpectedBox box) {
        box.whileOpen = [this] {
            ++boxes_;
            Come();
        };
        Expect(std::move(box));
    }
    void ExpectToldMeanwhile(const std::string& text) { ExpectMeanwhile({.text = text}); }
    void ExpectNothingSelected() {
        ExpectToldMeanwhile(
            "Unable to delete file by pressing the delete key, nothing is selected in the file list...");
    }
    void ExpectNewFolderMeanwhile() {
        toolkit.ExpectInput({.prompt = "Enter the name of the folder to create:",
                             .text = "New Folder",
                             .reply = std::nullopt});
        ++boxes_;
    }

  private:
    int boxes_ = 0;
};

TEST_F(InsteadTest, TheDeleteKeyInsteadOfOpening) {
    auto& dialog = Show<OpenFrm>(Start(true));
    Press(dialog.CmdOpen);
    ExpectNothingSelected();
    Key(dialog.File1, forms::KeyCode::Delete);
    EXPECT_EQ(dialog.File1.FileName(), "b.bmp");
    EXPECT_TRUE(dialog.Visible());
}

TEST_F(InsteadTest, ADropInsteadOfOpening) {
    auto& dialog = Show<OpenFrm>(Start(true));
    Press(dialog.CmdOpen);
    ExpectToldMeanwhile("You may not drop a folder here, unable to show preview...");
    dialog.Deliver(forms::DropEvent{{Quick}});
    EXPECT_TRUE(dialog.Visible());
}

TEST_F(InsteadTest, TheDeleteKeyInsteadOfDeletingWhatIsSelected) {
    Start(true);
    auto& dialog = Show<DeleteImgFrm>(module);
    Press(dialog.CmdDelete);
    ExpectNothingSelected();
    Key(dialog.Chooser.File1, forms::KeyCode::Delete);
}

TEST_F(InsteadTest, TheDeleteKeyInsteadOfACopyToAFloppy) {
    platform.disks.InsertDisk('A');
    Start(true);
    auto& dialog = Show<frmPutOnFloppy>(module);
    Press(dialog.CmdCopy);
    ExpectNothingSelected();
    Key(dialog.Files.File1, forms::KeyCode::Delete);
}

TEST_F(InsteadTest, AnotherDiskInsteadOfACopyFromAFloppy) {
    platform.disks.InsertDisk('A');
    platform.disks.PutFile("A:\\f.bmp", "f");
    Start();
    auto& dialog = Show<frmCopyFloppy>(module);
    dialog.Files.File1.Select(0);
    dialog.Dir2.Path = Slow;
    Press(dialog.CmdCopy);
    const auto pulled = platform.disks.PullDisk('A');
    ExpectMeanwhile(
        {.text = "Unable to refresh file list.\r\n\r\nDisk not ready...", .icon = forms::BoxIcon::Stop});
    Press(dialog.CmdNewDisk);
}

TEST_F(InsteadTest, TheDeleteKeyInsteadOfACopyFromAFloppy) {
    platform.disks.InsertDisk('A');
    platform.disks.PutFile("A:\\f.bmp", "f");
    Start();
    auto& dialog = Show<frmCopyFloppy>(module);
    dialog.Files.File1.Select(0);
    dialog.Dir2.Path = Slow;
    Press(dialog.CmdCopy);
    dialog.Files.File1.ListIndex = -1;
    ExpectNothingSelected();
    Key(dialog.Files.File1, forms::KeyCode::Delete);
}

/// The folder that is awaited is on one side, and what is done is on the other.
class InsteadOfTransferTest : public InsteadTest {
  protected:
    InsteadOfTransferTest() {
        platform.disks.PutFolder("C:\\to");
        Start(true);
        module.config.LastCopyToPath = "C:\\to";
    }
};

TEST_F(InsteadOfTransferTest, ANewFolderInTheDestinationInsteadOfTheSource) {
    auto& dialog = Show<frmCopyImages>(module);
    Press(dialog.CmdCopy);
    ExpectNewFolderMeanwhile();
    Press(dialog.CmdNewFolder);
    Come();
    EXPECT_TRUE(dialog.Visible());
    EXPECT_EQ(dialog.File1.FileName(), "b.bmp");
}

TEST_F(InsteadOfTransferTest, TheDeleteKeyInTheSourceInsteadOfTheDestination) {
    auto& dialog = Show<frmCopyImages>(module);
    Come();
    disk.also.insert("C:\\to\\slow");
    platform.disks.PutFolder("C:\\to\\slow");
    dialog.Dir2.Path = "C:\\to\\slow";
    Press(dialog.CmdCopy);
    dialog.File1.ListIndex = 0;
    ExpectMeanwhile({.text = "Are you sure you want to send the following file to the Recycle "
                             "Bin?\r\n\r\nC:\\slow\\a.bmp",
                     .icon = forms::BoxIcon::Question,
                     .buttons = forms::BoxButtons::YesNo,
                     .reply = Answer::No});
    Key(dialog.File1, forms::KeyCode::Delete);
    Come();
    EXPECT_TRUE(dialog.Visible());
}

TEST_F(InsteadOfTransferTest, AFavoriteFolderOfTheOneSideInsteadOfTheOther) {
    auto& dialog = Show<frmCopyImages>(module);
    module.config.FavoriteFolder = "C:\\gone";
    Press(dialog.CmdCopy);
    ExpectMeanwhile({.text = "Unable to change directory to your Favorite Folder.\r\n\r\nPath not found...",
                     .icon = forms::BoxIcon::Stop});
    Press(dialog.DestinationFF);
    EXPECT_TRUE(dialog.Visible());
}

TEST_F(InsteadOfTransferTest, TheWholePathInsteadOfAMove) {
    std::string target;
    auto& dialog = Show<frmMoveCurrentImg>(module, target);
    Press(dialog.CmdMove);
    ExpectToldMeanwhile("Complete path to current image file:\r\n\r\nC:\\slow\\b.bmp");
    dialog.lblCurrent.Deliver(forms::ClickEvent{});
    EXPECT_EQ(target, "");
    EXPECT_TRUE(dialog.Visible());
    app.Unload(dialog);
}

TEST_F(InsteadTest, TheWholePathInsteadOfASave) {
    auto& dialog = Show<SaveCopyFrm>(Start(true));
    dialog.Target.txtFilename.Text = "copy.bmp";
    Press(dialog.CmdSave);
    ExpectToldMeanwhile("Complete path to current image file:\r\n\r\nC:\\slow\\b.bmp");
    dialog.Target.lblCurrent.Deliver(forms::ClickEvent{});
    EXPECT_FALSE(IsThere("C:\\slow\\copy.bmp"));
}

TEST_F(InsteadTest, ANameOfNoUseInsteadOfTheOneThatWaits) {
    auto& dialog = Show<ExportBmpFrm>(Start(true));
    dialog.Target.txtFilename.Text = "copy";
    Press(dialog.Buttons.CmdExport);
    dialog.Target.txtFilename.Text = "a:b";
    ExpectToldMeanwhile("A filename may not contain a colon (:), unable to export image...");
    Press(dialog.Buttons.CmdExport);
    EXPECT_TRUE(dialog.Visible());
}

TEST_F(InsteadTest, ALookIntoTheFolderInsteadOfItsChoice) {
    Start();
    module.config.FavoriteFolder = "C:\\slow\\";
    auto& dialog = Show<frmFavFolder>(module);
    module.config.FavoriteFolder = "";
    Press(dialog.CmdOK);
    platform.shell.canRun = false;
    ExpectMeanwhile({.text = "Error, unable to start Windows Explorer to show selected directory.",
                     .icon = forms::BoxIcon::Stop});
    Press(dialog.Chooser.CmdExplore);
    EXPECT_EQ(module.config.FavoriteFolder, "");
}

class InsteadOfShowTest : public InsteadTest {
  protected:
    class NoTarget final : public ShowTarget {
      public:
        void Load(const std::string&) override { ADD_FAILURE() << "loaded all the same"; }
    };

    InsteadOfShowTest() {
        platform.disks.PutFile("C:\\slow\\s.tvs", "x");
        platform.disks.PutFile("C:\\slow\\s.wav", "x");
        platform.disks.PutFolder("C:\\Tavrix\\SLIDES");
        Start();
        module.config.LastSlideShow = "C:\\slow\\s.tvs";
    }
};

TEST_F(InsteadOfShowTest, TheDeleteKeyInsteadOfLoading) {
    NoTarget target;
    LoadEnd end{};
    auto& dialog = Show<LoadSlideFile>(module, target, end);
    Press(dialog.CmdOK);
    ExpectToldMeanwhile(
        "Unable to delete file(s) by pressing the delete key, nothing is selected in the file list...");
    Key(dialog.Chooser.File1, forms::KeyCode::Delete);
    EXPECT_EQ(dialog.Chooser.File1.FileName(), "s.tvs");
    app.Unload(dialog);
}

TEST_F(InsteadOfShowTest, TheDeleteKeyInsteadOfASound) {
    module.config.SoundFile = "C:\\slow\\s.wav";
    module.config.SoundMode = 1;
    auto& options = app.Load<SlideOptionsFrm>(module, ShowFolder(""));
    auto& dialog = Show<BrowseWavFrm>(module, options);
    Press(dialog.CmdOK);
    ExpectNothingSelected();
    Key(dialog.Chooser.File1, forms::KeyCode::Delete);
    EXPECT_TRUE(dialog.Visible());
    app.Unload(dialog);
    app.Unload(options);
}

TEST_F(InsteadOfShowTest, ADropInsteadOfAPackage) {
    package::InstalledFiles programFiles{module};
    auto& dialog = Show<PackageFrm>(module, programFiles);
    dialog.txtName.Text = "";
    Press(dialog.CmdPackage);
    ExpectMeanwhile({.text = "The file that was dropped here is not a valid Tavrix slide show (.TVS) file.",
                     .icon = forms::BoxIcon::Exclamation,
                     .title = "Tavrix - [Package Slide Show]"});
    dialog.File1.Deliver(forms::DropEvent{{"C:\\slow\\a.bmp"}});
    app.Unload(dialog);
}

TEST_F(InsteadOfShowTest, ADropInsteadOfAllFiles) {
    auto& editor = Show<SlideLoadFrm>(*app.Loaded<MainViewFrm>());
    editor.Dir1.Path = Slow;
    Press(editor.CmdAddAll);
    ExpectToldMeanwhile("No valid image files were dropped, unable to add these items to the View List...");
    editor.Deliver(forms::DropEvent{{"C:\\slow\\s.wav"}});
    EXPECT_EQ(editor.ListView.ListCount(), 0);
    app.Unload(editor);
}

TEST_F(InsteadOfShowTest, AMenuInsteadOfAllFiles) {
    auto& editor = Show<SlideLoadFrm>(*app.Loaded<MainViewFrm>());
    editor.Dir1.Path = Slow;
    Press(editor.CmdAddAll);
    toolkit.ChooseFromPopup("");
    Press(editor.CmdMenu2);
    Come();
    EXPECT_EQ(editor.ListView.ListCount(), 0);
    ExpectToldMeanwhile("There are no files in the View List to remove...");
    Press(editor.CmdRemove);
    app.Unload(editor);
}

TEST_F(InsteadOfShowTest, ADialogOfTheMainViewInsteadOfAllFiles) {
    auto& view = *app.Loaded<MainViewFrm>();
    auto& editor = Show<SlideLoadFrm>(view);
    for (const bool openStill : {true, false}) {
        editor.Dir1.Path = Slow;
        toolkit.OnModal("OpenFrm", [&] {
            if (openStill) Come();
            Press(app.Loaded<OpenFrm>()->CmdCancel);
        });
        Press(editor.CmdAddAll);
        view.menu.mnuOpen.Click();
        Come();
        EXPECT_EQ(editor.ListView.ListCount(), 0) << openStill;
        editor.Dir1.Path = Quick;
    }
    editor.Dir1.Path = Slow;
    Press(editor.CmdAddAll);
    Come();
    EXPECT_EQ(editor.ListView.ListCount(), 3);
    ExpectToldMeanwhile("No valid image files were dropped, unable to add these items to the View List...");
    editor.Deliver(forms::DropEvent{{"C:\\slow\\s.wav"}});
    module.show.ShowChanged = false;
    app.Unload(editor);
}

TEST_F(InsteadOfShowTest, ALookIntoTheFolderInsteadOfACopy) {
    auto& dialog = Show<frmSlideCopyImages>(
        *app.Loaded<MainViewFrm>(), frmSlideCopyImages::Sources{.folder = "C:\\quick\\", .names = {"a.bmp"}},
        frmSlideCopyImages::Editor{.Moved = [](const auto&, const auto&) { return false; },
                                   .RefreshSources = [] {}});
    dialog.Dir1.Path = Slow;
    Press(dialog.CmdCopy);
    platform.shell.canRun = false;
    ExpectMeanwhile({.text = "Error, unable to start Windows Explorer to show selected directory.",
                     .icon = forms::BoxIcon::Stop});
    Press(dialog.CmdExplore);
    app.Unload(dialog);
}

}  // namespace
}  // namespace tavrix::test

// Choosing a folder.

#include "lists/frmBrowseQuick.h"
#include "lists/frmFavFolder.h"
#include "lists/frmQuickFolders.h"
#include "slow_folders/SlowFoldersTest.h"

namespace tavrix::test {
namespace {

class SlowChoiceTest : public SlowFoldersTest {};

TEST_F(SlowChoiceTest, TheFavoriteFolderIsTakenWhenItHasCome) {
    Start();
    module.config.FavoriteFolder = "C:\\slow\\";
    auto& dialog = Show<frmFavFolder>(module);
    EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), Slow);
    module.config.FavoriteFolder = "";
    Press(dialog.CmdOK);
    EXPECT_EQ(module.config.FavoriteFolder, "");
    Come();
    EXPECT_EQ(module.config.FavoriteFolder, Slow);
    EXPECT_EQ(app.Loaded<frmFavFolder>(), nullptr);
}

TEST_F(SlowChoiceTest, OneThatCannotBeReadIsNotTaken) {
    Start();
    platform.disks.SetUnreadable(Slow, true);
    module.config.FavoriteFolder = "C:\\slow\\";
    auto& dialog = Show<frmFavFolder>(module);
    Press(dialog.CmdOK);
    Come();  // without a word, as at once
    EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), Quick);
    EXPECT_TRUE(dialog.Visible());
    EXPECT_EQ(module.config.FavoriteFolder, "C:\\slow\\");
}

TEST_F(SlowChoiceTest, MyDocumentsMayFailLate) {
    Start();
    platform.disks.SetUnreadable(Slow, true);
    platform.files.SetFolder(KnownFolder::Documents, Slow);
    auto& dialog = Show<frmFavFolder>(module);
    const std::string before = dialog.Chooser.Dir1.Path;
    Press(dialog.Chooser.CmdMyDocuments);
    EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), Slow);
    Expect({.text = "Unable to change current directory to your My Documents folder...",
            .icon = forms::BoxIcon::Stop});
    Come();
    EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), before);
}

TEST_F(SlowChoiceTest, WhoAsksForHisDocumentsDoesNotWaitForTheFolderAnyMore) {
    Start();
    platform.files.SetFolder(KnownFolder::Documents, "C:\\none");
    auto& dialog = Show<frmFavFolder>(module);
    dialog.Chooser.Dir1.Path = Slow;
    Press(dialog.CmdOK);
    ExpectQuestion(
        "The following directory does not exist:\r\n\r\nC:\\none\r\n\r\nWould you like to create it now?",
        forms::Answer::No);
    Press(dialog.Chooser.CmdMyDocuments);
    Come();
    EXPECT_TRUE(dialog.Visible());
    EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), Slow);
    EXPECT_NE(module.config.FavoriteFolder, Slow);
}

TEST_F(SlowChoiceTest, AQuickFolderIsTakenWhenItHasCome) {
    Start();
    auto& folders = Show<frmQuickFolders>(module);
    auto& dialog = Show<frmBrowseQuick>(module, folders);
    dialog.Chooser.Dir1.Path = Slow;
    Press(dialog.CmdOK);
    EXPECT_NE(app.Loaded<frmBrowseQuick>(), nullptr);
    Come();
    EXPECT_EQ(app.Loaded<frmBrowseQuick>(), nullptr);
    EXPECT_EQ(folders.Fields().paths[0], "C:\\slow\\");
}

}  // namespace
}  // namespace tavrix::test

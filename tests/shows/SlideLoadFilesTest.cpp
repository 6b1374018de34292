#include "shows/EditorTest.h"

namespace tavrix::test {
namespace {

using forms::Answer;

class SlideLoadFilesTest : public EditorTest {
  protected:
    static constexpr const char* RenameTitle = "Tavrix - [Rename Image]";

    void AnswerName(const std::string& name, std::optional<std::string> reply) {
        toolkit.ExpectInput({.prompt = "C:\\Pictures\\" + name + "\r\n\r\nEnter a new name for the file:",
                             .title = RenameTitle,
                             .text = name,
                             .reply = std::move(reply)});
    }
    void Rename(int row) {
        SelectSources({row});
        Run(Editor().Menu1.mnuRenameFile);
    }
    void ExpectBin(char letter, Answer reply) {
        ExpectQuestion(
            "Are you sure you want to send the following file to the Recycle Bin?\r\n\r\n" + Picture(letter),
            reply);
    }
    std::string Sources() {
        std::string letters;
        for (int row = 0; row < Editor().File1.ListCount(); ++row)
            letters.push_back(Editor().File1.List(row).front());
        return letters;
    }
    std::string LastCommand() {
        return platform.shell.commands.empty() ? "" : platform.shell.commands.back();
    }
};

TEST_F(SlideLoadFilesTest, OneFileIsDeletedAfterTheBinsQuestion) {
    module.config.Recent[0] = Picture('b');
    SelectSources({1});
    ExpectBin('b', Answer::No);
    Run(Editor().Menu1.mnuDeleteFile);
    EXPECT_EQ(Sources(), "abcde");
    EXPECT_EQ(Selected(Editor().File1), Rows{1});
    ExpectBin('b', Answer::Yes);
    Run(Editor().Menu1.mnuDeleteFile);
    EXPECT_EQ(Sources(), "acde");
    EXPECT_EQ(platform.shell.trash.size(), 1U);
    EXPECT_EQ(module.config.Recent[0], "");
}

TEST_F(SlideLoadFilesTest, SeveralFilesAreAskedForOnce) {
    const std::string question =
        "You are about to delete 3 files from the directory:\r\n\r\nC:\\Pictures\\\r\n\r\nAre you sure?";
    SelectSources({0, 2, 4});
    ExpectQuestion(question, Answer::No);
    Run(Editor().Menu1.mnuDeleteFile);
    EXPECT_EQ(Sources(), "abcde");
    ExpectQuestion(question, Answer::Yes);
    Run(Editor().Menu1.mnuDeleteFile);
    EXPECT_EQ(Sources(), "bd");
    EXPECT_EQ(platform.shell.trash.size(), 3U);
    EXPECT_FALSE(module.Busy());
}

TEST_F(SlideLoadFilesTest, AFileThatCannotBeDeletedEndsTheWork) {
    platform.shell.trashRefusal = ErrorNumber::PathFileAccessError;
    SelectSources({0, 2});
    ExpectQuestion(
        "You are about to delete 2 files from the directory:\r\n\r\nC:\\Pictures\\\r\n\r\nAre you sure?",
        Answer::Yes);
    Expect({.text = "Unable to delete all of the selected files.\r\n\r\nPath/File access error...",
            .icon = forms::BoxIcon::Stop});
    Run(Editor().Menu1.mnuDeleteFile);
    EXPECT_EQ(Sources(), "abcde");
    EXPECT_FALSE(module.Busy());
}

TEST_F(SlideLoadFilesTest, WhatIsSelectedOpenOrASlideIsNotDeleted) {
    ExpectTold(
        "Unable to delete file(s) by pressing the delete key, nothing is selected in the file list...");
    Run(Editor().Menu1.mnuDeleteFile);
    module.CurrentImage = "c:\\pictures\\B.BMP";
    SelectSources({0, 1});
    ExpectTold("Unable to delete this file, image is currently open...");
    Run(Editor().Menu1.mnuDeleteFile);
    module.CurrentImage = "C:\\Pictures\\link.bmp";
    platform.disks.PutLink(Picture('b'), "C:\\Pictures\\link.bmp");
    ExpectTold("Unable to delete this file, image is currently open...");
    Run(Editor().Menu1.mnuDeleteFile);
    const std::string inShow =
        "Unable to delete this file, image is in the currently open slide show.\r\n\r\nRemove this file from "
        "the View "
        "List and then try again...";
    PutSlides("c", "C:\\Pictures\\s.tvs");
    SelectSources({0, 2});
    ExpectTold(inShow);
    Run(Editor().Menu1.mnuDeleteFile);
    module.show.SlideFiles.Set(0, "sub\\..\\C.bmp");
    Editor().PathsChanged();
    ExpectTold(inShow);
    Run(Editor().Menu1.mnuDeleteFile);
    EXPECT_EQ(Sources(), "abcde");
    EXPECT_TRUE(platform.shell.trash.empty());
}

TEST_F(SlideLoadFilesTest, ARenamedFileKeepsItsEndingAndItsSlides) {
    PutSlides("abca", "C:\\Pictures\\s.tvs");
    module.show.SlideFiles.Set(3, "A.BMP");
    Editor().PathsChanged();
    AnswerName("a.bmp", "new");
    ExpectTold(
        "The old filename was in the current slide show, the entry for this slide was updated as a result...",
        RenameTitle);
    Rename(0);
    EXPECT_EQ(Editor().ListView.Texts(),
              (Texts{"C:\\Pictures\\new.bmp", Picture('b'), Picture('c'), "new.bmp"}));
    EXPECT_EQ(module.show.SlideFiles[0], "C:\\Pictures\\new.bmp");
    EXPECT_EQ(module.show.SlideFiles[3], "new.bmp");
    EXPECT_EQ(module.show.SlideDescriptions[0], "about a");
    EXPECT_TRUE(module.show.ShowChanged);
    EXPECT_FALSE(platform.files.FileExists(Picture('a')));
    EXPECT_TRUE(platform.files.FileExists("C:\\Pictures\\new.bmp"));
    EXPECT_EQ(Editor().File1.FileName(), "new.bmp");
    EXPECT_EQ(Editor().File1.SelectedCount(), 1);
    EXPECT_EQ(module.CurrentImage, "");
}

TEST_F(SlideLoadFilesTest, RecentAndFavoriteFilesFollowARename) {
    module.config.Recent[0] = Picture('b');
    module.config.FavoriteFiles[0] = Picture('c');
    module.config.FavoriteFiles[1] = "c:\\pictures\\B.bmp";
    AnswerName("b.bmp", "x");
    Rename(1);
    EXPECT_EQ(module.config.Recent[0], "");
    EXPECT_EQ(module.config.FavoriteFiles[0], Picture('c'));
    EXPECT_EQ(module.config.FavoriteFiles[1], "C:\\Pictures\\x.bmp");
    EXPECT_EQ(View().menu.mnuFavoritesList[1].Caption.Get(), "C:\\Pictures\\x.bmp");
    EXPECT_EQ(module.CurrentImage, "");
    EXPECT_EQ(View().Caption.Get(), "Tavrix");
}

TEST_F(SlideLoadFilesTest, AFileThatIsNoSlideIsRenamedWithoutAWord) {
    PutSlides("bc");
    module.config.Recent[0] = Picture('a');
    AnswerName("a.bmp", "x.jpg");
    Rename(0);
    EXPECT_TRUE(platform.files.FileExists("C:\\Pictures\\x.jpg.bmp"));
    EXPECT_FALSE(module.show.ShowChanged);
    EXPECT_EQ(module.config.Recent[0], "");
}

TEST_F(SlideLoadFilesTest, NamesThatAreNoneAreRefused) {
    ExpectTold("A file has not been selected, nothing to rename...", RenameTitle);
    Run(Editor().Menu1.mnuRenameFile);
    AnswerName("a.bmp", std::nullopt);
    Rename(0);
    AnswerName("a.bmp", "");
    Rename(0);
    for (const char* path : {"x\\y.bmp", "C:y.bmp", "x/y.bmp"}) {
        AnswerName("a.bmp", path);
        ExpectTold("You may not include a path in the filename, unable to rename file...", RenameTitle);
        Rename(0);
    }
    AnswerName("a.bmp", "A.bmp");
    ExpectTold("The new filename is the same as the current one, unable to rename file...", RenameTitle);
    Rename(0);
    AnswerName("a.bmp", "b.bmp");
    ExpectTold("The filename that was specified already exists, unable to rename file...", RenameTitle);
    Rename(0);
    module.CurrentImage = "C:\\pictures\\a.bmp";
    ExpectTold("Unable to rename selected file, image is currently open...", RenameTitle);
    Rename(0);
    Editor().Lists.GoTo("C:\\Temp");
    ExpectTold("There are no files in the selected directory to rename...", RenameTitle);
    Run(Editor().Menu1.mnuRenameFile);
    EXPECT_TRUE(platform.files.FileExists(Picture('a')));
}

TEST_F(SlideLoadFilesTest, AFailedRenameLeavesFileAndRows) {
    PutSlides("a");
    platform.disks.SetWriteProtected('C', true);
    AnswerName("a.bmp", "x");
    Expect({.text = "Unable to rename selected file to: x.bmp\r\n\r\nPermission denied...",
            .icon = forms::BoxIcon::Stop,
            .title = RenameTitle});
    Rename(0);
    EXPECT_EQ(Letters(), "a");
    EXPECT_TRUE(platform.files.FileExists(Picture('a')));
    EXPECT_FALSE(module.show.ShowChanged);
}

TEST_F(SlideLoadFilesTest, FoldersAreExplored) {
    Run(Editor().Menu1.mnuExploreFolder);
    EXPECT_EQ(LastCommand(), "explorer.exe C:\\Pictures");
    Editor().Lists.GoTo("C:\\");
    Run(Editor().Menu1.mnuExploreFolder);
    EXPECT_EQ(LastCommand(), "explorer.exe C:\\");
    PutSlides("a", "C:\\Shows\\My shows\\s.tvs");
    Run(Editor().Menu2.mnuExploreShowFolder);
    EXPECT_EQ(LastCommand(), "explorer.exe C:\\Shows\\My shows");
    Editor().ListView.ListIndex = 0;
    Run(Editor().Menu2.mnuExploreSlideFolder);
    EXPECT_EQ(LastCommand(), "explorer.exe C:\\Pictures");
    module.show.SlideFiles.Set(0, "sub\\a.bmp");
    Editor().PathsChanged();
    Run(Editor().Menu2.mnuExploreSlideFolder);
    EXPECT_EQ(LastCommand(), "explorer.exe C:\\Shows\\My shows\\sub");
}

TEST_F(SlideLoadFilesTest, WhereNoFolderCanBeExploredItIsTold) {
    ExpectTold("The current slide show has not been saved, no folder to browse...");
    Run(Editor().Menu2.mnuExploreShowFolder);
    ExpectTold("There are no slides in the View List, unable to browse image folder...");
    Run(Editor().Menu2.mnuExploreSlideFolder);
    EXPECT_EQ(LastCommand(), "");
    PutSlides("", "C:\\Shows\\s.tvs");
    ExpectTold(
        "There are no slides in the View List, will attempt to browse the slide show's folder instead...");
    Run(Editor().Menu2.mnuExploreSlideFolder);
    EXPECT_EQ(LastCommand(), "explorer.exe C:\\Shows");
    PutSlides("a", "C:\\Shows\\s.tvs");
    ExpectTold("Select an image in the slide show to browse its folder and then try again...");
    Run(Editor().Menu2.mnuExploreSlideFolder);
    platform.shell.canRun = false;
    Expect({.text = "Error, unable to start Windows Explorer to show selected directory.",
            .icon = forms::BoxIcon::Stop});
    Run(Editor().Menu1.mnuExploreFolder);
}

}  // namespace
}  // namespace tavrix::test

#include "shows/EditorTest.h"
#include "shows/editor/frmDescription.h"
#include "shows/editor/frmSlideCopyImages.h"
#include "shows/editor/frmSlideDup.h"
#include "shows/library/LoadSlideFile.h"
#include "shows/library/SaveSlideFile.h"
#include "shows/options/SlideOptionsFrm.h"

namespace tavrix::test {
namespace {

using forms::Answer;

/// What the editor opens, and what comes back from there.
class SlideLoadDialogsTest : public EditorTest {
  protected:
    static constexpr const char* DuplicateTitle = "Tavrix - [Check For Duplicate Slides]";

    void PutShow(const std::string& path, const std::string& slide) {
        platform.disks.PutFile(
            path,
            "\"Tavrix Slide Show\"\r\n\"Version 1.5\"\r\n0\r\n\"\"\r\n0\r\n0\r\n7\r\n0\r\n0"
            "\r\n0\r\n0\r\n0\r\n\"" +
                slide + "\"\r\n\"about " + slide.substr(0, 1) + "\"\r\n");
    }
    /// The user loads the first show of the folder.
    void OnLoad() {
        toolkit.OnModal("LoadSlideFile", [this] {
            ++dialogs;
            auto& dialog = *app.Loaded<LoadSlideFile>();
            dialog.Chooser.Lists.GoTo("C:\\Shows");
            dialog.Chooser.File1.ListIndex = 0;
            Press(dialog.CmdOK);
        });
    }
    int dialogs = 0;
};

TEST_F(SlideLoadDialogsTest, AShowIsLoadedOverChangesOnlyOnYes) {
    const std::string question = "The current slide show has changed.\r\n\r\nLoad a new slide show anyway?";
    PutShow("C:\\Shows\\s.tvs", "d.bmp");
    OnLoad();
    PutSlides("abc");
    module.show.ShowChanged = true;
    ExpectQuestion(question, Answer::No, "Tavrix", 2);
    Press(Editor().CmdLoad);
    EXPECT_EQ(dialogs, 0);
    EXPECT_EQ(Letters(), "abc");
    ExpectQuestion(question, Answer::Yes, "Tavrix", 2);
    Press(Editor().CmdLoad);
    EXPECT_EQ(dialogs, 1);
    EXPECT_EQ(Letters(), "d");
    EXPECT_EQ(Described(), "+");
    EXPECT_EQ(Editor().ShowPath(), "C:\\Shows\\s.tvs");
    EXPECT_EQ(CountText(), "One slide (image) total...");
    EXPECT_FALSE(module.show.ShowChanged);
    EXPECT_FALSE(module.Busy());
}

TEST_F(SlideLoadDialogsTest, LoadSlideShowOpensTheEditorAndAsksForAShow) {
    Press(Editor().CmdCancel);
    ASSERT_FALSE(IsOpen());
    PutShow("C:\\Shows\\s.tvs", "d.bmp");
    OnLoad();
    Choose(View().menu.mnuOpenSlideShow);
    ASSERT_TRUE(IsOpen());
    EXPECT_EQ(dialogs, 1);
    EXPECT_EQ(Letters(), "d");
    EXPECT_FALSE(View().Visible());
}

TEST_F(SlideLoadDialogsTest, ANewShowIsSavedUnderAName) {
    platform.disks.PutFolder("C:\\Shows");
    ExpectTold(
        "There are no slides in the View List to save.\r\n\r\nAdd files to the list and then try again...");
    Press(Editor().CmdSaveAs);
    toolkit.OnModal("SaveSlideFile", [this] {
        ++dialogs;
        auto& dialog = *app.Loaded<SaveSlideFile>();
        EXPECT_EQ(dialog.txtFilename.Text.Get(), "Untitled.tvs");
        dialog.Chooser.Lists.GoTo("C:\\Shows");
        dialog.txtFilename.Text = "new";
        Press(dialog.CmdOK);
    });
    PutSlides("abc");
    module.show.ShowChanged = true;
    module.show.SaveFromArrays = true;
    ExpectQuestion("About to save the slide show as:\r\n\r\nC:\\Shows\\new.tvs\r\n\r\nIs this filename OK?",
                   Answer::Yes);
    Press(Editor().CmdSave);
    EXPECT_EQ(dialogs, 1);
    EXPECT_EQ(Editor().ShowPath(), "C:\\Shows\\new.tvs");
    EXPECT_FALSE(module.show.ShowChanged);
    EXPECT_TRUE(platform.files.FileExists("C:\\Shows\\new.tvs"));
    Press(Editor().CmdCancel);
    EXPECT_FALSE(IsOpen());
}

TEST_F(SlideLoadDialogsTest, AFailedSaveUnderANameIsRemembered) {
    platform.disks.PutFolder("C:\\Shows");
    toolkit.OnModal("SaveSlideFile", [this] {
        auto& dialog = *app.Loaded<SaveSlideFile>();
        dialog.Chooser.Lists.GoTo("C:\\Shows");
        dialog.txtFilename.Text = "new";
        Press(dialog.CmdOK);
    });
    PutSlides("abc");
    module.show.ShowChanged = true;
    platform.faults.FailAlways(headless::Service::Files, "Create", ErrorNumber::DiskFull);
    ExpectQuestion("About to save the slide show as:\r\n\r\nC:\\Shows\\new.tvs\r\n\r\nIs this filename OK?",
                   Answer::Yes);
    Expect({.text = "Unable to save slide show.\r\n\r\nDisk full...", .icon = forms::BoxIcon::Stop});
    Press(Editor().CmdSaveAs);
    EXPECT_FALSE(module.show.ShowChanged);
    AnswerExit("CmdCancel");
    Press(Editor().CmdCancel);
    EXPECT_EQ(exitQuestions, 1);
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(Letters(), "abc");
}

TEST_F(SlideLoadDialogsTest, DescriptionsAreEditedFromTheCurrentSlide) {
    ExpectTold("There are no slides in the View List, unable to edit file descriptions...");
    Run(Editor().Menu2.mnuEditDescription);
    PutSlides("abc");
    Editor().ListView.ListIndex = 1;
    toolkit.OnModal("frmDescription", [this] {
        ++dialogs;
        auto& dialog = *app.Loaded<frmDescription>();
        EXPECT_EQ(dialog.Text1.Text.Get(), dialogs == 1 ? "about b" : "about a");
        EXPECT_EQ(module.show.SlideCount, 3);
        Press(dialog.CmdCancel);
    });
    Run(Editor().Menu2.mnuEditDescription);
    EXPECT_EQ(dialogs, 1);
    // So the navigator asks for it.
    Editor().EditDescriptions();
    EXPECT_EQ(dialogs, 2);
    EXPECT_EQ(Editor().ListView.ListIndex.Get(), 0);
    EXPECT_FALSE(module.Busy());
}

TEST_F(SlideLoadDialogsTest, DuplicatesAreListedAndSelected) {
    ExpectTold("There is nothing in the View List, unable to check for duplicate slides...", DuplicateTitle);
    Run(Editor().Menu2.mnuCheckDuplicate);
    PutSlides("a");
    ExpectTold("There is only one item in the View List, no need to check for duplicate slides...",
               DuplicateTitle);
    Run(Editor().Menu2.mnuCheckDuplicate);
    PutSlides("abc");
    ExpectTold("No duplicate files were found in the current slide show...", DuplicateTitle);
    Run(Editor().Menu2.mnuCheckDuplicate);
    PutSlides("abcab", "C:\\Pictures\\s.tvs");
    module.show.SlideFiles.Set(3, "A.bmp");
    module.show.SlideDescriptions.Set(3, "");
    Editor().PathsChanged();
    SelectSlides({2});
    OnStage([this](FullViewFrm&) { EXPECT_EQ(module.StageImage, "C:\\PICTURES\\B.BMP"); });
    toolkit.OnModal("frmSlideDup", [this] {
        ++dialogs;
        auto& dialog = *app.Loaded<frmSlideDup>();
        EXPECT_EQ(dialog.List1.Texts(), (Texts{"C:\\PICTURES\\A.BMP", "C:\\PICTURES\\B.BMP"}));
        dialog.List1.ListIndex = 1;
        Press(dialog.CmdPreview);
        dialog.CheckSelectDup.Value = true;
        Press(dialog.CmdOK);
    });
    Run(Editor().Menu2.mnuCheckDuplicate);
    EXPECT_EQ(dialogs, 1);
    EXPECT_EQ(stages, 1);
    EXPECT_EQ(Selected(Editor().ListView), (Rows{0, 1, 3, 4}));
    EXPECT_FALSE(module.show.ShowChanged);
}

TEST_F(SlideLoadDialogsTest, WhatCannotBeCopiedOrMovedIsTold) {
    ExpectTold("No source files are selected, nothing to copy...");
    Run(Editor().Menu1.mnuCopyFiles);
    ExpectTold("No source files are selected, nothing to move...");
    Run(Editor().Menu1.mnuMoveFiles);
    Editor().Lists.GoTo("C:\\Temp");
    ExpectTold("There are no files in the source directory, nothing to copy...");
    Run(Editor().Menu1.mnuCopyFiles);
    ExpectTold("There are no files in the source directory, nothing to move...");
    Run(Editor().Menu1.mnuMoveFiles);
}

TEST_F(SlideLoadDialogsTest, SlidesFollowFilesThatAreMoved) {
    platform.disks.PutFolder("C:\\Else");
    PutSlides("ab", "C:\\Pictures\\s.tvs");
    module.show.SlideFiles.Set(1, "b.bmp");
    Editor().PathsChanged();
    SelectSources({1, 2});
    toolkit.OnModal("frmSlideCopyImages", [this] {
        ++dialogs;
        auto& dialog = *app.Loaded<frmSlideCopyImages>();
        dialog.Lists.GoTo("C:\\Else");
        Press(dialog.CmdCopy);
    });
    ExpectQuestion("OK to move 2 files to the following directory?\r\n\r\nC:\\Else\\", Answer::Yes);
    ExpectTold(
        "Some of the selected file(s) were in the current slide show, the entries for this slide were "
        "updated as a result...");
    Run(Editor().Menu1.mnuMoveFiles);
    EXPECT_EQ(dialogs, 1);
    EXPECT_EQ(Editor().ListView.Texts(), (Texts{Picture('a'), "C:\\Else\\b.bmp"}));
    EXPECT_EQ(module.show.SlideFiles[1], "C:\\Else\\b.bmp");
    EXPECT_EQ(module.show.SlideDescriptions[1], "about b");
    EXPECT_TRUE(module.show.ShowChanged);
    EXPECT_EQ(Editor().File1.ListCount(), 3);
    EXPECT_TRUE(platform.files.FileExists("C:\\Else\\c.bmp"));
}

TEST_F(SlideLoadDialogsTest, TheOptionsKnowTheShowAndItsCount) {
    PutSlides("abc", "C:\\Pictures\\s.tvs");
    module.show.SlideCount = 0;
    toolkit.OnModal("SlideOptionsFrm", [this] {
        ++dialogs;
        EXPECT_EQ(module.show.SlideCount, 3);
        auto& dialog = *app.Loaded<SlideOptionsFrm>();
        dialog.CheckRandom.Value = true;
        Press(dialog.CmdOK);
    });
    Press(Editor().CmdOptions);
    EXPECT_EQ(dialogs, 1);
    EXPECT_TRUE(module.config.RandomSlides);
    EXPECT_TRUE(module.show.ShowChanged);
}

TEST_F(SlideLoadDialogsTest, ShowsAreRenamedAndDeletedByTheirDialogs) {
    PutSlides("ab", "C:\\Shows\\s.tvs");
    for (const char* name : {"frmRenameShow", "DeleteSlideFrm"}) {
        toolkit.OnModal(name, [this, name] {
            ++dialogs;
            for (int i = 0; i < app.FormCount(); ++i) {
                if (app.FormAt(i).Name() == name) app.FormAt(i).Deliver(forms::CloseEvent{});
            }
        });
    }
    Run(Editor().Menu2.mnuRenameShow);
    EXPECT_EQ(dialogs, 1);
    Run(Editor().Menu2.mnuDeleteShow);
    EXPECT_EQ(dialogs, 2);
    EXPECT_EQ(Letters(), "ab");
    EXPECT_EQ(Editor().ShowPath(), "C:\\Shows\\s.tvs");
}

}  // namespace
}  // namespace tavrix::test

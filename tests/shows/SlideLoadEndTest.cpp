#include "shows/EditorTest.h"
#include "viewer/ExitFrm.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using headless::Service;

class SlideLoadEndTest : public EditorTest {
  protected:
    static constexpr const char* ShowPath = "C:\\Shows\\s.tvs";

    SlideLoadEndTest() {
        platform.disks.PutFolder("C:\\Shows");
        platform.disks.AddDrive('D', DriveType::Fixed);
        platform.disks.InsertDisk('D');
        platform.disks.PutFolder("D:\\x");
    }

    void ExpectSave(Answer reply = Answer::Yes) {
        ExpectQuestion("About to update the slide show file:\r\n\r\nC:\\Shows\\s.tvs\r\n\r\nAre you sure?",
                       reply);
    }
    void Change(const std::string& letters = "abc", const std::string& path = ShowPath) {
        PutSlides(letters, path);
        module.show.ShowChanged = true;
    }
    /// A save that fails at its file.
    void FailSave() {
        platform.faults.FailAlways(Service::Files, "Create", ErrorNumber::DiskFull);
        ExpectSave();
        Expect({.text = "Unable to save slide show.\r\n\r\nDisk full...", .icon = forms::BoxIcon::Stop});
    }
    std::string Saved() { return platform.disks.Content(ShowPath).value_or(""); }
    /// The window manager asks the editor to close; whether the process ended.
    bool Close() {
        return Ends([this] { Editor().Deliver(forms::CloseEvent{}); });
    }
};

TEST_F(SlideLoadEndTest, WhatCannotBeSavedIsTold) {
    const std::string empty =
        "There are no slides in the View List to save.\r\n\r\nAdd files to the list and then try again...";
    module.show.ShowChanged = true;
    ExpectTold(empty);
    Press(Editor().CmdSave);
    PutSlides("ab", ShowPath);
    ExpectTold("The current slide show has not changed, nothing to save...");
    Press(Editor().CmdSave);
}

TEST_F(SlideLoadEndTest, AShowIsSavedOnYes) {
    Change();
    module.show.SaveFromArrays = true;
    ExpectSave(Answer::No);
    Press(Editor().CmdSave);
    EXPECT_EQ(Saved(), "");
    EXPECT_TRUE(module.show.ShowChanged);
    ExpectSave();
    Press(Editor().CmdSave);
    EXPECT_NE(Saved().find("\"C:\\Pictures\\c.bmp\"\r\n\"about c\"\r\n"), std::string::npos);
    EXPECT_FALSE(module.show.ShowChanged);
    EXPECT_EQ(module.show.SlideCount, 3);
    EXPECT_FALSE(module.show.SaveFromArrays);
    EXPECT_FALSE(module.Busy());
    ExpectTold("The current slide show has not changed, nothing to save...");
    Press(Editor().CmdSave);
}

TEST_F(SlideLoadEndTest, SlidesBelowTheFolderBecomeRelativeRows) {
    PutPicture("C:\\Shows\\sub\\a.bmp", 10, 10);
    module.show.SlideFiles.Set(0, "C:\\Shows\\sub\\a.bmp");
    Editor().ShowLoaded(ShowPath);
    Editor().ListView.ListIndex = 0;
    module.show.ShowChanged = true;
    ExpectSave();
    Press(Editor().CmdSave);
    EXPECT_EQ(Editor().ListView.List(0), "sub\\a.bmp");
    EXPECT_EQ(Editor().SlidePath(0), "C:\\Shows\\sub\\a.bmp");
    EXPECT_EQ(Editor().ListView.ListIndex.Get(), 0);
}

TEST_F(SlideLoadEndTest, AnUnchangedShowClosesWithoutAQuestion) {
    PutSlides("ab", ShowPath);
    Editor().Lists.GoTo("D:\\x");
    Press(Editor().CmdCancel);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(exitQuestions, 0);
    EXPECT_TRUE(View().Visible());
    EXPECT_EQ(platform.files.CurrentFolder(), "D:\\x");
    EXPECT_TRUE(module.show.Empty());
    EXPECT_EQ(module.show.SlideDescriptions[0], "");
    EXPECT_FALSE(module.show.ShowChanged);
    Choose(View().menu.mnuSlideShow);
    EXPECT_TRUE(IsOpen());
}

TEST_F(SlideLoadEndTest, CancelKeepsTheEditor) {
    Change();
    AnswerExit("CmdCancel");
    Press(Editor().CmdCancel);
    EXPECT_EQ(exitQuestions, 1);
    ASSERT_TRUE(IsOpen());
    EXPECT_EQ(Letters(), "abc");
    EXPECT_TRUE(module.show.ShowChanged);
    Close();
    EXPECT_EQ(exitQuestions, 2);
    EXPECT_TRUE(IsOpen());
    EXPECT_FALSE(View().Visible());
}

TEST_F(SlideLoadEndTest, DiscardClosesTheEditor) {
    Change();
    AnswerExit("CmdDiscard");
    Close();
    EXPECT_FALSE(IsOpen());
    EXPECT_FALSE(module.show.ShowChanged);
    EXPECT_EQ(Saved(), "");
    EXPECT_TRUE(View().Visible());
}

TEST_F(SlideLoadEndTest, SaveClosesOnlyWhatWasSaved) {
    Change();
    AnswerExit("CmdSave");
    ExpectSave(Answer::No);
    Press(Editor().CmdCancel);
    ASSERT_TRUE(IsOpen());
    EXPECT_EQ(Letters(), "abc");
    ExpectSave();
    Press(Editor().CmdCancel);
    EXPECT_FALSE(IsOpen());
    EXPECT_NE(Saved(), "");
}

TEST_F(SlideLoadEndTest, AFailedSaveLeavesTheEditorOpenAndIsRemembered) {
    Change();
    AnswerExit("CmdSave");
    FailSave();
    Press(Editor().CmdCancel);
    ASSERT_TRUE(IsOpen());
    EXPECT_EQ(Letters(), "abc");
    EXPECT_FALSE(module.show.ShowChanged) << "it counts as saved";
    // It asks again, and saves again.
    FailSave();
    Press(Editor().CmdCancel);
    EXPECT_EQ(exitQuestions, 2);
    ASSERT_TRUE(IsOpen());
    platform.faults.Clear();
    ExpectSave();
    Press(Editor().CmdSave);
    EXPECT_NE(Saved(), "");
    Press(Editor().CmdCancel);
    EXPECT_EQ(exitQuestions, 2);
    EXPECT_FALSE(IsOpen());
}

TEST_F(SlideLoadEndTest, ALoadForgetsAFailedSave) {
    Change();
    FailSave();
    Press(Editor().CmdSave);
    platform.faults.Clear();
    PutSlides("de", "C:\\Shows\\t.tvs");
    ExpectTold("The current slide show has not changed, nothing to save...");
    Press(Editor().CmdSave);
    Press(Editor().CmdCancel);
    EXPECT_EQ(exitQuestions, 0);
    EXPECT_FALSE(IsOpen());
}

TEST_F(SlideLoadEndTest, DiscardForgetsAFailedSaveToo) {
    Change();
    FailSave();
    Press(Editor().CmdSave);
    AnswerExit("CmdDiscard");
    Press(Editor().CmdCancel);
    EXPECT_EQ(exitQuestions, 1);
    EXPECT_FALSE(IsOpen());
}

TEST_F(SlideLoadEndTest, ACanceledSaveKeepsRowsAndIsRemembered) {
    PutPicture("C:\\Shows\\a.bmp", 10, 10);
    module.show.SlideFiles.Set(0, "C:\\Shows\\a.bmp");
    module.show.SlideFiles.Set(1, "C:\\Shows\\a.bmp");
    Editor().ShowLoaded(ShowPath);
    module.show.ShowChanged = true;
    ExpectSave();
    Expect(
        {.text = "Save was canceled before it could complete, slide show file may be corrupt as a result...",
         .icon = forms::BoxIcon::Exclamation});
    toolkit.AtYield(3, [this] { module.CancelCopy = true; });
    Press(Editor().CmdSave);
    EXPECT_EQ(Editor().ListView.Texts(), (Texts{"C:\\Shows\\a.bmp", "C:\\Shows\\a.bmp"}));
    module.show.ShowChanged = false;
    AnswerExit("CmdCancel");
    Press(Editor().CmdCancel);
    EXPECT_EQ(exitQuestions, 1);
    EXPECT_TRUE(IsOpen());
}

TEST_F(SlideLoadEndTest, ExitEndsTheProgram) {
    Change();
    AnswerExit("CmdExit");
    EXPECT_TRUE(Press(Editor().CmdCancel));
    EXPECT_EQ(Saved(), "");
}

TEST_F(SlideLoadEndTest, AnImageThatIsKeptKeepsTheEditorWithItsChanges) {
    Change();
    module.CurrentImage = "C:\\Temp\\Untitled.BMP";
    ExpectQuestion("The current file has not been saved.\r\n\r\nDiscard changes and exit?", Answer::No);
    AnswerExit("CmdExit");
    EXPECT_FALSE(Press(Editor().CmdCancel));
    ASSERT_TRUE(IsOpen());
    EXPECT_EQ(Letters(), "abc");
    EXPECT_TRUE(module.show.ShowChanged);
    EXPECT_TRUE(Editor().Visible());
    module.CurrentImage.clear();
    EXPECT_TRUE(Press(Editor().CmdCancel));
}

TEST_F(SlideLoadEndTest, ASecondCloseIsRefusedWhileTheQuestionStands) {
    Change();
    toolkit.OnModal("ExitFrm", [this] {
        ++exitQuestions;
        Editor().Deliver(forms::CloseEvent{});
        Press(Editor().CmdCancel);
        EXPECT_TRUE(IsOpen());
        app.Unload(*app.Loaded<ExitFrm>());
    });
    Press(Editor().CmdCancel);
    EXPECT_EQ(exitQuestions, 1);
    EXPECT_TRUE(IsOpen());
}

TEST_F(SlideLoadEndTest, ItDoesNotCloseWhileAnotherOperationRuns) {
    PutSlides("ab", ShowPath);
    {
        const forms::BusyGuard busy(module.Screen());
        Close();
        Press(Editor().CmdCancel);
    }
    EXPECT_TRUE(IsOpen());
    Close();
    EXPECT_FALSE(IsOpen());
}

TEST_F(SlideLoadEndTest, AnEndFromOutsideKeepsTheChangesBesideTheBackups) {
    Change("ab", ShowPath);
    module.show.SlideFiles.Set(1, "b.bmp");
    Editor().PathsChanged();
    module.config.SoundFile = "m.wav";
    platform.disks.PutFile("C:\\Tavrix\\Unsaved s.tvs", "from another time");
    const auto before = platform.disks.AllFiles();
    KeepUnsavedShow(module);
    KeepUnsavedShow(module);
    const std::string kept = platform.disks.Content("C:\\Tavrix\\Unsaved s (2).tvs").value_or("");
    EXPECT_NE(kept.find("\"C:\\Pictures\\a.bmp\"\r\n\"about a\"\r\n\"C:\\Shows\\b.bmp\"\r\n\"about b\"\r\n"),
              std::string::npos);
    EXPECT_NE(kept.find("\"C:\\Shows\\m.wav\""), std::string::npos);
    EXPECT_EQ(platform.disks.AllFiles().size(), before.size() + 1);
    EXPECT_EQ(platform.disks.Content("C:\\Tavrix\\Unsaved s.tvs"), "from another time");
    EXPECT_EQ(Editor().ListView.List(1), "b.bmp");
    EXPECT_EQ(Saved(), "");
    // The process lives on, and the user closes the editor.
    AnswerExit("CmdDiscard");
    Press(Editor().CmdCancel);
    EXPECT_EQ(platform.disks.AllFiles(), before);
}

TEST_F(SlideLoadEndTest, AnEndFromOutsideKeepsNothingThatIsSaved) {
    PutSlides("ab", ShowPath);
    const auto before = platform.disks.AllFiles();
    KeepUnsavedShow(module);
    EXPECT_EQ(platform.disks.AllFiles(), before);
    FailSave();
    module.show.ShowChanged = true;
    Press(Editor().CmdSave);
    platform.faults.Clear();
    KeepUnsavedShow(module);
    EXPECT_TRUE(platform.files.FileExists("C:\\Tavrix\\Unsaved s.tvs"));
}

}  // namespace
}  // namespace tavrix::test

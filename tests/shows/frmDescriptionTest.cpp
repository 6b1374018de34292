#include "shows/editor/frmDescription.h"

#include "LibraryTest.h"
#include "shows/editor/DescriptionText.h"
#include "shows/files/ReadShowFile.h"
#include "shows/stage/FullViewFrm.h"

namespace tavrix::test {
namespace {

using forms::Answer;

class frmDescriptionTest : public LibraryTest {
  protected:
    frmDescriptionTest() {
        UseSlides({"a.bmp", "sub\\b.bmp", "D:\\c.bmp"}, {"A", "", "C"});
        platform.disks.PutFile("C:\\Shows\\a.bmp", std::string(12345, 'x'), {2001, 12, 31, 13, 5, 9});
        platform.disks.PutFile("D:\\c.bmp", "");
        platform.pictures.SetPicture("C:\\Shows\\sub\\b.bmp", PlainPicture(8, 8));
    }

    void UseSlides(const Texts& paths, const Texts& descriptions) {
        module.show.EraseSlides();
        module.show.InsertSlides(0, paths);
        for (std::size_t i = 0; i < descriptions.size(); ++i)
            module.show.SlideDescriptions.Set(static_cast<int>(i), descriptions[i]);
        module.show.SlideCount = static_cast<std::int16_t>(paths.size());
        module.show.ShowChanged = false;
    }
    frmDescription& Open(int row = 0, const std::string& showFile = ShowPath) {
        auto& dialog = app.Load<frmDescription>(module, showFile, row);
        dialog.Show();
        return dialog;
    }
    static void Paste(frmDescription& dialog, const std::string& whole, int caret) {
        dialog.Text1.Deliver(forms::TextEvent{whole, caret, 0});
    }
    static std::string Typed(frmDescription& dialog, const std::string& character) {
        bool discarded = false;
        dialog.Text1.Deliver(forms::CharacterEvent{character, &discarded});
        return discarded ? "" : character;
    }
    static void ExpectShown(const frmDescription& dialog, const std::string& number, const std::string& path,
                            const std::string& text) {
        EXPECT_EQ(dialog.FrameDesc.Caption.Get(), "Editing description for slide " + number + ":");
        EXPECT_EQ(dialog.lblFilename.Caption.Get(), path);
        EXPECT_EQ(dialog.Text1.Text.Get(), text);
        EXPECT_EQ(dialog.Text1.SelStart.Get(), static_cast<int>(text.size()));
        EXPECT_EQ(dialog.ActiveControl(), &dialog.Text1);
    }
};

TEST_F(frmDescriptionTest, BeginsWithTheCurrentRow) {
    module.config.ShowDescription = true;
    auto& dialog = Open(2);
    EXPECT_EQ(dialog.Caption.Get(), "Edit Slide Descriptions");
    ExpectShown(dialog, "3", "D:\\c.bmp", "C");
    EXPECT_TRUE(dialog.CheckDescriptions.Value);
    EXPECT_TRUE(dialog.CmdNext.Enabled);
    EXPECT_TRUE(dialog.CmdPrevious.Enabled);
    EXPECT_TRUE(dialog.CmdOK.Default);
    EXPECT_TRUE(dialog.CmdCancel.Cancel);
    EXPECT_EQ(dialog.Text1.MaxLength.Get(), 200);
    EXPECT_EQ(dialog.HelpContext, HelpContext::SlideDescriptions);
}

TEST_F(frmDescriptionTest, WithoutACurrentRowItIsTheFirst) {
    for (const int row : {-1, 3, 30'001}) {
        auto& dialog = Open(row);
        ExpectShown(dialog, "1", "C:\\Shows\\a.bmp", "A");
        app.Unload(dialog);
    }
}

TEST_F(frmDescriptionTest, NextAndPreviousGoRoundTheEnds) {
    auto& dialog = Open(1);
    ExpectShown(dialog, "2", "C:\\Shows\\sub\\b.bmp", "");
    Enter(dialog.Text1, "B");
    Press(dialog.CmdNext);
    ExpectShown(dialog, "3", "D:\\c.bmp", "C");
    Enter(dialog.Text1, "Cc");
    Press(dialog.CmdNext);
    ExpectShown(dialog, "1", "C:\\Shows\\a.bmp", "A");
    dialog.CmdNext.SetFocus();
    Press(dialog.CmdPrevious);
    ExpectShown(dialog, "3", "D:\\c.bmp", "Cc");
    Press(dialog.CmdPrevious);
    ExpectShown(dialog, "2", "C:\\Shows\\sub\\b.bmp", "B");
    Press(dialog.CmdOK);
    EXPECT_EQ(SlideDescriptions(), (Texts{"A", "B", "Cc"}));
}

TEST_F(frmDescriptionTest, OneSlideHasNoNeighbours) {
    UseSlides({"a.bmp"}, {"A"});
    auto& dialog = Open();
    EXPECT_FALSE(dialog.CmdNext.Enabled);
    EXPECT_FALSE(dialog.CmdPrevious.Enabled);
}

TEST_F(frmDescriptionTest, NumbersAreGroupedAndAShowWithoutAFolderHasPathsAsTheyAre) {
    UseSlides(Texts(1'500, "x.bmp"), {});
    auto& dialog = Open(1'233, "Untitled.tvs");
    ExpectShown(dialog, "1,234", "x.bmp", "");
}

TEST_F(frmDescriptionTest, OkKeepsWhatWasEntered) {
    auto& dialog = Open();
    Enter(dialog.Text1, "new");
    dialog.CheckDescriptions.Deliver(forms::CheckEvent{true});
    EXPECT_TRUE(module.config.ShowDescription);
    Press(dialog.CmdOK);
    EXPECT_TRUE(app.Loaded<frmDescription>() == nullptr);
    EXPECT_EQ(SlideDescriptions(), (Texts{"new", "", "C"}));
    EXPECT_TRUE(module.show.ShowChanged);
    EXPECT_TRUE(module.config.ShowDescription);
    EXPECT_EQ(Saved("ShowDescription"), "True");
}

TEST_F(frmDescriptionTest, EveryOtherEndRestoresAll) {
    for (const bool byFrame : {false, true}) {
        auto& dialog = Open();
        Enter(dialog.Text1, "1");
        Press(dialog.CmdNext);
        Enter(dialog.Text1, "2");
        Press(dialog.CmdNext);
        Press(dialog.CmdClear);
        dialog.CheckDescriptions.Deliver(forms::CheckEvent{true});
        Press(dialog.CmdNext);
        if (byFrame) {
            dialog.Deliver(forms::CloseEvent{});
        } else {
            Press(dialog.CmdCancel);
        }
        EXPECT_EQ(app.Loaded<frmDescription>(), nullptr);
        EXPECT_EQ(SlideDescriptions(), (Texts{"A", "", "C"}));
        EXPECT_FALSE(module.config.ShowDescription);
        EXPECT_FALSE(module.show.ShowChanged);
        EXPECT_EQ(Saved("ShowDescription"), "");
    }
    auto& dialog = Open();
    ExpectQuestion(
        "You are about to clear ALL of the image descriptions for this slide show.\r\n\r\nAre you sure?",
        Answer::Yes);
    Press(dialog.CmdClearAll);
    Press(dialog.CmdCancel);
    EXPECT_EQ(SlideDescriptions(), (Texts{"A", "", "C"}));
}

TEST_F(frmDescriptionTest, ADoubleQuoteCannotBeTyped) {
    auto& dialog = Open();
    EXPECT_EQ(Typed(dialog, "\""), "");
    EXPECT_EQ(Typed(dialog, "'"), "'");
    EXPECT_EQ(Typed(dialog, "\xC3\xA4"), "\xC3\xA4");
    EXPECT_EQ(Typed(dialog, forms::TextBox::BackspaceCharacter), forms::TextBox::BackspaceCharacter);
}

TEST_F(frmDescriptionTest, PastedQuotesAndLineEndsAreChangedAsTheyEnter) {
    auto& dialog = Open();
    Paste(dialog, "\xC3\xA4 \"x\"\r\ny|rest", 8);  // before the bar
    EXPECT_EQ(dialog.Text1.Text.Get(), "\xC3\xA4 'x' y|rest");
    EXPECT_EQ(dialog.Text1.SelStart.Get(), 7);
    EXPECT_EQ(dialog.Text1.SelLength.Get(), 0);
    Paste(dialog, "plain", 2);
    EXPECT_EQ(dialog.Text1.SelStart.Get(), 2);
    EXPECT_EQ(StorableDescription("a\rb\nc\r\n\r\nd\xE2\x80\xA8"
                                  "e\xE2\x80\xA9"
                                  "f\xC2\x85g\vh\fi\tj"),
              "a b c  d e f g h i\tj");
    EXPECT_EQ(StorableDescription(""), "");
}

TEST_F(frmDescriptionTest, WhatIsSavedReadsBackWhateverIsPasted) {
    auto& dialog = Open();
    Paste(dialog, "say \"hi\"\r\n\"Version 1.5\"", 0);
    Press(dialog.CmdOK);
    module.show.SaveFromArrays = true;
    WriteSlideFile(module, "C:\\Shows\\", "s.tvs");
    ShowRecord record;
    EXPECT_TRUE(ReadShowFile(platform.files, ShowPath, record).Whole());
    EXPECT_EQ(record.slides, static_cast<const ShowSlides&>(module.show));
    EXPECT_EQ(record.slides.SlideDescriptions[0], "say 'hi' 'Version 1.5'");
}

TEST_F(frmDescriptionTest, ClearEmptiesTheDescription) {
    auto& dialog = Open();
    Press(dialog.CmdClear);
    ExpectShown(dialog, "1", "C:\\Shows\\a.bmp", "");
    ExpectTold("This description is already blank...");
    Press(dialog.CmdClear);
    Press(dialog.CmdOK);
    EXPECT_EQ(SlideDescriptions(), (Texts{"", "", "C"}));
}

TEST_F(frmDescriptionTest, ClearAllEmptiesAllAsTheUserAgrees) {
    const std::string question =
        "You are about to clear ALL of the image descriptions for this slide show.\r\n\r\nAre you sure?";
    auto& dialog = Open(1);
    ExpectQuestion(question, Answer::No);
    Press(dialog.CmdClearAll);
    EXPECT_EQ(SlideDescriptions(), (Texts{"A", "", "C"}));
    ExpectQuestion(question, Answer::Yes);
    Press(dialog.CmdClearAll);
    EXPECT_EQ(dialog.Text1.Text.Get(), "");
    ExpectTold("There are no descriptions to clear...");
    Press(dialog.CmdClearAll);
    // What stands in the field alone is one.
    Enter(dialog.Text1, "typed");
    ExpectQuestion(question, Answer::Yes);
    Press(dialog.CmdClearAll);
    Press(dialog.CmdOK);
    EXPECT_EQ(SlideDescriptions(), (Texts{"", "", ""}));
}

TEST_F(frmDescriptionTest, TheOnlyDescriptionMayHaveBeenTakenFromTheField) {
    UseSlides({"a.bmp", "b.bmp"}, {"A", ""});
    auto& dialog = Open();
    Enter(dialog.Text1, "");
    ExpectTold("There are no descriptions to clear...");
    Press(dialog.CmdClearAll);
}

TEST_F(frmDescriptionTest, FileInfoIsAddedToTheText) {
    auto& dialog = Open();
    Enter(dialog.Text1, "Beach. ");
    Press(dialog.CmdFileInfo);
    const std::string text = "Beach. File Date: 12/31/2001 1:05:09 PM - File Size: 12,345 bytes.";
    EXPECT_EQ(dialog.Text1.Text.Get(), text);
    EXPECT_EQ(dialog.Text1.SelStart.Get(), static_cast<int>(text.size()));
    EXPECT_EQ(dialog.ActiveControl(), &dialog.Text1);
}

TEST_F(frmDescriptionTest, FileInfoThatHasNoRoomCutsNothing) {
    auto& dialog = Open();
    const std::size_t facts = FileFacts(module, "C:\\Shows\\a.bmp").size();
    const std::string full(200 - facts, 'x');
    Enter(dialog.Text1, full + "x");
    ExpectTold("Error getting file information...");
    Press(dialog.CmdFileInfo);
    EXPECT_EQ(dialog.Text1.Text.Get(), full + "x");
    Enter(dialog.Text1, full);
    Press(dialog.CmdFileInfo);
    EXPECT_EQ(dialog.Text1.Text.Get().size(), 200U);
    EXPECT_TRUE(dialog.Text1.Text.Get().ends_with(" bytes."));
}

TEST_F(frmDescriptionTest, FileInfoOfWhatIsMissingOrUnreadableIsToldOf) {
    auto& dialog = Open(1);
    platform.disks.Remove("C:\\Shows\\sub\\b.bmp");
    ExpectTold("Selected file could not be found, unable to get information...");
    Press(dialog.CmdFileInfo);
    Press(dialog.CmdNext);
    platform.faults.FailAlways(headless::Service::Files, "Info", ErrorNumber::DiskNotReady);
    ExpectTold("Error getting file information...");
    Press(dialog.CmdFileInfo);
    EXPECT_EQ(dialog.Text1.Text.Get(), "C");
}

TEST_F(frmDescriptionTest, PreviewShowsTheSlideOnTheStage) {
    auto& dialog = Open(1);
    Enter(dialog.Text1, "caret");
    dialog.CmdPreview.SetFocus();
    module.SlideShowActive = true;
    int shown = 0;
    toolkit.OnModal("FullViewFrm", [&, this] {
        ++shown;
        auto& stage = *app.Loaded<FullViewFrm>();
        EXPECT_EQ(stage.Image1.Picture.Get().Width(), 8);
        EXPECT_FALSE(module.Busy());
        stage.Deliver(forms::KeyEvent{true, forms::KeyCode::Escape, 0, nullptr});
    });
    toolkit.AtYield(1, [this] { EXPECT_EQ(toolkit.ScreenPointer(), forms::MousePointer::Hourglass); });
    Press(dialog.CmdPreview);
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(module.StageImage, "C:\\Shows\\sub\\b.bmp");
    EXPECT_FALSE(module.SlideShowActive);
    EXPECT_EQ(app.Loaded<FullViewFrm>(), nullptr);
    EXPECT_EQ(dialog.ActiveControl(), &dialog.Text1);
    EXPECT_EQ(dialog.Text1.SelStart.Get(), 5);
    EXPECT_EQ(dialog.Text1.SelLength.Get(), 0);
    EXPECT_FALSE(module.Busy());
}

TEST_F(frmDescriptionTest, PreviewEndsTheStageThatIsThere) {
    auto& dialog = Open(1);
    module.StageImage = "C:\\Shows\\sub\\b.bmp";
    app.Load<FullViewFrm>(module).Show();
    toolkit.OnModal("FullViewFrm", [this] {
        int stages = 0;
        for (int i = 0; i < app.FormCount(); ++i)
            stages += dynamic_cast<FullViewFrm*>(&app.FormAt(i)) != nullptr ? 1 : 0;
        EXPECT_EQ(stages, 1);
        app.Loaded<FullViewFrm>()->Deliver(forms::KeyEvent{true, forms::KeyCode::Escape, 0, nullptr});
    });
    Press(dialog.CmdPreview);
    EXPECT_EQ(app.Loaded<FullViewFrm>(), nullptr);
}

TEST_F(frmDescriptionTest, ADialogThatIsClosedInThatMomentShowsNoStage) {
    auto& dialog = Open(1);
    toolkit.AtYield(1, [&dialog] { Press(dialog.CmdCancel); });
    Press(dialog.CmdPreview);
    EXPECT_EQ(app.Loaded<FullViewFrm>(), nullptr);
    EXPECT_FALSE(module.Busy());
}

TEST_F(frmDescriptionTest, AClickOnThePathShowsItWhole) {
    auto& dialog = Open(1);
    ExpectTold("C:\\Shows\\sub\\b.bmp");
    dialog.lblFilename.Deliver(forms::ClickEvent{});
}

TEST_F(frmDescriptionTest, NothingIsDoneWhileTheProgramIsBusy) {
    auto& dialog = Open();
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    for (forms::CommandButton* button :
         {&dialog.CmdNext, &dialog.CmdPrevious, &dialog.CmdClear, &dialog.CmdClearAll, &dialog.CmdFileInfo,
          &dialog.CmdPreview, &dialog.CmdOK})
        Press(*button);
    ExpectShown(dialog, "1", "C:\\Shows\\a.bmp", "A");
    EXPECT_EQ(app.Loaded<frmDescription>(), &dialog);
}

TEST_F(frmDescriptionTest, HelpOpensItsPage) {
    auto& dialog = Open();
    Press(dialog.CmdHelp);
    ASSERT_FALSE(platform.help.calls.empty());
    EXPECT_EQ(platform.help.calls.back().data, HelpContext::SlideDescriptions);
}

}  // namespace
}  // namespace tavrix::test

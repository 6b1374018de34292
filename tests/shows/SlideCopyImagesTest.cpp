#include "dialogs/WaitCopyFrm.h"
#include "shows/editor/frmSlideCopyImages.h"
#include "support/MainViewFixture.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using headless::Service;
using Paths = std::vector<std::string>;

class SlideCopyImagesTest : public MainViewFixture {
  protected:
    SlideCopyImagesTest() {
        for (const char* name : {"a.bmp", "b.bmp", "c.bmp"})
            platform.disks.PutFile("C:\\From\\" + std::string(name), name);
        platform.disks.PutFolder("C:\\To");
        Start();
        module.config.LastCopyToPath = "C:\\To\\";
    }

    frmSlideCopyImages& Load(Paths names, bool move = false) {
        auto& dialog = app.Load<frmSlideCopyImages>(
            View(), frmSlideCopyImages::Sources{"C:\\From\\", std::move(names), move},
            frmSlideCopyImages::Editor{[this](const std::string& from, const std::string& to) {
                                           moved.push_back(from + " " + to);
                                           return from == "C:\\From\\a.bmp";
                                       },
                                       [this] { ++refreshed; }});
        dialog.Show();
        return dialog;
    }
    static void Press(forms::CommandButton& button) { button.Deliver(forms::ClickEvent{}); }
    void ExpectQuestion(const std::string& text, Answer reply,
                        forms::BoxButtons buttons = forms::BoxButtons::YesNo) {
        Expect({.text = text, .icon = forms::BoxIcon::Question, .buttons = buttons, .reply = reply});
    }
    void ExpectReplace(const std::string& name, Answer reply) {
        ExpectQuestion("The following file already exists in the destination folder:\r\n\r\n" + name +
                           "\r\n\r\nReplace this file with the one in the source folder?",
                       reply, forms::BoxButtons::YesNoCancel);
    }
    void ExpectCanceled(const std::string& word) {
        Expect({.text = "The " + word + " file(s) command was canceled...",
                .icon = forms::BoxIcon::Exclamation});
    }
    void ExpectUpdated() {
        Expect({.text =
                    "Some of the selected file(s) were in the current slide show, the entries for this slide "
                    "were updated as a result..."});
    }
    std::optional<std::string> At(const std::string& path) { return platform.disks.Content(path); }
    [[nodiscard]] bool Gone() const { return app.Loaded<frmSlideCopyImages>() == nullptr; }

    static constexpr const char* TwoCopied = "OK to copy 2 files to the following directory?\r\n\r\nC:\\To\\";
    static constexpr const char* TwoMoved = "OK to move 2 files to the following directory?\r\n\r\nC:\\To\\";

    Paths moved;
    int refreshed = 0;
};

TEST_F(SlideCopyImagesTest, SaysWhatItIs) {
    const auto& copy = Load({"a.bmp", "b.bmp"});
    EXPECT_EQ(copy.Caption.Get(), "Copy Selected Image(s)");
    EXPECT_EQ(copy.lblSourcePath.Caption.Get(), "C:\\From\\");
    EXPECT_EQ(copy.lblSourcePath.ToolTip.Get(), "Click here to show full path to source folder.");
    EXPECT_EQ(copy.lblSelected.Caption.Get(), "Number of source files selected =");
    EXPECT_EQ(copy.lblNumSelected.Caption.Get(), "2");
    EXPECT_EQ(copy.CmdNewFolder.Caption.Get(), "Ne&w Folder");
    EXPECT_EQ(copy.CmdExplore.Caption.Get(), "&Explore");
    EXPECT_EQ(copy.CmdCopy.Caption.Get(), "C&opy");
    EXPECT_EQ(copy.CmdCopy.ToolTip.Get(), "Copy source file(s) to selected destination folder.");
    EXPECT_EQ(copy.CmdCancel.Caption.Get(), "&Cancel");
    EXPECT_EQ(copy.Dir1.Path.Get(), "C:\\To");
    const auto& move = Load({"a.bmp"}, true);
    EXPECT_EQ(move.Caption.Get(), "Move Selected Image(s)");
    EXPECT_EQ(move.CmdCopy.Caption.Get(), "&Move");
}

TEST_F(SlideCopyImagesTest, UntilItIsLoadedItKnowsNothing) {
    const frmSlideCopyImages dialog(app, View(), {"C:\\From\\", {"a.bmp"}, false}, {});
    EXPECT_EQ(dialog.lblSourcePath.Caption.Get(), "Error getting path...");
    EXPECT_EQ(dialog.lblNumSelected.Caption.Get(), "Error...");
}

TEST_F(SlideCopyImagesTest, BeginsInTheProgramsFolderWithoutALastOne) {
    platform.disks.PutFolder("C:\\Tavrix");
    module.config.LastCopyToPath = "";
    EXPECT_EQ(Load({"a.bmp"}).Dir1.Path.Get(), "C:\\Tavrix");
    module.config.LastCopyToPath = "Q:\\gone";
    EXPECT_NO_THROW(Load({"a.bmp"}));
}

TEST_F(SlideCopyImagesTest, TellsTheSourceFolder) {
    auto& dialog = Load({"a.bmp"});
    Expect({.text = "Complete path to source file(s) folder:\r\n\r\nC:\\From\\"});
    dialog.lblSourcePath.Deliver(forms::ClickEvent{});
}

TEST_F(SlideCopyImagesTest, TheSameFolderInAnyCaseIsRefused) {
    for (const bool move : {false, true}) {
        auto& dialog = Load({"a.bmp"}, move);
        platform.disks.PutFolder("C:\\FROM2");
        dialog.Dir1.Path = "C:\\From";
        Expect({.text = "The source and destination paths are the same, no need to " +
                        std::string(move ? "move" : "copy") + " images to selected destination..."});
        Press(dialog.CmdCopy);
        EXPECT_FALSE(Gone());
        EXPECT_EQ(module.config.LastCopyToPath, "C:\\To\\");
        app.Unload(dialog);
    }
}

TEST_F(SlideCopyImagesTest, NoLeavesAllAsItIs) {
    auto& dialog = Load({"a.bmp"});
    ExpectQuestion("OK to copy the file:\r\n\r\na.bmp\r\n\r\n...to the following directory?\r\n\r\nC:\\To\\",
                   Answer::No);
    Press(dialog.CmdCopy);
    EXPECT_FALSE(Gone());
    EXPECT_EQ(At("C:\\To\\a.bmp"), std::nullopt);
    EXPECT_EQ(refreshed, 0);
}

TEST_F(SlideCopyImagesTest, ACopyChangesNeitherRowsNorTheShow) {
    auto& dialog = Load({"a.bmp", "b.bmp"});
    platform.disks.PutFolder("C:\\Other");
    dialog.Dir1.Path = "C:\\Other";
    Paths labels;
    for (int yield = 1; yield < 30; ++yield) {
        toolkit.AtYield(yield, [&] {
            if (auto* window = app.Loaded<WaitCopyFrm>()) labels.push_back(window->lblMsg.Caption);
        });
    }
    ExpectQuestion("OK to copy 2 files to the following directory?\r\n\r\nC:\\Other\\", Answer::Yes);
    Press(dialog.CmdCopy);
    EXPECT_TRUE(Gone());
    EXPECT_EQ(At("C:\\Other\\a.bmp"), "a.bmp");
    EXPECT_EQ(At("C:\\Other\\b.bmp"), "b.bmp");
    EXPECT_EQ(At("C:\\From\\b.bmp"), "b.bmp");
    EXPECT_EQ(module.config.LastCopyToPath, "C:\\Other\\");
    EXPECT_TRUE(moved.empty());
    EXPECT_EQ(refreshed, 1);
    EXPECT_FALSE(module.show.ShowChanged);
    EXPECT_FALSE(module.Busy());
    EXPECT_NE(std::ranges::find(labels, "Tavrix is preparing to copy file(s)..."), labels.end());
    EXPECT_NE(std::ranges::find(labels, "Tavrix is copying the file:\r\n\r\nb.bmp"), labels.end());
}

TEST_F(SlideCopyImagesTest, RowsImageAndListsFollowAMove) {
    platform.pictures.SetPicture("C:\\From\\b.bmp", PlainPicture(20, 10));
    View().Deliver(forms::DropEvent{{"C:\\From\\b.bmp"}});
    ASSERT_EQ(module.CurrentImage, "C:\\From\\b.bmp");
    const auto content = At("C:\\From\\b.bmp");
    auto& dialog = Load({"a.bmp", "b.bmp"}, true);
    ExpectQuestion(TwoMoved, Answer::Yes);
    ExpectUpdated();
    Press(dialog.CmdCopy);
    EXPECT_EQ(At("C:\\From\\a.bmp"), std::nullopt);
    EXPECT_EQ(At("C:\\To\\b.bmp"), content);
    EXPECT_EQ(moved, (Paths{"C:\\From\\a.bmp C:\\To\\a.bmp", "C:\\From\\b.bmp C:\\To\\b.bmp"}));
    EXPECT_TRUE(module.show.ShowChanged);
    EXPECT_EQ(module.CurrentImage, "C:\\To\\b.bmp");
    EXPECT_EQ(View().Caption.Get(), "Tavrix - [C:\\To\\b.bmp]");
    EXPECT_EQ(refreshed, 1);
    EXPECT_TRUE(Gone());
}

TEST_F(SlideCopyImagesTest, WithoutARowOfItsOwnAMoveLeavesTheShow) {
    auto& dialog = Load({"b.bmp", "c.bmp"}, true);
    ExpectQuestion(TwoMoved, Answer::Yes);
    Press(dialog.CmdCopy);
    EXPECT_FALSE(module.show.ShowChanged);
}

TEST_F(SlideCopyImagesTest, NoSkipsAFileAndCancelEndsIt) {
    platform.disks.PutFile("C:\\To\\a.bmp", "old");
    platform.disks.PutFile("C:\\To\\b.bmp", "old");
    auto& dialog = Load({"a.bmp", "b.bmp"}, true);
    ExpectQuestion(TwoMoved, Answer::Yes);
    ExpectReplace("a.bmp", Answer::No);
    ExpectReplace("b.bmp", Answer::Cancel);
    ExpectCanceled("move");
    Press(dialog.CmdCopy);
    EXPECT_EQ(At("C:\\From\\a.bmp"), "a.bmp");
    EXPECT_EQ(At("C:\\To\\b.bmp"), "old");
    EXPECT_TRUE(moved.empty());
    EXPECT_EQ(refreshed, 1);
    EXPECT_TRUE(Gone());
}

TEST_F(SlideCopyImagesTest, TheWaitWindowCancels) {
    auto& dialog = Load({"a.bmp", "b.bmp"});
    ExpectQuestion(TwoCopied, Answer::Yes);
    toolkit.AtYield(5, [&] { app.Loaded<WaitCopyFrm>()->CmdCancel.Deliver(forms::ClickEvent{}); });
    ExpectCanceled("copy");
    Press(dialog.CmdCopy);
    EXPECT_EQ(At("C:\\To\\b.bmp"), std::nullopt);
    EXPECT_EQ(app.Loaded<WaitCopyFrm>(), nullptr);
    EXPECT_EQ(refreshed, 1);
}

TEST_F(SlideCopyImagesTest, AFailureEndsItAndWhatWasMovedIsTold) {
    platform.disks.PutFolder("C:\\To\\b.bmp");
    auto& dialog = Load({"a.bmp", "b.bmp"}, true);
    ExpectQuestion(TwoMoved, Answer::Yes);
    Expect({.text = "Aborting, unable to move the file:\r\n\r\nb.bmp\r\n\r\nPath/File access error...",
            .icon = forms::BoxIcon::Stop});
    ExpectUpdated();
    Press(dialog.CmdCopy);
    EXPECT_EQ(At("C:\\To\\a.bmp"), "a.bmp");
    EXPECT_EQ(At("C:\\From\\b.bmp"), "b.bmp");
    EXPECT_EQ(refreshed, 1);
    EXPECT_TRUE(Gone());
}

TEST_F(SlideCopyImagesTest, ASourceThatCannotBeRemovedKeepsItsRow) {
    const std::string question =
        "Error, unable to remove source file:\r\n\r\nC:\\From\\a.bmp\r\n\r\nPermission denied...\r\n\r\n"
        "Try to move the remaining files anyway?";
    platform.disks.SetReadOnly("C:\\From\\a.bmp", true);
    auto& dialog = Load({"a.bmp", "b.bmp"}, true);
    ExpectQuestion(TwoMoved, Answer::Yes);
    ExpectQuestion(question, Answer::Yes);
    Press(dialog.CmdCopy);
    EXPECT_EQ(moved, (Paths{"C:\\From\\b.bmp C:\\To\\b.bmp"}));
    EXPECT_FALSE(module.show.ShowChanged);
    EXPECT_EQ(At("C:\\From\\a.bmp"), "a.bmp");
    EXPECT_EQ(At("C:\\To\\a.bmp"), "a.bmp");

    // No is an end, and nothing was canceled.
    platform.disks.Remove("C:\\To\\a.bmp");
    auto& again = Load({"a.bmp", "c.bmp"}, true);
    ExpectQuestion(TwoMoved, Answer::Yes);
    ExpectQuestion(question, Answer::No);
    Press(again.CmdCopy);
    EXPECT_EQ(At("C:\\From\\c.bmp"), "c.bmp");
    EXPECT_EQ(refreshed, 2);
}

TEST_F(SlideCopyImagesTest, ASecondPressWhileItWorksDoesNothing) {
    auto& dialog = Load({"a.bmp", "b.bmp"});
    ExpectQuestion(TwoCopied, Answer::Yes);
    toolkit.AtYield(1, [&] { Press(dialog.CmdCopy); });
    Press(dialog.CmdCopy);
    EXPECT_EQ(refreshed, 1);
}

}  // namespace
}  // namespace tavrix::test

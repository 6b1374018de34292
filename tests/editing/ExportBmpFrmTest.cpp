// The export of bitmaps, and what the two export windows have in common.

#include "core/UnsavedImage.h"
#include "editing/ExportFrmTest.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using ExportBmpFrmTest = ExportFrmTest;

std::vector<std::string> NamesOf(const forms::Form& form) {
    std::vector<std::string> names;
    for (const forms::Control* control : form.Controls())
        names.push_back(control->Name());
    return names;
}

TEST_F(ExportBmpFrmTest, TextsAreAsTold) {
    ASSERT_TRUE(Start(Gif));
    InBmp([](ExportBmpFrm& dialog) {
        EXPECT_EQ(dialog.Caption.Get(), "Export BMP");
        EXPECT_EQ(dialog.HelpContext, HelpContext::Export);
        const FileTarget& target = dialog.Target;
        const std::vector<std::vector<std::string>> texts{
            {target.lblCurMsg.Caption, target.lblCurrent.ToolTip},
            {target.txtFilename.ToolTip, target.CmdFF.Caption},
            {target.CmdNew.Caption, target.lblCurrent.Caption},
            {dialog.Buttons.CmdExport.Caption, dialog.Buttons.CmdExport.ToolTip},
            {dialog.Buttons.CmdCancel.Caption, dialog.Buttons.CmdCancel.ToolTip}};
        const std::vector<std::vector<std::string>> expected{
            {"Current filename:", "Shows path of the image currently being displayed."},
            {"Enter a filename.", "&FF"},
            {"&New Folder", Gif},
            {"&Export", "Export the current image as a BMP."},
            {"&Cancel", "Don't export BMP file."}};
        EXPECT_EQ(texts, expected);
    });
}

TEST_F(ExportBmpFrmTest, KeysReachEverything) {
    ASSERT_TRUE(Start(Gif));
    InBmp([](ExportBmpFrm& dialog) {
        EXPECT_EQ(NamesOf(dialog),
                  (std::vector<std::string>{"lblCurMsg", "lblCurrent", "lblFilename", "txtFilename",
                                            "lblDrives", "Drive1", "lblFolders", "Dir1", "CmdFF", "CmdNew",
                                            "CmdExport", "CmdCancel"}));
        EXPECT_TRUE(dialog.Buttons.CmdExport.Default);
        EXPECT_TRUE(dialog.Buttons.CmdCancel.Cancel);
        ExpectOwnLetters(dialog, 7);
    });
}

TEST_F(ExportBmpFrmTest, ProposesTheNameWithAnotherExtension) {
    ASSERT_TRUE(Start(Gif));
    platform.files.ChangeFolder("C:\\q");
    const std::vector<std::pair<std::string, std::string>> names{{"a.gif", "a.BMP"},
                                                                 {"a b.jpeg", "a b.jBMP"},
                                                                 {"abcd", "aBMP"},
                                                                 {"abc", "BMP"},
                                                                 {"ab", "BMP"},
                                                                 {"\xC3\xA4\xC3\xB6.\xC3\xBC",
                                                                  "\xC3\xA4"
                                                                  "BMP"}};
    for (const auto& [name, proposed] : names) {
        module.CurrentImage = "C:\\p\\" + name;
        InBmp([&](ExportBmpFrm& dialog) {
            ExpectProposed(dialog.Target, proposed);
            ExpectPlace(dialog.Target, "C:\\p");
            EXPECT_EQ(dialog.Target.lblCurrent.Caption.Get(), "C:\\p\\" + name);
        });
    }
}

TEST_F(ExportBmpFrmTest, AClickOnThePathShowsItWhole) {
    ASSERT_TRUE(Start(Gif));
    InBmp([this](ExportBmpFrm& dialog) {
        for (forms::Label* label : {&dialog.Target.lblCurrent, &dialog.Target.lblCurMsg}) {
            ExpectTold("Complete path to current image file:\r\n\r\nC:\\p\\a.gif");
            label->Deliver(forms::ClickEvent{});
        }
    });
}

TEST_F(ExportBmpFrmTest, ANameIsNeeded) {
    ASSERT_TRUE(Start(Gif));
    InBmp([this](ExportBmpFrm& dialog) {
        for (const char* name : {"", "   "}) {
            Enter(dialog.Target.txtFilename, name);
            dialog.Target.Dir1.SetFocus();
            ExpectTold("A filename was not entered, unable to export image...");
            Press(dialog.Buttons.CmdExport);
            EXPECT_EQ(dialog.Target.txtFilename.Text.Get(), "");
            EXPECT_EQ(dialog.ActiveControl(), &dialog.Target.txtFilename);
            EXPECT_TRUE(dialog.Visible());
        }
    });
}

TEST_F(ExportBmpFrmTest, AColonOrABackslashIsRefusedWithTheCaretThere) {
    ASSERT_TRUE(Start(Gif));
    InBmp([this](ExportBmpFrm& dialog) {
        const std::vector<std::tuple<std::string, std::string, const char*, int>> cases{
            {"a:b", "a:b", Colon, 1},
            {"  a\\b ", "a\\b", Backslash, 1},
            {"a\\:b", "a\\:b", Colon, 2},
            {" ../b", "../b", Slash, 2}};
        for (const auto& [entered, trimmed, text, caret] : cases) {
            Enter(dialog.Target.txtFilename, entered);
            dialog.Target.Dir1.SetFocus();
            ExpectTold(text);
            Press(dialog.Buttons.CmdExport);
            EXPECT_EQ(dialog.Target.txtFilename.Text.Get(), trimmed);
            ExpectCaret(dialog.Target.txtFilename, caret);
            EXPECT_TRUE(dialog.Visible());
        }
    });
}

TEST_F(ExportBmpFrmTest, TheExtensionIsAddedWhereItIsMissing) {
    ASSERT_TRUE(Start(Gif));
    InBmp([this](ExportBmpFrm& dialog) {
        const std::vector<std::pair<std::string, std::string>> names{
            {"new", "new.BMP"},   {" new.bmp ", "new.bmp"}, {"new.Bmp", "new.Bmp"},
            {"b.mp", "b.mp.BMP"}, {"bmp", "bmp.BMP"},       {"new.jpg", "new.jpg.BMP"}};
        for (const auto& [entered, meant] : names) {
            Enter(dialog.Target.txtFilename, entered);
            ExpectNew("C:\\p\\" + meant, Answer::No);
            Press(dialog.Buttons.CmdExport);
            EXPECT_TRUE(dialog.Visible());
            EXPECT_EQ(dialog.Target.txtFilename.Text.Get(), meant);
        }
    });
    EXPECT_EQ(Asked("Pictures.SaveBitmap"), 0);
    ExpectCurrent(Gif);
}

TEST_F(ExportBmpFrmTest, TheNewFileIsTheImageOnShow) {
    ASSERT_TRUE(Start(Gif));
    View().menu.mnuUndo.Enabled = true;
    View().menu.mnuUndo.Caption = "&Undo Crop";
    EXPECT_TRUE(View().menu.mnuAnimatedGIF.Enabled);
    InBmp([this](ExportBmpFrm& dialog) {
        dialog.Target.Drive1.Drive = "D:";
        dialog.Target.Dir1.Path = "D:\\out";
        ExpectNew("D:\\out\\a.BMP", Answer::Yes);
        Press(dialog.Buttons.CmdExport);
        EXPECT_TRUE(dialog.Unloaded());
    });
    ExpectCurrent("D:\\out\\a.BMP");
    EXPECT_EQ(module.config.Recent[0], "D:\\out\\a.BMP");
    EXPECT_FALSE(View().menu.mnuAnimatedGIF.Enabled);
    EXPECT_TRUE(View().menu.mnuUndo.Enabled);
    EXPECT_EQ(View().menu.mnuUndo.Caption.Get(), "&Undo Crop");
    EXPECT_EQ(Content(Gif), gifBytes);
    const Picture written = Loaded("D:\\out\\a.BMP");
    EXPECT_EQ(written.format, "bmp");
    EXPECT_EQ(written.Width(), 30);
    EXPECT_EQ(written.Height(), 20);
    EXPECT_EQ(written.pixels->Whole().Row(19)[29], GifColour);
}

TEST_F(ExportBmpFrmTest, AnExistingFileIsReplacedWhenTheUserAgrees) {
    platform.disks.PutFile("C:\\p\\a.bmp", "old");
    ASSERT_TRUE(Start(Gif));
    InBmp([this](ExportBmpFrm& dialog) {
        ExpectReplace("C:\\p\\a.BMP", Answer::No);
        Press(dialog.Buttons.CmdExport);
        EXPECT_TRUE(dialog.Visible());
        EXPECT_EQ(Content("C:\\p\\a.bmp"), "old");
        ExpectReplace("C:\\p\\a.BMP", Answer::Yes);
        Press(dialog.Buttons.CmdExport);
    });
    EXPECT_EQ(Loaded("C:\\p\\a.bmp").Width(), 30);
}

TEST_F(ExportBmpFrmTest, TheOutlineOfTheSelectionIsNoPartOfThePicture) {
    ASSERT_TRUE(Start(Gif));
    Selection& selection = View().selection;
    selection.SelectionShown = true;
    selection.SelectionStartX = selection.SelectionStartY = 30;
    selection.SelectionEndX = selection.SelectionEndY = 150;
    selection.DrawLine(30, 30, 150, 150);
    InBmp([this](ExportBmpFrm& dialog) {
        ExpectNew("C:\\p\\a.BMP", Answer::Yes);
        Press(dialog.Buttons.CmdExport);
    });
    ExpectColour(Loaded("C:\\p\\a.BMP"), GifColour);
    EXPECT_FALSE(selection.SelectionShown);
}

TEST_F(ExportBmpFrmTest, ASelectionThatWentWithAnotherPictureIsNotDrawnForIt) {
    ASSERT_TRUE(Start(Gif));
    Selection& selection = View().selection;
    selection.SelectionShown = true;
    selection.SelectionStartX = selection.SelectionStartY = 30;
    selection.SelectionEndX = selection.SelectionEndY = 150;
    selection.DrawLine(30, 30, 150, 150);
    const Picture again = View().MainImage.Picture;
    View().MainImage.Picture = again;
    InBmp([this](ExportBmpFrm& dialog) {
        ExpectNew("C:\\p\\a.BMP", Answer::Yes);
        Press(dialog.Buttons.CmdExport);
    });
    ExpectColour(Loaded("C:\\p\\a.BMP"), GifColour);
    EXPECT_TRUE(selection.SelectionShown);
}

TEST_F(ExportBmpFrmTest, AFileThatCannotBeWrittenIsToldAndTheImageStays) {
    platform.disks.PutFile("C:\\p\\locked.bmp", "locked");
    platform.disks.SetReadOnly("C:\\p\\locked.bmp", true);
    ASSERT_TRUE(Start(Gif));
    InBmp([this](ExportBmpFrm& dialog) {
        Enter(dialog.Target.txtFilename, "locked.bmp");
        ExpectReplace("C:\\p\\locked.bmp", Answer::Yes);
        ExpectNotExported("C:\\p\\locked.bmp", "Permission denied");
        Press(dialog.Buttons.CmdExport);
        EXPECT_TRUE(dialog.Unloaded());
    });
    EXPECT_EQ(Content("C:\\p\\locked.bmp"), "locked");
    ExpectCurrent(Gif);

    platform.disks.SetCapacity('D', 100);
    InBmp([this](ExportBmpFrm& dialog) {
        dialog.Target.Drive1.Drive = "D:";
        ExpectNew("D:\\a.BMP", Answer::Yes);
        ExpectNotExported("D:\\a.BMP", "Disk full");
        Press(dialog.Buttons.CmdExport);
    });
    EXPECT_FALSE(platform.disks.Exists("D:\\a.BMP"));
    ExpectCurrent(Gif);
    EXPECT_TRUE(View().menu.mnuAnimatedGIF.Enabled);
    EXPECT_EQ(module.config.Recent[0], Gif);
}

TEST_F(ExportBmpFrmTest, TheOpenedFileIsNotWrittenUnderAnotherName) {
    platform.disks.PutLink(Gif, "C:\\q\\other.bmp");
    ASSERT_TRUE(Start(Gif));
    InBmp([this](ExportBmpFrm& dialog) {
        dialog.Target.Dir1.Path = "C:\\q";
        Enter(dialog.Target.txtFilename, "other.bmp");
        ExpectReplace("C:\\q\\other.bmp", Answer::Yes);
        ExpectNotExported("C:\\q\\other.bmp", "Permission denied");
        Press(dialog.Buttons.CmdExport);
    });
    EXPECT_EQ(Content(Gif), gifBytes);
    ExpectCurrent(Gif);
}

TEST_F(ExportBmpFrmTest, TheProgramIsBusyAndTheWindowHiddenMeanwhile) {
    ASSERT_TRUE(Start(Gif));
    bool looked = false;
    InBmp([&](ExportBmpFrm& dialog) {
        ExpectNew("C:\\p\\a.BMP", Answer::Yes);
        toolkit.AtYield(2, [&] {
            looked = true;
            EXPECT_FALSE(dialog.Visible());
            EXPECT_EQ(toolkit.ScreenPointer(), forms::MousePointer::Hourglass);
            Press(dialog.Buttons.CmdExport);
        });
        Press(dialog.Buttons.CmdExport);
    });
    EXPECT_TRUE(looked);
    EXPECT_EQ(Asked("Pictures.SaveBitmap"), 1);
}

TEST_F(ExportBmpFrmTest, TheListsAreThoseOfAllWindows) {
    ASSERT_TRUE(Start(Gif));
    module.config.FavoriteFolder = "D:\\out";
    module.config.QuickFolder = {"Queue", "", "", ""};
    module.config.QuickFolderPath = {"C:\\gone", "", "", ""};
    InBmp([this](ExportBmpFrm& dialog) {
        Press(dialog.Target.CmdFF);
        ExpectPlace(dialog.Target, "D:\\out");
        ExpectStop("Unable to change directory to Quick Path 1.\r\n\r\nPath not found...");
        toolkit.ChooseFromPopup("Queue");
        dialog.Target.CmdFF.Deliver(
            forms::MouseEvent{forms::MouseAction::Down, forms::MouseButton::Right, 0, 1, 1});
        toolkit.ExpectInput(
            {.prompt = "Enter the name of the folder to create:", .title = "New Folder", .reply = "made"});
        Press(dialog.Target.CmdNew);
        EXPECT_EQ(FileNameOf(dialog.Target.Dir1.Path.Get()), "made");
        ExpectTold("The selected drive is currently not available...");
        dialog.Target.Drive1.Deliver(forms::RowEvent{0});
    });
}

}  // namespace
}  // namespace tavrix::test

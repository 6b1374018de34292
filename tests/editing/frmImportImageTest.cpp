#include "editing/ImportTest.h"

namespace tavrix::test {
namespace {

using frmImportImageTest = ImportTest;

TEST_F(frmImportImageTest, TextsAreAsTold) {
    ASSERT_TRUE(Start(Gif));
    InTga([](frmImportImage& dialog) {
        EXPECT_EQ(dialog.Caption.Get(), "Import TGA Image File");
        EXPECT_EQ(dialog.Chooser.File1.Pattern.Get(), "*.tga");
        EXPECT_EQ(dialog.HelpContext, HelpContext::Import);
        EXPECT_EQ(dialog.CmdImport.Caption.Get(), "&Import");
        EXPECT_EQ(dialog.CmdImport.ToolTip.Get(), "Click here to import the selected file.");
        EXPECT_EQ(dialog.CmdCancel.Caption.Get(), "&Cancel");
        EXPECT_EQ(dialog.CmdCancel.ToolTip.Get(), "Don't import file.");
        EXPECT_EQ(dialog.Chooser.CmdFF.Caption.Get(), "&FF");
    });
    InPcx([](frmImportImage& dialog) {
        EXPECT_EQ(dialog.Caption.Get(), "Import PCX Image File");
        EXPECT_EQ(dialog.Chooser.File1.Pattern.Get(), "*.pcx");
    });
    std::string file = "before";
    auto& dialog = app.Load<frmImportImage>(module, file);
    EXPECT_EQ(dialog.Caption.Get(), "Import Image");
    EXPECT_EQ(file, "");
    app.Unload(dialog);
}

TEST_F(frmImportImageTest, KeysReachEverything) {
    ASSERT_TRUE(Start(Gif));
    InTga([](frmImportImage& dialog) {
        std::vector<std::string> names;
        for (const forms::Control* control : dialog.Controls())
            names.push_back(control->Name());
        EXPECT_EQ(names, (std::vector<std::string>{"lblFiles", "File1", "lblFolders", "Dir1", "lblDrives",
                                                   "Drive1", "CmdImport", "CmdCancel", "CmdFF"}));
        EXPECT_TRUE(dialog.CmdImport.Default);
        EXPECT_TRUE(dialog.CmdCancel.Cancel);
        ExpectOwnLetters(dialog, 6);
    });
}

TEST_F(frmImportImageTest, ListsTheFilesOfTheKindAlone) {
    platform.disks.PutFile("C:\\p\\B.TGA", "b");
    ASSERT_TRUE(Start(Gif));
    InTga([](frmImportImage& dialog) {
        ASSERT_EQ(dialog.Chooser.File1.ListCount(), 2);
        EXPECT_EQ(dialog.Chooser.File1.List(0), "B.TGA");
        EXPECT_EQ(dialog.Chooser.File1.List(1), "t.tga");
    });
    InPcx([](frmImportImage& dialog) { EXPECT_EQ(dialog.Chooser.File1.ListCount(), 1); });
}

TEST_F(frmImportImageTest, AFileHasToBeThereAndSelected) {
    ASSERT_TRUE(Start(Gif));
    InTga([this](frmImportImage& dialog) {
        ExpectTold("Select a file to import and then try again...");
        Press(dialog.CmdImport);
        dialog.Chooser.Dir1.Path = "C:\\q";
        ExpectTold("There are no .TGA image files in the selected directory...");
        Press(dialog.CmdImport);
        EXPECT_TRUE(dialog.Visible());
    });
    InPcx([this](frmImportImage& dialog) {
        dialog.Chooser.Dir1.Path = "C:\\q";
        ExpectTold("There are no .PCX image files in the selected directory...");
        Press(dialog.CmdImport);
    });
    ExpectCurrent(Gif);
}

TEST_F(frmImportImageTest, TheListsAreThoseOfAllWindows) {
    ASSERT_TRUE(Start(Gif));
    module.config.FavoriteFolder = "D:\\out";
    module.config.QuickFolder = {"", "", "Gone", ""};
    module.config.QuickFolderPath = {"", "", "C:\\gone", ""};
    InTga([this](frmImportImage& dialog) {
        Press(dialog.Chooser.CmdFF);
        EXPECT_EQ(dialog.Chooser.File1.Path.Get(), "D:\\out");
        ExpectStop("Unable to change directory to Quick Path 3.\r\n\r\nPath not found...");
        toolkit.ChooseFromPopup("Gone");
        dialog.Chooser.CmdFF.Deliver(
            forms::MouseEvent{forms::MouseAction::Down, forms::MouseButton::Right, 0, 1, 1});
        ExpectTold("The selected drive is currently not available...");
        dialog.Chooser.Drive1.Deliver(forms::RowEvent{0});
    });
}

}  // namespace
}  // namespace tavrix::test

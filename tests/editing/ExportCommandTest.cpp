// The two export commands up to their dialogs.

#include "editing/ExportFrmTest.h"

namespace tavrix::test {
namespace {

using ExportCommandTest = ExportFrmTest;

constexpr const char* NothingOpen = "An image has not been opened yet, nothing to export...";
constexpr const char* IsBitmap =
    "The current image is already in the bitmap (.BMP) format, unable to export file.\r\n\r\n"
    "Use the \"Copy / Current Image\" option to save this file...";
constexpr const char* IsJpeg =
    "The current image is already in the JPEG (.JPG) format, unable to export file...";
constexpr const char* IsIcon =
    "Icon (.ICO) files can't be directly converted to JPEG (.JPG) files.\r\n\r\n"
    "Export the icon as a Bitmap (.BMP) and then try again...";
constexpr const char* IsMetafile =
    "Metafiles (.WMF and .EMF) can't be directly converted to JPEG (.JPG) files.\r\n\r\n"
    "Export the Metafile as a Bitmap (.BMP) and then try again...";

TEST_F(ExportCommandTest, WithoutAnImageThereIsNothingToExport) {
    ASSERT_TRUE(Start());
    EXPECT_FALSE(View().menu.mnuExportBMP.Enabled);
    EXPECT_FALSE(View().menu.mnuExportJPG.Enabled);
    ExpectRefused(View().menu.mnuExportBMP, NothingOpen);
    ExpectRefused(View().menu.mnuExportJPG, NothingOpen);
}

TEST_F(ExportCommandTest, SomeKindsAreRefusedByTheirEndings) {
    ASSERT_TRUE(Start(Gif));
    for (const char* path : {"C:\\p\\a.BMP", "C:\\p\\a.bmp"}) {
        module.CurrentImage = path;
        ExpectRefused(View().menu.mnuExportBMP, IsBitmap);
    }
    const std::vector<std::pair<const char*, const char*>> refused{
        {"C:\\p\\a.JPG", IsJpeg},     {"C:\\p\\a.jpg", IsJpeg},     {"C:\\p\\a.Ico", IsIcon},
        {"C:\\p\\a.wmf", IsMetafile}, {"C:\\p\\a.EMF", IsMetafile},
    };
    for (const auto& [path, text] : refused) {
        module.CurrentImage = path;
        ExpectRefused(View().menu.mnuExportJPG, text);
    }
}

TEST_F(ExportCommandTest, AllOthersAreNot) {
    ASSERT_TRUE(Start(Gif));
    for (const char* path : {"C:\\p\\a.gif", "C:\\p\\a.jpg", "C:\\p\\a.dib", "C:\\p\\a.ico", "C:\\p\\abmp"}) {
        module.CurrentImage = path;
        InBmp([](ExportBmpFrm&) {});
    }
    for (const char* path :
         {"C:\\p\\a.gif", "C:\\p\\a.bmp", "C:\\p\\a.jpeg", "C:\\p\\a.cur", "C:\\p\\ajpg"}) {
        module.CurrentImage = path;
        InJpg([](ExportJpgFrm&) {});
    }
}

TEST_F(ExportCommandTest, TheWorkingFileIsABitmapAlready) {
    ASSERT_TRUE(Start(Gif));
    MakeUnsaved(8, 8, GifColour);
    ExpectRefused(View().menu.mnuExportBMP, IsBitmap);
}

TEST_F(ExportCommandTest, DoNothingWhileTheProgramIsBusy) {
    ASSERT_TRUE(Start(Gif));
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    EXPECT_FALSE(Choose(View().menu.mnuExportBMP));
    EXPECT_FALSE(Choose(View().menu.mnuExportJPG));
    module.CurrentImage.clear();
    EXPECT_FALSE(Choose(View().menu.mnuExportBMP));
    EXPECT_EQ(app.FormCount(), 1);
    EXPECT_EQ(toolkit.ScreenPointer(), forms::MousePointer::Hourglass);
}

TEST_F(ExportCommandTest, ADriveThatIsNotReadyIsLookedAtFirst) {
    ASSERT_TRUE(Start(Gif));
    platform.faults.FailAlways(headless::Service::Files, "Look", ErrorNumber::DiskNotReady);
    InBmp([](ExportBmpFrm&) {});
    EXPECT_EQ(Asked("Files.Look C:\\ *"), 1);
}

TEST_F(ExportCommandTest, TheMainViewLeavesTheTopmostBandMeanwhile) {
    ASSERT_TRUE(Start(Gif));
    module.config.TopMostWindow = true;
    View().SetTopmost(true);
    InBmp([this](ExportBmpFrm&) { EXPECT_FALSE(Window().topmost); });
    EXPECT_TRUE(Window().topmost);
    InJpg([this](ExportJpgFrm&) { EXPECT_FALSE(Window().topmost); });
    EXPECT_TRUE(Window().topmost);
    module.CurrentImage = "C:\\p\\a.bmp";
    ExpectTold(IsBitmap, [this] { EXPECT_FALSE(Window().topmost); });
    View().menu.mnuExportBMP.Click();
    EXPECT_TRUE(Window().topmost);
}

}  // namespace
}  // namespace tavrix::test

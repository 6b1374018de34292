#pragma once

#include "editing/SavingTest.h"
#include "editing/importing/frmImportImage.h"

namespace tavrix::test {

/// A user who imports. C:\p also holds t.tga of 5 by 4 pixels, the first of them white and the others black, and
/// x.pcx of 4 by 1 pixels.
class ImportTest : public SavingTest {
  protected:
    static constexpr Pixel White = OpaquePixel(255, 255, 255);
    static constexpr Pixel Black = OpaquePixel(0, 0, 0);
    static constexpr Pixel PcxColour = OpaquePixel(12, 34, 56);

    ImportTest() {
        platform.disks.PutFile("C:\\p\\t.tga", PlainTga(5, 4, White, Black));
        platform.disks.PutFile("C:\\p\\x.pcx", PlainPcx(PcxColour));
    }

    void InImport(forms::Menu& entry, const std::function<void(frmImportImage&)>& action) {
        InDialog<frmImportImage>(entry, "frmImportImage", action);
    }
    void InTga(const std::function<void(frmImportImage&)>& action) {
        InImport(View().menu.mnuImportTGA, action);
    }
    void InPcx(const std::function<void(frmImportImage&)>& action) {
        InImport(View().menu.mnuImportPCX, action);
    }
    /// Imports the first file of the list.
    void ImportFirst(forms::Menu& entry) {
        InImport(entry, [](frmImportImage& dialog) {
            dialog.Chooser.File1.Deliver(forms::RowEvent{0});
            Press(dialog.CmdImport);
        });
    }
    /// An image that was made or brought in: unsaved, and nothing to undo.
    void ExpectImported(const std::string& path, int width, int height, Pixel first) {
        ExpectCurrent(path);
        EXPECT_FALSE(View().menu.mnuUndo.Enabled);
        EXPECT_EQ(View().menu.mnuUndo.Caption.Get(), "Can't Undo");
        EXPECT_FALSE(View().menu.mnuAnimatedGIF.Enabled);
        EXPECT_TRUE(View().menu.mnuEdit.Visible);
        EXPECT_TRUE(View().menu.mnuSaveCopy.Enabled);
        EXPECT_EQ(View().MainImage.Width.Get(), static_cast<float>(width * 15));
        EXPECT_EQ(View().MainImage.Height.Get(), static_cast<float>(height * 15));
        for (const Picture& picture : {View().MainImage.Image(), Loaded(path)}) {
            EXPECT_EQ(picture.Width(), width);
            EXPECT_EQ(picture.Height(), height);
            EXPECT_EQ(picture.pixels->Whole().Row(0)[0], first);
        }
    }
};

}  // namespace tavrix::test

#include "editing/creating/BackColorFrm.h"
#include "editing/creating/NewImageFrm.h"
#include "editing/desktop/frmSetWallpaper.h"
#include "editing/importing/OpenPaletteFrm.h"
#include "editing/importing/frmImportImage.h"
#include "editing/resizing/frmImageSize.h"
#include "editing/saving/ExportBmpFrm.h"
#include "editing/saving/ExportJpgFrm.h"
#include "editing/saving/SaveCopyFrm.h"
#include "editing/turning/frmRotateImg.h"
#include "scenes/WindowScenes.h"
#include "viewer/MainViewFrm.h"

namespace tavrix::scenes {
namespace {

forms::Form& Importing(Scenery& scenery) {
    auto& import = scenery.app.Load<frmImportImage>(scenery.module, scenery.Keep<std::string>());
    import.Chooser.File1.Pattern = "*.tga";
    import.Caption = "Import TGA Image File";
    return import;
}

forms::Form& LongWallpaper(Scenery& scenery) {
    scenery.platform.desktop.SetWallpaper(
        "C:\\Pictures\\Holidays & more\\the second of the pictures of the beach.jpg");
    return OfView<frmSetWallpaper>(scenery);
}

forms::Form& Colours(Scenery& scenery) {
    scenery.module.config.BackColorR = 40;
    scenery.module.config.BackColorG = 90;
    scenery.module.config.BackColorB = 200;
    return scenery.app.Load<BackColorFrm>(scenery.module, scenery.View().picFrame);
}

forms::Form& Rotating(Scenery& scenery) {
    scenery.View().MainImage.Picture = TestCard(640, 480);
    return OfView<frmRotateImg>(scenery);
}

}  // namespace

std::vector<WindowScene> EditingWindows() {
    return {
        {"SaveCopyFrm", OfView<SaveCopyFrm>},
        {"ExportBmpFrm", OfView<ExportBmpFrm>},
        {"ExportJpgFrm", OfView<ExportJpgFrm>},
        {"frmImportImage", Importing},
        {"OpenPaletteFrm", OfModule<OpenPaletteFrm>},
        {"frmSetWallpaper", OfView<frmSetWallpaper>},
        {"frmSetWallpaper-long-path", LongWallpaper},
        {"BackColorFrm", Colours},
        {"frmRotateImg", Rotating},
        {"frmImageSize", OfView<frmImageSize>},
        {"NewImageFrm", OfView<NewImageFrm>},
    };
}

}  // namespace tavrix::scenes

#include "editing/saving/Jpeg.h"

#include "base/RuntimeError.h"
#include "core/Folders.h"
#include "editing/frame/SurfaceFile.h"
#include "platform/forms/Twips.h"

namespace tavrix {

bool LoadThroughNViewLib(const MainModule& module, forms::PictureBox& Surface, const std::string& Path,
                         std::int16_t Flag) {
    NViewLib& library = module.platform.viewLib;
    if (library.Load(Path, Flag) == 0) return false;
    const int width = library.GetWidth();
    const int height = library.GetHeight();
    if (width == 0 || height == 0) return false;
    bool shown = false;
    SkipFailure([&] {
        Surface.Picture = PictureOf(library.Image().Clone());
        Surface.Move(Surface.Left, Surface.Top, forms::ToTwips(width, module.Screen().TwipsPerPixelX()),
                     forms::ToTwips(height, module.Screen().TwipsPerPixelY()));
        shown = true;
    });
    Surface.Refresh();
    return shown;
}

void SaveAsJpeg(const MainModule& module, forms::PictureBox& Surface, int Quality, const std::string& Path) {
    NViewLib& library = module.platform.viewLib;
    const int percent = Quality * 10;
    LoadThroughNViewLib(module, Surface, module.CurrentImage, 0);
    if (library.SaveAsJPG(percent, Path) != 0) return;
    bool written = false;
    SkipFailure([&] {
        WriteSurface(module, Surface, GetTempFolder(module) + "~temp.BMP");
        written = true;
    });
    // What lies there from another time is another picture.
    if (written && library.Load(GetTempFolder(module) + "~temp.BMP", 0) != 0)
        library.SaveAsJPG(percent, Path);
    SkipFailure([&] { module.platform.files.Delete(GetTempFolder(module) + "~temp.bmp"); });
}

}  // namespace tavrix

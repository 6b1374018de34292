#include "editing/saving/Jpeg.h"

#include <cstddef>
#include <vector>

#include "base/RuntimeError.h"
#include "core/Folders.h"
#include "editing/frame/SurfaceFile.h"
#include "platform/forms/Twips.h"

namespace tavrix {

namespace {

/// Why the library could not read a file. It does not say; the file service may.
RuntimeError WhyNotRead(const MainModule& module, const std::string& path) {
    try {
        constexpr std::size_t PieceBytes = std::size_t{1} << 16U;
        std::vector<std::byte> piece(PieceBytes);
        const auto file = module.platform.files.Open(path);
        while (file->Read(piece) != 0) {
        }
    } catch (const RuntimeError& error) {
        return error;
    }
    return RuntimeError(ErrorNumber::InvalidPicture);
}

}  // namespace

void LoadThroughNViewLib(const MainModule& module, forms::PictureBox& Surface, const std::string& Path,
                         std::int16_t Flag) {
    NViewLib& library = module.platform.viewLib;
    if (library.Load(Path, Flag) == 0) throw WhyNotRead(module, Path);
    const int width = library.GetWidth();
    const int height = library.GetHeight();
    if (width == 0 || height == 0) throw RuntimeError(ErrorNumber::Overflow);
    Surface.Picture = PictureOf(library.Image().Clone());
    Surface.Move(Surface.Left, Surface.Top, forms::ToTwips(width, module.Screen().TwipsPerPixelX()),
                 forms::ToTwips(height, module.Screen().TwipsPerPixelY()));
    Surface.Refresh();
}

bool SaveAsJpeg(const MainModule& module, forms::PictureBox& Surface, int Quality, const std::string& Path) {
    NViewLib& library = module.platform.viewLib;
    const int percent = Quality * 10;
    SkipFailure([&] { LoadThroughNViewLib(module, Surface, module.CurrentImage, 0); });
    if (library.SaveAsJPG(percent, Path) != 0) return true;
    bool written = false;
    SkipFailure([&] {
        WriteSurface(module, Surface, GetTempFolder(module) + "~temp.BMP");
        written = true;
    });
    // What lies there from another time is another picture.
    const bool saved = written && library.Load(GetTempFolder(module) + "~temp.BMP", 0) != 0 &&
                       library.SaveAsJPG(percent, Path) != 0;
    SkipFailure([&] { module.platform.files.Delete(GetTempFolder(module) + "~temp.bmp"); });
    return saved;
}

}  // namespace tavrix

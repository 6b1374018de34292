#include "editing/frame/SurfaceFile.h"

#include "base/RuntimeError.h"

namespace tavrix {

void WriteSurface(const MainModule& module, const forms::PictureBox& surface, const std::string& path) {
    const Picture image = surface.Image();
    if (image.Empty()) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    module.platform.pictures.SaveBitmap(image.pixels->Whole(), path);
}

}  // namespace tavrix

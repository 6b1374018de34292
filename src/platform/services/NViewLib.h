#pragma once

#include <cstdint>
#include <string>

#include "imaging/graphics/Surface.h"

namespace tavrix {

/// The library that reads what the picture loader does not know, TGA and PCX, and that writes JPEG. It holds one
/// image, the one loaded last. No call throws: all tell a failure by their result.
class NViewLib {
  public:
    virtual ~NViewLib() = default;

    /// Loads a file: a .tga or .pcx by its name, others by their content. Gives a handle, which is never 0, and makes
    /// the picture the current image; gives 0 for a file that cannot be read, and there is no current image then.
    /// `flag` has no known meaning; 0 is passed.
    virtual int Load(const std::string& path, std::int16_t flag) = 0;

    /// Width and height of the current image in pixels. Both are 0 without one, and for one with a side that 16 bits
    /// do not hold; such an image can be saved all the same.
    [[nodiscard]] std::int16_t GetWidth() const { return Fits(Image()) ? Side(Image().Width()) : Side(0); }
    [[nodiscard]] std::int16_t GetHeight() const { return Fits(Image()) ? Side(Image().Height()) : Side(0); }

    /// Writes the current image as a JPEG over whatever stands there; quality is 0 to 100. Not 0 when it has worked;
    /// otherwise the former file is left as it was, as far as Files::Create promises it.
    virtual std::int16_t SaveAsJPG(std::int32_t quality, const std::string& path) = 0;

    /// The current image, opaque: what was transparent or missing is SurfaceBackground. Empty without one. Valid up
    /// to the next Load.
    [[nodiscard]] virtual const Surface& Image() const = 0;

  private:
    [[nodiscard]] static std::int16_t Side(int pixels) { return static_cast<std::int16_t>(pixels); }
    [[nodiscard]] static bool Fits(const Surface& image) {
        return image.Width() <= INT16_MAX && image.Height() <= INT16_MAX;
    }
};

}  // namespace tavrix

#pragma once

#include <memory>
#include <string>

#include "imaging/graphics/Animation.h"
#include "imaging/graphics/FittedPicture.h"
#include "imaging/graphics/Picture.h"

namespace tavrix {

/// The picture loader and writer. It goes by the content of a file, never by its name.
class Pictures {
  public:
    virtual ~Pictures() = default;

    /// Loads a picture. Its lower rows may still be arriving when this returns.
    /// Throws RuntimeError 53, 76, 70 or 71 for the file, 481 for content that is no picture, 7 above the limits.
    [[nodiscard]] virtual Picture Load(const std::string& path) = 0;
    /// The same without a wait for any row: a large picture may turn out later to be one of which nothing can be
    /// decoded (ArrivingSurface::Blank), where Load throws 481.
    [[nodiscard]] virtual Picture LoadInBackground(const std::string& path) = 0;

    /// The picture made to fit a box, with its natural size: up to twice the fitted size the plain stretch copy of the
    /// whole, above that smoothly made smaller. Never the small picture that some photos carry besides. It is decoded
    /// while this thread goes on; no more of it is held than one picture. Throws what Load throws, here or in Take.
    [[nodiscard]] virtual std::unique_ptr<PictureToFit> LoadToFit(const std::string& path,
                                                                  const FitBox& box) = 0;
    /// Tells which picture Load will be asked for next, so that it can be decoded meanwhile; an empty path: none. One is
    /// expected at a time. It is held in memory until it is loaded or another one is expected. Throws nothing.
    virtual void Expect(const std::string& path) = 0;

    /// Opens an animated picture, with its first frame on its canvas; one image in a file is an animation of one frame.
    /// The file is read as long as the animation lives, one frame at a time.
    /// Throws what Load throws; 481 for content that is no GIF or has no frame to show.
    [[nodiscard]] virtual std::unique_ptr<Animation> OpenAnimation(const std::string& path) = 0;

    /// Writes a surface as a Windows bitmap of 24 bits over whatever stands there, which stays as it was when this
    /// fails. Throws what the file service throws.
    virtual void SaveBitmap(const Surface& surface, const std::string& path) = 0;
};

}  // namespace tavrix

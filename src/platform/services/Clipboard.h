#pragma once

#include "imaging/graphics/Picture.h"

namespace tavrix {

/// The kinds of picture that a clipboard can hold.
enum class ClipboardFormat : int { Bitmap = 2, Metafile = 3, DeviceIndependentBitmap = 8 };

/// The desktop's clipboard, as far as pictures go. A file on it is no picture, whatever it contains.
class Clipboard {
  public:
    virtual ~Clipboard() = default;
    /// Whether there is a picture of this kind. A metafile counts only if it can be decoded.
    [[nodiscard]] virtual bool Has(ClipboardFormat format) = 0;
    /// The picture, of whichever kind it is: whole and opaque, what is transparent lies over SurfaceBackground.
    /// Throws RuntimeError 481 when there is none or its data are no picture, 7 above the limits, and 521 when the
    /// program that has the picture does not hand it out.
    [[nodiscard]] virtual Picture Get() = 0;
    virtual void Clear() = 0;
    /// Offers a picture to all programs, in place of what was there; not opaque, it is made so as by Get. Nothing is
    /// encoded or copied before somebody asks for it.
    /// Throws RuntimeError 481 without a picture, and 521 when the desktop refuses the clipboard.
    virtual void Set(const Picture& picture) = 0;
    /// Hands what this process put on the clipboard to the desktop, so that it outlives the process.
    virtual void Persist() = 0;
};

/// Whether there is a picture to paste, of any kind.
[[nodiscard]] inline bool HoldsPicture(Clipboard& clipboard) {
    return clipboard.Has(ClipboardFormat::Bitmap) || clipboard.Has(ClipboardFormat::Metafile) ||
           clipboard.Has(ClipboardFormat::DeviceIndependentBitmap);
}

}  // namespace tavrix

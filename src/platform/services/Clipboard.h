#pragma once

namespace tavrix {

/// The kinds of picture that a clipboard can hold.
enum class ClipboardFormat : int { Bitmap = 2, Metafile = 3, DeviceIndependentBitmap = 8 };

class Clipboard {
  public:
    virtual ~Clipboard() = default;
    [[nodiscard]] virtual bool Has(ClipboardFormat format) = 0;
    virtual void Clear() = 0;
    /// Hands what this process put on the clipboard to the desktop, so that it outlives the process.
    virtual void Persist() = 0;
};

}  // namespace tavrix

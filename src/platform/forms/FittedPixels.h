#pragma once

#include <optional>

#include "imaging/graphics/Shrink.h"
#include "platform/forms/Peers.h"

namespace tavrix::forms {

/// How a picture is shown that is stretched to a control: as it is where the control is larger, through a copy of
/// averaged pixels where it is smaller.
class FittedPixels {
  public:
    /// Whether a picture of this size, in pixels, is shown through the copy. It can then be shown before it is whole.
    [[nodiscard]] static bool Shrinks(int width, int height, const PixelRect& bounds);

    /// Forgets the copy: the pixels or the size of the control are others now.
    void Reset() { shrunk_.reset(); }
    /// The picture over the whole of the control, as far as its first `ready` rows; all of them where it does not
    /// shrink. It must live as long as the view is used.
    [[nodiscard]] CanvasView View(const Surface& pixels, int ready, const PixelRect& bounds,
                                  bool transparent);

  private:
    std::optional<Shrink> shrunk_;
};

}  // namespace tavrix::forms

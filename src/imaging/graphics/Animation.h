#pragma once

#include <chrono>

#include "imaging/graphics/Surface.h"

namespace tavrix {

/// An animated picture, composed while it plays: there is one canvas, and one frame at a time is laid on it. Made with
/// its first frame on the canvas.
class Animation {
  public:
    Animation() = default;
    virtual ~Animation() = default;
    Animation(const Animation&) = delete;
    Animation& operator=(const Animation&) = delete;

    /// What the animation shows now. Its size stays what it is; its pixels change with Next alone.
    [[nodiscard]] virtual const Surface& Canvas() const = 0;
    /// Whether some pixels of the canvas may not be opaque now.
    [[nodiscard]] virtual bool Transparent() const = 0;
    /// How long the frame on the canvas stays; more than 0.
    [[nodiscard]] virtual std::chrono::milliseconds Stay() const = 0;
    /// Composes the frame that comes next, from the first again as often as the animation repeats. False: it has come
    /// to its end, and the canvas stays as it is. Throws nothing.
    [[nodiscard]] virtual bool Next() noexcept = 0;
};

}  // namespace tavrix

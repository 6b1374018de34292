#pragma once

#include <memory>
#include <optional>

#include "base/RuntimeError.h"
#include "imaging/codecs/ByteSource.h"
#include "imaging/graphics/Animation.h"

namespace tavrix {

/// What became of opening an animation: either it or an error.
struct OpenedAnimation {
    std::unique_ptr<Animation> animation;
    /// InvalidPicture for what is no GIF or has no frame to show, OutOfMemory above the limits.
    std::optional<ErrorNumber> error;
};

/// Opens a GIF file to be played; a file of one image plays once. The canvas is the logical screen, or where that has
/// no area as large as the first image; it is transparent where no frame has drawn. Images draw within it alone.
///
/// Delays below 20 ms play as 100 ms. Without a count of repetitions in the file the frames are played once, with one
/// they are repeated so often after that, and for ever with 0. Of a damaged frame as much is shown as there is; then the
/// next one is looked for, and where none is found any more, the frames up to there are the animation.
///
/// Besides the canvas, a copy of at most one frame is held, and both within the limits of one picture.
/// Source: the GIF 89a specification; the application extension "NETSCAPE2.0".
[[nodiscard]] OpenedAnimation OpenGifAnimation(std::unique_ptr<ByteSource> source) noexcept;

}  // namespace tavrix

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "imaging/codecs/ByteSource.h"
#include "imaging/graphics/Picture.h"

namespace tavrix {

/// What a decoder knows of a picture before it decodes the pixels.
struct PictureInfo {
    int width = 0;   ///< pixels, with the orientation applied
    int height = 0;  ///< pixels, with the orientation applied
    int frames = 1;
    /// Some pixels are not opaque. Where decoding ends early, the pixels that were not reached are 0 all the same.
    bool transparent = false;
};

/// Where a decoder puts the picture.
class PictureSink {
  public:
    virtual ~PictureSink() = default;

    /// Called at most once, when the size is known and sensible. Gives the surface to fill (all pixels 0), or null
    /// when the picture is over the limits or memory is refused; the decoder then ends with Corrupt.
    virtual Surface* Begin(const PictureInfo& info) = 0;
    /// The first `count` rows are final. May be called at any grain, or never before the end.
    virtual void RowsReady(int count) = 0;
    /// Whether the decoder should give up, since nobody waits for the picture any more.
    [[nodiscard]] virtual bool Cancelled() const = 0;
};

/// How a decoder ended. Decoders do not throw.
struct DecodeStatus {
    Outcome outcome = Outcome::Complete;  ///< as far as the decoder knows, see EndingOf
    std::uint64_t offset = 0;  ///< bytes from the start of the data where the trouble is; 0 when complete
    std::string_view reason;   ///< a few words for developers, e.g. "palette outside the file"
    bool someRows = false;     ///< pixels were decoded, so that there is something to show
};

/// How a picture ended: a read error goes before whatever the decoder made of it.
[[nodiscard]] inline Outcome EndingOf(const ByteSource& source, const DecodeStatus& status) {
    return source.Error() ? Outcome::Unread : status.outcome;
}

/// One format. `Recognises` looks at the first bytes of the data (up to SniffLength, fewer for a short file).
struct DecoderEntry {
    std::string_view format;
    bool (*Recognises)(std::span<const std::byte> start);
    DecodeStatus (*Decode)(ByteSource& source, PictureSink& sink);
};

inline constexpr std::size_t SniffLength = 64;

/// The picture that a decoder makes of some pixels.
[[nodiscard]] inline Picture MakePicture(const DecoderEntry& decoder, const PictureInfo& info,
                                         std::shared_ptr<const ArrivingSurface> pixels) {
    return {std::move(pixels), std::string(decoder.format), info.frames, info.transparent};
}

}  // namespace tavrix

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

/// What a decoder knows after its first step, which looks at the headers alone.
struct PictureHeader {
    PictureInfo info{};         ///< whether some pixels are transparent is not told here
    bool known = false;         ///< there seems to be a picture; otherwise `info` says nothing
    std::string_view reason{};  ///< why there is none; a few words for developers
};

/// Whoever waits for a picture.
class Cancellation {
  public:
    virtual ~Cancellation() = default;
    /// Whether a decoder should give up, since nobody waits for the picture any more.
    [[nodiscard]] virtual bool Cancelled() const = 0;
};

/// One who waits to the end.
class NeverCancelled final : public Cancellation {
  public:
    [[nodiscard]] bool Cancelled() const override { return false; }
};

/// Where a decoder puts the picture.
class PictureSink : public Cancellation {
  public:
    /// Asked once before Begin, by those decoders alone that can make a picture smaller while they decode: by which
    /// part of its sides, 1, 2, 4 or 8. Sides are rounded up; Begin is told of the smaller size.
    [[nodiscard]] virtual int Reduction(const PictureInfo& /*whole*/) { return 1; }

    /// Called at most once, when the size is known and sensible. Gives the surface to fill (all pixels 0), or null
    /// when the picture is over the limits or memory is refused; the decoder then ends with Corrupt.
    virtual Surface* Begin(const PictureInfo& info) = 0;
    /// The first `count` rows are final. May be called at any grain, or never before the end.
    virtual void RowsReady(int count) = 0;
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
    /// The first step: size and frames, without a pixel. A damaged file may turn out otherwise later.
    PictureHeader (*ReadHeader)(ByteSource& source, const Cancellation& waiting) = nullptr;
};

inline constexpr std::size_t SniffLength = 64;

/// The picture that a decoder makes of some pixels.
[[nodiscard]] inline Picture MakePicture(const DecoderEntry& decoder, const PictureInfo& info,
                                         std::shared_ptr<const ArrivingSurface> pixels) {
    return {std::move(pixels), std::string(decoder.format), info.frames, info.transparent};
}

}  // namespace tavrix

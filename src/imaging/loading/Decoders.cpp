#include <algorithm>
#include <array>

#include "base/Text.h"
#include "imaging/codecs/BmpDecoder.h"
#include "imaging/codecs/GifDecoder.h"
#include "imaging/codecs/IconDecoder.h"
#include "imaging/codecs/JpegDecoder.h"
#include "imaging/codecs/PcxDecoder.h"
#include "imaging/codecs/PngDecoder.h"
#include "imaging/codecs/TgaDecoder.h"
#include "imaging/loading/Decoders.h"
#include "imaging/metafile/MetafileDecoder.h"

namespace tavrix {
namespace {

class FirstBytes {
  public:
    explicit FirstBytes(ByteSource& source) : length_(source.ReadAt(0, bytes_)) {}

    template <class Condition>
    [[nodiscard]] const DecoderEntry* RecognisedBy(std::span<const DecoderEntry> decoders,
                                                   Condition condition) const {
        const auto start = std::span(bytes_).first(length_);
        const auto found = std::ranges::find_if(decoders, [&](const DecoderEntry& decoder) {
            return condition(decoder) && decoder.Recognises(start);
        });
        return found == decoders.end() ? nullptr : &*found;
    }

  private:
    std::array<std::byte, SniffLength> bytes_{};
    std::size_t length_;
};

}  // namespace

std::span<const DecoderEntry> Decoders() {
    static constexpr std::array<DecoderEntry, 8> Table{{
        {"jpg", RecognisesJpeg, DecodeJpeg, ReadJpegSize},
        {"bmp", RecognisesBmp, DecodeBmp, ReadBmpSize},
        {"gif", RecognisesGif, DecodeGif, ReadGifSize},
        {"png", RecognisesPng, DecodePng, ReadPngSize},
        {"ico", RecognisesIcon, DecodeIcon, ReadIconSize},
        {"cur", RecognisesCursor, DecodeIcon, ReadIconSize},
        {"emf", RecognisesEmf, DecodeEmf, ReadEmfSize},
        {"wmf", RecognisesWmf, DecodeWmf, ReadWmfSize},
    }};
    return Table;
}

const DecoderEntry* DecoderFor(ByteSource& source) {
    const FirstBytes start(source);
    return start.RecognisedBy(Decoders(), [](const DecoderEntry&) { return true; });
}

std::span<const DecoderEntry> ImportDecoders() {
    static constexpr std::array<DecoderEntry, 2> Table{{
        {"tga", RecognisesTga, DecodeTga, ReadTgaSize},
        {"pcx", RecognisesPcx, DecodePcx, ReadPcxSize},
    }};
    return Table;
}

const DecoderEntry* ImportDecoderFor(ByteSource& source, std::string_view name) {
    const auto named = [&](const DecoderEntry& decoder) {
        return EndsInIgnoringCase(name, "." + std::string(decoder.format));
    };
    if (const DecoderEntry* decoder = FirstBytes(source).RecognisedBy(ImportDecoders(), named))
        return decoder;
    return DecoderFor(source);
}

}  // namespace tavrix

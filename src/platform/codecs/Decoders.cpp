#include <array>

#include "platform/codecs/BmpDecoder.h"
#include "platform/codecs/Decoder.h"
#include "platform/codecs/GifDecoder.h"
#include "platform/codecs/IconDecoder.h"
#include "platform/codecs/JpegDecoder.h"

namespace tavrix {

std::span<const DecoderEntry> Decoders() {
    static constexpr std::array<DecoderEntry, 5> Table{{
        {"jpg", RecognisesJpeg, DecodeJpeg},
        {"bmp", RecognisesBmp, DecodeBmp},
        {"gif", RecognisesGif, DecodeGif},
        {"ico", RecognisesIcon, DecodeIcon},
        {"cur", RecognisesCursor, DecodeIcon},
    }};
    return Table;
}

const DecoderEntry* DecoderFor(ByteSource& source) {
    std::array<std::byte, SniffLength> start{};
    const std::size_t length = source.ReadAt(0, start);
    for (const DecoderEntry& decoder : Decoders()) {
        if (decoder.Recognises(std::span(start).first(length))) return &decoder;
    }
    return nullptr;
}

}  // namespace tavrix

#include "LimitedSink.h"
#include "imaging/codecs/GifDecoder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return tavrix::fuzz::Decode(tavrix::DecodeGif, data, size);
}

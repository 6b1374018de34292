#include "LimitedSink.h"
#include "imaging/codecs/BmpDecoder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return tavrix::fuzz::Decode(tavrix::DecodeBmp, data, size);
}

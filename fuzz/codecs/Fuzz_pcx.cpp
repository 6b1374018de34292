#include "LimitedSink.h"
#include "imaging/codecs/PcxDecoder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return tavrix::fuzz::Decode(tavrix::DecodePcx, data, size);
}

#include "LimitedSink.h"
#include "platform/codecs/IconDecoder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return tavrix::fuzz::Decode(tavrix::DecodeIcon, data, size);
}

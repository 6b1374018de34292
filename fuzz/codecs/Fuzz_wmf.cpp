#include "LimitedSink.h"
#include "imaging/metafile/MetafileDecoder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // Each record may touch the whole picture.
    return tavrix::fuzz::Decode(tavrix::DecodeWmf, data, size, 1LL << 15U);
}

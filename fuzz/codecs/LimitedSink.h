#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

#include "imaging/codecs/Decoder.h"

namespace tavrix::fuzz {

/// Takes small pictures alone, so that an input costs milliseconds. Ends the process when a decoder breaks its promises.
class LimitedSink final : public PictureSink {
  public:
    explicit LimitedSink(std::int64_t mostPixels) : mostPixels_(mostPixels) {}

    Surface* Begin(const PictureInfo& info) override {
        if (begun_ || info.width <= 0 || info.height <= 0) std::abort();
        begun_ = true;
        if (std::int64_t{info.width} * info.height > mostPixels_) return nullptr;
        surface_ = Surface(info.width, info.height);
        return &surface_;
    }
    void RowsReady(int count) override {
        if (count < rows_ || count > surface_.Height()) std::abort();
        rows_ = count;
    }
    [[nodiscard]] bool Cancelled() const override { return false; }

    void Check(const DecodeStatus& status, std::size_t size) const {
        if (status.outcome == Outcome::Complete && (surface_.Empty() || !status.someRows)) std::abort();
        if (status.offset > size) std::abort();
    }

  private:
    std::int64_t mostPixels_;
    Surface surface_;
    bool begun_ = false;
    int rows_ = 0;
};

inline int Decode(DecodeStatus (*decode)(ByteSource&, PictureSink&), const std::uint8_t* data,
                  std::size_t size, std::int64_t mostPixels = 4LL << 20U) {
    MemorySource source(std::as_bytes(std::span(data, size)));
    LimitedSink sink(mostPixels);
    sink.Check(decode(source, sink), size);
    return 0;
}

}  // namespace tavrix::fuzz

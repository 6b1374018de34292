#pragma once

#include "platform/codecs/ByteSource.h"

namespace tavrix {

/// A source from some offset on, for a file inside a file.
class SourcePart final : public ByteSource {
  public:
    SourcePart(ByteSource& whole, std::uint64_t start)
        : whole_(whole), start_(std::min(start, whole.Size())) {}

    [[nodiscard]] std::uint64_t Size() const override { return whole_.Size() - start_; }
    std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> into) override {
        return offset < Size() ? whole_.ReadAt(start_ + offset, into) : 0;
    }

  private:
    ByteSource& whole_;
    std::uint64_t start_;
};

}  // namespace tavrix

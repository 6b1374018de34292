#pragma once

#include <limits>

#include "imaging/codecs/ByteSource.h"

namespace tavrix {

/// A source from some offset on, as far as a length goes, for a file inside a file.
class SourcePart final : public ByteSource {
  public:
    SourcePart(ByteSource& whole, std::uint64_t start,
               std::uint64_t length = std::numeric_limits<std::uint64_t>::max())
        : whole_(whole),
          start_(std::min(start, whole.Size())),
          length_(std::min(length, whole.Size() - start_)) {}

    [[nodiscard]] std::uint64_t Size() const override { return length_; }
    std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> into) override {
        if (offset >= length_) return 0;
        const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(into.size(), length_ - offset));
        return whole_.ReadAt(start_ + offset, into.first(count));
    }
    [[nodiscard]] std::optional<ErrorNumber> Error() const override { return whole_.Error(); }

  private:
    ByteSource& whole_;
    std::uint64_t start_;
    std::uint64_t length_;
};

}  // namespace tavrix

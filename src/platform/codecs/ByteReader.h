#pragma once

#include <array>
#include <optional>

#include "platform/codecs/ByteSource.h"

namespace tavrix {

/// Takes a source byte by byte from some offset on.
class ByteReader {
  public:
    ByteReader(ByteSource& source, std::uint64_t offset) : source_(source), next_(offset) {}

    /// The next byte; nothing at the end of the data.
    [[nodiscard]] std::optional<unsigned> Next() {
        if (at_ == filled_ && !Fill()) return std::nullopt;
        return std::to_integer<unsigned>(buffer_[at_++]);
    }
    /// Bytes from the start of the data to the next byte.
    [[nodiscard]] std::uint64_t Offset() const { return next_ - (filled_ - at_); }

  private:
    bool Fill() {
        filled_ = source_.ReadAt(next_, buffer_);
        next_ += filled_;
        at_ = 0;
        return filled_ != 0;
    }

    ByteSource& source_;
    std::uint64_t next_;
    std::size_t at_ = 0;
    std::size_t filled_ = 0;
    std::array<std::byte, 16384> buffer_{};
};

}  // namespace tavrix

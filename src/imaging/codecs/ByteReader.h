#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>

#include "imaging/codecs/ByteSource.h"

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
    /// The next bytes as far as they have been read from the source already, possibly none.
    [[nodiscard]] std::span<const std::byte> Buffered() const {
        return std::span(buffer_).subspan(at_, filled_ - at_);
    }
    /// Goes past `count` of the buffered bytes.
    void Take(std::size_t count) { at_ += count; }
    /// Copies as many of the next bytes as there are, and gives how many.
    std::size_t Read(std::span<std::byte> into) {
        std::size_t copied = 0;
        while (copied < into.size() && (at_ != filled_ || Fill())) {
            const std::size_t count = std::min(into.size() - copied, filled_ - at_);
            std::copy_n(buffer_.begin() + static_cast<std::ptrdiff_t>(at_), count,
                        into.begin() + static_cast<std::ptrdiff_t>(copied));
            at_ += count;
            copied += count;
        }
        return copied;
    }
    /// Passes over bytes; the end of the data stops it.
    void Skip(std::uint64_t count) {
        const std::uint64_t inBuffer = std::min<std::uint64_t>(count, filled_ - at_);
        at_ += static_cast<std::size_t>(inBuffer);
        const std::uint64_t behind = source_.Size() > next_ ? source_.Size() - next_ : 0;
        next_ += std::min(count - inBuffer, behind);
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

#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <span>

#include "base/RuntimeError.h"

namespace tavrix {

/// Where a decoder takes its bytes from: a file or a piece of memory. Decoders ask for what they need and are
/// told how much of it there is; they never hold the whole file.
class ByteSource {
  public:
    virtual ~ByteSource() = default;

    /// Length in bytes.
    [[nodiscard]] virtual std::uint64_t Size() const = 0;
    /// Copies up to into.size() bytes from `offset` on and gives how many there were. Fewer only at the end of
    /// the data or after a read error, which Error tells from the end.
    virtual std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> into) = 0;
    /// The first error that a ReadAt has met so far: whatever is made of the bytes since then is not all of the data.
    [[nodiscard]] virtual std::optional<ErrorNumber> Error() const { return std::nullopt; }
};

/// Bytes in memory, which must outlive the source.
class MemorySource final : public ByteSource {
  public:
    explicit MemorySource(std::span<const std::byte> bytes) : bytes_(bytes) {}

    [[nodiscard]] std::uint64_t Size() const override { return bytes_.size(); }
    std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> into) override {
        if (offset >= bytes_.size()) return 0;
        const std::size_t count = std::min(into.size(), bytes_.size() - static_cast<std::size_t>(offset));
        if (count != 0) std::memcpy(into.data(), bytes_.data() + offset, count);
        return count;
    }

  private:
    std::span<const std::byte> bytes_;
};

}  // namespace tavrix

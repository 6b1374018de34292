#pragma once

#include <utility>
#include <vector>

#include "imaging/codecs/ByteSource.h"

namespace tavrix::test {

/// A source that owns its bytes.
class KeptBytes final : public ByteSource {
  public:
    explicit KeptBytes(std::vector<std::byte> bytes) : bytes_(std::move(bytes)) {}

    [[nodiscard]] std::uint64_t Size() const override { return bytes_.size(); }
    std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> into) override {
        return MemorySource(bytes_).ReadAt(offset, into);
    }

    /// From now on there are no bytes.
    void Drop() { bytes_.clear(); }

  private:
    std::vector<std::byte> bytes_;
};

}  // namespace tavrix::test

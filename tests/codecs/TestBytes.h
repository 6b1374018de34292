#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string_view>
#include <vector>

namespace tavrix::test {

/// Bytes put together by hand.
class Bytes {
  public:
    Bytes& U8(std::initializer_list<unsigned> values) {
        for (const unsigned value : values)
            bytes_.push_back(static_cast<std::byte>(value));
        return *this;
    }
    Bytes& U16(std::uint32_t value) { return U8({value & 0xFFU, (value >> 8U) & 0xFFU}); }
    Bytes& U32(std::uint32_t value) { return U16(value & 0xFFFFU).U16(value >> 16U); }
    Bytes& I32(std::int32_t value) { return U32(static_cast<std::uint32_t>(value)); }
    Bytes& Text(std::string_view text) {
        for (const char character : text)
            bytes_.push_back(static_cast<std::byte>(character));
        return *this;
    }
    Bytes& Zeros(std::size_t count) {
        bytes_.insert(bytes_.end(), count, std::byte{0});
        return *this;
    }
    Bytes& Append(std::span<const std::byte> more) {
        bytes_.insert(bytes_.end(), more.begin(), more.end());
        return *this;
    }
    [[nodiscard]] std::size_t Size() const { return bytes_.size(); }
    [[nodiscard]] const std::vector<std::byte>& Get() const { return bytes_; }

  private:
    std::vector<std::byte> bytes_;
};

}  // namespace tavrix::test

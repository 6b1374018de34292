#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>

#include "imaging/codecs/LittleEndian.h"
#include "imaging/metafile/Values.h"

namespace tavrix::metafile {

/// The bytes of one record. What is asked for outside of them is 0 and makes the record broken for good.
class RecordBytes {
  public:
    /// `offset`: of the record in the file. `length`: of the record; only its first bytes may be at hand.
    RecordBytes(std::span<const std::byte> bytes, std::uint64_t offset, std::uint64_t length)
        : bytes_(bytes), offset_(offset), length_(length) {}

    [[nodiscard]] std::uint64_t Length() const { return length_; }
    [[nodiscard]] std::uint64_t Offset() const { return offset_; }
    [[nodiscard]] bool Broken() const { return broken_; }
    void Break() { broken_ = true; }

    [[nodiscard]] std::uint8_t U8(std::uint64_t at) {
        return Has(at, 1) ? std::to_integer<std::uint8_t>(bytes_[at]) : std::uint8_t{0};
    }
    [[nodiscard]] std::uint16_t U16(std::uint64_t at) {
        return Has(at, 2) ? tavrix::U16(bytes_, at) : std::uint16_t{0};
    }
    [[nodiscard]] std::uint32_t U32(std::uint64_t at) { return Has(at, 4) ? tavrix::U32(bytes_, at) : 0U; }
    [[nodiscard]] std::int16_t I16(std::uint64_t at) { return static_cast<std::int16_t>(U16(at)); }
    [[nodiscard]] std::int32_t I32(std::uint64_t at) { return static_cast<std::int32_t>(U32(at)); }
    [[nodiscard]] float F32(std::uint64_t at) { return std::bit_cast<float>(U32(at)); }

    [[nodiscard]] Point P16(std::uint64_t at) { return {I16(at), I16(at + 2)}; }
    [[nodiscard]] Point P32(std::uint64_t at) { return {I32(at), I32(at + 4)}; }
    [[nodiscard]] Box Box32(std::uint64_t at) { return {I32(at), I32(at + 4), I32(at + 8), I32(at + 12)}; }
    [[nodiscard]] Transform Matrix(std::uint64_t at) {
        return {F32(at), F32(at + 4), F32(at + 8), F32(at + 12), F32(at + 16), F32(at + 20)};
    }

    /// Whether `count` things of `size` bytes stand at `at`; otherwise the record is broken.
    bool Holds(std::uint64_t at, std::uint64_t count, std::uint64_t size) {
        if (count > bytes_.size()) broken_ = true;
        return !broken_ && Has(at, count * size);
    }
    /// The bytes at a place, none where they are not in the record.
    [[nodiscard]] std::span<const std::byte> Span(std::uint64_t at, std::uint64_t count) {
        if (!Has(at, count)) return {};
        return bytes_.subspan(static_cast<std::size_t>(at), static_cast<std::size_t>(count));
    }

  private:
    [[nodiscard]] bool Has(std::uint64_t at, std::uint64_t count) {
        const bool has = at <= bytes_.size() && count <= bytes_.size() - at;
        if (!has) broken_ = true;
        return has;
    }

    std::span<const std::byte> bytes_;
    std::uint64_t offset_;
    std::uint64_t length_;
    bool broken_ = false;
};

}  // namespace tavrix::metafile

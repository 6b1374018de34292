#include "imaging/codecs/Exif.h"

#include <array>
#include <string_view>
#include <vector>

namespace tavrix {
namespace {

/// A file may hold any number of segments; the Exif one comes among the first.
constexpr int SegmentsToSearch = 200;
constexpr std::string_view ExifSignature{"Exif\0\0", 6};

/// A TIFF block: integers in the byte order that its start tells, 0 outside the block.
class TiffBlock {
  public:
    explicit TiffBlock(std::span<const std::byte> bytes) : bytes_(bytes) {
        bigEndian_ = !bytes.empty() && bytes[0] == std::byte{'M'};
    }

    [[nodiscard]] unsigned Number(std::size_t at, std::size_t count) const {
        if (at > bytes_.size() || count > bytes_.size() - at) return 0;
        unsigned value = 0;
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t from = bigEndian_ ? at + i : at + count - 1 - i;
            value = (value << 8U) | std::to_integer<unsigned>(bytes_[from]);
        }
        return value;
    }

  private:
    std::span<const std::byte> bytes_;
    bool bigEndian_ = false;
};

/// Bytes of one number of an integer type; 0 for any other.
std::size_t SizeOfInteger(unsigned type) {
    switch (type) {
        case 1:  // unsigned, then signed
        case 6:
            return 1;
        case 3:
        case 8:
            return 2;
        case 4:
        case 9:
            return 4;
        default:
            return 0;
    }
}

Orientation OrientationOf(std::span<const std::byte> bytes) {
    constexpr unsigned OrientationTag = 0x0112;
    constexpr std::size_t EntrySize = 12;

    const TiffBlock tiff(bytes);
    if (tiff.Number(2, 2) != 42) return Orientation::TopLeft;
    const std::size_t directory = tiff.Number(4, 4);
    const unsigned entries = tiff.Number(directory, 2);
    for (unsigned i = 0; i < entries; ++i) {
        const std::size_t entry = directory + 2 + i * EntrySize;
        if (entry >= bytes.size()) break;
        if (tiff.Number(entry, 2) != OrientationTag) continue;
        const unsigned value = tiff.Number(entry + 8, SizeOfInteger(tiff.Number(entry + 2, 2)));
        if (value >= 1 && value <= 8) return static_cast<Orientation>(value);
        break;
    }
    return Orientation::TopLeft;
}

}  // namespace

Orientation JpegOrientation(ByteSource& source) {
    constexpr unsigned App1 = 0xE1;
    constexpr unsigned StartOfScan = 0xDA;

    std::uint64_t at = 2;
    for (int i = 0; i < SegmentsToSearch; ++i) {
        std::array<std::byte, 10> head{};
        const std::size_t got = source.ReadAt(at, head);
        const auto byte = [&](std::size_t index) { return std::to_integer<unsigned>(head[index]); };
        if (got < 4 || byte(0) != 0xFF) break;
        if (byte(1) == 0xFF) {  // a fill byte
            ++at;
            continue;
        }
        const unsigned length = (byte(2) << 8U) | byte(3);
        if (byte(1) == StartOfScan || length < 2) break;
        const std::string_view signature(reinterpret_cast<const char*>(&head[4]), ExifSignature.size());
        if (byte(1) == App1 && length > head.size() - 2 && got == head.size() && signature == ExifSignature) {
            std::vector<std::byte> block(length - (head.size() - 2));
            block.resize(source.ReadAt(at + head.size(), block));
            return OrientationOf(block);
        }
        at += 2 + length;
    }
    return Orientation::TopLeft;
}

}  // namespace tavrix

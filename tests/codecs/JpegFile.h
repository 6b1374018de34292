#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tavrix::test {

/// A JPEG file to be made by the library's own encoder.
struct JpegFile {
    int width = 16;
    int height = 16;
    int components = 3;               ///< 1 grey, 3 RGB, 4 CMYK
    std::vector<std::uint8_t> parts;  ///< components x width x height
    int quality = 100;
    bool subsampled = false;
    bool progressive = false;
    bool arithmetic = false;
    bool ycck = false;      ///< stores four parts as YCCK
    int restartBlocks = 0;  ///< a restart marker after so many blocks
    unsigned exif = 0;      ///< an Orientation tag with this value; 0: none
    bool exifBigEndian = true;
    unsigned exifType = 3;  ///< of the tag: 1 and 6 bytes, 3 and 8 short, 4 and 9 long numbers
    bool adobe = true;      ///< four parts only: the marker that says that the ink is inverted

    [[nodiscard]] std::vector<std::byte> Make() const;
};

/// Eight by eight blocks, each of one colour: `block(column, row)` gives the parts of one.
template <class Block>
JpegFile BlockPicture(int columns, int rows, Block&& block) {
    JpegFile file;
    file.width = 8 * columns;
    file.height = 8 * rows;
    for (int y = 0; y < file.height; ++y) {
        for (int x = 0; x < file.width; ++x) {
            for (const auto part : block(x / 8, y / 8))
                file.parts.push_back(static_cast<std::uint8_t>(part));
        }
    }
    return file;
}

}  // namespace tavrix::test

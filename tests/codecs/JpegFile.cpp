#include "codecs/JpegFile.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <span>

#include <jpeglib.h>

namespace tavrix::test {
namespace {

std::vector<JOCTET> ExifSegment(unsigned orientation, bool bigEndian, unsigned type) {
    std::vector<JOCTET> bytes{'E', 'x', 'i', 'f', 0, 0};
    const auto number = [&](unsigned value, unsigned count) {
        for (unsigned i = 0; i < count; ++i) {
            bytes.push_back(static_cast<JOCTET>(value >> (8 * (bigEndian ? count - 1 - i : i))));
        }
    };
    bytes.insert(bytes.end(), 2, bigEndian ? 'M' : 'I');
    number(42, 2);
    number(8, 4);  // the first directory
    number(2, 2);  // two entries
    number(0x0110, 2), number(2, 2), number(3, 4), number(0x41424300, 4);
    const unsigned size = type == 4 || type == 9 ? 4 : type == 3 || type == 8 ? 2 : 1;
    number(0x0112, 2), number(type, 2), number(1, 4), number(orientation, size), number(0, 4 - size);
    number(0, 4);
    return bytes;
}

}  // namespace

std::vector<std::byte> JpegFile::Make() const {
    jpeg_compress_struct info{};
    jpeg_error_mgr errors{};
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    unsigned char* out = nullptr;
    unsigned long length = 0;
    jpeg_mem_dest(&info, &out, &length);

    info.image_width = static_cast<JDIMENSION>(width);
    info.image_height = static_cast<JDIMENSION>(height);
    info.input_components = components;
    info.in_color_space = components == 1 ? JCS_GRAYSCALE : components == 3 ? JCS_RGB : JCS_CMYK;
    jpeg_set_defaults(&info);
    if (components == 4) jpeg_set_colorspace(&info, ycck ? JCS_YCCK : JCS_CMYK);
    if (components == 4 && !adobe) info.write_Adobe_marker = FALSE;
    jpeg_set_quality(&info, quality, TRUE);
    if (!subsampled) {
        for (int i = 0; i < info.num_components; ++i) {
            info.comp_info[i].h_samp_factor = 1;
            info.comp_info[i].v_samp_factor = 1;
        }
    }
    if (progressive) jpeg_simple_progression(&info);
    info.arith_code = arithmetic ? TRUE : FALSE;
    info.restart_interval = static_cast<unsigned>(restartBlocks);
    jpeg_start_compress(&info, TRUE);
    if (exif != 0) {
        const auto segment = ExifSegment(exif, exifBigEndian, exifType);
        jpeg_write_marker(&info, JPEG_APP0 + 1, segment.data(), static_cast<unsigned>(segment.size()));
    }
    std::vector<JSAMPLE> row(static_cast<std::size_t>(width) * static_cast<std::size_t>(components));
    while (info.next_scanline < info.image_height) {
        std::copy_n(parts.begin() + static_cast<std::ptrdiff_t>(info.next_scanline * row.size()), row.size(),
                    row.begin());
        JSAMPROW pointer = row.data();
        jpeg_write_scanlines(&info, &pointer, 1);
    }
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    const auto bytes = std::as_bytes(std::span(out, length));
    std::vector<std::byte> file(bytes.begin(), bytes.end());
    std::free(out);
    return file;
}

}  // namespace tavrix::test

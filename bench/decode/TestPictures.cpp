#include "TestPictures.h"

#include <unistd.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <memory>
#include <stdexcept>

#include <jpeglib.h>

#include "imaging/codecs/BmpWriter.h"

namespace tavrix::bench {
namespace {

/// Slow waves, and the fine noise of a camera.
Surface Photo() {
    Surface surface(TestPictures::Width, TestPictures::Height);
    unsigned noise = 1;
    for (int y = 0; y < surface.Height(); ++y) {
        const auto row = surface.Row(y);
        for (int x = 0; x < surface.Width(); ++x) {
            noise = noise * 1664525U + 1013904223U;
            const double grain = static_cast<double>(noise >> 24U) / 32.0;
            const auto wave = [&](double across, double down) {
                return static_cast<unsigned>(120 + 100 * std::sin(x / across) * std::cos(y / down) + grain);
            };
            row[static_cast<std::size_t>(x)] = OpaquePixel(wave(90, 70), wave(31, 57), wave(17, 200));
        }
    }
    return surface;
}

void WriteJpeg(const Surface& surface, const std::string& path, bool progressive, unsigned orientation) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "wb"), std::fclose);
    if (!file) throw std::runtime_error(path + ": cannot be written");
    jpeg_compress_struct info{};
    jpeg_error_mgr errors{};
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    jpeg_stdio_dest(&info, file.get());
    info.image_width = TestPictures::Width;
    info.image_height = TestPictures::Height;
    info.input_components = 4;
    info.in_color_space = JCS_EXT_BGRX;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, 92, TRUE);
    if (progressive) jpeg_simple_progression(&info);
    jpeg_start_compress(&info, TRUE);
    if (orientation != 1) {
        const std::array<JOCTET, 32> exif{
            'E', 'x', 'i', 'f',  0,    0, 'M', 'M', 0, 42, 0, 0, 0,
            8,   0,   1,   0x01, 0x12, 0, 3,   0,   0, 0,  1, 0, static_cast<JOCTET>(orientation),
            0,   0,   0,   0,    0,    0};
        jpeg_write_marker(&info, JPEG_APP0 + 1, exif.data(), exif.size());
    }
    while (info.next_scanline < info.image_height) {
        const auto row = surface.Row(static_cast<int>(info.next_scanline));
        auto* pointer = reinterpret_cast<JSAMPROW>(const_cast<Pixel*>(row.data()));
        jpeg_write_scanlines(&info, &pointer, 1);
    }
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
}

}  // namespace

TestPictures::TestPictures()
    : folder_(std::filesystem::temp_directory_path() / ("bench_decode." + std::to_string(getpid()))) {
    std::filesystem::create_directories(folder_);
    const Surface photo = Photo();
    WriteJpeg(photo, Jpeg(), false, 1);
    WriteJpeg(photo, Progressive(), true, 1);
    WriteJpeg(photo, Turned(), false, 6);
    std::ofstream bitmap(Bitmap(), std::ios::binary);
    WriteBmp(photo, [&](std::span<const std::byte> bytes) {
        bitmap.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    });
}

TestPictures::~TestPictures() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

}  // namespace tavrix::bench

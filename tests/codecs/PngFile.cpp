#include "codecs/PngFile.h"

#include <png.h>

#include <span>

namespace tavrix::test {
namespace {

void Append(png_structp png, png_bytep bytes, std::size_t count) {
    auto& file = *static_cast<std::vector<std::byte>*>(png_get_io_ptr(png));
    const auto more = std::as_bytes(std::span(bytes, count));
    file.insert(file.end(), more.begin(), more.end());
}

}  // namespace

std::vector<std::byte> PngFile::Make() const {
    std::vector<std::byte> file;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_set_write_fn(png, &file, Append, nullptr);
    png_set_IHDR(png, info, static_cast<png_uint_32>(width), static_cast<png_uint_32>(height), depth,
                 colourType, interlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    std::vector<png_color> colours;
    for (const Pixel colour : palette) {
        colours.push_back({static_cast<png_byte>(colour >> 16U), static_cast<png_byte>(colour >> 8U),
                           static_cast<png_byte>(colour)});
    }
    if (!colours.empty()) png_set_PLTE(png, info, colours.data(), static_cast<int>(colours.size()));
    if (!alpha.empty()) png_set_tRNS(png, info, alpha.data(), static_cast<int>(alpha.size()), nullptr);
    if (gamma) png_set_gAMA(png, info, 1.0);
    png_write_info(png, info);
    const std::size_t stride = rows.size() / static_cast<std::size_t>(height);
    std::vector<png_bytep> pointers;
    for (int y = 0; y < height; ++y)
        pointers.push_back(const_cast<png_bytep>(&rows[static_cast<std::size_t>(y) * stride]));
    png_write_image(png, pointers.data());
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    return file;
}

}  // namespace tavrix::test

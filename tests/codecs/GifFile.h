#pragma once

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

#include "codecs/TestBytes.h"
#include "imaging/graphics/Colour.h"

namespace tavrix::test {

/// Codes of growing width, the lowest bit first, cut into blocks.
class GifCodes {
  public:
    GifCodes& Put(unsigned code, unsigned bits) {
        held_ |= code << count_;
        for (count_ += bits; count_ >= 8; count_ -= 8, held_ >>= 8U)
            bytes_.U8({held_ & 0xFFU});
        return *this;
    }
    /// The blocks, with the empty one that ends them.
    [[nodiscard]] Bytes Blocks() const {
        Bytes all = bytes_;
        if (count_ != 0) all.U8({held_ & 0xFFU});
        Bytes blocks;
        for (std::size_t at = 0; at < all.Size(); at += 255) {
            const std::size_t length = std::min<std::size_t>(255, all.Size() - at);
            blocks.U8({static_cast<unsigned>(length)}).Append(std::span(all.Get()).subspan(at, length));
        }
        return blocks.U8({0});
    }

  private:
    Bytes bytes_;
    unsigned held_ = 0;
    unsigned count_ = 0;
};

/// One image of a GIF file; everything can lie.
struct GifImage {
    int left = 0;
    int top = 0;
    int width = 2;
    int height = 2;
    std::vector<unsigned> pixels{};  ///< indexes in the order of the file
    bool interlaced = false;
    std::vector<Pixel> table{};  ///< 2, 4, 8, ... colours
    bool control = true;
    std::optional<unsigned> transparent{};
    unsigned codeSize = 8;
    std::optional<Bytes> data{};  ///< in place of the pixels
    unsigned disposal = 0;
    unsigned delay = 10;  ///< hundredths of a second

    [[nodiscard]] Bytes Data() const {
        if (data) return *data;
        const unsigned clear = 1U << codeSize;
        GifCodes codes;
        for (std::size_t i = 0; i < pixels.size(); ++i) {
            // So often that no code ever becomes wider.
            if (i % (clear - 2) == 0) codes.Put(clear, codeSize + 1);
            codes.Put(pixels[i], codeSize + 1);
        }
        return codes.Put(clear + 1, codeSize + 1).Blocks();
    }
};

/// The extension that tells how often the images are repeated; 0: for ever.
[[nodiscard]] inline Bytes GifRepetitions(unsigned count, std::string_view application = "NETSCAPE2.0") {
    return Bytes().U8({0x21, 0xFF, 11}).Text(application).U8({3, 1}).U16(count).U8({0});
}

/// A GIF file to be put together by hand.
struct GifFile {
    int width = 2;
    int height = 2;
    std::vector<Pixel> table{};  ///< 2, 4, 8, ... colours
    std::vector<GifImage> images{};
    std::string_view version = "GIF89a";
    Bytes before{};   ///< the first image
    Bytes between{};  ///< two images
    bool trailer = true;

    [[nodiscard]] std::vector<std::byte> Make() const {
        Bytes file;
        file.Text(version).U16(static_cast<unsigned>(width)).U16(static_cast<unsigned>(height));
        file.U8({TableFlags(table), 0, 0});
        PutTable(file, table);
        file.Append(before.Get());
        for (const GifImage& image : images) {
            if (&image != images.data()) file.Append(between.Get());
            if (image.control) {
                file.U8({0x21, 0xF9, 4, (image.transparent ? 1U : 0U) | image.disposal << 2U});
                file.U16(image.delay).U8({image.transparent.value_or(0), 0});
            }
            file.U8({0x2C}).U16(static_cast<unsigned>(image.left)).U16(static_cast<unsigned>(image.top));
            file.U16(static_cast<unsigned>(image.width)).U16(static_cast<unsigned>(image.height));
            file.U8({TableFlags(image.table) | (image.interlaced ? 0x40U : 0U)});
            PutTable(file, image.table);
            file.U8({image.codeSize}).Append(image.Data().Get());
        }
        if (trailer) file.U8({0x3B});
        return file.Get();
    }

  private:
    static unsigned TableFlags(const std::vector<Pixel>& colours) {
        unsigned bits = 0;
        while ((std::size_t{2} << bits) < colours.size())
            ++bits;
        return colours.empty() ? 0U : 0x80U | bits;
    }
    static void PutTable(Bytes& file, const std::vector<Pixel>& colours) {
        for (const Pixel colour : colours)
            file.U8({(colour >> 16U) & 0xFFU, (colour >> 8U) & 0xFFU, colour & 0xFFU});
    }
};

}  // namespace tavrix::test

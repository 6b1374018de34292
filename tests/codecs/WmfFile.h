#pragma once

#include <initializer_list>
#include <optional>
#include <utility>
#include <vector>

#include "codecs/TestBytes.h"

namespace tavrix::test {

/// A Windows metafile to be put together by hand; everything can lie. Coordinates are in the order of the format: the
/// last parameter of the call first.
class WmfFile {
  public:
    struct Placeable {
        int left = 0;
        int top = 0;
        int right = 16;
        int bottom = 16;
        unsigned unitsPerInch = 96;
    };

    WmfFile() : WmfFile(Placeable{}) {}
    explicit WmfFile(std::optional<Placeable> placeable) : placeable_(placeable) {}

    /// A record of words; numbers below 0 as they are in 16 bits.
    WmfFile& Record(unsigned function, std::initializer_list<int> words) {
        Bytes body;
        for (const int word : words)
            body.U16(static_cast<std::uint32_t>(word) & 0xFFFFU);
        return Record(function, body);
    }
    /// A record of bytes, filled up to whole words.
    WmfFile& Record(unsigned function, Bytes body) {
        if (body.Size() % 2 != 0) body.Zeros(1);
        return Sized(static_cast<std::uint32_t>(3 + body.Size() / 2), function, body);
    }
    /// A record whose length is told as it likes.
    WmfFile& Sized(std::uint32_t words, unsigned function, const Bytes& body = {}) {
        records_.U32(words).U16(function).Append(body.Get());
        return *this;
    }

    WmfFile& Window(int left, int top, int width, int height) {
        return Record(0x020B, {top, left}).Record(0x020C, {height, width});
    }
    /// 0x00BBGGRR
    WmfFile& Pen(unsigned style, int width, std::uint32_t colour) {
        return Record(0x02FA, Bytes().U16(style).U16(static_cast<std::uint32_t>(width)).U16(0).U32(colour));
    }
    WmfFile& Brush(unsigned style, std::uint32_t colour, unsigned hatch = 0) {
        return Record(0x02FC, Bytes().U16(style).U32(colour).U16(hatch));
    }
    WmfFile& Select(int place) { return Record(0x012D, {place}); }
    WmfFile& Delete(int place) { return Record(0x01F0, {place}); }
    WmfFile& Rectangle(int left, int top, int right, int bottom) {
        return Record(0x041B, {bottom, right, top, left});
    }
    WmfFile& Polygon(std::initializer_list<int> coordinates) {
        Bytes body;
        body.U16(static_cast<std::uint32_t>(coordinates.size() / 2));
        for (const int coordinate : coordinates)
            body.U16(static_cast<std::uint32_t>(coordinate) & 0xFFFFU);
        return Record(0x0324, body);
    }
    /// A box of one colour, without a border.
    WmfFile& Fill(int left, int top, int right, int bottom, std::uint32_t colour) {
        return Record(0x0201, Bytes().U32(colour)).Record(0x0A32, {0, 0, 0, 2, left, top, right, bottom});
    }

    /// With the end record.
    [[nodiscard]] std::vector<std::byte> Make() const {
        std::vector<std::byte> file = MakeOpen();
        const Bytes end = Bytes().U32(3).U16(0);
        file.insert(file.end(), end.Get().begin(), end.Get().end());
        return file;
    }
    /// Without the end record.
    [[nodiscard]] std::vector<std::byte> MakeOpen() const {
        Bytes file;
        if (placeable_) {
            const auto word = [&](int value) { file.U16(static_cast<std::uint32_t>(value) & 0xFFFFU); };
            file.U32(0x9AC6CDD7U).U16(0);
            word(placeable_->left);
            word(placeable_->top);
            word(placeable_->right);
            word(placeable_->bottom);
            file.U16(placeable_->unitsPerInch).U32(0).U16(0);
        }
        file.U16(1).U16(9).U16(0x0300).U32(static_cast<std::uint32_t>((records_.Size() + 24) / 2));
        file.U16(16).U32(0xFFFF).U16(0).Append(records_.Get());
        return file.Get();
    }

  private:
    std::optional<Placeable> placeable_;
    Bytes records_;
};

}  // namespace tavrix::test

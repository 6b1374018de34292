#pragma once

#include <bit>
#include <initializer_list>
#include <vector>

#include "codecs/TestBytes.h"

namespace tavrix::test {

/// An enhanced metafile to be put together by hand; everything can lie. Its device has 96 dots an inch, so that without
/// another map a unit is a pixel of the picture.
class EmfFile {
  public:
    struct Header {
        int width = 16;  ///< pixels of the device
        int height = 16;
        bool framed =
            false;  ///< the size is told as a frame and not as bounds; no whole number of its units is a pixel
    };

    EmfFile() : EmfFile(Header{}) {}
    explicit EmfFile(const Header& header) : header_(header) {}

    EmfFile& Record(unsigned type, const Bytes& body) {
        return Sized(type, static_cast<std::uint32_t>(8 + (body.Size() + 3) / 4 * 4), body);
    }
    EmfFile& Record(unsigned type, std::initializer_list<int> longs) {
        Bytes body;
        for (const int value : longs)
            body.I32(value);
        return Record(type, body);
    }
    EmfFile& Record(unsigned type) { return Record(type, Bytes()); }
    /// A record whose length is told as it likes.
    EmfFile& Sized(unsigned type, std::uint32_t length, const Bytes& body) {
        records_.U32(type).U32(length).Append(body.Get()).Zeros((4 - body.Size() % 4) % 4);
        return *this;
    }

    /// Where the next record will start in the file.
    [[nodiscard]] std::size_t Size() const { return 88 + records_.Size(); }

    /// 0x00BBGGRR
    EmfFile& Pen(int place, int style, int width, std::uint32_t colour) {
        return Record(38, Bytes().I32(place).I32(style).I32(width).I32(0).U32(colour)).Select(place);
    }
    EmfFile& Brush(int place, int style, std::uint32_t colour, int hatch = 0) {
        return Record(39, Bytes().I32(place).I32(style).U32(colour).I32(hatch)).Select(place);
    }
    EmfFile& Select(int place) { return Record(37, {place}); }
    /// The objects that every device has: 0 white, 4 black, 5 no brush; 6 white, 7 black, 8 no pen.
    EmfFile& Stock(unsigned which) { return Record(37, Bytes().U32(0x80000000U | which)); }
    EmfFile& Rectangle(int left, int top, int right, int bottom) {
        return Record(43, {left, top, right, bottom});
    }
    /// A box of one colour, without a border.
    EmfFile& Fill(int left, int top, int right, int bottom, std::uint32_t colour) {
        return Stock(8).Brush(15, 0, colour).Polygon({left, top, right, top, right, bottom, left, bottom});
    }
    EmfFile& Polygon(std::initializer_list<int> coordinates) { return Poly(3, coordinates); }
    EmfFile& Poly(unsigned type, std::initializer_list<int> coordinates) {
        Bytes body = Bounds();
        body.U32(static_cast<std::uint32_t>(coordinates.size() / 2));
        for (const int coordinate : coordinates)
            body.I32(coordinate);
        return Record(type, body);
    }
    /// The bounds that many records start with, of no meaning for drawing.
    [[nodiscard]] static Bytes Bounds() { return Bytes().I32(0).I32(0).I32(-1).I32(-1); }
    [[nodiscard]] static std::uint32_t Float(float value) { return std::bit_cast<std::uint32_t>(value); }

    /// With the end record.
    [[nodiscard]] std::vector<std::byte> Make() const {
        std::vector<std::byte> file = MakeOpen();
        const Bytes end = Bytes().U32(14).U32(20).U32(0).U32(16).U32(20);
        file.insert(file.end(), end.Get().begin(), end.Get().end());
        return file;
    }
    /// Without the end record.
    [[nodiscard]] std::vector<std::byte> MakeOpen() const {
        const auto frame = [&](int pixels) { return header_.framed ? pixels * 2540 / 96 : 0; };
        Bytes file;
        file.U32(1).U32(88).I32(0).I32(0).I32(header_.width - 1).I32(header_.height - 1);
        file.I32(0).I32(0).I32(frame(header_.width)).I32(frame(header_.height));
        file.U32(0x464D4520U).U32(0x10000U).U32(static_cast<std::uint32_t>(88 + records_.Size() + 20));
        file.U32(3).U16(16).U16(0).U32(0).U32(0).U32(0).I32(9600).I32(9600).I32(2540).I32(2540);
        return file.Append(records_.Get()).Get();
    }

  private:
    Header header_;
    Bytes records_;
};

}  // namespace tavrix::test

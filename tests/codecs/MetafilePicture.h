#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "codecs/Decoding.h"
#include "imaging/metafile/MetafileDecoder.h"

namespace tavrix::test {

/// A decoded metafile whose pixels are looked at.
class MetafilePicture {
  public:
    explicit MetafilePicture(const std::vector<std::byte>& file) : decoded_(Decode(file)) {}
    /// Of an enhanced metafile that may cost no more than this.
    template <std::int64_t MostWork>
    [[nodiscard]] static MetafilePicture Within(const std::vector<std::byte>& file) {
        static constexpr DecoderEntry Decoder{
            "emf", RecognisesEmf,
            [](ByteSource& source, PictureSink& sink) { return DecodeEmfWithin(source, sink, MostWork); }};
        MemorySource source(file);
        return MetafilePicture(DecodePicture(source, &Decoder));
    }

    [[nodiscard]] const DecodeStatus& Status() const { return decoded_.status; }
    [[nodiscard]] const DecodedPicture& Decoded() const { return decoded_; }
    [[nodiscard]] Pixel At(int x, int y) const {
        return decoded_.picture.pixels->Whole().Row(y)[static_cast<std::size_t>(x)];
    }
    /// The rows as letters: '.' white, '#' black, R, G and B the pure colours, '?' any other.
    [[nodiscard]] std::vector<std::string> Rows() const {
        std::vector<std::string> rows;
        for (int y = 0; y < decoded_.picture.Height(); ++y) {
            std::string& row = rows.emplace_back();
            for (int x = 0; x < decoded_.picture.Width(); ++x)
                row.push_back(Letter(At(x, y)));
        }
        return rows;
    }
    /// How many pixels have the letter.
    [[nodiscard]] int Count(char letter) const {
        int count = 0;
        for (const std::string& row : Rows())
            count += static_cast<int>(std::count(row.begin(), row.end(), letter));
        return count;
    }
    /// The smallest box around everything that is not white: left, top, right and bottom, the latter two exclusive.
    [[nodiscard]] std::vector<int> Ink() const {
        std::vector<int> box{decoded_.picture.Width(), decoded_.picture.Height(), 0, 0};
        for (int y = 0; y < decoded_.picture.Height(); ++y) {
            for (int x = 0; x < decoded_.picture.Width(); ++x) {
                if (At(x, y) == WhitePixel) continue;
                box = {std::min(box[0], x), std::min(box[1], y), std::max(box[2], x + 1),
                       std::max(box[3], y + 1)};
            }
        }
        return box;
    }

  private:
    explicit MetafilePicture(DecodedPicture decoded) : decoded_(std::move(decoded)) {}

    static char Letter(Pixel pixel) {
        switch (pixel) {
            case WhitePixel:
                return '.';
            case BlackPixel:
                return '#';
            case Red:
                return 'R';
            case Green:
                return 'G';
            case Blue:
                return 'B';
            default:
                return '?';
        }
    }

    DecodedPicture decoded_;
};

using Art = std::vector<std::string>;

/// Colours as metafiles have them.
inline constexpr std::uint32_t RedValue = 0x0000FFU;
inline constexpr std::uint32_t GreenValue = 0x00FF00U;
inline constexpr std::uint32_t BlueValue = 0xFF0000U;
inline constexpr std::uint32_t WhiteValue = 0xFFFFFFU;

}  // namespace tavrix::test

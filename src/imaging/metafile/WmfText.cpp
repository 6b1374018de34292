#include "imaging/metafile/WmfReaders.h"

namespace tavrix::metafile {
namespace {

enum Function : std::uint16_t {
    TextOut = 0x0521,
    ExtTextOut = 0x0A32,
};

constexpr std::uint64_t At = WmfParameters;

using TextRecord = std::unique_ptr<const Text>;

std::string Characters(RecordBytes& bytes, std::uint64_t at, std::uint64_t count) {
    std::string text;
    for (const std::byte character : bytes.Span(at, count))
        text.push_back(static_cast<char>(character));
    return text;
}

std::uint64_t Even(std::uint64_t count) {
    return (count + 1) / 2 * 2;
}

Record ReadTextOut(RecordBytes& bytes) {
    auto text = std::make_unique<Text>();
    const std::uint64_t count = bytes.U16(At);
    text->bytes = Characters(bytes, At + 2, count);
    text->at = WmfPlace(bytes, At + 2 + Even(count));
    return TextRecord(std::move(text));
}

Record ReadExtTextOut(RecordBytes& bytes) {
    auto text = std::make_unique<Text>();
    text->at = WmfPlace(bytes, At);
    const std::uint64_t count = bytes.U16(At + 4);
    text->options = bytes.U16(At + 6);
    std::uint64_t at = At + 8;
    if ((text->options & (Text::Opaque | Text::Clipped)) != 0) {
        text->box = {bytes.I16(at), bytes.I16(at + 2), bytes.I16(at + 4), bytes.I16(at + 6)};
        at += 8;
    }
    text->bytes = Characters(bytes, at, count);
    at += Even(count);
    // The distances may be left away, or cut where a writer counted them wrong; then they do not count.
    const std::uint64_t numbers = (text->options & Text::Advance2d) != 0 ? 2 * count : count;
    if (at + 2 * numbers <= bytes.Length()) {
        for (std::uint64_t i = 0; i < numbers; ++i)
            text->advances.push_back(bytes.I16(at + 2 * i));
    }
    return TextRecord(std::move(text));
}

}  // namespace

std::optional<Record> ReadWmfText(std::uint16_t function, RecordBytes& bytes) {
    switch (function) {
        case TextOut:
            return ReadTextOut(bytes);
        case ExtTextOut:
            return ReadExtTextOut(bytes);
        default:
            return std::nullopt;
    }
}

}  // namespace tavrix::metafile

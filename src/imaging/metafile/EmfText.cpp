#include <algorithm>

#include "imaging/metafile/EmfReaders.h"

namespace tavrix::metafile {
namespace {

enum Type : std::uint32_t {
    ExtTextOutA = 83,
    ExtTextOutW = 84,
    PolyTextOutA = 96,
    PolyTextOutW = 97,
    SmallTextOut = 108,
};

constexpr std::uint32_t CompatibleMode = 1;
constexpr std::uint32_t NoRectangle = 0x100U;
constexpr std::uint32_t SmallCharacters = 0x200U;
constexpr std::uint64_t TextHeader = 36;
constexpr std::uint64_t TextObject = 40;
/// Of a longer text the rest is not drawn.
constexpr std::uint64_t MostCharacters = 0xFFFF;

void ReadCharacters(RecordBytes& bytes, std::uint64_t at, std::uint64_t count, bool wide, Text& text) {
    if (!bytes.Holds(at, count, wide ? 2 : 1)) return;
    for (std::uint64_t i = 0; i < std::min(count, MostCharacters); ++i) {
        if (wide) {
            text.wide.push_back(bytes.U16(at + 2 * i));
        } else {
            text.bytes.push_back(static_cast<char>(bytes.U8(at + i)));
        }
    }
}

/// A text that has no rectangle may lack the room for it, too, but most writers leave it; the characters, which come
/// behind the object, tell.
bool HasRoomForBox(std::uint32_t options, std::uint64_t at, std::uint64_t characters) {
    return (options & NoRectangle) == 0 || characters >= at + TextObject;
}

/// The text object at `at`; its offsets count from the start of the record.
Text ReadText(RecordBytes& bytes, std::uint64_t at, bool wide) {
    Text text;
    text.at = bytes.P32(at);
    text.compatible = bytes.U32(24) == CompatibleMode;
    const std::uint64_t count = bytes.U32(at + 8);
    const std::uint64_t characters = bytes.U32(at + 12);
    text.options = bytes.U32(at + 16);
    const bool boxed = HasRoomForBox(text.options, at, characters);
    if (boxed) {
        text.box = bytes.Box32(at + 20);
    } else {
        text.options &= ~(Text::Opaque | Text::Clipped);
    }
    if (bytes.Broken() || count == 0) return text;
    ReadCharacters(bytes, characters, count, wide, text);
    const std::uint64_t advances = bytes.U32(boxed ? at + 36 : at + 20);
    if (bytes.Broken() || advances == 0) return text;
    const std::uint64_t each = (text.options & Text::Advance2d) != 0 ? 2 : 1;
    if (!bytes.Holds(advances, each * count, 4)) return text;
    for (std::uint64_t i = 0; i < each * std::min(count, MostCharacters); ++i)
        text.advances.push_back(bytes.I32(advances + 4 * i));
    return text;
}

Record One(Text text) {
    return std::unique_ptr<const Text>(std::make_unique<Text>(std::move(text)));
}

Record Several(RecordBytes& bytes, bool wide) {
    Texts several;
    const std::uint64_t count = bytes.U32(TextHeader);
    if (!bytes.Holds(TextHeader + 4, count, TextObject)) return several;
    // The objects may share their characters, so that a short record claims much; no more than its length is believed.
    std::uint64_t characters = 0;
    for (std::uint64_t i = 0; i < count && !bytes.Broken(); ++i) {
        const std::uint64_t at = TextHeader + 4 + i * TextObject;
        characters += bytes.U32(at + 8);
        if (characters > bytes.Length()) bytes.Break();
        if (!bytes.Broken()) several.texts.push_back(ReadText(bytes, at, wide));
    }
    return several;
}

Record Small(RecordBytes& bytes) {
    Text text;
    text.at = bytes.P32(8);
    const std::uint64_t count = bytes.U32(16);
    const std::uint32_t options = bytes.U32(20);
    text.compatible = bytes.U32(24) == CompatibleMode;
    std::uint64_t at = 36;
    if ((options & NoRectangle) == 0) {
        text.box = bytes.Box32(at);
        at += 16;
        text.options = options;
    } else {
        text.options = options & ~(Text::Opaque | Text::Clipped);
    }
    const bool wide = (options & SmallCharacters) == 0;
    if (wide) {
        ReadCharacters(bytes, at, count, true, text);
    } else if (bytes.Holds(at, count, 1)) {
        // The low halves of code units, whatever the font's code page.
        for (std::uint64_t i = 0; i < std::min(count, MostCharacters); ++i)
            text.wide.push_back(bytes.U8(at + i));
    }
    return One(std::move(text));
}

}  // namespace

std::optional<Record> ReadEmfText(std::uint32_t type, RecordBytes& bytes) {
    switch (type) {
        case ExtTextOutA:
        case ExtTextOutW:
            return One(ReadText(bytes, TextHeader, type == ExtTextOutW));
        case PolyTextOutA:
        case PolyTextOutW:
            return Several(bytes, type == PolyTextOutW);
        case SmallTextOut:
            return Small(bytes);
        default:
            return std::nullopt;
    }
}

}  // namespace tavrix::metafile

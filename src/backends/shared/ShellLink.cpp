#include "backends/shared/ShellLink.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include "base/Text.h"

namespace tavrix {
namespace {

constexpr std::uint32_t HeaderSize = 0x4C;
constexpr std::string_view ClassId("\x01\x14\x02\0\0\0\0\0\xC0\0\0\0\0\0\0\x46", 16);
constexpr std::size_t ClassIdAt = 4;
constexpr std::size_t FlagsAt = 0x14;

// Flags of the header.
constexpr std::uint32_t HasTargetIdList = 1U << 0U;
constexpr std::uint32_t HasLinkInfo = 1U << 1U;
constexpr std::uint32_t HasName = 1U << 2U;
constexpr std::uint32_t HasRelativePath = 1U << 3U;
constexpr std::uint32_t HasWorkingFolder = 1U << 4U;
constexpr std::uint32_t HasArguments = 1U << 5U;
constexpr std::uint32_t HasIconLocation = 1U << 6U;
constexpr std::uint32_t IsUnicode = 1U << 7U;
constexpr std::uint32_t ForceNoLinkInfo = 1U << 8U;

// The link information: offsets of its members from its start.
constexpr std::uint32_t InfoLeast = 0x1C;
constexpr std::uint32_t InfoWithUnicode = 0x24;  ///< header size from which the two Unicode offsets exist
constexpr std::uint32_t InfoHasLocalPath = 1U << 0U;
constexpr std::uint32_t InfoHasNetworkPath = 1U << 1U;

// The network part of it.
constexpr std::uint32_t NetworkLeast = 0x14;
constexpr std::uint32_t NetworkHasDevice = 1U << 0U;

// The blocks at the end.
constexpr std::uint32_t BlockLeast = 4;
constexpr std::uint32_t VariableBlock = 0xA0000001U;
constexpr std::size_t VariableAnsiAt = 8;
constexpr std::size_t VariableAnsiSize = 260;
constexpr std::size_t VariableUnicodeAt = VariableAnsiAt + VariableAnsiSize;
constexpr std::size_t VariableUnicodeSize = 520;

using Bytes = std::string_view;

/// The part of `bytes` from `at` on; nothing when it does not lie within.
std::optional<Bytes> Part(Bytes bytes, std::size_t at, std::size_t size) {
    if (at > bytes.size() || size > bytes.size() - at) return std::nullopt;
    return bytes.substr(at, size);
}

/// A little-endian number of the bytes; `bytes` must hold it.
std::uint32_t NumberIn(Bytes bytes) {
    std::uint32_t number = 0;
    for (std::size_t i = bytes.size(); i-- > 0;)
        number = (number << 8U) | static_cast<unsigned char>(bytes[i]);
    return number;
}

std::optional<std::uint32_t> Number16(Bytes bytes, std::size_t at) {
    const auto part = Part(bytes, at, 2);
    if (!part) return std::nullopt;
    return NumberIn(*part);
}

std::optional<std::uint32_t> Number32(Bytes bytes, std::size_t at) {
    const auto part = Part(bytes, at, 4);
    if (!part) return std::nullopt;
    return NumberIn(*part);
}

void AppendUtf8(std::string& text, std::uint32_t code) {
    const auto tail = [](std::uint32_t bits) { return static_cast<char>(0x80U | (bits & 0x3FU)); };
    if (code < 0x80U) {
        text.push_back(static_cast<char>(code));
    } else if (code < 0x800U) {
        text.append({static_cast<char>(0xC0U | (code >> 6U)), tail(code)});
    } else if (code < 0x10000U) {
        text.append({static_cast<char>(0xE0U | (code >> 12U)), tail(code >> 6U), tail(code)});
    } else {
        text.append(
            {static_cast<char>(0xF0U | (code >> 18U)), tail(code >> 12U), tail(code >> 6U), tail(code)});
    }
}

/// UTF-16 up to its first NUL, as UTF-8; half pairs become U+FFFD.
std::string FromUtf16(Bytes bytes) {
    constexpr std::uint32_t Replacement = 0xFFFD;
    std::string text;
    for (std::size_t at = 0; at + 2 <= bytes.size(); at += 2) {
        std::uint32_t unit = NumberIn(bytes.substr(at, 2));
        if (unit == 0) break;
        if (unit >= 0xD800U && unit <= 0xDFFFU) {
            const std::uint32_t next = at + 4 <= bytes.size() ? NumberIn(bytes.substr(at + 2, 2)) : 0;
            if (unit <= 0xDBFFU && next >= 0xDC00U && next <= 0xDFFFU) {
                unit = 0x10000U + ((unit - 0xD800U) << 10U) + (next - 0xDC00U);
                at += 2;
            } else {
                unit = Replacement;
            }
        }
        AppendUtf8(text, unit);
    }
    return text;
}

/// A text of a code page up to its first NUL.
std::string FromCodePage(Bytes bytes) {
    return DecodeTextFile(bytes.substr(0, bytes.find('\0')));
}

/// The text from an offset to its NUL; empty when the offset is 0, lies outside, or no NUL follows.
std::string CodePageAt(Bytes bytes, std::uint32_t offset) {
    if (offset == 0 || offset >= bytes.size()) return {};
    const std::size_t end = bytes.find('\0', offset);
    if (end == Bytes::npos) return {};
    return FromCodePage(bytes.substr(offset, end - offset));
}

std::string Utf16At(Bytes bytes, std::uint32_t offset) {
    if (offset == 0 || offset >= bytes.size()) return {};
    for (std::size_t at = offset; at + 2 <= bytes.size(); at += 2) {
        if (NumberIn(bytes.substr(at, 2)) == 0) return FromUtf16(bytes.substr(offset, at - offset));
    }
    return {};
}

/// The text at the first of two offsets, or at the second when that has none.
std::string TextAt(Bytes bytes, std::uint32_t unicodeOffset, std::uint32_t codePageOffset) {
    const std::string text = Utf16At(bytes, unicodeOffset);
    return text.empty() ? CodePageAt(bytes, codePageOffset) : text;
}

std::string Join(const std::string& folder, const std::string& rest) {
    if (folder.empty() || rest.empty()) return folder;
    return rest.starts_with('\\') ? WithBackslash(folder) + rest.substr(1) : WithBackslash(folder) + rest;
}

/// `info` is the whole structure, its size member included.
void ReadNetworkPath(Bytes info, std::uint32_t offset, const std::string& suffix, ShellLink& link) {
    const auto size = offset != 0 ? Number32(info, offset) : std::nullopt;
    if (!size || *size < NetworkLeast) return;
    const auto network = Part(info, offset, *size);
    if (!network) return;
    const std::uint32_t flags = NumberIn(network->substr(4, 4));
    const std::uint32_t nameOffset = NumberIn(network->substr(8, 4));
    const std::uint32_t deviceOffset = NumberIn(network->substr(12, 4));
    // A name that lies further back leaves room for two more offsets.
    const bool hasUnicode = nameOffset > NetworkLeast;
    const std::uint32_t unicodeName = hasUnicode ? Number32(*network, NetworkLeast).value_or(0) : 0;
    const std::uint32_t unicodeDevice = hasUnicode ? Number32(*network, NetworkLeast + 4).value_or(0) : 0;
    link.networkPath = Join(TextAt(*network, unicodeName, nameOffset), suffix);
    if ((flags & NetworkHasDevice) != 0)
        link.devicePath = Join(TextAt(*network, unicodeDevice, deviceOffset), suffix);
}

void ReadLinkInfo(Bytes info, ShellLink& link) {
    const std::uint32_t headerSize = NumberIn(info.substr(4, 4));
    const std::uint32_t flags = NumberIn(info.substr(8, 4));
    const bool hasUnicode = headerSize >= InfoWithUnicode;
    const auto offsetAt = [&](std::size_t at) { return Number32(info, at).value_or(0); };
    const std::string suffix = TextAt(info, hasUnicode ? offsetAt(0x20) : 0, offsetAt(0x18));
    if ((flags & InfoHasLocalPath) != 0)
        link.localPath = Join(TextAt(info, hasUnicode ? offsetAt(0x1C) : 0, offsetAt(0x10)), suffix);
    if ((flags & InfoHasNetworkPath) != 0) ReadNetworkPath(info, offsetAt(0x14), suffix, link);
}

void ReadVariableBlock(Bytes block, ShellLink& link) {
    const auto codePage = Part(block, VariableAnsiAt, VariableAnsiSize);
    const auto unicode = Part(block, VariableUnicodeAt, VariableUnicodeSize);
    if (unicode) link.variablePath = FromUtf16(*unicode);
    if (link.variablePath.empty() && codePage) link.variablePath = FromCodePage(*codePage);
}

/// Goes through a link's parts, one behind the other, until one is not whole.
class Walk {
  public:
    explicit Walk(Bytes bytes) : rest_(bytes) {}

    /// Skips the header or another part of known size.
    bool Skip(std::size_t size) { return Take(size).has_value(); }

    bool SkipIdList() {
        const auto size = Number16(rest_, 0);
        return size && Skip(2 + std::size_t{*size});
    }

    bool ReadInfo(bool wanted, ShellLink& link) {
        const auto size = Number32(rest_, 0);
        if (!size || *size < InfoLeast) return false;
        const auto info = Take(*size);
        if (!info) return false;
        if (wanted) ReadLinkInfo(*info, link);
        return true;
    }

    /// A counted text; nothing when it is not whole.
    std::optional<std::string> ReadText(bool unicode) {
        const auto count = Number16(rest_, 0);
        if (!count) return std::nullopt;
        const std::size_t size = std::size_t{*count} * (unicode ? 2 : 1);
        const auto part = Part(rest_, 2, size);
        if (!part) return std::nullopt;
        rest_.remove_prefix(2 + size);
        return unicode ? FromUtf16(*part) : FromCodePage(*part);
    }

    void ReadBlocks(ShellLink& link) {
        for (;;) {
            const auto size = Number32(rest_, 0);
            if (!size || *size < BlockLeast) return;
            const auto block = Take(*size);
            if (!block) return;
            if (Number32(*block, 4) == VariableBlock) ReadVariableBlock(*block, link);
        }
    }

  private:
    std::optional<Bytes> Take(std::size_t size) {
        const auto part = Part(rest_, 0, size);
        if (part) rest_.remove_prefix(size);
        return part;
    }

    Bytes rest_;
};

bool ReadTexts(Walk& walk, std::uint32_t flags, ShellLink& link) {
    struct Member {
        std::uint32_t flag;
        std::string* into;
    };
    const std::array<Member, 5> members{{{HasName, nullptr},
                                         {HasRelativePath, &link.relativePath},
                                         {HasWorkingFolder, &link.workingFolder},
                                         {HasArguments, nullptr},
                                         {HasIconLocation, nullptr}}};
    for (const Member& member : members) {
        if ((flags & member.flag) == 0) continue;
        const auto text = walk.ReadText((flags & IsUnicode) != 0);
        if (!text) return false;
        if (member.into != nullptr) *member.into = *text;
    }
    return true;
}

}  // namespace

std::optional<ShellLink> ParseShellLink(std::string_view bytes) {
    if (Number32(bytes, 0) != HeaderSize || Part(bytes, ClassIdAt, ClassId.size()) != ClassId)
        return std::nullopt;
    Walk walk(bytes);
    if (!walk.Skip(HeaderSize)) return std::nullopt;
    const std::uint32_t flags = NumberIn(bytes.substr(FlagsAt, 4));
    ShellLink link;
    if ((flags & HasTargetIdList) != 0 && !walk.SkipIdList()) return link;
    if ((flags & HasLinkInfo) != 0 && !walk.ReadInfo((flags & ForceNoLinkInfo) == 0, link)) return link;
    if (ReadTexts(walk, flags, link)) walk.ReadBlocks(link);
    return link;
}

}  // namespace tavrix

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tavrix {

/// The bytes of a shortcut file, put together from its parts.
struct LinkBytes {
    std::uint32_t flags = 0;
    std::string idList{};    ///< without its size
    std::string linkInfo{};  ///< whole
    std::string strings{};
    std::string blocks{};

    static std::string Number(std::uint32_t number, int bytes) {
        std::string text;
        for (int i = 0; i < bytes; ++i)
            text.push_back(static_cast<char>((number >> (8 * i)) & 0xFFU));
        return text;
    }
    static std::string Utf16(std::u16string_view text) {
        std::string bytes;
        for (const char16_t unit : text)
            bytes += Number(unit, 2);
        return bytes;
    }
    static std::string Counted(std::u16string_view text) {
        return Number(static_cast<std::uint32_t>(text.size()), 2) + Utf16(text);
    }
    static std::string CountedBytes(std::string_view text) {
        return Number(static_cast<std::uint32_t>(text.size()), 2) + std::string(text);
    }
    /// A block with the path that holds variables.
    static std::string VariableBlock(std::string ansi, std::u16string_view wide) {
        std::string unicode = Utf16(wide);
        ansi.resize(260);
        unicode.resize(520);
        return Number(0x314, 4) + Number(0xA0000001U, 4) + ansi + unicode;
    }

    /// Link information with what is given; the offsets of what is not are 0.
    struct Info {
        std::optional<std::string> localPath{};
        std::optional<std::u16string> wideLocalPath{};
        std::string network{};  ///< whole
        std::string suffix{};
        std::optional<std::u16string> wideSuffix{};

        [[nodiscard]] std::string Bytes() const {
            const bool wide = wideLocalPath || wideSuffix;
            const std::uint32_t headerSize = wide ? 0x24 : 0x1C;
            std::string body;
            const auto add = [&](const std::string& part) {
                const std::uint32_t at = headerSize + static_cast<std::uint32_t>(body.size());
                body += part;
                return Number(at, 4);
            };
            const std::string none = Number(0, 4);
            const std::string volume = localPath ? add(Number(0x11, 4) + Number(3, 4) + Number(0x1234, 4) +
                                                       Number(0x10, 4) + std::string(1, '\0'))
                                                 : none;
            const std::string local = localPath ? add(*localPath + '\0') : none;
            const std::string net = network.empty() ? none : add(network);
            const std::string rest = add(suffix + '\0');
            const std::string nul = Number(0, 2);
            std::string optional;
            if (wide) {
                optional = wideLocalPath ? add(Utf16(*wideLocalPath) + nul) : none;
                optional += wideSuffix ? add(Utf16(*wideSuffix) + nul) : none;
            }
            const std::uint32_t flags = (localPath ? 1U : 0U) | (network.empty() ? 0U : 2U);
            return Number(headerSize + static_cast<std::uint32_t>(body.size()), 4) + Number(headerSize, 4) +
                   Number(flags, 4) + volume + local + net + rest + optional + body;
        }
    };

    /// A network part with a share and, where it is not empty, the drive that stood for it.
    static std::string Network(const std::string& share, const std::string& device) {
        const std::uint32_t nameAt = 0x14;
        const auto deviceAt = static_cast<std::uint32_t>(nameAt + share.size() + 1);
        const std::string names = share + '\0' + (device.empty() ? std::string() : device + '\0');
        return Number(static_cast<std::uint32_t>(nameAt + names.size()), 4) +
               Number(device.empty() ? 2 : 3, 4) + Number(nameAt, 4) +
               Number(device.empty() ? 0 : deviceAt, 4) + Number(0x00020000, 4) + names;
    }
    static std::string WideNetwork(const std::u16string& share, const std::u16string& device) {
        const std::string name = Utf16(share) + Number(0, 2);
        const std::string drive = Utf16(device) + Number(0, 2);
        const std::uint32_t nameAt = 0x1C;
        const auto wideNameAt = nameAt + 2;
        const auto wideDriveAt = static_cast<std::uint32_t>(wideNameAt + name.size());
        return Number(static_cast<std::uint32_t>(wideDriveAt + drive.size()), 4) + Number(3, 4) +
               Number(nameAt, 4) + Number(nameAt, 4) + Number(0x00020000, 4) + Number(wideNameAt, 4) +
               Number(wideDriveAt, 4) + Number(0, 2) + name + drive;
    }

    [[nodiscard]] std::string Bytes() const {
        using namespace std::string_literals;
        std::string bytes = Number(0x4C, 4) + "\x01\x14\x02\0\0\0\0\0\xC0\0\0\0\0\0\0\x46"s +
                            Number(flags, 4) + std::string(52, '\0');
        if ((flags & 1U) != 0) bytes += Number(static_cast<std::uint32_t>(idList.size()), 2) + idList;
        return bytes + linkInfo + strings + blocks;
    }
};

}  // namespace tavrix

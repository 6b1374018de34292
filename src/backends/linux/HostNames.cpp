#include "backends/linux/HostNames.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

#include "base/Text.h"

namespace tavrix {
namespace {

constexpr std::string_view Escape = "\u2426";

struct LookAlike {
    char character;
    std::string_view shown;
};

constexpr LookAlike EndBlank{' ', "\u2007"};
constexpr std::array<LookAlike, 6> LookAlikes{{{':', "\uA789"},
                                               {'\\', "\u29F5"},
                                               {'"', "\u02BA"},
                                               {'*', "\u2217"},
                                               {'?', "\uFE56"},
                                               {'\x7f', "\u2421"}}};

/// The UTF-8 form of a code point from 800 to FFFF.
std::string ThreeBytes(unsigned code) {
    return {static_cast<char>(0xE0U | (code >> 12U)), static_cast<char>(0x80U | ((code >> 6U) & 0x3FU)),
            static_cast<char>(0x80U | (code & 0x3FU))};
}

unsigned CodeOfThreeBytes(std::string_view bytes) {
    const auto byte = [&](std::size_t at) -> unsigned { return static_cast<unsigned char>(bytes[at]); };
    return ((byte(0) & 0x0FU) << 12U) | ((byte(1) & 0x3FU) << 6U) | (byte(2) & 0x3FU);
}

/// What a character of a name is shown as, when a drive path cannot hold it.
std::optional<std::string> ShownAs(std::string_view character, bool atEnd) {
    if (character.size() != 1) return std::nullopt;
    const char c = character[0];
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x20U) return ThreeBytes(0x2400U + byte);
    if (byte >= 0x80U) return ThreeBytes(0xF700U + byte);
    if (c == EndBlank.character && atEnd) return std::string(EndBlank.shown);
    const auto* const found = std::ranges::find(LookAlikes, c, &LookAlike::character);
    if (found == LookAlikes.end()) return std::nullopt;
    return std::string(found->shown);
}

/// The character that a look-alike stands for; empty when it is none.
std::optional<char> StandsFor(std::string_view character) {
    if (character == EndBlank.shown) return EndBlank.character;
    const auto* const found = std::ranges::find(LookAlikes, character, &LookAlike::shown);
    if (found != LookAlikes.end()) return found->character;
    if (character.size() != 3) return std::nullopt;
    const unsigned code = CodeOfThreeBytes(character);
    if (code >= 0x2401U && code <= 0x241FU) return static_cast<char>(code - 0x2400U);
    if (code >= 0xF780U && code <= 0xF7FFU) return static_cast<char>(code - 0xF700U);
    return std::nullopt;
}

bool IsPlain(std::string_view name) {
    return std::ranges::all_of(name, [](char c) {
        return static_cast<unsigned char>(c) >= 0x20U && static_cast<unsigned char>(c) < 0x7FU && c != ':' &&
               c != '\\' && c != '"' && c != '*' && c != '?';
    });
}

}  // namespace

std::string ToDriveName(std::string_view hostName) {
    if (IsPlain(hostName) && !hostName.starts_with(' ') && !hostName.ends_with(' '))
        return std::string(hostName);
    const std::size_t firstInner = std::min(hostName.find_first_not_of(' '), hostName.size());
    const std::size_t endInner = hostName.find_last_not_of(' ') + 1;  // 0 when there are only blanks

    std::string shown;
    for (std::size_t at = 0; at < hostName.size();) {
        const std::string character = Left(hostName.substr(at, 4), 1);
        const bool atEnd = at < firstInner || at >= endInner;
        if (const auto other = ShownAs(character, atEnd)) {
            shown += *other;
        } else {
            if (character == Escape || StandsFor(character)) shown += Escape;
            shown += character;
        }
        at += character.size();
    }
    return shown;
}

std::string FromDriveName(std::string_view driveName) {
    if (IsPlain(driveName)) return std::string(driveName);
    std::string name;
    for (std::size_t at = 0; at < driveName.size();) {
        std::string character = Left(driveName.substr(at, 4), 1);
        at += character.size();
        if (character == Escape) {
            const std::string next = Left(driveName.substr(at, 4), 1);
            if (next == Escape || StandsFor(next)) {
                character = next;
                at += next.size();
            }
            name += character;
        } else if (const auto original = StandsFor(character)) {
            name.push_back(*original);
        } else {
            name += character;
        }
    }
    return name;
}

}  // namespace tavrix

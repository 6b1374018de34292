#include "app/saver/SaverArguments.h"

#include <cstdlib>

namespace tavrix {
namespace {

/// Decimal, or hexadecimal behind 0x.
std::optional<std::uint32_t> WindowOf(const std::string& text) {
    if (text.empty() || text.find_first_not_of("0123456789abcdefABCDEFxX") != std::string::npos)
        return std::nullopt;
    const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
    char* end = nullptr;
    const unsigned long number = std::strtoul(text.c_str(), &end, hexadecimal ? 16 : 10);
    if (*end != '\0' || number == 0 || number > UINT32_MAX) return std::nullopt;
    return static_cast<std::uint32_t>(number);
}

}  // namespace

std::optional<SaverArguments> ReadSaverArguments(std::span<const std::string> arguments,
                                                 const std::string& windowVariable) {
    SaverArguments read;
    bool root = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        std::string word = arguments[i];
        if (word.starts_with("--")) word.erase(0, 1);
        if (word == "-root") {
            root = true;
        } else if (word == "-window-id") {
            read.window = i + 1 < arguments.size() ? WindowOf(arguments[++i]) : std::nullopt;
            if (!read.window) return std::nullopt;
            read.preview = true;
        } else if (word == "-show") {
            if (i + 1 >= arguments.size() || !read.show.empty()) return std::nullopt;
            read.show = arguments[++i];
        } else if (!word.starts_with('-') && read.show.empty()) {
            read.show = arguments[i];
        } else {
            return std::nullopt;
        }
    }
    if (!read.preview) read.window = WindowOf(windowVariable);
    if (!root && !read.window) return std::nullopt;
    return read;
}

}  // namespace tavrix

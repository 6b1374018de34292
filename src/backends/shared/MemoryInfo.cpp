#include "backends/shared/MemoryInfo.h"

#include <algorithm>
#include <charconv>

namespace tavrix {
namespace {

/// The bytes behind a name at the start of a line; 0 without it.
std::int64_t BytesOf(std::string_view text, std::string_view name) {
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        std::string_view line = text.substr(at, end - at);
        at = end + 1;
        if (!line.starts_with(name) || !line.substr(name.size()).starts_with(':')) continue;
        line.remove_prefix(std::min(line.find_first_of("0123456789"), line.size()));
        std::int64_t kibibytes = 0;
        std::from_chars(line.data(), line.data() + line.size(), kibibytes);
        return kibibytes * 1024;
    }
    return 0;
}

}  // namespace

MemoryFigures MemoryFiguresOf(std::string_view text) {
    MemoryFigures figures;
    figures.total = BytesOf(text, "MemTotal");
    figures.available = BytesOf(text, "MemAvailable");
    figures.virtualTotal = figures.total + BytesOf(text, "SwapTotal");
    figures.virtualAvailable = figures.available + BytesOf(text, "SwapFree");
    return figures;
}

}  // namespace tavrix

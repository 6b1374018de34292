#include "settings/TipFile.h"

#include <array>
#include <memory>

#include "base/RuntimeError.h"
#include "base/Text.h"

namespace tavrix {
namespace {

std::string WholeFile(Files& files, const std::string& path) {
    constexpr std::size_t step = 4096;
    const std::unique_ptr<FileReader> reader = files.Open(path);
    std::array<std::byte, step> bytes{};
    std::string content;
    while (const std::size_t count = reader->Read(bytes)) {
        content.append(reinterpret_cast<const char*>(bytes.data()), count);
        if (content.size() > LargestTipFile) throw RuntimeError(ErrorNumber::Overflow);
    }
    return content;
}

}  // namespace

std::vector<std::string> ReadTips(Files& files, const std::string& path) {
    if (path.empty()) throw RuntimeError(ErrorNumber::FileNotFound);
    const std::string text = DecodeTextFile(WholeFile(files, path));
    std::vector<std::string> tips;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        const bool carriageReturn = end > at && end < text.size() && text[end - 1] == '\r';
        tips.push_back(text.substr(at, end - at - (carriageReturn ? 1 : 0)));
        at = end + 1;
    }
    return tips;
}

}  // namespace tavrix

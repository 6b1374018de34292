#include "core/FileServices.h"

#include <array>
#include <cstddef>
#include <span>

#include "platform/base/RuntimeError.h"
#include "platform/base/Text.h"

namespace tavrix {

bool IsGif89File(const MainModule& module, const std::string& path) {
    if (!module.config.AnimateGIF89 || !EndsInIgnoringCase(path, ".GIF")) return false;
    std::array<char, 6> start{};
    std::size_t read = 0;
    SkipFailure([&] {
        const auto reader = module.platform.files.Open(path);
        while (read < start.size()) {
            const std::size_t count = reader->Read(std::as_writable_bytes(std::span(start).subspan(read)));
            if (count == 0) break;
            read += count;
        }
    });
    return UpperCase({start.data(), read}) == "GIF89A";
}

bool WindowExists(const MainModule& module, const std::string& title) {
    bool exists = false;
    SkipFailure([&] { exists = module.platform.system.WindowExists(title); });
    return exists;
}

std::string ResolveLink(const MainModule& module, const std::string& path) {
    std::string target;
    SkipFailure([&] { target = module.platform.shell.ResolveLink(path); });
    return target;
}

}  // namespace tavrix

#include "shows/editor/DescriptionText.h"

#include <array>
#include <string_view>
#include <utility>

#include "core/NumberText.h"

namespace tavrix {

std::string StorableDescription(const std::string& text) {
    // Longer ones before those that they begin with. The last three end lines and paragraphs beyond ASCII.
    constexpr std::array<std::pair<std::string_view, std::string_view>, 9> changes{{{"\"", "'"},
                                                                                    {"\r\n", " "},
                                                                                    {"\r", " "},
                                                                                    {"\n", " "},
                                                                                    {"\v", " "},
                                                                                    {"\f", " "},
                                                                                    {"\xC2\x85", " "},
                                                                                    {"\xE2\x80\xA8", " "},
                                                                                    {"\xE2\x80\xA9", " "}}};
    std::string storable;
    for (std::string_view rest = text; !rest.empty();) {
        std::size_t taken = 1;
        std::string_view put = rest.substr(0, 1);
        for (const auto& [from, to] : changes) {
            if (!rest.starts_with(from)) continue;
            taken = from.size();
            put = to;
            break;
        }
        storable += put;
        rest.remove_prefix(taken);
    }
    return storable;
}

std::string FileFacts(const MainModule& module, const std::string& path) {
    const FileInfo info = module.platform.files.Info(path);
    return "File Date: " + module.platform.system.ShortDateTime(info.modified) +
           " - File Size: " + GroupedNumberOrEmpty(info.length, module.platform.system.Numbers()) + " bytes.";
}

}  // namespace tavrix

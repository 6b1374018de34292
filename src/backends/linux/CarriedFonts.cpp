#include "backends/linux/CarriedFonts.h"

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <system_error>

namespace tavrix {
namespace {

struct DropPattern {
    void operator()(FcPattern* pattern) const { ::FcPatternDestroy(pattern); }
};
using Pattern = std::unique_ptr<FcPattern, DropPattern>;

std::string FileOf(const char* name) {
    const Pattern wanted(::FcNameParse(reinterpret_cast<const FcChar8*>(name)));
    if (!wanted) return {};
    ::FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern);
    ::FcDefaultSubstitute(wanted.get());
    FcResult result{};
    const Pattern found(::FcFontMatch(nullptr, wanted.get(), &result));
    FcChar8* file = nullptr;
    if (!found || ::FcPatternGetString(found.get(), FC_FILE, 0, &file) != FcResultMatch) return {};
    std::error_code error;
    const auto path = std::filesystem::canonical(reinterpret_cast<const char*>(file), error);
    return error ? std::string() : path.string();
}

}  // namespace

std::vector<std::string> CarriedFonts() {
    std::vector<std::string> files;
    for (const char* name : {"sans-serif", "sans-serif:bold"}) {
        std::string file = FileOf(name);
        if (!file.empty() && std::ranges::find(files, file) == files.end()) files.push_back(std::move(file));
    }
    return files;
}

}  // namespace tavrix

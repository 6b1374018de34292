#include "shows/package/PackageSize.h"

#include <optional>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/NumberText.h"
#include "core/ShowFolder.h"

namespace tavrix {
namespace {

constexpr std::int64_t ProgramBytes = 6'000'000;

/// The length of a file at its path, or else under its bare name beside the show.
std::optional<std::int64_t> LengthOf(Files& files, const ShowFolder& source, const std::string& path) {
    for (const std::string& place : {source.SlidePath(path), source.Path() + FileNameOf(path)}) {
        if (!files.FileExists(place)) continue;
        std::optional<std::int64_t> length;
        SkipFailure([&] { length = files.Info(place).length; });
        if (length) return length;
    }
    return std::nullopt;
}

}  // namespace

PackageSizeEstimate EstimatePackageSize(const MainModule& module, const std::string& source) {
    const ShowFolder folder(source);
    Files& files = module.platform.files;
    PackageSizeEstimate estimate{.bytes = ProgramBytes, .missing = {}};
    for (int i = 0; i < module.show.Count(); ++i) {
        const std::string& path = module.show.SlideFiles[i];
        const std::optional<std::int64_t> length = LengthOf(files, folder, path);
        if (!length) {
            estimate.missing = path;
            return estimate;
        }
        estimate.bytes += *length;
    }
    const bool hasSound = module.config.SoundMode == 1 && !module.config.SoundFile.empty();
    if (hasSound) estimate.bytes += LengthOf(files, folder, module.config.SoundFile).value_or(0);
    return estimate;
}

std::string MegabytesText(std::int64_t bytes, const NumberFormat& format) {
    constexpr std::int64_t tenth = 100'000;
    const std::int64_t tenths = (bytes + tenth / 2) / tenth;
    return GroupedNumber(tenths / 10, format) + format.decimal + std::to_string(tenths % 10);
}

}  // namespace tavrix

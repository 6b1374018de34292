#pragma once

#include <cstdint>
#include <string>

#include "core/MainModule.h"

namespace tavrix {

/// What a package of a show takes.
struct PackageSizeEstimate {
    std::int64_t bytes = 0;  ///< with what the program takes
    std::string
        missing;  ///< the path of the first picture that was not found, which ended the count; else empty
};

/// Adds up the sizes of the shared show's pictures and of its sound; paths without a drive are seen from `source`, and a
/// picture that is not at its path is looked for beside the show.
[[nodiscard]] PackageSizeEstimate EstimatePackageSize(const MainModule& module, const std::string& source);

/// Bytes as megabytes with one decimal, as the user's locale writes numbers: "1,234.5".
[[nodiscard]] std::string MegabytesText(std::int64_t bytes, const NumberFormat& format);

}  // namespace tavrix

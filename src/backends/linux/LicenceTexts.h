#pragma once

#include <map>
#include <span>
#include <string>

namespace tavrix {

/// Where this system keeps which package a file is of, and the licences of packages.
struct LicencePlaces {
    std::string lists = "/var/lib/dpkg/info";  ///< a list of files for each package
    std::string texts = "/usr/share/doc";      ///< a folder for each package, with its copyright
};

/// The licence texts of files, by the names of the packages that these are of. A system without such lists has none.
/// The paths lead through no link.
[[nodiscard]] std::map<std::string, std::string> LicenceTextsOf(std::span<const std::string> paths,
                                                                const LicencePlaces& places);

}  // namespace tavrix

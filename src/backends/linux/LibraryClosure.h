#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavrix {

/// A shared library by the name that others ask for, and the file that the loader finds under it.
struct SharedLibrary {
    std::string name;
    std::string path;  ///< host path, through no link

    friend bool operator==(const SharedLibrary&, const SharedLibrary&) = default;
};

/// All that a program and other files need to be loaded, as far as it is there.
struct LibraryClosure {
    std::vector<SharedLibrary> libraries;  ///< in the order of their names, without the loader
    std::string loader;                    ///< host path, through no link
};

/// Asks this system's loader, which starts nothing of them. `plugins` are paths of what a program loads later; paths with
/// blanks or colons are not possible there. `names` are those of libraries that it loads later; one that is not installed
/// is left out. Throws 53 for a library that is missing, and what a failed start of the loader ends with.
[[nodiscard]] LibraryClosure ClosureOf(const std::string& program, std::span<const std::string> plugins,
                                       std::span<const char* const> names);

/// The libraries that the loader lists, with the paths that it tells. Throws 53 for one that it has not found.
[[nodiscard]] std::vector<SharedLibrary> ReadLoaderList(std::string_view text);

}  // namespace tavrix

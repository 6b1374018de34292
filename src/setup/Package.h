#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace tavrix::setup {

/// The names in a package that its maker and its installer agree on.
struct PackageNames {
    std::vector<std::string> files;  ///< what may lie directly in it
    std::string library;             ///< the folder of the program and its libraries
    std::string list;                ///< of what lies in that, a name a line
    std::string slides;              ///< the folder of the show
    std::string notes;               ///< the file about the package
};

/// What the maker of a package has noted about it.
struct PackageNotes {
    std::string show;  ///< file name
    std::string name;
    bool screenSaver = false;
    bool makeDefault = false;  ///< it becomes the user's screen saver
    bool shortcut = false;     ///< it gets an entry of its own in the menu
};

/// Reads the notes of the package in a folder (host path). Throws 53 where there are none, or they name no show that is
/// there.
[[nodiscard]] PackageNotes ReadNotes(const std::string& folder, const PackageNames& names);

/// The files of a package by their paths in it, those of the show to any depth; links and what is none of the package's are
/// left out. Throws 53 where the list is missing or a file of it is.
[[nodiscard]] std::vector<std::string> FilesOf(const std::string& folder, const PackageNames& names);

/// The bytes of these files.
[[nodiscard]] std::int64_t SizeOf(const std::string& folder, std::span<const std::string> files);

/// The lines of a text that are paths to something in a folder: no way up, and from no root.
[[nodiscard]] std::vector<std::string> PathsIn(const std::string& text);

/// The path of a package's show.
[[nodiscard]] std::string ShowOf(const std::string& folder, const PackageNames& names,
                                 const PackageNotes& notes);

}  // namespace tavrix::setup

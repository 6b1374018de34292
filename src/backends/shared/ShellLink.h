#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tavrix {

/// What a shortcut file (.lnk) tells of its target. The format is published as [MS-SHLLINK], "Shell Link (.LNK)
/// Binary File Format". Each text is whole or empty; none is checked for being a proper path.
struct ShellLink {
    std::string localPath{};      ///< on a drive of the machine that made the link
    std::string devicePath{};     ///< on a drive letter that stood for a share there
    std::string networkPath{};    ///< below \\server\share
    std::string variablePath{};   ///< with variables between percent signs
    std::string relativePath{};   ///< from the link's folder
    std::string workingFolder{};  ///< for a program that the link starts; for documents often their folder
};

/// Takes a shortcut file apart. Nothing when the bytes are none. Of one that is cut off or damaged later on there is
/// what stands before the damage. Texts in code pages are taken as Windows-1252, or as UTF-8 where they are that.
[[nodiscard]] std::optional<ShellLink> ParseShellLink(std::string_view bytes);

}  // namespace tavrix

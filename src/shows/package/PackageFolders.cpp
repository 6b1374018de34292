#include "shows/package/PackageFolders.h"

#include <cstddef>
#include <vector>

#include "base/Text.h"
#include "core/Folders.h"
#include "platform/services/DrivePath.h"
#include "shows/package/PackageLayout.h"

namespace tavrix {
namespace {

const std::string Paragraph(NewLine2);

/// The folder that one lies in, with a backslash at the end; empty for the root of a drive.
std::string ParentOf(const std::string& folder) {
    constexpr std::size_t lengthOfRoot = 3;
    std::string path = WithBackslash(folder);
    path.pop_back();
    return path.size() < lengthOfRoot ? std::string() : FolderOf(path);
}

/// The last component of a folder's path.
std::string NameOf(const std::string& folder) {
    std::string path = WithBackslash(folder);
    path.pop_back();
    return FileNameOf(path);
}

std::string RootOf(const std::string& folder) {
    return folder.empty() ? folder : Left(folder, 2) + "\\";
}

}  // namespace

bool SameFolder(const MainModule& module, const std::string& a, const std::string& b) {
    if (a.empty() || b.empty()) return false;
    if (EqualIgnoringCase(WithBackslash(NormalPath(a)), WithBackslash(NormalPath(b)))) return true;
    const std::string shortOfA = GetShortPath(module, a);
    if (!shortOfA.empty() && EqualIgnoringCase(shortOfA, GetShortPath(module, b))) return true;
    return module.platform.files.Same(a, b);
}

bool LiesBelow(const MainModule& module, const std::string& folder, const std::string& above) {
    if (above.empty()) return false;
    for (std::string parent = ParentOf(folder); !parent.empty(); parent = ParentOf(parent)) {
        if (SameFolder(module, parent, above)) return true;
    }
    return false;
}

std::optional<std::string> RefusedDestination(const MainModule& module, const std::string& destination,
                                              const std::string& source, const std::string& kind) {
    const std::string may = "You may not create a " + kind + " package in ";
    const std::string should = "You should not create a " + kind + " package in ";
    const std::string windows = GetWindowsFolder(module);
    const auto is = [&](const std::string& folder) { return SameFolder(module, destination, folder); };
    const auto named = [&](const std::string& text) {
        return text + Paragraph + destination + Paragraph +
               "Select another destination location and then try again...";
    };
    if (is(module.AppPath)) return named(may + "your Tavrix installation directory:");
    if (is(windows)) return named(may + "your WINDOWS directory:");
    if (is(GetSystemFolder(module))) return named(may + "your WINDOWS\\SYSTEM directory:");
    if (LiesBelow(module, destination, windows)) return named(should + "a WINDOWS sub-directory:");
    if (is(RootOf(windows))) {
        return should + "the root directory of your WINDOWS drive:" + Paragraph +
               "Create and/or select a folder to create package in and then try again...";
    }
    if (is(module.AppPath + "SLIDES\\")) return named(should + "your Tavrix \\SLIDES directory:");
    if (is(source)) return named(may + "the same directory as the source files.");
    const bool sourceIsInside =
        (EqualIgnoringCase(NameOf(source), package::SlidesFolder) && is(ParentOf(source))) ||
        SameFolder(module, WithBackslash(destination) + package::SlidesFolder, source);
    if (sourceIsInside) {
        return named("You may not create a " + kind +
                     " package where the source file(s) are in the destination's \\SLIDES directory.");
    }
    return std::nullopt;
}

std::optional<std::string> FolderQuestion(const std::vector<std::string>& folders,
                                          const std::string& destination, const std::string& kind) {
    bool slides = false;
    bool others = false;
    for (const std::string& folder : folders) {
        const std::string name = NameOf(folder);
        if (EqualIgnoringCase(name, package::SlidesFolder)) {
            slides = true;
        } else if (!EqualIgnoringCase(name, package::LibraryFolder)) {
            others = true;
        }
    }
    if (!slides && !others) return std::nullopt;
    std::string text = "The selected package directory contains folders that are not related to Tavrix:";
    if (slides) {
        text = others ? "The selected package directory already has a SLIDES folder.  Other directories not "
                        "related to Tavrix also exist in this folder:"
                      : "The selected package directory already has a SLIDES folder in it:";
    }
    return text + Paragraph + destination + Paragraph + "Create a " + kind +
           " package directory here anyway?";
}

std::optional<std::string> RefusedDeletion(const MainModule& module, const std::string& folder) {
    const std::string windows = GetWindowsFolder(module);
    std::vector<std::string> refused{module.AppPath};
    for (const std::string& path : {windows, GetSystemFolder(module), RootOf(windows)}) {
        if (!path.empty()) refused.push_back(path);
    }
    bool isRefused =
        LiesBelow(module, folder, windows) || SameFolder(module, folder, module.AppPath + "SLIDES\\");
    std::string list;
    for (const std::string& path : refused) {
        isRefused = isRefused || SameFolder(module, folder, path);
        if (!list.empty()) list += " or ";
        list += path;
    }
    if (!isRefused) return std::nullopt;
    return list;
}

}  // namespace tavrix

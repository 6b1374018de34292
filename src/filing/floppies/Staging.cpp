#include "filing/floppies/Staging.h"

#include <algorithm>
#include <array>
#include <ranges>
#include <set>
#include <utility>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FailureText.h"
#include "core/FileServices.h"
#include "core/Folders.h"
#include "core/KeptWorkingFiles.h"

namespace tavrix {
namespace {

/// What an edit needs of the temporary folder.
constexpr const char* WorkingFile = "Untitled.BMP";
constexpr std::array<const char*, 2> FilesOfEdits{WorkingFile, "~undo.tmp"};
/// No image has a name that ends so, and none is staged under it.
constexpr const char* AsideEnding = ".aside";

std::string AsideNameOf(const std::string& name) {
    return name + AsideEnding;
}

/// Puts one file back in the place of the copy that stands there. False when it could not be.
bool PutBack(const MainModule& module, const std::string& folder, const std::string& name) {
    try {
        return module.platform.files.Move(folder + AsideNameOf(name), folder + name);
    } catch (const RuntimeError&) {
        return false;
    }
}

/// A name that none of the others has, whatever its case.
std::string FreeName(const std::string& name, const std::set<std::string>& taken) {
    const std::size_t point = std::min(name.rfind('.'), name.size());
    for (int number = 2;; ++number) {
        std::string free = name.substr(0, point) + " " + std::to_string(number) + name.substr(point);
        if (!taken.contains(free)) return free;
    }
}

}  // namespace

Staging::Staging(const MainModule& module, const std::vector<std::string>& names)
    : module_(module), folder_(GetTempFolder(module)) {
    std::set<std::string> taken;
    for (const std::string& name : names)
        taken.insert(UpperCase(name));
    std::set<std::string> used;
    for (const std::string& name : names) {
        std::string staged = UpperCase(name);
        if (used.contains(staged)) {
            staged = FreeName(staged, taken);
            taken.insert(staged);
        }
        used.insert(staged);
        paths_[name] = folder_ + staged;
    }
}

void Staging::SetAside() {
    Files& files = module_.platform.files;
    for (const char* name : FilesOfEdits) {
        const std::string path = folder_ + name;
        const bool wanted = std::ranges::any_of(paths_ | std::views::values, [&](const std::string& staged) {
            return EqualIgnoringCase(staged, path);
        });
        if (!wanted) continue;
        try {
            files.Rename(path, folder_ + AsideNameOf(name));
            aside_.emplace_back(name);
        } catch (const RuntimeError& error) {
            if (error.Number() != ErrorNumber::FileNotFound) throw;
        }
    }
    // A copy over a file of another spelling would have that one's name.
    for (const std::string& path : paths_ | std::views::values) {
        if (files.FileExists(path) && !files.HasExactly(path)) files.Rename(path, path);
    }
}

void Staging::Clear() {
    for (const std::string& path : staged_) {
        SkipFailure([&] {
            RequireExactly(module_, path);
            module_.platform.files.Delete(path);
        });
    }
    staged_.clear();
    for (const std::string& name : std::exchange(aside_, {})) {
        if (PutBack(module_, folder_, name) || PutBack(module_, folder_, name)) continue;
        module_.app.MessageBox({.text = "The image that was edited is now in the file:" +
                                        std::string(NewLine2) + folder_ + AsideNameOf(name),
                                .icon = forms::BoxIcon::Exclamation});
    }
}

void PutBackSetAside(MainModule& module) {
    Files& files = module.platform.files;
    const std::string folder = GetTempFolder(module);
    for (const std::string name : FilesOfEdits) {
        if (!files.HasExactly(folder + AsideNameOf(name))) continue;
        // In another spelling it is a copy that was left; in its own one it is newer than what was set aside.
        if (files.HasExactly(folder + name)) continue;
        if (PutBack(module, folder, name) && name == WorkingFile) KeepWorkingFile(module, folder + name);
    }
}

}  // namespace tavrix

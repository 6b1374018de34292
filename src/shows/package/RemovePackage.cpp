#include "shows/package/RemovePackage.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <sstream>
#include <vector>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FailureText.h"
#include "core/FileServices.h"
#include "shows/files/CopyNames.h"
#include "shows/package/PackageLayout.h"

namespace tavrix {
namespace {

constexpr const char* SlidePatterns =
    "*.BMP;*.DIB;*.GIF;*.JPG;*.JIF;*.JPE;*.JPEG;*.WMF;*.EMF;*.ICO;*.RLE;*.CUR;*.WAV;*.MID;*.TVS";

/// The bare names in a text, a line each; all else is passed over, since a package's own files must not lead anywhere.
std::vector<std::string> BareNames(const std::string& text) {
    std::vector<std::string> names;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (line.ends_with('\r')) line.pop_back();
        const bool bare = CanName(line) && line.find_first_of("\\/:*?\"") == std::string::npos;
        if (bare) names.push_back(line);
    }
    return names;
}

class RemovingPackage {
  public:
    RemovingPackage(const MainModule& module, const std::string& folder, const std::string& name)
        : module_(module), files_(module.platform.files), folder_(WithBackslash(folder)), name_(name) {}

    void Run() {
        try {
            RemoveSlides();
            RemoveLibraries();
            RemoveProgram();
            RemoveFolderItself();
        } catch (const RuntimeError& error) {
            TellFailure(module_, failure_, error);
            return;
        }
        module_.app.MessageBox({.text = "The slide show package " + name_ + " has been deleted..."});
    }

  private:
    /// A subfolder of the package's own, with a backslash at the end. One that is a link leads to files that are none of
    /// the package's.
    [[nodiscard]] std::optional<std::string> OwnFolder(const char* name) {
        failure_ = "Unable to remove the folder " + folder_ + name;
        for (const std::string& path : files_.Look(folder_, "*.*")->Take().folders) {
            if (EqualIgnoringCase(FileNameOf(path), name)) return WithBackslash(path);
        }
        return std::nullopt;
    }

    void RemoveSlides() {
        const std::optional<std::string> slides = OwnFolder(package::SlidesFolder);
        if (!slides) return;
        for (const std::string& file : files_.List(*slides, SlidePatterns))
            DeleteFile("Unable to delete this file:", *slides + file);
        if (!TellsWhatStays(*slides)) RemoveFolder(*slides);
    }

    void RemoveLibraries() {
        const std::optional<std::string> libraries = OwnFolder(package::LibraryFolder);
        if (!libraries) return;
        failure_ = "Unable to delete program file:" + std::string(NewLine2) + folder_ + package::LibraryList;
        if (files_.FileExists(folder_ + package::LibraryList)) {
            const std::vector<std::string> listed = BareNames(ReadText(folder_ + package::LibraryList));
            for (const std::string& file : files_.List(*libraries, "*.*")) {
                if (std::ranges::find(listed, file) != listed.end()) DeleteProgramFile(*libraries + file);
            }
        }
        if (!TellsWhatStays(*libraries)) RemoveFolder(*libraries);
    }

    void RemoveProgram() {
        for (const package::LayoutEntry& entry : package::Layout)
            DeleteIfThere(std::string(entry.name));
        // By the one that is deleted last it is still known as a package.
        for (auto name = package::WrittenFiles.rbegin(); name != package::WrittenFiles.rend(); ++name)
            DeleteIfThere(std::string(*name));
    }

    void DeleteIfThere(const std::string& name) {
        if (files_.FileExists(folder_ + name)) DeleteProgramFile(folder_ + name);
    }

    void DeleteProgramFile(const std::string& path) { DeleteFile("Unable to delete program file:", path); }

    void DeleteFile(const std::string& failure, const std::string& path) {
        failure_ = failure + std::string(NewLine2) + path;
        module_.DoEvents();
        try {
            static_cast<void>(DeleteToBin(module_, path, false));
        } catch (const RuntimeError&) {
            if (!module_.config.UseRecycleBin) throw;
            files_.Delete(path);  // there is no trash for it, and the user was told that it goes
        }
    }

    /// Whether anything that is not of a package lies in a folder, which is told.
    [[nodiscard]] bool TellsWhatStays(const std::string& folder) {
        failure_ = "Unable to remove the folder " + folder;
        const char* what = nullptr;
        if (!files_.List(folder, "*.*").empty()) what = "files";
        if (!files_.Folders(folder).empty()) what = "folders";
        if (what == nullptr) return false;
        module_.app.MessageBox({.text = "There are other " + std::string(what) + " in " + folder +
                                        " that could not be removed by this command, you may want to delete "
                                        "these later...",
                                .icon = forms::BoxIcon::Exclamation});
        return true;
    }

    void RemoveFolderItself() {
        constexpr std::size_t lengthOfRoot = 3;
        if (TellsWhatStays(folder_) || folder_.size() <= lengthOfRoot) return;
        RemoveFolder(folder_);
    }

    void RemoveFolder(const std::string& folder) {
        failure_ = "Unable to remove the folder " + folder;
        files_.RemoveFolder(folder.substr(0, folder.size() - 1));
    }

    [[nodiscard]] std::string ReadText(const std::string& path) {
        constexpr std::size_t Most = std::size_t{1} << 20U;  // of a list that is none
        std::string text;
        const auto file = files_.Open(path);
        std::array<char, 4096> part{};
        while (text.size() < Most) {
            const std::size_t count = file->Read(std::as_writable_bytes(std::span(part)));
            if (count == 0) break;
            text.append(part.data(), count);
        }
        return text;
    }

    const MainModule& module_;
    Files& files_;
    std::string folder_;
    const std::string& name_;
    std::string failure_;  ///< what a failure now means
};

}  // namespace

void RemovePackage(const MainModule& module, const std::string& folder, const std::string& name) {
    RemovingPackage(module, folder, name).Run();
}

}  // namespace tavrix

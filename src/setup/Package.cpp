#include "setup/Package.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <sstream>
#include <system_error>

#include "backends/linux/HostFile.h"
#include "backends/linux/HostProfile.h"
#include "backends/shared/ProfileText.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

namespace tavrix::setup {
namespace {

namespace fs = std::filesystem;

constexpr const char* Section = "Tavrix Setup";

bool IsFile(const fs::path& path) {
    std::error_code error;
    return fs::is_regular_file(fs::symlink_status(path, error));
}

/// The files below a folder, by their paths in it.
std::vector<std::string> FilesBelow(const fs::path& folder) {
    std::vector<std::string> files;
    std::error_code error;
    for (fs::recursive_directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
        if (IsFile(at->path())) files.push_back(at->path().lexically_relative(folder).string());
    }
    if (error && error != std::errc::no_such_file_or_directory) throw ErrorOf(error.value());
    std::ranges::sort(files);
    return files;
}

bool IsInside(const fs::path& path) {
    return !path.empty() && path.is_relative() &&
           std::ranges::none_of(path, [](const fs::path& part) { return part == ".." || part == "."; });
}

}  // namespace

PackageNotes ReadNotes(const std::string& folder, const PackageNames& names) {
    const std::optional<std::string> text = ReadWholeFile(folder + "/" + names.notes, LargestProfile);
    if (!text) throw RuntimeError(ErrorNumber::FileNotFound);
    const ProfileSection section = ReadProfileSection(*text, Section);
    const auto read = [&section](const char* key) { return Trim(section.Read(key, LargestProfile)); };
    const auto isTrue = [&read](const char* key) { return EqualIgnoringCase(read(key), "True"); };
    PackageNotes notes{.show = read("SlideShowFile"),
                       .name = read("SlideShowName"),
                       .screenSaver = isTrue("ScreenSaver"),
                       .makeDefault = isTrue("MakeDefaultSaver"),
                       .shortcut = isTrue("SlideShowShortcut")};
    if (notes.name.empty()) notes.name = "Untitled";
    const bool bare = !notes.show.empty() && notes.show.find('/') == std::string::npos;
    if (!bare || !IsFile(ShowOf(folder, names, notes))) throw RuntimeError(ErrorNumber::FileNotFound);
    return notes;
}

std::string ShowOf(const std::string& folder, const PackageNames& names, const PackageNotes& notes) {
    return folder + "/" + names.slides + "/" + notes.show;
}

std::vector<std::string> PathsIn(const std::string& text) {
    std::vector<std::string> paths;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (line.ends_with('\r')) line.pop_back();
        if (IsInside(line)) paths.push_back(line);
    }
    return paths;
}

std::vector<std::string> FilesOf(const std::string& folder, const PackageNames& names) {
    const auto at = [&folder](const std::string& path) { return folder + "/" + path; };
    const std::optional<std::string> list = ReadWholeFile(at(names.list));
    if (!list) throw RuntimeError(ErrorNumber::FileNotFound);
    std::vector<std::string> files;
    for (const std::string& name : names.files) {
        if (IsFile(at(name))) files.push_back(name);
    }
    for (const std::string& name : PathsIn(*list)) {
        if (name.find('/') != std::string::npos) continue;
        const std::string path = names.library + "/" + name;
        if (!IsFile(at(path))) throw RuntimeError(ErrorNumber::FileNotFound);
        files.push_back(path);
    }
    for (const std::string& name : FilesBelow(at(names.slides)))
        files.push_back(names.slides + "/" + name);
    return files;
}

std::int64_t SizeOf(const std::string& folder, std::span<const std::string> files) {
    std::int64_t size = 0;
    for (const std::string& file : files) {
        std::error_code error;
        const auto bytes = fs::file_size(folder + "/" + file, error);
        if (!error) size += static_cast<std::int64_t>(bytes);
    }
    return size;
}

}  // namespace tavrix::setup

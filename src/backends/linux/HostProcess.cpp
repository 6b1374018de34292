#include "backends/linux/HostProcess.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

#include "backends/linux/HostFile.h"
#include "backends/shared/FileAddress.h"
#include "base/Text.h"
#include "platform/services/DesktopStart.h"
#include "platform/services/DrivePath.h"

namespace tavrix {
namespace {

constexpr std::string_view SaverWord = "SCRNSAVE";

bool IsHostPath(const std::string& text) {
    // A bare word is a command, whatever lies about under that name; a picture or a show has an ending.
    if (text.find_first_of("./") == std::string::npos) return false;
    std::error_code error;
    if (std::filesystem::is_regular_file(text, error)) return true;
    const bool drivePath = text.size() > 1 && IsDriveLetter(text[0]) && text[1] == ':';
    return !drivePath && text.find("://") == std::string::npos && text.find('/', 1) != std::string::npos;
}

std::string Absolute(const std::string& path) {
    std::error_code error;
    // A way up goes where the system would go, links included.
    if (path.find("..") != std::string::npos) {
        const auto straight = std::filesystem::weakly_canonical(path, error);
        if (!error) return straight.string();
    }
    const auto absolute = std::filesystem::absolute(path, error);
    return error ? path : absolute.string();
}

}  // namespace

HostProcess::HostProcess(DriveMap& drives, HostPaths paths, const std::vector<std::string>& arguments)
    : drives_(drives), paths_(std::move(paths)) {
    for (const std::string& argument : arguments) {
        if (!commandLine_.empty()) commandLine_.push_back(' ');
        commandLine_ += argument;
    }
}

std::string HostProcess::WithDrivePath(const std::string& text) {
    if (const auto path = PathOfFileAddress(text)) return drives_.ToDrivePath(*path);
    return IsHostPath(text) ? drives_.ToDrivePath(Absolute(text)) : text;
}

std::string HostProcess::WithDesktopPath(const DesktopStart& start) {
    const std::string& file = start.file;
    const bool drivePath = file.size() > 1 && IsDriveLetter(file[0]) && file[1] == ':';
    std::string path = file;
    if (const auto addressed = PathOfFileAddress(file)) {
        path = drives_.ToDrivePath(*addressed);
    } else if (!file.empty() && !drivePath) {
        path = drives_.ToDrivePath(Absolute(file));
    }
    return std::string(start.option) + (path.empty() ? "" : " " + path);
}

std::string HostProcess::CommandLine() {
    if (const auto start = DesktopStartOf(commandLine_)) return WithDesktopPath(*start);
    const std::string saver = std::string(SaverWord) + " ";
    if (!commandLine_.starts_with(saver)) return WithDrivePath(commandLine_);
    const std::string rest = Trim(std::string_view(commandLine_).substr(saver.size()));
    const std::string told = WithDrivePath(rest);
    return told == rest ? commandLine_ : saver + told;
}

std::string HostProcess::Path() {
    MakeFolders(paths_.program);
    return drives_.ToDrivePath(paths_.program);
}

void HostProcess::End() {
    if (BeforeEnd) BeforeEnd();
    std::_Exit(0);
}

}  // namespace tavrix

#include "backends/linux/LibraryClosure.h"

#include <fcntl.h>
#include <link.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <sstream>
#include <system_error>

#include "backends/linux/HostFile.h"
#include "base/RuntimeError.h"

namespace tavrix {
namespace {

/// The loader of the running program, as its file names it.
std::string OwnLoader() {
    std::string path;
    ::dl_iterate_phdr(
        [](dl_phdr_info* info, std::size_t, void* into) {
            for (int i = 0; i < info->dlpi_phnum; ++i) {
                const auto& header = info->dlpi_phdr[i];
                if (header.p_type != PT_INTERP) continue;
                *static_cast<std::string*>(into) =
                    reinterpret_cast<const char*>(info->dlpi_addr + header.p_vaddr);
            }
            return 1;  // the program comes first
        },
        &path);
    return path;
}

/// The environment without what would be loaded besides.
std::vector<char*> PlainEnvironment() {
    std::vector<char*> entries;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        if (!std::string_view(*entry).starts_with("LD_PRELOAD=")) entries.push_back(*entry);
    }
    entries.push_back(nullptr);
    return entries;
}

std::string ReadAll(const FileDescriptor& pipe) {
    std::string text;
    std::array<char, 16384> part{};
    for (;;) {
        const ssize_t count = ::read(pipe.Number(), part.data(), part.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return text;
        text.append(part.data(), static_cast<std::size_t>(count));
    }
}

/// What a program writes to its output; its complaints go nowhere. Throws where it cannot be started.
std::string OutputOf(std::vector<std::string> call) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw ErrorOf(errno);
    const FileDescriptor from(ends[0]);
    FileDescriptor to(ends[1]);
    std::vector<char*> arguments;
    for (std::string& text : call)
        arguments.push_back(text.data());
    arguments.push_back(nullptr);
    std::vector<char*> environment = PlainEnvironment();

    posix_spawn_file_actions_t actions;
    if (::posix_spawn_file_actions_init(&actions) != 0) throw ErrorOf(ENOMEM);
    ::posix_spawn_file_actions_adddup2(&actions, to.Number(), STDOUT_FILENO);
    ::posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    const int error =
        ::posix_spawn(&child, arguments.front(), &actions, nullptr, arguments.data(), environment.data());
    ::posix_spawn_file_actions_destroy(&actions);
    if (error != 0) throw ErrorOf(error);
    to.Close();
    std::string text = ReadAll(from);
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return text;
}

std::string WithoutLinks(const std::string& path) {
    std::error_code error;
    const auto canonical = std::filesystem::canonical(path, error);
    if (error) throw RuntimeError(ErrorNumber::FileNotFound);
    return canonical.string();
}

}  // namespace

std::vector<SharedLibrary> ReadLoaderList(std::string_view text) {
    constexpr std::string_view Arrow = " => ";
    std::vector<SharedLibrary> libraries;
    std::istringstream lines{std::string(text)};
    for (std::string line; std::getline(lines, line);) {
        const std::size_t arrow = line.find(Arrow);
        if (arrow == std::string::npos) continue;  // a file by its path: a plugin, or the loader
        const std::size_t path = arrow + Arrow.size();
        const std::size_t end = line.rfind(" (0x");
        if (end == std::string::npos || end < path) throw RuntimeError(ErrorNumber::FileNotFound);
        const std::size_t name = std::min(line.find_first_not_of('\t'), arrow);
        libraries.push_back({line.substr(name, arrow - name), line.substr(path, end - path)});
    }
    std::ranges::sort(libraries, {}, &SharedLibrary::name);
    return libraries;
}

LibraryClosure ClosureOf(const std::string& program, std::span<const std::string> plugins,
                         std::span<const char* const> names) {
    std::string later;
    for (const std::string& plugin : plugins)
        later += plugin + ':';
    for (const char* name : names)
        later += std::string(name) + ':';
    const std::string loader = OwnLoader();
    std::vector<std::string> call{loader, "--list", WithoutLinks(program)};
    if (!later.empty()) call.insert(call.begin() + 1, {"--preload", later});
    LibraryClosure closure{ReadLoaderList(OutputOf(std::move(call))), WithoutLinks(loader)};
    if (closure.libraries.empty()) throw RuntimeError(ErrorNumber::FileNotFound);
    for (SharedLibrary& library : closure.libraries)
        library.path = WithoutLinks(library.path);
    return closure;
}

}  // namespace tavrix

#include "backends/linux/ChildProgram.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <system_error>
#include <thread>
#include <utility>

namespace tavrix {

std::optional<ChildProgram> ChildProgram::Start(const std::string& path, std::vector<std::string> call,
                                                int standard) {
    std::vector<char*> words;
    for (std::string& text : call)
        words.push_back(text.data());
    words.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawnattr_t attributes;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawnattr_init(&attributes);
    if (standard >= 0) {
        ::posix_spawn_file_actions_adddup2(&actions, standard, STDIN_FILENO);
        ::posix_spawn_file_actions_adddup2(&actions, standard, STDOUT_FILENO);
    }
    sigset_t none;
    sigset_t all;
    ::sigemptyset(&none);
    ::sigfillset(&all);
    ::posix_spawnattr_setsigmask(&attributes, &none);
    ::posix_spawnattr_setsigdefault(&attributes, &all);
    ::posix_spawnattr_setflags(&attributes,
                               POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    pid_t child = 0;
    const int error = ::posix_spawnp(&child, path.c_str(), &actions, &attributes, words.data(), environ);
    ::posix_spawnattr_destroy(&attributes);
    ::posix_spawn_file_actions_destroy(&actions);
    if (error != 0) return std::nullopt;
    return ChildProgram(child);
}

ChildProgram::ChildProgram(ChildProgram&& other) noexcept : child_(std::exchange(other.child_, 0)) {}

ChildProgram& ChildProgram::operator=(ChildProgram&& other) noexcept {
    if (this == &other) return *this;
    Leave();
    child_ = std::exchange(other.child_, 0);
    return *this;
}

void ChildProgram::Leave() {
    if (child_ == 0 || ::waitpid(child_, nullptr, WNOHANG) == child_) return;
    try {
        // Somebody has to take note of its end, or it stays in the table of processes.
        std::thread([child = child_] {
            while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
            }
        }).detach();
    } catch (const std::system_error&) {  // it runs all the same
    }
}

std::optional<int> ChildProgram::End(std::chrono::milliseconds within) {
    const auto limit = std::chrono::steady_clock::now() + within;
    while (child_ != 0) {
        int status = 0;
        const pid_t ended = ::waitpid(child_, &status, WNOHANG);
        if (ended == child_) {
            child_ = 0;
            return status;
        }
        if ((ended < 0 && errno != EINTR) || std::chrono::steady_clock::now() >= limit) break;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return std::nullopt;
}

void ChildProgram::Kill() const {
    if (child_ != 0) ::kill(child_, SIGKILL);
}

}  // namespace tavrix
